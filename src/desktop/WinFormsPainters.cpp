#include "desktop/WinFormsPainters.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <functional>
#include <map>

#include "desktop/PainterParts.h"
#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"
#include "host/vs/WinFormDesign.h"
#include "host/vs/WinFormLayout.h"

namespace scriv::winforms {

using namespace syscolour;

namespace {

Rgb Sys(int index)
{
    return SystemColour(index);
}

struct SystemColourName {
    const char* name;
    int index;
};

constexpr SystemColourName kSystemColours[] = {
    { "Control", kButtonFace }, { "ButtonFace", kButtonFace }, { "ControlText", kButtonText },
    { "Window", kWindow }, { "WindowText", kWindowText }, { "Highlight", kHighlight },
    { "HighlightText", kHighlightText }, { "ControlDark", kButtonShadow }, { "ButtonShadow", kButtonShadow },
    { "ControlLight", kLight }, { "ControlLightLight", kButtonHighlight }, { "ButtonHighlight", kButtonHighlight },
    { "ControlDarkDark", kDarkShadow }, { "GrayText", kGrayText }, { "Info", kInfoBackground },
    { "InfoText", kInfoText }, { "AppWorkspace", kAppWorkspace }, { "ActiveCaption", kActiveCaption },
    { "ActiveCaptionText", kCaptionText }, { "InactiveCaption", kInactiveCaption }, { "Menu", kMenu },
    { "MenuText", kMenuText }, { "Desktop", kDesktop }, { "WindowFrame", kWindowFrame }, { "HotTrack", kHotLight },
    { "ScrollBar", kScrollBar }, { "ActiveBorder", kActiveBorder },
};

std::string TextOf(const DesignComponent& component)
{
    return component.Text("Text");
}

Rgb Fore(const ControlView& view, int systemColour = kButtonText)
{
    if (!view.enabled)
        return Sys(kGrayText);
    return ColourOf(view.component->Property("ForeColor"), Sys(systemColour));
}

Rgb Back(const ControlView& view)
{
    return BackOf(*view.component, view.parentBack);
}

HAlign HAlignOf(const std::string& alignment, HAlign fallback)
{
    if (alignment.find("Center") != std::string::npos)
        return HAlign::Center;
    if (alignment.find("Right") != std::string::npos)
        return HAlign::Right;
    if (alignment.find("Left") != std::string::npos)
        return HAlign::Left;
    return fallback;
}

VAlign VAlignOf(const std::string& alignment, VAlign fallback)
{
    if (alignment.rfind("Top", 0) == 0)
        return VAlign::Top;
    if (alignment.rfind("Middle", 0) == 0)
        return VAlign::Middle;
    if (alignment.rfind("Bottom", 0) == 0)
        return VAlign::Bottom;
    return fallback;
}

// The border of a box control: a 3D sunken edge, a dark line, or none. Answers the area inside it.
PixelRect Border(ClassicPainter& painter, const ControlView& view, const std::string& fallback = "Fixed3D")
{
    std::string style = view.component->EnumValue("BorderStyle");
    if (style.empty())
        style = fallback;
    if (style == "Fixed3D") {
        painter.DrawEdge(view.rect, Edge::Sunken);
        return view.rect.Inset(2);
    }
    if (style == "FixedSingle") {
        painter.Frame(view.rect, Sys(kWindowFrame));
        return view.rect.Inset(1);
    }
    return view.rect;
}

void FillCircle(ClassicPainter& painter, double cx, double cy, double radius, Rgb colour)
{
    cairo_t* cr = painter.Context();
    cairo_save(cr);
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
    cairo_arc(cr, cx, cy, radius, 0, 2 * M_PI);
    cairo_fill(cr);
    cairo_restore(cr);
}

void ArcLine(ClassicPainter& painter, double cx, double cy, double radius, double from, double to, Rgb colour)
{
    cairo_t* cr = painter.Context();
    cairo_save(cr);
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
    cairo_set_line_width(cr, 1);
    cairo_arc(cr, cx, cy, radius, from, to);
    cairo_stroke(cr);
    cairo_restore(cr);
}

bool IsChecked(const DesignComponent& component)
{
    std::string state = component.EnumValue("CheckState");
    return component.Boolean("Checked", false) || state == "Checked" || state == "Indeterminate";
}

// --- painters ---

void PaintButton(ClassicPainter& painter, const ControlView& view)
{
    PixelRect face = view.rect;
    painter.Fill(face, Back(view));
    if (view.isDefault) {
        painter.Frame(face, Sys(kDarkShadow));
        face = face.Inset(1);
    }
    std::string flat = view.component->EnumValue("FlatStyle");
    if (flat == "Flat")
        painter.Frame(face, Sys(kDarkShadow));
    else
        painter.DrawEdge(face, Edge::Button);
    TextStyle style;
    std::string align = view.component->EnumValue("TextAlign");
    style.hAlign = HAlignOf(align, HAlign::Center);
    style.vAlign = VAlignOf(align, VAlign::Middle);
    style.wrap = true;
    style.disabled = !view.enabled;
    PixelRect text = face.Inset(4);
    painter.PushClip(face.Inset(2));
    painter.DrawText(text, TextOf(*view.component), view.font, Fore(view), style);
    painter.PopClip();
}

void PaintLabel(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& label = *view.component;
    if (label.Property("BackColor"))
        painter.Fill(view.rect, Back(view));
    PixelRect inner = Border(painter, view, "None");
    TextStyle style;
    std::string align = label.EnumValue("TextAlign");
    style.hAlign = HAlignOf(align, HAlign::Left);
    style.vAlign = VAlignOf(align, VAlign::Top);
    style.wrap = !label.Boolean("AutoSize", false);
    style.disabled = !view.enabled;
    bool link = label.type == "LinkLabel";
    Rgb colour = link ? Rgb { 0, 0, 255 } : Fore(view, kButtonText);
    FontSpec font = view.font;
    font.underline = font.underline || link;
    painter.PushClip(inner);
    painter.DrawText(inner, TextOf(label), font, colour, style);
    painter.PopClip();
}

void PaintTextBox(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& box = *view.component;
    bool readOnly = box.Boolean("ReadOnly", false);
    Rgb back = ColourOf(box.Property("BackColor"), readOnly || !view.enabled ? Sys(kButtonFace) : Sys(kWindow));
    painter.Fill(view.rect, back);
    PixelRect inner = Border(painter, view);
    bool multiline = box.Boolean("Multiline", false) || box.type == "RichTextBox";
    std::string bars = box.EnumValue("ScrollBars");
    if (multiline && (bars == "Vertical" || bars == "Both" || box.type == "RichTextBox")) {
        int bar = paint::ScrollBarSize();
        paint::PaintScrollBar(painter, { inner.Right() - bar, inner.top, bar, inner.height }, true, view.enabled, 0, 1, 0);
        inner.width -= bar;
    }
    std::string text = TextOf(box);
    std::string mask = box.Text("PasswordChar");
    if (!mask.empty())
        text = std::string(CharCount(text), mask[0]);
    TextStyle style;
    style.mnemonic = false;
    style.wrap = multiline;
    style.vAlign = multiline ? VAlign::Top : VAlign::Middle;
    style.hAlign = HAlignOf(box.EnumValue("TextAlign"), HAlign::Left);
    style.disabled = !view.enabled;
    PixelRect area { inner.left + 1, inner.top + (multiline ? 1 : 0), inner.width - 2, inner.height - (multiline ? 1 : 0) };
    painter.PushClip(inner);
    painter.DrawText(area, text, view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintCheckGlyph(ClassicPainter& painter, const PixelRect& box, bool checked, bool enabled)
{
    painter.Fill(box, enabled ? Sys(kWindow) : Sys(kButtonFace));
    painter.DrawEdge(box, Edge::Sunken);
    if (checked)
        painter.CheckMark(box.left + 3, box.top + 3, enabled ? Sys(kWindowText) : Sys(kGrayText));
}

void PaintOptionGlyph(ClassicPainter& painter, const PixelRect& box, bool checked, bool enabled)
{
    double cx = box.left + box.width / 2.0;
    double cy = box.top + box.height / 2.0;
    FillCircle(painter, cx, cy, 5.5, enabled ? Sys(kWindow) : Sys(kButtonFace));
    ArcLine(painter, cx, cy, 5.5, M_PI * 0.75, M_PI * 1.75, Sys(kButtonShadow));
    ArcLine(painter, cx, cy, 4.5, M_PI * 0.75, M_PI * 1.75, Sys(kDarkShadow));
    ArcLine(painter, cx, cy, 5.5, -M_PI * 0.25, M_PI * 0.75, Sys(kButtonHighlight));
    ArcLine(painter, cx, cy, 4.5, -M_PI * 0.25, M_PI * 0.75, Sys(kLight));
    if (checked)
        FillCircle(painter, cx, cy, 2, enabled ? Sys(kWindowText) : Sys(kGrayText));
}

void PaintCheckOrOption(ClassicPainter& painter, const ControlView& view, bool option)
{
    const DesignComponent& control = *view.component;
    if (control.Property("BackColor"))
        painter.Fill(view.rect, Back(view));
    if (control.EnumValue("Appearance") == "Button") {
        painter.Fill(view.rect, Back(view));
        painter.DrawEdge(view.rect, IsChecked(control) ? Edge::ButtonPressed : Edge::Button);
        TextStyle style;
        style.hAlign = HAlign::Center;
        style.vAlign = VAlign::Middle;
        painter.DrawText(view.rect.Inset(3), TextOf(control), view.font, Fore(view), style);
        return;
    }
    int size = option ? paint::kOptionSize : paint::kCheckBoxSize;
    bool right = control.EnumValue("CheckAlign").find("Right") != std::string::npos;
    PixelRect glyph { right ? view.rect.Right() - size : view.rect.left, view.rect.top + (view.rect.height - size) / 2, size, size };
    if (option)
        PaintOptionGlyph(painter, glyph, IsChecked(control), view.enabled);
    else
        PaintCheckGlyph(painter, glyph, IsChecked(control), view.enabled);
    PixelRect text { right ? view.rect.left : glyph.Right() + 4, view.rect.top, view.rect.width - size - 4, view.rect.height };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.hAlign = HAlignOf(control.EnumValue("TextAlign"), HAlign::Left);
    style.disabled = !view.enabled;
    painter.PushClip(view.rect);
    painter.DrawText(text, TextOf(control), view.font, Fore(view), style);
    painter.PopClip();
}

void PaintGroupBox(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view));
    std::string caption = TextOf(*view.component);
    int lineHeight = paint::LineHeight(painter, view.font);
    PixelRect frame { view.rect.left, view.rect.top + lineHeight / 2, view.rect.width, view.rect.height - lineHeight / 2 };
    painter.DrawEdge(frame, Edge::Etched);
    if (caption.empty())
        return;
    PixelRect measured = painter.MeasureText(caption, view.font);
    PixelRect label { view.rect.left + 8, view.rect.top, std::min(measured.width + 2, view.rect.width - 10), lineHeight };
    painter.Fill(label, Back(view));
    TextStyle style;
    style.disabled = !view.enabled;
    painter.PushClip(label);
    painter.DrawText({ label.left + 1, label.top, label.width, label.height }, caption, view.font, Fore(view), style);
    painter.PopClip();
}

void PaintPanel(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view));
    Border(painter, view, "None");
}

