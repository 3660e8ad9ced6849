#include "htmledit/CHtmlNodeAttributes.h"

#include "foundation/StringUtil.h"
#include "htmledit/CHtmlStringFormatter.h"

namespace scriv {

namespace {

std::string NormalizedTagText(std::string_view outerHtml)
{
    std::string text = ReplaceAll(outerHtml, "\r\n", " ");
    text = ReplaceAll(text, "\n", " ");
    while (text.find("  ") != std::string::npos)
        text = ReplaceAll(text, "  ", " ");
    text = ReplaceAll(text, " =", "=");
    return ReplaceAll(text, "= ", "=");
}

std::string TrimQuotes(std::string value)
{
    for (char quote : { '"', '\'' }) {
        if (!value.empty() && value.front() == quote)
            value.erase(0, 1);
        if (!value.empty() && value.back() == quote)
            value.pop_back();
    }
    return value;
}

void AddFirst(std::vector<CHtmlAttribute>& attributes, std::string name, std::string value)
{
    for (const CHtmlAttribute& attribute : attributes)
        if (attribute.Name == name)
            return;
    attributes.push_back({ std::move(name), std::move(value) });
}

}  // namespace

std::string CHtmlNodeAttributes::RelativePath(const std::string& value) const
{
    std::string path = CHtmlStringFormatter::DecodeUrl(value);
    path = RemoveAll(path, "file:///");
    path = RemoveAll(path, "file://");
    if (!m_baseFolder.empty() && path.starts_with(m_baseFolder))
        path.erase(0, m_baseFolder.size());
    return path.empty() ? value : path;
}

std::vector<CHtmlAttribute> CHtmlNodeAttributes::GetNodeAttributes(std::string_view outerHtml) const
{
    std::vector<CHtmlAttribute> attributes;
    std::string text = NormalizedTagText(outerHtml);
    std::size_t open = text.find('<');
    if (open == std::string::npos)
        return attributes;
    bool inDouble = false;
    bool inSingle = false;
    auto toggle = [&](char c) {
        if (c == '"' && !inSingle)
            inDouble = !inDouble;
        else if (c == '\'' && !inDouble)
            inSingle = !inSingle;
    };
    std::size_t i = open + 1;
    while (i < text.size()) {
        char c = text[i];
        toggle(c);
        bool outside = !inDouble && !inSingle;
        if (outside && c == '>')
            break;
        if (!(outside && c == '=')) {
            ++i;
            continue;
        }
        std::size_t blank = text.rfind(' ', i);
        std::size_t nameStart = (blank == std::string::npos || blank < open) ? open + 1 : blank + 1;
        std::string name = text.substr(nameStart, i - nameStart);
        std::size_t end = i + 1;
        while (end < text.size()) {
            char v = text[end];
            toggle(v);
            if (!inDouble && !inSingle && (v == ' ' || v == '>'))
                break;
            ++end;
        }
        std::string value = TrimQuotes(text.substr(i + 1, end - i - 1));
        if (name == "href" || name == "src")
            value = RelativePath(value);
        if (!name.empty())
            AddFirst(attributes, std::move(name), std::move(value));
        i = end;
    }
    return attributes;
}

}  // namespace scriv
