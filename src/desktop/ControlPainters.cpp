#include "desktop/ControlPainters.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <functional>
#include <map>

#include "desktop/PainterParts.h"
#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6Block.h"

namespace scriv {

using namespace syscolour;
using namespace paint;

namespace {

// --- the painters ---

void PaintLabel(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    if (Int(block, "BackStyle", 1) != 0)
        painter.Fill(view.rect, Back(view, kButtonFace));
    PixelRect text = BoxBorder(painter, view.rect, view.threeD, Int(block, "BorderStyle", 0) == 1);
    TextStyle style;
    style.hAlign = Mirrored(AlignmentOf(Int(block, "Alignment", 0)), view.rightToLeft);
    style.rightToLeft = view.rightToLeft;
    // A label breaks its caption into lines when it is told to, or when it
    // has room for more than one line; otherwise the caption is cut off.
    style.wrap = block.Boolean("WordWrap", false) || text.height >= 2 * LineHeight(painter, view.font);
    style.mnemonic = block.Boolean("UseMnemonic", true);
    style.disabled = !view.enabled;
    painter.PushClip(text);
    painter.DrawText(text, block.Text("Caption"), view.font, Fore(view, kButtonText), style);
    painter.PopClip();
}

// Each character of text shown as the password character.
std::string Masked(const std::string& text, const std::string& mask)
{
    std::string masked;
    for (std::size_t i = 0; i < CharCount(text); ++i)
        masked += mask;
    return masked;
}

void PaintTextBox(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    painter.Fill(view.rect, Back(view, kWindow));
    PixelRect inner = BoxBorder(painter, view.rect, view.threeD, Int(block, "BorderStyle", 1) != 0);
    bool multiLine = block.Boolean("MultiLine", false);
    int bars = multiLine ? Int(block, "ScrollBars", 0) : 0;
    int bar = ScrollBarSize();
    int barsWidth = (bars & 2) ? bar : 0;
    int barsHeight = (bars & 1) ? bar : 0;
    if (bars & 2)
        PaintScrollBar(painter, { inner.Right() - bar, inner.top, bar, inner.height - barsHeight }, true, view.enabled, 0, 1, 0);
    if (bars & 1)
        PaintScrollBar(painter, { inner.left, inner.Bottom() - bar, inner.width - barsWidth, bar }, false, view.enabled, 0, 1, 0);
    if (bars == 3)
        painter.Fill({ inner.Right() - bar, inner.Bottom() - bar, bar, bar }, Sys(kButtonFace));
    std::string text = block.Text("Text");
    std::string password = block.Text("PasswordChar");
    if (!multiLine && !password.empty())
        text = Masked(text, LeftChars(password, 1));
    PixelRect area { inner.left + 2, inner.top + 1, inner.width - barsWidth - 3, inner.height - barsHeight - 1 };
    TextStyle style;
    style.hAlign = Mirrored(AlignmentOf(Int(block, "Alignment", 0)), view.rightToLeft);
    style.rightToLeft = view.rightToLeft;
    style.wrap = multiLine && !(bars & 1);
    style.mnemonic = false;
    painter.PushClip(area);
    painter.DrawText(area, text, view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintButtonFace(ClassicPainter& painter, const ControlView& view, bool pressed, bool isDefault, Rgb face)
{
    painter.Fill(view.rect, face);
    PixelRect body = view.rect;
    if (isDefault) {
        painter.Frame(body, Sys(kWindowFrame));
        body = body.Inset(1);
    }
    if (!view.threeD)
        painter.Frame(body, Sys(kWindowFrame));
    else
        painter.DrawEdge(body, pressed ? Edge::ButtonPressed : Edge::Button);
    PixelRect content = body.Inset(3);
    if (pressed)
        content = { content.left + 1, content.top + 1, content.width, content.height };
    bool graphical = Int(*view.block, "Style", 0) == 1;
    std::string caption = view.block->Text("Caption");
    if (graphical && view.picture) {
        int x = content.left + (content.width - view.picture->Width()) / 2;
        int textHeight = caption.empty() ? 0 : LineHeight(painter, view.font);
        int y = content.top + (content.height - textHeight - view.picture->Height()) / 2;
        painter.DrawPicture(*view.picture, { x, y, view.picture->Width(), view.picture->Height() }, false);
    }
    TextStyle style;
    style.hAlign = HAlign::Center;
    style.vAlign = graphical && view.picture ? VAlign::Bottom : VAlign::Middle;
    style.disabled = !view.enabled;
    painter.PushClip(content);
    painter.DrawText(content, caption, view.font, ColourProperty(*view.block, "ForeColor", SystemColourValue(kButtonText)), style);
    painter.PopClip();
}

void PaintCommandButton(ClassicPainter& painter, const ControlView& view)
{
    bool graphical = Int(*view.block, "Style", 0) == 1;
    Rgb face = graphical ? Back(view, kButtonFace) : Sys(kButtonFace);
    PaintButtonFace(painter, view, view.block->Boolean("Value", false), view.block->Boolean("Default", false), face);
}

void PaintOptionCircle(ClassicPainter& painter, const PixelRect& box, bool on, bool enabled, bool threeD)
{
    cairo_t* cr = painter.Context();
    double cx = box.left + box.width / 2.0;
    double cy = box.top + box.height / 2.0;
    auto disc = [&](double radius, Rgb colour) {
        cairo_arc(cr, cx, cy, radius, 0, 2 * M_PI);
        cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
        cairo_fill(cr);
    };
    // The upper left half of each ring is the dark one: clip to it for the second fill.
    auto upperLeft = [&](double radius, Rgb colour) {
        cairo_save(cr);
        cairo_move_to(cr, box.left, box.top);
        cairo_line_to(cr, box.Right(), box.top);
        cairo_line_to(cr, box.left, box.Bottom());
        cairo_close_path(cr);
        cairo_clip(cr);
        disc(radius, colour);
        cairo_restore(cr);
    };
    if (threeD) {
        disc(6, Sys(kButtonHighlight));
        upperLeft(6, Sys(kButtonShadow));
        disc(5, Sys(kLight));
        upperLeft(5, Sys(kDarkShadow));
    } else {
        disc(6, Sys(kWindowFrame));
    }
    disc(4, enabled ? Sys(kWindow) : Sys(kButtonFace));
    if (on)
        disc(2, enabled ? Sys(kWindowText) : Sys(kGrayText));
}

void PaintCheckOrOption(ClassicPainter& painter, const ControlView& view, bool option)
{
    const Vb6Block& block = *view.block;
    int value = option ? (block.Boolean("Value", false) ? 1 : 0) : Int(block, "Value", 0);
    if (Int(block, "Style", 0) == 1) {
        PaintButtonFace(painter, view, value == 1, false, Back(view, kButtonFace));
        return;
    }
    painter.Fill(view.rect, Back(view, kButtonFace));
    int size = option ? kOptionSize : kCheckBoxSize;
    bool boxRight = (Int(block, "Alignment", 0) == 1) != view.rightToLeft;
    PixelRect box { boxRight ? view.rect.Right() - size : view.rect.left, view.rect.top + (view.rect.height - size) / 2,
        size, size };
    if (option) {
        PaintOptionCircle(painter, box, value == 1, view.enabled, view.threeD);
    } else {
        painter.Fill(box, view.enabled && value != 2 ? Sys(kWindow) : Sys(kButtonFace));
        BoxBorder(painter, box, view.threeD);
        if (value != 0)
            painter.CheckMark(box.left + 3, box.top + 3, view.enabled && value == 1 ? Sys(kWindowText) : Sys(kGrayText));
    }
    PixelRect text = boxRight ? PixelRect { view.rect.left, view.rect.top, box.left - 4 - view.rect.left, view.rect.height }
                              : PixelRect { box.Right() + 4, view.rect.top, view.rect.Right() - box.Right() - 4, view.rect.height };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.disabled = !view.enabled;
    style.rightToLeft = view.rightToLeft;
    style.hAlign = view.rightToLeft ? HAlign::Right : HAlign::Left;
    painter.PushClip(text);
    painter.DrawText(text, block.Text("Caption"), view.font, Fore(view, kButtonText), style);
    painter.PopClip();
}

void PaintCheckBox(ClassicPainter& painter, const ControlView& view)
{
    PaintCheckOrOption(painter, view, false);
}

void PaintOptionButton(ClassicPainter& painter, const ControlView& view)
{
    PaintCheckOrOption(painter, view, true);
}

void PaintFrame(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    painter.Fill(view.rect, Back(view, kButtonFace));
    if (Int(block, "BorderStyle", 1) == 0)
        return;
    std::string caption = block.Text("Caption");
    int textHeight = LineHeight(painter, view.font);
    int top = view.rect.top + textHeight / 2;
    PixelRect border { view.rect.left, top, view.rect.width, view.rect.Bottom() - top };
    if (view.threeD)
        painter.DrawEdge(border, Edge::Etched);
    else
        painter.Frame(border, Sys(kWindowFrame));
    if (caption.empty())
        return;
    PixelRect size = painter.MeasureText(caption, view.font);
    int textWidth = std::min(size.width + 2, view.rect.width - 10);
    int textLeft = view.rightToLeft ? view.rect.Right() - 8 - textWidth : view.rect.left + 8;
    PixelRect text { textLeft, view.rect.top, textWidth, textHeight };
    painter.Fill({ text.left - 1, text.top, text.width + 2, text.height }, Back(view, kButtonFace));
    TextStyle style;
    style.disabled = !view.enabled;
    style.rightToLeft = view.rightToLeft;
    painter.PushClip(text);
    painter.DrawText({ text.left + 1, text.top, text.width, text.height }, caption, view.font, Fore(view, kButtonText), style);
    painter.PopClip();
}

void PaintComboField(ClassicPainter& painter, const ControlView& view, const PixelRect& field, const std::string& text,
    bool withButton)
{
    painter.Fill(field, Back(view, kWindow));
    PixelRect inner = BoxBorder(painter, field, view.threeD);
    int right = inner.Right();
    if (withButton) {
        int bar = ScrollBarSize();
        PixelRect button { inner.Right() - bar, inner.top, bar, inner.height };
        painter.ArrowButton(button, ArrowDirection::Down, view.enabled);
        right = button.left;
    }
    PixelRect area { inner.left + 2, inner.top, right - inner.left - 3, inner.height };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    painter.PushClip(area);
    painter.DrawText(area, text, view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintComboBox(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    int style = Int(block, "Style", 0);
    std::string text = style == 2 ? std::string() : block.Text("Text");
    if (style != 1) {
        PaintComboField(painter, view, view.rect, text, true);
        return;
    }
    int fieldHeight = std::min(view.rect.height, LineHeight(painter, view.font) + 8);
    PaintComboField(painter, view, { view.rect.left, view.rect.top, view.rect.width, fieldHeight }, text, false);
    PaintListArea(painter, view,
        { view.rect.left, view.rect.top + fieldHeight, view.rect.width, view.rect.height - fieldHeight },
        view.listItems, false);
}

void PaintListBox(ClassicPainter& painter, const ControlView& view)
{
    PaintListArea(painter, view, view.rect, view.listItems, Int(*view.block, "Style", 0) == 1);
}

void PaintPictureBox(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Back(view, kButtonFace));
    PixelRect inner = BoxBorder(painter, view.rect, view.threeD, Int(*view.block, "BorderStyle", 1) != 0);
    if (view.picture)
        painter.DrawPicture(*view.picture, { inner.left, inner.top, std::min(inner.width, view.picture->Width()),
                                               std::min(inner.height, view.picture->Height()) },
            false);
}

void PaintImage(ClassicPainter& painter, const ControlView& view)
{
    PixelRect inner = BoxBorder(painter, view.rect, view.threeD, Int(*view.block, "BorderStyle", 0) == 1);
    if (!view.picture)
        return;
    bool stretch = view.block->Boolean("Stretch", false);
    PixelRect area = stretch ? inner : PixelRect { inner.left, inner.top, view.picture->Width(), view.picture->Height() };
    painter.PushClip(inner);
    painter.DrawPicture(*view.picture, area, stretch);
    painter.PopClip();
}

void SetDash(cairo_t* cr, int borderStyle, double width)
{
    double unit = std::max(width, 1.0);
    switch (borderStyle) {
    case 2: {
        double dashes[] = { 6 * unit, 2 * unit };
        cairo_set_dash(cr, dashes, 2, 0);
        break;
    }
    case 3: {
        double dashes[] = { unit, unit };
        cairo_set_dash(cr, dashes, 2, 0);
        break;
    }
    case 4: {
        double dashes[] = { 6 * unit, 2 * unit, unit, 2 * unit };
        cairo_set_dash(cr, dashes, 4, 0);
        break;
    }
    case 5: {
        double dashes[] = { 6 * unit, 2 * unit, unit, 2 * unit, unit, 2 * unit };
        cairo_set_dash(cr, dashes, 6, 0);
        break;
    }
    default:
        cairo_set_dash(cr, nullptr, 0, 0);
    }
}

void SetSource(cairo_t* cr, Rgb colour)
{
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

// The outline of a Shape control of kind shape within box.
void ShapePath(cairo_t* cr, int shape, double x, double y, double w, double h)
{
    if (shape == 1 || shape == 3 || shape == 5) {
        double side = std::min(w, h);
        x += (w - side) / 2;
        y += (h - side) / 2;
        w = h = side;
    }
    if (shape == 2 || shape == 3) {
        cairo_save(cr);
        cairo_translate(cr, x + w / 2, y + h / 2);
        cairo_scale(cr, std::max(w / 2, 0.01), std::max(h / 2, 0.01));
        cairo_arc(cr, 0, 0, 1, 0, 2 * M_PI);
        cairo_restore(cr);
        return;
    }
    if (shape == 4 || shape == 5) {
        double r = std::min(w, h) / 6;
        cairo_new_sub_path(cr);
        cairo_arc(cr, x + w - r, y + r, r, -M_PI / 2, 0);
        cairo_arc(cr, x + w - r, y + h - r, r, 0, M_PI / 2);
        cairo_arc(cr, x + r, y + h - r, r, M_PI / 2, M_PI);
        cairo_arc(cr, x + r, y + r, r, M_PI, 3 * M_PI / 2);
        cairo_close_path(cr);
        return;
    }
    cairo_rectangle(cr, x, y, w, h);
}

// Hatch lines 8 pixels apart, of the fill styles 2 to 7.
void FillHatch(cairo_t* cr, const PixelRect& rect, int fillStyle, Rgb colour)
{
    cairo_save(cr);
    cairo_clip_preserve(cr);
    cairo_new_path(cr);
    SetSource(cr, colour);
    cairo_set_line_width(cr, 1);
    int span = rect.width + rect.height;
    for (int d = 0; d <= span; d += 8) {
        if (fillStyle == 2 || fillStyle == 6) {
            cairo_move_to(cr, rect.left, rect.top + d + 0.5);
            cairo_line_to(cr, rect.Right(), rect.top + d + 0.5);
        }
        if (fillStyle == 3 || fillStyle == 6) {
            cairo_move_to(cr, rect.left + d + 0.5, rect.top);
            cairo_line_to(cr, rect.left + d + 0.5, rect.Bottom());
        }
        if (fillStyle == 4 || fillStyle == 7) {
            cairo_move_to(cr, rect.left + d, rect.top);
            cairo_line_to(cr, rect.left + d - rect.height, rect.Bottom());
        }
        if (fillStyle == 5 || fillStyle == 7) {
            cairo_move_to(cr, rect.Right() - d, rect.top);
            cairo_line_to(cr, rect.Right() - d + rect.height, rect.Bottom());
        }
    }
    cairo_stroke(cr);
    cairo_restore(cr);
}

void PaintShape(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    cairo_t* cr = painter.Context();
    int shape = Int(block, "Shape", 0);
    double width = std::max(Int(block, "BorderWidth", 1), 1);
    int borderStyle = Int(block, "BorderStyle", 1);
    int fillStyle = Int(block, "FillStyle", 1);
    const PixelRect& r = view.rect;
    // The border lies inside the control's rectangle.
    double half = width / 2;
    cairo_save(cr);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    ShapePath(cr, shape, r.left + half, r.top + half, r.width - width, r.height - width);
    if (Int(block, "BackStyle", 0) == 1) {
        SetSource(cr, Back(view, kWindow));
        cairo_fill_preserve(cr);
    }
    if (fillStyle == 0) {
        SetSource(cr, ColourProperty(block, "FillColor", 0));
        cairo_fill_preserve(cr);
    } else if (fillStyle >= 2 && fillStyle <= 7) {
        FillHatch(cr, r, fillStyle, ColourProperty(block, "FillColor", 0));
    }
    if (borderStyle != 0) {
        SetSource(cr, ColourProperty(block, "BorderColor", SystemColourValue(kWindowText)));
        cairo_set_line_width(cr, width);
        SetDash(cr, borderStyle, width);
        cairo_stroke(cr);
    }
    cairo_new_path(cr);
    cairo_restore(cr);
}

void PaintLine(ClassicPainter& painter, const ControlView& view)
{
    const Vb6Block& block = *view.block;
    int borderStyle = Int(block, "BorderStyle", 1);
    if (borderStyle == 0)
        return;
    cairo_t* cr = painter.Context();
    double width = std::max(Int(block, "BorderWidth", 1), 1);
    cairo_save(cr);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    SetSource(cr, ColourProperty(block, "BorderColor", SystemColourValue(kWindowText)));
    cairo_set_line_width(cr, width);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
    SetDash(cr, borderStyle, width);
    // Centred on the pixels, so that a thin line covers whole pixels.
    cairo_move_to(cr, view.x1 + 0.5, view.y1 + 0.5);
    cairo_line_to(cr, view.x2 + 0.5, view.y2 + 0.5);
    cairo_stroke(cr);
    cairo_restore(cr);
}

void PaintScrollBarControl(ClassicPainter& painter, const ControlView& view, bool vertical)
{
    const Vb6Block& block = *view.block;
    PaintScrollBar(painter, view.rect, vertical, view.enabled, block.Number("Min", 0), block.Number("Max", 32767),
        block.Number("Value", 0));
}

void PaintDriveListBox(ClassicPainter& painter, const ControlView& view)
{
    PaintComboField(painter, view, view.rect, "c:", true);
}

void PaintDirListBox(ClassicPainter& painter, const ControlView& view)
{
    PaintListArea(painter, view, view.rect, {}, false);
    PixelRect inner = view.rect.Inset(2);
    int line = LineHeight(painter, view.font);
    // An open folder and the root of the current drive.
    PixelRect folder { inner.left + 3, inner.top + (line - 9) / 2, 13, 9 };
    painter.Fill(folder, { 255, 255, 153 });
    painter.Frame(folder, { 128, 128, 0 });
    TextStyle style;
    style.mnemonic = false;
    painter.PushClip(inner);
    painter.DrawText({ folder.Right() + 3, inner.top, inner.width, line }, "c:\\", view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintFileListBox(ClassicPainter& painter, const ControlView& view)
{
    PaintListArea(painter, view, view.rect, {}, false);
}

void PaintData(ClassicPainter& painter, const ControlView& view)
{
    const PixelRect& r = view.rect;
    painter.Fill(r, Back(view, kWindow));
    int button = std::min(r.height, ScrollBarSize());
    painter.ArrowButton({ r.left, r.top, button, r.height }, ArrowDirection::Left, view.enabled);
    painter.ArrowButton({ r.left + button, r.top, button, r.height }, ArrowDirection::Left, view.enabled);
    painter.ArrowButton({ r.Right() - 2 * button, r.top, button, r.height }, ArrowDirection::Right, view.enabled);
    painter.ArrowButton({ r.Right() - button, r.top, button, r.height }, ArrowDirection::Right, view.enabled);
    // The bars of the first and last buttons.
    painter.VLine(r.left + button / 2 - 3, r.top + r.height / 2 - 3, 7, Sys(kButtonText));
    painter.VLine(r.Right() - button / 2 + 2, r.top + r.height / 2 - 3, 7, Sys(kButtonText));
    PixelRect text { r.left + 2 * button + 2, r.top, r.width - 4 * button - 4, r.height };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.disabled = !view.enabled;
    painter.PushClip(text);
    painter.DrawText(text, view.block->Text("Caption"), view.font, Fore(view, kWindowText), style);
    painter.PopClip();
}

void PaintPlaceholder(ClassicPainter& painter, const ControlView& view)
{
    painter.Fill(view.rect, Sys(kButtonFace));
    painter.Frame(view.rect, Sys(kButtonShadow));
    TextStyle style;
    style.mnemonic = false;
    PixelRect text = view.rect.Inset(3);
    painter.PushClip(view.rect.Inset(1));
    painter.DrawText(text, view.name, view.font, Sys(kButtonText), style);
    painter.PopClip();
}

using Painter = std::function<void(ClassicPainter&, const ControlView&)>;

const std::map<std::string, Painter>& Painters()
{
    static const std::map<std::string, Painter> kPainters {
        { "label", PaintLabel },
        { "textbox", PaintTextBox },
        { "commandbutton", PaintCommandButton },
        { "checkbox", PaintCheckBox },
        { "optionbutton", PaintOptionButton },
        { "frame", PaintFrame },
        { "combobox", PaintComboBox },
        { "listbox", PaintListBox },
        { "picturebox", PaintPictureBox },
        { "image", PaintImage },
        { "shape", PaintShape },
        { "line", PaintLine },
        { "hscrollbar", [](ClassicPainter& p, const ControlView& v) { PaintScrollBarControl(p, v, false); } },
        { "vscrollbar", [](ClassicPainter& p, const ControlView& v) { PaintScrollBarControl(p, v, true); } },
        { "drivelistbox", PaintDriveListBox },
        { "dirlistbox", PaintDirListBox },
        { "filelistbox", PaintFileListBox },
        { "data", PaintData },
        { "sstab", PaintSSTab },
        { "tabstrip", PaintTabStrip },
        { "toolbar", PaintToolbar },
        { "statusbar", PaintStatusBar },
        { "progressbar", PaintProgressBar },
        { "listview", PaintListView },
        { "treeview", PaintTreeView },
        { "slider", PaintSlider },
    };
    return kPainters;
}

bool IsOneOf(std::string_view type, std::initializer_list<const char*> names)
{
    return std::any_of(names.begin(), names.end(), [&](const char* name) { return EqualsNoCase(type, name); });
}

}  // namespace

Rgb ColourProperty(const Vb6PropertyList& list, std::string_view name, std::uint32_t fallback)
{
    const Vb6Property* property = list.FindProperty(name);
    if (!property)
        return VbColour(fallback);
    if (std::optional<std::uint32_t> colour = property->Colour())
        return VbColour(*colour);
    // OCX properties write a system colour as a negative Long.
    std::optional<double> number = property->Number();
    if (number && *number < 0 && *number >= -2147483648.0)
        return VbColour(static_cast<std::uint32_t>(static_cast<std::int32_t>(*number)));
    return VbColour(fallback);
}

FontSpec FontOf(const Vb6Block& block)
{
    for (const Vb6Block* owner = &block; owner; owner = owner->Parent()) {
        const Vb6PropertyGroup* group = owner->FindGroup("Font");
        if (!group)
            continue;
        FontSpec font;
        font.name = group->Text("Name", "MS Sans Serif");
        font.points = group->Number("Size", 8.25);
        font.bold = group->Number("Weight", 400) >= 600;
        font.italic = group->Boolean("Italic", false);
        font.underline = group->Boolean("Underline", false);
        font.strikethrough = group->Boolean("Strikethrough", false);
        return font;
    }
    return {};
}

bool IsLightweightControl(std::string_view type)
{
    return IsOneOf(type, { "Label", "Image", "Shape", "Line" });
}

bool IsInvisibleAtRunTime(std::string_view type)
{
    return IsOneOf(type, { "Timer", "ImageList", "CommonDialog", "Winsock", "Inet", "MSComm", "SysInfo", "MAPISession",
                             "MAPIMessages", "Menu" });
}

PixelRect ChildClipOf(const ControlView& view)
{
    if (EqualsNoCase(view.type, "PictureBox") && Int(*view.block, "BorderStyle", 1) != 0)
        return view.rect.Inset(view.threeD ? 2 : 1);
    return view.rect;
}

void PaintControl(ClassicPainter& painter, const ControlView& view)
{
    if (!view.block)
        return;
    auto painterOf = Painters().find(ToLower(view.type));
    if (painterOf == Painters().end()) {
        PaintPlaceholder(painter, view);
        return;
    }
    painterOf->second(painter, view);
}

}  // namespace scriv
