#pragma once

#include <gtest/gtest.h>
#include <httplib.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "foundation/EventLoop.h"
#include "host/CFakeHostContext.h"
#include "studio/StudioEvents.h"
#include "studio/StudioFileAccess.h"
#include "studio/StudioServer.h"
#include "studio/StudioShell.h"
#include "studio/StudioUserInterface.h"
#include "support/CoreFixture.h"

namespace scriv::studio::test {

using scriv::test::TempFolder;

// The program's data from the source tree, a temporary user data folder, a
// source project in a temporary folder (a host made of data), and a shell
// connected to it. The scripted user interface of CoreFixture answers,
// unless a test starts the server, which brings the studio's own.
class StudioFixture : public scriv::test::CoreFixture {
protected:
    void TearDown() override
    {
        m_page.reset();
        if (m_server)
            m_server->Stop();
        m_server.reset();
        if (m_shell)
            m_shell->Disconnect();
        m_shell.reset();
        if (m_studioUi) {
            SetUserInterface(std::move(m_scripted));
            m_studioUi = nullptr;
        }
        CoreFixture::TearDown();
    }

    // A host with one project "Orders" whose file lies in the application folder.
    std::string OrdersHost(const std::string& extra = {}) const
    {
        return "<Host><Project Name=\"Orders\" FullPath=\"" + m_app.Path() + "Orders.vbp\" Active=\"true\"" + extra
            + "/></Host>";
    }

    // The texts of the message boxes the scripted user interface was shown.
    std::vector<std::string> BoxTexts() const
    {
        std::vector<std::string> texts;
        for (const auto& box : m_ui->MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    // The events of one type that the page (m_page, subscribed by the test) got so far.
    std::vector<nlohmann::json> PageEvents(const std::string& type)
    {
        while (std::optional<std::string> text = m_page->Next(std::chrono::milliseconds(0)))
            m_received.push_back(nlohmann::json::parse(*text));
        std::vector<nlohmann::json> chosen;
        for (const nlohmann::json& event : m_received)
            if (event["type"] == type)
                chosen.push_back(event);
        return chosen;
    }

    StudioShell& StartShell(const std::string& hostXml)
    {
        m_shell = std::make_unique<StudioShell>(m_events, m_files);
        m_shell->Connect(CFakeHostContext::FromXml(hostXml), m_app.Path() + "Orders.vbp");
        return *m_shell;
    }

    // Puts the studio's user interface in place (grace: how long a question
    // waits with no page) and starts the server on a free port.
    void StartServer(std::chrono::milliseconds grace = std::chrono::milliseconds(300))
    {
        auto ui = std::make_unique<StudioUserInterface>(LogicLoop(), m_events, grace);
        m_studioUi = ui.get();
        m_scripted = SetUserInterface(std::move(ui));
        m_server = std::make_unique<StudioServer>(LogicLoop(), *m_shell, *m_studioUi, m_events, m_files);
        m_web.Write("index.html", "<!DOCTYPE html><title>studio page</title>");
        m_web.Write("js/main.js", "export {};");
        m_server->Start({ 0, m_web.Path() });
    }

    int Port() const { return m_server->Port(); }
    const StudioRequestGuard& Guard() const { return m_server->Guard(); }

    // Runs f on a thread of its own while this thread (the logic thread) turns
    // the loop, as the studio's main thread does; answers f's result.
    template<typename F>
    auto Call(F f) -> decltype(f())
    {
        auto done = std::async(std::launch::async, std::move(f));
        auto ready = [&] { return done.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        // Short turns: the other thread's end does not wake the loop.
        while (!ready() && std::chrono::steady_clock::now() < deadline)
            LogicLoop().RunUntil(ready, std::chrono::milliseconds(5));
        return done.get();
    }

    // --- requests as a browser would send them ---
    httplib::Headers StudioHeaders(bool withToken = true) const
    {
        httplib::Headers headers { { "Host", "127.0.0.1:" + std::to_string(Port()) } };
        if (withToken)
            headers.emplace("X-Scrivant-Token", Guard().Token());
        return headers;
    }
    httplib::Headers ContentHeaders() const { return { { "Host", "localhost:" + std::to_string(Port()) } }; }

    httplib::Result Get(const std::string& path, const httplib::Headers& headers)
    {
        return Call([&] {
            httplib::Client client("127.0.0.1", Port());
            return client.Get(path.c_str(), headers);
        });
    }
    httplib::Result Post(const std::string& path, const std::string& body, httplib::Headers headers)
    {
        return Call([&] {
            httplib::Client client("127.0.0.1", Port());
            return client.Post(path.c_str(), headers, body, "application/json");
        });
    }
    // A POST with the studio's token and Origin.
    httplib::Result PostFromStudio(const std::string& path, const std::string& body)
    {
        httplib::Headers headers = StudioHeaders();
        headers.emplace("Origin", Guard().StudioOrigin());
        return Post(path, body, headers);
    }
    std::string FileUrl(const std::string& path) const { return "/files/" + Guard().ContentKey() + path; }

    TempFolder m_app;
    TempFolder m_web;
    StudioEvents m_events;
    std::shared_ptr<StudioEvents::Subscription> m_page;
    std::vector<nlohmann::json> m_received;
    StudioFileAccess m_files;
    std::unique_ptr<StudioShell> m_shell;
    std::unique_ptr<StudioServer> m_server;
    StudioUserInterface* m_studioUi { nullptr };
    std::unique_ptr<IUserInterface> m_scripted;
};

// Status of a result, or -1 when the request failed.
inline int StatusOf(const httplib::Result& result)
{
    return result ? result->status : -1;
}

}  // namespace scriv::studio::test
