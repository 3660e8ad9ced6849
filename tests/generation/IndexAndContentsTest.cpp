#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "generation/ContentsFiles.h"
#include "generation/clsHHK.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const char* const kHead = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
                          "<!-- Sitemap 1.0 -->\r\n<!-- Put Java help object tag here -->\r\n</HEAD>\r\n<BODY>\r\n<UL>\r\n";
const char* const kTail = "</UL>\r\n</BODY>\r\n</HTML>\r\n";

class IndexTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Parameters().FillIndexFromAppObjectsAndControls = true;
    }
};

TEST_F(IndexTest, AKeywordWithOneTopicIsOneEntry)
{
    clsHHK index;
    index.AddCustomLink("Orders", "Orders", "C:\\help\\Orders.htm", "");
    EXPECT_EQ(index.HHKContents(), std::string(kHead)
            + "   <LI> <OBJECT type=\"text/sitemap\">\r\n"
              "   <param name=\"name\" Value = \"Orders\">\r\n"
              "   <param name=\"Local\" Value = \"Orders.htm\">\r\n"
              "   </OBJECT>\r\n"
            + kTail);
}

TEST_F(IndexTest, AKeywordWithSeveralTopicsListsThemTwice)
{
    clsHHK index;
    index.AddCustomLink("Open order", "Open", "Orders.htm", "frmOrders_cmdOpen");
    index.AddCustomLink("Open file", "Open", "Files.htm", "");
    EXPECT_EQ(index.HHKContents(), std::string(kHead)
            + "   <LI> <OBJECT type=\"text/sitemap\">\r\n"
              "   <param name=\"name\" Value = \"Open\">\r\n"
              "   <param name=\"Name\" Value = \"Open file\">\r\n"
              "   <param name=\"Local\" Value = \"Files.htm\">\r\n"
              "   <param name=\"Name\" Value = \"Open order\">\r\n"
              "   <param name=\"Local\" Value = \"Orders.htm#frmOrders_cmdOpen\">\r\n"
              "   </OBJECT>\r\n"
              "   <UL>\r\n"
              "     <LI> <OBJECT type=\"text/sitemap\">\r\n"
              "     <param name=\"Name\" Value = \"Open file\">\r\n"
              "     <param name=\"Local\" Value = \"Files.htm\">\r\n"
              "     </OBJECT>\r\n"
              "     <LI> <OBJECT type=\"text/sitemap\">\r\n"
              "     <param name=\"Name\" Value = \"Open order\">\r\n"
              "     <param name=\"Local\" Value = \"Orders.htm#frmOrders_cmdOpen\">\r\n"
              "     </OBJECT>\r\n"
              "   </UL>\r\n"
              "   </OBJECT>\r\n"
            + kTail);
}

TEST_F(IndexTest, KeywordsGroupWithoutCaseAndShowTheLaterSpelling)
{
    clsHHK index;
    index.AddCustomLink("Zebra", "zebra", "Z.htm", "");
    index.AddCustomLink("Apple", "Apple", "A.htm", "");
    index.AddCustomLink("Zebra two", "ZEBRA", "Z2.htm", "");
    // The same caption twice under one keyword is one entry.
    index.AddCustomLink("Zebra two", "Zebra", "Z3.htm", "");
    const clsHHKObject& root = index.Root();
    ASSERT_EQ(root.ChildCount(), 2u);
    EXPECT_EQ(root.Child(0).IndexGroupDisplayValue(), "Apple");
    EXPECT_EQ(root.Child(1).IndexGroupDisplayValue(), "Zebra");
    EXPECT_EQ(root.Child(1).ChildCount(), 2u);
    EXPECT_EQ(root.Child(1).Parameters().front().Value(), "Zebra");
}

TEST_F(IndexTest, ManyKeywordsInAnyOrderComeOutSortedWithoutCaseAndEachOnce)
{
    clsHHK index;
    std::vector<std::string> keywords;
    // 500 keywords in a scrambled order, each given twice in two spellings.
    for (int i = 0; i < 500; ++i)
        keywords.push_back("Key" + std::to_string((i * 7919) % 500));
    for (const std::string& keyword : keywords) {
        index.AddCustomLink("Topic", keyword, keyword + ".htm", "");
        index.AddCustomLink("Topic", ToUpper(keyword), keyword + ".htm", "");
    }
    const clsHHKObject& root = index.Root();
    ASSERT_EQ(root.ChildCount(), 500u);
    for (std::size_t i = 1; i < root.ChildCount(); ++i)
        EXPECT_LT(CompareNoCase(root.Child(i - 1).IndexGroupDisplayValue(), root.Child(i).IndexGroupDisplayValue()), 0)
            << root.Child(i - 1).IndexGroupDisplayValue() << " before " << root.Child(i).IndexGroupDisplayValue();
}

