#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "host/CHostContextBase.h"

namespace scriv {

// A host made of data: projects with their forms, reports and other objects,
// described in XML and held in memory. It answers every question of the logic
// as a development environment would, so that the whole logic runs with no IDE
// and no application files. The description:
//
//   <Host DisplayModelMDI="true">
//     <Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Type="VB6" Active="true">
//       <Form Name="frmMain" Text="Orders" WindowSize="480, 360" ...>
//         <Controls> ... </Controls>
//       </Form>
//       <Report Name="rptDaily" ... />
//     </Project>
//   </Host>
//
// A component is a child element of a project named Form, Report, Table,
// Query, Macro, Worksheet or Chart; the description of the component that the
// host answers is the element itself. A component with Fails="true" cannot be
// described.
class CFakeHostContext : public CHostContextBase {
public:
    // Raises 0x80040001 with the parser's reason for a text that does not parse.
    static std::unique_ptr<CFakeHostContext> FromXml(const std::string& xml);
    static std::unique_ptr<CFakeHostContext> FromFile(const std::string& path);
    // A host with no project open.
    CFakeHostContext();

    // ^IHostIDEContext
    int Connect() override { return 0; }
    int Disconnect() override { return 0; }
    bool IDEDisplayModelIsMDI() override;
    bool UseProjectGroupAsSource() override { return m_useGroup; }
    void SetUseProjectGroupAsSource(bool value) override { m_useGroup = value; }
    std::string SourceProjectsList() override;
    void SetCurrentSourceProject(const std::string& name) override;
    bool AreThereAnySourceProjectsOpened() override;
    std::string CurrentSourceProjectFullPath() override;
    std::string CurrentSourceProjectName() override;
    std::string CurrentSourceProjectTypeName() override;
    bool CurrentSourceProjectIsDirty() override;
    std::string CurrentSourceProjectLocation() override;
    bool CurrentSourceProjectIsMDEorADE() override { return false; }
    bool CurrentSourceProjectIsADPorADE() override { return false; }
    int HostAppMainWindowHWnd() override { return kMainWindowHandle; }
    void HideIDEWindows() override;
    void ResetIDEWindows() override;
    std::string CurrentObjectName() override { return "???"; }
    int CurrentObjectType() override { return -1; }
    bool CurrentSourceProjectIsNewUnsaved() override { return false; }
    bool CurrentSourceProjectCodeIsDisabled() override { return false; }

    // ^IHostIDEContextCommands
    void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) override;
    void SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp) override;
    void ProgressMeterInit(const std::string& message, int maxVal) override;
    void ProgressMeterRemove() override;
    void ProgressMeterToggle(bool onFlag) override;
    void ProgressMeterUpdate(int currentValue) override;
    void myDoevents() override;
    bool ComponentExists(int compType, const std::string& compName) override;
    void CloseComponent(int objType, const std::string& objName, bool saveFlag) override;
    void SetComponentHelp(int objType, const std::string& objName, int helpContextId) override;
    int ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
        bool forceOpenAsHidden) override;
    bool ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag) override;

    // --- what the host was asked, for the tests ---
    // The names of the operations called, in order.
    const std::vector<std::string>& Calls() const { return m_calls; }
    void ClearCalls() { m_calls.clear(); }
    int CountCalls(const std::string& operation) const;
    const std::string& HelpFileOfCurrentProject() const { return m_helpFile; }
    // The help context id a component was given, or 0.
    int HelpContextIdOf(const std::string& component) const;

    static constexpr int kMainWindowHandle = 1;

protected:
    // ^CHostContextBase
    std::string ProcessComponent(const ProcessComponentRequest& request) override;
    std::string HostClassName() const override { return "CFakeHostContext"; }

private:
    explicit CFakeHostContext(std::unique_ptr<pugi::xml_document> document);
    pugi::xml_node CurrentProjectNode() const;
    pugi::xml_node FindComponent(const std::string& name) const;
    void Record(std::string operation) { m_calls.push_back(std::move(operation)); }

    std::unique_ptr<pugi::xml_document> m_document;
    std::string m_currentProject;
    bool m_useGroup { false };
    bool m_progressShown { false };
    std::string m_helpFile;
    std::vector<std::string> m_calls;
};

}  // namespace scriv
