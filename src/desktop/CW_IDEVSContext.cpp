#include "desktop/CW_IDEVSContext.h"

#include <regex>

#include "desktop/CWinFormRenderer.h"
#include "desktop/RenderedWindows.h"
#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CSourceProjectVB6.h"
#include "host/CXmlCommand.h"
#include "host/vs/CSourceProjectVS.h"
#include "host/vs/CW_IDEVSFormProcessor.h"
#include "host/vs/VsSolutionFile.h"
#include "host/vs/WinFormDesign.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

struct CW_IDEVSContext::Project {
    std::string name;
    std::string path;
    std::string typeName;
    std::string helpFile;
    std::vector<Component> components;
    bool componentsRead { false };
};

namespace {

bool IsProjectFile(const std::string& path)
{
    for (const char* extension : { ".csproj", ".vbproj", ".vjsproj", ".vcproj" })
        if (EndsWithNoCase(path, extension))
            return true;
    return false;
}

// The file a form's controls are read from: its designer file when it has one.
std::string DesignFileOf(const std::string& path)
{
    if (ContainsNoCase(FileBaseName(path), ".Designer"))
        return path;
    std::string designer = FolderOf(path);
    designer = (designer.empty() ? std::string() : AddBackslash(designer)) + FileBaseName(path) + ".Designer"
        + FileExtension(path);
    return FileExists(designer) ? designer : path;
}

// The title of a web page, or "".
std::string PageTitle(const std::string& path)
{
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != 0)
        return {};
    static const std::regex title("<title>([^<]*)</title>", std::regex::icase);
    std::smatch match;
    return std::regex_search(reader.Text(), match, title) ? Trim(match[1].str()) : std::string();
}

}  // namespace

std::unique_ptr<CW_IDEVSContext> CW_IDEVSContext::Open(const std::string& path)
{
    std::unique_ptr<CW_IDEVSContext> context(new CW_IDEVSContext());
    std::vector<std::pair<std::string, std::string>> projects;
    bool isSolution = EndsWithNoCase(path, ".sln");
    if (isSolution) {
        VsSolutionFile solution = VsSolutionFile::Load(path);
        for (const VsSolutionProject& project : solution.Projects())
            projects.emplace_back(project.name, project.fullPath);
        if (projects.empty())
            Raise(status::kGeneralFailure, "CW_IDEVSContext.Open", "The solution '" + path + "' names no project.");
    } else if (IsProjectFile(path)) {
        projects.emplace_back(FileBaseName(path), path);
    } else {
        Raise(status::kGeneralFailure, "CW_IDEVSContext.Open", "'" + path + "' is no Visual Studio solution or project.");
    }
    for (const auto& [name, projectPath] : projects) {
        if (!FileExists(projectPath)) {
            std::string why = "The project '" + projectPath + "' of the solution does not exist.";
            if (!isSolution)
                Raise(status::kGeneralFailure, "CW_IDEVSContext.Open", "The project '" + projectPath + "' cannot be read.");
            context->m_openErrors.push_back(why);
            Trace("CW_IDEVSContext: " + why);
            continue;
        }
        auto project = std::make_unique<Project>();
        project->name = name;
        project->path = projectPath;
        project->typeName = VSProjectTypeName(projectPath);
        context->m_projects.push_back(std::move(project));
    }
    if (context->m_projects.empty())
        Raise(status::kGeneralFailure, "CW_IDEVSContext.Open", Join(context->m_openErrors, "\n"));
    return context;
}

CW_IDEVSContext::~CW_IDEVSContext() = default;

CW_IDEVSContext::Project& CW_IDEVSContext::Current()
{
    return *m_projects.at(m_current);
}

