#include <gtest/gtest.h>

#include <string>

#include "foundation/CTraceLog.h"
#include "wordexport/UriText.h"
#include "wordexport/WordTestSupport.h"

namespace scriv::test {
namespace {

pugi::xml_document ParseBody(const std::string& body)
{
    pugi::xml_document doc;
    std::string wrapped = "<body xmlns:w='w' xmlns:r='r' xmlns:wp='wp' xmlns:a='a' xmlns:pic='pic'>" + body + "</body>";
    EXPECT_TRUE(doc.load_string(wrapped.c_str())) << body;
    return doc;
}

std::string TextOf(const pugi::xml_node& root)
{
    std::string text;
    for (const pugi::xpath_node& t : root.select_nodes(".//w:t"))
        text += t.node().text().get();
    return text;
}

// --- paragraphs and runs ---

TEST(HtmlToWordml, TextCollapsesWhiteSpaceAndKeepsTheLooksOfItsRuns)
{
    EXPECT_EQ(ConvertBody("<p>  Hello \n  <b>bold</b> and <i>it</i>  </p><p>Two</p>"),
        "<w:p><w:r><w:t xml:space=\"preserve\">Hello</w:t></w:r>"
        "<w:r><w:rPr><w:b/></w:rPr><w:t xml:space=\"preserve\"> bold</w:t></w:r>"
        "<w:r><w:t xml:space=\"preserve\"> and</w:t></w:r>"
        "<w:r><w:rPr><w:i/></w:rPr><w:t xml:space=\"preserve\"> it</w:t></w:r></w:p>"
        "<w:p><w:r><w:t xml:space=\"preserve\">Two</w:t></w:r></w:p>");
}

TEST(HtmlToWordml, UnderlineColourAndLineBreaks)
{
    EXPECT_EQ(ConvertBody("<p><u>under</u><br>line <font color=red>red</font> "
                          "<span style='color:#00f; font-weight:bold'>blue</span></p>"),
        "<w:p><w:r><w:rPr><w:u w:val=\"single\"/></w:rPr><w:t xml:space=\"preserve\">under</w:t></w:r>"
        "<w:r><w:br/></w:r>"
        "<w:r><w:t xml:space=\"preserve\">line</w:t></w:r>"
        "<w:r><w:rPr><w:color w:val=\"FF0000\"/></w:rPr><w:t xml:space=\"preserve\"> red</w:t></w:r>"
        "<w:r><w:rPr><w:b/><w:color w:val=\"0000FF\"/></w:rPr><w:t xml:space=\"preserve\"> blue</w:t></w:r></w:p>");
}

TEST(HtmlToWordml, PreformattedTextKeepsItsLinesAndTabs)
{
    EXPECT_EQ(ConvertBody("<pre>a  b\n\tc</pre>"),
        "<w:p><w:pPr><w:pStyle w:val=\"HTMLPreformatted\"/></w:pPr>"
        "<w:r><w:t xml:space=\"preserve\">a  b</w:t></w:r><w:r><w:br/></w:r><w:r><w:tab/></w:r>"
        "<w:r><w:t xml:space=\"preserve\">c</w:t></w:r></w:p>");
}

TEST(HtmlToWordml, HeadingsTakeTheirStyleAndABookmarkForTheContents)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<h3 align=center>Title <b>x</b></h3><h10>Deep</h10><h2> </h2>");
    pugi::xml_document body = ParseBody(AppendedBody(document));
    EXPECT_EQ(Values(body, "//w:pStyle", "w:val"), (std::vector<std::string> { "Heading3", "Heading9", "Heading2" }));
    EXPECT_EQ(Values(body, "//w:jc", "w:val"), std::vector<std::string> { "center" });
    ASSERT_EQ(document.Headings().size(), 2u);
    EXPECT_EQ(document.Headings()[0].level, 3);
    EXPECT_EQ(document.Headings()[0].text, "Title x");
    EXPECT_EQ(document.Headings()[1].level, 9);
    // The bookmark spans the heading's text; an empty heading gets none.
    EXPECT_EQ(Values(body, "//w:bookmarkStart", "w:name"),
        (std::vector<std::string> { document.Headings()[0].bookmark, document.Headings()[1].bookmark }));
    EXPECT_EQ(document.Headings()[0].bookmark.rfind("_Toc", 0), 0u);
    EXPECT_EQ(body.select_nodes("//w:bookmarkEnd").size(), 2u);
}

// --- lists ---

TEST(HtmlToWordml, NestedListsNumberEachLevelAndEachListOfTheirOwn)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<ul><li>One<ol start=3><li>A</li><li><p>B</p><p>B2</p></li></ol></li><li>Two</li></ul>"
                         "<ol><li>Again</li></ol>");
    pugi::xml_document body = ParseBody(AppendedBody(document));
    auto numbered = body.select_nodes("//w:p[w:pPr/w:numPr]");
    ASSERT_EQ(numbered.size(), 5u);
    std::vector<std::string> texts, levels, ids;
    for (const auto& p : numbered) {
        texts.push_back(TextOf(p.node()));
        levels.emplace_back(p.node().select_node(".//w:ilvl").node().attribute("w:val").value());
        ids.emplace_back(p.node().select_node(".//w:numId").node().attribute("w:val").value());
    }
    EXPECT_EQ(texts, (std::vector<std::string> { "One", "A", "B", "Two", "Again" }));
    EXPECT_EQ(levels, (std::vector<std::string> { "0", "1", "1", "0", "0" }));
    EXPECT_EQ(ids[0], ids[3]);
    EXPECT_EQ(ids[1], ids[2]);
    EXPECT_NE(ids[0], ids[1]);
    EXPECT_NE(ids[1], ids[4]);
    // The second paragraph of an item lines up with its text, without a number.
    pugi::xml_node further = body.select_node("//w:p[w:r/w:t='B2']").node();
    EXPECT_FALSE(further.select_node("w:pPr/w:numPr"));
    EXPECT_EQ(std::string(further.select_node("w:pPr/w:ind").node().attribute("w:left").value()), "1080");

    OoxmlPackage package = document.Package();
    pugi::xml_document numbering;
    LoadPart(package, "word/numbering.xml", numbering);
    auto abstractOf = [&](const std::string& id) {
        std::string xpath = "//w:num[@w:numId='" + id + "']/w:abstractNumId";
        std::string abstract = numbering.select_node(xpath.c_str()).node().attribute("w:val").value();
        xpath = "//w:abstractNum[@w:abstractNumId='" + abstract + "']/w:lvl[@w:ilvl='0']/w:numFmt";
        return std::string(numbering.select_node(xpath.c_str()).node().attribute("w:val").value());
    };
    EXPECT_EQ(abstractOf(ids[0]), "bullet");
    EXPECT_EQ(abstractOf(ids[1]), "decimal");
    std::string start = "//w:num[@w:numId='" + ids[1] + "']/w:lvlOverride[@w:ilvl='1']/w:startOverride";
    EXPECT_EQ(std::string(numbering.select_node(start.c_str()).node().attribute("w:val").value()), "3");
    start = "//w:num[@w:numId='" + ids[4] + "']/w:lvlOverride[@w:ilvl='0']/w:startOverride";
    EXPECT_EQ(std::string(numbering.select_node(start.c_str()).node().attribute("w:val").value()), "1");
}

