#include "studio/StudioServer.h"

#include <httplib.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "foundation/CTraceLog.h"
#include "foundation/EventLoop.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "studio/ChmArchive.h"
#include "studio/EditorRoutes.h"
#include "studio/StudioEvents.h"
#include "studio/StudioFileAccess.h"
#include "studio/StudioShell.h"
#include "studio/StudioUserInterface.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;
namespace fs = std::filesystem;

constexpr std::size_t kHttpThreads = 24;
constexpr std::chrono::milliseconds kHeartbeat { 2000 };
constexpr std::string_view kFilesPrefix = "/files/";
constexpr std::string_view kChmPrefix = "/chm/";
constexpr std::string_view kChmMarker = "/::/";


void Refuse(httplib::Response& response)
{
    response.status = 403;
    response.set_content("Forbidden", "text/plain");
}

bool IsContentPath(std::string_view path)
{
    return path.starts_with(kFilesPrefix) || path.starts_with(kChmPrefix);
}

std::optional<json> ParseBody(const httplib::Request& request)
{
    json body = json::parse(request.body, nullptr, false);
    if (body.is_discarded() || !body.is_object())
        return std::nullopt;
    return body;
}

std::optional<std::string> ReadBytes(const fs::path& path)
{
    return ReadFileText(path.string());
}

// Splits "<key>/<rest>" after a route's prefix.
std::pair<std::string, std::string> KeyAndRest(std::string_view path, std::string_view prefix)
{
    std::string_view tail = path.substr(prefix.size());
    std::size_t slash = tail.find('/');
    if (slash == std::string_view::npos)
        return { std::string(tail), {} };
    return { std::string(tail.substr(0, slash)), std::string(tail.substr(slash)) };
}

}  // namespace

void SendJson(httplib::Response& response, const json& body, int status)
{
    response.status = status;
    response.set_header("Cache-Control", "no-store");
    response.set_content(body.dump(-1, ' ', false, json::error_handler_t::replace), "application/json");
}

void Busy(httplib::Response& response)
{
    SendJson(response, { { "error", "The studio is busy; try again." } }, 503);
}

std::string ContentTypeOf(std::string_view path)
{
    std::string extension = ToLower(FileExtension(path));
    static const std::pair<const char*, const char*> kTypes[] = {
        { ".htm", "text/html; charset=utf-8" },
        { ".html", "text/html; charset=utf-8" },
        { ".js", "text/javascript; charset=utf-8" },
        { ".mjs", "text/javascript; charset=utf-8" },
        { ".css", "text/css; charset=utf-8" },
        { ".json", "application/json" },
        { ".svg", "image/svg+xml" },
        { ".png", "image/png" },
        { ".jpg", "image/jpeg" },
        { ".jpeg", "image/jpeg" },
        { ".gif", "image/gif" },
        { ".bmp", "image/bmp" },
        { ".ico", "image/x-icon" },
        { ".txt", "text/plain; charset=utf-8" },
        { ".xml", "text/xml" },
    };
    for (const auto& [known, type] : kTypes)
        if (extension == known)
            return type;
    return "application/octet-stream";
}

StudioServer::StudioServer(EventLoop& loop, StudioShell& shell, StudioUserInterface& ui, StudioEvents& events,
    StudioFileAccess& files)
    : m_loop(loop)
    , m_shell(shell)
    , m_ui(ui)
    , m_events(events)
    , m_files(files)
{
}

StudioServer::~StudioServer()
{
    Stop();
}

template<typename F>
auto StudioServer::OnLogic(F f) -> std::optional<decltype(f())>
{
    using Result = decltype(f());
    auto task = std::make_shared<std::packaged_task<Result()>>(std::move(f));
    std::future<Result> result = task->get_future();
    m_loop.Post([task] { (*task)(); });
    if (result.wait_for(kLogicTimeout) != std::future_status::ready)
        return std::nullopt;
    return result.get();
}

