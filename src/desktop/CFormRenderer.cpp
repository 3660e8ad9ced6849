#include "desktop/CFormRenderer.h"

#include <algorithm>
#include <cairo.h>
#include <cstdlib>

#include "desktop/CScaler.h"
#include "desktop/PainterParts.h"
#include "desktop/SystemColours.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/IClientFormProcessor.h"
#include "host/vb6/Vb6FormFile.h"

namespace scriv {

using namespace syscolour;

namespace {

// A control shown by its page stands where the file has it; one on a hidden
// page stands kHiddenTabOffset twips to the left. Half of that tells them apart.
constexpr double kHiddenPageLimitPixels = -kHiddenTabOffset / kTwipsPerPixel / 2;

// The icon VB gives a form that has none of its own: a small window.
void PaintDefaultIcon(ClassicPainter& painter, const PixelRect& box)
{
    PixelRect window { box.left + 1, box.top + 2, 14, 12 };
    painter.Fill(window, SystemColour(kWindow));
    painter.Frame(window, SystemColour(kButtonShadow));
    painter.Fill({ window.left + 1, window.top + 1, window.width - 2, 3 }, { 0, 0, 128 });
}

bool IsFramedKind(const Vb6FormFile& file)
{
    return file.Kind() == Vb6FormKind::Form || file.Kind() == Vb6FormKind::MDIForm;
}

}  // namespace

struct CFormRenderer::Node {
    const Vb6Block* block { nullptr };
    // What the processor answers for the control; null for those it leaves out.
    IHostObject* object { nullptr };
    std::vector<std::unique_ptr<Node>> children;
};

const RenderedControl* RenderedForm::Find(std::string_view name) const
{
    for (const RenderedControl& control : controls)
        if (EqualsNoCase(control.name, name))
            return &control;
    return nullptr;
}

CFormRenderer::CFormRenderer(IClientFormProcessor& processor, IHostObject* form, const Vb6FormFile& file,
    RenderOptions options)
    : m_processor(processor)
    , m_form(form)
    , m_file(file)
    , m_options(options)
    , m_root(std::make_unique<Node>())
{
    m_metrics.SearchMetrics();
    m_root->block = &file.Form();
    m_root->object = form;
    BuildChildren(*m_root);
}

CFormRenderer::~CFormRenderer() = default;

// --- the tree of controls ---

void CFormRenderer::BuildChildren(Node& node)
{
    CControlsCollection objects;
    if (node.object)
        objects = m_processor.ControlsCollectionGet(node.object);
    std::size_t next = 0;
    for (const auto& childBlock : node.block->Children()) {
        auto child = std::make_unique<Node>();
        child->block = childBlock.get();
        if (node.object && !IsFilteredControlType(childBlock->ShortType())) {
            // The processor lists the children in file order; a name that does not
            // match at the expected place is looked for in the whole list.
            std::string name = childBlock->IndexedName();
            if (next < objects.Count() && EqualsNoCase(m_processor.ControlNameGet(objects.Item(next)), name)) {
                child->object = objects.Item(next++);
            } else {
                for (IHostObject* object : objects)
                    if (EqualsNoCase(m_processor.ControlNameGet(object), name))
                        child->object = object;
            }
        }
        BuildChildren(*child);
        node.children.push_back(std::move(child));
    }
}

CFormRenderer::Node* CFormRenderer::FindNode(Node& node, const std::string& name)
{
    for (auto& child : node.children) {
        if (EqualsNoCase(child->block->IndexedName(), name))
            return child.get();
        if (Node* found = FindNode(*child, name))
            return found;
    }
    return nullptr;
}

bool CFormRenderer::IsTabControl(const Node& node) const
{
    std::string type = node.block->ShortType();
    return EqualsNoCase(type, "SSTab") || EqualsNoCase(type, "TabControl");
}

bool CFormRenderer::ShowTabPage(const std::string& tabControlName, int page)
{
    Node* node = FindNode(*m_root, tabControlName);
    if (!node || !node->object || !IsTabControl(*node))
        return false;
    if (!m_processor.TabPageActivate(node->object, page))
        return false;
    m_shownPages[node->block] = page;
    return true;
}

int CFormRenderer::PageOf(const Vb6Block& tabControl, const Vb6Block& control)
{
    int pages = ToInt(tabControl.Number("Tabs", 3));
    for (int page = 0; page < pages && page < 1000; ++page)
        for (const std::string& name : tabControl.TabPageControlNames(page))
            if (EqualsNoCase(name, control.IndexedName()))
                return page;
    return -1;
}

int CFormRenderer::ShownPage(const Node& tabControl) const
{
    auto shown = m_shownPages.find(tabControl.block);
    if (shown != m_shownPages.end())
        return shown->second;
    // The page whose controls the processor has in place is the one shown.
    for (const auto& child : tabControl.children) {
        if (!child->object)
            continue;
        int page = PageOf(*tabControl.block, *child->block);
        IClientFormProcessor::Rect rect = m_processor.GetControlRectangleInTwips(m_form, child->object);
        if (page >= 0 && rect.left > kHiddenPageLimitPixels)
            return page;
    }
    return ToInt(tabControl.block->Number("Tab", 0));
}

// --- frx values ---

const FrxFile* CFormRenderer::Frx(const std::string& fileName)
{
    std::string path = FindPathNoCase(JoinPath(FolderOf(m_file.Path()), ToNativePath(fileName)));
    auto cached = m_frxFiles.find(path);
    if (cached == m_frxFiles.end())
        cached = m_frxFiles.emplace(path, FrxFile::Load(path)).first;
    return cached->second ? &*cached->second : nullptr;
}

std::optional<Picture> CFormRenderer::PictureProperty(const Vb6Block& block, std::string_view name)
{
    const Vb6Property* property = block.FindProperty(name);
    std::optional<Vb6FrxReference> reference = property ? property->Frx() : std::nullopt;
    const FrxFile* frx = reference ? Frx(reference->fileName) : nullptr;
    std::optional<std::string> bytes = frx ? frx->PictureBytes(reference->offset) : std::nullopt;
    return bytes ? DecodePicture(*bytes) : std::nullopt;
}

std::vector<std::string> CFormRenderer::ListProperty(const Vb6Block& block)
{
    const Vb6Property* property = block.FindProperty("List");
    std::optional<Vb6FrxReference> reference = property ? property->Frx() : std::nullopt;
    const FrxFile* frx = reference ? Frx(reference->fileName) : nullptr;
    return frx ? frx->ListItems(reference->offset, m_file.CodePage()).value_or(std::vector<std::string>()) : std::vector<std::string>();
}

// --- drawing ---

PixelRect CFormRenderer::WindowClientArea(int& width, int& height)
{
    width = 0;
    height = 0;
    m_processor.GetComponentWidthAndHeightInTwips(m_form, width, height);
    width = std::max(width, 0);
    height = std::max(height, 0);
    int offsetX = m_processor.FormClientAreaOffsetX(m_form);
    int offsetY = m_processor.FormClientAreaOffsetY(m_form);
    return { offsetX, offsetY, width - 2 * offsetX, height - offsetY - offsetX };
}

RenderedForm CFormRenderer::Render()
{
    RenderedForm out;
    int width = 0;
    int height = 0;
    out.client = WindowClientArea(width, height);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    {
        ClassicPainter painter(cr);
        PaintNonClient(painter, { 0, 0, width, height }, out.client, m_processor.BorderStyle(m_form));
        painter.PushClip(out.client);
        PaintClient(painter, out.client);
        PaintChildren(painter, *m_root, out.client.left, out.client.top, out);
        painter.PopClip();
    }
    cairo_destroy(cr);
    out.picture = Picture::FromSurface(surface);
    cairo_surface_destroy(surface);
    return out;
}

namespace {

PixelRect Intersection(const PixelRect& a, const PixelRect& b)
{
    int left = std::max(a.left, b.left);
    int top = std::max(a.top, b.top);
    int right = std::min(a.Right(), b.Right());
    int bottom = std::min(a.Bottom(), b.Bottom());
    return { left, top, std::max(right - left, 0), std::max(bottom - top, 0) };
}

}  // namespace

RenderedForm CFormRenderer::RenderOver(RenderedForm earlier, const PixelRect& area)
{
    int width = 0;
    int height = 0;
    PixelRect client = WindowClientArea(width, height);
    if (earlier.picture.Width() != width || earlier.picture.Height() != height)
        return Render();
    RenderedForm out;
    out.client = client;
    // Inside the client area everything is painted over the form's back
    // colour, so a surface of the area alone, moved to its place, holds
    // exactly the pixels a whole drawing has there.
    PixelRect redrawn = Intersection(area, client);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, std::max(redrawn.width, 1),
        std::max(redrawn.height, 1));
    cairo_t* cr = cairo_create(surface);
    cairo_translate(cr, -redrawn.left, -redrawn.top);
    m_redrawn = redrawn;
    {
        ClassicPainter painter(cr);
        painter.PushClip(redrawn);
        PaintClient(painter, client);
        PaintChildren(painter, *m_root, client.left, client.top, out);
        painter.PopClip();
    }
    m_redrawn.reset();
    cairo_destroy(cr);
    out.picture = std::move(earlier.picture);
    if (!redrawn.Empty())
        out.picture.Paste(Picture::FromSurface(surface), redrawn.left, redrawn.top);
    cairo_surface_destroy(surface);
    return out;
}

