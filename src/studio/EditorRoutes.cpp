#include "studio/EditorRoutes.h"

#include <httplib.h>

#include <filesystem>
#include <future>
#include <memory>
#include <optional>

#include <nlohmann/json.hpp>

#include "foundation/CUTF8File.h"
#include "foundation/EventLoop.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "studio/EditorPages.h"
#include "studio/EditorSession.h"
#include "studio/StudioFileAccess.h"
#include "studio/StudioServer.h"
#include "studio/StudioShell.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;
namespace fs = std::filesystem;

constexpr std::string_view kEditPrefix = "/edit";

// A page in the page editor runs nothing of its own, whatever it holds.
constexpr const char* kEditPolicy = "default-src 'none'; img-src 'self' data:; style-src 'self' 'unsafe-inline'; "
                                    "font-src 'self' data:; media-src 'self'; script-src 'none'; form-action 'none'; "
                                    "base-uri 'self'; frame-ancestors 'self'; sandbox allow-same-origin";

bool IsPage(std::string_view path)
{
    std::string extension = ToLower(FileExtension(path));
    return extension == ".htm" || extension == ".html" || extension == ".htp";
}

// What a page's files are to the page editor: style sheets, pictures and
// text; a script or page of the help is only bytes there.
std::string FileTypeOf(std::string_view path)
{
    std::string type = ContentTypeOf(path);
    bool passive = type.starts_with("text/css") || type.starts_with("image/") || type.starts_with("text/plain");
    return passive ? type : "application/octet-stream";
}

json BodyOf(const httplib::Request& request)
{
    json body = json::parse(request.body, nullptr, false);
    return body.is_object() ? body : json::object();
}

class Routes {
public:
    Routes(EventLoop& loop, StudioShell& shell, StudioFileAccess& files, std::chrono::seconds timeout)
        : m_loop(loop)
        , m_shell(shell)
        , m_files(files)
        , m_timeout(timeout)
    {
    }

    // Runs f on the logic thread and answers its result, or nothing when the
    // logic thread did not get to it in time.
    template<typename F>
    auto OnLogic(F f) -> std::optional<decltype(f())>
    {
        using Result = decltype(f());
        auto task = std::make_shared<std::packaged_task<Result()>>(std::move(f));
        std::future<Result> result = task->get_future();
        m_loop.Post([task] { (*task)(); });
        if (result.wait_for(m_timeout) != std::future_status::ready)
            return std::nullopt;
        return result.get();
    }

    // A request that acts on the editor and answers its state. While a
    // command of the studio runs, the tree waits.
    template<typename F>
    void Act(const httplib::Request& request, httplib::Response& response, F act)
    {
        json body = BodyOf(request);
        std::optional<json> state = OnLogic([this, body, act]() -> json {
            if (m_shell.Running())
                return { { "error", "Please wait until the running command has finished." } };
            return act(m_shell.Editor(), body);
        });
        if (!state)
            return Busy(response);
        SendJson(response, *state, state->contains("error") ? 409 : 200);
    }

    // A request that starts something long on the logic thread.
    template<typename F>
    void Start(const httplib::Request& request, httplib::Response& response, F start)
    {
        json body = BodyOf(request);
        m_loop.Post([this, body, start] {
            if (!m_shell.Running())
                start(m_shell.Editor(), body);
        });
        SendJson(response, { { "accepted", true } }, 202);
    }

    void ServeEditedFile(const httplib::Request& request, httplib::Response& response)
    {
        std::string path = request.path.substr(kEditPrefix.size());
        std::optional<fs::path> file = m_files.Resolve(path);
        std::error_code error;
        if (!file || !fs::is_regular_file(*file, error)) {
            response.status = 404;
            response.set_content("Not found", "text/plain");
            return;
        }
        response.set_header("Cache-Control", "no-store");
        response.set_header("X-Content-Type-Options", "nosniff");
        response.set_header("Content-Security-Policy", kEditPolicy);
        if (!IsPage(path)) {
            std::optional<std::string> bytes = ReadFileText(file->string());
            if (!bytes) {
                response.status = 404;
                return;
            }
            response.set_content(std::move(*bytes), FileTypeOf(path));
            return;
        }
        std::optional<std::optional<std::string>> held
            = OnLogic([this, path] { return m_shell.Editor().HeldPageText(path); });
        std::string text;
        if (held && *held) {
            text = **held;
        } else {
            CUTF8FileReader reader;
            if (reader.LoadFile(file->string()) != 0) {
                response.status = 404;
                return;
            }
            text = PageTextForEditing(reader.Text());
        }
        response.set_content(std::move(text), "text/html; charset=utf-8");
    }

private:
    EventLoop& m_loop;
    StudioShell& m_shell;
    StudioFileAccess& m_files;
    std::chrono::seconds m_timeout;
};

}  // namespace

