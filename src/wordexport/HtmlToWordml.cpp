#include "wordexport/HtmlToWordml.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <pugixml.hpp>

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlTreeWalk.h"
#include "wordexport/UriText.h"
#include "wordexport/WordDocument.h"

namespace scriv {

namespace {

// Deeper than this, an element's text is taken as plain text: a page nested
// that deep is broken, and the conversion must not run out of stack.
constexpr int kMaxDepth = 200;
constexpr int kTwipsPerPixel = 15;
constexpr long kEmuPerPixel = 9525;

template<std::size_t N>
bool IsOneOf(const HtmlElement& element, const std::array<std::string_view, N>& names)
{
    return std::any_of(names.begin(), names.end(), [&element](std::string_view name) { return element.is(name); });
}

// Elements that have no counterpart in a Word document; they go with their content.
constexpr std::array<std::string_view, 33> kDroppedElements { "script", "style", "noscript", "template", "map",
    "area", "form", "input", "select", "textarea", "button", "option", "optgroup", "datalist", "output", "iframe",
    "frame", "frameset", "noframes", "object", "embed", "applet", "param", "canvas", "svg", "math", "video", "audio",
    "source", "head", "title", "meta", "link" };

// Elements that stand as blocks of their own.
constexpr std::array<std::string_view, 22> kBlockElements { "p", "div", "address", "article", "aside", "body",
    "center", "details", "dialog", "dl", "fieldset", "figcaption", "figure", "footer", "header", "hgroup", "html",
    "legend", "main", "nav", "section", "summary" };

bool IsWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

// Control characters other than tab and line ends cannot stand in XML 1.0.
std::string XmlSafe(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r')
            continue;
        // U+FFFE and U+FFFF (EF BF BE, EF BF BF) are no characters either.
        if (c == 0xEF && i + 2 < text.size() && static_cast<unsigned char>(text[i + 1]) == 0xBF
            && (static_cast<unsigned char>(text[i + 2]) & 0xFE) == 0xBE) {
            i += 2;
            continue;
        }
        out += static_cast<char>(c);
    }
    return out;
}

std::string CollapseWhiteSpace(std::string_view text)
{
    std::string out;
    bool space = false;
    for (char c : text) {
        if (IsWhiteSpace(c)) {
            space = !out.empty();
            continue;
        }
        if (space)
            out += ' ';
        space = false;
        out += c;
    }
    return out;
}

bool HasScheme(std::string_view href)
{
    std::size_t colon = href.find(':');
    if (colon == std::string_view::npos || colon < 2)
        return false; // "c:" is a drive, not a scheme
    for (std::size_t i = 0; i < colon; ++i) {
        char c = href[i];
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '+' && c != '-' && c != '.')
            return false;
    }
    return true;
}

// --- CSS, as far as it says how text looks ---

std::unordered_map<std::string, std::string> ParseStyle(std::string_view style)
{
    std::unordered_map<std::string, std::string> properties;
    for (const std::string& declaration : Split(style, ";")) {
        std::size_t colon = declaration.find(':');
        if (colon == std::string::npos)
            continue;
        std::string name = AsciiLower(TrimWhitespace(declaration.substr(0, colon)));
        std::string value = AsciiLower(TrimWhitespace(declaration.substr(colon + 1)));
        if (std::size_t important = value.find("!important"); important != std::string::npos)
            value = TrimWhitespace(value.substr(0, important));
        if (!name.empty())
            properties[name] = value;
    }
    return properties;
}

// "RRGGBB" for a colour of HTML (#rgb, #rrggbb, rgb(r, g, b), a name), or "".
std::string ParseColor(std::string_view text)
{
    std::string value = AsciiLower(TrimWhitespace(text));
    static const std::unordered_map<std::string, std::string> names {
        { "black", "000000" }, { "white", "FFFFFF" }, { "red", "FF0000" }, { "green", "008000" },
        { "blue", "0000FF" }, { "yellow", "FFFF00" }, { "navy", "000080" }, { "maroon", "800000" },
        { "purple", "800080" }, { "teal", "008080" }, { "olive", "808000" }, { "gray", "808080" },
        { "grey", "808080" }, { "silver", "C0C0C0" }, { "lime", "00FF00" }, { "aqua", "00FFFF" },
        { "cyan", "00FFFF" }, { "fuchsia", "FF00FF" }, { "magenta", "FF00FF" }, { "orange", "FFA500" },
        { "brown", "A52A2A" }, { "darkblue", "00008B" }, { "darkred", "8B0000" }, { "darkgreen", "006400" },
    };
    if (auto found = names.find(value); found != names.end())
        return found->second;
    auto allHex = [](std::string_view digits) {
        return std::all_of(digits.begin(), digits.end(), [](char c) { return std::isxdigit(static_cast<unsigned char>(c)); });
    };
    std::string_view digits = value;
    if (!digits.empty() && digits.front() == '#')
        digits.remove_prefix(1);
    if (digits.size() == 6 && allHex(digits))
        return ToUpper(digits);
    if (digits.size() == 3 && allHex(digits) && !value.empty() && value.front() == '#')
        return ToUpper(std::string { digits[0], digits[0], digits[1], digits[1], digits[2], digits[2] });
    if (value.rfind("rgb(", 0) == 0 && value.back() == ')') {
        std::vector<std::string> parts = Split(value.substr(4, value.size() - 5), ",");
        if (parts.size() != 3)
            return {};
        char buffer[8];
        int channels[3];
        for (int i = 0; i < 3; ++i) {
            std::optional<double> number = ParseNumber(TrimWhitespace(parts[i]));
            if (!number)
                return {};
            channels[i] = std::clamp(static_cast<int>(*number), 0, 255);
        }
        std::snprintf(buffer, sizeof buffer, "%02X%02X%02X", channels[0], channels[1], channels[2]);
        return buffer;
    }
    return {};
}

