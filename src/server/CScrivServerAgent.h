#pragma once

#include <memory>
#include <string>
#include <vector>

#include "server/CXmlCommand.h"

namespace scriv {

class CScrivServer;
class IHelpPrjSourceProject;
struct ProcessComponentRequest;

// The logic's end of the host protocol: one typed operation per host command.
// Each builds a CXmlCommand, sends its text through the server, and reads the
// answer's RetValue.
class CScrivServerAgent {
public:
    explicit CScrivServerAgent(CScrivServer& server);

    // --- lists: names joined by "|" as a list, empty parts left out ---
    std::vector<std::string> GetSourceProjectsList();
    std::vector<std::string> GetSourceFormsList();
    std::vector<std::string> GetSourceReportsList();
    std::vector<std::string> GetSourceTablesList();
    std::vector<std::string> GetSourceQueriesList();
    std::vector<std::string> GetSourceMacrosList();
    std::vector<std::string> GetSourceWorksheetsList();
    std::vector<std::string> GetSourceChartsList();

    // --- descriptions ---
    std::string GetComponentDescription(const std::string& compName);
    std::string GetQueryDescription(const std::string& compName);
    std::string GetMacroDescription(const std::string& compName);
    std::string GetWksHtml(const std::string& worksheetName);
    std::string GetQueryXmlStr(const std::string& queryName);

    // --- the source project ---
    void SetCurrentSourceProject(const std::string& projectName);
    bool AreThereAnySourceProjectsOpened();
    bool ComponentExistsTest(int compType, const std::string& compName);
    std::string ActiveObjectName();
    std::string CurrentObjectName();
    int CurrentObjectType();
    std::string FormNamePrefix();
    std::string ReportNamePrefix();
    std::string TableNamePrefix();
    std::string QueryNamePrefix();
    std::string MacroNamePrefix();
    bool CurrentSourceProjectIsMDEorADE();
    bool CurrentSourceProjectIsADPorADE();
    bool CurrentSourceProjectIsDirty();
    bool CurrentSourceProjectIsNewUnsaved();
    bool CurrentSourceProjectCodeIsDisabled();
    std::string CurrentSourceProjectFullPath();
    std::string CurrentSourceProjectName();
    std::string CurrentSourceProjectTypeName();
    std::string CurrentSourceProjectLocation();
    void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath);
    int HostAppMainWindowHWnd();
    void HideIDEWindows();
    void ResetIDEWindows();
    void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp);

    // --- progress and pumping ---
    void ProgressMeterInit(const std::string& message, int maxVal);
    void ProgressMeterRemove();
    void ProgressMeterToggle(bool onFlag);
    void ProgressMeterUpdate(int currentValue);
    void HourglassOn();
    void HourglassOff();
    void HourglassOffFinal();
    void Doevents();

    // --- components ---
    void SaveAsText(int objType, const std::string& objName, const std::string& fullPath);
    void CloseComponent(int objType, const std::string& objName, bool saveComponentFlag);
    void SetComponentHelpContextId(int objType, const std::string& objName, int helpContextId);
    void ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView, bool forceOpenAsHidden);
    void ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag);
    void CorrectInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag);
    void ResetInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag);
    void ShowToolbar(const std::string& toolbarName);
    void DeleteToolbar(const std::string& toolbarName);
    void TakeScreenshot(int objType, const std::string& objName, const std::string& picFullPath,
        const std::string& htmlFullPath);
    bool IDEDisplayModelIsMDI();
    std::string GetWinFormNameByHWND(int hwnd);
    std::string ScreenshotDatamodelWindow();
    void UnhideDbWindow();
    void SetUseProjectGroupAsSourceFlag(bool useProjectGroupAsSource);
    // The host's current source project, read from its files; nothing when the
    // host has none or no reader knows its type.
    std::unique_ptr<IHelpPrjSourceProject> ParseSourceProject();
    // The description of one component; it comes in the answer's text.
    std::string ProcessComponent(const ProcessComponentRequest& request);

private:
    // Sends a command and answers the reply.
    CXmlCommand Send(const std::string& name, const CXmlCommand::Parameters& params = {});
    std::string SendForResult(const std::string& name, const CXmlCommand::Parameters& params = {});
    bool SendForBool(const std::string& name, const CXmlCommand::Parameters& params = {});
    std::vector<std::string> SendForList(const std::string& name);

    CScrivServer& m_server;
};

// How booleans and numbers cross the protocol.
std::string CommandBool(bool value);
bool CommandBoolValue(const std::string& text);

}  // namespace scriv