bool CFormRenderer::FormReadsRightToLeft() const
{
    return m_file.Form().Boolean("RightToLeft", false);
}

void CFormRenderer::PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client,
    int borderStyle)
{
    painter.Fill(window, SystemColour(kActiveBorder));
    if (!IsFramedKind(m_file)) {
        // A user control or document has no window frame of its own.
        if (borderStyle > 0)
            painter.DrawEdge(window, Edge::Sunken);
        return;
    }
    if (borderStyle > 0)
        painter.DrawEdge(window, Edge::Raised);
    int frame = client.left;
    int captionHeight = m_metrics.GetFormNCM(borderStyle);
    if (captionHeight > 0)
        PaintCaption(painter, { frame, frame, window.width - 2 * frame, captionHeight - 1 }, borderStyle);
    if (m_processor.FormHasMenus(m_form))
        PaintMenuBar(painter, { frame, client.top - m_metrics.HeightMenus, window.width - 2 * frame, m_metrics.HeightMenus });
}

void CFormRenderer::PaintCaption(ClassicPainter& painter, const PixelRect& bar, int borderStyle)
{
    const Vb6Block& form = m_file.Form();
    painter.Gradient(bar, SystemColour(kActiveCaption), SystemColour(kGradientActiveCaption));
    bool toolWindow = borderStyle == 4 || borderStyle == 5;
    bool controlBox = form.Boolean("ControlBox", true);
    int left = bar.left + 2;
    if (controlBox && !toolWindow && borderStyle != 3) {
        PixelRect iconBox { bar.left + 1, bar.top + (bar.height - 16) / 2, 16, 16 };
        std::optional<Picture> icon = PictureProperty(form, "Icon");
        if (icon)
            painter.DrawPicture(*icon, iconBox, true);
        else
            PaintDefaultIcon(painter, iconBox);
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
        bool minButton = form.Boolean("MinButton", true);
        bool maxButton = form.Boolean("MaxButton", true);
        if ((borderStyle == 1 || borderStyle == 2) && (minButton || maxButton)) {
            PixelRect maximize { right - buttonWidth, top, buttonWidth, buttonHeight };
            PixelRect minimize { maximize.left - buttonWidth, top, buttonWidth, buttonHeight };
            PaintCaptionButton(painter, maximize, CaptionGlyph::Maximize, maxButton);
            PaintCaptionButton(painter, minimize, CaptionGlyph::Minimize, minButton);
            right = minimize.left - 2;
        }
    }
    FontSpec font { "Tahoma", toolWindow ? 7.5 : 8, true };
    TextStyle style;
    style.vAlign = VAlign::Middle;
    style.mnemonic = false;
    style.ellipsis = true;
    PixelRect text { left, bar.top, right - left, bar.height };
    // A right-to-left window shows its title bar mirrored: the icon and the
    // caption at the right, the buttons at the left.
    if (FormReadsRightToLeft()) {
        painter.MirrorHorizontally(bar);
        text.left = bar.left + bar.Right() - right;
        style.rightToLeft = true;
        style.hAlign = HAlign::Right;
    }
    painter.PushClip(bar);
    painter.DrawText(text, form.Text("Caption"), font, SystemColour(kCaptionText), style);
    painter.PopClip();
}

