#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cmath>
#include <functional>
#include <filesystem>
#include <unistd.h>

#include "foundation/Paths.h"
#include "foundation/ScriptedUserInterface.h"
#include "model/CAddInProjects.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "StudioFixture.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv::studio {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

// The wizard in the studio: opened by New Help Project on the bundled
// example (read from its files), changed and moved through as the page does,
// and closed with Finish or Cancel.
class StudioWizardTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        m_example = scriv::test::CopyExample("OrderDesk", m_app);
    }

    // The studio on the copy of the example, read from its files.
    void StartOnExample()
    {
        m_shell = std::make_unique<StudioShell>(m_events, m_files);
        std::string project = m_example + "OrderDesk.vbp";
        m_shell->Connect(StudioShell::HostFor(project), project);
    }

    StudioWizard& OpenWizard()
    {
        StartOnExample();
        EXPECT_EQ(m_shell->Run("NewProject"), 0u);
        EXPECT_TRUE(m_shell->Wizard().Open());
        return m_shell->Wizard();
    }

    json Act(const json& request)
    {
        std::string problem;
        std::optional<json> page = m_shell->WizardAct(request, problem);
        EXPECT_TRUE(page) << problem;
        return page.value_or(json::object());
    }

    std::string Refused(const json& request)
    {
        std::string problem;
        EXPECT_FALSE(m_shell->WizardAct(request, problem));
        return problem;
    }

    json GoTo(const std::string& name)
    {
        json page = m_shell->Wizard().Page();
        while (page["page"]["name"] != name && page["next"].get<bool>())
            page = Act({ { "action", "next" } });
        EXPECT_EQ(page["page"]["name"], name);
        return page;
    }

    static json ControlOf(const json& page, const std::string& name)
    {
        for (const json& control : page["controls"])
            if (control["name"] == name)
                return control;
        ADD_FAILURE() << "no control " << name;
        return json::object();
    }

    // The contents tree's items in order, depth first: "text" per item.
    static void Flatten(const json& items, std::vector<json>& out)
    {
        for (const json& item : items) {
            out.push_back(item);
            Flatten(item["children"], out);
        }
    }
    static json ItemWithText(const json& page, const std::string& text)
    {
        std::vector<json> all;
        Flatten(page["contents"]["items"], all);
        for (const json& item : all)
            if (item["text"] == text)
                return item;
        ADD_FAILURE() << "no item " << text;
        return json::object();
    }
    static std::vector<std::string> SiblingTexts(const json& page, const std::string& parentText)
    {
        std::vector<std::string> texts;
        json parent = ItemWithText(page, parentText);
        for (const json& child : parent["children"])
            texts.push_back(child["text"]);
        return texts;
    }

    std::string Help(const std::string& name) const { return m_example + "CHM/" + name; }

    std::string m_example;
};

