#include "server/CScrivServerData.h"

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/CXmlMessages.h"
#include "foundation/CodePage.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivant.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerProxy.h"

namespace scriv {

CScrivServerData::CScrivServerData(CScrivServer& server)
    : m_server(server)
    , m_scriv(std::make_unique<CScrivant>())
{
}

CScrivServerData::~CScrivServerData()
{
    Terminate();
}

std::string CScrivServerData::SettingsFilePath() const
{
    return Folders().SettingsFolder() + kProgramBaseName + "Settings.xml";
}

std::string CScrivServerData::ProjectsFilePath() const
{
    return Folders().UserDataFolder() + kProgramBaseName + "Projects.xml";
}

void CScrivServerData::LoadSettings(bool force)
{
    if (force && m_projects)
        return;
    ++m_loadDepth;
    if (!m_loading) {
        m_loading = true;
        std::string messagesPath = FindMessagesFile(Folders().TemplatesRoot(), Parameters().Language);
        Trace("Settings = " + SettingsFilePath() + ", " + "Projects = " + ProjectsFilePath() + ", " + "Messages = "
            + messagesPath);
        m_messages = std::make_unique<CXmlMessages>();
        if (FileExists(messagesPath)) {
            ErrorFrame("CScrivServerData.LoadSettings", [&] { m_messages->Load(messagesPath); });
        }
        std::string settingsPath = SettingsFilePath();
        if (FileExists(settingsPath))
            ReLoadSettings(settingsPath, false);
        if (!m_projects)
            m_projects = std::make_unique<CAddInProjects>();
        // A registry made earlier by Projects() has not read its file yet; init runs once.
        ErrorFrame("CScrivServerData.LoadSettings", [&] { m_projects->init(ProjectsFilePath()); });
        m_loading = false;
    }
    --m_loadDepth;
}

CAddInSettingsXmlFile& CScrivServerData::GetSettings()
{
    if (!m_settings)
        m_settings = std::make_unique<CAddInSettingsXmlFile>(Parameters());
    return *m_settings;
}

std::uint32_t CScrivServerData::ReLoadSettings(const std::string& path, bool fromProjectFile)
{
    std::uint32_t result = GetSettings().Load(path, fromProjectFile);
    if (!m_optionOverrides.empty()) {
        CAddInSettingsXmlFile& settings = GetSettings();
        for (const auto& [name, value] : m_optionOverrides)
            settings.SetOptionValue(name, value);
        CAddInSettings(Parameters()).Load(settings, true);
    }
    // Forms whose fonts name no code page are read in the application's.
    const std::string& codePage = Parameters().ApplicationCodePage;
    SetSystemCodePage(IsKnownEncoding(codePage) ? codePage : std::string("windows-1252"));
    // The trace follows the settings' wish for detail.
    TraceLog().SetVerbose(Parameters().VerboseTracing);
    TraceLog().SetRotationHeld(Parameters().AutomatedTestModeOn);
    return result;
}

CAddInProjects& CScrivServerData::Projects()
{
    if (!m_projects)
        m_projects = std::make_unique<CAddInProjects>();
    return *m_projects;
}

CTraceLog& CScrivServerData::TraceLog()
{
    return scriv::TraceLog();
}

CXmlMessages& CScrivServerData::Messages()
{
    if (!m_messages)
        m_messages = std::make_unique<CXmlMessages>();
    return *m_messages;
}

void CScrivServerData::ProgressBarInit(const std::string& text, int maximum)
{
    m_progressShown = true;
    m_lastProgress = text;
    UserInterface().ProgressInit(text, maximum);
}

void CScrivServerData::ProgressBarUpdate(const std::string& text, int value)
{
    if (!text.empty())
        m_lastProgress = text;
    UserInterface().ProgressUpdate(text, value);
    // The Cancel of the progress window is the person's way to stop a run.
    if (UserInterface().CancelRequested())
        GenerationInterrupted = true;
}

void CScrivServerData::ProgressBarDispose()
{
    if (m_progressShown)
        UserInterface().ProgressDispose();
    m_progressShown = false;
}

bool CScrivServerData::IsMSAccessDbOpened()
{
    CScrivServerAgent& agent = m_server.Agent();
    if (!EqualsNoCase(agent.CurrentSourceProjectTypeName(), "MS ACCESS"))
        return true;
    return !agent.CurrentSourceProjectFullPath().empty();
}

bool CScrivServerData::HostIsMSAccess() const
{
    return scriv::HostIsMSAccess();
}

IHostAgent& CScrivServerData::Agent()
{
    return m_server.Agent();
}

CHelpPrjTree* CScrivServerData::LoadedTree()
{
    return m_scriv && m_scriv->HasHelpProjectTree() ? &m_scriv->HelpProjectTree() : nullptr;
}

std::uint32_t CScrivServerData::LoadTreeOfActiveProject(bool keep)
{
    return m_scriv->LoadTreviewForActiveProject(keep);
}

void CScrivServerData::UnloadTreeOfActiveProject()
{
    if (m_scriv)
        m_scriv->UnLoadTreviewForActiveProject();
}

std::uint32_t CScrivServerData::ReloadScrivProject(const std::string& file, int mode)
{
    return m_server.ReloadScrivProject(file, mode);
}

void CScrivServerData::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    auto report = [](const char* field, bool empty) {
        Trace(std::string(field) + " is Nothing = " + (empty ? "True" : "False"));
    };
    report("mobjScriv", m_scriv == nullptr);
    if (m_scriv) {
        m_scriv->Terminate();
        m_scriv.reset();
    }
    report("mobjProjects", m_projects == nullptr);
    m_projects.reset();
    report("mobjTraceLog", false);
    ReleaseTraceLog();
    m_settings.reset();
    m_messages.reset();
}

std::string CScrivServerData::NewScrivProjectName()
{
    std::string name = FileBaseName(m_server.Agent().CurrentSourceProjectFullPath());
    if (!name.empty())
        return GetComponentFileName(name);
    CAddInProject* project = m_projects ? m_projects->CurrentProject() : nullptr;
    if (!project)
        return {};
    return FileNameOf(RemoveBackslash(project->Name));
}

std::string CScrivServerData::NewScrivProjectTitle()
{
    std::string title = NewScrivProjectName();
    CAddInProject* project = m_projects ? m_projects->CurrentProject() : nullptr;
    if (project && !project->Title().empty())
        title = project->Title();
    return title;
}

int CScrivServerData::HostAppMainWindowHWnd()
{
    if (m_hostAppMainWindowHWnd == 0)
        m_hostAppMainWindowHWnd = m_server.Agent().HostAppMainWindowHWnd();
    return m_hostAppMainWindowHWnd;
}

}  // namespace scriv
