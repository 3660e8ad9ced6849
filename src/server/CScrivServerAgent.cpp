#include "server/CScrivServerAgent.h"

#include "foundation/CTraceLog.h"
#include "foundation/DateTime.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CHostContextBase.h"
#include "host/CSourceProjectVB6.h"
#include "server/CScrivServer.h"

namespace scriv {

std::string CommandBool(bool value)
{
    return value ? "True" : "False";
}

bool CommandBoolValue(const std::string& text)
{
    std::string value = Trim(text);
    if (EqualsNoCase(value, "true"))
        return true;
    auto number = ParseNumber(value);
    return number && *number != 0;
}

CScrivServerAgent::CScrivServerAgent(CScrivServer& server)
    : m_server(server)
{
}

CXmlCommand CScrivServerAgent::Send(const std::string& name, const CXmlCommand::Parameters& params)
{
    CXmlCommand command;
    command.Build(name, params);
    std::string answer = m_server.ExecuteCommand(command.Serialize());
    CXmlCommand reply;
    reply.Deserialize(answer);
    return reply;
}

std::string CScrivServerAgent::SendForResult(const std::string& name, const CXmlCommand::Parameters& params)
{
    return Send(name, params).GetParamValue("RetValue");
}

bool CScrivServerAgent::SendForBool(const std::string& name, const CXmlCommand::Parameters& params)
{
    return CommandBoolValue(SendForResult(name, params));
}

std::vector<std::string> CScrivServerAgent::SendForList(const std::string& name)
{
    std::vector<std::string> names;
    for (std::string& part : Split(SendForResult(name), "|"))
        if (!Trim(part).empty())
            names.push_back(std::move(part));
    return names;
}

std::vector<std::string> CScrivServerAgent::GetSourceProjectsList() { return SendForList("GetSourceProjectsList"); }
std::vector<std::string> CScrivServerAgent::GetSourceFormsList() { return SendForList("GetSourceFormsList"); }
std::vector<std::string> CScrivServerAgent::GetSourceReportsList() { return SendForList("GetSourceReportsList"); }
std::vector<std::string> CScrivServerAgent::GetSourceTablesList() { return SendForList("GetSourceTablesList"); }
std::vector<std::string> CScrivServerAgent::GetSourceQueriesList() { return SendForList("GetSourceQueriesList"); }
std::vector<std::string> CScrivServerAgent::GetSourceMacrosList() { return SendForList("GetSourceMacrosList"); }
std::vector<std::string> CScrivServerAgent::GetSourceWorksheetsList() { return SendForList("GetSourceWorksheetsList"); }
std::vector<std::string> CScrivServerAgent::GetSourceChartsList() { return SendForList("GetSourceChartsList"); }

std::string CScrivServerAgent::GetComponentDescription(const std::string& compName)
{
    return SendForResult("GetComponentDescription", { { "CompName", compName } });
}

std::string CScrivServerAgent::GetQueryDescription(const std::string& compName)
{
    return SendForResult("GetQueryDescription", { { "CompName", compName } });
}

std::string CScrivServerAgent::GetMacroDescription(const std::string& compName)
{
    return SendForResult("GetMacroDescription", { { "CompName", compName } });
}

std::string CScrivServerAgent::GetWksHtml(const std::string& worksheetName)
{
    Trace("1. CScrivServerAgent.GetWksHtml");
    std::string html = SendForResult("GetWksHtml", { { "XmlCmdParam_WksName", worksheetName } });
    Trace("2. CScrivServerAgent.GetWksHtml");
    return html;
}

std::string CScrivServerAgent::GetQueryXmlStr(const std::string& queryName)
{
    return SendForResult("GetQueryXmlStr", { { "QueryName", queryName } });
}

void CScrivServerAgent::SetCurrentSourceProject(const std::string& projectName)
{
    Send("SetCurrentSourceProject", { { "ProjectName", projectName } });
}

bool CScrivServerAgent::AreThereAnySourceProjectsOpened() { return SendForBool("AreThereAnySourceProjectsOpened"); }

bool CScrivServerAgent::ComponentExistsTest(int compType, const std::string& compName)
{
    return SendForBool("ComponentExistsTest", { { "CompType", std::to_string(compType) }, { "CompName", compName } });
}

std::string CScrivServerAgent::ActiveObjectName() { return SendForResult("ActiveObjectName"); }

std::string CScrivServerAgent::CurrentObjectName()
{
    return Send("CurrentObjectName").GetParamValue("CurrentObjectName");
}

int CScrivServerAgent::CurrentObjectType()
{
    std::string value = Send("CurrentObjectType").GetParamValue("CurrentObjectType");
    return value.empty() ? -1 : ToInt(value);
}

std::string CScrivServerAgent::FormNamePrefix() { return SendForResult("FormNamePrefix"); }
std::string CScrivServerAgent::ReportNamePrefix() { return SendForResult("ReportNamePrefix"); }
std::string CScrivServerAgent::TableNamePrefix() { return SendForResult("TableNamePrefix"); }
std::string CScrivServerAgent::QueryNamePrefix() { return SendForResult("QueryNamePrefix"); }
std::string CScrivServerAgent::MacroNamePrefix() { return SendForResult("MacroNamePrefix"); }
bool CScrivServerAgent::CurrentSourceProjectIsMDEorADE() { return SendForBool("CurrentSourceProjectIsMDEorADE"); }
bool CScrivServerAgent::CurrentSourceProjectIsADPorADE() { return SendForBool("CurrentSourceProjectIsADPorADE"); }
bool CScrivServerAgent::CurrentSourceProjectIsDirty() { return SendForBool("CurrentSourceProjectIsDirty"); }
bool CScrivServerAgent::CurrentSourceProjectIsNewUnsaved() { return SendForBool("CurrentSourceProjectIsNewUnsaved"); }
bool CScrivServerAgent::CurrentSourceProjectCodeIsDisabled() { return SendForBool("CurrentSourceProjectCodeIsDisabled"); }
std::string CScrivServerAgent::CurrentSourceProjectFullPath() { return SendForResult("CurrentSourceProjectFullPath"); }
std::string CScrivServerAgent::CurrentSourceProjectName() { return SendForResult("CurrentSourceProjectName"); }
std::string CScrivServerAgent::CurrentSourceProjectTypeName() { return SendForResult("CurrentSourceProjectTypeName"); }
std::string CScrivServerAgent::CurrentSourceProjectLocation() { return SendForResult("CurrentSourceProjectLocation"); }
std::string CScrivServerAgent::CurrentSourceProjectCodePage() { return SendForResult("CurrentSourceProjectCodePage"); }

void CScrivServerAgent::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    Send("SetHelpFileForCurrentSourceProject", { { "HelpFileFullPath", helpFileFullPath } });
}

