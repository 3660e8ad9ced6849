#include <malloc.h>
#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/CliSession.h"
#include "cli/DescribeCommand.h"
#include "cli/ExportWordCommand.h"
#include "cli/GenerateCommands.h"
#include "cli/ScreenshotCommand.h"
#include "cli/StudioCommand.h"
#include "cli/ProjectCommands.h"
#include "cli/ProjectToolsCommands.h"
#include "foundation/CodePage.h"
#include "foundation/EventLoop.h"
#include "foundation/Version.h"

int main(int argc, char** argv)
{
    using namespace scriv;
    // A generation makes and drops window pictures of some hundred kilobytes
    // for every form: the allocator keeps their memory for the next ones
    // instead of handing it back and faulting it in again each time.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 128 << 20);
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
    app.add_option("--codepage", global.codePage,
        "Code page of the application's texts where its forms' fonts name none (windows-1251, CP932 ...)")
        ->check([](const std::string& value) {
            return IsKnownEncoding(value) ? std::string() : "'" + value + "' is no code page this system knows";
        });
    // The options of the whole program may follow the command's name too.
    app.fallthrough();

    GenerateOptions generate;
    SourceGenerateOptions fromSource;
    CLI::App* generateCommand = app.add_subcommand("generate",
        "Generate the help project of an application: topics, contents, index, browser help and compiled help");
    generateCommand->add_option("SOURCE", fromSource.source,
        "The application to document: a VB6 project (.vbp) or group (.vbg), a Visual Studio solution or project "
        "(.sln, .csproj, .vbproj ...), an Access database (.mdb, .accdb) or folder of exported objects, an Excel "
        "workbook (.xlsx, .xlsm), or an XML description of its projects and forms");
    auto* contentsOption = generateCommand->add_option("--contents", generate.contents,
        "Generate the plain topics of a contents document (XML) instead of an application");
    generateCommand->add_option("--out", generate.out,
        "Folder to write the help project into (default for SOURCE: the CHM folder beside the application)");
    generateCommand->add_option("--images", fromSource.images, "Screenshots as png, jpg or bmp")
        ->check(CLI::IsMember({ "png", "jpg", "bmp" }));
    generateCommand->add_flag("--no-compile", fromSource.noCompile, "Do not run the help compiler");
    generateCommand->add_flag("--open", fromSource.open, "Open the compiled help when it is made");
    generateCommand->add_option("--host", generate.host,
        "With --contents: XML description of the projects and forms to document");
    generateCommand->add_option("--name", generate.name, "With --contents: name of the help project");
    generateCommand->add_option("--title", generate.title, "With --contents: title of the help");

    std::string recompileFile;
    std::string recompileHost;
    bool webOnly = false;
    CLI::App* recompileCommand = app.add_subcommand("recompile",
        "Rewrite the contents, index, browser help and compiled help of a help project from its pages as they stand");
    recompileCommand->add_option("PROJECT", recompileFile, "The help project file (.svp)")->required();
    recompileCommand->add_flag("--web-only", webOnly, "Bring the browser help up to date without compiling");
    recompileCommand->add_option("--host", recompileHost,
        "The application's project, when it is not the one the help project was made for");

    std::string regenerateFile;
    std::string regenerateHost;
    CLI::App* regenerateCommand = app.add_subcommand("regenerate",
        "Add topics for the forms the application has gained, keeping every page edited by hand");
    regenerateCommand->add_option("PROJECT", regenerateFile, "The help project file (.svp)")->required();
    regenerateCommand->add_option("--host", regenerateHost,
        "The application's project, when it is not the one the help project was made for");

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
        "The application to document: a VB6 project (.vbp) or group (.vbg), a Visual Studio solution or project "
        "(.sln, .csproj, .vbproj ...), an Access database (.mdb, .accdb) or folder of exported objects, an Excel "
        "workbook (.xlsx, .xlsm), or an XML description of its projects and forms");

    DescribeOptions describe;
    CLI::App* describeCommand
        = app.add_subcommand("describe", "Print the normalised description of the forms of a VB6 project or group");
    describeCommand->add_option("SOURCE", describe.source, "The VB6 project (.vbp) or project group (.vbg)")
        ->required()
        ->check(CLI::ExistingFile);
    describeCommand->add_option("FORM", describe.forms, "Names of the forms to describe (all without any)");
    describeCommand->add_option("--out", describe.out,
        "Folder the help would be generated into (default: the CHM folder beside the project)");

    ScreenshotCommandOptions screenshot;
    CLI::App* screenshotCommand
        = app.add_subcommand("screenshot", "Draw one form of a VB6 project as Windows shows it, into a picture file");
    screenshotCommand->add_option("SOURCE", screenshot.source, "The VB6 project (.vbp) or project group (.vbg)")
        ->required()
        ->check(CLI::ExistingFile);
    screenshotCommand->add_option("FORM", screenshot.form, "The form, user control or user document to draw")->required();
    screenshotCommand->add_option("--out", screenshot.out, "The picture file: .png, .bmp, .jpg or .jpeg")->required();
    screenshotCommand->add_option("--page", screenshot.pages, "Show a tab page first: TABCONTROL=PAGE (page from 0)");
    screenshotCommand->add_flag("--runtime", screenshot.runtimeView,
        "Leave out controls that are invisible while the program runs");
    screenshotCommand->add_option("--quality", screenshot.quality, "JPEG quality, 1 to 100")->check(CLI::Range(1, 100));

    ExportWordOptions exportWord;
    CLI::App* exportWordCommand
        = app.add_subcommand("export-word", "Export a help project as one Word document (.docx) with a table of contents");
    exportWordCommand->add_option("PROJECT", exportWord.project, "The help project file (.svp)")->required();
    exportWordCommand->add_option("--out", exportWord.out,
        "The document to write (default: PROJECT's folder, its name and \" documentation.docx\")");
    exportWordCommand->add_flag("--link-pictures", exportWord.linkPictures,
        "Link the pictures to their files instead of storing them in the document");
    exportWordCommand->add_flag("--pdf", exportWord.pdf, "Also make a PDF beside the document (needs LibreOffice)");

    std::string checkLinksFile;
    CLI::App* checkLinksCommand = app.add_subcommand("check-links",
        "Check the hyperlinks and pictures of every topic of a help project; exit code 1 when any is broken");
    checkLinksCommand->add_option("PROJECT", checkLinksFile, "The help project file (.svp)")->required();

    TextSearchOptions findOptions;
    CLI::App* findCommand = app.add_subcommand("find",
        "Find a text in every topic of a help project; exit code 1 when it is nowhere");
    TextSearchOptions replaceOptions;
    CLI::App* replaceCommand = app.add_subcommand("replace",
        "Replace a text in every topic of a help project; exit code 1 when it is nowhere");
    for (auto [command, options] : { std::pair { findCommand, &findOptions }, std::pair { replaceCommand, &replaceOptions } }) {
        command->add_option("PROJECT", options->project, "The help project file (.svp)")->required();
        command->add_option("TEXT", options->findWhat, "The text to find")->required();
        if (command == replaceCommand)
            command->add_option("REPLACE", options->replaceWith, "The text to put in its place")->required();
        command->add_flag("--whole-word", options->wholeWord, "Only where the text stands as a whole word");
        command->add_flag("--match-case", options->matchCase, "Only where the case of the letters is the same");
        command->add_flag("--source", options->source,
            "Search the pages' HTML source, tags and attributes included, instead of the text a reader sees");
    }

    StudioCommandOptions studio;
    CLI::App* studioCommand = AddStudioCommand(app, studio);

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
    if (generateCommand->parsed()) {
        if (contentsOption->count() > 0 && !fromSource.source.empty()) {
            std::cerr << "scrivant generate: give either SOURCE or --contents, not both.\n";
            return exitcode::kUsage;
        }
        if (contentsOption->count() > 0) {
            if (generate.out.empty()) {
                std::cerr << "scrivant generate: --contents needs --out.\n";
                return exitcode::kUsage;
            }
            return RunGenerateFromContents(global, generate);
        }
        if (fromSource.source.empty()) {
            std::cerr << "scrivant generate: SOURCE is required (or --contents FILE --out DIR).\n";
            return exitcode::kUsage;
        }
        fromSource.out = generate.out;
        return RunGenerateSource(global, fromSource);
    }
    if (recompileCommand->parsed())
        return RunRecompile(global, recompileFile, webOnly, recompileHost);
    if (regenerateCommand->parsed())
        return RunRegenerate(global, regenerateFile, regenerateHost);
    if (screenshotCommand->parsed())
        return RunScreenshot(global, screenshot);
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
    if (exportWordCommand->parsed())
        return RunExportWord(global, exportWord);
    if (checkLinksCommand->parsed())
        return RunCheckLinks(global, checkLinksFile);
    if (findCommand->parsed())
        return RunFind(global, findOptions);
    if (replaceCommand->parsed())
        return RunReplace(global, replaceOptions);
    if (studioCommand->parsed())
        return RunStudioCommand(global, studio);
    std::cout << app.help();
    return exitcode::kDone;
}
