#include "model/CAddInProjects.h"

#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"

namespace scriv {

CAddInProject* CAddInProjects::Add(std::unique_ptr<CAddInProject> project)
{
    if (CAddInProject* existing = Project(project->Name))
        return existing;
    if (project->HUID.empty())
        project->HUID = NewGuid();
    if (project->SUID.empty()) {
        project->SUID = ExistingSUIDForGivenSourceProject(project->SourceProjectFullPath);
        if (project->SUID.empty())
            project->SUID = NewGuid();
    }
    CAddInProject* raw = project.get();
    std::string key = project->Name;
    m_projects.Add(std::move(key), std::move(project));
    return raw;
}

bool CAddInProjects::ProjectExists(const std::string& name) const
{
    return m_projects.Contains(name);
}

bool CAddInProjects::IsSavedProject(const std::string& name) const
{
    CAddInProject* project = Project(name);
    return project && !project->IsNew;
}

CAddInProject* CAddInProjects::Project(const std::string& name) const
{
    const auto* entry = m_projects.Find(name);
    return entry ? entry->get() : nullptr;
}

std::vector<CAddInProject*> CAddInProjects::Projects() const
{
    std::vector<CAddInProject*> list;
    for (const auto& entry : m_projects)
        list.push_back(entry.value.get());
    return list;
}

std::string CAddInProjects::GetUniqueProjectName(const std::string& name) const
{
    if (!IsSavedProject(name))
        return name;
    for (int i = 1; i <= 255; ++i) {
        std::string candidate = name + std::to_string(i);
        if (!IsSavedProject(candidate))
            return candidate;
    }
    Raise(status::kGeneralFailure, "CAddInProjects.GetUniqueProjectName", "Unable to get unique project name for " + name);
}

bool CAddInProjects::ChangeCurrentProjectName(const std::string& name)
{
    if (!m_current)
        return false;
    CAddInProject* holder = Project(name);
    if (holder && holder != m_current)
        return false;
    // The registry is keyed by name, so the entry moves to its new key in place.
    auto index = m_projects.IndexOf(m_current->Name);
    m_current->Name = name;
    if (index) {
        auto project = std::move(m_projects.At(*index).value);
        m_projects.RemoveAt(*index);
        m_projects.Insert(*index, name, std::move(project));
    }
    return true;
}

void CAddInProjects::RemoveTempProjects()
{
    for (std::size_t i = m_projects.Count(); i-- > 0;) {
        if (m_projects.At(i).value->IsNew) {
            if (m_current == m_projects.At(i).value.get())
                m_current = nullptr;
            m_projects.RemoveAt(i);
        }
    }
}

std::string CAddInProjects::ExistingSUIDForGivenSourceProject(const std::string& fullPath) const
{
    for (const auto& entry : m_projects)
        if (EqualsNoCase(entry.value->SourceProjectFullPath, fullPath))
            return entry.value->SUID;
    return {};
}

CAddInProject* CAddInProjects::GetProjectDefinitionBySvpFullPath(const std::string& fullPath) const
{
    for (const auto& entry : m_projects)
        if (EqualsNoCase(entry.value->SVPFullPath(), fullPath))
            return entry.value.get();
    return nullptr;
}

}  // namespace scriv
