#include "wordexport/clsMSWordExportFiles.h"

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

bool clsMSWordExportFiles::Add(const std::string& fullPath, int level, const std::string& bookmark)
{
    for (const auto& file : Files)
        if (file->FullPath() == fullPath)
            return false;
    Files.push_back(std::make_unique<clsMSWordExportFile>(fullPath, level, bookmark));
    return true;
}

std::unordered_map<std::string, std::string> clsMSWordExportFiles::AnchorsByFileName() const
{
    std::unordered_map<std::string, std::string> anchors;
    for (const auto& file : Files)
        anchors.emplace(ToLower(FileNameOf(file->FullPath())), file->FileNameNoExt());
    return anchors;
}

bool clsMSWordExportFiles::Refactor(const std::function<bool(std::size_t)>& step)
{
    std::unordered_map<std::string, std::string> anchors = AnchorsByFileName();
    for (std::size_t i = 0; i < Files.size(); ++i) {
        if (step && !step(i))
            return false;
        clsMSWordExportFile& file = *Files[i];
        if (!file.Load()) {
            Trace("clsMSWordExportFiles.Refactor: the page cannot be read and is left out: '" + file.FullPath() + "'");
            continue;
        }
        Trace("clsMSWordExportFiles.Refactor: " + file.FullPath() + ", HtmlDocNodesCount = "
            + std::to_string(file.HtmlDocNodesCount()));
        file.RefactorHeadings(anchors);
        if (!file.SaveFile())
            Trace("clsMSWordExportFiles.Refactor: the copy cannot be written: '" + file.RefactoredFullPath() + "'");
        file.Terminate();
    }
    return true;
}

void clsMSWordExportFiles::DeleteRefactoredFiles()
{
    for (const auto& file : Files)
        DeleteFileIfExists(file->RefactoredFullPath());
}

void clsMSWordExportFiles::Terminate()
{
    for (const auto& file : Files)
        file->Terminate();
    Files.clear();
}

}  // namespace scriv