// --- tables ---

TEST(HtmlToWordml, TablesLayTheirCellsOnAGridWithSpans)
{
    std::string body = ConvertBody("<table border=1><caption>Sizes</caption>"
                                   "<tr><th colspan=2>A</th><td rowspan=2>B</td></tr>"
                                   "<tr><td>C</td><td>D</td></tr><tr><td>E</td></tr></table>");
    pugi::xml_document doc = ParseBody(body);
    EXPECT_EQ(std::string(doc.select_node("/body/w:p/w:pPr/w:pStyle").node().attribute("w:val").value()), "Caption");
    pugi::xml_node table = doc.select_node("//w:tbl").node();
    ASSERT_TRUE(table);
    EXPECT_EQ(std::string(table.select_node("w:tblPr/w:tblStyle").node().attribute("w:val").value()), "TableGrid");
    EXPECT_EQ(table.select_nodes("w:tblGrid/w:gridCol").size(), 3u);
    auto rows = table.select_nodes("w:tr");
    ASSERT_EQ(rows.size(), 3u);
    // Row 1: A over two columns (bold, as a header cell), B starting a merge down.
    auto cells = rows[0].node().select_nodes("w:tc");
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(std::string(cells[0].node().select_node("w:tcPr/w:gridSpan").node().attribute("w:val").value()), "2");
    EXPECT_TRUE(cells[0].node().select_node(".//w:rPr/w:b"));
    EXPECT_EQ(TextOf(cells[0].node()), "A");
    EXPECT_EQ(std::string(cells[1].node().select_node("w:tcPr/w:vMerge").node().attribute("w:val").value()), "restart");
    // Row 2: C, D, and the continued B with an empty paragraph.
    cells = rows[1].node().select_nodes("w:tc");
    ASSERT_EQ(cells.size(), 3u);
    EXPECT_EQ(TextOf(cells[0].node()) + TextOf(cells[1].node()), "CD");
    pugi::xml_node continued = cells[2].node().select_node("w:tcPr/w:vMerge").node();
    ASSERT_TRUE(continued);
    EXPECT_FALSE(continued.attribute("w:val"));
    EXPECT_EQ(TextOf(cells[2].node()), "");
    // Row 3 is short: padded to the grid, every cell ending with a paragraph.
    EXPECT_EQ(rows[2].node().select_nodes("w:tc").size(), 3u);
    for (const auto& tc : table.select_nodes(".//w:tc"))
        EXPECT_STREQ(tc.node().last_child().name(), "w:p");
}

