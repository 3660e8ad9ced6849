#include "model/CHelpPrjTreeNode.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "foundation/CXmlMessages.h"
#include "foundation/DateTime.h"
#include "foundation/EventLoop.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/ITreeView.h"
#include "model/TemplateFolders.h"

namespace scriv {

bool processcode::IsListCode(int code)
{
    return (code >= kFormsList && code <= kMacrosList) || code == kWorksheetsList || code == kChartsList;
}

namespace {

constexpr int kInsertKey = 45;

// The folder the pages of this project live in.
std::string ProjectFolder(const CHelpPrjTree* tree)
{
    if (CAddInProject* project = CurrentAddInProject())
        return AddBackslash(project->Folder);
    return tree ? AddBackslash(tree->HTMLHelpProjectRootDir) : std::string();
}

}  // namespace

CHelpPrjTreeNode::CHelpPrjTreeNode() = default;

CHelpPrjTreeNode::~CHelpPrjTreeNode()
{
    // Whoever destroys a node has taken it out of the map already; a destructor
    // only has to let the children go.
    m_terminated = true;
}

bool CHelpPrjTreeNode::Build(int level, CHelpPrjTree* tree, std::shared_ptr<pugi::xml_document> document,
    pugi::xml_node element)
{
    if (!element || element.type() != pugi::node_element)
        return false;
    m_tree = tree;
    m_document = std::move(document);
    m_element = element;
    m_tag = element.name();
    m_level = level;
    m_positions.clear();
    m_overlay.clear();
    ClearCaches();
    return true;
}

// --- the attribute bag ---

pugi::xml_attribute CHelpPrjTreeNode::FindAttribute(const std::string& lowerName) const
{
    if (!m_element)
        return {};
    auto known = m_positions.find(lowerName);
    if (known != m_positions.end())
        return known->second;
    for (pugi::xml_attribute attribute : m_element.attributes()) {
        if (ToLower(attribute.name()) == lowerName) {
            m_positions.emplace(lowerName, attribute);
            return attribute;
        }
    }
    return {};
}

std::string CHelpPrjTreeNode::DefaultValue(const std::string& lowerName) const
{
    if (lowerName == "processcode")
        return "0";
    if (lowerName == "type" || lowerName == "objecttype")
        return "-1";
    if (lowerName == "hidden" || lowerName == "skipped")
        return "false";
    return {};
}

std::string CHelpPrjTreeNode::RawPropertyValue(std::string_view name) const
{
    if (m_terminated)
        return {};
    std::string lower = ToLower(name);
    if (pugi::xml_attribute attribute = FindAttribute(lower))
        return attribute.value();
    auto slot = m_overlay.find(lower);
    if (slot != m_overlay.end())
        return slot->second;
    return {};
}

std::string CHelpPrjTreeNode::PropertyValue(std::string_view name) const
{
    if (m_terminated)
        return {};
    std::string lower = ToLower(name);
    std::string value;
    if (pugi::xml_attribute attribute = FindAttribute(lower)) {
        value = attribute.value();
    } else {
        auto slot = m_overlay.find(lower);
        if (slot == m_overlay.end())
            slot = m_overlay.emplace(lower, DefaultValue(lower)).first;
        value = slot->second;
    }
    return ApplyTagReplacement(std::move(value));
}

void CHelpPrjTreeNode::SetPropertyValue(std::string_view name, std::string value)
{
    if (m_terminated)
        return;
    std::string lower = ToLower(name);
    if (pugi::xml_attribute attribute = FindAttribute(lower))
        attribute.set_value(value.c_str());
    else
        m_overlay[lower] = std::move(value);
    if (lower == "templatehtmlfile" || lower == "html" || lower == "htm")
        m_templateHtmlFile.reset();
    else if (lower == "generatedhtmlfile" || lower == "genhtml")
        m_generatedHtmlFile.reset();
    else if (StartsWithNoCase(lower, "indexes"))
        m_indexes.reset();
}

std::string CHelpPrjTreeNode::ApplyTagReplacement(std::string value) const
{
    if (value.find('{') == std::string::npos)
        return value;
    IHostAgent* agent = CurrentHostAgent();
    if (!agent)
        return value;
    std::string location = agent->CurrentSourceProjectLocation();
    if (location.empty())
        location = TempFolder();
    return Parameters().ReplaceTags(value, true, location, agent->CurrentSourceProjectName());
}

std::string CHelpPrjTreeNode::MessageLookup(std::string value) const
{
    if (CharCount(value) > 2 && value.rfind("{{", 0) == 0) {
        if (CXmlMessages* messages = CurrentMessages()) {
            std::string text = messages->GetMessage(value);
            if (!text.empty())
                return text;
        }
    }
    return value;
}

void CHelpPrjTreeNode::ClearCaches()
{
    m_templateHtmlFile.reset();
    m_generatedHtmlFile.reset();
    m_indexes.reset();
}

// --- attributes ---

int CHelpPrjTreeNode::ObjectType() const
{
    std::string value = Trim(PropertyValue("type"));
    return value.empty() ? objtype::kNone : ToInt(value);
}

int CHelpPrjTreeNode::ProcessCode() const
{
    return ToInt(PropertyValue("ProcessCode"));
}

std::string CHelpPrjTreeNode::Caption() const
{
    return MessageLookup(PropertyValue("Caption"));
}

std::string CHelpPrjTreeNode::HtmlTitle() const
{
    return MessageLookup(PropertyValue("Title"));
}

std::string CHelpPrjTreeNode::Key() const
{
    std::string key = PropertyValue("Key");
    return key.empty() ? m_tag : key;
}

std::string CHelpPrjTreeNode::CSSFullPath() const
{
    std::string stored = PropertyValue("CSSFullPath");
    if (stored.empty())
        return {};
    return ProjectFolder(m_tree) + FileNameOf(stored);
}

bool CHelpPrjTreeNode::Skipped() const
{
    std::string value = Trim(PropertyValue("skipped"));
    if (value.empty())
        return false;
    if (auto number = ParseNumber(value))
        return *number != 0;
    return EqualsNoCase(value, "true");
}

std::string CHelpPrjTreeNode::TemplateHtmlFile() const
{
    if (!m_templateHtmlFile) {
        std::string value = PropertyValue("TemplateHtmlFile");
        if (value.empty())
            value = PropertyValue("html");
        if (value.empty())
            value = PropertyValue("htm");
        m_templateHtmlFile = value;
    }
    return *m_templateHtmlFile;
}

void CHelpPrjTreeNode::SetTemplateHtmlFile(std::string value)
{
    m_templateHtmlFile = std::move(value);
}

std::string CHelpPrjTreeNode::TemplateHtmlFileNameExtOnly() const
{
    return FileNameOf(TemplateHtmlFile());
}

std::string CHelpPrjTreeNode::TemplateHtmlFileFullPath() const
{
    std::string file = TemplateHtmlFile();
    if (file.empty())
        return {};
    if (IsAbsolutePath(file))
        return file;
    return TemplateFullPath(file);
}

std::string CHelpPrjTreeNode::GeneratedHTMLFile() const
{
    if (!m_generatedHtmlFile) {
        std::string value = PropertyValue("GeneratedHtmlFile");
        if (value.empty())
            value = PropertyValue("genhtml");
        m_generatedHtmlFile = FileNameOf(value);
    }
    return *m_generatedHtmlFile;
}

void CHelpPrjTreeNode::SetGeneratedHTMLFile(std::string_view value)
{
    std::string name = FileNameOf(value);
    if (FindAttribute("genhtml") && !FindAttribute("generatedhtmlfile"))
        SetPropertyValue("genhtml", name);
    else
        SetPropertyValue("GeneratedHtmlFile", name);
    m_generatedHtmlFile = name;
}

std::string CHelpPrjTreeNode::GeneratedHTMLFileFullPath() const
{
    std::string file = GeneratedHTMLFile();
    if (file.empty())
        return {};
    return ProjectFolder(m_tree) + file;
}

std::string CHelpPrjTreeNode::HTMLFileNameNoExt() const
{
    return FileBaseName(GeneratedHTMLFile());
}

std::string CHelpPrjTreeNode::HTMLFileRef(bool bold) const
{
    std::string text = Parameters().IdentifyControls() == 1 ? Name() : Caption();
    text = RemoveAll(text, "&");
    if (bold)
        text = "<B>" + text + "</B>";
    return "<a href=\"" + GeneratedHTMLFile() + "\">" + text + "</a>";
}

std::string CHelpPrjTreeNode::NodeComponentTypeName() const
{
    switch (ObjectType()) {
    case objtype::kTable:
        return "Table";
    case objtype::kQuery:
        return "Query";
    case objtype::kForm:
        return "Form";
    case objtype::kReport:
        return "Report";
    case objtype::kMacro:
        return "Macro";
    default:
        return {};
    }
}

std::string CHelpPrjTreeNode::XmlFormFileName() const
{
    return FileBaseName(GeneratedHTMLFile()) + ".xml";
}

std::string CHelpPrjTreeNode::XmlFormFullPath() const
{
    CAddInProject* project = CurrentAddInProject();
    if (!project)
        return {};
    return project->XmlFormsFolder() + XmlFormFileName();
}

const std::vector<std::string>& CHelpPrjTreeNode::IndexesCollection() const
{
    if (!m_indexes) {
        std::vector<std::string> keywords;
        auto addPieces = [&](const std::string& chunk) {
            for (std::string& piece : Split(chunk, "|"))
                if (!piece.empty())
                    keywords.push_back(std::move(piece));
        };
        addPieces(PropertyValue("Indexes"));
        for (int i = 1; i <= 100; ++i) {
            std::string chunk = PropertyValue("Indexes" + std::to_string(i));
            if (chunk.empty())
                break;
            addPieces(chunk);
        }
        m_indexes = std::move(keywords);
    }
    return *m_indexes;
}

void CHelpPrjTreeNode::SetIndexesCollection(std::vector<std::string> keywords)
{
    m_indexes = std::move(keywords);
}

// --- place in the tree ---

void CHelpPrjTreeNode::SetHelpPrjTree(CHelpPrjTree* tree)
{
    m_tree = tree;
    for (auto& child : m_children)
        child->SetHelpPrjTree(tree);
}

std::optional<std::size_t> CHelpPrjTreeNode::IndexInParent() const
{
    if (!m_parent)
        return std::nullopt;
    const auto& siblings = m_parent->m_children;
    for (std::size_t i = 0; i < siblings.size(); ++i)
        if (siblings[i].get() == this)
            return i;
    return std::nullopt;
}

std::unique_ptr<CHelpPrjTreeNode> CHelpPrjTreeNode::DetachChild(const CHelpPrjTreeNode* child)
{
    for (auto it = m_children.begin(); it != m_children.end(); ++it) {
        if (it->get() == child) {
            std::unique_ptr<CHelpPrjTreeNode> detached = std::move(*it);
            m_children.erase(it);
            detached->m_parent = nullptr;
            return detached;
        }
    }
    return nullptr;
}

CHelpPrjTreeNode* CHelpPrjTreeNode::InsertChild(std::size_t position, std::unique_ptr<CHelpPrjTreeNode> child)
{
    position = std::min(position, m_children.size());
    child->m_parent = this;
    CHelpPrjTreeNode* raw = child.get();
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(position), std::move(child));
    return raw;
}

