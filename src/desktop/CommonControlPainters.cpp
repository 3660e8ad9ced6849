#include "desktop/PainterParts.h"

#include <algorithm>
#include <map>

#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6Block.h"

// The controls of the tabbed dialog and the Windows common controls.
namespace scriv::paint {

using namespace syscolour;

namespace {

void PaintToolbarButton(ClassicPainter& painter, const ControlView& view, const Vb6PropertyGroup& button,
    const PixelRect& rect, bool flat)
{
    int style = ToInt(button.Number("Style", 0));
    if (!button.Boolean("Visible", true) || style == 4)
        return;
    if (style == 3) {
        if (flat) {
            int x = rect.left + rect.width / 2 - 1;
            painter.VLine(x, rect.top + 2, rect.height - 4, Sys(kButtonShadow));
            painter.VLine(x + 1, rect.top + 2, rect.height - 4, Sys(kButtonHighlight));
        }
        return;
    }
    bool pressed = ToInt(button.Number("Value", 0)) == 1;
    if (pressed) {
        painter.Dither(rect.Inset(1), Sys(kButtonHighlight), Sys(kButtonFace));
        painter.DrawEdge(rect, flat ? Edge::SunkenThin : Edge::ButtonPressed);
    } else if (!flat) {
        painter.DrawEdge(rect, Edge::Button);
    }
    PixelRect face = rect.Inset(3);
    if (style == 5) {
        PixelRect drop { face.Right() - 8, face.top, 8, face.height };
        painter.Arrow(drop, ArrowDirection::Down, Sys(kButtonText));
        face.width -= 9;
    }
    std::string caption = button.Text("Caption");
    TextStyle textStyle;
    textStyle.hAlign = HAlign::Center;
    textStyle.vAlign = VAlign::Bottom;
    textStyle.mnemonic = false;
    textStyle.disabled = !button.Boolean("Enabled", true) || !view.enabled;
    painter.PushClip(face);
    painter.DrawText(face, caption, view.font, Sys(kButtonText), textStyle);
    painter.PopClip();
}

// Panels count 0 left, 1 centre, 2 right.
HAlign PanelAlignment(int alignment)
{
    return alignment == 1 ? HAlign::Center : (alignment == 2 ? HAlign::Right : HAlign::Left);
}

std::string PanelText(const Vb6PropertyGroup& panel)
{
    static const std::map<int, std::string> kKeys { { 1, "CAPS" }, { 2, "NUM" }, { 3, "INS" }, { 4, "SCRL" },
        { 7, "KANA" } };
    int style = ToInt(panel.Number("Style", 0));
    if (style == 0)
        return panel.Text("Text");
    std::string saved = panel.Text("TextSave");
    auto key = kKeys.find(style);
    return saved.empty() && key != kKeys.end() ? key->second : saved;
}

void PaintSizeGrip(ClassicPainter& painter, const PixelRect& r)
{
    // Three diagonal ridges in the bottom right corner, each a light line over two dark ones.
    for (int ridge = 0; ridge < 3; ++ridge) {
        int reach = 11 - 4 * ridge;
        for (int i = 0; i < reach; ++i) {
            int x = r.Right() - reach + i;
            int y = r.Bottom() - 1 - i;
            painter.Fill({ x - 1, y, 1, 1 }, Sys(kButtonHighlight));
            painter.Fill({ x, y, 2, 1 }, Sys(kButtonShadow));
        }
    }
}

PixelRect BorderedWhite(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view, kWindow));
    bool bordered = Int(*view.block, "BorderStyle", 1) != 0;
    return BoxBorder(painter, view.rect, view.threeD, bordered);
}

}  // namespace

void PaintSSTab(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    const PixelRect& r = view.rect;
    int pageTop = r.top;
    for (const PixelRect& tab : view.parts)
        pageTop = std::max(pageTop, tab.Bottom());
    PixelRect page { r.left, pageTop, r.width, r.Bottom() - pageTop };
    painter.Fill(page, Back(view, kButtonFace));
    painter.DrawEdge(page, Edge::Raised);
    auto caption = [&](int p) { return block.Text("TabCaption(" + std::to_string(p) + ")"); };
    auto enabled = [&](int p) { return block.Boolean("TabEnabled(" + std::to_string(p) + ")", true); };
    // The property page style sets the tabs of the hidden pages back; the
    // tabbed dialog style keeps all tabs of a row level.
    int lowered = Int(block, "Style", 0) == 1 ? 2 : 0;
    for (int p = 0; p < static_cast<int>(view.parts.size()); ++p)
        if (p != view.shownPage)
            PaintTab(painter, view, view.parts[static_cast<std::size_t>(p)], caption(p), false, enabled(p), pageTop,
                lowered);
    if (view.shownPage >= 0 && view.shownPage < static_cast<int>(view.parts.size()))
        PaintTab(painter, view, view.parts[static_cast<std::size_t>(view.shownPage)], caption(view.shownPage), true,
            enabled(view.shownPage), pageTop);
}

