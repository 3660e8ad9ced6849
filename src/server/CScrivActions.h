#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace scriv {

class CScrivServer;

// Carries out one user command at a time behind the guards of the server: the
// pre-flight checks, the wizard, the generation that follows it and its closing
// message.
class CScrivActions {
public:
    explicit CScrivActions(CScrivServer& server);
    ~CScrivActions();

    void init();
    void Terminate();

    std::uint32_t OpenNewProject();
    std::uint32_t OpenProject();
    void CloseWizardFormOnDisconnection();

    // "a|b|c" of a list of names.
    static std::string concatProjectsListFromCollection(const std::vector<std::string>& names);

private:
    std::uint32_t OpenWizardForm(bool ask);
    // Shows a warning titled "Scrivant Add-In" and answers the code.
    std::uint32_t Refuse(const std::string& text, std::uint32_t code);

    CScrivServer& m_server;
    bool m_terminated { false };
};

}  // namespace scriv
