#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace scriv {

class CAddInProject;
class CAddInProjects;
class IRunContext;

// Makes a help project the current one: a project of the registry, or a
// project file from elsewhere, which is then registered as a new project of
// the host's current source project. Works on the registry of the current server.
class CHelpPrjSelector {
public:
    // Binds to the current server's registry, loading the settings and the
    // registry first when that has not happened. Raises 0x80040001 without a server.
    void init();
    void Terminate();

    // The project files of the help projects of the host's current source
    // project, newest registration first (projects whose file is gone are
    // dropped from the registry on the way).
    std::vector<std::string> ExistingProjects();
    std::size_t ExistingProjectsCount();

    // Makes the project of a project file current. An empty path takes the
    // first of ExistingProjects. A project file the registry does not know is
    // registered as a new project. Before the switch, a loaded tree is saved
    // with its project and unloaded; with regenerate the generator then loads
    // the new project's tree. 0 on success; 0x8003FE09 when there is no
    // project, the file is missing or its name is taken (the last two with a
    // warning); the code of a project file that does not load.
    std::uint32_t SetCurrent(const std::string& fullPath, bool regenerate);

private:
    std::uint32_t Select(std::string fullPath, bool regenerate);
    // Registers a project file that the registry does not know. Nothing, with
    // the code in result, when it cannot be.
    CAddInProject* RegisterForeignProject(const std::string& fullPath, std::uint32_t& result);
    CAddInProjects& Registry();

    IRunContext* m_context { nullptr };
};

}  // namespace scriv
