#include "server/CScrivActions.h"

#include <memory>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivantParameters.h"
#include "model/CAddInProjects.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"
#include "server/CScrivServerData.h"

namespace scriv {

CScrivActions::CScrivActions(CScrivServer& server)
    : m_server(server)
{
}

CScrivActions::~CScrivActions()
{
    Terminate();
}

void CScrivActions::init()
{
}

void CScrivActions::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
}

std::string CScrivActions::concatProjectsListFromCollection(const std::vector<std::string>& names)
{
    return Join(names, "|");
}

std::uint32_t CScrivActions::Refuse(const std::string& text, std::uint32_t code)
{
    MsgBox(text, msgbox::kExclamation, kMessageBoxTitle, "", 0, "CScrivActions.OpenWizardForm");
    return code;
}

std::uint32_t CScrivActions::OpenNewProject()
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivActions.OpenNewProject", [&] {
        if (!m_server.Data().IsMSAccessDbOpened()) {
            result = status::kNoSourceProject;
            return;
        }
        m_server.Data().LoadSettings(false);
        result = OpenWizardForm(true);
    });
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivActions::OpenProject()
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame("CScrivActions.OpenProject", [&] {
        if (!m_server.Data().IsMSAccessDbOpened()) {
            result = status::kNoSourceProject;
            return;
        }
        m_server.Data().LoadSettings(false);
    });
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivActions::OpenWizardForm(bool ask)
{
    CScrivServerData& data = m_server.Data();
    CScrivServerAgent& agent = m_server.Agent();
    if (!ask)
        data.LoadSettings(false);
    if (!data.IsMSAccessDbOpened())
        return status::kNoSourceProject;

    std::vector<std::string> projects = agent.GetSourceProjectsList();
    if (projects.empty())
        return Refuse("No Projects!", status::kNoProjectsListed);

    std::string settings = Folders().SettingsFolder();
    struct DefinitionFile {
        std::string name;
        const char* message;
        std::uint32_t code;
    };
    const DefinitionFile files[] = {
        { std::string(kProgramBaseName) + "WizardDef.xml", "Wizard form definition file is missing '",
            status::kWizardDefinitionMissing },
        { "CodePages.xml", "Code pages definition file is missing '", status::kCodePagesMissing },
        { "SampleForm.xml", "Sample form definition file is missing '", status::kSampleFormMissing },
        { "SampleForm.jpg", "Sample form picture file is missing '", status::kSampleFormPictureMissing },
    };
    for (const DefinitionFile& file : files) {
        if (!FileExists(settings + file.name))
            return Refuse(file.message + settings + file.name + "'.", file.code);
    }

    std::string name = agent.CurrentSourceProjectName();
    bool listed = false;
    for (const std::string& project : projects)
        listed = listed || (!name.empty() && EqualsNoCase(project, name));
    if (!listed) {
        return Refuse("Source project '" + name + "' not found in the list of available source projects:"
                + std::string(kCrLf) + Join(projects, std::string(kCrLf)),
            status::kNoUniqueProjectName);
    }

    agent.SetCurrentSourceProject(name);
    std::vector<std::string> withFiles;
    for (const std::string& project : projects) {
        agent.SetCurrentSourceProject(project);
        std::string path = agent.CurrentSourceProjectFullPath();
        Trace("Name = " + project + ", Type = " + agent.CurrentSourceProjectTypeName() + ", FullPath = " + path);
        if (!path.empty())
            withFiles.push_back(project);
    }
    agent.SetCurrentSourceProject(name);

    CAddInProjects& registry = data.Projects();
    registry.RemoveTempProjects();
    std::string unique = registry.GetUniqueProjectName(name);
    std::string sourcePath = agent.CurrentSourceProjectFullPath();
    if (unique.empty())
        return Refuse("Can't get unique help project name for source project '" + name + "'.",
            status::kNoUniqueProjectName);

    auto project = std::make_unique<CAddInProject>();
    project->Name = unique;
    project->SourceProjectFullPath = sourcePath;
    CAddInProject* added = registry.Add(std::move(project));
    registry.SetCurrentProject(added);

    CScrivantParameters& parameters = Parameters();
    parameters.ApplicationNameStr = data.NewScrivProjectTitle();
    parameters.SetHelpProjectName(unique);
    parameters.SetHelpProjectTitle(parameters.ApplicationNameStr);
    if (EqualsNoCase(agent.CurrentSourceProjectTypeName(), "ASP.NET")) {
        // Web forms have no screenshot.
        parameters.AddHotSpotsForForm = false;
        parameters.AddImageForForm = false;
        parameters.AddControlsListForMenuList = false;
        parameters.AddControlsSectionForMenuList = false;
    }
    added->HasSeveralSourceProjects = false;
    added->SetSourceProjectsList("");
    if (!withFiles.empty()) {
        added->HasSeveralSourceProjects = true;
        added->SetSourceProjectsList(concatProjectsListFromCollection(withFiles));
    }
    return status::kOk;
}

void CScrivActions::CloseWizardFormOnDisconnection()
{
}

}  // namespace scriv
