#include "studio/StudioShell.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivCompiler.h"
#include "model/CScrivantParameters.h"
#include "generation/HtmlHelpCompiler.h"
#include "host/CFakeHostContext.h"
#include "desktop/CW_IDEVB6Context.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/IHelpPrjSourceProject.h"
#include "server/CScrivActions.h"
#include "server/CScrivClient.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"
#include "studio/EditorSession.h"
#include "studio/StudioEvents.h"
#include "studio/StudioFileAccess.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;
const std::string kLineBreak(kCrLf);

constexpr const char* kRunKey = "run";

// The forms of a source project as read from its files: name, caption and kind.
json FormsOf(std::unique_ptr<IHelpPrjSourceProject> project)
{
    json forms = json::array();
    if (!project)
        return forms;
    for (const auto& entry : project->Forms()) {
        const CHelpPrjSourceItem& form = *entry.value;
        forms.push_back({ { "name", form.FormName }, { "caption", form.FormCaption },
            { "kind", form.GUIObjectSubType.empty() ? "Form" : form.GUIObjectSubType } });
    }
    project->Terminate();
    return forms;
}
constexpr const char* kWebHelpPage = "main.htm";
// The browser help of the program's manual, beside its compiled help.
constexpr const char* kManualWebHelp = "Manual/main.htm";

// A folder that is this user's, and whose path holds no symbolic link.
bool IsOwnPlainFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::path path(folder);
    std::filesystem::path resolved = std::filesystem::canonical(path, error);
    if (error || resolved != std::filesystem::path(RemoveBackslash(path.lexically_normal().string())))
        return false;
    struct stat info {};
    return ::lstat(resolved.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::getuid();
}

}  // namespace

StudioShell::StudioShell(StudioEvents& events, StudioFileAccess& files)
    : m_events(events)
    , m_files(files)
    , m_editor(std::make_unique<EditorSession>(events, *this))
    , m_menu([this] { return TestThatHtmlWorkshopInstalled(); }, [this] { return OpenHelpTopics(); })
    , m_wizard([this]() -> CScrivServer* { return m_client ? CurrentServer() : nullptr; })
{
}

StudioShell::~StudioShell()
{
    Disconnect();
}

std::unique_ptr<IHostIDEContext> StudioShell::HostFor(const std::string& source)
{
    if (source.empty())
        return std::make_unique<CFakeHostContext>();
    if (EndsWithNoCase(source, ".vbp") || EndsWithNoCase(source, ".vbg"))
        return CW_IDEVB6Context::Open(source);
    if (EndsWithNoCase(source, ".svp")) {
        std::string registered = RegisteredSourceOf(source);
        if (!registered.empty())
            return HostFor(registered);
        return std::make_unique<CFakeHostContext>();
    }
    Raise(status::kGeneralFailure, "StudioShell.HostFor",
        "'" + source + "' is neither a VB6 project (.vbp), a project group (.vbg) nor a help project (.svp).");
}

std::string StudioShell::RegisteredSourceOf(const std::string& projectFile)
{
    CAddInProjects registry;
    registry.init(Folders().UserDataFolder() + kProgramBaseName + "Projects.xml");
    CAddInProject* project = registry.GetProjectDefinitionBySvpFullPath(projectFile);
    if (!project || project->SourceProjectFullPath.empty() || !FileExists(project->SourceProjectFullPath))
        return {};
    return project->SourceProjectFullPath;
}

void StudioShell::Connect(std::unique_ptr<IHostIDEContext> host, const std::string& sourceFile)
{
    m_sourceFile = sourceFile;
    m_client = std::make_unique<CScrivClient>();
    if (m_client->Connect(std::move(host)) != 0 || !CurrentServer())
        Raise(status::kGeneralFailure, "StudioShell.Connect", "The server could not be started.");
    Server().SetHelpEditorOpener([this] { return m_editor->Open(); });
    CScrivServerData& data = Server().Data();
    data.LoadSettings(false);
    // The person answers the wizard's pages in the browser.
    data.Unattended = false;
    m_sourceProjects = ReadSourceProjects(false);
    m_files.SetRoots(AllowedFolders());
}

