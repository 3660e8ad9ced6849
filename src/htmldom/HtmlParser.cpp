#include "htmldom/HtmlParser.h"

#include <gumbo.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "htmldom/HtmlNames.h"

namespace scriv {

namespace {

struct GumboOutputDeleter {
    GumboOptions options;
    void operator()(GumboOutput* output) const { gumbo_destroy_output(&options, output); }
};
using GumboOutputPtr = std::unique_ptr<GumboOutput, GumboOutputDeleter>;

GumboOutputPtr RunGumbo(const GumboOptions& options, std::string_view html)
{
    return GumboOutputPtr(gumbo_parse_with_options(&options, html.data(), html.size()), GumboOutputDeleter { options });
}

std::string PieceText(const GumboStringPiece& piece)
{
    return (piece.data && piece.length) ? std::string(piece.data, piece.length) : std::string();
}

// The name written in the source, for tags gumbo does not know (it keeps only
// the original text of such tags).
std::string OriginalTagName(const GumboElement& element)
{
    for (GumboStringPiece piece : { element.original_tag, element.original_end_tag }) {
        if (!piece.data || piece.length == 0)
            continue;
        gumbo_tag_from_original_text(&piece);
        if (piece.length)
            return PieceText(piece);
    }
    return {};
}

HtmlNamespace NamespaceOf(GumboNamespaceEnum ns)
{
    switch (ns) {
    case GUMBO_NAMESPACE_SVG:
        return HtmlNamespace::Svg;
    case GUMBO_NAMESPACE_MATHML:
        return HtmlNamespace::MathMl;
    default:
        return HtmlNamespace::Html;
    }
}

std::string TagNameOf(const GumboElement& element)
{
    std::string name = element.tag == GUMBO_TAG_UNKNOWN ? OriginalTagName(element) : gumbo_normalized_tagname(element.tag);
    if (element.tag_namespace == GUMBO_NAMESPACE_SVG) {
        // SVG keeps mixed-case names such as "foreignObject".
        GumboStringPiece piece { name.data(), name.size() };
        if (const char* svgName = gumbo_normalize_svg_tagname(&piece))
            return svgName;
    }
    name = AsciiLower(name);
    return name.empty() ? std::string("unknown") : name;
}

std::unique_ptr<HtmlElement> ConvertElement(const GumboElement& source)
{
    auto element = std::make_unique<HtmlElement>(TagNameOf(source), NamespaceOf(source.tag_namespace));
    for (unsigned i = 0; i < source.attributes.length; ++i) {
        const auto* attribute = static_cast<const GumboAttribute*>(source.attributes.data[i]);
        element->setAttribute(attribute->name, attribute->value ? attribute->value : "");
    }
    return element;
}

// The node alone; its children are copied by the caller.
std::unique_ptr<HtmlNode> ConvertNode(const GumboNode& source)
{
    switch (source.type) {
    case GUMBO_NODE_ELEMENT:
    case GUMBO_NODE_TEMPLATE:
        return ConvertElement(source.v.element);
    case GUMBO_NODE_COMMENT:
        return std::make_unique<HtmlComment>(source.v.text.text ? source.v.text.text : "");
    case GUMBO_NODE_TEXT:
    case GUMBO_NODE_WHITESPACE:
    case GUMBO_NODE_CDATA:
        return std::make_unique<HtmlText>(source.v.text.text ? source.v.text.text : "");
    default:
        return nullptr;
    }
}

const GumboVector* ChildrenOf(const GumboNode& node)
{
    switch (node.type) {
    case GUMBO_NODE_DOCUMENT:
        return &node.v.document.children;
    case GUMBO_NODE_ELEMENT:
    case GUMBO_NODE_TEMPLATE:
        return &node.v.element.children;
    default:
        return nullptr;
    }
}

// Copies the children of source below target, depth first through a work list
// rather than recursion.
void CopyChildren(const GumboNode& source, HtmlNode& target)
{
    std::vector<std::pair<const GumboNode*, HtmlNode*>> work { { &source, &target } };
    while (!work.empty()) {
        auto [from, to] = work.back();
        work.pop_back();
        const GumboVector* children = ChildrenOf(*from);
        if (!children)
            continue;
        for (unsigned i = 0; i < children->length; ++i) {
            const auto* child = static_cast<const GumboNode*>(children->data[i]);
            std::unique_ptr<HtmlNode> converted = ConvertNode(*child);
            if (!converted)
                continue;
            HtmlNode& added = to->appendChild(std::move(converted));
            work.emplace_back(child, &added);
        }
    }
}

GumboTag FragmentContextTag(std::string_view contextTag)
{
    std::string name = AsciiLower(contextTag);
    GumboTag tag = gumbo_tagn_enum(name.data(), static_cast<unsigned>(name.size()));
    return tag == GUMBO_TAG_UNKNOWN ? GUMBO_TAG_DIV : tag;
}

GumboNamespaceEnum GumboNamespace(HtmlNamespace ns)
{
    switch (ns) {
    case HtmlNamespace::Svg:
        return GUMBO_NAMESPACE_SVG;
    case HtmlNamespace::MathMl:
        return GUMBO_NAMESPACE_MATHML;
    default:
        return GUMBO_NAMESPACE_HTML;
    }
}

}  // namespace

void ParseHtmlInto(HtmlNode& document, std::string_view html)
{
    GumboOutputPtr output = RunGumbo(kGumboDefaultOptions, html);
    const GumboDocument& parsed = output->document->v.document;
    if (parsed.has_doctype)
        document.appendChild(std::make_unique<HtmlDoctype>(parsed.name ? parsed.name : "",
            parsed.public_identifier ? parsed.public_identifier : "", parsed.system_identifier ? parsed.system_identifier : ""));
    CopyChildren(*output->document, document);
}

HtmlNode::ChildList ParseHtmlFragment(std::string_view html, std::string_view contextTag, HtmlNamespace contextNamespace)
{
    GumboOptions options = kGumboDefaultOptions;
    options.fragment_context = FragmentContextTag(contextTag);
    options.fragment_namespace = GumboNamespace(contextNamespace);
    GumboOutputPtr output = RunGumbo(options, html);
    // The fragment's nodes stand below an html element made for the parse.
    HtmlElement holder("html");
    CopyChildren(*output->root, holder);
    HtmlNode::ChildList nodes;
    while (HtmlNode* first = holder.firstChild())
        nodes.push_back(holder.removeChild(*first));
    return nodes;
}

}  // namespace scriv