void CW_IDEVSContext::ReadComponents(Project& project)
{
    if (project.componentsRead)
        return;
    project.componentsRead = true;
    CHelpPrjSourceProject reader;
    if (!reader.init(project.path, project.typeName) || !reader.IsValid()) {
        Trace("CW_IDEVSContext: the project '" + project.path + "' lists no forms this program reads");
        return;
    }
    for (const auto& entry : reader.Forms()) {
        const CHelpPrjSourceItem& item = *entry.value;
        Component component;
        component.name = item.FormName;
        component.caption = item.FormCaption;
        std::string file = item.Link.empty() ? item.BaseFolder + ToNativePath(item.RelativePath) : ToNativePath(item.Link);
        component.codePath = DesignFileOf(FindPathNoCase(file));
        component.userControl = EqualsNoCase(item.SubType, "UserControl") || EqualsNoCase(item.GUIObjectSubType, "UserControl");
        component.windowHandle = m_nextHandle++;
        project.components.push_back(std::move(component));
    }
    reader.Terminate();
}

std::vector<CW_IDEVSContext::Component>& CW_IDEVSContext::Components()
{
    ReadComponents(Current());
    return Current().components;
}

CW_IDEVSContext::Component* CW_IDEVSContext::FindComponent(const std::string& name)
{
    if (name.empty())
        return nullptr;
    for (Component& component : Components())
        if (EqualsNoCase(component.name, name))
            return &component;
    return nullptr;
}

bool CW_IDEVSContext::DrawsForms()
{
    // The designer code read is that of C# and Visual Basic.
    const std::string& type = Current().typeName;
    return EqualsNoCase(type, "C#") || EqualsNoCase(type, "VB.NET");
}

WinFormDesign& CW_IDEVSContext::DesignOf(Component& component)
{
    if (component.design)
        return *component.design;
    if (!DrawsForms()) {
        // A page or a C++ form is described by its name and caption alone.
        component.design = std::make_unique<WinFormDesign>();
        std::string title = EqualsNoCase(Current().typeName, "ASP.NET") ? PageTitle(component.codePath) : std::string();
        component.design->Form().properties["Text"].kind = DesignValue::Kind::Text;
        component.design->Form().properties["Text"].text = title.empty() ? component.caption : title;
        component.design->Form().properties["Name"].kind = DesignValue::Kind::Text;
        component.design->Form().properties["Name"].text = component.name;
        return *component.design;
    }
    try {
        component.design = std::make_unique<WinFormDesign>(WinFormDesign::Load(component.codePath));
    } catch (const ScrivError& error) {
        component.error = error.Description();
        Trace("CW_IDEVSContext: " + component.error);
        Raise(status::kSecondFailure, "CW_IDEVSContext.IHostIDEContext_ProcessCallBack", component.error);
    }
    if (component.userControl)
        component.design->Form().type = "UserControl";
    // The project knows the form by the name its reader found.
    if (component.design->Form().Text("Name").empty()) {
        DesignValue& name = component.design->Form().properties["Name"];
        name.kind = DesignValue::Kind::Text;
        name.text = component.name;
    }
    return *component.design;
}

// --- projects ---

std::string CW_IDEVSContext::SourceProjectsList()
{
    std::vector<std::string> names;
    for (const auto& project : m_projects)
        names.push_back(project->name);
    return Join(names, "|");
}

void CW_IDEVSContext::SetCurrentSourceProject(const std::string& name)
{
    for (std::size_t i = 0; i < m_projects.size(); ++i)
        if (EqualsNoCase(m_projects[i]->name, name))
            m_current = i;
}

std::string CW_IDEVSContext::CurrentSourceProjectFullPath()
{
    return Current().path;
}

std::string CW_IDEVSContext::CurrentSourceProjectName()
{
    return Current().name;
}

std::string CW_IDEVSContext::CurrentSourceProjectTypeName()
{
    return Current().typeName;
}

std::string CW_IDEVSContext::CurrentSourceProjectLocation()
{
    return AddBackslash(FolderOf(Current().path));
}

// --- commands ---

void CW_IDEVSContext::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    // A Visual Studio project keeps no help file of its own; the application
    // names its help in code. The name is kept for the run.
    Current().helpFile = FileNameOf(helpFileFullPath);
    Trace("CW_IDEVSContext: the help file of " + Current().name + " is " + Current().helpFile);
}

