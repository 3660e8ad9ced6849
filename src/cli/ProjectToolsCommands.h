#pragma once

#include <string>

namespace scriv {

struct GlobalOptions;

struct TextSearchOptions {
    std::string project; // the help project file (.svp)
    std::string findWhat;
    std::string replaceWith;
    bool wholeWord { false };
    bool matchCase { false };
    bool source { false }; // search the pages' source, tags and attributes included
};

// scrivant check-links PROJECT.svp: one line per broken link (page, tag,
// target, problem) and exit code 1, or "All links are Ok!" and 0.
int RunCheckLinks(const GlobalOptions& global, const std::string& projectFile);
// scrivant find PROJECT.svp TEXT: the pages with hits and the count; exit code
// 0 with a hit, 1 without.
int RunFind(const GlobalOptions& global, const TextSearchOptions& options);
// scrivant replace PROJECT.svp FIND REPLACE: replaces in every page and names
// the pages changed; exit code 0 with a hit, 1 without.
int RunReplace(const GlobalOptions& global, const TextSearchOptions& options);

}  // namespace scriv
