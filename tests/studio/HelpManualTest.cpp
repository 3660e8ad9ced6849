// The program's own manual reached from the Scrivant menu and the server's
// help commands: the studio shows the manual the build made in its help
// viewer, the server hands it to the desktop's viewer, and without it both
// say where they looked.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "foundation/System.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "StudioFixture.h"

namespace scriv::studio {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using json = nlohmann::json;
using test::StatusOf;

// The program's data of the build tree, where the build puts the manual.
std::string BuildShareFolder()
{
    return std::string(SCRIVANT_BINARY_DIR) + "/share/scrivant";
}

class HelpManualTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        m_page = m_events.Subscribe();
    }

    void TearDown() override
    {
        m_page.reset();
        StudioFixture::TearDown();
    }

    // The program's data is the build's, with the manual the build made;
    // false when the build could make no compiled manual.
    bool UseBuiltManual()
    {
        ConfigureFolders({ BuildShareFolder(), m_data.Path() });
        return FileExists(Manual()) || !FindProgramOnPath("chmcmd").empty();
    }

    std::string Manual() const { return Folders().InstallFolder() + "Scrivant.chm"; }

    std::vector<json> ShownHelps()
    {
        std::vector<json> shown;
        while (std::optional<std::string> text = m_page->Next(0ms)) {
            json event = json::parse(*text);
            if (event["type"] == "show-help")
                shown.push_back(event);
        }
        return shown;
    }

    std::vector<std::string> BoxTexts() const
    {
        std::vector<std::string> texts;
        for (const auto& box : m_ui->MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    std::shared_ptr<StudioEvents::Subscription> m_page;
};

TEST_F(HelpManualTest, HelpContentsShowsTheCompiledManualAndThePageCanReadIt)
{
    if (!UseBuiltManual())
        GTEST_SKIP() << "no help compiler (chmcmd): the build made the manual as browser help only";
    StartShell(OrdersHost());
    ASSERT_EQ(m_shell->Run("HelpTopics"), 0u) << ::testing::PrintToString(BoxTexts());
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    std::vector<json> shown = ShownHelps();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0]["kind"], "chm");
    EXPECT_EQ(shown[0]["path"], Manual());

    // What the help viewer asks for: the contents, then the first topic.
    StartServer();
    httplib::Result contents = Get("/api/chm?path=" + Manual(), StudioHeaders());
    ASSERT_EQ(StatusOf(contents), 200);
    json tree = json::parse(contents->body);
    EXPECT_EQ(tree["title"], "Scrivant Help");
    ASSERT_EQ(tree["topics"].size(), 1u);
    EXPECT_EQ(tree["topics"][0]["name"], "Welcome to Scrivant");
    EXPECT_EQ(tree["topics"][0]["local"], "Welcome.htm");
    std::vector<std::string> chapters;
    for (const json& chapter : tree["topics"][0]["children"])
        chapters.push_back(chapter["name"].get<std::string>());
    EXPECT_NE(std::find(chapters.begin(), chapters.end(), "Getting started"), chapters.end());
    EXPECT_NE(std::find(chapters.begin(), chapters.end(), "The studio"), chapters.end());

    httplib::Result topic
        = Get("/chm/" + Guard().ContentKey() + Manual() + "/::/Welcome.htm", ContentHeaders());
    ASSERT_EQ(StatusOf(topic), 200);
    EXPECT_NE(topic->body.find("<h1>Welcome to Scrivant</h1>"), std::string::npos);
    httplib::Result picture
        = Get("/chm/" + Guard().ContentKey() + Manual() + "/::/images/OrderDesk_frmCustomer.png", ContentHeaders());
    ASSERT_EQ(StatusOf(picture), 200);
    EXPECT_EQ(picture->body.substr(1, 3), "PNG");
}

