#include "cli/ProjectToolsCommands.h"

#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <vector>

#include "cli/CliSession.h"
#include "editor/CHTMLFindReplaceAll.h"
#include "editor/CHtmlRefsChecker.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTree.h"

namespace scriv {

namespace {

struct ProjectPages {
    std::string folder; // with a final separator
    std::vector<std::string> pages;
};

// The pages of a help project, read from its project file alone: no source
// project or registry is needed to check or edit its topics.
std::optional<ProjectPages> LoadProjectPages(const std::string& command, const std::string& projectFile)
{
    std::string path = std::filesystem::absolute(projectFile).lexically_normal().string();
    if (!FileExists(path) || FolderExists(path)) {
        std::cerr << "scrivant " << command << ": the help project '" << path << "' does not exist.\n";
        return std::nullopt;
    }
    CHelpPrjTree tree;
    tree.HTMLHelpProjectRootDir = FolderOf(path);
    std::uint32_t status = tree.Load(path, false);
    if (status != 0 || !tree.Root()) {
        std::cerr << "scrivant " << command << ": '" << path << "' is no help project that can be read ("
                  << FormatCode(status) << ").\n";
        return std::nullopt;
    }
    return ProjectPages { FolderOf(path), tree.GetFilesHTMLCollection() };
}

// The path below the project's folder, or the whole path outside it.
std::string Shown(const std::string& path, const std::string& folder)
{
    return StartsWithNoCase(path, folder) ? path.substr(folder.size()) : path;
}

int RunTextSearch(const GlobalOptions& global, const TextSearchOptions& options, int mode)
{
    const char* command = mode == CHTMLFindReplaceAll::kFind ? "find" : "replace";
    try {
        CliSession session(global);
        std::optional<ProjectPages> project = LoadProjectPages(command, options.project);
        if (!project)
            return exitcode::kFailed;
        CHTMLFindReplaceAll search(UserInterface());
        std::size_t hits = search.init(project->pages, mode, options.findWhat, options.replaceWith, options.wholeWord,
            options.matchCase, options.source);
        for (const std::string& page : search.PagesWithHits())
            std::cout << Shown(page, project->folder) << "\n";
        if (hits > 0)
            std::cout << search.StatusText() << " in " << hits << (hits == 1 ? " page" : " pages") << ".\n";
        if (ErrorCounter() > 0)
            return exitcode::kFailed;
        return hits > 0 ? exitcode::kDone : exitcode::kFailed;
    } catch (const ScrivError& error) {
        std::cerr << "scrivant " << command << ": " << error.Description() << "\n";
        return exitcode::kFailed;
    }
}

}  // namespace

int RunCheckLinks(const GlobalOptions& global, const std::string& projectFile)
{
    try {
        CliSession session(global);
        std::optional<ProjectPages> project = LoadProjectPages("check-links", projectFile);
        if (!project)
            return exitcode::kFailed;
        CHtmlRefsChecker checker(UserInterface());
        checker.SetBaseFolder(project->folder);
        std::size_t count = checker.init(project->pages);
        for (const CBrokenLinkRow& row : checker.ReportRows())
            std::cout << Shown(row.PageToolTip, project->folder) << "\t" << row.UrlTag << "\t" << row.UrlText << "\t"
                      << row.ProblemText << "\n";
        if (count == 0 && ErrorCounter() == 0)
            std::cout << "All links are Ok!\n";
        return count == 0 && ErrorCounter() == 0 ? exitcode::kDone : exitcode::kFailed;
    } catch (const ScrivError& error) {
        std::cerr << "scrivant check-links: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
}

int RunFind(const GlobalOptions& global, const TextSearchOptions& options)
{
    return RunTextSearch(global, options, CHTMLFindReplaceAll::kFind);
}

int RunReplace(const GlobalOptions& global, const TextSearchOptions& options)
{
    return RunTextSearch(global, options, CHTMLFindReplaceAll::kReplace);
}

}  // namespace scriv
