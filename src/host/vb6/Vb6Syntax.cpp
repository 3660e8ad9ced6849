#include "host/vb6/Vb6Syntax.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

bool IsAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t SkipBlanks(std::string_view text, std::size_t pos)
{
    while (pos < text.size() && IsVb6Blank(text[pos]))
        ++pos;
    return pos;
}

// The word at pos: up to a blank, or up to "=" when stopAtEquals.
std::string_view WordAt(std::string_view text, std::size_t pos, bool stopAtEquals)
{
    std::size_t end = pos;
    while (end < text.size() && !IsVb6Blank(text[end]) && !(stopAtEquals && text[end] == '='))
        ++end;
    return text.substr(pos, end - pos);
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsValidPropertyName(std::string_view name)
{
    if (name.empty() || name.front() == '\'')
        return false;
    return std::none_of(name.begin(), name.end(), [](char c) { return IsVb6Blank(c) || c == '"'; });
}

// Letters, digits and "_", starting with a letter; bytes of the code page's
// letters (0x80 and up) count as letters.
bool IsIdentifier(std::string_view word)
{
    auto isLetter = [](unsigned char c) { return std::isalpha(c) || c >= 0x80; };
    if (word.empty() || !isLetter(static_cast<unsigned char>(word.front())))
        return false;
    return std::all_of(word.begin(), word.end(),
        [&](char c) { return isLetter(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c)) || c == '_'; });
}

// "VB.CommandButton", "MSComctlLib.Toolbar", or a class id "{...}".
bool IsTypeName(std::string_view type)
{
    if (type.size() > 2 && type.front() == '{' && type.back() == '}')
        return true;
    for (std::size_t start = 0;;) {
        std::size_t dot = type.find('.', start);
        if (!IsIdentifier(type.substr(start, dot - start)))
            return false;
        if (dot == std::string_view::npos)
            return true;
        start = dot + 1;
    }
}

// The words after a keyword: up to maxWords of them; false when more follow.
bool ReadWords(std::string_view raw, std::size_t pos, std::vector<std::string_view>& words, std::size_t maxWords)
{
    for (pos = SkipBlanks(raw, pos); pos < raw.size(); pos = SkipBlanks(raw, pos)) {
        if (words.size() == maxWords)
            return false;
        words.push_back(WordAt(raw, pos, false));
        pos += words.back().size();
    }
    return true;
}

std::optional<Vb6Line> ReadBlockLine(std::string_view raw, std::size_t pos, Vb6Line::Kind kind, std::string& fault)
{
    Vb6Line line;
    line.kind = kind;
    std::vector<std::string_view> words;
    switch (kind) {
    case Vb6Line::Kind::Begin:
        if (!ReadWords(raw, pos, words, 2) || words.size() != 2) {
            fault = "a Begin line needs a type and a name";
            return std::nullopt;
        }
        if (!IsTypeName(words[0])) {
            fault = "'" + std::string(words[0]) + "' is no control type";
            return std::nullopt;
        }
        if (!IsIdentifier(words[1])) {
            fault = "'" + std::string(words[1]) + "' is no control name";
            return std::nullopt;
        }
        line.type = words[0];
        line.name = words[1];
        return line;
    case Vb6Line::Kind::BeginProperty:
        if (!ReadWords(raw, pos, words, 2) || words.empty()) {
            fault = "a BeginProperty line needs a name and at most a class id";
            return std::nullopt;
        }
        line.name = words[0];
        line.guid = words.size() > 1 ? words[1] : std::string_view();
        return line;
    default:
        if (!ReadWords(raw, pos, words, 0)) {
            fault = "unexpected text after the end of a block";
            return std::nullopt;
        }
        return line;
    }
}

// A quoted value ("text", $"file.frx":0000 or "file.frx":0A2C) starting at pos;
// the position behind it, or npos with a fault.
std::size_t ScanQuotedValue(std::string_view raw, std::size_t pos, std::string& fault)
{
    if (raw[pos] == '$')
        ++pos;
    for (++pos;; ++pos) {
        if (pos >= raw.size()) {
            fault = "the string is not closed";
            return std::string_view::npos;
        }
        if (raw[pos] != '"')
            continue;
        if (pos + 1 < raw.size() && raw[pos + 1] == '"') {
            ++pos;
            continue;
        }
        ++pos;
        break;
    }
    if (pos < raw.size() && raw[pos] == ':') {
        std::size_t digits = ++pos;
        while (pos < raw.size() && IsHexDigit(raw[pos]))
            ++pos;
        if (pos == digits) {
            fault = "an .frx offset needs hexadecimal digits";
            return std::string_view::npos;
        }
    }
    return pos;
}

