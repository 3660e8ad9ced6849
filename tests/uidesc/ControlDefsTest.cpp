#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DescriptionFixture.h"
#include "uidesc/CFormHTMLControlDef.h"
#include "uidesc/CFormHTMLControlDefs.h"

namespace scriv {
namespace {

using ControlDefTest = test::DescriptionFixture;
using PageDefinitionsTest = test::DescriptionFixture;

CFormHTMLControlDef Definition(std::string form, std::string control, std::string bookmark, std::string caption)
{
    CFormHTMLControlDef definition;
    definition.FormName = std::move(form);
    definition.ControlName = std::move(control);
    definition.BookmarkName = std::move(bookmark);
    definition.TopicCaption = std::move(caption);
    return definition;
}

std::vector<std::string> Bookmarks(const CFormHTMLControlDefs::Definitions& list)
{
    std::vector<std::string> bookmarks;
    for (const auto& entry : list)
        bookmarks.push_back(entry.value.BookmarkName);
    return bookmarks;
}

// A page with a version, the page's form name and an exclude list.
std::string Page(const std::string& version, const std::string& body, const std::string& exclude = {})
{
    std::string head = "<HTML>\r\n<HEAD>\r\n<meta name=\"GENERATOR\" content=\"Scrivant\">\r\n";
    if (!version.empty())
        head += "<meta name=\"SCRIVANT-VERSION\" content=\"" + version + "\">\r\n";
    head += "<meta name=\"SCRIVANT-FORM-NAME\" content=\"frmMain\">\r\n";
    head += "<meta name=\"SCRIVANT-TOC-EXCLUDE-LIST\" content=\"" + exclude + "\">\r\n";
    return head + "</HEAD>\r\n<BODY>\r\n" + body + "\r\n</BODY>\r\n</HTML>\r\n";
}

// One anchor in a heading, one in a paragraph: the readers of headings and of
// bare anchors tell apart.
const char* kHeadingAndParagraph = "<H2><a name=\"frmMain_cmdOK\">OK button</a></H2>\r\n"
                                   "<p><a name=\"frmMain_txtName\">Name box</a></p>";

// --- one definition ---

TEST_F(ControlDefTest, AControlItemEndsWithTwoBlanksBeforeTheClosing)
{
    EXPECT_EQ(Definition("frmMain", "cmdOK", "cmdOK", "OK button").XMLSTr(),
        "<Item  Name=\"cmdOK\" Bmk=\"cmdOK\" Caption=\"OK button\"  />");
}

TEST_F(ControlDefTest, AMenuItemEndsWithIsMenuTrueAndTwoBlanks)
{
    CFormHTMLControlDef menu = Definition("frmMain", "mnuFile", "mnuFile", "File & more");
    menu.IsMenu = true;
    EXPECT_EQ(menu.XMLSTr(), "<Item  Name=\"mnuFile\" Bmk=\"mnuFile\" Caption=\"File &#38; more\" IsMenu = \"True\"  />");
}

TEST_F(ControlDefTest, ParseXmlReadsItsOwnWriting)
{
    CFormHTMLControlDef menu = Definition("frmMain", "mnuFile", "mnuFile", "File <1>");
    menu.IsMenu = true;
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(menu.XMLSTr().c_str()));
    CFormHTMLControlDef read;
    ASSERT_TRUE(read.ParseXML(document.document_element()));
    EXPECT_EQ(read.ControlName, "mnuFile");
    EXPECT_EQ(read.BookmarkName, "mnuFile");
    EXPECT_EQ(read.TopicCaption, "File <1>");
    EXPECT_TRUE(read.IsMenu);
    EXPECT_FALSE(read.ParseXML(pugi::xml_node()));
    EXPECT_TRUE(read.XmlParseError().Failed());
}

TEST_F(ControlDefTest, AnAnchorIsSplitBehindTheFormsNameEvenWithAPrefix)
{
    EXPECT_EQ(CFormHTMLControlDef::BookmarkOfAnchor("frmMain_cmdOK", "frmMain"), "cmdOK");
    EXPECT_EQ(CFormHTMLControlDef::BookmarkOfAnchor("F_frmMain_cmd_OK", "frmMain"), "cmd_OK");
    EXPECT_EQ(CFormHTMLControlDef::BookmarkOfAnchor("xfrmMain_cmdOK", "frmMain"), "cmdOK");
    EXPECT_EQ(CFormHTMLControlDef::BookmarkOfAnchor("frmOther_cmdOK", ""), "cmdOK");
    EXPECT_EQ(CFormHTMLControlDef::BookmarkOfAnchor("plain", "frmMain"), "plain");
}

TEST_F(ControlDefTest, AnchorNamesAreFoundQuotedOrNot)
{
    EXPECT_EQ(CFormHTMLControlDef::AnchorName(R"(<H2><A href="#x" NAME="frm_a">A</A></H2>)"), "frm_a");
    EXPECT_EQ(CFormHTMLControlDef::AnchorName("<a name=frm_b/>"), "frm_b");
    EXPECT_EQ(CFormHTMLControlDef::AnchorName(R"(<a href="#frm_c">C</a>)"), "");
    EXPECT_EQ(CFormHTMLControlDef::AnchorName(R"(<area name="frm_d">)"), "");
}

TEST_F(ControlDefTest, PlainTextDropsTagsAndDecodesEntities)
{
    EXPECT_EQ(CFormHTMLControlDef::PlainText("<a name=\"x\">Save &amp;\r\n  <b>close</b></a>"), "Save & close");
}

// --- reading a page ---

TEST_F(PageDefinitionsTest, AnOlderPageOfVersion2_1_0_48GoesToTheAnchorReader)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("2.1.0.48", kHeadingAndParagraph));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK", "txtName" }));
    EXPECT_EQ(defs.Version(), (std::array<int, 4> { 2, 1, 0, 48 }));
}

TEST_F(PageDefinitionsTest, NewerPagesGoToTheHeadingReader)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("2.1.0.49", kHeadingAndParagraph));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
    defs.ParseText(Page("0.1.0", kHeadingAndParagraph));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
}

TEST_F(PageDefinitionsTest, TheHeadingReaderFindingNothingFallsToTheAnchorReader)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("3.0.0.1", "<p><a name=\"frmMain_txtName\">Name box</a></p>"));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "txtName" }));
}

