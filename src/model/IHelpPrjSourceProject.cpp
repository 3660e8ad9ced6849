#include "model/IHelpPrjSourceProject.h"

#include <array>
#include <optional>
#include <utility>

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTreeNode.h"

namespace scriv {

std::string CHelpPrjSourceItem::FormNameNormalized() const
{
    return GetComponentFileName(FormName);
}

int CHelpPrjSourceItem::ObjectType() const
{
    static const std::array<std::pair<const char*, int>, 7> kinds { {
        { "Form", objtype::kForm },
        { "Report", objtype::kReport },
        { "Table", objtype::kTable },
        { "Query", objtype::kQuery },
        { "Macro", objtype::kMacro },
        { "Worksheet", objtype::kWorksheet },
        { "Chart", objtype::kChart },
    } };
    for (const auto& [name, type] : kinds)
        if (EqualsNoCase(SubType, name))
            return type;
    return objtype::kNone;
}

namespace {

struct SearchTexts {
    const char* typeName;
    const char* name;
    const char* caption;
};

// What sets a form's name and caption in the generated code of each language.
// ASP.NET pages are not searched: its texts stand for nothing to find.
constexpr std::array<SearchTexts, 5> kSearchTexts { {
    { "VB.NET", "Me.Name = \"", "Me.Text = \"" },
    { "C#", "this.Name = \"", "this.Text = \"" },
    { "J#", "this.set_Name(\"", "this.set_Text(\"" },
    { "C++", "this->Name = S\"", "this->Text = S\"" },
    { "ASP.NET", "NEVERUSEDNAMEPREF", "NEVERUSEDTEXTPREF" },
} };

bool StartsStatement(std::string_view text, std::size_t at)
{
    if (at == 0)
        return true;
    char before = text[at - 1];
    return before == ' ' || before == '\t' || before == '\n' || before == '\r' || before == ':';
}

// The quoted value behind the first statement that starts with prefix.
std::optional<std::string> FindAssignedText(std::string_view text, std::string_view prefix)
{
    std::string lower = ToLower(text);
    std::string wanted = ToLower(prefix);
    for (std::size_t at = lower.find(wanted); at != std::string::npos; at = lower.find(wanted, at + 1)) {
        if (!StartsStatement(text, at))
            continue;
        std::size_t start = at + prefix.size();
        std::size_t quote = text.find('"', start);
        return std::string(text.substr(start, quote == std::string_view::npos ? std::string_view::npos : quote - start));
    }
    return std::nullopt;
}

// "Form1.Designer.vb" and "Form1.vb" stand for each other.
std::string CompanionOf(const std::string& folder, const std::string& baseName, const std::string& extension,
    bool isDesigner)
{
    if (isDesigner)
        return folder + ReplaceAllNoCase(baseName, ".Designer", "") + extension;
    return folder + baseName + ".Designer" + extension;
}

void TraceTrap(const char* operation, const std::string& text)
{
    Trace(std::string("CHelpPrjSourceItem.") + operation + ": " + text);
}

}  // namespace

void CHelpPrjSourceItem::Init(const pugi::xml_node& fileElement, const std::string& folder,
    const std::string& projectName, const std::string& typeName, const std::string& extraFileName)
{
    try {
        BaseFolder = AddBackslash(folder);
        ProjectName = projectName;
        IsVSProjectItem = true;
        pugi::xml_attribute relative = fileElement.attribute("RelativePath");
        RelativePath = relative ? relative.value() : fileElement.attribute("RelPath").value();
        pugi::xml_attribute fileType = fileElement.attribute("FileType");
        SubType = fileType ? fileType.value() : fileElement.attribute("SubType").value();
        if (SubType == "3")
            SubType = "Form";
        if (pugi::xml_attribute action = fileElement.attribute("BuildAction"))
            BuildAction = action.value();
        Link = fileElement.attribute("Link").value();
        std::string path;
        if (!extraFileName.empty()) {
            std::string joined = BaseFolder + ToNativePath(extraFileName);
            path = FileExists(joined) ? joined : extraFileName;
        } else {
            path = Link.empty() ? BaseFolder + ToNativePath(RelativePath) : ToNativePath(Link);
        }
        Parse(path, typeName, true);
    } catch (const std::exception& error) {
        TraceTrap("Init", error.what());
    }
}

void CHelpPrjSourceItem::InitForVb6(const std::string& folder, const std::string& relativePath,
    const std::string& projectName, const std::string& typeName, const std::string& formName,
    const std::string& formCaption, const std::string& guiObjectSubType)
{
    InitForMSAccess(folder, relativePath, projectName, "Form", formName, formCaption);
    GUIObjectSubType = guiObjectSubType;
}

void CHelpPrjSourceItem::InitForMSAccess(const std::string& folder, const std::string& relativePath,
    const std::string& projectName, const std::string& subType, const std::string& formName,
    const std::string& formCaption)
{
    BaseFolder = AddBackslash(folder);
    RelativePath = relativePath;
    ProjectName = projectName;
    SubType = subType;
    FormName = formName;
    FormCaption = formCaption;
    BuildAction = "Compile";
}

void CHelpPrjSourceItem::InitForMSExcel(const std::string& folder, const std::string& relativePath,
    const std::string& projectName, const std::string& subType, const std::string& formName,
    const std::string& formCaption)
{
    InitForMSAccess(folder, relativePath, projectName, subType, formName, formCaption);
}

bool CHelpPrjSourceItem::Parse(const std::string& fullPath, const std::string& typeName, bool followDesigner)
{
    try {
        std::string folder = FolderOf(fullPath);
        std::string baseName = FileBaseName(fullPath);
        std::string extension = FileExtension(fullPath);
        bool isDesigner = ContainsNoCase(baseName, ".Designer");
        std::string defaultName = isDesigner ? ReplaceAllNoCase(baseName, ".Designer", "") : baseName;
        FormName = defaultName;
        FormCaption = defaultName;
        if (!FileExists(fullPath))
            return false;
        const SearchTexts* texts = nullptr;
        for (const SearchTexts& candidate : kSearchTexts)
            if (EqualsNoCase(typeName, candidate.typeName))
                texts = &candidate;
        if (!texts)
            return true;
        CUTF8FileReader reader;
        if (reader.LoadFile(fullPath) != 0)
            return false;
        std::optional<std::string> name = FindAssignedText(reader.Text(), texts->name);
        std::optional<std::string> caption = FindAssignedText(reader.Text(), texts->caption);
        if (!name && !caption && followDesigner) {
            CHelpPrjSourceItem companion;
            companion.Parse(CompanionOf(folder, baseName, extension, isDesigner), typeName, false);
            if (companion.FormName != defaultName)
                name = companion.FormName;
            if (companion.FormCaption != defaultName)
                caption = companion.FormCaption;
        }
        if (name)
            FormName = *name;
        if (caption)
            FormCaption = *caption;
        if (EqualsNoCase(typeName, "C++"))
            FormName = baseName;
        return true;
    } catch (const std::exception& error) {
        TraceTrap("Parse", error.what());
        return false;
    }
}

}  // namespace scriv
