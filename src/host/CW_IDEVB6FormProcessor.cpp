#include "host/CW_IDEVB6FormProcessor.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "foundation/EventLoop.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/vb6/Vb6FormFile.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

bool IsTabControlType(const std::string& type)
{
    return EqualsNoCase(type, "SSTab") || EqualsNoCase(type, "TabControl");
}

std::string FormatNumber(double value)
{
    if (value == std::floor(value))
        return std::to_string(static_cast<long long>(value));
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%g", value);
    return buffer;
}

// "cmdSave" shows as "Save", "lblX1" as "X1"; a name all in lower case stays.
std::string NameAsCaption(std::string name)
{
    if (ToLower(name) == name)
        return name;
    auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    while (name.size() > 1 && isLower(name.front()) && !IsNumeric(name.substr(1)))
        name.erase(0, 1);
    return name;
}

}  // namespace

double HimetricToTwips(double himetric)
{
    return himetric * 1440.0 / 2540.0;
}

int ToInt(double value)
{
    // A file may hold any number; what no int can hold stands at the nearest end.
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

int RoundHalfEven(double value)
{
    return ToInt(std::nearbyint(value));
}

int Pixels(double value)
{
    // No screen is a million pixels wide; held there, sums of nested offsets stay in range.
    constexpr int kLimit = 1'000'000;
    return std::clamp(RoundHalfEven(value), -kLimit, kLimit);
}

class CW_IDEVB6FormProcessor::BlockObject : public IHostObject {
public:
    explicit BlockObject(const Vb6Block* block)
        : m_block(block)
    {
    }
    const Vb6Block* Block() const { return m_block; }

private:
    const Vb6Block* m_block;
};

class CW_IDEVB6FormProcessor::ButtonObject : public IHostObject {
public:
    ButtonObject(const Vb6Block* toolbar, const Vb6PropertyGroup* group, int number)
        : toolbar(toolbar)
        , group(group)
        , number(number)
    {
    }
    const Vb6Block* toolbar;
    const Vb6PropertyGroup* group;
    int number;
};

CW_IDEVB6FormProcessor::CW_IDEVB6FormProcessor(Vb6FormFile& file, int windowHandle)
    : m_file(file)
    , m_windowHandle(windowHandle)
    , m_component(std::make_unique<BlockObject>(&file.Form()))
{
    m_metrics.SearchMetrics();
}

CW_IDEVB6FormProcessor::~CW_IDEVB6FormProcessor()
{
    Terminate();
}

void CW_IDEVB6FormProcessor::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_buttons.clear();
    m_objects.clear();
}

// --- objects ---

CW_IDEVB6FormProcessor::BlockObject* CW_IDEVB6FormProcessor::Object(const Vb6Block* block)
{
    auto& object = m_objects[block];
    if (!object)
        object = std::make_unique<BlockObject>(block);
    return object.get();
}

const Vb6Block* CW_IDEVB6FormProcessor::BlockOf(IHostObject* object) const
{
    auto* block = dynamic_cast<BlockObject*>(object);
    return block ? block->Block() : nullptr;
}

const Vb6Block* CW_IDEVB6FormProcessor::FormBlock() const
{
    return &m_file.Form();
}

IHostObject* CW_IDEVB6FormProcessor::FindActualFormOfComponent(IHostObject* component, bool a, bool b)
{
    // In the designer the component's form is the component itself.
    return Object(FormBlock());
}

void CW_IDEVB6FormProcessor::ActualFormClose(IHostObject* form, bool a, bool b)
{
    myDoevents();
}

void CW_IDEVB6FormProcessor::myDoevents()
{
    LogicLoop().RunPending();
}

// --- properties ---

double CW_IDEVB6FormProcessor::Number(const Vb6Block* block, const std::string& name, double fallback) const
{
    double value = block->Number(name, fallback);
    if (EqualsNoCase(name, "Left")) {
        auto shift = m_leftShift.find(block);
        if (shift != m_leftShift.end())
            value += shift->second;
    }
    // The file keeps every place and size in twips; the IDE hands those of a
    // form's own controls out in the form's ScaleMode.
    if (!block->HasProperty(name) || !ContainerIsForm(block))
        return value;
    static constexpr const char* kAlongX[] = { "Left", "Width", "X1", "X2" };
    static constexpr const char* kAlongY[] = { "Top", "Height", "Y1", "Y2", "TabHeight" };
    for (const char* along : kAlongX)
        if (EqualsNoCase(name, along))
            return ScaleFactorX() > 0 ? value / ScaleFactorX() : value;
    for (const char* along : kAlongY)
        if (EqualsNoCase(name, along))
            return ScaleFactorY() > 0 ? value / ScaleFactorY() : value;
    return value;
}