int CScrivServerAgent::HostAppMainWindowHWnd() { return ToInt(SendForResult("HostAppMainWindowHWnd")); }
void CScrivServerAgent::HideIDEWindows() { Send("HideIDEWindows"); }
void CScrivServerAgent::ResetIDEWindows() { Send("ResetIDEWindows"); }

void CScrivServerAgent::SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp)
{
    Send("SaveMakeRun", { { "SaveAppChanges", CommandBool(saveAppChanges) }, { "MakeApp", CommandBool(makeApp) },
                            { "RunApp", CommandBool(runApp) } });
}

void CScrivServerAgent::ProgressMeterInit(const std::string& message, int maxVal)
{
    Trace(TimeOfDayText() + ": " + message + " -> " + std::to_string(maxVal));
    Send("ProgressMeterInit", { { "Message", XmlEncodeChars(message) }, { "MaxVal", std::to_string(maxVal) } });
}

void CScrivServerAgent::ProgressMeterRemove()
{
    Trace("Remove progress meter");
    Send("ProgressMeterRemove");
}

void CScrivServerAgent::ProgressMeterToggle(bool onFlag) { Send("ProgressMeterToggle", { { "OnFlag", CommandBool(onFlag) } }); }

void CScrivServerAgent::ProgressMeterUpdate(int currentValue)
{
    Send("ProgressMeterUpdate", { { "CurrentValue", std::to_string(currentValue) } });
}

void CScrivServerAgent::HourglassOn() { Send("HourglassOn"); }
void CScrivServerAgent::HourglassOff() { Send("HourglassOff"); }
void CScrivServerAgent::HourglassOffFinal() { Send("HourglassOffFinal"); }
void CScrivServerAgent::Doevents() { Send("Doevents"); }

void CScrivServerAgent::SaveAsText(int objType, const std::string& objName, const std::string& fullPath)
{
    Send("SaveAsText", { { "ObjType", std::to_string(objType) }, { "ObjName", objName }, { "FullPath", fullPath } });
}

void CScrivServerAgent::CloseComponent(int objType, const std::string& objName, bool saveComponentFlag)
{
    Send("CloseComponent", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                               { "SaveComponentFlag", CommandBool(saveComponentFlag) } });
}

