#pragma once

#include <optional>
#include <string>

#include "desktop/Picture.h"

namespace scriv {

// Finds the window of a form among the drawn windows, captures it and saves
// the picture in the image format of the generation.
class CFormBitmapCapture {
public:
    // The window from its corner, width by height pixels (CaptureWindow).
    std::optional<Picture> CaptureFormInDesignView(int hwnd, int width, int height);

    // The handle of the form's window: the first window, depth first from
    // the top, whose text is the caption (without regard to case), or whose
    // form bears that caption; failing that, the form of that name; 0 when
    // none is drawn. A window with windows inside it answers its first child.
    int hwndForm(const std::string& caption, const std::string& name);

    // Captures the whole window and writes it as "bmp" or "jpg"; false when
    // the handle is 0 or no picture came back.
    bool CaptureWindowScreenshot(int hwnd, const std::string& path, const std::string& format);

    // The first window below parent, depth first, of that class (without
    // regard to case), or 0.
    int GetIDEChildWindowHwndByWinClassName(int parent, const std::string& className);

    // -1 without a picture. With the generation's ImagesFormat 2 the picture
    // is written as a JPEG (quality 85) beside the path with ".bmp" replaced by
    // ".jpg" (any case), an existing file of that name deleted first: 2; with
    // ImagesFormat 3 as a PNG the same way under ".png": 3. If that fails, or
    // for any other format, a bitmap under path: 1.
    int SavePictureErr(const Picture* picture, const std::string& path);

    // SavePictureErr when flag is set and the control type is "Frame",
    // "SSTab", "TabStrip", "OptionGroup" or "Shape" (any case); otherwise
    // nothing is written and the result is 0.
    int SavePictureErr1(const Picture* picture, const std::string& path, const std::string& controlTypeName, bool flag);
};

// --- the server's capture operations ---

// Captures a form's window, found by caption when the handle is 0, width by
// height from its corner, into path in the format ("bmp" or "jpg"). False
// when no window is found.
class PictureFileWriter;

// With a writer the file is written on its thread.
bool CaptureForm(const std::string& path, const std::string& format, const std::string& caption, int width,
    int height, int hwnd, PictureFileWriter* writer = nullptr);

// Captures a control: the area at left, top of the form window's client area,
// width by height, into path in the format. Lets pending work run once first,
// so that the form is drawn as it stands. False when no picture came back.
bool CaptureControl(const std::string& path, const std::string& format, int hwnd, int left, int top, int width,
    int height, PictureFileWriter* writer = nullptr);

}  // namespace scriv