void PaintComboBox(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& combo = *view.component;
    if (combo.EnumValue("DropDownStyle") == "Simple") {
        painter.Fill(view.rect, Sys(kWindow));
        painter.DrawEdge(view.rect, Edge::Sunken);
        return;
    }
    painter.Fill(view.rect, view.enabled ? ColourOf(combo.Property("BackColor"), Sys(kWindow)) : Sys(kButtonFace));
    painter.DrawEdge(view.rect, Edge::Sunken);
    PixelRect inner = view.rect.Inset(2);
    int button = paint::ScrollBarSize();
    painter.ArrowButton({ inner.Right() - button, inner.top, button, inner.height }, ArrowDirection::Down, view.enabled);
    std::string text = TextOf(combo);
    if (text.empty() && !combo.listItems.empty() && combo.Number("SelectedIndex", -1) >= 0)
        text = combo.listItems.front();
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    style.disabled = !view.enabled;
    PixelRect area { inner.left + 2, inner.top, inner.width - button - 3, inner.height };
    painter.PushClip(area);
    painter.DrawText(area, text, view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintListBox(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& list = *view.component;
    painter.Fill(view.rect, ColourOf(list.Property("BackColor"), Sys(kWindow)));
    PixelRect inner = Border(painter, view);
    int lineHeight = std::max(paint::LineHeight(painter, view.font), 13);
    bool checks = list.type == "CheckedListBox";
    int rows = static_cast<int>(list.listItems.size());
    if (rows * lineHeight > inner.height) {
        int bar = paint::ScrollBarSize();
        paint::PaintScrollBar(painter, { inner.Right() - bar, inner.top, bar, inner.height }, true, view.enabled, 0,
            std::max(1, rows - inner.height / lineHeight), 0);
        inner.width -= bar;
    }
    painter.PushClip(inner);
    int y = inner.top;
    for (const std::string& item : list.listItems) {
        int x = inner.left + 2;
        if (checks) {
            PaintCheckGlyph(painter, { x, y + (lineHeight - 13) / 2, 13, 13 }, false, view.enabled);
            x += 16;
        }
        TextStyle style;
        style.mnemonic = false;
        style.vAlign = VAlign::Middle;
        painter.DrawText({ x, y, inner.Right() - x, lineHeight }, item, view.font, Fore(view, kWindowText), style);
        y += lineHeight;
        if (y > inner.Bottom())
            break;
    }
    painter.PopClip();
}

void PaintHeaderCell(ClassicPainter& painter, const PixelRect& cell, const std::string& text, const FontSpec& font)
{
    painter.Fill(cell, Sys(kButtonFace));
    painter.DrawEdge(cell, Edge::RaisedThin);
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    style.ellipsis = true;
    painter.PushClip(cell);
    painter.DrawText({ cell.left + 5, cell.top, cell.width - 8, cell.height }, text, font, Sys(kButtonText), style);
    painter.PopClip();
}

void PaintListView(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& list = *view.component;
    painter.Fill(view.rect, ColourOf(list.Property("BackColor"), Sys(kWindow)));
    PixelRect inner = Border(painter, view);
    if (list.EnumValue("View") != "Details" || list.items.empty())
        return;
    int height = paint::LineHeight(painter, view.font) + 6;
    int x = inner.left;
    painter.PushClip(inner);
    for (const DesignComponent* column : list.items) {
        int width = static_cast<int>(column->Number("Width", 60));
        PaintHeaderCell(painter, { x, inner.top, width, height }, column->Text("Text"), view.font);
        x += width;
    }
    if (x < inner.Right())
        PaintHeaderCell(painter, { x, inner.top, inner.Right() - x, height }, "", view.font);
    painter.PopClip();
}

void PaintDataGridView(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& grid = *view.component;
    painter.Fill(view.rect, ColourOf(grid.Property("BackgroundColor"), Sys(kAppWorkspace)));
    PixelRect inner = Border(painter, view, "FixedSingle");
    int height = static_cast<int>(grid.Number("ColumnHeadersHeight", 23));
    int rowHeaderWidth = grid.Boolean("RowHeadersVisible", true) ? static_cast<int>(grid.Number("RowHeadersWidth", 41)) : 0;
    painter.PushClip(inner);
    int x = inner.left;
    if (rowHeaderWidth > 0) {
        PaintHeaderCell(painter, { x, inner.top, rowHeaderWidth, height }, "", view.font);
        x += rowHeaderWidth;
    }
    for (const DesignComponent* column : grid.items) {
        int width = static_cast<int>(column->Number("Width", 100));
        PaintHeaderCell(painter, { x, inner.top, width, height }, column->Text("HeaderText"), view.font);
        x += width;
    }
    // The row for a new record, marked with a star in its header.
    if (grid.Boolean("AllowUserToAddRows", true) && !grid.items.empty()) {
        int rowTop = inner.top + height;
        int rowHeight = 22;
        if (rowHeaderWidth > 0) {
            PaintHeaderCell(painter, { inner.left, rowTop, rowHeaderWidth, rowHeight }, "", view.font);
            TextStyle style;
            style.hAlign = HAlign::Center;
            style.vAlign = VAlign::Middle;
            painter.DrawText({ inner.left, rowTop, rowHeaderWidth, rowHeight }, "*", view.font, Sys(kButtonText), style);
        }
        int cellLeft = inner.left + rowHeaderWidth;
        painter.Fill({ cellLeft, rowTop, x - cellLeft, rowHeight }, Sys(kWindow));
        int cx = cellLeft;
        for (const DesignComponent* column : grid.items) {
            int width = static_cast<int>(column->Number("Width", 100));
            painter.VLine(cx + width - 1, rowTop, rowHeight, Sys(kButtonFace));
            cx += width;
        }
        painter.HLine(cellLeft, rowTop + rowHeight - 1, x - cellLeft, Sys(kButtonFace));
    }
    painter.PopClip();
}

void PaintTreeView(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, ColourOf(view.component->Property("BackColor"), Sys(kWindow)));
    Border(painter, view);
}

void PaintPictureBox(ClassicPainter& painter, const ControlView& view)
{
    if (view.component->Property("BackColor"))
        painter.Fill(view.rect, Back(view));
    Border(painter, view, "None");
}

void PaintProgressBar(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& bar = *view.component;
    painter.Fill(view.rect, Sys(kButtonFace));
    painter.DrawEdge(view.rect, Edge::SunkenThin);
    PixelRect inner = view.rect.Inset(2);
    double minimum = bar.Number("Minimum", 0);
    double maximum = bar.Number("Maximum", 100);
    double value = std::clamp(bar.Number("Value", 0), minimum, maximum);
    int filled = maximum > minimum ? static_cast<int>(inner.width * (value - minimum) / (maximum - minimum)) : 0;
    int block = std::max(2, inner.height * 2 / 3);
    for (int x = 0; x + block <= filled; x += block + 2)
        painter.Fill({ inner.left + x, inner.top, block, inner.height }, Sys(kHighlight));
}

void PaintUpDown(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& box = *view.component;
    painter.Fill(view.rect, view.enabled ? Sys(kWindow) : Sys(kButtonFace));
    painter.DrawEdge(view.rect, Edge::Sunken);
    PixelRect inner = view.rect.Inset(2);
    int button = 16;
    int half = inner.height / 2;
    painter.ArrowButton({ inner.Right() - button, inner.top, button, half }, ArrowDirection::Up, view.enabled);
    painter.ArrowButton({ inner.Right() - button, inner.top + half, button, inner.height - half }, ArrowDirection::Down, view.enabled);
    std::string text = box.type == "NumericUpDown" ? box.Property("Value") ? box.Property("Value")->text : std::string("0")
                                                   : TextOf(box);
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    style.hAlign = HAlignOf(box.EnumValue("TextAlign"), HAlign::Left);
    PixelRect area { inner.left + 2, inner.top, inner.width - button - 4, inner.height };
    painter.PushClip(area);
    painter.DrawText(area, text, view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintDateTimePicker(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, view.enabled ? Sys(kWindow) : Sys(kButtonFace));
    painter.DrawEdge(view.rect, Edge::Sunken);
    PixelRect inner = view.rect.Inset(2);
    int button = paint::ScrollBarSize();
    painter.ArrowButton({ inner.Right() - button, inner.top, button, inner.height }, ArrowDirection::Down, view.enabled);
}

void PaintTrackBar(ClassicPainter& painter, const ControlView& view)
{
    if (view.component->Property("BackColor"))
        painter.Fill(view.rect, Back(view));
    PixelRect channel { view.rect.left + 8, view.rect.top + 8, view.rect.width - 16, 4 };
    painter.DrawEdge(channel, Edge::Sunken);
    PixelRect thumb { view.rect.left + 4, view.rect.top + 2, 11, 20 };
    painter.Fill(thumb, Sys(kButtonFace));
    painter.DrawEdge(thumb, Edge::Button);
}

void PaintScrollBar(ClassicPainter& painter, const ControlView& view)
{
    bool vertical = view.component->type == "VScrollBar";
    paint::PaintScrollBar(painter, view.rect, vertical, view.enabled, view.component->Number("Minimum", 0),
        view.component->Number("Maximum", 100), view.component->Number("Value", 0));
}

// --- tab controls ---

void PaintTab(ClassicPainter& painter, const ControlView& view, PixelRect tab, const std::string& caption, bool selected,
    int pageTop, Rgb face)
{
    if (selected) {
        tab = { tab.left - 2, tab.top - 2, tab.width + 4, pageTop - tab.top + 2 };
    } else {
        tab.height = pageTop - tab.top;
    }
    if (tab.Empty())
        return;
    painter.Fill(tab, face);
    painter.HLine(tab.left + 2, tab.top, tab.width - 4, Sys(kButtonHighlight));
    painter.VLine(tab.left, tab.top + 2, tab.height - 2, Sys(kButtonHighlight));
    painter.Fill({ tab.left + 1, tab.top + 1, 1, 1 }, Sys(kButtonHighlight));
    painter.VLine(tab.Right() - 1, tab.top + 2, tab.height - 2, Sys(kDarkShadow));
    painter.VLine(tab.Right() - 2, tab.top + 1, tab.height - 1, Sys(kButtonShadow));
    if (selected)
        painter.Fill({ tab.left + 1, pageTop, tab.width - 3, 2 }, face);
    TextStyle style;
    style.hAlign = HAlign::Center;
    style.vAlign = VAlign::Middle;
    style.disabled = !view.enabled;
    PixelRect text { tab.left + 3, tab.top, tab.width - 6, tab.height };
    painter.PushClip(text);
    painter.DrawText(text, caption, view.font, Fore(view), style);
    painter.PopClip();
}

void PaintTabControl(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& tabs = *view.component;
    std::vector<const DesignComponent*> pages = WinFormLayout::TabPages(tabs);
    int tabBottom = view.rect.top + 2;
    for (const PixelRect& part : view.parts)
        tabBottom = std::max(tabBottom, part.Bottom());
    PixelRect page { view.rect.left, tabBottom, view.rect.width, view.rect.Bottom() - tabBottom };
    Rgb face = view.parentBack;
    painter.Fill(view.rect, face);
    painter.Fill(page, Sys(kButtonFace));
    painter.DrawEdge(page, Edge::Raised);
    for (std::size_t i = 0; i < view.parts.size() && i < pages.size(); ++i)
        if (static_cast<int>(i) != view.shownPage)
            PaintTab(painter, view, view.parts[i], pages[i]->Text("Text"), false, tabBottom, Sys(kButtonFace));
    if (view.shownPage >= 0 && view.shownPage < static_cast<int>(view.parts.size())
        && view.shownPage < static_cast<int>(pages.size())) {
        std::size_t shown = static_cast<std::size_t>(view.shownPage);
        PaintTab(painter, view, view.parts[shown], pages[shown]->Text("Text"), true, tabBottom, Sys(kButtonFace));
    }
}

void PaintTabPage(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view));
}

