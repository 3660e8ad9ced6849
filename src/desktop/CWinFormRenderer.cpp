#include "desktop/CWinFormRenderer.h"

#include <algorithm>
#include <cairo.h>

#include "desktop/RenderedWindows.h"
#include "desktop/SystemColours.h"
#include "foundation/StringUtil.h"
#include "host/vs/CW_IDEVSFormProcessor.h"

namespace scriv {

using namespace syscolour;

namespace {

PixelRect Shifted(const IClientFormProcessor::Rect& rect, int originX, int originY)
{
    return { originX + rect.left, originY + rect.top, rect.width, rect.height };
}

bool IsToolbarKind(const std::string& type)
{
    return type == "ToolStrip" || type == "ToolBar" || type == "BindingNavigator";
}

}  // namespace

CWinFormRenderer::CWinFormRenderer(CW_IDEVSFormProcessor& processor)
    : m_processor(processor)
{
    m_metrics.SearchMetrics();
}

bool CWinFormRenderer::ShowTabPage(const std::string& tabControlName, int page)
{
    for (const auto& component : m_processor.Design().Components()) {
        if (WinFormLayout::IsTabControl(*component) && EqualsNoCase(component->ControlName(), tabControlName))
            return m_processor.TabPageActivate(m_processor.Object(component.get()), page) != nullptr;
    }
    return false;
}

RenderedForm CWinFormRenderer::Render()
{
    RenderedForm out;
    IHostObject* form = m_processor.Component();
    int width = 0;
    int height = 0;
    m_processor.GetComponentWidthAndHeightInTwips(form, width, height);
    width = std::max(width, 0);
    height = std::max(height, 0);
    int offsetX = m_processor.FormClientAreaOffsetX(form);
    int offsetY = m_processor.FormClientAreaOffsetY(form);
    out.client = { offsetX, offsetY, width - 2 * offsetX, height - offsetY - offsetX };
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    {
        ClassicPainter painter(cr);
        PaintNonClient(painter, { 0, 0, width, height }, out.client);
        const DesignComponent& design = m_processor.Design().Form();
        Rgb back = winforms::ColourOf(design.Property("BackColor"), SystemColour(kButtonFace));
        painter.PushClip(out.client);
        painter.Fill(out.client, back);
        PaintChildren(painter, design, out.client.left, out.client.top, back, out);
        painter.PopClip();
    }
    cairo_destroy(cr);
    out.picture = Picture::FromSurface(surface);
    cairo_surface_destroy(surface);
    return out;
}

void CWinFormRenderer::PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client)
{
    painter.Fill(window, SystemColour(kActiveBorder));
    const WinFormLayout& layout = m_processor.Layout();
    if (layout.IsUserControl()) {
        int inset = WinFormLayout::BorderInset(m_processor.Design().Form());
        if (inset == 2)
            painter.DrawEdge(window, Edge::Sunken);
        else if (inset == 1)
            painter.Frame(window, SystemColour(kWindowFrame));
        return;
    }
    int style = layout.BorderStyle();
    if (style > 0)
        painter.DrawEdge(window, Edge::Raised);
    int frame = m_metrics.FrameWidth(style);
    int captionHeight = m_metrics.GetFormNCM(style);
    if (captionHeight > 0)
        PaintCaption(painter, { frame, frame, window.width - 2 * frame, captionHeight - 1 });
    if (layout.MainMenu())
        PaintMainMenu(painter, { frame, client.top - m_metrics.HeightMenus, window.width - 2 * frame, m_metrics.HeightMenus });
}

void CWinFormRenderer::PaintCaption(ClassicPainter& painter, const PixelRect& bar)
{
    const DesignComponent& form = m_processor.Design().Form();
    int style = m_processor.Layout().BorderStyle();
    painter.Gradient(bar, SystemColour(kActiveCaption), SystemColour(kGradientActiveCaption));
    bool toolWindow = style == 4 || style == 5;
    bool controlBox = form.Boolean("ControlBox", true);
    int left = bar.left + 2;
    // A dialog frame and a tool window show no icon.
    if (controlBox && !toolWindow && style != 3 && form.Boolean("ShowIcon", true)) {
        PixelRect iconBox { bar.left + 1, bar.top + (bar.height - 16) / 2, 16, 16 };
        winforms::PaintFormIcon(painter, iconBox);
        left = iconBox.Right() + 2;
    }
    int buttonHeight = bar.height - 3;
    int buttonWidth = buttonHeight + 2;
    int right = bar.Right() - 2;
    int top = bar.top + (bar.height - buttonHeight) / 2;
    if (controlBox) {
        PixelRect close { right - buttonWidth, top, buttonWidth, buttonHeight };
        PaintCaptionButton(painter, close, CaptionGlyph::Close, true);
        right = close.left - 2;
        bool minimize = form.Boolean("MinimizeBox", true);
        bool maximize = form.Boolean("MaximizeBox", true);
        if (!toolWindow && (minimize || maximize)) {
            PixelRect maximizeRect { right - buttonWidth, top, buttonWidth, buttonHeight };
            PixelRect minimizeRect { maximizeRect.left - buttonWidth, top, buttonWidth, buttonHeight };
            PaintCaptionButton(painter, maximizeRect, CaptionGlyph::Maximize, maximize);
            PaintCaptionButton(painter, minimizeRect, CaptionGlyph::Minimize, minimize);
            right = minimizeRect.left - 2;
        }
    }
    FontSpec font { "Tahoma", toolWindow ? 7.5 : 8, true };
    TextStyle text;
    text.vAlign = VAlign::Middle;
    text.mnemonic = false;
    text.ellipsis = true;
    painter.PushClip(bar);
    painter.DrawText({ left, bar.top, right - left, bar.height }, form.Text("Text"), font, SystemColour(kCaptionText), text);
    painter.PopClip();
}

