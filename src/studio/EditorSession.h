#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "editor/CHtmlRefsChecker.h"
#include "foundation/LoadedForms.h"

namespace scriv {
struct HelpEditorSetup;
class frmHHCEntryIndexKeywords;
class CHTMLFindReplaceAll;
class CXmlFormDescriptions;
class frmHelpEditor;
}  // namespace scriv

namespace scriv::studio {

class EditorTreeView;
class StudioEvents;
class StudioShell;

// The Help Editor as the studio shows it: the program's frmHelpEditor over the
// current help project's contents tree, with the tree mirrored to the page and
// the page's text coming back from the browser. It is the loaded form
// "frmHelpEditor" that the server's guards see, and it carries out the
// editor's commands (recompile, regenerate, the helps, Word export) and the
// project tools (broken links, find and replace) for the page. Lives on the
// logic thread.
//
// Every request of the page answers the editor's state (State). A request may
// carry the page the person is editing, {"text", "source"}, which the editor
// then holds as changed: the page is saved from it before another page is
// shown and when the editor closes.
class EditorSession final : public IHostForm {
public:
    EditorSession(StudioEvents& events, StudioShell& shell);
    ~EditorSession() override;
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;

    // --- opening and closing ---
    // Opens the editor on the current help project's tree (loading it when
    // needed); an open editor is brought forward. 0, or 0x8003FE09 without a
    // help project or tree.
    std::uint32_t Open();
    bool IsOpen() const;

    // ^IHostForm
    std::string FormName() const override { return "frmHelpEditor"; }
    bool IsIconic() const override { return false; }
    bool Visible() const override { return IsOpen(); }
    void SetVisible(bool visible) override;
    void Restore() override { SetVisible(true); }
    void SetFocus() override { SetVisible(true); }
    // Closes the editor: the page is saved when changed, the project when the
    // tree changed, and the page is told.
    void Unload() override;

    // --- the page's requests; each answers State() ---
    // request: the body of the request, whose "page" (if any) the editor takes first.
    nlohmann::json Select(const nlohmann::json& request, const std::string& key);
    nlohmann::json Expand(const nlohmann::json& request, const std::string& key, bool expanded);
    // A key on the tree: its code and the shift bits (1 Shift, 2 Ctrl, 4 Alt).
    nlohmann::json Key(const nlohmann::json& request, int keyCode, int shift);
    // An item of the tree's popup menu ("mnuCut" ...).
    nlohmann::json TreeMenu(const nlohmann::json& request, const std::string& item);
    // Ends a rename with the typed text, or cancels it.
    nlohmann::json Rename(const nlohmann::json& request, const std::optional<std::string>& text);
    // A node dropped on another.
    nlohmann::json Drop(const nlohmann::json& request, const std::string& sourceKey, const std::string& targetKey);
    // Only takes the page the request carries (the person left the page for
    // something else, which may want it).
    nlohmann::json Hold(const nlohmann::json& request);
    // Saves the page the request carries; "saved" in the answer says whether it was.
    nlohmann::json Save(const nlohmann::json& request);
    // The page editor followed a link to path (a "#" part is the bookmark).
    nlohmann::json Navigated(const nlohmann::json& request, const std::string& path);
    // An editor menu command ("Recompile", "GetNewObjects", "OpenHelp",
    // "OpenWebHelp", "OpenHelpFolder", "ExportToWord", "About", "Contents",
    // "Close", "SearchForBrokenLinks"); answers whether it ran.
    bool Command(const nlohmann::json& request, const std::string& name);

    // --- the source view ---
    // The source view's text of a live document of the open page.
    std::string SourceText(const std::string& html) const;
    // Writes the source view's text to "~temp.htp" beside the open page and
    // answers its path; "" without an open page.
    std::string TempPage(const std::string& text);

    // --- the project tools ---
    // Find (mode 0) or replace (1) over all pages: {"mode", "findWhat",
    // "replaceWith", "wholeWord", "matchCase", "htmlMode"}. Answers the number of pages with hits.
    std::size_t FindReplace(const nlohmann::json& request);
    // A button of a report ("broken-links" or "find-replace"): "open" a row,
    // "close", "help".
    nlohmann::json Report(const std::string& report, const std::string& action, std::size_t row);
    // Exports the project to a Word document (target, pictures stored or
    // linked); answers the export's status.
    std::uint32_t WordExport(const std::string& target, bool savePictures);
    // The Word document the export offers first.
    std::string DefaultWordTarget() const;

    // --- the index entries dialog ("Node Index Entries") ---
    // What the person did in the dialog the editor shows: {"action": "add",
    // "delete", "up", "down", "ok", "cancel" or "select", "text": the text box,
    // "selected": the selected entry or null}; answers the dialog as it stands
    // ({"open": false} when none is shown).
    nlohmann::json IndexEntries(const nlohmann::json& request);
    // How long the dialog waits for a page to come back before it is cancelled.
    static constexpr std::chrono::seconds kNoPageGrace { 20 };

    // --- for the page ---
    nlohmann::json State() const;
    nlohmann::json Tree() const;
    // The text the page editor shows for path when the editor holds it changed
    // (a renamed title, or text the page sent); nothing otherwise, and the file
    // is shown as it stands.
    std::optional<std::string> HeldPageText(const std::string& path) const;

private:
    // Takes the page a request carries, if any.
    void TakePage(const nlohmann::json& request);
    // Runs a step of the editor and answers the state; the page is reloaded
    // in the browser when the step changed what it shows.
    template<typename F>
    nlohmann::json Step(const nlohmann::json& request, F step);
    void NoteShownPage();
    void Publish(const nlohmann::json& event) const;
    void Changed() const;
    void InstallCommands(HelpEditorSetup& setup);
    void InstallTools();
    // What follows the editor's closing, however it closed.
    void Closed();
    // Ends the editors that closed while one of their own calls ran.
    void ForgetClosedEditors();
    // Shows the index entries dialog and turns the loop until it is closed.
    void ShowIndexEntries(frmHHCEntryIndexKeywords& dialog);
    nlohmann::json IndexDialogJson() const;

    StudioEvents& m_events;
    StudioShell& m_shell;
    std::unique_ptr<EditorTreeView> m_view;
    std::unique_ptr<CXmlFormDescriptions> m_descriptions;
    std::vector<std::unique_ptr<CXmlFormDescriptions>> m_oldDescriptions;
    std::unique_ptr<frmHelpEditor> m_editor;
    std::vector<std::unique_ptr<frmHelpEditor>> m_closed;
    std::unique_ptr<CHtmlRefsChecker> m_linkChecker;
    std::unique_ptr<CHTMLFindReplaceAll> m_search;
    frmHHCEntryIndexKeywords* m_indexDialog { nullptr };
    std::string m_projectName;
    std::string m_projectFolder;
    std::string m_imageFolder;
    // The page as the browser shows it, to tell when it must be shown anew.
    std::string m_shownText;
    std::string m_shownPage;
    std::uint64_t m_pageVersion { 0 };
    std::uint64_t m_findSerial { 0 };
    // The held text is the source view's text rather than a live document.
    bool m_heldIsSource { false };
    int m_depth { 0 };
    // The reports that are up.
    std::vector<CBrokenLinkRow> m_brokenLinks;
    bool m_brokenLinksShown { false };
    nlohmann::json m_findReport;
    // The texts searched for and replaced with before, newest first.
    std::vector<std::string> m_findTexts;
    std::vector<std::string> m_replaceTexts;
    bool m_wholeWord { false };
    bool m_matchCase { false };
};

}  // namespace scriv::studio
