#include "host/vs/CW_IDEVSFormProcessor.h"

#include <cmath>

#include "foundation/EventLoop.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

// "btnSave" shows as "Save", "lblX1" as "X1"; a name all in lower case stays.
std::string NameAsCaption(std::string name)
{
    if (ToLower(name) == name)
        return name;
    auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    while (name.size() > 1 && isLower(name.front()) && !IsNumeric(name.substr(1)))
        name.erase(0, 1);
    return name;
}

std::string ValueText(const DesignValue& value)
{
    switch (value.kind) {
    case DesignValue::Kind::Boolean:
        return value.flag ? "True" : "False";
    case DesignValue::Kind::Pair: {
        auto number = [](double n) { return std::to_string(static_cast<long long>(std::lround(n))); };
        return number(value.a) + ", " + number(value.b);
    }
    case DesignValue::Kind::Font:
        return value.text;
    default:
        return value.text;
    }
}

bool IsMenuSeparator(const DesignComponent& item)
{
    std::string text = Trim(item.Text("Text"));
    return item.type == "ToolStripSeparator" || text == "-" || text.empty();
}

}  // namespace

class CW_IDEVSFormProcessor::ComponentObject : public IHostObject {
public:
    explicit ComponentObject(const DesignComponent* component)
        : component(component)
    {
    }
    const DesignComponent* component;
};

CW_IDEVSFormProcessor::CW_IDEVSFormProcessor(const WinFormDesign& design, int windowHandle)
    : m_design(design)
    , m_layout(design)
    , m_windowHandle(windowHandle)
{
    m_metrics.SearchMetrics();
}

CW_IDEVSFormProcessor::~CW_IDEVSFormProcessor()
{
    Terminate();
}

void CW_IDEVSFormProcessor::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_objects.clear();
}

IHostObject* CW_IDEVSFormProcessor::Object(const DesignComponent* component)
{
    if (!component)
        return nullptr;
    auto& object = m_objects[component];
    if (!object)
        object = std::make_unique<ComponentObject>(component);
    return object.get();
}

const DesignComponent* CW_IDEVSFormProcessor::ComponentOf(IHostObject* object) const
{
    auto* found = dynamic_cast<ComponentObject*>(object);
    return found ? found->component : nullptr;
}

IHostObject* CW_IDEVSFormProcessor::FindActualFormOfComponent(IHostObject* component, bool a, bool b)
{
    return Object(&m_design.Form());
}

void CW_IDEVSFormProcessor::ActualFormClose(IHostObject* form, bool a, bool b)
{
    myDoevents();
}

void CW_IDEVSFormProcessor::myDoevents()
{
    LogicLoop().RunPending();
}

// --- properties ---

bool CW_IDEVSFormProcessor::HasProperty(IHostObject* object, const std::string& name)
{
    const DesignComponent* component = ComponentOf(object);
    if (!component)
        return false;
    for (const char* always : { "Name", "Left", "Top", "Width", "Height", "Caption" })
        if (EqualsNoCase(name, always))
            return true;
    return component->Property(name) != nullptr;
}

std::string CW_IDEVSFormProcessor::PropertyValue(IHostObject* object, const std::string& name)
{
    const DesignComponent* component = ComponentOf(object);
    if (!component)
        return {};
    if (EqualsNoCase(name, "Name"))
        return component == &m_design.Form() && component->Text("Name").empty() ? m_design.FormClass() : component->ControlName();
    if (EqualsNoCase(name, "Caption"))
        return component->Text("Text");
    if (component != &m_design.Form()) {
        LayoutRect bounds = m_layout.Bounds(*component);
        if (EqualsNoCase(name, "Left"))
            return std::to_string(bounds.left);
        if (EqualsNoCase(name, "Top"))
            return std::to_string(bounds.top);
        if (EqualsNoCase(name, "Width"))
            return std::to_string(bounds.width);
        if (EqualsNoCase(name, "Height"))
            return std::to_string(bounds.height);
    }
    const DesignValue* value = component->Property(name);
    return value ? ValueText(*value) : std::string();
}

std::string CW_IDEVSFormProcessor::ComponentCaptionGet(IHostObject* form)
{
    const DesignComponent* component = ComponentOf(form);
    if (!component)
        return {};
    std::string caption = component->Text("Text");
    return caption.empty() ? PropertyValue(form, "Name") : caption;
}

std::string CW_IDEVSFormProcessor::ComponentWindowCaptionGet(IHostObject* form)
{
    return PropertyValue(form, "Name") + " [Design]";
}

std::string CW_IDEVSFormProcessor::ControlNameGet(IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    return component ? component->ControlName() : std::string();
}

