#include <gtest/gtest.h>

#include <regex>

#include "foundation/CXMLFile.h"
#include "foundation/ScrivError.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using test::CoreFixture;

class TreeTest : public CoreFixture {
protected:
    CHelpPrjTree& LoadText(const std::string& xml)
    {
        EXPECT_EQ(m_tree.Load("", true, xml), 0u);
        return m_tree;
    }

    // A detached node over a one-element document.
    static std::unique_ptr<CHelpPrjTreeNode> MakeNode(const std::string& xml)
    {
        CXMLFile file;
        EXPECT_EQ(file.LoadXml(xml), 0u);
        auto node = std::make_unique<CHelpPrjTreeNode>();
        EXPECT_TRUE(node->Build(2, nullptr, file.SharedDocument(), file.DocumentElement()));
        return node;
    }

    static std::vector<std::string> ChildKeys(const CHelpPrjTreeNode& node)
    {
        std::vector<std::string> keys;
        for (const auto& child : node.ChildNodes())
            keys.push_back(child->Key());
        return keys;
    }

    CHelpPrjTree m_tree;
};

TEST_F(TreeTest, LoadsEveryElementBelowProjectAsANode)
{
    std::string path = m_data.Write("help.svp", R"(<ScrivProject><Project Key="P" Caption="Help">
          <Welcome Key="W" Caption="Welcome" TemplateHtmlFile="Welcome.htm"/>
          <Dialogs Key="D" ProcessCode="1"><FORM Key="D.frmMain" Name="frmMain" type="2" ProcessCode="999"/></Dialogs>
          <!-- a comment is not a node -->
        </Project><Settings><Options/></Settings></ScrivProject>)");
    ASSERT_EQ(m_tree.Load(path, false), 0u);
    ASSERT_NE(m_tree.Root(), nullptr);
    EXPECT_TRUE(m_tree.Root()->IsRootNode);
    EXPECT_EQ(m_tree.Root()->Level(), 1);
    EXPECT_EQ(ChildKeys(*m_tree.Root()), (std::vector<std::string> { "W", "D" }));
    CHelpPrjTreeNode* form = m_tree.MapItem("d.FRMMAIN");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Level(), 3);
    EXPECT_EQ(form->Tag(), "FORM");
    EXPECT_EQ(form->ParentNode()->Key(), "D");
    EXPECT_EQ(form->ObjectType(), 2);
    EXPECT_EQ(form->ProcessCode(), 999);
    EXPECT_EQ(m_tree.NodesQty(), 3);
    EXPECT_EQ(m_tree.MapItems().Count(), 4u);
    EXPECT_TRUE(m_tree.Loaded());
}

TEST_F(TreeTest, GroupsThatTheOptionsLeaveOutAreNotLoaded)
{
    Parameters().GenerateHelpForTables = true;
    LoadText("<Project><Tables/><Queries/><Macros/><Copyright/></Project>");
    EXPECT_EQ(ChildKeys(*m_tree.Root()), (std::vector<std::string> { "Tables", "Copyright" }));
}

TEST_F(TreeTest, AnEmptyKeyReadsAsTheTagSoASecondLabelBecomesLabel1)
{
    LoadText("<Project><Label Caption='a'/><Label Caption='b'/><Label Caption='c'/></Project>");
    EXPECT_EQ(ChildKeys(*m_tree.Root()), (std::vector<std::string> { "Label", "Label1", "Label2" }));
    EXPECT_EQ(m_tree.MapItem("LABEL1")->Caption(), "b");
}

