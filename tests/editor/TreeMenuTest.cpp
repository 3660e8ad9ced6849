#include <gtest/gtest.h>

#include "editor/CHelpPrjTreeMenu.h"
#include "editor/EditorFixture.h"
#include "foundation/Paths.h"

namespace scriv {
namespace {

using test::EditorFixture;
using test::kSmallProject;
using namespace treekeys;

// Every event of the tree menu as one line of text.
class RecordedEvents : public ITreeMenuEvents {
public:
    void HtmlFileSelected(const std::string& path, const std::string& bookmark) override
    {
        lines.push_back("selected " + FileNameOf(path) + (bookmark.empty() ? "" : "#" + bookmark));
    }
    void HtmlFileIsAbsentForCurrentNode(const std::string& templateFile) override
    {
        lines.push_back("absent " + FileNameOf(templateFile));
    }
    void HtmlFindUrlWithinCurrentPage(const std::string& url) override { lines.push_back("find url " + url); }
    void FindFirst(const std::string& text) override { lines.push_back("find " + text); }
    void NodeCaptionChanged(const std::string& key, const std::string& caption) override
    {
        lines.push_back("caption " + key + "=" + caption);
    }
    std::vector<std::string> lines;
};

class TreeMenuTest : public EditorFixture {
protected:
    void SetUp() override
    {
        EditorFixture::SetUp();
        Open(kSmallProject);
        for (const char* page : { "Welcome.htm", "Alpha.htm", "Beta.htm", "Beta1.htm", "Beta2.htm" })
            m_pages.Write(page, std::string("<html>") + page + "</html>");
        m_menu.init(&m_view, &m_tree, m_context, &m_events);
    }

    std::vector<std::string> Enabled() const
    {
        std::vector<std::string> names;
        for (const TreeMenuItem& item : m_menu.PopupMenu())
            if (item.enabled)
                names.push_back(item.name);
        return names;
    }
    const TreeMenuItem* Item(const std::string& name) const
    {
        m_items = m_menu.PopupMenu();
        for (const TreeMenuItem& item : m_items)
            if (item.name == name)
                return &item;
        return nullptr;
    }