void StudioServer::Start(const StudioServerOptions& options)
{
    m_webRoot = options.webRoot;
    m_http = std::make_unique<httplib::Server>();
    m_http->new_task_queue = [] { return new httplib::ThreadPool(kHttpThreads); };
    // Small answers go out at once rather than waiting for the browser's delayed acknowledgement.
    m_http->set_tcp_nodelay(true);
    int port = options.port;
    if (port == 0) {
        port = m_http->bind_to_any_port("127.0.0.1");
        if (port <= 0)
            Raise(status::kGeneralFailure, "StudioServer.Start", "No free port could be bound on 127.0.0.1.");
    } else if (!m_http->bind_to_port("127.0.0.1", port)) {
        Raise(status::kGeneralFailure, "StudioServer.Start",
            "The port " + std::to_string(port) + " of 127.0.0.1 cannot be bound; is it in use?");
    }
    m_guard = std::make_unique<StudioRequestGuard>(port, StudioRequestGuard::NewToken(), StudioRequestGuard::NewToken());
    InstallRoutes();
    m_listener = std::thread([this] { m_http->listen_after_bind(); });
}

void StudioServer::Stop()
{
    if (!m_listener.joinable())
        return;
    m_events.Close();
    std::promise<void> stopped;
    std::future<void> done = stopped.get_future();
    std::thread stopper([&] {
        m_http->stop();
        m_listener.join();
        stopped.set_value();
        // Wakes the loop that waits for this.
        m_loop.Post([] {});
    });
    // Requests that wait for the logic thread must be able to end.
    if (m_loop.IsLoopThread()) {
        m_loop.RunUntil([&] { return done.wait_for(std::chrono::milliseconds(0)) == std::future_status::ready; },
            std::chrono::seconds(30));
    }
    stopper.join();
}

bool StudioServer::Admit(const httplib::Request& request, httplib::Response& response)
{
    const StudioRequestGuard& guard = *m_guard;
    std::string host = request.get_header_value("Host");
    if (!guard.HostAllowed(host))
        return false;
    bool onContentOrigin = EqualsNoCase(host, "localhost:" + std::to_string(guard.Port()));
    if (IsContentPath(request.path)) {
        // The helps' pages live on their own origin, and only there; their
        // key is checked by their routes.
        return onContentOrigin && !StudioRequestGuard::ChangesState(request.method);
    }
    if (onContentOrigin)
        return false;
    if (StudioRequestGuard::ChangesState(request.method) && !guard.OriginAllowed(request.get_header_value("Origin")))
        return false;
    if (guard.TokenPresented(request.get_header_value("Cookie"), request.get_header_value("X-Scrivant-Token")))
        return true;
    // The first URL carries the token: it is kept in a cookie and taken out of the address.
    if (request.method == "GET" && request.path == "/" && guard.TokenMatches(request.get_param_value("token"))) {
        response.set_header("Set-Cookie", guard.CookieHeaderValue());
        response.set_redirect("/", 303);
        response.set_header("Cache-Control", "no-store");
        return false;
    }
    return false;
}

