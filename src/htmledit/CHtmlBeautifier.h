#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "htmledit/CHtmlStringFormatter.h"

namespace scriv {

class HtmlDocument;

// What the editor asks of whatever turns its document into page text.
class IHtmlBeautifier {
public:
    virtual ~IHtmlBeautifier() = default;
    // The page text of the document set before, with CR LF line ends.
    virtual std::string EditModeReadyHTML() = 0;
};

// Writes a page out of its document by the house rules rather than by the
// document's own serialization: one tag per line, two blanks of indent per
// level, links relative to the page's folder, the browser-help script left out.
//
// One object per serialization: create, set UseSourceAttributes, SetDocument,
// EditModeReadyHTML, Dispose.
class CHtmlBeautifier final : public IHtmlBeautifier {
public:
    // Read the attributes from each element's markup instead of its attribute list.
    bool UseSourceAttributes { false };

    // Takes the document (it must outlive the beautifier) and the address it
    // was read from ("file:///folder/page.htm"), from which links are made
    // relative: the href of the first BASE element when there is one, else url.
    void SetDocument(const HtmlDocument& document, std::string_view url);

    // ^IHtmlBeautifier
    // The page text; "" for an empty document or before SetDocument. A node
    // that fails is traced and costs its own text, not the page.
    std::string EditModeReadyHTML() override;

    // Drops formatter and document; a second call does nothing.
    void Dispose();

    // The trimmed markup of the page's META elements, each once.
    const std::vector<std::string>& MetaElementsCollection() const;

private:
    void getNodeHtml(CHtmlStringBuilder& builder, int level, const HtmlNode& node, CHtmlStringFormatter::Siblings siblings);

    const HtmlDocument* m_document { nullptr };
    std::unique_ptr<CHtmlStringFormatter> m_formatter;
    bool m_disposed { false };
};

// The page text of a document read from url, by a beautifier of its own.
std::string BeautifiedHtml(const HtmlDocument& document, std::string_view url);

}  // namespace scriv