void StudioShell::Disconnect()
{
    if (!m_client)
        return;
    // The editor saves what it holds while the server is still there.
    m_editor->Unload();
    m_client->Disconnect();
    m_client.reset();
}

CScrivServer& StudioShell::Server()
{
    return m_client->Agent()->Server();
}

// --- commands ---

const std::vector<std::string>& StudioShell::Commands()
{
    static const std::vector<std::string> commands {
        "NewProject",
        "OpenProject",
        "HelpTopics",
        "HelpIndex",
        "HelpSearch",
        "AboutForm",
        "OpenHelpOfActiveProject",
        "OpenWebHelpOfActiveProject",
        "OpenHelpProject",
        "OpenHelpProjectIndex",
        "OpenHelpFolder",
        "RecompileHelpProject",
        "RegenerateHelpProject",
        "OpenStartProject",
        "WizardFinish",
        "WizardCancel",
        "WizardClick",
    };
    return commands;
}

std::uint32_t StudioShell::Run(const std::string& command, const json& arguments)
{
    bool known = false;
    for (const std::string& name : Commands())
        known = known || name == command;
    if (!known || !m_client)
        return status::kAbandoned;
    if (Running()) {
        // A command that arrives while another runs (the loop turns during
        // progress and dialogs) must not start a second run over the first.
        WarningDialog("Please wait until the running command has finished.");
        return status::kAbandoned;
    }
    m_running = command;
    m_events.Publish({ { "type", "run" }, { "state", "started" }, { "command", command } }, kRunKey);
    UserInterface().ClearCancelRequest();
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("StudioShell.Run", [&] { result = Dispatch(command, arguments); });
    if (failure != 0)
        result = failure;
    UserInterface().ClearCancelRequest();
    m_running.clear();
    RefreshAfterCommand();
    m_events.Forget(kRunKey);
    m_events.Publish({ { "type", "run" }, { "state", "ended" }, { "command", command }, { "status", result } });
    return result;
}

std::uint32_t StudioShell::Dispatch(const std::string& command, const json& arguments)
{
    CScrivServer& server = Server();
    if (command == "WizardFinish")
        return m_wizard.Finish();
    if (command == "WizardCancel")
        return m_wizard.Cancel();
    if (command == "WizardClick")
        return m_wizard.Click(arguments.is_object() ? arguments.value("control", "") : "");
    if (command == "AboutForm")
        return ShowAbout();
    if (command == "NewProject" || command == "OpenProject" || command == "HelpTopics")
        return m_menu.Run(command);
    if (command == "HelpIndex")
        return OpenHelpIndex();
    if (command == "HelpSearch")
        return OpenHelpSearch();
    if (command == "OpenHelpOfActiveProject")
        return OpenHelpOfActiveProject();
    if (command == "OpenWebHelpOfActiveProject")
        return OpenWebHelpOfActiveProject();
    if (command == "OpenHelpProject")
        return server.OpenHelpProject();
    if (command == "OpenHelpProjectIndex")
        return server.OpenHelpProjectIndex();
    if (command == "OpenHelpFolder")
        return server.OpenHelpFolder();
    bool ask = arguments.is_object() && arguments.value("ask", false);
    if (command == "RecompileHelpProject")
        return RecompileHelpProject(ask);
    if (command == "RegenerateHelpProject")
        return RegenerateHelpProject(ask);
    if (command == "OpenStartProject" && arguments.is_object())
        return OpenStartProject(arguments.value("file", ""));
    return status::kAbandoned;
}

void StudioShell::Cancel()
{
    if (!Running() || !m_client)
        return;
    Trace("Studio: Cancel pressed during " + m_running);
    Server().Data().GenerationInterrupted = true;
}

void StudioShell::RefreshAfterCommand()
{
    if (!m_client)
        return;
    m_sourceProjects = ReadSourceProjects(m_formsRead);
    m_files.SetRoots(AllowedFolders());
    m_events.Publish({ { "type", "state-changed" } });
}

// --- the server's commands that the studio carries out ---

