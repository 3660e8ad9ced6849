#include "server/CScrivServer.h"

#include "foundation/CTraceLog.h"
#include "foundation/CXmlMessages.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/FileBackups.h"
#include "foundation/IUserInterface.h"
#include "foundation/LoadedForms.h"
#include "foundation/MsgBox.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivant.h"
#include "host/CXmlCommand.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjSelector.h"
#include "model/CScrivantParameters.h"
#include "screenshots/Screenshot.h"
#include "server/CScrivActions.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"
#include "server/CTimer.h"

namespace scriv {

namespace {

CScrivServer*& CurrentServerSlot()
{
    static CScrivServer* server = nullptr;
    return server;
}

constexpr const char* kHelpEditorForm = "frmHelpEditor";
constexpr const char* kWizardForm = "frmHelpWizard";
constexpr const char* kReloadWizardRequest = "ReloadWizardForm";

}  // namespace

CScrivServer* CurrentServer()
{
    return CurrentServerSlot();
}

void SetCurrentServer(CScrivServer* server)
{
    CurrentServerSlot() = server;
    bool hasData = server && server->HasData();
    SetCurrentRunContext(hasData ? &server->Data() : nullptr);
    SetCurrentFormPageMaker(hasData && server->Data().HasScrivEngine() ? &server->Data().ScrivEngine() : nullptr);
}

CScrivServer::CScrivServer()
    : m_data(std::make_unique<CScrivServerData>(*this))
    , m_agent(std::make_unique<CScrivServerAgent>(*this))
{
}

CScrivServer::~CScrivServer()
{
    if (m_connected)
        Disconnect();
    if (CurrentServer() == this)
        SetCurrentServer(nullptr);
}

std::uint32_t CScrivServer::Connect()
{
    return ErrorFrame("CScrivServer.Connect", [&] {
        if (!m_data)
            m_data = std::make_unique<CScrivServerData>(*this);
        if (!CurrentServer() || CurrentServer() == this)
            SetCurrentServer(this);
        CScrivantParameters& parameters = Parameters();
        if (parameters.NameOfFolderForGeneratedImages().empty())
            parameters.SetNameOfFolderForGeneratedImages("images");
        m_actions = std::make_unique<CScrivActions>(*this);
        m_actions->init();
        m_requestQueue = std::make_unique<CRequestQueue>(LogicLoop(),
            [this](const std::string& request) { HandleRequest(request); });
        m_connected = true;
    });
}

std::uint32_t CScrivServer::Disconnect()
{
    return ErrorFrame("CScrivServer.Disconnect", [&] {
        m_requestQueue.reset();
        if (m_data)
            m_data->Terminate();
        if (m_actions) {
            m_actions->Terminate();
            m_actions.reset();
        }
        m_connected = false;
        if (CurrentServer() == this)
            SetCurrentServer(nullptr);
        m_data.reset();
    });
}

void CScrivServer::HandleRequest(const std::string& request)
{
    if (request != kReloadWizardRequest)
        return;
    ErrorFrame("CScrivServer.ReloadWizardForm", [&] {
        WriteTraceLogMessage("Close wizard form");
        if (m_actions)
            m_actions->CloseWizardFormOnDisconnection();
        m_agent->Doevents();
        OpenNewProject();
    });
}

// --- user commands ---

bool CScrivServer::EditorGuard(const std::string& warning)
{
    bool minimised = false;
    IHostForm* editor = LoadedForms().Find(kHelpEditorForm);
    if (!FormIsLoaded(kHelpEditorForm, &minimised))
        return true;
    if (minimised)
        editor->Restore();
    else
        MsgBox(warning, msgbox::kExclamation, kMessageBoxTitle, "", 0, "CScrivServer.OpenNewProject");
    return false;
}

std::uint32_t CScrivServer::OpenNewProject()
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivServer.OpenNewProject", [&] {
        if (!EditorGuard("You have to close the Help Editor before you can generate a new Help project."))
            return;
        if (!m_agent->IDEDisplayModelIsMDI()) {
            WarningDialog(std::string("This version of ") + kMessageBoxTitle
                + " doesn't support SDI display model of host application IDE." + std::string(kCrLf)
                + "Please switch to MDI display model.");
            return;
        }
        if (EqualsNoCase(m_agent->CurrentSourceProjectTypeName(), "MS EXCEL")
            && m_agent->CurrentSourceProjectFullPath().empty()) {
            MsgBox("There is no any workbook opened or" + std::string(kCrLf) + "opened active workbook is not saved.",
                msgbox::kExclamation, kMessageBoxTitle, "", 0, "CScrivServer.OpenNewProject");
            return;
        }
        result = m_actions->OpenNewProject();
    });
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivServer::ReloadNewProject()
{
    return ErrorFrame("CScrivServer.ReloadNewProject", [&] {
        if (m_requestQueue)
            m_requestQueue->Queue(kReloadWizardRequest);
    });
}

