#include <gtest/gtest.h>

#include <map>
#include <string>

#include "foundation/Paths.h"
#include "htmldom/HtmlSerializer.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"
#include "wordexport/WordTestSupport.h"
#include "wordexport/clsMSWordExport.h"

namespace scriv::test {
namespace {

// --- the copies of the pages ---

TEST(RemoveScriptBlocks, CutsEveryBlockWhateverItsCase)
{
    EXPECT_EQ(RemoveScriptBlocks("a<script>x</script>b<SCRIPT type=t>y</Script>c"), "abc");
    EXPECT_EQ(RemoveScriptBlocks("a<script>never closed"), "a");
    EXPECT_EQ(RemoveScriptBlocks("no scripts"), "no scripts");
}

constexpr const char* kFormPage = R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN">
<html><head><meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta name="SCRIVANT-FORM-NAME" content="frmX"><script>headScript()</script><title>X</title></head>
<body>
<h1 class="t">Customer</h1>
<p>See <a href="Other.htm">other</a>, <a href="file:///tmp/any/B.HTM#frag">b</a>, <a href="http://x/B.htm">web</a>,
<a href="#frmX_txt">in page</a></p>
<!-- + CONTROLS LIST + -->
<h3>Parts of this window</h3>
<ul><li><a href="#frmX_txt">Text</a></li></ul>
<!-- - CONTROLS LIST - -->
<h2>Controls:</h2>
<H2><a name="frmX_txt">Text</a></H2>
<h2><span>Menus:</span></h2>
<h2>Notes</h2>
</body></html>
<script>tailScript()</script>
)";

TEST(clsMSWordExportFile, RefactorHeadingsSetsTheTopicsDepthAndLeavesTheListsOutOfTheContents)
{
    TempFolder folder;
    std::string path = folder.Write("Page.htm", kFormPage);
    clsMSWordExportFile file(path, 3);
    EXPECT_EQ(file.HTag(), "H3");
    ASSERT_TRUE(file.Load());
    EXPECT_GT(file.HtmlDocNodesCount(), 20u);
    file.RefactorHeadings({ { "page.htm", "Page" }, { "b.htm", "B" } });
    const HtmlDocument& page = *file.Document();

    std::vector<std::string> headings;
    for (HtmlElement* element : page.getElementsByTagName("*"))
        if (IsHeadingElement(*element))
            headings.push_back(element->tagName() + ":" + element->textContent());
    // A list heading that does not start with text or a link stays as it is.
    EXPECT_EQ(headings, (std::vector<std::string> { "h3:Customer", "h2:Menus:", "h2:Notes" }));
    std::vector<std::string> bold;
    for (HtmlElement* b : page.getElementsByTagName("b"))
        if (b->parentElement()->is("p"))
            bold.push_back(b->textContent());
    EXPECT_EQ(bold, (std::vector<std::string> { "Parts of this window", "Controls:", "Text" }));

    HtmlElement* top = page.getElementsByTagName("h3").front();
    EXPECT_EQ(top->getAttribute("class"), "t");
    HtmlNode* before = top->previousSibling();
    ASSERT_TRUE(before && before->isElement());
    EXPECT_EQ(before->asElement()->outerHTML(), "<a name=\"Page\"></a>");

    std::vector<std::string> hrefs;
    for (HtmlElement* link : page.getElementsByTagName("a"))
        if (link->hasAttribute("href"))
            hrefs.push_back(link->getAttribute("href"));
    EXPECT_EQ(hrefs, (std::vector<std::string> { "Other.htm", "#B", "http://x/B.htm", "#frmX_txt", "#frmX_txt" }));

    ASSERT_TRUE(file.SaveFile());
    std::string copy = folder.Read("ZZZ_Page.htm");
    EXPECT_EQ(file.RefactoredFullPath(), folder / "ZZZ_Page.htm");
    EXPECT_NE(copy.find("<h3 class=\"t\">Customer</h3>"), std::string::npos);
    EXPECT_EQ(copy.find("headScript"), std::string::npos);
    EXPECT_EQ(copy.find("tailScript"), std::string::npos);
    // The page itself keeps its scripts.
    EXPECT_EQ(folder.Read("Page.htm"), kFormPage);
    file.Terminate();
    file.Terminate();
    EXPECT_FALSE(file.Loaded());
}

TEST(clsMSWordExportFile, HeadingsThatNameTheNodesBookmarkAreListsToo)
{
    TempFolder folder;
    std::string path = folder.Write("Intro.htm", "<h1>Intro</h1><h2>See_Intro</h2><h2>x_Sec</h2>");
    clsMSWordExportFile plain(path, 1);
    ASSERT_TRUE(plain.Load());
    plain.RefactorHeadings({});
    EXPECT_EQ(plain.Document()->getElementsByTagName("h2").size(), 1u);
    EXPECT_EQ(plain.Document()->getElementsByTagName("h1").size(), 1u);

    clsMSWordExportFile marked(path, 2, "Sec");
    ASSERT_TRUE(marked.Load());
    marked.RefactorHeadings({});
    std::vector<HtmlElement*> h2 = marked.Document()->getElementsByTagName("h2");
    ASSERT_EQ(h2.size(), 2u);
    EXPECT_EQ(h2[0]->textContent(), "Intro");
    EXPECT_EQ(h2[1]->textContent(), "See_Intro");
}

TEST(clsMSWordExportFile, APageWithoutHeadingsGetsItsAnchorAtTheStart)
{
    TempFolder folder;
    clsMSWordExportFile file(folder.Write("Bare.htm", "<p>only text</p>"), 2);
    ASSERT_TRUE(file.Load());
    file.RefactorHeadings({});
    EXPECT_EQ(SerializeHtmlChildren(*file.Document()->body()), "<a name=\"Bare\"></a><p>only text</p>");
    clsMSWordExportFile missing(folder / "None.htm", 2);
    EXPECT_FALSE(missing.HTMLFileExists());
    EXPECT_FALSE(missing.Load());
}

// --- the export ---

// A help project in a temporary folder: its project file and pages.
class WordExportTest : public CoreFixture {
protected:
    std::string WriteProject(const std::string& nodes)
    {
        return m_project.Write("Help.svp",
            "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<ScrivProject>\n" + nodes + "\n</ScrivProject>\n");
    }