int StudioShell::TestThatHtmlWorkshopInstalled()
{
    if (!m_compilerTested) {
        m_compilerTested = true;
        m_compilerInstalled = TestHelpWorkshopInstalled();
    }
    if (m_compilerInstalled)
        return 1;
    int answer = MsgBox("MS Html Help Workshop not found on this computer. Without it generated HTML help" + kLineBreak
            + " can't be compiled. Would you like to download and install it?" + kLineBreak + kLineBreak
            + "Note: If you are certain that HTML Help Workshop is already installed press 'No' to continue.",
        msgbox::kYesNoCancel, kMessageBoxTitle, "", 0, "CScrivServer.TestThatHtmlWorkshopInstalled");
    if (answer == vbYes) {
        m_events.Publish({ { "type", "open-url" }, { "url", kCompilerDownloadPage } });
        return vbYes;
    }
    return answer == vbNo ? 1 : answer;
}

bool StudioShell::ShowDocument(const std::string& path)
{
    if (!EndsWithNoCase(path, ".chm") || !FileExists(path))
        return false;
    ShowHelp("chm", path);
    return true;
}

void StudioShell::ShowHelp(const std::string& kind, const std::string& path)
{
    // The page can only read what lies inside the allowed folders.
    m_files.SetRoots(AllowedFolders());
    m_events.Publish({ { "type", "show-help" }, { "kind", kind }, { "path", path } });
}

std::uint32_t StudioShell::OpenHelp(bool noQuestion)
{
    const char* source = "modScrivUtils.OpenHelp";
    CAddInProject* project = Server().Data().HasProjects() ? Server().Data().Projects().CurrentProject() : nullptr;
    if (!project || project->HHPFullPath().empty()) {
        MsgBox("HTML Help project was not yet generated and/or compiled.", msgbox::kExclamation, kMessageBoxTitle, "",
            0, source);
        return status::kAbandoned;
    }
    std::string chm = project->CHMFullPath();
    if (chm.empty()) {
        MsgBox("HTML Help project was not yet compiled.", msgbox::kExclamation, kMessageBoxTitle, "", 0, source);
        return status::kAbandoned;
    }
    if (!FileExists(chm)) {
        MsgBox("HTML Help doesn't exist '" + chm + "'.", msgbox::kExclamation, kMessageBoxTitle, "", 0, source);
        return status::kAbandoned;
    }
    if (!noQuestion && HelpProjectChangedSinceCompile(chm)) {
        int answer = MsgBox("The help project has been changed since last compilation." + kLineBreak
                + "Do you want to recompile the HTML Help before opening it ?",
            msgbox::kYesNo | msgbox::kQuestion, kMessageBoxTitle, "", 0, source);
        if (answer == vbYes) {
            std::uint32_t recompiled = CScrivCompiler(Server().Data().ScrivEngine()).RecompileHelpProject(true, false);
            if (recompiled != 0)
                return recompiled;
        }
    }
    ShowHelp("chm", chm);
    return status::kOk;
}

std::uint32_t StudioShell::OpenWebHelp(bool noQuestion)
{
    const char* source = "modScrivUtils.OpenWebHelp";
    CAddInProject* project = Server().Data().HasProjects() ? Server().Data().Projects().CurrentProject() : nullptr;
    if (!project || project->HHPFullPath().empty()) {
        MsgBox("HTML Help project was not yet generated and/or compiled.", msgbox::kExclamation, kMessageBoxTitle, "",
            0, source);
        return status::kAbandoned;
    }
    std::string page = AddBackslash(project->Folder) + kWebHelpPage;
    if (!FileExists(page)) {
        MsgBox("Web Help entry HTML page doesn't exist '" + page + "'.", msgbox::kExclamation, kMessageBoxTitle, "", 0,
            source);
        return status::kAbandoned;
    }
    if (!noQuestion && WebHelpChangedSinceGeneration(page)) {
        int answer = MsgBox("The help project has been changed since last generation or compilation." + kLineBreak
                + "Do you want to recompile contents and index of the Web Help before opening it ?",
            msgbox::kYesNo | msgbox::kQuestion, kMessageBoxTitle, "", 0, source);
        if (answer == vbYes) {
            std::uint32_t recompiled = CScrivCompiler(Server().Data().ScrivEngine()).RecompileHelpProject(true, true);
            if (recompiled != 0)
                return recompiled;
        }
    }
    ShowHelp("web", page);
    return status::kOk;
}

