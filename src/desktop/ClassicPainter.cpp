#include "desktop/ClassicPainter.h"

#include <algorithm>
#include <array>
#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>

#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

constexpr double kDotsPerInch = 96;

void SetColour(cairo_t* cr, Rgb colour)
{
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

Rgb Sys(int index)
{
    return SystemColour(index);
}

struct MnemonicText {
    std::string text;
    // Byte range of the underlined character, or an empty range.
    std::size_t underlineStart { 0 };
    std::size_t underlineEnd { 0 };
};

std::size_t Utf8Length(unsigned char lead)
{
    if (lead >= 0xF0)
        return 4;
    if (lead >= 0xE0)
        return 3;
    if (lead >= 0xC0)
        return 2;
    return 1;
}

MnemonicText ParseMnemonic(const std::string& text)
{
    MnemonicText parsed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '&' || i + 1 == text.size()) {
            parsed.text += text[i];
            continue;
        }
        ++i;
        if (text[i] != '&' && parsed.underlineEnd == 0) {
            parsed.underlineStart = parsed.text.size();
            parsed.underlineEnd = parsed.underlineStart + Utf8Length(static_cast<unsigned char>(text[i]));
        }
        std::size_t length = text[i] == '&' ? 1 : Utf8Length(static_cast<unsigned char>(text[i]));
        parsed.text += text.substr(i, length);
        i += length - 1;
    }
    return parsed;
}

// A Pango layout that is freed with its owner.
class Layout {
public:
    Layout(PangoContext* context, const std::string& text, const FontSpec& font, bool mnemonic,
        bool rightToLeft = false)
        : m_layout(NewLayout(context, rightToLeft))
    {
        PangoFontDescription* description = pango_font_description_new();
        pango_font_description_set_family(description, StandInFamily(font.name).c_str());
        pango_font_description_set_size(description, static_cast<int>(std::max(font.points, 1.0) * PANGO_SCALE));
        pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
        pango_layout_set_font_description(m_layout, description);
        pango_font_description_free(description);

        MnemonicText parsed = mnemonic ? ParseMnemonic(text) : MnemonicText { text };
        pango_layout_set_text(m_layout, parsed.text.c_str(), static_cast<int>(parsed.text.size()));
        PangoAttrList* attributes = pango_attr_list_new();
        // Windows breaks lines between words only and never adds a hyphen, and
        // its text output neither kerns nor joins letters into ligatures.
        pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
        pango_attr_list_insert(attributes, pango_attr_font_features_new("kern 0, liga 0, clig 0"));
        if (font.underline)
            pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        if (font.strikethrough)
            pango_attr_list_insert(attributes, pango_attr_strikethrough_new(TRUE));
        if (parsed.underlineEnd > parsed.underlineStart) {
            PangoAttribute* underline = pango_attr_underline_new(PANGO_UNDERLINE_SINGLE);
            underline->start_index = static_cast<guint>(parsed.underlineStart);
            underline->end_index = static_cast<guint>(parsed.underlineEnd);
            pango_attr_list_insert(attributes, underline);
        }
        pango_layout_set_attributes(m_layout, attributes);
        pango_attr_list_unref(attributes);
    }
    ~Layout() { g_object_unref(m_layout); }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    PangoLayout* Get() const { return m_layout; }
    PixelRect Extents() const
    {
        PangoRectangle logical;
        pango_layout_get_pixel_extents(m_layout, nullptr, &logical);
        return { logical.x, logical.y, logical.width, logical.height };
    }

private:
    // The reading order is the one asked for, never guessed from the text.
    static PangoLayout* NewLayout(PangoContext* context, bool rightToLeft)
    {
        pango_context_set_base_dir(context, rightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
        PangoLayout* layout = pango_layout_new(context);
        pango_layout_set_auto_dir(layout, FALSE);
        return layout;
    }

    PangoLayout* m_layout;
};

// Wine's outline versions of the Windows system faces are not among the
// fonts of the system; the program adds them for itself once. Their bitmap
// siblings in the same folder are left out: the text layout cannot use them.
void RegisterWindowsFaces()
{
    static const bool registered = [] {
        static constexpr const char* kFolder = "/usr/share/wine/fonts/";
        static constexpr const char* kFaces[] = { "ms_sans_serif.ttf", "tahoma.ttf", "tahomabd.ttf", "small_fonts.ttf",
            "system.ttf", "fixedsys.ttf", "marlett.ttf", "symbol.ttf", "wingding.ttf", "webdings.ttf" };
        FcConfig* config = FcConfigGetCurrent();
        bool any = false;
        for (const char* face : kFaces) {
            std::string path = std::string(kFolder) + face;
            any = FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(path.c_str())) || any;
        }
        return any;
    }();
    (void)registered;
}

}  // namespace

