#pragma once

#include <cstdint>
#include <string>

// What the layers below the server need of the program around a run: its
// flags, counters, messages, settings and projects, the host, the loaded
// contents tree and the progress window. The server supplies it and makes it
// current while it is the current server; below it, everything reaches the
// run through these accessors.
namespace scriv {

class CAddInProject;
class CAddInProjects;
class CAddInSettingsXmlFile;
class CHelpPrjTree;
class CScrivStats;
class CXmlMessages;
class IHostAgent;

// The flags of the program that a run reads and sets.
struct CRunState {
    bool Runtime { false };
    // No one is there to answer the wizard: it finishes with the settings' values.
    bool Unattended { false };
    // The one cancel flag: while it is set every host read answers empty.
    bool GenerationInterrupted { false };
    // Documented controls and menus of form topics get entries of their own
    // in the contents and the browser tree.
    bool ControlTopicsInContents { false };
};

class IRunContext {
public:
    virtual ~IRunContext() = default;

    // --- state of the run ---
    virtual CRunState& State() = 0;
    virtual bool GenerationRunning() const = 0;
    virtual CScrivStats& GenerationStats() = 0;

    // --- what the program has loaded ---
    virtual CXmlMessages& Messages() = 0;
    // The settings store; LoadSettings reads the message table and the
    // registry at first use.
    virtual CAddInSettingsXmlFile& GetSettings() = 0;
    // The path of the settings file in the settings folder.
    virtual std::string SettingsFilePath() const = 0;
    virtual void LoadSettings(bool force) = 0;
    virtual CAddInProjects& Projects() = 0;
    virtual bool HasProjects() const = 0;

    // --- the host ---
    virtual IHostAgent& Agent() = 0;
    // A database host must have its database open; every other host passes.
    virtual bool IsMSAccessDbOpened() = 0;
    // Whether the program runs inside Access (the host that created the proxy).
    virtual bool HostIsMSAccess() const = 0;

    // --- the contents tree of the current project ---
    // The tree the generator has loaded, or nothing.
    virtual CHelpPrjTree* LoadedTree() = 0;
    // Loads the current project's tree (its project file, else the default
    // contents); with keep a loaded tree stays. 0, or the code of the failure.
    virtual std::uint32_t LoadTreeOfActiveProject(bool keep) = 0;
    virtual void UnloadTreeOfActiveProject() = 0;
    // Loads a project file as the current project (its settings, and its tree
    // unless mode is 1). 0, or the status of the step that failed.
    virtual std::uint32_t ReloadScrivProject(const std::string& file, int mode) = 0;

    // --- the program's own progress window ---
    virtual void ProgressBarInit(const std::string& text, int maximum) = 0;
    virtual void ProgressBarUpdate(const std::string& text, int value) = 0;
    virtual void ProgressBarDispose() = 0;
};

// --- module accessors ---
// The context of the current server, or nothing.
IRunContext* CurrentRunContext();
void SetCurrentRunContext(IRunContext* context);
// The current help project of the registry, or nothing.
CAddInProject* CurrentAddInProject();
// The message table, or nothing.
CXmlMessages* CurrentMessages();
// The host's agent, or nothing without a context.
IHostAgent* CurrentHostAgent();

// The one cancel flag of the system (false without a context).
bool GenerationIsInterrupted();
// Sets the cancel flag when 50 errors have been reported (and starts the count
// again), or when the person asked to stop.
void CheckGenerationInterrupt();
// CheckGenerationInterrupt, then the flag.
bool PollGenerationInterrupt();

// The number of reported errors that stops a run.
inline constexpr int kErrorsThatStopARun = 50;

}  // namespace scriv
