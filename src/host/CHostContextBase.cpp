#include "host/CHostContextBase.h"

#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CXmlCommand.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

std::string BoolValue(bool value)
{
    return value ? "True" : "False";
}

bool ParamBool(const CXmlCommand& command, std::string_view name)
{
    std::string value = Trim(command.GetParamValue(name));
    if (EqualsNoCase(value, "true"))
        return true;
    auto number = ParseNumber(value);
    return number && *number != 0;
}

int ParamInt(const CXmlCommand& command, std::string_view name)
{
    return ToInt(command.GetParamValue(name));
}

}  // namespace

std::string CHostContextBase::ProcessCallBack(const std::string& xml)
{
    CXmlCommand command;
    command.Deserialize(xml);
    if (GenerationIsInterrupted())
        command.AddParamValue("RetValue", "0");
    else
        Dispatch(command);
    return command.Serialize();
}

void CHostContextBase::Dispatch(CXmlCommand& command)
{
    const std::string& name = command.Name();
    auto is = [&](std::string_view candidate) { return EqualsNoCase(name, candidate); };
    auto answer = [&](std::string value) { command.AddParamValue("RetValue", std::move(value)); };

    if (is("IDEDisplayModelIsMDI")) {
        answer(BoolValue(IDEDisplayModelIsMDI()));
    } else if (is("CurrentObjectName")) {
        command.AddParamValue("CurrentObjectName", CurrentObjectName());
    } else if (is("CurrentObjectType")) {
        command.AddParamValue("CurrentObjectType", std::to_string(CurrentObjectType()));
    } else if (is("GetSourceProjectsList")) {
        answer(SourceProjectsList());
    } else if (is("SetCurrentSourceProject")) {
        SetCurrentSourceProject(command.GetParamValue("ProjectName"));
    } else if (is("CurrentSourceProjectIsDirty")) {
        answer(BoolValue(CurrentSourceProjectIsDirty()));
    } else if (is("CurrentSourceProjectIsMDEorADE")) {
        answer(BoolValue(CurrentSourceProjectIsMDEorADE()));
    } else if (is("AreThereAnySourceProjectsOpened")) {
        answer(BoolValue(AreThereAnySourceProjectsOpened()));
    } else if (is("CurrentSourceProjectFullPath")) {
        answer(CurrentSourceProjectFullPath());
    } else if (is("CurrentSourceProjectTypeName")) {
        answer(CurrentSourceProjectTypeName());
    } else if (is("CurrentSourceProjectName")) {
        answer(CurrentSourceProjectName());
    } else if (is("CurrentSourceProjectLocation")) {
        answer(CurrentSourceProjectLocation());
    } else if (is("CurrentSourceProjectCodePage")) {
        answer(CurrentSourceProjectCodePage());
    } else if (is("SetHelpFileForCurrentSourceProject")) {
        SetHelpFileForCurrentSourceProject(command.GetParamValue("HelpFileFullPath"));
    } else if (is("ParseSourceProject")) {
        // The logic reads source projects itself.
    } else if (is("HostAppMainWindowHWnd")) {
        answer(std::to_string(HostAppMainWindowHWnd()));
    } else if (is("HideIDEWindows")) {
        HideIDEWindows();
    } else if (is("ResetIDEWindows")) {
        ResetIDEWindows();
    } else if (is("SaveMakeRun")) {
        SaveMakeRun(ParamBool(command, "SaveAppChanges"), ParamBool(command, "MakeApp"), ParamBool(command, "RunApp"));
    } else if (is("ProgressMeterInit")) {
        ProgressMeterInit(command.GetParamValue("Message"), ParamInt(command, "MaxVal"));
    } else if (is("ProgressMeterToggle")) {
        ProgressMeterToggle(ParamBool(command, "OnFlag"));
    } else if (is("ProgressMeterUpdate")) {
        ProgressMeterUpdate(ParamInt(command, "CurrentValue"));
    } else if (is("ProgressMeterRemove")) {
        ProgressMeterRemove();
    } else if (is("HourglassOn")) {
        HourglassOn();
    } else if (is("HourglassOff")) {
        HourglassOff();
    } else if (is("HourglassOffFinal")) {
        HourglassOffFinal();
    } else if (is("Doevents")) {
        myDoevents();
    } else if (is("ComponentExistsTest")) {
        answer(BoolValue(ComponentExists(ParamInt(command, "CompType"), command.GetParamValue("CompName"))));
    } else if (is("ProcessComponent")) {
        ProcessComponentRequest request;
        request.objectType = ParamInt(command, "ObjectType");
        request.componentName = command.GetParamValue("ComponentName");
        request.hostAppIdeHwnd = ParamInt(command, "HostAppIDEHwnd");
        request.isInDesignView = ParamBool(command, "IsInDesignView");
        request.replaceHtml = ParamBool(command, "ReplaceHtml");
        request.pictureSaveType = ParamInt(command, "PictureSaveType");
        request.picFullPath = command.GetParamValue("PicFullPath");
        request.htmlFullPath = command.GetParamValue("HtmlFullPath");
        request.picSubFolder = command.GetParamValue("PicSubFolder");
        request.captureRptPreviewAreaOnly = ParamBool(command, "CaptureRptPreviewAreaOnly");
        request.noReportsScreenShots = ParamBool(command, "NoReportsScreenShots");
        request.sourceProjectTypeName = command.GetParamValue("SourceProjectTypeName");
        request.keepSourceObjectOpened = ParamBool(command, "KeepSourceObjectOpened");
        std::string description = ProcessComponent(request);
        if (description.empty())
            Raise(status::kSecondFailure, HostClassName() + ".IHostIDEContext_ProcessCallBack",
                "Error processing source project component [" + request.componentName + "]");
        answer("0");
        command.SetText(description);
    } else if (is("FormNamePrefix")) {
        answer(FormNamePrefix());
    } else if (is("ReportNamePrefix")) {
        answer(ReportNamePrefix());
    } else if (is("SetComponentHelpContextId")) {
        SetComponentHelp(ParamInt(command, "ObjType"), command.GetParamValue("ObjName"), ParamInt(command, "HelpContextId"));
    } else if (is("ActivateComponent")) {
        answer(std::to_string(ActivateComponent(ParamInt(command, "ObjType"), command.GetParamValue("ObjName"), false, false)));
    } else if (is("CloseComponent")) {
        CloseComponent(ParamInt(command, "ObjType"), command.GetParamValue("ObjName"), ParamBool(command, "SaveComponentFlag"));
    } else if (is("ActivateControl")) {
        answer(BoolValue(ActivateControl(command.GetParamValue("ControlFullPath"), ParamBool(command, "RuntimeFlag"),
            ParamBool(command, "SetFocusFlag"))));
    } else if (is("CorrectInsideWidthAndHeigh") || is("ResetInsideWidthAndHeigh")) {
        // Access only; these two names are one letter short of the operations on purpose.
    } else if (is("GetSourceTablesList") || is("GetComponentDescription")) {
        // A host without tables or descriptions answers nothing.
        if (!ProcessOtherCommand(command))
            answer("");
    } else if (is("SetUseProjectGroupAsSourceFlag")) {
        SetUseProjectGroupAsSource(ParamBool(command, "UseProjectGroupAsSourceFlag"));
    } else if (is("CurrentSourceProjectIsNewUnsaved")) {
        answer(BoolValue(CurrentSourceProjectIsNewUnsaved()));
    } else if (is("CurrentSourceProjectCodeIsDisabled")) {
        answer(BoolValue(CurrentSourceProjectCodeIsDisabled()));
    } else if (!ProcessOtherCommand(command)) {
        Raise(status::kSecondFailure, HostClassName() + ".IHostIDEContext_ProcessCallBack",
            "Undefined callback command [" + name + "]");
    }
}

void CHostContextBase::HourglassOn()
{
    if (m_hourglassCount == 0)
        m_hourglassShown = true;
    ++m_hourglassCount;
}

void CHostContextBase::HourglassOff()
{
    --m_hourglassCount;
    if (m_hourglassCount < 1)
        m_hourglassShown = false;
}

void CHostContextBase::HourglassOffFinal()
{
    m_hourglassCount = 0;
    m_hourglassShown = false;
}

void CHostContextBase::ProgressMeterInit(const std::string& message, int maxVal)
{
    UserInterface().ProgressInit(DecodeHtmlChars(message), maxVal);
    m_progressShown = true;
}

void CHostContextBase::ProgressMeterRemove()
{
    if (m_progressShown)
        UserInterface().ProgressDispose();
    m_progressShown = false;
}

void CHostContextBase::ProgressMeterUpdate(int currentValue)
{
    if (m_progressShown)
        UserInterface().ProgressUpdate({}, currentValue);
}

void CHostContextBase::myDoevents()
{
    LogicLoop().RunPending();
}

}  // namespace scriv
