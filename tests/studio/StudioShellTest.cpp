#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/Version.h"
#include "foundation/ScriptedUserInterface.h"
#include "generation/HtmlHelpCompiler.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"
#include "StudioFixture.h"

namespace scriv::studio {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using json = nlohmann::json;

// A scripted interface that can act at a chosen moment of a run, as a person
// clicking in the page meanwhile would.
class HookedUserInterface : public ScriptedUserInterface {
public:
    std::function<void(const MessageBoxRequest&)> onMessageBox;
    std::function<void(int update)> onProgressUpdate;

    int MessageBox(const MessageBoxRequest& request) override
    {
        if (auto hook = std::exchange(onMessageBox, nullptr))
            hook(request);
        return ScriptedUserInterface::MessageBox(request);
    }
    void ProgressUpdate(const std::string& text, int value) override
    {
        ScriptedUserInterface::ProgressUpdate(text, value);
        if (onProgressUpdate)
            onProgressUpdate(UpdateCount());
    }
};

class StudioShellTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        auto hooked = std::make_unique<HookedUserInterface>();
        m_hooked = hooked.get();
        m_ui = hooked.get();
        m_replaced = SetUserInterface(std::move(hooked));
        m_page = m_events.Subscribe();
    }

    void TearDown() override
    {
        m_page.reset();
        StudioFixture::TearDown();
        m_replaced.reset();
    }



    std::string Help(const std::string& name) const { return m_app.Path() + "CHM/" + name; }
    CScrivServerData& ShellData() { return m_shell->Server().Data(); }

    // Generates the help of the Orders project: New Help Project opens the
    // wizard, Finish generates; every box is answered by default.
    void Generate()
    {
        ASSERT_EQ(m_shell->Run("NewProject"), 0u) << ::testing::PrintToString(BoxTexts());
        ASSERT_TRUE(m_shell->Wizard().Open());
        ASSERT_EQ(m_shell->Run("WizardFinish"), 0u) << ::testing::PrintToString(BoxTexts());
        ASSERT_TRUE(FileExists(Help("Orders.svp")));
    }

    HookedUserInterface* m_hooked { nullptr };
    std::unique_ptr<IUserInterface> m_replaced;
};

TEST_F(StudioShellTest, WithNoApplicationOpenTheMenuSaysSoAndOpensNothing)
{
    StartShell("<Host/>");
    EXPECT_EQ(m_shell->Run("NewProject"), status::kAbandoned);
    EXPECT_EQ(m_shell->Run("OpenProject"), status::kAbandoned);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "There are no open source projects or \r\n"
                                            "active project has type which is not supported by Scrivant or \r\n"
                                            "active project is unloaded.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kExclamation);
    EXPECT_EQ(m_shell->Server().Actions().Wizard(), nullptr);
    json state = m_shell->State();
    EXPECT_TRUE(state["source"]["projects"].empty());
    EXPECT_TRUE(state["help"].is_null());
}

TEST_F(StudioShellTest, NewHelpProjectGeneratesRegistersAndShowsTheStatistics)
{
    StartShell(OrdersHost());
    Generate();
    const MessageBoxRequest& last = m_ui->MessageBoxes().back();
    EXPECT_EQ(last.title, "Help Generation Completed");
    EXPECT_EQ(last.flags, msgbox::kInformation);
    EXPECT_EQ(last.text.rfind("The Scrivant added:\r\n- 2 new help pages with", 0), 0u) << last.text;
    EXPECT_FALSE(m_ui->ProgressCalls().empty());
    EXPECT_TRUE(ShellData().Projects().IsSavedProject("Orders"));

    std::vector<json> runs = PageEvents("run");
    ASSERT_EQ(runs.size(), 4u);
    EXPECT_EQ(runs[0]["state"], "started");
    EXPECT_EQ(runs[1]["state"], "ended");
    EXPECT_EQ(runs[1]["command"], "NewProject");
    EXPECT_EQ(runs[1]["status"], 0);
    EXPECT_EQ(runs[3]["command"], "WizardFinish");
    EXPECT_EQ(runs[3]["status"], 0);
    EXPECT_FALSE(m_shell->Running());
    EXPECT_FALSE(m_shell->Wizard().Open());
    EXPECT_FALSE(m_shell->State()["wizard"].get<bool>());

    json help = m_shell->State()["help"];
    EXPECT_EQ(help["name"], "Orders");
    EXPECT_EQ(help["projectFile"], Help("Orders.svp"));
    EXPECT_TRUE(help["registered"].get<bool>());
    EXPECT_TRUE(help["webHelpExists"].get<bool>());
    // The help's folder is among those the page may read.
    m_files.SetRoots(m_shell->AllowedFolders());
    EXPECT_TRUE(m_files.Resolve(Help("Welcome.htm")));
}

