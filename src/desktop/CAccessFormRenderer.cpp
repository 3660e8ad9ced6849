#include "desktop/CAccessFormRenderer.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>

#include "desktop/PainterParts.h"
#include "desktop/RenderedWindows.h"
#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"
#include "host/access/AccessDefinition.h"
#include "host/access/CW_AccessFormProcessor.h"

namespace scriv {

using namespace syscolour;

namespace {

Rgb Sys(int index)
{
    return SystemColour(index);
}

// A property of a control, else of the defaults its form keeps for its type.
class ControlProperties {
public:
    ControlProperties(const AccessBlock& control, const AccessBlock* defaults)
        : m_control(control)
        , m_defaults(defaults)
    {
    }
    bool Has(std::string_view name) const { return m_control.Has(name) || (m_defaults && m_defaults->Has(name)); }
    std::string Text(std::string_view name) const
    {
        if (m_control.Has(name) || !m_defaults)
            return m_control.Text(name);
        return m_defaults->Text(name);
    }
    double Number(std::string_view name, double fallback) const
    {
        if (m_control.Has(name) || !m_defaults)
            return m_control.Number(name, fallback);
        return m_defaults->Number(name, fallback);
    }
    bool Flag(std::string_view name, bool fallback) const
    {
        if (m_control.Has(name) || !m_defaults)
            return m_control.Flag(name, fallback);
        return m_defaults->Flag(name, fallback);
    }
    Rgb Colour(std::string_view name, Rgb fallback) const
    {
        if (!Has(name))
            return fallback;
        std::optional<std::uint32_t> value = AccessColour(Text(name));
        return value ? VbColour(*value) : fallback;
    }
    FontSpec Font() const
    {
        FontSpec font;
        font.name = Text("FontName").empty() ? "Tahoma" : Text("FontName");
        font.points = Number("FontSize", 8);
        font.bold = Number("FontWeight", 400) >= 600;
        font.italic = Flag("FontItalic", false);
        font.underline = Flag("FontUnderline", false);
        return font;
    }

private:
    const AccessBlock& m_control;
    const AccessBlock* m_defaults;
};

// The defaults a form keeps for each type of control, in its first unnamed group.
const AccessBlock* DefaultsFor(const AccessDefinition& definition, const std::string& type)
{
    for (const auto& child : definition.Object().children)
        if (child->type.empty())
            for (const auto& defaults : child->children)
                if (EqualsNoCase(defaults->type, type))
                    return defaults.get();
    return nullptr;
}

HAlign AlignOf(int textAlign, HAlign general)
{
    switch (textAlign) {
    case 1:
        return HAlign::Left;
    case 2:
        return HAlign::Center;
    case 3:
        return HAlign::Right;
    default:
        return general;
    }
}

// The border Access gives a control by its special effect (0 flat, 1 raised,
// 2 sunken, 3 etched, 4 shadowed, 5 chiseled). Answers the area inside.
PixelRect PaintEffect(ClassicPainter& painter, const PixelRect& rect, const ControlProperties& properties, int fallback)
{
    int effect = static_cast<int>(properties.Number("SpecialEffect", fallback));
    switch (effect) {
    case 1:
        painter.DrawEdge(rect, Edge::Raised);
        return rect.Inset(2);
    case 2:
        painter.DrawEdge(rect, Edge::Sunken);
        return rect.Inset(2);
    case 3:
        painter.DrawEdge(rect, Edge::Etched);
        return rect.Inset(2);
    case 4:
        painter.Fill({ rect.left + 2, rect.Bottom() - 2, rect.width - 2, 2 }, Sys(kDarkShadow));
        painter.Fill({ rect.Right() - 2, rect.top + 2, 2, rect.height - 2 }, Sys(kDarkShadow));
        painter.Frame({ rect.left, rect.top, rect.width - 2, rect.height - 2 }, Sys(kWindowFrame));
        return { rect.left + 1, rect.top + 1, rect.width - 4, rect.height - 4 };
    case 5:
        painter.HLine(rect.left, rect.Bottom() - 2, rect.width, Sys(kButtonShadow));
        painter.HLine(rect.left, rect.Bottom() - 1, rect.width, Sys(kButtonHighlight));
        return rect;
    default:
        // Flat: a line when the border is solid (1 and more), none when transparent.
        if (properties.Number("BorderStyle", 0) > 0) {
            painter.Frame(rect, properties.Colour("BorderColor", { 0, 0, 0 }));
            return rect.Inset(1);
        }
        return rect;
    }
}

void FillCircle(ClassicPainter& painter, double cx, double cy, double radius, Rgb colour)
{
    cairo_t* cr = painter.Context();
    cairo_save(cr);
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
    cairo_arc(cr, cx, cy, radius, 0, 2 * M_PI);
    cairo_fill(cr);
    cairo_restore(cr);
}

void Arc(ClassicPainter& painter, double cx, double cy, double radius, double from, double to, Rgb colour)
{
    cairo_t* cr = painter.Context();
    cairo_save(cr);
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
    cairo_set_line_width(cr, 1);
    cairo_arc(cr, cx, cy, radius, from, to);
    cairo_stroke(cr);
    cairo_restore(cr);
}

void Line(ClassicPainter& painter, int x1, int y1, int x2, int y2, Rgb colour)
{
    cairo_t* cr = painter.Context();
    cairo_save(cr);
    cairo_set_source_rgb(cr, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
    cairo_set_line_width(cr, 1);
    cairo_move_to(cr, x1 + 0.5, y1 + 0.5);
    cairo_line_to(cr, x2 + 0.5, y2 + 0.5);
    cairo_stroke(cr);
    cairo_restore(cr);
}

void DrawCaption(ClassicPainter& painter, const PixelRect& box, const std::string& text, const ControlProperties& properties,
    HAlign general, VAlign vAlign, Rgb fallbackColour, bool wrap = true, bool mnemonic = true)
{
    TextStyle style;
    style.mnemonic = mnemonic;
    style.hAlign = AlignOf(static_cast<int>(properties.Number("TextAlign", 0)), general);
    style.vAlign = vAlign;
    style.wrap = wrap;
    style.disabled = !properties.Flag("Enabled", true);
    painter.PushClip(box);
    painter.DrawText(box, text, properties.Font(), properties.Colour("ForeColor", fallbackColour), style);
    painter.PopClip();
}

// The navigation buttons of a form: "Record:", the first, previous, number, next, last and new record buttons, "of 1".
void PaintNavigation(ClassicPainter& painter, const PixelRect& bar)
{
    painter.Fill(bar, Sys(kButtonFace));
    painter.HLine(bar.left, bar.top, bar.width, Sys(kButtonShadow));
    FontSpec font { "Tahoma", 8 };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    painter.PushClip(bar);
    int x = bar.left + 4;
    painter.DrawText({ x, bar.top, 46, bar.height }, "Record:", font, Sys(kButtonText), style);
    x += 46;
    int size = bar.height - 3;
    auto button = [&](ArrowDirection direction, bool stopLine) {
        PixelRect face { x, bar.top + 2, size, size };
        painter.ArrowButton(face, direction, true);
        if (stopLine) {
            int lineX = direction == ArrowDirection::Left ? face.left + 4 : face.Right() - 5;
            painter.VLine(lineX, face.top + 4, face.height - 8, Sys(kButtonText));
        }
        x += size;
    };
    button(ArrowDirection::Left, true);
    button(ArrowDirection::Left, false);
    PixelRect number { x + 2, bar.top + 2, 30, size };
    painter.Fill(number, Sys(kWindow));
    painter.DrawEdge(number, Edge::SunkenThin);
    TextStyle centred = style;
    centred.hAlign = HAlign::Center;
    painter.DrawText(number, "1", font, Sys(kWindowText), centred);
    x = number.Right() + 2;
    button(ArrowDirection::Right, false);
    button(ArrowDirection::Right, true);
    PixelRect create { x, bar.top + 2, size, size };
    painter.ArrowButton(create, ArrowDirection::Right, true);
    painter.DrawText({ create.Right() - 6, create.top - 2, 6, 8 }, "*", font, Sys(kButtonText), style);
    x = create.Right() + 6;
    painter.DrawText({ x, bar.top, 40, bar.height }, "of 1", font, Sys(kButtonText), style);
    painter.PopClip();
}

std::string SectionTitle(const AccessSectionView& section, bool report)
{
    const std::string& type = section.type;
    if (EqualsNoCase(type, "FormHeader"))
        return report ? "Report Header" : "Form Header";
    if (EqualsNoCase(type, "FormFooter"))
        return report ? "Report Footer" : "Form Footer";
    if (EqualsNoCase(type, "PageHeader"))
        return "Page Header";
    if (EqualsNoCase(type, "PageFooter"))
        return "Page Footer";
    if (EqualsNoCase(type, "Section"))
        return "Detail";
    return section.name;
}

bool IsTab(const std::string& type)
{
    return EqualsNoCase(type, "Tab") || EqualsNoCase(type, "TabCtl");
}

}  // namespace

CAccessFormRenderer::CAccessFormRenderer(CW_AccessFormProcessor& processor, AccessFormLookup forms)
    : m_processor(processor)
    , m_forms(std::move(forms))
{
    m_metrics.SearchMetrics();
}

bool CAccessFormRenderer::ShowTabPage(const std::string& tabControlName, int page)
{
    for (const auto& control : m_processor.AllControls())
        if (IsTab(control->type) && EqualsNoCase(control->name, tabControlName))
            return m_processor.TabPageActivate(m_processor.Object(control.get()), page) != nullptr;
    return false;
}

RenderedForm CAccessFormRenderer::Render()
{
    RenderedForm out;
    IHostObject* form = m_processor.Component();
    int width = 0;
    int height = 0;
    m_processor.GetComponentWidthAndHeightInTwips(form, width, height);
    width = std::max(width, 1);
    height = std::max(height, 1);
    int offsetX = m_processor.FormClientAreaOffsetX(form);
    int offsetY = m_processor.FormClientAreaOffsetY(form);
    out.client = { offsetX, offsetY, m_processor.SectionsWidth(), m_processor.SectionsHeight() };
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    {
        ClassicPainter painter(cr);
        PaintNonClient(painter, { 0, 0, width, height }, out.client);
        PaintBody(painter, m_processor, offsetX, offsetY, &out, 0);
    }
    cairo_destroy(cr);
    out.picture = Picture::FromSurface(surface);
    cairo_surface_destroy(surface);
    return out;
}

void CAccessFormRenderer::PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client)
{
    IHostObject* form = m_processor.Component();
    int style = m_processor.BorderStyle(form);
    painter.Fill(window, Sys(kActiveBorder));
    if (style > 0)
        painter.DrawEdge(window, Edge::Raised);
    int frame = m_metrics.FrameWidth(style);
    int captionHeight = m_metrics.GetFormNCM(style);
    if (captionHeight == 0)
        return;
    PixelRect bar { frame, frame, window.width - 2 * frame, captionHeight - 1 };
    painter.Gradient(bar, Sys(kActiveCaption), Sys(kGradientActiveCaption));
    const AccessBlock& object = m_processor.Definition().Object();
    int buttonHeight = bar.height - 3;
    int buttonWidth = buttonHeight + 2;
    int right = bar.Right() - 2;
    int top = bar.top + (bar.height - buttonHeight) / 2;
    if (object.Flag("ControlBox", true)) {
        if (object.Flag("CloseButton", true)) {
            PaintCaptionButton(painter, { right - buttonWidth, top, buttonWidth, buttonHeight }, CaptionGlyph::Close);
            right -= buttonWidth + 2;
        }
        int minMax = static_cast<int>(object.Number("MinMaxButtons", 3));
        if (style != 3 && minMax > 0) {
            PaintCaptionButton(painter, { right - buttonWidth, top, buttonWidth, buttonHeight }, CaptionGlyph::Maximize);
            PaintCaptionButton(painter, { right - 2 * buttonWidth, top, buttonWidth, buttonHeight }, CaptionGlyph::Minimize);
            right -= 2 * buttonWidth + 2;
        }
    }
    // The small form of Access's object icons.
    PixelRect icon { bar.left + 2, bar.top + (bar.height - 14) / 2, 14, 12 };
    painter.Fill(icon, Sys(kWindow));
    painter.Frame(icon, Sys(kButtonShadow));
    painter.Fill({ icon.left + 1, icon.top + 1, icon.width - 2, 3 }, { 0, 0, 128 });
    painter.Fill({ icon.left + 3, icon.top + 6, 8, 1 }, Sys(kButtonShadow));
    int left = icon.Right() + 3;
    FontSpec font { "Tahoma", 8, true };
    TextStyle text;
    text.vAlign = VAlign::Middle;
    text.mnemonic = false;
    text.ellipsis = true;
    painter.PushClip(bar);
    painter.DrawText({ left, bar.top, right - left, bar.height }, m_processor.ComponentCaptionGet(form), font,
        Sys(kCaptionText), text);
    painter.PopClip();
}

void CAccessFormRenderer::PaintBody(ClassicPainter& painter, CW_AccessFormProcessor& processor, int left, int top,
    RenderedForm* out, int depth)
{
    bool report = processor.IsReport();
    int width = processor.SectionsWidth();
    int selector = processor.RecordSelectorWidth();
    for (const AccessSectionView& section : processor.Sections()) {
        ControlProperties properties(*section.block, nullptr);
        int y = top + section.top;
        if (section.headerBar > 0) {
            // Design view names each section on a bar above it.
            PixelRect bar { left, y, width, section.headerBar };
            painter.Fill(bar, Sys(kButtonFace));
            painter.DrawEdge(bar, Edge::RaisedThin);
            TextStyle style;
            style.vAlign = VAlign::Middle;
            style.mnemonic = false;
            painter.DrawText({ bar.left + 18, bar.top, bar.width - 20, bar.height }, SectionTitle(section, report),
                { "Tahoma", 8 }, Sys(kButtonText), style);
            painter.Arrow({ bar.left + 4, bar.top + 4, 9, bar.height - 8 }, ArrowDirection::Down, Sys(kButtonText));
            y += section.headerBar;
        }
        Rgb back = properties.Colour("BackColor", report ? Rgb { 255, 255, 255 } : Sys(kButtonFace));
        painter.Fill({ left, y, width, section.height }, back);
        if (selector > 0) {
            PixelRect column { left - selector, y, selector, section.height };
            painter.Fill(column, Sys(kButtonFace));
            if (EqualsNoCase(section.type, "Section")) {
                painter.DrawEdge(column, Edge::RaisedThin);
                // The current record's mark.
                painter.Arrow({ column.left + 3, column.top + 3, 7, 9 }, ArrowDirection::Right, Sys(kButtonText));
            }
        }
    }
    painter.PushClip({ left, top, width, processor.SectionsHeight() });
    for (const AccessControlView* control : processor.TopControls())
        PaintControl(painter, processor, *control, left, top, out, depth);
    painter.PopClip();
    if (processor.NavigationHeight() > 0)
        PaintNavigation(painter, { left - selector, top + processor.SectionsHeight(), selector + width, processor.NavigationHeight() });
}

void CAccessFormRenderer::PaintControl(ClassicPainter& painter, CW_AccessFormProcessor& processor,
    const AccessControlView& control, int left, int top, RenderedForm* out, int depth)
{
    const AccessBlock& block = *control.block;
    ControlProperties properties(block, DefaultsFor(processor.Definition(), control.type));
    if (!properties.Flag("Visible", true) && !processor.IsReport())
        return;
    PixelRect rect { left + control.left, top + control.top, control.width, control.height };
    const std::string& type = control.type;
    bool design = processor.IsReport();
    Rgb back = properties.Colour("BackColor", Rgb { 255, 255, 255 });
    bool opaque = properties.Number("BackStyle", 1) != 0;

    if (EqualsNoCase(type, "Label")) {
        if (properties.Number("BackStyle", 0) != 0)
            painter.Fill(rect, back);
        PixelRect inner = PaintEffect(painter, rect, properties, 0);
        DrawCaption(painter, inner, block.Text("Caption"), properties, HAlign::Left, VAlign::Top, { 0, 0, 0 });
    } else if (EqualsNoCase(type, "TextBox") || EqualsNoCase(type, "ComboBox")) {
        if (opaque)
            painter.Fill(rect, back);
        PixelRect inner = PaintEffect(painter, rect, properties, design ? 0 : 2);
        if (EqualsNoCase(type, "ComboBox") && !design) {
            int button = std::min(16, inner.width);
            painter.ArrowButton({ inner.Right() - button, inner.top, button, inner.height }, ArrowDirection::Down, true);
            inner.width -= button;
        }
        // A form shows a new record, with nothing in it; a report's design shows where each value comes from.
        std::string text = design ? block.Text("ControlSource") : std::string();
        if (design && text.empty())
            text = "Unbound";
        DrawCaption(painter, { inner.left + 2, inner.top, inner.width - 3, inner.height }, text, properties, HAlign::Left,
            VAlign::Top, { 0, 0, 0 }, false, false);
    } else if (EqualsNoCase(type, "ListBox")) {
        painter.Fill(rect, back);
        PixelRect inner = PaintEffect(painter, rect, properties, 2);
        if (EqualsNoCase(block.Text("RowSourceType"), "Value List")) {
            int lineHeight = paint::LineHeight(painter, properties.Font());
            int y = inner.top + 1;
            painter.PushClip(inner);
            for (const std::string& item : Split(block.Text("RowSource"), ";")) {
                TextStyle style;
                style.mnemonic = false;
                painter.DrawText({ inner.left + 2, y, inner.width - 4, lineHeight }, Trim(item), properties.Font(),
                    properties.Colour("ForeColor", { 0, 0, 0 }), style);
                y += lineHeight;
            }
            painter.PopClip();
        }
    } else if (EqualsNoCase(type, "CommandButton") || EqualsNoCase(type, "ToggleButton")) {
        painter.Fill(rect, Sys(kButtonFace));
        painter.DrawEdge(rect, Edge::Button);
        DrawCaption(painter, rect.Inset(3), block.Text("Caption"), properties, HAlign::Center, VAlign::Middle,
            Sys(kButtonText));
    } else if (EqualsNoCase(type, "CheckBox")) {
        PixelRect box { rect.left + 2, rect.top + (rect.height - 13) / 2, 13, 13 };
        painter.Fill(box, Sys(kWindow));
        painter.DrawEdge(box, Edge::Sunken);
    } else if (EqualsNoCase(type, "OptionButton")) {
        double cx = rect.left + 8;
        double cy = rect.top + rect.height / 2.0;
        FillCircle(painter, cx, cy, 5.5, Sys(kWindow));
        Arc(painter, cx, cy, 5.5, M_PI * 0.75, M_PI * 1.75, Sys(kButtonShadow));
        Arc(painter, cx, cy, 4.5, M_PI * 0.75, M_PI * 1.75, Sys(kDarkShadow));
        Arc(painter, cx, cy, 5.5, -M_PI * 0.25, M_PI * 0.75, Sys(kButtonHighlight));
    } else if (EqualsNoCase(type, "OptionGroup") || EqualsNoCase(type, "Rectangle")) {
        if (properties.Number("BackStyle", 0) != 0)
            painter.Fill(rect, back);
        PaintEffect(painter, rect, properties, EqualsNoCase(type, "OptionGroup") ? 3 : 0);
    } else if (EqualsNoCase(type, "Line")) {
        bool slant = block.Flag("LineSlant", false);
        Rgb colour = properties.Colour("BorderColor", { 0, 0, 0 });
        if (slant)
            Line(painter, rect.left, rect.Bottom(), rect.Right(), rect.top, colour);
        else
            Line(painter, rect.left, rect.top, rect.Right(), rect.Bottom(), colour);
    } else if (IsTab(type)) {
        int shown = processor.ShownPage(control);
        int pageTop = rect.top + 20;
        painter.Fill({ rect.left, pageTop, rect.width, rect.Bottom() - pageTop }, Sys(kButtonFace));
        painter.DrawEdge({ rect.left, pageTop, rect.width, rect.Bottom() - pageTop }, Edge::Raised);
        for (int page = 0; page < static_cast<int>(control.children.size()); ++page) {
            IClientFormProcessor::Rect tab = processor.TabRect(control, page);
            PixelRect tabRect { rect.left + tab.left, rect.top + tab.top, tab.width, tab.height };
            bool selected = page == shown;
            PixelRect face = selected ? PixelRect { tabRect.left - 2, tabRect.top - 2, tabRect.width + 4, pageTop - tabRect.top + 2 }
                                      : PixelRect { tabRect.left, tabRect.top, tabRect.width, pageTop - tabRect.top };
            painter.Fill(face, Sys(kButtonFace));
            painter.HLine(face.left + 2, face.top, face.width - 4, Sys(kButtonHighlight));
            painter.VLine(face.left, face.top + 2, face.height - 2, Sys(kButtonHighlight));
            painter.VLine(face.Right() - 1, face.top + 2, face.height - 2, Sys(kDarkShadow));
            painter.VLine(face.Right() - 2, face.top + 1, face.height - 1, Sys(kButtonShadow));
            if (selected)
                painter.Fill({ face.left + 1, pageTop, face.width - 3, 2 }, Sys(kButtonFace));
            const AccessBlock& pageBlock = *control.children[static_cast<std::size_t>(page)]->block;
            std::string caption = pageBlock.Text("Caption").empty() ? pageBlock.Text("Name") : pageBlock.Text("Caption");
            DrawCaption(painter, face, caption, properties, HAlign::Center, VAlign::Middle, Sys(kButtonText), false);
            if (out && depth == 0)
                out->controls.push_back({ std::to_string(page) + "_" + control.name, "Page", tabRect });
        }
    } else if (EqualsNoCase(type, "Subform") || EqualsNoCase(type, "Subreport")) {
        PixelRect inner = PaintEffect(painter, rect, properties, 2);
        painter.Fill(inner, Sys(kAppWorkspace));
        std::string source = block.Text("SourceObject");
        for (const char* prefix : { "Form.", "Report." })
            if (StartsWithNoCase(source, prefix))
                source = source.substr(std::string_view(prefix).size());
        const AccessDefinition* inside = m_forms && depth < 2 ? m_forms(source) : nullptr;
        if (inside) {
            // The subform shows its own form, as far as the control is large.
            CW_AccessFormProcessor subform(*inside, source, false);
            painter.PushClip(inner);
            PaintBody(painter, subform, inner.left + subform.RecordSelectorWidth(), inner.top, nullptr, depth + 1);
            painter.PopClip();
        }
    } else if (EqualsNoCase(type, "PageBreak")) {
        // Not shown in Form view.
    } else {
        // Images, object frames and charts: their frame.
        if (opaque && properties.Has("BackColor"))
            painter.Fill(rect, back);
        PaintEffect(painter, rect, properties, 2);
    }
    if (out && depth == 0 && !EqualsNoCase(type, "Page"))
        out->controls.push_back({ control.name, processor.WalkTypeName(control), rect });

    // An option group's members, and the controls of the shown page of a tab control.
    const std::vector<AccessControlView*>* children = &control.children;
    if (IsTab(type)) {
        int shown = processor.ShownPage(control);
        if (shown < 0 || shown >= static_cast<int>(control.children.size()))
            return;
        children = &control.children[static_cast<std::size_t>(shown)]->children;
    } else if (!EqualsNoCase(type, "OptionGroup")) {
        return;
    }
    for (const AccessControlView* child : *children)
        PaintControl(painter, processor, *child, left, top, out, depth);
}

const RenderedWindow* RenderAccessWindow(int handle, CW_AccessFormProcessor& processor, AccessFormLookup forms,
    const std::map<std::string, int>& pages, int parent)
{
    if (handle == 0)
        return nullptr;
    CAccessFormRenderer renderer(processor, std::move(forms));
    processor.SetFirstPageVisibleForTabControls(processor.Component());
    for (const auto& [tabControl, page] : pages)
        renderer.ShowTabPage(tabControl, page);
    IHostObject* form = processor.Component();
    RenderedWindow window;
    window.handle = handle;
    window.parent = parent;
    window.className = kAccessFormWindowClass;
    window.text = processor.ComponentWindowCaptionGet(form);
    window.caption = processor.ComponentCaptionGet(form);
    window.name = processor.PropertyValue(form, "Name");
    window.form = renderer.Render();
    RenderedWindows().Register(std::move(window));
    return RenderedWindows().Find(handle);
}

}  // namespace scriv