TEST_F(PageDefinitionsTest, APageWithoutVersionAndMarkersGivesTwoEmptyLists)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("", kHeadingAndParagraph));
    EXPECT_FALSE(defs.HasVersion());
    EXPECT_TRUE(defs.Controls().Empty());
    EXPECT_TRUE(defs.Menus().Empty());
}

TEST_F(PageDefinitionsTest, CommentMarkersNameFormAndControl)
{
    std::string body = "<!-- + CONTROL [frmMain] [cmdOK] + -->\r\n<a name=\"frmMain_cmdOK\"></a><h2>OK button</h2>\r\n"
                       "<!-- + CONTROL IMAGE + --><IMG SRC=\"a.jpg\"><!-- - CONTROL IMAGE - -->\r\n"
                       "<p>Saves.</p>\r\n<!-- - CONTROL [frmMain] [cmdOK] - -->\r\n"
                       "<!-- + MENU [frmMain] [mnuFile] + --><a name=\"frmMain_mnuFile\"></a><h2>File menu</h2>"
                       "<!-- - MENU [frmMain] [mnuFile] - -->\r\n"
                       "<!-- + CONTROL [frmMain] [txtNote] + --><a name=\"frmMain_txtNote\"></a><h2></h2>"
                       "<!-- - CONTROL [frmMain] [txtNote] - -->";
    for (const std::string& version : { std::string(), std::string("2.0.0.7") }) {
        CFormHTMLControlDefs defs;
        defs.ParseText(Page(version, body));
        ASSERT_EQ(defs.Controls().Count(), 1u) << version;
        const CFormHTMLControlDef& control = defs.Controls().At(0).value;
        EXPECT_EQ(control.FormName, "frmMain");
        EXPECT_EQ(control.ControlName, "cmdOK");
        EXPECT_EQ(control.BookmarkName, "cmdOK");
        EXPECT_EQ(control.TopicCaption, "OK button");
        EXPECT_FALSE(control.IsMenu);
        ASSERT_EQ(defs.Menus().Count(), 1u);
        EXPECT_EQ(defs.Menus().At(0).value.TopicCaption, "File menu");
        EXPECT_TRUE(defs.Menus().At(0).value.IsMenu);
    }
}

TEST_F(PageDefinitionsTest, AnImageMovedAboveTheHeadingDoesNotEndTheBlock)
{
    std::string body = "<!-- + CONTROL [frmMain] [cmdOK] + -->\r\n"
                       "<!-- + CONTROL IMAGE + --><IMG SRC=\"a.jpg\"><!-- - CONTROL IMAGE - -->\r\n"
                       "<a name=\"frmMain_cmdOK\"></a><h2>OK button</h2>\r\n<!-- - CONTROL [frmMain] [cmdOK] - -->";
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("", body));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
}

