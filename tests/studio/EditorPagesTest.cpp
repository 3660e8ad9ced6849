#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "studio/EditorPages.h"
#include "studio/EditorTreeView.h"
#include "support/TestSupport.h"

namespace scriv::studio {
namespace {

using test::TempFolder;

const std::string kMarker = "{CURRENTCURSORPOSITON}";
const std::string kTrailer = "\r\n\r\n<script type=\"text/javascript\" id=\"wbh\">\r\n<!--\r\nx();\r\n//-->\r\n</script>";

std::string Page(const std::string& charset, const std::string& body)
{
    return "<html>\r\n<head>\r\n<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + charset
        + "\">\r\n<title>T</title>\r\n</head>\r\n<body>\r\n" + body + "\r\n</body>\r\n</html>";
}

bool OnlyCrLf(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            return false;
    return true;
}

// --- the document the browser sends ---

TEST(EditorPagesTest, ALiveDocumentIsWrittenThroughTheBeautifierInThePagesCharsetWithItsScript)
{
    TempFolder folder;
    // A page in windows-1252 with the browser-help script behind it.
    std::string original = Page("windows-1252", "<p>caf\xE9</p>") + kTrailer;
    std::string path = folder.Write("topic.htm", original);
    // The browser's serialization: one line, lower case, a changed word, the caret's marker.
    std::string live = "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">"
                       "<title>T</title></head><body><p>caf\xC3\xA9 cr\xC3\xA8me {CURRENTCURSORPOSITON} ok</p></body></html>";

    WriteEditedPage(path, live, false);

    std::string written = *ReadFileText(path);
    EXPECT_NE(written.find("caf\xE9 cr\xE8me ok"), std::string::npos) << written;
    EXPECT_EQ(written.find("\xC3\xA9"), std::string::npos) << "not UTF-8: the page's own charset";
    EXPECT_EQ(written.find(kMarker), std::string::npos);
    EXPECT_TRUE(OnlyCrLf(written));
    EXPECT_NE(written.find("<P>"), std::string::npos) << "the beautifier's text, not the browser's";
    ASSERT_GE(written.size(), kTrailer.size());
    EXPECT_EQ(written.substr(written.size() - kTrailer.size()), kTrailer) << "the script behind </html> byte for byte";
    EXPECT_EQ(written.find("wbh"), written.size() - kTrailer.size() + kTrailer.find("wbh")) << "the script once";
}

TEST(EditorPagesTest, AScriptOfTheBrowserHelpInTheLiveDocumentIsNotWrittenTwice)
{
    TempFolder folder;
    std::string path = folder.Write("topic.htm", Page("utf-8", "<p>a</p>") + kTrailer);
    // A page shown with its script parses it into the body.
    std::string live = "<html><head><title>T</title></head><body><p>b</p>"
                       "<script type=\"text/javascript\" id=\"wbh\">x();</script></body></html>";
    WriteEditedPage(path, live, false);
    std::string written = *ReadFileText(path);
    std::size_t first = written.find("id=\"wbh\"");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(written.find("id=\"wbh\"", first + 1), std::string::npos);
    EXPECT_GT(first, written.find("</HTML>"));
}

TEST(EditorPagesTest, AByteOrderMarkStays)
{
    TempFolder folder;
    std::string path = folder.Write("topic.htm", "\xEF\xBB\xBF" + Page("utf-8", "<p>a</p>"));
    WriteEditedPage(path, Page("utf-8", "<p>b</p>"), false);
    std::string written = *ReadFileText(path);
    EXPECT_EQ(written.substr(0, 3), "\xEF\xBB\xBF");
    EXPECT_NE(written.find("<P>b</P>"), std::string::npos);
}

// --- the source view's text ---

TEST(EditorPagesTest, TheSourceViewsTextIsWrittenAsItStandsWithCrLfAndWithoutTheMarker)
{
    TempFolder folder;
    std::string path = folder.Write("topic.htm", Page("utf-8", "<p>a</p>") + kTrailer);
    std::string source = "<html>\n<body>\n<p class=x>keep   this {CURRENTCURSORPOSITON} spacing</p>\r\n</body>\n</html>";
    WriteEditedPage(path, source, true);
    std::string written = *ReadFileText(path);
    EXPECT_EQ(written, "<html>\r\n<body>\r\n<p class=x>keep   this spacing</p>\r\n</body>\r\n</html>" + kTrailer);
}

TEST(EditorPagesTest, TheSourceViewGetsTheBeautifiersTextWithTheMarkerInPlace)
{
    std::string text = SourceViewText("<html><body><p>one {CURRENTCURSORPOSITON}two</p></body></html>", "/h/p.htm");
    EXPECT_NE(text.find("<P>one " + kMarker + "two</P>"), std::string::npos) << text;
    EXPECT_TRUE(OnlyCrLf(text));
}

// --- a page made at its first save ---

TEST(EditorPagesTest, APageThatDoesNotExistYetGetsItsDeclaredCharsetAndTheBrowserHelpScript)
{
    TempFolder folder;
    std::string path = folder.Path() + "New Topic.htm";
    WriteEditedPage(path, Page("windows-1251", "<p>\xD0\x96</p>"), false);
    std::string written = *ReadFileText(path);
    EXPECT_NE(written.find("<P>\xC6</P>"), std::string::npos) << "Cyrillic Zhe in windows-1251";
    std::size_t end = written.find("</HTML>");
    ASSERT_NE(end, std::string::npos);
    EXPECT_NE(written.find("id=\"wbh\"", end), std::string::npos);
}

TEST(EditorPagesTest, AFailedWriteRaisesAndLeavesTheFileAsItWas)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "a read-only folder does not stop root";
    TempFolder folder;
    std::string original = Page("utf-8", "<p>a</p>");
    std::string path = folder.Write("locked/topic.htm", original);
    chmod((folder.Path() + "locked").c_str(), 0555);
    chmod(path.c_str(), 0444);
    try {
        WriteEditedPage(path, Page("utf-8", "<p>b</p>"), false);
        ADD_FAILURE() << "no error";
    } catch (const ScrivError& error) {
        EXPECT_NE(error.Description().find("Error saving '" + path + "'"), std::string::npos);
    }
    EXPECT_EQ(*ReadFileText(path), original);
    EXPECT_TRUE(IsReadOnlyFile(path));
    chmod((folder.Path() + "locked").c_str(), 0755);
}

// --- what the page editor is shown ---

TEST(EditorPagesTest, APageIsShownForEditingWithoutItsBrowserHelpScript)
{
    std::string page = Page("utf-8", "<p>a</p>");
    EXPECT_EQ(PageTextForEditing(page + kTrailer), page);
    EXPECT_EQ(PageTextForEditing(page), page);
    std::string walked = Page("utf-8", "<p>a</p><script type=\"text/javascript\" id=\"wbh\">x();</script>");
    EXPECT_EQ(PageTextForEditing(walked), Page("utf-8", "<p>a</p>"));
    // A script inside the page is the page's own and stays.
    std::string own = Page("utf-8", "<script>own()</script>");
    EXPECT_EQ(PageTextForEditing(own), own);
}

TEST(EditorPagesTest, TheTemporaryPageLiesBesideThePageInItsCharsetAndGoesAgain)
{
    TempFolder folder;
    std::string page = folder.Write("topics/p.htm", "x");
    std::string temp = WriteTempPage(page, Page("windows-1252", "<p>\xC3\xA9</p>"));
    EXPECT_EQ(temp, folder.Path() + "topics/~temp.htp");
    EXPECT_EQ(TempPagePath(page), temp);
    EXPECT_NE(ReadFileText(temp)->find("<p>\xE9</p>"), std::string::npos);
    KillTempPage(page);
    EXPECT_FALSE(FileExists(temp));
    KillTempPage(page);
}

// --- the tree the page mirrors ---

TEST(EditorTreeViewTest, TheVersionMovesWithTheItemsAndNotWithTheSelection)
{
    EditorTreeView view;
    std::uint64_t start = view.Version();
    ASSERT_TRUE(view.Add("", TreeRelationship::Last, "P", "Help", "openedBook"));
    ASSERT_TRUE(view.Add("P", TreeRelationship::Child, "A", "Alpha", "helptopic"));
    std::uint64_t added = view.Version();
    EXPECT_GT(added, start);
    view.Select("A");
    view.SetText("A", "Alpha");
    view.SetImage("A", "helptopic");
    EXPECT_EQ(view.Version(), added) << "nothing changed";
    view.SetText("A", "Alpha two");
    EXPECT_GT(view.Version(), added);
    std::uint64_t renamed = view.Version();
    view.SetExpanded("P", true);
    EXPECT_GT(view.Version(), renamed);
    EXPECT_FALSE(view.Add("P", TreeRelationship::Child, "A", "again", ""));
    std::uint64_t expanded = view.Version();
    EXPECT_FALSE(view.Add("P", TreeRelationship::Child, "A", "again", "")) << "a refused add";
    EXPECT_EQ(view.Version(), expanded);
    view.Remove("A");
    EXPECT_GT(view.Version(), expanded);
}

TEST(EditorTreeViewTest, TheTreeGoesToThePageNestedWithEachNodesPage)
{
    EditorTreeView view;
    view.Add("", TreeRelationship::Last, "P", "Help", "openedBook");
    view.Add("P", TreeRelationship::Child, "A", "Alpha", "helptopic");
    view.Add("P", TreeRelationship::Child, "B", "Beta", "hlpclose");
    view.Add("B", TreeRelationship::Child, "B1", "Beta one", "helptopic");
    view.Add("A", TreeRelationship::Next, "A2", "Alpha two", "no");
    view.SetExpanded("P", true);
    nlohmann::json tree = view.Json([](const std::string& key) { return "/h/" + key + ".htm"; });
    ASSERT_EQ(tree.size(), 1u);
    EXPECT_EQ(tree[0]["key"], "P");
    EXPECT_EQ(tree[0]["expanded"], true);
    std::vector<std::string> children;
    for (const auto& child : tree[0]["children"])
        children.push_back(child["key"]);
    EXPECT_EQ(children, (std::vector<std::string> { "A", "A2", "B" }));
    EXPECT_EQ(tree[0]["children"][2]["children"][0]["page"], "/h/B1.htm");
    EXPECT_EQ(tree[0]["children"][1]["image"], "no");
    EXPECT_EQ(tree[0]["children"][1]["text"], "Alpha two");
}

}  // namespace
}  // namespace scriv::studio
