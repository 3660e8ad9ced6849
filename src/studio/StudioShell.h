#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "studio/CScrivPopupMenu.h"
#include "studio/StudioWizard.h"

namespace scriv {
class CScrivClient;
class CScrivServer;
class IHostIDEContext;
}  // namespace scriv

namespace scriv::studio {

class EditorSession;
class StudioEvents;
class StudioFileAccess;

// The host window's logic: the open application, its Scrivant menu and the
// commands on the current help project, each carried out by the server. It
// lives on the logic thread; the HTTP side only posts commands to it. One
// command runs at a time: a command that arrives while another runs (its
// progress and dialogs keep the loop turning) is refused with a message.
// What the page must show (a help, a web address) goes out as events.
class StudioShell {
public:
    // The download page offered when no help compiler is installed.
    static constexpr const char* kCompilerDownloadPage = "https://packages.debian.org/stable/fp-utils";

    StudioShell(StudioEvents& events, StudioFileAccess& files);
    ~StudioShell();
    StudioShell(const StudioShell&) = delete;
    StudioShell& operator=(const StudioShell&) = delete;

    // Connects a host and its server (which becomes the current one) and
    // loads the settings. sourceFile is what the host was opened from (a
    // .vbp or .vbg, or "" for none).
    void Connect(std::unique_ptr<IHostIDEContext> host, const std::string& sourceFile);
    // Disconnects the server and the host.
    void Disconnect();
    CScrivServer& Server();
    // The Help Editor of the studio (open or not).
    EditorSession& Editor() { return *m_editor; }

    // The host of a source: a .vbp or .vbg read from its files, the source
    // project that a registered help project (.svp) documents, or a host with
    // no project open. Raises ScrivError when the file cannot be read.
    static std::unique_ptr<IHostIDEContext> HostFor(const std::string& source);
    // The source project that the registry names for a help project file,
    // when its file is there; "" otherwise.
    static std::string RegisteredSourceOf(const std::string& projectFile);

    // --- commands ---
    // The names Run knows: the menu's entries and the commands on the help project.
    static const std::vector<std::string>& Commands();
    // Runs a command by name and answers its status. Refused with a message
    // (0x8003FE09) while another command runs; an unknown name is refused
    // without one.
    std::uint32_t Run(const std::string& command, const nlohmann::json& arguments = {});
    bool Running() const { return !m_running.empty(); }
    const std::string& RunningCommand() const { return m_running; }
    // The Cancel of the progress window: the running command stops at the
    // next step. Nothing without a running command.
    void Cancel();

    // --- the server's commands that the shell carries out itself ---
    // Tests once per server life whether the help compiler is installed, and
    // without one asks whether to get it: 1 goes on, 6 the download page was
    // opened, 2 cancelled.
    int TestThatHtmlWorkshopInstalled();
    // Shows the compiled help of the current project; without noQuestion a help
    // older than its pages is offered a recompile first.
    std::uint32_t OpenHelp(bool noQuestion);
    // Shows the browser help of the current project, offering to bring its
    // contents and index up to date first.
    std::uint32_t OpenWebHelp(bool noQuestion);
    std::uint32_t OpenHelpOfActiveProject();
    std::uint32_t OpenWebHelpOfActiveProject();
    // The program's own help, shown in the help viewer.
    std::uint32_t OpenHelpTopics();
    // The program's own help at its index or its search: the manual's browser
    // help, which has both (the viewer of compiled help shows the contents
    // alone), else the compiled help. Refused with "Help doesn't exist" as
    // OpenHelpTopics is when there is no compiled manual.
    std::uint32_t OpenHelpIndex();
    std::uint32_t OpenHelpSearch();
    std::uint32_t RecompileHelpProject(bool ask);
    std::uint32_t RegenerateHelpProject(bool ask);
    // Opens a project file as the current help project (the studio's start).
    std::uint32_t OpenStartProject(const std::string& projectFile);
    // The About box of the studio: the program's name, version and what it
    // does, and the current help project; shown by the page, nothing waits.
    std::uint32_t ShowAbout();

    // --- for the page ---
    // The open application, the menu, the current help project and whether a
    // command runs.
    nlohmann::json State();
    // The folders the page may read: the source projects' folders, the help
    // projects' folders, the program's data folders and the wizard's samples.
    std::vector<std::string> AllowedFolders() const;
    // The open wizard of a new help project, as the page shows it.
    StudioWizard& Wizard() { return m_wizard; }
    // A change made in the wizard's page (StudioWizard::Act), refused while a
    // command runs; the folders the page may read follow its new preview.
    std::optional<nlohmann::json> WizardAct(const nlohmann::json& request, std::string& problem);
    // A compiled help opens in the studio's viewer; false for what it cannot show.
    bool ShowDocument(const std::string& path);

private:
    std::uint32_t Dispatch(const std::string& command, const nlohmann::json& arguments);
    // The source projects of the host (names, types, paths), read while no
    // command runs; with forms, each project's forms as well.
    nlohmann::json ReadSourceProjects(bool withForms);
    nlohmann::json HelpProjectState();
    void RefreshAfterCommand();
    void ShowHelp(const std::string& kind, const std::string& path);
    std::uint32_t ShowManual(bool withIndexAndSearch, const char* source);

    StudioEvents& m_events;
    StudioFileAccess& m_files;
    std::unique_ptr<CScrivClient> m_client;
    std::unique_ptr<EditorSession> m_editor;
    CScrivPopupMenu m_menu;
    StudioWizard m_wizard;
    std::string m_sourceFile;
    nlohmann::json m_sourceProjects = nlohmann::json::array();
    bool m_formsRead { false };
    std::string m_running;
    bool m_compilerTested { false };
    bool m_compilerInstalled { false };
};

}  // namespace scriv::studio
