#include "uidesc/CFormHTMLControlDefs.h"

#include <algorithm>
#include <cctype>

#include "foundation/CUTF8File.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

bool IsNameChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_';
}

// Position of a marker that is not the one of an image section, or npos.
std::size_t FindMarker(std::string_view html, std::string_view marker, std::size_t from)
{
    std::size_t at = html.find(marker, from);
    while (at != std::string_view::npos && html.substr(at + marker.size(), 5) == "IMAGE")
        at = html.find(marker, at + marker.size());
    return at;
}

struct HeadingBlock {
    std::size_t position;
    std::string_view inner;
};

// Every <tag ...> ... </tag> of the page for each tag, in page order.
std::vector<HeadingBlock> HeadingBlocks(std::string_view html, const std::vector<std::string>& tags)
{
    std::vector<HeadingBlock> blocks;
    for (const std::string& given : tags) {
        std::string tag = Trim(RemoveAll(RemoveAll(given, "<"), ">"));
        if (tag.empty())
            continue;
        std::string open = "<" + tag;
        std::string close = "</" + tag + ">";
        std::size_t at = 0;
        while ((at = FindNoCase(html, open, at)) != std::string_view::npos) {
            std::size_t after = at + open.size();
            if (after >= html.size() || IsNameChar(html[after]) || html[after] == ':') {
                at = after;
                continue;
            }
            std::size_t start = html.find('>', after);
            if (start == std::string_view::npos)
                break;
            std::size_t end = FindNoCase(html, close, start);
            if (end == std::string_view::npos)
                break;
            blocks.push_back({ at, html.substr(start + 1, end - start - 1) });
            at = end + close.size();
        }
    }
    std::sort(blocks.begin(), blocks.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
    return blocks;
}

}  // namespace

void CFormHTMLControlDefs::Clear()
{
    m_controls.Clear();
    m_menus.Clear();
    m_formName.clear();
    m_excludeList.clear();
    m_version = { 2, 0, 1, 1 };
    m_hasVersion = false;
}

bool CFormHTMLControlDefs::Parse(std::string_view htmlFileFullPath, const std::vector<std::string>& beginTags)
{
    Clear();
    CUTF8FileReader reader;
    if (reader.LoadFile(htmlFileFullPath) != 0)
        return false;
    ParseText(reader.Text(), beginTags);
    return true;
}

void CFormHTMLControlDefs::ParseText(std::string_view html, const std::vector<std::string>& beginTags)
{
    Clear();
    ReadMetaValues(html);
    const auto& [major, minor, build, revision] = m_version;
    if (!m_hasVersion || (major == 2 && minor == 0 && build == 0)) {
        ParseCommentMarkers(html);
    } else if (major == 2 && minor == 1 && build == 0 && revision < 49) {
        Parse1(html);
    } else if (!Parse2(html, beginTags)) {
        Parse1(html);
    }
}

void CFormHTMLControlDefs::ReadMetaValues(std::string_view html)
{
    auto meta = [html](std::string_view newer, std::string_view older) {
        std::string value = MetaValue(html, newer);
        return value.empty() ? MetaValue(html, older) : value;
    };
    m_formName = meta("HTML-SCRIVANT-FORM-NAME", "SCRIVANT-FORM-NAME");
    for (const std::string& entry : Split(meta("HTML-SCRIVANT-TOC-EXCLUDE-LIST", "SCRIVANT-TOC-EXCLUDE-LIST"), "|")) {
        std::string trimmed = Trim(entry);
        if (!trimmed.empty())
            m_excludeList.push_back(trimmed);
    }
    std::string version = Trim(meta("HTML-SCRIVANT-VERSION", "SCRIVANT-VERSION"));
    if (version.empty())
        return;
    m_hasVersion = true;
    // Some generators wrote a word after the number ("2.1.0.48 beta").
    std::size_t blank = version.find(' ');
    if (blank != std::string::npos)
        version.resize(blank);
    std::vector<std::string> parts = Split(version, ".");
    for (std::size_t i = 0; i < parts.size() && i < m_version.size(); ++i)
        m_version[i] = ToInt(parts[i]);
}

