#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/CliSession.h"
#include "foundation/EventLoop.h"
#include "foundation/Version.h"

int main(int argc, char** argv)
{
    using namespace scriv;
    // The logic thread is this one.
    LogicLoop();

    CLI::App app { "Scrivant writes and maintains the help of an application: topics, contents, index and compiled help.",
        "scrivant" };
    app.require_subcommand(0, 1);
    GlobalOptions global;
    bool version = false;
    app.add_flag("--version", version, "Print the version and exit");
    app.add_option("--home", global.home, "Folder with the program's Templates, Settings and Redirect folders")
        ->check(CLI::ExistingDirectory);
    app.add_option("--data", global.data, "Folder for the user's data: project registry, trace log, settings");
    app.add_flag("-y,--yes", global.assumeYes, "Answer Yes (or OK) to every question of the run");

    GenerateOptions generate;
    CLI::App* generateCommand = app.add_subcommand("generate", "Generate a help project");
    generateCommand->add_option("--contents", generate.contents, "Contents document to generate from (XML)")
        ->required();
    generateCommand->add_option("--out", generate.out, "Folder to write the help project into")->required();
    generateCommand->add_option("--host", generate.host,
        "XML description of the projects and forms to document, in place of a development environment");
    generateCommand->add_option("--name", generate.name, "Name of the help project");
    generateCommand->add_option("--title", generate.title, "Title of the help");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        int code = app.exit(error);
        return code == 0 ? exitcode::kDone : exitcode::kUsage;
    }
    if (version) {
        std::cout << kProgramTitle << " " << kProgramVersion << "\n";
        return exitcode::kDone;
    }
    if (generateCommand->parsed())
        return RunGenerateFromContents(global, generate);
    std::cout << app.help();
    return exitcode::kDone;
}