// --- strips ---

void PaintGrip(ClassicPainter& painter, const PixelRect& strip)
{
    for (int y = strip.top + 5; y + 2 < strip.Bottom() - 3; y += 4) {
        painter.Fill({ strip.left + 4, y + 1, 2, 2 }, Sys(kButtonHighlight));
        painter.Fill({ strip.left + 3, y, 2, 2 }, Sys(kButtonShadow));
    }
}

void PaintSizeGrip(ClassicPainter& painter, const PixelRect& strip)
{
    int right = strip.Right() - 2;
    int bottom = strip.Bottom() - 2;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j <= i; ++j) {
            painter.Fill({ right - 4 * j - 3, bottom - 4 * (i - j) - 3, 2, 2 }, Sys(kButtonHighlight));
            painter.Fill({ right - 4 * j - 4, bottom - 4 * (i - j) - 4, 2, 2 }, Sys(kButtonShadow));
        }
}

void PaintStrip(ClassicPainter& painter, const ControlView& view)
{
    const DesignComponent& strip = *view.component;
    bool menu = strip.type == "MenuStrip";
    bool status = strip.type == "StatusStrip" || strip.type == "StatusBar";
    Rgb back = ColourOf(strip.Property("BackColor"), Sys(menu ? kMenu : kButtonFace));
    painter.Fill(view.rect, back);
    if (!menu && !status) {
        // A tool strip stands out a little from the form: a light top and a dark foot.
        painter.HLine(view.rect.left, view.rect.Bottom() - 1, view.rect.width, Sys(kButtonShadow));
        painter.HLine(view.rect.left, view.rect.top, view.rect.width, Sys(kButtonHighlight));
    }
    if (status)
        painter.HLine(view.rect.left, view.rect.top, view.rect.width, Sys(kButtonShadow));
    if (WinFormLayout::ShowsGrip(strip))
        PaintGrip(painter, view.rect);
    if (view.sizeGrip)
        PaintSizeGrip(painter, view.rect);
    painter.PushClip(view.rect);
    for (std::size_t i = 0; i < view.parts.size() && i < strip.items.size(); ++i) {
        const DesignComponent& item = *strip.items[i];
        const PixelRect& rect = view.parts[i];
        if (item.type == "ToolStripSeparator" || (item.type == "ToolBarButton" && item.EnumValue("Style") == "Separator")) {
            int x = rect.left + rect.width / 2 - 1;
            painter.VLine(x, rect.top + 2, rect.height - 4, Sys(kButtonShadow));
            painter.VLine(x + 1, rect.top + 2, rect.height - 4, Sys(kButtonHighlight));
            continue;
        }
        if (item.type == "ToolStripComboBox" || item.type == "ToolStripTextBox") {
            PixelRect box { rect.left + 1, rect.top + 1, rect.width - 2, rect.height - 3 };
            painter.Fill(box, Sys(kWindow));
            painter.Frame(box, Sys(kButtonShadow));
            if (item.type == "ToolStripComboBox")
                painter.ArrowButton({ box.Right() - 14, box.top + 1, 13, box.height - 2 }, ArrowDirection::Down, true);
            continue;
        }
        if (strip.type == "ToolBar")
            painter.DrawEdge(rect, Edge::RaisedThin);
        std::string text = item.Text("Text");
        std::string style = item.EnumValue("DisplayStyle");
        bool imageOnly = !menu && !status && item.type != "ToolStripLabel" && style != "Text" && style != "ImageAndText";
        bool enabled = view.enabled && item.Boolean("Enabled", true);
        TextStyle textStyle;
        textStyle.vAlign = VAlign::Middle;
        textStyle.hAlign = status ? HAlign::Left : HAlign::Center;
        textStyle.disabled = !enabled;
        textStyle.mnemonic = !status;
        FontSpec font = FontOf(item);
        if (imageOnly) {
            // The item's picture is kept in the form's resources, which are not
            // read: the button shows the first letter of its text in a frame.
            PixelRect glyph { rect.left + (rect.width - 16) / 2, rect.top + (rect.height - 16) / 2, 16, 16 };
            painter.Frame(glyph, Sys(kButtonShadow));
            textStyle.hAlign = HAlign::Center;
            textStyle.mnemonic = false;
            std::string letter = StripMnemonic(text).substr(0, 1);
            painter.DrawText(glyph, letter, font, Sys(kButtonText), textStyle);
            continue;
        }
        painter.DrawText({ rect.left + 2, rect.top, rect.width - 4, rect.height }, text, font,
            ColourOf(item.Property("ForeColor"), Sys(menu ? kMenuText : kButtonText)), textStyle);
    }
    painter.PopClip();
}

