#pragma once

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "wordexport/clsMSWordExportFile.h"

namespace scriv {

// The pages of a Word export, in the order of the contents.
class clsMSWordExportFiles {
public:
    std::vector<std::unique_ptr<clsMSWordExportFile>> Files;

    // Adds a page; a page that is in the list already is not added again.
    // Answers whether it was added.
    bool Add(const std::string& fullPath, int level, const std::string& bookmark = {});
    std::size_t Count() const { return Files.size(); }

    // File name in lower case -> the page's anchor, for every page of the list.
    std::unordered_map<std::string, std::string> AnchorsByFileName() const;

    // Loads each page, rewrites it (RefactorHeadings) and writes its copy
    // (SaveFile), then lets the page go. A page that cannot be read or whose
    // copy cannot be written is traced and skipped. Before each page step(i)
    // is called with its position from 0; when it answers false the work stops
    // and Refactor answers false.
    bool Refactor(const std::function<bool(std::size_t)>& step = {});
    // Removes every copy that Refactor wrote; the pages stay as they are.
    void DeleteRefactoredFiles();
    // Drops the pages' documents and empties the list.
    void Terminate();
};

}  // namespace scriv
