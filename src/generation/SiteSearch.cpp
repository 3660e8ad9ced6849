#include "generation/SiteSearch.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <map>
#include <future>
#include <optional>
#include <thread>

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/Digest.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/Templates.h"
#include "htmldom/HtmlDocument.h"

namespace scriv {

namespace {

constexpr std::size_t kMinWordLength = 2;
constexpr std::size_t kMaxWordLength = 50;
constexpr std::size_t kSummaryLength = 160;

bool IsWordCharacter(char32_t c)
{
    return (c >= U'0' && c <= U'9') || IsAlphabetic(c);
}

bool WrittenWithoutBlanks(char32_t c)
{
    return (c >= 0x3040 && c <= 0x30FF) || (c >= 0x3400 && c <= 0x4DBF) || (c >= 0x4E00 && c <= 0x9FFF)
        || (c >= 0xAC00 && c <= 0xD7AF) || (c >= 0xF900 && c <= 0xFAFF);
}

std::string CollapseWhiteSpace(std::string_view text)
{
    std::string out;
    bool space = false;
    for (char c : text) {
        if (c == ' ' || c == '\n' || c == '\t' || c == '\r') {
            space = !out.empty();
            continue;
        }
        if (space)
            out += ' ';
        space = false;
        out += c;
    }
    return out;
}

std::string Summary(std::string_view text, std::string_view title)
{
    std::string body(text);
    // The first line is mostly the caption, which the title shows already.
    std::size_t lineEnd = body.find('\n');
    if (TrimWhitespace(body.substr(0, lineEnd)) == title)
        body = lineEnd == std::string::npos ? std::string() : body.substr(lineEnd + 1);
    std::string collapsed = CollapseWhiteSpace(body);
    if (CharCount(collapsed) <= kSummaryLength)
        return collapsed;
    return LeftChars(collapsed, kSummaryLength) + "\u2026";
}

std::string JsonString(std::string_view text)
{
    static constexpr char kHex[] = "0123456789abcdef";
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto c = static_cast<unsigned char>(text[i]);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20 || c == '<') {
            // "<" too, so that no "</script>" can stand in the text.
            out += "\\u00";
            out += kHex[c >> 4];
            out += kHex[c & 15];
        } else if (c == 0xE2 && i + 2 < text.size() && static_cast<unsigned char>(text[i + 1]) == 0x80
            && (static_cast<unsigned char>(text[i + 2]) == 0xA8 || static_cast<unsigned char>(text[i + 2]) == 0xA9)) {
            // U+2028 and U+2029 end lines in older script engines.
            out += static_cast<unsigned char>(text[i + 2]) == 0xA8 ? "\\u2028" : "\\u2029";
            i += 2;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out + "\"";
}

std::string SearchPageHtml()
{
    return "<!DOCTYPE html>\r\n"
           "<html>\r\n"
           "<head>\r\n"
           "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\r\n"
           "<title>Search</title>\r\n"
           "<link rel=\"stylesheet\" type=\"text/css\" href=\"browserhelp.css\">\r\n"
           "<script type=\"text/javascript\" charset=\"utf-8\" src=\""
        + std::string(kSearchIndexScript)
        + "\"></script>\r\n"
          "<script type=\"text/javascript\" charset=\"utf-8\" src=\"browserhelp.js\"></script>\r\n"
          "<script type=\"text/javascript\" charset=\"utf-8\" src=\"sitesearch.js\"></script>\r\n"
          "</head>\r\n"
          "<body class=\"pane-page search\">\r\n"
          "<form name=\"ss\" class=\"search-form\" role=\"search\" onsubmit=\"return NS()\">\r\n"
          "<input type=\"search\" name=\"s\" size=24 aria-label=\"Search\" autocomplete=\"off\" "
          "onKeyDown=\"if(event.keyCode==13)return NS()\">\r\n"
          "<button type=\"submit\" class=\"search-button\" title=\"Search\">"
          "<img src=\"images/search.svg\" alt=\"Search\"></button>\r\n"
          "</form>\r\n"
          "<p id=\"ssStatus\" class=\"search-status\" role=\"status\" aria-live=\"polite\" "
          "data-none=\"No topics found.\" data-short=\"Type a word of two letters or more.\" "
          "data-one=\"1 topic found.\" data-many=\"%1 topics found.\"></p>\r\n"
          "<div id=\"ssResults\" class=\"search-results\"></div>\r\n"
          "</body>\r\n"
          "</html>\r\n";
}

void WriteOrRaise(const std::string& path, std::string_view text)
{
    if (!WriteUtf8File(path, text))
        Raise(status::kGeneralFailure, "CHelpPrjTree.WriteSiteSearch", "Error saving file " + path);
}

// --- the cache of what pages gave the index ---

constexpr std::string_view kCacheHeader = "scrivant search cache 1";

struct CachedPage {
    std::string digest;
    SiteSearchEntry entry;
};
using SearchCache = std::map<std::string, CachedPage>;

// A value on one line of the cache: backslashes, tabs and line ends escaped.
std::string Escaped(std::string_view text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '\\': out += "\\\\"; break;
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        default: out += c;
        }
    }
    return out;
}