void CScrivServerAgent::SetComponentHelpContextId(int objType, const std::string& objName, int helpContextId)
{
    Send("SetComponentHelpContextId", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                                          { "HelpContextId", std::to_string(helpContextId) } });
}

void CScrivServerAgent::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    Send("ActivateComponent", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                                  { "ForceOpenInDesignView", CommandBool(forceOpenInDesignView) },
                                  { "ForceOpenAsHidden", CommandBool(forceOpenAsHidden) } });
}

void CScrivServerAgent::ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag)
{
    Send("ActivateControl", { { "ControlFullPath", controlFullPath }, { "RuntimeFlag", CommandBool(runtimeFlag) },
                                { "SetFocusFlag", CommandBool(setFocusFlag) } });
}

void CScrivServerAgent::CorrectInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag)
{
    Send("CorrectInsideWidthAndHeigh", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                                           { "DesignViewFlag", CommandBool(designViewFlag) } });
}

void CScrivServerAgent::ResetInsideWidthAndHeigh(int objType, const std::string& objName, bool designViewFlag)
{
    Send("ResetInsideWidthAndHeigh", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                                         { "DesignViewFlag", CommandBool(designViewFlag) } });
}

void CScrivServerAgent::ShowToolbar(const std::string& toolbarName) { Send("ShowToolbar", { { "ToolbarName", toolbarName } }); }
void CScrivServerAgent::DeleteToolbar(const std::string& toolbarName) { Send("DeleteToolbar", { { "ToolbarName", toolbarName } }); }

void CScrivServerAgent::TakeScreenshot(int objType, const std::string& objName, const std::string& picFullPath,
    const std::string& htmlFullPath)
{
    Send("TakeScreenshot", { { "ObjType", std::to_string(objType) }, { "ObjName", objName },
                               { "PicFullPath", picFullPath }, { "HTMLFullPath", htmlFullPath } });
}

bool CScrivServerAgent::IDEDisplayModelIsMDI() { return SendForBool("IDEDisplayModelIsMDI"); }

std::string CScrivServerAgent::GetWinFormNameByHWND(int hwnd)
{
    return SendForResult("GetWinFormNameByHWND", { { "HWND", std::to_string(hwnd) } });
}

std::string CScrivServerAgent::ScreenshotDatamodelWindow() { return SendForResult("ScreenshotDatamodelWindow"); }
void CScrivServerAgent::UnhideDbWindow() { Send("UnhideDbWindow"); }

void CScrivServerAgent::SetUseProjectGroupAsSourceFlag(bool useProjectGroupAsSource)
{
    Send("SetUseProjectGroupAsSourceFlag", { { "UseProjectGroupAsSourceFlag", CommandBool(useProjectGroupAsSource) } });
}

std::unique_ptr<IHelpPrjSourceProject> CScrivServerAgent::ParseSourceProject()
{
    std::string path = CurrentSourceProjectFullPath();
    std::string type = CurrentSourceProjectTypeName();
    Trace("CScrivServerAgent.ParseSourceProject: ProjectFullPath = " + path + ", ProjectTypeName = " + type);
    if (path.empty())
        return nullptr;
    auto project = std::make_unique<CHelpPrjSourceProject>();
    if (!project->init(path, type) || !project->IsValid())
        return nullptr;
    Trace("CScrivServerAgent.ParseSourceProject: IsValid -> ProjectFullPath = " + path + ", ProjectTypeName = " + type);
    return project;
}

std::string CScrivServerAgent::ProcessComponent(const ProcessComponentRequest& request)
{
    CXmlCommand reply = Send("ProcessComponent",
        {
            { "ObjectType", std::to_string(request.objectType) },
            { "ComponentName", request.componentName },
            { "HostAppIDEHwnd", std::to_string(request.hostAppIdeHwnd) },
            { "IsInDesignView", CommandBool(request.isInDesignView) },
            { "PictureSaveType", std::to_string(request.pictureSaveType) },
            { "PicFullPath", request.picFullPath },
            { "HtmlFullPath", request.htmlFullPath },
            { "ReplaceHtml", CommandBool(request.replaceHtml) },
            { "PicSubFolder", request.picSubFolder },
            { "CaptureRptPreviewAreaOnly", CommandBool(request.captureRptPreviewAreaOnly) },
            { "NoReportsScreenShots", CommandBool(request.noReportsScreenShots) },
            { "SourceProjectTypeName", request.sourceProjectTypeName },
            { "KeepSourceObjectOpened", CommandBool(request.keepSourceObjectOpened) },
        });
    return reply.Text();
}

}  // namespace scriv