std::string StandInFamily(const std::string& windowsFamily)
{
    // Faces whose widths match the Windows ones, so that a caption that fits
    // its control on Windows fits in the picture: Wine's for the system faces,
    // Liberation for the core fonts.
    static const std::array<std::pair<const char*, const char*>, 14> exact { {
        { "ms sans serif", "MS Sans Serif" },
        { "microsoft sans serif", "MS Sans Serif" },
        { "ms shell dlg", "MS Sans Serif" },
        { "tahoma", "Tahoma" },
        { "ms shell dlg 2", "Tahoma" },
        { "small fonts", "Small Fonts" },
        { "system", "System" },
        { "fixedsys", "Fixedsys" },
        { "marlett", "Marlett" },
        { "symbol", "Symbol" },
        { "wingdings", "Wingdings" },
        { "webdings", "Webdings" },
        { "arial", "Liberation Sans" },
        { "helvetica", "Liberation Sans" },
    } };
    static const std::array<const char*, 9> serif { "times new roman", "times", "georgia", "garamond", "book antiqua",
        "century schoolbook", "bookman old style", "palatino linotype", "serif" };
    static const std::array<const char*, 7> mono { "courier new", "courier", "lucida console", "terminal", "consolas",
        "lucida sans typewriter", "monospace" };
    std::string name = ToLower(Trim(windowsFamily));
    for (const auto& [windows, standIn] : exact)
        if (name == windows)
            return standIn;
    for (const char* family : serif)
        if (name == family)
            return "Liberation Serif";
    for (const char* family : mono)
        if (name == family)
            return "Liberation Mono";
    return "Liberation Sans";
}

std::string StripMnemonic(const std::string& text)
{
    return ParseMnemonic(text).text;
}

ClassicPainter::ClassicPainter(cairo_t* cr)
    : m_cr(cr)
    , m_pango((RegisterWindowsFaces(), pango_cairo_create_context(cr)))
{
    pango_cairo_context_set_resolution(m_pango, kDotsPerInch);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(m_pango, options);
    cairo_font_options_destroy(options);
}

ClassicPainter::~ClassicPainter()
{
    g_object_unref(m_pango);
}

// --- areas and lines ---

void ClassicPainter::Fill(const PixelRect& rect, Rgb colour)
{
    if (rect.Empty())
        return;
    cairo_rectangle(m_cr, rect.left, rect.top, rect.width, rect.height);
    SetColour(m_cr, colour);
    cairo_fill(m_cr);
}

void ClassicPainter::HLine(int x, int y, int width, Rgb colour)
{
    Fill({ x, y, width, 1 }, colour);
}

void ClassicPainter::VLine(int x, int y, int height, Rgb colour)
{
    Fill({ x, y, 1, height }, colour);
}

void ClassicPainter::Frame(const PixelRect& rect, Rgb colour)
{
    if (rect.Empty())
        return;
    HLine(rect.left, rect.top, rect.width, colour);
    HLine(rect.left, rect.Bottom() - 1, rect.width, colour);
    VLine(rect.left, rect.top, rect.height, colour);
    VLine(rect.Right() - 1, rect.top, rect.height, colour);
}

namespace {

// One pixel ring: top and left in one colour, bottom and right in another,
// which owns the bottom-left and top-right corners.
void Ring(ClassicPainter& painter, const PixelRect& rect, Rgb topLeft, Rgb bottomRight)
{
    if (rect.Empty())
        return;
    painter.HLine(rect.left, rect.top, rect.width - 1, topLeft);
    painter.VLine(rect.left, rect.top, rect.height - 1, topLeft);
    painter.HLine(rect.left, rect.Bottom() - 1, rect.width, bottomRight);
    painter.VLine(rect.Right() - 1, rect.top, rect.height, bottomRight);
}

}  // namespace

