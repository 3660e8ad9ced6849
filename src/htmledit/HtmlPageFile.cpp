#include "htmledit/HtmlPageFile.h"

#include <unordered_map>

#include "foundation/CUTF8File.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmledit/CHtmlBeautifier.h"
#include "htmledit/PageUrls.h"

namespace scriv {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kEndTag = "</html>";

bool IsUtf8Encoding(std::string_view encoding)
{
    return encoding.empty() || EqualsNoCase(encoding, "utf-8") || EqualsNoCase(encoding, "utf8");
}

// Splits the browser-help script (and whatever follows "</html>" with it) off
// the page's text.
void SplitTrailer(HtmlPageText& page)
{
    std::size_t end = FindNoCase(page.text, kEndTag);
    if (end == std::string::npos)
        return;
    std::size_t cut = end + kEndTag.size();
    if (FindNoCase(page.text, "<script", cut) == std::string::npos)
        return;
    page.trailer = page.text.substr(cut);
    page.text.resize(cut);
}

}  // namespace

HtmlPageText ReadHtmlPage(const std::string& path)
{
    if (!FileExists(path) || FolderExists(path))
        Raise(status::kSecondFailure, "HtmlPageFile.ReadHtmlPage", "File [" + path + "] does not exist!");
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != status::kOk)
        Raise(status::kGeneralFailure, "HtmlPageFile.ReadHtmlPage", "The page '" + path + "' cannot be read.");
    HtmlPageText page;
    page.path = path;
    page.url = FileUrlOfPath(path);
    page.encoding = reader.Encoding();
    page.byteOrderMark = reader.HasUTF8Header();
    page.text = reader.Text();
    SplitTrailer(page);
    return page;
}

std::unique_ptr<HtmlDocument> ParseHtmlPage(const HtmlPageText& page)
{
    return HtmlDocument::Parse(page.text);
}

std::string RemoveCursorMarker(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    std::size_t from = 0;
    while (true) {
        std::size_t at = text.find(kCursorMarker, from);
        if (at == std::string_view::npos)
            break;
        out += text.substr(from, at - from);
        from = at + kCursorMarker.size();
        if (from < text.size() && text[from] == ' ')
            ++from;
    }
    out += text.substr(from);
    return out;
}

std::string EncodePageText(std::string_view text, std::string_view encoding, bool byteOrderMark)
{
    if (IsUtf8Encoding(encoding))
        return byteOrderMark ? std::string(kByteOrderMark) + std::string(text) : std::string(text);
    // The code pages of pages hold ASCII as it is; only the other characters
    // need a look, once each.
    std::unordered_map<char32_t, std::string> known;
    std::string out;
    out.reserve(text.size());
    for (char32_t c : Utf8ToUtf32(text)) {
        if (c < 0x80) {
            out += static_cast<char>(c);
            continue;
        }
        auto found = known.find(c);
        if (found == known.end()) {
            std::string utf8 = CodePointToUtf8(c);
            std::string bytes = ConvertFromUtf8(utf8, encoding);
            // A character that does not come back is not in the code page.
            if (ConvertToUtf8(bytes, encoding) != utf8)
                bytes = "&#" + std::to_string(static_cast<std::uint32_t>(c)) + ";";
            found = known.emplace(c, std::move(bytes)).first;
        }
        out += found->second;
    }
    return out;
}

void WriteHtmlPage(const HtmlPageText& page, std::string_view text)
{
    std::string whole = std::string(text) + page.trailer;
    if (!WriteFileBytes(page.path, EncodePageText(whole, page.encoding, page.byteOrderMark)))
        Raise(status::kGeneralFailure, "HtmlPageFile.WriteHtmlPage", "Error saving '" + page.path + "'");
}

void SaveHtmlDocument(const HtmlPageText& page, const HtmlDocument& document)
{
    WriteHtmlPage(page, RemoveCursorMarker(BeautifiedHtml(document, page.url)));
}

std::string BeautifyHtmlText(std::string_view text, std::string_view url)
{
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(text);
    return RemoveCursorMarker(BeautifiedHtml(*document, url));
}

bool BeautifyHtmlFile(const std::string& path)
{
    HtmlPageText page = ReadHtmlPage(path);
    std::string text = BeautifyHtmlText(page.text, page.url);
    if (text == page.text)
        return false;
    WriteHtmlPage(page, text);
    return true;
}

}  // namespace scriv
