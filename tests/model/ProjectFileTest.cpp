#include <gtest/gtest.h>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using test::CoreFixture;

constexpr const char* kSmallTree = R"(<Project Key="P" Name="Help" Caption="My Help" Title="The Help">
  <Welcome Key="W" Caption="Welcome" TemplateHtmlFile="Welcome.htm" GeneratedHtmlFile="welcome.htm" Indexes="start"/>
  <Forms Key="F" Caption="Forms &amp; Reports" ProcessCode="1" skipped="true">
    <FORM Key="F.frmMain" Name="frmMain" type="2" ProcessCode="999" Icon="form" OriginalKey="old-key"/>
  </Forms>
</Project>)";

class ProjectFileTest : public CoreFixture {
protected:
    CHelpPrjTree& LoadText(CHelpPrjTree& tree, const std::string& xml)
    {
        EXPECT_EQ(tree.Load("", true, xml), 0u);
        return tree;
    }

    // Saves a tree, loads the file into a fresh tree and saves that again.
    std::pair<std::string, std::string> SaveLoadSave(CHelpPrjTree& tree)
    {
        std::string first = m_data / "first.svp";
        std::string second = m_data / "second.svp";
        EXPECT_EQ(tree.SaveXml(first, true, ""), 0u);
        CHelpPrjTree reloaded;
        EXPECT_EQ(reloaded.Load(first, false), 0u);
        EXPECT_EQ(reloaded.SaveXml(second, true, ""), 0u);
        return { m_data.Read("first.svp"), m_data.Read("second.svp") };
    }

    static std::unique_ptr<CHelpPrjTreeNode> MakeNode(const std::string& xml)
    {
        CXMLFile file;
        EXPECT_EQ(file.LoadXml(xml), 0u);
        auto node = std::make_unique<CHelpPrjTreeNode>();
        EXPECT_TRUE(node->Build(2, nullptr, file.SharedDocument(), file.DocumentElement()));
        return node;
    }

    CHelpPrjTree m_tree;
};

// --- the layout of the file ---

TEST_F(ProjectFileTest, ASmallTreeIsWrittenLineByLineAsLaidOut)
{
    LoadText(m_tree, kSmallTree);
    std::string path = m_data / "help.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);

    const std::string expected = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n"
                                 "<ScrivProject>\r\n"
                                 "  <Project level = \"1\"  name = \"Help\"  caption = \"My Help\" \r\n"
                                 "          key=\"P\" \r\n"
                                 "          title=\"The Help\"  >\r\n"
                                 "    <Welcome level = \"2\"  caption = \"Welcome\"  TemplateHtmlFile = \"Welcome.htm\" "
                                 " GeneratedHtmlFile = \"welcome.htm\" \r\n"
                                 "            key=\"W\" \r\n"
                                 "            pkey=\"P\"  Indexes = \"start\"  />\r\n"
                                 "    <Forms level = \"2\"  caption = \"Forms &#38; Reports\" \r\n"
                                 "            key=\"F\" \r\n"
                                 "            pkey=\"P\" \r\n"
                                 "            ProcessCode=\"1\" \r\n"
                                 "            skipped=\"-1\"  >\r\n"
                                 "      <FORM level = \"3\"  name = \"frmMain\"  type = \"2\" \r\n"
                                 "              key=\"F.frmMain\" \r\n"
                                 "              pkey=\"F\" \r\n"
                                 "              icon=\"form\" \r\n"
                                 "              ProcessCode=\"999\" \r\n"
                                 "              OriginalKey=\"old&#45;key\"  />\r\n"
                                 "    </Forms>\r\n"
                                 "  </Project>\r\n"
                                 "<Settings>\r\n"
                                 "<Options>\r\n"
                                 "</Options>\r\n"
                                 "</Settings>\r\n"
                                 "</ScrivProject>\r\n";
    EXPECT_EQ(m_data.Read("help.svp"), expected);
}

TEST_F(ProjectFileTest, SavingWhatWasLoadedGivesTheSameBytes)
{
    LoadText(m_tree, kSmallTree);
    auto [first, second] = SaveLoadSave(m_tree);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.find("\r\n\r\n"), std::string::npos);
    // Every line ends in CR LF.
    EXPECT_EQ(ReplaceAll(first, "\r\n", "").find('\n'), std::string::npos);
    EXPECT_EQ(first.substr(first.size() - 2), "\r\n");
}

