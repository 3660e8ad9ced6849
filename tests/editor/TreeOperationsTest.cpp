#include <gtest/gtest.h>

#include <regex>

#include "editor/CHelpPrjTreeOperation.h"
#include "editor/frmHHCEntryIndexKeywords.h"
#include "foundation/Paths.h"
#include "editor/EditorFixture.h"

namespace scriv {
namespace {

using test::EditorFixture;
using test::kSmallProject;

const char* const kControlsCannotMove = "Forbidden operation for controls: controls can't be copied, moved or deleted.";
const char* const kControlCannotBeTarget
    = "Forbidden operation for controls: control can't be a target of copy, move or paste operation.";
const std::string kDeleteQuestion
    = "Delete action removes the node from the contents tree.\r\nDo you also want to delete the corresponding HTML page?";

class TreeOperationsTest : public EditorFixture {
protected:
    void SetUp() override
    {
        EditorFixture::SetUp();
        Open(kSmallProject);
    }
};

// --- the undo stack ---

TEST_F(TreeOperationsTest, TheSeventeenthEntryPushesOutTheOldestAndCopiesTakeSlots)
{
    Select("C");
    m_manipulator.Up();
    ASSERT_EQ(TreeShape(), "P(A,C,B(B1,B2))");
    Select("A");
    for (int i = 0; i < 15; ++i)
        m_manipulator.Copy();
    EXPECT_EQ(m_manipulator.UndoStackLength(), 16u);
    EXPECT_EQ(StackNames().front(), "Up");

    m_manipulator.Copy();
    EXPECT_EQ(m_manipulator.UndoStackLength(), 16u);
    EXPECT_EQ(StackNames().front(), "Copy");
    EXPECT_EQ(m_manipulator.OperationLogLength(), 17u);

    // The move fell off the stack: undo finds only copies and changes nothing.
    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,C,B(B1,B2))");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
}

TEST_F(TreeOperationsTest, UndoStepsOverCopyHhcXmlAndEarlierUndos)
{
    Select("B1");
    m_manipulator.Down();
    ASSERT_EQ(TreeShape(), "P(A,B(B2,B1),C)");
    Select("A");
    m_manipulator.Copy();
    EXPECT_FALSE(m_manipulator.GetHHC().empty());
    EXPECT_FALSE(m_manipulator.GetXML().empty());
    EXPECT_EQ(StackNames(), (std::vector<std::string> { "Down", "Copy", "HHC", "XML" }));

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    // What undo stepped over is gone; the undo itself takes a slot.
    EXPECT_EQ(StackNames(), (std::vector<std::string> { "Undo" }));
}

TEST_F(TreeOperationsTest, UndoAfterCopyAndNewRemovesTheNodeThenLeavesAnEmptyStack)
{
    Select("A");
    m_manipulator.Copy();
    std::string page;
    ASSERT_TRUE(m_manipulator.AddNew("Fresh topic", page));
    ASSERT_EQ(Node("A")->ChildCount(), 1u);

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_TRUE(FileExists(page)) << "the page of an undone New stays";
    EXPECT_EQ(StackNames(), (std::vector<std::string> { "Copy", "Undo" }));

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
}

TEST_F(TreeOperationsTest, ACopyMarksTheTreeChangedAndAnUndoDoesNot)
{
    Select("A");
    m_manipulator.Copy();
    EXPECT_TRUE(m_tree.WasChanged());

    m_tree.SetWasChanged(false);
    m_manipulator.Undo();
    EXPECT_FALSE(m_tree.WasChanged());
    m_manipulator.GetXML();
    EXPECT_FALSE(m_tree.WasChanged());
}

// --- moves ---

TEST_F(TreeOperationsTest, UpOnAFirstChildChangesNothingLeavesNoEntryYetMarksTheTree)
{
    Select("B1");
    m_manipulator.Up();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
    EXPECT_EQ(m_manipulator.LastRetCode(), CHelpPrjTreeOperation::kNotDone);
    EXPECT_TRUE(m_tree.WasChanged());

    m_tree.SetWasChanged(false);
    Select("B2");
    m_manipulator.Down();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
    EXPECT_TRUE(m_tree.WasChanged());
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(TreeOperationsTest, UpAndDownSwapWithTheNeighbourKeepingKeysAndChildren)
{
    Select("B");
    m_manipulator.Up();
    EXPECT_EQ(TreeShape(), "P(B(B1,B2),A,C)");
    EXPECT_EQ(m_view.SelectedKey(), "B");
    EXPECT_EQ(Node("B1")->Level(), 3);
    m_manipulator.Down();
    m_manipulator.Down();
    EXPECT_EQ(TreeShape(), "P(A,C,B(B1,B2))");
    EXPECT_EQ(Node("B")->Caption(), "Beta");
    EXPECT_EQ(m_view.Text("B"), "Beta");

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(B(B1,B2),A,C)");
    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

TEST_F(TreeOperationsTest, RightIndentsUnderTheNextSiblingAndLeftOutdentsBeforeTheFormerParent)
{
    Select("A");
    m_manipulator.Right();
    EXPECT_EQ(TreeShape(), "P(B(A,B1,B2),C)");
    EXPECT_EQ(Node("A")->Level(), 3);
    EXPECT_EQ(m_view.Image("B"), "hlpclose");

    m_manipulator.Left();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(Node("A")->Level(), 2);

    // Left of a first child and Right of it again restore the place.
    Select("B1");
    m_manipulator.Left();
    EXPECT_EQ(TreeShape(), "P(A,B1,B(B2),C)");
    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(Node("B1")->Level(), 3);
}

TEST_F(TreeOperationsTest, LeftAtTheTopLevelAndRightOnALastChildChangeNothing)
{
    Select("A");
    m_manipulator.Left();
    Select("C");
    m_manipulator.Right();
    Select("B2");
    m_manipulator.Right();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(TreeOperationsTest, RightRefusesAControlBelowAndSkipsASkippedOneSilently)
{
    Node("B")->SetSkipped(true);
    Select("A");
    m_manipulator.Right();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_TRUE(m_ui->MessageBoxes().empty());

    Node("B")->SetSkipped(false);
    Node("B2")->IsControl = true;
    Select("B1");
    m_manipulator.Right();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { kControlCannotBeTarget }));
    EXPECT_EQ(m_beeps, 1);
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
    // The silent refusal is logged (not stacked); the one with a message is not.
    EXPECT_EQ(m_manipulator.OperationLogLength(), 1u);
}

// --- copy and paste ---

TEST_F(TreeOperationsTest, PastingTwiceGivesFreshKeysEachTime)
{
    Select("B");
    m_manipulator.Copy();
    Select("C");
    m_manipulator.Paste();
    Select("C");
    m_manipulator.Paste();

    CHelpPrjTreeNode* c = Node("C");
    ASSERT_EQ(c->ChildCount(), 2u);
    std::regex fresh("B_[0-9]+_");
    std::string first = c->Child(0)->Key();
    std::string second = c->Child(1)->Key();
    EXPECT_TRUE(std::regex_match(first, fresh)) << first;
    EXPECT_TRUE(std::regex_match(second, fresh)) << second;
    EXPECT_NE(first, second);
    for (const CHelpPrjTreeNode* copy : { c->Child(0), c->Child(1) }) {
        ASSERT_EQ(copy->ChildCount(), 2u);
        EXPECT_NE(copy->Child(0)->Key(), "B1");
        EXPECT_EQ(copy->Child(0)->Caption(), "Beta one");
        EXPECT_EQ(copy->Child(1)->Level(), 4);
        EXPECT_EQ(m_tree.MapItem(copy->Child(1)->Key()), copy->Child(1));
    }
    EXPECT_EQ(Shape(*Node("B")), "B(B1,B2)") << "the original stays";
    TreeShape();
    EXPECT_EQ(m_view.SelectedKey(), second);

    // Undo removes the newest copy only.
    m_manipulator.Undo();
    ASSERT_EQ(c->ChildCount(), 1u);
    EXPECT_EQ(c->Child(0)->Key(), first);
    EXPECT_EQ(m_tree.MapItem(second), nullptr);
}

TEST_F(TreeOperationsTest, PasteSpecialAsksAboutChildrenAndLeavesThemOutOnNo)
{
    Select("B");
    m_manipulator.Copy();
    Select("A");
    m_ui->QueueAnswer(vbNo);
    m_manipulator.PasteSpecial();
    ASSERT_EQ(Node("A")->ChildCount(), 1u);
    EXPECT_EQ(Node("A")->Child(0)->ChildCount(), 0u);
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "Would you like to paste child nodes?" }));

    Select("C");
    m_ui->QueueAnswer(vbYes);
    m_manipulator.PasteSpecial();
    ASSERT_EQ(Node("C")->ChildCount(), 1u);
    EXPECT_EQ(Node("C")->Child(0)->ChildCount(), 2u);

    // A clipboard without children pastes without asking.
    Select("B1");
    m_manipulator.Copy();
    Select("C");
    m_manipulator.PasteSpecial();
    EXPECT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(Node("C")->ChildCount(), 2u);
}