TEST(HtmlToWordml, TablesWithoutBordersGetNoGridAndNestedTablesStayInTheirCell)
{
    pugi::xml_document doc = ParseBody(
        ConvertBody("<table><tr><td>out<table border=1><tr><td>in</td></tr></table></td></tr></table>"));
    auto tables = doc.select_nodes("//w:tbl");
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_FALSE(tables[0].node().select_node("w:tblPr/w:tblStyle"));
    EXPECT_TRUE(tables[1].node().select_node("w:tblPr/w:tblStyle"));
    EXPECT_STREQ(tables[1].node().parent().name(), "w:tc");
}

// --- anchors and links ---

TEST(HtmlToWordml, AnchorsBecomeBookmarksAndLinksLeadToThem)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<a name='Page'></a><h1>Top</h1><p id='x'>target</p><p id='unused'>no</p>"
                         "<p><a href='#x'>go</a> <a href='#frmMain_mnuFileMRU(0)'>menu</a></p>"
                         "<h2><a name='frmMain_mnuFileMRU(0)'>Recent</a></h2>");
    pugi::xml_document body = ParseBody(AppendedBody(document));
    std::vector<std::string> names = Values(body, "//w:bookmarkStart", "w:name");
    ASSERT_EQ(names.size(), 5u);
    // The page's anchor comes before the heading's own bookmark, in the same paragraph.
    EXPECT_EQ(names[0], "Page");
    EXPECT_EQ(names[1].rfind("_Toc", 0), 0u);
    EXPECT_EQ(names[2], "x");
    // An id that nothing links to gets no bookmark.
    EXPECT_EQ(std::count(names.begin(), names.end(), "unused"), 0);
    EXPECT_EQ(Values(body, "//w:hyperlink", "w:anchor"),
        (std::vector<std::string> { "x", WordBookmarkName("frmMain_mnuFileMRU(0)") }));
    EXPECT_NE(std::find(names.begin(), names.end(), WordBookmarkName("frmMain_mnuFileMRU(0)")), names.end());
    EXPECT_EQ(TextOf(body.select_node("//w:hyperlink").node()), "go");
}

TEST(HtmlToWordml, BookmarkNamesAreWhatWordAccepts)
{
    EXPECT_EQ(WordBookmarkName("frmCustomer_txtCode"), "frmCustomer_txtCode");
    std::string odd = WordBookmarkName("frmMain_mnuFileMRU(0)");
    EXPECT_EQ(odd.rfind("frmMain_mnuFileMRU_0__", 0), 0u);
    EXPECT_EQ(odd.size(), 30u);
    EXPECT_EQ(WordBookmarkName("9lives").substr(0, 7), "a9lives");
    EXPECT_EQ(WordBookmarkName("_hidden").substr(0, 8), "a_hidden");
    std::string longA = WordBookmarkName(std::string(45, 'a') + "1");
    std::string longB = WordBookmarkName(std::string(45, 'a') + "2");
    EXPECT_NE(longA, longB);
    EXPECT_LE(longA.size(), 40u);
    EXPECT_EQ(WordBookmarkName("Größe").substr(0, 3), "Gr_");
}

TEST(HtmlToWordml, TwoPagesWithTheSameAnchorEachKeepTheirOwn)
{
    WordDocument document(TemplateParts());
    document.ReserveBookmarkName("Copyright", "Copyright");
    AppendPage(document, "<p><a name='top'>one</a></p><p><a name='Copyright'>c</a></p>", {}, "Welcome");
    AppendPage(document, "<p><a name='top'>two</a> <a href='#top'>up</a></p><a name='Copyright'></a><h1>C</h1>", {},
        "Copyright");
    pugi::xml_document body = ParseBody(AppendedBody(document));
    std::vector<std::string> names = Values(body, "//w:bookmarkStart", "w:name");
    ASSERT_GE(names.size(), 4u);
    EXPECT_EQ(names[0], "top");
    // The name kept for the Copyright page's anchor is not given to the Welcome page.
    EXPECT_EQ(names[1], "Welcome_Copyright");
    EXPECT_EQ(names[2], "Copyright_top");
    EXPECT_EQ(names[3], "Copyright");
    // A link of the second page leads to the second page's anchor.
    EXPECT_EQ(Values(body, "//w:hyperlink", "w:anchor"), std::vector<std::string> { "Copyright_top" });
}

