#include "desktop/CW_IDEVB6Context.h"

#include "desktop/RenderedWindows.h"

#include <algorithm>
#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"
#include "host/vb6/Vb6GroupFile.h"
#include "host/vb6/Vb6ProjectFile.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

struct CW_IDEVB6Context::Project {
    std::string name;
    std::unique_ptr<Vb6ProjectFile> file;
    std::vector<Component> components;
    bool componentsRead { false };
};

namespace {

std::string ProjectName(const Vb6ProjectFile& file)
{
    std::string name = file.Name();
    return name.empty() ? FileBaseName(file.Path()) : name;
}

bool IsFormComponent(Vb6ComponentKind kind)
{
    return kind == Vb6ComponentKind::Form || kind == Vb6ComponentKind::UserControl
        || kind == Vb6ComponentKind::UserDocument || kind == Vb6ComponentKind::PropertyPage;
}

}  // namespace

std::unique_ptr<CW_IDEVB6Context> CW_IDEVB6Context::Open(const std::string& path)
{
    std::unique_ptr<CW_IDEVB6Context> context(new CW_IDEVB6Context());
    std::vector<std::string> projectFiles;
    if (EndsWithNoCase(path, ".vbg")) {
        Vb6GroupFile group = Vb6GroupFile::Load(path);
        std::size_t startup = 0;
        for (const Vb6GroupProject& project : group.Projects()) {
            if (project.isStartup)
                startup = projectFiles.size();
            projectFiles.push_back(project.fullPath);
        }
        context->m_current = startup;
    } else {
        projectFiles.push_back(path);
    }
    bool isGroup = EndsWithNoCase(path, ".vbg");
    if (isGroup)
        context->m_groupFolder = FolderOf(path);
    std::size_t startupFile = context->m_current;
    context->m_current = 0;
    for (std::size_t i = 0; i < projectFiles.size(); ++i) {
        auto project = std::make_unique<Project>();
        try {
            project->file = std::make_unique<Vb6ProjectFile>(Vb6ProjectFile::Load(projectFiles[i]));
        } catch (const ScrivError& error) {
            // A group still opens without a project it cannot read.
            if (!isGroup)
                throw;
            context->m_openErrors.push_back(error.Description());
            Trace("CW_IDEVB6Context: " + error.Description());
            continue;
        }
        project->name = ProjectName(*project->file);
        if (i == startupFile)
            context->m_current = context->m_projects.size();
        context->m_projects.push_back(std::move(project));
    }
    if (context->m_projects.empty() && !context->m_openErrors.empty())
        Raise(status::kGeneralFailure, "CW_IDEVB6Context.Open", Join(context->m_openErrors, "\n"));
    if (context->m_projects.empty())
        Raise(status::kGeneralFailure, "CW_IDEVB6Context.Open", "The group '" + path + "' names no project.");
    return context;
}

CW_IDEVB6Context::~CW_IDEVB6Context() = default;

CW_IDEVB6Context::Project& CW_IDEVB6Context::Current()
{
    return *m_projects.at(m_current);
}

void CW_IDEVB6Context::ReadComponents(Project& project)
{
    if (project.componentsRead)
        return;
    project.componentsRead = true;
    for (const Vb6ProjectComponent& entry : project.file->Components()) {
        if (!IsFormComponent(entry.kind))
            continue;
        Component component;
        component.path = FindMovedFile(entry.fullPath, project);
        component.windowHandle = m_nextHandle++;
        try {
            component.file = std::make_unique<Vb6FormFile>(Vb6FormFile::Load(component.path));
            component.name = component.file->Form().Name();
        } catch (const ScrivError& error) {
            // The other forms are still read; this one tells why it cannot be.
            component.name = FileBaseName(component.path);
            component.error = error.Description();
            Trace("CW_IDEVB6Context: " + component.error);
        }
        project.components.push_back(std::move(component));
    }
}

std::string CW_IDEVB6Context::FindMovedFile(const std::string& path, const Project& project) const
{
    // A project made on another machine may name its files by that machine's
    // paths; the files themselves usually came along beside the project.
    for (const std::string& folder : { project.file->Folder(), m_groupFolder }) {
        std::string beside = FindMovedVb6File(path, folder);
        if (!beside.empty()) {
            UserWarningMessage("The file '" + path + "' named by the project '" + project.file->Path()
                + "' does not exist; '" + beside + "' is documented in its place.");
            return beside;
        }
    }
    return path;
}