TEST_F(StudioShellTest, ARefusedTargetFolderShowsItsMessageAndTheWizardAgain)
{
    StartShell(OrdersHost());
    Generate();
    ASSERT_EQ(m_shell->Run("NewProject"), 0u);
    EXPECT_TRUE(m_shell->State()["wizard"].get<bool>());
    EXPECT_EQ(m_shell->Run("WizardFinish"), status::kAbandoned);
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Target folder '" + Help("") + "'\r\n"
                                                "already has Scrivant project 'Orders.svp'\r\n"
                                                "Please select another target folder.");
    // The answer can be changed: the wizard is there again.
    ASSERT_TRUE(m_shell->Wizard().Open());
    EXPECT_TRUE(m_shell->Server().FormIsLoaded("frmHelpWizard"));
    m_shell->Run("OpenProject");
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Please close Scrivant's Wizard form before opening help project.");
    // Cancel closes it, and Open Help Project goes on.
    EXPECT_EQ(m_shell->Run("WizardCancel"), 0u);
    EXPECT_FALSE(m_shell->Wizard().Open());
    EXPECT_FALSE(m_shell->Server().FormIsLoaded("frmHelpWizard"));
    m_ui->QueueChoice(0);
    EXPECT_EQ(m_shell->Run("OpenProject"), 0u);
}

TEST_F(StudioShellTest, TheMenuEntriesAreThoseOfTheScrivantMenu)
{
    StartShell(OrdersHost());
    json menu = m_shell->State()["menu"];
    EXPECT_EQ(menu["caption"], "&Scrivant");
    std::vector<std::string> captions;
    for (const json& entry : menu["entries"])
        captions.push_back(entry["caption"]);
    EXPECT_EQ(captions, (std::vector<std::string> { "&New Help Project...", "&Open Help Project...", "Help &Contents",
                            "&About..." }));
    EXPECT_TRUE(menu["entries"][2]["beginGroup"].get<bool>());
    // Unknown commands are not run and say nothing.
    EXPECT_EQ(m_shell->Run("FormatDisk"), status::kAbandoned);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    EXPECT_TRUE(PageEvents("run").empty());
}

TEST_F(StudioShellTest, WithoutACompilerThePersonChoosesToGetItToStopOrToGoOn)
{
    StartShell(OrdersHost());
    ShellData().OverrideOption("HelpCompilerPath", OptionValue::Text("no-such-help-compiler"));
    ShellData().ReLoadSettings(ShellData().SettingsFilePath(), false);
    ASSERT_FALSE(TestHelpWorkshopInstalled());

    m_ui->QueueAnswer(vbCancel);
    EXPECT_EQ(m_shell->Run("NewProject"), status::kAbandoned);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kYesNoCancel);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "MS Html Help Workshop not found on this computer. Without it generated HTML help\r\n"
        " can't be compiled. Would you like to download and install it?\r\n\r\n"
        "Note: If you are certain that HTML Help Workshop is already installed press 'No' to continue.");
    EXPECT_FALSE(FileExists(Help("Welcome.htm")));

    m_ui->QueueAnswer(vbYes);
    EXPECT_EQ(m_shell->Run("NewProject"), status::kAbandoned);
    std::vector<json> opened = PageEvents("open-url");
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0]["url"], StudioShell::kCompilerDownloadPage);
    EXPECT_FALSE(FileExists(Help("Welcome.htm")));

    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(m_shell->Run("NewProject"), 0u);
    EXPECT_EQ(m_shell->Run("WizardFinish"), 0u);
    EXPECT_TRUE(FileExists(Help("Welcome.htm")));
    EXPECT_FALSE(FileExists(Help("Orders.chm")));
    EXPECT_TRUE(ShellData().Projects().IsSavedProject("Orders"));
}

