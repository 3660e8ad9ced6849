#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "StudioFixture.h"

namespace scriv::studio {
namespace {

using namespace std::chrono_literals;
using json = nlohmann::json;
using test::StatusOf;

// --- the event channel ---

TEST(StudioEvents, APageThatConnectsLateGetsTheKeptEventsFirstInOrder)
{
    StudioEvents events;
    events.Publish({ { "type", "a" } }, "first");
    events.Publish({ { "type", "b" } }, "second");
    events.Publish({ { "type", "c" } });
    events.Publish({ { "type", "a2" } }, "first");
    events.Forget("second");
    auto late = events.Subscribe();
    EXPECT_EQ(json::parse(*late->Next(0ms))["type"], "a2");
    EXPECT_FALSE(late->Next(0ms));
    events.Publish({ { "type", "d" } });
    EXPECT_EQ(json::parse(*late->Next(0ms))["type"], "d");
}

TEST(StudioEvents, ReadersAreCountedAndWokenWhenTheChannelCloses)
{
    StudioEvents events;
    auto before = events.NoSubscriberSince();
    EXPECT_EQ(events.SubscriberCount(), 0u);
    {
        auto page = events.Subscribe();
        EXPECT_EQ(events.SubscriberCount(), 1u);
    }
    EXPECT_EQ(events.SubscriberCount(), 0u);
    EXPECT_GE(events.NoSubscriberSince(), before);

    auto reader = events.Subscribe();
    std::thread closer([&] {
        std::this_thread::sleep_for(50ms);
        events.Close();
    });
    auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(reader->Next(10s));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_TRUE(reader->Closed());
    closer.join();
    events.Publish({ { "type", "late" } });
    EXPECT_FALSE(reader->Next(0ms));
}

// --- the studio's user interface, on the logic thread ---

class StudioUserInterfaceTest : public ::testing::Test {
protected:
    // The first question published, as the page would read it.
    json NextDialog(const std::shared_ptr<StudioEvents::Subscription>& page)
    {
        for (int i = 0; i < 100; ++i) {
            std::optional<std::string> text = page->Next(50ms);
            if (text) {
                json event = json::parse(*text);
                if (event["type"] == "dialog")
                    return event;
            }
        }
        return nullptr;
    }

