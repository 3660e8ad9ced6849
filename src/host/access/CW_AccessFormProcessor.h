#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CNonClientMetrics.h"
#include "host/IClientFormProcessor.h"
#include "host/access/AccessDefinition.h"

namespace scriv {

// One section of an Access form or report as it is shown: where it starts
// below the client area's top, its height, and the bar above it in design view.
struct AccessSectionView {
    const AccessBlock* block { nullptr };
    // "FormHeader", "Section" (the detail), "PageFooter", "BreakHeader" ...
    std::string type;
    std::string name;
    int top { 0 };
    int height { 0 };
    int headerBar { 0 };
};

// One control placed in the client area of its form or report (pixels).
struct AccessControlView {
    const AccessBlock* block { nullptr };
    std::string type;
    std::string name;
    const AccessSectionView* section { nullptr };
    // The option group or tab control it lies in, or null.
    AccessControlView* container { nullptr };
    // The control an attached label names, or null.
    AccessControlView* labelOf { nullptr };
    // A tab control's pages; a page's or an option group's controls.
    std::vector<AccessControlView*> children;
    int left { 0 };
    int top { 0 };
    int width { 0 };
    int height { 0 };
};

// An Access form or report as Access shows it, answered from its text
// definition. Forms are shown in Form view: the form header, detail and
// footer stacked, the record selector at the left, the navigation buttons
// below. Reports are shown in Design view, each section below the bar that
// names it. Controls are measured from their section as Access keeps them;
// the processor answers each relative to its immediate container (option
// group or tab control), as the walk wants. A subform is a control of its
// own, whose form is described on its own page.
class CW_AccessFormProcessor : public IClientFormProcessor {
public:
    // The definition must outlive the processor; isReport selects the report's view.
    CW_AccessFormProcessor(const AccessDefinition& definition, const std::string& name, bool isReport,
        int windowHandle = 0);
    ~CW_AccessFormProcessor() override;

    IHostObject* Component() { return m_component.get(); }
    const AccessDefinition& Definition() const { return m_definition; }
    bool IsReport() const { return m_isReport; }
    const std::vector<AccessSectionView>& Sections() const { return m_sections; }
    // The controls in the order of the walk: each section's, with attached labels after their controls.
    const std::vector<AccessControlView*>& TopControls() const { return m_top; }
    const std::vector<std::unique_ptr<AccessControlView>>& AllControls() const { return m_controls; }
    IHostObject* Object(const AccessControlView* control);
    const AccessControlView* ControlOf(IHostObject* object) const;
    // The page a tab control shows.
    int ShownPage(const AccessControlView& tabControl) const;
    // The width of the record selector and the height of the navigation buttons (0 when absent).
    int RecordSelectorWidth() const { return m_recordSelector; }
    int NavigationHeight() const { return m_navigation; }
    // The width of the sections.
    int SectionsWidth() const { return m_width; }
    int SectionsHeight() const;
    // A page's tab, relative to its tab control.
    Rect TabRect(const AccessControlView& tabControl, int page) const;

