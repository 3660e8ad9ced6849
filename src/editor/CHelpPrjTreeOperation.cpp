#include "editor/CHelpPrjTreeOperation.h"

#include <filesystem>
#include <initializer_list>
#include <memory>

#include "editor/frmHHCEntryIndexKeywords.h"
#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/ContentsFiles.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/IFormDescriptions.h"
#include "model/ITreeView.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

constexpr int kInsertKey = 45;
const char* const kSource = "CHelpPrjTreeOperation.";

bool IsName(std::string_view name, std::string_view wanted)
{
    return EqualsNoCase(name, wanted);
}

bool IsAnyOf(std::string_view name, std::initializer_list<std::string_view> names)
{
    for (std::string_view wanted : names)
        if (EqualsNoCase(name, wanted))
            return true;
    return false;
}

bool IsControlLike(const CHelpPrjTreeNode& node)
{
    return node.IsControl || node.IsMenu;
}

// The attribute encoding of stored pages: & < > and the double quote.
std::string EncodeAttribute(std::string_view value)
{
    std::string text = ReplaceAll(value, "&", "&amp;");
    text = ReplaceAll(text, "<", "&lt;");
    text = ReplaceAll(text, ">", "&gt;");
    return ReplaceAll(text, "\"", "&quot;");
}

void AppendAttribute(std::string& xml, std::string_view name, std::string_view value)
{
    xml.append(name).append(" = \"").append(EncodeAttribute(value)).append("\" ");
}

// The page file name of a topic title: transliterated, without the characters
// that no file name may hold.
std::string PageFileBaseName(const std::string& title)
{
    std::string name = EncodeObjectName(title);
    for (char& c : name)
        if (c == '/' || c == '\\' || c == ':' || c == '*' || c == '?' || c == '"' || c == '<' || c == '>' || c == '|')
            c = '_';
    return name;
}

bool SameFolder(const std::string& a, const std::string& b)
{
    std::error_code error;
    auto left = std::filesystem::weakly_canonical(std::filesystem::path(AddBackslash(a)), error);
    auto right = std::filesystem::weakly_canonical(std::filesystem::path(AddBackslash(b)), error);
    return !error && left == right;
}

bool IsIndexedObjectType(int type)
{
    return (type >= objtype::kTable && type <= objtype::kMacro) || type == objtype::kWorksheet
        || type == objtype::kChart;
}

std::vector<std::string> SplitIndexes(const std::string& text)
{
    std::vector<std::string> entries;
    for (std::string& piece : Split(text, "|"))
        if (!Trim(piece).empty())
            entries.push_back(std::move(piece));
    return entries;
}

void AddChildNodes(CHelpPrjTree& scratch, CHelpPrjTreeNode& parent, const pugi::xml_node& element,
    const std::shared_ptr<pugi::xml_document>& document, int level)
{
    for (pugi::xml_node child : element.children()) {
        if (child.type() != pugi::node_element)
            continue;
        auto node = std::make_unique<CHelpPrjTreeNode>();
        if (!node->Build(level, &scratch, document, child))
            continue;
        node->SetParentNode(&parent);
        CHelpPrjTreeNode* added = scratch.addItem(&parent, std::move(node), true);
        AddChildNodes(scratch, *added, child, document, level + 1);
    }
}

// A tree of one subtree's XML, as a copy, a cut or an undo snapshot holds it.
// Unlike a project's tree it looks at no page on disk, which keeps a move as
// quick in a project of a thousand pages as in an empty one.
bool LoadSubtree(CHelpPrjTree& scratch, const std::string& xml)
{
    CXMLFile file;
    try {
        if (file.LoadXml(xml) != 0) {
            Trace(kSource + std::string("LoadSubtree: ") + file.XmlParseError().Describe());
            return false;
        }
    } catch (const ScrivError& error) {
        Trace(kSource + std::string("LoadSubtree: ") + error.Description());
        return false;
    }
    pugi::xml_node element = file.DocumentElement();
    auto root = std::make_unique<CHelpPrjTreeNode>();
    if (!root->Build(1, &scratch, file.SharedDocument(), element))
        return false;
    CHelpPrjTreeNode* built = scratch.SetRoot(std::move(root));
    AddChildNodes(scratch, *built, element, file.SharedDocument(), 2);
    return true;
}

}  // namespace

