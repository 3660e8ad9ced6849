#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/ClassicPainter.h"
#include "desktop/Picture.h"

// How each kind of VB6 control looks in the classic Windows style. A painter
// gets the control's block of the form file for its properties and the
// rectangle the renderer measured; it never measures a control itself.
namespace scriv {

class Vb6Block;
class Vb6PropertyList;

// --- properties of the form file ---

// The colour of a colour property (&H8000000F&, &H00FF0000&, or a negative
// decimal as OCX properties write system colours), or the fallback VB value.
Rgb ColourProperty(const Vb6PropertyList& list, std::string_view name, std::uint32_t fallback);
// The control's font: its own Font group, else that of the nearest block
// above it that has one, else MS Sans Serif 8.25.
FontSpec FontOf(const Vb6Block& block);

// What a painter needs of one control.
struct ControlView {
    const Vb6Block* block { nullptr };
    // The type without its library: "CommandButton", "SSTab".
    std::string type;
    // As code names it: "optPriority(1)".
    std::string name;
    // Window pixels.
    PixelRect rect;
    FontSpec font;
    bool enabled { true };
    // RightToLeft: the text reads from the right, and what is aligned to one
    // side (text, the box of a check box, a frame's caption) goes to the other.
    bool rightToLeft { false };
    // Appearance 1 (3D) rather than 0 (flat).
    bool threeD { true };
    // The decoded Picture property, when the .frx holds one this program reads.
    std::optional<Picture> picture;
    // The List property, when the .frx holds one.
    std::vector<std::string> listItems;
    // Tabs of an SSTab (by page) or buttons of a toolbar (by number less one),
    // in window pixels, as the form processor measures them.
    std::vector<PixelRect> parts;
    // The page an SSTab shows.
    int shownPage { 0 };
    // A status bar of a sizable window draws a size grip.
    bool sizeGrip { false };
    // A Line control's ends in window pixels.
    int x1 { 0 }, y1 { 0 }, x2 { 0 }, y2 { 0 };
};

// --- kinds of control ---

// Controls drawn on their container's surface, below every windowed control
// (Label, Image, Shape, Line).
bool IsLightweightControl(std::string_view type);
// Controls that a running program does not show (Timer, ImageList,
// CommonDialog ...); they are not drawn in either view.
bool IsInvisibleAtRunTime(std::string_view type);
// The part of a container its children are drawn in (window pixels).
PixelRect ChildClipOf(const ControlView& view);

// Draws the control into its rectangle. A type without a painter of its own
// is drawn as a placeholder box with the control's name.
void PaintControl(ClassicPainter& painter, const ControlView& view);

}  // namespace scriv
