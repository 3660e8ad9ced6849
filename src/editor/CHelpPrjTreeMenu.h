#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/CTreeViewEdit.h"
#include "editor/TreeOperationContext.h"
#include "editor/clsTreeViewManipulator.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class ITreeView;

// What the tree menu tells the editor form.
class ITreeMenuEvents {
public:
    virtual ~ITreeMenuEvents() = default;
    // A node with an existing page was selected: show that page at the bookmark.
    virtual void HtmlFileSelected(const std::string& path, const std::string& bookmark) = 0;
    // A node without a page was selected; templateFile is the node's template.
    virtual void HtmlFileIsAbsentForCurrentNode(const std::string& templateFile) = 0;
    // Select the link with this URL in the open page.
    virtual void HtmlFindUrlWithinCurrentPage(const std::string& url) = 0;
    // Start a search for text in the page just opened.
    virtual void FindFirst(const std::string& text) = 0;
    // A node's caption was renamed in the tree.
    virtual void NodeCaptionChanged(const std::string& key, const std::string& caption) = 0;
};

// One item of the tree's popup menu as it would be shown now.
struct TreeMenuItem {
    std::string name; // "mnuCut"
    std::string caption; // "Cut"
    bool enabled { false };
};

// Key codes and modifier bits of KeyDown, as the tree control reports them.
namespace treekeys {
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;
inline constexpr int kSpace = 32;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kInsert = 45;
inline constexpr int kDelete = 46;
inline constexpr int kF2 = 113;
}  // namespace treekeys

// Everything that happens on the contents tree of the Help Editor: selection
// and the page that goes with it, the keys, the popup menu and its enabling,
// renaming in place, drag and drop, and keeping the tree in step with the page
// that the editor shows. Changes of the tree go through its manipulator.
class CHelpPrjTreeMenu {
public:
    // The text a dragged node carries, read by the page editor to make a link.
    static constexpr std::string_view kDragMarker = "SCRIV|CreateLink|";

    CHelpPrjTreeMenu() = default;
    ~CHelpPrjTreeMenu();
    CHelpPrjTreeMenu(const CHelpPrjTreeMenu&) = delete;
    CHelpPrjTreeMenu& operator=(const CHelpPrjTreeMenu&) = delete;

    // Works on a shown tree; events go to the form (which may be nothing).
    void init(ITreeView* view, CHelpPrjTree* tree, TreeOperationContext context, ITreeMenuEvents* events);
    // Ends the manipulator and drops the references. Runs once.
    void Terminate();
    clsTreeViewManipulator& Manipulator() { return m_manipulator; }
    const clsTreeViewManipulator& Manipulator() const { return m_manipulator; }

    // --- selection ---
    // A click on an item: selects it and tells the form which page to show.
    void TreeViewMouseDown(const std::string& key);
    // The selected node, or nothing.
    CHelpPrjTreeNode* SelectedNode() const;

    // --- keys ---
    // Runs the action of a key with its modifier bits (treekeys); answers
    // whether the key had one.
    bool KeyDown(int keyCode, int shift);

    // --- the popup menu ---
    // The items for the selected node, enabled from its state; a control or
    // menu node gets the short menu. Empty without a selection.
    std::vector<TreeMenuItem> PopupMenu() const;
    // Runs an item by name. Answers false for an unknown or disabled item.
    bool MenuClick(std::string_view itemName);
    // What mnuHHC and mnuXML put up for inspection (txtInfo).
    const std::string& InfoText() const { return m_infoText; }

    // --- renaming in place ---
    // Starts editing the selected node's caption; a node documented by a
    // section of its page gets a hint instead. Answers whether editing started.
    bool StartRename();
    // Ends the edit: a new caption goes to the node, its title and its item, and
    // NodeCaptionChanged is raised. Answers whether the caption changed.
    bool EndRename(const std::string& text);
    void CancelRename() { m_edit.CancelLabelEdit(); }
    bool Renaming() const { return m_edit.Editing(); }

    // --- drag and drop ---
    // "SCRIV|CreateLink|" + caption + "|" + page path of a node; "" for none.
    std::string DragText(const std::string& key) const;
    // A node dropped on another: moved to the end of its children. Answers
    // whether it moved.
    bool OLEDragDrop(const std::string& sourceKey, const std::string& targetKey);

    // --- the page and the tree in step ---
    // The editor saved a page: when it is the selected form or report topic's,
    // its control and menu nodes are rebuilt from the page. Answers whether they were.
    bool DocumentSaved(const std::string& path);
    // The editor moved to another page (a followed link): the node of that page
    // and bookmark is selected, its parents opened. Answers whether one was found.
    bool SyncTOCTreeview(const std::string& filePath, const std::string& bookmark);
    // Opens a page (selecting its node when the tree has one), then asks the form
    // to search for text in it.
    void LoadHTMLPageAndFindFirstSearchedEntry(const std::string& filePath, const std::string& text);

    // --- broken links ---
    // Checks every page of the project and answers the number of broken links;
    // supplied by the layer that owns the link check.
    using BrokenLinksCheck = std::function<std::size_t()>;
    void SetBrokenLinksCheck(BrokenLinksCheck check) { m_brokenLinksCheck = std::move(check); }
    // Runs the check; with nothing broken says "All links are Ok!". Answers the
    // number of broken links (0 without a check).
    std::size_t SearchForBrokenLinks();
    // The person picked a broken link: its page opens and the link is selected.
    void GoToBrokenLink(const std::string& pagePath, const std::string& url);

    bool Busy() const { return m_busy; }

private:
    // Tells the form the page of the selected node.
    void NodeSelected();
    // Runs an action; when it moved the selection, the new node's page is shown.
    void Act(const std::function<void()>& action);
    void AddSelectedFile();
    void AddNewTopic();
    void ShowInfo(std::string text) { m_infoText = std::move(text); }
    void ToggleSkipped() { Act([&] { m_manipulator.ToggleSkippedFlag(); }); }
    void CaptionEdited(const std::string& key, const std::string& caption);
    void ExpandTreeviewNodeIfCollapsed(CHelpPrjTreeNode& node);
    bool IsEnabled(std::string_view itemName) const;

    ITreeView* m_view { nullptr };
    CHelpPrjTree* m_tree { nullptr };
    ITreeMenuEvents* m_events { nullptr };
    clsTreeViewManipulator m_manipulator;
    CTreeViewEdit m_edit;
    BrokenLinksCheck m_brokenLinksCheck;
    std::string m_infoText;
    bool m_busy { false };
    bool m_terminated { false };
};

}  // namespace scriv
