#include <gtest/gtest.h>

#include "foundation/CTraceLog.h"
#include "foundation/MsgBox.h"
#include "foundation/Version.h"
#include "ReportingFixture.h"

namespace scriv {
namespace {

using MessageBoxWrapper = test::ReportingFixture;

TEST_F(MessageBoxWrapper, AsksTheInterfaceOfTheProcess)
{
    m_ui->QueueAnswer(vbCancel);
    EXPECT_EQ(MsgBox("Close the editor?", 49, "Help Editor", "", 0, "frmHelpEditor.Close"), vbCancel);
    EXPECT_EQ(MsgBox("Done."), vbOK);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    const MessageBoxRequest& first = m_ui->MessageBoxes()[0];
    EXPECT_EQ(first.text, "Close the editor?");
    EXPECT_EQ(first.flags, 49);
    EXPECT_EQ(first.title, "Help Editor");
    EXPECT_EQ(first.source, "frmHelpEditor.Close");
    EXPECT_EQ(m_ui->MessageBoxes()[1].title, kMessageBoxTitle);
    EXPECT_EQ(MsgBox("Untitled", 0, ""), vbOK);
    EXPECT_EQ(m_ui->MessageBoxes()[2].title, "Scrivant Add-In");
}

TEST_F(MessageBoxWrapper, VerboseTraceRecordsTextSourceAndButton)
{
    TraceLog().SetVerbose(true);
    m_ui->QueueAnswer(vbNo);
    MsgBox("Overwrite?", 260, kMessageBoxTitle, "", 0, "CScrivant.Generate");
    EXPECT_NE(TraceText().find(" - Overwrite?, source = CScrivant.Generate =&gt; vbNo</msg>"), std::string::npos) << TraceText();
}

TEST_F(MessageBoxWrapper, QuietTraceRecordsNothing)
{
    MsgBox("Overwrite?", 260, kMessageBoxTitle, "", 0, "CScrivant.Generate");
    EXPECT_EQ(TraceText(), "");
}

TEST_F(MessageBoxWrapper, InputBoxPassesPromptTitleAndDefault)
{
    m_ui->QueueInput(std::nullopt);
    EXPECT_EQ(InputBox("Page title?", "Rename", "Old"), std::nullopt);
    EXPECT_EQ(InputBox("Page title?", "Rename", "Old"), std::optional<std::string>("Old"));
    ASSERT_EQ(m_ui->InputRequests().size(), 2u);
    EXPECT_EQ(m_ui->InputRequests()[0].prompt, "Page title?");
    EXPECT_EQ(m_ui->InputRequests()[0].title, "Rename");
    EXPECT_EQ(m_ui->InputRequests()[0].defaultValue, "Old");
}

TEST_F(MessageBoxWrapper, WarningDialogIsAnExclamationUnderTheDefaultTitle)
{
    EXPECT_EQ(WarningDialog("Low disk space"), vbOK);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 48);
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Low disk space");
}

}  // namespace
}  // namespace scriv
