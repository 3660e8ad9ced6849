#pragma once

#include <string>
#include <string_view>

namespace scriv {

class HtmlDocument;
class WordDocument;

// How one page becomes Word content.
struct HtmlToWordmlOptions {
    // The folder that relative picture paths start from, with a final separator.
    std::string pageFolder;
    // The page's own anchor (its file name without extension): the bookmark of
    // that name belongs to this page even when another page uses it too.
    std::string pageAnchor;
    // Pictures are linked to their files instead of stored in the document.
    bool linkPictures { false };
};

// Appends the body of a page at the end of a Word document: headings (in the
// table of contents), paragraphs, bold, italic, underlined, struck and
// coloured text, line breaks, bulleted and numbered lists with their nesting,
// tables with borders and merged cells, pictures at their size in pixels
// (made smaller only to fit the page), bookmarks for the anchors, and links to
// them or to other addresses. What Word cannot hold - scripts, image maps,
// forms and their fields, embedded objects, hidden elements - is left out
// with its content. Pictures that cannot be read are left out and traced.
void AppendHtmlBody(WordDocument& document, const HtmlDocument& page, const HtmlToWordmlOptions& options);

// The bookmark name that Word accepts for an HTML anchor: the anchor itself
// when it is an ASCII letter followed by at most 39 ASCII letters, digits or
// "_"; otherwise the anchor with every other character turned into "_", an
// "a" in front when it does not start with a letter, cut to 31 characters and
// followed by "_" and 8 hex digits of a hash of the whole anchor.
std::string WordBookmarkName(std::string_view anchor);

}  // namespace scriv
