#pragma once

#include <string>

namespace CLI {
class App;
}

namespace scriv {

struct GlobalOptions;

struct StudioCommandOptions {
    std::string source;
    int port { 0 };
    bool noBrowser { false };
};

// Adds "studio" to the program's commands; the options land in options.
CLI::App* AddStudioCommand(CLI::App& app, StudioCommandOptions& options);
// Runs the studio until it is ended; answers the exit code.
int RunStudioCommand(const GlobalOptions& global, const StudioCommandOptions& options);

}  // namespace scriv
