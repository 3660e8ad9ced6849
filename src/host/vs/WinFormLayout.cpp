#include "host/vs/WinFormLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "foundation/StringUtil.h"
#include "host/CNonClientMetrics.h"

namespace scriv {

namespace {

struct DefaultSize {
    const char* type;
    int width;
    int height;
};

// The sizes Windows Forms gives a control the designer did not size.
constexpr DefaultSize kDefaultSizes[] = {
    { "Button", 75, 23 }, { "TextBox", 100, 20 }, { "MaskedTextBox", 100, 20 }, { "Label", 100, 23 },
    { "LinkLabel", 100, 23 }, { "CheckBox", 104, 24 }, { "RadioButton", 104, 24 }, { "GroupBox", 200, 100 },
    { "Panel", 200, 100 }, { "FlowLayoutPanel", 200, 100 }, { "TableLayoutPanel", 200, 100 }, { "ComboBox", 121, 21 },
    { "ListBox", 120, 95 }, { "CheckedListBox", 120, 94 }, { "ListView", 121, 97 }, { "TreeView", 121, 97 },
    { "DataGridView", 240, 150 }, { "DataGrid", 130, 80 }, { "TabControl", 200, 100 }, { "PictureBox", 100, 50 },
    { "ProgressBar", 100, 23 }, { "NumericUpDown", 120, 20 }, { "DateTimePicker", 200, 20 }, { "RichTextBox", 100, 96 },
    { "TrackBar", 104, 45 }, { "SplitContainer", 150, 100 }, { "MonthCalendar", 227, 162 }, { "MenuStrip", 0, 24 },
    { "ToolStrip", 0, 25 }, { "StatusStrip", 0, 22 }, { "ToolBar", 0, 28 }, { "StatusBar", 0, 22 },
    { "HScrollBar", 80, 17 }, { "VScrollBar", 17, 80 }, { "DomainUpDown", 120, 20 },
};

int Round(double value)
{
    return static_cast<int>(std::lround(value));
}

const DesignValue* PairProperty(const DesignComponent& component, std::string_view name)
{
    const DesignValue* value = component.Property(name);
    return value && value->kind == DesignValue::Kind::Pair ? value : nullptr;
}

// A Padding property: left, top, right, bottom.
std::array<int, 4> PaddingOf(const DesignComponent& component)
{
    const DesignValue* value = component.Property("Padding");
    if (!value || value->kind != DesignValue::Kind::New)
        return { 0, 0, 0, 0 };
    std::vector<int> numbers;
    for (const DesignValue& item : value->items)
        if (item.kind == DesignValue::Kind::Number)
            numbers.push_back(Round(item.number));
    if (numbers.size() == 1)
        return { numbers[0], numbers[0], numbers[0], numbers[0] };
    if (numbers.size() == 4)
        return { numbers[0], numbers[1], numbers[2], numbers[3] };
    return { 0, 0, 0, 0 };
}

LayoutRect Shrunk(LayoutRect rect, const std::array<int, 4>& padding)
{
    return { rect.left + padding[0], rect.top + padding[1], std::max(0, rect.width - padding[0] - padding[2]),
        std::max(0, rect.height - padding[1] - padding[3]) };
}

int FormBorderStyleNumber(const std::string& style)
{
    if (style == "None")
        return 0;
    if (style == "FixedSingle" || style == "Fixed3D")
        return 1;
    if (style == "FixedDialog")
        return 3;
    if (style == "FixedToolWindow")
        return 4;
    if (style == "SizableToolWindow")
        return 5;
    return 2;
}

bool IsStripItemSeparator(const DesignComponent& item)
{
    return item.type == "ToolStripSeparator" || (item.type == "ToolBarButton" && item.EnumValue("Style") == "Separator");
}

std::string ItemText(const DesignComponent& item)
{
    return RemoveAll(item.Text("Text"), "&");
}

}  // namespace

int EstimateTextWidth(std::string_view text, double points)
{
    double width = 0;
    bool mark = false;
    for (char c : text) {
        if (c == '&' && !mark) {
            mark = true;
            continue;
        }
        mark = false;
        if (static_cast<unsigned char>(c) >= 0x80 && (static_cast<unsigned char>(c) & 0xC0) == 0x80)
            continue;
        if (std::strchr("ilj.,;:'|!", c))
            width += 2.5;
        else if (std::strchr("frt()[] I", c))
            width += 3.5;
        else if (c == 'M' || c == 'W')
            width += 9;
        else if (c == 'm' || c == 'w')
            width += 8;
        else if (c >= 'A' && c <= 'Z')
            width += 7;
        else
            width += 6;
    }
    return Round(width * points / 8.25);
}

double FontPointsOf(const DesignComponent& component)
{
    for (const DesignComponent* at = &component; at; at = at->parent ? at->parent : at->owner) {
        const DesignValue* font = at->Property("Font");
        if (font && font->kind == DesignValue::Kind::Font && font->number > 0)
            return font->number;
    }
    return 8.25;
}

WinFormLayout::WinFormLayout(const WinFormDesign& design)
    : m_design(design)
{
    const DesignComponent& form = design.Form();
    if (const DesignValue* menu = form.Property("Menu"); menu && menu->kind == DesignValue::Kind::Reference)
        m_mainMenu = design.Find(menu->text);
    m_borderStyle = IsUserControl() ? 0 : FormBorderStyleNumber(form.EnumValue("FormBorderStyle"));
    CNonClientMetrics metrics;
    metrics.SearchMetrics();
    if (const DesignValue* client = PairProperty(form, "ClientSize")) {
        m_clientWidth = Round(client->a);
        m_clientHeight = Round(client->b);
    } else if (const DesignValue* size = PairProperty(form, "Size")) {
        int frame = metrics.FrameWidth(m_borderStyle);
        m_clientWidth = Round(size->a) - 2 * frame;
        m_clientHeight = Round(size->b) - 2 * frame - metrics.GetFormNCM(m_borderStyle) - (m_mainMenu ? metrics.HeightMenus : 0);
    } else {
        // A new form is 300 x 300 with its frame; a user control 150 x 150.
        m_clientWidth = IsUserControl() ? 150 : 284;
        m_clientHeight = IsUserControl() ? 150 : 261;
    }
    m_clientWidth = std::max(m_clientWidth, 0);
    m_clientHeight = std::max(m_clientHeight, 0);
    LayOut(form, Shrunk({ 0, 0, m_clientWidth, m_clientHeight }, PaddingOf(form)));
}

bool WinFormLayout::IsUserControl() const
{
    return m_design.Form().type == "UserControl";
}

std::string WinFormLayout::DockOf(const DesignComponent& control)
{
    std::string dock = control.EnumValue("Dock");
    if (!dock.empty())
        return dock == "None" ? std::string() : dock;
    if (control.type == "MenuStrip" || control.type == "ToolStrip" || control.type == "ToolBar")
        return "Top";
    if (control.type == "StatusStrip" || control.type == "StatusBar")
        return "Bottom";
    return {};
}

int WinFormLayout::BorderInset(const DesignComponent& container)
{
    std::string border = container.EnumValue("BorderStyle");
    if (border == "FixedSingle")
        return 1;
    if (border == "Fixed3D")
        return 2;
    return 0;
}

LayoutRect WinFormLayout::Given(const DesignComponent& control) const
{
    LayoutRect rect;
    for (const DefaultSize& size : kDefaultSizes) {
        if (control.type == size.type) {
            rect.width = size.width;
            rect.height = size.height;
        }
    }
    if (const DesignValue* location = PairProperty(control, "Location")) {
        rect.left = Round(location->a);
        rect.top = Round(location->b);
    }
    if (const DesignValue* size = PairProperty(control, "Size")) {
        rect.width = Round(size->a);
        rect.height = Round(size->b);
    } else if (rect.width == 0 && rect.height == 0) {
        rect.width = 100;
        rect.height = 23;
    }
    return rect;
}

void WinFormLayout::LayOut(const DesignComponent& container, LayoutRect display)
{
    // The form's children stand in its client area; a container's inside its border.
    int inset = &container == &m_design.Form() ? 0 : BorderInset(container);
    if (&container != &m_design.Form()) {
        LayoutRect outer = m_bounds[&container];
        display = Shrunk({ 0, 0, outer.width, outer.height }, { inset, inset, inset, inset });
        if (container.type == "GroupBox") {
            // The frame and its caption stand around the children's room.
            int caption = Round(FontPointsOf(container) * 96.0 / 72.0) + 5;
            display = { 3, caption, std::max(0, outer.width - 6), std::max(0, outer.height - caption - 3) };
        }
        display = Shrunk(display, PaddingOf(container));
    }
    LayoutRect remaining = display;
    // Windows Forms docks from the back of the z-order (the last added) to the front.
    for (auto it = container.controls.rbegin(); it != container.controls.rend(); ++it) {
        const DesignComponent& child = **it;
        LayoutRect rect = Given(child);
        std::string dock = DockOf(child);
        if (container.type == "SplitContainer" && child.type == "SplitterPanel") {
            LayoutRect outer = m_bounds[&container];
            int distance = Round(container.Number("SplitterDistance", 50));
            int splitter = Round(container.Number("SplitterWidth", 4));
            bool horizontal = container.EnumValue("Orientation") == "Horizontal";
            bool first = EndsWithNoCase(child.name, "_Panel1");
            int length = horizontal ? outer.height - 2 * inset : outer.width - 2 * inset;
            int start = first ? 0 : distance + splitter;
            int extent = first ? distance : std::max(0, length - distance - splitter);
            rect = horizontal ? LayoutRect { inset, inset + start, outer.width - 2 * inset, extent }
                              : LayoutRect { inset + start, inset, extent, outer.height - 2 * inset };
        } else if (dock == "Top") {
            rect = { remaining.left, remaining.top, remaining.width, rect.height };
            remaining.top += rect.height;
            remaining.height = std::max(0, remaining.height - rect.height);
        } else if (dock == "Bottom") {
            rect = { remaining.left, remaining.top + remaining.height - rect.height, remaining.width, rect.height };
            remaining.height = std::max(0, remaining.height - rect.height);
        } else if (dock == "Left") {
            rect = { remaining.left, remaining.top, rect.width, remaining.height };
            remaining.left += rect.width;
            remaining.width = std::max(0, remaining.width - rect.width);
        } else if (dock == "Right") {
            rect = { remaining.left + remaining.width - rect.width, remaining.top, rect.width, remaining.height };
            remaining.width = std::max(0, remaining.width - rect.width);
        } else if (dock == "Fill") {
            rect = remaining;
        } else if (container.type == "TabControl" && child.type == "TabPage" && !PairProperty(child, "Location")) {
            LayoutRect outer = m_bounds[&container];
            rect = { 4, 22, std::max(0, outer.width - 8), std::max(0, outer.height - 26) };
        } else {
            rect.left += inset;
            rect.top += inset;
        }
        m_bounds[&child] = rect;
    }
    for (const DesignComponent* child : container.controls)
        if (!child->controls.empty())
            LayOut(*child, {});
}

LayoutRect WinFormLayout::Bounds(const DesignComponent& control) const
{
    auto found = m_bounds.find(&control);
    return found != m_bounds.end() ? found->second : LayoutRect {};
}

// --- tab controls ---

bool WinFormLayout::IsTabControl(const DesignComponent& control)
{
    return control.type == "TabControl";
}

std::vector<const DesignComponent*> WinFormLayout::TabPages(const DesignComponent& tabControl)
{
    std::vector<const DesignComponent*> pages;
    for (const DesignComponent* child : tabControl.controls)
        if (child->type == "TabPage")
            pages.push_back(child);
    return pages;
}

LayoutRect WinFormLayout::TabRect(const DesignComponent& tabControl, int page) const
{
    std::vector<const DesignComponent*> pages = TabPages(tabControl);
    if (page < 0 || page >= static_cast<int>(pages.size()))
        return {};
    double points = FontPointsOf(tabControl);
    int height = Round(points * 96.0 / 72.0 * 1.15) + 5;
    int left = 2;
    for (int i = 0; i < page; ++i)
        left += std::max(EstimateTextWidth(pages[static_cast<std::size_t>(i)]->Text("Text"), points) + 12, 20);
    int width = std::max(EstimateTextWidth(pages[static_cast<std::size_t>(page)]->Text("Text"), points) + 12, 20);
    return { left, 2, width, height };
}

// --- strips ---

bool WinFormLayout::IsStrip(const DesignComponent& control)
{
    return control.type == "MenuStrip" || control.type == "ToolStrip" || control.type == "StatusStrip"
        || control.type == "ToolBar" || control.type == "BindingNavigator";
}

bool WinFormLayout::ShowsGrip(const DesignComponent& strip)
{
    if (strip.type != "ToolStrip" && strip.type != "BindingNavigator")
        return false;
    return strip.EnumValue("GripStyle") != "Hidden";
}

std::vector<LayoutRect> WinFormLayout::ItemRects(const DesignComponent& strip) const
{
    std::vector<LayoutRect> rects;
    LayoutRect bounds = Bounds(strip);
    double points = FontPointsOf(strip);
    bool menu = strip.type == "MenuStrip";
    bool status = strip.type == "StatusStrip";
    int x = menu ? 6 : status ? 1 : ShowsGrip(strip) ? 11 : 3;
    for (const DesignComponent* item : strip.items) {
        LayoutRect rect;
        if (const DesignValue* size = PairProperty(*item, "Size")) {
            rect.width = Round(size->a);
            rect.height = Round(size->b);
        } else if (IsStripItemSeparator(*item)) {
            rect.width = 6;
            rect.height = std::max(0, bounds.height - 4);
        } else if (strip.type == "ToolBar") {
            const DesignValue* buttonSize = PairProperty(strip, "ButtonSize");
            rect.width = buttonSize ? Round(buttonSize->a) : 23;
            rect.height = buttonSize ? Round(buttonSize->b) : 22;
        } else if (item->type == "ToolStripComboBox") {
            rect = { 0, 0, 121, 25 };
        } else if (item->type == "ToolStripTextBox") {
            rect = { 0, 0, 100, 25 };
        } else {
            std::string style = item->EnumValue("DisplayStyle");
            int text = EstimateTextWidth(ItemText(*item), points);
            bool image = item->type == "ToolStripButton" || item->type == "ToolStripDropDownButton"
                || item->type == "ToolStripSplitButton";
            if (menu || status || item->type == "ToolStripLabel" || style == "Text")
                rect.width = text + (menu ? 12 : 8);
            else if (style == "ImageAndText")
                rect.width = text + 27;
            else
                rect.width = image ? (item->type == "ToolStripButton" ? 23 : 32) : text + 8;
            rect.height = menu ? 20 : status ? 17 : 22;
        }
        rect.left = x;
        rect.top = std::max(0, (bounds.height - rect.height) / 2);
        if (menu)
            rect.top = 2;
        x += rect.width;
        rects.push_back(rect);
    }
    return rects;
}

}  // namespace scriv
