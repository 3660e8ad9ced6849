#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

namespace scriv::studio {

struct StudioOptions {
    // A VB6 project or group, a help project file, or "" for none.
    std::string source;
    // 0: a free port.
    int port { 0 };
    bool openBrowser { true };
    // The program's data and the user's data (see AppFolders); "" for the defaults.
    std::string home;
    std::string data;
    // How long a question waits with no page connected before it takes its default answer.
    std::chrono::milliseconds unattendedGrace { std::chrono::seconds(20) };
};

// Runs the studio until Ctrl-C (or SIGTERM) or the Exit command: opens the
// source, serves the page on 127.0.0.1, prints its URL with the token to out,
// opens it in the desktop's browser unless told not to, and runs the logic
// loop on this thread. Answers the exit code: 0 after a normal end, 1 when
// the source cannot be opened or the port not bound.
int RunStudio(const StudioOptions& options, std::ostream& out, std::ostream& err);

}  // namespace scriv::studio