std::string RefreshedNodeImage(const CHelpPrjTreeNode& node, const ITreeView& view)
{
    if (node.Skipped())
        return "no";
    if (node.ChildCount() == 0)
        return "helptopic";
    if (!view.Expanded(node.TreeViewNode()))
        return "hlpclose";
    return "openedBook";
}

void CHelpPrjTreeOperation::init(ITreeView* view, CHelpPrjTree* tree, const std::string& clipboardXml,
    const TreeOperationContext& context)
{
    m_view = view;
    m_tree = tree;
    m_context = &context;
    XMLSTr = Trim(clipboardXml);
}

void CHelpPrjTreeOperation::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_node = nullptr;
    m_parent = nullptr;
    m_view = nullptr;
    m_tree = nullptr;
    m_context = nullptr;
}

std::vector<std::string> CHelpPrjTreeOperation::CopyCollection(const std::vector<std::string>& keywords)
{
    return std::vector<std::string>(keywords.begin(), keywords.end());
}

template<typename F>
void CHelpPrjTreeOperation::Trapped(std::string_view procedure, F step)
{
    try {
        step();
        return;
    } catch (const ScrivError& error) {
        TraceLog().addMessage(kSource + std::string(procedure) + ": " + FormatCode(error.Code()) + " - "
                + error.Description() + " (" + error.Source() + ")",
            true);
    } catch (const std::exception& error) {
        TraceLog().addMessage(kSource + std::string(procedure) + ": " + error.what(), true);
    }
    m_retCode = kNotDone;
}

// --- dispatch ---

std::uint32_t CHelpPrjTreeOperation::ExecuteOperation(std::string_view name, UndoStack& undoStack,
    const std::string& sourceKey, const std::string& targetKey, const std::string& parentKey, std::string& parameter,
    bool& result)
{
    result = false;
    if (OperationName.empty())
        OperationName = std::string(name);
    m_retCode = kNotDone;
    m_errMessage.clear();
    if (m_terminated || !m_tree || !m_context)
        return m_retCode;
    m_sourceNodeParentKey = parentKey;
    SetWorkingNode(m_view ? m_tree->MapItem(m_view->SelectedKey()) : nullptr);
    bool changed = Dispatch(name, undoStack, sourceKey, targetKey, parameter, result);
    if (!m_tree->WasChanged())
        m_tree->SetWasChanged(changed);
    return m_retCode;
}

bool CHelpPrjTreeOperation::Dispatch(std::string_view name, UndoStack& undoStack, const std::string& sourceKey,
    const std::string& targetKey, std::string& parameter, bool& result)
{
    if (IsName(name, kCopy)) {
        Trapped("Copy", [&] { Copy(); });
        return true;
    }
    if (IsName(name, kCut)) {
        Trapped("Cut", [&] { Cut(false); });
        return true;
    }
    if (IsName(name, kPaste)) {
        Trapped("Paste", [&] { Paste(true, nullptr, nullptr, false, false, false); });
        return true;
    }
    if (IsName(name, kPasteSpecial)) {
        Trapped("PasteSpecial", [&] { PasteSpecial(); });
        return true;
    }
    if (IsName(name, kDelete)) {
        Trapped("Delete", [&] { Delete(false); });
        return true;
    }
    if (IsName(name, kUp)) {
        Trapped("Up", [&] { Up(); });
        return true;
    }
    if (IsName(name, kDown)) {
        Trapped("Down", [&] { Down(); });
        return true;
    }
    if (IsName(name, kLeft)) {
        Trapped("Left", [&] { Left(); });
        return true;
    }
    if (IsName(name, kRight)) {
        Trapped("Right", [&] { Right(); });
        return m_retCode == 0;
    }
    if (IsName(name, kMoveNode)) {
        Trapped("MoveNode", [&] { MoveNode(sourceKey, targetKey); });
        return true;
    }
    if (IsName(name, kNew)) {
        Trapped("AddNew", [&] { result = AddNew(parameter); });
        return result;
    }
    if (IsName(name, kAdd)) {
        Trapped("AddSelected", [&] { result = AddSelected(parameter); });
        return result;
    }
    if (IsName(name, kEditNodeIndex)) {
        Trapped("EditIndex", [&] { result = EditIndex(); });
        return result;
    }
    if (IsName(name, kUndo)) {
        Trapped("Undo", [&] { Undo(undoStack); });
        return false;
    }
    if (IsName(name, kHHC) || IsName(name, kXML)) {
        Trapped("MakeHHCAndXml", [&] { MakeHHCAndXml(); });
        return false;
    }
    if (IsName(name, kToggleSkippedFlag)) {
        Trapped("ToggleSkippedFlag", [&] { ToggleSkippedFlag(); });
        return false;
    }
    // "Edit" has no step of its own: captions are edited in place by the tree menu.
    if (!IsName(name, kEdit))
        Trace(kSource + std::string("ExecuteOperation: unknown operation '") + std::string(name) + "'");
    return false;
}

