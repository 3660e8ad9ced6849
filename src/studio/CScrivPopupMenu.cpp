#include "studio/CScrivPopupMenu.h"

#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"

namespace scriv::studio {

namespace {

const std::string kLineBreak(kCrLf);
constexpr const char* kCheckSource = "CScrivPopupMenu.SetCurrentSourceProject";

// The end of the texts of a server that is not set up.
std::string RestartTail()
{
    return kLineBreak + "Please restart your host application." + kLineBreak
        + "If this issue persists please contact Scrivant's support service " + SupportContact();
}

std::string NoSourceProjectText(const std::string& type)
{
    if (EqualsNoCase(type, "MS ACCESS"))
        return "There is no open database.";
    for (const char* unsupported : { "", "VS.NET", "VB.NET", "C#", "J#", "C++", "ASP.NET" }) {
        if (EqualsNoCase(type, unsupported)) {
            return "There are no open source projects or " + kLineBreak
                + "active project has type which is not supported by Scrivant or " + kLineBreak
                + "active project is unloaded.";
        }
    }
    return "There are no open source projects.";
}

// Runs a command in the error frame of its click handler and answers its status.
std::uint32_t Clicked(const char* source, const std::function<std::uint32_t()>& body)
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame(source, [&] { result = body(); });
    return failure != 0 ? failure : result;
}

}  // namespace

CScrivPopupMenu::CScrivPopupMenu(std::function<int()> testCompiler, std::function<std::uint32_t()> openHelpTopics)
    : m_testCompiler(std::move(testCompiler))
    , m_openHelpTopics(std::move(openHelpTopics))
{
}

const std::string& CScrivPopupMenu::PopupCaption()
{
    static const std::string caption = "&Scrivant";
    return caption;
}

const std::vector<CScrivPopupMenu::Entry>& CScrivPopupMenu::Entries()
{
    static const std::vector<Entry> entries {
        { "NewProject", "&New Help Project...", false },
        { "OpenProject", "&Open Help Project...", false },
        { "HelpTopics", "Help &Contents", true },
        { "AboutForm", "&About...", false },
    };
    return entries;
}

std::uint32_t CScrivPopupMenu::Run(const std::string& command)
{
    if (command == "NewProject")
        return NewProject();
    if (command == "OpenProject")
        return OpenProject();
    if (command == "HelpTopics")
        return HelpTopics();
    if (command == "AboutForm")
        return AboutForm();
    if (command == "SetFocusOnHelpEditorForm")
        return SetFocusOnHelpEditorForm();
    return status::kAbandoned;
}

std::uint32_t CScrivPopupMenu::NewProject()
{
    return Clicked("CScrivPopupMenu.NewProject", [&]() -> std::uint32_t {
        if (!SetCurrentSourceProject(false, false))
            return status::kAbandoned;
        return CurrentServer()->OpenNewProject();
    });
}

std::uint32_t CScrivPopupMenu::OpenProject()
{
    return Clicked("CScrivPopupMenu.OpenProject", [&]() -> std::uint32_t {
        if (!SetCurrentSourceProject(false, true))
            return status::kAbandoned;
        return CurrentServer()->OpenProject();
    });
}

std::uint32_t CScrivPopupMenu::SetFocusOnHelpEditorForm()
{
    return Clicked("CScrivPopupMenu.SetFocusOnHelpEditorForm", [&]() -> std::uint32_t {
        if (!SetCurrentSourceProject(false, true))
            return status::kAbandoned;
        return CurrentServer()->SetFocusOnHelpEditorForm();
    });
}

std::uint32_t CScrivPopupMenu::HelpTopics()
{
    return Clicked("CScrivPopupMenu.HelpTopics", [&]() -> std::uint32_t {
        if (!ServerIsInitializedOK())
            return status::kAbandoned;
        return m_openHelpTopics();
    });
}