TEST_F(StudioWizardTest, ThePageCarriesTheControlsStepsAndPreviewOfTheCurrentPage)
{
    StudioWizard& wizard = OpenWizard();
    EXPECT_TRUE(m_shell->State()["wizard"].get<bool>());
    json page = wizard.Page();
    EXPECT_EQ(page["page"]["name"], "Introduction");
    EXPECT_EQ(page["page"]["title"], "Welcome");
    EXPECT_EQ(page["step"], 1);
    EXPECT_EQ(page["count"], 15);
    EXPECT_FALSE(page["back"].get<bool>());
    EXPECT_TRUE(page["next"].get<bool>());
    EXPECT_EQ(ControlOf(page, "lblIntroduction")["kind"], "label");
    EXPECT_EQ(page["preview"]["kind"], "page");
    EXPECT_EQ(FileNameOf(page["preview"]["path"].get<std::string>()), "~SampleForm.html");

    page = Act({ { "action", "next" } });
    json name = ControlOf(page, "txtName");
    EXPECT_EQ(name["kind"], "text");
    EXPECT_EQ(name["caption"], "&Name");
    EXPECT_EQ(name["value"], "OrderDesk");
    page = Act({ { "action", "set" }, { "control", "txtName" }, { "value", "DeskHelp" } });
    EXPECT_EQ(ControlOf(page, "txtName")["value"], "DeskHelp");
    EXPECT_EQ(m_shell->State()["help"]["name"], "DeskHelp");
    page = Act({ { "action", "set" }, { "control", "chkGenerateHelpForProjectGroup" }, { "value", false } });
    EXPECT_EQ(ControlOf(page, "chkGenerateHelpForProjectGroup")["kind"], "check");

    page = GoTo("Language");
    EXPECT_EQ(ControlOf(page, "cboLanguage")["items"].size(), 57u);
    page = Act({ { "action", "back" } });
    EXPECT_EQ(page["page"]["name"], "CSSFullPath");
    page = GoTo("NameOptions");
    EXPECT_EQ(ControlOf(page, "optName")["group"], "IdentifyBy");

    EXPECT_EQ(Refused({ { "action", "set" }, { "control", "txtNothing" }, { "value", "x" } }),
        "The page has no control 'txtNothing' that can be changed.");
    EXPECT_EQ(Refused({ { "action", "jump" } }), "There is no wizard action 'jump'.");
    EXPECT_EQ(Refused({ { "action", "select" }, { "key", "x" } }), "The contents tree is not on this page.");
}

TEST_F(StudioWizardTest, TheContentsPageLeavesOutAndMovesTopicsAndTheGenerationFollowsIt)
{
    OpenWizard();
    json page = GoTo("HelpProjectContents");
    ASSERT_TRUE(page.contains("contents"));
    EXPECT_TRUE(page["contents"]["canChange"].get<bool>());
    std::vector<std::string> before = SiblingTexts(page, "Dialogs");
    ASSERT_GE(before.size(), 3u) << page["contents"].dump(1);
    auto at = std::find(before.begin(), before.end(), "Customer") - before.begin();
    ASSERT_GE(at, 1);
    ASSERT_LT(at, static_cast<long>(before.size()));

    json customer = ItemWithText(page, "Customer");
    page = Act({ { "action", "select" }, { "key", customer["key"] } });
    EXPECT_EQ(page["contents"]["selected"], customer["key"]);
    EXPECT_EQ(FileNameOf(page["preview"]["path"].get<std::string>()), "~frmCustomer.html");
    std::vector<std::string> items;
    for (const json& entry : page["contents"]["menu"])
        items.push_back(entry["name"]);
    EXPECT_EQ(items, (std::vector<std::string> { "mnuToggleSkippedFlag", "mnuUp", "mnuDown", "mnuLeft", "mnuRight" }));

    page = Act({ { "action", "menu" }, { "item", "mnuUp" } });
    std::vector<std::string> moved = SiblingTexts(page, "Dialogs");
    EXPECT_EQ(moved[at - 1], "Customer");
    EXPECT_EQ(moved[at], before[at - 1]);
    page = Act({ { "action", "menu" }, { "item", "mnuDown" } });
    EXPECT_EQ(SiblingTexts(page, "Dialogs"), before);

    // Right puts it first under the topic below it, Left back beside that one.
    ASSERT_LT(at + 1, static_cast<long>(before.size()));
    std::string below = before[at + 1];
    page = Act({ { "action", "menu" }, { "item", "mnuRight" } });
    EXPECT_EQ(SiblingTexts(page, below).front(), "Customer");
    std::vector<std::string> left = SiblingTexts(page, "Dialogs");
    EXPECT_EQ(std::count(left.begin(), left.end(), "Customer"), 0);
    page = Act({ { "action", "select" }, { "key", ItemWithText(page, "Customer")["key"] } });
    page = Act({ { "action", "menu" }, { "item", "mnuLeft" } });
    std::vector<std::string> back = SiblingTexts(page, "Dialogs");
    auto customer_at = std::find(back.begin(), back.end(), "Customer") - back.begin();
    auto below_at = std::find(back.begin(), back.end(), below) - back.begin();
    ASSERT_LT(customer_at, static_cast<long>(back.size()));
    EXPECT_EQ(std::abs(customer_at - below_at), 1) << ::testing::PrintToString(back);
    EXPECT_TRUE(SiblingTexts(page, below).empty());

    // Only the page's items: nothing of the editor's full menu.
    EXPECT_EQ(Refused({ { "action", "menu" }, { "item", "mnuDelete" } }), "'mnuDelete' cannot be done on the selected node.");

    json about = ItemWithText(page, "About Order Desk");
    Act({ { "action", "select" }, { "key", about["key"] } });
    page = Act({ { "action", "menu" }, { "item", "mnuToggleSkippedFlag" } });
    EXPECT_EQ(ItemWithText(page, "About Order Desk")["image"], "no");
    EXPECT_EQ(page["contents"]["menu"][0]["caption"], "Include");

    // Back and forth keeps the changes.
    Act({ { "action", "back" } });
    page = Act({ { "action", "next" } });
    EXPECT_EQ(ItemWithText(page, "About Order Desk")["image"], "no");

    ASSERT_EQ(m_shell->Run("WizardFinish"), 0u);
    EXPECT_FALSE(m_shell->Wizard().Open());
    EXPECT_TRUE(FileExists(Help("OrderDesk_Form_frmCustomer.htm")));
    EXPECT_FALSE(FileExists(Help("OrderDesk_Form_frmAbout.htm")));
    std::string contents = ReadFileText(Help("OrderDesk.hhc")).value_or("");
    EXPECT_LT(contents.find("\"Customer\""), contents.find("\"Order\""));
}

