#include "uidesc/CFormHTMLControlDef.h"

#include <optional>
#include <vector>

#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"

namespace scriv {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The inner text of the first <tag ...> ... </tag> of a fragment, or nothing.
std::optional<std::string_view> ElementInner(std::string_view html, std::string_view tag)
{
    std::string open = "<" + std::string(tag);
    std::size_t at = FindNoCase(html, open);
    while (at != std::string_view::npos) {
        std::size_t after = at + open.size();
        if (after < html.size() && (html[after] == '>' || IsBlank(html[after])))
            break;
        at = FindNoCase(html, open, after);
    }
    if (at == std::string_view::npos)
        return std::nullopt;
    std::size_t start = html.find('>', at);
    if (start == std::string_view::npos)
        return std::nullopt;
    ++start;
    std::size_t end = FindNoCase(html, "</" + std::string(tag) + ">", start);
    if (end == std::string_view::npos)
        return std::nullopt;
    return html.substr(start, end - start);
}

// The value of an attribute inside the text of one start tag, or nothing.
std::optional<std::string> TagAttribute(std::string_view tag, std::string_view name)
{
    std::size_t at = 0;
    while ((at = FindNoCase(tag, name, at)) != std::string_view::npos) {
        bool startsWord = at > 0 && IsBlank(tag[at - 1]);
        std::size_t i = at + name.size();
        at = i;
        if (!startsWord)
            continue;
        while (i < tag.size() && IsBlank(tag[i]))
            ++i;
        if (i >= tag.size() || tag[i] != '=')
            continue;
        ++i;
        while (i < tag.size() && IsBlank(tag[i]))
            ++i;
        if (i < tag.size() && (tag[i] == '"' || tag[i] == '\'')) {
            std::size_t close = tag.find(tag[i], i + 1);
            if (close == std::string_view::npos)
                close = tag.size();
            return std::string(tag.substr(i + 1, close - i - 1));
        }
        std::size_t end = i;
        while (end < tag.size() && !IsBlank(tag[end]) && tag[end] != '>')
            ++end;
        std::string value(tag.substr(i, end - i));
        while (!value.empty() && value.back() == '/')
            value.pop_back();
        return value;
    }
    return std::nullopt;
}

// The text of an anchor element: what stands between its start tag and "</a>".
std::string AnchorText(std::string_view html)
{
    std::size_t at = FindNoCase(html, "<a");
    if (at == std::string_view::npos)
        return {};
    std::size_t start = html.find('>', at);
    if (start == std::string_view::npos)
        return {};
    std::size_t end = FindNoCase(html, "</a>", start);
    return std::string(html.substr(start + 1, end == std::string_view::npos ? std::string_view::npos : end - start - 1));
}

}  // namespace

bool CFormHTMLControlDef::IsValid() const
{
    return !FormName.empty() && !ControlName.empty() && !BookmarkName.empty() && !TopicCaption.empty();
}

bool CFormHTMLControlDef::EqualTo(const CFormHTMLControlDef& other) const
{
    return FormName == other.FormName && ControlName == other.ControlName && BookmarkName == other.BookmarkName
        && TopicCaption == other.TopicCaption;
}

bool CFormHTMLControlDef::Fail(std::string text, std::string source)
{
    m_error.SetErrInfo(status::kGeneralFailure, std::move(text), std::move(source));
    return false;
}

bool CFormHTMLControlDef::ParseXML(const pugi::xml_node& item)
{
    m_error.Clear();
    if (!item || item.type() != pugi::node_element)
        return Fail("No definition element", "CFormHTMLControlDef.ParseXML");
    ControlName = item.attribute("Name").value();
    BookmarkName = item.attribute("Bmk").value();
    TopicCaption = item.attribute("Caption").value();
    IsMenu = EqualsNoCase(item.attribute("IsMenu").value(), "True");
    return true;
}

