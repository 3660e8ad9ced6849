// innerText: the text of a node as a reader sees it.

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlNode.h"
#include "htmldom/HtmlTreeWalk.h"

namespace scriv {

namespace {

constexpr std::array<std::string_view, 13> kUnrenderedElements { "head", "title", "script", "style", "template",
    "noscript", "noframes", "noembed", "iframe", "object", "embed", "select", "datalist" };

constexpr std::array<std::string_view, 45> kBlockElements { "address", "article", "aside", "blockquote", "body",
    "caption", "center", "dd", "details", "dialog", "dir", "div", "dl", "dt", "fieldset", "figcaption", "figure",
    "footer", "form", "frameset", "h1", "h2", "h3", "h4", "h5", "h6", "header", "hgroup", "hr", "html", "legend", "li",
    "listing", "main", "menu", "nav", "ol", "pre", "section", "summary", "table", "tr", "ul", "xmp", "plaintext" };

template<std::size_t N>
bool IsOneOf(const HtmlElement& element, const std::array<std::string_view, N>& names)
{
    return std::any_of(names.begin(), names.end(), [&element](std::string_view name) { return element.is(name); });
}

bool IsWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsHidden(const HtmlElement& element)
{
    if (element.hasAttribute("hidden"))
        return true;
    std::string style = AsciiLower(element.getAttribute("style"));
    style.erase(std::remove_if(style.begin(), style.end(), IsWhiteSpace), style.end());
    return style.find("display:none") != std::string::npos;
}

bool KeepsWhiteSpace(const HtmlElement& element)
{
    return element.is("pre") || element.is("textarea") || element.is("listing") || element.is("plaintext")
        || element.is("xmp");
}

bool IsCell(const HtmlNode* node)
{
    const HtmlElement* element = node ? node->asElement() : nullptr;
    return element && (element->is("td") || element->is("th"));
}

// Collects text with pending separators: line breaks required by blocks are
// written only between two pieces of text, never at the start or the end.
class InnerTextBuilder {
public:
    void Enter(const HtmlElement& element)
    {
        if (element.is("br")) {
            Literal('\n');
        } else if (element.is("p")) {
            RequireBreaks(2);
        } else if (IsOneOf(element, kBlockElements)) {
            RequireBreaks(1);
        }
        if (KeepsWhiteSpace(element))
            ++m_preformatted;
    }

    void Leave(const HtmlElement& element)
    {
        if (KeepsWhiteSpace(element))
            --m_preformatted;
        if (element.is("p")) {
            RequireBreaks(2);
        } else if (IsOneOf(element, kBlockElements)) {
            RequireBreaks(1);
        } else if (IsCell(&element)) {
            const HtmlNode* next = element.nextSibling();
            while (next && !next->isElement())
                next = next->nextSibling();
            if (IsCell(next))
                Literal('\t');
        }
    }

    void Text(std::string_view text)
    {
        if (m_preformatted > 0) {
            Flush();
            m_out += text;
            return;
        }
        std::size_t i = 0;
        while (i < text.size()) {
            if (IsWhiteSpace(text[i])) {
                m_pendingSpace = true;
                ++i;
                continue;
            }
            std::size_t end = i;
            while (end < text.size() && !IsWhiteSpace(text[end]))
                ++end;
            Flush();
            m_out += text.substr(i, end - i);
            i = end;
        }
    }

    std::string Take() { return std::move(m_out); }

private:
    void RequireBreaks(int count) { m_pendingBreaks = std::max(m_pendingBreaks, count); }

    void Literal(char c)
    {
        if (!m_out.empty() && m_pendingBreaks > 0)
            m_out.append(static_cast<std::size_t>(m_pendingBreaks), '\n');
        m_pendingBreaks = 0;
        m_pendingSpace = false;
        m_out += c;
    }

    void Flush()
    {
        if (m_out.empty()) {
            // Nothing is written ahead of the first text.
        } else if (m_pendingBreaks > 0) {
            // Line breaks already written (by <br>) count towards those required.
            int written = 0;
            for (auto it = m_out.rbegin(); it != m_out.rend() && *it == '\n'; ++it)
                ++written;
            if (m_pendingBreaks > written)
                m_out.append(static_cast<std::size_t>(m_pendingBreaks - written), '\n');
        } else if (m_pendingSpace && m_out.back() != '\n' && m_out.back() != '\t') {
            m_out += ' ';
        }
        m_pendingBreaks = 0;
        m_pendingSpace = false;
    }

    std::string m_out;
    int m_pendingBreaks { 0 };
    bool m_pendingSpace { false };
    int m_preformatted { 0 };
};

}  // namespace

std::string HtmlNode::innerText() const
{
    InnerTextBuilder builder;
    WalkHtmlTree(
        *this,
        [&builder, this](const HtmlNode& node) {
            if (node.isText()) {
                builder.Text(static_cast<const HtmlText&>(node).data());
                return false;
            }
            const HtmlElement* element = node.asElement();
            if (!element)
                return node.nodeType() == HtmlNodeType::Document;
            if (&node != this && (IsOneOf(*element, kUnrenderedElements) || IsHidden(*element)))
                return false;
            builder.Enter(*element);
            return true;
        },
        [&builder, this](const HtmlNode& node) {
            const HtmlElement* element = node.asElement();
            if (element && (&node == this || !(IsOneOf(*element, kUnrenderedElements) || IsHidden(*element))))
                builder.Leave(*element);
        });
    return builder.Take();
}

}  // namespace scriv
