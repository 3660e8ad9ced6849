#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GeneratedHelpProject.h"
#include "editor/CHtmlRefsChecker.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmledit/PageUrls.h"

namespace scriv {
namespace {

using Finding = std::vector<std::string>; // page file name, tag, target path, problem, explanation

std::vector<Finding> Findings(const CHtmlRefsChecker& checker)
{
    std::vector<Finding> findings;
    for (const CBrokenLink& link : checker.BrokenLinks())
        findings.push_back({ FileNameOf(link.Page), link.Tag, CHtmlRefsChecker::FilePathOfUrl(link.Url), link.Problem,
            link.Explanation });
    return findings;
}

class HtmlRefsCheckerTest : public test::GeneratedHelpProject {
protected:
    // Puts html into a page just before its </body>.
    void AddToPage(const std::string& name, const std::string& html)
    {
        std::string text = m_work.Read(name);
        std::size_t end = FindNoCase(text, "</body>");
        ASSERT_NE(end, std::string::npos) << name;
        m_work.Write(name, text.insert(end, html));
    }
};

TEST_F(HtmlRefsCheckerTest, TheGeneratedProjectHasNoBrokenLink)
{
    std::vector<std::string> pages = Pages();
    ASSERT_EQ(pages.size(), 11u);
    ScriptedUserInterface ui;
    CHtmlRefsChecker checker(ui);
    checker.SetBaseFolder(Folder());
    bool shown = false;
    checker.ShowReport = [&](const std::vector<CBrokenLinkRow>&) { shown = true; };
    EXPECT_EQ(checker.init(pages), 0u);
    EXPECT_FALSE(shown);
    EXPECT_FALSE(checker.ReportShown());

    const auto& progress = ui.ProgressCalls();
    ASSERT_EQ(progress.size(), pages.size() + 2);
    EXPECT_EQ(progress.front().text, "Search broken hyperlinks");
    EXPECT_EQ(progress.front().value, 11);
    EXPECT_EQ(progress[1].text, "Processing HTML files [" + pages.front() + "]...");
    EXPECT_EQ(progress.back().kind, ScriptedUserInterface::ProgressKind::Dispose);
}

TEST_F(HtmlRefsCheckerTest, LinksBrokenOnPurposeAreFoundAndNothingElse)
{
    test::TempFolder outside;
    outside.Write("elsewhere.png", "picture");
    std::string outsideFolder = FileNameOf(RemoveBackslash(outside.Path()));
    AddToPage("Welcome.htm",
        "<p><a href=\"Missing.htm\">gone</a> <a href=\"mailto:someone@example.com\">mail</a> <a href=\"#top\">top</a>"
        " <a href=\"Welcome.htm#intro\">intro</a> <a href=\"DIALOGS.HTM\">case</a> <a href=\"http://example.com/x.htm\">web</a>"
        " <a href=\"images\">folder</a></p>"
        "<img src=\"images/missing.png\"><img src=\"../" + outsideFolder + "/elsewhere.png\"><img src=\"../gone.png\">"
        "<img alt=\"no source\">");
    ASSERT_TRUE(DeleteFileIfExists(Page("images/OrderDesk_Form_frmLogin.png")));
    ASSERT_TRUE(DeleteFileIfExists(Page("OrderDesk_Form_frmAbout.htm")));

    CHtmlRefsChecker checker(*m_ui);
    checker.SetBaseFolder(Folder());
    EXPECT_EQ(checker.init(Pages()), 7u);
    std::string parent = ParentFolder(Folder());
    std::string less = "The file should be contained in the folder of help project.";
    EXPECT_EQ(Findings(checker),
        (std::vector<Finding> {
            { "Welcome.htm", "A", Page("Missing.htm"), "Broken hyperlink", "Broken hyperlink" },
            { "Welcome.htm", "A", Page("images"), "Broken hyperlink", "Broken hyperlink" },
            { "Welcome.htm", "IMG", Page("images/missing.png"), "Image missing", "Image missing" },
            { "Welcome.htm", "IMG", outside / "elsewhere.png", "Less suitable location", less },
            { "Welcome.htm", "IMG", parent + "gone.png", "Image missing", "Image missing" },
            { "Dialogs.htm", "A", Page("OrderDesk_Form_frmAbout.htm"), "Broken hyperlink", "Broken hyperlink" },
            { "OrderDesk_Form_frmLogin.htm", "IMG", Page("images/OrderDesk_Form_frmLogin.png"), "Image missing",
                "Image missing" },
        }));
    EXPECT_EQ(checker.BrokenLinks().front().Page, Page("Welcome.htm"));
    EXPECT_EQ(checker.BrokenLinks().front().Url, FileUrlOfPath(Page("Missing.htm")));
    // A missing page is passed over without a report.
    EXPECT_EQ(ErrorCounter(), 0);
}

TEST_F(HtmlRefsCheckerTest, TheReportShowsTheFindingsAndOpensThePlaceOfOne)
{
    AddToPage("Copyright.htm", "<img src=\"pics/a%20b.png\">");
    CHtmlRefsChecker checker(*m_ui);
    checker.SetBaseFolder(Folder());
    std::vector<CBrokenLinkRow> shown;
    int focused = 0;
    int fronted = 0;
    int closed = 0;
    std::vector<std::string> opened;
    checker.ShowReport = [&](const std::vector<CBrokenLinkRow>& rows) { shown = rows; };
    checker.SetFocusToHTMLEditor = [&] { ++focused; };
    checker.BringReportToFront = [&] { ++fronted; };
    checker.CloseReport = [&] { ++closed; };
    checker.GoToBrokenLink = [&](const std::string& page, const std::string& tag, const std::string& url) {
        opened = { page, tag, url };
    };
    ASSERT_EQ(checker.init(Pages()), 1u);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].PageFileName, "Copyright.htm");
    EXPECT_EQ(shown[0].PageToolTip, Page("Copyright.htm"));
    EXPECT_EQ(shown[0].UrlText, Page("pics/a b.png"));
    EXPECT_EQ(shown[0].UrlToolTip, FileUrlOfPath(Page("pics/a b.png")));
    EXPECT_EQ(shown[0].UrlTag, "IMG");
    EXPECT_EQ(shown[0].ProblemText, "Image missing");
    EXPECT_EQ(shown[0].ProblemTag, shown[0].UrlToolTip);
    EXPECT_EQ(focused, 1);
    EXPECT_TRUE(checker.ReportShown());

