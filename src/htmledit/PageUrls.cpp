#include "htmledit/PageUrls.h"

#include <vector>

#include "foundation/StringUtil.h"

namespace scriv {

namespace {

bool IsAsciiLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsUrlBlank(char c)
{
    return static_cast<unsigned char>(c) <= 0x20;
}

// "C:" or "C:/..." - a Windows drive, not a one-letter scheme.
bool StartsWithDrive(std::string_view text)
{
    return text.size() >= 2 && IsAsciiLetter(text[0]) && text[1] == ':' && (text.size() == 2 || text[2] == '/');
}

// The length of the scheme before its ":", or 0 when text has none.
std::size_t SchemeLength(std::string_view text)
{
    if (text.empty() || !IsAsciiLetter(text[0]))
        return 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        char c = text[i];
        if (c == ':')
            return i;
        if (!IsAsciiLetter(c) && !(c >= '0' && c <= '9') && c != '+' && c != '-' && c != '.')
            return 0;
    }
    return 0;
}

std::string EncodeBlanks(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (c == ' ')
            out += "%20";
        else
            out += c;
    }
    return out;
}

std::string Slashed(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        if (c == '\\')
            c = '/';
    return out;
}

// Works out "." and ".." steps of an absolute path ("/a/./b/../c" -> "/a/c").
std::string RemoveDotSegments(std::string_view path)
{
    std::vector<std::string> kept;
    std::vector<std::string> parts = Split(path, "/");
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        bool last = i + 1 == parts.size();
        if (part == "." || part == "%2e" || part == "%2E") {
            if (last)
                kept.emplace_back();
        } else if (part == ".." || EqualsNoCase(part, "%2e%2e") || EqualsNoCase(part, ".%2e") || EqualsNoCase(part, "%2e.")) {
            // The first part is the empty one in front of the leading "/".
            if (kept.size() > 1)
                kept.pop_back();
            if (last)
                kept.emplace_back();
        } else {
            kept.push_back(part);
        }
    }
    std::string out = Join(kept, "/");
    return out.empty() || out.front() != '/' ? "/" + out : out;
}

struct UrlParts {
    std::string prefix; // scheme, "//" and authority: "file://"
    std::string path; // from the first "/" after the authority
    std::string query; // with its "?"
    std::string fragment; // with its "#"
};

UrlParts SplitUrl(std::string_view url)
{
    UrlParts parts;
    std::size_t scheme = SchemeLength(url);
    std::size_t pathStart = scheme ? scheme + 1 : 0;
    if (url.substr(pathStart, 2) == "//") {
        std::size_t authorityEnd = url.find_first_of("/?#", pathStart + 2);
        pathStart = authorityEnd == std::string_view::npos ? url.size() : authorityEnd;
    }
    parts.prefix = std::string(url.substr(0, pathStart));
    std::string_view rest = url.substr(pathStart);
    std::size_t hash = rest.find('#');
    if (hash != std::string_view::npos) {
        parts.fragment = std::string(rest.substr(hash));
        rest = rest.substr(0, hash);
    }
    std::size_t question = rest.find('?');
    if (question != std::string_view::npos) {
        parts.query = std::string(rest.substr(question));
        rest = rest.substr(0, question);
    }
    parts.path = std::string(rest);
    return parts;
}

}  // namespace

std::string FileUrlOfPath(std::string_view path)
{
    std::string slashed = Slashed(path);
    std::string out = "file://";
    if (StartsWithDrive(slashed))
        out += '/';
    out.reserve(out.size() + slashed.size());
    for (char c : slashed) {
        switch (c) {
        case '%':
            out += "%25";
            break;
        case ' ':
            out += "%20";
            break;
        case '#':
            out += "%23";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string ResolveUrl(std::string_view baseUrl, std::string_view reference)
{
    std::size_t first = 0;
    std::size_t last = reference.size();
    while (first < last && IsUrlBlank(reference[first]))
        ++first;
    while (last > first && IsUrlBlank(reference[last - 1]))
        --last;
    std::string ref = EncodeBlanks(reference.substr(first, last - first));
    UrlParts base = SplitUrl(baseUrl);
    bool fileBase = StartsWithNoCase(baseUrl, "file:");

    if (StartsWithDrive(Slashed(ref)))
        return "file:///" + Slashed(ref);
    if (std::size_t scheme = SchemeLength(ref)) {
        if (!EqualsNoCase(ref.substr(0, scheme), "file"))
            return ref;
        return Slashed(ref);
    }
    if (fileBase)
        ref = Slashed(ref);
    if (ref.empty())
        return base.prefix + base.path + base.query;
    if (ref.front() == '#')
        return base.prefix + base.path + base.query + ref;
    if (ref.front() == '?')
        return base.prefix + base.path + ref;
    if (ref.starts_with("//")) {
        std::size_t colon = baseUrl.find(':');
        return std::string(baseUrl.substr(0, colon == std::string_view::npos ? 0 : colon + 1)) + ref;
    }
    UrlParts relative = SplitUrl(ref);
    std::string path;
    if (ref.front() == '/') {
        path = relative.path;
    } else {
        std::size_t slash = base.path.rfind('/');
        path = (slash == std::string::npos ? std::string("/") : base.path.substr(0, slash + 1)) + relative.path;
    }
    return base.prefix + RemoveDotSegments(path) + relative.query + relative.fragment;
}

}  // namespace scriv
