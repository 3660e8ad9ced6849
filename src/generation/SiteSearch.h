#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// The site search of the browser help: an index of the words of every topic,
// written as a script beside the pages (a script file loads from file://,
// where reading local files from a page is blocked), and the search page
// "ss.html" whose script looks words up in it.
namespace scriv {

inline constexpr std::string_view kSearchPage = "ss.html";
inline constexpr std::string_view kSearchIndexScript = "ss_index.js";

struct SiteSearchPage {
    std::string file;    // file name, relative to the folder
    std::string title;   // the page's title, else its first heading, else its file name
    std::string summary; // the start of its text
};

// What the index keeps of one page: its title, its summary and its words
// (each once, sorted).
struct SiteSearchEntry {
    std::string title;
    std::string summary;
    std::vector<std::string> words;
};

class SiteSearchIndex {
public:
    // Indexes a page: the words of its visible text, of its title and of its
    // file name.
    void AddPage(std::string_view fileName, std::string_view html);
    // What AddPage takes of a page.
    static SiteSearchEntry ReadPage(std::string_view fileName, std::string_view html);
    // Indexes a page by what ReadPage found in it.
    void AddEntry(std::string_view fileName, const SiteSearchEntry& entry);

    const std::vector<SiteSearchPage>& Pages() const { return m_pages; }
    // Numbers of the pages (in Pages) that hold a word given in lower case;
    // empty when none does.
    std::vector<std::size_t> PagesOf(std::string_view word) const;
    std::size_t WordCount() const { return m_words.size(); }

    // The index as a script that sets the global "ssIndex".
    std::string ToScript() const;

    // The words of a text as the index keeps them: runs of letters and digits
    // of two characters or more (at most 50), in lower case, in text order.
    static std::vector<std::string> Words(std::string_view text);

private:
    std::vector<SiteSearchPage> m_pages;
    std::map<std::string, std::vector<std::size_t>> m_words;
};

// Indexes every "*.htm" page of folder except the frame pages, "main.htm" and
// "<projectFileName>TOC.htm", and writes the index script and "ss.html" there.
// With a cache file, a page whose text is as it was when the cache was
// written is taken from there instead of being parsed again, and the cache is
// rewritten; a cache that cannot be read or written is ignored.
// Raises ScrivError (0x80040001) when a file of the help cannot be written.
void WriteSiteSearch(const std::string& folder, const std::string& projectFileName,
    const std::string& cacheFile = {});

// The names WriteSiteSearch leaves out, for a project file name.
std::vector<std::string> SiteSearchExclusions(std::string_view projectFileName);

}  // namespace scriv