// Half points for a CSS font size in pt or px, or 0.
int ParseFontSize(std::string_view text)
{
    std::string value = AsciiLower(TrimWhitespace(text));
    double factor = 0;
    if (EndsWithNoCase(value, "pt"))
        factor = 2;
    else if (EndsWithNoCase(value, "px"))
        factor = 1.5;
    if (factor == 0)
        return 0;
    std::optional<double> number = ParseNumber(TrimWhitespace(value.substr(0, value.size() - 2)));
    if (!number || *number <= 0)
        return 0;
    return std::clamp(static_cast<int>(*number * factor + 0.5), 2, 3276);
}

// Half points of <font size="1".."7">.
int FontElementSize(std::string_view text)
{
    static const int sizes[] = { 16, 20, 24, 28, 36, 48, 72 };
    std::string value = TrimWhitespace(text);
    if (value.empty())
        return 0;
    int size = ToInt(value);
    if (value[0] == '+' || value[0] == '-')
        size = 3 + ToInt(value);
    return sizes[std::clamp(size, 1, 7) - 1];
}

std::string ParseAlignment(std::string_view text)
{
    std::string value = AsciiLower(TrimWhitespace(text));
    if (value == "center" || value == "middle")
        return "center";
    if (value == "right")
        return "right";
    if (value == "justify")
        return "both";
    if (value == "left")
        return "left";
    return {};
}

bool IsHidden(const HtmlElement& element)
{
    if (element.hasAttribute("hidden"))
        return true;
    if (!element.hasAttribute("style"))
        return false;
    auto style = ParseStyle(element.getAttribute("style"));
    auto display = style.find("display");
    auto visibility = style.find("visibility");
    return (display != style.end() && display->second == "none")
        || (visibility != style.end() && visibility->second == "hidden");
}

// The level of h1 .. h9 (and deeper, as 9), else 0.
int HeadingLevel(const HtmlElement& element)
{
    const std::string& tag = element.tagName();
    if (tag.size() < 2 || (tag[0] != 'h' && tag[0] != 'H'))
        return 0;
    int level = 0;
    for (std::size_t i = 1; i < tag.size(); ++i) {
        if (!std::isdigit(static_cast<unsigned char>(tag[i])) || level > 100)
            return 0;
        level = level * 10 + (tag[i] - '0');
    }
    return level >= 1 ? std::min(level, 9) : 0;
}

struct RunFormat {
    bool bold { false };
    bool italic { false };
    bool underline { false };
    bool strike { false };
    bool code { false };
    int halfPoints { 0 };
    int vertical { 0 }; // 1 superscript, -1 subscript
    std::string color;
    std::string shading;
    bool operator==(const RunFormat&) const = default;
};

struct ParagraphFormat {
    std::string style;
    std::string alignment;
    int indentTwips { 0 };
    int numId { 0 };
    int level { 0 };
    bool numberPending { false };
    bool bottomBorder { false };
};

struct LinkTarget {
    std::string relationshipId;
    std::string anchor;
    int serial { 0 };
    bool Active() const { return !relationshipId.empty() || !anchor.empty(); }
};

class Converter {
public:
    Converter(WordDocument& document, const HtmlToWordmlOptions& options)
        : m_doc(document)
        , m_options(options)
        , m_availableTwips(document.TextWidthTwips())
    {
    }

    void Convert(const HtmlElement& body)
    {
        CollectAnchors(body);
        Visit(body, 0);
        CloseParagraph();
        // Anchors at the very end still need a place.
        if (!m_pendingBookmarks.empty()) {
            EnsureParagraph();
            CloseParagraph();
        }
    }

private:
    // --- anchors ---

    void CollectAnchors(const HtmlElement& body)
    {
        std::unordered_set<std::string> linkedIds;
        std::vector<const HtmlElement*> elements;
        WalkHtmlTree(static_cast<const HtmlNode&>(body), [&](const HtmlNode& node) {
            const HtmlElement* element = node.asElement();
            if (!element)
                return false;
            if (IsOneOf(*element, kDroppedElements))
                return false;
            elements.push_back(element);
            if (element->is("a")) {
                std::string href = element->getAttribute("href");
                if (href.size() > 1 && href[0] == '#')
                    linkedIds.insert(PercentDecode(href.substr(1)));
            }
            return true;
        });
        for (const HtmlElement* element : elements) {
            if (element->is("a") && element->hasAttribute("name"))
                ClaimAnchor(element->getAttribute("name"));
            std::string id = element->id();
            if (!id.empty() && (linkedIds.count(id) || id == m_options.pageAnchor))
                ClaimAnchor(id);
        }
    }

    void ClaimAnchor(const std::string& anchor)
    {
        if (anchor.empty() || m_anchors.count(anchor))
            return;
        std::string owner = anchor == m_options.pageAnchor ? anchor : std::string();
        std::string name = WordBookmarkName(anchor);
        if (!m_doc.ClaimBookmarkName(name, owner)) {
            // Another page has it: this page's anchor gets the page's name in front.
            name = WordBookmarkName(m_options.pageAnchor + "_" + anchor);
            if (!m_doc.ClaimBookmarkName(name))
                return;
        }
        m_anchors.emplace(anchor, name);
    }

    std::string BookmarkForLink(const std::string& anchor) const
    {
        if (auto found = m_anchors.find(anchor); found != m_anchors.end())
            return found->second;
        return WordBookmarkName(anchor);
    }

    void PlaceAnchor(const std::string& anchor)
    {
        auto found = m_anchors.find(anchor);
        if (found == m_anchors.end() || !m_placed.insert(anchor).second)
            return;
        if (m_paragraph)
            AddBookmark(m_paragraph, found->second);
        else
            m_pendingBookmarks.push_back(found->second);
    }

