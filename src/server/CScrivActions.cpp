#include "server/CScrivActions.h"

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/Version.h"
#include "generation/CScrivCompiler.h"
#include "generation/CScrivant.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/OpenHelpProject.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

// Runs body in the error frame of a public operation and answers its status:
// the frame's code when it failed, else what body set.
template<typename Body>
std::uint32_t Guarded(const char* source, Body body)
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame(source, [&] { result = body(); });
    return failure != 0 ? failure : result;
}

}  // namespace

CScrivActions::CScrivActions(CScrivServer& server)
    : m_server(server)
{
}

CScrivActions::~CScrivActions()
{
    Terminate();
}

void CScrivActions::init()
{
}

void CScrivActions::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    CloseWizardFormOnDisconnection();
}

std::string CScrivActions::concatProjectsListFromCollection(const std::vector<std::string>& names)
{
    return Join(names, "|");
}

std::uint32_t CScrivActions::Refuse(const std::string& text, std::uint32_t code, const std::string& source)
{
    MsgBox(text, msgbox::kExclamation, kMessageBoxTitle, "", 0, source);
    return code;
}

void CScrivActions::PrepareForModalForm()
{
    if (EqualsNoCase(m_server.Agent().CurrentSourceProjectTypeName(), "MS ACCESS")) {
        m_server.Agent().UnhideDbWindow();
        m_server.Agent().Doevents();
    }
}

// --- a new project ---

std::uint32_t CScrivActions::OpenNewProject()
{
    return Guarded("CScrivActions.OpenNewProject", [&]() -> std::uint32_t {
        if (!m_server.Data().IsMSAccessDbOpened())
            return status::kNoSourceProject;
        m_server.Data().LoadSettings(false);
        return OpenWizardForm(true);
    });
}

std::uint32_t CScrivActions::OpenWizardForm(bool ask)
{
    const std::string source = "CScrivActions.OpenWizardForm";
    CScrivServerData& data = m_server.Data();
    CScrivServerAgent& agent = m_server.Agent();
    if (!ask)
        data.LoadSettings(false);
    if (!data.IsMSAccessDbOpened())
        return status::kNoSourceProject;

    std::vector<std::string> projects = agent.GetSourceProjectsList();
    if (projects.empty())
        return Refuse("No Projects!", status::kNoProjectsListed, source);

    std::string settings = Folders().SettingsFolder();
    struct DefinitionFile {
        std::string name;
        const char* message;
        std::uint32_t code;
    };
    const DefinitionFile files[] = {
        { std::string(kProgramBaseName) + "WizardDef.xml", "Wizard form definition file is missing '",
            status::kWizardDefinitionMissing },
        { "CodePages.xml", "Code pages definition file is missing '", status::kCodePagesMissing },
        { "SampleForm.xml", "Sample form definition file is missing '", status::kSampleFormMissing },
        { "SampleForm.jpg", "Sample form picture file is missing '", status::kSampleFormPictureMissing },
    };
    for (const DefinitionFile& file : files)
        if (!FileExists(settings + file.name))
            return Refuse(file.message + settings + file.name + "'.", file.code, source);

    if (m_wizard) {
        m_wizard->Terminate();
        m_wizard.reset();
        LogicLoop().RunPending();
    }

    std::string name = agent.CurrentSourceProjectName();
    bool listed = false;
    for (const std::string& project : projects)
        listed = listed || (!name.empty() && EqualsNoCase(project, name));
    if (!listed) {
        return Refuse("Source project '" + name + "' not found in the list of available source projects:" + kCrLfText
                + Join(projects, kCrLfText),
            status::kNoUniqueProjectName, source);
    }

    agent.SetCurrentSourceProject(name);
    std::vector<std::string> withFiles;
    for (const std::string& project : projects) {
        agent.SetCurrentSourceProject(project);
        std::string path = agent.CurrentSourceProjectFullPath();
        Trace("Name = " + project + ", Type = " + agent.CurrentSourceProjectTypeName() + ", FullPath = " + path);
        if (!path.empty())
            withFiles.push_back(project);
    }
    agent.SetCurrentSourceProject(name);

    CAddInProjects& registry = data.Projects();
    registry.RemoveTempProjects();
    std::string unique = registry.GetUniqueProjectName(name);
    std::string sourcePath = agent.CurrentSourceProjectFullPath();
    if (unique.empty())
        return Refuse("Can't get unique help project name for source project '" + name + "'.",
            status::kNoUniqueProjectName, source);

    auto project = std::make_unique<CAddInProject>();
    project->Name = unique;
    project->SourceProjectFullPath = sourcePath;
    CAddInProject* added = registry.Add(std::move(project));
    registry.SetCurrentProject(added);

    CScrivantParameters& parameters = Parameters();
    parameters.ApplicationNameStr = data.NewScrivProjectTitle();
    parameters.SetHelpProjectName(unique);
    parameters.SetHelpProjectTitle(parameters.ApplicationNameStr);
    if (EqualsNoCase(agent.CurrentSourceProjectTypeName(), "ASP.NET")) {
        // Web forms have no screenshot.
        parameters.AddHotSpotsForForm = false;
        parameters.AddImageForForm = false;
        parameters.AddControlsListForMenuList = false;
        parameters.AddControlsSectionForMenuList = false;
        CAddInSettingsXmlFile& store = data.GetSettings();
        for (const char* option : { "AddHotSpotsForForm", "AddImageForForm", "AddControlsListForMenuList",
                 "AddControlsSectionForMenuList" })
            store.SetOptionValue(option, OptionValue::Bool(false));
    }
    added->HasSeveralSourceProjects = false;
    added->SetSourceProjectsList("");
    if (!withFiles.empty()) {
        added->HasSeveralSourceProjects = true;
        added->SetSourceProjectsList(concatProjectsListFromCollection(withFiles));
    }

    PrepareForModalForm();
    m_wizard = std::make_unique<CHelpWizardForm>();
    m_wizard->SetOnClosing([this] { m_server.ProcessWizardFormClosing(); });
    m_wizard->SetOnReload([this] { m_server.ReloadNewProject(); });
    m_wizard->init(data.GetSettings());
    m_wizard->Show();
    if (parameters.WizardUnattendedExecution || data.Unattended)
        m_wizard->Finish();
    return status::kOk;
}

