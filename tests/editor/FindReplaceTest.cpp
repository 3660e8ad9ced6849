#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GeneratedHelpProject.h"
#include "editor/CHTMLFindReplaceAll.h"
#include "editor/CHtmlRefsChecker.h"
#include "foundation/ScriptedUserInterface.h"
#include "foundation/StringUtil.h"

namespace scriv {
namespace {

using Mode = CHTMLFindReplaceAll::Mode;

// Pages written for one test, and a search over them.
class FindReplaceTest : public ::testing::Test {
protected:
    std::string Page(const std::string& name, const std::string& body)
    {
        return m_folder.Write(name, "<html><head><title>Topic</title></head><body>" + body + "</body></html>");
    }

    std::size_t Run(const std::vector<std::string>& pages, int mode, const std::string& find, const std::string& replace,
        bool wholeWord, bool matchCase, bool htmlMode)
    {
        m_search = std::make_unique<CHTMLFindReplaceAll>(m_ui);
        m_search->ShowReport = [this](const std::vector<std::string>& pages, const std::string& status, int count) {
            m_shownPages = pages;
            m_shownStatus = status;
            m_shownCount = count;
        };
        return m_search->init(pages, mode, find, replace, wholeWord, matchCase, htmlMode);
    }

    std::vector<std::string> Messages() const
    {
        std::vector<std::string> texts;
        for (const MessageBoxRequest& box : m_ui.MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    test::TempFolder m_folder;
    ScriptedUserInterface m_ui;
    std::unique_ptr<CHTMLFindReplaceAll> m_search;
    std::vector<std::string> m_shownPages;
    std::string m_shownStatus;
    int m_shownCount { -1 };
};

TEST_F(FindReplaceTest, AWordOnlyInsideATagIsFoundInTheSourceAlone)
{
    std::string page = Page("Zebra.htm", "<p class=\"zebra\">Plain text</p>");
    EXPECT_EQ(Run({ page }, Mode::kFind, "zebra", "", false, false, false), 0u);
    EXPECT_EQ(Messages(), (std::vector<std::string> { "Cannot find \"zebra\"." }));
    EXPECT_EQ(m_ui.MessageBoxes().back().source, "CHTMLFindReplaceAll.Init");
    EXPECT_FALSE(m_search->ReportShown());
    EXPECT_EQ(m_shownCount, -1);

    EXPECT_EQ(Run({ page }, Mode::kFind, "ZEBRA", "", false, false, true), 1u);
    EXPECT_EQ(m_search->Occurrences(), 1);
    EXPECT_EQ(m_shownPages, (std::vector<std::string> { page }));
    EXPECT_EQ(m_shownStatus, "1 occurrence is found");
    EXPECT_EQ(m_shownCount, 1);
}

TEST_F(FindReplaceTest, AWholeWordStandsBetweenNonLetters)
{
    std::string page = Page("Art.htm", "<p>art part art. apart Art 2art art2 art</p>");
    EXPECT_EQ(Run({ page }, Mode::kFind, "art", "", true, false, false), 1u);
    EXPECT_EQ(m_search->Occurrences(), 4);
    EXPECT_EQ(m_shownStatus, "4 occurrences are found");
    Run({ page }, Mode::kFind, "art", "", false, false, false);
    EXPECT_EQ(m_search->Occurrences(), 8);
    Run({ page }, Mode::kFind, "art", "", true, true, false);
    EXPECT_EQ(m_search->Occurrences(), 3);
    Run({ page }, Mode::kFind, "Art", "", false, true, true);
    EXPECT_EQ(m_search->Occurrences(), 1);
}

TEST_F(FindReplaceTest, IsWholeWord)
{
    EXPECT_TRUE(CHTMLFindReplaceAll::IsWholeWord(U"art", 1, 3));
    EXPECT_TRUE(CHTMLFindReplaceAll::IsWholeWord(U"the art.", 5, 3));
    EXPECT_TRUE(CHTMLFindReplaceAll::IsWholeWord(U"(art)", 2, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"part", 2, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"arts", 1, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"\u00e4art", 2, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"7art", 2, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"", 1, 1));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"art", 0, 3));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"art", 1, 0));
    EXPECT_FALSE(CHTMLFindReplaceAll::IsWholeWord(U"art", 2, 3));
}

TEST_F(FindReplaceTest, AReplacementThatHoldsTheSearchTextEnds)
{
    std::string page = Page("Art.htm", "<p>art and Art</p>");
    EXPECT_EQ(Run({ page }, Mode::kReplace, "art", "smart art", false, false, false), 1u);
    EXPECT_EQ(m_search->Occurrences(), 2);
    EXPECT_EQ(m_shownStatus, "2 occurrences are replaced");
    std::string text = m_folder.Read("Art.htm");
    EXPECT_NE(text.find("<P>smart art and smart art</P>"), std::string::npos) << text;
    // The page went through the beautifier.
    EXPECT_EQ(text.substr(0, 8), "<HTML>\r\n");

    std::string source = Page("Source.htm", "<p class=\"a\">a</p>");
    EXPECT_EQ(Run({ source }, Mode::kReplace, "a", "aa", false, true, true), 1u);
    EXPECT_EQ(m_search->Occurrences(), 5);
    EXPECT_EQ(m_folder.Read("Source.htm"), "<html><heaad><title>Topic</title></heaad><body><p claass=\"aa\">aa</p></body></html>");
}

