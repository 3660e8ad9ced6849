#include "cli/CliSession.h"

#include <iostream>

#include "desktop/CW_IDEVB6Context.h"
#include "desktop/CW_AccessContext.h"
#include "desktop/CW_ExcelContext.h"
#include "desktop/CW_IDEVSContext.h"
#include "foundation/CodePage.h"
#include "foundation/ConsoleUserInterface.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivant.h"
#include "host/CFakeHostContext.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivClient.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"

namespace scriv {

CliSession::CliSession(const GlobalOptions& options)
{
    ConfigureFolders({ options.home, options.data });
    ConsoleOptions console = DetectConsoleOptions(options.assumeYes);
    // Without someone to answer, an error report must not start a mail program.
    SetReportDefaultNo(!console.interactive);
    SetUserInterface(std::make_unique<ConsoleUserInterface>(console));
    m_codePage = options.codePage;
    if (!m_codePage.empty())
        SetSystemCodePage(m_codePage);
}

CliSession::~CliSession()
{
    if (m_client)
        m_client->Disconnect();
}

void CliSession::Connect(std::unique_ptr<IHostIDEContext> host)
{
    m_client = std::make_unique<CScrivClient>();
    if (m_client->Connect(std::move(host)) != 0 || !CurrentServer())
        Raise(status::kGeneralFailure, "CliSession.Connect", "The server could not be started.");
    // The code page given for the run stands whatever the settings say.
    if (!m_codePage.empty())
        CurrentServer()->Data().OverrideOption("ApplicationCodePage", OptionValue::Text(m_codePage));
}

std::unique_ptr<IHostIDEContext> MakeHost(const std::string& hostFile)
{
    if (hostFile.empty())
        return std::make_unique<CFakeHostContext>();
    if (EndsWithNoCase(hostFile, ".vbp") || EndsWithNoCase(hostFile, ".vbg"))
        return CW_IDEVB6Context::Open(hostFile);
    for (const char* extension : { ".sln", ".csproj", ".vbproj", ".vjsproj", ".vcproj" })
        if (EndsWithNoCase(hostFile, extension))
            return CW_IDEVSContext::Open(hostFile);
    if (EndsWithNoCase(hostFile, ".xlsx") || EndsWithNoCase(hostFile, ".xlsm"))
        return CW_ExcelContext::Open(hostFile);
    if (IsAccessSource(hostFile))
        return CW_AccessContext::Open(hostFile);
    return CFakeHostContext::FromFile(hostFile);
}

bool IsAccessSource(const std::string& path)
{
    return EndsWithNoCase(path, ".mdb") || EndsWithNoCase(path, ".accdb") || FolderExists(path);
}

int ExitCodeOf(std::uint32_t status)
{
    if (status == 0)
        return exitcode::kDone;
    return status == status::kAbandoned ? exitcode::kCancelled : exitcode::kFailed;
}

int WithSession(const GlobalOptions& global, const std::string& hostFile,
    const std::function<int(CScrivServer&)>& body)
{
    try {
        CliSession session(global);
        session.Connect(MakeHost(hostFile));
        CurrentServer()->Data().LoadSettings(false);
        return body(*CurrentServer());
    } catch (const ScrivError& error) {
        std::cerr << "scrivant: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
}

namespace {

std::string DefaultProjectName(const GenerateOptions& options, const CHelpPrjTree& tree)
{
    if (!options.name.empty())
        return options.name;
    if (tree.Root() && !tree.Root()->Name().empty())
        return tree.Root()->Name();
    std::string folder = FileNameOf(RemoveBackslash(options.out));
    return folder.empty() ? "Help" : folder;
}

}  // namespace

int RunGenerateFromContents(const GlobalOptions& global, const GenerateOptions& options)
{
    CliSession session(global);
    std::unique_ptr<IHostIDEContext> host;
    try {
        host = options.host.empty() ? std::make_unique<CFakeHostContext>() : CFakeHostContext::FromFile(options.host);
    } catch (const ScrivError& error) {
        std::cerr << "scrivant: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
    session.Connect(std::move(host));
    CScrivServer& server = *CurrentServer();
    CScrivServerData& data = server.Data();
    data.LoadSettings(false);

    if (!FileExists(options.contents)) {
        std::cerr << "scrivant: the contents document '" << options.contents << "' does not exist.\n";
        return exitcode::kFailed;
    }
    CScrivant& scriv = data.ScrivEngine();
    CHelpPrjTree& tree = scriv.HelpProjectTree();
    std::uint32_t loaded = tree.Load(options.contents, true);
    if (loaded != 0)
        return exitcode::kFailed;
    if (!tree.Root()) {
        std::cerr << "scrivant: the contents document '" << options.contents << "' has no Project element.\n";
        return exitcode::kFailed;
    }

    CScrivantParameters& parameters = Parameters();
    std::string out = AddBackslash(options.out);
    std::string name = DefaultProjectName(options, tree);
    parameters.SetFolderForGeneratedHelp(out);
    parameters.SetHelpProjectName(name);
    std::string title = options.title.empty() ? name : options.title;
    if (parameters.ApplicationNameStr.empty())
        parameters.ApplicationNameStr = title;
    parameters.SetHelpProjectTitle(title);
    if (parameters.Charset.empty())
        parameters.Charset = "utf-8";
    if (parameters.CSSFullPath().empty())
        parameters.SetCSSFullPath("Office10.css");
    if (!MakeFolders(out)) {
        std::cerr << "scrivant: the folder '" << out << "' cannot be created.\n";
        return exitcode::kFailed;
    }

    auto project = std::make_unique<CAddInProject>();
    project->Name = name;
    project->Folder = out;
    CAddInProject* added = data.Projects().Add(std::move(project));
    data.Projects().SetCurrentProject(added);

    data.SetGenerationRunning(true);
    data.GenerationStats().Reset();
    scriv.GenerateHelpProject(true, false, false, false, false);
    data.SetGenerationRunning(false);

    if (data.GenerationInterrupted) {
        std::cerr << "Help generation was cancelled by end-user.\n";
        return exitcode::kCancelled;
    }
    const CScrivStats& stats = data.GenerationStats();
    std::cout << "The Scrivant added:\n- " << stats.HelpPagesCount << " new help pages in " << out << "\n";
    return ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed;
}

}  // namespace scriv
