#pragma once

#include <memory>
#include <string>
#include <vector>

#include "foundation/KeyedCollection.h"
#include "model/CAddInProject.h"

namespace scriv {

// The help projects known on this machine, keyed by name, and the current one.
class CAddInProjects {
public:
    // Adds a project unless one of its name exists; gives it a HUID, and the SUID
    // of an earlier help project of the same source project or a new one.
    // Answers the project in the list (the existing one when the name was taken).
    CAddInProject* Add(std::unique_ptr<CAddInProject> project);
    bool ProjectExists(const std::string& name) const;
    // A project of that name that has been saved (IsNew false).
    bool IsSavedProject(const std::string& name) const;
    CAddInProject* Project(const std::string& name) const;
    std::size_t Count() const { return m_projects.Count(); }
    std::vector<CAddInProject*> Projects() const;

    void SetCurrentProject(CAddInProject* project) { m_current = project; }
    CAddInProject* CurrentProject() const { return m_current; }

    // The name itself when no saved project has it, else the first of name1 to
    // name255 that is free. Raises 0x80040001 when none is.
    std::string GetUniqueProjectName(const std::string& name) const;
    bool ChangeCurrentProjectName(const std::string& name);
    // Drops every project that was never saved.
    void RemoveTempProjects();
    std::string ExistingSUIDForGivenSourceProject(const std::string& fullPath) const;
    CAddInProject* GetProjectDefinitionBySvpFullPath(const std::string& fullPath) const;

private:
    KeyedCollection<std::unique_ptr<CAddInProject>> m_projects;
    CAddInProject* m_current { nullptr };
};

}  // namespace scriv
