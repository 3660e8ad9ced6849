#include "htmledit/CHtmlBeautifier.h"

#include "foundation/CTraceLog.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlTreeWalk.h"
#include "htmledit/PageUrls.h"

namespace scriv {

namespace {

constexpr std::size_t kInitialBufferSize = 100000;

void TraceFailure(std::string_view procedure, const std::exception& error)
{
    TraceLog().addMessage("CHtmlBeautifier." + std::string(procedure) + ": " + error.what(), true);
}

CHtmlStringFormatter::Siblings SiblingsAt(const HtmlNode::ChildList& children, std::size_t index)
{
    return { index > 0 ? children[index - 1].get() : nullptr,
        index + 1 < children.size() ? children[index + 1].get() : nullptr };
}

}  // namespace

void CHtmlBeautifier::SetDocument(const HtmlDocument& document, std::string_view url)
{
    m_document = &document;
    m_formatter = std::make_unique<CHtmlStringFormatter>();
    m_formatter->UseSourceAttributes = UseSourceAttributes;
    // A document read from a file is complete when it is parsed, and keeps its
    // event handlers as attributes: there is no design mode to switch on or
    // load to wait for.
    std::string base(url);
    bool baseFound = false;
    WalkHtmlTree(static_cast<const HtmlNode&>(document), [&](const HtmlNode& node) {
        const HtmlElement* element = node.asElement();
        if (!element)
            return node.nodeType() == HtmlNodeType::Document;
        if (element->is("meta")) {
            m_formatter->AddMetaElement(*element);
        } else if (!baseFound && element->is("base") && element->hasAttribute("href")) {
            base = ResolveUrl(url, element->getAttribute("href"));
            baseFound = true;
        }
        return true;
    });
    m_formatter->SetBaseFolder(base);
    m_formatter->SetFileName(url);
}

std::string CHtmlBeautifier::EditModeReadyHTML()
{
    if (!m_document || !m_formatter)
        return {};
    CHtmlStringBuilder builder;
    builder.init(kInitialBufferSize, 0);
    const auto& children = m_document->childNodes();
    for (std::size_t i = 0; i < children.size(); ++i)
        getNodeHtml(builder, 1, *children[i], SiblingsAt(children, i));
    return builder.TakeValue();
}

void CHtmlBeautifier::getNodeHtml(CHtmlStringBuilder& builder, int level, const HtmlNode& root,
    CHtmlStringFormatter::Siblings siblings)
{
    // Depth first without recursion, so that no page nests deep enough to
    // exhaust the stack.
    struct Frame {
        const HtmlNode* node;
        int level;
        std::size_t next;
    };
    std::vector<Frame> stack;
    auto start = [&](const HtmlNode& node, int nodeLevel, CHtmlStringFormatter::Siblings nodeSiblings) {
        try {
            if (m_formatter->AddChunk(builder, nodeLevel, node, nodeSiblings) == CHtmlStringFormatter::Chunk::Whole)
                return;
        } catch (const std::exception& error) {
            TraceFailure("getNodeHtml", error);
            return;
        }
        stack.push_back({ &node, nodeLevel, 0 });
    };
    start(root, level, siblings);
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const HtmlNode& node = *frame.node;
        const auto& children = node.childNodes();
        if (CHtmlStringFormatter::WalksChildren(node) && frame.next < children.size()) {
            std::size_t index = frame.next++;
            const HtmlNode& child = *children[index];
            // The browser-help script, and whatever follows it, is the help
            // generator's and goes back on by its hand.
            if (CHtmlStringFormatter::IsBrowserHelpScript(child)) {
                frame.next = children.size();
                continue;
            }
            start(child, frame.level + 1, SiblingsAt(children, index));
            continue;
        }
        try {
            m_formatter->addClosedChunk(builder, frame.level, node);
        } catch (const std::exception& error) {
            TraceFailure("getNodeHtml", error);
        }
        stack.pop_back();
    }
}

void CHtmlBeautifier::Dispose()
{
    if (m_disposed)
        return;
    m_disposed = true;
    m_formatter.reset();
    m_document = nullptr;
}

const std::vector<std::string>& CHtmlBeautifier::MetaElementsCollection() const
{
    static const std::vector<std::string> kNone;
    return m_formatter ? m_formatter->MetaElementsCollection() : kNone;
}

std::string BeautifiedHtml(const HtmlDocument& document, std::string_view url)
{
    CHtmlBeautifier beautifier;
    beautifier.SetDocument(document, url);
    std::string html = beautifier.EditModeReadyHTML();
    beautifier.Dispose();
    return html;
}

}  // namespace scriv