TEST_F(TreeTest, ADuplicateKeyFailsUnlessItMayBeResolved)
{
    LoadText("<Project><Topic Key='K'/></Project>");
    CHelpPrjTreeNode* root = m_tree.Root();
    try {
        m_tree.addItem(root, MakeNode("<Topic Key='k'/>"), false);
        FAIL() << "a duplicate key was accepted";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kGeneralFailure);
        EXPECT_EQ(error.Source(), "CHelpPrjTree.AddItem");
        EXPECT_EQ(error.Description(), "Duplicate node key value 'k'.");
    }
    EXPECT_EQ(root->ChildCount(), 1u);
    CHelpPrjTreeNode* added = m_tree.addItem(root, MakeNode("<Topic Key='K'/>"), true);
    EXPECT_EQ(added->Key(), "K1");
}

TEST_F(TreeTest, TheThousandAndFirstDuplicateFails)
{
    LoadText("<Project><Topic Key='K'/></Project>");
    for (int i = 1; i <= 1000; ++i)
        ASSERT_EQ(m_tree.addItem(m_tree.Root(), MakeNode("<Topic Key='K'/>"), true)->Key(), "K" + std::to_string(i));
    try {
        m_tree.addItem(m_tree.Root(), MakeNode("<Topic Key='K'/>"), true);
        FAIL() << "the 1001st duplicate was accepted";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kSecondFailure);
        EXPECT_EQ(error.Description(), "Duplicate node key value 'K'.");
    }
}

TEST_F(TreeTest, AddItemPutsANodeRelativeToItsSiblings)
{
    LoadText("<Project><A/><B/><C/></Project>");
    CHelpPrjTreeNode* root = m_tree.Root();
    CHelpPrjTreeNode* b = m_tree.MapItem("B");
    m_tree.addItem(root, MakeNode("<X/>"), true, b, nullptr, true, false, false);
    EXPECT_EQ(ChildKeys(*root), (std::vector<std::string> { "A", "B", "X", "C" }));
    m_tree.addItem(root, MakeNode("<Y/>"), true, b, nullptr, true, true, false);
    EXPECT_EQ(ChildKeys(*root), (std::vector<std::string> { "A", "Y", "B", "X", "C" }));
    m_tree.addItem(root, MakeNode("<Z/>"), true, nullptr, m_tree.MapItem("A"), true, false, false);
    EXPECT_EQ(ChildKeys(*root), (std::vector<std::string> { "Z", "A", "Y", "B", "X", "C" }));
    m_tree.addItem(root, MakeNode("<W/>"), true, nullptr, m_tree.MapItem("A"), true, false, true);
    EXPECT_EQ(ChildKeys(*root), (std::vector<std::string> { "Z", "A", "W", "Y", "B", "X", "C" }));
    m_tree.addItem(root, MakeNode("<V/>"), true);
    EXPECT_EQ(ChildKeys(*root).back(), "V");
    EXPECT_EQ(m_tree.MapItem("W")->ParentNode(), root);
}

TEST_F(TreeTest, ANewKeyForAGivenKeyKeepsOrAddsThePrefix)
{
    LoadText("<Project><Orders.frmMain/></Project>");
    EXPECT_EQ(m_tree.GetNewKeyIfGivenExists("frmOther", "Orders"), "Orders.frmOther");
    EXPECT_EQ(m_tree.GetNewKeyIfGivenExists("Orders.frmNew", "Orders"), "Orders.frmNew");
    // Taken: the numbered form is made from the bare key.
    EXPECT_EQ(m_tree.GetNewKeyIfGivenExists("frmMain", "Orders"), "frmMain1");
}