// --- working nodes ---

void CHelpPrjTreeOperation::SetWorkingNode(CHelpPrjTreeNode* node)
{
    m_node = node;
    m_parent = node ? node->ParentNode() : nullptr;
}

bool CHelpPrjTreeOperation::SelectWorkingNode(const std::string& key)
{
    CHelpPrjTreeNode* node = key.empty() ? nullptr : m_tree->MapItem(key);
    if (!node)
        return false;
    if (m_view && !node->TreeViewNode().empty())
        m_view->Select(node->TreeViewNode());
    SetWorkingNode(node);
    return true;
}

std::string CHelpPrjTreeOperation::WorkingSubtreeXml() const
{
    return m_node ? TrimWhitespace(m_node->XMLSTr(1, false, true, false, "")) : std::string();
}

void CHelpPrjTreeOperation::RefreshIcon(CHelpPrjTreeNode* node) const
{
    if (!node || node->Terminated() || !m_view || node->TreeViewNode().empty())
        return;
    if (!node->Skipped())
        node->SetIcon(node->ChildCount() > 0 ? "hlpclose" : "helptopic");
    m_view->SetImage(node->TreeViewNode(), RefreshedNodeImage(*node, *m_view));
}

// --- copy, delete, cut ---

void CHelpPrjTreeOperation::Copy()
{
    if (!m_node)
        return;
    m_node->SetOriginalKey(m_node->Key());
    if (m_parent)
        m_node->SetParentOriginalKey(m_parent->Key());
    XMLSTr = WorkingSubtreeXml();
    m_affectedXml = XMLSTr;
    m_retCode = 0;
}

void CHelpPrjTreeOperation::Delete(bool silent)
{
    m_silent = silent;
    if (!m_node)
        return;
    if (m_node->IsRootNode) {
        if (!silent)
            MsgBox("Root node cannot be deleted!", msgbox::kExclamation, kMessageBoxTitle, "", 0,
                "CHelpPrjTreeOperation.Delete");
        return;
    }
    std::string page = m_node->GeneratedHTMLFileFullPath();
    int answer = vbNo;
    if (!silent) {
        answer = MsgBox("Delete action removes the node from the contents tree." + std::string(kCrLf)
                + "Do you also want to delete the corresponding HTML page?",
            msgbox::kYesNoCancel | msgbox::kQuestion | msgbox::kDefaultButton3, kMessageBoxTitle, "", 0,
            "CHelpPrjTreeOperation.Delete");
    }
    if (answer != vbYes && answer != vbNo)
        return;

    CHelpPrjTreeNode* parent = m_parent;
    m_affectedXml = WorkingSubtreeXml();
    CHelpPrjTreeNode* doomed = m_node;
    SetWorkingNode(nullptr);
    m_parent = parent;
    // Leaves the tree, the key map and the view; the parent destroys it.
    doomed->Terminate();
    RefreshIcon(parent);
    if (m_view && parent && !parent->TreeViewNode().empty())
        m_view->Select(parent->TreeViewNode());
    m_retCode = 0;

    // The page goes for good: undo brings back the node, not the file.
    if (answer == vbYes && !page.empty() && FileExists(page) && !DeleteFileIfExists(page))
        Trace(kSource + std::string("Delete: cannot delete '") + page + "'");
}

void CHelpPrjTreeOperation::Cut(bool silent)
{
    Copy();
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    Delete(silent);
}

// --- paste ---

