#pragma once

#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "foundation/KeyedCollection.h"

namespace scriv {

// One documented object of an application project.
class CHelpPrjSourceItem {
public:
    // "Form", "Report", "Table", "Query", "Macro", "Worksheet", "Chart".
    std::string SubType;
    std::string BaseFolder;
    std::string ProjectName;
    std::string RelativePath;
    std::string BuildAction { "Compile" };
    std::string Link;
    std::string FormName;
    std::string FormCaption;
    // "UserControl", "UserDocument" or "" for a plain form.
    std::string GUIObjectSubType;
    bool Skipped { false };
    bool IsVSProjectItem { false };

    // FormName made safe as a file name.
    std::string FormNameNormalized() const;
    // The object type code of the item's kind.
    int ObjectType() const;
    void Terminate() { }

    // --- makers, one per origin; none of them raises ---

    // From the File element of a Visual Studio project file in folder. With
    // extraFileName the item is that file (joined to folder when it exists
    // there); otherwise the link, or folder + the relative path. Parses it.
    void Init(const pugi::xml_node& fileElement, const std::string& folder, const std::string& projectName,
        const std::string& typeName, const std::string& extraFileName = {});
    void InitForVb6(const std::string& folder, const std::string& relativePath, const std::string& projectName,
        const std::string& typeName, const std::string& formName, const std::string& formCaption,
        const std::string& guiObjectSubType);
    void InitForMSAccess(const std::string& folder, const std::string& relativePath, const std::string& projectName,
        const std::string& subType, const std::string& formName, const std::string& formCaption);
    void InitForMSExcel(const std::string& folder, const std::string& relativePath, const std::string& projectName,
        const std::string& subType, const std::string& formName, const std::string& formCaption);

    // Reads the form's name and caption from a source code file of a Visual
    // Studio form ("VB.NET", "C#", "J#", "C++", "ASP.NET"); a designer file and
    // its companion stand in for each other. False when the file is missing
    // or cannot be read; the defaults (the file's base name) then stay.
    bool Parse(const std::string& fullPath, const std::string& typeName, bool followDesigner);
};

using SourceItems = KeyedCollection<std::unique_ptr<CHelpPrjSourceItem>>;

// An application project as the generator sees it: its objects by kind.
class IHelpPrjSourceProject {
public:
    virtual ~IHelpPrjSourceProject() = default;

    virtual bool init(const std::string& projectFullPath, const std::string& typeName) = 0;
    virtual void Terminate() = 0;
    virtual bool IsValid() const = 0;
    virtual std::string ProjectType() const = 0;
    virtual std::string Name() const = 0;
    virtual bool IsProjectGroup() const = 0;

    virtual SourceItems& Forms() = 0;
    virtual bool CouldHaveReports() const = 0;
    virtual SourceItems& Reports() = 0;
    virtual bool CouldHaveTables() const = 0;
    virtual SourceItems& Tables() = 0;
    virtual bool CouldHaveQueries() const = 0;
    virtual SourceItems& Queries() = 0;
    virtual bool CouldHaveMacros() const = 0;
    virtual SourceItems& Macros() = 0;
    virtual SourceItems& Worksheets() = 0;
    virtual SourceItems& Charts() = 0;
};

}  // namespace scriv
