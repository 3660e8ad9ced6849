#include "studio/StudioApp.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <filesystem>
#include <ostream>
#include <thread>

#include "foundation/AppFolders.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "host/IHostIDEContext.h"
#include "studio/StudioEvents.h"
#include "studio/StudioFileAccess.h"
#include "studio/StudioServer.h"
#include "studio/StudioShell.h"
#include "studio/StudioUserInterface.h"

namespace scriv::studio {

namespace {

// Ctrl-C and SIGTERM end the studio through its loop; a second one ends the
// process at once. The signals are blocked in every thread and taken here.
class SignalWatcher {
public:
    explicit SignalWatcher(std::function<void()> onFirst)
        : m_onFirst(std::move(onFirst))
    {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGINT);
        sigaddset(&m_signals, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &m_signals, &m_previous);
        m_thread = std::thread([this] { Watch(); });
    }
    ~SignalWatcher()
    {
        m_stop = true;
        m_thread.join();
        pthread_sigmask(SIG_SETMASK, &m_previous, nullptr);
    }

private:
    void Watch()
    {
        int received = 0;
        timespec slice { 0, 200'000'000 };
        while (!m_stop) {
            if (sigtimedwait(&m_signals, nullptr, &slice) < 0)
                continue;
            if (++received > 1)
                std::_Exit(130);
            m_onFirst();
        }
    }

    std::function<void()> m_onFirst;
    sigset_t m_signals {};
    sigset_t m_previous {};
    std::atomic<bool> m_stop { false };
    std::thread m_thread;
};

std::string AbsolutePath(const std::string& path)
{
    if (path.empty() || IsAbsolutePath(path))
        return path;
    return std::filesystem::absolute(path).lexically_normal().string();
}

}  // namespace

int RunStudio(const StudioOptions& options, std::ostream& out, std::ostream& err)
{
    ConfigureFolders({ options.home, options.data });
    // A page that goes away mid-answer must not end the process.
    std::signal(SIGPIPE, SIG_IGN);
    EventLoop& loop = LogicLoop();
    // Before any thread starts, so that every thread leaves the signals to the watcher.
    std::function<void()> quit;
    std::atomic<bool> signalled { false };
    SignalWatcher signals([&loop, &quit, &signalled] {
        signalled = true;
        loop.Post([&quit] {
            if (quit)
                quit();
        });
    });
    StudioEvents events;
    StudioFileAccess files;
    auto ui = std::make_unique<StudioUserInterface>(loop, events, options.unattendedGrace);
    StudioUserInterface& studioUi = *ui;
    std::unique_ptr<IUserInterface> previousUi = SetUserInterface(std::move(ui));

    std::string source = AbsolutePath(options.source);
    bool helpProject = EndsWithNoCase(source, ".svp");
    StudioShell shell(events, files);
    StudioServer server(loop, shell, studioUi, events, files);
    studioUi.SetDocumentViewer([&shell](const std::string& path) { return shell.ShowDocument(path); });
    int code = 0;
    try {
        std::string hostFile = helpProject ? StudioShell::RegisteredSourceOf(source) : source;
        shell.Connect(StudioShell::HostFor(hostFile), hostFile);
        server.Start({ options.port, Folders().InstallFolder() + "web/" });
    } catch (const ScrivError& error) {
        err << "scrivant studio: " << error.Description() << "\n";
        code = 1;
    }
    if (code == 0) {
        quit = [&] {
            studioUi.Shutdown();
            studioUi.RequestCancel();
            shell.Cancel();
            loop.Quit();
        };
        server.SetExitHandler(quit);
        out << "Scrivant studio: " << server.StartUrl() << "\n"
            << "Open that address in a web browser; Ctrl-C ends the studio." << std::endl;
        if (helpProject)
            loop.Post([&shell, source] { shell.Run("OpenStartProject", { { "file", source } }); });
        if (options.openBrowser && !ShellOpen(server.StartUrl()))
            err << "scrivant studio: the browser could not be started (xdg-open); open the address by hand.\n";
        // A signal during the start ends the studio before it runs.
        if (!signalled)
            loop.Run();
        studioUi.Shutdown();
        server.Stop();
    }
    quit = nullptr;
    shell.Disconnect();
    SetUserInterface(std::move(previousUi));
    return code;
}

}  // namespace scriv::studio