    CHelpPrjTreeNode& Load(const std::string& svp)
    {
        EXPECT_EQ(m_tree.Load(svp, false), 0u);
        EXPECT_NE(m_tree.Root(), nullptr);
        return *m_tree.Root();
    }

    WordExportProject Project() const { return { "Help", "Help Title", m_project.Path() }; }

    std::vector<std::string> HeadingTexts(const std::string& docx, const char* style)
    {
        OoxmlPackage package = OoxmlPackage::Open(docx);
        pugi::xml_document body;
        LoadPart(package, "word/document.xml", body);
        std::vector<std::string> texts;
        std::string xpath = std::string("//w:p[w:pPr/w:pStyle/@w:val='") + style + "']";
        for (const auto& p : body.select_nodes(xpath.c_str())) {
            std::string text;
            for (const auto& t : p.node().select_nodes(".//w:t"))
                text += t.node().text().get();
            texts.push_back(text);
        }
        return texts;
    }

    void TearDown() override
    {
        m_tree.Terminate();
        CoreFixture::TearDown();
    }

    TempFolder m_project;
    CHelpPrjTree m_tree;
};

TEST_F(WordExportTest, TheFileListFollowsTheContentsWithoutSkippedNodes)
{
    std::string svp = WriteProject(R"(<Project Name="Help" GeneratedHtmlFile="Welcome.htm">
  <Topic key="A" GeneratedHtmlFile="A.htm"><Sub key="A1" GeneratedHtmlFile="A1.htm"/></Topic>
  <Skipped key="S" GeneratedHtmlFile="S.htm" skipped="-1"><Under key="U" GeneratedHtmlFile="U.htm"/></Skipped>
  <Group key="G"><Again key="D" GeneratedHtmlFile="A.htm"/><Last key="C" GeneratedHtmlFile="C.htm"/></Group>
</Project>)");
    m_project.Write("Welcome.htm", "<h1>Welcome</h1>");
    CHelpPrjTreeNode& root = Load(svp);
    auto list = [&] {
        std::vector<std::string> entries;
        for (const auto& file : clsMSWordExport::FillHtmlFileNames(root, Project()).Files)
            entries.push_back(FileNameOf(file->FullPath()) + ":" + std::to_string(file->Level()));
        return entries;
    };
    EXPECT_EQ(list(), (std::vector<std::string> { "Welcome.htm:1", "A.htm:2", "A1.htm:3", "C.htm:3" }));
    // The root's page is the one named after the project, when there is one.
    m_project.Write("Help.htm", "<h1>Help</h1>");
    EXPECT_EQ(list().front(), "Help.htm:1");
    EXPECT_EQ(clsMSWordExport::DefaultTargetPath(Project()), m_project / "Help documentation.docx");
}

TEST_F(WordExportTest, ExportsEveryTopicAtItsDepthAndLeavesThePagesAsTheyWere)
{
    m_project.Write("images/pic.png", PngHeader(40, 30));
    std::map<std::string, std::string> pages {
        { "Welcome.htm", "<h1>Welcome</h1><p>Go to <a href='A.htm'>A</a> or <a href='Outside.htm'>out</a>.</p>"
                         "<script>secretScript()</script>" },
        { "A.htm", "<h1>Topic A</h1><p><img src='images/pic.png'></p><h2>Controls:</h2><h2>Inner</h2>" },
        { "A1.htm", "<h1>Topic A1</h1><p>deep</p>" },
        { "S.htm", "<h1>Skipped topic</h1>" },
    };
    for (const auto& [name, html] : pages)
        m_project.Write(name, html);
    std::string svp = WriteProject(R"(<Project Name="Help" GeneratedHtmlFile="Welcome.htm">
  <Topic key="A" GeneratedHtmlFile="A.htm"><Sub key="A1" GeneratedHtmlFile="A1.htm"/></Topic>
  <Skipped key="S" GeneratedHtmlFile="S.htm" skipped="true"/>
  <Lost key="L" GeneratedHtmlFile="Lost.htm"/>
</Project>)");
    std::string target = m_project / "out/Help.docx";
    clsMSWordExport exporter(*m_ui);
    ASSERT_EQ(exporter.ExportAndReport(Load(svp), Project(), target, true), 0u);
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Export to MS Word finished OK.");
    EXPECT_EQ(m_ui->MessageBoxes().back().title, "Scrivant Add-In");
    EXPECT_EQ(exporter.ImportedCount(), 3);

    EXPECT_EQ(HeadingTexts(target, "Heading1"), std::vector<std::string> { "Welcome" });
    EXPECT_EQ(HeadingTexts(target, "Heading2"), (std::vector<std::string> { "Topic A", "Inner" }));
    EXPECT_EQ(HeadingTexts(target, "Heading3"), std::vector<std::string> { "Topic A1" });
    EXPECT_EQ(HeadingTexts(target, "TOC1"), std::vector<std::string> { "Welcome" });
    EXPECT_EQ(HeadingTexts(target, "TOC2"), (std::vector<std::string> { "Topic A", "Inner" }));
    EXPECT_EQ(HeadingTexts(target, "Title"), std::vector<std::string> { "Help Title" });

    OoxmlPackage package = OoxmlPackage::Open(target);
    const std::string& xml = *package.Part("word/document.xml");
    EXPECT_EQ(xml.find("Skipped topic"), std::string::npos);
    EXPECT_EQ(xml.find("secretScript"), std::string::npos);
    EXPECT_TRUE(package.HasPart("word/media/image1.png"));
    // The link to an exported page leads to its anchor; the one outside stays a link to the file.
    EXPECT_NE(xml.find("<w:hyperlink w:anchor=\"A\""), std::string::npos);
    EXPECT_NE(xml.find("w:name=\"A\""), std::string::npos);
    EXPECT_NE(package.Part("word/_rels/document.xml.rels")->find("Target=\"Outside.htm\""), std::string::npos);

    for (const auto& [name, html] : pages) {
        EXPECT_EQ(m_project.Read(name), html) << name;
        EXPECT_FALSE(FileExists(m_project / ("ZZZ_" + name))) << name;
    }
}

TEST_F(WordExportTest, PagesInACodePageKeepEveryCharacter)
{
    // "Preis: 5 " then the euro sign in windows-1252, and a character that page cannot hold, as an entity.
    m_project.Write("Welcome.htm", "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; "
                                   "charset=windows-1252\"></head><body><h1>Preise</h1><p>Preis: 5 \x80 &#x4E2D;</p>"
                                   "</body></html>");
    CHelpPrjTreeNode& root = Load(WriteProject("<Project Name=\"Help\" GeneratedHtmlFile=\"Welcome.htm\"/>"));
    std::string target = m_project / "Cp.docx";
    clsMSWordExport exporter(*m_ui);
    ASSERT_EQ(exporter.Export(root, Project(), target, false, true), 0u);
    const std::string& xml = *OoxmlPackage::Open(target).Part("word/document.xml");
    EXPECT_NE(xml.find("Preis: 5 \u20AC \u4E2D"), std::string::npos);
}

TEST_F(WordExportTest, ALongExportIsSavedEveryFiftyPagesAndACancelKeepsWhatWasSaved)
{
    std::string nodes = "<Project Name=\"Help\">";
    for (int n = 1; n <= 120; ++n) {
        std::string page = "P" + std::to_string(n) + ".htm";
        nodes += "<T" + std::to_string(n) + " GeneratedHtmlFile=\"" + page + "\"/>";
        m_project.Write(page, "<h1>Topic " + std::to_string(n) + "</h1>");
    }
    std::string svp = WriteProject(nodes + "</Project>");
    CHelpPrjTreeNode& root = Load(svp);
    std::string target = m_project / "Long.docx";

    // Two updates come before the pages: refactoring and importing. Page n is update n + 2.
    auto exportCancelledAtPage = [&](int page) {
        DeleteFileIfExists(target);
        ScriptedUserInterface ui;
        if (page > 0)
            ui.CancelAtUpdate(page + 2);
        clsMSWordExport exporter(ui);
        return exporter.Export(root, Project(), target, false, true);
    };
    EXPECT_EQ(exportCancelledAtPage(40), clsMSWordExport::kCancelled);
    EXPECT_FALSE(FileExists(target));
    EXPECT_EQ(exportCancelledAtPage(51), clsMSWordExport::kCancelled);
    EXPECT_EQ(HeadingTexts(target, "Heading2").size(), 50u);
    EXPECT_EQ(exportCancelledAtPage(110), clsMSWordExport::kCancelled);
    std::vector<std::string> saved = HeadingTexts(target, "Heading2");
    ASSERT_EQ(saved.size(), 100u);
    EXPECT_EQ(saved.back(), "Topic 100");
    // What was saved has its table of contents.
    EXPECT_EQ(HeadingTexts(target, "TOC2").size(), 100u);
    for (int n = 1; n <= 120; ++n)
        ASSERT_FALSE(FileExists(m_project / ("ZZZ_P" + std::to_string(n) + ".htm")));

    EXPECT_EQ(exportCancelledAtPage(0), 0u);
    EXPECT_EQ(HeadingTexts(target, "Heading2").size(), 120u);
}

TEST_F(WordExportTest, AnExistingDocumentIsReplacedOnlyWhenThePersonSaysSo)
{
    m_project.Write("Welcome.htm", "<h1>Welcome</h1>");
    CHelpPrjTreeNode& root = Load(WriteProject("<Project Name=\"Help\" GeneratedHtmlFile=\"Welcome.htm\"/>"));
    std::string target = m_project.Write("Old.docx", "old bytes");

    clsMSWordExport exporter(*m_ui);
    EXPECT_EQ(exporter.Export(root, Project(), target, false, true), clsMSWordExport::kTargetExists);
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "MS Word document '" + target + "' already exists");
    EXPECT_EQ(m_project.Read("Old.docx"), "old bytes");

    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(exporter.ExportAndReport(root, Project(), target, true), clsMSWordExport::kCancelled);
    EXPECT_EQ(m_ui->MessageBoxes().back().text,
        "MS Word document '" + target + "' already exists,\r\nwould you like to replace it with the new document?");
    EXPECT_EQ(m_project.Read("Old.docx"), "old bytes");