TEST_F(TreeOperationsTest, CopyRemembersTheOriginalKeys)
{
    Select("B1");
    m_manipulator.Copy();
    EXPECT_EQ(Node("B1")->OriginalKey(), "B1");
    EXPECT_EQ(Node("B1")->ParentOriginalKey(), "B");
    EXPECT_NE(m_manipulator.ClipboardXml().find("OriginalKey=\"B1\""), std::string::npos)
        << m_manipulator.ClipboardXml();
}

// --- cut and delete ---

TEST_F(TreeOperationsTest, DeleteAnsweringNoKeepsThePageAndUndoRestoresTheNodeInPlace)
{
    std::string page = m_pages.Write("Beta.htm", "<html>beta</html>");
    Select("B");
    m_ui->QueueAnswer(vbNo);
    m_manipulator.Delete();
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { kDeleteQuestion }));
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kYesNoCancel | msgbox::kQuestion | msgbox::kDefaultButton3);
    EXPECT_EQ(TreeShape(), "P(A,C)");
    EXPECT_EQ(m_tree.MapItem("B1"), nullptr);
    EXPECT_TRUE(FileExists(page));

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(Node("B2")->Caption(), "Beta two");
    EXPECT_EQ(m_view.SelectedKey(), "B");
}

TEST_F(TreeOperationsTest, DeleteAnsweringYesDeletesThePageForGood)
{
    std::string page = m_pages.Write("Gamma.htm", "<html>gamma</html>");
    Select("C");
    m_ui->QueueAnswer(vbYes);
    m_manipulator.Delete();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2))");
    EXPECT_FALSE(FileExists(page));

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_FALSE(FileExists(page)) << "undo brings back the node, not the file";
}

