#pragma once

#include <functional>
#include <map>
#include <string>

#include "desktop/CFormRenderer.h"
#include "host/CNonClientMetrics.h"

namespace scriv {

class AccessDefinition;
class CW_AccessFormProcessor;
struct AccessBlock;
struct AccessControlView;
struct RenderedWindow;

// The definition of a form of the same application, by name, or null.
using AccessFormLookup = std::function<const AccessDefinition*(const std::string& name)>;

// Draws an Access form in Form view, or a report in Design view, with the
// look of Access on the classic desktop: the window and its caption, the
// sections with their colours, the record selector and navigation buttons
// of a form, the bars that name a report's sections, and each control from
// its definition at the place the processor measures. A subform shows the
// detail of the form it holds.
class CAccessFormRenderer {
public:
    // The processor must outlive the renderer; subforms are looked up through forms.
    CAccessFormRenderer(CW_AccessFormProcessor& processor, AccessFormLookup forms = {});

    // Shows a page (0 based) of the tab control of that name; false when there is no such page.
    bool ShowTabPage(const std::string& tabControlName, int page);
    RenderedForm Render();

private:
    void PaintNonClient(ClassicPainter& painter, const PixelRect& window, const PixelRect& client);
    void PaintBody(ClassicPainter& painter, CW_AccessFormProcessor& processor, int left, int top, RenderedForm* out,
        int depth);
    void PaintControl(ClassicPainter& painter, CW_AccessFormProcessor& processor, const AccessControlView& control,
        int left, int top, RenderedForm* out, int depth);

    CW_AccessFormProcessor& m_processor;
    AccessFormLookup m_forms;
    CNonClientMetrics m_metrics;
};

// The class name of the windows of Access forms and reports.
inline constexpr const char* kAccessFormWindowClass = "OForm";

// Draws the form or report with the given tab pages shown (tab control name
// to page) and registers the drawing under handle. Answers the registered
// window, or null for a handle of 0.
const RenderedWindow* RenderAccessWindow(int handle, CW_AccessFormProcessor& processor, AccessFormLookup forms = {},
    const std::map<std::string, int>& pages = {}, int parent = 0);

}  // namespace scriv
