#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/KeyedCollection.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class CScrivant;

// Keeps a help project up to date. Recompiling rewrites the derived files
// (project file, contents, index, browser help, checksums) and the compiled
// help from the pages as they stand; regenerating first adds a topic for
// every object the application has gained, and writes only those topics.
// Made for one call.
class CScrivCompiler {
public:
    // Works on the engine's loaded tree of the current project.
    explicit CScrivCompiler(CScrivant& engine);
    ~CScrivCompiler();

    // quiet: do not offer to open the result; webOnly: no compiler run.
    std::uint32_t RecompileHelpProject(bool quiet, bool webOnly);
    std::uint32_t RegenerateHelpProject();

    // Collects the objects of the source project that have no node yet.
    void FindNewSourceObjects();
    // Adds the new nodes under their list nodes and links them in the list pages.
    void AddNewFormsAndReports();
    bool NewObjectFound() const;
    // One line per new object: "Form: name" ...
    std::string DescribeNewObjects() const;
    // The help file beside the source project: its folder, the base name of the
    // compiled help, ".chm"; "" without a source project.
    static std::string SourceFolderHelpFilePath();
    // Whether the help file beside the source project can be replaced: a file
    // that is held open cannot. True when there is no such file.
    static bool HelpFileCanBeOverwritten();

    // A node of that type word and name, of that source project or of none.
    static bool NodeExists(const KeyedCollection<CHelpPrjTreeNode*>& map, const std::string& objectName,
        const std::string& typeWord, const std::string& projectName);

private:
    // Forms, reports, tables, queries, macros, worksheets, charts.
    static constexpr std::size_t kGroups = 7;
    struct Group {
        std::vector<std::unique_ptr<CHelpPrjTreeNode>> nodes;
        CHelpPrjTreeNode* parent { nullptr };
    };

    std::uint32_t RecompileHelpProject1(bool quiet, bool webOnly);
    void ReleaseStep(bool hourglassOff);
    void LocateListNodes(CHelpPrjTreeNode* node);

    CScrivant& m_engine;
    std::array<Group, kGroups> m_groups;
    bool m_progressShown { false };
};

}  // namespace scriv