std::vector<CW_IDEVB6Context::Component>& CW_IDEVB6Context::Components()
{
    ReadComponents(Current());
    return Current().components;
}

CW_IDEVB6Context::Component* CW_IDEVB6Context::FindComponent(const std::string& name)
{
    if (name.empty())
        return nullptr;
    for (Component& component : Components())
        if (EqualsNoCase(component.name, name)) {
            RereadInCodePage(component);
            return &component;
        }
    return nullptr;
}

void CW_IDEVB6Context::RereadInCodePage(Component& component)
{
    // A form whose fonts name no code page is read in the application's,
    // which the settings may have named since the form was first read.
    Vb6FormFile* file = component.file.get();
    if (!file || file->CodePageFromFonts() || file->IsDirty() || file->CodePage() == SystemCodePage())
        return;
    try {
        component.file = std::make_unique<Vb6FormFile>(Vb6FormFile::Load(component.path));
    } catch (const ScrivError& error) {
        Trace("CW_IDEVB6Context: " + error.Description());
    }
}

// --- projects ---

std::string CW_IDEVB6Context::SourceProjectsList()
{
    std::vector<std::string> names;
    for (const auto& project : m_projects)
        names.push_back(project->name);
    return Join(names, "|");
}

void CW_IDEVB6Context::SetCurrentSourceProject(const std::string& name)
{
    for (std::size_t i = 0; i < m_projects.size(); ++i)
        if (EqualsNoCase(m_projects[i]->name, name))
            m_current = i;
}

std::string CW_IDEVB6Context::CurrentSourceProjectFullPath()
{
    return Current().file->Path();
}

std::string CW_IDEVB6Context::CurrentSourceProjectName()
{
    return Current().name;
}

std::string CW_IDEVB6Context::CurrentSourceProjectCodePage()
{
    std::map<std::string, int> counts;
    auto count = [&](Project& project) {
        ReadComponents(project);
        for (const Component& component : project.components)
            if (component.file && component.file->CodePageFromFonts())
                ++counts[component.file->CodePage()];
    };
    if (m_useGroup) {
        for (auto& project : m_projects)
            count(*project);
    } else if (!m_projects.empty()) {
        count(Current());
    }
    auto most = std::max_element(counts.begin(), counts.end(),
        [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? std::string() : most->first;
}

std::string CW_IDEVB6Context::CurrentSourceProjectLocation()
{
    return AddBackslash(FolderOf(Current().file->Path()));
}

bool CW_IDEVB6Context::CurrentSourceProjectIsDirty()
{
    if (Current().file->IsDirty())
        return true;
    for (const Component& component : Current().components)
        if (component.file && component.file->IsDirty())
            return true;
    return false;
}

// --- commands ---

void CW_IDEVB6Context::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    Current().file->SetHelpFile(FileNameOf(helpFileFullPath));
}

void CW_IDEVB6Context::SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp)
{
    if (saveAppChanges) {
        for (auto& project : m_projects) {
            for (Component& component : project->components)
                if (component.file && component.file->IsDirty())
                    component.file->Save();
            if (project->file->IsDirty())
                project->file->Save();
        }
    }
    myDoevents();
    if (makeApp || runApp) {
        // There is no VB6 compiler here to make or start the application with.
        MsgBox("The application cannot be made or run here: that needs the Visual Basic 6 compiler, which this "
               "platform does not have. Its project files have been saved.",
            msgbox::kInformation, "", "", 0, "CW_IDEVB6Context.SaveMakeRun");
    }
}

bool CW_IDEVB6Context::ComponentExists(int compType, const std::string& compName)
{
    return FindComponent(compName) != nullptr;
}

void CW_IDEVB6Context::CloseComponent(int objType, const std::string& objName, bool saveFlag)
{
    Component* component = FindComponent(objName);
    if (!component)
        return;
    if (saveFlag && component->file && component->file->IsDirty())
        component->file->Save();
    // A closed designer has no window to capture.
    RenderedWindows().Remove(component->windowHandle);
    component->drawnState.reset();
}