void PaintSplitContainer(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view));
    Border(painter, view, "None");
}

void PaintPlaceholder(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view));
    painter.Frame(view.rect, Sys(kButtonShadow));
    TextStyle style;
    style.hAlign = HAlign::Center;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    style.ellipsis = true;
    painter.PushClip(view.rect);
    painter.DrawText(view.rect.Inset(2), view.component->ControlName(), view.font, Sys(kGrayText), style);
    painter.PopClip();
}

using Painter = std::function<void(ClassicPainter&, const ControlView&)>;

const std::map<std::string, Painter>& Painters()
{
    static const std::map<std::string, Painter> painters {
        { "Button", PaintButton },
        { "Label", PaintLabel },
        { "LinkLabel", PaintLabel },
        { "TextBox", PaintTextBox },
        { "MaskedTextBox", PaintTextBox },
        { "RichTextBox", PaintTextBox },
        { "CheckBox", [](ClassicPainter& p, const ControlView& v) { PaintCheckOrOption(p, v, false); } },
        { "RadioButton", [](ClassicPainter& p, const ControlView& v) { PaintCheckOrOption(p, v, true); } },
        { "GroupBox", PaintGroupBox },
        { "Panel", PaintPanel },
        { "FlowLayoutPanel", PaintPanel },
        { "TableLayoutPanel", PaintPanel },
        { "SplitterPanel", PaintPanel },
        { "SplitContainer", PaintSplitContainer },
        { "ComboBox", PaintComboBox },
        { "ListBox", PaintListBox },
        { "CheckedListBox", PaintListBox },
        { "ListView", PaintListView },
        { "TreeView", PaintTreeView },
        { "DataGridView", PaintDataGridView },
        { "PictureBox", PaintPictureBox },
        { "ProgressBar", PaintProgressBar },
        { "NumericUpDown", PaintUpDown },
        { "DomainUpDown", PaintUpDown },
        { "DateTimePicker", PaintDateTimePicker },
        { "TrackBar", PaintTrackBar },
        { "HScrollBar", PaintScrollBar },
        { "VScrollBar", PaintScrollBar },
        { "TabControl", PaintTabControl },
        { "TabPage", PaintTabPage },
        { "MenuStrip", PaintStrip },
        { "ToolStrip", PaintStrip },
        { "StatusStrip", PaintStrip },
        { "BindingNavigator", PaintStrip },
        { "ToolBar", PaintStrip },
        { "StatusBar", PaintStrip },
    };
    return painters;
}

}  // namespace