std::string CW_IDEVSFormProcessor::ControlCaptionGet(IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    std::string caption = component->Text("Text");
    std::string type = ToLower(component->type);
    // A text box shows the text typed into it; its caption is its label's.
    if (type == "textbox" || type == "combobox" || type == "listbox" || type == "maskedtextbox") {
        caption.clear();
        int tabIndex = static_cast<int>(component->Number("TabIndex", -10));
        if (component->parent) {
            for (const DesignComponent* sibling : component->parent->controls) {
                if (sibling->type == "Label" && sibling->Property("TabIndex")
                    && static_cast<int>(sibling->Number("TabIndex", -10)) + 1 == tabIndex) {
                    caption = sibling->Text("Text");
                    break;
                }
            }
        }
    }
    if (!caption.empty())
        return RemoveAll(caption, "&");
    return NameAsCaption(component->ControlName());
}

std::string CW_IDEVSFormProcessor::ObjectTypeName(IHostObject* object)
{
    const DesignComponent* component = ComponentOf(object);
    if (!component)
        return {};
    const std::string& type = component->type;
    if (component == &m_design.Form())
        return type;
    if (type == "ToolStrip" || type == "ToolBar" || type == "BindingNavigator")
        return "Toolbar";
    if (type == "SplitContainer" || type == "SplitterPanel" || type == "FlowLayoutPanel" || type == "TableLayoutPanel")
        return "Panel";
    return type;
}

void CW_IDEVSFormProcessor::SetFirstPageVisibleForTabControls(IHostObject* form)
{
    for (const auto& component : m_design.Components())
        if (WinFormLayout::IsTabControl(*component))
            m_shownPages[component.get()] = 0;
    myDoevents();
}

CControlsCollection CW_IDEVSFormProcessor::Filtered(const std::vector<DesignComponent*>& components)
{
    CControlsCollection controls;
    for (const DesignComponent* component : components) {
        IHostObject* object = Object(component);
        if (!IsFilteredControlType(ObjectTypeName(object)))
            controls.Add(object);
    }
    return controls;
}

CControlsCollection CW_IDEVSFormProcessor::ControlsCollectionGet(IHostObject* object)
{
    const DesignComponent* component = ComponentOf(object);
    return component ? Filtered(component->controls) : CControlsCollection();
}

const DesignComponent* CW_IDEVSFormProcessor::MenuSource() const
{
    if (m_layout.MainMenu())
        return m_layout.MainMenu();
    const DesignComponent& form = m_design.Form();
    if (const DesignValue* strip = form.Property("MainMenuStrip"); strip && strip->kind == DesignValue::Kind::Reference)
        if (const DesignComponent* found = m_design.Find(strip->text))
            return found;
    for (const DesignComponent* control : form.controls)
        if (control->type == "MenuStrip")
            return control;
    return nullptr;
}

std::vector<const DesignComponent*> CW_IDEVSFormProcessor::MenuEntries() const
{
    std::vector<const DesignComponent*> entries;
    std::function<void(const DesignComponent&)> walk = [&](const DesignComponent& menu) {
        for (const DesignComponent* item : menu.items) {
            if (!IsMenuSeparator(*item))
                entries.push_back(item);
            walk(*item);
        }
    };
    if (const DesignComponent* source = MenuSource())
        walk(*source);
    return entries;
}

bool CW_IDEVSFormProcessor::FormHasMenus(IHostObject* form)
{
    return !MenuEntries().empty();
}

std::string CW_IDEVSFormProcessor::ControlSeedTextGet(IHostObject* form, IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    for (const char* name : { "HelpString", "AccessibleDescription", "ToolTipText" }) {
        std::string text = component->Text(name);
        if (!text.empty())
            return text;
    }
    return {};
}

// --- tab controls ---

int CW_IDEVSFormProcessor::ShownPage(const DesignComponent& tabControl) const
{
    auto shown = m_shownPages.find(&tabControl);
    if (shown != m_shownPages.end())
        return shown->second;
    return static_cast<int>(tabControl.Number("SelectedIndex", 0));
}

IHostObject* CW_IDEVSFormProcessor::TabPageActivate(IHostObject* control, int page)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component || !WinFormLayout::IsTabControl(*component) || page < 0
        || page >= static_cast<int>(WinFormLayout::TabPages(*component).size()))
        return nullptr;
    m_shownPages[component] = page;
    myDoevents();
    return control;
}

std::string CW_IDEVSFormProcessor::TabPageCaptionGet(IHostObject* control, int page, bool activate)
{
    if (activate)
        TabPageActivate(control, page);
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    std::vector<const DesignComponent*> pages = WinFormLayout::TabPages(*component);
    if (page < 0 || page >= static_cast<int>(pages.size()))
        return {};
    return RemoveAll(pages[static_cast<std::size_t>(page)]->Text("Text"), "&");
}

std::string CW_IDEVSFormProcessor::TabControlCaptionGet(IHostObject* control)
{
    return RemoveAll(ControlNameGet(control), "&");
}

int CW_IDEVSFormProcessor::TabControlPagesQtyGet(IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    return component ? static_cast<int>(WinFormLayout::TabPages(*component).size()) : 0;
}

CControlsCollection CW_IDEVSFormProcessor::TabPageControlsCollectionGet(IHostObject* control, int page)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    std::vector<const DesignComponent*> pages = WinFormLayout::TabPages(*component);
    if (page < 0 || page >= static_cast<int>(pages.size()))
        return {};
    return Filtered(pages[static_cast<std::size_t>(page)]->controls);
}

