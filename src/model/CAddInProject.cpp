#include "model/CAddInProject.h"

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

std::string CAddInProject::PathWithExtension(const char* extension) const
{
    if (FileName.empty())
        return {};
    return AddBackslash(Folder) + FileName + extension;
}

std::string CAddInProject::XmlFormsFolder() const
{
    return AddBackslash(Folder) + "xml/";
}

std::string CAddInProject::PicsSubfolderPath() const
{
    std::string path = AddBackslash(AddBackslash(Folder) + RemoveBackslash(PicsSubfolderName));
    // Every description read asks; a folder found once is taken as there.
    if (!PicsSubfolderName.empty() && path == m_picsFolderFound)
        return path;
    if (PicsSubfolderName.empty() || !FolderExists(path))
        return AddBackslash(Folder) + "images/";
    m_picsFolderFound = path;
    return path;
}

std::string CAddInProject::SourceProjectsList()
{
    if (!m_sourceProjectsListRead) {
        m_sourceProjectsListRead = true;
        if (IHostAgent* agent = CurrentHostAgent())
            m_sourceProjectsList = Join(agent->GetSourceProjectsList(), "|");
    }
    return m_sourceProjectsList;
}

void CAddInProject::RefreshSourceProjectsList()
{
    m_sourceProjectsList.clear();
    m_sourceProjectsListRead = false;
    SourceProjectsList();
}

}  // namespace scriv
