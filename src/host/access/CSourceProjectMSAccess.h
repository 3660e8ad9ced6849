#pragma once

#include <map>
#include <string>
#include <vector>

#include "model/IHelpPrjSourceProject.h"

namespace scriv {

class IHostAgent;

// What a form's or report's text definition says of it: its caption and the
// forms and reports it shows inside itself.
struct DefinitionSummary {
    std::string caption;
    std::vector<std::string> subObjects;
};

// Reads a definition written by SaveAsText: after the line "Begin " + kind
// (any first "Begin" line for an empty kind), the first line starting with
// "Caption" gives the caption (the text behind its first double quote, less
// its last character); a line starting with "Begin" ends that search. Every
// line starting with "SourceObject" names a subform or subreport, its leading
// "Form." or "Report." taken off.
DefinitionSummary ReadDefinitionText(const std::string& text, const std::string& kind);

// The objects of an Access database as its host lists them: tables, queries,
// macros, forms and reports. It does not open the database: the lists come
// from the host's commands, and each form's and report's caption from its
// definition, which the host saves as text.
class CSourceProjectMSAccess : public IHelpPrjSourceProject {
public:
    // The host is asked through agent, or through the current host's agent when none is given.
    explicit CSourceProjectMSAccess(IHostAgent* agent = nullptr)
        : m_agent(agent)
    {
    }

    // ^IHelpPrjSourceProject
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
    void Terminate() override;
    bool IsValid() const override { return m_valid; }
    std::string ProjectType() const override { return "MS ACCESS"; }
    std::string Name() const override { return m_name; }
    bool IsProjectGroup() const override { return false; }
    SourceItems& Forms() override { return m_forms; }
    bool CouldHaveReports() const override { return true; }
    SourceItems& Reports() override { return m_reports; }
    bool CouldHaveTables() const override { return true; }
    SourceItems& Tables() override { return m_tables; }
    bool CouldHaveQueries() const override { return true; }
    SourceItems& Queries() override { return m_queries; }
    bool CouldHaveMacros() const override { return true; }
    SourceItems& Macros() override { return m_macros; }
    SourceItems& Worksheets() override { return m_empty; }
    SourceItems& Charts() override { return m_empty; }

    // The subforms and subreports a form or report shows, by its name.
    const std::vector<std::string>& SubObjectsOf(const std::string& name) const;

private:
    struct Kind;
    void ReadNames(IHostAgent& agent, const Kind& kind, const std::vector<std::string>& names, SourceItems& items);

    IHostAgent* m_agent { nullptr };
    std::string m_name;
    std::string m_folder;
    SourceItems m_tables;
    SourceItems m_queries;
    SourceItems m_macros;
    SourceItems m_forms;
    SourceItems m_reports;
    SourceItems m_empty;
    std::map<std::string, std::vector<std::string>> m_subObjects;
    bool m_valid { false };
};

// A temporary file name in the system's temporary folder: prefix, a part of
// its own, and the extension (".txt").
std::string TemporaryFileName(const std::string& prefix, const std::string& extension);

}  // namespace scriv