std::uint32_t CScrivServer::OpenProject()
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivServer.OpenProject", [&] {
        if (!EditorGuard("You have to close the Help Editor before you can open another Help project."))
            return;
        if (FormIsLoaded(kWizardForm)) {
            MsgBox("Please close Scrivant's Wizard form before opening help project.", msgbox::kExclamation,
                kMessageBoxTitle, "", 0, "CScrivServer.OpenProject");
            return;
        }
        result = m_actions->OpenProject();
    });
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivServer::ProcessWizardFormClosing()
{
    return m_actions->ProcessWizardFormClosing();
}

std::uint32_t CScrivServer::OpenHelpProject()
{
    // Only an open editor has a project to show.
    if (!FormIsLoaded(kHelpEditorForm))
        return status::kAbandoned;
    SetFocusOnHelpEditorForm();
    return m_actions->OpenHelpProject();
}

std::uint32_t CScrivServer::OpenHelpProjectIndex() { return m_actions->OpenHelpProjectIndex(); }
std::uint32_t CScrivServer::OpenHelpFolder() { return m_actions->OpenHelpFolder(); }
std::uint32_t CScrivServer::OpenHelpTopics() { return m_actions->OpenHelpTopics(); }
std::uint32_t CScrivServer::OpenHelpIndex() { return m_actions->OpenHelpIndex(); }
std::uint32_t CScrivServer::OpenHelpSearch() { return m_actions->OpenHelpSearch(); }
std::uint32_t CScrivServer::OpenAboutForm() { return m_actions->OpenAboutForm(); }

std::uint32_t CScrivServer::SetFocusOnHelpEditorForm()
{
    if (IHostForm* editor = LoadedForms().Find(kHelpEditorForm)) {
        editor->SetVisible(true);
        editor->SetFocus();
    }
    return 0;
}

