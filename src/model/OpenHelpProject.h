#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Opening an existing help project, as the command line and the studio's page
// both offer it: a list of choices, then the choice opened through
// CHelpPrjSelector, with a question when the project has read-only files.
namespace scriv {

class CAddInProject;

// The last row of the choices; picking it asks for a project file.
inline constexpr std::string_view kMoreFilesChoice = "More Files...";

// The project files of the host's current source project, newest first, then
// "More Files...". Needs a connected server.
std::vector<std::string> OpenHelpProjectChoices();

// Asks the person for a project file ("Scrivant Project (SVP)", "*.svp"),
// starting in startFolder; nothing when they cancel.
std::optional<std::string> ChooseHelpProjectFile(const std::string& startFolder = {});

// The number of files in a folder that carry the read-only mark (0 for a
// folder that does not exist).
int GetQtyOfReadOnlyFiles(const std::string& folder);
// The read-only files of a project: those of its folder, else of its XML forms
// folder, else of its images folder; the first folder that has any counts.
int ReadOnlyFilesOfProject(const CAddInProject& project);
// The question put when a project has read-only files.
std::string ReadOnlyFilesQuestion();

// Opens a choice: a project file, or "More Files...", which asks for one
// first. The project becomes current through CHelpPrjSelector (with
// regenerate, its tree is loaded too). When it has read-only files the person
// is asked whether to go on. 0 when the project is open; 0x8003FE09 when the
// person cancels or says No; else the code of CHelpPrjSelector::SetCurrent.
std::uint32_t OpenHelpProjectChoice(const std::string& choice, bool regenerate = false);

}  // namespace scriv
