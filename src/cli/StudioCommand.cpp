#include "cli/StudioCommand.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/CliSession.h"
#include "studio/StudioApp.h"

namespace scriv {

CLI::App* AddStudioCommand(CLI::App& app, StudioCommandOptions& options)
{
    CLI::App* command = app.add_subcommand("studio",
        "Open the studio in a web browser: the application, the Scrivant menu, generation with its progress, and "
        "the help viewer (served on 127.0.0.1 with an access token)");
    command->add_option("SOURCE", options.source,
        "The VB6 project (.vbp) or group (.vbg) to document, or a help project (.svp) to open")
        ->check(CLI::ExistingFile);
    command->add_option("--port", options.port, "The port to serve on (default: a free one)")
        ->check(CLI::Range(1, 65535));
    command->add_flag("--no-browser", options.noBrowser, "Only print the address; do not start a browser");
    return command;
}

int RunStudioCommand(const GlobalOptions& global, const StudioCommandOptions& options)
{
    studio::StudioOptions studio;
    studio.source = options.source;
    studio.port = options.port;
    studio.openBrowser = !options.noBrowser;
    studio.home = global.home;
    studio.data = global.data;
    int code = studio::RunStudio(studio, std::cout, std::cerr);
    return code == 0 ? exitcode::kDone : exitcode::kFailed;
}

}  // namespace scriv
