#include "editor/clsTreeViewManipulator.h"

#include "foundation/CTraceLog.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/ITreeView.h"

namespace scriv {

namespace {

const char* const kNoControlMoves = "Forbidden operation for controls: controls can't be copied, moved or deleted.";
const char* const kNoControlChildren
    = "Forbidden operation for controls: control can't have manually assigned children nodes.";
const char* const kNoControlTarget
    = "Forbidden operation for controls: control can't be a target of copy, move or paste operation.";

bool IsControlLike(const CHelpPrjTreeNode* node)
{
    return node && (node->IsControl || node->IsMenu);
}

// Busy for the life of the guard, whatever way the call ends.
class BusyGuard {
public:
    explicit BusyGuard(bool& busy)
        : m_busy(busy)
    {
        m_busy = true;
    }
    ~BusyGuard() { m_busy = false; }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    bool& m_busy;
};

}  // namespace

clsTreeViewManipulator::~clsTreeViewManipulator()
{
    Terminate();
}

void clsTreeViewManipulator::init(ITreeView* view, CHelpPrjTree* tree, TreeOperationContext context)
{
    m_view = view;
    m_tree = tree;
    m_context = std::move(context);
    m_terminated = false;
}

void clsTreeViewManipulator::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto it = m_operationLog.rbegin(); it != m_operationLog.rend(); ++it)
        (*it)->Terminate();
    m_undoStack.clear();
    m_operationLog.clear();
    m_view = nullptr;
    m_tree = nullptr;
}

// --- the operations ---

void clsTreeViewManipulator::Run(std::string_view name)
{
    std::string parameter;
    bool result = false;
    ExecuteOperation(name, {}, {}, {}, parameter, result);
}

void clsTreeViewManipulator::Cut() { Run(CHelpPrjTreeOperation::kCut); }
void clsTreeViewManipulator::Copy() { Run(CHelpPrjTreeOperation::kCopy); }
void clsTreeViewManipulator::Delete() { Run(CHelpPrjTreeOperation::kDelete); }
void clsTreeViewManipulator::ToggleSkippedFlag() { Run(CHelpPrjTreeOperation::kToggleSkippedFlag); }
void clsTreeViewManipulator::Up() { Run(CHelpPrjTreeOperation::kUp); }
void clsTreeViewManipulator::Down() { Run(CHelpPrjTreeOperation::kDown); }
void clsTreeViewManipulator::Left() { Run(CHelpPrjTreeOperation::kLeft); }
void clsTreeViewManipulator::Right() { Run(CHelpPrjTreeOperation::kRight); }
void clsTreeViewManipulator::Edit() { Run(CHelpPrjTreeOperation::kEdit); }
void clsTreeViewManipulator::EditIndex() { Run(CHelpPrjTreeOperation::kEditNodeIndex); }
void clsTreeViewManipulator::Paste() { Run(CHelpPrjTreeOperation::kPaste); }
void clsTreeViewManipulator::PasteSpecial() { Run(CHelpPrjTreeOperation::kPasteSpecial); }
void clsTreeViewManipulator::Undo() { Run(CHelpPrjTreeOperation::kUndo); }

bool clsTreeViewManipulator::AddNew(const std::string& title, std::string& pagePath)
{
    std::string parameter = title;
    bool result = false;
    ExecuteOperation(CHelpPrjTreeOperation::kNew, {}, {}, {}, parameter, result);
    pagePath = result ? parameter : std::string();
    return result;
}

bool clsTreeViewManipulator::AddSelected(const std::string& path)
{
    std::string parameter = path;
    bool result = false;
    ExecuteOperation(CHelpPrjTreeOperation::kAdd, {}, {}, {}, parameter, result);
    return result;
}

std::uint32_t clsTreeViewManipulator::MoveNode(const std::string& targetKey, const std::string& movedKey)
{
    if (m_busy)
        return status::kGeneralFailure;
    if (!m_tree || m_terminated)
        return 0;
    CHelpPrjTreeNode* target = m_tree->MapItem(targetKey);
    CHelpPrjTreeNode* moved = m_tree->MapItem(movedKey);
    if (!target || !moved || !moved->ParentNode())
        return 0;
    // A node cannot go into its own subtree.
    bool inside = target == moved;
    moved->Traverse([&](CHelpPrjTreeNode& node) { inside = inside || &node == target; }, false);
    if (inside) {
        MsgBox("Node cannot be moved!", msgbox::kExclamation, kMessageBoxTitle, "", 0,
            "clsTreeViewManipulator.MoveNode");
        return 0;
    }
    std::string parameter;
    bool result = false;
    ExecuteOperation(CHelpPrjTreeOperation::kMoveNode, moved->Key(), target->Key(), moved->ParentNode()->Key(),
        parameter, result);
    return 0;
}