bool CW_IDEVB6FormProcessor::HasProperty(IHostObject* object, const std::string& name)
{
    if (auto* button = dynamic_cast<ButtonObject*>(object))
        return button->group->HasProperty(name) || button->group->HasProperty("Object." + name);
    const Vb6Block* block = BlockOf(object);
    return block && (EqualsNoCase(name, "Name") || block->HasProperty(name));
}

std::string CW_IDEVB6FormProcessor::PropertyValue(IHostObject* object, const std::string& name)
{
    if (auto* button = dynamic_cast<ButtonObject*>(object)) {
        std::string text = button->group->Text(name);
        return text.empty() ? button->group->Text("Object." + name) : text;
    }
    const Vb6Block* block = BlockOf(object);
    if (!block)
        return {};
    if (EqualsNoCase(name, "Name")) {
        // The project knows a component by its VB_Name, which the IDE keeps
        // equal to the form's name; an edited file may differ.
        std::string componentName = object == m_component.get() ? m_file.Attribute("VB_Name") : std::string();
        return componentName.empty() ? block->Name() : componentName;
    }
    const Vb6Property* property = block->FindProperty(name);
    if (!property)
        return {};
    for (const char* measure : { "Left", "Top", "Width", "Height", "X1", "Y1", "X2", "Y2", "TabHeight" })
        if (EqualsNoCase(name, measure))
            return FormatNumber(Number(block, name, 0));
    return property->Text().value_or(std::string());
}

std::string CW_IDEVB6FormProcessor::ComponentCaptionGet(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    if (!block)
        return {};
    std::string caption = block->Text("Caption");
    return caption.empty() ? block->Name() : caption;
}

std::string CW_IDEVB6FormProcessor::ComponentWindowCaptionGet(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    return block ? block->Name() + " (Form)" : std::string();
}

std::string CW_IDEVB6FormProcessor::ControlNameGet(IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    return block ? block->IndexedName() : std::string();
}

std::string CW_IDEVB6FormProcessor::ControlCaptionGet(IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    std::string caption = block->Text("Caption");
    std::string type = ToLower(block->ShortType());
    if (caption.empty() && (type == "textbox" || type == "combobox" || type == "listbox") && block->Parent()) {
        // The label just before the control in the tab order names it.
        int tabIndex = ToInt(block->Number("TabIndex", -10));
        for (const auto& sibling : block->Parent()->Children()) {
            if (EqualsNoCase(sibling->ShortType(), "Label") && sibling->HasProperty("TabIndex")
                && ToInt(sibling->Number("TabIndex", -10)) + 1 == tabIndex) {
                caption = sibling->Text("Caption");
                break;
            }
        }
    }
    if (!caption.empty())
        return RemoveAll(caption, "&");
    return NameAsCaption(ControlNameGet(control));
}

std::string CW_IDEVB6FormProcessor::ObjectTypeName(IHostObject* object)
{
    const Vb6Block* block = BlockOf(object);
    if (!block)
        return dynamic_cast<ButtonObject*>(object) ? "Button" : std::string();
    if (block == FormBlock()) {
        switch (m_file.Kind()) {
        case Vb6FormKind::MDIForm:
            return "VBMDIForm";
        case Vb6FormKind::UserControl:
            return "UserControl";
        case Vb6FormKind::UserDocument:
            return "UserDocument";
        case Vb6FormKind::PropertyPage:
            return "PropertyPage";
        default:
            return "VBForm";
        }
    }
    return block->ShortType();
}

int CW_IDEVB6FormProcessor::ScaleMode(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    return block ? ToInt(block->Number("ScaleMode", 1)) : 1;
}

