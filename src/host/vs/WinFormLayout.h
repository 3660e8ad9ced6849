#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/vs/WinFormDesign.h"

// Where the controls of a Windows Forms design stand, in pixels at 96 dpi:
// the sizes and places the designer code gives, with docked controls laid
// out as Windows Forms lays them out, tab pages and their tabs, and the items
// of menu, tool and status strips. Anchors fix no place at the designed size.
namespace scriv {

struct LayoutRect {
    int left { 0 };
    int top { 0 };
    int width { 0 };
    int height { 0 };
    friend bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

class WinFormLayout {
public:
    // Lays out the design; the design must outlive the layout.
    explicit WinFormLayout(const WinFormDesign& design);

    // --- the form ---

    // The border style in the numbers of the window metrics: 0 none, 1 fixed
    // single (and 3D), 2 sizable, 3 fixed dialog, 4 fixed tool window, 5
    // sizable tool window. A user control has no frame.
    int BorderStyle() const { return m_borderStyle; }
    int ClientWidth() const { return m_clientWidth; }
    int ClientHeight() const { return m_clientHeight; }
    // The main menu of the form's window (the menu bar outside the client
    // area), or null; a menu strip is a control of the client area instead.
    const DesignComponent* MainMenu() const { return m_mainMenu; }
    bool IsUserControl() const;

    // --- controls ---

    // The control's rectangle relative to its container's outer corner (for
    // a control of the form: to the client area's corner).
    LayoutRect Bounds(const DesignComponent& control) const;
    // The width of the border inside which a container's children stand.
    static int BorderInset(const DesignComponent& container);
    // The kind of docking that places the control ("Top", "Fill" ...), "" for none.
    static std::string DockOf(const DesignComponent& control);

    // --- tab controls ---

    static bool IsTabControl(const DesignComponent& control);
    // The pages of a tab control, in order.
    static std::vector<const DesignComponent*> TabPages(const DesignComponent& tabControl);
    // A page's tab, relative to the tab control's corner.
    LayoutRect TabRect(const DesignComponent& tabControl, int page) const;

    // --- strips ---

    // Menu strips, tool strips, status strips and the older tool bars.
    static bool IsStrip(const DesignComponent& control);
    // The items of a strip, each relative to the strip's corner.
    std::vector<LayoutRect> ItemRects(const DesignComponent& strip) const;
    // Whether a tool strip shows its grip (status and menu strips do not).
    static bool ShowsGrip(const DesignComponent& strip);

private:
    void LayOut(const DesignComponent& container, LayoutRect display);
    LayoutRect Given(const DesignComponent& control) const;

    const WinFormDesign& m_design;
    int m_borderStyle { 2 };
    int m_clientWidth { 0 };
    int m_clientHeight { 0 };
    const DesignComponent* m_mainMenu { nullptr };
    std::map<const DesignComponent*, LayoutRect> m_bounds;
};

// The width in pixels of a text in a sans serif face of that size, as a
// classic Windows desktop draws it, closely enough to size tabs and strip
// items; "&" marks count for nothing.
int EstimateTextWidth(std::string_view text, double points = 8.25);

// The font size of a component: its own, else its nearest container's, else 8.25.
double FontPointsOf(const DesignComponent& component);

}  // namespace scriv
