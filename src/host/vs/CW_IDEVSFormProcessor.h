#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CNonClientMetrics.h"
#include "host/IClientFormProcessor.h"
#include "host/vs/WinFormLayout.h"

namespace scriv {

// A Windows Forms form of a Visual Studio project as its designer shows it,
// answered from the form's designer code. Measures are pixels: the tab pages
// have places of their own inside their tab control, tool strips are the
// tool bars of the walk and their items its buttons, a menu strip is a
// control of the client area whose items are the form's menu entries.
class CW_IDEVSFormProcessor : public IClientFormProcessor {
public:
    // The design must outlive the processor.
    explicit CW_IDEVSFormProcessor(const WinFormDesign& design, int windowHandle = 0);
    ~CW_IDEVSFormProcessor() override;

    // The component the processor was made for.
    IHostObject* Component() { return Object(&m_design.Form()); }
    const WinFormDesign& Design() const { return m_design; }
    const WinFormLayout& Layout() const { return m_layout; }
    // The object of a component of the design, and back (null for an object of another processor).
    IHostObject* Object(const DesignComponent* component);
    const DesignComponent* ComponentOf(IHostObject* object) const;
    // The page a tab control shows.
    int ShownPage(const DesignComponent& tabControl) const;

    // ^IClientFormProcessor
    IHostObject* FindActualFormOfComponent(IHostObject* component, bool a, bool b) override;
    IHostObject* FindActualReportOfComponent(IHostObject*, bool, bool) override { return nullptr; }
    void ActualFormClose(IHostObject* form, bool a, bool b) override;
    void ActualReportClose(IHostObject*, bool, bool) override { }
    void myDoevents() override;
    bool HasProperty(IHostObject* object, const std::string& name) override;
    std::string PropertyValue(IHostObject* object, const std::string& name) override;
    std::string ComponentCaptionGet(IHostObject* form) override;
    std::string ComponentTypeName(IHostObject*) override { return "Form"; }
    std::string ControlNameGet(IHostObject* control) override;
    std::string ControlCaptionGet(IHostObject* control) override;
    std::string ObjectTypeName(IHostObject* object) override;
    void SetFirstPageVisibleForTabControls(IHostObject* form) override;
    int ScaleMode(IHostObject*) override { return 3; }
    CControlsCollection ControlsCollectionGet(IHostObject* object) override;
    bool FormHasMenus(IHostObject* form) override;
    std::string ControlSeedTextGet(IHostObject* form, IHostObject* control) override;
    std::string ComponentWindowCaptionGet(IHostObject* form) override;
    IHostObject* TabPageActivate(IHostObject* control, int page) override;
    std::string TabPageCaptionGet(IHostObject* control, int page, bool activate) override;
    std::string TabControlCaptionGet(IHostObject* control) override;
    int TabControlPagesQtyGet(IHostObject* control) override;
    CControlsCollection TabPageControlsCollectionGet(IHostObject* control, int page) override;
    bool IsCorrectTypeForAForm(int componentType) override { return componentType == 2; }
    int DisplayModel() override { return 1; }
    void Terminate() override;
    std::string FormNamePrefix() override { return "dlg"; }
    std::string ReportNamePrefix() override { return "rpt"; }
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }
    int BorderStyle(IHostObject* form) override;
    int ControlSectionOffsetY(IHostObject*) override { return 0; }
    int ControlSectionOffsetX(IHostObject*) override { return 0; }
    int ControlSectionTitleHeight(IHostObject*) override { return 0; }
    std::string ControlSectionName(IHostObject*) override { return {}; }
    bool IsMSAccess() override { return false; }
    void GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height) override;
    int FormClientAreaOffsetX(IHostObject* form) override;
    int FormClientAreaOffsetY(IHostObject* form) override;
    std::string FormSectionsXML(IHostObject*) override { return {}; }
    void GetControlIndexes(IHostObject* control, int& tabIndex, int& index) override;
    std::string GetLabelControlParentName(IHostObject*) override { return {}; }
    Rect GetControlRectangleInTwips(IHostObject* form, IHostObject* control) override;
    Rect GetTabPageTabRectangleInTwips(int page, IHostObject* form, IHostObject* control) override;
    Rect TabPageRectangle(IHostObject* form, IHostObject* control, int page) override;
    int GetComponentHwnd(IHostObject*, bool, bool) override { return m_windowHandle; }
    // Windows Forms keep no help context id in the designer code.
    void SetComponentHelpContextId(IHostObject*, bool, int) override { }
    int GetComponentHelpContextId(IHostObject*, bool) override { return 0; }
    int GetControlHelpContextId(IHostObject*) override { return 0; }
    int ActivateComponent(IHostObject*) override { return m_windowHandle; }
    std::string FormMenusXML(IHostObject* form) override;
    int ToolbarButtonsQtyGet(IHostObject* control) override;
    CControlsCollection ToolbarButtonsCollectionGet(IHostObject* control) override;
    IHostObject* ToolbarButton(IHostObject* control, int button) override;
    Rect GetToolbarButtonRectangleInTwips(int button, IHostObject* form, IHostObject* control) override;
    std::vector<Field> FieldsCollectionGet(const std::string&, const std::string&) override { return {}; }

    // The menu entries of the form: the items of its main menu, else of its
    // menu strip, depth first, separators and blank texts left out.
    std::vector<const DesignComponent*> MenuEntries() const;
    // The menu strip or main menu whose items are the form's menu bar, or null.
    const DesignComponent* MenuSource() const;

private:
    class ComponentObject;
    CControlsCollection Filtered(const std::vector<DesignComponent*>& components);

    const WinFormDesign& m_design;
    WinFormLayout m_layout;
    int m_windowHandle { 0 };
    CNonClientMetrics m_metrics;
    std::map<const DesignComponent*, std::unique_ptr<ComponentObject>> m_objects;
    std::map<const DesignComponent*, int> m_shownPages;
    bool m_terminated { false };
};

}  // namespace scriv