std::string CFormHTMLControlDefs::MetaValue(std::string_view html, std::string_view key)
{
    std::size_t at = 0;
    while ((at = FindNoCase(html, key, at)) != std::string_view::npos) {
        std::size_t after = at + key.size();
        bool whole = (at == 0 || !IsNameChar(html[at - 1])) && (after >= html.size() || !IsNameChar(html[after]));
        at = after;
        if (!whole)
            continue;
        std::size_t i = after;
        if (i < html.size() && (html[i] == '"' || html[i] == '\''))
            ++i;
        for (; i < html.size(); ++i) {
            char c = html[i];
            if (c == '>' || c == '/')
                return {};
            if (c != '=')
                continue;
            std::size_t open = html.find('"', i + 1);
            std::size_t tagEnd = html.find('>', i + 1);
            if (open == std::string_view::npos || open > tagEnd)
                return {};
            std::size_t close = html.find('"', open + 1);
            if (close == std::string_view::npos)
                return {};
            return std::string(html.substr(open + 1, close - open - 1));
        }
        return {};
    }
    return {};
}

bool CFormHTMLControlDefs::IsExcluded(const CFormHTMLControlDef& definition) const
{
    std::string anchor = definition.FormName + "_" + definition.BookmarkName;
    return std::any_of(m_excludeList.begin(), m_excludeList.end(), [&](const std::string& entry) {
        return EqualsNoCase(entry, definition.BookmarkName) || EqualsNoCase(entry, anchor);
    });
}

bool CFormHTMLControlDefs::AddUnlessExcluded(Definitions& list, CFormHTMLControlDef definition)
{
    if (!definition.IsValid() || IsExcluded(definition) || list.Contains(definition.BookmarkName))
        return false;
    std::string key = definition.BookmarkName;
    return list.Add(std::move(key), std::move(definition));
}

bool CFormHTMLControlDefs::Parse1(std::string_view html)
{
    bool added = false;
    std::size_t at = 0;
    while ((at = FindNoCase(html, "<a", at)) != std::string_view::npos) {
        std::size_t tagEnd = html.find('>', at);
        if (tagEnd == std::string_view::npos)
            break;
        std::string_view tag = html.substr(at, tagEnd - at + 1);
        if (CFormHTMLControlDef::AnchorName(tag).empty()) {
            at += 2;
            continue;
        }
        std::size_t close = FindNoCase(html, "</a>", tagEnd);
        std::size_t end = close == std::string_view::npos ? html.size() : close + 4;
        CFormHTMLControlDef definition;
        if (definition.ParseHTML1(html.substr(at, end - at), m_formName))
            added |= AddUnlessExcluded(m_controls, std::move(definition));
        at = end;
    }
    return added;
}

bool CFormHTMLControlDefs::Parse2(std::string_view html, const std::vector<std::string>& beginTags)
{
    bool added = false;
    bool inMenus = false;
    for (const HeadingBlock& block : HeadingBlocks(html, beginTags.empty() ? std::vector<std::string> { "H2" } : beginTags)) {
        std::string heading = CFormHTMLControlDef::PlainText(block.inner);
        if (EqualsNoCase(heading, "Menus:") || EqualsNoCase(heading, "Controls:")) {
            inMenus = EqualsNoCase(heading, "Menus:");
            continue;
        }
        CFormHTMLControlDef definition;
        if (!definition.ParseHTML2(block.inner, m_formName))
            continue;
        definition.IsMenu = inMenus;
        added |= AddUnlessExcluded(inMenus ? m_menus : m_controls, std::move(definition));
    }
    return added;
}

void CFormHTMLControlDefs::ParseCommentMarkers(std::string_view html)
{
    ReadMarkedBlocks(html, "<!-- + CONTROL ", "<!-- - CONTROL ", false);
    ReadMarkedBlocks(html, "<!-- + MENU ", "<!-- - MENU ", true);
}

void CFormHTMLControlDefs::ReadMarkedBlocks(std::string_view html, std::string_view begin, std::string_view end, bool isMenu)
{
    std::size_t at = 0;
    while ((at = FindMarker(html, begin, at)) != std::string_view::npos) {
        std::size_t start = at + begin.size();
        std::size_t close = html.find("-->", start);
        if (close == std::string_view::npos)
            break;
        std::size_t stop = FindMarker(html, end, close);
        if (stop == std::string_view::npos)
            stop = html.size();
        CFormHTMLControlDef definition;
        if (definition.ParseHTML(html.substr(start, stop - start)) && definition.IsValid()) {
            definition.IsMenu = isMenu;
            Definitions& list = isMenu ? m_menus : m_controls;
            if (!list.Contains(definition.BookmarkName)) {
                std::string key = definition.BookmarkName;
                list.Add(std::move(key), std::move(definition));
            }
        }
        at = stop;
    }
}

}  // namespace scriv
