#include <gtest/gtest.h>

#include <map>

#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "model/IFormDescriptions.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// Descriptions held in memory by topic key; every question is recorded.
class FakeDescriptions : public IFormDescriptions {
public:
    std::optional<DocumentedControls> DocumentedControlsOf(const CHelpPrjTreeNode& node, bool refreshFromPage) override
    {
        asked.push_back(node.Key() + (refreshFromPage ? " refreshed" : ""));
        auto found = byKey.find(node.Key());
        if (found == byKey.end())
            return std::nullopt;
        return found->second;
    }
    std::map<std::string, DocumentedControls> byKey;
    std::vector<std::string> asked;
};

DocumentedControls MainFormControls()
{
    DocumentedControls controls;
    controls.pageFile = "App_frmMain.htm";
    controls.items = {
        { "mnuFile", "mnuFile", "frmMain_mnuFile", "File menu", true, false },
        { "cmdOK", "cmdOK", "frmMain_cmdOK", "OK button", false, false },
        { "txtName", "txtName", "frmMain_txtName", "Name", false, true },
    };
    return controls;
}

const char* kProject = R"(<Project Key="P" Caption="Help">
    <Dialogs Key="D" Caption="Dialogs" ProcessCode="1">
      <Form Key="D.frmMain" Name="frmMain" type="2" ProcessCode="999" GeneratedHtmlFile="App_frmMain.htm"/>
      <Form Key="D.frmAbout" Name="frmAbout" type="2" ProcessCode="999" GeneratedHtmlFile="App_frmAbout.htm"/>
      <Topic Key="D.notes" Caption="Notes" GeneratedHtmlFile="Notes.htm"/>
    </Dialogs>
  </Project>)";

class ControlNodesTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_descriptions.byKey["D.frmMain"] = MainFormControls();
    }

    CHelpPrjTreeNode& Load(bool addControls)
    {
        EXPECT_EQ(m_tree.Load("", false, kProject, addControls), 0u);
        return *m_tree.MapItem("D.frmMain");
    }

    static std::vector<std::string> ChildKeys(const CHelpPrjTreeNode& node)
    {
        std::vector<std::string> keys;
        for (const auto& child : node.ChildNodes())
            keys.push_back(child->Key());
        return keys;
    }

    FakeDescriptions m_descriptions;
    CHelpPrjTree m_tree;
};

TEST_F(ControlNodesTest, EachDocumentedMenuAndControlBecomesANodeOfTheTopic)
{
    CHelpPrjTreeNode& form = Load(false);
    EXPECT_EQ(m_tree.AddControls(form, form.Level(), MainFormControls(), false), 3);
    EXPECT_EQ(ChildKeys(form), (std::vector<std::string> { "D.frmMain.mnuFile", "D.frmMain.cmdOK", "D.frmMain.txtName" }));

    CHelpPrjTreeNode* menu = m_tree.MapItem("d.frmmain.MNUFILE");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->Tag(), "MenuItem");
    EXPECT_TRUE(menu->IsMenu);
    EXPECT_FALSE(menu->IsControl);
    EXPECT_EQ(menu->Caption(), "File menu");
    EXPECT_EQ(menu->Name(), "mnuFile");
    EXPECT_EQ(menu->Bookmark(), "frmMain_mnuFile");
    EXPECT_EQ(menu->GeneratedHTMLFile(), "App_frmMain.htm");
    EXPECT_EQ(menu->Level(), form.Level() + 1);
    EXPECT_EQ(menu->ParentNode(), &form);

    CHelpPrjTreeNode* button = m_tree.MapItem("D.frmMain.cmdOK");
    EXPECT_EQ(button->Tag(), "Control");
    EXPECT_TRUE(button->IsControl);
    EXPECT_EQ(button->Icon(), "helptopic");
    CHelpPrjTreeNode* name = m_tree.MapItem("D.frmMain.txtName");
    EXPECT_TRUE(name->Skipped());
    EXPECT_EQ(name->Icon(), "no");
}

TEST_F(ControlNodesTest, WithControlNamesTheNodesShowNamesAndAnEmptyHeadingFallsBackToTheName)
{
    CHelpPrjTreeNode& form = Load(false);
    DocumentedControls controls = MainFormControls();
    controls.items[1].caption.clear();
    m_tree.AddControls(form, form.Level(), controls, false);
    EXPECT_EQ(m_tree.MapItem("D.frmMain.cmdOK")->Caption(), "cmdOK");

    CHelpPrjTreeNode& about = *m_tree.MapItem("D.frmAbout");
    m_tree.AddControls(about, about.Level(), MainFormControls(), true);
    EXPECT_EQ(m_tree.MapItem("D.frmAbout.mnuFile")->Caption(), "mnuFile");
    // The topic's own page stands in when the description names none.
    controls.pageFile.clear();
    m_tree.AddControls(*m_tree.MapItem("D.notes"), 3, controls, false);
    EXPECT_EQ(m_tree.MapItem("D.notes.cmdOK")->GeneratedHTMLFile(), "Notes.htm");
}

