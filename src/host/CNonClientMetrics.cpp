#include "host/CNonClientMetrics.h"

namespace scriv {

void CNonClientMetrics::SearchMetrics()
{
    // The classic Windows look at 96 dpi: an 18-pixel caption, a 15-pixel tool
    // window caption, an 18-pixel menu bar, a 1-pixel border unit and 16-pixel
    // scroll bars.
    MaxHeight = 18;
    MinHeight = 15;
    HeightMenus = 18;
    borderWidth = 1;
    ScrollWidth = 16;
    ScrollHeight = 16;
}

int CNonClientMetrics::GetFormNCM(int borderStyle) const
{
    switch (borderStyle) {
    case 1:
    case 2:
    case 3:
        return MaxHeight;
    case 4:
    case 5:
        return MinHeight;
    default:
        return 0;
    }
}

int CNonClientMetrics::FrameWidth(int borderStyle) const
{
    return borderStyle >= 1 ? borderWidth * 4 : 0;
}

}  // namespace scriv