    void AddBookmark(pugi::xml_node paragraph, const std::string& name)
    {
        int id = m_doc.NextBookmarkId();
        pugi::xml_node start = paragraph.append_child("w:bookmarkStart");
        start.append_attribute("w:id") = id;
        start.append_attribute("w:name") = name.c_str();
        paragraph.append_child("w:bookmarkEnd").append_attribute("w:id") = id;
    }

    // --- the walk ---

    void VisitChildren(const HtmlNode& node, int depth)
    {
        for (const auto& child : node.childNodes())
            Visit(*child, depth + 1);
    }

    void Visit(const HtmlNode& node, int depth)
    {
        if (node.isText()) {
            const std::string& data = static_cast<const HtmlText&>(node).data();
            if (m_preformatted)
                AddPreformattedText(data);
            else
                AddText(data);
            return;
        }
        const HtmlElement* element = node.asElement();
        if (!element) {
            if (node.nodeType() == HtmlNodeType::Document)
                VisitChildren(node, depth);
            return;
        }
        if (IsOneOf(*element, kDroppedElements) || IsHidden(*element))
            return;
        if (depth > kMaxDepth) {
            AddText(element->textContent());
            return;
        }
        // An anchor on a block belongs to the block's first paragraph.
        if (IsBlock(*element))
            CloseParagraph();
        if (element->is("a") && element->hasAttribute("name"))
            PlaceAnchor(element->getAttribute("name"));
        if (std::string id = element->id(); !id.empty())
            PlaceAnchor(id);

        RunFormat savedRun = m_run;
        ApplyInlineStyle(*element);
        VisitElement(*element, depth);
        m_run = savedRun;
    }

    static bool IsBlock(const HtmlElement& element)
    {
        static constexpr std::array<std::string_view, 16> others { "ul", "ol", "menu", "dir", "li", "table", "hr",
            "pre", "listing", "xmp", "plaintext", "blockquote", "dt", "dd", "caption", "center" };
        return HeadingLevel(element) > 0 || IsOneOf(element, kBlockElements) || IsOneOf(element, others);
    }

    void VisitElement(const HtmlElement& element, int depth)
    {
        if (int level = HeadingLevel(element))
            return Heading(element, level, depth);
        if (element.is("br"))
            return AddBreak();
        if (element.is("img"))
            return Picture(element);
        if (element.is("ul") || element.is("ol") || element.is("menu") || element.is("dir"))
            return List(element, element.is("ol"), depth);
        if (element.is("li"))
            return ListItem(element, depth);
        if (element.is("table"))
            return Table(element, depth);
        if (element.is("hr"))
            return HorizontalRule();
        if (element.is("a"))
            return Link(element, depth);
        if (element.is("pre") || element.is("listing") || element.is("xmp") || element.is("plaintext")) {
            ParagraphFormat format = m_para;
            format.style = "HTMLPreformatted";
            bool saved = m_preformatted;
            m_preformatted = true;
            BlockWith(element, format, depth);
            m_preformatted = saved;
            return;
        }
        if (element.is("blockquote")) {
            ParagraphFormat format = m_para;
            format.style = "Quote";
            return BlockWith(element, format, depth);
        }
        if (element.is("dt")) {
            ParagraphFormat format = m_para;
            m_run.bold = true;
            return BlockWith(element, format, depth);
        }
        if (element.is("dd")) {
            ParagraphFormat format = m_para;
            format.indentTwips += 720;
            return BlockWith(element, format, depth);
        }
        if (element.is("caption")) {
            ParagraphFormat format = m_para;
            format.style = "Caption";
            return BlockWith(element, format, depth);
        }
        if (IsOneOf(element, kBlockElements)) {
            ParagraphFormat format = m_para;
            if (element.is("center"))
                format.alignment = "center";
            return BlockWith(element, format, depth);
        }
        // Any other element passes its content through with its looks.
        VisitChildren(element, depth);
    }

    // The alignment of a block from its align attribute or text-align.
    std::string BlockAlignment(const HtmlElement& element, const std::string& inherited) const
    {
        std::string alignment = ParseAlignment(element.getAttribute("align"));
        if (element.hasAttribute("style")) {
            auto style = ParseStyle(element.getAttribute("style"));
            if (auto align = style.find("text-align"); align != style.end())
                alignment = ParseAlignment(align->second);
        }
        return alignment.empty() ? inherited : alignment;
    }

    void BlockWith(const HtmlElement& element, ParagraphFormat format, int depth)
    {
        CloseParagraph();
        ParagraphFormat saved = m_para;
        format.alignment = BlockAlignment(element, format.alignment);
        m_para = format;
        VisitChildren(element, depth);
        CloseParagraph();
        // A list item's number stays for its first paragraph only.
        bool numberUsed = !m_para.numberPending;
        m_para = saved;
        if (numberUsed)
            m_para.numberPending = false;
    }