CControlsCollection CW_IDEVB6FormProcessor::ControlsCollectionGet(IHostObject* object)
{
    CControlsCollection controls;
    const Vb6Block* block = BlockOf(object);
    if (!block)
        return controls;
    for (const auto& child : block->Children())
        if (!IsFilteredControlType(child->ShortType()))
            controls.Add(Object(child.get()));
    return controls;
}

bool CW_IDEVB6FormProcessor::FormHasMenus(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    if (!block)
        return false;
    for (const Vb6Block* descendant : block->Descendants())
        if (descendant->IsMenu())
            return true;
    return false;
}

std::string CW_IDEVB6FormProcessor::ControlSeedTextGet(IHostObject* form, IHostObject* control)
{
    if (auto* button = dynamic_cast<ButtonObject*>(control)) {
        std::string text = button->group->Text("Description");
        return text.empty() ? button->group->Text("Object.ToolTipText") : text;
    }
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    std::string text = block->Text("Description");
    return text.empty() ? block->Text("ToolTipText") : text;
}

// --- tab controls ---

int CW_IDEVB6FormProcessor::ActivePage(const Vb6Block* tabControl) const
{
    auto active = m_activePages.find(tabControl);
    return active != m_activePages.end() ? active->second : ToInt(tabControl->Number("Tab", 0));
}

int CW_IDEVB6FormProcessor::PageOf(const Vb6Block* tabControl, const Vb6Block* control) const
{
    int pages = ToInt(tabControl->Number("Tabs", 3));
    for (int page = 0; page < pages; ++page)
        for (const std::string& name : tabControl->TabPageControlNames(page))
            if (EqualsNoCase(name, control->IndexedName()))
                return page;
    return -1;
}

void CW_IDEVB6FormProcessor::MovePageControls(const Vb6Block* tabControl, int page)
{
    int designPage = ToInt(tabControl->Number("Tab", 0));
    for (const auto& child : tabControl->Children()) {
        int childPage = PageOf(tabControl, child.get());
        if (childPage < 0)
            continue;
        // In the file the design-time page stands where it is and the others
        // 75000 twips to the left; shown, a page stands where it is.
        double fromFile = childPage == designPage ? 0 : kHiddenTabOffset;
        double toShown = childPage == page ? 0 : -kHiddenTabOffset;
        m_leftShift[child.get()] = fromFile + toShown;
    }
    m_activePages[tabControl] = page;
}

void CW_IDEVB6FormProcessor::SetFirstPageVisibleForTabControls(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    if (!block)
        return;
    for (const Vb6Block* descendant : block->Descendants()) {
        if (IsTabControlType(descendant->ShortType())) {
            MovePageControls(descendant, 0);
            myDoevents();
        }
    }
}

IHostObject* CW_IDEVB6FormProcessor::TabPageActivate(IHostObject* control, int page)
{
    const Vb6Block* block = BlockOf(control);
    if (!block || !IsTabControlType(block->ShortType()) || page < 0 || page >= TabControlPagesQtyGet(control))
        return nullptr;
    MovePageControls(block, page);
    myDoevents();
    return control;
}

std::string CW_IDEVB6FormProcessor::TabPageCaptionGet(IHostObject* control, int page, bool activate)
{
    if (activate)
        TabPageActivate(control, page);
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    return RemoveAll(block->Text("TabCaption(" + std::to_string(page) + ")"), "&");
}

std::string CW_IDEVB6FormProcessor::TabControlCaptionGet(IHostObject* control)
{
    return RemoveAll(ControlNameGet(control), "&");
}

int CW_IDEVB6FormProcessor::TabControlPagesQtyGet(IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    return block ? ToInt(block->Number("Tabs", 3)) : 0;
}

CControlsCollection CW_IDEVB6FormProcessor::TabPageControlsCollectionGet(IHostObject* control, int page)
{
    return ControlsCollectionGet(control);
}

// --- measures ---

int CW_IDEVB6FormProcessor::BorderStyle(IHostObject* form)
{
    const Vb6Block* block = BlockOf(form);
    if (!block)
        return 0;
    // A form is sizable unless it says otherwise; controls and documents have no frame.
    bool framed = m_file.Kind() == Vb6FormKind::Form || m_file.Kind() == Vb6FormKind::MDIForm;
    int fallback = framed ? 2 : 0;
    if (m_file.Kind() == Vb6FormKind::MDIForm)
        return 2;
    return ToInt(block->Number("BorderStyle", fallback));
}

