#include <gtest/gtest.h>

#include "editor/frmHHCEntryIndexKeywords.h"
#include "foundation/IUserInterface.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using Entries = std::vector<std::string>;

class IndexEntriesDialogTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_dialog.init({ "open", "print" });
    }

    frmHHCEntryIndexKeywords m_dialog;
};

TEST_F(IndexEntriesDialogTest, AddingCleansTheTextAndSelectsTheNewEntry)
{
    m_dialog.SetTxtIndexEntry("  \"save\"; as ");
    EXPECT_TRUE(m_dialog.cmdAddEntry_Click());
    EXPECT_EQ(m_dialog.IndexesCollection(), (Entries { "open", "print", "save as" }));
    EXPECT_EQ(m_dialog.ListIndex(), 2u);
    EXPECT_FALSE(m_dialog.TextBoxHasFocus());
}

TEST_F(IndexEntriesDialogTest, NothingLeftToAddPutsTheFocusInTheTextBox)
{
    m_dialog.SetTxtIndexEntry("\";\"");
    EXPECT_FALSE(m_dialog.ToggleButtons().addEntry);
    EXPECT_FALSE(m_dialog.cmdAddEntry_Click());
    EXPECT_TRUE(m_dialog.TextBoxHasFocus());
    EXPECT_EQ(m_dialog.IndexesCollection().size(), 2u);
}

TEST_F(IndexEntriesDialogTest, AnEntryThatIsThereAlreadyIsNotAddedTwice)
{
    m_dialog.SetTxtIndexEntry("PRINT");
    EXPECT_FALSE(m_dialog.cmdAddEntry_Click());
    EXPECT_EQ(m_dialog.IndexesCollection(), (Entries { "open", "print" }));
    EXPECT_EQ(m_dialog.ListIndex(), 1u);
}

TEST_F(IndexEntriesDialogTest, DeletingAsksFirstAndSelectsTheNeighbour)
{
    m_dialog.SetListIndex(1);
    m_ui->QueueAnswer(vbNo);
    EXPECT_FALSE(m_dialog.cmdDeleteEntry_Click());
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Are you sure you wanted to delete this index entry?");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kYesNo | msgbox::kQuestion);

    m_ui->QueueAnswer(vbYes);
    EXPECT_TRUE(m_dialog.cmdDeleteEntry_Click());
    EXPECT_EQ(m_dialog.IndexesCollection(), (Entries { "open" }));
    EXPECT_EQ(m_dialog.ListIndex(), 0u);
    m_ui->QueueAnswer(vbYes);
    EXPECT_TRUE(m_dialog.cmdDeleteEntry_Click());
    EXPECT_FALSE(m_dialog.ListIndex().has_value());
    EXPECT_FALSE(m_dialog.cmdDeleteEntry_Click());
    EXPECT_EQ(m_ui->MessageBoxes().size(), 3u) << "nothing selected, nothing asked";
}

TEST_F(IndexEntriesDialogTest, UpAndDownSwapWithTheNeighbourUntilTheEnds)
{
    m_dialog.SetTxtIndexEntry("close");
    m_dialog.cmdAddEntry_Click();
    EXPECT_FALSE(m_dialog.ToggleButtons().moveDown);
    EXPECT_TRUE(m_dialog.cmdMoveUp_Click());
    EXPECT_TRUE(m_dialog.cmdMoveUp_Click());
    EXPECT_FALSE(m_dialog.cmdMoveUp_Click());
    EXPECT_EQ(m_dialog.IndexesCollection(), (Entries { "close", "open", "print" }));
    EXPECT_EQ(m_dialog.ListIndex(), 0u);
    auto buttons = m_dialog.ToggleButtons();
    EXPECT_FALSE(buttons.moveUp);
    EXPECT_TRUE(buttons.moveDown);
    EXPECT_TRUE(buttons.deleteEntry);
    EXPECT_TRUE(m_dialog.cmdMoveDown_Click());
    EXPECT_EQ(m_dialog.IndexesCollection(), (Entries { "open", "close", "print" }));

    m_dialog.SetListIndex(7);
    EXPECT_FALSE(m_dialog.ListIndex().has_value());
    EXPECT_FALSE(m_dialog.ToggleButtons().deleteEntry);
}

}  // namespace
}  // namespace scriv