    void ApplyInlineStyle(const HtmlElement& element)
    {
        if (element.is("b") || element.is("strong"))
            m_run.bold = true;
        else if (element.is("i") || element.is("em") || element.is("cite") || element.is("var") || element.is("dfn"))
            m_run.italic = true;
        else if (element.is("u") || element.is("ins"))
            m_run.underline = true;
        else if (element.is("s") || element.is("strike") || element.is("del"))
            m_run.strike = true;
        else if (element.is("sup"))
            m_run.vertical = 1;
        else if (element.is("sub"))
            m_run.vertical = -1;
        else if (element.is("code") || element.is("tt") || element.is("kbd") || element.is("samp"))
            m_run.code = true;
        else if (element.is("mark"))
            m_run.shading = "FFFF00";
        else if (element.is("font")) {
            if (std::string color = ParseColor(element.getAttribute("color")); !color.empty())
                m_run.color = color;
            if (int size = FontElementSize(element.getAttribute("size")))
                m_run.halfPoints = size;
        }
        if (element.hasAttribute("style")) {
            auto style = ParseStyle(element.getAttribute("style"));
            if (auto it = style.find("color"); it != style.end())
                if (std::string color = ParseColor(it->second); !color.empty())
                    m_run.color = color;
            if (auto it = style.find("background-color"); it != style.end())
                if (std::string color = ParseColor(it->second); !color.empty())
                    m_run.shading = color;
            if (auto it = style.find("font-weight"); it != style.end())
                m_run.bold = it->second == "bold" || it->second == "bolder" || ToInt(it->second) >= 600;
            if (auto it = style.find("font-style"); it != style.end())
                m_run.italic = it->second == "italic" || it->second == "oblique";
            if (auto it = style.find("text-decoration"); it != style.end()) {
                if (it->second.find("underline") != std::string::npos)
                    m_run.underline = true;
                if (it->second.find("line-through") != std::string::npos)
                    m_run.strike = true;
                if (it->second == "none")
                    m_run.underline = m_run.strike = false;
            }
            if (auto it = style.find("font-size"); it != style.end())
                if (int size = ParseFontSize(it->second))
                    m_run.halfPoints = size;
        }
    }

    // --- paragraphs ---

    pugi::xml_node NewBlock(const char* name)
    {
        return m_cell ? m_cell.append_child(name) : m_doc.AppendBlock(name);
    }

    void EnsureParagraph()
    {
        if (m_paragraph)
            return;
        m_paragraph = NewBlock("w:p");
        m_lastRun = {};
        m_linkNode = {};
        m_lineHasContent = false;
        m_spacePending = false;

        pugi::xml_node properties = m_paragraph.append_child("w:pPr");
        std::string style = m_para.style;
        bool numbered = m_para.numberPending && m_para.numId > 0;
        if (style.empty() && (numbered || m_para.numId > 0))
            style = "ListParagraph";
        if (style.empty() && m_cell)
            style = "TableText";
        if (!style.empty())
            properties.append_child("w:pStyle").append_attribute("w:val") = style.c_str();
        if (numbered) {
            pugi::xml_node numbering = properties.append_child("w:numPr");
            numbering.append_child("w:ilvl").append_attribute("w:val") = m_para.level;
            numbering.append_child("w:numId").append_attribute("w:val") = m_para.numId;
            m_para.numberPending = false;
        }
        if (m_para.bottomBorder) {
            pugi::xml_node bottom = properties.append_child("w:pBdr").append_child("w:bottom");
            bottom.append_attribute("w:val") = "single";
            bottom.append_attribute("w:sz") = 6;
            bottom.append_attribute("w:space") = 1;
            bottom.append_attribute("w:color") = "auto";
        }
        int indent = m_para.indentTwips;
        // Later paragraphs of a list item line up with its text.
        if (m_para.numId > 0 && !numbered)
            indent += 360 * (m_para.level + 1) + 360;
        if (indent > 0)
            properties.append_child("w:ind").append_attribute("w:left") = indent;
        if (!m_para.alignment.empty())
            properties.append_child("w:jc").append_attribute("w:val") = m_para.alignment.c_str();
        if (!properties.first_child())
            m_paragraph.remove_child(properties);

        for (const std::string& name : m_pendingBookmarks)
            AddBookmark(m_paragraph, name);
        m_pendingBookmarks.clear();
    }

    void CloseParagraph()
    {
        m_paragraph = {};
        m_lastRun = {};
        m_linkNode = {};
        m_spacePending = false;
        m_lineHasContent = false;
    }

    // --- runs ---

    pugi::xml_node RunContainer()
    {
        EnsureParagraph();
        if (!m_link.Active())
            return m_paragraph;
        if (m_linkNode && m_linkNode == m_paragraph.last_child() && m_linkSerialOfNode == m_link.serial)
            return m_linkNode;
        m_linkNode = m_paragraph.append_child("w:hyperlink");
        m_linkSerialOfNode = m_link.serial;
        if (!m_link.relationshipId.empty())
            m_linkNode.append_attribute("r:id") = m_link.relationshipId.c_str();
        else
            m_linkNode.append_attribute("w:anchor") = m_link.anchor.c_str();
        m_linkNode.append_attribute("w:history") = "1";
        return m_linkNode;
    }

    pugi::xml_node NewRun(pugi::xml_node container)
    {
        pugi::xml_node run = container.append_child("w:r");
        pugi::xml_node properties = run.append_child("w:rPr");
        if (m_link.Active())
            properties.append_child("w:rStyle").append_attribute("w:val") = "Hyperlink";
        else if (m_run.code)
            properties.append_child("w:rStyle").append_attribute("w:val") = "HTMLCode";
        if (m_run.bold)
            properties.append_child("w:b");
        if (m_run.italic)
            properties.append_child("w:i");
        if (m_run.strike)
            properties.append_child("w:strike");
        if (!m_run.color.empty())
            properties.append_child("w:color").append_attribute("w:val") = m_run.color.c_str();
        if (m_run.halfPoints > 0) {
            properties.append_child("w:sz").append_attribute("w:val") = m_run.halfPoints;
            properties.append_child("w:szCs").append_attribute("w:val") = m_run.halfPoints;
        }
        if (m_run.underline)
            properties.append_child("w:u").append_attribute("w:val") = "single";
        if (!m_run.shading.empty()) {
            pugi::xml_node shading = properties.append_child("w:shd");
            shading.append_attribute("w:val") = "clear";
            shading.append_attribute("w:color") = "auto";
            shading.append_attribute("w:fill") = m_run.shading.c_str();
        }
        if (m_run.vertical != 0)
            properties.append_child("w:vertAlign").append_attribute("w:val")
                = m_run.vertical > 0 ? "superscript" : "subscript";
        if (!properties.first_child())
            run.remove_child(properties);
        m_lastRun = run;
        m_lastRunFormat = m_run;
        m_lastRunLinkSerial = m_link.Active() ? m_link.serial : -1;
        return run;
    }

