#pragma once

#include <string>
#include <vector>

namespace scriv {

struct GlobalOptions;

struct ScreenshotCommandOptions {
    // A .vbp, or a .vbg whose projects are searched in order.
    std::string source;
    // The name of the form (or user control, user document).
    std::string form;
    // The picture to write: .bmp, or .jpg / .jpeg.
    std::string out;
    // Tab pages to show first, "tabOrder=1" (the tab control's name, page from 0).
    std::vector<std::string> pages;
    // Leave out the controls whose Visible is False, as the running program does.
    bool runtimeView { false };
    // Quality of a JPEG, 1 to 100.
    int quality { 100 };
};

// scrivant screenshot SOURCE FORM --out FILE: draws one form as the classic
// Windows desktop shows it and writes it as a bitmap or JPEG by the file's
// extension. Errors name the file they concern; exit code 2 for a picture
// file of another kind or a page option that is no NAME=NUMBER, 1 for a
// failure.
int RunScreenshot(const GlobalOptions& global, const ScreenshotCommandOptions& options);

}  // namespace scriv