    RecordedEvents m_events;
    CHelpPrjTreeMenu m_menu;
    mutable std::vector<TreeMenuItem> m_items;
};

// --- selection ---

TEST_F(TreeMenuTest, AClickShowsTheNodesPageOrSaysItIsAbsent)
{
    m_menu.TreeViewMouseDown("B1");
    Node("C")->SetTemplateHtmlFile("/templates/Default.htm");
    m_menu.TreeViewMouseDown("C");
    Node("B2")->SetBookmark("frmMain_cmdOK");
    m_menu.TreeViewMouseDown("B2");
    m_menu.TreeViewMouseDown("nothing");
    EXPECT_EQ(m_events.lines,
        (std::vector<std::string> { "selected Beta1.htm", "absent Default.htm", "selected Beta2.htm#frmMain_cmdOK" }));
    EXPECT_EQ(m_view.SelectedKey(), "B2");
}

TEST_F(TreeMenuTest, AnOperationThatMovesTheSelectionShowsTheNewNodesPage)
{
    m_menu.TreeViewMouseDown("B1");
    m_ui->QueueAnswer(vbNo);
    EXPECT_TRUE(m_menu.KeyDown(kDelete, 0));
    EXPECT_EQ(m_view.SelectedKey(), "B");
    EXPECT_EQ(m_events.lines, (std::vector<std::string> { "selected Beta1.htm", "selected Beta.htm" }));

    // A move keeps the selection on the same node: no page is opened again.
    m_menu.KeyDown('D', kCtrl);
    EXPECT_EQ(TreeShape(), "P(A,C,B(B2))");
    EXPECT_EQ(m_events.lines.size(), 2u);
}

// --- keys ---

TEST_F(TreeMenuTest, ControlKeysRunTheOperations)
{
    m_view.Select("A");
    EXPECT_TRUE(m_menu.KeyDown('C', kCtrl));
    m_view.Select("C");
    EXPECT_TRUE(m_menu.KeyDown('V', kCtrl));
    EXPECT_EQ(Node("C")->ChildCount(), 1u);
    EXPECT_TRUE(m_menu.KeyDown('Z', kCtrl));
    EXPECT_EQ(Node("C")->ChildCount(), 0u);

    m_view.Select("C");
    EXPECT_TRUE(m_menu.KeyDown(kUp, kCtrl));
    EXPECT_TRUE(m_menu.KeyDown('U', kCtrl));
    EXPECT_EQ(TreeShape(), "P(C,A,B(B1,B2))");
    EXPECT_TRUE(m_menu.KeyDown('R', kCtrl));
    EXPECT_EQ(TreeShape(), "P(A(C),B(B1,B2))");
    EXPECT_TRUE(m_menu.KeyDown(kLeft, kCtrl));
    EXPECT_TRUE(m_menu.KeyDown(kDown, kCtrl));
    EXPECT_EQ(TreeShape(), "P(A,C,B(B1,B2))");
    EXPECT_TRUE(m_menu.KeyDown(kRight, kCtrl));
    EXPECT_TRUE(m_menu.KeyDown('L', kCtrl));
    EXPECT_EQ(TreeShape(), "P(A,C,B(B1,B2))");

    m_ui->QueueInput("Appendix");
    EXPECT_TRUE(m_menu.KeyDown('N', kCtrl));
    EXPECT_EQ(Node("C")->ChildCount(), 1u);
    EXPECT_FALSE(m_menu.KeyDown('Q', kCtrl));
    EXPECT_FALSE(m_menu.KeyDown('A', 0));
    EXPECT_FALSE(m_menu.KeyDown(kDelete, kShift));
}

TEST_F(TreeMenuTest, SpaceAndAltInsertToggleTheSkippedMarkButPlainInsertDoesNot)
{
    m_view.Select("C");
    EXPECT_TRUE(m_menu.KeyDown(kSpace, 0));
    EXPECT_TRUE(Node("C")->Skipped());
    EXPECT_EQ(m_view.Image("C"), "no");
    EXPECT_TRUE(m_menu.KeyDown(kInsert, kAlt));
    EXPECT_FALSE(Node("C")->Skipped());
    EXPECT_EQ(m_view.Image("C"), "helptopic");
    EXPECT_EQ(m_menu.Manipulator().UndoStackLength(), 0u) << "the mark cannot be undone";
    EXPECT_FALSE(m_menu.KeyDown(kInsert, 0));
    EXPECT_FALSE(Node("C")->Skipped());
}

TEST_F(TreeMenuTest, F2OnANodeWithABookmarkShowsTheRenameHint)
{
    Node("B2")->SetBookmark("frmMain_cmdOK");
    m_view.Select("B2");
    EXPECT_TRUE(m_menu.KeyDown(kF2, 0));
    EXPECT_FALSE(m_menu.Renaming());
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "To rename, change the corresponding section in the HTML topic file (right ->).");

