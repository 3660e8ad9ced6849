#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "htmldom/HtmlNode.h"

namespace scriv {

struct HtmlAttribute {
    std::string name;
    std::string value;
};

enum class HtmlNamespace { Html, Svg, MathMl };

class HtmlElement final : public HtmlNode {
public:
    // An element of the HTML namespace has a lower-case tag name.
    explicit HtmlElement(std::string tagName, HtmlNamespace ns = HtmlNamespace::Html);

    const std::string& tagName() const { return m_tagName; }
    HtmlNamespace elementNamespace() const { return m_namespace; }
    // The tag name equals name without regard to ASCII case.
    bool is(std::string_view name) const;
    // An HTML element that never has content or an end tag (br, img, area ...).
    bool isVoid() const;
    // An element of the HTML namespace whose tag HTML does not define (a
    // browser makes it an HTMLUnknownElement).
    bool isUnknown() const;

    // --- attributes, in source order; names compare without regard to ASCII case ---
    const std::vector<HtmlAttribute>& attributes() const { return m_attributes; }
    bool hasAttribute(std::string_view name) const;
    // The value, or "" when the attribute is missing.
    std::string getAttribute(std::string_view name) const;
    // The value, or nullptr when the attribute is missing.
    const std::string* findAttribute(std::string_view name) const;
    // Changes the value in place, or adds the attribute at the end (its name
    // lower-cased on an HTML element).
    void setAttribute(std::string_view name, std::string_view value);
    // False when there was no such attribute.
    bool removeAttribute(std::string_view name);
    std::string id() const { return getAttribute("id"); }

    // --- queries below this element ---
    // Descendant elements with that tag name (any case), or all for "*", in document order.
    std::vector<HtmlElement*> getElementsByTagName(std::string_view name) const;

    // --- content ---
    // Replaces the children by the nodes that html gives when parsed inside
    // this element (so "<td>" text means what it would in a table cell).
    void setInnerHTML(std::string_view html);
    // Replaces the children by one text node (none for an empty text).
    void setTextContent(std::string_view text);

    // ^HtmlNode
    std::string nodeName() const override { return m_tagName; }

protected:
    // ^HtmlNode
    bool acceptsChildren() const override { return true; }
    std::unique_ptr<HtmlNode> cloneSelf() const override;

private:
    std::vector<HtmlAttribute>::const_iterator findAttributeEntry(std::string_view name) const;

    std::string m_tagName;
    HtmlNamespace m_namespace { HtmlNamespace::Html };
    std::vector<HtmlAttribute> m_attributes;
};

// Every element below root (root itself excluded) with that tag name, or all for "*".
std::vector<HtmlElement*> ElementsByTagName(const HtmlNode& root, std::string_view name);

}  // namespace scriv
