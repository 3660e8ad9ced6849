#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/CHelpPrjTreeOperation.h"
#include "editor/TreeOperationContext.h"

namespace scriv {

class CHelpPrjTree;
class ITreeView;

// The one door through which the Help Editor changes the contents tree. It
// admits or refuses each request (controls and menus of a form cannot be moved,
// copied or deleted), runs it as a CHelpPrjTreeOperation, and keeps the undo
// stack and the node clipboard. Every operation works on the node selected in
// the tree view.
//
// The undo stack holds the 16 newest operations that succeeded, "Copy", "HHC",
// "XML" and "Undo" included; undo steps over those four, consuming them.
class clsTreeViewManipulator {
public:
    static constexpr std::size_t kUndoStackSize = 16;
    // LastRetCode before the first operation and while one runs.
    static constexpr std::uint32_t kNoResult = 0xFFFFFFFF;

    clsTreeViewManipulator() = default;
    ~clsTreeViewManipulator();
    clsTreeViewManipulator(const clsTreeViewManipulator&) = delete;
    clsTreeViewManipulator& operator=(const clsTreeViewManipulator&) = delete;

    // Works on this view and tree from now on; both must outlive the manipulator
    // or its Terminate.
    void init(ITreeView* view, CHelpPrjTree* tree, TreeOperationContext context);
    // Ends every operation of the log, newest first, and drops the stack, the log
    // and the references. Runs once.
    void Terminate();

    // --- the operations on the selected node; each does nothing while Busy ---
    void Cut();
    void Copy();
    void Delete();
    void ToggleSkippedFlag();
    void Up();
    void Down();
    void Left();
    void Right();
    // Has no effect of its own (captions are edited in place); kept for the key
    // and menu item of that name.
    void Edit();
    void EditIndex();
    void Paste();
    void PasteSpecial();
    void Undo();
    // A new topic under the selected node, titled title (asked for when empty);
    // answers whether it was added, and its page path in pagePath.
    bool AddNew(const std::string& title, std::string& pagePath);
    // An existing page as a topic under the selected node; answers whether it was added.
    bool AddSelected(const std::string& path);
    // Moves a node (with its subtree and keys) to the end of the target's
    // children. A target inside the moved subtree gets "Node cannot be moved!";
    // a missing node or a moved node without parent does nothing. Answers 0, or
    // 0x80040001 while Busy.
    std::uint32_t MoveNode(const std::string& targetKey, const std::string& movedKey);
    // The contents entries (or project file XML) of the selected subtree; "" when
    // the operation failed.
    std::string GetHHC();
    std::string GetXML();

    // --- state ---
    std::size_t UndoStackLength() const { return m_undoStack.size(); }
    const CHelpPrjTreeOperation::UndoStack& UndoStack() const { return m_undoStack; }
    std::size_t OperationLogLength() const { return m_operationLog.size(); }
    const std::string& ClipboardXml() const { return m_clipboardXml; }
    std::uint32_t LastRetCode() const { return m_lastRetCode; }
    bool Busy() const { return m_busy; }
    bool Terminated() const { return m_terminated; }
    const TreeOperationContext& Context() const { return m_context; }
    TreeOperationContext& Context() { return m_context; }
    CHelpPrjTree* Tree() const { return m_tree; }
    ITreeView* TreeView() const { return m_view; }

private:
    void Run(std::string_view name);
    // Admits, runs and logs one operation; answers its RetCode (kNoResult when
    // refused or failed).
    std::uint32_t ExecuteOperation(std::string_view name, const std::string& sourceKey, const std::string& targetKey,
        const std::string& parentKey, std::string& parameter, bool& result);
    bool Admit(std::string_view name, const std::string& sourceKey, const std::string& targetKey);
    void Refuse(const std::string& message) const;
    void LogOperation(std::unique_ptr<CHelpPrjTreeOperation> operation);

    ITreeView* m_view { nullptr };
    CHelpPrjTree* m_tree { nullptr };
    TreeOperationContext m_context;
    std::string m_clipboardXml;
    CHelpPrjTreeOperation::UndoStack m_undoStack;
    std::vector<std::unique_ptr<CHelpPrjTreeOperation>> m_operationLog;
    std::uint32_t m_lastRetCode { kNoResult };
    bool m_busy { false };
    bool m_terminated { false };
};

}  // namespace scriv
