#pragma once

#include <string>

namespace scriv {

// What is open in the development environment, and its windows. The logic
// reaches a host only through ProcessCallBack, with one XML command per
// question; the other operations are what the commands call.
class IHostIDEContext {
public:
    virtual ~IHostIDEContext() = default;

    virtual int Connect() = 0;
    virtual int Disconnect() = 0;
    // Decodes a command, runs the operation it names and answers the command
    // with its result.
    virtual std::string ProcessCallBack(const std::string& xml) = 0;

    virtual bool IDEDisplayModelIsMDI() = 0;
    virtual bool UseProjectGroupAsSource() = 0;
    virtual void SetUseProjectGroupAsSource(bool value) = 0;
    // Names of all open projects in the host's order, joined with "|".
    virtual std::string SourceProjectsList() = 0;
    // A non-empty name makes that project current; an empty one takes the
    // host's active project when a current project is set.
    virtual void SetCurrentSourceProject(const std::string& name) = 0;
    virtual bool AreThereAnySourceProjectsOpened() = 0;
    virtual std::string CurrentSourceProjectFullPath() = 0;
    virtual std::string CurrentSourceProjectName() = 0;
    virtual std::string CurrentSourceProjectTypeName() = 0;
    virtual bool CurrentSourceProjectIsDirty() = 0;
    // The folder of the project file, with a final separator.
    virtual std::string CurrentSourceProjectLocation() = 0;
    // The code page the texts of the current project are written in, as its
    // forms say it ("windows-1256"); "" when they say nothing.
    virtual std::string CurrentSourceProjectCodePage() { return {}; }
    virtual bool CurrentSourceProjectIsMDEorADE() = 0;
    virtual bool CurrentSourceProjectIsADPorADE() = 0;
    virtual int HostAppMainWindowHWnd() = 0;
    virtual void HideIDEWindows() = 0;
    virtual void ResetIDEWindows() = 0;
    virtual std::string CurrentObjectName() = 0;
    virtual int CurrentObjectType() = 0;
    virtual bool CurrentSourceProjectIsNewUnsaved() = 0;
    virtual bool CurrentSourceProjectCodeIsDisabled() = 0;
};

// Things to do in the development environment.
class IHostIDEContextCommands {
public:
    virtual ~IHostIDEContextCommands() = default;

    // Writes the file name part of the path into the project's help file property.
    virtual void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) = 0;
    virtual void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp) = 0;
    virtual void ProgressMeterInit(const std::string& message, int maxVal) = 0;
    virtual void ProgressMeterRemove() = 0;
    virtual void ProgressMeterToggle(bool onFlag) = 0;
    virtual void ProgressMeterUpdate(int currentValue) = 0;
    virtual void HourglassOn() = 0;
    virtual void HourglassOff() = 0;
    virtual void HourglassOffFinal() = 0;
    virtual void myDoevents() = 0;
    // True when the component can be found; the type is not looked at.
    virtual bool ComponentExists(int compType, const std::string& compName) = 0;
    virtual std::string FormNamePrefix() = 0;
    virtual std::string ReportNamePrefix() = 0;
    virtual std::string TableNamePrefix() = 0;
    virtual std::string QueryNamePrefix() = 0;
    virtual std::string MacroNamePrefix() = 0;
    virtual void CloseComponent(int objType, const std::string& objName, bool saveFlag) = 0;
    virtual void SetComponentHelp(int objType, const std::string& objName, int helpContextId) = 0;
    // Brings the component's window forward and answers its handle.
    virtual int ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
        bool forceOpenAsHidden)
        = 0;
    virtual bool ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) = 0;
    virtual void CorrectInsideWidthAndHeight(int objType, const std::string& objName, bool designViewFlag) = 0;
    virtual void ResetInsideWidthAndHeight(int objType, const std::string& objName, bool designViewFlag) = 0;
};

}  // namespace scriv
