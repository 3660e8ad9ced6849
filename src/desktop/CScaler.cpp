#include "desktop/CScaler.h"

#include <cmath>

#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/IClientFormProcessor.h"

namespace scriv {

namespace {

int NearestPixel(double twips)
{
    return static_cast<int>(std::nearbyint(twips / kTwipsPerPixel));
}

bool FindPath(IClientFormProcessor& processor, IHostObject* parent, IHostObject* control,
    std::vector<IHostObject*>& path, int depth)
{
    // Deeper than any form nests; a host that answers a cycle must not hang the walk.
    if (depth > 100)
        return false;
    for (IHostObject* child : processor.ControlsCollectionGet(parent)) {
        if (child == control)
            return true;
        path.push_back(child);
        if (FindPath(processor, child, control, path, depth + 1))
            return true;
        path.pop_back();
    }
    return false;
}

}  // namespace

ScaleMultipliers ScaleModeMultipliers(int scaleMode)
{
    switch (scaleMode) {
    case 0:
    case 1:
        return { 1, 1 };
    case 2:
        return { 20, 20 };
    case 3:
        return { kTwipsPerPixel, kTwipsPerPixel };
    case 4:
        return { 120, 240 };
    case 5:
        return { 1440, 1440 };
    case 6:
        return { 56.69, 56.69 };
    case 7:
        return { 566.9, 566.9 };
    default:
        return { 0, 0 };
    }
}

void CScaler::ScaleY(int scaleMode)
{
    ScaleMultipliers multipliers = ScaleModeMultipliers(scaleMode);
    ConstToMultiplyX = multipliers.x;
    ConstToMultiplyY = multipliers.y;
}

double CScaler::Property(IHostObject* object, const std::string& name, const char* operation) const
{
    std::string text = m_processor->PropertyValue(object, name);
    std::optional<double> value = ParseNumber(Trim(text));
    if (!m_processor->HasProperty(object, name) || !value)
        Raise(status::kGeneralFailure, std::string("CScaler.") + operation,
            "The control has no numeric property " + name + ".");
    return *value;
}

std::vector<IHostObject*> CScaler::ContainerChain(IHostObject* control) const
{
    std::vector<IHostObject*> path;
    if (!FindPath(*m_processor, m_form, control, path, 0))
        Raise(status::kGeneralFailure, "CScaler.init", "The control is not on the form.");
    // Innermost container first.
    return { path.rbegin(), path.rend() };
}

void CScaler::init(IHostObject* control, IClientFormProcessor& processor, IHostObject* form, bool calcTabs)
{
    m_processor = &processor;
    m_form = form;
    m_control = control;
    IsMSAccess = processor.IsMSAccess();
    ScaleMode = processor.ScaleMode(form);
    ScaleY(ScaleMode);
    if (!control)
        return;
    m_left = Property(control, "Left", "init");
    m_top = Property(control, "Top", "init");
    m_width = Property(control, "Width", "init");
    m_height = Property(control, "Height", "init");
    std::vector<IHostObject*> chain = ContainerChain(control);
    m_onForm = chain.empty();
    m_container = m_onForm ? form : chain.front();
    if (IsMSAccess && m_onForm && ConstToMultiplyX != 0 && ConstToMultiplyY != 0) {
        m_left += processor.ControlSectionOffsetX(control) / ConstToMultiplyX;
        m_top += (processor.ControlSectionOffsetY(control) + processor.ControlSectionTitleHeight(control))
            / ConstToMultiplyY;
    }
    m_offsetLeft = m_offsetTop = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        // The outermost container stands in the form's units, the others in twips.
        bool onForm = i + 1 == chain.size();
        m_offsetLeft += Property(chain[i], "Left", "init") * (onForm ? ConstToMultiplyX : 1);
        m_offsetTop += Property(chain[i], "Top", "init") * (onForm ? ConstToMultiplyY : 1);
    }
    if (calcTabs)
        CalcScaleMultipliers();
}

int CScaler::Left() const
{
    return NearestPixel(m_offsetLeft + m_left * (m_onForm ? ConstToMultiplyX : 1));
}

int CScaler::Top() const
{
    return NearestPixel(m_offsetTop + m_top * (m_onForm ? ConstToMultiplyY : 1));
}

