#pragma once

#include <cstdint>
#include <string>

#include "wordexport/clsMSWordExportFiles.h"

namespace scriv {

class CHelpPrjTreeNode;
class IUserInterface;
class OoxmlPackage;

// The help project a Word export is made of.
struct WordExportProject {
    std::string name; // the help project's name
    std::string title; // shown by the document's title field
    std::string folder; // where the project's pages lie, with a final separator
};

// Turns a help project into one Word document (.docx) made from the template
// "WordDocTemplate.dotx": its title, a table of contents, and every page of
// the contents tree in order, each topic's heading at the depth of its node.
// Progress, the person's Cancel and the questions go through an
// IUserInterface, so that a dialog or the command line can drive it.
class clsMSWordExport {
public:
    // The document is saved after every kSaveInterval pages (before pages 51, 101 ...).
    static constexpr int kSaveInterval = 50;
    // Status of an export that was cancelled; the document stays as last saved.
    static constexpr std::uint32_t kCancelled = 0x8003FE09;
    // Status of an export that stopped because its document exists.
    static constexpr std::uint32_t kTargetExists = 0x80040001;

    explicit clsMSWordExport(IUserInterface& ui);

    // --- before the export ---
    // The pages of the export: the tree walked from root, a skipped node left
    // out with everything below it, control and menu nodes passed over (their
    // page is their form's). The root gives the project's name with ".htm"
    // when that page exists, else its own page; every other node its page,
    // each page once.
    static clsMSWordExportFiles FillHtmlFileNames(const CHelpPrjTreeNode& root, const WordExportProject& project);
    // The project folder, the project's name, " documentation" and ".docx".
    static std::string DefaultTargetPath(const WordExportProject& project);
    // Where the template is: "WordDocTemplate.dotx" among the templates, else
    // the folder of its readable parts "WordDocTemplate/" there.
    static std::string TemplateFullPath();
    // The template package; raises ScrivError 0x80040001 naming the template
    // when it is missing or unreadable.
    static OoxmlPackage LoadTemplate(const std::string& templatePath);

    // --- the export ---
    // Writes the document of the pages below root to target. When target
    // exists and replace is false, says so and answers kTargetExists. With
    // savePictures the pictures are stored in the document, else linked to
    // their files. The document is saved as it grows (see kSaveInterval);
    // between pages the person may cancel (kCancelled). The pages' rewritten
    // copies are removed whatever happens. A failure is reported through the
    // error frame under "clsMSWordExport.Export" and its code answered; 0 when
    // the document is complete.
    std::uint32_t Export(const CHelpPrjTreeNode& root, const WordExportProject& project, const std::string& target,
        bool replace, bool savePictures);

    // What the dialog's OK does: when target exists the person is asked
    // whether to replace it (No answers kCancelled, nothing written), the
    // export runs, and on success "Export to MS Word finished OK." is shown.
    // Answers Export's status.
    std::uint32_t ExportAndReport(const CHelpPrjTreeNode& root, const WordExportProject& project,
        const std::string& target, bool savePictures);

    // The number of pages put into the last document written.
    int ImportedCount() const { return m_imported; }

private:
    std::uint32_t RunExport(clsMSWordExportFiles& files, const WordExportProject& project, const std::string& target,
        bool savePictures);
    bool Cancelled();

    IUserInterface& m_ui;
    int m_imported { 0 };
};

}  // namespace scriv