TEST_F(ProjectFileTest, ACaptionWithQuoteAndBracketSurvivesSaveAndLoad)
{
    LoadText(m_tree, "<Project Key='P'><Topic Key='T'/></Project>");
    m_tree.MapItem("T")->SetCaption("Say \"hi\" <now> & 'then'");
    m_tree.MapItem("T")->SetHtmlTitle("a<b");
    std::string path = m_data / "help.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);

    CHelpPrjTree reloaded;
    ASSERT_EQ(reloaded.Load(path, false), 0u);
    ASSERT_NE(reloaded.MapItem("T"), nullptr);
    EXPECT_EQ(reloaded.MapItem("T")->Caption(), "Say \"hi\" <now> & 'then'");
    EXPECT_EQ(reloaded.MapItem("T")->HtmlTitle(), "a<b");
}

TEST_F(ProjectFileTest, KeywordsOverEightyCharactersSplitIntoNumberedChunks)
{
    LoadText(m_tree, "<Project Key='P'><Topic Key='T'/></Project>");
    std::vector<std::string> keywords;
    for (int i = 1; i <= 12; ++i)
        keywords.push_back("keyword" + std::string(i < 10 ? "0" : "") + std::to_string(i));
    m_tree.MapItem("T")->SetIndexesCollection(keywords);

    // Nine keywords make 89 characters: the chunk closes before the tenth.
    EXPECT_EQ(m_tree.MapItem("T")->IndexesXmlStr(),
        " Indexes = \"keyword01|keyword02|keyword03|keyword04|keyword05|keyword06|keyword07|keyword08|keyword09\"  "
        "Indexes1 = \"keyword10|keyword11|keyword12\" ");

    std::string path = m_data / "help.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);
    CHelpPrjTree reloaded;
    ASSERT_EQ(reloaded.Load(path, false), 0u);
    EXPECT_EQ(reloaded.MapItem("T")->IndexesCollection(), keywords);
}

TEST_F(ProjectFileTest, KeywordsAreEncodedOneByOne)
{
    LoadText(m_tree, "<Project Key='P'/>");
    m_tree.Root()->SetIndexesCollection({ "a/b", "c<d" });
    EXPECT_EQ(m_tree.Root()->IndexesXmlStr(), " Indexes = \"a&#47;b|c&#60;d\" ");
    m_tree.Root()->SetIndexesCollection({});
    EXPECT_EQ(m_tree.Root()->IndexesXmlStr(), "");
}

TEST_F(ProjectFileTest, DefaultProcessCodeAndTypeAreNotWrittenAndReadBackAsDefaults)
{
    LoadText(m_tree, "<Project Key='P'><Topic Key='T' ProcessCode='0' type='-1'/></Project>");
    std::string text = m_tree.GetXMLStr(true, "");
    EXPECT_EQ(text.find("ProcessCode"), std::string::npos);
    EXPECT_EQ(text.find("type"), std::string::npos);

    std::string path = m_data / "help.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);
    CHelpPrjTree reloaded;
    ASSERT_EQ(reloaded.Load(path, false), 0u);
    EXPECT_EQ(reloaded.MapItem("T")->ProcessCode(), 0);
    EXPECT_EQ(reloaded.MapItem("T")->ObjectType(), -1);
}

TEST_F(ProjectFileTest, ATreeWithOnlyTheRootIsOneEmptyElement)
{
    EXPECT_EQ(m_tree.GetXMLStr(true, ""), "");
    LoadText(m_tree, "<Project/>");
    EXPECT_EQ(m_tree.GetXMLStr(true, ""), "  <Project level = \"1\" \r\n          key=\"Project\"  />");

    std::string path = m_data / "help.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);
    CHelpPrjTree reloaded;
    ASSERT_EQ(reloaded.Load(path, false), 0u);
    ASSERT_NE(reloaded.Root(), nullptr);
    EXPECT_EQ(reloaded.Root()->ChildCount(), 0u);
}

