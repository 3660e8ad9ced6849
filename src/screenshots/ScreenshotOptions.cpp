#include "screenshots/ScreenshotOptions.h"

#include "foundation/Paths.h"

namespace scriv {

ScreenshotOptions::ScreenshotOptions(std::string scrivProjectFullPath, bool userControlledLocation, int openMode,
    std::string loadedProjectPicsFolder, std::string loadedProjectHtmlFolder)
    : ScrivProjectFullPath(std::move(scrivProjectFullPath))
    , UserControlledScreenshotLocation(userControlledLocation)
    , m_openMode(openMode)
    , m_picsFolder(std::move(loadedProjectPicsFolder))
    , m_htmlFolder(std::move(loadedProjectHtmlFolder))
{
    SetDefaults();
}

std::string ScreenshotOptions::Stored(const std::string& name) const
{
    auto found = m_stored.find(name);
    return found == m_stored.end() ? std::string() : found->second;
}

void ScreenshotOptions::SetDefaults()
{
    PictureSaveType = 1;
    DirToSaveImages = DefaultDirToSaveImages();
    DirToSaveHtml = DefaultDirToSaveHTML();
    ScreenshotOptionsDefined = false;
    GenerateHTML = true;
    ShowScreenshotSucceededDlg = false;
    CapturedImageFileName = DefaultCapturedImageFileName();
    HtmlFileName = DefaultHtmlFileName();
}

std::string ScreenshotOptions::DefaultDirToSaveImages() const
{
    std::string stored = UserControlledScreenshotLocation ? Stored("DefaultDirToSaveImages") : std::string();
    return stored.empty() ? m_picsFolder : stored;
}

std::string ScreenshotOptions::DefaultCapturedImageFileName() const
{
    return std::string("{{FormName}}") + (PictureSaveType == 2 ? ".jpg" : ".bmp");
}

std::string ScreenshotOptions::DefaultDirToSaveHTML() const
{
    std::string stored = UserControlledScreenshotLocation ? Stored("DefaultDirToSaveHTML") : std::string();
    return stored.empty() ? m_htmlFolder : stored;
}

std::string ScreenshotOptions::DefaultHtmlFileName() const
{
    std::string stored = Stored("HtmlFileName");
    return stored.empty() ? "{{FormName}}.htm" : stored;
}

}  // namespace scriv
