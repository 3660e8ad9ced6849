#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace scriv {

class HtmlDocument;
class IUserInterface;

// One reference of a topic whose target is missing or lies outside the help
// project's folder.
struct CBrokenLink {
    std::string Page; // full path of the topic
    std::string Tag; // "A", "IMG" or "LINK"
    std::string Url; // the reference, resolved as the browser reads it ("file:///...")
    std::string Problem; // "Broken hyperlink", "Image missing", "Less suitable location" ...
    std::string Explanation; // the tool tip of the finding
};

// One row of the report, as the report's list shows it: three columns, each
// with its text, tool tip and tag.
struct CBrokenLinkRow {
    std::string PageFileName; // what follows the last separator of Page
    std::string PageToolTip; // Page, also the column's tag
    std::string UrlText; // the target's path (the reference itself for LINK)
    std::string UrlToolTip; // Url
    std::string UrlTag; // Tag
    std::string ProblemText; // Problem
    std::string ProblemToolTip; // Explanation
    std::string ProblemTag; // Url
};

// Walks the topics of a help project and reports every hyperlink and picture
// whose target is missing, or exists outside the project's folder.
//
// The report is handed to the view the caller supplies (ShowReport); the
// checker lives as long as its report is up, and a second search on the same
// object only brings the report to the front.
class CHtmlRefsChecker {
public:
    explicit CHtmlRefsChecker(IUserInterface& ui);
    ~CHtmlRefsChecker();
    CHtmlRefsChecker(const CHtmlRefsChecker&) = delete;
    CHtmlRefsChecker& operator=(const CHtmlRefsChecker&) = delete;

    // The help project's folder, with its final separator; targets elsewhere
    // are "Less suitable location".
    const std::string& BaseFolder() const { return m_baseFolder; }
    void SetBaseFolder(std::string folder) { m_baseFolder = std::move(folder); }

    // --- the search ---
    // Checks each page (a missing page or a folder is passed over), with
    // progress through the user interface, then shows the report when there
    // is a finding. Answers the number of findings; a second call while the
    // report is up brings it to the front and answers the same number.
    std::size_t init(const std::vector<std::string>& files);
    // Checks the links and pictures of one page and adds its findings. A page
    // that cannot be read is reported through the error log and skipped.
    void CheckLinksInFile(const std::string& path);
    // Checks the LINK elements of a page's head ("Broken link"). The search
    // does not run it: style sheets are left unchecked.
    void CheckStyleSheetLinks(const HtmlDocument& document, const std::string& page);

    const std::vector<CBrokenLink>& BrokenLinks() const { return m_brokenLinks; }
    bool ReportShown() const { return m_reportShown; }

    // --- the report ---
    // The rows of the findings in order.
    std::vector<CBrokenLinkRow> ReportRows() const;
    // Open on a row (or a double click): raises GoToBrokenLink with the row's
    // page, tag and reference. Nothing for a row that does not exist.
    void CommandOpen(std::size_t row);
    // Closes the report and lets the findings go; a second call does nothing.
    void Dispose();

    // --- what the upper layer supplies ---
    // Shows the report's rows (a list with Open, Close and Help).
    std::function<void(const std::vector<CBrokenLinkRow>&)> ShowReport;
    // Brings a report that is up to the front.
    std::function<void()> BringReportToFront;
    // Closes the report.
    std::function<void()> CloseReport;
    // The editor opens the page at the reference: page, tag, reference.
    std::function<void(const std::string&, const std::string&, const std::string&)> GoToBrokenLink;
    // Gives the focus back to the page editor after the report is filled.
    std::function<void()> SetFocusToHTMLEditor;

    // --- rules ---
    // The path a "file:///" address stands for, or "" for any other address:
    // the fragment cut when a "#" follows the last ".", %20 %23 %26 %5E %5B
    // %5D %7B %7D and %25 decoded in that order.
    static std::string FilePathOfUrl(std::string_view url);
    // True for an existing file that is no folder and whose length can be
    // read; names compare without regard to case, as they do in compiled help.
    static bool FileExistsNotFolder(const std::string& path);

private:
    void CheckReference(const std::string& reference, const std::string& page, const std::string& tag,
        const std::string& problem);
    void OpenReport();

    IUserInterface& m_ui;
    std::string m_baseFolder;
    std::vector<CBrokenLink> m_brokenLinks;
    bool m_reportShown { false };
    bool m_disposed { false };
};

}  // namespace scriv