TEST_F(PageDefinitionsTest, AnExcludedBookmarkIsNotAdded)
{
    std::string body = "<H2><a name=\"frmMain_cmdOK\">OK</a></H2>\r\n<H2><a name=\"frmMain_cmdCancel\">Cancel</a></H2>\r\n"
                       "<H2><a name=\"frmMain_txtNote\">Note</a></H2>";
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("0.1.0", body, "cmdCancel| frmMain_txtNote "));
    EXPECT_EQ(defs.ExcludeList(), (std::vector<std::string> { "cmdCancel", "frmMain_txtNote" }));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
    defs.ParseText(Page("2.1.0.10", body, "cmdCancel"));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK", "txtNote" }));
}

TEST_F(PageDefinitionsTest, ADefinitionWithAnEmptyCaptionIsDropped)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("0.1.0", "<H2><a name=\"frmMain_cmdOK\"></a></H2><H2><a name=\"frmMain_cmdNo\">No</a></H2>"));
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdNo" }));
}

TEST_F(PageDefinitionsTest, MenusAndControlsHeadingsSortTheBlocks)
{
    std::string body = "<H2>Menus:</H2>\r\n<H2><a name=\"frmMain_mnuFile\">File</a></H2>\r\n"
                       "<h2 class=\"group\">Controls:</h2>\r\n<H2><a name=\"frmMain_cmdOK\">OK</a></H2>";
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("0.1.0", body));
    EXPECT_EQ(Bookmarks(defs.Menus()), (std::vector<std::string> { "mnuFile" }));
    EXPECT_TRUE(defs.Menus().At(0).value.IsMenu);
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
}

TEST_F(PageDefinitionsTest, OtherHeadingTagsCanCarryTheBlocks)
{
    std::string body = "<H3><a name=\"frmMain_cmdOK\">OK</a></H3><H2><a name=\"frmMain_cmdNo\">No</a></H2>";
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("0.1.0", body), { "H3" });
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK" }));
    defs.ParseText(Page("0.1.0", body), { "H2", "<H3>" });
    EXPECT_EQ(Bookmarks(defs.Controls()), (std::vector<std::string> { "cmdOK", "cmdNo" }));
}

TEST_F(PageDefinitionsTest, HeadingsKeepTheirTextAsThePageShowsIt)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("0.1.0", "<H2><a name=\"frmMain_0_tabMain\">TAB:General &amp; more</a></H2>"));
    ASSERT_EQ(defs.Controls().Count(), 1u);
    EXPECT_EQ(defs.Controls().At(0).value.TopicCaption, "TAB:General & more");
    EXPECT_EQ(defs.Controls().At(0).value.BookmarkName, "0_tabMain");
    EXPECT_EQ(defs.Controls().At(0).value.FormName, "frmMain");
}

TEST_F(PageDefinitionsTest, TheNewerMetaNameWinsOverTheOlder)
{
    std::string html = "<meta name=\"SCRIVANT-FORM-NAME\" content=\"Old\">"
                       "<meta name=\"HTML-SCRIVANT-FORM-NAME\" content=\"New\">";
    EXPECT_EQ(CFormHTMLControlDefs::MetaValue(html, "HTML-SCRIVANT-FORM-NAME"), "New");
    EXPECT_EQ(CFormHTMLControlDefs::MetaValue(html, "SCRIVANT-FORM-NAME"), "Old");
    EXPECT_EQ(CFormHTMLControlDefs::MetaValue(html, "SCRIVANT-VERSION"), "");
    EXPECT_EQ(CFormHTMLControlDefs::MetaValue("<meta name=\"SCRIVANT-VERSION\"><p a=\"b\">", "SCRIVANT-VERSION"), "");
    CFormHTMLControlDefs defs;
    defs.ParseText(html);
    EXPECT_EQ(defs.FormName(), "New");
}

TEST_F(PageDefinitionsTest, AVersionWithAWordBehindIsReadUpToTheBlank)
{
    CFormHTMLControlDefs defs;
    defs.ParseText(Page("2.1.0.12 beta", kHeadingAndParagraph));
    EXPECT_EQ(defs.Version(), (std::array<int, 4> { 2, 1, 0, 12 }));
    EXPECT_EQ(defs.Controls().Count(), 2u);
}

TEST_F(PageDefinitionsTest, APageOnDiskIsReadAndAMissingOneFails)
{
    std::string path = m_data.Write("frmMain.htm", Page("0.1.0", kHeadingAndParagraph));
    CFormHTMLControlDefs defs;
    EXPECT_TRUE(defs.Parse(path));
    EXPECT_EQ(defs.Controls().Count(), 1u);
    EXPECT_FALSE(defs.Parse(m_data / "missing.htm"));
    EXPECT_TRUE(defs.Controls().Empty());
}

}  // namespace
}  // namespace scriv
