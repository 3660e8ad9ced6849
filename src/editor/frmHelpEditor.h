#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/CHelpPrjTreeMenu.h"
#include "editor/TreeOperationContext.h"

namespace scriv {

class CHelpPrjTree;
class ITreeView;

// Writes the text of a page to its file, as the stored page text must be
// written (through the HTML beautifier); answers whether it was written.
using PageTextWriter = std::function<bool(const std::string& path, const std::string& pageText)>;

// The editor menu's commands that reach beyond the editor; the layer that
// opens the editor supplies them. A command left empty is not offered.
struct HelpEditorCommands {
    std::function<void()> about;
    std::function<void()> contents;
    std::function<void()> index;
    std::function<void()> search;
    // Rebuilds contents, index and compiled help from the pages ("Recompile").
    std::function<void()> recompile;
    // Adds topics for the application's new objects ("GetNewObjects").
    std::function<void()> getNewObjects;
    std::function<void()> openHelp;
    std::function<void()> openWebHelp;
    std::function<void()> openHelpFolder;
    std::function<void()> exportToWord;
    // The editor has closed ("Close", "Exit"), after saving what was open.
    std::function<void()> close;
    // Saves the current help project file; answers 0 on success.
    std::function<std::uint32_t()> saveCurrentProject;
};

// What the Help Editor needs of the open project and of the layers above it.
struct HelpEditorSetup {
    TreeOperationContext tree;
    // The project folder (links are made relative to it) and its images folder.
    std::string baseFolder;
    std::string imageFolder;
    // The page shown for a topic whose page does not exist yet: "Contents.htm"
    // of the project's templates.
    std::string contentsTemplate;
    PageTextWriter writePage;
    HelpEditorCommands commands;
};

// The page the editor shows.
struct EditorPage {
    // The page asked for: the selected topic's page ("" when it has none).
    std::string openedFileUrl;
    // The file whose text is shown: the page, or the template of an absent page.
    std::string loadedDocUrl;
    std::string text;
    // Where to scroll to, "" for the top.
    std::string bookmark;
    // The page does not exist yet; its first save creates it.
    bool fromTemplate { false };
    // A link to select, or a text to search for, in the page just shown.
    std::string findUrl;
    std::string findText;
};

// The Help Editor's state as the studio shows it.
struct HelpEditorState {
    EditorPage page;
    bool dirty { false };
    std::string selectedKey;
    std::vector<TreeMenuItem> treeMenu;
    std::vector<std::string> editorCommands;
    std::size_t undoStackLength { 0 };
    std::string infoText;
    bool renaming { false };
    bool open { false };
};

// The Help Editor ("Help Editor") without its window: the contents tree beside
// the page editor. The studio drives it: a node is selected and its page comes
// back to be shown, the edited page text comes in and is saved through the
// page writer, commands arrive by name. The page the editor holds is saved
// before another is shown and when the editor closes, without asking.
class frmHelpEditor : private ITreeMenuEvents {
public:
    static constexpr std::string_view kTitle = "Help Editor";
    // The page editor's own menus and toolbar buttons that documents coming
    // from the tree make pointless.
    static constexpr std::string_view kHiddenMenus = "File;Help";
    static constexpr std::string_view kShownMenus = "File2;Help2";
    static constexpr std::string_view kHiddenToolbar = "tbStandard";
    static constexpr std::string_view kHiddenToolbarButtons = "New;Open;SaveAs";

    frmHelpEditor() = default;
    // Does not save: whoever opened the editor closes it with Form_Unload.
    ~frmHelpEditor() override = default;
    frmHelpEditor(const frmHelpEditor&) = delete;
    frmHelpEditor& operator=(const frmHelpEditor&) = delete;

    // --- opening and closing ---
    // Shows the tree in the view and opens the root topic's page. The tree and
    // the view must outlive the editor or its Form_Unload.
    void Form_Load(CHelpPrjTree& tree, ITreeView& view, HelpEditorSetup setup);
    // Saves the open page when it is dirty and the project when the tree
    // changed, then ends the tree and the tree menu. Runs once.
    void Form_Unload();
    bool IsOpen() const { return m_open; }

    // --- the page ---
    // Selects a node and shows its page (or the template of an absent one).
    void SelectNode(const std::string& key);
    // The person changed the page: its text as the page editor holds it.
    void DocumentChanged(const std::string& pageText);
    // Saves the page text to the page the editor holds, through the page
    // writer; the tree follows the page's sections. Answers whether it was saved.
    bool SaveDocument(const std::string& pageText);
    // The page editor followed a link to another page: the tree follows.
    void DocumentNavigated(const std::string& path, const std::string& bookmark);
    // Saves the held page when it is dirty (nothing while setting up or closing).
    void Save_CurrentDocumentIfDirty();
    // Reads the held page again from its file, after a tool changed the file.
    void ReloadDocument();

    // --- commands ---
    // A tree menu item ("mnuCut" ...) or an editor menu command ("Recompile" ...)
    // by name; answers whether it ran.
    bool Command(std::string_view name);
    // The editor menu's commands (HTMLEditTarnwick_MenuClick).
    bool MenuClick(std::string_view name);
    // The names of the editor menu's commands that can run.
    std::vector<std::string> EditorCommands() const;
    CHelpPrjTreeMenu& TreeMenu() { return m_treeMenu; }

    // --- state ---
    const std::string& OpenedFileURL() const { return m_page.openedFileUrl; }
    const std::string& LoadedDocURL() const { return m_page.loadedDocUrl; }
    bool Dirty() const { return m_dirty; }
    const EditorPage& Page() const { return m_page; }
    HelpEditorState State() const;

private:
    // ^ITreeMenuEvents
    void HtmlFileSelected(const std::string& path, const std::string& bookmark) override;
    void HtmlFileIsAbsentForCurrentNode(const std::string& templateFile) override;
    void HtmlFindUrlWithinCurrentPage(const std::string& url) override;
    void FindFirst(const std::string& text) override;
    void NodeCaptionChanged(const std::string& key, const std::string& caption) override;

    void OpenRootDocument();
    // Loads a file's text as the page; asked is the page the node asks for.
    void Open_Document(const std::string& path, const std::string& asked, bool fromTemplate);
    // Writes the new caption into the open page's title and first heading.
    void RetitleOpenPage(const std::string& caption);
    void TraceState(std::string_view step) const;
    const std::function<void()>* CommandOf(std::string_view name) const;

    CHelpPrjTree* m_tree { nullptr };
    ITreeView* m_view { nullptr };
    HelpEditorSetup m_setup;
    CHelpPrjTreeMenu m_treeMenu;
    EditorPage m_page;
    bool m_dirty { false };
    // The held page existed when it was opened (so a missing one was deleted).
    bool m_pageExisted { false };
    bool m_settingUp { false };
    bool m_closing { false };
    bool m_open { false };
};

}  // namespace scriv