void CFormRenderer::PaintMenuBar(ClassicPainter& painter, const PixelRect& bar)
{
    painter.Fill(bar, SystemColour(kMenu));
    FontSpec font { "Tahoma", 8 };
    bool rightToLeft = FormReadsRightToLeft();
    int x = bar.left;
    int fromRight = bar.Right();
    painter.PushClip(bar);
    for (const auto& menu : m_file.Form().Children()) {
        if (!menu->IsMenu() || !menu->Boolean("Visible", true))
            continue;
        std::string caption = menu->Text("Caption");
        if (caption == "-" || Trim(caption).empty())
            continue;
        int width = painter.MeasureText(caption, font).width + 14;
        TextStyle style;
        style.vAlign = VAlign::Middle;
        style.disabled = !menu->Boolean("Enabled", true);
        style.rightToLeft = rightToLeft;
        // A right-to-left menu bar starts at the right.
        if (rightToLeft) {
            fromRight -= width;
            x = fromRight;
        }
        painter.DrawText({ x + 7, bar.top, width - 7, bar.height }, caption, font, SystemColour(kMenuText), style);
        x += width;
    }
    painter.PopClip();
}

void CFormRenderer::PaintClient(ClassicPainter& painter, const PixelRect& client)
{
    const Vb6Block& form = m_file.Form();
    std::uint32_t back = m_file.Kind() == Vb6FormKind::MDIForm ? SystemColourValue(kAppWorkspace)
                                                              : SystemColourValue(kButtonFace);
    painter.Fill(client, ColourProperty(form, "BackColor", back));
    if (std::optional<Picture> picture = PictureProperty(form, "Picture"))
        painter.DrawPicture(*picture, { client.left, client.top, picture->Width(), picture->Height() }, false);
}