// --- removal ---

void CHelpPrjTreeNode::Terminate()
{
    if (m_terminated)
        return;
    // Children first; each leaves this node's collection as it goes.
    std::vector<CHelpPrjTreeNode*> children;
    for (auto& child : m_children)
        children.push_back(child.get());
    for (CHelpPrjTreeNode* child : children)
        child->Terminate();
    m_children.clear();

    RemoveFromTreview();
    m_terminated = true;
    // Leaving the parent destroys this node, so it is the very last step.
    std::unique_ptr<CHelpPrjTreeNode> self;
    if (m_parent)
        self = m_parent->DetachChild(this);
}

void CHelpPrjTreeNode::RemoveKeysFromKeyMap()
{
    if (!m_tree)
        return;
    m_tree->RemoveChildNodesFromMap(this);
    m_tree->RemoveFromMap(this);
}

void CHelpPrjTreeNode::RemoveFromTreview()
{
    if (m_tree)
        m_tree->RemoveFromMap(this);
    if (m_treeView && !m_treeViewNode.empty())
        m_treeView->Remove(m_treeViewNode);
    m_treeViewNode.clear();
}

void CHelpPrjTreeNode::DropChildrenControls()
{
    std::vector<CHelpPrjTreeNode*> controls;
    for (auto& child : m_children)
        if (child->IsControl || child->IsMenu)
            controls.push_back(child.get());
    for (CHelpPrjTreeNode* control : controls) {
        if (m_tree)
            m_tree->RemoveChildNodesFromMap(control);
        control->Terminate();
    }
}

