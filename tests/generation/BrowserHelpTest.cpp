#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/BrowserHelp.h"
#include "generation/SiteSearch.h"
#include "generation/Templates.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const std::string kTreeText =
    "                <li>  <a href=\"Welcome.htm\" target=\"right\">Welcome</a> </li>\r\n"
    "                <li>  <a href=\"Forms.htm\" target=\"right\">Forms</a> </li>\r\n"
    "                <UL>\r\n"
    "                        <li>  <a href=\"frmOrders.htm\" target=\"right\">Orders</a> </li>\r\n"
    "                        <li>  <a href=\"frmCustomer.htm\" target=\"right\">Customer &amp; Größe</a> </li>\r\n"
    "                </UL>\r\n";

const std::string kOptionsText =
    "        <option value=\"Welcome.htm\">Welcome</option>\r\n"
    "        <option value=\"frmOrders.htm\">Orders</option>\r\n"
    "        <option value=\"frmOrders.htm#cmdSave\">orders</option>\r\n"
    "        <option value=\"frmCustomer.htm\">Customer &amp; Größe</option>\r\n"
    "        <option value=\"Forms.htm\">Forms</option>\r\n";

std::string Topic(const std::string& title, const std::string& body)
{
    return "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
           "<META http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\r\n<TITLE>"
        + title + "</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<H1>" + title + "</H1>\r\n" + body + "\r\n</BODY>\r\n</HTML>";
}

// Writes the topics of a small help project into folder.
void WriteTopics(const test::TempFolder& folder)
{
    folder.Write("Welcome.htm", Topic("Welcome", "<p>Welcome to Order Desk, the order entry of a small firm.</p>"));
    folder.Write("Forms.htm", Topic("Forms", "<p>The windows of Order Desk.</p>"));
    folder.Write("frmOrders.htm",
        Topic("Orders", "<p>Enter the orders of a customer. The zeppelin button sends them.</p>"
                        "<h2><a name=\"cmdSave\"></a>Save</h2><p>Saves the order.</p>"));
    folder.Write("frmCustomer.htm", Topic("Customer", "<p>Name and address of a customer; Größe matters.</p>"));
    folder.Write("OrdersTOC.htm", Topic("Contents", "<ul><li>tocwordonly</li></ul>"));
}

BrowserHelpInput Input(const test::TempFolder& folder)
{
    BrowserHelpInput input;
    input.folder = folder.Path();
    input.projectFileName = "Orders";
    input.treeText = kTreeText;
    input.optionsText = kOptionsText;
    input.rootPage = "Welcome.htm";
    input.cssFullPath = folder.Path() + "Office10.css";
    input.charset = "utf-8";
    return input;
}

class BrowserHelpTest : public test::CoreFixture {
protected:
    std::string Common(const std::string& name) const { return test::SourceDataFolder() + "Templates/Common/" + name; }

    test::TempFolder m_help;
};

// --- building the browser help ---

TEST_F(BrowserHelpTest, MakeJavaHelpWritesTheFramesAndCopiesTheCommonFiles)
{
    WriteTopics(m_help);
    ASSERT_EQ(MakeJavaHelp2(Input(m_help)), status::kOk);

    for (const char* page : { "main.htm", "hh_toc_java.htm", "hh_index_java.htm", "ss.html", "ss_index.js" })
        EXPECT_TRUE(FileExists(m_help / page)) << page;
    std::vector<std::string> copied;
    for (const char* pattern : { "*.js", "*.css" })
        for (const std::string& name : ListFiles(Common(""), pattern))
            copied.push_back(name);
    ASSERT_GE(copied.size(), 4u);
    for (const std::string& name : copied)
        EXPECT_TRUE(FilesAreEqual(Common(name), m_help / name)) << name;
    std::vector<std::string> images = ListFiles(Common("images/"));
    EXPECT_EQ(ListFiles(m_help / "images/"), images);
    ASSERT_FALSE(images.empty());
    for (const std::string& image : images)
        EXPECT_TRUE(FilesAreEqual(Common("images/" + image), m_help / ("images/" + image))) << image;
}