bool CFormRenderer::ShouldPaint(const Node& parent, const Node& child, bool lightweightPass)
{
    const Vb6Block& block = *child.block;
    std::string type = block.ShortType();
    if (block.IsMenu() || IsInvisibleAtRunTime(type) || IsLightweightControl(type) != lightweightPass)
        return false;
    if (!m_options.designView && !block.Boolean("Visible", true))
        return false;
    if (IsTabControl(parent)) {
        int page = PageOf(*parent.block, block);
        if (page >= 0 && page != ShownPage(parent))
            return false;
    }
    return true;
}

bool CFormRenderer::NeedsPainting(const ControlView& view) const
{
    if (!m_redrawn)
        return true;
    if (m_redrawn->Empty())
        return false;
    // Wide borders are drawn across the edge of the rectangle, lines from end to end.
    int reach = 2 + std::max(paint::Int(*view.block, "BorderWidth", 1), 1);
    PixelRect painted = view.rect;
    if (EqualsNoCase(view.type, "Line")) {
        painted = { std::min(view.x1, view.x2), std::min(view.y1, view.y2), std::abs(view.x2 - view.x1),
            std::abs(view.y2 - view.y1) };
    }
    return !Intersection(painted.Inset(-reach), *m_redrawn).Empty();
}

void CFormRenderer::PaintChildren(ClassicPainter& painter, const Node& node, int originX, int originY,
    RenderedForm& out, bool paint)
{
    // Labels, images, shapes and lines are drawn on their container, under
    // the controls that are windows of their own. A form file lists controls
    // from the top of the pile down, so the last one is drawn first.
    for (bool lightweightPass : { true, false }) {
        for (auto it = node.children.rbegin(); it != node.children.rend(); ++it) {
            const auto& child = *it;
            if (!ShouldPaint(node, *child, lightweightPass))
                continue;
            ControlView view = MakeView(node, *child, originX, originY);
            // A container off the area redrawn keeps everything inside it off too.
            bool painted = paint && NeedsPainting(view);
            if (painted)
                PaintControl(painter, view);
            Record(*child, view, out);
            if (child->children.empty())
                continue;
            if (painted)
                painter.PushClip(ChildClipOf(view));
            PaintChildren(painter, *child, view.rect.left, view.rect.top, out, painted);
            if (painted)
                painter.PopClip();
        }
    }
}

