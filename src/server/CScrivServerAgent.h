#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/CXmlCommand.h"
#include "model/IHostAgent.h"

namespace scriv {

class CScrivServer;

// The logic's end of the host protocol: one typed operation per host command.
// Each builds a CXmlCommand, sends its text through the server, and reads the
// answer's RetValue.
class CScrivServerAgent : public IHostAgent {
public:
    explicit CScrivServerAgent(CScrivServer& server);

    // ^IHostAgent
    // --- lists: names joined by "|" as a list, empty parts left out ---
    std::vector<std::string> GetSourceProjectsList() override;
    std::vector<std::string> GetSourceFormsList() override;
    std::vector<std::string> GetSourceReportsList() override;
    std::vector<std::string> GetSourceTablesList() override;
    std::vector<std::string> GetSourceQueriesList() override;
    std::vector<std::string> GetSourceMacrosList() override;
    std::vector<std::string> GetSourceWorksheetsList() override;
    std::vector<std::string> GetSourceChartsList() override;

    // --- descriptions ---
    std::string GetComponentDescription(const std::string& compName) override;
    std::string GetQueryDescription(const std::string& compName) override;
    std::string GetMacroDescription(const std::string& compName) override;
    std::string GetWksHtml(const std::string& worksheetName) override;
    std::string GetQueryXmlStr(const std::string& queryName) override;

    // --- the source project ---
    void SetCurrentSourceProject(const std::string& projectName) override;
    bool AreThereAnySourceProjectsOpened() override;
    bool ComponentExistsTest(int compType, const std::string& compName) override;
    std::string ActiveObjectName() override;
    std::string CurrentObjectName() override;
    int CurrentObjectType() override;
    std::string FormNamePrefix() override;
    std::string ReportNamePrefix() override;
    std::string TableNamePrefix() override;
    std::string QueryNamePrefix() override;
    std::string MacroNamePrefix() override;
    bool CurrentSourceProjectIsMDEorADE() override;
    bool CurrentSourceProjectIsADPorADE() override;
    bool CurrentSourceProjectIsDirty() override;
    bool CurrentSourceProjectIsNewUnsaved() override;
    bool CurrentSourceProjectCodeIsDisabled() override;
    std::string CurrentSourceProjectFullPath() override;
    std::string CurrentSourceProjectName() override;
    std::string CurrentSourceProjectTypeName() override;
    std::string CurrentSourceProjectLocation() override;
    std::string CurrentSourceProjectCodePage() override;
    void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) override;
    int HostAppMainWindowHWnd() override;
    void HideIDEWindows() override;
    void ResetIDEWindows() override;
    void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp) override;

    // --- progress and pumping ---
    void ProgressMeterInit(const std::string& message, int maxVal) override;
    void ProgressMeterRemove() override;
    void ProgressMeterToggle(bool onFlag) override;
    void ProgressMeterUpdate(int currentValue) override;
    void HourglassOn() override;
    void HourglassOff() override;
    void HourglassOffFinal() override;
    void Doevents() override;

    // --- components ---
    void SaveAsText(int objType, const std::string& objName, const std::string& fullPath) override;
    void CloseComponent(int objType, const std::string& objName, bool saveComponentFlag) override;
    void SetComponentHelpContextId(int objType, const std::string& objName, int helpContextId) override;
    void ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView, bool forceOpenAsHidden) override;
    void ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) override;
    void CorrectInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag) override;
    void ResetInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag) override;
    void ShowToolbar(const std::string& toolbarName) override;
    void DeleteToolbar(const std::string& toolbarName) override;
    void TakeScreenshot(int objType, const std::string& objName, const std::string& picFullPath, const std::string& htmlFullPath) override;
    bool IDEDisplayModelIsMDI() override;
    std::string GetWinFormNameByHWND(int hwnd) override;
    std::string ScreenshotDatamodelWindow() override;
    void UnhideDbWindow() override;
    void SetUseProjectGroupAsSourceFlag(bool useProjectGroupAsSource) override;
    // The host's current source project, read from its files; nothing when the
    // host has none or no reader knows its type.
    std::unique_ptr<IHelpPrjSourceProject> ParseSourceProject() override;
    // The description of one component; it comes in the answer's text.
    std::string ProcessComponent(const ProcessComponentRequest& request) override;

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
