#pragma once

#include <string>
#include <vector>

#include "host/CNonClientMetrics.h"

namespace scriv {

class IClientFormProcessor;
class IHostObject;

// Twips per unit of a form's ScaleMode on each axis.
struct ScaleMultipliers {
    double x { 0 };
    double y { 0 };
};

// The table of ScaleMode units: 0 and 1 (user, twips) 1; 2 (points) 20; 3
// (pixels) twips per pixel; 4 (characters) 120 across and 240 down; 5
// (inches) 1440; 6 (millimetres) 56.69; 7 (centimetres) 566.9; any other 0.
ScaleMultipliers ScaleModeMultipliers(int scaleMode);

// Turns the rectangle of a control, kept in the units of its container, into
// pixels of the form's client area, and lays out the tabs of a tab control so
// that hot spots can be put over them. Properties are read through the form
// processor; a control without Left, Top, Width or Height raises ScrivError
// with the source "CScaler." and the operation.
class CScaler {
public:
    // Reads the scale of the form and the control's rectangle, adding the
    // offsets of the containers up to the form. With calcTabs the control is a
    // tab control and its tab geometry is computed too (CalcScaleMultipliers).
    // A null control only sets the multipliers.
    void init(IHostObject* control, IClientFormProcessor& processor, IHostObject* form, bool calcTabs = false);

    // --- the control ---

    // The immediate container of the control (the form for a control on it).
    IHostObject* Container() const { return m_container; }
    // The rectangle in pixels of the client area, rounded to the nearest pixel.
    int Left() const;
    int Top() const;
    int Width() const;
    int Height() const;

    // --- scale ---

    // Sets both multipliers from the ScaleMode table.
    void ScaleY(int scaleMode);
    // A measure across in the form's units, in twips.
    double ScaleX(double value) const { return value * ConstToMultiplyX; }
    double ConstToMultiplyX { 0 };
    double ConstToMultiplyY { 0 };
    bool IsMSAccess { false };
    int ScaleMode { 0 };

    // --- tabs ---

    // Reads the tab count, tabs per row and tab size of the tab control.
    void CalcScaleMultipliers();
    int TabsQTy() const { return m_tabsQty; }
    int TabsPerRow() const { return m_tabsPerRow; }
    // The column of a tab in its row: index mod tabs per row (the index itself
    // when tabs per row is below 1).
    int TabIndexInRow(int index) const;
    // The row of a tab counted from the top of the stack: the row of the last
    // tab is 0. Raises ScrivError when tabs per row is 0.
    int CalcTabsHotSpots(int index) const;
    int TabLeft(int index) const;
    int TabTop(int index) const;
    int TabWidth(int index) const;
    int TabHeight() const { return static_cast<int>(m_tabHeight); }

    // The width in twips that Access gives a tab with that caption, before scaling.
    static double AccessCaptionWidthTwips(const std::string& caption, int fontWeight, double fontSize);

private:
    double Property(IHostObject* object, const std::string& name, const char* operation) const;
    std::vector<IHostObject*> ContainerChain(IHostObject* control) const;
    double AccessTabWidthPixels(int index) const;

    IClientFormProcessor* m_processor { nullptr };
    IHostObject* m_form { nullptr };
    IHostObject* m_control { nullptr };
    IHostObject* m_container { nullptr };
    bool m_onForm { true };
    double m_left { 0 };
    double m_top { 0 };
    double m_width { 0 };
    double m_height { 0 };
    double m_offsetLeft { 0 };
    double m_offsetTop { 0 };
    int m_tabsQty { 0 };
    int m_tabsPerRow { 0 };
    double m_tabWidth { 0 };
    double m_tabHeight { 0 };
};

}  // namespace scriv