PixelRect CFormRenderer::FileRect(const Node& parent, const Node& node, int originX, int originY) const
{
    // The form file keeps places and sizes in twips whatever the ScaleMode.
    const Vb6Block& block = *node.block;
    double left = block.Number("Left", 0);
    // Drawn only when its page is shown; the file keeps it aside unless that is
    // the page the designer last showed.
    if (IsTabControl(parent) && left < -kHiddenTabOffset / 2)
        left += kHiddenTabOffset;
    auto pixels = [](double value) { return Pixels(value / kTwipsPerPixel); };
    return { originX + pixels(left), originY + pixels(block.Number("Top", 0)), pixels(block.Number("Width", 0)),
        pixels(block.Number("Height", 0)) };
}

ControlView CFormRenderer::MakeView(const Node& parent, const Node& node, int originX, int originY)
{
    const Vb6Block& block = *node.block;
    ControlView view;
    view.block = &block;
    view.type = block.ShortType();
    view.name = block.IndexedName();
    if (node.object) {
        IClientFormProcessor::Rect rect = m_processor.GetControlRectangleInTwips(m_form, node.object);
        view.rect = { originX + rect.left, originY + rect.top, rect.width, rect.height };
    } else {
        view.rect = FileRect(parent, node, originX, originY);
    }
    view.font = FontOf(block);
    view.enabled = block.Boolean("Enabled", true);
    view.rightToLeft = block.Boolean("RightToLeft", FormReadsRightToLeft());
    view.threeD = block.Number("Appearance", 1) != 0;
    view.picture = PictureProperty(block, "Picture");
    std::string type = ToLower(view.type);
    if (type == "listbox" || type == "combobox")
        view.listItems = ListProperty(block);
    AddParts(node, originX, originY, view);
    if (type == "line") {
        auto x = [&](const char* name) { return originX + Pixels(block.Number(name, 0) / kTwipsPerPixel); };
        auto y = [&](const char* name) { return originY + Pixels(block.Number(name, 0) / kTwipsPerPixel); };
        view.x1 = x("X1");
        view.y1 = y("Y1");
        view.x2 = x("X2");
        view.y2 = y("Y2");
    }
    if (type == "statusbar") {
        int style = m_processor.BorderStyle(m_form);
        view.sizeGrip = IsFramedKind(m_file) && (style == 2 || style == 5) && block.Number("Align", 0) == 2;
    }
    return view;
}

void CFormRenderer::AddParts(const Node& node, int originX, int originY, ControlView& view)
{
    if (!node.object)
        return;
    auto shifted = [&](const IClientFormProcessor::Rect& rect) {
        return PixelRect { originX + rect.left, originY + rect.top, rect.width, rect.height };
    };
    if (IsTabControl(node)) {
        int pages = m_processor.TabControlPagesQtyGet(node.object);
        for (int page = 0; page < pages && page < 1000; ++page)
            view.parts.push_back(shifted(m_processor.GetTabPageTabRectangleInTwips(page, m_form, node.object)));
        view.shownPage = ShownPage(node);
    } else if (EqualsNoCase(view.type, "Toolbar")) {
        int buttons = m_processor.ToolbarButtonsQtyGet(node.object);
        for (int button = 1; button <= buttons && button <= 1000; ++button)
            view.parts.push_back(shifted(m_processor.GetToolbarButtonRectangleInTwips(button, m_form, node.object)));
    }
}

void CFormRenderer::Record(const Node& node, const ControlView& view, RenderedForm& out)
{
    if (!node.object)
        return;
    std::string name = m_processor.ControlNameGet(node.object);
    out.controls.push_back({ name, m_processor.ObjectTypeName(node.object), view.rect });
    bool tabControl = IsTabControl(node);
    for (std::size_t i = 0; i < view.parts.size(); ++i) {
        std::string partName = std::to_string(tabControl ? i : i + 1) + "_" + name;
        out.controls.push_back({ partName, tabControl ? "Page" : "ToolbarButton", view.parts[i] });
    }
}

}  // namespace scriv