TEST_F(TreeTest, PastingATakenKeyGivesItATimeSuffixAndKeepsAFreeOne)
{
    LoadText("<Project><Topic Key='a_123_'/><Other Key='b'/></Project>");
    CHeadlessTreeView view;
    m_tree.DisplayInTreeview(&view);

    // The old suffix goes, the stem is cut to (length - position - 1) characters.
    CHelpPrjTreeNode* pasted = CHelpPrjTreeNode::Paste(MakeNode("<Topic Key='a_123_'/>"), m_tree.Root(), &view, &m_tree,
        nullptr, nullptr, false, false);
    EXPECT_TRUE(std::regex_match(pasted->Key(), std::regex("a_1_[0-9]+_"))) << pasted->Key();
    EXPECT_EQ(m_tree.MapItem(pasted->Key()), pasted);
    EXPECT_TRUE(view.Exists(pasted->Key()));
    EXPECT_EQ(pasted->Level(), 2);
    EXPECT_FALSE(pasted->IsRootNode);

    // A free key is left alone, and so are its children even when theirs are taken.
    CHelpPrjTree clipboard;
    ASSERT_EQ(clipboard.Load("", false, "<Group Key='free'><Topic Key='b'/></Group>"), 0u);
    CHelpPrjTreeNode* other = CHelpPrjTreeNode::Paste(clipboard.ReleaseRoot(),
        m_tree.Root(), &view, &m_tree, m_tree.MapItem("b"), nullptr, true, false);
    EXPECT_EQ(other->Key(), "free");
    EXPECT_EQ(other->Child(0)->Key(), "b1");
    EXPECT_EQ(other->Child(0)->Level(), 3);
    EXPECT_EQ(other->IndexInParent(), 1u);
}

TEST_F(TreeTest, WithoutATreeViewKeysAreNotMadeUnique)
{
    LoadText("<Project><Topic Key='t'/></Project>");
    auto node = MakeNode("<Topic Key='t'/>");
    node->AssignNewKeyIfDuplicate(&m_tree);
    EXPECT_EQ(node->Key(), "t");
}

TEST_F(TreeTest, TheKeySuffixIsTheTimeOfDayWithoutItsDecimalPoint)
{
    std::string suffix = CHelpPrjTreeNode::GeneratedKeySuffix();
    EXPECT_TRUE(std::regex_match(suffix, std::regex("[0-9]{3,7}"))) << suffix;
}

TEST_F(TreeTest, AttributesAreReadWithoutRegardToCaseWithDefaults)
{
    LoadText("<Project><Topic KEY='t' caption='Hello' PROCESSCODE='2' Skipped='TRUE' genhtml='sub/page.htm'/></Project>");
    CHelpPrjTreeNode* node = m_tree.MapItem("t");
    EXPECT_EQ(node->PropertyValue("Caption"), "Hello");
    EXPECT_EQ(node->ProcessCode(), 2);
    EXPECT_TRUE(node->Skipped());
    EXPECT_EQ(node->GeneratedHTMLFile(), "page.htm");
    EXPECT_EQ(node->PropertyValue("type"), "-1");
    EXPECT_EQ(node->ObjectType(), -1);
    EXPECT_EQ(node->PropertyValue("hidden"), "false");
    EXPECT_EQ(node->PropertyValue("Whatever"), "");

    CHelpPrjTreeNode* root = m_tree.Root();
    EXPECT_EQ(root->PropertyValue("ProcessCode"), "0");
    EXPECT_FALSE(root->Skipped());
}

TEST_F(TreeTest, SkippedReadsEmptyAsFalseNumbersByValueAndOnlyTrueAsText)
{
    LoadText("<Project><A skipped=''/><B skipped='-1'/><C skipped='0'/><D skipped='True'/><E skipped='yes'/></Project>");
    EXPECT_FALSE(m_tree.MapItem("A")->Skipped());
    EXPECT_TRUE(m_tree.MapItem("B")->Skipped());
    EXPECT_FALSE(m_tree.MapItem("C")->Skipped());
    EXPECT_TRUE(m_tree.MapItem("D")->Skipped());
    EXPECT_FALSE(m_tree.MapItem("E")->Skipped());
}

TEST_F(TreeTest, AnAttributeTheElementLacksLivesInTheOverlay)
{
    LoadText("<Project><Topic Key='t' Caption='old'/></Project>");
    CHelpPrjTreeNode* node = m_tree.MapItem("t");
    node->SetCaption("new");
    node->SetIcon("form");
    EXPECT_EQ(node->Caption(), "new");
    EXPECT_EQ(node->Icon(), "form");
    // The element's own attribute was written; the missing one was not added.
    EXPECT_STREQ(node->Element().attribute("Caption").value(), "new");
    EXPECT_FALSE(node->Element().attribute("Icon"));
    EXPECT_FALSE(node->Element().attribute("icon"));
}

