#pragma once

#include <string>

namespace scriv {

// The compiled help of a project and where it goes.
class CScrivCompiler {
public:
    // The help file beside the source project: its folder, the base name of the
    // compiled help, ".chm".
    std::string SourceFolderHelpFilePath() const;
    // Whether the help file beside the source project can be replaced: a file
    // that is held open cannot. True when there is no such file.
    bool HelpFileCanBeOverwritten() const;
};

}  // namespace scriv
