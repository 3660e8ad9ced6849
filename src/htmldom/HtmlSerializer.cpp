#include "htmldom/HtmlSerializer.h"

#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlTreeWalk.h"

namespace scriv {

namespace {

std::string Escape(std::string_view text, bool attribute)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '&') {
            out += "&amp;";
        } else if (c == '\xC2' && i + 1 < text.size() && text[i + 1] == '\xA0') {
            out += "&nbsp;";
            ++i;
        } else if (attribute && c == '"') {
            out += "&quot;";
        } else if (!attribute && c == '<') {
            out += "&lt;";
        } else if (!attribute && c == '>') {
            out += "&gt;";
        } else {
            out += c;
        }
    }
    return out;
}

bool IsHtmlElementNamed(const HtmlElement* element, bool (*test)(std::string_view))
{
    return element && element->elementNamespace() == HtmlNamespace::Html && test(element->tagName());
}

// The parser drops one line break right after these start tags, so a text
// that begins with one needs another in front.
bool DropsLeadingNewline(const HtmlElement& element)
{
    return element.elementNamespace() == HtmlNamespace::Html
        && (element.is("pre") || element.is("textarea") || element.is("listing"));
}

class HtmlWriter {
public:
    void WriteNode(const HtmlNode& root)
    {
        m_root = &root;
        WalkHtmlTree(root, [this](const HtmlNode& node) { return Enter(node); },
            [this](const HtmlNode& node) { Leave(node); });
    }

    void WriteChildren(const HtmlNode& parent)
    {
        bool separate = parent.nodeType() == HtmlNodeType::Document;
        for (const auto& child : parent.childNodes()) {
            if (separate && child.get() != parent.firstChild())
                m_out += '\n';
            WriteNode(*child);
        }
    }

    std::string Take() { return std::move(m_out); }

private:
    bool Enter(const HtmlNode& node)
    {
        // Nodes of a document's top level go on lines of their own.
        const HtmlNode* parent = node.parentNode();
        if (&node != m_root && parent && parent->nodeType() == HtmlNodeType::Document && node.previousSibling())
            m_out += '\n';
        switch (node.nodeType()) {
        case HtmlNodeType::Element:
            return StartTag(*node.asElement());
        case HtmlNodeType::Text:
            WriteText(static_cast<const HtmlText&>(node));
            return false;
        case HtmlNodeType::Comment:
            m_out += "<!--" + static_cast<const HtmlComment&>(node).data() + "-->";
            return false;
        case HtmlNodeType::Doctype:
            WriteDoctype(static_cast<const HtmlDoctype&>(node));
            return false;
        case HtmlNodeType::Document:
            return true;
        }
        return false;
    }

    void Leave(const HtmlNode& node)
    {
        const HtmlElement* element = node.asElement();
        if (element && !element->isVoid())
            m_out += "</" + element->tagName() + ">";
    }

    bool StartTag(const HtmlElement& element)
    {
        m_out += '<';
        m_out += element.tagName();
        for (const HtmlAttribute& attribute : element.attributes())
            m_out += ' ' + attribute.name + "=\"" + EscapeHtmlAttribute(attribute.value) + '"';
        m_out += '>';
        if (element.isVoid())
            return false;
        const HtmlNode* first = element.firstChild();
        if (DropsLeadingNewline(element) && first && first->isText()
            && static_cast<const HtmlText*>(first)->data().starts_with('\n'))
            m_out += '\n';
        return true;
    }

    void WriteText(const HtmlText& text)
    {
        if (IsHtmlElementNamed(text.parentElement(), IsRawTextElement))
            m_out += text.data();
        else
            m_out += EscapeHtmlText(text.data());
    }

    void WriteDoctype(const HtmlDoctype& doctype)
    {
        m_out += "<!DOCTYPE " + doctype.name();
        if (!doctype.publicId().empty()) {
            m_out += " PUBLIC \"" + doctype.publicId() + '"';
            if (!doctype.systemId().empty())
                m_out += " \"" + doctype.systemId() + '"';
        } else if (!doctype.systemId().empty()) {
            m_out += " SYSTEM \"" + doctype.systemId() + '"';
        }
        m_out += '>';
    }

    std::string m_out;
    const HtmlNode* m_root { nullptr };
};

}  // namespace

std::string EscapeHtmlText(std::string_view text)
{
    return Escape(text, false);
}

std::string EscapeHtmlAttribute(std::string_view value)
{
    return Escape(value, true);
}

std::string SerializeHtml(const HtmlNode& node)
{
    HtmlWriter writer;
    writer.WriteNode(node);
    return writer.Take();
}

std::string SerializeHtmlChildren(const HtmlNode& node)
{
    HtmlWriter writer;
    writer.WriteChildren(node);
    return writer.Take();
}

}  // namespace scriv
