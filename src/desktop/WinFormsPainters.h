#pragma once

#include <string>
#include <vector>

#include "desktop/ClassicPainter.h"

// How the controls of Windows Forms look on the classic Windows desktop: the
// system-drawn controls as Windows draws them, the tool, menu and status
// strips in their own flat style. A painter gets the control's design and the
// rectangles the renderer measured; it never measures a control itself.
namespace scriv {

struct DesignComponent;
struct DesignValue;

namespace winforms {

// What a painter needs of one control.
struct ControlView {
    const DesignComponent* component { nullptr };
    // Window pixels.
    PixelRect rect;
    FontSpec font;
    bool enabled { true };
    // The tabs of a tab control (by page), the items of a strip, in window pixels.
    std::vector<PixelRect> parts;
    // The page a tab control shows.
    int shownPage { 0 };
    // The colour behind the control (its container's).
    Rgb parentBack;
    // A status strip of a sizable window draws a size grip.
    bool sizeGrip { false };
    // The form's accept button is drawn with a dark frame.
    bool isDefault { false };
};

// The colour of a colour value (a system colour by name, or red, green, blue), or the fallback.
Rgb ColourOf(const DesignValue* value, Rgb fallback);
// The control's font: its own Font, else its nearest container's, else Microsoft Sans Serif 8.25.
FontSpec FontOf(const DesignComponent& component);
// The background of a control as Windows Forms gives it by type.
Rgb BackOf(const DesignComponent& component, Rgb parentBack);
// The area of a container in which its children are drawn (window pixels).
PixelRect ChildClipOf(const ControlView& view);

// Draws the control into its rectangle. A type without a painter of its own
// is drawn as a box with the control's name.
void PaintControl(ClassicPainter& painter, const ControlView& view);

// The caption bar's buttons and the default icon of a Windows Forms window.
void PaintFormIcon(ClassicPainter& painter, const PixelRect& box);

}  // namespace winforms
}  // namespace scriv
