#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// A small mutable HTML document tree. Parents own their children; every node
// knows its parent. Text is UTF-8 throughout, with entities already decoded.
namespace scriv {

class HtmlElement;

enum class HtmlNodeType { Document, Element, Text, Comment, Doctype };

class HtmlNode {
public:
    using ChildList = std::vector<std::unique_ptr<HtmlNode>>;

    virtual ~HtmlNode();
    HtmlNode(const HtmlNode&) = delete;
    HtmlNode& operator=(const HtmlNode&) = delete;

    HtmlNodeType nodeType() const { return m_type; }
    bool isElement() const { return m_type == HtmlNodeType::Element; }
    bool isText() const { return m_type == HtmlNodeType::Text; }
    // The tag name of an element, else "#document", "#text", "#comment" or the
    // doctype's name.
    virtual std::string nodeName() const = 0;

    // --- traversal ---
    HtmlNode* parentNode() const { return m_parent; }
    // The parent when it is an element, else nullptr.
    HtmlElement* parentElement() const;
    const ChildList& childNodes() const { return m_children; }
    bool hasChildNodes() const { return !m_children.empty(); }
    HtmlNode* firstChild() const;
    HtmlNode* lastChild() const;
    HtmlNode* previousSibling() const;
    HtmlNode* nextSibling() const;
    // Position among the parent's children; 0 for a node without parent.
    std::size_t indexInParent() const;
    // True for this node and every node below it.
    bool contains(const HtmlNode& other) const;

    // The element, or nullptr for any other kind of node.
    HtmlElement* asElement();
    const HtmlElement* asElement() const;

    // --- mutation. Each raises ScrivError (0x80040001) on a request the tree
    // cannot take: children for a node that has none, a node inserted into
    // itself or its own descendant, a reference that is not a child. ---

    // Appends and answers the node now owned by this one.
    HtmlNode& appendChild(std::unique_ptr<HtmlNode> child);
    // Inserts before reference (a child of this node), or appends when it is nullptr.
    HtmlNode& insertBefore(std::unique_ptr<HtmlNode> child, const HtmlNode* reference);
    // Detaches a child and hands it to the caller.
    std::unique_ptr<HtmlNode> removeChild(const HtmlNode& child);
    // Puts newChild where oldChild stood; answers oldChild.
    std::unique_ptr<HtmlNode> replaceChild(std::unique_ptr<HtmlNode> newChild, const HtmlNode& oldChild);
    // Detaches this node from its parent; nullptr when it has none.
    std::unique_ptr<HtmlNode> remove();
    void removeAllChildren();
    // A copy without parent; deep copies the descendants too.
    std::unique_ptr<HtmlNode> cloneNode(bool deep) const;

    // --- text and markup ---
    // Every text below the node joined, scripts and styles included.
    std::string textContent() const;
    // The text as a reader sees it: white space collapsed, line breaks for
    // blocks, paragraphs and <br>, tabs between table cells, no scripts, styles
    // or hidden elements. Lines end in "\n".
    std::string innerText() const;
    // The node as HTML: void elements without end tags, text escaped, the text
    // of script and style as it is. A document gives its whole text.
    std::string outerHTML() const;
    // The children as HTML.
    std::string innerHTML() const;

protected:
    explicit HtmlNode(HtmlNodeType type)
        : m_type(type)
    {
    }
    virtual bool acceptsChildren() const { return false; }
    // A copy of the node alone, without children.
    virtual std::unique_ptr<HtmlNode> cloneSelf() const = 0;

private:
    void checkInsertion(const HtmlNode& child, const char* procedure) const;
    ChildList::iterator findChild(const HtmlNode& child, const char* procedure);

    HtmlNodeType m_type;
    HtmlNode* m_parent { nullptr };
    ChildList m_children;
};

// A run of text, or a CDATA section.
class HtmlText final : public HtmlNode {
public:
    explicit HtmlText(std::string data)
        : HtmlNode(HtmlNodeType::Text)
        , m_data(std::move(data))
    {
    }
    const std::string& data() const { return m_data; }
    void setData(std::string data) { m_data = std::move(data); }

    // ^HtmlNode
    std::string nodeName() const override { return "#text"; }

protected:
    std::unique_ptr<HtmlNode> cloneSelf() const override { return std::make_unique<HtmlText>(m_data); }

private:
    std::string m_data;
};

class HtmlComment final : public HtmlNode {
public:
    explicit HtmlComment(std::string data)
        : HtmlNode(HtmlNodeType::Comment)
        , m_data(std::move(data))
    {
    }
    const std::string& data() const { return m_data; }
    void setData(std::string data) { m_data = std::move(data); }

    // ^HtmlNode
    std::string nodeName() const override { return "#comment"; }

protected:
    std::unique_ptr<HtmlNode> cloneSelf() const override { return std::make_unique<HtmlComment>(m_data); }

private:
    std::string m_data;
};

// <!DOCTYPE name PUBLIC "publicId" "systemId">
class HtmlDoctype final : public HtmlNode {
public:
    HtmlDoctype(std::string name, std::string publicId, std::string systemId)
        : HtmlNode(HtmlNodeType::Doctype)
        , m_name(std::move(name))
        , m_publicId(std::move(publicId))
        , m_systemId(std::move(systemId))
    {
    }
    const std::string& name() const { return m_name; }
    const std::string& publicId() const { return m_publicId; }
    const std::string& systemId() const { return m_systemId; }

    // ^HtmlNode
    std::string nodeName() const override { return m_name; }

protected:
    std::unique_ptr<HtmlNode> cloneSelf() const override
    {
        return std::make_unique<HtmlDoctype>(m_name, m_publicId, m_systemId);
    }

private:
    std::string m_name;
    std::string m_publicId;
    std::string m_systemId;
};

}  // namespace scriv