    // While the report is up a second search only brings it to the front.
    AddToPage("Welcome.htm", "<a href=\"nothing.htm\">x</a>");
    EXPECT_EQ(checker.init(Pages()), 1u);
    EXPECT_EQ(fronted, 1);

    checker.CommandOpen(0);
    EXPECT_EQ(opened, (std::vector<std::string> { Page("Copyright.htm"), "IMG", shown[0].UrlToolTip }));
    opened.clear();
    checker.CommandOpen(5);
    EXPECT_TRUE(opened.empty());
    checker.Dispose();
    checker.Dispose();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(checker.BrokenLinks().empty());
}

TEST_F(HtmlRefsCheckerTest, StyleSheetLinksAreLeftUncheckedBySearch)
{
    ASSERT_TRUE(DeleteFileIfExists(Page("Office10.css")));
    CHtmlRefsChecker checker(*m_ui);
    checker.SetBaseFolder(Folder());
    EXPECT_EQ(checker.init(Pages()), 0u);

    std::unique_ptr<HtmlDocument> document
        = HtmlDocument::Parse("<head><link rel=stylesheet href=\"Office10.css\"><link rel=stylesheet href=\"browserhelp.css\"></head>");
    checker.CheckStyleSheetLinks(*document, Page("Welcome.htm"));
    ASSERT_EQ(checker.BrokenLinks().size(), 1u);
    EXPECT_EQ(checker.BrokenLinks()[0].Tag, "LINK");
    EXPECT_EQ(checker.BrokenLinks()[0].Url, "Office10.css");
    EXPECT_EQ(checker.BrokenLinks()[0].Problem, "Broken link");
    EXPECT_EQ(checker.ReportRows()[0].UrlText, "Office10.css");
}

TEST(HtmlRefsCheckerRules, FilePathOfUrl)
{
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("file:///C:/a%20b/c.htm#x"), "C:/a b/c.htm");
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("file:///help/a%2520%23b.htm"), "/help/a%20#b.htm");
    // Without a "." before the "#", the fragment stays.
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("file:///help/page#x"), "/help/page#x");
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("FILE:///help/%5B1%5D%7Ba%7D%5E%26.htm"), "/help/[1]{a}^&.htm");
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("http://example.com/a.htm"), "");
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("mailto:a@b.c"), "");
    EXPECT_EQ(CHtmlRefsChecker::FilePathOfUrl("file://server/share/a.htm"), "");
}

TEST(HtmlRefsCheckerRules, FileExistsNotFolder)
{
    test::TempFolder folder;
    folder.Write("Topic.htm", "x");
    folder.Write("Empty.htm", "");
    MakeFolders(folder / "Sub");
    EXPECT_TRUE(CHtmlRefsChecker::FileExistsNotFolder(folder / "Topic.htm"));
    EXPECT_TRUE(CHtmlRefsChecker::FileExistsNotFolder(folder / "Empty.htm"));
    EXPECT_TRUE(CHtmlRefsChecker::FileExistsNotFolder(folder / "TOPIC.HTM"));
    EXPECT_FALSE(CHtmlRefsChecker::FileExistsNotFolder(folder / "Sub"));
    EXPECT_FALSE(CHtmlRefsChecker::FileExistsNotFolder(folder / "Other.htm"));
    EXPECT_FALSE(CHtmlRefsChecker::FileExistsNotFolder(""));
}

}  // namespace
}  // namespace scriv