void CW_IDEVB6Context::SetComponentHelp(int objType, const std::string& objName, int helpContextId)
{
    Component* component = FindComponent(objName);
    if (component && component->file)
        component->file->SetFormProperty("HelpContextID", std::to_string(helpContextId));
}

int CW_IDEVB6Context::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    Component* component = FindComponent(objName);
    if (!component)
        return 0;
    // Opened, the designer shows every tab control on its first page.
    component->shownPages.clear();
    RenderComponent(*component);
    return component->windowHandle;
}

namespace {

// The tab controls whose page differs between two sets of pages shown (a tab
// control missing from one shows its first page there).
std::set<std::string> TurnedTabControls(const std::map<std::string, int>& before, const std::map<std::string, int>& after)
{
    std::set<std::string> turned;
    auto pageIn = [](const std::map<std::string, int>& pages, const std::string& name) {
        auto found = pages.find(name);
        return found == pages.end() ? 0 : found->second;
    };
    for (const auto& [name, page] : before)
        if (pageIn(after, name) != page)
            turned.insert(name);
    for (const auto& [name, page] : after)
        if (pageIn(before, name) != page)
            turned.insert(name);
    return turned;
}

}  // namespace

void CW_IDEVB6Context::RenderComponent(Component& component)
{
    if (!component.file)
        return;
    // A window already showing these pages in this view is not drawn again:
    // the pictures of a form's frames and pages are taken one after another.
    std::map<std::string, int> pages;
    for (const auto& [tabControl, page] : component.shownPages)
        if (page != 0)
            pages.emplace(tabControl, page);
    std::pair<bool, std::map<std::string, int>> state { component.designView, pages };
    bool drawn = RenderedWindows().Find(component.windowHandle) != nullptr;
    if (component.drawnState == state && drawn)
        return;
    // Only the tab controls that turned to another page are drawn again.
    std::optional<std::set<std::string>> turned;
    if (drawn && component.drawnState && component.drawnState->first == state.first)
        turned = TurnedTabControls(component.drawnState->second, state.second);
    component.drawnState = std::move(state);
    CW_IDEVB6FormProcessor processor(*component.file, component.windowHandle);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    processor.SetFirstPageVisibleForTabControls(form);
    RenderFormWindow(component.windowHandle, processor, form, *component.file, RenderOptions { component.designView },
        component.shownPages, kMainWindowHandle, turned ? &*turned : nullptr);
    processor.Terminate();
}

bool CW_IDEVB6Context::ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag)
{
    // "Form.frmOrder.tabOrder.1_tabOrder.[1]" brings page 1 of tabOrder to the
    // front; a page of a tab control on another's page brings both.
    std::vector<std::string> parts = Split(controlFullPath, ".");
    if (parts.size() < 5 || parts.back().size() < 3 || parts.back().front() != '[' || parts.back().back() != ']')
        return true;
    Component* component = FindComponent(parts[1]);
    if (!component || !component->file)
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

std::string CW_IDEVB6Context::ProcessComponent(const ProcessComponentRequest& request)
{
    Component* component = FindComponent(request.componentName);
    if (!component)
        return {};
    if (!component->file)
        Raise(status::kSecondFailure, "CW_IDEVB6Context.IHostIDEContext_ProcessCallBack", component->error);
    component->designView = request.isInDesignView;
    CW_IDEVB6FormProcessor processor(*component->file, component->windowHandle);
    CClientUIObjectRawXml walk;
    std::string raw = walk.Get_(processor, request.objectType, processor.Component(), request.hostAppIdeHwnd,
        request.isInDesignView, request.sourceProjectTypeName, request.keepSourceObjectOpened,
        Parameters().VerboseTracing);
    CXmlForm form;
    if (!form.LoadXml(raw)) {
        Raise(status::kSecondFailure, "CW_IDEVB6Context.IHostIDEContext_ProcessCallBack",
            "Error processing source project component [" + request.componentName + "]: "
                + form.XmlParseError().Reason());
    }
    std::string description = form.XMLSTr();
    processor.Terminate();
    return description;
}

}  // namespace scriv
