#include "desktop/RenderedWindows.h"

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

const RenderedWindow* RenderFormWindow(int handle, IClientFormProcessor& processor, IHostObject* form,
    const Vb6FormFile& file, const RenderOptions& options, const std::map<std::string, int>& pages, int parent)
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
    window.form = renderer.Render();
    RenderedWindows().Register(std::move(window));
    return RenderedWindows().Find(handle);
}

}  // namespace scriv
