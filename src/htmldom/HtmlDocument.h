#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNode.h"

namespace scriv {

// A whole page, parsed by the HTML5 rules (through gumbo): whatever the input,
// the result has an html element with a head and a body, and malformed markup
// is repaired the way a browser repairs it.
class HtmlDocument final : public HtmlNode {
public:
    // --- creating ---
    // Parses a page. Never fails; bytes that are not UTF-8 become U+FFFD.
    static std::unique_ptr<HtmlDocument> Parse(std::string_view html);

    static std::unique_ptr<HtmlElement> createElement(std::string_view tagName);
    static std::unique_ptr<HtmlText> createTextNode(std::string_view text);
    static std::unique_ptr<HtmlComment> createComment(std::string_view text);

    // --- navigation ---
    // The doctype, or nullptr when the page has none.
    HtmlDoctype* doctype() const;
    HtmlElement* documentElement() const;
    HtmlElement* head() const;
    HtmlElement* body() const;
    // The text of the first title element, white space collapsed; "" without one.
    std::string title() const;

    // --- queries, in document order ---
    std::vector<HtmlElement*> getElementsByTagName(std::string_view name) const;
    // The first element whose id is exactly id, or nullptr.
    HtmlElement* getElementById(std::string_view id) const;
    // a and area elements that have an href.
    std::vector<HtmlElement*> links() const;
    std::vector<HtmlElement*> images() const;

    // --- changing ---
    // Adds <link rel="stylesheet" type="text/css" href="..."> at the end of the
    // head (making a head when there is none) and answers it.
    HtmlElement& createStyleSheet(std::string_view href);

    // ^HtmlNode
    std::string nodeName() const override { return "#document"; }

protected:
    // ^HtmlNode
    bool acceptsChildren() const override { return true; }
    std::unique_ptr<HtmlNode> cloneSelf() const override;

private:
    HtmlDocument()
        : HtmlNode(HtmlNodeType::Document)
    {
    }
    HtmlElement* childOfRoot(std::string_view tagName) const;
};

}  // namespace scriv
