#include <gtest/gtest.h>

#include <string>

#include <zip.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "wordexport/WordTestSupport.h"

namespace scriv::test {
namespace {

// --- the package ---

TEST(OoxmlPackage, ZipRoundTripPutsTheContentTypesFirstAndStoresPictures)
{
    OoxmlPackage package;
    package.SetPart("word/document.xml", "<w:document/>");
    package.SetPart("word/media/image1.png", PngHeader(4, 4));
    package.SetPart("_rels/.rels", "<Relationships/>");
    package.SetPart("[Content_Types].xml", "<Types/>");
    std::string bytes = package.ZipBytes();
    // Equal parts give equal bytes.
    EXPECT_EQ(bytes, package.ZipBytes());
    // The first local header names the content types.
    ASSERT_GT(bytes.size(), 50u);
    EXPECT_EQ(bytes.substr(0, 4), std::string("PK\x03\x04", 4));
    EXPECT_EQ(bytes.substr(30, 19), "[Content_Types].xml");

    OoxmlPackage read = OoxmlPackage::FromZipBytes(bytes, "memory");
    EXPECT_EQ(read.PartNames(), (std::vector<std::string> { "[Content_Types].xml", "_rels/.rels",
                                    "word/document.xml", "word/media/image1.png" }));
    EXPECT_EQ(*read.Part("word/media/image1.png"), PngHeader(4, 4));

    zip_error_t error;
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    zip_t* archive = zip_open_from_source(source, ZIP_RDONLY, &error);
    ASSERT_NE(archive, nullptr);
    zip_stat_t stat;
    ASSERT_EQ(zip_stat(archive, "word/media/image1.png", 0, &stat), 0);
    EXPECT_EQ(stat.comp_method, ZIP_CM_STORE);
    ASSERT_EQ(zip_stat(archive, "word/document.xml", 0, &stat), 0);
    EXPECT_EQ(stat.comp_method, ZIP_CM_DEFLATE);
    zip_discard(archive);
}

TEST(OoxmlPackage, UnreadablePackagesAreNamedInTheError)
{
    TempFolder folder;
    std::string path = folder.Write("broken.dotx", "this is no zip");
    try {
        OoxmlPackage::Open(path);
        FAIL() << "no error";
    } catch (const ScrivError& error) {
        EXPECT_NE(error.Description().find(path), std::string::npos);
    }
    EXPECT_THROW(OoxmlPackage::Open(folder / "missing.dotx"), ScrivError);
    EXPECT_THROW(OoxmlPackage::FromFolder(folder / "nothing/"), ScrivError);
    // A package without a document cannot be a template.
    OoxmlPackage empty;
    empty.SetPart("[Content_Types].xml", "<Types/>");
    EXPECT_THROW(WordDocument { std::move(empty) }, ScrivError);
}

// --- the template ---

TEST(WordDocTemplate, HasTheStylesFieldsAndContentTypeOfATemplate)
{
    OoxmlPackage parts = TemplateParts();
    pugi::xml_document styles, document, types;
    LoadPart(parts, "word/styles.xml", styles);
    LoadPart(parts, "word/document.xml", document);
    LoadPart(parts, "[Content_Types].xml", types);
    std::vector<std::string> wanted { "Normal", "Title", "TOCHeading", "ListParagraph", "Caption", "TableGrid",
        "Hyperlink", "HTMLPreformatted", "TableText", "Quote" };
    for (int level = 1; level <= 9; ++level) {
        wanted.push_back("Heading" + std::to_string(level));
        wanted.push_back("TOC" + std::to_string(level));
    }
    for (const std::string& id : wanted)
        EXPECT_TRUE(styles.select_node(("//w:style[@w:styleId='" + id + "']").c_str())) << id;
    // Headings carry the outline levels the table of contents collects.
    EXPECT_STREQ(styles.select_node("//w:style[@w:styleId='Heading4']/w:pPr/w:outlineLvl").node().attribute("w:val").value(),
        "3");
    std::vector<std::string> instructions;
    for (const auto& node : document.select_nodes("//w:instrText"))
        instructions.emplace_back(node.node().text().get());
    ASSERT_EQ(instructions.size(), 2u);
    EXPECT_EQ(instructions[0].find(" TITLE"), 0u);
    EXPECT_EQ(instructions[1].find(" TOC"), 0u);
    EXPECT_STREQ(types.select_node("//Override[@PartName='/word/document.xml']").node().attribute("ContentType").value(),
        ooxml::kTemplateMainType);
}

TEST(WordDocTemplate, TheBuiltTemplateHoldsExactlyItsReadableParts)
{
    std::string built = SourceDataFolder() + "Templates/WordDocTemplate.dotx";
    ASSERT_TRUE(FileExists(built)) << "the build zips the template";
    OoxmlPackage zipped = OoxmlPackage::Open(built);
    OoxmlPackage parts = TemplateParts();
    EXPECT_EQ(zipped.PartNames(), parts.PartNames());
    for (const std::string& name : parts.PartNames())
        EXPECT_EQ(*zipped.Part(name), *parts.Part(name)) << name;
}

// --- the document made from it ---

TEST(WordDocument, IsSavedAsADocumentThatUpdatesItsFieldsOnOpen)
{
    TempFolder folder;
    WordDocument document(TemplateParts());
    EXPECT_TRUE(document.SetTitle("Order Desk & Co"));
    std::string path = folder / "out.docx";
    document.Save(path);
    OoxmlPackage saved = OoxmlPackage::Open(path);
    pugi::xml_document types, settings, core, body;
    LoadPart(saved, "[Content_Types].xml", types);
    LoadPart(saved, "word/settings.xml", settings);
    LoadPart(saved, "docProps/core.xml", core);
    LoadPart(saved, "word/document.xml", body);
    EXPECT_STREQ(types.select_node("//Override[@PartName='/word/document.xml']").node().attribute("ContentType").value(),
        ooxml::kDocumentMainType);
    EXPECT_STREQ(settings.select_node("//w:updateFields").node().attribute("w:val").value(), "true");
    EXPECT_STREQ(core.select_node("//dc:title").node().text().get(), "Order Desk & Co");
    // The title field shows the title between its separator and its end.
    pugi::xml_node title = body.select_node("//w:p[w:pPr/w:pStyle/@w:val='Title']").node();
    std::vector<std::string> runs;
    for (pugi::xml_node run : title.children("w:r"))
        runs.emplace_back(run.child("w:fldChar") ? run.child("w:fldChar").attribute("w:fldCharType").value()
                                                  : run.child("w:t") ? run.child("w:t").text().get() : "instr");
    EXPECT_EQ(runs, (std::vector<std::string> { "begin", "instr", "separate", "Order Desk & Co", "end" }));
}

TEST(WordDocument, TheTableOfContentsListsTheHeadingsDownToItsLowestLevel)
{
    WordDocument document(TemplateParts());
    AppendPage(document, "<h1>One</h1><h2>Two</h2><h3>Three</h3><h4>Four</h4>");
    ASSERT_TRUE(document.FillTableOfContents(3));
    // Filling again gives the same entries, not more.
    ASSERT_TRUE(document.FillTableOfContents(3));
    pugi::xml_document doc;
    ASSERT_TRUE(doc.load_string(document.DocumentXml().c_str()));
    std::string instruction;
    for (const auto& node : doc.select_nodes("//w:instrText"))
        if (std::string(node.node().text().get()).find("TOC") != std::string::npos)
            instruction = node.node().text().get();
    EXPECT_NE(instruction.find("\\o \"1-3\""), std::string::npos) << instruction;
    EXPECT_NE(instruction.find("\\h"), std::string::npos);

    auto entries = doc.select_nodes("//w:p[w:hyperlink and starts-with(w:pPr/w:pStyle/@w:val, 'TOC')]");
    ASSERT_EQ(entries.size(), 3u);
    std::vector<std::string> texts, styles, anchors;
    for (const auto& entry : entries) {
        pugi::xml_node link = entry.node().child("w:hyperlink");
        texts.emplace_back(link.child("w:r").child("w:t").text().get());
        styles.emplace_back(entry.node().select_node("w:pPr/w:pStyle").node().attribute("w:val").value());
        anchors.emplace_back(link.attribute("w:anchor").value());
        std::string pageRef = link.select_node(".//w:instrText").node().text().get();
        EXPECT_EQ(pageRef, " PAGEREF " + anchors.back() + " \\h ");
    }
    EXPECT_EQ(texts, (std::vector<std::string> { "One", "Two", "Three" }));
    EXPECT_EQ(styles, (std::vector<std::string> { "TOC1", "TOC2", "TOC3" }));
    EXPECT_EQ(anchors[1], document.Headings()[1].bookmark);
    // The field starts in the first entry, ends in the last, and is marked for update.
    EXPECT_STREQ(entries[0].node().select_node(".//w:fldChar").node().attribute("w:dirty").value(), "true");
    pugi::xml_node last = entries[2].node().last_child();
    EXPECT_STREQ(last.child("w:fldChar").attribute("w:fldCharType").value(), "end");
}

TEST(WordDocument, ATemplateWithoutSettingsOrNumberingGetsThem)
{
    OoxmlPackage parts = TemplateParts();
    parts.RemovePart("word/settings.xml");
    parts.RemovePart("word/numbering.xml");
    // A simple TOC field, as some editors write it.
    std::string document = *parts.Part("word/document.xml");
    std::size_t begin = document.find("<w:r><w:fldChar w:fldCharType=\"begin\" w:dirty=\"true\"/>");
    std::size_t end = document.find("</w:p>", begin);
    ASSERT_NE(begin, std::string::npos);
    document.replace(begin, end - begin, "<w:fldSimple w:instr=\" TOC \\h \"><w:r><w:t>old</w:t></w:r></w:fldSimple>");
    parts.SetPart("word/document.xml", document);

    WordDocument made(std::move(parts));
    AppendPage(made, "<h1>Only</h1><ul><li>item</li></ul>");
    ASSERT_TRUE(made.FillTableOfContents(1));
    OoxmlPackage saved = made.Package();
    ASSERT_TRUE(saved.HasPart("word/settings.xml"));
    ASSERT_TRUE(saved.HasPart("word/numbering.xml"));
    pugi::xml_document rels, types, settings, numbering, body;
    LoadPart(saved, "word/_rels/document.xml.rels", rels);
    LoadPart(saved, "[Content_Types].xml", types);
    LoadPart(saved, "word/settings.xml", settings);
    LoadPart(saved, "word/numbering.xml", numbering);
    LoadPart(saved, "word/document.xml", body);
    EXPECT_TRUE(rels.select_node("//Relationship[@Target='settings.xml']"));
    EXPECT_TRUE(rels.select_node("//Relationship[@Target='numbering.xml']"));
    EXPECT_TRUE(types.select_node("//Override[@PartName='/word/numbering.xml']"));
    EXPECT_STREQ(settings.select_node("//w:updateFields").node().attribute("w:val").value(), "true");
    EXPECT_TRUE(numbering.select_node("//w:abstractNum/w:lvl[@w:ilvl='0']/w:numFmt[@w:val='bullet']"));
    EXPECT_FALSE(body.select_node("//w:fldSimple"));
    EXPECT_EQ(std::string(body.select_node("//w:p[w:pPr/w:pStyle/@w:val='TOC1']/w:hyperlink/w:r/w:t").node().text().get()),
        "Only");
    EXPECT_FALSE(body.select_node("//w:t[text()='old']"));
}

TEST(WordDocument, KeepsTheSchemasOrderInTheTemplatesOwnSettingsAndNumbering)
{
    OoxmlPackage parts = TemplateParts();
    parts.SetPart("word/settings.xml",
        "<w:settings xmlns:w=\"w\"><w:defaultTabStop w:val=\"720\"/><w:compat/><w:rsids/></w:settings>");
    parts.SetPart("word/numbering.xml",
        "<w:numbering xmlns:w=\"w\"><w:num w:numId=\"4\"><w:abstractNumId w:val=\"9\"/></w:num>"
        "<w:numIdMacAtCleanup w:val=\"0\"/></w:numbering>");
    WordDocument document(std::move(parts));
    AppendPage(document, "<ol><li>one</li></ol>");
    OoxmlPackage saved = document.Package();
    pugi::xml_document settings, numbering;
    LoadPart(saved, "word/settings.xml", settings);
    LoadPart(saved, "word/numbering.xml", numbering);
    std::vector<std::string> order;
    for (pugi::xml_node child : settings.document_element().children())
        order.emplace_back(child.name());
    EXPECT_EQ(order, (std::vector<std::string> { "w:defaultTabStop", "w:updateFields", "w:compat", "w:rsids" }));
    order.clear();
    for (pugi::xml_node child : numbering.document_element().children())
        order.emplace_back(child.name());
    EXPECT_EQ(order, (std::vector<std::string> { "w:abstractNum", "w:num", "w:num", "w:numIdMacAtCleanup" }));
    // The new instance does not take the number of the template's own.
    EXPECT_STREQ(numbering.select_node("//w:num[2]").node().attribute("w:numId").value(), "5");
}

}  // namespace
}  // namespace scriv::test
