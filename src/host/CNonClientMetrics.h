#pragma once

namespace scriv {

// The sizes of window frames, captions and menus, in pixels, of the classic
// 96 dpi desktop that the form renderer draws. The host's client-area offsets
// and the renderer take them from here, so that hot spots lie on what is drawn.
class CNonClientMetrics {
public:
    // Reads the metrics; on this platform they are the classic desktop's constants.
    void SearchMetrics();

    int MaxHeight { 0 }; // caption height
    int MinHeight { 0 }; // small (tool window) caption height
    int HeightMenus { 0 }; // menu bar height
    int borderWidth { 0 }; // a frame is this times four
    int ScrollWidth { 0 };
    int ScrollHeight { 0 };

    // The caption height a form of that border style adds: none for 0, the
    // normal one for 1 to 3, the small one for tool windows 4 and 5, else none.
    int GetFormNCM(int borderStyle) const;
    // The width of a form's frame on each side: borderWidth x 4 for any border style above 0.
    int FrameWidth(int borderStyle) const;
};

// Twips per pixel of the classic 96 dpi screen, on both axes.
inline constexpr int kTwipsPerPixel = 15;

}  // namespace scriv