TEST_F(TreeOperationsTest, CancelDuringCutKeepsTheNodeAndTheFormerClipboard)
{
    Select("A");
    m_manipulator.Copy();
    std::string clipboard = m_manipulator.ClipboardXml();
    ASSERT_FALSE(clipboard.empty());

    Select("B");
    m_ui->QueueAnswer(vbCancel);
    m_manipulator.Cut();
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { kDeleteQuestion }));
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.LastRetCode(), CHelpPrjTreeOperation::kNotDone);
    EXPECT_EQ(m_manipulator.ClipboardXml(), clipboard);
    EXPECT_EQ(StackNames(), (std::vector<std::string> { "Copy" }));
}

TEST_F(TreeOperationsTest, CutAndPasteMovesTheSubtreeAndUndoOfTheCutBringsItBack)
{
    Select("B");
    m_ui->QueueAnswer(vbNo);
    m_manipulator.Cut();
    EXPECT_EQ(TreeShape(), "P(A,C)");
    Select("C");
    m_manipulator.Paste();
    // The keys were free again, so the pasted subtree has them.
    EXPECT_EQ(TreeShape(), "P(A,C(B(B1,B2)))");

    m_manipulator.Undo(); // the paste
    EXPECT_EQ(TreeShape(), "P(A,C)");
    m_manipulator.Undo(); // the cut
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

TEST_F(TreeOperationsTest, TheRootCannotBeDeleted)
{
    Select("P");
    m_manipulator.Delete();
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "Root node cannot be deleted!" }));
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
}

// --- moving by drag and drop ---