// --- when the wizard closes ---

std::uint32_t CScrivActions::CheckIfGenerationPossible()
{
    const std::string source = "CScrivActions.CheckIfGenerationPossible";
    CScrivantParameters& parameters = Parameters();
    std::string folder = AddBackslash(parameters.FolderForGeneratedHelp());

    for (const char* character : { "%", "#" }) {
        if (folder.find(character) == std::string::npos)
            continue;
        int answer = MsgBox("Target folder '" + folder + "' contains character '" + character + "'."
                + "A help file (.chm) will not work correctly in folders with that character." + kCrLfText
                + "Do you want to select another target folder?",
            52, kMessageBoxTitle, "", 0, source);
        if (answer == vbYes)
            return status::kTargetFolderRefused;
        break;
    }
    std::vector<std::string> existing = ListFiles(folder, "*.svp");
    if (!existing.empty()) {
        return Refuse("Target folder '" + folder + "'" + kCrLfText + "already has Scrivant project '" + existing.front()
                + "'" + kCrLfText + "Please select another target folder.",
            status::kTargetFolderRefused, source);
    }
    if (!FolderExists(folder) && !CreateFolderIfMissing(folder)) {
        return Refuse("Target folder '" + folder + "'" + " cannot be created." + kCrLfText
                + "Please select or enter another target folder name.",
            status::kTargetFolderNotCreated, source);
    }
    if (FolderExists(folder) && !FolderHasWriteAccess(folder)) {
        return Refuse("Target folder '" + folder + "'" + " is no write access." + kCrLfText
                + "Please select or enter another target folder name.",
            status::kNoWriteAccess, source);
    }
    CAddInProject* registered = m_server.Data().Projects().GetProjectDefinitionBySvpFullPath(
        folder + parameters.HelpProjectName() + ".svp");
    bool exists = registered && !registered->SVPFullPath().empty() && FileExists(registered->SVPFullPath());
    if (exists && !registered->IsNew) {
        MsgBox("Scrivant project already exists '" + parameters.HelpProjectName() + "'." + kCrLfText
                + "Please enter another project name.",
            0, "", "", 0, source);
        return status::kProjectNameRegistered;
    }
    if (!CScrivCompiler::HelpFileCanBeOverwritten()) {
        int answer = MsgBox("Can't copy over existing help file " + CScrivCompiler::SourceFolderHelpFilePath() + kCrLfText
                + "Close it if it's opened in HTML Help window," + kCrLfText
                + "then click [OK] button to continue help generation or" + kCrLfText
                + "click [Cancel] button to stop help generation.",
            49, kMessageBoxTitle, "", 0, source);
        if (answer == vbCancel)
            return status::kLockedHelpFileCancelled;
    }
    if (!exists)
        m_server.Data().ScrivEngine().HelpProjectTree().SetNewHtmlHelpProject(true);
    return status::kOk;
}

bool CScrivActions::CreateFolderIfMissing(const std::string& path)
{
    return FolderExists(path) || MakeFolders(path);
}

