#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "desktop/ClassicPainter.h"
#include "desktop/ControlPainters.h"

// What the painters of the controls share: reading their properties, and the
// parts several controls are made of (borders, scroll bars, lists, tabs).
namespace scriv {

class Vb6PropertyGroup;

namespace paint {

inline constexpr int kCheckBoxSize = 13;
inline constexpr int kOptionSize = 12;

// --- properties ---

Rgb Sys(int index);
// A number property as an int, or the fallback.
int Int(const Vb6PropertyList& list, std::string_view name, int fallback);
// The alignment values of labels and text boxes: 0 left, 1 right, 2 centre.
HAlign AlignmentOf(int alignment);
// The alignment of a control that reads from right to left: left and right swap.
HAlign Mirrored(HAlign alignment, bool rightToLeft);
// The control's BackColor, or the system colour.
Rgb Back(const ControlView& view, int systemColour);
// The control's ForeColor, or the system colour; grey text when disabled.
Rgb Fore(const ControlView& view, int systemColour);
// The groups Name1 .. NameN of a collection group (Buttons, Panels, Tabs);
// a missing one is null.
std::vector<const Vb6PropertyGroup*> Items(const Vb6Block& block, std::string_view groupName, std::string_view itemName,
    std::string_view countName);
// A size kept in HIMETRIC, in pixels; fallbackTwips when it is absent.
double HimetricPixels(const Vb6PropertyList& list, std::string_view name, double fallbackTwips);

// --- measures ---

int ScrollBarSize();
int LineHeight(ClassicPainter& painter, const FontSpec& font);

// --- parts ---

// The border of a box control: a 3D sunken edge, or a black line when flat.
// Answers the area inside it.
PixelRect BoxBorder(ClassicPainter& painter, const PixelRect& rect, bool threeD, bool bordered = true);
void PaintScrollBar(ClassicPainter& painter, const PixelRect& rect, bool vertical, bool enabled, double min,
    double max, double value);
// A white list with a sunken border, its items one a line and a scroll bar
// when they do not fit.
void PaintListArea(ClassicPainter& painter, const ControlView& view, const PixelRect& rect,
    const std::vector<std::string>& items, bool checkBoxes);
// A tab of a tab control; the selected one joins the page whose top is
// pageTop, the others stand lowered by that many pixels.
void PaintTab(ClassicPainter& painter, const ControlView& view, PixelRect tab, const std::string& caption,
    bool selected, bool enabled, int pageTop, int lowered = 2);

// --- the common controls (MSComctl and the tabbed dialog) ---

void PaintSSTab(ClassicPainter& painter, const ControlView& view);
void PaintTabStrip(ClassicPainter& painter, const ControlView& view);
void PaintToolbar(ClassicPainter& painter, const ControlView& view);
void PaintStatusBar(ClassicPainter& painter, const ControlView& view);
void PaintProgressBar(ClassicPainter& painter, const ControlView& view);
void PaintListView(ClassicPainter& painter, const ControlView& view);
void PaintTreeView(ClassicPainter& painter, const ControlView& view);
void PaintSlider(ClassicPainter& painter, const ControlView& view);

}  // namespace paint
}  // namespace scriv
