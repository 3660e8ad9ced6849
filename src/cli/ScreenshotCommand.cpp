#include "cli/ScreenshotCommand.h"

#include <iostream>
#include <map>
#include <memory>
#include <optional>

#include "cli/CliSession.h"
#include "desktop/BmpFile.h"
#include "desktop/CFormRenderer.h"
#include "desktop/CW_IDEVB6Context.h"
#include "desktop/PngFile.h"
#include "desktop/cJPEG.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"

namespace scriv {
namespace {

enum class PictureKind { Bitmap, Jpeg, Png };

std::optional<PictureKind> KindOf(const std::string& path)
{
    std::string extension = ToLower(FileExtension(path));
    if (extension == ".bmp")
        return PictureKind::Bitmap;
    if (extension == ".jpg" || extension == ".jpeg")
        return PictureKind::Jpeg;
    if (extension == ".png")
        return PictureKind::Png;
    return std::nullopt;
}

// "tabOrder=1" as a tab control's name and a page.
std::optional<std::pair<std::string, int>> ParsePage(const std::string& text)
{
    std::vector<std::string> parts = Split(text, "=");
    std::optional<std::int64_t> page = parts.size() == 2 ? ParseInteger(Trim(parts[1])) : std::nullopt;
    if (!page || *page < 0 || *page > 1000 || Trim(parts[0]).empty())
        return std::nullopt;
    return std::make_pair(Trim(parts[0]), static_cast<int>(*page));
}

CW_IDEVB6Context::Component* FindForm(CW_IDEVB6Context& host, const std::string& name)
{
    host.SetUseProjectGroupAsSource(true);
    for (const std::string& project : Split(host.SourceProjectsList(), "|")) {
        host.SetCurrentSourceProject(project);
        if (CW_IDEVB6Context::Component* component = host.FindComponent(name))
            return component;
    }
    return nullptr;
}

bool WritePicture(const Picture& picture, PictureKind kind, const ScreenshotCommandOptions& options)
{
    if (kind != PictureKind::Jpeg) {
        if (kind == PictureKind::Bitmap ? WriteBmpFile(picture, options.out) : WritePngFile(picture, options.out))
            return true;
        std::cerr << "scrivant: cannot write '" << options.out << "'.\n";
        return false;
    }
    cJPEG jpeg;
    int errorNumber = 0;
    std::string errorText;
    if (jpeg.CreateFromPicture(picture) && JPEG_Save(jpeg, options.out, options.quality, false, errorNumber, errorText))
        return true;
    std::cerr << "scrivant: cannot write '" << options.out << "': " << errorText << " (" << errorNumber << ").\n";
    return false;
}

}  // namespace

int RunScreenshot(const GlobalOptions& global, const ScreenshotCommandOptions& options)
{
    std::optional<PictureKind> kind = KindOf(options.out);
    if (!kind) {
        std::cerr << "scrivant: '" << options.out << "': the picture must be a .png, .bmp or .jpg file.\n";
        return exitcode::kUsage;
    }
    std::map<std::string, int> pages;
    for (const std::string& text : options.pages) {
        std::optional<std::pair<std::string, int>> page = ParsePage(text);
        if (!page) {
            std::cerr << "scrivant: '" << text << "' is no page to show: write TABCONTROL=PAGE, the page from 0.\n";
            return exitcode::kUsage;
        }
        pages[page->first] = page->second;
    }
    CliSession session(global);
    std::unique_ptr<CW_IDEVB6Context> host;
    try {
        host = CW_IDEVB6Context::Open(options.source);
    } catch (const ScrivError& error) {
        std::cerr << "scrivant: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
    CW_IDEVB6Context::Component* component = FindForm(*host, options.form);
    if (!component) {
        std::cerr << "scrivant: '" << options.source << "' has no form " << options.form << ".\n";
        return exitcode::kFailed;
    }
    if (!component->file) {
        std::cerr << "scrivant: " << component->error << "\n";
        return exitcode::kFailed;
    }
    CW_IDEVB6FormProcessor processor(*component->file, component->windowHandle);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    CFormRenderer renderer(processor, form, *component->file, { !options.runtimeView });
    for (const auto& [tabControl, page] : pages) {
        if (!renderer.ShowTabPage(tabControl, page)) {
            std::cerr << "scrivant: " << component->path << ": the form has no tab control " << tabControl
                      << " with a page " << page << ".\n";
            return exitcode::kFailed;
        }
    }
    RenderedForm rendered = renderer.Render();
    if (!WritePicture(rendered.picture, *kind, options))
        return exitcode::kFailed;
    std::cout << options.out << ": " << component->name << ", " << rendered.picture.Width() << " x "
              << rendered.picture.Height() << " pixels\n";
    return exitcode::kDone;
}

}  // namespace scriv