    StudioEvents m_events;
    StudioUserInterface m_ui { LogicLoop(), m_events, 10s };
};

TEST_F(StudioUserInterfaceTest, ABoxShowsTheButtonsIconAndDefaultOfItsFlagsAndWaitsForTheAnswer)
{
    auto page = m_events.Subscribe();
    json seen;
    std::thread browser([&] {
        seen = NextDialog(page);
        if (seen.is_null())
            return;
        std::uint64_t id = seen["id"];
        // The page answers through the logic loop, as the server's threads do.
        LogicLoop().Post([&, id] {
            EXPECT_FALSE(m_ui.Answer(id, { { "button", vbOK } }));
            EXPECT_FALSE(m_ui.Answer(id + 1, { { "button", vbYes } }));
            EXPECT_TRUE(m_ui.Answer(id, { { "button", vbYes } }));
        });
    });
    int answer = m_ui.MessageBox({ "Go on?", 308, "Scrivant Add-In", "Test" });
    browser.join();
    EXPECT_EQ(answer, vbYes);
    ASSERT_TRUE(seen.is_object());
    EXPECT_EQ(seen["kind"], "message");
    EXPECT_EQ(seen["text"], "Go on?");
    EXPECT_EQ(seen["icon"], "exclamation");
    EXPECT_EQ(seen["default"], vbNo);
    EXPECT_EQ(seen["buttons"], json::parse(R"([{"code":6,"label":"Yes"},{"code":7,"label":"No"}])"));
    EXPECT_EQ(m_ui.WaitingCount(), 0u);
    // The page is told that the question is gone.
    std::optional<std::string> closed = page->Next(0ms);
    ASSERT_TRUE(closed);
    EXPECT_EQ(json::parse(*closed)["type"], "dialog-closed");
}

TEST(StudioUserInterfaceDefaults, WithNoPageAQuestionTakesItsDefaultAfterTheGrace)
{
    StudioEvents events;
    StudioUserInterface ui(LogicLoop(), events, 150ms);
    auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ui.MessageBox({ "Recompile?", msgbox::kYesNoCancel | msgbox::kDefaultButton3, "", "" }), vbCancel);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
    EXPECT_EQ(ui.MessageBox({ "Done.", msgbox::kInformation, "", "" }), vbOK);
    EXPECT_EQ(ui.InputBox("Name?", "Scrivant", "Orders"), "Orders");
    EXPECT_EQ(ui.ChooseFromList("Open Help Project", { "a.svp", "More Files..." }, 0), 0u);
    EXPECT_FALSE(ui.ChooseFile({ "Open", "Scrivant Project (SVP)", "*.svp", "", false }));
    EXPECT_FALSE(ui.ChooseFolder("Folder", "/tmp"));
    EXPECT_FALSE(ui.ChooseFromList("Nothing to choose", {}, 0));
    // Shutting down answers at once.
    StudioUserInterface ending(LogicLoop(), events, 1h);
    ending.Shutdown();
    EXPECT_EQ(ending.MessageBox({ "Save?", msgbox::kYesNo, "", "" }), vbYes);
}

TEST(StudioUserInterfaceDefaults, DocumentsTheViewerTakesAreNotHandedOn)
{
    StudioEvents events;
    StudioUserInterface ui(LogicLoop(), events, 0ms);
    std::vector<std::string> viewed;
    ui.SetDocumentViewer([&viewed](const std::string& path) {
        viewed.push_back(path);
        return true;
    });
    EXPECT_TRUE(ui.OpenDocument("/help/Orders.chm"));
    EXPECT_EQ(viewed, std::vector<std::string> { "/help/Orders.chm" });
}

TEST_F(StudioUserInterfaceTest, AnswersMustFitTheirQuestion)
{
    auto page = m_events.Subscribe();
    std::atomic<int> step { 0 };
    std::thread browser([&] {
        for (int question = 0; question < 3; ++question) {
            json dialog = NextDialog(page);
            if (dialog.is_null())
                return;
            std::uint64_t id = dialog["id"];
            std::string kind = dialog["kind"];
            LogicLoop().Post([&, id, kind] {
                if (kind == "list") {
                    EXPECT_FALSE(m_ui.Answer(id, { { "index", 2 } }));
                    EXPECT_FALSE(m_ui.Answer(id, { { "value", "x" } }));
                    EXPECT_TRUE(m_ui.Answer(id, { { "index", 1 } }));
                } else if (kind == "input") {
                    EXPECT_FALSE(m_ui.Answer(id, { { "value", 3 } }));
                    EXPECT_TRUE(m_ui.Answer(id, { { "cancel", true } }));
                } else {
                    EXPECT_FALSE(m_ui.Answer(id, json::array()));
                    EXPECT_TRUE(m_ui.Answer(id, { { "value", "/typed/by/hand.svp" } }));
                }
                ++step;
            });
        }
    });
    EXPECT_EQ(m_ui.ChooseFromList("Open Help Project", { "a.svp", "More Files..." }, 0), 1u);
    EXPECT_FALSE(m_ui.InputBox("Name?", "Scrivant", "x"));
    EXPECT_EQ(m_ui.ChooseFile({ "Open", "Scrivant Project (SVP)", "*.svp", "", false }), "/typed/by/hand.svp");
    browser.join();
    EXPECT_EQ(step, 3);
}

TEST_F(StudioUserInterfaceTest, TheProgressWindowIsKeptForLatePagesAndItsCancelArrivesDuringTheRun)
{
    m_ui.ProgressInit("Processing TOC...", 10);
    m_ui.ProgressUpdate("", 3);
    auto late = m_events.Subscribe();
    json shown = json::parse(*late->Next(0ms));
    EXPECT_EQ(shown["type"], "progress");
    EXPECT_EQ(shown["text"], "Processing TOC...");
    EXPECT_EQ(shown["value"], 3);
    EXPECT_EQ(shown["max"], 10);

    // Cancel is posted while the run works; the next update lets it in.
    LogicLoop().Post([&] { m_ui.RequestCancel(); });
    EXPECT_FALSE(m_ui.CancelRequested());
    m_ui.ProgressUpdate("Compiling HTML Help...", 4);
    EXPECT_TRUE(m_ui.CancelRequested());
    m_ui.ProgressDispose();
    EXPECT_FALSE(m_ui.ProgressShown());
    m_ui.ClearCancelRequest();
    EXPECT_FALSE(m_ui.CancelRequested());
    // A page that connects now sees no progress window.
    EXPECT_FALSE(m_events.Subscribe()->Next(0ms));
}

// --- questions through the server, as the page gets and answers them ---

class StudioDialogServerTest : public test::StudioFixture {
protected:
    void SetUp() override
    {
        StudioFixture::SetUp();
        StartShell(OrdersHost());
    }