TEST_F(BrowserHelpTest, ThePlaceholdersOfTheEntryPageAndTheFramesAreFilled)
{
    WriteTopics(m_help);
    m_help.Write("Office10.css", "body {}");
    Parameters().SetHelpProjectTitle("Order Desk Help");
    ASSERT_EQ(MakeJavaHelp2(Input(m_help)), status::kOk);

    std::string main = m_help.Read("main.htm");
    EXPECT_EQ(main.find("{{"), std::string::npos) << main;
    EXPECT_NE(main.find("<iframe class=\"topic\" id=\"right\" name=\"right\" title=\"Topic\" src=\"Welcome.htm\">"), std::string::npos);
    EXPECT_NE(main.find("charset=utf-8\""), std::string::npos);
    EXPECT_NE(main.find("<link href=\"Office10.css\" type=\"text/css\" rel=\"stylesheet\">"), std::string::npos);
    EXPECT_NE(main.find("<title>Order Desk Help</title>"), std::string::npos);

    std::string toc = m_help.Read("hh_toc_java.htm");
    EXPECT_EQ(toc.find("{{"), std::string::npos);
    EXPECT_NE(toc.find("<ul class=\"tree\" id=\"tree\" aria-label=\"Order Desk Help\">\n<li>  <a href=\"Welcome.htm\" target=\"right\">Welcome</a> </li>\r\n"
                       "                <li>  <a href=\"Forms.htm\" target=\"right\">Forms</a> </li>\r\n                <UL>\r\n"),
        std::string::npos)
        << toc;

    std::string index = m_help.Read("hh_index_java.htm");
    EXPECT_EQ(index.find("{{"), std::string::npos);
    EXPECT_NE(index.find("<select id=\"indexOptions\" size=\"20\" aria-label=\"Keywords\">\n"
                         "<option value=\"frmCustomer.htm\">Customer &amp; Größe</option>\r\n"
                         "        <option value=\"Forms.htm\">Forms</option>\r\n"
                         "        <option value=\"frmOrders.htm\">Orders</option>\r\n"
                         "        <option value=\"Welcome.htm\">Welcome</option>\n</select>"),
        std::string::npos)
        << index;
}

TEST_F(BrowserHelpTest, PagesAreWrittenInTheCharsetTheyDeclare)
{
    WriteTopics(m_help);
    BrowserHelpInput input = Input(m_help);
    input.charset = "windows-1252";
    ASSERT_EQ(MakeJavaHelp2(input), status::kOk);
    std::string toc = m_help.Read("hh_toc_java.htm");
    EXPECT_NE(toc.find("charset=windows-1252"), std::string::npos);
    EXPECT_NE(toc.find("Customer &amp; Gr\xF6\xDF" "e</a>"), std::string::npos);
    EXPECT_FALSE(IsValidUtf8(toc));
}

TEST_F(BrowserHelpTest, AFolderThatCannotBeMadeIsAFailureThatTheErrorFrameReports)
{
    m_help.Write("blocked", "a file where the images folder should go");
    BrowserHelpInput input = Input(m_help);
    input.folder = m_help / "blocked/";
    EXPECT_THROW(MakeJavaHelp2(input), ScrivError);
    EXPECT_EQ(MakeJavaHelp(input), status::kGeneralFailure);
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_NE(m_ui->MessageBoxes().back().text.find("Can't create folder"), std::string::npos);
}

// --- the site search ---