TEST_F(TreeTest, TemplateAndGeneratedFileNamesFallBackOnOlderAttributes)
{
    LoadText("<Project><A html='a.htm'/><B htm='b.htm' TemplateHtmlFile=''/><C TemplateHtmlFile='c.htm' html='x.htm'/></Project>");
    EXPECT_EQ(m_tree.MapItem("A")->TemplateHtmlFile(), "a.htm");
    EXPECT_EQ(m_tree.MapItem("B")->TemplateHtmlFile(), "b.htm");
    EXPECT_EQ(m_tree.MapItem("C")->TemplateHtmlFile(), "c.htm");
    CHelpPrjTreeNode* a = m_tree.MapItem("A");
    a->SetGeneratedHTMLFile("/some/folder/page.htm");
    EXPECT_EQ(a->GeneratedHTMLFile(), "page.htm");
    EXPECT_EQ(a->HTMLFileNameNoExt(), "page");
    EXPECT_EQ(a->XmlFormFileName(), "page.xml");
}

TEST_F(TreeTest, IndexKeywordsAreReadFromNumberedChunksUpToTheFirstEmptyOne)
{
    LoadText("<Project><T Indexes='open|save||close' Indexes1='print' Indexes2='' Indexes3='lost'/></Project>");
    EXPECT_EQ(m_tree.MapItem("T")->IndexesCollection(),
        (std::vector<std::string> { "open", "save", "close", "print" }));
}

TEST_F(TreeTest, OnlyTheFiveFirstObjectTypesHaveAComponentTypeName)
{
    LoadText("<Project><A type='0'/><B type='3'/><C type='81'/><D type='82'/><E/></Project>");
    EXPECT_EQ(m_tree.MapItem("A")->NodeComponentTypeName(), "Table");
    EXPECT_EQ(m_tree.MapItem("B")->NodeComponentTypeName(), "Report");
    EXPECT_EQ(m_tree.MapItem("C")->NodeComponentTypeName(), "");
    EXPECT_EQ(m_tree.MapItem("D")->NodeComponentTypeName(), "");
    EXPECT_EQ(m_tree.MapItem("E")->NodeComponentTypeName(), "");
}

TEST_F(TreeTest, AFileNameIsLookedForInTheFirstChildOnly)
{
    LoadText(R"(<Project GeneratedHtmlFile="root.htm">
          <A GeneratedHtmlFile="a.htm"><A1 GeneratedHtmlFile="a1.htm"/></A>
          <B GeneratedHtmlFile="b.htm"/></Project>)");
    EXPECT_TRUE(m_tree.HtmlFileNameIsUsed("ROOT"));
    EXPECT_TRUE(m_tree.HtmlFileNameIsUsed("a1"));
    EXPECT_FALSE(m_tree.HtmlFileNameIsUsed("b"));
    // Defined is the full search of the descendants.
    EXPECT_TRUE(m_tree.Root()->NodeFileNameDefined("B.htm"));
}

TEST_F(TreeTest, LookupsFindNodesByNameAndTagOrType)
{
    LoadText(R"(<Project><Dialogs><FORM Name="frmMain" type="2" ProcessCode="999" Caption="Main &amp; more" GeneratedHtmlFile="Main.htm"/>
          <REPORT Name="frmMain" type="3" ProcessCode="999" GeneratedHtmlFile="R.htm"/></Dialogs></Project>)");
    EXPECT_EQ(m_tree.GetNodeHtmlRef("frmmain", "form"), "<a href=\"Main.htm\">Main  more</a>");
    EXPECT_EQ(m_tree.GetNodeHtmlFileNameNoExt("FRMMAIN", "REPORT"), "R");
    CHelpPrjTreeNode* report = m_tree.Root()->GetUIObjectXMLNode(3, "frmMain");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(report->Tag(), "REPORT");
    EXPECT_EQ(m_tree.Root()->GetUIObjectXMLNode(2, "nothing"), nullptr);
    Parameters().SetIdentifyControls(1);
    EXPECT_EQ(m_tree.MapItem("FORM")->HTMLFileRef(true), "<a href=\"Main.htm\"><B>frmMain</B></a>");
}

