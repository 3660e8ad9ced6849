#pragma once

#include <string>

namespace scriv {

struct GlobalOptions;

struct ExportWordOptions {
    std::string project; // the help project file (.svp)
    std::string out; // the document; by default beside the project
    bool linkPictures { false };
    bool pdf { false };
};

// scrivant export-word PROJECT.svp [--out FILE.docx] [--link-pictures] [--pdf]:
// the help project as one Word document, and with --pdf a PDF beside it.
int RunExportWord(const GlobalOptions& global, const ExportWordOptions& options);

}  // namespace scriv
