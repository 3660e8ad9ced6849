#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace scriv {

class HtmlDocument;

// Pages on disk as the editing tools read and write them: decoded from the
// charset they are in, written back in that charset, and always through the
// beautifier when their document was changed. The browser-help script that
// the generator puts behind "</html>" is kept apart and goes back byte for
// byte.

// The marker the editor leaves at the caret for the source view; it never
// reaches a file.
inline constexpr std::string_view kCursorMarker = "{CURRENTCURSORPOSITON}";

struct HtmlPageText {
    std::string path;
    std::string url; // "file://" address of path
    std::string encoding; // "utf-8", "windows-1252" ...
    bool byteOrderMark { false };
    std::string text; // UTF-8, up to and with "</html>" when a script follows that
    std::string trailer; // what follows "</html>" when it holds a "<script", else ""
};

// --- reading ---
// Reads a page. Raises ScrivError naming the file: 0x80040002 when it does not
// exist or is a folder, 0x80040001 when it cannot be read.
HtmlPageText ReadHtmlPage(const std::string& path);
// Parses the text of a page (without its trailer).
std::unique_ptr<HtmlDocument> ParseHtmlPage(const HtmlPageText& page);

// --- writing ---
// The text without the cursor marker and one blank behind it.
std::string RemoveCursorMarker(std::string_view text);
// text in the given encoding (UTF-8 with the mark when asked); a character the
// encoding cannot hold becomes a numeric character reference.
std::string EncodePageText(std::string_view text, std::string_view encoding, bool byteOrderMark);
// Replaces the page's file with text and the page's trailer, in the page's
// encoding, through a temporary file. Raises ScrivError "Error saving '...'"
// when it cannot be written; the file is then as it was.
void WriteHtmlPage(const HtmlPageText& page, std::string_view text);
// Writes a (changed) document of the page through the beautifier.
void SaveHtmlDocument(const HtmlPageText& page, const HtmlDocument& document);

// --- both ---
// The beautified text of a page's text read from url.
std::string BeautifyHtmlText(std::string_view text, std::string_view url);
// Reads a page file, beautifies it and writes it back in its charset, its
// browser-help script as it was. Answers whether the file changed. Raises
// ScrivError naming the file when it cannot be read or written; the file is
// untouched then.
bool BeautifyHtmlFile(const std::string& path);

}  // namespace scriv