TEST_F(HelpManualTest, HelpIndexAndSearchShowTheBrowserManualWithItsTabs)
{
    if (!UseBuiltManual())
        GTEST_SKIP() << "no help compiler (chmcmd): the build made the manual as browser help only";
    StartShell(OrdersHost());
    std::string web = Folders().InstallFolder() + "Manual/main.htm";
    ASSERT_TRUE(FileExists(web));
    EXPECT_EQ(m_shell->Run("HelpIndex"), 0u);
    EXPECT_EQ(m_shell->Run("HelpSearch"), 0u);
    std::vector<json> shown = ShownHelps();
    ASSERT_EQ(shown.size(), 2u);
    for (const json& event : shown) {
        EXPECT_EQ(event["kind"], "web");
        EXPECT_EQ(event["path"], web);
    }
    // The page reads the entry page of the browser help with its index and search tabs.
    StartServer();
    httplib::Result page = Get(FileUrl(web), ContentHeaders());
    ASSERT_EQ(StatusOf(page), 200);
    EXPECT_NE(page->body.find("id=\"tabIndex\""), std::string::npos);
    EXPECT_NE(page->body.find("id=\"tabSearch\""), std::string::npos);
    EXPECT_NE(page->body.find("src=\"Welcome.htm\""), std::string::npos);
}

TEST_F(HelpManualTest, WithoutABrowserManualIndexAndSearchShowTheCompiledOne)
{
    if (!UseBuiltManual())
        GTEST_SKIP() << "no help compiler (chmcmd): the build made the manual as browser help only";
    // A program's data with the compiled manual alone.
    test::TempFolder home;
    fs::copy(BuildShareFolder() + "/Settings", home / "Settings", fs::copy_options::recursive);
    fs::copy(BuildShareFolder() + "/Templates", home / "Templates", fs::copy_options::recursive);
    fs::copy_file(Manual(), home / "Scrivant.chm");
    ConfigureFolders({ home.Path(), m_data.Path() });
    StartShell(OrdersHost());
    EXPECT_EQ(m_shell->Run("HelpIndex"), 0u);
    std::vector<json> shown = ShownHelps();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0]["kind"], "chm");
    EXPECT_EQ(shown[0]["path"], home / "Scrivant.chm");
}

TEST_F(HelpManualTest, WithoutTheManualEveryHelpCommandSaysWhereItLooked)
{
    // The source tree's data has no manual.
    StartShell(OrdersHost());
    std::string manual = Folders().InstallFolder() + "Scrivant.chm";
    ASSERT_FALSE(FileExists(manual));
    for (const char* command : { "HelpTopics", "HelpIndex", "HelpSearch" })
        EXPECT_EQ(m_shell->Run(command), status::kAbandoned) << command;
    std::string text = "Help doesn't exist '" + manual + "'.";
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { text, text, text }));
    EXPECT_TRUE(ShownHelps().empty());
}

// The command-line world: the server hands the compiled manual to the user
// interface, which opens it as it opens every other help.
TEST_F(HelpManualTest, TheServerHandsTheCompiledManualToTheUserInterface)
{
    if (!UseBuiltManual())
        GTEST_SKIP() << "no help compiler (chmcmd): the build made the manual as browser help only";
    CScrivServer& server = Connect(OrdersHost());
    EXPECT_EQ(server.OpenHelpTopics(), 0u) << ::testing::PrintToString(BoxTexts());
    EXPECT_EQ(m_ui->OpenedDocuments(), std::vector<std::string> { Manual() });
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(HelpManualTest, TheServerSaysWhereItLookedForAMissingManual)
{
    CScrivServer& server = Connect(OrdersHost());
    std::string manual = Folders().InstallFolder() + "Scrivant.chm";
    EXPECT_EQ(server.OpenHelpTopics(), status::kAbandoned);
    EXPECT_EQ(server.OpenHelpIndex(), status::kAbandoned);
    EXPECT_EQ(server.OpenHelpSearch(), status::kAbandoned);
    std::string text = "Help doesn't exist '" + manual + "'.";
    EXPECT_EQ(BoxTexts(), (std::vector<std::string> { text, text, text }));
}

}  // namespace
}  // namespace scriv::studio
