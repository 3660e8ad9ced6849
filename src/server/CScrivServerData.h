#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivStats.h"
#include "model/IRunContext.h"

namespace scriv {

class CAddInProjects;
class CAddInSettingsXmlFile;
class CScrivServer;
class CScrivant;
class CTraceLog;
class CXmlMessages;

// The long-lived objects of the server: the message table, the project
// registry, the generator, the trace log, the progress window and the
// statistics, with the flags of a run. It is the run context that the
// layers below the server see.
class CScrivServerData : public IRunContext, public CRunState {
public:
    explicit CScrivServerData(CScrivServer& server);
    ~CScrivServerData() override;

    // ^IRunContext
    CRunState& State() override { return *this; }
    bool GenerationRunning() const override { return m_generating; }
    CScrivStats& GenerationStats() override { return m_stats; }
    CXmlMessages& Messages() override;
    // The settings store, made on first use (loaded by LoadSettings).
    CAddInSettingsXmlFile& GetSettings() override;
    std::string SettingsFilePath() const override;
    // Loads the message table and the project registry at first use. With force
    // and a registry loaded it does nothing. Re-entry only balances a counter.
    void LoadSettings(bool force) override;
    CAddInProjects& Projects() override;
    bool HasProjects() const override { return m_projects != nullptr; }
    IHostAgent& Agent() override;
    bool IsMSAccessDbOpened() override;
    bool HostIsMSAccess() const override;
    CHelpPrjTree* LoadedTree() override;
    std::uint32_t LoadTreeOfActiveProject(bool keep) override;
    void UnloadTreeOfActiveProject() override;
    std::uint32_t ReloadScrivProject(const std::string& file, int mode) override;
    // The progress window of the program itself (as opposed to the host's meter).
    void ProgressBarInit(const std::string& text, int maximum) override;
    void ProgressBarUpdate(const std::string& text, int value) override;
    void ProgressBarDispose() override;

    // The path of the project registry in the user data folder.
    std::string ProjectsFilePath() const;

    // Reads a settings file (or a project file's settings) into the store and
    // the parameters. 0, or the code of the failure that was reported.
    std::uint32_t ReLoadSettings(const std::string& path, bool fromProjectFile);
    // An option that stands for this run whatever the settings say (as given
    // on the command line); applied after every load of the settings.
    void OverrideOption(std::string name, OptionValue value) { m_optionOverrides.emplace_back(std::move(name), std::move(value)); }

    CScrivant& ScrivEngine() { return *m_scriv; }
    bool HasScrivEngine() const { return m_scriv != nullptr; }
    CTraceLog& TraceLog();

    bool ProgressBarShown() const { return m_progressShown; }

    // Ends the generator, the registry, the trace log and the settings, in that order.
    void Terminate();

    void SetGenerationRunning(bool value) { m_generating = value; }
    // The base name of the host's project file made safe as a file name.
    std::string NewScrivProjectName();
    std::string NewScrivProjectTitle();
    int HostAppMainWindowHWnd();

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