std::string Unescaped(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        char next = text[++i];
        out += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return out;
}

// One page a line: name, digest, title, summary and words, separated by tabs.
std::string SearchCacheText(const SearchCache& cache)
{
    std::string out = std::string(kCacheHeader) + "\n";
    for (const auto& [name, page] : cache) {
        out += Escaped(name) + "\t" + page.digest + "\t" + Escaped(page.entry.title) + "\t"
            + Escaped(page.entry.summary) + "\t" + Join(page.entry.words, " ") + "\n";
    }
    return out;
}

// The cache as written, or nothing of it when it is missing or not of this form.
SearchCache ReadSearchCache(const std::string& path)
{
    SearchCache cache;
    std::optional<std::string> text = ReadFileText(path);
    if (!text || !text->starts_with(std::string(kCacheHeader) + "\n"))
        return cache;
    std::vector<std::string> lines = Split(std::string_view(*text).substr(kCacheHeader.size() + 1), "\n");
    for (const std::string& line : lines) {
        std::vector<std::string> fields = Split(line, "\t");
        if (fields.size() != 5)
            continue;
        CachedPage page { fields[1], { Unescaped(fields[2]), Unescaped(fields[3]), {} } };
        if (!fields[4].empty())
            page.entry.words = Split(fields[4], " ");
        cache.emplace(Unescaped(fields[0]), std::move(page));
    }
    return cache;
}

}  // namespace

std::vector<std::string> SiteSearchIndex::Words(std::string_view text)
{
    std::vector<std::string> words;
    std::u32string word;
    auto finish = [&]() {
        if (word.size() >= kMinWordLength && word.size() <= kMaxWordLength) {
            words.push_back(ToLower(Utf32ToUtf8(word)));
            // Chinese, Japanese and Korean write no blanks between words: every
            // tail of a run is a word too, so that a search for the middle of
            // it finds it by its beginning.
            if (std::any_of(word.begin(), word.end(), WrittenWithoutBlanks))
                for (std::size_t start = 1; start + kMinWordLength <= word.size(); ++start)
                    words.push_back(Utf32ToUtf8(word.substr(start)));
        }
        word.clear();
    };
    for (char32_t c : Utf8ToUtf32(text)) {
        if (IsWordCharacter(c))
            word += c;
        else
            finish();
    }
    finish();
    return words;
}

SiteSearchEntry SiteSearchIndex::ReadPage(std::string_view fileName, std::string_view html)
{
    auto document = HtmlDocument::Parse(html);
    std::string text = document->body() ? document->body()->innerText() : std::string();
    SiteSearchEntry entry;
    entry.title = document->title();
    if (entry.title.empty()) {
        auto headings = document->getElementsByTagName("h1");
        if (!headings.empty())
            entry.title = CollapseWhiteSpace(headings.front()->innerText());
    }
    if (entry.title.empty())
        entry.title = FileBaseName(fileName);
    entry.summary = Summary(text, entry.title);
    for (const std::string& source : { text, entry.title, FileBaseName(fileName) })
        for (std::string& word : Words(source))
            entry.words.push_back(std::move(word));
    std::sort(entry.words.begin(), entry.words.end());
    entry.words.erase(std::unique(entry.words.begin(), entry.words.end()), entry.words.end());
    return entry;
}

