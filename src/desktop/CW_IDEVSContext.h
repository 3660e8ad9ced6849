#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CHostContextBase.h"

namespace scriv {

class WinFormDesign;

// Visual Studio, stood in for by the files of a solution (.sln) or of one
// project (.csproj, .vbproj, .vjsproj, .vcproj). The projects of a solution
// are the source projects; each lists its forms through the project readers,
// and a form is read from its designer code when first asked for and drawn
// as a Windows Forms window. Pages of web projects and forms of J# and C++
// projects are listed and described without a picture.
class CW_IDEVSContext : public CHostContextBase {
public:
    // One form, user control or web page of a project.
    struct Component {
        std::string name;
        std::string caption;
        // The code the form is read from (its designer file when it has one).
        std::string codePath;
        bool userControl { false };
        std::unique_ptr<WinFormDesign> design;
        // Why the code could not be read, or empty.
        std::string error;
        int windowHandle { 0 };
        // The page shown of each tab control that is not on its first page.
        std::map<std::string, int> shownPages;
    };

    // Opens a solution or a project file. Raises ScrivError naming the file
    // when it cannot be read, or when no project of a solution can.
    static std::unique_ptr<CW_IDEVSContext> Open(const std::string& path);
    ~CW_IDEVSContext() override;
    // Why projects of the solution were left out, one text each.
    const std::vector<std::string>& OpenErrors() const { return m_openErrors; }

    // The components of the current project, read on first use.
    std::vector<Component>& Components();
    Component* FindComponent(const std::string& name);
    // Whether the current project's forms are drawn: those of C# and VB.NET
    // projects; web pages and the forms of J# and C++ projects are described without a picture.
    bool DrawsForms();

    // ^IHostIDEContext
    int Connect() override { return 0; }
    int Disconnect() override { return 0; }
    bool IDEDisplayModelIsMDI() override { return true; }
    bool UseProjectGroupAsSource() override { return m_useGroup; }
    void SetUseProjectGroupAsSource(bool value) override { m_useGroup = value; }
    std::string SourceProjectsList() override;
    void SetCurrentSourceProject(const std::string& name) override;
    bool AreThereAnySourceProjectsOpened() override { return !m_projects.empty(); }
    std::string CurrentSourceProjectFullPath() override;
    std::string CurrentSourceProjectName() override;
    std::string CurrentSourceProjectTypeName() override;
    bool CurrentSourceProjectIsDirty() override { return false; }
    std::string CurrentSourceProjectLocation() override;
    bool CurrentSourceProjectIsMDEorADE() override { return false; }
    bool CurrentSourceProjectIsADPorADE() override { return false; }
    int HostAppMainWindowHWnd() override { return kMainWindowHandle; }
    void HideIDEWindows() override { }
    void ResetIDEWindows() override { }
    std::string CurrentObjectName() override { return "???"; }
    int CurrentObjectType() override { return -1; }
    bool CurrentSourceProjectIsNewUnsaved() override { return false; }
    bool CurrentSourceProjectCodeIsDisabled() override { return false; }

    // ^IHostIDEContextCommands
    void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) override;
    void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp) override;
    bool ComponentExists(int compType, const std::string& compName) override;
    void CloseComponent(int objType, const std::string& objName, bool saveFlag) override;
    void SetComponentHelp(int objType, const std::string& objName, int helpContextId) override;
    int ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
        bool forceOpenAsHidden) override;
    bool ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) override;

    // The name of the form drawn under a window handle, or "".
    std::string WinFormNameByHWND(int hwnd);

    static constexpr int kMainWindowHandle = 1;

protected:
    // ^CHostContextBase
    std::string ProcessComponent(const ProcessComponentRequest& request) override;
    std::string HostClassName() const override { return "CW_IDEVSContext"; }
    bool ProcessOtherCommand(CXmlCommand& command) override;

private:
    struct Project;
    CW_IDEVSContext() = default;
    Project& Current();
    void ReadComponents(Project& project);
    WinFormDesign& DesignOf(Component& component);
    void RenderComponent(Component& component);

    std::vector<std::unique_ptr<Project>> m_projects;
    std::vector<std::string> m_openErrors;
    std::size_t m_current { 0 };
    bool m_useGroup { false };
    int m_nextHandle { 100 };
};

}  // namespace scriv
