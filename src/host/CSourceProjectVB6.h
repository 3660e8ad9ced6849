#pragma once

#include <string>

#include "host/vb6/Vb6FormFile.h"
#include "model/IHelpPrjSourceProject.h"

namespace scriv {

// A VB6 project read from its files: the .vbp names the forms, user controls
// and user documents, and each file's header gives a form's name and caption.
class CSourceProjectVB6 : public IHelpPrjSourceProject {
public:
    // ^IHelpPrjSourceProject
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
    void Terminate() override;
    bool IsValid() const override { return m_valid; }
    std::string ProjectType() const override { return "VB"; }
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
    SourceItems& Worksheets() override { return m_empty; }
    SourceItems& Charts() override { return m_empty; }

private:
    void ReadFormHeader(const std::string& relativePath, Vb6FormKind kind, const std::string& subType);

    std::string m_name;
    std::string m_folder;
    SourceItems m_forms;
    SourceItems m_empty;
    bool m_valid { false };
};

// The front of the source project readers: the first reader that accepts the
// type name reads the project, and every call goes to it.
class CHelpPrjSourceProject : public IHelpPrjSourceProject {
public:
    // ^IHelpPrjSourceProject
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
    void Terminate() override;
    bool IsValid() const override { return m_reader && m_reader->IsValid(); }
    std::string ProjectType() const override { return m_reader ? m_reader->ProjectType() : std::string(); }
    std::string Name() const override { return m_reader ? m_reader->Name() : std::string(); }
    bool IsProjectGroup() const override { return m_reader && m_reader->IsProjectGroup(); }
    SourceItems& Forms() override { return m_reader ? m_reader->Forms() : m_none; }
    bool CouldHaveReports() const override { return m_reader && m_reader->CouldHaveReports(); }
    SourceItems& Reports() override { return m_reader ? m_reader->Reports() : m_none; }
    bool CouldHaveTables() const override { return m_reader && m_reader->CouldHaveTables(); }
    SourceItems& Tables() override { return m_reader ? m_reader->Tables() : m_none; }
    bool CouldHaveQueries() const override { return m_reader && m_reader->CouldHaveQueries(); }
    SourceItems& Queries() override { return m_reader ? m_reader->Queries() : m_none; }
    bool CouldHaveMacros() const override { return m_reader && m_reader->CouldHaveMacros(); }
    SourceItems& Macros() override { return m_reader ? m_reader->Macros() : m_none; }
    SourceItems& Worksheets() override { return m_reader ? m_reader->Worksheets() : m_none; }
    SourceItems& Charts() override { return m_reader ? m_reader->Charts() : m_none; }

private:
    std::unique_ptr<IHelpPrjSourceProject> m_reader;
    SourceItems m_none;
};

}  // namespace scriv
