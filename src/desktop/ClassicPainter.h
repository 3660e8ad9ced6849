#pragma once

#include <string>

#include "desktop/Picture.h"

typedef struct _cairo cairo_t;
typedef struct _PangoContext PangoContext;

namespace scriv {

// A rectangle in pixels.
struct PixelRect {
    int left { 0 };
    int top { 0 };
    int width { 0 };
    int height { 0 };

    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
    bool Empty() const { return width <= 0 || height <= 0; }
    // The rectangle moved in by d on every side.
    PixelRect Inset(int d) const { return { left + d, top + d, width - 2 * d, height - 2 * d }; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// A font as a form file describes it; the family is the Windows name.
struct FontSpec {
    std::string name { "MS Sans Serif" };
    double points { 8.25 };
    bool bold { false };
    bool italic { false };
    bool underline { false };
    bool strikethrough { false };
};

// The installed family that stands in for a Windows font family: Liberation
// Serif for the serif faces, Liberation Mono for the fixed ones, Liberation
// Sans for the others.
std::string StandInFamily(const std::string& windowsFamily);

enum class HAlign { Left, Right, Center };
enum class VAlign { Top, Middle, Bottom };

// The 3D edges of the classic look.
enum class Edge {
    Sunken, // 2 pixels: a text box, a list
    Raised, // 2 pixels: a window frame, a tab page
    Button, // 2 pixels: a push button at rest
    ButtonPressed, // 2 pixels: a push button held down
    SunkenThin, // 1 pixel: a status bar panel
    RaisedThin, // 1 pixel: a toolbar button, a flat frame
    Etched, // 2 pixels: the line around a frame
};

enum class ArrowDirection { Up, Down, Left, Right };

// Text options.
struct TextStyle {
    HAlign hAlign { HAlign::Left };
    VAlign vAlign { VAlign::Top };
    bool wrap { false };
    // "&x" underlines x and "&&" is one "&".
    bool mnemonic { true };
    // Cut off with "..." when wider than the box (one line only).
    bool ellipsis { false };
    // Drawn engraved, as Windows draws the text of a disabled control.
    bool disabled { false };
    // Read from right to left (a control whose RightToLeft is set); otherwise
    // the text reads left to right whatever script it is in, as Windows
    // draws it without the right-to-left reading flag.
    bool rightToLeft { false };
};

// Drawing operations of the classic Windows look on a cairo context, in whole
// pixels. Colours are given as Rgb; the system colours are those of SystemColours.h.
class ClassicPainter {
public:
    explicit ClassicPainter(cairo_t* cr);
    ~ClassicPainter();
    ClassicPainter(const ClassicPainter&) = delete;
    ClassicPainter& operator=(const ClassicPainter&) = delete;

    cairo_t* Context() const { return m_cr; }

    // --- areas and lines ---
    void Fill(const PixelRect& rect, Rgb colour);
    void HLine(int x, int y, int width, Rgb colour);
    void VLine(int x, int y, int height, Rgb colour);
    void Frame(const PixelRect& rect, Rgb colour);
    void DrawEdge(const PixelRect& rect, Edge edge);
    // A fill from one colour on the left to another on the right.
    void Gradient(const PixelRect& rect, Rgb from, Rgb to);
    // The checkered fill of a scroll bar track.
    void Dither(const PixelRect& rect, Rgb a, Rgb b);

    // --- clipping: nested, each Push undone by one Pop ---
    void PushClip(const PixelRect& rect);
    // Flips what is drawn inside the rectangle from left to right, as a window
    // laid out from right to left shows it.
    void MirrorHorizontally(const PixelRect& rect);
    // How many characters of the text the installed fonts cannot draw (each
    // would show as a box).
    int MissingGlyphs(const std::string& text, const FontSpec& font);
    void PopClip();

    // --- glyphs ---
    void Arrow(const PixelRect& box, ArrowDirection direction, Rgb colour);
    // The tick of a checked box, 7 x 7, with its top-left corner at x, y.
    void CheckMark(int x, int y, Rgb colour);
    // A raised push button face with an arrow: the parts of scroll bars and combo boxes.
    void ArrowButton(const PixelRect& rect, ArrowDirection direction, bool enabled = true);

    // --- pictures ---
    void DrawPicture(const Picture& picture, const PixelRect& rect, bool stretch);

    // --- text ---
    // The size of text in pixels when drawn in the font (wrapped at wrapWidth when above 0).
    PixelRect MeasureText(const std::string& text, const FontSpec& font, bool mnemonic = true, int wrapWidth = 0);
    void DrawText(const PixelRect& box, const std::string& text, const FontSpec& font, Rgb colour,
        const TextStyle& style = {});

private:
    void DrawTextAt(const PixelRect& box, const std::string& text, const FontSpec& font, Rgb colour,
        const TextStyle& style);

    cairo_t* m_cr { nullptr };
    PangoContext* m_pango { nullptr };
};

enum class CaptionGlyph { Close, Maximize, Minimize };

// A button of a title bar; a disabled one shows its glyph engraved.
void PaintCaptionButton(ClassicPainter& painter, const PixelRect& rect, CaptionGlyph glyph, bool enabled = true);

// A copy of text without its mnemonic marks ("&Save" gives "Save", "a && b" gives "a & b").
std::string StripMnemonic(const std::string& text);

}  // namespace scriv