void CHelpPrjTreeNode::ClearChildrenCollection(bool terminateChildren)
{
    std::vector<CHelpPrjTreeNode*> children;
    for (auto& child : m_children)
        children.push_back(child.get());
    for (CHelpPrjTreeNode* child : children) {
        // A node that goes away must not stay behind in the map, with or
        // without its descendants.
        if (m_tree) {
            m_tree->RemoveChildNodesFromMap(child);
            m_tree->RemoveFromMap(child);
        }
        if (terminateChildren)
            child->Terminate();
    }
    m_children.clear();
}

// --- keys ---

std::string CHelpPrjTreeNode::GeneratedKeySuffix()
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", SecondsSinceMidnight());
    std::string text = buffer;
    // "45296.81" becomes "4529681": all but the last three, then the last two.
    return text.substr(0, text.size() - 3) + text.substr(text.size() - 2);
}

namespace {

std::string KeyStem(std::string key)
{
    // A key that ends in "_" was made unique before: take the old suffix off.
    if (!key.empty() && key.back() == '_') {
        key.pop_back();
        std::size_t position = key.rfind('_');
        if (position != std::string::npos)
            key = key.substr(0, key.size() - position - 1);
    }
    return key;
}

std::string UniqueSuffixedKey(const std::string& stem, const CHelpPrjTree& tree)
{
    auto started = std::chrono::steady_clock::now();
    std::string candidate = stem + "_" + CHelpPrjTreeNode::GeneratedKeySuffix() + "_";
    while (tree.MapItem(candidate)) {
        // The suffix is a clock reading: let time pass while the UI gets a turn.
        LogicLoop().RunPending();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        if (std::chrono::steady_clock::now() - started > std::chrono::seconds(3))
            Raise(10, "CHelpPrjTreeNode.TestKeyIsDuplicate", "Can't generate treeview node key suffix.");
        candidate = stem + "_" + CHelpPrjTreeNode::GeneratedKeySuffix() + "_";
    }
    return candidate;
}

}  // namespace

