#include "foundation/TextEncoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

#include "foundation/CSpecialChars.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Letters of any script and the harmless ASCII characters pass as they are.
bool PassesUnchanged(char32_t c)
{
    if (c >= 128)
        return IsAlphabetic(c);
    switch (c) {
    case 32: case 33: case 35: case 36: case 37:
    case 40: case 41: case 42: case 43: case 44: case 46:
    case 59: case 61: case 93: case 95:
        return true;
    default:
        return (c >= 48 && c <= 58) || (c >= 63 && c <= 91) || (c >= 97 && c <= 125);
    }
}

std::string NumericReference(char32_t c)
{
    return "&#" + std::to_string(static_cast<std::uint32_t>(c)) + ";";
}

// Writes what an "&" at position at stands for and answers the position after
// what it consumed.
std::size_t EncodeAmpersand(const std::u32string& text, std::size_t at, std::string& out)
{
    // No key of the table is longer, so a farther ";" cannot end an entity;
    // this also keeps the walk linear.
    std::size_t limit = std::min(text.size(), at + CSpecialChars::LongestKey());
    std::size_t semicolon = at + 1;
    while (semicolon < limit && text[semicolon] != U';')
        ++semicolon;
    if (semicolon < limit) {
        std::string candidate = Utf32ToUtf8(std::u32string_view(text).substr(at, semicolon - at + 1));
        if (std::string numeric = SpecialChars().GetNumCode(candidate); !numeric.empty()) {
            out += numeric;
            return semicolon + 1;
        }
        if (!SpecialChars().GetCharCode(candidate).empty()) {
            out += '&';
            return at + 1;
        }
    }
    out += NumericReference(U'&');
    return at + 1;
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The character of a numeric reference starting at "&#" at position at, and
// the length of the reference; nothing when the text there is no valid reference.
std::optional<std::pair<char32_t, std::size_t>> ParseNumericReference(std::string_view text, std::size_t at)
{
    std::size_t pos = at + 2;
    bool hex = pos < text.size() && (text[pos] == 'x' || text[pos] == 'X');
    if (hex)
        ++pos;
    std::size_t digitsStart = pos;
    std::uint32_t value = 0;
    while (pos < text.size() && (hex ? IsHexDigit(text[pos]) : IsDigit(text[pos]))) {
        if (pos - digitsStart >= 8)
            return std::nullopt;
        char c = text[pos];
        std::uint32_t digit = IsDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10;
        value = value * (hex ? 16 : 10) + digit;
        ++pos;
    }
    if (pos == digitsStart || pos >= text.size() || text[pos] != ';')
        return std::nullopt;
    bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value == 0 || value > 0x10FFFF || surrogate)
        return std::nullopt;
    return std::pair { static_cast<char32_t>(value), pos + 1 - at };
}

std::string DecodeNumericReferences(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t found = text.find("&#", pos);
        if (found == std::string_view::npos) {
            out.append(text.substr(pos));
            break;
        }
        out.append(text.substr(pos, found - pos));
        if (auto reference = ParseNumericReference(text, found)) {
            out += CodePointToUtf8(reference->first);
            pos = found + reference->second;
        } else {
            out += "&#";
            pos = found + 2;
        }
    }
    return out;
}

// Applied one after the other, in this order.
constexpr std::array<std::pair<std::string_view, std::string_view>, 17> kNamedEntities { {
    { "&amp;", "&" },
    { "&lt;", "<" },
    { "&gt;", ">" },
    { "&lsquo;", "\u2018" },
    { "&rsquo;", "\u2019" },
    { "&ldquo;", "\u201C" },
    { "&rdquo;", "\u201D" },
    { "&sbquo;", "\u201A" },
    { "&bdquo;", "\u201E" },
    { "&quot;", "\"" },
    { "&#39;", "'" },
    { "&trade;", "\u2122" },
    { "&ndash;", "\u2013" },
    { "&mdash;", "\u2014" },
    { "&copy;", "\u00A9" },
    { "&reg;", "\u00AE" },
    { "&circ;", "\u20AC" },
} };

}  // namespace

std::string XmlEncodeChars(std::string_view text)
{
    std::u32string chars = Utf8ToUtf32(text);
    std::string out;
    out.reserve(text.size() + text.size() / 4);
    std::size_t pos = 0;
    while (pos < chars.size()) {
        char32_t c = chars[pos];
        if (c == U'&') {
            pos = EncodeAmpersand(chars, pos, out);
            continue;
        }
        out += PassesUnchanged(c) ? CodePointToUtf8(c) : NumericReference(c);
        ++pos;
    }
    return out;
}

std::string DecodeHtmlChars(std::string_view text)
{
    std::string result = DecodeNumericReferences(text);
    for (const auto& [entity, character] : kNamedEntities)
        result = ReplaceAll(result, entity, character);
    return result;
}

std::string DecodeHtmlEntities(std::string_view text)
{
    return DecodeHtmlChars(text);
}

std::string CaptionFilter(std::string_view text)
{
    return XmlEncodeChars(RemoveAll(DecodeHtmlChars(text), "\""));
}

}  // namespace scriv