std::uint32_t StudioShell::OpenHelpOfActiveProject()
{
    CScrivServerData& data = Server().Data();
    if (!data.IsMSAccessDbOpened())
        return status::kNoSourceProject;
    data.LoadSettings(true);
    LogicLoop().RunPending();
    return OpenHelp(false);
}

std::uint32_t StudioShell::OpenWebHelpOfActiveProject()
{
    CScrivServerData& data = Server().Data();
    if (!data.IsMSAccessDbOpened())
        return status::kNoSourceProject;
    data.LoadSettings(true);
    LogicLoop().RunPending();
    return OpenWebHelp(false);
}

std::uint32_t StudioShell::OpenHelpTopics()
{
    return ShowManual(false, "CScrivActions.OpenHelpTopics");
}

std::uint32_t StudioShell::OpenHelpIndex()
{
    return ShowManual(true, "CScrivActions.OpenHelpIndex");
}

std::uint32_t StudioShell::OpenHelpSearch()
{
    return ShowManual(true, "CScrivActions.OpenHelpSearch");
}

std::uint32_t StudioShell::ShowManual(bool withIndexAndSearch, const char* source)
{
    Server().Data().LoadSettings(true);
    std::string manual = Folders().InstallFolder() + kProgramBaseName + ".chm";
    if (!FileExists(manual)) {
        MsgBox("Help doesn't exist '" + manual + "'.", msgbox::kExclamation, kMessageBoxTitle, "", 0, source);
        return status::kAbandoned;
    }
    std::string web = Folders().InstallFolder() + kManualWebHelp;
    if (withIndexAndSearch && FileExists(web))
        ShowHelp("web", web);
    else
        ShowHelp("chm", manual);
    return status::kOk;
}

std::uint32_t StudioShell::RecompileHelpProject(bool ask)
{
    return CScrivCompiler(Server().Data().ScrivEngine()).RecompileHelpProject(!ask, false);
}

std::uint32_t StudioShell::RegenerateHelpProject(bool ask)
{
    CScrivServerAgent& agent = Server().Agent();
    agent.SetCurrentSourceProject(agent.CurrentSourceProjectName());
    return CScrivCompiler(Server().Data().ScrivEngine()).RegenerateHelpProject();
}

std::uint32_t StudioShell::OpenStartProject(const std::string& projectFile)
{
    if (!FileExists(projectFile)) {
        MsgBox("Help project file doesn't exist: " + projectFile, msgbox::kExclamation, kMessageBoxTitle, "", 0,
            "StudioShell.OpenStartProject");
        return status::kAbandoned;
    }
    return Server().ReloadScrivProject(projectFile, 0);
}

std::uint32_t StudioShell::ShowAbout()
{
    if (!m_menu.ServerIsInitializedOK())
        return status::kAbandoned;
    Server().Data().LoadSettings(true);
    json about = {
        { "type", "about" },
        { "title", std::string("About ") + kProgramTitle },
        { "program", kProgramTitle },
        { "version", kProgramVersion },
        { "description", kProgramDescription },
        { "help", HelpProjectState() },
    };
    m_events.Publish(about);
    return status::kOk;
}

// --- for the page ---

json StudioShell::ReadSourceProjects(bool withForms)
{
    json projects = json::array();
    CScrivServerAgent& agent = Server().Agent();
    if (!agent.AreThereAnySourceProjectsOpened())
        return projects;
    std::string kept = agent.CurrentSourceProjectName();
    for (const std::string& name : agent.GetSourceProjectsList()) {
        agent.SetCurrentSourceProject(name);
        json project = {
            { "name", name },
            { "type", agent.CurrentSourceProjectTypeName() },
            { "path", agent.CurrentSourceProjectFullPath() },
            { "current", EqualsNoCase(name, kept) },
        };
        if (withForms)
            project["forms"] = FormsOf(agent.ParseSourceProject());
        projects.push_back(project);
    }
    agent.SetCurrentSourceProject(kept);
    m_formsRead = m_formsRead || withForms;
    return projects;
}

