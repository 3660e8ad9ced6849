#include "htmledit/CHtmlStringFormatter.h"

#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlSerializer.h"
#include "htmldom/HtmlTreeWalk.h"
#include "htmledit/CHtmlNodeAttributes.h"

namespace scriv {

namespace {

// A set of tag names built from a comma-separated literal, searched without
// regard to case.
class TagSet {
public:
    explicit TagSet(std::string_view literal)
        : m_names(Split(literal, ","))
    {
    }
    bool Contains(std::string_view name) const
    {
        for (const std::string& entry : m_names)
            if (entry.size() == name.size() && SameLetters(entry, name))
                return true;
        return false;
    }

private:
    static bool SameLetters(std::string_view a, std::string_view b)
    {
        for (std::size_t i = 0; i < a.size(); ++i) {
            char x = a[i];
            char y = b[i];
            if (x != y && (x | 0x20) != (y | 0x20))
                return false;
            if (x != y && !((x | 0x20) >= 'a' && (x | 0x20) <= 'z'))
                return false;
        }
        return true;
    }

    std::vector<std::string> m_names;
};

const TagSet& EmptyTags()
{
    // The second group is void for the HTML parser as well: an end tag for it
    // would only be dropped when the page is read again.
    static const TagSet set("AREA,BASE,BASEFONT,BR,COL,FRAME,HR,IMG,INPUT,ISINDEX,LINK,META,PARAM,BGSOUND,"
                            "EMBED,KEYGEN,SOURCE,TRACK,WBR");
    return set;
}

const TagSet& BlockTags()
{
    static const TagSet set("HTML,BODY,HEAD,UL,OL,DIR,MENU,DL,DIV,TABLE,TBODY,TR,SELECT,STYLE,FORM,NOFRAMES,SCRIPT,OPTGROUP");
    return set;
}

const TagSet& TightCloseTags()
{
    static const TagSet set("TITLE,P,A");
    return set;
}

const TagSet& RawTextTags()
{
    // The HTML parser decodes no entity inside the second group either, so
    // their text must go out as it is or each save would encode it once more.
    static const TagSet set("COMMENT,NOFRAMES,SCRIPT,STYLE,XMP,IFRAME,NOEMBED,PLAINTEXT");
    return set;
}

// Empty elements that show no text, so that a blank between the last of them
// and the parent's end tag is not seen (the areas of an image map).
const TagSet& TextlessEmptyTags()
{
    static const TagSet set("AREA,BASE,BASEFONT,BGSOUND,COL,FRAME,LINK,META,PARAM");
    return set;
}

// Elements whose content the parser keeps as one text rather than as nodes:
// they are written through their text, as elements without children.
const TagSet& TextOnlyTags()
{
    static const TagSet set("SCRIPT,STYLE,TITLE,TEXTAREA,XMP,IFRAME,NOEMBED,NOFRAMES,PLAINTEXT");
    return set;
}

// Pre-formatted elements keep their content byte for byte: the line and
// indent rules would add to their text at every save.
const TagSet& VerbatimTags()
{
    static const TagSet set("PRE,LISTING");
    return set;
}

bool IsHtmlElement(const HtmlNode& node)
{
    const HtmlElement* element = node.asElement();
    return element && element->elementNamespace() == HtmlNamespace::Html;
}

bool IsHtmlElementIn(const HtmlNode& node, const TagSet& set)
{
    return IsHtmlElement(node) && set.Contains(node.asElement()->tagName());
}

// The parser drops a line break right behind the start tag of these, so a
// text that begins with one needs another in front.
bool DropsLeadingLineBreak(const HtmlElement& element)
{
    const HtmlNode* first = element.firstChild();
    return IsHtmlElementIn(element, VerbatimTags()) && first && first->isText()
        && static_cast<const HtmlText*>(first)->data().starts_with('\n');
}

bool IsWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

std::string WithCrLf(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            out += '\r';
        out += text[i];
    }
    return out;
}

// Runs of white space as one blank: the browser document that these rules
// were made for held text that way, and the line rules rely on it (else the
// line breaks they add would come back as text on the next save).
std::string CollapseWhiteSpace(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    bool blank = false;
    for (char c : text) {
        if (IsWhiteSpace(c)) {
            blank = true;
            continue;
        }
        if (blank)
            out += ' ';
        blank = false;
        out += c;
    }
    if (blank)
        out += ' ';
    return out;
}

// BR and A stay on the running line after text; every other element and a
// comment start a new one.
bool StartsLine(const HtmlNode* node)
{
    if (!node)
        return false;
    if (node->nodeType() == HtmlNodeType::Comment)
        return true;
    const HtmlElement* element = node->asElement();
    return element && !(element->is("br") || element->is("a"));
}

bool IsBrOrA(std::string_view name)
{
    return AsciiEqualsNoCase(name, "BR") || AsciiEqualsNoCase(name, "A");
}

std::string Indent(int level)
{
    return std::string(static_cast<std::size_t>(std::max(level - 1, 0)) * 2, ' ');
}

// The raw text of an element that the parser keeps as text.
std::string TextOfTextOnlyElement(const HtmlElement& element)
{
    std::string text;
    for (const auto& child : element.childNodes())
        if (child->isText())
            text += static_cast<const HtmlText&>(*child).data();
    return text;
}

// The start tag of an element as the document writes it.
std::string StartTagHtml(const HtmlElement& element)
{
    std::string tag = "<" + element.tagName();
    for (const HtmlAttribute& attribute : element.attributes())
        tag += " " + attribute.name + "=\"" + EscapeHtmlAttribute(attribute.value) + "\"";
    return tag + ">";
}

// The value of a declaration ("width") in an inline style, or "".
std::string StyleDeclaration(std::string_view style, std::string_view property)
{
    for (const std::string& declaration : Split(style, ";")) {
        std::size_t colon = declaration.find(':');
        if (colon == std::string::npos)
            continue;
        if (AsciiEqualsNoCase(TrimWhitespace(declaration.substr(0, colon)), property))
            return TrimWhitespace(declaration.substr(colon + 1));
    }
    return {};
}

std::string DoctypeText(const HtmlDoctype& doctype)
{
    std::string text = "<!DOCTYPE " + ToUpper(doctype.name());
    if (!doctype.publicId().empty()) {
        text += " PUBLIC \"" + doctype.publicId() + "\"";
        if (!doctype.systemId().empty())
            text += " \"" + doctype.systemId() + "\"";
    } else if (!doctype.systemId().empty()) {
        text += " SYSTEM \"" + doctype.systemId() + "\"";
    }
    return text + ">";
}

bool IsExcluded(std::string_view name, std::initializer_list<std::string_view> exclusions)
{
    return std::any_of(exclusions.begin(), exclusions.end(),
        [name](std::string_view excluded) { return AsciiEqualsNoCase(excluded, name); });
}

void TraceFailure(std::string_view procedure, const std::exception& error)
{
    TraceLog().addMessage("CHtmlStringFormatter." + std::string(procedure) + ": " + error.what(), true);
}

}  // namespace