void CW_IDEVSContext::SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp)
{
    myDoevents();
    if (makeApp || runApp) {
        MsgBox("The application cannot be built or run here: that needs Visual Studio, which this platform does not "
               "have.",
            msgbox::kInformation, "", "", 0, "CW_IDEVSContext.SaveMakeRun");
    }
}

bool CW_IDEVSContext::ComponentExists(int compType, const std::string& compName)
{
    return FindComponent(compName) != nullptr;
}

void CW_IDEVSContext::CloseComponent(int objType, const std::string& objName, bool saveFlag)
{
    if (Component* component = FindComponent(objName))
        RenderedWindows().Remove(component->windowHandle);
}

void CW_IDEVSContext::SetComponentHelp(int objType, const std::string& objName, int helpContextId)
{
    // Windows Forms show help through a help provider set in code, not
    // through an id kept in the form.
    Trace("CW_IDEVSContext: help context id " + std::to_string(helpContextId) + " of " + objName
        + " is not written into the designer code");
}

int CW_IDEVSContext::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    Component* component = FindComponent(objName);
    if (!component)
        return 0;
    if (!DrawsForms())
        return 0;
    component->shownPages.clear();
    RenderComponent(*component);
    return component->windowHandle;
}

void CW_IDEVSContext::RenderComponent(Component& component)
{
    if (!DrawsForms())
        return;
    WinFormDesign& design = DesignOf(component);
    CW_IDEVSFormProcessor processor(design, component.windowHandle);
    processor.SetFirstPageVisibleForTabControls(processor.Component());
    RenderWinFormWindow(component.windowHandle, processor, component.shownPages, kMainWindowHandle);
    processor.Terminate();
}

bool CW_IDEVSContext::ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag)
{
    // "Form.Main.tabs.1_tabs.[1]" brings page 1 of tabs to the front, and a
    // page of a tab control on another's page brings both.
    std::vector<std::string> parts = Split(controlFullPath, ".");
    if (parts.size() < 5 || parts.back().size() < 3 || parts.back().front() != '[' || parts.back().back() != ']')
        return true;
    Component* component = FindComponent(parts[1]);
    if (!component || !DrawsForms())
        return false;
    for (std::size_t i = 4; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        if (part.size() < 3 || part.front() != '[' || part.back() != ']')
            continue;
        std::string page = part.substr(1, part.size() - 2);
        if (!IsNumeric(page))
            return false;
        component->shownPages[parts[i - 2]] = ToInt(page);
    }
    RenderComponent(*component);
    return true;
}

std::string CW_IDEVSContext::WinFormNameByHWND(int hwnd)
{
    for (const auto& project : m_projects)
        for (const Component& component : project->components)
            if (component.windowHandle == hwnd)
                return component.name;
    return {};
}

bool CW_IDEVSContext::ProcessOtherCommand(CXmlCommand& command)
{
    if (EqualsNoCase(command.Name(), "GetWinFormNameByHWND")) {
        command.AddParamValue("RetValue", WinFormNameByHWND(ToInt(command.GetParamValue("HWND"))));
        return true;
    }
    return false;
}

std::string CW_IDEVSContext::ProcessComponent(const ProcessComponentRequest& request)
{
    Component* component = FindComponent(request.componentName);
    if (!component)
        return {};
    WinFormDesign& design = DesignOf(*component);
    // Without a drawing the description has no window to point at.
    CW_IDEVSFormProcessor processor(design, DrawsForms() ? component->windowHandle : 0);
    CClientUIObjectRawXml walk;
    std::string raw = walk.Get_(processor, request.objectType, processor.Component(), request.hostAppIdeHwnd,
        request.isInDesignView, request.sourceProjectTypeName, request.keepSourceObjectOpened,
        Parameters().VerboseTracing);
    CXmlForm form;
    if (!form.LoadXml(raw)) {
        Raise(status::kSecondFailure, "CW_IDEVSContext.IHostIDEContext_ProcessCallBack",
            "Error processing source project component [" + request.componentName + "]: "
                + form.XmlParseError().Reason());
    }
    std::string description = form.XMLSTr();
    processor.Terminate();
    return description;
}

}  // namespace scriv