void CScrivActions::CopyWizardAnswersToParameters()
{
    CScrivantParameters& parameters = Parameters();
    std::string folder = AddBackslash(parameters.FolderForGeneratedHelp());
    parameters.SetFolderForGeneratedHelp(folder);
    parameters.SetHotSpots(parameters.AddHotSpotsForForm);
    parameters.SetNoReportsScreenShots(!parameters.AddImageForReport);
    parameters.SetAssociateHelpIndex(parameters.AssociateHelpIndex());
    if (CAddInProject* project = m_server.Data().Projects().CurrentProject())
        project->Folder = folder;
}

std::uint32_t CScrivActions::ProcessWizardFormClosing()
{
    CScrivServerData& data = m_server.Data();
    CScrivServerAgent& agent = m_server.Agent();
    bool ok = false;
    bool generated = false;
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivActions.ProcessWizardFormClosing", [&] {
        if (!m_wizard)
            return;
        ok = m_wizard->OK();
        m_wizard->SetVisible(false);
        if (ok) {
            agent.HourglassOn();
            agent.ProgressMeterInit("Checking help generation options...", 2);
            std::uint32_t check = CheckIfGenerationPossible();
            if (check == 0) {
                agent.ProgressMeterInit("Saving settings...", 2);
                agent.ProgressMeterUpdate(1);
                check = ErrorFrame("CScrivActions.ProcessWizardFormClosing",
                    [&] { data.GetSettings().Save(data.SettingsFilePath()); });
            }
            if (check != 0) {
                // The person may change the answer: the wizard stays open.
                m_wizard->Show();
                result = check;
                ok = false;
                return;
            }
            CopyWizardAnswersToParameters();
        }
        m_wizard->Terminate();
        m_wizard.reset();
        if (!ok)
            return;

        agent.ProgressMeterInit("Loading TOC treeview...", 2);
        agent.ProgressMeterUpdate(1);
        CScrivant& scriv = data.ScrivEngine();
        scriv.LoadTreviewForActiveProject(true);
        data.GetSettings().CopyToOptions();
        CHelpPrjTree& tree = scriv.HelpProjectTree();
        if (tree.Root() && tree.Root()->HtmlTitle().empty())
            tree.Root()->SetHtmlTitle(Parameters().HelpProjectTitle());
        agent.HourglassOn();
        agent.HideIDEWindows();
        LogicLoop().RunPending();

        if (!data.GenerationInterrupted) {
            data.SetGenerationRunning(true);
            data.GenerationStats().Reset();
            generated = true;
            scriv.Generate();
            data.SetGenerationRunning(false);
        }
        if (!data.GenerationInterrupted) {
            data.Projects().Save();
            m_lastStatistics = StatisticsMessage();
            MsgBox(m_lastStatistics, msgbox::kInformation, "Help Generation Completed", "", 0,
                "CScrivActions.ProcessWizardFormClosing");
            result = status::kOk;
            if (Parameters().OpenHTMLEditor)
                m_server.OpenHelpEditorForm();
            return;
        }
        agent.ProgressMeterRemove();
        agent.HourglassOffFinal();
        MsgBox("Help generation was cancelled by end-user.", msgbox::kCritical, kMessageBoxTitle, "", 0,
            "CScrivActions.ProcessWizardFormClosing");
        result = status::kAbandoned;
    });
    if (ok)
        agent.ResetIDEWindows();
    if (generated)
        agent.ProgressMeterRemove();
    agent.HourglassOffFinal();
    data.SetGenerationRunning(false);
    data.GenerationInterrupted = false;
    SetErrorCounter(0);
    if (ok)
        m_server.SetFocusOnHelpEditorForm();
    return failure != 0 ? failure : result;
}

std::string CScrivActions::StatisticsMessage()
{
    const CScrivStats& stats = m_server.Data().GenerationStats();
    std::string type = m_server.Agent().CurrentSourceProjectTypeName();
    std::string text = "The Scrivant added:" + kCrLfText;
    text += "- " + std::to_string(stats.HelpPagesCount) + " new help pages with "
        + std::to_string(stats.HelpPagesCount + stats.ControlSectionsCount) + " sections," + kCrLfText;
    text += "- " + std::to_string(stats.ScreenshotsCount) + " screenshots," + kCrLfText;
    auto line = [&](int count, const char* words) {
        if (count >= 1)
            text += "- " + std::to_string(count) + words + kCrLfText;
    };
    if (EqualsNoCase(type, "MS ACCESS")) {
        line(stats.FormContextIdsCount, " updated helpcontextids in forms,");
        line(stats.ReportContextIdsCount, " updated helpcontextids in reports,");
    } else if (EqualsNoCase(type, "VB6")) {
        line(stats.FormContextIdsCount, " updated helpcontextids in forms,");
    } else if (!EqualsNoCase(type, "ASP.NET")) {
        line(stats.HelpProvidersCount, " HelpProviders in forms,");
    }
    text += "- " + std::to_string(stats.IndexEntriesCount) + " index entries in generated help.";
    return text;
}

