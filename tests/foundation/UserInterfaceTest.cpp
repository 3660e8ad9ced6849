#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "foundation/ConsoleUserInterface.h"
#include "foundation/IUserInterface.h"
#include "foundation/ScriptedUserInterface.h"

namespace scriv {
namespace {

MessageBoxRequest Box(std::string text, int flags, std::string title = "Scrivant Add-In")
{
    return MessageBoxRequest { std::move(text), flags, std::move(title), "Test.Box" };
}

std::size_t Count(const std::string& text, std::string_view what)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size()))
        ++count;
    return count;
}

// --- flags ---

TEST(MessageBoxFlags, ButtonsAndDefaultsFollowTheFlagValues)
{
    EXPECT_EQ(ButtonsOf(48), std::vector<int> { vbOK });
    EXPECT_EQ(ButtonsOf(49), (std::vector<int> { vbOK, vbCancel }));
    EXPECT_EQ(ButtonsOf(3), (std::vector<int> { vbYes, vbNo, vbCancel }));
    EXPECT_EQ(ButtonsOf(2), (std::vector<int> { vbAbort, vbRetry, vbIgnore }));
    EXPECT_EQ(ButtonsOf(52), (std::vector<int> { vbYes, vbNo }));
    EXPECT_EQ(ButtonsOf(5), (std::vector<int> { vbRetry, vbCancel }));
    EXPECT_EQ(DefaultButtonOf(36), vbYes);
    EXPECT_EQ(DefaultButtonOf(260), vbNo);
    EXPECT_EQ(DefaultButtonOf(3 | 512), vbCancel);
    EXPECT_EQ(DefaultButtonOf(2 | 256), vbRetry);
    // A default beyond the buttons shown is the first button.
    EXPECT_EQ(DefaultButtonOf(16 | 256), vbOK);
    EXPECT_EQ(DefaultButtonOf(4 | 512), vbYes);
}

TEST(ProcessInterface, ReplacingTheInterfaceHandsBackThePreviousOne)
{
    auto scripted = std::make_unique<ScriptedUserInterface>();
    ScriptedUserInterface* raw = scripted.get();
    std::unique_ptr<IUserInterface> previous = SetUserInterface(std::move(scripted));
    EXPECT_EQ(&UserInterface(), raw);
    std::unique_ptr<IUserInterface> back = SetUserInterface(std::move(previous));
    EXPECT_EQ(back.get(), raw);
    EXPECT_NE(&UserInterface(), raw);
}

// --- console, unattended ---

class UnattendedConsole : public ::testing::Test {
protected:
    int Ask(const MessageBoxRequest& request, bool assumeYes = false)
    {
        ConsoleUserInterface ui({ false, assumeYes, false }, m_in, m_out);
        return ui.MessageBox(request);
    }
    std::istringstream m_in;
    std::ostringstream m_out;
};

TEST_F(UnattendedConsole, AnswersTheDefaultButtonAndSaysSo)
{
    EXPECT_EQ(Ask(Box("Overwrite the help file?", 36 | 256, "Generate")), vbNo);
    std::string shown = m_out.str();
    EXPECT_NE(shown.find("Generate (question)"), std::string::npos) << shown;
    EXPECT_NE(shown.find("Overwrite the help file?"), std::string::npos);
    EXPECT_NE(shown.find("=> No (default)"), std::string::npos) << shown;
    EXPECT_EQ(Ask(Box("Go on?", 36)), vbYes);
    EXPECT_EQ(Ask(Box("Stop?", 3 | 512)), vbCancel);
}

TEST_F(UnattendedConsole, AssumeYesAnswersYesOrOk)
{
    EXPECT_EQ(Ask(Box("Overwrite?", 260), true), vbYes);
    EXPECT_NE(m_out.str().find("=> Yes (assumed)"), std::string::npos) << m_out.str();
    EXPECT_EQ(Ask(Box("Proceed?", 49 | 256), true), vbOK);
    // No Yes and no OK on the box: the default stands.
    EXPECT_EQ(Ask(Box("Try again?", 5 | 256), true), vbCancel);
}

TEST_F(UnattendedConsole, WindowsLineEndsBecomeTerminalLines)
{
    Ask(Box("first\r\n\r\nsecond", 64));
    EXPECT_NE(m_out.str().find("first\n\nsecond\n"), std::string::npos);
    EXPECT_EQ(m_out.str().find('\r'), std::string::npos);
}

