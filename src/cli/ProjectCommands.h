#pragma once

#include <string>

namespace scriv {

struct GlobalOptions;

// scrivant projects: the help projects of the registry.
int RunProjects(const GlobalOptions& global);
// scrivant open PROJECT.svp: loads a project and prints its contents tree.
int RunOpen(const GlobalOptions& global, const std::string& projectFile, const std::string& hostFile);
// scrivant settings [--get NAME | --set NAME=VALUE]
int RunSettings(const GlobalOptions& global, const std::string& get, const std::string& set);
// scrivant new: the wizard of a new help project, then its generation.
int RunNew(const GlobalOptions& global, const std::string& hostFile);

}  // namespace scriv