void CHelpPrjTreeNode::AssignNewKeyIfDuplicate(CHelpPrjTree* tree)
{
    CHelpPrjTree* target = tree ? tree : m_tree;
    if (!target || !target->TreeView())
        return;
    if (!target->MapItem(Key()))
        return;
    SetKey(UniqueSuffixedKey(KeyStem(Key()), *target));
    for (auto& child : m_children)
        child->AssignNewKeyIfDuplicate(target);
}

void CHelpPrjTreeNode::AssignNewKeysToAllNodesIfDuplicateInANewTree(CHelpPrjTree* tree, bool skipSerializerNodes)
{
    if (!tree)
        return;
    if (tree->MapItem(Key()))
        SetKey(UniqueSuffixedKey(KeyStem(Key()), *tree));
    for (auto& child : m_children) {
        if (skipSerializerNodes && child->HasSerializer())
            continue;
        child->AssignNewKeysToAllNodesIfDuplicateInANewTree(tree, skipSerializerNodes);
    }
}

void CHelpPrjTreeNode::AdjustChildrenNodesLevel(int level, bool skipSerializerNodes)
{
    for (auto& child : m_children) {
        child->m_level = level + 1;
        if (skipSerializerNodes && child->HasSerializer())
            continue;
        child->AdjustChildrenNodesLevel(level + 1, skipSerializerNodes);
    }
}