    // Text joins the last run when that run looks the same.
    void AppendRunText(const std::string& text)
    {
        pugi::xml_node container = RunContainer();
        int linkSerial = m_link.Active() ? m_link.serial : -1;
        if (m_lastRun && m_lastRun == container.last_child() && m_lastRunFormat == m_run
            && m_lastRunLinkSerial == linkSerial && IsText(m_lastRun.last_child())) {
            pugi::xml_node t = m_lastRun.last_child();
            std::string joined = t.text().get();
            joined += text;
            t.text().set(joined.c_str());
            return;
        }
        pugi::xml_node t = NewRun(container).append_child("w:t");
        t.append_attribute("xml:space") = "preserve";
        t.text().set(text.c_str());
    }

    static bool IsText(const pugi::xml_node& node)
    {
        return node && std::string_view(node.name()) == "w:t";
    }

    void AppendRunElement(const char* name)
    {
        NewRun(RunContainer()).append_child(name);
    }

    void AddText(std::string_view raw)
    {
        std::string text = XmlSafe(raw);
        if (std::all_of(text.begin(), text.end(), IsWhiteSpace)) {
            if (m_lineHasContent && !text.empty())
                m_spacePending = true;
            return;
        }
        // The paragraph starts before the words are counted.
        EnsureParagraph();
        std::string pending;
        std::size_t i = 0;
        while (i < text.size()) {
            if (IsWhiteSpace(text[i])) {
                if (m_lineHasContent)
                    m_spacePending = true;
                ++i;
                continue;
            }
            std::size_t end = i;
            while (end < text.size() && !IsWhiteSpace(text[end]))
                ++end;
            if (m_spacePending)
                pending += ' ';
            pending.append(text, i, end - i);
            m_spacePending = false;
            m_lineHasContent = true;
            i = end;
            // A space after the word waits for the next word.
        }
        if (!pending.empty())
            AppendRunText(pending);
    }

    void AddPreformattedText(std::string_view raw)
    {
        std::string text = XmlSafe(raw);
        if (text.empty())
            return;
        EnsureParagraph();
        std::string piece;
        auto flush = [&] {
            if (!piece.empty())
                AppendRunText(piece);
            piece.clear();
        };
        for (char c : text) {
            if (c == '\r')
                continue;
            if (c == '\n') {
                flush();
                AppendRunElement("w:br");
            } else if (c == '\t') {
                flush();
                AppendRunElement("w:tab");
            } else
                piece += c;
        }
        flush();
        m_lineHasContent = true;
    }

    void AddBreak()
    {
        AppendRunElement("w:br");
        m_spacePending = false;
        m_lineHasContent = false;
    }

    // --- elements ---

    void Heading(const HtmlElement& element, int level, int depth)
    {
        CloseParagraph();
        ParagraphFormat saved = m_para;
        m_para.style = "Heading" + std::to_string(level);
        m_para.alignment = BlockAlignment(element, {});
        m_para.indentTwips = 0;
        EnsureParagraph();
        pugi::xml_node paragraph = m_paragraph;
        pugi::xml_node start = paragraph.append_child("w:bookmarkStart");
        VisitChildren(element, depth);
        CloseParagraph();
        bool numberUsed = !m_para.numberPending;
        m_para = saved;
        if (numberUsed)
            m_para.numberPending = false;

        std::string text = CollapseWhiteSpace(element.innerText());
        if (text.empty()) {
            paragraph.remove_child(start);
            return;
        }
        int id = m_doc.NextBookmarkId();
        std::string name = m_doc.AddHeading(level, text);
        start.append_attribute("w:id") = id;
        start.append_attribute("w:name") = name.c_str();
        paragraph.append_child("w:bookmarkEnd").append_attribute("w:id") = id;
    }

    void List(const HtmlElement& element, bool ordered, int depth)
    {
        CloseParagraph();
        ParagraphFormat saved = m_para;
        int level = std::min(m_listDepth, 8);
        int start = 1;
        if (ordered && element.hasAttribute("start"))
            start = ToInt(element.getAttribute("start"));
        int numId = m_doc.NewListNumbering(ordered, level, start);
        ++m_listDepth;
        int savedList = m_listNumId;
        int savedLevel = m_listLevel;
        m_listNumId = numId;
        m_listLevel = level;
        m_para.style.clear();
        m_para.numId = numId;
        m_para.level = level;
        m_para.numberPending = false;
        m_para.indentTwips = saved.numId > 0 ? 0 : saved.indentTwips;
        VisitChildren(element, depth);
        CloseParagraph();
        m_listNumId = savedList;
        m_listLevel = savedLevel;
        --m_listDepth;
        m_para = saved;
        m_para.numberPending = false;
    }

    void ListItem(const HtmlElement& element, int depth)
    {
        CloseParagraph();
        ParagraphFormat saved = m_para;
        if (m_listNumId == 0) {
            // An item outside any list still shows as a bullet.
            m_listNumId = m_doc.NewListNumbering(false, 0, 1);
            m_listLevel = 0;
        }
        m_para.style.clear();
        m_para.numId = m_listNumId;
        m_para.level = m_listLevel;
        m_para.numberPending = true;
        m_para.alignment = BlockAlignment(element, m_para.alignment);
        VisitChildren(element, depth);
        // An empty item still shows its bullet or number.
        if (m_para.numberPending)
            EnsureParagraph();
        CloseParagraph();
        m_para = saved;
    }

