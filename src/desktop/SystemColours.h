#pragma once

#include <cstdint>

#include "desktop/Picture.h"

namespace scriv {

// The system colours of the classic Windows scheme, by their index (the low
// byte of a VB system colour &H800000nn&).
namespace syscolour {
inline constexpr int kScrollBar = 0;
inline constexpr int kDesktop = 1;
inline constexpr int kActiveCaption = 2;
inline constexpr int kInactiveCaption = 3;
inline constexpr int kMenu = 4;
inline constexpr int kWindow = 5;
inline constexpr int kWindowFrame = 6;
inline constexpr int kMenuText = 7;
inline constexpr int kWindowText = 8;
inline constexpr int kCaptionText = 9;
inline constexpr int kActiveBorder = 10;
inline constexpr int kInactiveBorder = 11;
inline constexpr int kAppWorkspace = 12;
inline constexpr int kHighlight = 13;
inline constexpr int kHighlightText = 14;
inline constexpr int kButtonFace = 15;
inline constexpr int kButtonShadow = 16;
inline constexpr int kGrayText = 17;
inline constexpr int kButtonText = 18;
inline constexpr int kInactiveCaptionText = 19;
inline constexpr int kButtonHighlight = 20;
inline constexpr int kDarkShadow = 21;
inline constexpr int kLight = 22;
inline constexpr int kInfoText = 23;
inline constexpr int kInfoBackground = 24;
inline constexpr int kHotLight = 26;
inline constexpr int kGradientActiveCaption = 27;
inline constexpr int kGradientInactiveCaption = 28;
}  // namespace syscolour

// The colour of a system colour index; black for an index the scheme lacks.
Rgb SystemColour(int index);

// The colour a VB colour value stands for: &H800000nn& is the system colour
// nn, any other value is &H00BBGGRR& (the high byte ignored).
Rgb VbColour(std::uint32_t value);

// The VB value of a system colour: &H80000000& | index.
constexpr std::uint32_t SystemColourValue(int index)
{
    return 0x80000000u | static_cast<std::uint32_t>(index);
}

}  // namespace scriv
