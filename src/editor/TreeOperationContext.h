#pragma once

#include <functional>
#include <string>

namespace scriv {

class frmHHCEntryIndexKeywords;
class IFormDescriptions;

// The page of a new topic, to be written from a template.
struct NewTopicPage {
    std::string templatePath;
    std::string targetPath;
    // Title and first heading of the page.
    std::string title;
    std::string charset;
    std::string cssFullPath;
};

// What the tree operations need of the open help project and of the layers
// above the editor. The studio (or whoever opens the editor) fills it once per
// open project.
struct TreeOperationContext {
    // The project folder, with a final separator: new and added pages live here.
    std::string projectFolder;
    // The folder of the saved form descriptions, with a final separator.
    std::string xmlFormsFolder;
    // Full path of the template of a new topic ("Default.htm" of the project's templates).
    std::string newTopicTemplate;
    // The generation options that new pages and control nodes follow.
    std::string charset;
    std::string cssFullPath;
    // Control and menu nodes show the controls' names instead of their
    // headings (the generation option IdentifyControls is 1).
    bool useControlNames { false };

    // Writes the page of a new topic (title, heading, charset, style sheet, an
    // empty body and the browser-help script) and answers whether it was
    // written. Without it a new topic gets its node but no page, which the
    // editor then shows from the template until the first save.
    std::function<bool(const NewTopicPage&)> writeNewTopicPage;
    // Fits a page that was added to the project to it: the style sheet link and
    // the page's own references. Called only when cssFullPath is set.
    std::function<void(const std::string& pagePath, const std::string& cssFullPath)> adoptAddedPage;
    // Shows the index entries dialog modally and returns when it is closed; the
    // dialog's IsValid then says whether the person confirmed. Without it no
    // index can be edited.
    std::function<void(frmHHCEntryIndexKeywords&)> showIndexEntries;
    // The saved form descriptions, for the control and menu nodes of form
    // topics; may be nothing.
    IFormDescriptions* formDescriptions { nullptr };
    // A short sound for a refused operation; may be empty.
    std::function<void()> beep;
};

}  // namespace scriv