json StudioShell::HelpProjectState()
{
    CScrivServerData& data = Server().Data();
    CAddInProject* project = data.HasProjects() ? data.Projects().CurrentProject() : nullptr;
    if (!project)
        return nullptr;
    std::string web = project->Folder.empty() ? std::string() : AddBackslash(project->Folder) + kWebHelpPage;
    return {
        { "name", project->Name },
        { "title", project->Title() },
        { "folder", project->Folder },
        { "projectFile", project->SVPFullPath() },
        { "projectFileExists", FileExists(project->SVPFullPath()) },
        { "registered", !project->IsNew },
        { "compiledHelp", project->CHMFullPath() },
        { "compiledHelpExists", FileExists(project->CHMFullPath()) },
        { "webHelp", web },
        { "webHelpExists", !web.empty() && FileExists(web) },
    };
}

json StudioShell::State()
{
    json state = { { "program", { { "title", kProgramTitle }, { "version", kProgramVersion } } } };
    json entries = json::array();
    for (const CScrivPopupMenu::Entry& entry : CScrivPopupMenu::Entries())
        entries.push_back({ { "command", entry.command }, { "caption", entry.caption }, { "beginGroup", entry.beginGroup } });
    state["menu"] = { { "caption", CScrivPopupMenu::PopupCaption() }, { "entries", entries } };
    state["running"] = Running() ? json(m_running) : json(nullptr);
    if (!m_client) {
        state["source"] = nullptr;
        state["help"] = nullptr;
        return state;
    }
    // Reading the forms moves the host's current project: never during a run.
    if (!m_formsRead && !Running())
        m_sourceProjects = ReadSourceProjects(true);
    std::string kind = EndsWithNoCase(m_sourceFile, ".vbg") ? "group" : "project";
    state["source"] = { { "file", m_sourceFile }, { "kind", kind }, { "projects", m_sourceProjects } };
    state["help"] = HelpProjectState();
    state["compiler"] = HelpCompilerProgram();
    // Some commands on the help project act only beside an open Help Editor.
    state["editorOpen"] = Server().FormIsLoaded("frmHelpEditor");
    state["wizard"] = m_wizard.Open();
    return state;
}

std::optional<json> StudioShell::WizardAct(const json& request, std::string& problem)
{
    if (Running()) {
        problem = "Please wait until the running command has finished.";
        return std::nullopt;
    }
    std::optional<json> page = m_wizard.Act(request, problem);
    // A new preview may lie in a folder made just now.
    m_files.SetRoots(AllowedFolders());
    // A value may rename the help project that the page shows beside the wizard.
    if (page && request.is_object() && request.value("action", "") == "set")
        m_events.Publish({ { "type", "state-changed" } });
    return page;
}

std::vector<std::string> StudioShell::AllowedFolders() const
{
    std::vector<std::string> folders;
    if (!m_sourceFile.empty())
        folders.push_back(FolderOf(m_sourceFile));
    for (const json& project : m_sourceProjects) {
        std::string path = project.value("path", "");
        if (!path.empty())
            folders.push_back(FolderOf(path));
    }
    if (m_client && CurrentServer() && CurrentServer()->HasData() && CurrentServer()->Data().HasProjects()) {
        CAddInProjects& registry = CurrentServer()->Data().Projects();
        for (CAddInProject* project : registry.Projects())
            if (!project->Folder.empty())
                folders.push_back(project->Folder);
        if (CAddInProject* current = registry.CurrentProject(); current && !current->Folder.empty())
            folders.push_back(current->Folder);
    }
    const AppFolders& app = Folders();
    folders.push_back(app.InstallFolder());
    for (const char* data : { "Templates", "Settings", "Redirect", "web" })
        folders.push_back(app.InstallFolder() + data);
    folders.push_back(app.UserDataFolder());
    folders.push_back(app.SettingsFolder());
    folders.push_back(app.TemplatesRoot());
    folders.push_back(app.LogFolder());
    // The wizard's samples lie below the shared temporary folder: only a
    // folder of this user's, reached through no link, is served.
    if (std::string samples = CHelpWizardForm::SampleFolder(); IsOwnPlainFolder(samples))
        folders.push_back(samples);
    return folders;
}

}  // namespace scriv::studio
