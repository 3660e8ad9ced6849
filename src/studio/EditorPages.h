#pragma once

#include <string>
#include <string_view>

// The pages of the Help Editor on disk, as the studio shows them for editing
// and writes them back: the browser's document is never written as the
// browser serializes it, but through the beautifier, in the page's charset.
namespace scriv::studio {

// The name of the page that the source view hands back to the page editor:
// it lies beside the page so that relative links keep working.
inline constexpr std::string_view kTempPageName = "~temp.htp";

// The text a page is shown with for editing: without the browser-help script
// that stands behind "</html>" (or, in a page written by a document walk, in
// its body).
std::string PageTextForEditing(std::string_view text);

// Writes an edited page to path. With source, text is the source view's text
// and is written as it stands (line ends made CR LF); otherwise it is the
// page's live document, and the beautifier's text of it is written. The cursor
// marker never reaches the file. The file keeps its charset, byte order mark
// and browser-help script; a page that does not exist yet is written in the
// charset its text declares (else UTF-8) with the browser-help script behind
// it. Raises ScrivError "Error saving '...'" when it cannot be written.
void WriteEditedPage(const std::string& path, std::string_view text, bool source);

// The source view's text of a live document read at pagePath: the
// beautifier's text, the cursor marker kept where it stands.
std::string SourceViewText(std::string_view html, const std::string& pagePath);

// The path of "~temp.htp" beside a page.
std::string TempPagePath(const std::string& pagePath);
// Writes text to "~temp.htp" beside the page, in the charset the text
// declares, and answers its path. Raises ScrivError when it cannot be written.
std::string WriteTempPage(const std::string& pagePath, std::string_view text);
// Removes "~temp.htp" beside the page, if there is one.
void KillTempPage(const std::string& pagePath);

// Whether a file exists and may not be written.
bool IsReadOnlyFile(const std::string& path);

}  // namespace scriv::studio