// --- the page ---

void CHtmlStringFormatter::SetBaseFolder(std::string_view url)
{
    std::string folder = RemoveAll(url, "file:///");
    folder = RemoveAll(folder, "file://");
    folder = ReplaceAll(folder, "\\", "/");
    std::size_t slash = folder.rfind('/');
    folder = slash == std::string::npos ? std::string() : folder.substr(0, slash + 1);
    m_baseFolder = DecodeUrl(folder);
}

void CHtmlStringFormatter::SetFileName(std::string_view url)
{
    std::string location(url);
    if (StartsWithNoCase(location, "file:///"))
        location.erase(0, 8);
    else if (StartsWithNoCase(location, "file://"))
        location.erase(0, 7);
    std::size_t hash = location.find('#');
    if (hash != std::string::npos)
        location.resize(hash);
    // Decoded, as the links it is compared with are.
    m_fileName = DecodeUrl(FileNameOf(location));
}

void CHtmlStringFormatter::AddMetaElement(const HtmlElement& meta)
{
    std::string html = TrimWhitespace(meta.outerHTML());
    if (std::find(m_metaElements.begin(), m_metaElements.end(), html) == m_metaElements.end())
        m_metaElements.push_back(std::move(html));
}

// --- text rules ---

std::string CHtmlStringFormatter::EncodeText(std::string_view text)
{
    if (text.empty())
        return {};
    std::string out;
    out.reserve(text.size() + 16);
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        default:
            out += c;
        }
    }
    if (out.find("\xC2\xA0") != std::string::npos && !Trim(out).empty())
        out = ReplaceAll(out, "\xC2\xA0", "&nbsp;");
    return out;
}

