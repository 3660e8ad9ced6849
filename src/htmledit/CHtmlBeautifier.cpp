#include "htmledit/CHtmlBeautifier.h"

#include "foundation/CTraceLog.h"
#include "htmldom/HtmlDocument.h"
#include "htmledit/PageUrls.h"

namespace scriv {

namespace {

constexpr std::size_t kInitialBufferSize = 100000;

void TraceFailure(std::string_view procedure, const std::exception& error)
{
    TraceLog().addMessage("CHtmlBeautifier." + std::string(procedure) + ": " + error.what(), true);
}

}  // namespace

void CHtmlBeautifier::SetDocument(const HtmlDocument& document, std::string_view url)
{
    m_document = &document;
    m_formatter = std::make_unique<CHtmlStringFormatter>();
    m_formatter->UseSourceAttributes = UseSourceAttributes;
    for (const HtmlElement* meta : document.getElementsByTagName("meta"))
        m_formatter->AddMetaElement(*meta);
    // A document read from a file is complete when it is parsed, and keeps its
    // event handlers as attributes: there is no design mode to switch on or
    // load to wait for.
    std::string base(url);
    for (const HtmlElement* element : document.getElementsByTagName("base")) {
        if (element->hasAttribute("href")) {
            base = ResolveUrl(url, element->getAttribute("href"));
            break;
        }
    }
    m_formatter->SetBaseFolder(base);
    m_formatter->SetFileName(url);
}

std::string CHtmlBeautifier::EditModeReadyHTML()
{
    if (!m_document || !m_formatter)
        return {};
    CHtmlStringBuilder builder;
    builder.init(kInitialBufferSize, 0);
    for (const auto& child : m_document->childNodes())
        getNodeHtml(builder, 1, *child);
    return builder.TakeValue();
}

void CHtmlBeautifier::getNodeHtml(CHtmlStringBuilder& builder, int level, const HtmlNode& root)
{
    // Depth first without recursion, so that no page nests deep enough to
    // exhaust the stack.
    struct Frame {
        const HtmlNode* node;
        int level;
        std::size_t next;
    };
    std::vector<Frame> stack;
    auto start = [&](const HtmlNode& node, int nodeLevel) {
        try {
            if (m_formatter->AddChunk(builder, nodeLevel, node) == CHtmlStringFormatter::Chunk::Whole)
                return;
        } catch (const std::exception& error) {
            TraceFailure("getNodeHtml", error);
            return;
        }
        stack.push_back({ &node, nodeLevel, 0 });
    };
    start(root, level);
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const HtmlNode& node = *frame.node;
        const auto& children = node.childNodes();
        if (CHtmlStringFormatter::WalksChildren(node) && frame.next < children.size()) {
            const HtmlNode& child = *children[frame.next++];
            // The browser-help script, and whatever follows it, is the help
            // generator's and goes back on by its hand.
            if (CHtmlStringFormatter::IsBrowserHelpScript(child)) {
                frame.next = children.size();
                continue;
            }
            start(child, frame.level + 1);
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