    m_view.Select("B1");
    m_menu.KeyDown(kF2, 0);
    EXPECT_TRUE(m_menu.Renaming());
}

// --- renaming ---

TEST_F(TreeMenuTest, ARenamedCaptionReachesNodeTitleItemAndForm)
{
    m_view.Select("A");
    ASSERT_TRUE(m_menu.StartRename());
    EXPECT_TRUE(m_menu.EndRename("  First steps "));
    EXPECT_EQ(Node("A")->Caption(), "First steps");
    EXPECT_EQ(Node("A")->HtmlTitle(), "First steps");
    EXPECT_EQ(m_view.Text("A"), "First steps");
    EXPECT_TRUE(m_tree.WasChanged());
    EXPECT_EQ(m_events.lines, (std::vector<std::string> { "caption A=First steps" }));
    EXPECT_NE(m_tree.GetXMLStr(false, "").find("caption = \"First steps\""), std::string::npos);

    // The same text, an empty one, or no edit running change nothing.
    m_menu.StartRename();
    EXPECT_FALSE(m_menu.EndRename("First steps"));
    m_menu.StartRename();
    EXPECT_FALSE(m_menu.EndRename("   "));
    EXPECT_FALSE(m_menu.EndRename("Other"));
    EXPECT_EQ(m_events.lines.size(), 1u);
}

// --- the popup menu ---

TEST_F(TreeMenuTest, ThePopupIsEnabledFromTheSelection)
{
    m_view.Select("B1");
    EXPECT_EQ(Enabled(),
        (std::vector<std::string> { "mnuCut", "mnuCopy", "mnuToggleSkippedFlag", "mnuDelete", "mnuDown", "mnuLeft",
            "mnuRight", "mnuNew", "mnuAdd", "mnuRename", "mnuEditIndex", "mnuHHC", "mnuXML" }));
    EXPECT_EQ(Item("mnuToggleSkippedFlag")->caption, "Exclude");

    EXPECT_TRUE(m_menu.MenuClick("mnuCopy"));
    m_view.Select("P");
    std::vector<std::string> root = Enabled();
    EXPECT_EQ(root,
        (std::vector<std::string> { "mnuUndo", "mnuPaste", "mnuPasteSpecial", "mnuNew", "mnuAdd", "mnuRename",
            "mnuEditIndex", "mnuHHC", "mnuXML" }));

    // Right is off when the sibling below is skipped.
    Node("B")->SetSkipped(true);
    m_view.Select("A");
    EXPECT_FALSE(Item("mnuRight")->enabled);
    m_view.Select("B");
    EXPECT_EQ(Item("mnuToggleSkippedFlag")->caption, "Include");
}

TEST_F(TreeMenuTest, AControlNodeGetsTheShortPopup)
{
    Node("B2")->IsControl = true;
    m_view.Select("B2");
    std::vector<TreeMenuItem> items = m_menu.PopupMenu();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].name, "mnuRenameCtl");
    EXPECT_EQ(items[1].name, "mnuEditIndexCtl");
    EXPECT_TRUE(items[0].enabled && items[1].enabled);
    EXPECT_FALSE(m_menu.MenuClick("mnuCut"));
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

TEST_F(TreeMenuTest, DisabledAndUnknownItemsDoNothing)
{
    m_view.Select("A");
    EXPECT_FALSE(m_menu.MenuClick("mnuUp"));
    EXPECT_FALSE(m_menu.MenuClick("mnuUndo"));
    EXPECT_FALSE(m_menu.MenuClick("mnuPaste"));
    EXPECT_FALSE(m_menu.MenuClick("mnuNothing"));
    EXPECT_EQ(m_menu.Manipulator().OperationLogLength(), 0u);
}

TEST_F(TreeMenuTest, HhcAndXmlArePutUpForInspection)
{
    m_view.Select("B");
    EXPECT_TRUE(m_menu.MenuClick("mnuHHC"));
    EXPECT_NE(m_menu.InfoText().find("<param name=\"Local\" value=\"Beta1.htm\">"), std::string::npos);
    EXPECT_TRUE(m_menu.MenuClick("mnuXML"));
    EXPECT_EQ(m_menu.InfoText().rfind("<Topic level = \"1\"", 0), 0u);
}

TEST_F(TreeMenuTest, AddAsksForAnHtmlFileAndAddsIt)
{
    test::TempFolder outside;
    std::string page = outside.Write("Glossary.htm", "<html>glossary</html>");
    m_ui->QueueFile(FolderOf(page) + "Glossary");
    m_view.Select("C");
    EXPECT_TRUE(m_menu.MenuClick("mnuAdd"));
    ASSERT_EQ(m_ui->FileRequests().size(), 1u);
    EXPECT_EQ(m_ui->FileRequests()[0].title, "Select HTML file...");
    EXPECT_EQ(m_ui->FileRequests()[0].pattern, "*.htm*");
    ASSERT_EQ(Node("C")->ChildCount(), 1u);
    EXPECT_EQ(Node("C")->Child(0)->Caption(), "Glossary");
    // The new node is selected and its page shown.
    EXPECT_EQ(m_events.lines, (std::vector<std::string> { "selected Glossary.htm" }));
}

