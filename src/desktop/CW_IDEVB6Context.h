#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/CHostContextBase.h"

namespace scriv {

class Vb6FormFile;
class Vb6ProjectFile;

// The VB6 IDE, stood in for by the project's files: a .vbp, or a .vbg group
// whose projects are the source projects. Forms are read from their files when
// first asked for; what the logic changes (help file, help context ids) is kept
// in memory until the project is saved, and then only changed files are written.
class CW_IDEVB6Context : public CHostContextBase {
public:
    // One form, user control, user document or property page of a project.
    struct Component {
        std::string name;
        std::string path;
        std::unique_ptr<Vb6FormFile> file;
        // Why the file could not be read ("frmX.frm(12): ..."), or empty.
        std::string error;
        int windowHandle { 0 };
        // How the form is drawn: the view of the last description, and the
        // page shown of each tab control that is not on its first page.
        bool designView { true };
        std::map<std::string, int> shownPages;
        // The state the window was last drawn in, while it is open.
        std::optional<std::pair<bool, std::map<std::string, int>>> drawnState;
    };

    // Opens a .vbp or .vbg. Raises ScrivError naming the file when it cannot be
    // read, or when no project of a group can.
    static std::unique_ptr<CW_IDEVB6Context> Open(const std::string& path);
    // Why projects of the group were left out, one text each.
    const std::vector<std::string>& OpenErrors() const { return m_openErrors; }
    ~CW_IDEVB6Context() override;

    // The components of the current project, read on first use; a file that
    // cannot be read is listed under its file's name with its error.
    std::vector<Component>& Components();
    Component* FindComponent(const std::string& name);
    void RereadInCodePage(Component& component);

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
    std::string CurrentSourceProjectTypeName() override { return "VB6"; }
    bool CurrentSourceProjectIsDirty() override;
    std::string CurrentSourceProjectLocation() override;
    // The code page most forms of the current project (the whole group when it
    // is the source) name in their fonts.
    std::string CurrentSourceProjectCodePage() override;
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

    static constexpr int kMainWindowHandle = 1;

protected:
    // ^CHostContextBase
    std::string ProcessComponent(const ProcessComponentRequest& request) override;
    std::string HostClassName() const override { return "CW_IDEVB6Context"; }

private:
    struct Project;
    CW_IDEVB6Context() = default;
    Project& Current();
    void ReadComponents(Project& project);
    // The path, or the file of the same name beside the project or its group
    // when the path names none.
    std::string FindMovedFile(const std::string& path, const Project& project) const;
    // Draws the component's form as the designer shows it, under its window handle.
    void RenderComponent(Component& component);

    std::vector<std::unique_ptr<Project>> m_projects;
    std::vector<std::string> m_openErrors;
    std::string m_groupFolder;
    std::size_t m_current { 0 };
    bool m_useGroup { false };
    int m_nextHandle { 100 };
};

}  // namespace scriv