void InstallEditorRoutes(httplib::Server& http, EventLoop& loop, StudioShell& shell, StudioFileAccess& files,
    std::chrono::seconds logicTimeout)
{
    auto routes = std::make_shared<Routes>(loop, shell, files, logicTimeout);
    using Request = const httplib::Request&;
    using Response = httplib::Response&;

    http.Get("/api/editor/state", [routes, &shell](Request, Response response) {
        std::optional<json> state = routes->OnLogic([&shell] { return shell.Editor().State(); });
        if (!state)
            return Busy(response);
        SendJson(response, *state);
    });
    http.Get("/api/editor/tree", [routes, &shell](Request, Response response) {
        std::optional<json> tree = routes->OnLogic([&shell] { return shell.Editor().Tree(); });
        if (!tree)
            return Busy(response);
        SendJson(response, *tree);
    });
    http.Post("/api/editor/select", [routes](Request request, Response response) {
        routes->Act(request, response,
            [](EditorSession& editor, const json& body) { return editor.Select(body, body.value("key", "")); });
    });
    http.Post("/api/editor/expand", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) {
            return editor.Expand(body, body.value("key", ""), body.value("expanded", true));
        });
    });
    http.Post("/api/editor/key", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) {
            return editor.Key(body, body.value("keyCode", 0), body.value("shift", 0));
        });
    });
    http.Post("/api/editor/menu", [routes](Request request, Response response) {
        routes->Act(request, response,
            [](EditorSession& editor, const json& body) { return editor.TreeMenu(body, body.value("item", "")); });
    });
    http.Post("/api/editor/rename", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) {
            std::optional<std::string> text;
            if (!body.value("cancel", false))
                text = body.value("text", "");
            return editor.Rename(body, text);
        });
    });
    http.Post("/api/editor/drop", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) {
            return editor.Drop(body, body.value("source", ""), body.value("target", ""));
        });
    });
    http.Post("/api/editor/hold", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) { return editor.Hold(body); });
    });
    http.Post("/api/editor/save", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) { return editor.Save(body); });
    });
    http.Post("/api/editor/navigated", [routes](Request request, Response response) {
        routes->Act(request, response,
            [](EditorSession& editor, const json& body) { return editor.Navigated(body, body.value("path", "")); });
    });
    http.Post("/api/editor/source", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) -> json {
            return { { "text", editor.SourceText(body.value("html", "")) } };
        });
    });
    http.Post("/api/editor/temp", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) -> json {
            return { { "path", editor.TempPage(body.value("text", "")) } };
        });
    });
    http.Post("/api/editor/report", [routes](Request request, Response response) {
        routes->Act(request, response, [](EditorSession& editor, const json& body) {
            int row = body.value("row", -1);
            return editor.Report(body.value("report", ""), body.value("action", ""),
                row < 0 ? static_cast<std::size_t>(-1) : static_cast<std::size_t>(row));
        });
    });
    http.Post("/api/editor/index-entries", [routes](Request request, Response response) {
        routes->Act(request, response,
            [](EditorSession& editor, const json& body) { return editor.IndexEntries(body); });
    });
    http.Post("/api/editor/command", [routes](Request request, Response response) {
        routes->Start(request, response,
            [](EditorSession& editor, const json& body) { editor.Command(body, body.value("name", "")); });
    });
    http.Post("/api/editor/find-replace", [routes](Request request, Response response) {
        routes->Start(request, response, [](EditorSession& editor, const json& body) { editor.FindReplace(body); });
    });
    http.Post("/api/editor/word-export", [routes](Request request, Response response) {
        routes->Start(request, response, [](EditorSession& editor, const json& body) {
            editor.WordExport(body.value("target", ""), body.value("savePictures", true));
        });
    });
    http.Get("/edit/.*", [routes](Request request, Response response) { routes->ServeEditedFile(request, response); });
}

}  // namespace scriv::studio