void CHelpPrjTreeOperation::Paste(bool withChildren, CHelpPrjTreeNode* nodeA, CHelpPrjTreeNode* nodeB, bool keepKeys,
    bool flagA, bool flagB)
{
    std::string text = TrimWhitespace(XMLSTr);
    if (text.empty() || !m_node)
        return;
    CHelpPrjTreeNode* target = m_node;

    CHelpPrjTree scratch;
    if (!LoadSubtree(scratch, text))
        return;
    if (!keepKeys)
        scratch.Root()->AssignNewKeysToAllNodesIfDuplicateInANewTree(m_tree, false);
    if (!withChildren)
        scratch.Root()->ClearChildrenCollection(false);

    CHelpPrjTreeNode* pasted
        = CHelpPrjTreeNode::Paste(scratch.ReleaseRoot(), target, m_view, m_tree, nodeA, nodeB, flagA, flagB);
    RestoreControlNodes(*pasted);
    if (m_view && !pasted->TreeViewNode().empty())
        m_view->Select(pasted->TreeViewNode());
    RefreshIcon(target);
    RefreshIcon(nodeA);
    RefreshIcon(nodeB);
    m_affectedXml = TrimWhitespace(pasted->XMLSTr(1, false, true, false, ""));
    SetWorkingNode(pasted);
    m_retCode = 0;
}

void CHelpPrjTreeOperation::RestoreControlNodes(CHelpPrjTreeNode& pasted)
{
    IFormDescriptions* descriptions = m_context->formDescriptions;
    if (!descriptions)
        return;
    std::vector<CHelpPrjTreeNode*> topics;
    pasted.Traverse(
        [&](CHelpPrjTreeNode& node) {
            if (node.IsObjectTopic())
                topics.push_back(&node);
        },
        false);
    for (CHelpPrjTreeNode* topic : topics)
        m_tree->AddControlsIfAbsent(*topic, *descriptions, m_context->useControlNames);
}

void CHelpPrjTreeOperation::PasteSpecial()
{
    std::string text = TrimWhitespace(XMLSTr);
    if (text.empty() || !m_node)
        return;
    CXMLFile clipboard;
    if (clipboard.LoadXml(text) != 0)
        return;
    bool hasChildren = false;
    for (pugi::xml_node child : clipboard.DocumentElement().children())
        hasChildren = hasChildren || child.type() == pugi::node_element;
    bool withChildren = true;
    if (hasChildren) {
        withChildren = MsgBox("Would you like to paste child nodes?", msgbox::kYesNo | msgbox::kQuestion,
                           kMessageBoxTitle, "", 0, "CHelpPrjTreeOperation.PasteSpecial")
            == vbYes;
    }
    Paste(withChildren, nullptr, nullptr, false, false, false);
}

// --- moves: a silent cut, then a paste that keeps the keys ---

void CHelpPrjTreeOperation::Up()
{
    if (!m_node || !m_parent)
        return;
    auto index = m_node->IndexInParent();
    if (!index || *index == 0)
        return;
    CHelpPrjTreeNode* parent = m_parent;
    CHelpPrjTreeNode* above = parent->Child(*index - 1);
    Cut(true);
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    SetWorkingNode(parent);
    Paste(true, above, nullptr, true, true, false);
}

void CHelpPrjTreeOperation::Down()
{
    if (!m_node || !m_parent)
        return;
    auto index = m_node->IndexInParent();
    if (!index || *index + 1 >= m_parent->ChildCount())
        return;
    CHelpPrjTreeNode* parent = m_parent;
    CHelpPrjTreeNode* below = parent->Child(*index + 1);
    Cut(true);
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    SetWorkingNode(parent);
    Paste(true, below, nullptr, true, false, false);
}

void CHelpPrjTreeOperation::Left()
{
    if (!m_node || !m_parent)
        return;
    CHelpPrjTreeNode* formerParent = m_parent;
    CHelpPrjTreeNode* grandparent = formerParent->ParentNode();
    if (m_node->Level() <= 2 || !grandparent)
        return;
    Cut(true);
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    SetWorkingNode(grandparent);
    Paste(true, formerParent, nullptr, true, true, false);
}

void CHelpPrjTreeOperation::Right()
{
    if (!m_node || !m_parent)
        return;
    auto index = m_node->IndexInParent();
    if (!index || *index + 1 >= m_parent->ChildCount())
        return;
    // The node goes under the sibling below it, as its first child.
    CHelpPrjTreeNode* next = m_parent->Child(*index + 1);
    if (IsControlLike(*next)) {
        m_errMessage = "Forbidden operation for controls: control can't be a target of copy, move or paste operation.";
        return;
    }
    if (next->Skipped())
        return;
    CHelpPrjTreeNode* firstChild = next->ChildCount() > 0 ? next->Child(0) : nullptr;
    Cut(true);
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    SetWorkingNode(next);
    Paste(true, firstChild, nullptr, true, true, false);
}

