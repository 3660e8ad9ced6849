// The tree's door to the checksums of the current project's pages.

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

// A run-time session only shows help; it tracks no pages.
bool RuntimeMode()
{
    IRunContext* context = CurrentRunContext();
    return context && context->State().Runtime;
}

// Reads the current project's checksum file and computes the sums of its pages.
void InitCheckSums(CHelpPrjCheckSums& store)
{
    if (RuntimeMode())
        return;
    CAddInProject* project = CurrentAddInProject();
    if (!project)
        return;
    std::string folder = AddBackslash(project->Folder);
    if (store.init(folder, folder, Parameters().HelpProjectName()) == status::kOk)
        store.Recalc();
}

}  // namespace

CHelpPrjCheckSums& CHelpPrjTree::CheckSums()
{
    if (!m_checkSums)
        m_checkSums = std::make_unique<CHelpPrjCheckSums>();
    // A store that found no project yet tries again once there is one.
    if (!m_checkSums->Initialized())
        InitCheckSums(*m_checkSums);
    return *m_checkSums;
}

std::uint32_t CHelpPrjTree::SaveCheckSums(bool keepPrevious)
{
    return CheckSums().Save(keepPrevious);
}

CHelpPrjFileCheckSum* CHelpPrjTree::GetCheckSumObject(const std::string& fullPath, bool recompute)
{
    CHelpPrjCheckSums& store = CheckSums();
    if (!store.Initialized())
        return nullptr;
    return store.GetCheckSumObject(fullPath, recompute);
}

}  // namespace scriv
