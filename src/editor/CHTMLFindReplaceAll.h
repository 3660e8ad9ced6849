#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace scriv {

class IUserInterface;

// Finds, or finds and replaces, a text over all topics of a help project, and
// reports the pages with hits. In the editor's Edit mode only the text a
// reader sees is searched (replacing rewrites the page through the
// beautifier); in HTML mode the page's source, tags and attributes included.
//
// The report is handed to the view the caller supplies (ShowReport); a second
// run on the same object while it is up only brings it to the front.
class CHTMLFindReplaceAll {
public:
    enum Mode { kFind = 0, kReplace = 1 };

    explicit CHTMLFindReplaceAll(IUserInterface& ui);
    ~CHTMLFindReplaceAll();
    CHTMLFindReplaceAll(const CHTMLFindReplaceAll&) = delete;
    CHTMLFindReplaceAll& operator=(const CHTMLFindReplaceAll&) = delete;

    // --- the walk ---
    // Searches (mode kFind) or replaces (kReplace) findWhat in each page, in
    // its source with htmlMode, else in its reader's text. A page that does not
    // exist is warned about and passed over; a page that fails is reported and
    // left unchanged. No hit at all says "Cannot find "findWhat"."; otherwise
    // the report is shown. Answers the number of pages with hits.
    std::size_t init(const std::vector<std::string>& files, int mode, const std::string& findWhat,
        const std::string& replaceWith, bool wholeWord, bool matchCase, bool htmlMode);

    // --- the four workers: each answers whether the page has a hit and counts
    // the occurrences; a failure raises ScrivError ---
    // The page's body as a reader sees it.
    bool TextSearch(const std::string& page);
    // The page's file as text.
    bool TextSearchInSource(const std::string& page);
    // The text nodes of the page's document; a changed page is written
    // through the beautifier, in its charset.
    bool TextReplace(const std::string& page);
    // The page's file as text; a changed page is written back as it is otherwise.
    bool TextReplaceInSource(const std::string& page);

    // --- results ---
    const std::string& FindWhat() const { return m_findWhat; }
    const std::string& ReplaceWith() const { return m_replaceWith; }
    bool WholeWord() const { return m_wholeWord; }
    bool MatchCase() const { return m_matchCase; }
    int CurrentMode() const { return m_mode; }
    int Occurrences() const { return m_occurrences; }
    const std::vector<std::string>& PagesWithHits() const { return m_hits; }
    bool ReportShown() const { return m_reportShown; }
    // "1 occurrence is found", "3 occurrences are replaced" ...
    std::string StatusText() const;

    // --- the report ---
    // Open on a row (or a double click): raises Find with the row's page and
    // the search text. Nothing for a row that does not exist.
    void CommandOpen(std::size_t row);
    void CommandHelp();
    void ReportSetFocus();
    // Closes the report and lets the hits go; a second call does nothing.
    void Dispose();

    // --- what the upper layer supplies ---
    // Shows the report: the pages with hits (file name shown, path as tag and
    // tool tip), the status text, and "Occurrences" with the count.
    std::function<void(const std::vector<std::string>& pages, const std::string& status, int occurrences)> ShowReport;
    std::function<void()> BringReportToFront;
    std::function<void()> CloseReport;
    // The editor opens the page and goes to the first hit of the text.
    std::function<void(const std::string& page, const std::string& text)> Find;
    std::function<void()> CallHelp;
    std::function<void()> SetFocusToHTMLEditor;

    // --- rules ---
    // Whether the length characters at position (from 1) of text stand as a
    // word: the characters before and after are no letter or digit, the
    // text's ends counting as such. False for an empty text, a position or
    // length below 1, or an end beyond the text.
    static bool IsWholeWord(std::u32string_view text, long position, long length);

private:
    // Counts the hits of the search text in text; with replace, replaces each
    // and answers the new text in replaced.
    bool SearchLoop(const std::string& text, std::string* replaced);
    void OpenReport();
    void Warn(const std::string& text);

    IUserInterface& m_ui;
    std::string m_findWhat;
    std::string m_replaceWith;
    bool m_wholeWord { false };
    bool m_matchCase { false };
    int m_mode { kFind };
    int m_occurrences { 0 };
    std::vector<std::string> m_hits;
    bool m_reportShown { false };
    bool m_disposed { false };
};

}  // namespace scriv