void CHelpPrjTreeOperation::MoveNode(const std::string& sourceKey, const std::string& targetKey)
{
    m_sourceNodeKey = sourceKey;
    m_targetNodeKey = targetKey;
    // Both ends must be there, and the target outside the moved subtree, before
    // anything is cut, so that a node is never lost.
    CHelpPrjTreeNode* target = m_tree->MapItem(targetKey);
    if (!target || !SelectWorkingNode(sourceKey) || !m_parent)
        return;
    bool inside = false;
    m_node->Traverse([&](CHelpPrjTreeNode& node) { inside = inside || &node == target; }, false);
    if (inside)
        return;
    if (m_sourceNodeParentKey.empty())
        m_sourceNodeParentKey = m_parent->Key();
    Cut(true);
    if (m_retCode != 0)
        return;
    m_retCode = kNotDone;
    if (!SelectWorkingNode(targetKey))
        return;
    RefreshIcon(m_node);
    RefreshIcon(m_parent);
    Paste(true, nullptr, nullptr, false, false, false);
}

// --- new and added pages ---

CHelpPrjTreeNode* CHelpPrjTreeOperation::AddDocumentNode(const std::string& title, const std::string& templatePath,
    const std::string& pageFile)
{
    CHelpPrjTreeNode* parent = m_node;
    int level = parent->Level() + 1;
    std::string xml = "<document Level=\"" + std::to_string(level) + "\" ";
    AppendAttribute(xml, "Caption", title);
    AppendAttribute(xml, "Title", title);
    if (!templatePath.empty())
        AppendAttribute(xml, "TemplateHtmlFile", templatePath);
    // The spelling is the one the project files have always had.
    AppendAttribute(xml, "GeneratedHtmlFIle", pageFile);
    if (!m_context->charset.empty())
        AppendAttribute(xml, "Charset", m_context->charset);
    if (!m_context->cssFullPath.empty())
        AppendAttribute(xml, "CSSFullPath", m_context->cssFullPath);
    AppendAttribute(xml, "icon", "helptopic");
    AppendAttribute(xml, "Key", "newNode" + std::string("x") + CHelpPrjTreeNode::GeneratedKeySuffix());
    AppendAttribute(xml, "pkey", parent->Key());
    xml += "/>";

    CXMLFile element;
    if (element.LoadXml(xml) != 0) {
        Trace(kSource + std::string("AddDocumentNode: ") + element.XmlParseError().Describe() + " in " + xml);
        return nullptr;
    }
    auto node = std::make_unique<CHelpPrjTreeNode>();
    if (!node->Build(level, m_tree, element.SharedDocument(), element.DocumentElement()))
        return nullptr;
    node->AssignNewKeyIfDuplicate(m_tree);
    CHelpPrjTreeNode* added
        = CHelpPrjTreeNode::Paste(std::move(node), parent, m_view, m_tree, nullptr, nullptr, false, false);
    m_affectedXml = TrimWhitespace(added->XMLSTr(1, false, true, false, ""));
    if (m_view && !added->TreeViewNode().empty())
        m_view->Select(added->TreeViewNode());
    RefreshIcon(parent);
    return added;
}

bool CHelpPrjTreeOperation::AddNew(std::string& parameter)
{
    if (!m_node)
        return false;
    if (m_context->projectFolder.empty()) {
        Trace(kSource + std::string("AddNew: no project folder"));
        return false;
    }
    std::string title = Trim(parameter);
    std::string path;
    for (;;) {
        if (title.empty()) {
            std::optional<std::string> answer = InputBox("Give topic title", kMessageBoxTitle, "");
            title = answer ? Trim(*answer) : std::string();
            if (title.empty())
                return false;
        }
        path = AddBackslash(m_context->projectFolder) + PageFileBaseName(title) + ".htm";
        if (!FileExists(path))
            break;
        MsgBox("'" + title + "' - HTML page with this file name already exists.", msgbox::kExclamation,
            kMessageBoxTitle, "", 0, "CHelpPrjTreeOperation.AddNew");
        title.clear();
    }

    if (!AddDocumentNode(title, m_context->newTopicTemplate, FileNameOf(path)))
        return false;
    if (m_context->writeNewTopicPage) {
        NewTopicPage page { m_context->newTopicTemplate, path, title, m_context->charset, m_context->cssFullPath };
        if (!m_context->writeNewTopicPage(page))
            Trace(kSource + std::string("AddNew: the page '") + path + "' was not written");
    } else {
        Trace(kSource + std::string("AddNew: no page writer; '") + path + "' waits for its first save");
    }
    m_retCode = 0;
    parameter = path;
    return true;
}