void ClassicPainter::DrawEdge(const PixelRect& rect, Edge edge)
{
    using namespace syscolour;
    switch (edge) {
    case Edge::Sunken:
        Ring(*this, rect, Sys(kButtonShadow), Sys(kButtonHighlight));
        Ring(*this, rect.Inset(1), Sys(kDarkShadow), Sys(kLight));
        break;
    case Edge::Raised:
        Ring(*this, rect, Sys(kLight), Sys(kDarkShadow));
        Ring(*this, rect.Inset(1), Sys(kButtonHighlight), Sys(kButtonShadow));
        break;
    case Edge::Button:
        Ring(*this, rect, Sys(kButtonHighlight), Sys(kDarkShadow));
        Ring(*this, rect.Inset(1), Sys(kLight), Sys(kButtonShadow));
        break;
    case Edge::ButtonPressed:
        Frame(rect, Sys(kDarkShadow));
        Frame(rect.Inset(1), Sys(kButtonShadow));
        break;
    case Edge::SunkenThin:
        Ring(*this, rect, Sys(kButtonShadow), Sys(kButtonHighlight));
        break;
    case Edge::RaisedThin:
        Ring(*this, rect, Sys(kButtonHighlight), Sys(kButtonShadow));
        break;
    case Edge::Etched:
        Frame({ rect.left + 1, rect.top + 1, rect.width - 1, rect.height - 1 }, Sys(kButtonHighlight));
        Frame({ rect.left, rect.top, rect.width - 1, rect.height - 1 }, Sys(kButtonShadow));
        break;
    }
}

void ClassicPainter::Gradient(const PixelRect& rect, Rgb from, Rgb to)
{
    if (rect.Empty())
        return;
    cairo_pattern_t* pattern = cairo_pattern_create_linear(rect.left, 0, rect.Right(), 0);
    cairo_pattern_add_color_stop_rgb(pattern, 0, from.r / 255.0, from.g / 255.0, from.b / 255.0);
    cairo_pattern_add_color_stop_rgb(pattern, 1, to.r / 255.0, to.g / 255.0, to.b / 255.0);
    cairo_rectangle(m_cr, rect.left, rect.top, rect.width, rect.height);
    cairo_set_source(m_cr, pattern);
    cairo_fill(m_cr);
    cairo_pattern_destroy(pattern);
}

void ClassicPainter::Dither(const PixelRect& rect, Rgb a, Rgb b)
{
    if (rect.Empty())
        return;
    cairo_surface_t* tile = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 2, 2);
    cairo_t* tileContext = cairo_create(tile);
    SetColour(tileContext, a);
    cairo_paint(tileContext);
    SetColour(tileContext, b);
    cairo_rectangle(tileContext, 1, 0, 1, 1);
    cairo_rectangle(tileContext, 0, 1, 1, 1);
    cairo_fill(tileContext);
    cairo_destroy(tileContext);
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(tile);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    cairo_rectangle(m_cr, rect.left, rect.top, rect.width, rect.height);
    cairo_set_source(m_cr, pattern);
    cairo_fill(m_cr);
    cairo_pattern_destroy(pattern);
    cairo_surface_destroy(tile);
}

// --- clipping ---

void ClassicPainter::PushClip(const PixelRect& rect)
{
    cairo_save(m_cr);
    cairo_rectangle(m_cr, rect.left, rect.top, std::max(rect.width, 0), std::max(rect.height, 0));
    cairo_clip(m_cr);
}

void ClassicPainter::PopClip()
{
    cairo_restore(m_cr);
}

// --- glyphs ---