TEST_F(StudioShellTest, UnsavedChangesAreConfirmedBeforeANewProjectButNotBeforeOpening)
{
    StartShell(OrdersHost(" Dirty=\"true\""));
    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(m_shell->Run("NewProject"), status::kAbandoned);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 308);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Your current source project has unsaved changes.\r\n"
                                            "It is recommended for you to save all these changes manually\r\n"
                                            "before running Scrivant Add-in.\r\n"
                                            "Would you like to continue running Scrivant Add-in\r\n"
                                            "with unsaved changes in the current source project\r\n'"
            + m_app.Path() + "Orders.vbp'?");
    EXPECT_FALSE(FileExists(Help("Welcome.htm")));

    m_ui->QueueChoice(std::nullopt);
    m_shell->Run("OpenProject");
    EXPECT_EQ(m_ui->MessageBoxes().size(), 1u);
    ASSERT_EQ(m_ui->ListRequests().size(), 1u);
}

TEST_F(StudioShellTest, ASecondCommandDuringARunIsRefusedWithAMessage)
{
    StartShell(OrdersHost());
    std::uint32_t nested = 0;
    bool runningThen = false;
    m_hooked->onMessageBox = [&](const MessageBoxRequest&) {
        runningThen = m_shell->Running();
        nested = m_shell->Run("NewProject");
    };
    Generate();
    EXPECT_TRUE(runningThen);
    EXPECT_EQ(nested, status::kAbandoned);
    std::vector<std::string> texts = BoxTexts();
    ASSERT_GE(texts.size(), 2u);
    EXPECT_EQ(texts[0], "Please wait until the running command has finished.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kExclamation);
    EXPECT_EQ(m_ui->MessageBoxes().back().title, "Help Generation Completed");
    // No run besides the two of the person's: their starts and their ends.
    EXPECT_EQ(PageEvents("run").size(), 4u);
}

TEST_F(StudioShellTest, CancelDuringGenerationStopsTheRunAndRegistersNothing)
{
    StartShell(OrdersHost());
    // Cancel is pressed while the walk over the contents runs.
    bool cancelled = false;
    m_hooked->onProgressUpdate = [&](int) {
        const auto& calls = m_ui->ProgressCalls();
        for (auto call = calls.rbegin(); call != calls.rend() && !cancelled; ++call) {
            if (call->kind != ScriptedUserInterface::ProgressKind::Init)
                continue;
            if (call->text.rfind("Processing TOC", 0) == 0) {
                m_shell->Cancel();
                cancelled = true;
            }
            break;
        }
    };
    ASSERT_EQ(m_shell->Run("NewProject"), 0u);
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(m_shell->Run("WizardFinish"), status::kAbandoned);
    ASSERT_TRUE(cancelled);
    EXPECT_FALSE(m_shell->Wizard().Open());
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Help generation was cancelled by end-user.");
    EXPECT_EQ(m_ui->MessageBoxes().back().flags, msgbox::kCritical);
    EXPECT_TRUE(m_shell->Server().Actions().LastStatistics().empty());
    for (const auto& box : m_ui->MessageBoxes())
        EXPECT_NE(box.title, "Help Generation Completed");
    EXPECT_FALSE(ShellData().Projects().IsSavedProject("Orders"));
    std::string registry = ReadFileText(ShellData().ProjectsFilePath()).value_or("");
    EXPECT_EQ(registry.find("<Project "), std::string::npos) << registry;
    // The flag is down again for the next command.
    EXPECT_FALSE(ShellData().GenerationInterrupted);
    // Cancel outside a run changes nothing.
    m_shell->Cancel();
    EXPECT_FALSE(ShellData().GenerationInterrupted);
}

TEST_F(StudioShellTest, OpenHelpNeedsAGeneratedProject)
{
    StartShell(OrdersHost());
    EXPECT_EQ(m_shell->Run("OpenHelpOfActiveProject"), status::kAbandoned);
    EXPECT_EQ(m_shell->Run("OpenWebHelpOfActiveProject"), status::kAbandoned);
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { "HTML Help project was not yet generated and/or compiled.",
                              "HTML Help project was not yet generated and/or compiled." }));
    EXPECT_TRUE(PageEvents("show-help").empty());
}

