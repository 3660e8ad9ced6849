#include "screenshots/CFormBitmapCapture.h"

#include <functional>

#include "desktop/BmpFile.h"
#include "desktop/PngFile.h"
#include "desktop/RenderedWindows.h"
#include "screenshots/PictureFileWriter.h"
#include "desktop/cJPEG.h"
#include "foundation/CTraceLog.h"
#include "foundation/EventLoop.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CScrivantParameters.h"
#include "screenshots/modScreenCapture.h"

namespace scriv {

namespace {

// The first window below parent, depth first, that matches.
const RenderedWindow* FindDepthFirst(int parent, const std::function<bool(const RenderedWindow&)>& matches, int depth = 0)
{
    if (depth > 100)
        return nullptr;
    for (const RenderedWindow* window : RenderedWindows().Children(parent)) {
        if (matches(*window))
            return window;
        if (const RenderedWindow* found = FindDepthFirst(window->handle, matches, depth + 1))
            return found;
    }
    return nullptr;
}

// The first window that matches, depth first from each window that lies in
// no drawn window (the host's main window is not drawn).
const RenderedWindow* FindAnywhere(const std::function<bool(const RenderedWindow&)>& matches)
{
    for (const RenderedWindow* window : RenderedWindows().All()) {
        if (RenderedWindows().Find(window->parent) && window->parent != window->handle)
            continue;
        if (matches(*window))
            return window;
        if (const RenderedWindow* found = FindDepthFirst(window->handle, matches))
            return found;
    }
    return nullptr;
}

}  // namespace

std::optional<Picture> CFormBitmapCapture::CaptureFormInDesignView(int hwnd, int width, int height)
{
    return CaptureWindow(hwnd, false, 0, 0, width, height);
}

int CFormBitmapCapture::hwndForm(const std::string& caption, const std::string& name)
{
    auto byText = [&](const RenderedWindow& window) { return !caption.empty() && EqualsNoCase(window.text, caption); };
    auto byCaption = [&](const RenderedWindow& window) { return !caption.empty() && EqualsNoCase(window.caption, caption); };
    auto byName = [&](const RenderedWindow& window) { return !name.empty() && EqualsNoCase(window.name, name); };
    using Matcher = std::function<bool(const RenderedWindow&)>;
    for (const Matcher& matches : { Matcher(byText), Matcher(byCaption), Matcher(byName) }) {
        if (const RenderedWindow* window = FindAnywhere(matches)) {
            std::vector<const RenderedWindow*> children = RenderedWindows().Children(window->handle);
            return children.empty() ? window->handle : children.front()->handle;
        }
    }
    return 0;
}

bool CFormBitmapCapture::CaptureWindowScreenshot(int hwnd, const std::string& path, const std::string& format)
{
    if (hwnd == 0)
        return false;
    std::optional<Picture> picture = CaptureWindowByHWND(hwnd);
    if (!picture)
        return false;
    WritePictureToFile(&*picture, format, path);
    return true;
}

int CFormBitmapCapture::GetIDEChildWindowHwndByWinClassName(int parent, const std::string& className)
{
    const RenderedWindow* window
        = FindDepthFirst(parent, [&](const RenderedWindow& candidate) { return EqualsNoCase(candidate.className, className); });
    return window ? window->handle : 0;
}

int CFormBitmapCapture::SavePictureErr(const Picture* picture, const std::string& path)
{
    if (!picture)
        return -1;
    if (Parameters().ImagesFormat() == 3) {
        std::string pngPath = ReplaceAllNoCase(path, ".bmp", ".png");
        DeleteFileIfExists(pngPath);
        if (WritePngFile(*picture, pngPath))
            return 3;
        Trace("CFormBitmapCapture1.SavePictureErr: cannot write " + pngPath);
    }
    if (Parameters().ImagesFormat() == 2) {
        std::string jpegPath = ReplaceAllNoCase(path, ".bmp", ".jpg");
        DeleteFileIfExists(jpegPath);
        cJPEG jpeg;
        int errorNumber = 0;
        std::string errorText;
        if (jpeg.CreateFromPicture(*picture) && JPEG_Save(jpeg, jpegPath, 85, false, errorNumber, errorText))
            return 2;
        // A bitmap stands in for the JPEG without a word to the person.
        Trace("CFormBitmapCapture1.SavePictureErr: " + jpegPath + ": " + std::to_string(errorNumber) + " " + errorText);
    }
    if (!WriteBmpFile(*picture, path))
        TraceLog().addMessage("CFormBitmapCapture1.SavePictureErr: cannot write " + path, true);
    return 1;
}

int CFormBitmapCapture::SavePictureErr1(const Picture* picture, const std::string& path,
    const std::string& controlTypeName, bool flag)
{
    static const char* const kCompoundTypes[] = { "Frame", "SSTab", "TabStrip", "OptionGroup", "Shape" };
    if (!flag)
        return 0;
    for (const char* type : kCompoundTypes)
        if (EqualsNoCase(controlTypeName, type))
            return SavePictureErr(picture, path);
    return 0;
}

bool CaptureForm(const std::string& path, const std::string& format, const std::string& caption, int width,
    int height, int hwnd, PictureFileWriter* writer)
{
    Trace("CaptureForm(1): WinCaption = [" + caption + "], Width = " + std::to_string(width) + ", Height = "
        + std::to_string(height) + ", Hwnd = " + std::to_string(hwnd));
    CFormBitmapCapture capture;
    if (hwnd == 0)
        hwnd = capture.hwndForm(caption, "");
    if (hwnd == 0)
        return false;
    std::optional<Picture> picture = capture.CaptureFormInDesignView(hwnd, width, height);
    if (writer && picture)
        writer->Write(std::move(*picture), path, format);
    else
        WritePictureToFile(picture ? &*picture : nullptr, format, path);
    return true;
}

bool CaptureControl(const std::string& path, const std::string& format, int hwnd, int left, int top, int width,
    int height, PictureFileWriter* writer)
{
    LogicLoop().RunPending();
    std::optional<Picture> picture = CaptureWindow(hwnd, true, left, top, width, height);
    if (!picture)
        return false;
    if (writer)
        writer->Write(std::move(*picture), path, format);
    else
        WritePictureToFile(&*picture, format, path);
    return true;
}

}  // namespace scriv
