#include "host/vs/CSourceProjectVS.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

bool IsOneOfNoCase(std::string_view value, const std::vector<std::string>& values)
{
    return std::any_of(values.begin(), values.end(), [&](const std::string& v) { return EqualsNoCase(value, v); });
}

// The element's name without a namespace prefix.
std::string LocalName(const pugi::xml_node& node)
{
    std::string name = node.name();
    std::size_t colon = name.find(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string ChildText(const pugi::xml_node& element, std::string_view name)
{
    for (pugi::xml_node child : element.children())
        if (child.type() == pugi::node_element && EqualsNoCase(LocalName(child), name))
            return TrimWhitespace(child.text().as_string());
    return {};
}

// A project's relative path with "/" and the case the disk has.
std::string OnDisk(const std::string& folder, const std::string& relative)
{
    std::string native = ToNativePath(relative);
    std::string found = FindPathNoCase(folder + native);
    if (found.size() > folder.size() && found.compare(0, folder.size(), folder) == 0)
        return found.substr(folder.size());
    return native;
}

// The code files of each language.
std::string CodeExtension(const std::string& typeName)
{
    if (EqualsNoCase(typeName, "VB.NET"))
        return ".vb";
    if (EqualsNoCase(typeName, "J#"))
        return ".jsl";
    return ".cs";
}

bool IsCodeFile(const std::string& path)
{
    std::string extension = ToLower(FileExtension(path));
    return extension == ".cs" || extension == ".vb" || extension == ".jsl";
}

bool IsDesignerFile(const std::string& path)
{
    return ContainsNoCase(FileBaseName(path), ".Designer");
}

// The class a form's code derives from, as the C# (": Base") or Visual Basic
// ("Inherits Base") declaration names it; "" when neither file says.
std::string DeclaredBaseClass(const std::vector<std::string>& paths)
{
    static const std::regex csharp(R"(\bclass\s+\w+\s*:\s*([A-Za-z_][\w.]*))");
    static const std::regex basic(R"(\bInherits\s+([A-Za-z_][\w.]*))", std::regex::icase);
    for (const std::string& path : paths) {
        std::optional<std::string> text = ReadFileText(path);
        if (!text)
            continue;
        std::smatch match;
        if (std::regex_search(*text, match, csharp) || std::regex_search(*text, match, basic)) {
            std::string base = match[1].str();
            std::size_t dot = base.rfind('.');
            return dot == std::string::npos ? base : base.substr(dot + 1);
        }
    }
    return {};
}

// "Form", "UserControl", or "" for a class that is neither.
std::string FormKindOfBase(const std::string& baseClass)
{
    if (baseClass == "UserControl")
        return "UserControl";
    if (baseClass.size() >= 4 && baseClass.compare(baseClass.size() - 4, 4, "Form") == 0)
        return "Form";
    return {};
}

// One Compile item of an MSBuild project.
struct CompileItem {
    pugi::xml_node element;
    std::string path;
    std::string subType;
    std::string dependentUpon;
};

std::string Key(const std::string& relative)
{
    return ToLower(ToNativePath(relative));
}

// The item the DependentUpon of an item names: a file of the item's folder
// unless it gives a folder of its own.
std::string DependencyPath(const CompileItem& item)
{
    std::string dependency = ToNativePath(item.dependentUpon);
    if (dependency.find('/') != std::string::npos)
        return dependency;
    std::string folder = FolderOf(ToNativePath(item.path));
    return folder.empty() ? dependency : AddBackslash(folder) + dependency;
}

std::vector<CompileItem> CompileItems(const pugi::xml_document& document)
{
    std::vector<CompileItem> items;
    std::function<void(const pugi::xml_node&)> walk = [&](const pugi::xml_node& node) {
        for (pugi::xml_node child : node.children()) {
            if (child.type() != pugi::node_element)
                continue;
            if (EqualsNoCase(LocalName(child), "Compile")) {
                std::string path = child.attribute("Include").value();
                if (path.empty())
                    path = child.attribute("Update").value();
                // Wildcards are the SDK's own globbing; the folder is searched instead.
                if (!path.empty() && path.find('*') == std::string::npos)
                    items.push_back({ child, path, ChildText(child, "SubType"), ChildText(child, "DependentUpon") });
            } else {
                walk(child);
            }
        }
    };
    walk(document);
    return items;
}

// The designer files below a folder, bin and obj left out, in path order.
std::vector<std::string> DesignerFilesBelow(const std::string& folder, const std::string& extension)
{
    namespace fs = std::filesystem;
    std::vector<std::string> found;
    std::error_code error;
    fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        std::string name = it->path().filename().string();
        if (it->is_directory(error)) {
            if (EqualsNoCase(name, "bin") || EqualsNoCase(name, "obj") || (!name.empty() && name[0] == '.'))
                it.disable_recursion_pending();
            continue;
        }
        if (EndsWithNoCase(name, ".Designer" + extension))
            found.push_back(fs::relative(it->path(), folder, error).generic_string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

std::string VSProjectTypeName(const std::string& projectFullPath)
{
    std::string extension = ToLower(FileExtension(projectFullPath));
    std::string language;
    if (extension == ".csproj")
        language = "C#";
    else if (extension == ".vbproj")
        language = "VB.NET";
    else if (extension == ".vjsproj")
        language = "J#";
    else if (extension == ".vcproj")
        return "C++";
    else
        return {};
    CXMLFile xml;
    if (xml.Load(projectFullPath) != 0)
        return language;
    // The old project XML says so on its language element; MSBuild by the web
    // project's type ids or the web SDK.
    for (const VSLanguageRoot& root : { kCSharpRoot, kJSharpRoot, kVBRoot }) {
        pugi::xml_node element = xml.SelectSingleNode(root.rootPath);
        if (element)
            return EqualsNoCase(element.attribute("ProjectType").value(), "Web") ? "ASP.NET" : language;
    }
    pugi::xml_node project = xml.DocumentElement();
    if (ContainsNoCase(project.attribute("Sdk").value(), "Microsoft.NET.Sdk.Web"))
        return "ASP.NET";
    std::string guids;
    std::function<void(const pugi::xml_node&)> find = [&](const pugi::xml_node& node) {
        for (pugi::xml_node child : node.children()) {
            if (EqualsNoCase(LocalName(child), "ProjectTypeGuids"))
                guids += child.text().as_string();
            find(child);
        }
    };
    find(project);
    if (ContainsNoCase(guids, "{349C5851-65DF-11DA-9384-00065B846F21}")
        || ContainsNoCase(guids, "{E24C65DC-7377-472B-9ABA-BC803B73C61A}"))
        return "ASP.NET";
    return language;
}

// --- the shared part ---

void CSourceProjectVSBase::Start(const std::string& projectFullPath)
{
    m_path = ToNativePath(projectFullPath);
    m_name = FileBaseName(m_path);
    m_folder = AddBackslash(FolderOf(m_path));
    m_forms.Clear();
    m_valid = false;
    m_terminated = false;
}

void CSourceProjectVSBase::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto& entry : m_forms)
        entry.value->Terminate();
    m_forms.Clear();
}

void CSourceProjectVSBase::AddForm(std::unique_ptr<CHelpPrjSourceItem> item)
{
    std::string key = item->FormName;
    if (!m_forms.Add(key, std::move(item)))
        Trace(m_typeName + " project " + m_name + ": a second form named " + key + " is left out");
}

void CSourceProjectVSBase::AddListedFiles(const pugi::xml_node& list, const char* attribute,
    const std::vector<std::string>& values)
{
    for (pugi::xml_node file : list.children()) {
        if (file.type() != pugi::node_element || !IsOneOfNoCase(file.attribute(attribute).value(), values))
            continue;
        auto item = std::make_unique<CHelpPrjSourceItem>();
        item->Init(file, m_folder, m_name, m_typeName);
        AddForm(std::move(item));
    }
}

void CSourceProjectVSBase::AddMSBuildForms(const pugi::xml_document& document)
{
    std::vector<CompileItem> items = CompileItems(document);
    std::map<std::string, const CompileItem*> byPath;
    for (const CompileItem& item : items)
        byPath[Key(item.path)] = &item;

    struct Found {
        const CompileItem* listed { nullptr };
        std::string file;
        std::string kind;
    };
    std::vector<Found> forms;
    std::map<std::string, bool> companions;
    auto kindOf = [&](const std::string& mainFile, const std::string& designerFile, const std::string& subType) {
        if (EqualsNoCase(subType, "Form") || EqualsNoCase(subType, "UserControl"))
            return EqualsNoCase(subType, "Form") ? std::string("Form") : std::string("UserControl");
        // A listed file of another sub type is a component, a class, a settings file.
        if (!subType.empty())
            return std::string();
        return FormKindOfBase(DeclaredBaseClass({ m_folder + OnDisk(m_folder, designerFile), m_folder + OnDisk(m_folder, mainFile) }));
    };

    bool listsCode = false;
    for (const CompileItem& item : items) {
        if (!IsCodeFile(item.path) || item.element.attribute("Update"))
            continue;
        listsCode = true;
    }
    // Designer files that belong to a code file: one form each.
    for (const CompileItem& item : items) {
        if (item.dependentUpon.empty() || !IsDesignerFile(item.path))
            continue;
        std::string main = DependencyPath(item);
        if (!IsCodeFile(main))
            continue;
        auto listed = byPath.find(Key(main));
        std::string subType = listed != byPath.end() ? listed->second->subType : std::string();
        std::string kind = kindOf(main, item.path, subType);
        companions[Key(main)] = true;
        if (!kind.empty())
            forms.push_back({ &item, item.path, kind });
    }
    // Forms marked as such whose code has no designer file of its own.
    for (const CompileItem& item : items) {
        if (companions.count(Key(item.path)) || !item.dependentUpon.empty())
            continue;
        if (EqualsNoCase(item.subType, "Form") || EqualsNoCase(item.subType, "UserControl")) {
            std::string designer = FolderOf(ToNativePath(item.path));
            designer = (designer.empty() ? std::string() : AddBackslash(designer)) + FileBaseName(item.path) + ".Designer"
                + FileExtension(item.path);
            // A designer file beside it that the project does not list still makes the pair.
            forms.push_back({ &item, FileExists(m_folder + OnDisk(m_folder, designer)) ? designer : item.path,
                EqualsNoCase(item.subType, "Form") ? "Form" : "UserControl" });
            companions[Key(item.path)] = true;
        }
    }
    // A project of the SDK style lists no code: its forms are found on disk.
    if (!listsCode) {
        for (const std::string& designer : DesignerFilesBelow(m_folder, CodeExtension(m_typeName))) {
            std::string main = ReplaceAllNoCase(designer, ".Designer", "");
            if (!FileExists(m_folder + main) || companions.count(Key(main)))
                continue;
            auto listed = byPath.find(Key(main));
            std::string kind = kindOf(main, designer, listed != byPath.end() ? listed->second->subType : std::string());
            companions[Key(main)] = true;
            if (!kind.empty())
                forms.push_back({ nullptr, designer, kind });
        }
    }
    for (const Found& form : forms) {
        auto item = std::make_unique<CHelpPrjSourceItem>();
        std::string file = OnDisk(m_folder, form.file);
        item->Init(form.listed ? form.listed->element : pugi::xml_node(), m_folder, m_name, m_typeName, file);
        item->RelativePath = file;
        item->SubType = "Form";
        if (form.kind == "UserControl")
            item->GUIObjectSubType = "UserControl";
        AddForm(std::move(item));
    }
}

bool CSourceProjectVSBase::InitLanguage(const std::string& projectFullPath, const std::string& typeName,
    const VSLanguageRoot& root, const char* className)
{
    if (!EqualsNoCase(typeName, m_typeName))
        return false;
    try {
        Start(projectFullPath);
        CXMLFile xml;
        if (xml.Load(m_path) != 0) {
            Trace(std::string(className) + ".init: '" + m_path + "': " + xml.XmlParseError().Describe());
            return false;
        }
        if (xml.SelectSingleNode(root.rootPath)) {
            AddListedFiles(xml.SelectSingleNode(root.itemListPath), "SubType", { "Form", "UserControl" });
            m_valid = true;
            return true;
        }
        if (!EqualsNoCase(LocalName(xml.DocumentElement()), "Project"))
            return false;
        AddMSBuildForms(xml.Document());
        m_valid = true;
        return true;
    } catch (const std::exception& error) {
        Trace(std::string(className) + ".init: " + error.what());
        return false;
    }
}

bool CSourceProjectCS::init(const std::string& projectFullPath, const std::string& typeName)
{
    return InitLanguage(projectFullPath, typeName, kCSharpRoot, "CSourceProjectCS");
}

bool CSourceProjectVBNet::init(const std::string& projectFullPath, const std::string& typeName)
{
    return InitLanguage(projectFullPath, typeName, kVBRoot, "CSourceProjectVBNet");
}

bool CSourceProjectJS::init(const std::string& projectFullPath, const std::string& typeName)
{
    return InitLanguage(projectFullPath, typeName, kJSharpRoot, "CSourceProjectJS");
}

// --- C++ ---

bool CSourceProjectCPP::init(const std::string& projectFullPath, const std::string& typeName)
{
    if (!EqualsNoCase(typeName, "C++"))
        return false;
    try {
        Start(projectFullPath);
        CXMLFile xml;
        if (xml.Load(m_path) != 0)
            return false;
        pugi::xml_node root = xml.SelectSingleNode("VisualStudioProject");
        if (!root || !EqualsNoCase(root.attribute("ProjectType").value(), "Visual C++"))
            return false;
        for (pugi::xml_node filter : xml.SelectSingleNode("VisualStudioProject/Files").children()) {
            if (filter.type() == pugi::node_element && EqualsNoCase(filter.attribute("Name").value(), "Header Files"))
                AddListedFiles(filter, "FileType", { "3", "4" });
        }
        m_valid = true;
        return true;
    } catch (const std::exception& error) {
        Trace(std::string("CSourceProjectCPP.init: ") + error.what());
        return false;
    }
}

// --- ASP.NET ---

void CSourceProjectAspNet::AddPages(const pugi::xml_node& list)
{
    for (pugi::xml_node file : list.children()) {
        if (file.type() != pugi::node_element)
            continue;
        std::string subType = file.attribute("SubType").value();
        if (!file.attribute("SubType")) {
            std::string extension = ToLower(FileExtension(file.attribute("RelPath").value()));
            subType = extension == ".aspx" ? "Form" : extension == ".ascx" ? "UserControl" : "";
        }
        if (!EqualsNoCase(subType, "Form") && !EqualsNoCase(subType, "UserControl"))
            continue;
        auto item = std::make_unique<CHelpPrjSourceItem>();
        item->Init(file, m_folder, m_name, "ASP.NET");
        AddForm(std::move(item));
    }
}

void CSourceProjectAspNet::AddMSBuildPages(const pugi::xml_document& document)
{
    std::function<void(const pugi::xml_node&)> walk = [&](const pugi::xml_node& node) {
        for (pugi::xml_node child : node.children()) {
            if (child.type() != pugi::node_element)
                continue;
            std::string include = child.attribute("Include").value();
            std::string extension = ToLower(FileExtension(include));
            if (!include.empty() && (extension == ".aspx" || extension == ".ascx")) {
                auto item = std::make_unique<CHelpPrjSourceItem>();
                std::string file = OnDisk(m_folder, include);
                item->Init(child, m_folder, m_name, "ASP.NET", file);
                item->RelativePath = file;
                item->SubType = "Form";
                if (extension == ".ascx")
                    item->GUIObjectSubType = "UserControl";
                AddForm(std::move(item));
            }
            walk(child);
        }
    };
    walk(document);
}

bool CSourceProjectAspNet::init(const std::string& projectFullPath, const std::string& typeName)
{
    if (!EqualsNoCase(typeName, "ASP.NET"))
        return false;
    std::string copy;
    try {
        Start(projectFullPath);
        Trace("Type = " + typeName + ", FullPath = " + projectFullPath);
        // The project may be open in the IDE; a copy is read.
        copy = m_path + ".tmp";
        if (!CopyFileOver(m_path, copy))
            return false;
        CXMLFile xml;
        bool loaded = xml.Load(copy) == 0;
        DeleteFileIfExists(copy);
        if (!loaded)
            return false;
        for (const VSLanguageRoot& root : { kCSharpRoot, kJSharpRoot, kVBRoot }) {
            if (!xml.SelectSingleNode(root.rootPath))
                continue;
            AddPages(xml.SelectSingleNode(root.itemListPath));
            m_valid = true;
            return true;
        }
        if (!EqualsNoCase(LocalName(xml.DocumentElement()), "Project"))
            return false;
        AddMSBuildPages(xml.Document());
        m_valid = true;
        return true;
    } catch (const std::exception& error) {
        if (!copy.empty())
            DeleteFileIfExists(copy);
        Trace(std::string("CSourceProjectAspNet.init: ") + error.what());
        return false;
    }
}

}  // namespace scriv
