#pragma once

#include <memory>
#include <string>
#include <vector>

// What the logic asks of the host, one operation per host command. The
// server's agent sends each as an XML command; the layers below the server
// see only this interface, through the run context.
namespace scriv {

class IHelpPrjSourceProject;

// The parameters of the command ProcessComponent, in the order they are sent.
struct ProcessComponentRequest {
    int objectType { 2 };
    std::string componentName;
    int hostAppIdeHwnd { 0 };
    bool isInDesignView { true };
    bool replaceHtml { false };
    int pictureSaveType { 0 };
    std::string picFullPath;
    std::string htmlFullPath;
    std::string picSubFolder;
    bool captureRptPreviewAreaOnly { false };
    bool noReportsScreenShots { false };
    std::string sourceProjectTypeName;
    bool keepSourceObjectOpened { false };
};

class IHostAgent {
public:
    virtual ~IHostAgent() = default;

    // --- lists: names joined by "|" as a list, empty parts left out ---
    virtual std::vector<std::string> GetSourceProjectsList() = 0;
    virtual std::vector<std::string> GetSourceFormsList() = 0;
    virtual std::vector<std::string> GetSourceReportsList() = 0;
    virtual std::vector<std::string> GetSourceTablesList() = 0;
    virtual std::vector<std::string> GetSourceQueriesList() = 0;
    virtual std::vector<std::string> GetSourceMacrosList() = 0;
    virtual std::vector<std::string> GetSourceWorksheetsList() = 0;
    virtual std::vector<std::string> GetSourceChartsList() = 0;

    // --- descriptions ---
    virtual std::string GetComponentDescription(const std::string& compName) = 0;
    virtual std::string GetQueryDescription(const std::string& compName) = 0;
    virtual std::string GetMacroDescription(const std::string& compName) = 0;
    virtual std::string GetWksHtml(const std::string& worksheetName) = 0;
    virtual std::string GetQueryXmlStr(const std::string& queryName) = 0;

    // --- the source project ---
    virtual void SetCurrentSourceProject(const std::string& projectName) = 0;
    virtual bool AreThereAnySourceProjectsOpened() = 0;
    virtual bool ComponentExistsTest(int compType, const std::string& compName) = 0;
    virtual std::string ActiveObjectName() = 0;
    virtual std::string CurrentObjectName() = 0;
    virtual int CurrentObjectType() = 0;
    virtual std::string FormNamePrefix() = 0;
    virtual std::string ReportNamePrefix() = 0;
    virtual std::string TableNamePrefix() = 0;
    virtual std::string QueryNamePrefix() = 0;
    virtual std::string MacroNamePrefix() = 0;
    virtual bool CurrentSourceProjectIsMDEorADE() = 0;
    virtual bool CurrentSourceProjectIsADPorADE() = 0;
    virtual bool CurrentSourceProjectIsDirty() = 0;
    virtual bool CurrentSourceProjectIsNewUnsaved() = 0;
    virtual bool CurrentSourceProjectCodeIsDisabled() = 0;
    virtual std::string CurrentSourceProjectFullPath() = 0;
    virtual std::string CurrentSourceProjectName() = 0;
    virtual std::string CurrentSourceProjectTypeName() = 0;
    virtual std::string CurrentSourceProjectLocation() = 0;
    // The code page the application's forms name, or "".
    virtual std::string CurrentSourceProjectCodePage() = 0;
    virtual void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) = 0;
    virtual int HostAppMainWindowHWnd() = 0;
    virtual void HideIDEWindows() = 0;
    virtual void ResetIDEWindows() = 0;
    virtual void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp) = 0;

    // --- progress and pumping ---
    virtual void ProgressMeterInit(const std::string& message, int maxVal) = 0;
    virtual void ProgressMeterRemove() = 0;
    virtual void ProgressMeterToggle(bool onFlag) = 0;
    virtual void ProgressMeterUpdate(int currentValue) = 0;
    virtual void HourglassOn() = 0;
    virtual void HourglassOff() = 0;
    virtual void HourglassOffFinal() = 0;
    virtual void Doevents() = 0;

    // --- components ---
    virtual void SaveAsText(int objType, const std::string& objName, const std::string& fullPath) = 0;
    virtual void CloseComponent(int objType, const std::string& objName, bool saveComponentFlag) = 0;
    virtual void SetComponentHelpContextId(int objType, const std::string& objName, int helpContextId) = 0;
    virtual void ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView, bool forceOpenAsHidden) = 0;
    virtual void ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) = 0;
    virtual void CorrectInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag) = 0;
    virtual void ResetInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag) = 0;
    virtual void ShowToolbar(const std::string& toolbarName) = 0;
    virtual void DeleteToolbar(const std::string& toolbarName) = 0;
    virtual void TakeScreenshot(int objType, const std::string& objName, const std::string& picFullPath, const std::string& htmlFullPath) = 0;
    virtual bool IDEDisplayModelIsMDI() = 0;
    virtual std::string GetWinFormNameByHWND(int hwnd) = 0;
    virtual std::string ScreenshotDatamodelWindow() = 0;
    virtual void UnhideDbWindow() = 0;
    virtual void SetUseProjectGroupAsSourceFlag(bool useProjectGroupAsSource) = 0;
    // The host's current source project, read from its files; nothing when the
    // host has none or no reader knows its type.
    virtual std::unique_ptr<IHelpPrjSourceProject> ParseSourceProject() = 0;
    // The description of one component; it comes in the answer's text.
    virtual std::string ProcessComponent(const ProcessComponentRequest& request) = 0;
};

}  // namespace scriv