int CW_IDEVB6FormProcessor::MenuBarHeight() const
{
    for (const Vb6Block* descendant : FormBlock()->Descendants())
        if (descendant->IsMenu())
            return m_metrics.HeightMenus;
    return 0;
}

void CW_IDEVB6FormProcessor::GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height)
{
    const Vb6Block* block = BlockOf(form);
    if (!block) {
        width = height = 0;
        return;
    }
    int style = BorderStyle(form);
    int frame = m_metrics.FrameWidth(style);
    double clientWidth = block->Number("ClientWidth", block->Number("ScaleWidth", block->Number("Width", 0)));
    double clientHeight = block->Number("ClientHeight", block->Number("ScaleHeight", block->Number("Height", 0)));
    width = Pixels(clientWidth / kTwipsPerPixel) + 2 * frame;
    height = Pixels(clientHeight / kTwipsPerPixel) + m_metrics.GetFormNCM(style) + MenuBarHeight() + 2 * frame;
}

int CW_IDEVB6FormProcessor::FormClientAreaOffsetX(IHostObject* form)
{
    int style = BorderStyle(form);
    return style >= 1 ? m_metrics.borderWidth * 4 : 0;
}

int CW_IDEVB6FormProcessor::FormClientAreaOffsetY(IHostObject* form)
{
    int style = BorderStyle(form);
    int offset = m_metrics.GetFormNCM(style);
    if (style > 0)
        offset += m_metrics.borderWidth * 4;
    if (FormHasMenus(form))
        offset += m_metrics.HeightMenus;
    return offset;
}

void CW_IDEVB6FormProcessor::GetControlIndexes(IHostObject* control, int& tabIndex, int& index)
{
    const Vb6Block* block = BlockOf(control);
    tabIndex = block ? ToInt(block->Number("TabIndex", 0)) : 0;
    index = block ? block->Index().value_or(0) : 0;
}

double CW_IDEVB6FormProcessor::ScaleFactorX() const
{
    switch (ToInt(FormBlock()->Number("ScaleMode", 1))) {
    case 0:
    case 1:
        return 1;
    case 2:
        return 20;
    case 3:
        return kTwipsPerPixel;
    case 4:
        return 120;
    case 5:
        return 1440;
    case 6:
        return 56.69;
    case 7:
        return 566.9;
    default:
        return 0;
    }
}

double CW_IDEVB6FormProcessor::ScaleFactorY() const
{
    int mode = ToInt(FormBlock()->Number("ScaleMode", 1));
    return mode == 4 ? 240 : ScaleFactorX();
}

bool CW_IDEVB6FormProcessor::ContainerIsForm(const Vb6Block* block) const
{
    return block->Parent() == FormBlock();
}

IClientFormProcessor::Rect CW_IDEVB6FormProcessor::GetControlRectangleInTwips(IHostObject* form, IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    double left = Number(block, "Left", 0);
    double top = Number(block, "Top", 0);
    double width = Number(block, "Width", 0);
    double height = Number(block, "Height", 0);
    // A bar aligned to the form's edge spans its width when the file leaves it out.
    if (!block->HasProperty("Width") && ContainerIsForm(block) && block->Number("Align", 0) > 0)
        width = FormBlock()->Number("ClientWidth", 0) / ScaleFactorX();
    double factorX = ContainerIsForm(block) ? ScaleFactorX() : 1;
    double factorY = ContainerIsForm(block) ? ScaleFactorY() : 1;
    return { Pixels(left * factorX / kTwipsPerPixel), Pixels(top * factorY / kTwipsPerPixel),
        Pixels(width * factorX / kTwipsPerPixel), Pixels(height * factorY / kTwipsPerPixel) };
}