CHelpPrjTreeNode* CHelpPrjTreeNode::Paste(std::unique_ptr<CHelpPrjTreeNode> node, CHelpPrjTreeNode* parent,
    ITreeView* treeView, CHelpPrjTree* tree, CHelpPrjTreeNode* previous, CHelpPrjTreeNode* next, bool beforePrevious,
    bool afterNext)
{
    node->m_treeView = treeView;
    node->SetHelpPrjTree(tree);
    node->AssignNewKeyIfDuplicate(tree);
    node->m_level = parent->Level() + 1;
    node->AdjustChildrenNodesLevel(node->m_level, true);

    if (treeView) {
        std::string relativeKey = parent->TreeViewNode();
        TreeRelationship relationship = TreeRelationship::Child;
        if (previous && !previous->TreeViewNode().empty()) {
            relativeKey = previous->TreeViewNode();
            relationship = beforePrevious ? TreeRelationship::Previous : TreeRelationship::Next;
        } else if (next && !next->TreeViewNode().empty()) {
            relativeKey = next->TreeViewNode();
            relationship = afterNext ? TreeRelationship::Next : TreeRelationship::Previous;
        }
        node->DisplayInTreeview(treeView, tree, true, relativeKey, static_cast<int>(relationship));
    }

    CHelpPrjTreeNode* pasted = tree->addItem(parent, std::move(node), true, previous, next, true, beforePrevious, afterNext);
    pasted->IsRootNode = false;
    pasted->m_parent = parent;
    return pasted;
}

// --- display ---

std::string NodeImage(const CHelpPrjTreeNode& node)
{
    if (node.Skipped())
        return "no";
    return node.ChildCount() > 0 ? "hlpclose" : "helptopic";
}

void CHelpPrjTreeNode::DisplayInTreeview(ITreeView* view, CHelpPrjTree* tree, bool skipSerializerNodes,
    const std::string& relativeKey, int relationship)
{
    if (!view)
        return;
    if (tree && !tree->NewHtmlHelpProject() && HasSerializer())
        return;
    m_treeView = view;
    if (tree)
        m_tree = tree;

    std::string image = Icon();
    if (!(HasSerializer() && skipSerializerNodes)) {
        image = m_children.empty() ? "helptopic" : "hlpclose";
        SetIcon(image);
        if (Skipped())
            image = "no";
    }
    std::string relative = relativeKey;
    auto how = static_cast<TreeRelationship>(relationship);
    if (relative.empty() && m_parent && !m_parent->TreeViewNode().empty()) {
        relative = m_parent->TreeViewNode();
        how = TreeRelationship::Child;
    } else if (relative.empty()) {
        how = TreeRelationship::Last;
    }
    if (view->Add(relative, how, Key(), Caption(), image))
        m_treeViewNode = Key();

    for (auto& child : m_children)
        child->DisplayInTreeview(view, tree, skipSerializerNodes);
}

void CHelpPrjTreeNode::Expand()
{
    if (!m_treeView || m_treeViewNode.empty())
        return;
    if (!Skipped() && !m_children.empty())
        m_treeView->SetImage(m_treeViewNode, "openedBook");
    m_treeView->SetExpanded(m_treeViewNode, true);
}

void CHelpPrjTreeNode::Collapse()
{
    if (!m_treeView || m_treeViewNode.empty())
        return;
    m_treeView->SetImage(m_treeViewNode, Skipped() ? "no" : Icon());
    m_treeView->SetExpanded(m_treeViewNode, false);
}

void CHelpPrjTreeNode::KeyDown(int keyCode, bool withChildren)
{
    if (keyCode != kInsertKey)
        return;
    bool skipped = !Skipped();
    std::function<void(CHelpPrjTreeNode&, bool)> apply = [&](CHelpPrjTreeNode& node, bool state) {
        node.SetSkipped(state);
        if (node.m_treeView && !node.m_treeViewNode.empty())
            node.m_treeView->SetImage(node.m_treeViewNode, state ? "no" : node.Icon());
        if (withChildren)
            for (auto& child : node.m_children)
                apply(*child, state);
    };
    apply(*this, skipped);
}

void CHelpPrjTreeNode::SetNodeCaption(const std::string& caption)
{
    SetCaption(caption);
    if (m_treeView && !m_treeViewNode.empty())
        m_treeView->SetText(m_treeViewNode, Caption());
}

// --- lookups ---

int CHelpPrjTreeNode::NodesQty() const
{
    int count = static_cast<int>(m_children.size());
    for (const auto& child : m_children)
        count += child->NodesQty();
    return count;
}

bool CHelpPrjTreeNode::NodeFileNameDefined(std::string_view fileName) const
{
    for (const auto& child : m_children) {
        if (EqualsNoCase(child->GeneratedHTMLFile(), fileName))
            return true;
        if (child->NodeFileNameDefined(fileName))
            return true;
    }
    return false;
}

