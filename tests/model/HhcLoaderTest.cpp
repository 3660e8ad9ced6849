#include <gtest/gtest.h>

#include "foundation/CodePage.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTree.h"
#include "model/clsHHCLoader.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using test::CoreFixture;

// The contents file as the program writes it, with tabs in some lines.
constexpr const char* kContents = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\r\n"
                                  "<HTML>\r\n"
                                  "<HEAD>\r\n"
                                  "<meta name=\"GENERATOR\" content=\"Microsoft&reg; HTML Help Workshop 4.1\">\r\n"
                                  "<!-- Sitemap 1.0 -->\r\n"
                                  "</HEAD>\r\n"
                                  "<BODY>\r\n"
                                  "<UL>\r\n"
                                  "        <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                  "                <param name=\"Name\" value=\"Orders Help\">\r\n"
                                  "                <param name=\"Local\" value=\"index.htm\">\r\n"
                                  "        </OBJECT>\r\n"
                                  "        <UL>\r\n"
                                  "\t\t<LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                  "\t\t\t<param name=\"Name\" value=\"Welcome\">\r\n"
                                  "\t\t\t<param name=\"Local\" value=\"welcome.htm\">\r\n"
                                  "\t\t</OBJECT>\r\n"
                                  "                <UL>\r\n"
                                  "                        <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                  "                                <param name=\"Name\" value=\"Details\">\r\n"
                                  "                                <param name=\"Local\" value=\"details.htm\">\r\n"
                                  "                        </OBJECT>\r\n"
                                  "                </UL>\r\n"
                                  "                <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                  "                        <param name=\"Name\" value=\"All Forms\">\r\n"
                                  "                        <param name=\"Local\" value=\"forms.htm\">\r\n"
                                  "                </OBJECT>\r\n"
                                  "                <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                  "                        <param name=\"Name\" value=\"Last\">\r\n"
                                  "                        <param name=\"Local\" value=\"last.htm\">\r\n"
                                  "                </OBJECT>\r\n"
                                  "        </UL>\r\n"
                                  "</UL>\r\n"
                                  "</BODY>\r\n"
                                  "</HTML>\r\n";

// A contents file with one topic per line pair of params below a root.
std::string ContentsWith(const std::string& topics)
{
    return "<HTML>\r\n<BODY>\r\n<UL>\r\n<LI> <OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"Root\">\r\n"
           "<param name=\"Local\" value=\"root.htm\">\r\n</OBJECT>\r\n<UL>\r\n"
        + topics + "</UL>\r\n</UL>\r\n</BODY>\r\n</HTML>\r\n";
}

std::string Topic(const std::string& name, const std::string& local, const std::string& comment = {})
{
    std::string text = "<LI> <OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"" + name + "\">\r\n"
        + "<param name=\"Local\" value=\"" + local + "\">\r\n";
    if (!comment.empty())
        text += "<param name=\"Comment\" value=\"" + comment + "\">\r\n";
    return text + "</OBJECT>\r\n";
}

class HhcImportTest : public CoreFixture {
protected:
    clsHHCLoader m_loader;
};

// --- making the lines well formed ---

TEST_F(HhcImportTest, LinesAreTrimmedDroppedAndClosed)
{
    std::string text = clsHHCLoader::PrepareText("<!DOCTYPE HTML>\r\n\t<META name=\"x\" content=\"&reg;\">\r\n"
                                                 "  <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                                 "\t\t<param name=\"Name\" value=\"a\"> \r\n"
                                                 "\t\t<param name=\"Local\" value=\"a.htm\">\r\n"
                                                 "  </OBJECT>\r\n</LI>\r\n");
    EXPECT_EQ(text,
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n"
        "<LI>  <OBJECT type=\"text/sitemap\">\r\n"
        "<param name=\"Name\" value=\"a\"/>\r\n"
        "<param name=\"Local\" value=\"a.htm\"/>\r\n"
        "</OBJECT></LI>");
}