TEST_F(TreeOperationsTest, MovingOntoADescendantSaysNodeCannotBeMoved)
{
    EXPECT_EQ(m_manipulator.MoveNode("B2", "B"), 0u);
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "Node cannot be moved!" }));
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(m_manipulator.OperationLogLength(), 0u);
}

TEST_F(TreeOperationsTest, MovingTheRootDoesNothing)
{
    EXPECT_EQ(m_manipulator.MoveNode("A", "P"), 0u);
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(TreeOperationsTest, AMoveKeepsTheKeysAndUndoPutsTheNodeLastUnderItsFormerParent)
{
    Select("A");
    EXPECT_EQ(m_manipulator.MoveNode("C", "B1"), 0u);
    EXPECT_EQ(TreeShape(), "P(A,B(B2),C(B1))");
    EXPECT_EQ(Node("B1")->Level(), 3);
    EXPECT_EQ(m_view.SelectedKey(), "B1");
    EXPECT_TRUE(m_ui->MessageBoxes().empty()) << "a move asks nothing about pages";
    ASSERT_EQ(StackNames(), (std::vector<std::string> { "MoveNode" }));
    EXPECT_EQ(m_manipulator.UndoStack().back()->SourceNodeParentKey(), "B");

    m_manipulator.Undo();
    EXPECT_EQ(TreeShape(), "P(A,B(B2,B1),C)");
}

TEST_F(TreeOperationsTest, AMoveIntoItsOwnSubtreeNeverCutsTheNode)
{
    // As an undo might ask it, past the manipulator's own check.
    CHelpPrjTreeOperation move;
    move.init(&m_view, &m_tree, "", m_context);
    CHelpPrjTreeOperation::UndoStack stack;
    std::string parameter;
    bool result = false;
    EXPECT_EQ(move.ExecuteOperation("MoveNode", stack, "B", "B1", "P", parameter, result),
        CHelpPrjTreeOperation::kNotDone);
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

TEST_F(TreeOperationsTest, AControlCanNeitherBeMovedNorBeATarget)
{
    Node("B2")->IsControl = true;
    Select("A");
    m_manipulator.MoveNode("C", "B2");
    m_manipulator.MoveNode("B2", "A");
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { kControlsCannotMove, kControlCannotBeTarget }));
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
}

// --- admission with a control or menu selected ---

TEST_F(TreeOperationsTest, WithAControlSelectedOnlyTheIndexMayBeEdited)
{
    Node("B2")->IsMenu = true;
    Select("A");
    m_manipulator.Copy();
    Select("B2");
    m_manipulator.Undo();
    m_manipulator.Cut();
    m_manipulator.Delete();
    m_manipulator.Paste();
    std::string page;
    m_manipulator.AddNew("Child of a menu", page);
    m_manipulator.ToggleSkippedFlag();
    EXPECT_EQ(BoxTexts(),
        (std::vector<std::string> { kControlsCannotMove, kControlsCannotMove, kControlsCannotMove, kControlsCannotMove,
            "Forbidden operation for controls: control can't have manually assigned children nodes." }));
    EXPECT_EQ(m_beeps, 6) << "the skipped flag is refused with a beep alone";
    EXPECT_FALSE(Node("B2")->Skipped());
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_EQ(StackNames(), (std::vector<std::string> { "Copy" }));

    std::size_t logged = m_manipulator.OperationLogLength();
    m_manipulator.EditIndex();
    EXPECT_EQ(m_manipulator.OperationLogLength(), logged + 1) << "the index edit was admitted";
    EXPECT_EQ(m_ui->MessageBoxes().size(), 5u);
}

// --- new and added topics ---