// --- drag and drop ---

TEST_F(TreeMenuTest, ADraggedNodeCarriesTheLinkMarker)
{
    EXPECT_EQ(m_menu.DragText("B1"), "SCRIV|CreateLink|Beta one|" + m_pages.Path() + "Beta1.htm");
    EXPECT_EQ(m_menu.DragText("missing"), "");
}

TEST_F(TreeMenuTest, DroppingMovesTheNodeUnderTheTargetAndSelectsIt)
{
    m_view.Select("A");
    EXPECT_TRUE(m_menu.OLEDragDrop("B1", "A"));
    EXPECT_EQ(TreeShape(), "P(A(B1),B(B2),C)");
    EXPECT_EQ(m_view.SelectedKey(), "B1");
    EXPECT_EQ(m_events.lines, (std::vector<std::string> { "selected Beta1.htm" }));
}

TEST_F(TreeMenuTest, DroppingOnItselfDoesNothingAndControlsAreRefused)
{
    EXPECT_FALSE(m_menu.OLEDragDrop("B1", "B1"));
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    Node("B2")->IsMenu = true;
    EXPECT_FALSE(m_menu.OLEDragDrop("A", "B2"));
    EXPECT_FALSE(m_menu.OLEDragDrop("B2", "A"));
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "Forbidden operation for controls: control can't be a target of copy, move or paste operation.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

// --- the page and the tree in step ---

TEST_F(TreeMenuTest, SyncFindsTheNodeOfAPageAndBookmarkAndOpensItsParents)
{
    Node("B2")->SetBookmark("frmMain_cmdOK");
    EXPECT_TRUE(m_menu.SyncTOCTreeview(m_pages.Path() + "BETA2.htm", "frmMain_cmdOK"));
    EXPECT_EQ(m_view.SelectedKey(), "B2");
    EXPECT_TRUE(m_view.Expanded("B"));
    EXPECT_EQ(m_view.Image("B"), "openedBook");
    EXPECT_EQ(m_events.lines, (std::vector<std::string> { "selected Beta2.htm#frmMain_cmdOK" }));

    EXPECT_FALSE(m_menu.SyncTOCTreeview(m_pages.Path() + "Beta2.htm", "other"));
    EXPECT_EQ(m_view.SelectedKey(), "B2");
}

TEST_F(TreeMenuTest, APageOfASearchOpensAndTheSearchStarts)
{
    m_menu.LoadHTMLPageAndFindFirstSearchedEntry(m_pages.Path() + "Alpha.htm", "colour");
    m_menu.GoToBrokenLink("/elsewhere/loose.htm", "missing.htm");
    EXPECT_EQ(m_events.lines,
        (std::vector<std::string> { "selected Alpha.htm", "find colour", "selected loose.htm", "find url missing.htm" }));
    EXPECT_EQ(m_view.SelectedKey(), "A");
}

TEST_F(TreeMenuTest, ACleanLinkCheckSaysSo)
{
    EXPECT_EQ(m_menu.SearchForBrokenLinks(), 0u);
    EXPECT_TRUE(m_ui->MessageBoxes().empty()) << "without a check nothing is claimed";
    m_menu.SetBrokenLinksCheck([] { return std::size_t { 0 }; });
    EXPECT_EQ(m_menu.SearchForBrokenLinks(), 0u);
    m_menu.SetBrokenLinksCheck([] { return std::size_t { 3 }; });
    EXPECT_EQ(m_menu.SearchForBrokenLinks(), 3u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "All links are Ok!");
}

}  // namespace
}  // namespace scriv