TEST_F(ControlNodesTest, ControlNodesOfAShownTopicAreShownBelowIt)
{
    CHelpPrjTreeNode& form = Load(false);
    CHeadlessTreeView view;
    m_tree.DisplayInTreeview(&view);
    EXPECT_EQ(view.Image("D.frmMain"), "helptopic");
    m_tree.AddControls(form, form.Level(), MainFormControls(), false);
    EXPECT_EQ(view.ChildrenKeys("D.frmMain"),
        (std::vector<std::string> { "D.frmMain.mnuFile", "D.frmMain.cmdOK", "D.frmMain.txtName" }));
    EXPECT_EQ(view.Text("D.frmMain.cmdOK"), "OK button");
    EXPECT_EQ(view.Image("D.frmMain.txtName"), "no");
    EXPECT_EQ(view.Image("D.frmMain"), "hlpclose");
}

TEST_F(ControlNodesTest, ControlNodesNeverReachTheProjectFile)
{
    CHelpPrjTreeNode& form = Load(false);
    std::string before = m_tree.GetXMLStr(false, "");
    m_tree.AddControls(form, form.Level(), MainFormControls(), false);
    EXPECT_EQ(m_tree.GetXMLStr(false, ""), before);
}

TEST_F(ControlNodesTest, ControlsAreRebuiltOnlyWhenTheTopicHasNone)
{
    CHelpPrjTreeNode& form = Load(false);
    EXPECT_TRUE(m_tree.AddControlsIfAbsent(form, m_descriptions, false));
    EXPECT_EQ(form.ChildCount(), 3u);
    EXPECT_EQ(m_descriptions.asked, (std::vector<std::string> { "D.frmMain" }));

    EXPECT_FALSE(m_tree.AddControlsIfAbsent(form, m_descriptions, false));
    EXPECT_EQ(form.ChildCount(), 3u);

    form.DropChildrenControls();
    EXPECT_EQ(form.ChildCount(), 0u);
    EXPECT_EQ(m_tree.MapItem("D.frmMain.cmdOK"), nullptr);
    EXPECT_TRUE(m_tree.AddControlsIfAbsent(form, m_descriptions, false));
    EXPECT_EQ(form.ChildCount(), 3u);

    // No description, or one without documented controls: nothing.
    EXPECT_FALSE(m_tree.AddControlsIfAbsent(*m_tree.MapItem("D.frmAbout"), m_descriptions, false));
    m_descriptions.byKey["D.notes"] = DocumentedControls {};
    EXPECT_FALSE(m_tree.AddControlsIfAbsent(*m_tree.MapItem("D.notes"), m_descriptions, false));
}

TEST_F(ControlNodesTest, LoadingWithControlsAsksTheDescriptionsOfObjectTopicsOnly)
{
    m_tree.SetFormDescriptions(&m_descriptions, false);
    CHelpPrjTreeNode& form = Load(true);
    EXPECT_EQ(m_descriptions.asked, (std::vector<std::string> { "D.frmMain refreshed", "D.frmAbout refreshed" }));
    EXPECT_EQ(form.ChildCount(), 3u);
    EXPECT_EQ(m_tree.MapItem("D.frmMain.txtName")->Level(), 4);
    EXPECT_EQ(m_tree.NodesQty(), 7);
}

TEST_F(ControlNodesTest, LoadingWithoutDescriptionsOrWithoutTheRequestAddsNoControls)
{
    EXPECT_EQ(Load(true).ChildCount(), 0u);
    m_tree.SetFormDescriptions(&m_descriptions, false);
    EXPECT_EQ(Load(false).ChildCount(), 0u);
    EXPECT_TRUE(m_descriptions.asked.empty());
}

TEST_F(ControlNodesTest, ABookmarkTakenTwiceGetsANumberedKey)
{
    CHelpPrjTreeNode& form = Load(false);
    DocumentedControls controls = MainFormControls();
    controls.items[2].bookmarkName = "cmdOK";
    controls.items.push_back({ "", "", "", "no bookmark", false, false });
    EXPECT_EQ(m_tree.AddControls(form, form.Level(), controls, false), 3);
    EXPECT_EQ(ChildKeys(form), (std::vector<std::string> { "D.frmMain.mnuFile", "D.frmMain.cmdOK", "D.frmMain.cmdOK1" }));
}

}  // namespace
}  // namespace scriv
