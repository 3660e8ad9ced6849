#include "foundation/StringUtil.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cwctype>
#include <locale.h>
#include <wctype.h>

namespace scriv {

namespace {

// Character classes come from C.UTF-8, whatever locale the process runs in.
locale_t Utf8Locale()
{
    static locale_t locale = [] {
        locale_t loc = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
        if (!loc)
            loc = newlocale(LC_CTYPE_MASK, "C", static_cast<locale_t>(nullptr));
        return loc;
    }();
    return locale;
}

char32_t FoldCase(char32_t c)
{
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? c + 32 : c;
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), Utf8Locale()));
}

char32_t RaiseCase(char32_t c)
{
    if (c < 0x80)
        return (c >= 'a' && c <= 'z') ? c - 32 : c;
    return static_cast<char32_t>(towupper_l(static_cast<wint_t>(c), Utf8Locale()));
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Decodes one UTF-8 sequence at pos; invalid bytes decode as themselves (Latin-1),
// so that no input is lost.
char32_t DecodeAt(std::string_view text, std::size_t& pos)
{
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char first = byte(pos);
    if (first < 0x80) {
        ++pos;
        return first;
    }
    int extra = 0;
    char32_t value = 0;
    if ((first & 0xE0) == 0xC0) {
        extra = 1;
        value = first & 0x1F;
    } else if ((first & 0xF0) == 0xE0) {
        extra = 2;
        value = first & 0x0F;
    } else if ((first & 0xF8) == 0xF0) {
        extra = 3;
        value = first & 0x07;
    } else {
        ++pos;
        return first;
    }
    if (pos + extra >= text.size()) {
        ++pos;
        return first;
    }
    for (int i = 1; i <= extra; ++i) {
        if ((byte(pos + i) & 0xC0) != 0x80) {
            ++pos;
            return first;
        }
        value = (value << 6) | (byte(pos + i) & 0x3F);
    }
    pos += extra + 1;
    return value;
}

template<typename Map>
std::string MapChars(std::string_view text, Map map)
{
    std::string result;
    result.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size())
        result += CodePointToUtf8(map(DecodeAt(text, pos)));
    return result;
}

}  // namespace

std::string CodePointToUtf8(char32_t c)
{
    std::string out;
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
    return out;
}

std::u32string Utf8ToUtf32(std::string_view text)
{
    std::u32string result;
    result.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size())
        result += DecodeAt(text, pos);
    return result;
}

std::string Utf32ToUtf8(std::u32string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (char32_t c : text)
        result += CodePointToUtf8(c);
    return result;
}

std::size_t CharCount(std::string_view text)
{
    std::size_t count = 0;
    std::size_t pos = 0;
    while (pos < text.size()) {
        DecodeAt(text, pos);
        ++count;
    }
    return count;
}

std::string LeftChars(std::string_view text, std::size_t count)
{
    std::size_t pos = 0;
    while (pos < text.size() && count > 0) {
        DecodeAt(text, pos);
        --count;
    }
    return std::string(text.substr(0, pos));
}

bool IsValidUtf8(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size()) {
        auto c = static_cast<unsigned char>(text[i]);
        int extra = c < 0x80 ? 0 : (c & 0xE0) == 0xC0 ? 1 : (c & 0xF0) == 0xE0 ? 2 : (c & 0xF8) == 0xF0 ? 3 : -1;
        if (extra < 0 || (extra == 1 && c < 0xC2))
            return false;
        if (i + extra >= text.size() && extra > 0)
            return false;
        for (int k = 1; k <= extra; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80)
                return false;
        i += extra + 1;
    }
    return true;
}

std::string ToLower(std::string_view text)
{
    if (IsAscii(text)) {
        std::string result(text);
        for (char& c : result)
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c + 32);
        return result;
    }
    return MapChars(text, FoldCase);
}

std::string ToUpper(std::string_view text)
{
    if (IsAscii(text)) {
        std::string result(text);
        for (char& c : result)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 32);
        return result;
    }
    return MapChars(text, RaiseCase);
}