TEST(HtmlToWordml, ExternalLinksBecomeRelationshipsAndScriptLinksPlainText)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<p><a href='http://example.com/a b'>web</a> <a href='http://example.com/a b'>again</a> "
                         "<a href='Other.htm#x'>other</a> <a href='javascript:go()'>js</a></p>");
    pugi::xml_document body = ParseBody(AppendedBody(document));
    std::vector<std::string> ids = Values(body, "//w:hyperlink", "r:id");
    ASSERT_EQ(ids.size(), 3u);
    EXPECT_EQ(ids[0], ids[1]);
    EXPECT_NE(ids[0], ids[2]);
    EXPECT_NE(TextOf(body).find("js"), std::string::npos);

    OoxmlPackage package = document.Package();
    pugi::xml_document rels;
    LoadPart(package, "word/_rels/document.xml.rels", rels);
    auto target = [&](const std::string& id) {
        pugi::xml_node rel = rels.select_node(("//Relationship[@Id='" + id + "']").c_str()).node();
        EXPECT_STREQ(rel.attribute("TargetMode").value(), "External");
        EXPECT_STREQ(rel.attribute("Type").value(), ooxml::kRelHyperlink);
        return std::string(rel.attribute("Target").value());
    };
    EXPECT_EQ(target(ids[0]), "http://example.com/a%20b");
    EXPECT_EQ(target(ids[2]), "Other.htm#x");
}

TEST(UriText, DecodesAndEncodesAddresses)
{
    EXPECT_EQ(PercentDecode("a%20b%2Fc"), "a b/c");
    EXPECT_EQ(PercentDecode("100%"), "100%");
    EXPECT_EQ(PercentDecode("%zz%4"), "%zz%4");
    EXPECT_EQ(UriForRelationship("dir\\my page.htm#x"), "dir/my%20page.htm#x");
    EXPECT_EQ(UriForRelationship("caf\xC3\xA9.htm"), "caf%C3%A9.htm");
    EXPECT_EQ(FileUrl("/tmp/my help/a&b.png"), "file:///tmp/my%20help/a%26b.png");
}

// --- what has no place in Word ---

TEST(HtmlToWordml, ScriptsMapsFormsAndHiddenContentAreLeftOut)
{
    std::string body = ConvertBody(
        "<p>before</p><script>var secret = 1;</script><style>p { color: red }</style>"
        "<map name=m><area href='#a' alt='AreaText'></map>"
        "<form><p>FormText</p><input value='InputText'><select><option>OptionText</option></select>"
        "<textarea>AreaOfText</textarea><button>ButtonText</button></form>"
        "<iframe src='x.htm'>FrameText</iframe><object>ObjectText</object>"
        "<p>kept <span style='display: none'>HiddenText</span><span hidden>AlsoHidden</span>after</p>");
    for (const char* gone : { "secret", "color", "AreaText", "FormText", "InputText", "OptionText", "AreaOfText",
             "ButtonText", "FrameText", "ObjectText", "HiddenText", "AlsoHidden" })
        EXPECT_EQ(body.find(gone), std::string::npos) << gone;
    pugi::xml_document doc = ParseBody(body);
    EXPECT_EQ(TextOf(doc), "beforekept after");
}

TEST(HtmlToWordml, DeeplyNestedPagesDoNotExhaustTheStack)
{
    std::string html;
    for (int i = 0; i < 3000; ++i)
        html += "<span>";
    html += "deep";
    std::string body = ConvertBody(html);
    EXPECT_NE(body.find("deep"), std::string::npos);
}