TEST_F(IndexTest, WithoutObjectEntriesTheIndexIsAnEmptyList)
{
    Parameters().FillIndexFromAppObjectsAndControls = false;
    clsHHK index;
    index.AddCustomLink("Orders", "Orders", "Orders.htm", "");
    EXPECT_EQ(index.HHKContents(), std::string(kHead) + kTail);
}

TEST(IndexCaption, CaptionsOfSeveralWordsAreCutPast32Characters)
{
    EXPECT_EQ(TruncateCaption("Print the orders of one whole day"), "Print the orders of one whole da...");
    EXPECT_EQ(TruncateCaption("Print the orders of the whole da"), "Print the orders of the whole da");
    EXPECT_EQ(TruncateCaption("Averyveryverylongsinglewordthatgoesonandon"), "Averyveryverylongsinglewordthatgoesonandon");
    EXPECT_EQ(clsHHKObjectParameter("Local", "C:\\help\\a.htm#b").Value(), "a.htm#b");
    EXPECT_EQ(clsHHKObjectParameter("Name", "C:\\x").Value(), "C:\\x");
}

// --- the contents ---

class ContentsTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect();
        UseProject("Help", m_out.Path());
    }

    test::TempFolder m_out;
};

TEST_F(ContentsTest, SkippedNodesAndLabelsAreLeftOutAndCaptionsFiltered)
{
    ASSERT_EQ(Tree().Load(m_data.Write("c.xml", R"(<Project Caption="Help" GeneratedHtmlFile="Welcome.htm">
        <Topic Key="T1" Caption="A&quot;B&amp;C" GeneratedHtmlFile="T1.htm" Indexes="alpha|beta">
          <Topic Key="T2" Caption="Inner" GeneratedHtmlFile="T2.htm"/>
        </Topic>
        <Topic Key="T3" Caption="Gone" GeneratedHtmlFile="T3.htm" skipped="true">
          <Topic Key="T4" Caption="Below gone" GeneratedHtmlFile="T4.htm"/>
        </Topic>
        <Label Key="L1" Caption="A label" GeneratedHtmlFile="L.htm"/>
      </Project>)"),
                  true),
        0u);
    std::string hhc = GetHHCStr(Tree());
    EXPECT_EQ(hhc.find("<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
                       "<meta name=\"GENERATOR\" content=\"Microsoft&reg; HTML Help Workshop 4.1\">\r\n"),
        0u);
    EXPECT_NE(hhc.find("                <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                       "                        <param name=\"Name\" value=\"AB&#38;C\">\r\n"
                       "                        <param name=\"Local\" value=\"T1.htm\">\r\n"
                       "                </OBJECT>\r\n"
                       "                <UL>\r\n"
                       "                        <LI>  <OBJECT type=\"text/sitemap\">\r\n"),
        std::string::npos)
        << hhc;
    for (const char* absent : { "T3.htm", "T4.htm", "L.htm" })
        EXPECT_EQ(hhc.find(absent), std::string::npos) << absent;

    std::string options;
    std::string tree = GetTreeStr(Tree(), options);
    EXPECT_EQ(tree.find("Welcome.htm"), std::string::npos);
    EXPECT_NE(tree.find("                <li>  <a href=\"T1.htm\" target=\"right\">AB&#38;C</a> </li>\r\n"),
        std::string::npos)
        << tree;
    EXPECT_NE(options.find("        <option value=\"T1.htm\">alpha</option>\r\n"), std::string::npos) << options;
    EXPECT_NE(options.find("        <option value=\"T2.htm\">Inner</option>\r\n"), std::string::npos) << options;

    clsHHK index;
    Parameters().FillIndexFromAppObjectsAndControls = true;
    ASSERT_EQ(MakeAndSaveHHK(Tree(), m_out / "Help.hhk", index), 0u);
    std::string hhk = m_out.Read("Help.hhk");
    EXPECT_NE(hhk.find("<param name=\"name\" Value = \"beta\">"), std::string::npos) << hhk;
    // A contents file that is replaced keeps its earlier copies.
    ASSERT_EQ(SaveHHC(Tree(), m_out / "Help.hhc"), 0u);
    ASSERT_EQ(SaveHHC(Tree(), m_out / "Help.hhc"), 0u);
    EXPECT_TRUE(FileExists(m_out / "z1_Help.hhc.bak"));
}

TEST_F(ContentsTest, TheContentsFileIsWrittenInTheProjectsCharset)
{
    Parameters().Charset = "windows-1252";
    ASSERT_EQ(Tree().Load(m_data.Write("c.xml", "<Project Caption=\"R\xC3\xA9sum\xC3\xA9\" GeneratedHtmlFile=\"W.htm\"/>"), true),
        0u);
    ASSERT_EQ(SaveHHC(Tree(), m_out / "Help.hhc"), 0u);
    EXPECT_NE(m_out.Read("Help.hhc").find("value=\"R\xE9sum\xE9\""), std::string::npos);
}

}  // namespace
}  // namespace scriv