TEST_F(BrowserHelpTest, TheSiteSearchLeavesOutTheFramesAndTheContentsPage)
{
    WriteTopics(m_help);
    m_help.Write("Other.html", Topic("Not a topic", "<p>htmlonlyword</p>"));
    ASSERT_EQ(MakeJavaHelp2(Input(m_help)), status::kOk);
    std::string index = m_help.Read("ss_index.js");
    for (const char* topic : { "Welcome.htm", "Forms.htm", "frmOrders.htm", "frmCustomer.htm" })
        EXPECT_NE(index.find("{\"f\": \"" + std::string(topic) + "\""), std::string::npos) << topic;
    for (const char* left : { "main.htm", "hh_toc_java.htm", "hh_index_java.htm", "OrdersTOC.htm", "tocwordonly", "Other.html",
             "htmlonlyword" })
        EXPECT_EQ(index.find(left), std::string::npos) << left;
    EXPECT_NE(index.find("{\"f\": \"frmOrders.htm\", \"t\": \"Orders\", \"s\": \"Enter the orders"), std::string::npos);
    EXPECT_NE(index.find("\"zeppelin\": [3]\n"), std::string::npos) << index;
}

TEST_F(BrowserHelpTest, TheSearchCacheGivesTheSameIndexAndAChangedPageIsReadAgain)
{
    WriteTopics(m_help);
    m_help.Write("Tabbed.htm", Topic("Tabs\tand\r\nbreaks \\ here", "<p>backslash \\ tab\tword</p>"));
    std::string cache = m_help / "cache/SiteSearch.cache";
    MakeFolders(m_help / "cache/");
    WriteSiteSearch(m_help.Path(), "Orders");
    std::string fresh = m_help.Read("ss_index.js");
    // Written from the pages, then from the cache alone: the same index.
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    EXPECT_EQ(m_help.Read("ss_index.js"), fresh);
    ASSERT_TRUE(FileExists(cache));
    // Pages the cache stands for are not parsed again: what it says is what the index shows.
    std::string planted = ReplaceAll(ReadFileText(cache).value_or(""), " zeppelin", " zeppelin airship");
    ASSERT_TRUE(WriteFileBytes(cache, planted));
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    EXPECT_NE(m_help.Read("ss_index.js").find("\"airship\": ["), std::string::npos);
    // A changed page is read again; a removed one is gone from index and cache.
    m_help.Write("frmOrders.htm", Topic("Orders", "<p>Enter the orders by dirigible.</p>"));
    std::filesystem::remove(m_help / "Tabbed.htm");
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    std::string changed = m_help.Read("ss_index.js");
    EXPECT_NE(changed.find("\"dirigible\": ["), std::string::npos);
    EXPECT_EQ(changed.find("\"airship\""), std::string::npos);
    EXPECT_EQ(changed.find("Tabbed.htm"), std::string::npos);
    EXPECT_EQ(ReadFileText(cache).value_or("").find("Tabbed.htm"), std::string::npos);
    // A cache of another form or garbage is ignored, and the index is as from the pages.
    ASSERT_TRUE(WriteFileBytes(cache, "not a cache\nfrmOrders.htm\tx\ty\tz\tfake\n"));
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    std::string again = m_help.Read("ss_index.js");
    WriteSiteSearch(m_help.Path(), "Orders");
    EXPECT_EQ(again, m_help.Read("ss_index.js"));
}