TEST_F(UnattendedConsole, InputAndChoicesTakeDefaultsWithoutReading)
{
    m_in.str("typed\n");
    ConsoleUserInterface ui({ false, false, false }, m_in, m_out);
    EXPECT_EQ(ui.InputBox("Project name?", "New", "Help1"), std::optional<std::string>("Help1"));
    EXPECT_EQ(ui.ChooseFile({ "Open", "Scrivant Project (SVP)", "*.svp", "/tmp/", false }), std::nullopt);
    EXPECT_EQ(ui.ChooseFolder("Target", "/tmp/"), std::nullopt);
    std::string rest;
    std::getline(m_in, rest);
    EXPECT_EQ(rest, "typed");
}

// --- console, asking ---

class AskingConsole : public ::testing::Test {
protected:
    ConsoleUserInterface& Ui(std::string input)
    {
        m_in.str(std::move(input));
        m_ui = std::make_unique<ConsoleUserInterface>(ConsoleOptions { true, false, false }, m_in, m_out);
        return *m_ui;
    }
    std::istringstream m_in;
    std::ostringstream m_out;
    std::unique_ptr<ConsoleUserInterface> m_ui;
};

TEST_F(AskingConsole, OffersTheButtonsAndReadsTheAnswer)
{
    EXPECT_EQ(Ui("maybe\nn\n").MessageBox(Box("Save?", 3)), vbNo);
    std::string shown = m_out.str();
    EXPECT_NE(shown.find("[Y]es / [N]o / [C]ancel (default Yes): "), std::string::npos) << shown;
    // The unknown answer was asked again.
    EXPECT_EQ(Count(shown, "(default Yes): "), 2u);
}

TEST_F(AskingConsole, WholeWordsAndAnyCaseAreAccepted)
{
    EXPECT_EQ(Ui("CANCEL\n").MessageBox(Box("Save?", 3)), vbCancel);
    EXPECT_EQ(Ui("retry\n").MessageBox(Box("Locked", 5)), vbRetry);
    EXPECT_EQ(Ui("i\n").MessageBox(Box("Locked", 2)), vbIgnore);
}

TEST_F(AskingConsole, EnterAndEndOfInputTakeTheDefault)
{
    EXPECT_EQ(Ui("\n").MessageBox(Box("Overwrite?", 260)), vbNo);
    EXPECT_EQ(Ui("").MessageBox(Box("Overwrite?", 4 | 256)), vbNo);
    EXPECT_EQ(Ui("   \n").MessageBox(Box("Go?", 1)), vbOK);
}

TEST_F(AskingConsole, InputBoxReadsALine)
{
    EXPECT_EQ(Ui("My Help\n").InputBox("Name?", "New", "Help1"), std::optional<std::string>("My Help"));
    EXPECT_EQ(Ui("\n").InputBox("Name?", "New", "Help1"), std::optional<std::string>("Help1"));
    EXPECT_EQ(Ui("").InputBox("Name?", "New", "Help1"), std::nullopt);
}

TEST_F(AskingConsole, PathsAreReadRelativeToTheStartFolder)
{
    EXPECT_EQ(Ui("sub/x.svp\n").ChooseFile({ "Open", "Scrivant Project (SVP)", "*.svp", "/base/", false }),
        std::optional<std::string>("/base/sub/x.svp"));
    EXPECT_NE(m_out.str().find("Open - Scrivant Project (SVP) *.svp"), std::string::npos) << m_out.str();
    EXPECT_EQ(Ui("/abs/y.svp\n").ChooseFile({ "Open", "", "", "/base/", false }), std::optional<std::string>("/abs/y.svp"));
    EXPECT_EQ(Ui("\n").ChooseFile({ "Open", "", "", "/base/", false }), std::nullopt);
    EXPECT_EQ(Ui("out\n").ChooseFolder("Target", "/base/"), std::optional<std::string>("/base/out/"));
}

// --- console progress ---

TEST(ConsoleProgress, WithoutATerminalPrintsOneLinePerNewText)
{
    std::istringstream in;
    std::ostringstream out;
    ConsoleUserInterface ui({ false, false, false }, in, out);
    ui.ProgressInit("Generating", 10);
    ui.ProgressUpdate("", 1);
    ui.ProgressUpdate("Generating", 2);
    ui.ProgressUpdate("Pages", 3);
    ui.ProgressUpdate("", 4);
    ui.ProgressDispose();
    EXPECT_EQ(out.str(), "Generating\nPages\n");
}

TEST(ConsoleProgress, OnATerminalRedrawsOneLine)
{
    std::istringstream in;
    std::ostringstream out;
    ConsoleUserInterface ui({ false, false, true }, in, out);
    ui.ProgressInit("Pages", 3);
    ui.ProgressUpdate("", 1);
    ui.ProgressUpdate("Index", 2);
    ui.ProgressDispose();
    EXPECT_EQ(out.str(), "\r\x1b[KPages (0/3)\r\x1b[KPages (1/3)\r\x1b[KIndex (2/3)\n");
}

void KeepInterrupt(int) { }