    void HorizontalRule()
    {
        CloseParagraph();
        ParagraphFormat saved = m_para;
        m_para.bottomBorder = true;
        m_para.numberPending = false;
        EnsureParagraph();
        CloseParagraph();
        m_para = saved;
    }

    void Link(const HtmlElement& element, int depth)
    {
        std::string href = TrimWhitespace(element.getAttribute("href"));
        LinkTarget saved = m_link;
        if (!href.empty() && href[0] == '#') {
            std::string anchor = PercentDecode(href.substr(1));
            if (!anchor.empty()) {
                m_link = {};
                m_link.anchor = BookmarkForLink(anchor);
            }
        } else if (!href.empty() && !StartsWithNoCase(href, "javascript:") && !StartsWithNoCase(href, "vbscript:")) {
            m_link = {};
            m_link.relationshipId = m_doc.AddExternalHyperlink(UriForRelationship(href));
        }
        m_link.serial = ++m_linkSerial;
        VisitChildren(element, depth);
        m_link = saved;
    }

    // The file of a picture's src, or nothing for a picture on the web.
    std::optional<std::string> PicturePath(const std::string& source) const
    {
        std::string src = TrimWhitespace(source);
        if (src.empty())
            return std::nullopt;
        if (StartsWithNoCase(src, "file:")) {
            src = src.substr(5);
            // file:///home/x or file:///C:/x; file://server/x stays as a path.
            while (src.size() > 1 && src[0] == '/' && src[1] == '/')
                src = src.substr(1);
        } else if (HasScheme(src))
            return std::nullopt;
        src = src.substr(0, src.find_first_of("?#"));
        std::string path = ToNativePath(PercentDecode(src));
        if (!IsAbsolutePath(path))
            path = m_options.pageFolder + path;
        return path;
    }

    void Picture(const HtmlElement& element)
    {
        std::optional<std::string> path = PicturePath(element.getAttribute("src"));
        if (!path)
            return;
        std::optional<WordDocument::Picture> picture = m_doc.AddPicture(*path, m_options.linkPictures);
        if (!picture) {
            Trace("AppendHtmlBody: picture left out, it cannot be read as a picture: '" + *path + "'");
            return;
        }
        double width = picture->size.width;
        double height = picture->size.height;
        int givenWidth = ToInt(element.getAttribute("width"));
        int givenHeight = ToInt(element.getAttribute("height"));
        if (givenWidth > 0 && givenHeight > 0) {
            width = givenWidth;
            height = givenHeight;
        } else if (givenWidth > 0) {
            height = height * givenWidth / width;
            width = givenWidth;
        } else if (givenHeight > 0) {
            width = width * givenHeight / height;
            height = givenHeight;
        }
        // Only a picture wider than the page is made smaller.
        double fit = static_cast<double>(m_availableTwips) / kTwipsPerPixel;
        if (width > fit) {
            height = height * fit / width;
            width = fit;
        }
        if (m_spacePending) {
            AppendRunText(" ");
            m_spacePending = false;
        }
        long cx = std::max(1L, static_cast<long>(width * kEmuPerPixel + 0.5));
        long cy = std::max(1L, static_cast<long>(height * kEmuPerPixel + 0.5));
        AppendDrawing(*picture, cx, cy, XmlSafe(element.getAttribute("alt")));
        m_lineHasContent = true;
        m_spacePending = false;
    }

    void AppendDrawing(const WordDocument::Picture& picture, long cx, long cy, const std::string& description)
    {
        pugi::xml_node run = NewRun(RunContainer());
        int id = m_doc.NextDrawingId();
        std::string name = "Picture " + std::to_string(id);
        pugi::xml_node inlined = run.append_child("w:drawing").append_child("wp:inline");
        for (const char* distance : { "distT", "distB", "distL", "distR" })
            inlined.append_attribute(distance) = 0;
        pugi::xml_node extent = inlined.append_child("wp:extent");
        extent.append_attribute("cx") = cx;
        extent.append_attribute("cy") = cy;
        pugi::xml_node properties = inlined.append_child("wp:docPr");
        properties.append_attribute("id") = id;
        properties.append_attribute("name") = name.c_str();
        if (!description.empty())
            properties.append_attribute("descr") = description.c_str();
        inlined.append_child("wp:cNvGraphicFramePr").append_child("a:graphicFrameLocks").append_attribute(
            "noChangeAspect")
            = 1;
        pugi::xml_node data = inlined.append_child("a:graphic").append_child("a:graphicData");
        data.append_attribute("uri") = "http://schemas.openxmlformats.org/drawingml/2006/picture";
        pugi::xml_node pic = data.append_child("pic:pic");
        pugi::xml_node nonVisual = pic.append_child("pic:nvPicPr");
        pugi::xml_node cNvPr = nonVisual.append_child("pic:cNvPr");
        cNvPr.append_attribute("id") = id;
        cNvPr.append_attribute("name") = picture.name.c_str();
        nonVisual.append_child("pic:cNvPicPr");
        pugi::xml_node fill = pic.append_child("pic:blipFill");
        pugi::xml_node blip = fill.append_child("a:blip");
        blip.append_attribute(picture.linked ? "r:link" : "r:embed") = picture.relationshipId.c_str();
        fill.append_child("a:stretch").append_child("a:fillRect");
        pugi::xml_node shape = pic.append_child("pic:spPr");
        pugi::xml_node transform = shape.append_child("a:xfrm");
        pugi::xml_node offset = transform.append_child("a:off");
        offset.append_attribute("x") = 0;
        offset.append_attribute("y") = 0;
        pugi::xml_node size = transform.append_child("a:ext");
        size.append_attribute("cx") = cx;
        size.append_attribute("cy") = cy;
        pugi::xml_node geometry = shape.append_child("a:prstGeom");
        geometry.append_attribute("prst") = "rect";
        geometry.append_child("a:avLst");
    }