TEST_F(TreeTest, TerminateTakesANodeAndItsSubtreeOutOfTreeAndMap)
{
    LoadText("<Project><A><A1><A11/></A1><A2/></A><B/></Project>");
    CHeadlessTreeView view;
    m_tree.DisplayInTreeview(&view);
    ASSERT_TRUE(view.Exists("A11"));
    m_tree.MapItem("A")->Terminate();
    EXPECT_EQ(ChildKeys(*m_tree.Root()), (std::vector<std::string> { "B" }));
    for (const char* key : { "A", "A1", "A11", "A2" }) {
        EXPECT_EQ(m_tree.MapItem(key), nullptr) << key;
        EXPECT_FALSE(view.Exists(key)) << key;
    }
    EXPECT_EQ(m_tree.MapItems().Count(), 2u);

    m_tree.Terminate();
    EXPECT_EQ(m_tree.Root(), nullptr);
    EXPECT_EQ(m_tree.MapItems().Count(), 0u);
    m_tree.Terminate(); // runs once
}

TEST_F(TreeTest, DroppingControlsKeepsTheOtherChildren)
{
    LoadText("<Project><FORM><Control Key='c1'/><Note Key='n'/><MenuItem Key='m1'/></FORM></Project>");
    CHelpPrjTreeNode* form = m_tree.MapItem("FORM");
    m_tree.MapItem("c1")->IsControl = true;
    m_tree.MapItem("m1")->IsMenu = true;
    form->DropChildrenControls();
    EXPECT_EQ(ChildKeys(*form), (std::vector<std::string> { "n" }));
    EXPECT_EQ(m_tree.MapItem("c1"), nullptr);
    EXPECT_EQ(m_tree.MapItem("m1"), nullptr);
    form->ClearChildrenCollection(false);
    EXPECT_EQ(form->ChildCount(), 0u);
    EXPECT_EQ(m_tree.MapItem("n"), nullptr);
}

TEST_F(TreeTest, RemoveItemHandsTheNodeOver)
{
    LoadText("<Project><A><A1/></A></Project>");
    std::unique_ptr<CHelpPrjTreeNode> removed = m_tree.RemoveItem("a");
    ASSERT_NE(removed, nullptr);
    EXPECT_EQ(removed->Key(), "A");
    EXPECT_EQ(removed->ParentNode(), nullptr);
    EXPECT_EQ(m_tree.Root()->ChildCount(), 0u);
    EXPECT_EQ(m_tree.RemoveItem("missing"), nullptr);
}

TEST_F(TreeTest, ContentsHtmlListsTopicsButNotSkippedOrSerializerNodes)
{
    LoadText(R"(<Project Caption="Help" GeneratedHtmlFile="Welcome.htm">
          <Dialogs Caption="Dialogs" GeneratedHtmlFile="Dialogs.htm">
            <All Serializer="GetVBFormsXml" Caption="All"/>
            <FORM Caption="Main" GeneratedHtmlFile="Main.htm"/>
            <FORM Caption="Gone" skipped="true" GeneratedHtmlFile="Gone.htm"/>
          </Dialogs>
          <Empty Caption="Empty" GeneratedHtmlFile="Empty.htm"><Hidden skipped="-1"/></Empty>
        </Project>)");
    std::string expected = "<LI><A href=\"Welcome.htm\">Help</A></LI>\r\n"
                           "<UL>\r\n"
                           "    <LI><A href=\"Dialogs.htm\">Dialogs</A></LI>\r\n"
                           "    <UL>\r\n"
                           "        <LI><A href=\"Main.htm\">Main</A></LI>\r\n"
                           "    </UL>\r\n"
                           "    <LI><A href=\"Empty.htm\">Empty</A></LI>\r\n"
                           "</UL>\r\n";
    EXPECT_EQ(m_tree.Root()->ContentsHTML(1, true), expected);
}

