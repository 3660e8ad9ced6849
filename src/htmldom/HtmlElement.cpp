#include "htmldom/HtmlElement.h"

#include <gumbo.h>

#include <algorithm>

#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlParser.h"
#include "htmldom/HtmlTreeWalk.h"

namespace scriv {

HtmlElement::HtmlElement(std::string tagName, HtmlNamespace ns)
    : HtmlNode(HtmlNodeType::Element)
    , m_tagName(ns == HtmlNamespace::Html ? AsciiLower(tagName) : std::move(tagName))
    , m_namespace(ns)
{
}

bool HtmlElement::is(std::string_view name) const
{
    return AsciiEqualsNoCase(m_tagName, name);
}

bool HtmlElement::isVoid() const
{
    return m_namespace == HtmlNamespace::Html && IsVoidElement(m_tagName);
}

bool HtmlElement::isUnknown() const
{
    return m_namespace == HtmlNamespace::Html
        && gumbo_tagn_enum(m_tagName.data(), static_cast<unsigned>(m_tagName.size())) == GUMBO_TAG_UNKNOWN;
}

std::vector<HtmlAttribute>::const_iterator HtmlElement::findAttributeEntry(std::string_view name) const
{
    return std::find_if(m_attributes.begin(), m_attributes.end(),
        [name](const HtmlAttribute& attribute) { return AsciiEqualsNoCase(attribute.name, name); });
}

bool HtmlElement::hasAttribute(std::string_view name) const
{
    return findAttributeEntry(name) != m_attributes.end();
}

std::string HtmlElement::getAttribute(std::string_view name) const
{
    const std::string* value = findAttribute(name);
    return value ? *value : std::string();
}

const std::string* HtmlElement::findAttribute(std::string_view name) const
{
    auto it = findAttributeEntry(name);
    return it == m_attributes.end() ? nullptr : &it->value;
}

void HtmlElement::setAttribute(std::string_view name, std::string_view value)
{
    auto it = findAttributeEntry(name);
    if (it != m_attributes.end()) {
        m_attributes[static_cast<std::size_t>(it - m_attributes.begin())].value = value;
        return;
    }
    std::string stored = m_namespace == HtmlNamespace::Html ? AsciiLower(name) : std::string(name);
    m_attributes.push_back({ std::move(stored), std::string(value) });
}

bool HtmlElement::removeAttribute(std::string_view name)
{
    auto it = findAttributeEntry(name);
    if (it == m_attributes.end())
        return false;
    m_attributes.erase(it);
    return true;
}

std::vector<HtmlElement*> HtmlElement::getElementsByTagName(std::string_view name) const
{
    return ElementsByTagName(*this, name);
}

void HtmlElement::setInnerHTML(std::string_view html)
{
    HtmlNode::ChildList nodes = ParseHtmlFragment(html, m_tagName, m_namespace);
    removeAllChildren();
    for (auto& node : nodes)
        appendChild(std::move(node));
}

void HtmlElement::setTextContent(std::string_view text)
{
    removeAllChildren();
    if (!text.empty())
        appendChild(std::make_unique<HtmlText>(std::string(text)));
}

std::unique_ptr<HtmlNode> HtmlElement::cloneSelf() const
{
    auto copy = std::make_unique<HtmlElement>(m_tagName, m_namespace);
    copy->m_attributes = m_attributes;
    return copy;
}

std::vector<HtmlElement*> ElementsByTagName(const HtmlNode& root, std::string_view name)
{
    std::vector<HtmlElement*> found;
    bool all = name == "*";
    for (const auto& child : root.childNodes()) {
        WalkHtmlTree(*child, [&](HtmlNode& node) {
            HtmlElement* element = node.asElement();
            if (element && (all || element->is(name)))
                found.push_back(element);
            return true;
        });
    }
    return found;
}

}  // namespace scriv
