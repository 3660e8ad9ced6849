#pragma once

#include <string>

#include "model/IHelpPrjSourceProject.h"

namespace scriv {

class IHostAgent;

// The objects of an Excel workbook as its host lists them: worksheets,
// charts and the user forms of its VBA project. It does not open the
// workbook: the lists come from the host's commands, and each user form's
// caption from its definition, which the host saves as text.
class CSourceProjectMSExcel : public IHelpPrjSourceProject {
public:
    // The host is asked through agent, or through the current host's agent when none is given.
    explicit CSourceProjectMSExcel(IHostAgent* agent = nullptr)
        : m_agent(agent)
    {
    }

    // ^IHelpPrjSourceProject
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
    void Terminate() override;
    bool IsValid() const override { return m_valid; }
    std::string ProjectType() const override { return "MS EXCEL"; }
    std::string Name() const override { return m_name; }
    bool IsProjectGroup() const override { return false; }
    SourceItems& Forms() override { return m_forms; }
    bool CouldHaveReports() const override { return false; }
    SourceItems& Reports() override { return m_empty; }
    bool CouldHaveTables() const override { return false; }
    SourceItems& Tables() override { return m_empty; }
    bool CouldHaveQueries() const override { return false; }
    SourceItems& Queries() override { return m_empty; }
    bool CouldHaveMacros() const override { return false; }
    SourceItems& Macros() override { return m_empty; }
    SourceItems& Worksheets() override { return m_worksheets; }
    SourceItems& Charts() override { return m_charts; }

private:
    void ReadNames(IHostAgent& agent, const std::vector<std::string>& names, const char* loading, const char* processing,
        const char* skipped, const char* subType, SourceItems& items, bool forms);

    IHostAgent* m_agent { nullptr };
    std::string m_name;
    std::string m_folder;
    SourceItems m_worksheets;
    SourceItems m_charts;
    SourceItems m_forms;
    SourceItems m_empty;
    bool m_valid { false };
};

}  // namespace scriv