TEST_F(TreeOperationsTest, NewAddsADocumentNodeLastAndWritesItsPage)
{
    m_manipulator.Context().charset = "utf-8";
    m_manipulator.Context().cssFullPath = "/styles/Office10.css";
    Select("B");
    std::string page;
    ASSERT_TRUE(m_manipulator.AddNew("Release notes", page));
    EXPECT_EQ(page, m_pages.Path() + "Release notes.htm");

    CHelpPrjTreeNode* added = Node("B")->Child(2);
    EXPECT_TRUE(std::regex_match(added->Key(), std::regex("newNodex[0-9]+"))) << added->Key();
    EXPECT_EQ(added->Tag(), "document");
    EXPECT_EQ(added->Caption(), "Release notes");
    EXPECT_EQ(added->HtmlTitle(), "Release notes");
    EXPECT_EQ(added->GeneratedHTMLFile(), "Release notes.htm");
    EXPECT_EQ(added->TemplateHtmlFile(), m_pages.Path() + "Default.htm");
    EXPECT_EQ(added->Charset(), "utf-8");
    EXPECT_EQ(added->ParentKey(), "B");
    EXPECT_EQ(added->Level(), 3);
    EXPECT_EQ(m_view.SelectedKey(), added->Key());
    EXPECT_EQ(m_view.Text(added->Key()), "Release notes");

    ASSERT_EQ(m_writtenPages.size(), 1u);
    EXPECT_EQ(m_writtenPages[0].targetPath, page);
    EXPECT_EQ(m_writtenPages[0].title, "Release notes");
    EXPECT_EQ(m_writtenPages[0].templatePath, m_pages.Path() + "Default.htm");
    EXPECT_EQ(m_writtenPages[0].cssFullPath, "/styles/Office10.css");
    EXPECT_TRUE(m_tree.WasChanged());
}

TEST_F(TreeOperationsTest, NewAsksForATitleAndAsksAgainWhenThePageExists)
{
    m_pages.Write("Taken.htm", "x");
    m_ui->QueueInput("Taken");
    m_ui->QueueInput("Free & clear");
    Select("A");
    std::string page;
    ASSERT_TRUE(m_manipulator.AddNew("", page));
    ASSERT_EQ(m_ui->InputRequests().size(), 2u);
    EXPECT_EQ(m_ui->InputRequests()[0].prompt, "Give topic title");
    EXPECT_EQ(m_ui->InputRequests()[0].title, "Scrivant Add-In");
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "'Taken' - HTML page with this file name already exists." }));
    EXPECT_EQ(Node("A")->Child(0)->Caption(), "Free & clear");
    EXPECT_EQ(FileNameOf(page), "Free & clear.htm");
}

TEST_F(TreeOperationsTest, NewEndsWithoutChangeWhenTheTitleIsCancelled)
{
    m_ui->QueueInput(std::nullopt);
    Select("A");
    std::string page = "unchanged";
    EXPECT_FALSE(m_manipulator.AddNew("", page));
    EXPECT_EQ(page, "");
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_FALSE(m_tree.WasChanged());
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
}

TEST_F(TreeOperationsTest, AddCopiesAnOutsidePageInAndTitlesItFromItsName)
{
    test::TempFolder outside;
    std::string source = outside.Write("release_notes_2.htm", "<html><body>notes</body></html>");
    std::string adopted;
    m_manipulator.Context().cssFullPath = "/styles/Office10.css";
    m_manipulator.Context().adoptAddedPage = [&](const std::string& path, const std::string&) { adopted = path; };
    Select("C");
    ASSERT_TRUE(m_manipulator.AddSelected(source));
    CHelpPrjTreeNode* added = Node("C")->Child(0);
    EXPECT_EQ(added->Caption(), "release notes 2");
    EXPECT_EQ(added->GeneratedHTMLFile(), "release_notes_2.htm");
    EXPECT_EQ(added->TemplateHtmlFile(), "");
    EXPECT_EQ(m_pages.Read("release_notes_2.htm"), "<html><body>notes</body></html>");
    EXPECT_EQ(adopted, m_pages.Path() + "release_notes_2.htm");
    EXPECT_TRUE(m_writtenPages.empty()) << "an added page keeps its text";

    m_manipulator.Undo();
    EXPECT_EQ(Node("C")->ChildCount(), 0u);
    EXPECT_TRUE(FileExists(m_pages.Path() + "release_notes_2.htm"));
}