void ClassicPainter::Arrow(const PixelRect& box, ArrowDirection direction, Rgb colour)
{
    // A triangle of rows 2n-1, 2n-3 ... 1 pixels long, n from the box's size.
    int rows = std::clamp(std::min(box.width, box.height) / 4, 2, 8);
    int cx = box.left + box.width / 2;
    int cy = box.top + box.height / 2;
    for (int i = 0; i < rows; ++i) {
        int length = 2 * (rows - i) - 1;
        int half = length / 2;
        switch (direction) {
        case ArrowDirection::Down:
            HLine(cx - half, cy - rows / 2 + i, length, colour);
            break;
        case ArrowDirection::Up:
            HLine(cx - half, cy + rows / 2 - i, length, colour);
            break;
        case ArrowDirection::Right:
            VLine(cx - rows / 2 + i, cy - half, length, colour);
            break;
        case ArrowDirection::Left:
            VLine(cx + rows / 2 - i, cy - half, length, colour);
            break;
        }
    }
}

void ClassicPainter::CheckMark(int x, int y, Rgb colour)
{
    // Each column is three pixels high, stepping down to the fourth column and up again.
    constexpr std::array<int, 7> kTops { 2, 3, 4, 3, 2, 1, 0 };
    for (int column = 0; column < 7; ++column)
        VLine(x + column, y + kTops[static_cast<std::size_t>(column)], 3, colour);
}

void ClassicPainter::ArrowButton(const PixelRect& rect, ArrowDirection direction, bool enabled)
{
    using namespace syscolour;
    Fill(rect, Sys(kButtonFace));
    DrawEdge(rect, Edge::Button);
    PixelRect inner = rect.Inset(2);
    if (enabled) {
        Arrow(inner, direction, Sys(kButtonText));
        return;
    }
    Arrow({ inner.left + 1, inner.top + 1, inner.width, inner.height }, direction, Sys(kButtonHighlight));
    Arrow(inner, direction, Sys(kButtonShadow));
}

// --- pictures ---

void ClassicPainter::DrawPicture(const Picture& picture, const PixelRect& rect, bool stretch)
{
    if (picture.Empty() || rect.Empty())
        return;
    cairo_surface_t* surface = picture.ToSurface();
    cairo_save(m_cr);
    cairo_rectangle(m_cr, rect.left, rect.top, rect.width, rect.height);
    cairo_clip(m_cr);
    cairo_translate(m_cr, rect.left, rect.top);
    if (stretch)
        cairo_scale(m_cr, static_cast<double>(rect.width) / picture.Width(),
            static_cast<double>(rect.height) / picture.Height());
    cairo_set_source_surface(m_cr, surface, 0, 0);
    // Stretched, the edge pixels keep their colour instead of fading out.
    cairo_pattern_set_extend(cairo_get_source(m_cr), CAIRO_EXTEND_PAD);
    cairo_paint(m_cr);
    cairo_restore(m_cr);
    cairo_surface_destroy(surface);
}

// --- text ---

int ClassicPainter::MissingGlyphs(const std::string& text, const FontSpec& font)
{
    Layout layout(m_pango, text, font, false);
    return pango_layout_get_unknown_glyphs_count(layout.Get());
}

void ClassicPainter::MirrorHorizontally(const PixelRect& rect)
{
    if (rect.width <= 0 || rect.height <= 0)
        return;
    cairo_surface_t* target = cairo_get_target(m_cr);
    cairo_surface_flush(target);
    cairo_surface_t* copy = cairo_image_surface_create(CAIRO_FORMAT_RGB24, rect.width, rect.height);
    cairo_t* copier = cairo_create(copy);
    cairo_set_source_surface(copier, target, -rect.left, -rect.top);
    cairo_paint(copier);
    cairo_destroy(copier);
    cairo_save(m_cr);
    cairo_translate(m_cr, rect.left + rect.width, rect.top);
    cairo_scale(m_cr, -1, 1);
    cairo_set_source_surface(m_cr, copy, 0, 0);
    cairo_rectangle(m_cr, 0, 0, rect.width, rect.height);
    cairo_fill(m_cr);
    cairo_restore(m_cr);
    cairo_surface_destroy(copy);
}

PixelRect ClassicPainter::MeasureText(const std::string& text, const FontSpec& font, bool mnemonic, int wrapWidth)
{
    Layout layout(m_pango, text, font, mnemonic);
    if (wrapWidth > 0) {
        pango_layout_set_width(layout.Get(), wrapWidth * PANGO_SCALE);
        pango_layout_set_wrap(layout.Get(), PANGO_WRAP_WORD);
    }
    PixelRect extents = layout.Extents();
    return { 0, 0, extents.width, extents.height };
}