bool CFormHTMLControlDef::ParseHTML(std::string_view block)
{
    m_error.Clear();
    std::string text = RemoveAll(RemoveAll(block, "\r"), "\n");
    std::size_t close = text.find("-->");
    if (close == std::string::npos)
        return Fail("Unterminated marker", "CFormHTMLControlDef.ParseHTML");
    std::vector<std::string> names;
    std::string marker = text.substr(0, close);
    for (char& c : marker)
        if (c == '[' || c == ']')
            c = ' ';
    for (const std::string& part : Split(marker, " "))
        if (part.find_first_not_of("+-.") != std::string::npos)
            names.push_back(part);
    FormName = names.size() > 0 ? names[0] : std::string();
    ControlName = names.size() > 1 ? names[1] : std::string();
    std::string_view rest = std::string_view(text).substr(close + 3);
    std::string anchor = AnchorName(rest);
    if (anchor.empty())
        return Fail("No bookmark behind the marker", "CFormHTMLControlDef.ParseHTML");
    BookmarkName = BookmarkOfAnchor(anchor, FormName);
    auto heading = ElementInner(rest, "h2");
    TopicCaption = heading ? PlainText(*heading) : std::string();
    return true;
}

bool CFormHTMLControlDef::ParseHTML1(std::string_view block, std::string_view pageFormName)
{
    m_error.Clear();
    std::string anchor = AnchorName(block);
    if (anchor.empty())
        return Fail("No bookmark in the block", "CFormHTMLControlDef.ParseHTML1");
    BookmarkName = BookmarkOfAnchor(anchor, pageFormName);
    ControlName = BookmarkName;
    if (!pageFormName.empty()) {
        FormName = pageFormName;
    } else {
        std::size_t cut = anchor.size() - BookmarkName.size();
        FormName = cut > 0 ? anchor.substr(0, cut - 1) : std::string();
    }
    auto heading = ElementInner(block, "h2");
    TopicCaption = PlainText(heading ? *heading : std::string_view(AnchorText(block)));
    return true;
}

bool CFormHTMLControlDef::ParseHTML2(std::string_view block, std::string_view pageFormName)
{
    if (!ParseHTML1(block, pageFormName)) {
        m_error.SetErrInfo(m_error.ErrorCode(), m_error.Reason(), "CFormHTMLControlDef.ParseHTML2");
        return false;
    }
    TopicCaption = PlainText(block);
    return true;
}

std::string CFormHTMLControlDef::XMLSTr() const
{
    std::string text = "<Item  Name=\"" + XmlEncodeChars(ControlName) + "\" Bmk=\"" + XmlEncodeChars(BookmarkName)
        + "\" Caption=\"" + XmlEncodeChars(TopicCaption) + "\" ";
    if (IsMenu)
        text += "IsMenu = \"True\" ";
    return text + " />";
}

std::string CFormHTMLControlDef::AnchorName(std::string_view html)
{
    std::size_t at = 0;
    while ((at = FindNoCase(html, "<a", at)) != std::string_view::npos) {
        std::size_t after = at + 2;
        at = after;
        if (after >= html.size() || !IsBlank(html[after]))
            continue;
        std::size_t end = html.find('>', after);
        std::string_view tag = html.substr(after - 1, end == std::string_view::npos ? std::string_view::npos : end - after + 1);
        auto name = TagAttribute(tag, "name");
        if (name && !name->empty())
            return *name;
    }
    return {};
}

std::string CFormHTMLControlDef::BookmarkOfAnchor(std::string_view anchor, std::string_view formName)
{
    if (!formName.empty()) {
        std::string prefix = std::string(formName) + "_";
        std::size_t at = 0;
        while ((at = FindNoCase(anchor, prefix, at)) != std::string_view::npos) {
            if ((at == 0 || anchor[at - 1] == '_') && at + prefix.size() < anchor.size())
                return std::string(anchor.substr(at + prefix.size()));
            ++at;
        }
    }
    std::size_t underscore = anchor.find('_');
    if (underscore == std::string_view::npos || underscore + 1 == anchor.size())
        return std::string(anchor);
    return std::string(anchor.substr(underscore + 1));
}

std::string CFormHTMLControlDef::PlainText(std::string_view html)
{
    std::string text;
    bool inTag = false;
    for (char c : html) {
        if (c == '<')
            inTag = true;
        else if (c == '>' && inTag)
            inTag = false;
        else if (!inTag)
            text += c;
    }
    text = DecodeHtmlChars(text);
    std::string collapsed;
    for (char c : text) {
        bool blank = IsBlank(c);
        if (blank && (collapsed.empty() || collapsed.back() == ' '))
            continue;
        collapsed += blank ? ' ' : c;
    }
    return Trim(collapsed);
}

}  // namespace scriv
