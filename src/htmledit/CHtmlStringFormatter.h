#pragma once

#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "htmldom/HtmlNode.h"
#include "htmledit/CHtmlStringBuilder.h"

namespace scriv {

class HtmlDocument;
class HtmlElement;

// Decides what each node of a page writes when the beautifier walks it: tags
// in upper case on lines of their own (BR and A stay on the running line),
// two blanks of indent per level, attribute values in double quotes, links
// made relative to the page's folder.
//
// The page comes from the program's own document tree, which differs from the
// browser document these rules were made for in a few ways; each is mapped
// where it matters and says why.
class CHtmlStringFormatter {
public:
    // What AddChunk did with a node.
    enum class Chunk {
        Open, // the start was written; the children and the end follow
        Whole, // the node was written with its content and end
    };

    // --- the page ---
    // false: attributes come from the document's attribute list; true: they
    // are read from the element's markup by CHtmlNodeAttributes.
    bool UseSourceAttributes { false };
    // From the page's address (or its BASE href): "file://" removed wherever
    // it stands, "\" made "/", cut after the last "/", then DecodeUrl.
    void SetBaseFolder(std::string_view url);
    const std::string& BaseFolder() const { return m_baseFolder; }
    // From the page's address: what follows the last separator.
    void SetFileName(std::string_view url);
    const std::string& FileName() const { return m_fileName; }
    // Trimmed markup of every META element, each once; kept for the caller.
    void AddMetaElement(const HtmlElement& meta);
    const std::vector<std::string>& MetaElementsCollection() const { return m_metaElements; }

    // --- writing nodes ---
    // The nodes beside the one written, which decide the blanks around a text.
    struct Siblings {
        const HtmlNode* previous { nullptr };
        const HtmlNode* next { nullptr };
    };
    // Writes the start of a node at level (1 for the document's children).
    Chunk AddChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node);
    // The same, with the node's siblings known to the caller (a walk over a
    // long list of children need not look them up each time).
    Chunk AddChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node, Siblings siblings);
    // Writes the end of a node, once per node.
    void addClosedChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node);
    // The children the walk descends into: none for elements whose content
    // AddChunk writes itself (scripts, styles, titles, text areas).
    static bool WalksChildren(const HtmlNode& node);
    // The browser-help script: a SCRIPT with the id "wbh".
    static bool IsBrowserHelpScript(const HtmlNode& node);

    // --- text rules ---
    // "&", "<", ">" as entities, then U+00A0 as "&nbsp;" unless the text is
    // blank. Line ends stay.
    static std::string EncodeText(std::string_view text);
    // EncodeText's three entities, then "\"" as "&quot;".
    static std::string EncodeAttribute(std::string_view value);
    // "\" to "/", then %20 %23 %26 %5E %5B %5D %7B %7D %25 and "&amp;" decoded,
    // in that order.
    static std::string DecodeUrl(std::string_view url);
    // The value without "file://" and without BaseFolder when it holds that
    // folder (ignoring case), and without the page's own name in front of a
    // "#"; any other value as it stands.
    std::string MakeRelative(std::string_view value) const;

    // Names as the page is written: HTML elements in upper case.
    static std::string NodeName(const HtmlNode& node);

private:
    // --- the steps of AddChunk ---
    void WriteText(CHtmlStringBuilder& builder, const std::string& indent, const HtmlText& text, Siblings siblings);
    Chunk WriteElement(CHtmlStringBuilder& builder, int level, const HtmlElement& element);
    void WriteIsIndex(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& form,
        const HtmlElement& input);
    void WriteOpenTag(CHtmlStringBuilder& builder, const std::string& indent, const std::string& name);
    void WriteCloseTag(CHtmlStringBuilder& builder, const std::string& indent, const HtmlNode& node);
    void WriteAttributes(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& element,
        std::initializer_list<std::string_view> exclusions);
    void WriteDocumentAttributes(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& element,
        std::initializer_list<std::string_view> exclusions);
    void WriteSourceAttributes(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& element,
        std::initializer_list<std::string_view> exclusions);
    void WriteInnerHtml(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& element);
    void WriteVerbatim(CHtmlStringBuilder& builder, const HtmlNode& node);

    std::string m_baseFolder;
    std::string m_fileName;
    std::vector<std::string> m_metaElements;
    // A node's address is its identity while the document lives.
    std::pmr::monotonic_buffer_resource m_closedNodeIdsPool;
    std::pmr::unordered_set<const HtmlNode*> m_closedNodeIds { &m_closedNodeIdsPool };
    std::string m_lastNodeName;
};

}  // namespace scriv
