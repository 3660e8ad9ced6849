#include "htmldom/HtmlNames.h"

#include <algorithm>
#include <array>

namespace scriv {

namespace {

char AsciiLowerChar(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

template<std::size_t N>
bool InSet(const std::array<std::string_view, N>& set, std::string_view tagName)
{
    return std::any_of(set.begin(), set.end(), [tagName](std::string_view entry) { return AsciiEqualsNoCase(entry, tagName); });
}

constexpr std::array<std::string_view, 18> kVoidElements { "area", "base", "basefont", "bgsound", "br", "col", "embed",
    "frame", "hr", "img", "input", "keygen", "link", "meta", "param", "source", "track", "wbr" };

constexpr std::array<std::string_view, 7> kRawTextElements { "script", "style", "xmp", "iframe", "noembed", "noframes",
    "plaintext" };

}  // namespace

std::string AsciiLower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), AsciiLowerChar);
    return lower;
}

bool AsciiEqualsNoCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size()
        && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return AsciiLowerChar(x) == AsciiLowerChar(y); });
}

bool IsVoidElement(std::string_view tagName)
{
    return InSet(kVoidElements, tagName);
}

bool IsRawTextElement(std::string_view tagName)
{
    return InSet(kRawTextElements, tagName);
}

}  // namespace scriv