int CompareNoCase(std::string_view a, std::string_view b)
{
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        char32_t ca = FoldCase(DecodeAt(a, i));
        char32_t cb = FoldCase(DecodeAt(b, j));
        if (ca != cb)
            return ca < cb ? -1 : 1;
    }
    if (i < a.size())
        return 1;
    if (j < b.size())
        return -1;
    return 0;
}

bool EqualsNoCase(std::string_view a, std::string_view b)
{
    // Names are mostly ASCII: up to the first other byte, characters pair up
    // one to one and fold as ASCII letters do, so a difference there is final.
    std::size_t i = 0;
    for (; i < a.size() && i < b.size(); ++i) {
        unsigned char ca = static_cast<unsigned char>(a[i]);
        unsigned char cb = static_cast<unsigned char>(b[i]);
        if (ca >= 0x80 || cb >= 0x80)
            return CompareNoCase(a.substr(i), b.substr(i)) == 0;
        if (ca == cb)
            continue;
        unsigned char lower = ca | 0x20;
        if (lower != (cb | 0x20) || lower < 'a' || lower > 'z')
            return false;
    }
    return a.size() == b.size();
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix)
{
    std::size_t i = 0, j = 0;
    while (j < prefix.size()) {
        if (i >= text.size())
            return false;
        if (FoldCase(DecodeAt(text, i)) != FoldCase(DecodeAt(prefix, j)))
            return false;
    }
    return true;
}

bool EndsWithNoCase(std::string_view text, std::string_view suffix)
{
    std::u32string a = Utf8ToUtf32(text);
    std::u32string b = Utf8ToUtf32(suffix);
    if (b.size() > a.size())
        return false;
    std::size_t offset = a.size() - b.size();
    for (std::size_t k = 0; k < b.size(); ++k)
        if (FoldCase(a[offset + k]) != FoldCase(b[k]))
            return false;
    return true;
}

std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t pos)
{
    if (what.empty())
        return pos <= text.size() ? pos : std::string_view::npos;
    if (IsAscii(what)) {
        // Fast path: ASCII needles match byte for byte after folding ASCII letters.
        auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; };
        for (std::size_t i = pos; i + what.size() <= text.size(); ++i) {
            std::size_t k = 0;
            while (k < what.size() && fold(text[i + k]) == fold(what[k]))
                ++k;
            if (k == what.size())
                return i;
        }
        return std::string_view::npos;
    }
    // General path: fold both, keeping a map from folded byte offsets back to the original.
    std::string folded;
    std::vector<std::size_t> origin;
    std::size_t i = 0;
    while (i < text.size()) {
        std::size_t start = i;
        std::string piece = CodePointToUtf8(FoldCase(DecodeAt(text, i)));
        for (std::size_t k = 0; k < piece.size(); ++k)
            origin.push_back(start);
        folded += piece;
    }
    origin.push_back(text.size());
    std::string foldedWhat = ToLower(what);
    std::size_t foldedPos = 0;
    while (foldedPos < origin.size() && origin[foldedPos] < pos)
        ++foldedPos;
    std::size_t found = folded.find(foldedWhat, foldedPos);
    return found == std::string::npos ? std::string_view::npos : origin[found];
}

bool ContainsNoCase(std::string_view text, std::string_view what)
{
    return FindNoCase(text, what) != std::string_view::npos;
}

bool IsAlphabetic(char32_t c)
{
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return iswalpha_l(static_cast<wint_t>(c), Utf8Locale()) != 0;
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t pos = 0;
    while (true) {
        std::size_t hit = text.find(find, pos);
        if (hit == std::string_view::npos)
            break;
        result.append(text.substr(pos, hit - pos));
        result.append(replacement);
        pos = hit + find.size();
    }
    result.append(text.substr(pos));
    return result;
}

std::string ReplaceAllNoCase(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t pos = 0;
    while (true) {
        std::size_t hit = FindNoCase(text, find, pos);
        if (hit == std::string_view::npos)
            break;
        result.append(text.substr(pos, hit - pos));
        result.append(replacement);
        // The match may differ in byte length from the needle only outside ASCII;
        // measure it on the original by character count.
        std::size_t length = LeftChars(text.substr(hit), CharCount(find)).size();
        pos = hit + std::max<std::size_t>(length, 1);
    }
    result.append(text.substr(pos));
    return result;
}

