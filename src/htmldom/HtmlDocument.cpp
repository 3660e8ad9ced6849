#include "htmldom/HtmlDocument.h"

#include "htmldom/HtmlParser.h"
#include "htmldom/HtmlTreeWalk.h"

namespace scriv {

std::unique_ptr<HtmlDocument> HtmlDocument::Parse(std::string_view html)
{
    std::unique_ptr<HtmlDocument> document(new HtmlDocument());
    ParseHtmlInto(*document, html);
    return document;
}

std::unique_ptr<HtmlElement> HtmlDocument::createElement(std::string_view tagName)
{
    return std::make_unique<HtmlElement>(std::string(tagName));
}

std::unique_ptr<HtmlText> HtmlDocument::createTextNode(std::string_view text)
{
    return std::make_unique<HtmlText>(std::string(text));
}

std::unique_ptr<HtmlComment> HtmlDocument::createComment(std::string_view text)
{
    return std::make_unique<HtmlComment>(std::string(text));
}

std::unique_ptr<HtmlNode> HtmlDocument::cloneSelf() const
{
    return std::unique_ptr<HtmlDocument>(new HtmlDocument());
}

HtmlDoctype* HtmlDocument::doctype() const
{
    for (const auto& child : childNodes())
        if (child->nodeType() == HtmlNodeType::Doctype)
            return static_cast<HtmlDoctype*>(child.get());
    return nullptr;
}

HtmlElement* HtmlDocument::documentElement() const
{
    for (const auto& child : childNodes())
        if (HtmlElement* element = child->asElement())
            return element;
    return nullptr;
}

HtmlElement* HtmlDocument::childOfRoot(std::string_view tagName) const
{
    HtmlElement* root = documentElement();
    if (!root)
        return nullptr;
    for (const auto& child : root->childNodes())
        if (HtmlElement* element = child->asElement(); element && element->is(tagName))
            return element;
    return nullptr;
}

HtmlElement* HtmlDocument::head() const
{
    return childOfRoot("head");
}

HtmlElement* HtmlDocument::body() const
{
    HtmlElement* body = childOfRoot("body");
    return body ? body : childOfRoot("frameset");
}

std::string HtmlDocument::title() const
{
    std::vector<HtmlElement*> titles = getElementsByTagName("title");
    if (titles.empty())
        return {};
    std::string text;
    bool space = false;
    for (char c : titles.front()->textContent()) {
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f') {
            space = !text.empty();
            continue;
        }
        if (space)
            text += ' ';
        space = false;
        text += c;
    }
    return text;
}

std::vector<HtmlElement*> HtmlDocument::getElementsByTagName(std::string_view name) const
{
    return ElementsByTagName(*this, name);
}

HtmlElement* HtmlDocument::getElementById(std::string_view id) const
{
    HtmlElement* found = nullptr;
    for (const auto& child : childNodes()) {
        if (found)
            break;
        WalkHtmlTree(*child, [&](HtmlNode& node) {
            if (found)
                return false;
            HtmlElement* element = node.asElement();
            const std::string* value = element ? element->findAttribute("id") : nullptr;
            if (value && *value == id)
                found = element;
            return !found;
        });
    }
    return found;
}

std::vector<HtmlElement*> HtmlDocument::links() const
{
    std::vector<HtmlElement*> links;
    for (HtmlElement* element : getElementsByTagName("*"))
        if ((element->is("a") || element->is("area")) && element->hasAttribute("href"))
            links.push_back(element);
    return links;
}

std::vector<HtmlElement*> HtmlDocument::images() const
{
    return getElementsByTagName("img");
}

HtmlElement& HtmlDocument::createStyleSheet(std::string_view href)
{
    HtmlElement* target = head();
    if (!target) {
        HtmlElement* root = documentElement();
        if (!root)
            root = &static_cast<HtmlElement&>(appendChild(createElement("html")));
        target = &static_cast<HtmlElement&>(root->insertBefore(createElement("head"), root->firstChild()));
    }
    std::unique_ptr<HtmlElement> link = createElement("link");
    link->setAttribute("rel", "stylesheet");
    link->setAttribute("type", "text/css");
    link->setAttribute("href", href);
    return static_cast<HtmlElement&>(target->appendChild(std::move(link)));
}

}  // namespace scriv