    // Reads the event stream on a thread of its own until a question arrives,
    // then answers it with answerOf(question) (nothing: the reader goes away).
    std::thread Browser(std::function<std::optional<json>(const json&)> answerOf)
    {
        return std::thread([this, answerOf] {
            httplib::Client events("127.0.0.1", Port());
            std::string received;
            bool gone = false;
            events.Get("/api/events", StudioHeaders(), [&](const char* data, std::size_t length) {
                received.append(data, length);
                std::size_t at = received.find("data: {\"buttons\"");
                if (at == std::string::npos || gone)
                    return !gone;
                json question = json::parse(received.substr(at + 6, received.find('\n', at) - at - 6));
                std::optional<json> answer = answerOf(question);
                gone = true;
                if (answer) {
                    httplib::Client client("127.0.0.1", Port());
                    httplib::Headers headers = StudioHeaders();
                    headers.emplace("Origin", Guard().StudioOrigin());
                    json body = { { "id", question["id"] }, { "answer", *answer } };
                    auto result = client.Post("/api/dialog", headers, body.dump(), "application/json");
                    EXPECT_EQ(StatusOf(result), 200);
                }
                return false;
            });
        });
    }
};

TEST_F(StudioDialogServerTest, AQuestionReachesThePageAsAnEventAndItsAnswerComesBack)
{
    StartServer(30s);
    json asked;
    std::thread browser = Browser([&](const json& question) -> std::optional<json> {
        asked = question;
        return json { { "button", vbNo } };
    });
    int answer = MsgBox("Recompile first?", 36, kMessageBoxTitle, "", 0, "Test");
    browser.join();
    EXPECT_EQ(answer, vbNo);
    EXPECT_EQ(asked["text"], "Recompile first?");
    EXPECT_EQ(asked["title"], kMessageBoxTitle);
    EXPECT_EQ(asked["icon"], "question");
    // The question is gone: a late answer is refused.
    EXPECT_EQ(StatusOf(PostFromStudio("/api/dialog", json { { "id", asked["id"] }, { "answer", { { "button", 6 } } } }.dump())),
        409);
}

TEST_F(StudioDialogServerTest, AClosedTabLeavesTheDefaultButtonAndTheRunGoesOn)
{
    StartServer(300ms);
    std::thread browser = Browser([](const json&) -> std::optional<json> { return std::nullopt; });
    auto start = std::chrono::steady_clock::now();
    int answer = MsgBox("Continue with unsaved changes?", 308, kMessageBoxTitle, "", 0, "Test");
    browser.join();
    EXPECT_EQ(answer, vbNo);
    // The page was there, so it took the stream's check to find it gone.
    EXPECT_GE(std::chrono::steady_clock::now() - start, 300ms);
    EXPECT_EQ(m_studioUi->WaitingCount(), 0u);
}

}  // namespace
}  // namespace scriv::studio