std::string CHtmlStringFormatter::EncodeAttribute(std::string_view value)
{
    if (value.empty())
        return {};
    std::string out;
    out.reserve(value.size() + 16);
    for (char c : value) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string CHtmlStringFormatter::DecodeUrl(std::string_view url)
{
    std::string text = ReplaceAll(url, "\\", "/");
    static constexpr std::pair<std::string_view, std::string_view> kSteps[] = { { "%20", " " }, { "%23", "#" },
        { "%26", "&" }, { "%5E", "^" }, { "%5B", "[" }, { "%5D", "]" }, { "%7B", "{" }, { "%7D", "}" }, { "%25", "%" },
        { "&amp;", "&" } };
    for (const auto& [from, to] : kSteps)
        if (text.find(from) != std::string::npos)
            text = ReplaceAll(text, from, to);
    return text;
}

std::string CHtmlStringFormatter::MakeRelative(std::string_view value) const
{
    if (m_baseFolder.empty())
        return std::string(value);
    std::string copy = DecodeUrl(value);
    if (FindNoCase(copy, "file://") != std::string::npos) {
        copy = ReplaceAllNoCase(copy, "file:///", "");
        copy = ReplaceAllNoCase(copy, "file://", "");
    }
    if (!ContainsNoCase(copy, m_baseFolder))
        return std::string(value);
    copy = ReplaceAllNoCase(copy, m_baseFolder, "");
    if (copy.starts_with('/'))
        copy.erase(0, 1);
    // Only the page's own name: "page.html" is another page than "page.htm".
    if (!m_fileName.empty() && StartsWithNoCase(copy, m_fileName)
        && (copy.size() == m_fileName.size() || copy[m_fileName.size()] == '#'))
        copy.erase(0, m_fileName.size());
    return copy;
}

std::string CHtmlStringFormatter::NodeName(const HtmlNode& node)
{
    if (IsHtmlElement(node)) {
        std::string name = node.asElement()->tagName();
        for (char& c : name)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 32);
        return name;
    }
    return node.nodeName();
}

bool CHtmlStringFormatter::WalksChildren(const HtmlNode& node)
{
    return !IsHtmlElementIn(node, TextOnlyTags());
}

bool CHtmlStringFormatter::IsBrowserHelpScript(const HtmlNode& node)
{
    const HtmlElement* element = node.asElement();
    return element && element->is("script") && EqualsNoCase(element->id(), "wbh");
}

// --- writing nodes ---

CHtmlStringFormatter::Chunk CHtmlStringFormatter::AddChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node)
{
    return AddChunk(builder, level, node, { node.previousSibling(), node.nextSibling() });
}

CHtmlStringFormatter::Chunk CHtmlStringFormatter::AddChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node,
    Siblings siblings)
{
    std::string indent = Indent(level);
    switch (node.nodeType()) {
    case HtmlNodeType::Text:
        WriteText(builder, indent, static_cast<const HtmlText&>(node), siblings);
        return Chunk::Whole;
    case HtmlNodeType::Comment:
        builder.AddString(indent + "<!--" + WithCrLf(static_cast<const HtmlComment&>(node).data()) + "-->", true);
        m_lastNodeName = "#comment";
        return Chunk::Whole;
    case HtmlNodeType::Doctype:
        // The browser document held the doctype as a comment node.
        builder.AddString(indent + DoctypeText(static_cast<const HtmlDoctype&>(node)), true);
        m_lastNodeName = "#comment";
        return Chunk::Whole;
    case HtmlNodeType::Element:
        return WriteElement(builder, level, *node.asElement());
    case HtmlNodeType::Document:
        return Chunk::Open;
    }
    return Chunk::Whole;
}

void CHtmlStringFormatter::WriteText(CHtmlStringBuilder& builder, const std::string& indent, const HtmlText& node,
    Siblings siblings)
{
    std::string text = CollapseWhiteSpace(node.data());
    const HtmlNode* next = siblings.next;
    const HtmlNode* parent = node.parentNode();
    bool closesBlock = !next && parent && IsHtmlElementIn(*parent, BlockTags());
    bool blankOnly = text == " ";
    bool afterHiddenElement = blankOnly && !next && siblings.previous
        && IsHtmlElementIn(*siblings.previous, TextlessEmptyTags());
    // BR and A start a line of their own after a block or a comment.
    bool beforeLineOfItsOwn = blankOnly && next && (m_lastNodeName == "#comment" || BlockTags().Contains(m_lastNodeName));
    // Blanks in front of a line break are the line break's: dropping them keeps
    // the next save from finding them again.
    if (!text.empty() && text.back() == ' '
        && (StartsLine(next) || closesBlock || afterHiddenElement || beforeLineOfItsOwn))
        text.pop_back();
    if (builder.LastTokenIsCrLf()) {
        if (!text.empty() && text.front() == ' ')
            text.erase(0, 1);
        if (text.empty())
            return;
        builder.AddString(indent);
    }
    if (text.empty())
        return;
    builder.AddString(EncodeText(text));
    m_lastNodeName = "#text";
}

