#include "generation/CScrivCompiler.h"

#include "foundation/Paths.h"
#include "generation/CScrivantParameters.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerAgent.h"

namespace scriv {

std::string CScrivCompiler::SourceFolderHelpFilePath() const
{
    CScrivServer* server = CurrentServer();
    std::string source = server ? server->Agent().CurrentSourceProjectFullPath() : std::string();
    return AddBackslash(FolderOf(source)) + FileBaseName(Parameters().CompiledHelpFullPath()) + ".chm";
}

bool CScrivCompiler::HelpFileCanBeOverwritten() const
{
    std::string target = SourceFolderHelpFilePath();
    std::string temporary = FolderOf(target) + "~" + FileBaseName(Parameters().CompiledHelpFullPath()) + ".tmp";
    bool writable = true;
    if (FileExists(target)) {
        // Copying the file away and back tells whether it is held or read-only.
        writable = CopyFileOver(target, temporary) && !IsReadOnly(target) && CopyFileOver(temporary, target);
    }
    DeleteFileIfExists(temporary);
    return writable;
}

}  // namespace scriv