bool CHelpPrjTreeOperation::AddSelected(const std::string& path)
{
    if (path.empty() || !m_node || !FileExists(path))
        return false;
    std::string fileName = FileNameOf(path);

    // A page the tree knows already keeps its caption.
    std::string title;
    for (const auto& entry : m_tree->MapItems()) {
        const CHelpPrjTreeNode* known = entry.value;
        if (known->Bookmark().empty() && EqualsNoCase(known->GeneratedHTMLFile(), fileName)) {
            title = known->Caption();
            break;
        }
    }
    if (title.empty())
        title = ReplaceAll(FileBaseName(path), "_", " ");

    std::string page = path;
    std::string folder = AddBackslash(m_context->projectFolder);
    if (!SameFolder(FolderOf(path), folder)) {
        std::string copy = folder + fileName;
        // Another page of that name in the project is never overwritten.
        if (FileExists(copy) && !FilesAreEqual(path, copy)) {
            MsgBox("'" + fileName + "' - HTML page with this file name already exists.", msgbox::kExclamation,
                kMessageBoxTitle, "", 0, "CHelpPrjTreeOperation.AddSelected");
            return false;
        }
        if (!FileExists(copy) && !CopyFileOver(path, copy)) {
            Trace(kSource + std::string("AddSelected: cannot copy '") + path + "' to '" + copy + "'");
            return false;
        }
        page = copy;
    }
    if (!m_context->cssFullPath.empty() && m_context->adoptAddedPage)
        m_context->adoptAddedPage(page, m_context->cssFullPath);

    if (!AddDocumentNode(title, "", fileName))
        return false;
    m_retCode = 0;
    return true;
}

// --- index entries ---

bool CHelpPrjTreeOperation::EditIndex()
{
    if (!m_node || !m_context->showIndexEntries)
        return false;
    CHelpPrjTreeNode& node = *m_node;
    std::string formPath = AddBackslash(m_context->xmlFormsFolder) + node.XmlFormFileName();
    CXmlForm form;
    std::string* stored = nullptr; // where the entries live in the form description
    std::vector<std::string> entries;
    bool inDescription = IsControlLike(node) || IsIndexedObjectType(node.ObjectType());

    if (inDescription) {
        if (m_context->xmlFormsFolder.empty() || !FileExists(formPath) || !form.Load(formPath)) {
            Trace(kSource + std::string("EditIndex: no form description '") + formPath + "'");
            return false;
        }
        if (IsControlLike(node)) {
            CXmlMenu* menu = form.GetMenu(node.Name());
            CXmlControl* control = form.GetControl(node.Name());
            if (node.IsMenu && menu)
                stored = &menu->Indexes;
            else if (control)
                stored = &control->Indexes;
            else if (menu)
                stored = &menu->Indexes;
        } else {
            stored = &form.Indexes;
        }
        if (stored)
            entries = SplitIndexes(*stored);
    } else {
        entries = CopyCollection(node.IndexesCollection());
        XMLSTr = WorkingSubtreeXml();
    }

    frmHHCEntryIndexKeywords dialog;
    dialog.init(std::move(entries));
    m_context->showIndexEntries(dialog);
    if (!dialog.IsValid())
        return false;

    if (!inDescription) {
        node.SetIndexesCollection(dialog.IndexesCollection());
        return true;
    }
    if (!stored) {
        Trace(kSource + std::string("EditIndex: '") + node.Name() + "' is not in " + formPath);
        return false;
    }
    *stored = Join(dialog.IndexesCollection(), "|");
    if (form.SaveXml(m_context->xmlFormsFolder, formPath).empty()) {
        Trace(kSource + std::string("EditIndex: cannot save '") + formPath + "'");
        return false;
    }
    return true;
}

