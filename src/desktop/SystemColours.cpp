#include "desktop/SystemColours.h"

#include <array>

namespace scriv {

namespace {

// The "Windows Standard" scheme of Windows 2000, indexes 0 to 28.
constexpr std::array<Rgb, 29> kClassicScheme { {
    { 212, 208, 200 }, // scroll bar
    { 58, 110, 165 }, // desktop
    { 10, 36, 106 }, // active caption
    { 128, 128, 128 }, // inactive caption
    { 212, 208, 200 }, // menu
    { 255, 255, 255 }, // window
    { 0, 0, 0 }, // window frame
    { 0, 0, 0 }, // menu text
    { 0, 0, 0 }, // window text
    { 255, 255, 255 }, // caption text
    { 212, 208, 200 }, // active border
    { 212, 208, 200 }, // inactive border
    { 128, 128, 128 }, // application workspace
    { 10, 36, 106 }, // highlight
    { 255, 255, 255 }, // highlight text
    { 212, 208, 200 }, // button face
    { 128, 128, 128 }, // button shadow
    { 128, 128, 128 }, // grey text
    { 0, 0, 0 }, // button text
    { 212, 208, 200 }, // inactive caption text
    { 255, 255, 255 }, // button highlight
    { 64, 64, 64 }, // 3D dark shadow
    { 212, 208, 200 }, // 3D light
    { 0, 0, 0 }, // tool tip text
    { 255, 255, 225 }, // tool tip background
    { 181, 181, 181 }, // (alternate button face)
    { 0, 0, 128 }, // hot-tracked item
    { 166, 202, 240 }, // active caption gradient
    { 192, 192, 192 }, // inactive caption gradient
} };

}  // namespace

Rgb SystemColour(int index)
{
    if (index < 0 || index >= static_cast<int>(kClassicScheme.size()))
        return {};
    return kClassicScheme[static_cast<std::size_t>(index)];
}

Rgb VbColour(std::uint32_t value)
{
    if (value & 0x80000000u)
        return SystemColour(static_cast<int>(value & 0xFFu));
    return { static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>((value >> 8) & 0xFF),
        static_cast<std::uint8_t>((value >> 16) & 0xFF) };
}

}  // namespace scriv