// --- measures ---

int CW_IDEVSFormProcessor::BorderStyle(IHostObject* form)
{
    return m_layout.BorderStyle();
}

void CW_IDEVSFormProcessor::GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height)
{
    int style = m_layout.BorderStyle();
    int frame = m_metrics.FrameWidth(style);
    int inset = m_layout.IsUserControl() ? WinFormLayout::BorderInset(m_design.Form()) : 0;
    width = m_layout.ClientWidth() + 2 * frame + 2 * inset;
    height = m_layout.ClientHeight() + 2 * frame + 2 * inset + m_metrics.GetFormNCM(style)
        + (m_layout.MainMenu() ? m_metrics.HeightMenus : 0);
}

int CW_IDEVSFormProcessor::FormClientAreaOffsetX(IHostObject* form)
{
    if (m_layout.IsUserControl())
        return WinFormLayout::BorderInset(m_design.Form());
    return m_metrics.FrameWidth(m_layout.BorderStyle());
}

int CW_IDEVSFormProcessor::FormClientAreaOffsetY(IHostObject* form)
{
    if (m_layout.IsUserControl())
        return WinFormLayout::BorderInset(m_design.Form());
    int style = m_layout.BorderStyle();
    // The menu bar of a main menu lies outside the client area; a menu strip inside it.
    return m_metrics.FrameWidth(style) + m_metrics.GetFormNCM(style) + (m_layout.MainMenu() ? m_metrics.HeightMenus : 0);
}

void CW_IDEVSFormProcessor::GetControlIndexes(IHostObject* control, int& tabIndex, int& index)
{
    const DesignComponent* component = ComponentOf(control);
    tabIndex = component ? static_cast<int>(component->Number("TabIndex", 0)) : 0;
    index = 0;
}

IClientFormProcessor::Rect CW_IDEVSFormProcessor::GetControlRectangleInTwips(IHostObject* form, IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component || component == &m_design.Form())
        return {};
    LayoutRect bounds = m_layout.Bounds(*component);
    return { bounds.left, bounds.top, bounds.width, bounds.height };
}

IClientFormProcessor::Rect CW_IDEVSFormProcessor::GetTabPageTabRectangleInTwips(int page, IHostObject* form,
    IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    LayoutRect bounds = m_layout.Bounds(*component);
    LayoutRect tab = m_layout.TabRect(*component, page);
    return { bounds.left + tab.left, bounds.top + tab.top, tab.width, tab.height };
}

IClientFormProcessor::Rect CW_IDEVSFormProcessor::TabPageRectangle(IHostObject* form, IHostObject* control, int page)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    std::vector<const DesignComponent*> pages = WinFormLayout::TabPages(*component);
    if (page < 0 || page >= static_cast<int>(pages.size()))
        return {};
    LayoutRect bounds = m_layout.Bounds(*pages[static_cast<std::size_t>(page)]);
    return { bounds.left, bounds.top, bounds.width, bounds.height };
}

// --- menus ---

std::string CW_IDEVSFormProcessor::FormMenusXML(IHostObject* form)
{
    std::string out = "<Menu>" + kCrLfText;
    for (const DesignComponent* entry : MenuEntries()) {
        out += "<MenuEntry Name = \"" + XmlEncodeChars(entry->ControlName()) + "\" Caption = \""
            + XmlEncodeChars(entry->Text("Text")) + "\" />" + kCrLfText;
    }
    return out + "</Menu>";
}

// --- tool strips ---

int CW_IDEVSFormProcessor::ToolbarButtonsQtyGet(IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    return component && WinFormLayout::IsStrip(*component) ? static_cast<int>(component->items.size()) : 0;
}

IHostObject* CW_IDEVSFormProcessor::ToolbarButton(IHostObject* control, int button)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component || button < 1 || button > static_cast<int>(component->items.size()))
        return nullptr;
    return Object(component->items[static_cast<std::size_t>(button - 1)]);
}

CControlsCollection CW_IDEVSFormProcessor::ToolbarButtonsCollectionGet(IHostObject* control)
{
    CControlsCollection buttons;
    for (int i = 1; i <= ToolbarButtonsQtyGet(control); ++i)
        if (IHostObject* button = ToolbarButton(control, i))
            buttons.Add(button);
    return buttons;
}

IClientFormProcessor::Rect CW_IDEVSFormProcessor::GetToolbarButtonRectangleInTwips(int button, IHostObject* form,
    IHostObject* control)
{
    const DesignComponent* component = ComponentOf(control);
    if (!component)
        return {};
    std::vector<LayoutRect> items = m_layout.ItemRects(*component);
    if (button < 1 || button > static_cast<int>(items.size()))
        return {};
    LayoutRect bounds = m_layout.Bounds(*component);
    const LayoutRect& item = items[static_cast<std::size_t>(button - 1)];
    return { bounds.left + item.left, bounds.top + item.top, item.width, item.height };
}

}  // namespace scriv