TEST_F(StudioShellTest, ACompiledHelpARunOpensShowsInTheViewerAndNothingElseDoes)
{
    StartShell(OrdersHost());
    Generate();
    if (!FileExists(Help("Orders.chm")))
        GTEST_SKIP() << "no help compiler (chmcmd) is installed";
    std::size_t before = PageEvents("show-help").size();
    EXPECT_TRUE(m_shell->ShowDocument(Help("Orders.chm")));
    std::vector<json> shown = PageEvents("show-help");
    ASSERT_EQ(shown.size(), before + 1);
    EXPECT_EQ(shown.back()["kind"], "chm");
    EXPECT_EQ(shown.back()["path"], Help("Orders.chm"));
    // A project file, a folder or a help that is gone is left to the desktop.
    EXPECT_FALSE(m_shell->ShowDocument(Help("Orders.hhp")));
    EXPECT_FALSE(m_shell->ShowDocument(m_app.Path() + "CHM"));
    EXPECT_FALSE(m_shell->ShowDocument(Help("Gone.chm")));
    EXPECT_EQ(PageEvents("show-help").size(), before + 1);
}

TEST_F(StudioShellTest, OpenHelpOffersARecompileWhenPagesAreNewerThanTheCompiledHelp)
{
    StartShell(OrdersHost());
    Generate();
    if (!FileExists(Help("Orders.chm")))
        GTEST_SKIP() << "no help compiler (chmcmd) is installed";
    std::size_t before = m_ui->MessageBoxes().size();
    fs::last_write_time(Help("Welcome.htm"), fs::last_write_time(Help("Orders.chm")) + 1h);

    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(m_shell->Run("OpenHelpOfActiveProject"), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), before + 1);
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "The help project has been changed since last compilation.\r\n"
                                                "Do you want to recompile the HTML Help before opening it ?");
    EXPECT_EQ(m_ui->MessageBoxes().back().flags, 36);
    std::vector<json> shown = PageEvents("show-help");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0]["kind"], "chm");
    EXPECT_EQ(shown[0]["path"], Help("Orders.chm"));

    // Yes recompiles, and the help is no longer older than its pages.
    fs::last_write_time(Help("Welcome.htm"), fs::last_write_time(Help("Orders.chm")) + 1h);
    m_ui->QueueAnswer(vbYes);
    EXPECT_EQ(m_shell->Run("OpenHelpOfActiveProject"), 0u);
    EXPECT_EQ(PageEvents("show-help").size(), 2u);
    std::size_t asked = m_ui->MessageBoxes().size();
    fs::last_write_time(Help("Welcome.htm"), fs::last_write_time(Help("Orders.chm")) - 1h);
    EXPECT_EQ(m_shell->Run("OpenHelpOfActiveProject"), 0u);
    EXPECT_EQ(m_ui->MessageBoxes().size(), asked);
}

TEST_F(StudioShellTest, OpenWebHelpOffersToBringContentsAndIndexUpToDate)
{
    StartShell(OrdersHost());
    Generate();
    std::size_t before = m_ui->MessageBoxes().size();
    fs::last_write_time(Help("Orders.hhc"), fs::last_write_time(Help("main.htm")) + 1h);
    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(m_shell->Run("OpenWebHelpOfActiveProject"), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), before + 1);
    EXPECT_EQ(m_ui->MessageBoxes().back().text,
        "The help project has been changed since last generation or compilation.\r\n"
        "Do you want to recompile contents and index of the Web Help before opening it ?");
    std::vector<json> shown = PageEvents("show-help");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0]["kind"], "web");
    EXPECT_EQ(shown[0]["path"], Help("main.htm"));

    fs::remove(Help("main.htm"));
    EXPECT_EQ(m_shell->Run("OpenWebHelpOfActiveProject"), status::kAbandoned);
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Web Help entry HTML page doesn't exist '" + Help("main.htm") + "'.");
}