std::uint32_t CScrivPopupMenu::AboutForm()
{
    return Clicked("CScrivPopupMenu.AboutForm", [&]() -> std::uint32_t {
        if (!ServerIsInitializedOK())
            return status::kAbandoned;
        return CurrentServer()->OpenAboutForm();
    });
}

bool CScrivPopupMenu::SetCurrentSourceProject(bool skip, bool open)
{
    CScrivServer* server = CurrentServer();
    if (!server)
        Raise(status::kGeneralFailure, kCheckSource, "Scrivant Add-in isn't initialized (1)." + RestartTail());
    if (!server->HasData())
        Raise(status::kGeneralFailure, kCheckSource, "Scrivant Add-in isn't initialized (2)." + RestartTail());
    CScrivServerData& data = server->Data();
    CScrivServerAgent& agent = server->Agent();
    data.GenerationInterrupted = false;

    std::string settings = data.SettingsFilePath();
    if (!FileExists(settings)) {
        MsgBox("Settings file doesn't exist '" + settings + "'.", msgbox::kCritical, kMessageBoxTitle, "", 0,
            kCheckSource);
        return false;
    }
    if (!agent.AreThereAnySourceProjectsOpened()) {
        WarningDialog(NoSourceProjectText(agent.CurrentSourceProjectTypeName()));
        return false;
    }
    if (m_testCompiler() != 1)
        return false;

    agent.SetCurrentSourceProject("");
    std::string name = agent.CurrentSourceProjectName();
    std::string type = agent.CurrentSourceProjectTypeName();
    if (name.empty()) {
        if (EqualsNoCase(type, "MS EXCEL")) {
            WarningDialog("Can't get access to the current source workbook or its VBA project." + kLineBreak
                + "Change VBA trust level and/or enable VBA macros." + kLineBreak
                + "Please inform Scrivant support if this issue persists.");
        } else {
            WarningDialog("Can't get access to the current source project." + kLineBreak
                + "Do you have active project selected?," + kLineBreak
                + "Try to save the source project/solution, to quit and to restart the host application," + kLineBreak
                + "and to open your source project, to set it as active and to run Scrivant Wizard with it."
                + kLineBreak + "Please inform Scrivant support if this issue persists.");
        }
        return false;
    }

    bool dirty = agent.CurrentSourceProjectIsDirty() && !Parameters().AutomatedTestModeOn;
    if (!dirty || skip || open)
        return true;
    std::string path = agent.CurrentSourceProjectFullPath();
    if (!EqualsNoCase(type, "MS ACCESS")) {
        int answer = MsgBox("Your current source project has unsaved changes." + kLineBreak
                + "It is recommended for you to save all these changes manually" + kLineBreak
                + "before running Scrivant Add-in." + kLineBreak + "Would you like to continue running Scrivant Add-in"
                + kLineBreak + "with unsaved changes in the current source project" + kLineBreak + "'" + path + "'?",
            308, kMessageBoxTitle, "", 0, kCheckSource);
        return answer != vbNo;
    }
    std::string text = "Please close forms and/or reports for your current source project";
    if (!path.empty())
        text += kLineBreak + "'" + path + "'";
    WarningDialog(text + ".");
    return false;
}

bool CScrivPopupMenu::ServerIsInitializedOK()
{
    CScrivServer* server = CurrentServer();
    if (!server || !server->HasData()) {
        MsgBox("Scrivant isn't initialized properly" + kLineBreak + "Please try to restart your host application."
                + kLineBreak + "If the latter will not help then contact Scrivant's technical support.",
            msgbox::kCritical, kMessageBoxTitle, "", 0, "CScrivPopupMenu.ScrivServerIsInitializedOK");
        return false;
    }
    std::string settings = server->Data().SettingsFilePath();
    if (!FileExists(settings)) {
        MsgBox("Settings file doesn't exist '" + settings + "'.", msgbox::kCritical, kMessageBoxTitle, "", 0,
            "CScrivPopupMenu.ScrivServerIsInitializedOK");
        return false;
    }
    return true;
}

}  // namespace scriv::studio
