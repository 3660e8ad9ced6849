#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/ClassicPainter.h"
#include "desktop/ControlPainters.h"
#include "host/vb6/FrxFile.h"
#include "desktop/Picture.h"
#include "host/CNonClientMetrics.h"

namespace scriv {

class IClientFormProcessor;
class IHostObject;
class Vb6Block;
class Vb6FormFile;

struct RenderOptions {
    // The IDE's designer view: controls whose Visible is False are drawn too.
    // The run-time view leaves them out, with everything inside them.
    bool designView { true };
};

// Where a control was drawn, in pixels of the window picture.
struct RenderedControl {
    // As the form description names it: "optPriority(1)", "0_tabOrder" for
    // the tab of a page, "1_tbrMain" for a toolbar button.
    std::string name;
    // The form processor's type name ("CommandButton"), "Page" or "ToolbarButton".
    std::string type;
    PixelRect rect;
};

// A drawn form window: the picture, where its client area lies, and the
// record of every control drawn.
struct RenderedForm {
    Picture picture;
    // The client area in window pixels.
    PixelRect client;
    std::vector<RenderedControl> controls;

    // The record of the control of that name (without regard to case), or null.
    const RenderedControl* Find(std::string_view name) const;
};

// Draws a VB6 form as the classic Windows desktop shows it, from its form
// file and from what the form processor answers about it. Every measure comes
// from the processor: the window size, the client-area offsets, each
// control's rectangle (relative to its container, which the renderer adds up
// to the client origin), the tabs of tab controls and the buttons of
// toolbars. Only the controls the processor leaves out of its collections
// (lines, scroll bars) are placed from the file's own numbers. The pages of
// tab controls are drawn as the processor has them: the page it shows, and
// none of the controls of its other pages.
class CFormRenderer {
public:
    // The processor, its form object and the form file must outlive the renderer.
    CFormRenderer(IClientFormProcessor& processor, IHostObject* form, const Vb6FormFile& file, RenderOptions options = {});
    ~CFormRenderer();
    CFormRenderer(const CFormRenderer&) = delete;
    CFormRenderer& operator=(const CFormRenderer&) = delete;

    // Shows a page (0 based) of the tab control of that name through the
    // processor; false when there is no such tab control or page.
    bool ShowTabPage(const std::string& tabControlName, int page);

    // Draws the form as it stands now.
    RenderedForm Render();
    // Draws the form as it stands now over an earlier drawing of it in which
    // only what lies in area (window pixels) differs, such as a tab control
    // that shows another page: gives what Render gives, drawing only that area.
    // An earlier drawing of another size is drawn anew.
    RenderedForm RenderOver(RenderedForm earlier, const PixelRect& area);

private:
    // Whether the form's RightToLeft is set: its text reads from the right and
    // its title and menu bars are mirrored.
    bool FormReadsRightToLeft() const;
    struct Node;

    void BuildChildren(Node& node);
    Node* FindNode(Node& node, const std::string& name);

    void PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client, int borderStyle);
    void PaintCaption(ClassicPainter& painter, const PixelRect& bar, int borderStyle);
    void PaintMenuBar(ClassicPainter& painter, const PixelRect& bar);
    void PaintClient(ClassicPainter& painter, const PixelRect& client);
    // Without paint the controls are only recorded.
    void PaintChildren(ClassicPainter& painter, const Node& node, int originX, int originY, RenderedForm& out,
        bool paint = true);
    bool NeedsPainting(const ControlView& view) const;
    // The window size and client area as the processor answers them.
    PixelRect WindowClientArea(int& width, int& height);
    bool ShouldPaint(const Node& parent, const Node& child, bool lightweightPass);

    ControlView MakeView(const Node& parent, const Node& node, int originX, int originY);
    PixelRect FileRect(const Node& parent, const Node& node, int originX, int originY) const;
    void AddParts(const Node& node, int originX, int originY, ControlView& view);
    void Record(const Node& node, const ControlView& view, RenderedForm& out);

    int ShownPage(const Node& tabControl) const;
    static int PageOf(const Vb6Block& tabControl, const Vb6Block& control);
    bool IsTabControl(const Node& node) const;

    std::optional<Picture> PictureProperty(const Vb6Block& block, std::string_view name);
    std::vector<std::string> ListProperty(const Vb6Block& block);
    const FrxFile* Frx(const std::string& fileName);

    IClientFormProcessor& m_processor;
    IHostObject* m_form { nullptr };
    const Vb6FormFile& m_file;
    RenderOptions m_options;
    CNonClientMetrics m_metrics;
    std::unique_ptr<Node> m_root;
    // Pages shown through ShowTabPage, by tab control.
    std::map<const Vb6Block*, int> m_shownPages;
    std::map<std::string, std::optional<FrxFile>> m_frxFiles;
    // While drawing over an earlier drawing: the area drawn anew.
    std::optional<PixelRect> m_redrawn;
};

}  // namespace scriv