CHtmlStringFormatter::Chunk CHtmlStringFormatter::WriteElement(CHtmlStringBuilder& builder, int level,
    const HtmlElement& element)
{
    std::string indent = Indent(level);
    std::string childIndent = Indent(level + 1);
    std::string name = NodeName(element);

    if (element.is("form")) {
        std::vector<HtmlElement*> inputs = element.getElementsByTagName("input");
        if (inputs.size() == 1 && EqualsNoCase(inputs.front()->getAttribute("name"), "isindex")) {
            WriteIsIndex(builder, indent, element, *inputs.front());
            return Chunk::Whole;
        }
    }

    WriteOpenTag(builder, indent, name);
    m_lastNodeName = name;
    WriteAttributes(builder, childIndent, element, {});
    builder.AddString(">");

    if (IsHtmlElementIn(element, VerbatimTags())) {
        if (DropsLeadingLineBreak(element))
            builder.AddString(kCrLf);
        for (const auto& child : element.childNodes())
            WriteVerbatim(builder, *child);
        m_closedNodeIds.insert(&element);
        builder.AddString("</" + name + ">");
        return Chunk::Whole;
    }

    if (BlockTags().Contains(name)) {
        builder.RemoveTrailingVbCrLf();
        builder.AddString(kCrLf);
    }
    if (!WalksChildren(element) || !element.hasChildNodes()) {
        WriteInnerHtml(builder, childIndent, element);
        addClosedChunk(builder, level, element);
    }
    return Chunk::Open;
}

void CHtmlStringFormatter::WriteIsIndex(CHtmlStringBuilder& builder, const std::string& indent, const HtmlElement& form,
    const HtmlElement& input)
{
    // The parser turns <ISINDEX> into a form with rules, a label and the
    // input; the whole form stands for the one tag.
    std::string prompt = TrimWhitespace(RemoveAll(RemoveAll(form.innerText(), "\r"), "\n"));
    builder.AddString("<ISINDEX PROMPT=\"" + EncodeAttribute(prompt) + "\"");
    WriteAttributes(builder, indent, input, { "name", "type" });
    builder.AddString(">");
    m_closedNodeIds.insert(&form);
}

void CHtmlStringFormatter::WriteOpenTag(CHtmlStringBuilder& builder, const std::string& indent, const std::string& name)
{
    if (IsBrOrA(name) && m_lastNodeName != "#comment" && !BlockTags().Contains(m_lastNodeName)) {
        if (builder.LastTokenIsCrLf())
            builder.RemoveTrailingVbCrLf();
        builder.AddString("<" + name);
        return;
    }
    if (builder.CurrentLen() > 0) {
        builder.RemoveTrailingVbCrLf();
        builder.AddString(kCrLf);
    }
    builder.AddString(indent + "<" + name);
}

void CHtmlStringFormatter::addClosedChunk(CHtmlStringBuilder& builder, int level, const HtmlNode& node)
{
    // An element of a tag HTML does not know holds its content here, where the
    // browser document had an empty element and a separate "/name" node that
    // wrote the end tag; so unknown elements close here like the others.
    if (node.isElement())
        WriteCloseTag(builder, Indent(level), node);
}

void CHtmlStringFormatter::WriteCloseTag(CHtmlStringBuilder& builder, const std::string& indent, const HtmlNode& node)
{
    if (!m_closedNodeIds.insert(&node).second)
        return;
    std::string name = NodeName(node);
    if (EmptyTags().Contains(name))
        return;
    if (TightCloseTags().Contains(name)) {
        builder.AddString("</" + name + ">");
    } else if (BlockTags().Contains(name)) {
        builder.RemoveTrailingVbCrLf();
        builder.AddString(std::string(kCrLf) + indent + "</" + name + ">");
    } else {
        if (builder.LastTokenIsCrLf())
            builder.AddString(indent);
        builder.AddString("</" + name + ">");
    }
    // An element that follows an end tag goes by that end tag: BR after
    // </TABLE> starts a line, BR after </SPAN> does not.
    m_lastNodeName = name;
}

void CHtmlStringFormatter::WriteAttributes(CHtmlStringBuilder& builder, const std::string& indent,
    const HtmlElement& element, std::initializer_list<std::string_view> exclusions)
{
    try {
        if (UseSourceAttributes)
            WriteSourceAttributes(builder, indent, element, exclusions);
        else
            WriteDocumentAttributes(builder, indent, element, exclusions);
    } catch (const std::exception& error) {
        TraceFailure("WriteAttributes", error);
    }
}

