#include "wordexport/UriText.h"

#include <cctype>

namespace scriv {

namespace {

constexpr const char* kHex = "0123456789ABCDEF";

void AppendEncoded(std::string& out, unsigned char c)
{
    out += '%';
    out += kHex[c >> 4];
    out += kHex[c & 15];
}

int HexValue(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) ? c - '0' : std::toupper(static_cast<unsigned char>(c)) - 'A' + 10;
}

}  // namespace

std::string PercentDecode(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && std::isxdigit(static_cast<unsigned char>(text[i + 1]))
            && std::isxdigit(static_cast<unsigned char>(text[i + 2]))) {
            out += static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
            i += 2;
        } else
            out += text[i];
    }
    return out;
}

std::string UriForRelationship(std::string_view href)
{
    std::string out;
    for (unsigned char c : href) {
        if (c == '\\')
            out += '/';
        else if (c <= 0x20 || c >= 0x7F || c == '"' || c == '<' || c == '>')
            AppendEncoded(out, c);
        else
            out += static_cast<char>(c);
    }
    return out;
}

std::string FileUrl(std::string_view path)
{
    std::string url = "file://";
    for (unsigned char c : path) {
        if (std::isalnum(c) || c == '/' || c == '-' || c == '_' || c == '.' || c == '~')
            url += static_cast<char>(c);
        else
            AppendEncoded(url, c);
    }
    return url;
}

}  // namespace scriv
