#include "studio/EditorPages.h"

#include <unistd.h>

#include <optional>

#include "foundation/CUTF8File.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/BrowserHelp.h"
#include "htmldom/HtmlDocument.h"
#include "htmledit/CHtmlBeautifier.h"
#include "htmledit/HtmlPageFile.h"
#include "htmledit/PageUrls.h"

namespace scriv::studio {

namespace {

std::string WithCrLf(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 32);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r') {
            out += kCrLf;
            if (i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else if (c == '\n') {
            out += kCrLf;
        } else {
            out += c;
        }
    }
    return out;
}

std::string EncodingOf(std::string_view text)
{
    std::string declared = DeclaredEncoding(text);
    return declared.empty() ? "utf-8" : declared;
}

// The page as it stands on disk, or a new one: a page made from a template
// gets the browser-help script at its first save.
HtmlPageText TargetPage(const std::string& path, std::string_view text)
{
    if (FileExists(path) && !FolderExists(path))
        return ReadHtmlPage(path);
    HtmlPageText page;
    page.path = path;
    page.url = FileUrlOfPath(path);
    page.encoding = EncodingOf(text);
    page.trailer = std::string(kCrLf) + std::string(kCrLf) + WBHScriptText();
    return page;
}

}  // namespace

std::string PageTextForEditing(std::string_view text)
{
    std::optional<std::string> cut = WithoutWBHScript(text);
    std::string page = cut ? *cut : std::string(text);
    // A page written by a document walk holds the script in its body.
    std::size_t id = FindNoCase(page, "id=\"wbh\"");
    if (id == std::string::npos)
        return page;
    std::size_t start = page.rfind('<', id);
    std::size_t end = FindNoCase(page, "</script>", id);
    if (start == std::string::npos || end == std::string::npos || FindNoCase(page, "<script", start) != start)
        return page;
    page.erase(start, end + 9 - start);
    return page;
}

void WriteEditedPage(const std::string& path, std::string_view text, bool source)
{
    HtmlPageText page = TargetPage(path, text);
    std::string written;
    if (source) {
        written = WithCrLf(RemoveCursorMarker(PageTextForEditing(text)));
    } else {
        std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(PageTextForEditing(text));
        written = RemoveCursorMarker(BeautifiedHtml(*document, page.url));
    }
    WriteHtmlPage(page, written);
}

std::string SourceViewText(std::string_view html, const std::string& pagePath)
{
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(html);
    return BeautifiedHtml(*document, FileUrlOfPath(pagePath));
}

std::string TempPagePath(const std::string& pagePath)
{
    return FolderOf(pagePath) + std::string(kTempPageName);
}

std::string WriteTempPage(const std::string& pagePath, std::string_view text)
{
    std::string path = TempPagePath(pagePath);
    if (!WriteFileBytes(path, EncodePageText(text, EncodingOf(text), false)))
        Raise(status::kGeneralFailure, "HTMLEdit.WriteTempFile", "Error saving '" + path + "'");
    return path;
}

void KillTempPage(const std::string& pagePath)
{
    std::string path = TempPagePath(pagePath);
    if (FileExists(path))
        DeleteFileIfExists(path);
}

bool IsReadOnlyFile(const std::string& path)
{
    return FileExists(path) && !FolderExists(path) && access(path.c_str(), W_OK) != 0;
}

}  // namespace scriv::studio