int CScaler::Width() const
{
    return NearestPixel(m_width * (m_onForm ? ConstToMultiplyX : 1));
}

int CScaler::Height() const
{
    return NearestPixel(m_height * (m_onForm ? ConstToMultiplyY : 1));
}

// --- tabs ---

void CScaler::CalcScaleMultipliers()
{
    if (IsMSAccess) {
        m_tabsQty = static_cast<int>(Property(m_control, "Pages.Count", "CalcScaleMultipliers"));
        m_tabsPerRow = m_tabsQty;
        double fixedHeight = Property(m_control, "TabFixedHeight", "CalcScaleMultipliers");
        if (fixedHeight == 0)
            fixedHeight = 284;
        double fixedWidth = Property(m_control, "TabFixedWidth", "CalcScaleMultipliers");
        m_tabHeight = ConstToMultiplyY != 0 ? fixedHeight / ConstToMultiplyY / kTwipsPerPixel : 0;
        m_tabWidth = ConstToMultiplyX != 0 ? fixedWidth / ConstToMultiplyX / kTwipsPerPixel : 0;
        return;
    }
    m_tabsQty = static_cast<int>(Property(m_control, "Tabs", "CalcScaleMultipliers"));
    m_tabsPerRow = static_cast<int>(Property(m_control, "TabsPerRow", "CalcScaleMultipliers"));
    double tabHeight = Property(m_control, "TabHeight", "CalcScaleMultipliers");
    // On the form the height is in the form's units, inside a container in twips.
    m_tabHeight = tabHeight * (m_onForm ? ConstToMultiplyY : 1) / kTwipsPerPixel;
    if (m_tabsPerRow == 0)
        Raise(status::kGeneralFailure, "CScaler.CalcScaleMultipliers", "Division by zero: the control has 0 tabs per row.");
    m_tabWidth = static_cast<double>(Width()) / m_tabsPerRow;
}

int CScaler::TabIndexInRow(int index) const
{
    return m_tabsPerRow >= 1 ? index % m_tabsPerRow : index;
}

int CScaler::CalcTabsHotSpots(int index) const
{
    if (m_tabsPerRow == 0)
        Raise(status::kGeneralFailure, "CScaler.CalcTabsHotSpots", "Division by zero: the control has 0 tabs per row.");
    return (m_tabsQty - 1) / m_tabsPerRow - index / m_tabsPerRow;
}

int CScaler::TabTop(int index) const
{
    return static_cast<int>(Top() + CalcTabsHotSpots(index) * m_tabHeight);
}

int CScaler::TabLeft(int index) const
{
    if (IsMSAccess && m_tabWidth == 0) {
        double left = Left();
        for (int i = 0; i < index; ++i)
            left += AccessTabWidthPixels(i);
        return static_cast<int>(std::nearbyint(left));
    }
    return static_cast<int>(std::nearbyint(Left() + TabIndexInRow(index) * m_tabWidth));
}

int CScaler::TabWidth(int index) const
{
    if (IsMSAccess && m_tabWidth == 0)
        return static_cast<int>(std::nearbyint(AccessTabWidthPixels(index)));
    return static_cast<int>(std::nearbyint(m_tabWidth));
}

double CScaler::AccessTabWidthPixels(int index) const
{
    std::string caption = m_processor->TabPageCaptionGet(m_control, index, false);
    int weight = static_cast<int>(ParseNumber(m_processor->PropertyValue(m_control, "FontWeight")).value_or(400));
    double size = ParseNumber(m_processor->PropertyValue(m_control, "FontSize")).value_or(8);
    double twips = AccessCaptionWidthTwips(caption, weight, size);
    return ConstToMultiplyX != 0 ? twips / ConstToMultiplyX / kTwipsPerPixel : 0;
}

double CScaler::AccessCaptionWidthTwips(const std::string& caption, int fontWeight, double fontSize)
{
    double weight = fontWeight >= 600 ? 4.65 / 4 : 1;
    double factor = fontSize * weight / 8;
    return 668.0 / 4 * static_cast<double>(CharCount(caption)) * factor * 3 / 4;
}

}  // namespace scriv