TEST_F(HhcImportTest, ANameLineWithATrailingBlankIsTrimmedBeforeItIsCut)
{
    std::string path = m_data.Write("t.hhc", ContentsWith("<LI> <OBJECT type=\"text/sitemap\">\r\n"
                                                          "<param name=\"Name\" value=\"a\"> \r\n"
                                                          "<param name=\"Local\" value=\"a.htm\">  \r\n"
                                                          "</OBJECT>\r\n"));
    ASSERT_EQ(m_loader.Load(path), 0u) << m_loader.XmlParseError().Reason();
    const clsHHCObjectEntry* entry = m_loader.FirstEntry()->ChildEntries().at(0).get();
    EXPECT_EQ(entry->Name(), "a");
    EXPECT_EQ(entry->Local(), "a.htm");
}

// --- the entries ---

TEST_F(HhcImportTest, NestingFollowsTheListStructure)
{
    ASSERT_EQ(m_loader.Load(m_data.Write("help.hhc", kContents)), 0u) << m_loader.XmlParseError().Reason();
    ASSERT_EQ(m_loader.TopEntries().size(), 1u);
    const clsHHCObjectEntry* root = m_loader.FirstEntry();
    EXPECT_EQ(root->Name(), "Orders Help");
    EXPECT_EQ(root->Level(), 1);
    ASSERT_EQ(root->ChildEntries().size(), 3u);
    const clsHHCObjectEntry* welcome = root->ChildEntries()[0].get();
    EXPECT_EQ(welcome->Name(), "Welcome");
    EXPECT_EQ(welcome->Level(), 2);
    EXPECT_EQ(welcome->Parent(), root);
    ASSERT_EQ(welcome->ChildEntries().size(), 1u);
    EXPECT_EQ(welcome->ChildEntries()[0]->Name(), "Details");
    EXPECT_EQ(welcome->ChildEntries()[0]->Level(), 3);
    EXPECT_EQ(root->ChildEntries()[1]->Name(), "All Forms");
    EXPECT_EQ(root->ChildEntries()[2]->Name(), "Last");
    EXPECT_EQ(root->ChildEntries()[2]->Local(), "last.htm");
}

TEST_F(HhcImportTest, TheProjectTreeHasGroupsAndNumberedTopics)
{
    ASSERT_EQ(m_loader.Load(m_data.Write("help.hhc", kContents)), 0u);
    EXPECT_EQ(m_loader.GetXMLStr(),
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n"
        "<Project caption=\"Orders Help\" GeneratedHtmlFile=\"index.htm\"  >\r\n"
        "    <x10002 caption=\"Welcome\" GeneratedHtmlFile=\"welcome.htm\"  >\r\n"
        "        <x20003 caption=\"Details\" GeneratedHtmlFile=\"details.htm\"  />\r\n"
        "    </x10002>\r\n"
        "    <Forms caption=\"All Forms\" GeneratedHtmlFile=\"forms.htm\"  stype = \"Form\"   ProcessCode = \"1\"  />\r\n"
        "    <x40002 caption=\"Last\" GeneratedHtmlFile=\"last.htm\"  />\r\n"
        "</Project>\r\n");
}