TEST_F(TreeTest, ControlChildrenCanBeLeftOutOfTheContents)
{
    LoadText("<Project Caption='P' GeneratedHtmlFile='p.htm'><FORM Caption='F' GeneratedHtmlFile='f.htm'><Control Caption='C'/></FORM></Project>");
    m_tree.MapItem("Control")->IsControl = true;
    EXPECT_EQ(m_tree.MapItem("FORM")->ContentsHTML(2, true), "    <LI><A href=\"f.htm\">F</A></LI>\r\n");
    EXPECT_NE(m_tree.MapItem("FORM")->ContentsHTML(2, false).find(">C</A>"), std::string::npos);
}

TEST_F(TreeTest, TheViewShowsTheTreeAndInsertTogglesSkipped)
{
    LoadText("<Project Caption='Help'><Dialogs Caption='Dialogs'><Main Caption='Main'/></Dialogs><Copyright Caption='Copyright' skipped='true'/></Project>");
    CHeadlessTreeView view;
    m_tree.DisplayInTreeview(&view);
    EXPECT_EQ(view.Render(), "[openedBook] Help\n"
                             "  [hlpclose] Dialogs\n"
                             "    [helptopic] Main\n"
                             "  [no] Copyright\n");
    EXPECT_TRUE(view.Expanded("Project"));

    view.Select("Dialogs");
    m_tree.KeyDown(45, true);
    EXPECT_TRUE(m_tree.MapItem("Dialogs")->Skipped());
    EXPECT_TRUE(m_tree.MapItem("Main")->Skipped());
    EXPECT_EQ(view.Image("Dialogs"), "no");
    EXPECT_EQ(view.Image("Main"), "no");
    EXPECT_TRUE(m_tree.WasChanged());

    m_tree.KeyDown(45, false);
    EXPECT_FALSE(m_tree.MapItem("Dialogs")->Skipped());
    EXPECT_TRUE(m_tree.MapItem("Main")->Skipped());
    EXPECT_EQ(view.Image("Dialogs"), "hlpclose");
}

TEST_F(TreeTest, ADocumentThatDoesNotParseIsReportedWithCodeReasonAndFile)
{
    m_data.Write("broken.xml", "<ScrivProject><Project><Topic></Project>");
    std::string path = m_data / "broken.xml";
    std::uint32_t code = m_tree.Load(path, true);
    EXPECT_NE(code, 0u);
    EXPECT_EQ(m_tree.Root(), nullptr);
    EXPECT_FALSE(m_tree.Loaded());
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    const std::string& text = m_ui->MessageBoxes()[0].text;
    EXPECT_NE(text.find(FormatCode(code)), std::string::npos) << text;
    EXPECT_NE(text.find("line 1"), std::string::npos) << text;
    EXPECT_NE(text.find(path), std::string::npos) << text;

    EXPECT_NE(m_tree.Load(m_data / "missing.xml", true), 0u);
}

TEST_F(TreeTest, ATerminatedTreeCanBeResetAndLoadedAgain)
{
    LoadText("<Project><A/></Project>");
    m_tree.Terminate();
    m_tree.Reset();
    LoadText("<Project><B/></Project>");
    EXPECT_NE(m_tree.MapItem("B"), nullptr);
    EXPECT_EQ(m_tree.MapItem("A"), nullptr);
}

}  // namespace
}  // namespace scriv