std::string CHelpPrjTreeNode::GetNodeHtmlRef(std::string_view name, std::string_view tag) const
{
    if (EqualsNoCase(Name(), name) && EqualsNoCase(m_tag, tag))
        return HTMLFileRef(false);
    for (const auto& child : m_children) {
        std::string found = child->GetNodeHtmlRef(name, tag);
        if (!found.empty())
            return found;
    }
    return {};
}

std::string CHelpPrjTreeNode::GetNodeHtmlFileNameNoExt(std::string_view name, std::string_view tag) const
{
    if (EqualsNoCase(Name(), name) && EqualsNoCase(m_tag, tag))
        return HTMLFileNameNoExt();
    for (const auto& child : m_children) {
        std::string found = child->GetNodeHtmlFileNameNoExt(name, tag);
        if (!found.empty())
            return found;
    }
    return {};
}

bool CHelpPrjTreeNode::HtmlFileNameIsUsed(std::string_view nameNoExt) const
{
    if (EqualsNoCase(HTMLFileNameNoExt(), nameNoExt))
        return true;
    // Only the first child is asked, on purpose.
    return !m_children.empty() && m_children.front()->HtmlFileNameIsUsed(nameNoExt);
}

CHelpPrjTreeNode* CHelpPrjTreeNode::GetUIObjectXMLNode(int objectType, std::string_view name)
{
    int type = ObjectType();
    if (ProcessCode() == processcode::kSourceObject && (type == objtype::kForm || type == objtype::kReport)
        && type == objectType && EqualsNoCase(Name(), name))
        return this;
    for (auto& child : m_children)
        if (CHelpPrjTreeNode* found = child->GetUIObjectXMLNode(objectType, name))
            return found;
    return nullptr;
}

void CHelpPrjTreeNode::GetHtmlFilesCollection(std::vector<std::string>& paths, std::vector<std::string>& keys) const
{
    std::string path = GeneratedHTMLFileFullPath();
    if (!path.empty()) {
        std::string key = ToLower(FileNameOf(path));
        if (std::find(keys.begin(), keys.end(), key) == keys.end()) {
            keys.push_back(key);
            paths.push_back(path);
        }
    }
    for (const auto& child : m_children)
        child->GetHtmlFilesCollection(paths, keys);
}

void CHelpPrjTreeNode::Traverse(const std::function<void(CHelpPrjTreeNode&)>& visit, bool skipSerializerNodes)
{
    visit(*this);
    std::vector<CHelpPrjTreeNode*> children;
    for (auto& child : m_children)
        children.push_back(child.get());
    for (CHelpPrjTreeNode* child : children) {
        if (skipSerializerNodes && child->HasSerializer())
            continue;
        child->Traverse(visit, skipSerializerNodes);
    }
}

std::string CHelpPrjTreeNode::ContentsHTML(int level, bool excludeControls) const
{
    if (HasSerializer() || Skipped())
        return {};
    std::string indent(static_cast<std::size_t>(std::max(m_level - 1, 0)) * 4, ' ');
    std::string out = indent + "<LI><A href=\"" + GeneratedHTMLFile() + "\">" + Caption() + "</A></LI>" + std::string(kCrLf);
    std::string children;
    for (const auto& child : m_children) {
        if (excludeControls && (child->IsControl || child->IsMenu))
            continue;
        children += child->ContentsHTML(level + 1, excludeControls);
    }
    if (!children.empty())
        out += indent + "<UL>" + std::string(kCrLf) + children + indent + "</UL>" + std::string(kCrLf);
    return out;
}

bool CHelpPrjTreeNode::IsObjectTopic() const
{
    if (ProcessCode() != processcode::kSourceObject)
        return false;
    int type = ObjectType();
    return (type >= objtype::kTable && type <= objtype::kMacro) || type == objtype::kWorksheet
        || type == objtype::kChart;
}

std::string CHelpPrjTreeNode::LocalLink() const
{
    std::string file = GeneratedHTMLFile();
    if (!IsControl && !IsMenu)
        return file;
    std::string bookmark = Bookmark();
    if (bookmark.empty())
        bookmark = GetComponentFileName(FileBaseName(XmlFormFileName()), Name(), "");
    return file + "#" + bookmark;
}

}  // namespace scriv
