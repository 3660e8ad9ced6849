#pragma once

#include <string>
#include <vector>

namespace scriv {

// An object of the host (a component, a form, a control, a toolbar button):
// opaque to the logic, which only hands it back to the processor that gave it.
class IHostObject {
public:
    virtual ~IHostObject() = default;
};

// The immediate children of a host object, in the order the host lists them.
class CControlsCollection {
public:
    void Add(IHostObject* control) { m_items.push_back(control); }
    std::size_t Count() const { return m_items.size(); }
    IHostObject* Item(std::size_t index) const { return m_items.at(index); }
    const std::vector<IHostObject*>& Items() const { return m_items; }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<IHostObject*> m_items;
};

// A host's view into one live form, report or table. Rectangles are in pixels,
// relative to the immediate container, even where a name says twips. Objects
// answered by the processor live as long as the processor.
class IClientFormProcessor {
public:
    struct Rect {
        int left { 0 };
        int top { 0 };
        int width { 0 };
        int height { 0 };
    };

    virtual ~IClientFormProcessor() = default;

    virtual IHostObject* FindActualFormOfComponent(IHostObject* component, bool a, bool b) = 0;
    virtual IHostObject* FindActualReportOfComponent(IHostObject* component, bool a, bool b) = 0;
    virtual void ActualFormClose(IHostObject* form, bool a, bool b) = 0;
    virtual void ActualReportClose(IHostObject* report, bool a, bool b) = 0;
    virtual void myDoevents() = 0;

    virtual bool HasProperty(IHostObject* object, const std::string& name) = 0;
    // The value as text ("" when the object has no such property).
    virtual std::string PropertyValue(IHostObject* object, const std::string& name) = 0;

    virtual std::string ComponentCaptionGet(IHostObject* form) = 0;
    virtual std::string ComponentTypeName(IHostObject* form) = 0;
    // Name, or Name(index) for a member of a control array.
    virtual std::string ControlNameGet(IHostObject* control) = 0;
    virtual std::string ControlCaptionGet(IHostObject* control) = 0;
    // The control type names of the form description ("CommandButton", "SSTab" ...).
    virtual std::string ObjectTypeName(IHostObject* object) = 0;
    virtual void SetFirstPageVisibleForTabControls(IHostObject* form) = 0;
    virtual int ScaleMode(IHostObject* form) = 0;
    // The immediate children, less the kinds the help leaves out.
    virtual CControlsCollection ControlsCollectionGet(IHostObject* object) = 0;
    virtual bool FormHasMenus(IHostObject* form) = 0;
    // A seed for the control's help text: its description, else its tool tip.
    virtual std::string ControlSeedTextGet(IHostObject* form, IHostObject* control) = 0;
    virtual std::string ComponentWindowCaptionGet(IHostObject* form) = 0;
    // Shows a page of a tab control; answers the tab control, or nothing.
    virtual IHostObject* TabPageActivate(IHostObject* control, int page) = 0;
    virtual std::string TabPageCaptionGet(IHostObject* control, int page, bool activate) = 0;
    virtual std::string TabControlCaptionGet(IHostObject* control) = 0;
    virtual int TabControlPagesQtyGet(IHostObject* control) = 0;
    virtual CControlsCollection TabPageControlsCollectionGet(IHostObject* control, int page) = 0;
    virtual bool IsCorrectTypeForAForm(int componentType) = 0;
    virtual int DisplayModel() = 0;
    virtual void Terminate() = 0;
    virtual std::string FormNamePrefix() = 0;
    virtual std::string ReportNamePrefix() = 0;
    virtual std::string TableNamePrefix() = 0;
    virtual std::string QueryNamePrefix() = 0;
    virtual std::string MacroNamePrefix() = 0;
    virtual int BorderStyle(IHostObject* form) = 0;
    virtual int ControlSectionOffsetY(IHostObject* control) = 0;
    virtual int ControlSectionOffsetX(IHostObject* control) = 0;
    virtual int ControlSectionTitleHeight(IHostObject* control) = 0;
    virtual std::string ControlSectionName(IHostObject* control) = 0;
    virtual bool IsMSAccess() = 0;
    // Pixels of the whole window, frame included.
    virtual void GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height) = 0;
    virtual int FormClientAreaOffsetX(IHostObject* form) = 0;
    virtual int FormClientAreaOffsetY(IHostObject* form) = 0;
    virtual std::string FormSectionsXML(IHostObject* form) = 0;
    // TabIndex and Index; a missing property leaves 0 (and -1 for no index).
    virtual void GetControlIndexes(IHostObject* control, int& tabIndex, int& index) = 0;
    virtual std::string GetLabelControlParentName(IHostObject* control) = 0;
    virtual Rect GetControlRectangleInTwips(IHostObject* form, IHostObject* control) = 0;
    virtual Rect GetTabPageTabRectangleInTwips(int page, IHostObject* form, IHostObject* control) = 0;
    // Where a page of a tab control stands. A host whose pages have places of
    // their own (Windows Forms) answers the page's rectangle relative to the
    // tab control; by default a page is where its tab control is.
    virtual Rect TabPageRectangle(IHostObject* form, IHostObject* control, int page)
    {
        return GetControlRectangleInTwips(form, control);
    }
    virtual int GetComponentHwnd(IHostObject* component, bool a, bool b) = 0;
    virtual void SetComponentHelpContextId(IHostObject* form, bool a, int id) = 0;
    virtual int GetComponentHelpContextId(IHostObject* form, bool a) = 0;
    virtual int GetControlHelpContextId(IHostObject* control) = 0;
    virtual int ActivateComponent(IHostObject* component) = 0;
    // The <Menu> element of the form's menu entries (separators and blank captions left out).
    virtual std::string FormMenusXML(IHostObject* form) = 0;
    virtual int ToolbarButtonsQtyGet(IHostObject* control) = 0;
    virtual CControlsCollection ToolbarButtonsCollectionGet(IHostObject* control) = 0;
    // The button numbered from 1.
    virtual IHostObject* ToolbarButton(IHostObject* control, int button) = 0;
    virtual Rect GetToolbarButtonRectangleInTwips(int button, IHostObject* form, IHostObject* control) = 0;

    // The fields of a table or query (database hosts); other hosts have none.
    struct Field {
        std::string name;
        std::string caption;
        std::string description;
        int tabIndex { 0 };
    };
    virtual std::vector<Field> FieldsCollectionGet(const std::string& objectName, const std::string& objectKind) = 0;
};

// The kinds of control the help leaves out of a form's description.
bool IsFilteredControlType(const std::string& typeName);

}  // namespace scriv