// The attribute list of the program's document holds exactly what the page
// says: no attribute is invented (so "specified" holds for each, and values of
// value, selected, type and the onload family need no check against the
// markup), and no event handler is hidden.
void CHtmlStringFormatter::WriteDocumentAttributes(CHtmlStringBuilder& builder, const std::string& indent,
    const HtmlElement& element, std::initializer_list<std::string_view> exclusions)
{
    for (const HtmlAttribute& attribute : element.attributes()) {
        const std::string& name = attribute.name;
        if (IsExcluded(name, exclusions) || name.starts_with('<'))
            continue;
        std::string prefix = builder.LastTokenIsCrLf() ? indent : std::string();
        std::string value = attribute.value;
        if (AsciiEqualsNoCase(name, "nohref")) {
            if (value == "true")
                value = "-1";
        } else if (AsciiEqualsNoCase(name, "href") || AsciiEqualsNoCase(name, "src")) {
            if (!element.is("base"))
                value = MakeRelative(value);
        } else if ((AsciiEqualsNoCase(name, "width") || AsciiEqualsNoCase(name, "height")) && element.is("img")
            && value == "0") {
            // Without layout, the size the element's own style gives stands in for the computed one.
            std::string styled = StyleDeclaration(element.getAttribute("style"), name);
            if (!styled.empty())
                value = styled;
        }
        builder.AddString(prefix + " " + name + "=\"" + EncodeAttribute(value) + "\"");
    }
}

void CHtmlStringFormatter::WriteSourceAttributes(CHtmlStringBuilder& builder, const std::string& indent,
    const HtmlElement& element, std::initializer_list<std::string_view> exclusions)
{
    CHtmlNodeAttributes reader;
    reader.SetBaseFolder(m_baseFolder);
    for (const CHtmlAttribute& attribute : reader.GetNodeAttributes(StartTagHtml(element))) {
        if (IsExcluded(attribute.Name, exclusions))
            continue;
        std::string prefix = builder.LastTokenIsCrLf() ? indent : std::string();
        builder.AddString(prefix + " " + attribute.Name + "=\"" + attribute.Value + "\"");
    }
}

void CHtmlStringFormatter::WriteInnerHtml(CHtmlStringBuilder& builder, const std::string& indent,
    const HtmlElement& element)
{
    std::string inner = IsHtmlElementIn(element, TextOnlyTags()) ? TextOfTextOnlyElement(element) : std::string();
    if (inner.empty())
        return;
    std::string text = CHtmlStringBuilder::formatString(inner, indent);
    bool startsWithBreak = text.starts_with(kCrLf);
    if (startsWithBreak)
        builder.RemoveTrailingVbCrLf();
    else if (builder.LastTokenIsCrLf() && !text.empty())
        // The line break behind a block's start tag becomes part of the text
        // when the page is read again; the first line is indented now as it
        // will be then.
        text = indent + text;
    if (!RawTextTags().Contains(NodeName(element)))
        text = EncodeText(text);
    builder.AddString(text);
}

void CHtmlStringFormatter::WriteVerbatim(CHtmlStringBuilder& builder, const HtmlNode& root)
{
    WalkHtmlTree(
        root,
        [&](const HtmlNode& node) {
            switch (node.nodeType()) {
            case HtmlNodeType::Text: {
                std::string text = WithCrLf(static_cast<const HtmlText&>(node).data());
                bool raw = node.parentNode() && IsHtmlElementIn(*node.parentNode(), RawTextTags());
                builder.AddString(raw ? text : ReplaceAll(EncodeText(text), "\xC2\xA0", "&nbsp;"));
                return false;
            }
            case HtmlNodeType::Comment:
                builder.AddString("<!--" + WithCrLf(static_cast<const HtmlComment&>(node).data()) + "-->");
                return false;
            case HtmlNodeType::Element: {
                const HtmlElement& element = *node.asElement();
                builder.AddString("<" + NodeName(element));
                WriteAttributes(builder, {}, element, {});
                builder.AddString(">");
                if (DropsLeadingLineBreak(element))
                    builder.AddString(kCrLf);
                return !element.isVoid();
            }
            default:
                return false;
            }
        },
        [&](const HtmlNode& node) {
            if (node.isElement() && !node.asElement()->isVoid() && !EmptyTags().Contains(NodeName(node)))
                builder.AddString("</" + NodeName(node) + ">");
        });
}

}  // namespace scriv