TEST(HtmlToWordml, ControlCharactersNeverReachTheXml)
{
    std::string body = ConvertBody(std::string("<p title='\x02'>a\x01\x08z<img alt='x\x03y' src='none.png'></p>"));
    for (char c : body)
        EXPECT_FALSE(static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r');
    pugi::xml_document doc = ParseBody(body);
    std::string text = TextOf(doc);
    EXPECT_EQ(text.front(), 'a');
    EXPECT_EQ(text.back(), 'z');
}

// --- pictures ---

class HtmlToWordmlPictures : public ::testing::Test {
protected:
    void SetUp() override { m_folder.Write("images/shot.png", PngHeader(120, 80)); }
    TempFolder m_folder;
};

TEST_F(HtmlToWordmlPictures, PicturesAreStoredOnceAtTheirPixelSize)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<p>see <img src='images/shot.png' alt='The window'> and "
                         "<img src='images%2Fshot.png' width=60></p>",
        m_folder.Path());
    pugi::xml_document body = ParseBody(AppendedBody(document));
    auto extents = body.select_nodes("//wp:extent");
    ASSERT_EQ(extents.size(), 2u);
    EXPECT_STREQ(extents[0].node().attribute("cx").value(), std::to_string(120 * 9525).c_str());
    EXPECT_STREQ(extents[0].node().attribute("cy").value(), std::to_string(80 * 9525).c_str());
    // A given width keeps the proportions.
    EXPECT_STREQ(extents[1].node().attribute("cx").value(), std::to_string(60 * 9525).c_str());
    EXPECT_STREQ(extents[1].node().attribute("cy").value(), std::to_string(40 * 9525).c_str());
    EXPECT_STREQ(body.select_node("//wp:docPr").node().attribute("descr").value(), "The window");
    std::vector<std::string> blips = Values(body, "//a:blip", "r:embed");
    ASSERT_EQ(blips.size(), 2u);
    EXPECT_EQ(blips[0], blips[1]);
    EXPECT_NE(TextOf(body).find("see "), std::string::npos);

    OoxmlPackage package = document.Package();
    ASSERT_TRUE(package.HasPart("word/media/image1.png"));
    EXPECT_EQ(*package.Part("word/media/image1.png"), PngHeader(120, 80));
    EXPECT_FALSE(package.HasPart("word/media/image2.png"));
    pugi::xml_document rels, types;
    LoadPart(package, "word/_rels/document.xml.rels", rels);
    LoadPart(package, "[Content_Types].xml", types);
    pugi::xml_node rel = rels.select_node(("//Relationship[@Id='" + blips[0] + "']").c_str()).node();
    EXPECT_STREQ(rel.attribute("Target").value(), "media/image1.png");
    EXPECT_STREQ(rel.attribute("Type").value(), ooxml::kRelImage);
    EXPECT_FALSE(rel.attribute("TargetMode"));
    EXPECT_STREQ(types.select_node("//Default[@Extension='png']").node().attribute("ContentType").value(), "image/png");
}

TEST_F(HtmlToWordmlPictures, LinkedPicturesPointToTheirFiles)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<img src='images/shot.png'>", m_folder.Path(), "Page", true);
    pugi::xml_document body = ParseBody(AppendedBody(document));
    std::string id = body.select_node("//a:blip").node().attribute("r:link").value();
    ASSERT_FALSE(id.empty());
    OoxmlPackage package = document.Package();
    EXPECT_FALSE(package.HasPart("word/media/image1.png"));
    pugi::xml_document rels;
    LoadPart(package, "word/_rels/document.xml.rels", rels);
    pugi::xml_node rel = rels.select_node(("//Relationship[@Id='" + id + "']").c_str()).node();
    EXPECT_EQ(std::string(rel.attribute("Target").value()), "file://" + m_folder.Path() + "images/shot.png");
    EXPECT_STREQ(rel.attribute("TargetMode").value(), "External");
}

TEST_F(HtmlToWordmlPictures, PicturesWiderThanThePageAreMadeToFitAndMissingOnesAreLeftOut)
{
    m_folder.Write("wide.png", PngHeader(2000, 100));
    m_folder.Write("notapicture.png", "plain text");
    WordDocument document(TemplateParts());
    AppendPage(document, "<p><img src='wide.png'><img src='missing.png'><img src='notapicture.png'>"
                         "<img src='http://example.com/x.png'>text</p>",
        m_folder.Path());
    pugi::xml_document body = ParseBody(AppendedBody(document));
    auto extents = body.select_nodes("//wp:extent");
    ASSERT_EQ(extents.size(), 1u);
    double fit = document.TextWidthTwips() / 15.0;
    EXPECT_EQ(extents[0].node().attribute("cx").as_llong(), static_cast<long long>(fit * 9525 + 0.5));
    EXPECT_EQ(extents[0].node().attribute("cy").as_llong(), static_cast<long long>(100.0 * fit / 2000 * 9525 + 0.5));
    EXPECT_EQ(TextOf(body), "text");
}

}  // namespace
}  // namespace scriv::test