TEST_F(StudioWizardTest, CancelClosesTheWizardAndPutsTheParametersBack)
{
    OpenWizard();
    std::string copyright = Parameters().Copyright;
    GoTo("Author");
    Act({ { "action", "set" }, { "control", "txtCopyright" }, { "value", "(c) Somebody" } });
    EXPECT_EQ(Parameters().Copyright, "(c) Somebody");
    EXPECT_EQ(m_shell->Run("WizardCancel"), 0u);
    EXPECT_EQ(Parameters().Copyright, copyright);
    EXPECT_FALSE(m_shell->Wizard().Open());
    EXPECT_EQ(m_shell->Wizard().Page(), json({ { "open", false } }));
    EXPECT_EQ(Refused({ { "action", "next" } }), "No wizard is open.");
    EXPECT_EQ(m_shell->Run("WizardCancel"), status::kAbandoned);
    EXPECT_FALSE(FileExists(Help("OrderDesk.svp")));
}

TEST_F(StudioWizardTest, AButtonOfThePageRunsAsACommandWithItsDialog)
{
    OpenWizard();
    GoTo("FolderForGeneratedFiles");
    m_ui->QueueFolder(m_app.Path() + "OtherHelp");
    EXPECT_EQ(m_shell->Run("WizardClick", { { "control", "cmdOpen" } }), 0u);
    ASSERT_EQ(m_ui->FolderRequests().size(), 1u);
    EXPECT_EQ(ControlOf(m_shell->Wizard().Page(), "txtDirToSaveHtml")["value"], m_app.Path() + "OtherHelp/");
    EXPECT_EQ(m_shell->Run("WizardClick", { { "control", "cmdNothing" } }), status::kAbandoned);
    ASSERT_EQ(m_shell->Run("WizardFinish"), 0u);
    EXPECT_TRUE(FileExists(m_app.Path() + "OtherHelp/OrderDesk.svp"));
}

TEST_F(StudioWizardTest, TheProjectGroupBoxReopensTheWizardThroughTheServersQueue)
{
    OpenWizard();
    GoTo("HelpProject");
    json page = Act({ { "action", "set" }, { "control", "chkGenerateHelpForProjectGroup" }, { "value", true } });
    ASSERT_TRUE(page["open"].get<bool>());
    EXPECT_EQ(page["page"]["name"], "Introduction");
    EXPECT_TRUE(Parameters().UseProjectGroupAsSource);
    EXPECT_TRUE(m_shell->Wizard().Open());
}