Rgb ColourOf(const DesignValue* value, Rgb fallback)
{
    if (!value || value->kind != DesignValue::Kind::Colour)
        return fallback;
    if (value->systemColour) {
        for (const SystemColourName& named : kSystemColours)
            if (value->text == named.name)
                return Sys(named.index);
        return fallback;
    }
    if (value->text == "Transparent")
        return fallback;
    return { static_cast<std::uint8_t>(value->rgb >> 16), static_cast<std::uint8_t>(value->rgb >> 8),
        static_cast<std::uint8_t>(value->rgb) };
}

FontSpec FontOf(const DesignComponent& component)
{
    for (const DesignComponent* at = &component; at; at = at->parent ? at->parent : at->owner) {
        const DesignValue* font = at->Property("Font");
        if (font && font->kind == DesignValue::Kind::Font) {
            FontSpec chosen;
            chosen.name = font->text;
            chosen.points = font->number > 0 ? font->number : 8.25;
            chosen.bold = font->Has("Bold");
            chosen.italic = font->Has("Italic");
            chosen.underline = font->Has("Underline");
            chosen.strikethrough = font->Has("Strikeout");
            return chosen;
        }
    }
    FontSpec chosen;
    chosen.name = "Microsoft Sans Serif";
    chosen.points = 8.25;
    return chosen;
}