TEST_F(FindReplaceTest, MatchCaseDecidesWhatIsReplaced)
{
    std::string page = Page("Case.htm", "<p>Order order ORDER</p>");
    Run({ page }, Mode::kReplace, "order", "item", false, true, false);
    EXPECT_EQ(m_search->Occurrences(), 1);
    EXPECT_NE(m_folder.Read("Case.htm").find("<P>Order item ORDER</P>"), std::string::npos);
    Run({ page }, Mode::kReplace, "order", "item", true, false, false);
    EXPECT_EQ(m_search->Occurrences(), 2);
    EXPECT_NE(m_folder.Read("Case.htm").find("<P>item item item</P>"), std::string::npos);
}

TEST_F(FindReplaceTest, ReplacingTextLeavesScriptsTitlesAndTagsAlone)
{
    std::string script = "\r\n\r\n<script type=\"text/javascript\" id=\"wbh\">\r\n<!--\r\nvar art;\r\n//-->\r\n</script>";
    std::string page = m_folder.Write("Mixed.htm",
        "<html><head><title>art</title><script>var art = 1;</script></head><body><p title=\"art\">art <b>art</b></p></body></html>"
            + script);
    Run({ page }, Mode::kReplace, "art", "craft", false, false, false);
    EXPECT_EQ(m_search->Occurrences(), 2);
    std::string text = m_folder.Read("Mixed.htm");
    EXPECT_NE(text.find("<TITLE>art</TITLE>"), std::string::npos) << text;
    EXPECT_NE(text.find("var art = 1;"), std::string::npos) << text;
    EXPECT_NE(text.find("<P title=\"art\">craft\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("<B>craft</B>"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("</HTML>" + script)) << text;
}

TEST_F(FindReplaceTest, AMissingPageIsWarnedAboutAndTheWalkGoesOn)
{
    std::string gone = m_folder / "Gone.htm";
    std::string page = Page("Here.htm", "<p>needle</p>");
    EXPECT_EQ(Run({ gone, page }, Mode::kFind, "needle", "", false, false, false), 1u);
    EXPECT_EQ(Messages(), (std::vector<std::string> { "File [" + gone + "] does not exist!" }));
    EXPECT_EQ(m_search->PagesWithHits(), (std::vector<std::string> { page }));
    const auto& progress = m_ui.ProgressCalls();
    ASSERT_EQ(progress.size(), 4u);
    EXPECT_EQ(progress[0].text, "Search \"needle\"");
    EXPECT_EQ(progress[0].value, 2);
    EXPECT_EQ(progress[2].text, "Processing HTML files [" + page + "]...");
}

TEST_F(FindReplaceTest, TheReportOpensAPageAtItsFirstHit)
{
    std::string page = Page("Hit.htm", "<p>needle</p>");
    Run({ page }, Mode::kFind, "needle", "", false, false, false);
    std::vector<std::string> opened;
    int fronted = 0;
    int closed = 0;
    m_search->Find = [&](const std::string& path, const std::string& text) { opened = { path, text }; };
    m_search->BringReportToFront = [&] { ++fronted; };
    m_search->CloseReport = [&] { ++closed; };
    m_search->CommandOpen(0);
    EXPECT_EQ(opened, (std::vector<std::string> { page, "needle" }));
    // While the report is up a second run only brings it to the front.
    EXPECT_EQ(m_search->init({ page }, Mode::kFind, "other", "", false, false, false), 1u);
    EXPECT_EQ(fronted, 1);
    m_search->Dispose();
    m_search->Dispose();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(m_search->PagesWithHits().empty());
}

class FindReplaceInProjectTest : public test::GeneratedHelpProject {};

TEST_F(FindReplaceInProjectTest, ReplacingOverTheGeneratedProjectKeepsItsPagesWhole)
{
    std::vector<std::string> pages = Pages();
    ScriptedUserInterface ui;
    CHTMLFindReplaceAll search(ui);
    std::size_t hits = search.init(pages, Mode::kReplace, "Describe here", "Explain here", false, true, false);
    EXPECT_EQ(hits, 8u);
    EXPECT_EQ(search.Occurrences(), 8);
    for (const std::string& page : search.PagesWithHits()) {
        std::string text = m_work.Read(FileNameOf(page));
        EXPECT_NE(text.find("Explain here"), std::string::npos) << page;
        EXPECT_EQ(text.find("Describe here"), std::string::npos) << page;
        EXPECT_NE(text.find("<!-- + CONTROLS MAP + -->"), std::string::npos) << page;
        EXPECT_NE(text.find("</HTML>\r\n\r\n\r\n<script type=\"text/javascript\" id=\"wbh\">"), std::string::npos) << page;
    }
    CHtmlRefsChecker checker(ui);
    checker.SetBaseFolder(Folder());
    EXPECT_EQ(checker.init(pages), 0u);
    EXPECT_EQ(ErrorCounter(), 0);

    CHTMLFindReplaceAll again(ui);
    EXPECT_EQ(again.init(pages, Mode::kFind, "Explain here", "", false, false, false), 8u);
    EXPECT_EQ(again.StatusText(), "8 occurrences are found");
}

}  // namespace
}  // namespace scriv
