#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CHostContextBase.h"
#include "host/IClientFormProcessor.h"
#include "host/access/AccessSource.h"

namespace scriv {

class AccessDefinition;

// Access, stood in for by an application's files (see AccessSource): it lists
// tables, queries, macros, forms and reports, saves a form's or report's
// definition as text, describes tables and queries by their fields, macros
// by their actions, and draws forms in Form view and reports in Design view
// with the Access look.
class CW_AccessContext : public CHostContextBase {
public:
    // Opens a database or a folder of exported objects; raises ScrivError naming the path.
    static std::unique_ptr<CW_AccessContext> Open(const std::string& path);
    ~CW_AccessContext() override;

    const AccessSource& Source() const { return m_source; }
    // The definition of a form (2), report (3) or macro (4), read on first use; null when there is none.
    const AccessDefinition* Definition(int objectType, const std::string& name);
    // The window handle a form or report is drawn under.
    int WindowHandle(int objectType, const std::string& name);

    // ^IHostIDEContext
    int Connect() override { return 0; }
    int Disconnect() override { return 0; }
    bool IDEDisplayModelIsMDI() override { return true; }
    bool UseProjectGroupAsSource() override { return false; }
    void SetUseProjectGroupAsSource(bool) override { }
    std::string SourceProjectsList() override { return m_source.Name(); }
    void SetCurrentSourceProject(const std::string&) override { }
    bool AreThereAnySourceProjectsOpened() override { return true; }
    std::string CurrentSourceProjectFullPath() override { return m_source.Path(); }
    std::string CurrentSourceProjectName() override { return m_source.Name(); }
    std::string CurrentSourceProjectTypeName() override { return "MS ACCESS"; }
    bool CurrentSourceProjectIsDirty() override { return false; }
    std::string CurrentSourceProjectLocation() override { return m_source.Folder(); }
    bool CurrentSourceProjectIsMDEorADE() override;
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
    void SaveMakeRun(bool, bool, bool) override;
    bool ComponentExists(int compType, const std::string& compName) override;
    void CloseComponent(int objType, const std::string& objName, bool saveFlag) override;
    void SetComponentHelp(int objType, const std::string& objName, int helpContextId) override;
    int ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
        bool forceOpenAsHidden) override;
    bool ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) override;
    // Access's own prefixes of object names.
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }

    // The fields a table, query or macro is described by.
    std::vector<IClientFormProcessor::Field> FieldsOf(int objectType, const std::string& name);

    static constexpr int kMainWindowHandle = 1;

protected:
    // ^CHostContextBase
    std::string ProcessComponent(const ProcessComponentRequest& request) override;
    std::string HostClassName() const override { return "CW_AccessContext"; }
    bool ProcessOtherCommand(CXmlCommand& command) override;

private:
    CW_AccessContext() = default;
    void Render(int objectType, const std::string& name);

    AccessSource m_source;
    std::map<std::string, std::unique_ptr<AccessDefinition>> m_definitions;
    std::map<std::string, int> m_handles;
    // The page shown of each tab control, by object.
    std::map<std::string, std::map<std::string, int>> m_shownPages;
    int m_nextHandle { 100 };
};

}  // namespace scriv
