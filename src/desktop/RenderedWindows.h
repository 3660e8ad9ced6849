#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desktop/CFormRenderer.h"

// The windows of this platform: drawings of forms, each under the handle a
// host gave its form. Captures find a window here by its handle.
namespace scriv {

struct RenderedWindow {
    int handle { 0 };
    // The window it lies in (the host's main window), or 0.
    int parent { 0 };
    // "ThunderForm", "ThunderMDIForm", "ThunderUserControl" ...
    std::string className;
    // The window text: the caption of the form's designer window, "frmOrder (Form)".
    std::string text;
    // The form's own Caption and name.
    std::string caption;
    std::string name;
    RenderedForm form;
};

class CRenderedWindows {
public:
    // Adds the window, or replaces the one with the same handle; a handle of 0
    // is refused and gives false.
    bool Register(RenderedWindow window);
    // The window of that handle, or null.
    const RenderedWindow* Find(int handle) const;
    bool Remove(int handle);
    // Removes the window of that handle and hands it over; nothing when there is none.
    std::optional<RenderedWindow> Take(int handle);
    void Clear();
    std::size_t Count() const { return m_windows.size(); }
    // Every window, in the order of their handles.
    std::vector<const RenderedWindow*> All() const;
    // The windows whose parent is that handle, in the order of their handles.
    std::vector<const RenderedWindow*> Children(int parent) const;

private:
    std::map<int, RenderedWindow> m_windows;
};

// The windows of this process.
CRenderedWindows& RenderedWindows();

// The class name of the window of a form of that kind of file.
std::string WindowClassName(const Vb6FormFile& file);

// Draws the form as the processor shows it, with the given tab pages shown
// first (tab control name to page), and registers the drawing under handle
// with the processor's designer window caption as its text. Answers the
// registered window, or null for a handle of 0.
// With redrawnTabControls, the window of that handle was drawn before in the
// same view and only those tab controls show other pages now: their area
// alone is drawn anew (the whole form when one of them is not in the drawing).
const RenderedWindow* RenderFormWindow(int handle, IClientFormProcessor& processor, IHostObject* form,
    const Vb6FormFile& file, const RenderOptions& options = {}, const std::map<std::string, int>& pages = {},
    int parent = 0, const std::set<std::string>* redrawnTabControls = nullptr);

}  // namespace scriv
