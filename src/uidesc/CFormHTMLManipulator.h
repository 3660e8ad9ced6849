#pragma once

#include <string>
#include <string_view>

namespace scriv {

// Adds elements to an existing topic page. The page is kept as text and the
// new HTML goes in right before the closing body tag, so nothing else of a
// hand-edited page changes.
class CFormHTMLManipulator {
public:
    // Reads a page (in the encoding it declares or, undeclared, is found in).
    // False when it cannot be read.
    bool LoadHtmlDocument(std::string_view path);
    // Inserts html before the last "</body>" (any case); a page without one
    // gets it before "</html>", else at its end. False when no page is loaded.
    bool AddHTMLElementToBody(std::string_view html);
    // Writes the page to path through path + ".tmp" and a rename, in the
    // encoding it was read in, keeping a byte order mark the page had.
    // False when nothing is loaded or the file cannot be written.
    bool SaveDoc(std::string_view path);
    // Forgets the page.
    void Terminate();

    bool IsLoaded() const { return m_loaded; }
    const std::string& DocumentText() const { return m_text; }

private:
    std::string m_text;
    std::string m_encoding;
    bool m_hasByteOrderMark { false };
    bool m_loaded { false };
};

}  // namespace scriv