std::string clsTreeViewManipulator::GetHHC()
{
    Run(CHelpPrjTreeOperation::kHHC);
    if (m_lastRetCode != 0 || m_undoStack.empty())
        return {};
    return m_undoStack.back()->HHCStr;
}

std::string clsTreeViewManipulator::GetXML()
{
    Run(CHelpPrjTreeOperation::kXML);
    if (m_lastRetCode != 0 || m_undoStack.empty())
        return {};
    return m_undoStack.back()->XMLSTr;
}

// --- admission, execution and the log ---

void clsTreeViewManipulator::Refuse(const std::string& message) const
{
    if (m_context.beep)
        m_context.beep();
    if (!message.empty())
        MsgBox(message, msgbox::kExclamation | msgbox::kOkOnly, kMessageBoxTitle, "", 0,
            "clsTreeViewManipulator.ExecuteOperation");
}

bool clsTreeViewManipulator::Admit(std::string_view name, const std::string& sourceKey, const std::string& targetKey)
{
    CHelpPrjTreeNode* selected = m_view ? m_tree->MapItem(m_view->SelectedKey()) : nullptr;
    if (IsControlLike(selected)) {
        if (EqualsNoCase(name, CHelpPrjTreeOperation::kEditNodeIndex)) {
            // The index of a control is its own: allowed.
        } else if (EqualsNoCase(name, CHelpPrjTreeOperation::kToggleSkippedFlag)) {
            Refuse({});
            return false;
        } else if (EqualsNoCase(name, CHelpPrjTreeOperation::kNew)) {
            Refuse(kNoControlChildren);
            return false;
        } else {
            Refuse(kNoControlMoves);
            return false;
        }
    }
    if (!sourceKey.empty() && IsControlLike(m_tree->MapItem(sourceKey))) {
        Refuse(kNoControlMoves);
        return false;
    }
    if (!targetKey.empty() && IsControlLike(m_tree->MapItem(targetKey))) {
        Refuse(kNoControlTarget);
        return false;
    }
    return true;
}

std::uint32_t clsTreeViewManipulator::ExecuteOperation(std::string_view name, const std::string& sourceKey,
    const std::string& targetKey, const std::string& parentKey, std::string& parameter, bool& result)
{
    result = false;
    if (m_busy || m_terminated || !m_tree)
        return kNoResult;
    BusyGuard busy(m_busy);
    try {
        if (!Admit(name, sourceKey, targetKey))
            return kNoResult;
        m_lastRetCode = kNoResult;
        auto operation = std::make_unique<CHelpPrjTreeOperation>();
        operation->OperationName = std::string(name);
        operation->init(m_view, m_tree, m_clipboardXml, m_context);
        operation->ExecuteOperation(name, m_undoStack, sourceKey, targetKey, parentKey, parameter, result);
        m_lastRetCode = operation->RetCode();
        if (operation->RetCode() != 0 && !operation->ErrMessage().empty()) {
            Refuse(operation->ErrMessage());
            operation->Terminate();
            return m_lastRetCode;
        }
        LogOperation(std::move(operation));
        return m_lastRetCode;
    } catch (const ScrivError& error) {
        TraceLog().addMessage("clsTreeViewManipulator.ExecuteOperation: " + FormatCode(error.Code()) + " - "
                + error.Description() + " (" + error.Source() + ")",
            true);
    } catch (const std::exception& error) {
        TraceLog().addMessage(std::string("clsTreeViewManipulator.ExecuteOperation: ") + error.what(), true);
    }
    return kNoResult;
}

void clsTreeViewManipulator::LogOperation(std::unique_ptr<CHelpPrjTreeOperation> operation)
{
    CHelpPrjTreeOperation* logged = operation.get();
    m_operationLog.push_back(std::move(operation));
    if (logged->RetCode() != 0)
        return;
    // Every success takes a slot, even those that undo steps over.
    m_undoStack.push_back(logged);
    if (m_undoStack.size() > kUndoStackSize)
        m_undoStack.pop_front();
    if (EqualsNoCase(logged->OperationName, CHelpPrjTreeOperation::kCopy)
        || EqualsNoCase(logged->OperationName, CHelpPrjTreeOperation::kCut))
        m_clipboardXml = logged->XMLSTr;
}

}  // namespace scriv
