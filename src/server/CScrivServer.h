#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "model/IRunContext.h"

namespace scriv {

class CRequestQueue;
class CScrivActions;
class CScrivServerAgent;
class CScrivServerData;

// The one public entry of the program's logic. Every command reaches it first;
// it keeps the state that decides what may run now (an open Help Editor or
// wizard, a running generation) and hands the work to CScrivActions. Everything
// it wants of the host goes out as an XML command through ScrivClientCallBack.
class CScrivServer {
public:
    // The host's end of the protocol: takes a command's text, answers its reply.
    using ClientCallBack = std::function<std::string(const std::string& command)>;

    CScrivServer();
    ~CScrivServer();
    CScrivServer(const CScrivServer&) = delete;
    CScrivServer& operator=(const CScrivServer&) = delete;

    // --- life ---
    // Becomes the current server unless one is, and makes actions and the queue.
    std::uint32_t Connect();
    // Ends everything in order: queue, data (generator, projects, trace, settings),
    // actions, agent; then it is no longer the current server.
    std::uint32_t Disconnect();
    bool Connected() const { return m_connected; }

    // The event by which commands reach the host.
    void SetClientCallBack(ClientCallBack callBack) { m_clientCallBack = std::move(callBack); }

    // --- user commands ---
    std::uint32_t OpenNewProject();
    // Queues "ReloadWizardForm"; the wizard is reopened 100 ms later.
    std::uint32_t ReloadNewProject();
    std::uint32_t OpenProject();
    // The wizard has closed: checks, settings, generation and its message.
    std::uint32_t ProcessWizardFormClosing();
    std::uint32_t OpenHelpProject();
    std::uint32_t OpenHelpProjectIndex();
    std::uint32_t OpenHelpFolder();
    std::uint32_t OpenHelpTopics();
    std::uint32_t OpenHelpIndex();
    std::uint32_t OpenHelpSearch();
    std::uint32_t OpenAboutForm();
    // Gives a loaded Help Editor the focus; 0 whether or not there is one.
    std::uint32_t SetFocusOnHelpEditorForm();
    // Opens the Help Editor on the current project through the opener that
    // the layer showing it supplied; refused while the wizard is open.
    // 0x8003FE09 without an opener.
    std::uint32_t OpenHelpEditorForm();
    void SetHelpEditorOpener(std::function<std::uint32_t()> opener) { m_helpEditorOpener = std::move(opener); }
    // Loads a project file: its settings, the project as current, and (unless
    // mode is 1) its tree. 0, or the status of the step that failed.
    std::uint32_t ReloadScrivProject(const std::string& file, int mode);

    // --- services ---
    // Sends a command to the host and answers the reply. While a generation is
    // being stopped the host is not called and the reply carries RetValue "0".
    std::string ExecuteCommand(const std::string& text);
    // The override when not empty, else the name; with a suffix, "name_suffix";
    // then made safe for a file name.
    std::string GetComponentFileName(std::string_view name, std::string_view suffix = {},
        std::string_view overrideName = {}) const;
    std::string GetComponentFileNameWithPrefix(int objectType, std::string_view name, std::string_view suffix = {},
        std::string_view overrideName = {});
    void WriteTraceLogMessage(const std::string& text);
    // Rotating copies z1_, z2_, z3_ beside a project file. Always true.
    bool BackUpHelpProjectFile(const std::string& file);
    // Whether a form of that name is loaded; minimised tells whether it is iconic.
    bool FormIsLoaded(std::string_view formName, bool* minimised = nullptr) const;
    void CloseFormsOnDisconnection();

    CScrivServerData& Data() { return *m_data; }
    bool HasData() const { return m_data != nullptr; }
    CScrivServerAgent& Agent() { return *m_agent; }
    CScrivActions& Actions() { return *m_actions; }
    CRequestQueue* RequestQueue() { return m_requestQueue.get(); }

private:
    void HandleRequest(const std::string& request);
    // The editor guard of both commands: true when the command may go on.
    bool EditorGuard(const std::string& warning);

    std::unique_ptr<CScrivServerData> m_data;
    std::unique_ptr<CScrivActions> m_actions;
    std::unique_ptr<CScrivServerAgent> m_agent;
    std::unique_ptr<CRequestQueue> m_requestQueue;
    ClientCallBack m_clientCallBack;
    std::function<std::uint32_t()> m_helpEditorOpener;
    bool m_connected { false };
};

// --- module accessors ---
// The current server, or nothing.
CScrivServer* CurrentServer();
void SetCurrentServer(CScrivServer* server);
// The accessors of the run that the lower layers use (CurrentAddInProject,
// CurrentMessages, GenerationIsInterrupted ...) are declared with the run context.

}  // namespace scriv