void StudioServer::InstallRoutes()
{
    httplib::Server& http = *m_http;
    http.set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
        if (Admit(request, response))
            return httplib::Server::HandlerResponse::Unhandled;
        if (response.status != 303)
            Refuse(response);
        return httplib::Server::HandlerResponse::Handled;
    });
    http.set_exception_handler([](const httplib::Request&, httplib::Response& response, std::exception_ptr error) {
        std::string what = "The request failed.";
        try {
            if (error)
                std::rethrow_exception(error);
        } catch (const std::exception& exception) {
            what = exception.what();
        } catch (...) {
        }
        Trace("Studio: a request failed: " + what);
        SendJson(response, { { "error", what } }, 500);
    });

    http.Get("/api/state", [this](const httplib::Request&, httplib::Response& response) {
        std::optional<json> state = OnLogic([this] { return m_shell.State(); });
        if (!state)
            return Busy(response);
        const StudioRequestGuard& guard = *m_guard;
        (*state)["content"] = {
            { "files", guard.ContentOrigin() + "/files/" + guard.ContentKey() },
            { "chm", guard.ContentOrigin() + "/chm/" + guard.ContentKey() },
        };
        SendJson(response, *state);
    });

    http.Get("/api/events", [this](const httplib::Request& request, httplib::Response& response) {
        ServeEvents(request, response);
    });

    http.Post("/api/command", [this](const httplib::Request& request, httplib::Response& response) {
        std::optional<json> body = ParseBody(request);
        std::string command = body ? body->value("command", "") : "";
        bool known = false;
        for (const std::string& name : StudioShell::Commands())
            known = known || name == command;
        if (!known)
            return SendJson(response, { { "error", "There is no command '" + command + "'." } }, 400);
        json arguments = body->contains("arguments") ? (*body)["arguments"] : json::object();
        // The command runs on the logic thread; the page follows it by its events.
        m_loop.Post([this, command, arguments] { m_shell.Run(command, arguments); });
        SendJson(response, { { "accepted", true }, { "command", command } }, 202);
    });

    http.Get("/api/wizard", [this](const httplib::Request&, httplib::Response& response) {
        std::optional<json> page = OnLogic([this] { return m_shell.Wizard().Page(); });
        if (!page)
            return Busy(response);
        SendJson(response, *page);
    });

    http.Post("/api/wizard", [this](const httplib::Request& request, httplib::Response& response) {
        std::optional<json> body = ParseBody(request);
        if (!body)
            return SendJson(response, { { "error", "A wizard request is a JSON object." } }, 400);
        // Finish, Cancel and the page's buttons run as commands (/api/command).
        std::optional<std::pair<std::optional<json>, std::string>> answer = OnLogic([this, body] {
            std::string problem;
            std::optional<json> page = m_shell.WizardAct(*body, problem);
            return std::make_pair(page, problem);
        });
        if (!answer)
            return Busy(response);
        if (!answer->first)
            return SendJson(response, { { "error", answer->second } }, 409);
        SendJson(response, *answer->first);
    });

    http.Post("/api/dialog", [this](const httplib::Request& request, httplib::Response& response) {
        std::optional<json> body = ParseBody(request);
        if (!body || !(*body)["id"].is_number_integer() || (*body)["id"].get<long long>() < 0 || !body->contains("answer"))
            return SendJson(response, { { "error", "An answer needs an id and an answer." } }, 400);
        auto id = (*body)["id"].get<std::uint64_t>();
        json answer = (*body)["answer"];
        std::optional<bool> taken = OnLogic([this, id, answer] { return m_ui.Answer(id, answer); });
        if (!taken)
            return Busy(response);
        if (!*taken)
            return SendJson(response, { { "error", "No question of that id waits for this answer." } }, 409);
        SendJson(response, { { "answered", true } });
    });

    http.Post("/api/cancel", [this](const httplib::Request&, httplib::Response& response) {
        std::optional<bool> running = OnLogic([this] {
            m_ui.RequestCancel();
            m_shell.Cancel();
            return m_shell.Running();
        });
        if (!running)
            return Busy(response);
        SendJson(response, { { "cancelled", *running } });
    });

    http.Post("/api/exit", [this](const httplib::Request&, httplib::Response& response) {
        m_loop.Post([this] {
            if (m_onExit)
                m_onExit();
        });
        SendJson(response, { { "exiting", true } }, 202);
    });

    http.Get("/api/browse", [this](const httplib::Request& request, httplib::Response& response) {
        std::optional<json> listing
            = m_files.Browse(request.get_param_value("path"), request.get_param_value("pattern"));
        if (!listing)
            return Refuse(response);
        SendJson(response, *listing);
    });

    http.Get("/api/chm", [this](const httplib::Request& request, httplib::Response& response) {
        std::optional<fs::path> file = m_files.Resolve(request.get_param_value("path"));
        if (!file)
            return Refuse(response);
        std::string path = file->string();
        std::optional<json> contents = OnLogic([path]() -> json {
            std::unique_ptr<ChmArchive> archive = ChmArchive::Open(path);
            return archive ? archive->Contents() : json(nullptr);
        });
        if (!contents)
            return Busy(response);
        if (contents->is_null())
            return SendJson(response, { { "error", "'" + path + "' is no compiled help." } }, 422);
        (*contents)["path"] = path;
        SendJson(response, *contents);
    });

    InstallEditorRoutes(http, m_loop, m_shell, m_files, kLogicTimeout);
    http.Get("/files/.*", [this](const httplib::Request& request, httplib::Response& response) {
        ServeFile(request, response);
    });
    http.Get("/chm/.*", [this](const httplib::Request& request, httplib::Response& response) {
        ServeChmFile(request, response);
    });
    http.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
        ServeWebFile(request, response);
    });
}