// --- inspection and marks ---

void CHelpPrjTreeOperation::MakeHHCAndXml()
{
    if (!m_node)
        return;
    HHCStr = scriv::HHCStr(*m_node, 1, true, false);
    XMLSTr = WorkingSubtreeXml();
    m_retCode = 0;
}

void CHelpPrjTreeOperation::ToggleSkippedFlag()
{
    // Not undoable: the mark is flipped and RetCode stays at not done.
    m_tree->KeyDown(kInsertKey, false);
}

// --- undo ---

void CHelpPrjTreeOperation::Undo(UndoStack& undoStack)
{
    // Steps over (and consumes) what changed nothing in the tree.
    CHelpPrjTreeOperation* entry = nullptr;
    while (!undoStack.empty()) {
        CHelpPrjTreeOperation* newest = undoStack.back();
        undoStack.pop_back();
        if (newest->RetCode() == 0 && !IsAnyOf(newest->OperationName, { kHHC, kXML, kCopy, kUndo })) {
            entry = newest;
            break;
        }
    }
    if (entry)
        UndoEntry(*entry);
}

void CHelpPrjTreeOperation::UndoEntry(const CHelpPrjTreeOperation& entry)
{
    const std::string& name = entry.OperationName;
    if (IsName(name, kMoveNode)) {
        // Back under the former parent, as its last child.
        MoveNode(entry.SourceNodeKey(), entry.SourceNodeParentKey());
        return;
    }

    CHelpPrjTree snapshot;
    if (entry.OperationAffectedXML().empty() || !LoadSubtree(snapshot, entry.OperationAffectedXML()))
        return;
    CHelpPrjTreeNode& shot = *snapshot.Root();

    if (IsAnyOf(name, { kCut, kDelete })) {
        CHelpPrjTreeNode* parent = shot.ParentKey().empty() ? nullptr : m_tree->MapItem(shot.ParentKey());
        if (!parent)
            return;
        auto sibling = [&](const std::string& key) -> CHelpPrjTreeNode* {
            CHelpPrjTreeNode* node = key.empty() ? nullptr : m_tree->MapItem(key);
            return node && node->ParentNode() == parent ? node : nullptr;
        };
        CHelpPrjTreeNode* previous = sibling(shot.PreviousNodeKey());
        CHelpPrjTreeNode* next = sibling(shot.NextNodeKey());
        CHelpPrjTreeNode* restored
            = CHelpPrjTreeNode::Paste(snapshot.ReleaseRoot(), parent, m_view, m_tree, previous, next, false, false);
        RestoreControlNodes(*restored);
        if (m_view && !restored->TreeViewNode().empty())
            m_view->Select(restored->TreeViewNode());
        RefreshIcon(parent);
        m_retCode = 0;
        return;
    }

    CHelpPrjTreeNode* live = m_tree->MapItem(shot.Key());
    if (!live)
        return;
    if (IsAnyOf(name, { kPaste, kPasteSpecial, kAdd, kNew })) {
        // The page of "New" or "Add" stays on disk.
        SelectWorkingNode(live->Key());
        Delete(true);
        m_retCode = 0;
    } else if (IsAnyOf(name, { kUp, kDown, kLeft, kRight })) {
        SelectWorkingNode(live->Key());
        if (IsName(name, kUp))
            Down();
        else if (IsName(name, kDown))
            Up();
        else if (IsName(name, kLeft))
            Right();
        else
            Left();
        m_retCode = 0;
    } else if (IsName(name, kEdit)) {
        if (live->Caption() != shot.Caption()) {
            live->SetCaption(shot.Caption());
            if (m_view && !live->TreeViewNode().empty())
                m_view->SetText(live->TreeViewNode(), live->Caption());
        }
        live->SetHtmlTitle(shot.HtmlTitle());
        live->SetTemplateHtmlFile(shot.TemplateHtmlFile());
        live->SetGeneratedHTMLFile(shot.GeneratedHTMLFile());
        if (live->Icon() != shot.Icon()) {
            live->SetIcon(shot.Icon());
            if (m_view && !live->TreeViewNode().empty())
                m_view->SetImage(live->TreeViewNode(), shot.Icon());
        }
        m_retCode = 0;
    }
}

}  // namespace scriv
