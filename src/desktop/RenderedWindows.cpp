#include "desktop/RenderedWindows.h"

#include <algorithm>

#include "host/IClientFormProcessor.h"
#include "host/vb6/Vb6FormFile.h"

namespace scriv {

bool CRenderedWindows::Register(RenderedWindow window)
{
    if (window.handle == 0)
        return false;
    int handle = window.handle;
    m_windows.insert_or_assign(handle, std::move(window));
    return true;
}

const RenderedWindow* CRenderedWindows::Find(int handle) const
{
    auto found = m_windows.find(handle);
    return found == m_windows.end() ? nullptr : &found->second;
}

bool CRenderedWindows::Remove(int handle)
{
    return m_windows.erase(handle) > 0;
}

std::optional<RenderedWindow> CRenderedWindows::Take(int handle)
{
    auto found = m_windows.find(handle);
    if (found == m_windows.end())
        return std::nullopt;
    RenderedWindow window = std::move(found->second);
    m_windows.erase(found);
    return window;
}

void CRenderedWindows::Clear()
{
    m_windows.clear();
}

std::vector<const RenderedWindow*> CRenderedWindows::All() const
{
    std::vector<const RenderedWindow*> windows;
    for (const auto& entry : m_windows)
        windows.push_back(&entry.second);
    return windows;
}

std::vector<const RenderedWindow*> CRenderedWindows::Children(int parent) const
{
    std::vector<const RenderedWindow*> children;
    for (const auto& [handle, window] : m_windows)
        if (window.parent == parent && handle != parent)
            children.push_back(&window);
    return children;
}

CRenderedWindows& RenderedWindows()
{
    static CRenderedWindows windows;
    return windows;
}

std::string WindowClassName(const Vb6FormFile& file)
{
    switch (file.Kind()) {
    case Vb6FormKind::MDIForm:
        return "ThunderMDIForm";
    case Vb6FormKind::UserControl:
        return "ThunderUserControl";
    case Vb6FormKind::UserDocument:
        return "ThunderUserDocument";
    case Vb6FormKind::PropertyPage:
        return "ThunderPropertyPage";
    default:
        return "ThunderForm";
    }
}

namespace {

// The area the named controls take in a drawing; nothing when one is not in it.
std::optional<PixelRect> AreaOf(const RenderedForm& drawing, const std::set<std::string>& names)
{
    std::optional<PixelRect> area;
    for (const std::string& name : names) {
        const RenderedControl* control = drawing.Find(name);
        if (!control)
            return std::nullopt;
        if (!area) {
            area = control->rect;
            continue;
        }
        int left = std::min(area->left, control->rect.left);
        int top = std::min(area->top, control->rect.top);
        area = PixelRect { left, top, std::max(area->Right(), control->rect.Right()) - left,
            std::max(area->Bottom(), control->rect.Bottom()) - top };
    }
    return area.value_or(PixelRect {});
}

}  // namespace

const RenderedWindow* RenderFormWindow(int handle, IClientFormProcessor& processor, IHostObject* form,
    const Vb6FormFile& file, const RenderOptions& options, const std::map<std::string, int>& pages, int parent,
    const std::set<std::string>* redrawnTabControls)
{
    if (handle == 0)
        return nullptr;
    CFormRenderer renderer(processor, form, file, options);
    for (const auto& [tabControl, page] : pages)
        renderer.ShowTabPage(tabControl, page);
    RenderedWindow window;
    window.handle = handle;
    window.parent = parent;
    window.className = WindowClassName(file);
    window.text = processor.ComponentWindowCaptionGet(form);
    window.caption = file.Form().Text("Caption");
    window.name = file.Form().Name();
    std::optional<RenderedWindow> earlier = redrawnTabControls ? RenderedWindows().Take(handle) : std::nullopt;
    std::optional<PixelRect> area = earlier ? AreaOf(earlier->form, *redrawnTabControls) : std::nullopt;
    window.form = area ? renderer.RenderOver(std::move(earlier->form), *area) : renderer.Render();
    RenderedWindows().Register(std::move(window));
    return RenderedWindows().Find(handle);
}

}  // namespace scriv
