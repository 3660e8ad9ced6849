#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scriv::studio {

// The "&Scrivant" menu of the host window and the check that runs before each
// of its commands reaches the server: the server is there, the settings file
// is there, a source project is open and can be reached, the help compiler is
// installed (or the person goes on without it), and unsaved changes of the
// source project are confirmed.
class CScrivPopupMenu {
public:
    struct Entry {
        std::string command; // "NewProject", "OpenProject", "HelpTopics", "AboutForm"
        std::string caption; // with "&" before the access key
        bool beginGroup { false };
    };

    // testCompiler: the server's test that the help compiler is installed
    // (1 lets the command go on). openHelpTopics: opens the program's own help.
    CScrivPopupMenu(std::function<int()> testCompiler, std::function<std::uint32_t()> openHelpTopics);

    // The popup's caption and its entries in order.
    static const std::string& PopupCaption();
    static const std::vector<Entry>& Entries();

    // --- the commands: each runs its check, then the server's command ---
    std::uint32_t NewProject();
    std::uint32_t OpenProject();
    std::uint32_t SetFocusOnHelpEditorForm();
    std::uint32_t HelpTopics();
    std::uint32_t AboutForm();
    // Runs the entry of that command name; 0x8003FE09 for a name it has not.
    std::uint32_t Run(const std::string& command);

    // The check before a command: skip (K) and open (O) leave out the question
    // about unsaved changes. True when the command may go on; every refusal
    // has shown its message. Raises 0x80040001 when the server is not set up.
    bool SetCurrentSourceProject(bool skip, bool open);
    // The check before the contents and about entries.
    bool ServerIsInitializedOK();

private:
    std::function<int()> m_testCompiler;
    std::function<std::uint32_t()> m_openHelpTopics;
};

}  // namespace scriv::studio
