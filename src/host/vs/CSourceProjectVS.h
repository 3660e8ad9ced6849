#pragma once

#include <string>
#include <vector>

#include <pugixml.hpp>

#include "model/IHelpPrjSourceProject.h"

// The readers of Visual Studio projects: a project file lists the forms (or,
// for ASP.NET, the pages) of a C#, VB.NET, J#, C++ or web project. Each reader
// answers only to its own type name and has forms alone.
namespace scriv {

// The old project XML's language elements, and the type each stands for.
struct VSLanguageRoot {
    const char* typeName;
    const char* rootPath;
    const char* itemListPath;
};
inline constexpr VSLanguageRoot kCSharpRoot { "C#", "VisualStudioProject/CSHARP", "VisualStudioProject/CSHARP/Files/Include" };
inline constexpr VSLanguageRoot kJSharpRoot { "J#", "VisualStudioProject/VISUALJSHARP",
    "VisualStudioProject/VISUALJSHARP/Files/Include" };
inline constexpr VSLanguageRoot kVBRoot { "VB.NET", "VisualStudioProject/VisualBasic",
    "VisualStudioProject/VisualBasic/Files/Include" };

// What the five readers share: the project's name and folder, its forms, and
// the empty lists of the kinds a Visual Studio project has none of.
class CSourceProjectVSBase : public IHelpPrjSourceProject {
public:
    // ^IHelpPrjSourceProject
    void Terminate() override;
    bool IsValid() const override { return m_valid; }
    std::string ProjectType() const override { return m_typeName; }
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

protected:
    explicit CSourceProjectVSBase(std::string typeName)
        : m_typeName(std::move(typeName))
    {
    }
    // Keeps the project's path, name and folder.
    void Start(const std::string& projectFullPath);
    // Adds an item under its form name; a second form of the same name is left out.
    void AddForm(std::unique_ptr<CHelpPrjSourceItem> item);
    // Adds an item for each File element of the list whose attribute has one of the values.
    void AddListedFiles(const pugi::xml_node& list, const char* attribute, const std::vector<std::string>& values);
    // The MSBuild forms of the project document: designer files that depend on
    // a code file, forms marked Form or UserControl without a designer, and,
    // for a project that lists no code at all (the SDK style), the designer
    // files found beside their code file in the project's folders.
    void AddMSBuildForms(const pugi::xml_document& document);
    // The init of the three languages: the old project XML under root, else MSBuild.
    bool InitLanguage(const std::string& projectFullPath, const std::string& typeName, const VSLanguageRoot& root,
        const char* className);

    std::string m_typeName;
    std::string m_path;
    std::string m_name;
    std::string m_folder;
    SourceItems m_forms;
    SourceItems m_empty;
    bool m_valid { false };
    bool m_terminated { false };
};

// A C# project: the old project XML (VisualStudioProject/CSHARP) or MSBuild.
class CSourceProjectCS : public CSourceProjectVSBase {
public:
    CSourceProjectCS()
        : CSourceProjectVSBase("C#")
    {
    }
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
};

// A VB.NET project: VisualStudioProject/VisualBasic or MSBuild.
class CSourceProjectVBNet : public CSourceProjectVSBase {
public:
    CSourceProjectVBNet()
        : CSourceProjectVSBase("VB.NET")
    {
    }
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
};

// A J# project: VisualStudioProject/VISUALJSHARP or MSBuild.
class CSourceProjectJS : public CSourceProjectVSBase {
public:
    CSourceProjectJS()
        : CSourceProjectVSBase("J#")
    {
    }
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
};

// A Visual C++ project (.vcproj): the header files of file type 3 or 4.
class CSourceProjectCPP : public CSourceProjectVSBase {
public:
    CSourceProjectCPP()
        : CSourceProjectVSBase("C++")
    {
    }
    bool init(const std::string& projectFullPath, const std::string& typeName) override;
};

// A web project of any of the three languages: its .aspx pages and .ascx
// user controls, read from a copy of the project file.
class CSourceProjectAspNet : public CSourceProjectVSBase {
public:
    CSourceProjectAspNet()
        : CSourceProjectVSBase("ASP.NET")
    {
    }
    bool init(const std::string& projectFullPath, const std::string& typeName) override;

private:
    void AddPages(const pugi::xml_node& list);
    void AddMSBuildPages(const pugi::xml_document& document);
};

// The source type name of a Visual Studio project file: "C#", "VB.NET",
// "J#" or "C++" by its extension, and "ASP.NET" for a web project of any
// language; "" for a file that is no project of these.
std::string VSProjectTypeName(const std::string& projectFullPath);

}  // namespace scriv
