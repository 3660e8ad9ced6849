#include "editor/CHelpPrjTreeMenu.h"

#include <array>

#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "editor/CXmlFormDescriptions.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/ITreeView.h"

namespace scriv {

namespace {

bool IsControlLike(const CHelpPrjTreeNode* node)
{
    return node && (node->IsControl || node->IsMenu);
}

// Two paths of one file; names compare without regard to case, as pages are
// matched everywhere else.
bool SamePath(const std::string& a, const std::string& b)
{
    return EqualsNoCase(ToNativePath(a), ToNativePath(b));
}

struct ItemDefinition {
    const char* name;
    const char* caption;
};

// The popup of an ordinary node, in the order it is shown.
constexpr std::array kNodeItems {
    ItemDefinition { "mnuUndo", "Undo" },
    ItemDefinition { "mnuCut", "Cut" },
    ItemDefinition { "mnuCopy", "Copy" },
    ItemDefinition { "mnuPaste", "Paste" },
    ItemDefinition { "mnuPasteSpecial", "Paste Special..." },
    ItemDefinition { "mnuToggleSkippedFlag", "Exclude" },
    ItemDefinition { "mnuDelete", "Delete" },
    ItemDefinition { "mnuUp", "Up" },
    ItemDefinition { "mnuDown", "Down" },
    ItemDefinition { "mnuLeft", "Left" },
    ItemDefinition { "mnuRight", "Right" },
    ItemDefinition { "mnuNew", "New..." },
    ItemDefinition { "mnuAdd", "Add..." },
    ItemDefinition { "mnuEdit", "Edit" },
    ItemDefinition { "mnuRename", "Rename" },
    ItemDefinition { "mnuEditIndex", "Edit Index..." },
    ItemDefinition { "mnuHHC", "HHC" },
    ItemDefinition { "mnuXML", "XML" },
};

// The popup of a control or menu node.
constexpr std::array kControlItems {
    ItemDefinition { "mnuRenameCtl", "Rename" },
    ItemDefinition { "mnuEditIndexCtl", "Edit Index..." },
};

class FlagGuard {
public:
    explicit FlagGuard(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    ~FlagGuard() { m_flag = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& m_flag;
};

}  // namespace

CHelpPrjTreeMenu::~CHelpPrjTreeMenu()
{
    Terminate();
}

void CHelpPrjTreeMenu::init(ITreeView* view, CHelpPrjTree* tree, TreeOperationContext context, ITreeMenuEvents* events)
{
    m_view = view;
    m_tree = tree;
    m_events = events;
    m_terminated = false;
    m_manipulator.init(view, tree, std::move(context));
    m_edit.init(view, [this](const std::string& key, const std::string& caption) { CaptionEdited(key, caption); });
}

void CHelpPrjTreeMenu::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_manipulator.Terminate();
    m_edit.init(nullptr, {});
    m_view = nullptr;
    m_tree = nullptr;
    m_events = nullptr;
}

// --- selection ---

CHelpPrjTreeNode* CHelpPrjTreeMenu::SelectedNode() const
{
    if (!m_view || !m_tree)
        return nullptr;
    return m_tree->MapItem(m_view->SelectedKey());
}

void CHelpPrjTreeMenu::TreeViewMouseDown(const std::string& key)
{
    if (!m_view || m_busy || !m_view->Exists(key))
        return;
    m_view->Select(key);
    NodeSelected();
}

void CHelpPrjTreeMenu::NodeSelected()
{
    if (m_busy || m_edit.Editing() || !m_events)
        return;
    CHelpPrjTreeNode* node = SelectedNode();
    if (!node || node->Terminated())
        return;
    ErrorFrame("CHelpPrjTreeMenu.NodeSelected", [&] {
        std::string path = node->GeneratedHTMLFileFullPath();
        if (!path.empty() && FileExists(path))
            m_events->HtmlFileSelected(path, node->Bookmark());
        else
            m_events->HtmlFileIsAbsentForCurrentNode(node->TemplateHtmlFileFullPath());
    });
}

void CHelpPrjTreeMenu::Act(const std::function<void()>& action)
{
    if (m_terminated || m_busy || !m_view)
        return;
    std::string before = m_view->SelectedKey();
    {
        FlagGuard busy(m_busy);
        ErrorFrame("CHelpPrjTreeMenu.Act", action);
    }
    // An operation that selected another node shows that node's page.
    std::string after = m_view->SelectedKey();
    if (!after.empty() && !EqualsNoCase(before, after))
        NodeSelected();
}

// --- keys ---

bool CHelpPrjTreeMenu::KeyDown(int keyCode, int shift)
{
    using namespace treekeys;
    if (m_terminated)
        return false;
    bool ctrl = (shift & kCtrl) != 0;
    bool alt = (shift & kAlt) != 0;
    if (ctrl) {
        switch (keyCode) {
        case 'Z':
            Act([&] { m_manipulator.Undo(); });
            return true;
        case 'X':
            Act([&] { m_manipulator.Cut(); });
            return true;
        case 'C':
            Act([&] { m_manipulator.Copy(); });
            return true;
        case 'V':
            Act([&] { m_manipulator.Paste(); });
            return true;
        case 'S':
            Act([&] { m_manipulator.PasteSpecial(); });
            return true;
        case 'N':
            AddNewTopic();
            return true;
        case 'E':
            Act([&] { m_manipulator.Edit(); });
            return true;
        case 'I':
            Act([&] { m_manipulator.EditIndex(); });
            return true;
        case kUp:
        case 'U':
            Act([&] { m_manipulator.Up(); });
            return true;
        case kDown:
        case 'D':
            Act([&] { m_manipulator.Down(); });
            return true;
        case kLeft:
        case 'L':
            Act([&] { m_manipulator.Left(); });
            return true;
        case kRight:
        case 'R':
            Act([&] { m_manipulator.Right(); });
            return true;
        default:
            return false;
        }
    }
    if (alt) {
        if (keyCode != kInsert)
            return false;
        ToggleSkipped();
        return true;
    }
    if (shift != 0)
        return false;
    switch (keyCode) {
    case kDelete:
        Act([&] { m_manipulator.Delete(); });
        return true;
    case kF2:
        StartRename();
        return true;
    case kSpace:
        ToggleSkipped();
        return true;
    default:
        return false;
    }
}

// --- the popup menu ---

bool CHelpPrjTreeMenu::IsEnabled(std::string_view itemName) const
{
    CHelpPrjTreeNode* node = SelectedNode();
    if (!node)
        return false;
    if (IsControlLike(node))
        return itemName == "mnuRenameCtl" || itemName == "mnuEditIndexCtl";

    CHelpPrjTreeNode* parent = node->ParentNode();
    auto index = node->IndexInParent();
    bool hasNext = parent && index && *index + 1 < parent->ChildCount();
    if (itemName == "mnuUndo")
        return m_manipulator.UndoStackLength() > 0;
    if (itemName == "mnuCut" || itemName == "mnuCopy" || itemName == "mnuDelete"
        || itemName == "mnuToggleSkippedFlag")
        return !node->IsRootNode;
    if (itemName == "mnuPaste" || itemName == "mnuPasteSpecial")
        return !m_manipulator.ClipboardXml().empty();
    if (itemName == "mnuUp")
        return index && *index > 0;
    if (itemName == "mnuDown")
        return hasNext;
    if (itemName == "mnuLeft")
        return parent && parent->ParentNode() && node->Level() > 2;
    if (itemName == "mnuRight") {
        if (!hasNext)
            return false;
        CHelpPrjTreeNode* next = parent->Child(*index + 1);
        return !IsControlLike(next) && !next->Skipped();
    }
    // "Edit" changes nothing by itself: captions are renamed in place.
    if (itemName == "mnuEdit")
        return false;
    return itemName == "mnuNew" || itemName == "mnuAdd" || itemName == "mnuRename" || itemName == "mnuEditIndex"
        || itemName == "mnuHHC" || itemName == "mnuXML";
}

std::vector<TreeMenuItem> CHelpPrjTreeMenu::PopupMenu() const
{
    std::vector<TreeMenuItem> items;
    CHelpPrjTreeNode* node = SelectedNode();
    if (!node)
        return items;
    auto add = [&](const ItemDefinition& definition) {
        TreeMenuItem item { definition.name, definition.caption, IsEnabled(definition.name) };
        if (item.name == "mnuToggleSkippedFlag")
            item.caption = node->Skipped() ? "Include" : "Exclude";
        items.push_back(std::move(item));
    };
    if (IsControlLike(node)) {
        for (const ItemDefinition& definition : kControlItems)
            add(definition);
    } else {
        for (const ItemDefinition& definition : kNodeItems)
            add(definition);
    }
    return items;
}

bool CHelpPrjTreeMenu::MenuClick(std::string_view itemName)
{
    if (m_terminated || !IsEnabled(itemName))
        return false;
    if (itemName == "mnuUndo")
        Act([&] { m_manipulator.Undo(); });
    else if (itemName == "mnuCut")
        Act([&] { m_manipulator.Cut(); });
    else if (itemName == "mnuCopy")
        Act([&] { m_manipulator.Copy(); });
    else if (itemName == "mnuPaste")
        Act([&] { m_manipulator.Paste(); });
    else if (itemName == "mnuPasteSpecial")
        Act([&] { m_manipulator.PasteSpecial(); });
    else if (itemName == "mnuToggleSkippedFlag")
        ToggleSkipped();
    else if (itemName == "mnuDelete")
        Act([&] { m_manipulator.Delete(); });
    else if (itemName == "mnuUp")
        Act([&] { m_manipulator.Up(); });
    else if (itemName == "mnuDown")
        Act([&] { m_manipulator.Down(); });
    else if (itemName == "mnuLeft")
        Act([&] { m_manipulator.Left(); });
    else if (itemName == "mnuRight")
        Act([&] { m_manipulator.Right(); });
    else if (itemName == "mnuNew")
        AddNewTopic();
    else if (itemName == "mnuAdd")
        AddSelectedFile();
    else if (itemName == "mnuRename" || itemName == "mnuRenameCtl")
        StartRename();
    else if (itemName == "mnuEditIndex" || itemName == "mnuEditIndexCtl")
        Act([&] { m_manipulator.EditIndex(); });
    else if (itemName == "mnuHHC")
        ShowInfo(m_manipulator.GetHHC());
    else if (itemName == "mnuXML")
        ShowInfo(m_manipulator.GetXML());
    else
        return false;
    return true;
}

void CHelpPrjTreeMenu::AddNewTopic()
{
    Act([&] {
        std::string page;
        m_manipulator.AddNew("", page);
    });
}

void CHelpPrjTreeMenu::AddSelectedFile()
{
    FileChoiceRequest request;
    request.title = "Select HTML file...";
    request.filterName = "HTM Files (*.htm)";
    request.pattern = "*.htm*";
    request.startFolder = m_manipulator.Context().projectFolder;
    std::optional<std::string> path = UserInterface().ChooseFile(request);
    if (!path || path->empty())
        return;
    // Without an extension the default one is meant.
    std::string chosen = FileExtension(*path).empty() ? *path + ".htm" : *path;
    Act([&] { m_manipulator.AddSelected(chosen); });
}

// --- renaming ---

bool CHelpPrjTreeMenu::StartRename()
{
    CHelpPrjTreeNode* node = SelectedNode();
    if (!node || m_busy)
        return false;
    if (!node->Bookmark().empty()) {
        MsgBox("To rename, change the corresponding section in the HTML topic file (right ->).", msgbox::kInformation,
            kMessageBoxTitle, "", 0, "CHelpPrjTreeMenu.mnuRename_Click");
        return false;
    }
    return m_edit.StartLabelEdit(node->TreeViewNode());
}

bool CHelpPrjTreeMenu::EndRename(const std::string& text)
{
    return m_edit.EndLabelEdit(text);
}

void CHelpPrjTreeMenu::CaptionEdited(const std::string& key, const std::string& caption)
{
    CHelpPrjTreeNode* node = m_tree ? m_tree->MapItem(key) : nullptr;
    if (!node)
        return;
    node->SetCaption(caption);
    node->SetHtmlTitle(caption);
    if (m_view && !node->TreeViewNode().empty())
        m_view->SetText(node->TreeViewNode(), caption);
    m_tree->SetWasChanged(true);
    if (m_events)
        ErrorFrame("CHelpPrjTreeMenu.mTvwEdit_NodeCaptionChanged",
            [&] { m_events->NodeCaptionChanged(key, caption); });
}

// --- drag and drop ---

std::string CHelpPrjTreeMenu::DragText(const std::string& key) const
{
    CHelpPrjTreeNode* node = m_tree ? m_tree->MapItem(key) : nullptr;
    if (!node)
        return {};
    return std::string(kDragMarker) + node->Caption() + "|" + node->GeneratedHTMLFileFullPath();
}

bool CHelpPrjTreeMenu::OLEDragDrop(const std::string& sourceKey, const std::string& targetKey)
{
    if (m_terminated || !m_tree || sourceKey.empty() || targetKey.empty())
        return false;
    CHelpPrjTreeNode* source = m_tree->MapItem(sourceKey);
    CHelpPrjTreeNode* target = m_tree->MapItem(targetKey);
    if (!source || !target || source == target)
        return false;
    if (IsControlLike(source) || IsControlLike(target)) {
        MsgBox("Forbidden operation for controls: control can't be a target of copy, move or paste operation.",
            msgbox::kExclamation, kMessageBoxTitle, "", 0, "CHelpPrjTreeMenu.TreeView_OLEDragDrop");
        return false;
    }
    std::string movedKey = source->Key();
    std::string newParentKey = target->Key();
    Act([&] { m_manipulator.MoveNode(newParentKey, movedKey); });
    CHelpPrjTreeNode* moved = m_tree->MapItem(movedKey);
    return moved && moved->ParentNode() == m_tree->MapItem(newParentKey);
}

// --- the page and the tree in step ---

bool CHelpPrjTreeMenu::DocumentSaved(const std::string& path)
{
    CHelpPrjTreeNode* node = SelectedNode();
    IFormDescriptions* descriptions = m_manipulator.Context().formDescriptions;
    if (!node || !descriptions || path.empty() || !SamePath(node->GeneratedHTMLFileFullPath(), path))
        return false;
    bool rebuilt = false;
    ErrorFrame("CHelpPrjTreeMenu.DocumentSaved", [&] {
        rebuilt = RebuildControlNodesFromSavedFormHTML(*m_tree, *node, *descriptions,
            m_manipulator.Context().useControlNames);
    });
    return rebuilt;
}

void CHelpPrjTreeMenu::ExpandTreeviewNodeIfCollapsed(CHelpPrjTreeNode& node)
{
    if (!m_view || node.TreeViewNode().empty() || m_view->Expanded(node.TreeViewNode()))
        return;
    node.Expand();
}

bool CHelpPrjTreeMenu::SyncTOCTreeview(const std::string& filePath, const std::string& bookmark)
{
    if (!m_tree || !m_tree->Root() || !m_view)
        return false;
    std::string file = FileNameOf(filePath);
    CHelpPrjTreeNode* found = nullptr;
    m_tree->Traverse(
        [&](CHelpPrjTreeNode& node) {
            if (!found && !node.TreeViewNode().empty() && EqualsNoCase(node.GeneratedHTMLFile(), file)
                && EqualsNoCase(node.Bookmark(), bookmark))
                found = &node;
        },
        false);
    if (!found)
        return false;
    for (CHelpPrjTreeNode* parent = found->ParentNode(); parent; parent = parent->ParentNode())
        ExpandTreeviewNodeIfCollapsed(*parent);
    m_view->Select(found->TreeViewNode());
    NodeSelected();
    return true;
}

void CHelpPrjTreeMenu::LoadHTMLPageAndFindFirstSearchedEntry(const std::string& filePath, const std::string& text)
{
    if (!m_events)
        return;
    if (!SyncTOCTreeview(filePath, ""))
        m_events->HtmlFileSelected(filePath, "");
    m_events->FindFirst(text);
}

// --- broken links ---

std::size_t CHelpPrjTreeMenu::SearchForBrokenLinks()
{
    if (!m_brokenLinksCheck) {
        Trace("CHelpPrjTreeMenu.SearchForBrokenLinks: no link check");
        return 0;
    }
    std::size_t broken = 0;
    ErrorFrame("CHelpPrjTreeMenu.SearchForBrokenLinks", [&] { broken = m_brokenLinksCheck(); });
    if (broken == 0)
        MsgBox("All links are Ok!", msgbox::kInformation, kMessageBoxTitle, "", 0, "CHelpPrjTreeMenu.SearchForBrokenLinks");
    return broken;
}

void CHelpPrjTreeMenu::GoToBrokenLink(const std::string& pagePath, const std::string& url)
{
    if (!m_events)
        return;
    if (!SyncTOCTreeview(pagePath, ""))
        m_events->HtmlFileSelected(pagePath, "");
    m_events->HtmlFindUrlWithinCurrentPage(url);
}

}  // namespace scriv