    m_ui->QueueAnswer(vbYes);
    EXPECT_EQ(exporter.ExportAndReport(root, Project(), target, true), 0u);
    EXPECT_EQ(HeadingTexts(target, "Heading1"), std::vector<std::string> { "Welcome" });
}

TEST_F(WordExportTest, AFailedExportIsReportedWithItsFileAndRemovesTheCopies)
{
    m_project.Write("Welcome.htm", "<h1>Welcome</h1>");
    CHelpPrjTreeNode& root = Load(WriteProject("<Project Name=\"Help\" GeneratedHtmlFile=\"Welcome.htm\"/>"));
    // A program folder without templates.
    TempFolder home;
    ConfigureFolders({ home.Path(), m_data.Path() });
    clsMSWordExport exporter(*m_ui);
    EXPECT_EQ(exporter.Export(root, Project(), m_project / "x.docx", false, true), status::kGeneralFailure);
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_NE(m_ui->MessageBoxes().back().text.find(home.Path() + "Templates/WordDocTemplate.dotx"), std::string::npos)
        << m_ui->MessageBoxes().back().text;
    EXPECT_FALSE(FileExists(m_project / "x.docx"));
    ConfigureFolders({ SourceDataFolder(), m_data.Path() });

    // A document that cannot be written, after the copies were made.
    std::string folderInTheWay = m_project / "InTheWay.docx";
    ASSERT_TRUE(MakeFolders(folderInTheWay));
    EXPECT_EQ(exporter.Export(root, Project(), folderInTheWay, true, true), status::kGeneralFailure);
    EXPECT_NE(m_ui->MessageBoxes().back().text.find(folderInTheWay), std::string::npos);
    EXPECT_FALSE(FileExists(m_project / "ZZZ_Welcome.htm"));
}

}  // namespace
}  // namespace scriv::test