    // --- tables ---

    struct Slot {
        const HtmlElement* cell { nullptr };
        int row { 0 };
        int column { 0 };
        int columnSpan { 1 };
        int rowSpan { 1 };
        bool inHead { false };
    };

    static std::vector<std::pair<const HtmlElement*, bool>> TableRows(const HtmlElement& table)
    {
        std::vector<std::pair<const HtmlElement*, bool>> head;
        std::vector<std::pair<const HtmlElement*, bool>> body;
        std::vector<std::pair<const HtmlElement*, bool>> foot;
        for (const auto& child : table.childNodes()) {
            const HtmlElement* section = child->asElement();
            if (!section)
                continue;
            if (section->is("tr")) {
                body.emplace_back(section, false);
                continue;
            }
            auto* target = section->is("thead") ? &head : section->is("tfoot") ? &foot : section->is("tbody") ? &body : nullptr;
            if (!target)
                continue;
            for (const auto& row : section->childNodes())
                if (const HtmlElement* tr = row->asElement(); tr && tr->is("tr"))
                    target->emplace_back(tr, section->is("thead"));
        }
        head.insert(head.end(), body.begin(), body.end());
        head.insert(head.end(), foot.begin(), foot.end());
        return head;
    }

    static bool TableHasBorders(const HtmlElement& table)
    {
        if (const std::string* border = table.findAttribute("border"))
            return border->empty() || ToInt(*border) > 0;
        if (!table.hasAttribute("style"))
            return false;
        auto style = ParseStyle(table.getAttribute("style"));
        for (const char* property : { "border", "border-width", "border-style" }) {
            auto found = style.find(property);
            if (found != style.end() && found->second.find("none") == std::string::npos
                && found->second.rfind("0", 0) != 0 && !found->second.empty())
                return true;
        }
        return false;
    }

    void Table(const HtmlElement& table, int depth)
    {
        CloseParagraph();
        // The caption stands above the table.
        for (const auto& child : table.childNodes())
            if (const HtmlElement* caption = child->asElement(); caption && caption->is("caption")) {
                Visit(*caption, depth + 1);
                break;
            }

        std::vector<std::pair<const HtmlElement*, bool>> rows = TableRows(table);
        // Lay the cells on a grid, each spanning the slots it covers.
        std::vector<std::vector<Slot*>> grid(rows.size());
        std::vector<std::unique_ptr<Slot>> slots;
        std::size_t columns = 0;
        for (std::size_t r = 0; r < rows.size(); ++r) {
            std::size_t column = 0;
            for (const auto& child : rows[r].first->childNodes()) {
                const HtmlElement* cell = child->asElement();
                if (!cell || !(cell->is("td") || cell->is("th")))
                    continue;
                while (column < grid[r].size() && grid[r][column])
                    ++column;
                auto slot = std::make_unique<Slot>();
                slot->cell = cell;
                slot->row = static_cast<int>(r);
                slot->column = static_cast<int>(column);
                slot->columnSpan = std::clamp(ToInt(cell->getAttribute("colspan")), 1, 63);
                int rowSpan = ToInt(cell->getAttribute("rowspan"));
                int remaining = static_cast<int>(rows.size() - r);
                slot->rowSpan = rowSpan <= 0 && cell->hasAttribute("rowspan") ? remaining
                                                                               : std::clamp(rowSpan, 1, remaining);
                slot->inHead = rows[r].second;
                for (int dr = 0; dr < slot->rowSpan; ++dr) {
                    std::vector<Slot*>& line = grid[r + dr];
                    if (line.size() < column + slot->columnSpan)
                        line.resize(column + slot->columnSpan, nullptr);
                    for (int dc = 0; dc < slot->columnSpan; ++dc)
                        if (!line[column + dc])
                            line[column + dc] = slot.get();
                }
                column += slot->columnSpan;
                columns = std::max(columns, column);
                slots.push_back(std::move(slot));
            }
        }
        if (columns == 0)
            return;

        int width = std::max(m_availableTwips, 720);
        int columnWidth = std::max(static_cast<int>(width / columns), 60);
        pugi::xml_node tbl = NewBlock("w:tbl");
        pugi::xml_node properties = tbl.append_child("w:tblPr");
        if (TableHasBorders(table))
            properties.append_child("w:tblStyle").append_attribute("w:val") = "TableGrid";
        pugi::xml_node tableWidth = properties.append_child("w:tblW");
        tableWidth.append_attribute("w:w") = columnWidth * static_cast<int>(columns);
        tableWidth.append_attribute("w:type") = "dxa";
        if (std::string align = ParseAlignment(table.getAttribute("align")); align == "center" || align == "right")
            properties.append_child("w:jc").append_attribute("w:val") = align.c_str();
        properties.append_child("w:tblLook").append_attribute("w:val") = "04A0";
        pugi::xml_node tableGrid = tbl.append_child("w:tblGrid");
        for (std::size_t c = 0; c < columns; ++c)
            tableGrid.append_child("w:gridCol").append_attribute("w:w") = columnWidth;

        for (std::size_t r = 0; r < rows.size(); ++r) {
            pugi::xml_node tr = tbl.append_child("w:tr");
            if (rows[r].second)
                tr.append_child("w:trPr").append_child("w:tblHeader");
            for (std::size_t c = 0; c < columns;) {
                Slot* slot = c < grid[r].size() ? grid[r][c] : nullptr;
                if (!slot) {
                    Cell(tr, nullptr, 1, nullptr, columnWidth, depth, rows[r].first);
                    ++c;
                    continue;
                }
                // A slot may start inside a wider cell only where spans overlap; it then counts as covered.
                int span = std::min<int>(slot->columnSpan, static_cast<int>(columns - c));
                const char* merge = nullptr;
                if (slot->rowSpan > 1)
                    merge = slot->row == static_cast<int>(r) ? "restart" : "continue";
                bool origin = slot->row == static_cast<int>(r) && slot->column == static_cast<int>(c);
                Cell(tr, origin ? slot->cell : nullptr, span, merge, columnWidth * span, depth, rows[r].first);
                c += span;
            }
        }
    }

