#include "cli/GenerateCommands.h"

#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/CliSession.h"
#include "foundation/AppFolders.h"
#include "foundation/ConsoleUserInterface.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivCompiler.h"
#include "generation/CScrivant.h"
#include "generation/HtmlHelpCompiler.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivActions.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv {

namespace {

// The settings' name of a picture format given on the command line.
std::string SnapshotFormatOption(const std::string& images)
{
    if (EqualsNoCase(images, "bmp"))
        return "Bitmap";
    return EqualsNoCase(images, "png") ? "Png" : "Jpeg";
}

std::string Absolute(const std::string& path)
{
    if (path.empty() || IsAbsolutePath(path))
        return path;
    return std::filesystem::absolute(path).lexically_normal().string();
}

// Options given on the command line hold for this run only: the settings
// file the wizard writes is put back afterwards.
class SettingsGuard {
public:
    explicit SettingsGuard(std::string path)
        : m_path(std::move(path))
        , m_bytes(ReadFileText(m_path))
    {
    }
    ~SettingsGuard()
    {
        if (m_bytes)
            WriteFileBytes(m_path, *m_bytes);
    }

private:
    std::string m_path;
    std::optional<std::string> m_bytes;
};

// The source project a registered help project documents, when its files are there.
std::string RegisteredSource(const std::string& projectFile)
{
    CAddInProjects registry;
    registry.init(Folders().UserDataFolder() + kProgramBaseName + "Projects.xml");
    CAddInProject* project = registry.GetProjectDefinitionBySvpFullPath(projectFile);
    // An Access application may be a folder of its exported objects.
    if (!project || project->SourceProjectFullPath.empty()
        || (!FileExists(project->SourceProjectFullPath) && !FolderExists(project->SourceProjectFullPath)))
        return {};
    return project->SourceProjectFullPath;
}

void SayWhetherCompiled(const CAddInProject& project)
{
    if (!Parameters().CompileHTMLHelp)
        return;
    if (FileExists(project.CHMFullPath())) {
        std::cout << "Compiled help: " << project.CHMFullPath() << "\n";
    } else if (HelpCompilerProgram().empty()) {
        std::cerr << "scrivant: no .chm was made: there is no help compiler (install chmcmd from fp-utils, or set the "
                     "option HelpCompilerPath).\n";
    } else {
        std::cerr << "scrivant: no .chm was made: the help compiler " << HelpCompilerProgram() << " failed on "
                  << project.HHPFullPath() << " (the trace log has what it said).\n";
    }
}

// Opens a help project; its source is the registered one unless hostFile names another.
int WithProject(const GlobalOptions& global, const std::string& projectFile, const std::string& hostFile,
    const std::function<int(CScrivServer&, CAddInProject&)>& body)
{
    std::string path = Absolute(projectFile);
    if (!FileExists(path)) {
        std::cerr << "scrivant: the help project '" << path << "' does not exist.\n";
        return exitcode::kFailed;
    }
    std::string host = hostFile;
    if (host.empty()) {
        CliSession probe(global);
        host = RegisteredSource(path);
    }
    return WithSession(global, host, [&](CScrivServer& server) {
        std::uint32_t status = server.ReloadScrivProject(path, 1);
        if (status != 0)
            return ExitCodeOf(status);
        status = server.Data().ScrivEngine().LoadTreviewForActiveProject(true);
        if (status != 0)
            return ExitCodeOf(status);
        CAddInProject* project = server.Data().Projects().CurrentProject();
        if (!project) {
            std::cerr << "scrivant: '" << path << "' could not be opened.\n";
            return exitcode::kFailed;
        }
        return body(server, *project);
    });
}

}  // namespace

int RunGenerateSource(const GlobalOptions& global, const SourceGenerateOptions& options)
{
    std::string source = Absolute(options.source);
    return WithSession(global, source, [&](CScrivServer& server) {
        CScrivServerData& data = server.Data();
        SettingsGuard guard(data.SettingsFilePath());
        data.Unattended = true;
        if (!options.out.empty())
            data.OverrideOption("FolderForGeneratedHelp", OptionValue::Text(AddBackslash(Absolute(options.out))));
        if (!options.images.empty())
            data.OverrideOption("SnapshotFormat", OptionValue::Text(SnapshotFormatOption(options.images)));
        if (options.noCompile)
            data.OverrideOption("CompileHTMLHelp", OptionValue::Bool(false));
        if (options.open)
            data.OverrideOption("OpenHTMLHelp", OptionValue::Bool(true));
        // A group is documented whole: one help for all its projects.
        if (EndsWithNoCase(source, ".vbg") || EndsWithNoCase(source, ".sln"))
            data.OverrideOption("UseProjectGroupAsSource", OptionValue::Bool(true));
        // A database's tables, queries and macros have topics of their own.
        if (IsAccessSource(source))
            for (const char* group : { "GenerateHelpForTables", "GenerateHelpForQueries", "GenerateHelpForMacros" })
                data.OverrideOption(group, OptionValue::Bool(true));
        std::uint32_t status = server.OpenNewProject();
        if (status != 0)
            return ExitCodeOf(status);
        if (server.Actions().LastStatistics().empty())
            return exitcode::kCancelled;
        if (CAddInProject* project = data.Projects().CurrentProject()) {
            std::cout << "Help project: " << project->SVPFullPath() << "\n";
            SayWhetherCompiled(*project);
        }
        return ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed;
    });
}

int RunRecompile(const GlobalOptions& global, const std::string& projectFile, bool webOnly, const std::string& hostFile)
{
    return WithProject(global, projectFile, hostFile, [&](CScrivServer& server, CAddInProject& project) {
        ConsoleOptions console = DetectConsoleOptions(global.assumeYes);
        bool quiet = !console.interactive || global.assumeYes;
        std::uint32_t status = CScrivCompiler(server.Data().ScrivEngine()).RecompileHelpProject(quiet, webOnly);
        if (status != 0)
            return ExitCodeOf(status);
        if (webOnly)
            std::cout << "The contents, index and browser help of " << project.Name << " are up to date.\n";
        else
            SayWhetherCompiled(project);
        return ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed;
    });
}

int RunRegenerate(const GlobalOptions& global, const std::string& projectFile, const std::string& hostFile)
{
    return WithProject(global, projectFile, hostFile, [&](CScrivServer& server, CAddInProject& project) {
        CScrivCompiler compiler(server.Data().ScrivEngine());
        std::uint32_t status = compiler.RegenerateHelpProject();
        // Nothing new is no failure: the warning said so.
        if (status == status::kAbandoned)
            return exitcode::kDone;
        if (status != 0)
            return ExitCodeOf(status);
        const std::string& statistics = server.Actions().LastStatistics();
        if (!statistics.empty())
            std::cout << ReplaceAll(statistics, "\r\n", "\n") << "\n";
        if (CAddInProject* current = server.Data().Projects().CurrentProject())
            SayWhetherCompiled(*current);
        return ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed;
    });
}

}  // namespace scriv