std::optional<Vb6Line> ReadPropertyLine(std::string_view raw, std::size_t pos, std::string& fault)
{
    std::size_t equals = raw.find('=', pos);
    if (equals == std::string_view::npos) {
        fault = "the line is no property: it has no \"=\"";
        return std::nullopt;
    }
    Vb6Line line;
    line.kind = Vb6Line::Kind::Property;
    line.name = TrimVb6(raw.substr(pos, equals - pos));
    if (!IsValidPropertyName(line.name)) {
        fault = "\"" + std::string(line.name) + "\" is no property name";
        return std::nullopt;
    }
    std::size_t start = SkipBlanks(raw, equals + 1);
    line.valueOffset = start;
    std::size_t end = start;
    bool quoted = start < raw.size() && (raw[start] == '"' || (raw[start] == '$' && start + 1 < raw.size() && raw[start + 1] == '"'));
    if (quoted) {
        end = ScanQuotedValue(raw, start, fault);
        if (end == std::string_view::npos)
            return std::nullopt;
        std::size_t rest = SkipBlanks(raw, end);
        if (rest < raw.size() && raw[rest] != '\'') {
            fault = "unexpected text after the value";
            return std::nullopt;
        }
        line.value = raw.substr(start, end - start);
        if (rest < raw.size())
            line.comment = TrimVb6(raw.substr(rest + 1));
        return line;
    }
    std::size_t apostrophe = raw.find('\'', start);
    line.value = TrimVb6(raw.substr(start, apostrophe == std::string_view::npos ? std::string_view::npos : apostrophe - start));
    if (apostrophe != std::string_view::npos)
        line.comment = TrimVb6(raw.substr(apostrophe + 1));
    return line;
}

}  // namespace

std::vector<Vb6RawLine> SplitRawLines(std::string_view bytes)
{
    std::vector<Vb6RawLine> lines;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            lines.push_back({ std::string(bytes.substr(start)), {} });
            break;
        }
        std::size_t endLength = (bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n') ? 2 : 1;
        lines.push_back({ std::string(bytes.substr(start, end - start)), std::string(bytes.substr(end, endLength)) });
        start = end + endLength;
    }
    return lines;
}

std::string JoinRawLines(const std::vector<Vb6RawLine>& lines)
{
    std::string bytes;
    for (const Vb6RawLine& line : lines) {
        bytes += line.bytes;
        bytes += line.end;
    }
    return bytes;
}

std::string DecodeVb6(std::string_view bytes, std::string_view codePage)
{
    if (IsAscii(bytes))
        return std::string(bytes);
    return ConvertToUtf8(bytes, codePage.empty() ? std::string_view(SystemCodePage()) : codePage);
}

std::string EncodeVb6(std::string_view text, std::string_view codePage)
{
    if (IsAscii(text))
        return std::string(text);
    return ConvertFromUtf8(text, codePage.empty() ? std::string_view(SystemCodePage()) : codePage);
}

std::string_view TrimVb6(std::string_view text)
{
    std::size_t start = SkipBlanks(text, 0);
    std::size_t end = text.size();
    while (end > start && IsVb6Blank(text[end - 1]))
        --end;
    return text.substr(start, end - start);
}

std::string Vb6Unquote(std::string_view text)
{
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return std::string(text);
    return ReplaceAll(text.substr(1, text.size() - 2), "\"\"", "\"");
}

std::string Vb6Quote(std::string_view text)
{
    return "\"" + ReplaceAll(text, "\"", "\"\"") + "\"";
}

std::string Vb6Place(std::string_view fileName, int line)
{
    return std::string(fileName) + "(" + std::to_string(line) + "): ";
}

std::string ResolveVb6Path(std::string_view folder, std::string_view path)
{
    std::string trimmed(TrimVb6(path));
    std::string native = ToNativePath(trimmed);
    if (trimmed.rfind("\\\\", 0) == 0 || trimmed.find(':') != std::string::npos)
        return native;
    std::filesystem::path joined = std::filesystem::path(std::string(folder)) / native;
    return FindPathNoCase(joined.lexically_normal().string());
}

std::string FindMovedVb6File(std::string_view path, std::string_view folder)
{
    if (FileExists(path) || folder.empty())
        return {};
    std::string beside = FindPathNoCase(JoinPath(folder, FileNameOf(ToNativePath(path))));
    return FileExists(beside) ? beside : std::string();
}

bool StartsWithVb6Keyword(std::string_view raw, std::string_view keyword)
{
    std::size_t pos = SkipBlanks(raw, 0);
    std::string_view rest = raw.substr(pos);
    if (rest.size() < keyword.size() || !EqualsNoCase(rest.substr(0, keyword.size()), keyword))
        return false;
    return rest.size() == keyword.size() || IsVb6Blank(rest[keyword.size()]);
}

std::optional<Vb6Line> ReadVb6Line(std::string_view raw, std::string& fault)
{
    std::size_t pos = SkipBlanks(raw, 0);
    if (pos == raw.size())
        return Vb6Line {};
    std::string_view word = WordAt(raw, pos, true);
    std::size_t after = SkipBlanks(raw, pos + word.size());
    bool assignment = after < raw.size() && raw[after] == '=';
    if (!assignment) {
        static constexpr std::pair<std::string_view, Vb6Line::Kind> keywords[] = {
            { "Begin", Vb6Line::Kind::Begin },
            { "End", Vb6Line::Kind::End },
            { "BeginProperty", Vb6Line::Kind::BeginProperty },
            { "EndProperty", Vb6Line::Kind::EndProperty },
        };
        for (const auto& [keyword, kind] : keywords) {
            if (EqualsNoCase(word, keyword))
                return ReadBlockLine(raw, pos + word.size(), kind, fault);
        }
    }
    return ReadPropertyLine(raw, pos, fault);
}

}  // namespace scriv