TEST_F(HhcImportTest, GroupEntriesAreKnownByNameOrSourceType)
{
    std::string topics = Topic("Dialogs", "d.htm") + Topic("All Reports", "r.htm") + Topic("Forms", "f.htm")
        + Topic("Screens", "s.htm", "Scrivant:SourceObjectType=All Dialogs;}");
    ASSERT_EQ(m_loader.Load(m_data.Write("g.hhc", ContentsWith(topics))), 0u);
    std::string text = m_loader.GetXMLStr();
    EXPECT_NE(text.find("    <Dialogs caption=\"Dialogs\" GeneratedHtmlFile=\"d.htm\"  stype = \"Dialog\"  icon = \"form\"  "
                        "ProcessCode = \"1\"  />\r\n"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("    <Reports caption=\"All Reports\" GeneratedHtmlFile=\"r.htm\"  stype = \"Report\"  "
                        "icon = \"report\"   ProcessCode = \"2\"  />\r\n"),
        std::string::npos);
    EXPECT_NE(text.find("    <Forms caption=\"Forms\" "), std::string::npos);
    EXPECT_NE(text.find("    <Dialogs caption=\"Screens\" "), std::string::npos);
}

TEST_F(HhcImportTest, VersionTwoEntriesBecomeFormAndReportTopics)
{
    std::string topics = Topic("Main", "frmMain.htm",
                             "Scrivant:Version=2;SourceApp=Orders;SourceObjectType=Form;ExtraValue=e1;Indexes=open|file}")
        + Topic("Daily", "rptDaily.htm", "Scrivant:Version=2.1;SourceApp=Orders;SourceObjectType=Report}")
        + Topic("OK button", "frmMain.htm#cmdOK", "Scrivant:Version=2;SourceObjectType=Control}");
    ASSERT_EQ(m_loader.Load(m_data.Write("v2.hhc", ContentsWith(topics))), 0u) << m_loader.XmlParseError().Reason();
    std::string text = m_loader.GetXMLStr();
    EXPECT_NE(text.find("    <FORM Name=\"Main\" Key=\"Orders.Form_Main\" caption=\"Main\" icon = \"form\" "
                        "ProcessCode=\"999\" GeneratedHtmlFile=\"frmMain.htm\" title=\"Main\" Skipped = \"0\"  "
                        "stype = \"Form\"  ExtraValue = \"e1\"  Indexes = \"open|file\"  Type = \"2\"  />\r\n"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("    <REPORT Name=\"Daily\" Key=\"Orders.Report_Daily\" caption=\"Daily\" icon = \"report\" "
                        "ProcessCode=\"999\" GeneratedHtmlFile=\"rptDaily.htm\" "),
        std::string::npos);
    EXPECT_NE(text.find(" Type = \"3\"  />"), std::string::npos);
    EXPECT_NE(text.find("    <x30002 caption=\"OK button\" GeneratedHtmlFile=\"frmMain.htm#cmdOK\"  stype = \"Control\"  "
                        "hidden=\"true\"  />"),
        std::string::npos);
}

TEST_F(HhcImportTest, TheImportedTreeLoadsAsAProject)
{
    std::string topics = Topic("All Forms", "forms.htm")
        + Topic("Main", "frmMain.htm", "Scrivant:Version=2;SourceApp=Orders;SourceObjectType=Form;Indexes=open|file}");
    ASSERT_EQ(m_loader.Load(m_data.Write("p.hhc", ContentsWith(topics))), 0u);
    std::string path = m_data / "p.xml";
    ASSERT_EQ(m_loader.SaveXml(path), 0u);

    CHelpPrjTree tree;
    ASSERT_EQ(tree.Load(path, true), 0u);
    ASSERT_NE(tree.Root(), nullptr);
    EXPECT_EQ(tree.Root()->Caption(), "Root");
    CHelpPrjTreeNode* forms = tree.MapItem("Forms");
    ASSERT_NE(forms, nullptr);
    EXPECT_EQ(forms->ProcessCode(), 1);
    CHelpPrjTreeNode* form = tree.MapItem("Orders.Form_Main");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->ObjectType(), 2);
    EXPECT_EQ(form->ProcessCode(), 999);
    EXPECT_EQ(form->GeneratedHTMLFile(), "frmMain.htm");
    EXPECT_FALSE(form->Skipped());
    EXPECT_EQ(form->IndexesCollection(), (std::vector<std::string> { "open", "file" }));
}

TEST_F(HhcImportTest, CommentPairsAddToTheParametersWithoutReplacingThem)
{
    std::string topics = Topic("Main", "m.htm", "Scrivant:Name=Other;SourceApp=Orders;Broken;Version=3}");
    ASSERT_EQ(m_loader.Load(m_data.Write("c.hhc", ContentsWith(topics))), 0u);
    const clsHHCObjectEntry* entry = m_loader.FirstEntry()->ChildEntries().at(0).get();
    EXPECT_EQ(entry->Name(), "Main");
    EXPECT_EQ(entry->SourceApp(), "Orders");
    EXPECT_EQ(entry->ScrivVersionMajor(), 3);
    EXPECT_EQ(entry->Parameter("Broken"), "");
}

TEST_F(HhcImportTest, TheVersionIsItsLeadingNumberOrOne)
{
    clsHHCObjectEntry entry;
    EXPECT_EQ(entry.ScrivVersionMajor(), 1);
    clsHHCObjectEntry twoPointFive;
    twoPointFive.AddParameter("Version", "2.5");
    EXPECT_EQ(twoPointFive.ScrivVersionMajor(), 2);
    clsHHCObjectEntry text;
    text.AddParameter("version", "beta");
    EXPECT_EQ(text.ScrivVersionMajor(), 1);
    EXPECT_EQ(text.Skipped(), "0");
}

// --- writing an entry back as contents ---

TEST_F(HhcImportTest, AnEntryWritesItselfBackAsContentsLines)
{
    std::string topics = "<LI> <OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"Site\">\r\n"
                         "<param name=\"Local\" value=\"site.htm\">\r\n<param name=\"URL\" value=\"http://x\">\r\n"
                         "<param name=\"ImageNumber\" value=\"11\">\r\n</OBJECT>\r\n";
    ASSERT_EQ(m_loader.Load(m_data.Write("w.hhc", ContentsWith(topics))), 0u);
    const std::string expected = "        <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                 "                <param name=\"Name\" value=\"Root\">\r\n"
                                 "                <param name=\"Local\" value=\"root.htm\">\r\n"
                                 "        </OBJECT>\r\n"
                                 "        <UL>\r\n"
                                 "                <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                 "                        <param name=\"Name\" value=\"Site\">\r\n"
                                 "                        <param name=\"Local\" value=\"site.htm\">\r\n"
                                 "                        <param name=\"URL\" value=\"http://x\">\r\n"
                                 "                        <param name=\"ImageNumber\" value=\"11\">\r\n"
                                 "                </OBJECT>\r\n"
                                 "        </UL>\r\n";
    EXPECT_EQ(m_loader.FirstEntry()->HHCStr(), expected);
}

TEST_F(HhcImportTest, WrittenContentsLoadBackToTheSameEntries)
{
    ASSERT_EQ(m_loader.Load(m_data.Write("help.hhc", kContents)), 0u);
    std::string again = "<HTML>\r\n<BODY>\r\n<UL>\r\n" + m_loader.FirstEntry()->HHCStr() + "</UL>\r\n</BODY>\r\n</HTML>\r\n";
    clsHHCLoader second;
    ASSERT_EQ(second.Load(m_data.Write("again.hhc", again)), 0u) << second.XmlParseError().Reason();
    EXPECT_EQ(second.GetXMLStr(), m_loader.GetXMLStr());
}

// --- reading the file ---

TEST_F(HhcImportTest, AFileInTheSystemCodePageIsReadAsSuch)
{
    std::string topics = Topic(ToSystemCodePage("Café"), "cafe.htm");
    ASSERT_EQ(m_loader.Load(m_data.Write("ansi.hhc", ContentsWith(topics))), 0u);
    EXPECT_EQ(m_loader.FirstEntry()->ChildEntries().at(0)->Name(), "Café");
}

TEST_F(HhcImportTest, AFileInUtf8IsReadAsUtf8)
{
    ASSERT_EQ(m_loader.Load(m_data.Write("utf8.hhc", "\xEF\xBB\xBF" + ContentsWith(Topic("Résumé", "r.htm")))), 0u);
    EXPECT_EQ(m_loader.FirstEntry()->ChildEntries().at(0)->Name(), "Résumé");
}

TEST_F(HhcImportTest, AFileThatDoesNotParseKeepsCodeAndReason)
{
    // Values are not encoded on the way in, so a quote inside a name breaks the document.
    ASSERT_EQ(m_loader.Load(m_data.Write("ok.hhc", kContents)), 0u);
    std::uint32_t code = m_loader.Load(m_data.Write("bad.hhc", ContentsWith(Topic("Say \"hi\"", "t.htm"))));
    EXPECT_NE(code, 0u);
    EXPECT_EQ(m_loader.XmlParseError().ErrorCode(), code);
    EXPECT_FALSE(m_loader.XmlParseError().Reason().empty());
    EXPECT_EQ(m_loader.FirstEntry(), nullptr);
    EXPECT_EQ(m_loader.GetXMLStr(), "");
    EXPECT_NE(m_loader.SaveXml(m_data / "bad.xml"), 0u);
}

TEST_F(HhcImportTest, AMissingFileFails)
{
    EXPECT_EQ(m_loader.Load(m_data / "none.hhc"), 0x80040001u);
    EXPECT_EQ(m_loader.FirstEntry(), nullptr);
}

}  // namespace
}  // namespace scriv
