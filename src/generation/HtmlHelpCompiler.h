#pragma once

#include <string>

namespace scriv {

// The help compiler program: the settings' HelpCompilerPath when it is set
// (a path, or a name looked up on PATH), else chmcmd, else hhc on PATH; ""
// when there is none.
std::string HelpCompilerProgram();
// The folder of the compiler, with a final separator, or "".
std::string HelpWorkshopFolder();
bool TestHelpWorkshopInstalled();

// Runs the compiler on a project file, in the project's folder, and answers
// its exit value (-1 when it could not be started). What it printed goes to output.
int RunHelpCompiler(const std::string& hhpPath, std::string* output = nullptr);

// Compiles the current help project when compiling is switched on and a
// compiler exists. True when the step ran; whether a file came out is for
// the copy to find.
bool CompileHtmlHelp();
// Copies the compiled file beside the source project. True when the step ran.
bool CopyCompiledHelp();
// Deletes a file; failures do not count.
void KillFile(const std::string& path);

}  // namespace scriv