void PaintTabStrip(ClassicPainter& painter, const ControlView& view)
{
    const PixelRect& r = view.rect;
    int tabHeight = LineHeight(painter, view.font) + 7;
    int pageTop = std::min(r.top + tabHeight, r.Bottom());
    PixelRect page { r.left, pageTop, r.width, r.Bottom() - pageTop };
    painter.Fill(page, Sys(kButtonFace));
    painter.DrawEdge(page, Edge::Raised);
    std::vector<PixelRect> tabs;
    std::vector<std::string> captions;
    int x = r.left + 2;
    for (const Vb6PropertyGroup* tab : Items(*view.block, "Tabs", "Tab", "NumTabs")) {
        std::string caption = tab ? tab->Text("Caption") : std::string();
        int width = std::max(painter.MeasureText(caption, view.font).width + 12, 20);
        tabs.push_back({ x, r.top + 2, width, tabHeight - 2 });
        captions.push_back(caption);
        x += width;
    }
    for (std::size_t i = 1; i < tabs.size(); ++i)
        PaintTab(painter, view, tabs[i], captions[i], false, true, pageTop);
    if (!tabs.empty()) {
        // The selected tab stands out two pixels on each side.
        PixelRect selected { tabs[0].left - 2, r.top, tabs[0].width + 4, tabHeight };
        PaintTab(painter, view, selected, captions[0], true, true, pageTop);
    }
}

void PaintToolbar(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    painter.Fill(view.rect, Sys(kButtonFace));
    if (Int(block, "BorderStyle", 0) == 1)
        painter.DrawEdge(view.rect, Edge::SunkenThin);
    if (Int(block, "Appearance", 1) == 1) {
        painter.HLine(view.rect.left, view.rect.top, view.rect.width, Sys(kButtonShadow));
        painter.HLine(view.rect.left, view.rect.top + 1, view.rect.width, Sys(kButtonHighlight));
    }
    bool flat = Int(block, "Style", 0) == 1;
    std::vector<const Vb6PropertyGroup*> buttons = Items(block, "Buttons", "Button", "NumButtons");
    painter.PushClip(view.rect);
    for (std::size_t i = 0; i < buttons.size() && i < view.parts.size(); ++i)
        if (buttons[i])
            PaintToolbarButton(painter, view, *buttons[i], view.parts[i], flat);
    painter.PopClip();
}

void PaintStatusBar(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    const PixelRect& r = view.rect;
    painter.Fill(r, Sys(kButtonFace));
    PixelRect area { r.left, r.top + 2, r.width - (view.sizeGrip ? 14 : 0), r.height - 2 };
    struct Panel {
        const Vb6PropertyGroup* group;
        std::string text;
        int width;
        bool spring;
    };
    std::vector<Panel> panels;
    if (Int(block, "Style", 0) == 1) {
        TextStyle style;
        style.vAlign = VAlign::Middle;
        style.mnemonic = false;
        painter.DrawText(area.Inset(2), block.Text("SimpleText"), view.font, Sys(kButtonText), style);
    } else {
        for (const Vb6PropertyGroup* group : Items(block, "Panels", "Panel", "NumPanels")) {
            if (!group || !group->Boolean("Visible", true))
                continue;
            std::string text = PanelText(*group);
            int autoSize = ToInt(group->Number("AutoSize", 0));
            int minimum = static_cast<int>(HimetricPixels(*group, "MinWidth", 1440));
            int width = std::max(static_cast<int>(HimetricPixels(*group, "Object.Width", 1440)), minimum);
            if (autoSize == 2)
                width = std::max(minimum, painter.MeasureText(text, view.font, false).width + 10);
            panels.push_back({ group, text, autoSize == 1 ? minimum : width, autoSize == 1 });
        }
    }
    int used = 0;
    int springs = 0;
    for (const Panel& panel : panels) {
        used += panel.width + 2;
        springs += panel.spring ? 1 : 0;
    }
    int spare = std::max(area.width - used, 0);
    int x = area.left;
    for (Panel& panel : panels) {
        if (panel.spring && springs > 0)
            panel.width += spare / springs;
        PixelRect box { x, area.top, panel.width, area.height };
        int bevel = ToInt(panel.group->Number("Bevel", 1));
        if (bevel == 1)
            painter.DrawEdge(box, Edge::SunkenThin);
        else if (bevel == 2)
            painter.DrawEdge(box, Edge::RaisedThin);
        TextStyle style;
        style.vAlign = VAlign::Middle;
        style.hAlign = PanelAlignment(ToInt(panel.group->Number("Alignment", 0)));
        style.mnemonic = false;
        style.disabled = !panel.group->Boolean("Enabled", true);
        PixelRect text = box.Inset(3);
        painter.PushClip(text);
        painter.DrawText(text, panel.text, view.font, Sys(kButtonText), style);
        painter.PopClip();
        x += panel.width + 2;
    }
    if (view.sizeGrip)
        PaintSizeGrip(painter, r);
}

