#include "generation/Templates.h"

#include <cctype>
#include <filesystem>
#include <optional>

#include "foundation/AppFolders.h"
#include "foundation/CUTF8File.h"
#include "foundation/CXmlMessages.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

struct TagSpan {
    std::size_t open { std::string::npos }; // at "<"
    std::size_t close { std::string::npos }; // at ">"
    bool Found() const { return open != std::string::npos; }
};

bool EndsTagName(char c)
{
    return c == '>' || c == '/' || c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

// The first start tag of an element at or after from, outside comments, e.g. "<html ...>".
TagSpan FindStartTag(std::string_view text, std::string_view name, std::size_t from = 0)
{
    std::size_t at = from;
    while ((at = text.find('<', at)) != std::string_view::npos) {
        if (text.substr(at, 4) == "<!--") {
            at = text.find("-->", at + 4);
            if (at == std::string_view::npos)
                return {};
            continue;
        }
        std::size_t end = at + 1 + name.size();
        if (end < text.size() && EqualsNoCase(text.substr(at + 1, name.size()), name) && EndsTagName(text[end])) {
            // The tag ends at the first ">" outside quotes.
            char quote = 0;
            for (std::size_t i = end; i < text.size(); ++i) {
                if (quote) {
                    if (text[i] == quote)
                        quote = 0;
                } else if (text[i] == '"' || text[i] == '\'') {
                    quote = text[i];
                } else if (text[i] == '>') {
                    return { at, i };
                }
            }
            return {};
        }
        ++at;
    }
    return {};
}

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

// The value of a start tag's attribute ("" for one without a value), or
// nothing when the tag lacks it ("xml:lang" is not "lang").
std::optional<std::string> AttributeValue(std::string_view tag, std::string_view attribute)
{
    char quote = 0;
    for (std::size_t i = 0; i < tag.size(); ++i) {
        char c = tag[i];
        if (quote) {
            if (c == quote)
                quote = 0;
            continue;
        }
        if (c == '"' || c == '\'') {
            quote = c;
            continue;
        }
        bool startsName = i > 0 && EndsTagName(tag[i - 1]) && tag[i - 1] != '>';
        std::size_t after = i + attribute.size();
        if (!startsName || after > tag.size() || !EqualsNoCase(tag.substr(i, attribute.size()), attribute)
            || (after < tag.size() && tag[after] != '=' && !EndsTagName(tag[after])))
            continue;
        std::size_t at = after;
        while (at < tag.size() && IsSpace(tag[at]))
            ++at;
        if (at >= tag.size() || tag[at] != '=')
            return std::string();
        ++at;
        while (at < tag.size() && IsSpace(tag[at]))
            ++at;
        if (at < tag.size() && (tag[at] == '"' || tag[at] == '\'')) {
            std::size_t close = tag.find(tag[at], at + 1);
            return std::string(tag.substr(at + 1, close == std::string_view::npos ? std::string_view::npos : close - at - 1));
        }
        std::size_t end = at;
        while (end < tag.size() && !IsSpace(tag[end]) && tag[end] != '>')
            ++end;
        return std::string(tag.substr(at, end - at));
    }
    return std::nullopt;
}

bool HasAttribute(std::string_view tag, std::string_view attribute)
{
    return AttributeValue(tag, attribute).has_value();
}

// "", "mailto:", "http://": an address with nothing after its scheme.
bool IsEmptyAddress(std::string_view href)
{
    std::string address = Trim(href);
    if (address.empty())
        return true;
    std::size_t colon = address.find(':');
    if (colon == std::string::npos || colon == 0)
        return false;
    for (std::size_t i = 0; i < colon; ++i)
        if (!std::isalpha(static_cast<unsigned char>(address[i])))
            return false;
    std::string_view rest = std::string_view(address).substr(colon + 1);
    return rest.empty() || rest == "//";
}

// The help's title, else the page's file name.
std::string DefaultPageTitle(std::string_view pagePath)
{
    std::string title = Parameters().HelpProjectTitle();
    return XmlEncodeChars(title.empty() ? FileBaseName(pagePath) : title);
}

}  // namespace

LanguageTag ProjectPageLanguage()
{
    const CScrivantParameters& parameters = Parameters();
    for (const std::string& name : { parameters.LanguageCode, parameters.Language }) {
        LanguageTag language = LanguageTagOf(name);
        if (language.Known())
            return language;
    }
    return { "en", false };
}

std::string WithHtmlLanguage(std::string_view page, const LanguageTag& language)
{
    TagSpan html = FindStartTag(page, "html");
    if (!language.Known() || !html.Found())
        return std::string(page);
    std::string_view tag = page.substr(html.open, html.close - html.open);
    if (HasAttribute(tag, "lang"))
        return std::string(page);
    std::string attributes = " lang=\"" + language.tag + "\"";
    if (language.rightToLeft && !HasAttribute(tag, "dir"))
        attributes += " dir=\"rtl\"";
    std::string out(page);
    out.insert(html.open + 5, attributes);
    return out;
}

std::string WithPageTitle(std::string_view page, std::string_view fallback)
{
    if (Trim(fallback).empty())
        return std::string(page);
    std::string out(page);
    TagSpan title = FindStartTag(page, "title");
    if (title.Found()) {
        std::size_t end = FindNoCase(page, "</title", title.close);
        if (end != std::string::npos && TrimWhitespace(page.substr(title.close + 1, end - title.close - 1)).empty())
            out.replace(title.close + 1, end - title.close - 1, fallback);
        return out;
    }
    TagSpan head = FindStartTag(page, "head");
    if (head.Found())
        out.insert(head.close + 1, "<title>" + std::string(fallback) + "</title>");
    return out;
}