    void Cell(pugi::xml_node tr, const HtmlElement* cell, int span, const char* merge, int width, int depth,
        const HtmlElement* row)
    {
        pugi::xml_node tc = tr.append_child("w:tc");
        pugi::xml_node properties = tc.append_child("w:tcPr");
        pugi::xml_node cellWidth = properties.append_child("w:tcW");
        cellWidth.append_attribute("w:w") = width;
        cellWidth.append_attribute("w:type") = "dxa";
        if (span > 1)
            properties.append_child("w:gridSpan").append_attribute("w:val") = span;
        if (merge) {
            pugi::xml_node vMerge = properties.append_child("w:vMerge");
            if (std::string_view(merge) == "restart")
                vMerge.append_attribute("w:val") = "restart";
        }
        if (cell) {
            std::string fill = ParseColor(cell->getAttribute("bgcolor"));
            if (cell->hasAttribute("style")) {
                auto style = ParseStyle(cell->getAttribute("style"));
                if (auto it = style.find("background-color"); it != style.end())
                    fill = ParseColor(it->second);
            }
            if (!fill.empty()) {
                pugi::xml_node shading = properties.append_child("w:shd");
                shading.append_attribute("w:val") = "clear";
                shading.append_attribute("w:color") = "auto";
                shading.append_attribute("w:fill") = fill.c_str();
            }
            std::string valign = AsciiLower(cell->getAttribute("valign"));
            if (valign.empty())
                valign = AsciiLower(row->getAttribute("valign"));
            if (valign == "middle" || valign == "center" || valign == "bottom")
                properties.append_child("w:vAlign").append_attribute("w:val")
                    = valign == "bottom" ? "bottom" : "center";

            // The cell's content goes into the cell.
            CloseParagraph();
            pugi::xml_node savedCell = m_cell;
            ParagraphFormat savedPara = m_para;
            RunFormat savedRun = m_run;
            LinkTarget savedLink = m_link;
            int savedAvailable = m_availableTwips;
            int savedListNumId = m_listNumId;
            int savedListLevel = m_listLevel;
            int savedListDepth = m_listDepth;
            m_cell = tc;
            m_para = {};
            m_para.alignment = BlockAlignment(*cell, ParseAlignment(row->getAttribute("align")));
            m_link = {};
            m_listNumId = 0;
            m_listLevel = 0;
            m_listDepth = 0;
            m_availableTwips = std::max(width - 216, 240);
            if (cell->is("th"))
                m_run.bold = true;
            ApplyInlineStyle(*cell);
            if (std::string id = cell->id(); !id.empty())
                PlaceAnchor(id);
            VisitChildren(*cell, depth + 1);
            CloseParagraph();
            m_cell = savedCell;
            m_para = savedPara;
            m_run = savedRun;
            m_link = savedLink;
            m_availableTwips = savedAvailable;
            m_listNumId = savedListNumId;
            m_listLevel = savedListLevel;
            m_listDepth = savedListDepth;
        }
        // A cell ends with a paragraph.
        pugi::xml_node last = tc.last_child();
        if (!last || std::string_view(last.name()) != "w:p")
            tc.append_child("w:p");
    }

    WordDocument& m_doc;
    const HtmlToWordmlOptions& m_options;
    int m_availableTwips;

    pugi::xml_node m_cell; // the table cell that receives blocks, else the body
    pugi::xml_node m_paragraph;
    pugi::xml_node m_linkNode;
    int m_linkSerialOfNode { -1 };
    pugi::xml_node m_lastRun;
    RunFormat m_lastRunFormat;
    int m_lastRunLinkSerial { -1 };

    ParagraphFormat m_para;
    RunFormat m_run;
    LinkTarget m_link;
    int m_linkSerial { 0 };
    bool m_preformatted { false };
    bool m_spacePending { false };
    bool m_lineHasContent { false };

    int m_listDepth { 0 };
    int m_listNumId { 0 };
    int m_listLevel { 0 };

    std::unordered_map<std::string, std::string> m_anchors; // page anchor -> bookmark name
    std::unordered_set<std::string> m_placed;
    std::vector<std::string> m_pendingBookmarks;
};

}  // namespace

std::string WordBookmarkName(std::string_view anchor)
{
    auto isWordChar = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    bool valid = !anchor.empty() && anchor.size() <= 40 && std::isalpha(static_cast<unsigned char>(anchor[0]))
        && std::all_of(anchor.begin(), anchor.end(), isWordChar);
    if (valid)
        return std::string(anchor);
    std::string cleaned;
    for (char c : anchor)
        cleaned += (c & 0x80) == 0 && isWordChar(c) ? c : '_';
    if (cleaned.empty() || !std::isalpha(static_cast<unsigned char>(cleaned[0])))
        cleaned.insert(cleaned.begin(), 'a');
    cleaned.resize(std::min<std::size_t>(cleaned.size(), 31));
    // FNV-1a of the whole anchor keeps two long anchors apart.
    std::uint32_t hash = 2166136261u;
    for (unsigned char c : anchor) {
        hash ^= c;
        hash *= 16777619u;
    }
    char suffix[10];
    std::snprintf(suffix, sizeof suffix, "_%08x", hash);
    return cleaned + suffix;
}

void AppendHtmlBody(WordDocument& document, const HtmlDocument& page, const HtmlToWordmlOptions& options)
{
    const HtmlElement* body = page.body();
    if (!body)
        return;
    Converter(document, options).Convert(*body);
}

}  // namespace scriv
