#pragma once

#include <map>
#include <string>

#include "desktop/CFormRenderer.h"
#include "desktop/WinFormsPainters.h"
#include "host/CNonClientMetrics.h"

namespace scriv {

class CW_IDEVSFormProcessor;
struct DesignComponent;
struct RenderedWindow;

// Draws a Windows Forms form as the classic desktop shows it, from its
// design and from what the form processor answers about it: the window
// size, the client-area offsets, each control's rectangle (relative to its
// container, which the renderer adds up), the tabs of tab controls and the
// items of strips. Controls are drawn from the back of the z-order to the
// front; a tab control shows the page the processor has shown.
class CWinFormRenderer {
public:
    // The processor must outlive the renderer.
    explicit CWinFormRenderer(CW_IDEVSFormProcessor& processor);

    // Shows a page (0 based) of the tab control of that name; false when
    // there is no such tab control or page.
    bool ShowTabPage(const std::string& tabControlName, int page);

    // Draws the form as it stands now.
    RenderedForm Render();

private:
    void PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client);
    void PaintCaption(ClassicPainter& painter, const PixelRect& bar);
    void PaintMainMenu(ClassicPainter& painter, const PixelRect& bar);
    void PaintChildren(ClassicPainter& painter, const DesignComponent& container, int originX, int originY, Rgb back,
        RenderedForm& out);
    void PaintOne(ClassicPainter& painter, const DesignComponent& control, int originX, int originY, Rgb back,
        RenderedForm& out);

    CW_IDEVSFormProcessor& m_processor;
    CNonClientMetrics m_metrics;
};

// The class name of the windows of Windows Forms.
inline constexpr const char* kWinFormWindowClass = "WindowsForms10.Window.8.app.0";

// Draws the form as the processor shows it, with the given tab pages shown
// first (tab control name to page), and registers the drawing under handle.
// Answers the registered window, or null for a handle of 0.
const RenderedWindow* RenderWinFormWindow(int handle, CW_IDEVSFormProcessor& processor,
    const std::map<std::string, int>& pages = {}, int parent = 0);

}  // namespace scriv