void ClassicPainter::DrawText(const PixelRect& box, const std::string& text, const FontSpec& font, Rgb colour,
    const TextStyle& style)
{
    if (text.empty() || box.width <= 0)
        return;
    if (!style.disabled) {
        DrawTextAt(box, text, font, colour, style);
        return;
    }
    // Engraved: a light copy one pixel down and right under a grey one.
    DrawTextAt({ box.left + 1, box.top + 1, box.width, box.height }, text, font,
        SystemColour(syscolour::kButtonHighlight), style);
    DrawTextAt(box, text, font, SystemColour(syscolour::kGrayText), style);
}

void ClassicPainter::DrawTextAt(const PixelRect& box, const std::string& text, const FontSpec& font, Rgb colour,
    const TextStyle& style)
{
    Layout layout(m_pango, text, font, style.mnemonic, style.rightToLeft);
    PangoLayout* pango = layout.Get();
    if (style.wrap || style.ellipsis) {
        pango_layout_set_width(pango, box.width * PANGO_SCALE);
        pango_layout_set_wrap(pango, PANGO_WRAP_WORD);
        if (style.ellipsis)
            pango_layout_set_ellipsize(pango, PANGO_ELLIPSIZE_END);
        PangoAlignment alignment = style.hAlign == HAlign::Center
            ? PANGO_ALIGN_CENTER
            : (style.hAlign == HAlign::Right ? PANGO_ALIGN_RIGHT : PANGO_ALIGN_LEFT);
        pango_layout_set_alignment(pango, alignment);
    }
    PixelRect extents = layout.Extents();
    int x = box.left;
    if (!style.wrap && !style.ellipsis) {
        if (style.hAlign == HAlign::Right)
            x = box.Right() - extents.width;
        else if (style.hAlign == HAlign::Center)
            x = box.left + (box.width - extents.width) / 2;
    }
    int y = box.top;
    if (style.vAlign == VAlign::Middle)
        y = box.top + (box.height - extents.height) / 2;
    else if (style.vAlign == VAlign::Bottom)
        y = box.Bottom() - extents.height;
    SetColour(m_cr, colour);
    // A layout with a width places its lines itself; the extents say where.
    // What does not fit is cut off at the edge of the box, as Windows clips.
    bool laidOut = style.wrap || style.ellipsis;
    PushClip(box);
    cairo_move_to(m_cr, laidOut ? box.left : x - extents.left, y);
    pango_cairo_show_layout(m_cr, pango);
    PopClip();
}

namespace {

void PaintGlyph(ClassicPainter& painter, const PixelRect& face, CaptionGlyph glyph, Rgb colour)
{
    int cx = face.left + face.width / 2;
    int cy = face.top + face.height / 2;
    switch (glyph) {
    case CaptionGlyph::Close:
        for (int i = 0; i < 7; ++i) {
            painter.Fill({ cx - 4 + i, cy - 4 + i, 2, 1 }, colour);
            painter.Fill({ cx + 1 - i, cy - 4 + i, 2, 1 }, colour);
        }
        break;
    case CaptionGlyph::Maximize:
        painter.Frame({ cx - 5, cy - 5, 9, 9 }, colour);
        painter.HLine(cx - 5, cy - 4, 9, colour);
        break;
    case CaptionGlyph::Minimize:
        painter.Fill({ cx - 4, cy + 1, 6, 2 }, colour);
        break;
    }
}

}  // namespace

void PaintCaptionButton(ClassicPainter& painter, const PixelRect& rect, CaptionGlyph glyph, bool enabled)
{
    painter.Fill(rect, Sys(syscolour::kButtonFace));
    painter.DrawEdge(rect, Edge::Button);
    if (enabled) {
        PaintGlyph(painter, rect, glyph, Sys(syscolour::kButtonText));
        return;
    }
    PaintGlyph(painter, { rect.left + 1, rect.top + 1, rect.width, rect.height }, glyph,
        Sys(syscolour::kButtonHighlight));
    PaintGlyph(painter, rect, glyph, Sys(syscolour::kGrayText));
}

}  // namespace scriv
