#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include <nlohmann/json_fwd.hpp>

#include "studio/StudioRequestGuard.h"

namespace httplib {
class Server;
struct Request;
struct Response;
}  // namespace httplib

namespace scriv {
class EventLoop;
}

namespace scriv::studio {

// The Content-Type that the studio sends for a file, by its extension.
std::string ContentTypeOf(std::string_view path);
// Answers with body as JSON, never cached.
void SendJson(httplib::Response& response, const nlohmann::json& body, int status = 200);
// Answers 503: the logic thread did not take the request in time.
void Busy(httplib::Response& response);

class StudioEvents;
class StudioFileAccess;
class StudioShell;
class StudioUserInterface;

struct StudioServerOptions {
    // 0: any free port.
    int port { 0 };
    // The folder of the page's files (index.html, js/, ...).
    std::string webRoot;
};

// The studio's web server on 127.0.0.1: the page's files, its JSON API, the
// event stream, and the files of helps (and of compiled helps) for the help
// viewer. Every request passes the StudioRequestGuard first; what is refused
// gets 403 and nothing else. Requests are served on HTTP threads, which never
// touch an object of the logic: they post work to the logic loop and wait for
// its answer.
//
// The API (all JSON):
//   GET  /api/state            the shell's state, with the bases of the help URLs
//   GET  /api/events           the event stream (server-sent events)
//   POST /api/command          {"command", "arguments"}: starts a command; 202
//   POST /api/dialog           {"id", "answer"}: answers a question
//   POST /api/cancel           the Cancel of the progress window
//   POST /api/exit             ends the studio
//   GET  /api/browse?path=&pattern=   a folder of the allowed ones, for file dialogs
//   GET  /api/chm?path=        the contents of a compiled help
// The helps, on the content origin (http://localhost:<port>):
//   GET  /files/<key>/<absolute path>
//   GET  /chm/<key>/<absolute path of the .chm>/::/<path inside>
class StudioServer {
public:
    StudioServer(EventLoop& loop, StudioShell& shell, StudioUserInterface& ui, StudioEvents& events,
        StudioFileAccess& files);
    ~StudioServer();
    StudioServer(const StudioServer&) = delete;
    StudioServer& operator=(const StudioServer&) = delete;

    // Binds 127.0.0.1 (the port of the options, or a free one), makes a new
    // token and starts serving on threads of its own. Raises ScrivError when
    // the port cannot be bound.
    void Start(const StudioServerOptions& options);
    // Stops serving and waits for the HTTP threads. On the logic thread the
    // loop is kept turning meanwhile, so that requests waiting for it end.
    void Stop();
    bool Running() const { return m_listener.joinable(); }

    int Port() const { return m_guard ? m_guard->Port() : 0; }
    const StudioRequestGuard& Guard() const { return *m_guard; }
    // The URL that opens the studio with its token.
    std::string StartUrl() const { return m_guard->StartUrl(); }

    // What the Exit command does (run on the logic thread).
    void SetExitHandler(std::function<void()> handler) { m_onExit = std::move(handler); }

    // How long a request waits for the logic thread before it is answered 503.
    static constexpr std::chrono::seconds kLogicTimeout { 60 };

private:
    void InstallRoutes();
    // The guard's verdict on a request before any route sees it.
    bool Admit(const httplib::Request& request, httplib::Response& response);
    void ServeWebFile(const httplib::Request& request, httplib::Response& response);
    void ServeFile(const httplib::Request& request, httplib::Response& response);
    void ServeChmFile(const httplib::Request& request, httplib::Response& response);
    void ServeEvents(const httplib::Request& request, httplib::Response& response);

    // Runs f on the logic thread and answers its result, or nothing when the
    // logic thread did not get to it in time.
    template<typename F>
    auto OnLogic(F f) -> std::optional<decltype(f())>;

    EventLoop& m_loop;
    StudioShell& m_shell;
    StudioUserInterface& m_ui;
    StudioEvents& m_events;
    StudioFileAccess& m_files;
    std::unique_ptr<httplib::Server> m_http;
    std::unique_ptr<StudioRequestGuard> m_guard;
    std::string m_webRoot;
    std::thread m_listener;
    std::function<void()> m_onExit;
};

}  // namespace scriv::studio
