#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/CAddInSettingsXmlFile.h"

#include "server/CScrivStats.h"

namespace scriv {

class CAddInProjects;
class CAddInSettingsXmlFile;
class CScrivServer;
class CScrivant;
class CTraceLog;
class CXmlMessages;

// The long-lived objects of the server: the message table, the project
// registry, the generator, the trace log, the progress window and the
// statistics, with the flags of a run.
class CScrivServerData {
public:
    explicit CScrivServerData(CScrivServer& server);
    ~CScrivServerData();

    // Loads the message table and the project registry at first use. With force
    // and a registry loaded it does nothing. Re-entry only balances a counter.
    void LoadSettings(bool force);
    // The path of the settings file in the settings folder.
    std::string SettingsFilePath() const;
    // The path of the project registry in the user data folder.
    std::string ProjectsFilePath() const;

    // The settings store, made on first use (loaded by LoadSettings).
    CAddInSettingsXmlFile& GetSettings();
    // Reads a settings file (or a project file's settings) into the store and
    // the parameters. 0, or the code of the failure that was reported.
    std::uint32_t ReLoadSettings(const std::string& path, bool fromProjectFile);
    // An option that stands for this run whatever the settings say (as given
    // on the command line); applied after every load of the settings.
    void OverrideOption(std::string name, OptionValue value) { m_optionOverrides.emplace_back(std::move(name), std::move(value)); }

    CAddInProjects& Projects();
    bool HasProjects() const { return m_projects != nullptr; }
    CScrivant& ScrivEngine() { return *m_scriv; }
    CTraceLog& TraceLog();
    CXmlMessages& Messages();
    CScrivStats& GenerationStats() { return m_stats; }

    // The progress window of the program itself (as opposed to the host's meter).
    void ProgressBarInit(const std::string& text, int maximum);
    void ProgressBarUpdate(const std::string& text, int value);
    void ProgressBarDispose();
    bool ProgressBarShown() const { return m_progressShown; }

    // A database host must have its database open; every other host passes.
    bool IsMSAccessDbOpened();
    // Ends the generator, the registry, the trace log and the settings, in that order.
    void Terminate();

    bool GenerationRunning() const { return m_generating; }
    void SetGenerationRunning(bool value) { m_generating = value; }
    // The base name of the host's project file made safe as a file name.
    std::string NewScrivProjectName();
    std::string NewScrivProjectTitle();
    int HostAppMainWindowHWnd();

    bool Runtime { false };
    // No one is there to answer the wizard: it finishes with the settings' values.
    bool Unattended { false };
    bool GenerationInterrupted { false };
    // Documented controls and menus of form topics get entries of their own
    // in the contents and the browser tree.
    bool ControlTopicsInContents { false };

private:
    CScrivServer& m_server;
    std::vector<std::pair<std::string, OptionValue>> m_optionOverrides;
    std::unique_ptr<CAddInProjects> m_projects;
    std::unique_ptr<CAddInSettingsXmlFile> m_settings;
    std::unique_ptr<CScrivant> m_scriv;
    std::unique_ptr<CXmlMessages> m_messages;
    CScrivStats m_stats;
    bool m_loading { false };
    bool m_generating { false };
    int m_loadDepth { 0 };
    bool m_progressShown { false };
    int m_hostAppMainWindowHWnd { 0 };
    std::string m_lastProgress;
    bool m_terminated { false };
};

}  // namespace scriv
