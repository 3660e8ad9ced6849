#include "generation/HtmlHelpCompiler.h"

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "generation/CScrivCompiler.h"
#include "model/CAddInProject.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

std::string HelpCompilerProgram()
{
    std::string configured = Trim(Parameters().HelpCompilerPath);
    if (!configured.empty()) {
        // A compiler named in the settings is the one wanted, or none.
        std::string found = FindProgramOnPath(configured);
        if (found.empty())
            Trace("HelpCompilerProgram: the help compiler '" + configured + "' is not there");
        return found;
    }
    for (const char* name : { "chmcmd", "hhc" }) {
        std::string found = FindProgramOnPath(name);
        if (!found.empty())
            return found;
    }
    return {};
}

std::string HelpWorkshopFolder()
{
    std::string program = HelpCompilerProgram();
    return program.empty() ? std::string() : FolderOf(program);
}

bool TestHelpWorkshopInstalled()
{
    return !HelpWorkshopFolder().empty();
}

int RunHelpCompiler(const std::string& hhpPath, std::string* output)
{
    std::string program = HelpCompilerProgram();
    if (program.empty())
        return -1;
    // The project file names its files relative to its own folder.
    std::string folder = FolderOf(hhpPath);
    std::string captured;
    int code = ShellAndWait({ program, FileNameOf(hhpPath) }, &captured, folder);
    Trace("RunHelpCompiler: \"" + program + "\" \"" + hhpPath + "\" gave " + std::to_string(code));
    if (output)
        *output = captured;
    return code;
}

bool CompileHtmlHelp()
{
    CAddInProject* project = CurrentAddInProject();
    if (!project || !Parameters().CompileHTMLHelp || !TestHelpWorkshopInstalled())
        return true;
    std::string output;
    int code = RunHelpCompiler(project->HHPFullPath(), &output);
    if (code != 0)
        Trace("CompileHtmlHelp: the compiler said: " + output);
    return true;
}

bool CopyCompiledHelp()
{
    CAddInProject* project = CurrentAddInProject();
    std::string target = CScrivCompiler::SourceFolderHelpFilePath();
    if (project && !target.empty() && FileExists(project->CHMFullPath()) && project->CHMFullPath() != target)
        CopyFileOver(project->CHMFullPath(), target);
    return true;
}

void KillFile(const std::string& path)
{
    DeleteFileIfExists(path);
}

}  // namespace scriv