TEST(ConsoleProgress, InterruptDuringProgressAsksToStopAndTheHandlerIsRestored)
{
    struct sigaction mine {};
    mine.sa_handler = KeepInterrupt;
    sigemptyset(&mine.sa_mask);
    struct sigaction before {};
    ASSERT_EQ(sigaction(SIGINT, &mine, &before), 0);

    std::istringstream in;
    std::ostringstream out;
    ConsoleUserInterface ui({ false, false, false }, in, out);
    ui.ClearCancelRequest();
    ui.ProgressInit("Generating", 5);
    EXPECT_FALSE(ui.CancelRequested());
    std::raise(SIGINT);
    EXPECT_TRUE(ui.CancelRequested());
    ui.ProgressDispose();

    struct sigaction now {};
    sigaction(SIGINT, nullptr, &now);
    EXPECT_EQ(now.sa_handler, &KeepInterrupt);
    EXPECT_TRUE(ui.CancelRequested());
    ui.ClearCancelRequest();
    EXPECT_FALSE(ui.CancelRequested());
    sigaction(SIGINT, &before, nullptr);
}

// --- scripted ---

TEST(ScriptedInterface, AnswersFromTheQueueThenTheDefault)
{
    ScriptedUserInterface ui;
    ui.QueueAnswer(vbNo);
    EXPECT_EQ(ui.MessageBox(Box("first", 36)), vbNo);
    EXPECT_EQ(ui.MessageBox(Box("second", 36)), vbYes);
    EXPECT_EQ(ui.MessageBox(Box("third", 260)), vbNo);
    ASSERT_EQ(ui.MessageBoxes().size(), 3u);
    EXPECT_EQ(ui.MessageBoxes()[1].text, "second");
    EXPECT_EQ(ui.MessageBoxes()[2].flags, 260);
    EXPECT_EQ(ui.MessageBoxes()[0].source, "Test.Box");
    EXPECT_EQ(ui.Answers(), (std::vector<int> { vbNo, vbYes, vbNo }));
    EXPECT_EQ(ui.PendingAnswers(), 0u);
}

TEST(ScriptedInterface, InputsFilesAndFoldersComeFromTheirQueues)
{
    ScriptedUserInterface ui;
    ui.QueueInput("typed");
    ui.QueueInput(std::nullopt);
    ui.QueueFile("/p/a.svp");
    ui.QueueFolder("/out/");
    EXPECT_EQ(ui.InputBox("Name?", "T", "dflt"), std::optional<std::string>("typed"));
    EXPECT_EQ(ui.InputBox("Name?", "T", "dflt"), std::nullopt);
    EXPECT_EQ(ui.InputBox("Name?", "T", "dflt"), std::optional<std::string>("dflt"));
    EXPECT_EQ(ui.ChooseFile({ "Open", "", "*.svp", "", false }), std::optional<std::string>("/p/a.svp"));
    EXPECT_EQ(ui.ChooseFile({ "Open again", "", "*.svp", "", false }), std::nullopt);
    EXPECT_EQ(ui.ChooseFolder("Target", "/"), std::optional<std::string>("/out/"));
    EXPECT_EQ(ui.ChooseFolder("Target", "/"), std::nullopt);
    ASSERT_EQ(ui.InputRequests().size(), 3u);
    EXPECT_EQ(ui.InputRequests()[2].defaultValue, "dflt");
    EXPECT_EQ(ui.FileRequests()[1].title, "Open again");
    EXPECT_EQ(ui.FolderRequests().size(), 2u);
}

TEST(ScriptedInterface, CancelsAtTheChosenProgressUpdate)
{
    ScriptedUserInterface ui;
    ui.CancelAtUpdate(3);
    ui.ProgressInit("Run", 10);
    ui.ProgressUpdate("a", 1);
    ui.ProgressUpdate("", 2);
    EXPECT_FALSE(ui.CancelRequested());
    ui.ProgressUpdate("", 3);
    EXPECT_TRUE(ui.CancelRequested());
    ui.ClearCancelRequest();
    ui.ProgressUpdate("", 4);
    EXPECT_FALSE(ui.CancelRequested());
    ui.ProgressDispose();
    ASSERT_EQ(ui.ProgressCalls().size(), 6u);
    EXPECT_EQ(ui.ProgressCalls()[0].kind, ScriptedUserInterface::ProgressKind::Init);
    EXPECT_EQ(ui.ProgressCalls()[0].value, 10);
    EXPECT_EQ(ui.ProgressCalls()[1].text, "a");
    EXPECT_EQ(ui.ProgressCalls()[5].kind, ScriptedUserInterface::ProgressKind::Dispose);
    EXPECT_EQ(ui.UpdateCount(), 4);
}

}  // namespace
}  // namespace scriv
