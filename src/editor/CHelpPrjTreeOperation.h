#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "editor/TreeOperationContext.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class ITreeView;

// One request of the Help Editor on the contents tree, carried out on the tree,
// the tree view and, where the request says so, the page files of the project.
// An executed operation keeps an XML snapshot of the subtree it touched
// (OperationAffectedXML), and undo interprets that snapshot by the name.
class CHelpPrjTreeOperation {
public:
    using UndoStack = std::deque<CHelpPrjTreeOperation*>;

    // The names of the operations, also the keys of undo.
    static constexpr std::string_view kUndo = "Undo";
    static constexpr std::string_view kCut = "Cut";
    static constexpr std::string_view kCopy = "Copy";
    static constexpr std::string_view kPaste = "Paste";
    static constexpr std::string_view kPasteSpecial = "Paste Special";
    static constexpr std::string_view kDelete = "Delete";
    static constexpr std::string_view kUp = "Up";
    static constexpr std::string_view kDown = "Down";
    static constexpr std::string_view kLeft = "Left";
    static constexpr std::string_view kRight = "Right";
    static constexpr std::string_view kNew = "New";
    static constexpr std::string_view kAdd = "Add";
    static constexpr std::string_view kHHC = "HHC";
    static constexpr std::string_view kXML = "XML";
    static constexpr std::string_view kMoveNode = "MoveNode";
    static constexpr std::string_view kEdit = "Edit";
    static constexpr std::string_view kEditNodeIndex = "Edit Node Index";
    static constexpr std::string_view kToggleSkippedFlag = "Toggle Skipped Flag";

    // RetCode until an operation succeeds: the failure was shown, or there was
    // nothing to do.
    static constexpr std::uint32_t kNotDone = 0x8003FE09;

    CHelpPrjTreeOperation() = default;
    CHelpPrjTreeOperation(const CHelpPrjTreeOperation&) = delete;
    CHelpPrjTreeOperation& operator=(const CHelpPrjTreeOperation&) = delete;

    // Stores the view, the tree and the editor's clipboard (trimmed of blanks)
    // as XMLSTr. The context must outlive the operation.
    void init(ITreeView* view, CHelpPrjTree* tree, const std::string& clipboardXml, const TreeOperationContext& context);

    // Runs the named operation (compared without regard to case) on the node
    // selected in the view, and answers RetCode: 0 on success, kNotDone when
    // nothing was done. Undo reads and consumes undoStack. parameter carries the
    // title of "New" in and its page path out, and the page path of "Add".
    // result answers the step's own outcome (for "New", "Add", "Edit Node
    // Index": whether the tree changed). Failures are traced, never thrown.
    std::uint32_t ExecuteOperation(std::string_view name, UndoStack& undoStack, const std::string& sourceKey,
        const std::string& targetKey, const std::string& parentKey, std::string& parameter, bool& result);

    // Drops the references to tree and view. Runs once.
    void Terminate();

    // A copy of a list of index keywords.
    static std::vector<std::string> CopyCollection(const std::vector<std::string>& keywords);

    std::string OperationName;
    // In: the clipboard. After "Copy", "Cut" and "XML": the subtree as XML.
    std::string XMLSTr;
    // After "HHC": the subtree as contents entries.
    std::string HHCStr;

    const std::string& OperationAffectedXML() const { return m_affectedXml; }
    std::uint32_t RetCode() const { return m_retCode; }
    const std::string& ErrMessage() const { return m_errMessage; }
    const std::string& SourceNodeKey() const { return m_sourceNodeKey; }
    const std::string& SourceNodeParentKey() const { return m_sourceNodeParentKey; }
    const std::string& TargetNodeKey() const { return m_targetNodeKey; }
    bool Terminated() const { return m_terminated; }

private:
    // The steps; each traps its failures and leaves RetCode at kNotDone.
    void Copy();
    void Delete(bool silent);
    void Cut(bool silent);
    void Paste(bool withChildren, CHelpPrjTreeNode* nodeA, CHelpPrjTreeNode* nodeB, bool keepKeys, bool flagA,
        bool flagB);
    void PasteSpecial();
    void Up();
    void Down();
    void Left();
    void Right();
    void MoveNode(const std::string& sourceKey, const std::string& targetKey);
    bool AddNew(std::string& title);
    bool AddSelected(const std::string& path);
    bool EditIndex();
    void MakeHHCAndXml();
    void ToggleSkippedFlag();
    void Undo(UndoStack& undoStack);
    void UndoEntry(const CHelpPrjTreeOperation& entry);

    bool Dispatch(std::string_view name, UndoStack& undoStack, const std::string& sourceKey,
        const std::string& targetKey, std::string& parameter, bool& result);
    // Runs a step in a frame that traces its failure under this class and the step.
    template<typename F>
    void Trapped(std::string_view procedure, F step);

    // Selects the node of a key and makes it (and its parent) the working nodes.
    bool SelectWorkingNode(const std::string& key);
    void SetWorkingNode(CHelpPrjTreeNode* node);
    // The subtree of the working node as the project file writes it, trimmed.
    std::string WorkingSubtreeXml() const;
    // Adds a "document" node for a page under the working node, as last child.
    CHelpPrjTreeNode* AddDocumentNode(const std::string& title, const std::string& templatePath,
        const std::string& pageFile);
    void RefreshIcon(CHelpPrjTreeNode* node) const;
    // Gives the form topics of a pasted subtree their control and menu nodes
    // again: the project file does not carry them.
    void RestoreControlNodes(CHelpPrjTreeNode& pasted);

    ITreeView* m_view { nullptr };
    CHelpPrjTree* m_tree { nullptr };
    const TreeOperationContext* m_context { nullptr };
    CHelpPrjTreeNode* m_node { nullptr };
    CHelpPrjTreeNode* m_parent { nullptr };
    std::string m_affectedXml;
    std::string m_errMessage;
    std::string m_sourceNodeKey;
    std::string m_sourceNodeParentKey;
    std::string m_targetNodeKey;
    std::uint32_t m_retCode { kNotDone };
    bool m_silent { false };
    bool m_terminated { false };
};

// The image a tree item shows for a node after a change: "no" when skipped,
// "helptopic" without children, "hlpclose" when collapsed, else "openedBook".
std::string RefreshedNodeImage(const CHelpPrjTreeNode& node, const ITreeView& view);

}  // namespace scriv
