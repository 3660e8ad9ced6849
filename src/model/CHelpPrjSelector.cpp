#include "model/CHelpPrjSelector.h"

#include <filesystem>

#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/System.h"
#include "foundation/Version.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjTree.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

constexpr const char* kSetCurrentSource = "CHelpPrjSelector.SetCurrent";

void Warn(const std::string& text)
{
    MsgBox(text, msgbox::kExclamation, kMessageBoxTitle, "", 0, kSetCurrentSource);
}

// The registry compares project file paths as text, so a path typed relative
// to the working folder is made whole first.
std::string AbsolutePath(const std::string& path)
{
    std::string native = ToNativePath(path);
    if (native.empty() || IsAbsolutePath(native))
        return native;
    std::error_code error;
    std::filesystem::path whole = std::filesystem::absolute(native, error);
    return error ? native : whole.lexically_normal().string();
}

}  // namespace

void CHelpPrjSelector::init()
{
    m_context = CurrentRunContext();
    if (!m_context)
        Raise(status::kGeneralFailure, "CHelpPrjSelector.init", "No server is connected.");
    m_context->LoadSettings(true);
}

void CHelpPrjSelector::Terminate()
{
    m_context = nullptr;
}

CAddInProjects& CHelpPrjSelector::Registry()
{
    if (!m_context)
        Raise(status::kGeneralFailure, "CHelpPrjSelector", "The selector has not been initialised.");
    return m_context->Projects();
}

std::vector<std::string> CHelpPrjSelector::ExistingProjects()
{
    return Registry().CurrentSourceProjectSvpProjects();
}

std::size_t CHelpPrjSelector::ExistingProjectsCount()
{
    return ExistingProjects().size();
}

std::uint32_t CHelpPrjSelector::SetCurrent(const std::string& fullPath, bool regenerate)
{
    std::uint32_t result = status::kAbandoned;
    std::uint32_t failure = ErrorFrame(kSetCurrentSource, [&] { result = Select(fullPath, regenerate); });
    return failure != 0 ? failure : result;
}

std::uint32_t CHelpPrjSelector::Select(std::string fullPath, bool regenerate)
{
    CAddInProjects& registry = Registry();
    if (fullPath.empty()) {
        std::vector<std::string> existing = ExistingProjects();
        if (!existing.empty())
            fullPath = existing.front();
    }
    if (fullPath.empty())
        return status::kAbandoned;
    fullPath = AbsolutePath(fullPath);
    if (!FileExists(fullPath)) {
        Warn("Help project file doesn't exist: " + fullPath);
        return status::kAbandoned;
    }

    CAddInProject* definition = registry.GetProjectDefinitionBySvpFullPath(fullPath);
    if (!definition) {
        std::uint32_t result = status::kOk;
        definition = RegisterForeignProject(fullPath, result);
        if (!definition)
            return result;
    }

    CHelpPrjTree* loaded = m_context->LoadedTree();
    if (loaded && loaded->Root()) {
        registry.SaveCurrentProject();
        m_context->UnloadTreeOfActiveProject();
    }
    registry.SetCurrentProject(definition);
    if (regenerate)
        return m_context->LoadTreeOfActiveProject(true);
    return status::kOk;
}

CAddInProject* CHelpPrjSelector::RegisterForeignProject(const std::string& fullPath, std::uint32_t& result)
{
    CAddInProjects& registry = Registry();
    // Nothing of the current project may be read while the foreign file loads.
    registry.SetCurrentProject(nullptr);
    CHelpPrjTree tree;
    result = tree.Load(fullPath, false);
    if (result != 0)
        return nullptr;
    CHelpPrjTreeNode* root = tree.Root();
    if (!root) {
        result = status::kAbandoned;
        return nullptr;
    }

    auto project = std::make_unique<CAddInProject>();
    project->Name = root->Name();
    // A project file without a name still needs a key in the registry.
    if (project->Name.empty())
        project->Name = FileBaseName(fullPath);
    project->SetTitle(root->HtmlTitle());
    project->FileName = FileBaseName(fullPath);
    project->Folder = FolderOf(fullPath);
    project->PicsSubfolderName = root->PicsSubfolderName();
    project->SourceProjectFullPath = m_context->Agent().CurrentSourceProjectFullPath();
    project->SUID = registry.ExistingSUIDForGivenSourceProject(project->SourceProjectFullPath);
    project->HUID = NewGuid();
    project->IsNew = true;
    tree.Terminate();

    if (registry.ProjectExists(project->Name)) {
        Warn("Project name already defined - " + project->Name);
        result = status::kAbandoned;
        return nullptr;
    }
    result = status::kOk;
    return registry.Add(std::move(project));
}

}  // namespace scriv