void StudioServer::ServeEvents(const httplib::Request&, httplib::Response& response)
{
    std::shared_ptr<StudioEvents::Subscription> subscription = m_events.Subscribe();
    response.set_header("Cache-Control", "no-store");
    response.set_chunked_content_provider("text/event-stream",
        [subscription](std::size_t offset, httplib::DataSink& sink) {
            std::string chunk;
            if (offset == 0)
                chunk = "retry: 1000\n\n";
            std::optional<std::string> event = subscription->Next(kHeartbeat);
            if (subscription->Closed()) {
                sink.done();
                return true;
            }
            // A comment line keeps the connection checked: a page that has
            // gone is found at the next write.
            chunk += event ? "data: " + *event + "\n\n" : ": waiting\n\n";
            return sink.write(chunk.data(), chunk.size());
        });
}

void StudioServer::ServeWebFile(const httplib::Request& request, httplib::Response& response)
{
    std::string relative = request.path == "/" ? "/index.html" : request.path;
    std::error_code error;
    fs::path root = fs::canonical(m_webRoot, error);
    if (error)
        return Refuse(response);
    fs::path file = fs::canonical(root / fs::path(relative).relative_path(), error);
    std::string rootText = AddBackslash(root.string());
    if (error || file.string().compare(0, rootText.size(), rootText) != 0 || !fs::is_regular_file(file, error)) {
        response.status = 404;
        response.set_content("Not found", "text/plain");
        return;
    }
    std::optional<std::string> bytes = ReadBytes(file);
    if (!bytes)
        return Refuse(response);
    const StudioRequestGuard& guard = *m_guard;
    response.set_header("Cache-Control", "no-cache");
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("Content-Security-Policy",
        "default-src 'self'; frame-src 'self' " + guard.ContentOrigin() + "; img-src 'self' data: " + guard.ContentOrigin()
            + "; object-src 'none'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'");
    response.set_content(std::move(*bytes), ContentTypeOf(file.string()));
}

void StudioServer::ServeFile(const httplib::Request& request, httplib::Response& response)
{
    auto [key, path] = KeyAndRest(request.path, kFilesPrefix);
    if (!m_guard->ContentKeyMatches(key))
        return Refuse(response);
    std::optional<fs::path> file = m_files.Resolve(path);
    std::error_code error;
    if (!file || !fs::is_regular_file(*file, error))
        return Refuse(response);
    std::optional<std::string> bytes = ReadBytes(*file);
    if (!bytes)
        return Refuse(response);
    response.set_header("Cache-Control", "no-cache");
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("Content-Security-Policy", "frame-ancestors " + m_guard->StudioOrigin() + " 'self'");
    response.set_content(std::move(*bytes), ContentTypeOf(file->string()));
}

void StudioServer::ServeChmFile(const httplib::Request& request, httplib::Response& response)
{
    auto [key, rest] = KeyAndRest(request.path, kChmPrefix);
    if (!m_guard->ContentKeyMatches(key))
        return Refuse(response);
    std::size_t marker = rest.find(kChmMarker);
    if (marker == std::string::npos)
        return Refuse(response);
    std::optional<fs::path> file = m_files.Resolve(rest.substr(0, marker));
    std::error_code error;
    if (!file || !fs::is_regular_file(*file, error))
        return Refuse(response);
    std::string inner = rest.substr(marker + kChmMarker.size() - 1);
    std::unique_ptr<ChmArchive> archive = ChmArchive::Open(file->string());
    std::optional<std::string> bytes = archive ? archive->Read(inner) : std::nullopt;
    if (!bytes) {
        response.status = 404;
        response.set_content("Not found in the compiled help", "text/plain");
        return;
    }
    response.set_header("Cache-Control", "no-cache");
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("Content-Security-Policy", "frame-ancestors " + m_guard->StudioOrigin() + " 'self'");
    response.set_content(std::move(*bytes), ContentTypeOf(inner));
}

}  // namespace scriv::studio