void SiteSearchIndex::AddEntry(std::string_view fileName, const SiteSearchEntry& entry)
{
    std::size_t number = m_pages.size();
    m_pages.push_back({ std::string(fileName), entry.title, entry.summary });
    for (const std::string& word : entry.words)
        m_words[word].push_back(number);
}

void SiteSearchIndex::AddPage(std::string_view fileName, std::string_view html)
{
    AddEntry(fileName, ReadPage(fileName, html));
}

std::vector<std::size_t> SiteSearchIndex::PagesOf(std::string_view word) const
{
    auto it = m_words.find(std::string(word));
    return it == m_words.end() ? std::vector<std::size_t>() : it->second;
}

std::string SiteSearchIndex::ToScript() const
{
    std::string out = "var ssIndex = {\n\"pages\": [\n";
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        const SiteSearchPage& page = m_pages[i];
        out += "{\"f\": " + JsonString(page.file) + ", \"t\": " + JsonString(page.title) + ", \"s\": "
            + JsonString(page.summary) + "}" + (i + 1 < m_pages.size() ? ",\n" : "\n");
    }
    out += "],\n\"words\": {\n";
    std::size_t remaining = m_words.size();
    for (const auto& [word, pages] : m_words) {
        out += JsonString(word) + ": [";
        for (std::size_t i = 0; i < pages.size(); ++i)
            out += (i ? "," : "") + std::to_string(pages[i]);
        out += --remaining ? "],\n" : "]\n";
    }
    return out + "}\n};\n";
}

std::vector<std::string> SiteSearchExclusions(std::string_view projectFileName)
{
    return { "hh_index_java.htm", "hh_toc_java.htm", "main.htm", std::string(projectFileName) + "TOC.htm" };
}

namespace {

// What the index takes of each page: the cached entry when the page's text is
// as it was, else the page read again. Pages are read on every core: parsing
// them is most of the work.
std::vector<CachedPage> ReadPages(const std::string& folder, const std::vector<std::string>& names,
    SearchCache& previous)
{
    std::vector<CachedPage> pages(names.size());
    // Each thread takes every step-th page, so no two touch the same entry.
    auto readEvery = [&](std::size_t first, std::size_t step) {
        for (std::size_t i = first; i < names.size(); i += step) {
            std::string html = ReadTextFile(folder + names[i]);
            std::string digest = TextDigest(html);
            auto known = previous.find(names[i]);
            pages[i] = known != previous.end() && known->second.digest == digest
                ? std::move(known->second)
                : CachedPage { digest, SiteSearchIndex::ReadPage(names[i], html) };
        }
    };
    std::size_t threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 8);
    threads = std::min(threads, std::max<std::size_t>(names.size() / 16, 1));
    std::vector<std::future<void>> others;
    for (std::size_t t = 1; t < threads; ++t)
        others.push_back(std::async(std::launch::async, readEvery, t, threads));
    readEvery(0, threads);
    for (std::future<void>& other : others)
        other.get();
    return pages;
}

}  // namespace

void WriteSiteSearch(const std::string& folder, const std::string& projectFileName, const std::string& cacheFile)
{
    std::string target = AddBackslash(folder);
    std::vector<std::string> excluded = SiteSearchExclusions(projectFileName);
    std::vector<std::string> names;
    for (std::string& name : ListFiles(target, "*.htm")) {
        bool skip = std::any_of(excluded.begin(), excluded.end(), [&name](const std::string& other) { return EqualsNoCase(name, other); });
        if (!skip)
            names.push_back(std::move(name));
    }
    SearchCache previous = cacheFile.empty() ? SearchCache() : ReadSearchCache(cacheFile);
    std::vector<CachedPage> pages = ReadPages(target, names, previous);
    SearchCache current;
    SiteSearchIndex index;
    for (std::size_t i = 0; i < names.size(); ++i) {
        index.AddEntry(names[i], pages[i].entry);
        current.emplace(names[i], std::move(pages[i]));
    }
    WriteOrRaise(target + std::string(kSearchIndexScript), index.ToScript());
    WriteOrRaise(target + std::string(kSearchPage), WithHtmlLanguage(SearchPageHtml(), ProjectPageLanguage()));
    if (!cacheFile.empty() && !WriteFileBytes(cacheFile, SearchCacheText(current)))
        Trace("CHelpPrjTree.WriteSiteSearch: cannot write the search cache " + cacheFile);
}

}  // namespace scriv