void PaintProgressBar(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    painter.Fill(view.rect, Sys(kButtonFace));
    painter.DrawEdge(view.rect, Edge::SunkenThin);
    PixelRect inner = view.rect.Inset(2);
    double min = block.Number("Min", 0);
    double max = block.Number("Max", 100);
    double fraction = max != min ? std::clamp((block.Number("Value", 0) - min) / (max - min), 0.0, 1.0) : 0.0;
    bool vertical = Int(block, "Orientation", 0) == 1;
    bool smooth = Int(block, "Scrolling", 0) == 1;
    int length = vertical ? inner.height : inner.width;
    int filled = static_cast<int>(fraction * length);
    int step = smooth ? length : std::max((vertical ? inner.width : inner.height) * 2 / 3, 2);
    int gap = smooth ? 0 : 2;
    for (int at = 0; at < filled; at += step + gap) {
        int size = std::min(step, filled - at);
        PixelRect piece = vertical ? PixelRect { inner.left, inner.Bottom() - at - size, inner.width, size }
                                   : PixelRect { inner.left + at, inner.top, size, inner.height };
        painter.Fill(piece, Sys(kHighlight));
    }
}

void PaintListView(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    PixelRect inner = BorderedWhite(painter, view);
    if (Int(block, "View", 0) != 3 || block.Boolean("HideColumnHeaders", false))
        return;
    int height = LineHeight(painter, view.font) + 4;
    int x = inner.left;
    painter.PushClip(inner);
    for (const auto& group : block.Groups()) {
        if (!StartsWithNoCase(group->Name(), "ColumnHeader("))
            continue;
        int width = static_cast<int>(HimetricPixels(*group, "Object.Width", 1440));
        PixelRect header { x, inner.top, width, height };
        painter.Fill(header, Sys(kButtonFace));
        painter.DrawEdge(header, Edge::Button);
        TextStyle style;
        style.vAlign = VAlign::Middle;
        style.hAlign = AlignmentOf(ToInt(group->Number("Alignment", 0)));
        style.mnemonic = false;
        style.ellipsis = true;
        PixelRect text { header.left + 6, header.top, header.width - 12, header.height };
        if (text.width > 0)
            painter.DrawText(text, group->Text("Text"), view.font, Sys(kButtonText), style);
        x += width;
    }
    if (x < inner.Right()) {
        PixelRect rest { x, inner.top, inner.Right() - x, height };
        painter.Fill(rest, Sys(kButtonFace));
        painter.DrawEdge(rest, Edge::Button);
    }
    painter.PopClip();
}

void PaintTreeView(ClassicPainter& painter, const ControlView& view)
{
    BorderedWhite(painter, view);
}

void PaintSlider(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    const PixelRect& r = view.rect;
    painter.Fill(r, Sys(kButtonFace));
    bool vertical = Int(block, "Orientation", 0) == 1;
    double min = block.Number("Min", 0);
    double max = block.Number("Max", 10);
    double fraction = max != min ? std::clamp((block.Number("Value", 0) - min) / (max - min), 0.0, 1.0) : 0.0;
    int length = (vertical ? r.height : r.width) - 16;
    PixelRect channel = vertical ? PixelRect { r.left + 8, r.top + 8, 4, length } : PixelRect { r.left + 8, r.top + 8, length, 4 };
    painter.DrawEdge(channel, Edge::Sunken);
    int at = 8 + static_cast<int>(fraction * length);
    PixelRect thumb = vertical ? PixelRect { r.left + 2, r.top + at - 5, 20, 11 } : PixelRect { r.left + at - 5, r.top + 2, 11, 20 };
    painter.Fill(thumb, Sys(kButtonFace));
    painter.DrawEdge(thumb, Edge::Button);
    int tickStyle = Int(block, "TickStyle", 0);
    double frequency = std::max(block.Number("TickFrequency", 1), 1.0);
    if (tickStyle == 3 || max <= min)
        return;
    for (double value = min; value <= max && value - min <= 1000 * frequency; value += frequency) {
        int position = 8 + static_cast<int>((value - min) / (max - min) * length);
        if (vertical)
            painter.HLine(r.left + 24, r.top + position, 3, Sys(kButtonText));
        else
            painter.VLine(r.left + position, r.top + 24, 3, Sys(kButtonText));
    }
}

}  // namespace scriv::paint
