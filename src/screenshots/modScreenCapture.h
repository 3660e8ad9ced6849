#pragma once

#include <optional>
#include <string>

#include "desktop/Picture.h"

typedef struct _cairo_surface cairo_surface_t;

// Window capture: a window handle to a picture, a picture to a file. A window
// is a drawing registered in RenderedWindows(); capturing crops it.
namespace scriv {

// The part of the window at left, top of width by height pixels; with
// clientArea the position counts from the client area's corner, otherwise
// from the window's. What lies outside the window, or all of it for a handle
// no window has, is black, as a screen copy would leave it. A width or height
// of 0 gives an empty picture; nothing comes back only for a size below 0.
// With verbose tracing each step writes its line, "CaptureWindow(1), hDCSrc = "
// to "CaptureWindow(12), ...".
std::optional<Picture> CaptureWindow(int hwnd, bool clientArea, int left, int top, int width, int height);

// A picture holding a copy of a bitmap (an image surface); the caller keeps
// the surface.
Picture CreateBitmapPicture(cairo_surface_t* bitmap);

// The whole window with its frame; nothing for a handle no window has.
std::optional<Picture> CaptureWindowByHWND(int hwnd);

// Writes the picture as "bmp" or "jpg" (JPEG at quality 100, no overwrite
// question). Without a picture, or in any other format, nothing is written.
void WritePictureToFile(const Picture* picture, const std::string& format, const std::string& path);

}  // namespace scriv