std::uint32_t CScrivServer::OpenHelpEditorForm()
{
    if (FormIsLoaded(kWizardForm)) {
        MsgBox("Please close Scrivant's Wizard form before opening Help Editor.", msgbox::kExclamation,
            kMessageBoxTitle, "", 0, "CScrivServer.OpenHelpEditorForm");
        return status::kAbandoned;
    }
    if (!m_helpEditorOpener)
        return status::kAbandoned;
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivServer.OpenHelpEditorForm", [&] { result = m_helpEditorOpener(); });
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivServer::ReloadScrivProject(const std::string& file, int mode)
{
    std::uint32_t result = status::kAbandoned;
    CHelpPrjSelector selector;
    std::uint32_t failure = ErrorFrame("CScrivServer.ReloadScrivProject", [&] {
        CScrivServerData& data = *m_data;
        data.ProgressBarInit("Start project loading...", 6);
        data.ProgressBarUpdate("Checking selected project...", 1);
        if (IHostForm* editor = LoadedForms().Find(kHelpEditorForm)) {
            editor->Unload();
            m_agent->Doevents();
        }
        data.ScrivEngine().UnLoadTreviewForActiveProject();
        selector.init();
        try {
            BackUpHelpProjectFile(file);
        } catch (const ScrivError&) {
            MsgBox("Errors detected while trying to make backup copy of Scrivant project file '" + file + "'.",
                msgbox::kExclamation, kMessageBoxTitle, "", 0, "CScrivServer.ReloadScrivProject");
            return;
        }
        m_agent->Doevents();
        result = data.ReLoadSettings(file, true);
        if (result != 0)
            return;
        data.ProgressBarUpdate("Loading settings...", 2);
        result = selector.SetCurrent(file, false);
        if (result != 0) {
            m_agent->Doevents();
            data.ProgressBarDispose();
            return;
        }
        CScrivantParameters& parameters = Parameters();
        if (CAddInProject* project = data.Projects().CurrentProject()) {
            parameters.SetFolderForGeneratedHelp(AddBackslash(project->Folder));
            parameters.SetNameOfFolderForGeneratedImages(project->PicsSubfolderName);
        }
        m_agent->HourglassOn();
        m_agent->Doevents();
        if (mode != 1) {
            data.ProgressBarUpdate("Loading treeview...", 3);
            result = data.ScrivEngine().LoadTreviewForActiveProject(true);
            if (result == 0 && m_helpEditorOpener) {
                data.ProgressBarUpdate("Opening editor form...", 4);
                OpenHelpEditorForm();
            }
        }
        if (mode == 1 || result == 0) {
            data.ProgressBarDispose();
            m_agent->Doevents();
        }
    });
    selector.Terminate();
    if (m_data) {
        m_agent->HourglassOff();
        m_data->ProgressBarDispose();
    }
    return failure != 0 ? failure : result;
}

// --- services ---

std::string CScrivServer::ExecuteCommand(const std::string& text)
{
    bool interrupted = GenerationIsInterrupted();
    bool verbose = Parameters().VerboseTracing;
    if (verbose)
        Trace("CMD+ > " + text);
    CheckGenerationInterrupt();
    std::string answer;
    if (interrupted || !m_clientCallBack) {
        CXmlCommand command;
        command.Deserialize(text);
        command.AddParamValue("RetValue", "0");
        answer = command.Serialize();
    } else {
        answer = m_clientCallBack(text);
    }
    if (verbose)
        Trace("CMD- > " + answer + ", interrupted = " + (interrupted ? "True" : "False"));
    return answer;
}

std::string CScrivServer::GetComponentFileName(std::string_view name, std::string_view suffix,
    std::string_view overrideName) const
{
    std::string base(overrideName.empty() ? name : overrideName);
    if (!suffix.empty())
        base += "_" + std::string(suffix);
    return scriv::GetComponentFileName(base);
}

std::string CScrivServer::GetComponentFileNameWithPrefix(int objectType, std::string_view name,
    std::string_view suffix, std::string_view overrideName)
{
    std::string prefix = m_agent->FormNamePrefix();
    std::string prefixed = prefix + std::string(overrideName.empty() ? name : overrideName);
    return GetComponentFileName(prefixed, suffix);
}

void CScrivServer::WriteTraceLogMessage(const std::string& text)
{
    if (m_data)
        Trace(text);
}

bool CScrivServer::BackUpHelpProjectFile(const std::string& file)
{
    return RotateBackups(file);
}

bool CScrivServer::FormIsLoaded(std::string_view formName, bool* minimised) const
{
    IHostForm* form = LoadedForms().Find(formName);
    if (minimised)
        *minimised = form && form->IsIconic();
    return form != nullptr;
}

void CScrivServer::CloseFormsOnDisconnection()
{
    WriteTraceLogMessage("Close forms on disconnection");
    if (m_actions)
        m_actions->CloseWizardFormOnDisconnection();
    if (IHostForm* editor = LoadedForms().Find(kHelpEditorForm)) {
        editor->Unload();
        WriteTraceLogMessage("Help Editor closed OK.");
    }
}

}  // namespace scriv