Rgb BackOf(const DesignComponent& component, Rgb parentBack)
{
    const std::string& type = component.type;
    bool windowBack = type == "TextBox" || type == "ListBox" || type == "CheckedListBox" || type == "ListView"
        || type == "TreeView" || type == "RichTextBox" || type == "MaskedTextBox" || type == "ComboBox";
    // Labels, check boxes and the like take their container's colour unless told otherwise.
    bool inherits = type == "Label" || type == "LinkLabel" || type == "CheckBox" || type == "RadioButton"
        || type == "GroupBox" || type == "Panel" || type == "PictureBox" || type == "FlowLayoutPanel"
        || type == "TableLayoutPanel" || type == "SplitContainer" || type == "SplitterPanel" || type == "TrackBar";
    Rgb fallback = windowBack ? Sys(kWindow) : inherits ? parentBack : Sys(kButtonFace);
    return ColourOf(component.Property("BackColor"), fallback);
}

PixelRect ChildClipOf(const ControlView& view)
{
    const DesignComponent& component = *view.component;
    int inset = WinFormLayout::BorderInset(component);
    if (component.type == "GroupBox")
        return { view.rect.left + 2, view.rect.top + 2, view.rect.width - 4, view.rect.height - 4 };
    return view.rect.Inset(inset);
}

void PaintControl(ClassicPainter& painter, const ControlView& view)
{
    if (!view.component)
        return;
    auto found = Painters().find(view.component->type);
    if (found == Painters().end()) {
        PaintPlaceholder(painter, view);
        return;
    }
    found->second(painter, view);
}

void PaintFormIcon(ClassicPainter& painter, const PixelRect& box)
{
    PixelRect window { box.left + 1, box.top + 2, 14, 12 };
    painter.Fill(window, Sys(kWindow));
    painter.Frame(window, Sys(kButtonShadow));
    painter.Fill({ window.left + 1, window.top + 1, window.width - 2, 3 }, { 0, 0, 128 });
}

}  // namespace scriv::winforms
