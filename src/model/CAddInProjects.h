#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/KeyedCollection.h"
#include "model/CAddInProject.h"

namespace pugi {
class xml_node;
}

namespace scriv {

// The help projects known on this machine, keyed by name, and the current one.
// The list lives in a small XML file of its own (the registry); title and
// images folder of each project are read from its project file, never stored.
class CAddInProjects {
public:
    // --- the registry file ---

    // Reads the registry at path; runs once, and a call made while it runs or
    // after it does nothing. A missing file is written empty first (its folder
    // created). Without a path, or when the file cannot be made, an error box
    // says so and the list stays empty. A file that does not parse is replaced
    // by its ".bak" copy when there is one; failing that it raises 0x80040002
    // "XML Projects file parse error [reason]", and a file without a Projects
    // element raises 0x80040001. A project whose project file does not parse is
    // reported (0x80040003) and left out; the others load.
    void init(const std::string& path);
    bool Initialised() const { return m_initialised; }
    // The registry file given to init, or "".
    const std::string& Path() const { return m_path; }

    // Writes the current project's file through the loaded tree (when the tree
    // has a root), then the registry: the old file is kept as ".bak", the new
    // one is loaded back as a test and the ".bak" put back when that fails.
    // With newProjectAttributes the root element of the project file carries
    // the project's Name, SUID and HUID. Every project written is no longer new.
    // 0, or the code of the failure (reported).
    std::uint32_t Save(bool newProjectAttributes = true);
    // Save, when there is a current project with a project file path; else 0.
    std::uint32_t SaveCurrentProject();
    // The registry text that Save writes: one line per project that has a
    // project file path, every line ending in CR LF.
    std::string RegistryText() const;

    // --- the list ---

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

    // The project file paths of the help projects of the host's current source
    // project, from the last registered to the first. A project of that source
    // whose project file is gone is dropped from the list on the way.
    std::vector<std::string> CurrentSourceProjectSvpProjects();

private:
    void LoadRegistry();
    // Builds one project of a registry element; nothing when its project file
    // does not parse (raises 0x80040003 for the caller to report).
    std::unique_ptr<CAddInProject> ReadProject(const pugi::xml_node& element) const;
    void SaveProjectFile(bool newProjectAttributes);
    std::uint32_t WriteRegistry();
    void RemoveAt(std::size_t position);

    KeyedCollection<std::unique_ptr<CAddInProject>> m_projects;
    CAddInProject* m_current { nullptr };
    std::string m_path;
    bool m_initialised { false };
    bool m_loading { false };
};

}  // namespace scriv