TEST_F(BrowserHelpTest, ManyPagesReadOnSeveralThreadsGiveTheIndexOfOnePageAfterAnother)
{
    // Enough pages to be read on more than one thread, each with a word of its own.
    SiteSearchIndex expected;
    std::vector<std::string> names;
    for (int i = 0; i < 150; ++i) {
        std::string name = "page" + std::to_string(1000 + i) + ".htm";
        std::string html = Topic("Page " + std::to_string(i), "<p>shared word" + std::to_string(i) + "x</p>");
        m_help.Write(name, html);
        names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    for (const std::string& name : names)
        expected.AddPage(name, m_help.Read(name));
    WriteSiteSearch(m_help.Path(), "Orders", m_help / "SiteSearch.cache");
    EXPECT_EQ(m_help.Read("ss_index.js"), expected.ToScript());
    // From the cache the same again.
    WriteSiteSearch(m_help.Path(), "Orders", m_help / "SiteSearch.cache");
    EXPECT_EQ(m_help.Read("ss_index.js"), expected.ToScript());
}

TEST_F(BrowserHelpTest, ATitleWithABackslashComesBackFromTheCacheUnchanged)
{
    std::string cache = m_help / "SiteSearch.cache";
    m_help.Write("Odd.htm", "<html><head><title>A\ttab\r\nand \\ a line</title></head><body><p>text</p></body></html>");
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    std::string fresh = m_help.Read("ss_index.js");
    ASSERT_NE(fresh.find("\"t\": \"A tab and \\\\ a line\""), std::string::npos) << fresh;
    WriteSiteSearch(m_help.Path(), "Orders", cache);
    EXPECT_EQ(m_help.Read("ss_index.js"), fresh);
}

TEST_F(BrowserHelpTest, TheSearchPageHasTheInputTheFramesetExpects)
{
    WriteSiteSearch(m_help.Path(), "Orders");
    std::string page = m_help.Read("ss.html");
    EXPECT_NE(page.find("<input type=\"search\" name=\"s\" size=24 aria-label=\"Search\" autocomplete=\"off\" "
                        "onKeyDown=\"if(event.keyCode==13)return NS()\">"),
        std::string::npos);
    EXPECT_NE(page.find("src=\"ss_index.js\""), std::string::npos);
    EXPECT_LT(page.find("src=\"ss_index.js\""), page.find("src=\"sitesearch.js\""));
    EXPECT_EQ(m_help.Read("ss_index.js"), "var ssIndex = {\n\"pages\": [\n],\n\"words\": {\n}\n};\n");
}

TEST(SiteSearchIndex, WordsAreLettersAndDigitsInLowerCase)
{
    EXPECT_EQ(SiteSearchIndex::Words("Größe, naïve DON'T x 42 v2 ÆRØ e-mail"),
        (std::vector<std::string> { "größe", "naïve", "don", "42", "v2", "ærø", "mail" }));
    EXPECT_TRUE(SiteSearchIndex::Words(std::string(51, 'a')).empty());
    EXPECT_EQ(SiteSearchIndex::Words(std::string(50, 'A')), std::vector<std::string> { std::string(50, 'a') });
}

TEST(SiteSearchIndex, WordsOfEveryScriptAreFoundAsTyped)
{
    // Cyrillic and Greek fold to lower case as the search box's query does;
    // Arabic and Hebrew words stand as they are.
    EXPECT_EQ(SiteSearchIndex::Words("\xD0\xA1\xD0\x9A\xD0\x9B\xD0\x90\xD0\x94, \xCE\x91\xCF\x80\xCE\xBF\xCE\xB8\xCE\xAE\xCE\xBA\xCE\xB7"),
        (std::vector<std::string> { "\xD1\x81\xD0\xBA\xD0\xBB\xD0\xB0\xD0\xB4", "\xCE\xB1\xCF\x80\xCE\xBF\xCE\xB8\xCE\xAE\xCE\xBA\xCE\xB7" }));
    EXPECT_EQ(SiteSearchIndex::Words("\xD8\xA8\xD9\x8A\xD8\xA7\xD9\x86\xD8\xA7\xD8\xAA \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"),
        (std::vector<std::string> { "\xD8\xA8\xD9\x8A\xD8\xA7\xD9\x86\xD8\xA7\xD8\xAA", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D" }));
    // A run of Japanese is found from any of its characters on.
    EXPECT_EQ(SiteSearchIndex::Words("\xE5\x9C\xA8\xE5\xBA\xAB\xE7\xAE\xA1\xE7\x90\x86"),
        (std::vector<std::string> { "\xE5\x9C\xA8\xE5\xBA\xAB\xE7\xAE\xA1\xE7\x90\x86", "\xE5\xBA\xAB\xE7\xAE\xA1\xE7\x90\x86",
            "\xE7\xAE\xA1\xE7\x90\x86" }));
}

TEST(SiteSearchIndex, TheIndexScriptIsWrittenExactly)
{
    SiteSearchIndex index;
    index.AddPage("A.htm", "<title>Say \"hi\"</title><body><h1>Say \"hi\"</h1><p>Zebra zebra</p><script>hidden()</script></body>");
    index.AddPage("b.htm", "<body><h1>Bee</h1><p>zebra &lt;/script&gt;</p></body>");
    EXPECT_EQ(index.PagesOf("zebra"), (std::vector<std::size_t> { 0, 1 }));
    EXPECT_TRUE(index.PagesOf("hidden").empty());
    EXPECT_EQ(index.ToScript(),
        "var ssIndex = {\n"
        "\"pages\": [\n"
        "{\"f\": \"A.htm\", \"t\": \"Say \\\"hi\\\"\", \"s\": \"Zebra zebra\"},\n"
        "{\"f\": \"b.htm\", \"t\": \"Bee\", \"s\": \"zebra \\u003c/script>\"}\n"
        "],\n"
        "\"words\": {\n"
        "\"bee\": [1],\n"
        "\"hi\": [0],\n"
        "\"say\": [0],\n"
        "\"script\": [1],\n"
        "\"zebra\": [0,1]\n"
        "}\n"
        "};\n");
}

TEST(SiteSearchIndex, ATitleFallsBackToTheHeadingThenTheFileName)
{
    SiteSearchIndex index;
    index.AddPage("frmMain.htm", "<body><p>no heading</p></body>");
    index.AddPage("x.htm", "<body><h1>  Main\n window </h1></body>");
    index.AddPage("long.htm", "<body><p>" + std::string(200, 'w') + " end</p></body>");
    EXPECT_EQ(index.Pages()[0].title, "frmMain");
    EXPECT_EQ(index.PagesOf("frmmain"), std::vector<std::size_t> { 0 });
    EXPECT_EQ(index.Pages()[1].title, "Main window");
    EXPECT_EQ(index.Pages()[1].summary, "");
    EXPECT_EQ(index.Pages()[2].summary, std::string(160, 'w') + "\u2026");
}

// --- the options list ---

TEST(BuildOptionsList, CaptionsAreSortedAndKeptOnce)
{
    EXPECT_EQ(BuildOptionsList(kOptionsText, 2),
        "  <option value=\"frmCustomer.htm\">Customer &amp; Größe</option>\r\n"
        "  <option value=\"Forms.htm\">Forms</option>\r\n"
        "  <option value=\"frmOrders.htm\">Orders</option>\r\n"
        "  <option value=\"Welcome.htm\">Welcome</option>");
}

TEST(BuildOptionsList, BlankLinesAndLinesWithoutCaptionAreSkipped)
{
    EXPECT_EQ(BuildOptionsList("\r\n   \r\n<option value=\"b.htm\">b</option>\n<UL>\n<option value=\"a.htm\">A</option>", 0),
        "<option value=\"a.htm\">A</option>\r\n<option value=\"b.htm\">b</option>");
    EXPECT_EQ(BuildOptionsList("", 8), "");
}

// --- the marker script ---

TEST_F(BrowserHelpTest, TheMarkerScriptSendsALoneTopicToTheEntryPage)
{
    std::string script = WBHScriptText();
    EXPECT_EQ(script.rfind("<script type=\"text/javascript\" id=\"wbh\">\r\n<!--\r\ntry {\r\nvar ext = window.external;\r\n", 0), 0u);
    EXPECT_NE(script.find("if (top == self) if (window.document.designMode == \"Inherit\""), std::string::npos);
    EXPECT_NE(script.find("top.location.href=\"main.htm?\"+String.fromCharCode(34)+location.href+String.fromCharCode(34);"),
        std::string::npos);
    EXPECT_NE(script.find("catch(e) {}\r\n//-->\r\n</script>"), std::string::npos);
}

TEST_F(BrowserHelpTest, TheScriptIsAddedOnceAndRemovedAgain)
{
    const std::string original = Topic("Orders", "<p>x</p>");
    std::string page = m_help.Write("frmOrders.htm", original);
    AddWBHScript(page);
    EXPECT_EQ(m_help.Read("frmOrders.htm"), original + "\r\n\r\n" + WBHScriptText());
    AddWBHScript(page);
    EXPECT_EQ(m_help.Read("frmOrders.htm"), original + "\r\n\r\n" + WBHScriptText());

    EXPECT_TRUE(RemoveWBHScript(page));
    EXPECT_EQ(m_help.Read("frmOrders.htm"), original);
    EXPECT_FALSE(RemoveWBHScript(page));
    EXPECT_EQ(m_help.Read("frmOrders.htm"), original);
}

TEST_F(BrowserHelpTest, APageWithoutAScriptAfterItsEndIsLeftAlone)
{
    const std::string text = "<html><body><script>inside()</script></body></HTML>\r\n\r\n<p>after</p>";
    std::string page = m_help.Write("a.htm", text);
    EXPECT_FALSE(RemoveWBHScript(page));
    EXPECT_EQ(m_help.Read("a.htm"), text);
    std::string noEnd = m_help.Write("b.htm", "<html><body>x</body><script>s()</script>");
    EXPECT_FALSE(RemoveWBHScript(noEnd));
    EXPECT_FALSE(RemoveWBHScript(m_help / "missing.htm"));
    AddWBHScript(m_help / "missing.htm");
    EXPECT_FALSE(FileExists(m_help / "missing.htm"));
}

TEST_F(BrowserHelpTest, APageThatMentionsWbhGetsNoScript)
{
    const std::string text = "<html><body><p id=\"wbh\">x</p></body></html>";
    std::string page = m_help.Write("a.htm", text);
    AddWBHScript(page);
    EXPECT_EQ(m_help.Read("a.htm"), text);
}

TEST_F(BrowserHelpTest, AddingAndRemovingKeepTheEncodingOfThePage)
{
    const std::string latin = "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">"
                              "</head><body>Gr\xF6\xDF" "e</body></html>";
    std::string latinPage = m_help.Write("latin.htm", latin);
    AddWBHScript(latinPage);
    EXPECT_EQ(m_help.Read("latin.htm"), latin + "\r\n\r\n" + WBHScriptText());
    EXPECT_TRUE(RemoveWBHScript(latinPage));
    EXPECT_EQ(m_help.Read("latin.htm"), latin);

    const std::string marked = "\xEF\xBB\xBF<html><body>Größe</body></html>";
    std::string markedPage = m_help.Write("marked.htm", marked);
    AddWBHScript(markedPage);
    EXPECT_TRUE(RemoveWBHScript(markedPage));
    EXPECT_EQ(m_help.Read("marked.htm"), marked);
}

// --- page fix-ups ---

TEST_F(BrowserHelpTest, LinkStyleSheetLinksOnceWithARelativePath)
{
    m_help.Write("styles/Office10.css", "body {}");
    std::string page = m_help.Write("frmOrders.htm", Topic("Orders", "<p>x</p>"));
    AddWBHScript(page);
    LinkStyleSheet(m_help / "styles/Office10.css", page);
    std::string once = m_help.Read("frmOrders.htm");
    EXPECT_NE(once.find("<title>Orders</title>\r\n<link rel=\"stylesheet\" type=\"text/css\" href=\"styles/Office10.css\"></head>"),
        std::string::npos)
        << once;
    // The marker script stays at the very end, once.
    std::size_t end = once.find("</html>");
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(once.substr(end), "</html>\r\n\r\n" + WBHScriptText());
    EXPECT_EQ(once.find("<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">\r\n<html>"), 0u);

    LinkStyleSheet(m_help / "styles/Office10.css", page);
    EXPECT_EQ(m_help.Read("frmOrders.htm"), once);
}

TEST_F(BrowserHelpTest, LinkStyleSheetNeedsBothFiles)
{
    const std::string text = Topic("Orders", "<p>x</p>");
    std::string page = m_help.Write("frmOrders.htm", text);
    LinkStyleSheet(m_help / "missing.css", page);
    EXPECT_EQ(m_help.Read("frmOrders.htm"), text);
    m_help.Write("Office10.css", "body {}");
    LinkStyleSheet(m_help / "Office10.css", m_help / "missing.htm");
    EXPECT_FALSE(FileExists(m_help / "missing.htm"));
}

TEST_F(BrowserHelpTest, AbsoluteLinksToThePagesOwnFolderBecomeRelative)
{
    std::string folder = m_help.Path();
    std::string upper = ToUpper(folder);
    std::string page = m_help.Write("a.htm",
        "<a href=\"file://" + folder + "b.htm\">b</a><img src=\"" + folder + "pics/a.jpg\">"
        "<a href=\"FILE://" + upper + "c.htm\">c</a><a href=\"/elsewhere/d.htm\">d</a>");
    MakeRelativeFileLinks(page);
    EXPECT_EQ(m_help.Read("a.htm"), "<a href=\"b.htm\">b</a><img src=\"pics/a.jpg\"><a href=\"c.htm\">c</a><a href=\"/elsewhere/d.htm\">d</a>");

    const std::string untouched = "<a href=\"/elsewhere/d.htm\">d</a>";
    std::string other = m_help.Write("b.htm", untouched);
    MakeRelativeFileLinks(other);
    EXPECT_EQ(m_help.Read("b.htm"), untouched);
}

// --- a whole browser help for the test in a real browser ---

// Writes the help folder that tests/e2e opens in Chromium: into the folder
// named by SCRIVANT_BROWSER_HELP_FIXTURE when it is set, else into a temporary one.
TEST_F(BrowserHelpTest, AWholeBrowserHelpForTheBrowserTest)
{
    const char* requested = std::getenv("SCRIVANT_BROWSER_HELP_FIXTURE");
    std::string folder = requested && *requested ? AddBackslash(requested) : m_help.Path();
    ASSERT_TRUE(MakeFolders(folder));
    for (const std::string& stale : ListFiles(folder, "*"))
        DeleteFileIfExists(folder + stale);

    test::TempFolder topics;
    WriteTopics(topics);
    for (const std::string& name : ListFiles(topics.Path(), "*.htm"))
        ASSERT_TRUE(CopyFileOver(topics / name, folder + name));
    ASSERT_TRUE(CopyFileOver(Common("Office10.css"), folder + "Office10.css"));
    for (const std::string& name : ListFiles(folder, "*.htm")) {
        LinkStyleSheet(folder + "Office10.css", folder + name);
        AddWBHScript(folder + name);
    }
    Parameters().SetHelpProjectTitle("Order Desk Help");
    BrowserHelpInput input = Input(m_help);
    input.folder = folder;
    input.cssFullPath = folder + "Office10.css";
    ASSERT_EQ(MakeJavaHelp2(input), status::kOk);
    EXPECT_NE(ReadFileText(folder + "main.htm")->find("<link href=\"Office10.css\" type=\"text/css\" rel=\"stylesheet\">"),
        std::string::npos);

    std::string orders = *ReadFileText(folder + "frmOrders.htm");
    EXPECT_NE(orders.find("href=\"Office10.css\""), std::string::npos);
    EXPECT_NE(orders.find("id=\"wbh\""), std::string::npos);
    EXPECT_NE(ReadFileText(folder + "ss_index.js")->find("\"zeppelin\": ["), std::string::npos);
}

}  // namespace
}  // namespace scriv