std::string ReplaceFirst(std::string_view text, std::string_view find, std::string_view replacement)
{
    std::size_t hit = find.empty() ? std::string_view::npos : text.find(find);
    if (hit == std::string_view::npos)
        return std::string(text);
    std::string result(text.substr(0, hit));
    result.append(replacement);
    result.append(text.substr(hit + find.size()));
    return result;
}

std::string RemoveAll(std::string_view text, std::string_view what)
{
    return ReplaceAll(text, what, "");
}

std::string TrimLeft(std::string_view text)
{
    std::size_t start = text.find_first_not_of(' ');
    return start == std::string_view::npos ? std::string() : std::string(text.substr(start));
}

std::string TrimRight(std::string_view text)
{
    std::size_t end = text.find_last_not_of(' ');
    return end == std::string_view::npos ? std::string() : std::string(text.substr(0, end + 1));
}

std::string Trim(std::string_view text)
{
    return TrimRight(TrimLeft(text));
}

std::string TrimWhitespace(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n\f\v";
    std::size_t start = text.find_first_not_of(blanks);
    if (start == std::string_view::npos)
        return {};
    std::size_t end = text.find_last_not_of(blanks);
    return std::string(text.substr(start, end - start + 1));
}

std::string StripLineEnds(std::string_view text)
{
    std::size_t end = text.size();
    while (end > 0 && (text[end - 1] == '\r' || text[end - 1] == '\n'))
        --end;
    return std::string(text.substr(0, end));
}

std::vector<std::string> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> parts;
    if (separator.empty()) {
        parts.emplace_back(text);
        return parts;
    }
    std::size_t pos = 0;
    while (true) {
        std::size_t hit = text.find(separator, pos);
        if (hit == std::string_view::npos) {
            parts.emplace_back(text.substr(pos));
            return parts;
        }
        parts.emplace_back(text.substr(pos, hit - pos));
        pos = hit + separator.size();
    }
}

std::vector<std::string> SplitLines(std::string_view text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            lines.emplace_back(text.substr(start, i - start));
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < text.size())
        lines.emplace_back(text.substr(start));
    return lines;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator)
{
    std::string result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            result.append(separator);
        result.append(parts[i]);
    }
    return result;
}

std::optional<std::int64_t> ParseInteger(std::string_view text)
{
    std::string trimmed = TrimWhitespace(text);
    if (trimmed.empty())
        return std::nullopt;
    std::string_view digits = trimmed;
    if (digits.front() == '+')
        digits.remove_prefix(1);
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

std::optional<double> ParseNumber(std::string_view text)
{
    std::string trimmed = TrimWhitespace(text);
    if (trimmed.empty())
        return std::nullopt;
    char* end = nullptr;
    double value = std::strtod(trimmed.c_str(), &end);
    if (end != trimmed.c_str() + trimmed.size())
        return std::nullopt;
    return value;
}

bool IsNumeric(std::string_view text)
{
    return ParseNumber(text).has_value();
}

std::int32_t ToInt(std::string_view text)
{
    std::string trimmed = TrimWhitespace(text);
    std::size_t i = 0;
    bool negative = false;
    if (i < trimmed.size() && (trimmed[i] == '-' || trimmed[i] == '+')) {
        negative = trimmed[i] == '-';
        ++i;
    }
    std::int64_t value = 0;
    while (i < trimmed.size() && trimmed[i] >= '0' && trimmed[i] <= '9') {
        value = value * 10 + (trimmed[i] - '0');
        if (value > 0x7FFFFFFFLL)
            break;
        ++i;
    }
    if (negative)
        value = -value;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

std::string TruncateForCaption(std::string_view text)
{
    if (CharCount(text) <= 32)
        return std::string(text);
    return LeftChars(text, 32) + "...";
}

}  // namespace scriv
