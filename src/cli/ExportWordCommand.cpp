#include "cli/ExportWordCommand.h"

#include <filesystem>
#include <iostream>

#include "cli/CliSession.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CHelpPrjTree.h"
#include "wordexport/WordPdf.h"
#include "wordexport/clsMSWordExport.h"

namespace scriv {

namespace {

std::string Absolute(const std::string& path)
{
    return IsAbsolutePath(path) ? path : JoinPath(std::filesystem::current_path().string(), path);
}

}  // namespace

int RunExportWord(const GlobalOptions& global, const ExportWordOptions& options)
{
    std::string projectFile = Absolute(options.project);
    if (!FileExists(projectFile)) {
        std::cerr << "scrivant export-word: the help project '" << projectFile << "' does not exist.\n";
        return exitcode::kFailed;
    }
    if (options.pdf && FindLibreOffice().empty()) {
        std::cerr << "scrivant export-word: --pdf needs LibreOffice (soffice), which is not installed.\n";
        return exitcode::kFailed;
    }
    try {
        // Exporting reads the project file alone: neither a host nor the registry is needed.
        CliSession session(global);
        CHelpPrjTree tree;
        std::uint32_t status = tree.Load(projectFile, false);
        CHelpPrjTreeNode* root = tree.Root();
        if (status != 0 || !root) {
            std::cerr << "scrivant export-word: the contents of '" << projectFile << "' cannot be read.\n";
            return exitcode::kFailed;
        }

        WordExportProject project;
        project.name = root->Name().empty() ? FileBaseName(projectFile) : root->Name();
        project.folder = FolderOf(projectFile);
        project.title = root->HtmlTitle().empty() ? project.name : root->HtmlTitle();
        std::string target = options.out.empty() ? clsMSWordExport::DefaultTargetPath(project) : Absolute(options.out);

        clsMSWordExport exporter(UserInterface());
        status = exporter.ExportAndReport(*root, project, target, !options.linkPictures);
        tree.Terminate();
        if (status != 0)
            return ExitCodeOf(status);
        std::cout << "Word document: " << target << " (" << exporter.ImportedCount() << " pages)\n";

        if (options.pdf) {
            std::string pdf = FolderOf(target) + FileBaseName(target) + ".pdf";
            ConvertToPdf(target, pdf);
            std::cout << "PDF: " << pdf << "\n";
        }
        return exitcode::kDone;
    } catch (const ScrivError& error) {
        std::cerr << "scrivant export-word: " << error.Description() << "\n";
        return exitcode::kFailed;
    }
}

}  // namespace scriv