    // ^IClientFormProcessor
    IHostObject* FindActualFormOfComponent(IHostObject* component, bool a, bool b) override;
    IHostObject* FindActualReportOfComponent(IHostObject* component, bool a, bool b) override;
    void ActualFormClose(IHostObject*, bool, bool) override { }
    void ActualReportClose(IHostObject*, bool, bool) override { }
    void myDoevents() override;
    bool HasProperty(IHostObject* object, const std::string& name) override;
    std::string PropertyValue(IHostObject* object, const std::string& name) override;
    std::string ComponentCaptionGet(IHostObject* form) override;
    std::string ComponentTypeName(IHostObject*) override { return m_isReport ? "Report" : "Form"; }
    std::string ControlNameGet(IHostObject* control) override;
    std::string ControlCaptionGet(IHostObject* control) override;
    std::string ObjectTypeName(IHostObject* object) override;
    void SetFirstPageVisibleForTabControls(IHostObject* form) override;
    int ScaleMode(IHostObject*) override { return 1; }
    CControlsCollection ControlsCollectionGet(IHostObject* object) override;
    bool FormHasMenus(IHostObject*) override { return false; }
    std::string ControlSeedTextGet(IHostObject* form, IHostObject* control) override;
    std::string ComponentWindowCaptionGet(IHostObject* form) override;
    IHostObject* TabPageActivate(IHostObject* control, int page) override;
    std::string TabPageCaptionGet(IHostObject* control, int page, bool activate) override;
    std::string TabControlCaptionGet(IHostObject* control) override;
    int TabControlPagesQtyGet(IHostObject* control) override;
    CControlsCollection TabPageControlsCollectionGet(IHostObject* control, int page) override;
    bool IsCorrectTypeForAForm(int componentType) override { return componentType == 2 || componentType == 3; }
    int DisplayModel() override { return 1; }
    void Terminate() override;
    std::string FormNamePrefix() override { return "dlg"; }
    std::string ReportNamePrefix() override { return "rpt"; }
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }
    int BorderStyle(IHostObject* form) override;
    int ControlSectionOffsetY(IHostObject* control) override;
    int ControlSectionOffsetX(IHostObject* control) override;
    int ControlSectionTitleHeight(IHostObject* control) override;
    std::string ControlSectionName(IHostObject* control) override;
    bool IsMSAccess() override { return true; }
    void GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height) override;
    int FormClientAreaOffsetX(IHostObject* form) override;
    int FormClientAreaOffsetY(IHostObject* form) override;
    std::string FormSectionsXML(IHostObject* form) override;
    void GetControlIndexes(IHostObject* control, int& tabIndex, int& index) override;
    std::string GetLabelControlParentName(IHostObject* control) override;
    Rect GetControlRectangleInTwips(IHostObject* form, IHostObject* control) override;
    Rect GetTabPageTabRectangleInTwips(int page, IHostObject* form, IHostObject* control) override;
    int GetComponentHwnd(IHostObject*, bool, bool) override { return m_windowHandle; }
    void SetComponentHelpContextId(IHostObject*, bool, int) override { }
    int GetComponentHelpContextId(IHostObject* form, bool a) override;
    int GetControlHelpContextId(IHostObject* control) override;
    int ActivateComponent(IHostObject*) override { return m_windowHandle; }
    std::string FormMenusXML(IHostObject* form) override;
    int ToolbarButtonsQtyGet(IHostObject*) override { return 0; }
    CControlsCollection ToolbarButtonsCollectionGet(IHostObject*) override { return {}; }
    IHostObject* ToolbarButton(IHostObject*, int) override { return nullptr; }
    Rect GetToolbarButtonRectangleInTwips(int, IHostObject*, IHostObject*) override { return {}; }
    std::vector<Field> FieldsCollectionGet(const std::string&, const std::string&) override { return {}; }

    // Access's type names of the walk: a tab control is "TabControl", a
    // report's subform "Subreport".
    std::string WalkTypeName(const AccessControlView& control) const;

private:
    class ControlObject;
    void Build();
    AccessControlView& AddControl(const AccessBlock& block, const AccessSectionView& section, AccessControlView* container);
    CControlsCollection Filtered(const std::vector<AccessControlView*>& controls);

    const AccessDefinition& m_definition;
    std::string m_name;
    bool m_isReport;
    int m_windowHandle;
    CNonClientMetrics m_metrics;
    std::unique_ptr<IHostObject> m_component;
    std::vector<AccessSectionView> m_sections;
    std::vector<std::unique_ptr<AccessControlView>> m_controls;
    std::vector<AccessControlView*> m_top;
    std::map<const AccessControlView*, std::unique_ptr<ControlObject>> m_objects;
    std::map<const AccessControlView*, int> m_shownPages;
    int m_width { 0 };
    int m_recordSelector { 0 };
    int m_navigation { 0 };
    bool m_terminated { false };
};

// Pixels of a measure in twips.
int TwipsToPixels(double twips);

}  // namespace scriv
