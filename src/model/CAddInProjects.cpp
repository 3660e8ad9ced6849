#include "model/CAddInProjects.h"

#include <pugixml.hpp>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/TextEncoding.h"
#include "foundation/Version.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

constexpr const char* kInitSource = "CAddInProjects.Init";

// Sets a flag for the life of a scope.
class FlagScope {
public:
    explicit FlagScope(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    ~FlagScope() { m_flag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& m_flag;
};

std::string ParseErrorText(const std::string& reason)
{
    return "XML Projects file parse error [" + reason + "]";
}

std::string BackupPath(const std::string& path)
{
    return path + ".bak";
}

void ShowInitError(const std::string& text)
{
    MsgBox(text, msgbox::kCritical, kMessageBoxTitle, "", 0, kInitSource);
}

// One registry line: the attributes in their fixed order, values encoded.
std::string ProjectLine(const CAddInProject& project)
{
    auto attribute = [](const char* name, const std::string& value) {
        return std::string(name) + " = \"" + XmlEncodeChars(value) + "\" ";
    };
    return "  <Project " + attribute("Name", project.Name) + attribute("FileName", project.FileName)
        + attribute("Folder", project.Folder) + attribute("SourceProjectFullPath", project.SourceProjectFullPath)
        + attribute("SUID", project.SUID) + attribute("HUID", project.HUID) + " />" + std::string(kCrLf);
}

// The whole registry; a project without a project file path is not written.
std::string RegistryTextOf(const std::vector<CAddInProject*>& projects)
{
    std::string text = std::string(kXmlHeaderUtf8) + std::string(kCrLf) + "<Projects>" + std::string(kCrLf);
    for (const CAddInProject* project : projects) {
        if (!project->SVPFullPath().empty())
            text += ProjectLine(*project);
    }
    return text + "</Projects>" + std::string(kCrLf);
}

// The UI gets a turn between writing a file and reading it back.
void LetTheHostBreathe()
{
    if (IHostAgent* agent = CurrentHostAgent())
        agent->Doevents();
}

}  // namespace

// --- the registry file ---

void CAddInProjects::init(const std::string& path)
{
    if (m_initialised || m_loading)
        return;
    FlagScope loading(m_loading);
    m_initialised = true;
    m_path = path;
    if (path.empty()) {
        ShowInitError("Projects definitions XML file is not defined.");
        return;
    }
    if (!FileExists(path)) {
        MakeFolders(FolderOf(path));
        CXMLFile().SaveXml(path, RegistryTextOf({}));
    }
    if (!FileExists(path)) {
        ShowInitError("Can't find project definitions XML file '" + path + "'");
        return;
    }
    LoadRegistry();
}

void CAddInProjects::LoadRegistry()
{
    CXMLFile xml;
    if (xml.Load(m_path) != 0 && FileExists(BackupPath(m_path))) {
        Trace("Projects file does not parse, restored from its copy: " + xml.XmlParseError().Describe());
        CopyFileOver(BackupPath(m_path), m_path);
        xml.Load(m_path);
    }
    if (xml.XmlParseError().Failed())
        Raise(status::kSecondFailure, kInitSource, ParseErrorText(xml.XmlParseError().Reason()));
    pugi::xml_node projects = xml.SelectSingleNode("//Projects");
    if (!projects)
        Raise(status::kGeneralFailure, kInitSource, ParseErrorText("the element Projects is missing"));

    for (pugi::xml_node element : projects.children()) {
        if (element.type() != pugi::node_element)
            continue;
        std::unique_ptr<CAddInProject> project;
        try {
            project = ReadProject(element);
        } catch (const ScrivError& error) {
            ReportError(error, kInitSource);
            continue;
        }
        if (!project->Name.empty())
            Add(std::move(project));
    }
}

std::unique_ptr<CAddInProject> CAddInProjects::ReadProject(const pugi::xml_node& element) const
{
    auto project = std::make_unique<CAddInProject>();
    project->Name = element.attribute("name").value();
    if (project->Name.empty())
        project->Name = element.attribute("Name").value();
    project->FileName = element.attribute("FileName").value();
    project->Folder = element.attribute("Folder").value();
    project->SourceProjectFullPath = element.attribute("SourceProjectFullPath").value();
    project->SUID = element.attribute("SUID").value();
    project->HUID = element.attribute("HUID").value();
    project->IsNew = false;

    // A project whose file is gone stays listed; CurrentSourceProjectSvpProjects drops it.
    std::string svp = project->SVPFullPath();
    if (svp.empty() || !FileExists(svp))
        return project;
    CXMLFile file;
    if (file.Load(svp) != 0) {
        Raise(status::kThirdFailure, kInitSource,
            "XML project file parse error [" + project->Name + "]." + std::string(kCrLf)
                + "This project will be removed from the list of available projects.");
    }
    project->SetTitle(AttributeNoCase(file.SelectSingleNode("//Project"), "title"));
    pugi::xml_node option = file.SelectSingleNode("//Settings/Options/Option[@Name=\"SubFolderForScreenshots\"]");
    if (option)
        project->PicsSubfolderName = AttributeNoCase(option, "Value");
    return project;
}

std::string CAddInProjects::RegistryText() const
{
    return RegistryTextOf(Projects());
}

std::uint32_t CAddInProjects::Save(bool newProjectAttributes)
{
    std::uint32_t result = status::kOk;
    std::uint32_t failure = ErrorFrame("CAddInProjects.Save", [&] {
        SaveProjectFile(newProjectAttributes);
        result = WriteRegistry();
    });
    return failure != 0 ? failure : result;
}

void CAddInProjects::SaveProjectFile(bool newProjectAttributes)
{
    if (!m_current || m_current->Name.empty())
        return;
    std::string attributes;
    if (newProjectAttributes) {
        attributes = " Name = \"" + XmlEncodeChars(m_current->Name) + "\" SUID = \"" + XmlEncodeChars(m_current->SUID)
            + "\" HUID = \"" + XmlEncodeChars(m_current->HUID) + "\"";
    }
    IRunContext* context = CurrentRunContext();
    CHelpPrjTree* loaded = context ? context->LoadedTree() : nullptr;
    if (!loaded)
        return;
    CHelpPrjTree& tree = *loaded;
    if (!tree.Root() || m_current->SVPFullPath().empty())
        return;
    tree.Root()->SetPicsSubfolderName(m_current->PicsSubfolderName);
    tree.SaveXml(m_current->SVPFullPath(), true, attributes);
}

std::uint32_t CAddInProjects::WriteRegistry()
{
    if (m_path.empty())
        Raise(status::kGeneralFailure, "CAddInProjects.Save", "Projects definitions XML file is not defined.");
    for (const auto& entry : m_projects) {
        CAddInProject& project = *entry.value;
        if (project.SVPFullPath().empty())
            continue;
        // Title() answers the name while no title is set, so this only fills a nameless project.
        if (project.Title().empty())
            project.SetTitle(Parameters().HelpProjectTitle());
        project.IsNew = false;
    }
    std::string text = RegistryText();

    std::string backup = BackupPath(m_path);
    bool backedUp = FileExists(m_path) && CopyFileOver(m_path, backup);
    MakeFolders(FolderOf(m_path));
    CXMLFile writer;
    if (writer.SaveXml(m_path, text) != 0)
        Raise(status::kGeneralFailure, "CAddInProjects.Save", "Can't save file '" + m_path + "'.");
    LetTheHostBreathe();

    CXMLFile test;
    std::uint32_t code = test.Load(m_path);
    if (code != 0) {
        Trace("Projects file failed its test load (" + test.XmlParseError().Describe() + "); the copy is put back.");
        if (backedUp)
            CopyFileOver(backup, m_path);
    }
    return code;
}

std::uint32_t CAddInProjects::SaveCurrentProject()
{
    if (!m_current || m_current->SVPFullPath().empty())
        return status::kOk;
    return Save();
}

// --- the list ---

CAddInProject* CAddInProjects::Add(std::unique_ptr<CAddInProject> project)
{
    if (CAddInProject* existing = Project(project->Name))
        return existing;
    if (project->HUID.empty())
        project->HUID = NewGuid();
    if (project->SUID.empty()) {
        project->SUID = ExistingSUIDForGivenSourceProject(project->SourceProjectFullPath);
        if (project->SUID.empty())
            project->SUID = NewGuid();
    }
    CAddInProject* raw = project.get();
    std::string key = project->Name;
    m_projects.Add(std::move(key), std::move(project));
    return raw;
}

bool CAddInProjects::ProjectExists(const std::string& name) const
{
    return m_projects.Contains(name);
}

bool CAddInProjects::IsSavedProject(const std::string& name) const
{
    CAddInProject* project = Project(name);
    return project && !project->IsNew;
}

CAddInProject* CAddInProjects::Project(const std::string& name) const
{
    const auto* entry = m_projects.Find(name);
    return entry ? entry->get() : nullptr;
}

std::vector<CAddInProject*> CAddInProjects::Projects() const
{
    std::vector<CAddInProject*> list;
    for (const auto& entry : m_projects)
        list.push_back(entry.value.get());
    return list;
}

std::string CAddInProjects::GetUniqueProjectName(const std::string& name) const
{
    if (!IsSavedProject(name))
        return name;
    for (int i = 1; i <= 255; ++i) {
        std::string candidate = name + std::to_string(i);
        if (!IsSavedProject(candidate))
            return candidate;
    }
    Raise(status::kGeneralFailure, "CAddInProjects.GetUniqueProjectName", "Unable to get unique project name for " + name);
}

bool CAddInProjects::ChangeCurrentProjectName(const std::string& name)
{
    if (!m_current)
        return false;
    CAddInProject* holder = Project(name);
    if (holder && holder != m_current)
        return false;
    // The registry is keyed by name, so the entry moves to its new key in place.
    auto index = m_projects.IndexOf(m_current->Name);
    m_current->Name = name;
    if (index) {
        auto project = std::move(m_projects.At(*index).value);
        m_projects.RemoveAt(*index);
        m_projects.Insert(*index, name, std::move(project));
    }
    return true;
}

void CAddInProjects::RemoveTempProjects()
{
    for (std::size_t i = m_projects.Count(); i-- > 0;) {
        if (m_projects.At(i).value->IsNew)
            RemoveAt(i);
    }
}

void CAddInProjects::RemoveAt(std::size_t position)
{
    if (m_current == m_projects.At(position).value.get())
        m_current = nullptr;
    m_projects.RemoveAt(position);
}

std::string CAddInProjects::ExistingSUIDForGivenSourceProject(const std::string& fullPath) const
{
    for (const auto& entry : m_projects)
        if (EqualsNoCase(entry.value->SourceProjectFullPath, fullPath))
            return entry.value->SUID;
    return {};
}

CAddInProject* CAddInProjects::GetProjectDefinitionBySvpFullPath(const std::string& fullPath) const
{
    for (const auto& entry : m_projects)
        if (EqualsNoCase(entry.value->SVPFullPath(), fullPath))
            return entry.value.get();
    return nullptr;
}

std::vector<std::string> CAddInProjects::CurrentSourceProjectSvpProjects()
{
    std::string source;
    if (IHostAgent* agent = CurrentHostAgent())
        source = agent->CurrentSourceProjectFullPath();
    std::vector<std::string> paths;
    for (std::size_t i = m_projects.Count(); i-- > 0;) {
        const CAddInProject& project = *m_projects.At(i).value;
        if (!EqualsNoCase(project.SourceProjectFullPath, source))
            continue;
        std::string svp = project.SVPFullPath();
        if (!svp.empty() && FileExists(svp))
            paths.push_back(svp);
        else
            RemoveAt(i);
    }
    return paths;
}

}  // namespace scriv
