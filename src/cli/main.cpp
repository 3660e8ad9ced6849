#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/CliSession.h"
#include "cli/DescribeCommand.h"
#include "cli/ProjectCommands.h"
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

    CLI::App* projectsCommand = app.add_subcommand("projects", "List the registered help projects");

    std::string openFile;
    std::string openHost;
    CLI::App* openCommand = app.add_subcommand("open", "Open a help project and print its contents tree");
    openCommand->add_option("project", openFile, "The project file (.svp)")->required();
    openCommand->add_option("--host", openHost,
        "The VB6 project (.vbp) or group (.vbg) the help documents, or an XML description of its projects and forms");

    std::string getOption;
    std::string setOption;
    CLI::App* settingsCommand = app.add_subcommand("settings", "Show or change the program's settings");
    auto* getFlag = settingsCommand->add_option("--get", getOption, "Print the value of one option");
    settingsCommand->add_option("--set", setOption, "Set an option: NAME=VALUE")->excludes(getFlag);

    std::string newHost;
    CLI::App* newCommand = app.add_subcommand("new", "Create a help project with the wizard and generate it");
    newCommand->add_option("--host", newHost,
        "The VB6 project (.vbp) or group (.vbg) to document, or an XML description of its projects and forms");

    DescribeOptions describe;
    CLI::App* describeCommand
        = app.add_subcommand("describe", "Print the normalised description of the forms of a VB6 project or group");
    describeCommand->add_option("SOURCE", describe.source, "The VB6 project (.vbp) or project group (.vbg)")
        ->required()
        ->check(CLI::ExistingFile);
    describeCommand->add_option("FORM", describe.forms, "Names of the forms to describe (all without any)");
    describeCommand->add_option("--out", describe.out,
        "Folder the help would be generated into (default: the CHM folder beside the project)");

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
    if (describeCommand->parsed())
        return RunDescribe(global, describe);
    if (projectsCommand->parsed())
        return RunProjects(global);
    if (openCommand->parsed())
        return RunOpen(global, openFile, openHost);
    if (settingsCommand->parsed())
        return RunSettings(global, getOption, setOption);
    if (newCommand->parsed())
        return RunNew(global, newHost);
    std::cout << app.help();
    return exitcode::kDone;
}