TEST_F(ProjectFileTest, ControlAndMenuNodesAreNotWritten)
{
    LoadText(m_tree, "<Project Key='P'><FORM Key='F' Name='frmMain'/></Project>");
    CHelpPrjTreeNode* form = m_tree.MapItem("F");
    auto control = MakeNode("<Control Key='F.cmdOK' Name='cmdOK'/>");
    control->IsControl = true;
    auto menu = MakeNode("<MenuItem Key='F.mnuFile' Name='mnuFile'/>");
    menu->IsMenu = true;
    m_tree.addItem(form, std::move(control), false);
    m_tree.addItem(form, std::move(menu), false);
    ASSERT_EQ(form->ChildCount(), 2u);

    std::string text = m_tree.GetXMLStr(true, "");
    EXPECT_EQ(text.find("cmdOK"), std::string::npos);
    EXPECT_EQ(text.find("mnuFile"), std::string::npos);
    // A form with only control children is an empty element.
    EXPECT_NE(text.find("key=\"F\" \r\n            pkey=\"P\"  />"), std::string::npos) << text;
    EXPECT_EQ(m_tree.MapItem("F.cmdOK")->XMLSTr(3, true, true, false, ""), "");
}

TEST_F(ProjectFileTest, SerializerNodesAreLeftOutWithTheirSubtreeWhenAsked)
{
    LoadText(m_tree, "<Project Key='P'><Forms Key='S' Serializer='GetVBFormsXml'><Topic Key='Inner'/></Forms>"
                     "<Topic Key='T'/></Project>");
    std::string without = m_tree.GetXMLStr(true, "");
    EXPECT_EQ(without.find("GetVBFormsXml"), std::string::npos);
    EXPECT_EQ(without.find("Inner"), std::string::npos);
    EXPECT_NE(without.find("key=\"T\""), std::string::npos);

    std::string with = m_tree.GetXMLStr(false, "");
    EXPECT_NE(with.find("<Forms level = \"2\"  serializer = \"GetVBFormsXml\" "), std::string::npos) << with;
    EXPECT_NE(with.find("key=\"Inner\""), std::string::npos);
}

TEST_F(ProjectFileTest, TheStyleSheetIsWrittenWithItsFileNameOnly)
{
    LoadText(m_tree, "<Project Key='P' CSSFullPath='/somewhere/else/styles/help.css'/>");
    std::string text = m_tree.GetXMLStr(true, "");
    EXPECT_NE(text.find(" CSSFullpath = \"help.css\" "), std::string::npos) << text;
    EXPECT_EQ(text.find("somewhere"), std::string::npos);
}

TEST_F(ProjectFileTest, ExtraRootAttributesFollowTheLevelAndCanReplaceTheName)
{
    LoadText(m_tree, "<Project Key='P' Name='Help' Caption='C'><Topic Key='T' Name='t'/></Project>");
    std::string text = m_tree.GetXMLStr(true, " Name = \"Other\" ");
    EXPECT_EQ(text.rfind("  <Project level = \"1\"  Name = \"Other\"  caption = \"C\" ", 0), 0u) << text;
    EXPECT_EQ(text.find("\"Help\""), std::string::npos);
    // Only the root gets the extra text.
    EXPECT_NE(text.find("<Topic level = \"2\"  name = \"t\" "), std::string::npos);
}

