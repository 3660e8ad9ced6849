#include "screenshots/modScreenCapture.h"

#include "desktop/BmpFile.h"
#include "desktop/RenderedWindows.h"
#include "desktop/PngFile.h"
#include "desktop/cJPEG.h"
#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// The steps of a capture, written only to a verbose trace.
void Step(int number, const std::string& text)
{
    CTraceLog& log = TraceLog();
    if (log.Verbose() && log.IsOn())
        log.addMessage("CaptureWindow(" + std::to_string(number) + "), " + text);
}

std::string Size(int width, int height)
{
    return std::to_string(width) + " x " + std::to_string(height);
}

}  // namespace

std::optional<Picture> CaptureWindow(int hwnd, bool clientArea, int left, int top, int width, int height)
{
    const RenderedWindow* window = RenderedWindows().Find(hwnd);
    Step(1, "hDCSrc = " + std::to_string(window ? hwnd : 0));
    Step(2, "hDCMemory = " + std::to_string(window ? hwnd : 0));
    bool sized = width >= 0 && height >= 0;
    Step(3, "hBmp = " + (sized ? Size(width, height) : std::string("0")));
    Step(4, "hBmpPrev = 0");
    // This desktop has true colour: no palette is ever realised.
    Step(5, "RasterCapsScrn = 0");
    Step(6, "HasPaletteScrn = 0");
    Step(7, "PaletteSizeScrn = 0");
    int originX = window && clientArea ? window->form.client.left : 0;
    int originY = window && clientArea ? window->form.client.top : 0;
    std::optional<Picture> picture;
    if (sized)
        picture = window ? window->form.picture.Crop(originX + left, originY + top, width, height) : Picture(width, height);
    Step(8, "BitBlt = " + std::string(picture && window ? "1" : "0"));
    Step(9, "SelectObject(hBmpPrev)");
    Step(10, "DeleteDC");
    Step(11, "ReleaseDC");
    Step(12, picture ? "objPic = " + Size(picture->Width(), picture->Height()) : std::string("objPic is nothing "));
    return picture;
}

Picture CreateBitmapPicture(cairo_surface_t* bitmap)
{
    Picture picture = Picture::FromSurface(bitmap);
    CTraceLog& log = TraceLog();
    if (log.Verbose() && log.IsOn())
        log.addMessage("CreateBitmapPicture(1), lngRet = " + std::string(picture.Empty() ? "-1" : "0"));
    return picture;
}

std::optional<Picture> CaptureWindowByHWND(int hwnd)
{
    const RenderedWindow* window = RenderedWindows().Find(hwnd);
    if (!window)
        return std::nullopt;
    return CaptureWindow(hwnd, false, 0, 0, window->form.picture.Width(), window->form.picture.Height());
}

void WritePictureToFile(const Picture* picture, const std::string& format, const std::string& path)
{
    if (!picture)
        return;
    std::string what = Size(picture->Width(), picture->Height());
    if (EqualsNoCase(format, "bmp")) {
        WriteBmpFile(*picture, path);
        Trace("WritePictureToFile(1): Pic = " + what + ", FileExists = " + BoolText(FileExists(path)));
        return;
    }
    if (EqualsNoCase(format, "png")) {
        WritePngFile(*picture, path);
        Trace("WritePictureToFile(3): Pic = " + what + ", FileExists = " + BoolText(FileExists(path)));
        return;
    }
    if (!EqualsNoCase(format, "jpg"))
        return;
    cJPEG jpeg;
    jpeg.CreateFromPicture(*picture);
    int errorNumber = 0;
    std::string errorText;
    JPEG_Save(jpeg, path, 100, false, errorNumber, errorText);
    Trace("WritePictureToFile(2): Pic = " + what + ", FileExists = " + BoolText(FileExists(path)) + ", ErrNum = "
        + std::to_string(errorNumber) + ", Errdesc = " + errorText);
}

}  // namespace scriv