std::string WithoutEmptyLinks(std::string_view page)
{
    std::string out(page);
    std::size_t from = 0;
    for (TagSpan link = FindStartTag(out, "a", from); link.Found(); link = FindStartTag(out, "a", from)) {
        std::size_t end = FindNoCase(out, "</a", link.close);
        std::size_t endClose = end == std::string::npos ? end : out.find('>', end);
        if (endClose == std::string::npos)
            break;
        std::optional<std::string> href = AttributeValue(std::string_view(out).substr(link.open, link.close - link.open), "href");
        bool empty = TrimWhitespace(std::string_view(out).substr(link.close + 1, end - link.close - 1)).empty();
        if (href && IsEmptyAddress(*href) && empty) {
            out.erase(link.open, endClose + 1 - link.open);
            from = link.open;
        } else {
            from = link.close + 1;
        }
    }
    return out;
}

std::vector<Replacement> ParseReplacementList(const std::vector<std::string>& entries)
{
    std::vector<Replacement> list;
    for (const std::string& entry : entries) {
        std::size_t bar = entry.find('|');
        if (bar == std::string::npos)
            continue;
        list.push_back({ Trim(entry.substr(0, bar)), Trim(entry.substr(bar + 1)) });
    }
    return list;
}

std::string ReplaceTagsAndCopy(std::string_view sourcePath, std::string_view targetPath,
    const std::vector<std::string>& replacementList)
{
    std::vector<Replacement> replacements = ParseReplacementList(replacementList);
    if (!FileExists(sourcePath))
        return {};
    CUTF8FileReader reader;
    if (reader.LoadFile(sourcePath) != status::kOk)
        return {};
    std::string text = Parameters().ReplaceTags(reader.Text());
    for (const Replacement& replacement : replacements)
        text = ReplaceAllNoCase(text, replacement.find, replacement.replace);
    if (CXmlMessages* messages = CurrentMessages())
        text = messages->ReplaceParameters(text);
    text = WithHtmlLanguage(text, ProjectPageLanguage());
    text = WithPageTitle(text, DefaultPageTitle(targetPath.empty() ? sourcePath : targetPath));
    text = WithoutEmptyLinks(text);
    if (!targetPath.empty() && !WriteUtf8File(targetPath, text))
        Raise(status::kGeneralFailure, "modScrivUtils.ReplaceTagsAndCopy", "Error saving file " + std::string(targetPath));
    return text;
}

std::string StyleSheetLinkHtml(std::string_view styleSheetPath)
{
    if (styleSheetPath.empty())
        return {};
    return "<link href=\"" + std::string(styleSheetPath) + "\" type=\"text/css\" rel=\"stylesheet\">";
}

std::string StyleSheetHref(std::string_view styleSheetPath, std::string_view pageFolder)
{
    if (styleSheetPath.empty())
        return {};
    if (pageFolder.empty() || !IsAbsolutePath(styleSheetPath))
        return FileNameOf(styleSheetPath);
    std::string relative = SetRelativePath(styleSheetPath, pageFolder);
    return relative.empty() ? FileNameOf(styleSheetPath) : relative;
}

std::string EscapeHtmlEntities(std::string_view text, bool strip)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c != '&') {
            out += c;
            continue;
        }
        bool last = i + 1 == text.size();
        if (last) {
            out += '&';
        } else if (text[i + 1] == '&') {
            out += "&&";
        } else if (text[i + 1] == '#') {
            out += '&';
        }
    }
    if (strip) {
        constexpr std::string_view mark = "&#38;";
        std::size_t at = out.find(mark);
        while (at != std::string::npos) {
            std::size_t after = at + mark.size();
            if (after < out.size() && out.find(mark, after) == std::string::npos) {
                out.erase(at, mark.size());
                break;
            }
            at = out.find(mark, after);
        }
    }
    return out;
}

std::string SetRelativePath(std::string_view fullPath, std::string_view baseFolder)
{
    namespace fs = std::filesystem;
    fs::path relative = fs::path(ToNativePath(fullPath)).lexically_relative(fs::path(AddBackslash(ToNativePath(baseFolder))));
    std::string result = relative.generic_string();
    if (result.empty() || result == ".")
        return {};
    if (result.rfind("./", 0) == 0)
        result.erase(0, 2);
    while (!result.empty() && result.front() == '/')
        result.erase(0, 1);
    return result;
}

std::string JoinCollection(const std::vector<std::string>& items)
{
    return Join(items, "|");
}

std::vector<std::string> SplitToCollection(std::string_view text)
{
    return Split(text, "|");
}

int TreeNodeImageIndex(std::string_view imageKey)
{
    static constexpr const char* keys[] = { "no", "openedBook", "hlpclose", "document", "document1", "form", "report" };
    static constexpr int indexes[] = { 1, 2, 3, 3, 4, 5, 6 };
    std::string key = ToLower(imageKey);
    for (std::size_t i = 0; i < std::size(keys); ++i)
        if (key == ToLower(keys[i]))
            return indexes[i];
    return 0;
}

}  // namespace scriv