void CWinFormRenderer::PaintMainMenu(ClassicPainter& painter, const PixelRect& bar)
{
    painter.Fill(bar, SystemColour(kMenu));
    FontSpec font { "Tahoma", 8 };
    int x = bar.left;
    painter.PushClip(bar);
    for (const DesignComponent* item : m_processor.Layout().MainMenu()->items) {
        std::string caption = item->Text("Text");
        if (caption == "-" || Trim(caption).empty() || !item->Boolean("Visible", true))
            continue;
        int width = painter.MeasureText(caption, font).width + 14;
        TextStyle style;
        style.vAlign = VAlign::Middle;
        style.disabled = !item->Boolean("Enabled", true);
        painter.DrawText({ x + 7, bar.top, width - 7, bar.height }, caption, font, SystemColour(kMenuText), style);
        x += width;
    }
    painter.PopClip();
}

void CWinFormRenderer::PaintChildren(ClassicPainter& painter, const DesignComponent& container, int originX, int originY,
    Rgb back, RenderedForm& out)
{
    if (WinFormLayout::IsTabControl(container)) {
        // Only the page shown is drawn, with its controls.
        std::vector<const DesignComponent*> pages = WinFormLayout::TabPages(container);
        int shown = m_processor.ShownPage(container);
        if (shown >= 0 && shown < static_cast<int>(pages.size()))
            PaintOne(painter, *pages[static_cast<std::size_t>(shown)], originX, originY, SystemColour(kButtonFace), out);
        return;
    }
    // The last control of the collection is the back of the z-order.
    for (auto it = container.controls.rbegin(); it != container.controls.rend(); ++it)
        PaintOne(painter, **it, originX, originY, back, out);
}

void CWinFormRenderer::PaintOne(ClassicPainter& painter, const DesignComponent& control, int originX, int originY,
    Rgb back, RenderedForm& out)
{
    IHostObject* form = m_processor.Component();
    IHostObject* object = m_processor.Object(&control);
    winforms::ControlView view;
    view.component = &control;
    view.rect = Shifted(m_processor.GetControlRectangleInTwips(form, object), originX, originY);
    view.font = winforms::FontOf(control);
    view.enabled = control.Boolean("Enabled", true);
    view.parentBack = back;
    if (const DesignValue* accept = m_processor.Design().Form().Property("AcceptButton"))
        view.isDefault = accept->kind == DesignValue::Kind::Reference && EqualsNoCase(accept->text, control.name);
    std::string name = m_processor.ControlNameGet(object);
    if (WinFormLayout::IsTabControl(control)) {
        int pages = m_processor.TabControlPagesQtyGet(object);
        for (int page = 0; page < pages; ++page)
            view.parts.push_back(Shifted(m_processor.GetTabPageTabRectangleInTwips(page, form, object), originX, originY));
        view.shownPage = m_processor.ShownPage(control);
    } else if (WinFormLayout::IsStrip(control)) {
        for (const LayoutRect& item : m_processor.Layout().ItemRects(control))
            view.parts.push_back({ view.rect.left + item.left, view.rect.top + item.top, item.width, item.height });
        int style = m_processor.Layout().BorderStyle();
        view.sizeGrip = control.type == "StatusStrip" && (style == 2 || style == 5)
            && control.Boolean("SizingGrip", true);
    }
    winforms::PaintControl(painter, view);
    if (control.type != "TabPage") {
        out.controls.push_back({ name, m_processor.ObjectTypeName(object), view.rect });
        if (WinFormLayout::IsTabControl(control)) {
            for (std::size_t i = 0; i < view.parts.size(); ++i)
                out.controls.push_back({ std::to_string(i) + "_" + name, "Page", view.parts[i] });
        } else if (IsToolbarKind(control.type)) {
            for (int button = 1; button <= m_processor.ToolbarButtonsQtyGet(object); ++button)
                out.controls.push_back({ std::to_string(button) + "_" + name, "ToolbarButton",
                    Shifted(m_processor.GetToolbarButtonRectangleInTwips(button, form, object), originX, originY) });
        }
    }
    if (control.controls.empty())
        return;
    painter.PushClip(winforms::ChildClipOf(view));
    PaintChildren(painter, control, view.rect.left, view.rect.top, winforms::BackOf(control, back), out);
    painter.PopClip();
}

const RenderedWindow* RenderWinFormWindow(int handle, CW_IDEVSFormProcessor& processor,
    const std::map<std::string, int>& pages, int parent)
{
    if (handle == 0)
        return nullptr;
    CWinFormRenderer renderer(processor);
    for (const auto& [tabControl, page] : pages)
        renderer.ShowTabPage(tabControl, page);
    IHostObject* form = processor.Component();
    RenderedWindow window;
    window.handle = handle;
    window.parent = parent;
    window.className = kWinFormWindowClass;
    window.text = processor.ComponentWindowCaptionGet(form);
    window.caption = processor.Design().Form().Text("Text");
    window.name = processor.PropertyValue(form, "Name");
    window.form = renderer.Render();
    RenderedWindows().Register(std::move(window));
    return RenderedWindows().Find(handle);
}

}  // namespace scriv