TEST_F(TreeOperationsTest, AddTakesTheCaptionOfAPageTheTreeKnowsAndNeverOverwritesAnother)
{
    std::string own = m_pages.Write("Alpha.htm", "alpha");
    Select("C");
    ASSERT_TRUE(m_manipulator.AddSelected(own));
    EXPECT_EQ(Node("C")->Child(0)->Caption(), "Alpha");

    test::TempFolder outside;
    std::string other = outside.Write("Alpha.htm", "another alpha");
    EXPECT_FALSE(m_manipulator.AddSelected(other));
    EXPECT_EQ(m_pages.Read("Alpha.htm"), "alpha");
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "'Alpha.htm' - HTML page with this file name already exists." }));
    EXPECT_FALSE(m_manipulator.AddSelected(""));
}

// --- index entries of a plain topic ---

TEST_F(TreeOperationsTest, EditIndexWritesConfirmedEntriesToTheNodeOnly)
{
    m_manipulator.Context().showIndexEntries = [](frmHHCEntryIndexKeywords& dialog) {
        dialog.SetTxtIndexEntry("printing");
        dialog.cmdAddEntry_Click();
        dialog.SetTxtIndexEntry("\"pages\";");
        dialog.cmdAddEntry_Click();
        dialog.cmdOK_Click();
    };
    Select("A");
    m_manipulator.EditIndex();
    EXPECT_EQ(Node("A")->IndexesCollection(), (std::vector<std::string> { "printing", "pages" }));
    EXPECT_TRUE(m_tree.WasChanged());
    EXPECT_NE(m_tree.GetXMLStr(false, "").find("Indexes = \"printing|pages\""), std::string::npos);
    // Not undoable: the change stays.
    m_manipulator.Undo();
    EXPECT_EQ(Node("A")->IndexesCollection().size(), 2u);

    m_tree.SetWasChanged(false);
    m_manipulator.Context().showIndexEntries = [](frmHHCEntryIndexKeywords& dialog) {
        dialog.SetListIndex(0);
        dialog.cmdMoveDown_Click();
        dialog.cmdCancel_Click();
    };
    m_manipulator.EditIndex();
    EXPECT_EQ(Node("A")->IndexesCollection(), (std::vector<std::string> { "printing", "pages" }));
    EXPECT_FALSE(m_tree.WasChanged());
}

TEST_F(TreeOperationsTest, ACallFromInsideARunningOperationIsIgnored)
{
    m_manipulator.Context().showIndexEntries = [this](frmHHCEntryIndexKeywords& dialog) {
        EXPECT_TRUE(m_manipulator.Busy());
        Select("C");
        m_manipulator.Delete();
        EXPECT_EQ(m_manipulator.MoveNode("A", "C"), status::kGeneralFailure);
        dialog.cmdCancel_Click();
    };
    Select("A");
    m_manipulator.EditIndex();
    EXPECT_FALSE(m_manipulator.Busy());
    EXPECT_EQ(TreeShape(), "P(A,B(B1,B2),C)");
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

// --- inspection and marks ---

TEST_F(TreeOperationsTest, HhcAndXmlDescribeTheSelectedSubtree)
{
    Select("B");
    std::string hhc = m_manipulator.GetHHC();
    EXPECT_NE(hhc.find("<param name=\"Name\" value=\"Beta\">"), std::string::npos) << hhc;
    EXPECT_NE(hhc.find("<param name=\"Local\" value=\"Beta2.htm\">"), std::string::npos) << hhc;
    EXPECT_EQ(hhc.find("Alpha"), std::string::npos);
    std::string xml = m_manipulator.GetXML();
    EXPECT_EQ(xml.rfind("<Topic level = \"1\"", 0), 0u) << xml;
    EXPECT_NE(xml.find("key=\"B2\""), std::string::npos);
    EXPECT_EQ(xml.back(), '>');
}

TEST_F(TreeOperationsTest, TerminateEndsEveryLoggedOperation)
{
    Select("A");
    m_manipulator.Copy();
    m_manipulator.Up();
    const CHelpPrjTreeOperation* copy = m_manipulator.UndoStack().front();
    EXPECT_FALSE(copy->Terminated());
    m_manipulator.Terminate();
    EXPECT_EQ(m_manipulator.UndoStackLength(), 0u);
    EXPECT_EQ(m_manipulator.OperationLogLength(), 0u);
    m_manipulator.Terminate();
    m_manipulator.Copy();
    EXPECT_EQ(m_manipulator.OperationLogLength(), 0u);
}

}  // namespace
}  // namespace scriv
