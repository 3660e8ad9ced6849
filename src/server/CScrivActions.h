#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace scriv {

class CHelpWizardForm;
class CScrivServer;

// Carries out one user command at a time behind the guards of the server: the
// pre-flight checks, the wizard, the generation that follows it and its closing
// message; opening projects and their help.
class CScrivActions {
public:
    explicit CScrivActions(CScrivServer& server);
    ~CScrivActions();

    void init();
    void Terminate();

    // Checks, registers a new help project for the host's current source project
    // and shows the wizard; an unattended run finishes the wizard at once.
    std::uint32_t OpenNewProject();
    // Offers the help projects of the current source project and opens the one chosen.
    std::uint32_t OpenProject();
    // What happens when the wizard closes: the checks, the settings, the
    // generation and its closing message (or the message of a cancel).
    std::uint32_t ProcessWizardFormClosing();

    std::uint32_t OpenHelpProject();
    std::uint32_t OpenHelpProjectIndex();
    std::uint32_t OpenHelpFolder();
    std::uint32_t OpenHelpTopics();
    std::uint32_t OpenHelpIndex();
    std::uint32_t OpenHelpSearch();
    std::uint32_t OpenAboutForm();
    void CloseWizardFormOnDisconnection();

    // The wizard while it is open.
    CHelpWizardForm* Wizard() { return m_wizard.get(); }
    // The closing message of the last run ("" before one).
    const std::string& LastStatistics() const { return m_lastStatistics; }

    // "a|b|c" of a list of names.
    static std::string concatProjectsListFromCollection(const std::vector<std::string>& names);

private:
    std::uint32_t OpenWizardForm(bool ask);
    std::uint32_t CheckIfGenerationPossible();
    bool CreateFolderIfMissing(const std::string& path);
    void PrepareForModalForm();
    void CopyWizardAnswersToParameters();
    std::string StatisticsMessage();
    std::uint32_t OpenProjectFile(const std::string& label, const std::string& path, const std::string& emptyText);
    // Shows a warning titled "Scrivant Add-In" and answers the code.
    std::uint32_t Refuse(const std::string& text, std::uint32_t code, const std::string& source);

    CScrivServer& m_server;
    std::unique_ptr<CHelpWizardForm> m_wizard;
    std::string m_lastStatistics;
    bool m_terminated { false };
};

}  // namespace scriv