TEST_F(ProjectFileTest, NeighbourKeysComeFromTheTreeView)
{
    LoadText(m_tree, "<Project Key='P'><Topic Key='A'/><Topic Key='B'/><Topic Key='C'/></Project>");
    CHeadlessTreeView view;
    m_tree.DisplayInTreeview(&view);
    std::string text = m_tree.GetXMLStr(true, "");

    // The view also gave every node its icon.
    const std::string indent = "\r\n            ";
    EXPECT_NE(text.find("key=\"A\" " + indent + "pkey=\"P\" " + indent + "nnodekey=\"B\" " + indent + "icon=\"helptopic\"  />"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("key=\"B\" " + indent + "pkey=\"P\" " + indent + "pnodekey=\"A\" " + indent + "nnodekey=\"C\" "),
        std::string::npos);
    EXPECT_NE(text.find("key=\"C\" " + indent + "pkey=\"P\" " + indent + "pnodekey=\"B\" " + indent + "icon="),
        std::string::npos);
    EXPECT_EQ(m_tree.MapItem("B")->PreviousNodeKey(), "A");
    EXPECT_EQ(m_tree.MapItem("B")->NextNodeKey(), "C");
}

TEST_F(ProjectFileTest, WithoutATreeViewStoredNeighbourKeysAreNotWritten)
{
    LoadText(m_tree, "<Project Key='P'><Topic Key='A' pnodekey='X' nnodekey='Y'/></Project>");
    std::string text = m_tree.GetXMLStr(true, "");
    EXPECT_EQ(text.find("nodekey"), std::string::npos);
}

// --- saving with a server: the settings block and the project's name ---

TEST_F(ProjectFileTest, TheSettingsBlockFollowsTheNodesWithoutTheMachinesFolders)
{
    Connect();
    UseProject("Orders", m_data.Path());
    CAddInSettingsXmlFile& settings = Data().GetSettings();
    settings.SetOptionText("LastUsedFolderForGeneratedHelp", "/home/me/help/");
    settings.SetOptionText("FolderForGeneratedHelp", "/home/me/out/");
    settings.SetOptionText("Author", "A. Writer");

    LoadText(m_tree, "<Project Key='P' Caption='Help'/>");
    std::string path = m_data / "Orders.svp";
    ASSERT_EQ(m_tree.SaveXml(path, true, ""), 0u);
    std::string text = m_data.Read("Orders.svp");

    EXPECT_EQ(text.find("LastUsedFolderForGeneratedHelp"), std::string::npos);
    EXPECT_NE(text.find("  <Option Name = \"FolderForGeneratedHelp\" Value = \"{Project Location}CHM\" />\r\n"),
        std::string::npos);
    EXPECT_NE(text.find("  <Option Name = \"Author\" Value = \"A. Writer\" />\r\n"), std::string::npos);
    EXPECT_NE(text.find("</Settings>\r\n</ScrivProject>\r\n"), std::string::npos);
    EXPECT_EQ(text.find("\r\n\r\n"), std::string::npos);

    // The settings reader finds its options in the project file.
    CScrivantParameters parameters;
    CAddInSettingsXmlFile reread(parameters);
    ASSERT_EQ(reread.Load(path, true), 0u);
    EXPECT_EQ(reread.OptionText("Author"), "A. Writer");
}

TEST_F(ProjectFileTest, ANamedRootSetsTheProjectNameAndTitleEverywhere)
{
    Connect();
    CAddInProject& project = UseProject("Orders", m_data.Path());
    LoadText(m_tree, "<Project Key='P' Name='OrdersHelp' Title='Orders Help'/>");
    ASSERT_EQ(m_tree.SaveXml(m_data / "Orders.svp", true, ""), 0u);

    EXPECT_EQ(Data().GetSettings().OptionText("HelpProjectName"), "OrdersHelp");
    EXPECT_EQ(Data().GetSettings().OptionText("HelpProjectTitle"), "Orders Help");
    EXPECT_EQ(Parameters().HelpProjectName(), "OrdersHelp");
    EXPECT_EQ(Parameters().HelpProjectTitle(), "Orders Help");
    EXPECT_EQ(project.Title(), "Orders Help");
}

TEST_F(ProjectFileTest, AnUnnamedRootTakesTheProjectNameAndTitleOfTheParameters)
{
    Parameters().SetHelpProjectName("FromParameters");
    Parameters().SetHelpProjectTitle("Title From Parameters");
    LoadText(m_tree, "<Project Key='P'/>");
    ASSERT_EQ(m_tree.SaveXml(m_data / "help.svp", true, ""), 0u);
    EXPECT_EQ(m_tree.Root()->Name(), "FromParameters");
    EXPECT_EQ(m_tree.Root()->HtmlTitle(), "Title From Parameters");
    std::string text = m_data.Read("help.svp");
    EXPECT_NE(text.find(" name = \"FromParameters\" "), std::string::npos);
    EXPECT_NE(text.find("title=\"Title From Parameters\" "), std::string::npos);
}

// --- failures ---

TEST_F(ProjectFileTest, AFailedWriteIsRaisedAndTheTextGoesToTheTrace)
{
    LoadText(m_tree, "<Project Key='P' Caption='Traceable caption'/>");
    std::string path = m_data / "missing-folder/help.svp";
    try {
        m_tree.SaveXml(path, true, "");
        FAIL() << "a write into a missing folder must fail";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), 0x80040002u);
        EXPECT_EQ(error.Description(), "Error saving XML file " + path);
        EXPECT_EQ(error.Source(), "SaveXML.CHelpPrjTree");
    }
    EXPECT_FALSE(FileExists(path));
    std::string trace = TraceText();
    EXPECT_NE(trace.find("Traceable caption"), std::string::npos);
    EXPECT_NE(trace.find(TraceEscape("<ScrivProject>")), std::string::npos);
}

}  // namespace
}  // namespace scriv