IClientFormProcessor::Rect CW_IDEVB6FormProcessor::GetTabPageTabRectangleInTwips(int page, IHostObject* form,
    IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    Rect rect = GetControlRectangleInTwips(form, control);
    int pages = ToInt(block->Number("Tabs", 3));
    int perRow = ToInt(block->Number("TabsPerRow", 3));
    double tabHeightTwips = Number(block, "TabHeight", 353);
    int column = perRow < 1 ? page : page % perRow;
    int row = perRow < 1 ? 0 : (pages - 1) / perRow - page / perRow;
    double tabWidth = perRow < 1 ? rect.width : static_cast<double>(rect.width) / perRow;
    double factorY = ContainerIsForm(block) ? ScaleFactorY() : 1;
    double tabHeight = tabHeightTwips * factorY / kTwipsPerPixel;
    return { Pixels(tabWidth * column + rect.left), Pixels(tabHeight * row + rect.top),
        Pixels(tabWidth), Pixels(tabHeight) };
}

// --- help context ids ---

void CW_IDEVB6FormProcessor::SetComponentHelpContextId(IHostObject* form, bool a, int id)
{
    m_file.SetFormProperty("HelpContextID", std::to_string(id));
}

int CW_IDEVB6FormProcessor::GetComponentHelpContextId(IHostObject* form, bool a)
{
    const Vb6Block* block = BlockOf(form);
    return block ? ToInt(block->Number("HelpContextID", 0)) : 0;
}

int CW_IDEVB6FormProcessor::GetControlHelpContextId(IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    return block ? ToInt(block->Number("HelpContextID", 0)) : 0;
}

// --- menus ---

std::string CW_IDEVB6FormProcessor::FormMenusXML(IHostObject* form)
{
    std::string out = "<Menu>" + kCrLfText;
    const Vb6Block* block = BlockOf(form);
    if (block) {
        for (const Vb6Block* menu : block->Descendants()) {
            if (!menu->IsMenu())
                continue;
            std::string caption = menu->Text("Caption");
            if (caption == "-" || Trim(caption).empty())
                continue;
            out += "<MenuEntry Name = \"" + XmlEncodeChars(menu->IndexedName()) + "\" Caption = \""
                + XmlEncodeChars(caption) + "\" />" + kCrLfText;
        }
    }
    return out + "</Menu>";
}

// --- toolbars ---

int CW_IDEVB6FormProcessor::ToolbarButtonsQtyGet(IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    const Vb6PropertyGroup* buttons = block ? block->FindGroup("Buttons") : nullptr;
    return buttons ? ToInt(buttons->Number("NumButtons", 0)) : 0;
}

IHostObject* CW_IDEVB6FormProcessor::ToolbarButton(IHostObject* control, int button)
{
    const Vb6Block* block = BlockOf(control);
    const Vb6PropertyGroup* buttons = block ? block->FindGroup("Buttons") : nullptr;
    const Vb6PropertyGroup* group = buttons ? buttons->FindGroup("Button" + std::to_string(button)) : nullptr;
    if (!group)
        return nullptr;
    for (const auto& existing : m_buttons)
        if (existing->group == group)
            return existing.get();
    m_buttons.push_back(std::make_unique<ButtonObject>(block, group, button));
    return m_buttons.back().get();
}

CControlsCollection CW_IDEVB6FormProcessor::ToolbarButtonsCollectionGet(IHostObject* control)
{
    CControlsCollection buttons;
    for (int i = 1; i <= ToolbarButtonsQtyGet(control); ++i)
        if (IHostObject* button = ToolbarButton(control, i))
            buttons.Add(button);
    return buttons;
}

IClientFormProcessor::Rect CW_IDEVB6FormProcessor::GetToolbarButtonRectangleInTwips(int button, IHostObject* form,
    IHostObject* control)
{
    const Vb6Block* block = BlockOf(control);
    if (!block)
        return {};
    Rect bar = GetControlRectangleInTwips(form, control);
    // The file keeps the button size in HIMETRIC, as it keeps _ExtentX; the
    // IDE hands it out in twips. 609 x 582 is the size of a new toolbar.
    double width = HimetricToTwips(block->Number("ButtonWidth", 609)) / kTwipsPerPixel;
    double factorY = ContainerIsForm(block) ? ScaleFactorY() : 1;
    double height = HimetricToTwips(block->Number("ButtonHeight", 582)) * factorY / kTwipsPerPixel;
    return { Pixels(bar.left + (button - 1) * width), bar.top, Pixels(width), Pixels(height) };
}

}  // namespace scriv