TEST_F(StudioWizardTest, ChangesWaitWhileACommandRuns)
{
    // A box of a running command keeps the loop turning: a change that
    // arrives then is refused, and the page stays as it was.
    struct Hooked : ScriptedUserInterface {
        std::function<void()> onBox;
        int MessageBox(const MessageBoxRequest& request) override
        {
            if (auto hook = std::exchange(onBox, nullptr))
                hook();
            return ScriptedUserInterface::MessageBox(request);
        }
    };
    auto hooked = std::make_unique<Hooked>();
    Hooked& ui = *hooked;
    std::unique_ptr<IUserInterface> kept = SetUserInterface(std::move(hooked));
    OpenWizard();
    std::string problem;
    std::optional<json> during;
    ui.onBox = [&] { during = m_shell->WizardAct({ { "action", "next" } }, problem); };
    // No help compiled yet: the command says so in a box.
    m_shell->Run("OpenHelpOfActiveProject");
    EXPECT_FALSE(during);
    EXPECT_EQ(problem, "Please wait until the running command has finished.");
    EXPECT_EQ(m_shell->Wizard().Page()["step"], 1);
    EXPECT_TRUE(m_shell->WizardAct({ { "action", "next" } }, problem));
    m_shell->Disconnect();
    SetUserInterface(std::move(kept));
}

TEST_F(StudioWizardTest, ThePreviewIsServedToThePageFromItsOwnFolderOnly)
{
    OpenWizard();
    StartServer();
    httplib::Result answer = Get("/api/wizard", StudioHeaders());
    ASSERT_EQ(test::StatusOf(answer), 200);
    json page = json::parse(answer->body);
    std::string preview = page["preview"]["path"];
    httplib::Result sample = Get(FileUrl(preview), ContentHeaders());
    ASSERT_EQ(test::StatusOf(sample), 200);
    EXPECT_NE(sample->body.find("Customer"), std::string::npos);
    EXPECT_EQ(test::StatusOf(Get(FileUrl(FolderOf(preview) + "images/SampleForm.jpg"), ContentHeaders())), 200);

    httplib::Headers headers = StudioHeaders();
    headers.emplace("Origin", Guard().StudioOrigin());
    httplib::Result next = Post("/api/wizard", R"({"action":"next"})", headers);
    ASSERT_EQ(test::StatusOf(next), 200);
    EXPECT_EQ(json::parse(next->body)["page"]["name"], "HelpProject");
    EXPECT_EQ(test::StatusOf(Post("/api/wizard", R"({"action":"next"})", StudioHeaders())), 403);
    httplib::Result refused = Post("/api/wizard", R"({"action":"set","control":"nothing"})", headers);
    ASSERT_EQ(test::StatusOf(refused), 409);
    EXPECT_EQ(test::StatusOf(Post("/api/wizard", "[1]", headers)), 400);
}

TEST_F(StudioWizardTest, ASampleFolderReachedThroughALinkIsNotServed)
{
    test::TempFolder temporary;
    test::TempFolder elsewhere;
    const char* previous = std::getenv("TMPDIR");
    std::string kept = previous ? previous : "";
    ::setenv("TMPDIR", temporary.Path().c_str(), 1);
    fs::path own = fs::path(temporary.Path()) / "ScrivTemp" / std::to_string(::getpid());
    fs::create_directories(own.parent_path());
    fs::create_directory_symlink(elsewhere.Path(), own);
    StartOnExample();
    std::vector<std::string> folders = m_shell->AllowedFolders();
    fs::remove(own);
    fs::create_directories(own);
    std::vector<std::string> plain = m_shell->AllowedFolders();
    if (previous)
        ::setenv("TMPDIR", kept.c_str(), 1);
    else
        ::unsetenv("TMPDIR");
    std::string samples = temporary.Path() + "ScrivTemp/" + std::to_string(::getpid()) + "/";
    EXPECT_EQ(std::count(folders.begin(), folders.end(), samples), 0);
    EXPECT_EQ(std::count(plain.begin(), plain.end(), samples), 1);
}

}  // namespace
}  // namespace scriv::studio
