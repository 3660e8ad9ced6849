#include "desktop/PainterParts.h"

#include <algorithm>

#include "desktop/SystemColours.h"
#include "host/CNonClientMetrics.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6Block.h"

namespace scriv::paint {

using namespace syscolour;

Rgb Sys(int index)
{
    return SystemColour(index);
}

int Int(const Vb6PropertyList& list, std::string_view name, int fallback)
{
    return ToInt(list.Number(name, fallback));
}

HAlign AlignmentOf(int alignment)
{
    return alignment == 1 ? HAlign::Right : (alignment == 2 ? HAlign::Center : HAlign::Left);
}

HAlign Mirrored(HAlign alignment, bool rightToLeft)
{
    if (!rightToLeft || alignment == HAlign::Center)
        return alignment;
    return alignment == HAlign::Left ? HAlign::Right : HAlign::Left;
}

int ScrollBarSize()
{
    CNonClientMetrics metrics;
    metrics.SearchMetrics();
    return metrics.ScrollWidth;
}

int LineHeight(ClassicPainter& painter, const FontSpec& font)
{
    return std::max(painter.MeasureText("Ag", font, false).height, 1);
}

Rgb Back(const ControlView& view, int systemColour)
{
    return ColourProperty(*view.block, "BackColor", SystemColourValue(systemColour));
}

Rgb Fore(const ControlView& view, int systemColour)
{
    if (!view.enabled)
        return Sys(kGrayText);
    return ColourProperty(*view.block, "ForeColor", SystemColourValue(systemColour));
}

// The border of a box control: a 3D sunken edge, or a black line when flat.
// Answers the area inside it.
PixelRect BoxBorder(ClassicPainter& painter, const PixelRect& rect, bool threeD, bool bordered)
{
    if (!bordered)
        return rect;
    if (threeD) {
        painter.DrawEdge(rect, Edge::Sunken);
        return rect.Inset(2);
    }
    painter.Frame(rect, Sys(kWindowFrame));
    return rect.Inset(1);
}

void PaintScrollBar(ClassicPainter& painter, const PixelRect& rect, bool vertical, bool enabled, double min,
    double max, double value)
{
    int length = vertical ? rect.height : rect.width;
    int button = std::min(ScrollBarSize(), length / 2);
    PixelRect first = vertical ? PixelRect { rect.left, rect.top, rect.width, button }
                               : PixelRect { rect.left, rect.top, button, rect.height };
    PixelRect last = vertical ? PixelRect { rect.left, rect.Bottom() - button, rect.width, button }
                              : PixelRect { rect.Right() - button, rect.top, button, rect.height };
    PixelRect track = vertical ? PixelRect { rect.left, rect.top + button, rect.width, length - 2 * button }
                               : PixelRect { rect.left + button, rect.top, length - 2 * button, rect.height };
    painter.Dither(track, Sys(kButtonHighlight), Sys(kScrollBar));
    int trackLength = vertical ? track.height : track.width;
    int thumb = ScrollBarSize();
    if (enabled && trackLength > thumb) {
        double fraction = max != min ? std::clamp((value - min) / (max - min), 0.0, 1.0) : 0.0;
        int at = static_cast<int>(fraction * (trackLength - thumb));
        PixelRect knob = vertical ? PixelRect { track.left, track.top + at, track.width, thumb }
                                  : PixelRect { track.left + at, track.top, thumb, track.height };
        painter.Fill(knob, Sys(kButtonFace));
        painter.DrawEdge(knob, Edge::Button);
    }
    painter.ArrowButton(first, vertical ? ArrowDirection::Up : ArrowDirection::Left, enabled);
    painter.ArrowButton(last, vertical ? ArrowDirection::Down : ArrowDirection::Right, enabled);
}

// A white list with a sunken border, its items one a line and a scroll bar
// when they do not fit.
void PaintListArea(ClassicPainter& painter, const ControlView& view, const PixelRect& rect,
    const std::vector<std::string>& items, bool checkBoxes)
{
    painter.Fill(rect, Back(view, kWindow));
    PixelRect inner = BoxBorder(painter, rect, view.threeD, Int(*view.block, "BorderStyle", 1) != 0);
    int line = LineHeight(painter, view.font);
    if (static_cast<int>(items.size()) * line > inner.height) {
        int bar = ScrollBarSize();
        PaintScrollBar(painter, { inner.Right() - bar, inner.top, bar, inner.height }, true, view.enabled, 0, 1, 0);
        inner.width -= bar;
    }
    painter.PushClip(inner);
    TextStyle style;
    style.mnemonic = false;
    int y = inner.top;
    for (const std::string& item : items) {
        int x = inner.left + 2;
        if (checkBoxes) {
            PixelRect box { x, y + (line - kCheckBoxSize) / 2, kCheckBoxSize, kCheckBoxSize };
            painter.Fill(box, Sys(kWindow));
            painter.DrawEdge(box, Edge::Sunken);
            x = box.Right() + 3;
        }
        painter.DrawText({ x, y, inner.Right() - x, line }, item, view.font, Fore(view, kWindowText), style);
        y += line;
    }
    painter.PopClip();
}

// A tab of a tab control; the selected one joins the page below it.
void PaintTab(ClassicPainter& painter, const ControlView& view, PixelRect tab, const std::string& caption,
    bool selected, bool enabled, int pageTop, int lowered)
{
    if (!selected) {
        tab.top += lowered;
        tab.height -= lowered;
    } else {
        tab.height = pageTop - tab.top;
    }
    if (tab.Empty())
        return;
    Rgb face = Back(view, kButtonFace);
    painter.Fill(tab, face);
    painter.HLine(tab.left + 2, tab.top, tab.width - 4, Sys(kButtonHighlight));
    painter.VLine(tab.left, tab.top + 2, tab.height - 2, Sys(kButtonHighlight));
    painter.Fill({ tab.left + 1, tab.top + 1, 1, 1 }, Sys(kButtonHighlight));
    painter.VLine(tab.Right() - 1, tab.top + 2, tab.height - 2, Sys(kDarkShadow));
    painter.VLine(tab.Right() - 2, tab.top + 1, tab.height - 1, Sys(kButtonShadow));
    // The selected tab opens into its page: the page's edge is gone under it.
    if (selected)
        painter.Fill({ tab.left + 1, pageTop, tab.width - 3, 2 }, face);
    TextStyle style;
    style.hAlign = HAlign::Center;
    style.vAlign = VAlign::Middle;
    style.disabled = !enabled || !view.enabled;
    PixelRect text { tab.left + 3, tab.top, tab.width - 6, tab.height };
    painter.PushClip(text);
    painter.DrawText(text, caption, view.font, Fore(view, kButtonText), style);
    painter.PopClip();
}

// The groups Name1 .. NameN of a collection group (Buttons, Panels, Tabs).
std::vector<const Vb6PropertyGroup*> Items(const Vb6Block& block, std::string_view groupName, std::string_view itemName,
    std::string_view countName)
{
    std::vector<const Vb6PropertyGroup*> items;
    const Vb6PropertyGroup* group = block.FindGroup(groupName);
    if (!group)
        return items;
    int count = ToInt(group->Number(countName, 0));
    for (int i = 1; i <= count && i <= 1000; ++i)
        items.push_back(group->FindGroup(std::string(itemName) + std::to_string(i)));
    return items;
}

double HimetricPixels(const Vb6PropertyList& list, std::string_view name, double fallbackTwips)
{
    const Vb6Property* property = list.FindProperty(name);
    std::optional<double> value = property ? property->Number() : std::nullopt;
    return (value ? HimetricToTwips(*value) : fallbackTwips) / kTwipsPerPixel;
}

}  // namespace scriv::paint