TEST_F(StudioShellTest, OpenHelpProjectListsTheApplicationsProjectsAndReopensTheChosenOne)
{
    StartShell(OrdersHost());
    Generate();
    m_shell->Disconnect();
    m_shell.reset();

    // A new session: nothing is open until the person chooses.
    StartShell(OrdersHost());
    EXPECT_TRUE(m_shell->State()["help"].is_null());
    m_ui->QueueChoice(0);
    EXPECT_EQ(m_shell->Run("OpenProject"), 0u);
    ASSERT_FALSE(m_ui->ListRequests().empty());
    EXPECT_EQ(m_ui->ListRequests().back(), (std::vector<std::string> { Help("Orders.svp"), "More Files..." }));
    json help = m_shell->State()["help"];
    ASSERT_TRUE(help.is_object());
    EXPECT_EQ(help["name"], "Orders");
    EXPECT_EQ(help["projectFile"], Help("Orders.svp"));
    // The reopened project's commands work on it.
    EXPECT_EQ(m_shell->Run("OpenWebHelpOfActiveProject"), 0u);
    EXPECT_EQ(PageEvents("show-help").back()["path"], Help("main.htm"));
}

TEST_F(StudioShellTest, RecompileAndRegenerateWorkOnTheCurrentProject)
{
    StartShell(OrdersHost());
    EXPECT_EQ(m_shell->Run("RecompileHelpProject"), status::kAbandoned);
    Generate();
    fs::remove(Help("Orders.hhk"));
    std::size_t boxes = m_ui->MessageBoxes().size();
    EXPECT_EQ(m_shell->Run("RecompileHelpProject", json { { "ask", false } }), 0u);
    EXPECT_TRUE(FileExists(Help("Orders.hhk")));
    // Asked for nothing, it asks nothing.
    EXPECT_EQ(m_ui->MessageBoxes().size(), boxes);

    EXPECT_EQ(m_shell->Run("RegenerateHelpProject"), status::kAbandoned);
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "There are no new objects in the source project");
}

TEST_F(StudioShellTest, HelpContentsAnswersThroughABoxAndAboutThroughTheStudiosOwnBox)
{
    StartShell(OrdersHost());
    EXPECT_EQ(m_shell->Run("HelpTopics"), status::kAbandoned);
    EXPECT_EQ(m_shell->Run("AboutForm"), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Help doesn't exist '" + Folders().InstallFolder() + "Scrivant.chm'.");
    std::vector<json> about = PageEvents("about");
    ASSERT_EQ(about.size(), 1u);
    EXPECT_EQ(about[0]["title"], "About Scrivant");
    EXPECT_EQ(about[0]["program"], "Scrivant");
    EXPECT_EQ(about[0]["version"], kProgramVersion);
    EXPECT_EQ(about[0]["description"], kProgramDescription);
    EXPECT_TRUE(about[0]["help"].is_null());
    Generate();
    m_shell->Run("AboutForm");
    EXPECT_EQ(PageEvents("about").back()["help"]["name"], "Orders");
}

TEST_F(StudioShellTest, TheStateNamesTheApplicationAndItsForms)
{
    StartShell("<Host><Project Name=\"Orders\" FullPath=\"" + m_app.Path()
        + "Orders.vbp\" Active=\"true\"><Form Name=\"frmMain\" Text=\"Orders\"/></Project>"
          "<Project Name=\"Stock\" FullPath=\""
        + m_app.Path() + "stock/Stock.vbp\"/></Host>");
    json source = m_shell->State()["source"];
    ASSERT_EQ(source["projects"].size(), 2u);
    EXPECT_EQ(source["projects"][0]["name"], "Orders");
    EXPECT_EQ(source["projects"][0]["type"], "VB6");
    EXPECT_TRUE(source["projects"][0]["current"].get<bool>());
    EXPECT_EQ(source["projects"][1]["path"], m_app.Path() + "stock/Stock.vbp");
    EXPECT_FALSE(source["projects"][1]["current"].get<bool>());
    // Reading the projects leaves the host's current project as it was.
    EXPECT_EQ(m_shell->Server().Agent().CurrentSourceProjectName(), "Orders");
    std::vector<std::string> folders = m_shell->AllowedFolders();
    EXPECT_NE(std::find(folders.begin(), folders.end(), m_app.Path() + "stock/"), folders.end());
}

}  // namespace
}  // namespace scriv::studio