void CScrivActions::CloseWizardFormOnDisconnection()
{
    if (!m_wizard)
        return;
    m_wizard->Terminate();
    m_wizard.reset();
    Trace("Wizard from closed OK.");
}

// --- an existing project ---

std::uint32_t CScrivActions::OpenProject()
{
    return Guarded("CScrivActions.OpenProject", [&]() -> std::uint32_t {
        if (!m_server.Data().IsMSAccessDbOpened())
            return status::kNoSourceProject;
        if (m_server.FormIsLoaded("frmHelpEditor")) {
            m_server.SetFocusOnHelpEditorForm();
            return status::kAbandoned;
        }
        m_server.Data().LoadSettings(false);
        PrepareForModalForm();
        std::vector<std::string> choices = OpenHelpProjectChoices();
        std::optional<std::size_t> chosen = UserInterface().ChooseFromList("Open Help Project", choices, 0);
        m_server.Agent().Doevents();
        if (!chosen || *chosen >= choices.size())
            return status::kAbandoned;
        std::string choice = choices[*chosen];
        if (choice == kMoreFilesChoice) {
            std::optional<std::string> file = ChooseHelpProjectFile();
            if (!file)
                return status::kAbandoned;
            choice = *file;
        }
        return m_server.ReloadScrivProject(choice, 0);
    });
}

std::uint32_t CScrivActions::OpenProjectFile(const std::string& label, const std::string& path,
    const std::string& emptyText)
{
    if (path.empty())
        return Refuse(emptyText, status::kAbandoned, "CScrivActions.Open");
    if (!FileExists(path) && !FolderExists(path))
        return Refuse(label + " doesn't exist '" + path + "'.", status::kAbandoned, "CScrivActions.Open");
    return UserInterface().OpenDocument(path) ? status::kOk : status::kAbandoned;
}

std::uint32_t CScrivActions::OpenHelpProject()
{
    return Guarded("CScrivActions.OpenHelpProject", [&] {
        m_server.Data().LoadSettings(true);
        CAddInProject* project = m_server.Data().Projects().CurrentProject();
        return OpenProjectFile("HTML help project", project ? project->HHPFullPath() : "",
            "HTML help project was not generated.");
    });
}

std::uint32_t CScrivActions::OpenHelpProjectIndex()
{
    return Guarded("CScrivActions.OpenHelpProjectIndex", [&] {
        m_server.Data().LoadSettings(true);
        CAddInProject* project = m_server.Data().Projects().CurrentProject();
        return OpenProjectFile("HTML help project index", project ? project->HHKFullPath() : "",
            "HTML help project was not generated.");
    });
}

std::uint32_t CScrivActions::OpenHelpFolder()
{
    return Guarded("CScrivActions.OpenHelpFolder", [&] {
        m_server.Data().LoadSettings(true);
        CAddInProject* project = m_server.Data().Projects().CurrentProject();
        std::string folder = project && !project->HHPFullPath().empty() ? FolderOf(project->HHPFullPath()) : "";
        return OpenProjectFile("HTML help project folder", folder, "HTML help project folder is empty.");
    });
}

std::uint32_t CScrivActions::OpenHelpTopics()
{
    return Guarded("CScrivActions.OpenHelpTopics", [&] {
        m_server.Data().LoadSettings(true);
        std::string manual = Folders().InstallFolder() + kProgramBaseName + ".chm";
        if (!FileExists(manual))
            return Refuse("Help doesn't exist '" + manual + "'.", status::kAbandoned, "CScrivActions.OpenHelpTopics");
        return UserInterface().OpenDocument(manual) ? status::kOk : status::kAbandoned;
    });
}

std::uint32_t CScrivActions::OpenHelpIndex()
{
    return OpenHelpTopics();
}

std::uint32_t CScrivActions::OpenHelpSearch()
{
    return OpenHelpTopics();
}

std::uint32_t CScrivActions::OpenAboutForm()
{
    return Guarded("CScrivActions.OpenAboutForm", [&] {
        m_server.Data().LoadSettings(true);
        MsgBox(std::string(kProgramTitle) + " v." + kProgramVersion + kCrLfText + kCrLfText + kProgramDescription,
            msgbox::kInformation, std::string("About ") + kProgramTitle, "", 0, "CScrivActions.OpenAboutForm");
        return status::kOk;
    });
}

}  // namespace scriv
