#pragma once

#include <map>
#include <string>

namespace scriv {

// What the user chose for taking screenshots of a running application's
// forms: where pictures and pages go, in which format, under which names.
class ScreenshotOptions {
public:
    // openMode is how the tool was started; it does not change afterwards.
    ScreenshotOptions(std::string scrivProjectFullPath, bool userControlledLocation, int openMode,
        std::string loadedProjectPicsFolder = {}, std::string loadedProjectHtmlFolder = {});

    // Puts every field back to its default.
    void SetDefaults();

    // --- defaults ---
    // The remembered "DefaultDirToSaveImages" when the user chooses the place,
    // else the images folder of the loaded help project.
    std::string DefaultDirToSaveImages() const;
    // "{{FormName}}" with ".jpg" for JPEG pictures, else ".bmp".
    std::string DefaultCapturedImageFileName() const;
    // The remembered folder for pages when the user chooses the place, else
    // the loaded project's folder.
    std::string DefaultDirToSaveHTML() const;
    // The remembered page name, else "{{FormName}}.htm".
    std::string DefaultHtmlFileName() const;

    // Values the tool remembered between runs ("DefaultDirToSaveImages",
    // "DefaultDirToSaveHTML", "HtmlFileName").
    void Remember(const std::string& name, std::string value) { m_stored[name] = std::move(value); }

    int OpenMode() const { return m_openMode; }

    std::string ScrivProjectFullPath;
    bool UserControlledScreenshotLocation { false };
    // 1 bitmap, 2 JPEG.
    int PictureSaveType { 1 };
    std::string DirToSaveImages;
    std::string DirToSaveHtml;
    bool ScreenshotOptionsDefined { false };
    bool GenerateHTML { true };
    bool ShowScreenshotSucceededDlg { false };
    std::string CapturedImageFileName;
    std::string HtmlFileName;
    bool FirstUse { true };
    bool SelectedWindowScreenshotOnly { false };

private:
    std::string Stored(const std::string& name) const;

    int m_openMode { 0 };
    std::string m_picsFolder;
    std::string m_htmlFolder;
    std::map<std::string, std::string> m_stored;
};

}  // namespace scriv
