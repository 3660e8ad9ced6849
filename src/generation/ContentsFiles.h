#pragma once

#include <cstdint>
#include <string>

// The contents file (.hhc), the index file (.hhk) and the browser copy's
// contents tree of a help project: walks over its contents tree that list the
// same topics, skipped and label nodes left out.
namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class clsHHK;

// --- one node and those below it ---
// The node's entry of the contents file with those of its children.
std::string HHCStr(CHelpPrjTreeNode& node, int level, bool skipSerializerNodes, bool excludeControls);
// The node's lines of the browser contents tree; options gets one line per
// node and keyword. Nothing for the root itself.
std::string TreeStr(CHelpPrjTreeNode& node, int level, std::string& options, bool skipSerializerNodes,
    bool excludeControls);
// Adds the index links of the node and its children.
void AddIndexLinks(CHelpPrjTreeNode& node, clsHHK& hhk);
// Reads the documented controls of a form topic's page into its saved
// description; true when they changed.
bool MakeXmlFormControlDefs(CHelpPrjTreeNode& node);

// --- the whole tree ---
// The contents file text.
std::string GetHHCStr(CHelpPrjTree& tree, bool excludeControls = false);
// Writes the contents file in the project's charset (after rotating its
// backups) and clears the tree's NewHtmlHelpProject. 0 on success.
std::uint32_t SaveHHC(CHelpPrjTree& tree, const std::string& path, bool excludeControls = false);
// Fills hhk (emptied first) from the tree and writes the index file. 0 on success.
std::uint32_t MakeAndSaveHHK(CHelpPrjTree& tree, const std::string& path, clsHHK& hhk);
// The browser contents tree (nested list lines) and, in options, its option lines.
std::string GetTreeStr(CHelpPrjTree& tree, std::string& options, bool excludeControls = false);
// Writes the browser copy of the help into the current project's folder: the
// entry page, the contents and index frames and the site search. 0, or the
// code of the reported failure.
std::uint32_t MakeJavaHelp(CHelpPrjTree& tree);

}  // namespace scriv
