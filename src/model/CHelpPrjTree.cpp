#include "model/CHelpPrjTree.h"

#include <chrono>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/DateTime.h"
#include "foundation/ErrorMessage.h"
#include "foundation/ObjectNames.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CScrivantParameters.h"
#include "model/ITreeView.h"

namespace scriv {

namespace {

constexpr int kInsertKey = 45;

// The name of the root element of a text: its first word after "<".
std::string RootElementName(const std::string& xmlText)
{
    std::string text = TrimWhitespace(xmlText);
    std::size_t start = 0;
    // A declaration is not the root.
    if (text.rfind("<?", 0) == 0) {
        std::size_t end = text.find("?>");
        start = end == std::string::npos ? 0 : text.find('<', end);
    }
    if (start == std::string::npos || start >= text.size())
        return {};
    std::size_t nameStart = start + 1;
    std::size_t nameEnd = text.find_first_of(" \t\r\n/>", nameStart);
    return text.substr(nameStart, nameEnd == std::string::npos ? std::string::npos : nameEnd - nameStart);
}

float SecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<float>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

CHelpPrjTree::CHelpPrjTree() = default;

CHelpPrjTree::~CHelpPrjTree()
{
    m_map.Clear();
    m_root.reset();
}

// --- loading ---

std::uint32_t CHelpPrjTree::Load(const std::string& fullPath, bool newProject, const std::string& xmlText,
    bool addControls)
{
    m_wasChanged = false;
    m_newHtmlHelpProject = newProject;

    CXMLFile xml;
    std::string rootName;
    std::uint32_t code = 0;
    if (!xmlText.empty()) {
        rootName = RootElementName(xmlText);
        try {
            code = xml.LoadXml(xmlText);
        } catch (const ScrivError& error) {
            UserWarningMessage(FormatCode(error.Code()) + " - " + error.Description());
            return error.Code();
        }
    } else {
        rootName = "Project";
        code = xml.Load(fullPath);
    }
    if (code != 0) {
        UserWarningMessage(FormatCode(code) + " - " + xml.XmlParseError().Reason() + " '" + fullPath + "'");
        return code;
    }

    Trace(".Load(1): " + TimeOfDayText());
    if (!rootName.empty()) {
        pugi::xml_node root = xml.SelectSingleNode(("//" + rootName).c_str());
        if (root && root.type() == pugi::node_element)
            code = BuildXmlNodes(1, xml.SharedDocument(), root, nullptr, addControls);
    }
    if (code == 0) {
        // The checksums belong to the project now loaded.
        if (m_checkSums)
            m_checkSums->Terminate();
        m_checkSums.reset();
        CheckSums();
        Trace(".Load(2): " + TimeOfDayText());
        m_loaded = true;
    }
    return code;
}

std::uint32_t CHelpPrjTree::BuildXmlNodes(int level, std::shared_ptr<pugi::xml_document> document,
    pugi::xml_node element, CHelpPrjTreeNode* parent, bool addControls)
{
    auto started = std::chrono::steady_clock::now();
    if (level == 1) {
        BuildTimeTotal = 0;
        AddControlsTimeTotal = 0;
        Trace(".BuildXmlNodes(1): " + TimeOfDayText());
    }
    auto node = std::make_unique<CHelpPrjTreeNode>();
    if (!node->Build(level, this, document, element)) {
        UserWarningMessage("Error while building treeview node." + std::string(kCrLf) + "Treeview loading terminated.");
        return status::kAbandoned;
    }
    CHelpPrjTreeNode* built = nullptr;
    if (level == 1) {
        built = SetRoot(std::move(node));
    } else {
        node->SetParentNode(parent);
        built = addItem(parent, std::move(node), true, nullptr, nullptr, true, false, false);
    }
    BuildTimeTotal += SecondsSince(started);
    if (addControls && m_formDescriptions && IsObjectTopicTag(built->Tag())) {
        auto adding = std::chrono::steady_clock::now();
        AddControls(*built, level, *m_formDescriptions, m_useControlNames);
        AddControlsTimeTotal += SecondsSince(adding);
    }

    std::uint32_t firstFailure = 0;
    for (pugi::xml_node child : element.children()) {
        if (child.type() != pugi::node_element || SkipChildElement(child))
            continue;
        std::uint32_t code = BuildXmlNodes(level + 1, document, child, built, addControls);
        if (code != 0 && firstFailure == 0)
            firstFailure = code;
    }
    if (level == 1) {
        Trace(".BuildXmlNodes(2): " + TimeOfDayText() + ", BuildTimeTotal = " + std::to_string(BuildTimeTotal)
            + ", AddControlsTimeTotal = " + std::to_string(AddControlsTimeTotal));
    }
    return firstFailure;
}

bool CHelpPrjTree::SkipChildElement(const pugi::xml_node& child) const
{
    const CScrivantParameters& parameters = Parameters();
    std::string name = child.name();
    if (EqualsNoCase(name, "Tables"))
        return !parameters.GenerateHelpForTables;
    if (EqualsNoCase(name, "Queries"))
        return !parameters.GenerateHelpForQueries;
    if (EqualsNoCase(name, "Macros"))
        return !parameters.GenerateHelpForMacros;
    return false;
}

void CHelpPrjTree::Reset()
{
    m_map.Clear();
    m_root.reset();
    if (m_checkSums)
        m_checkSums->Terminate();
    m_checkSums.reset();
    m_wasChanged = false;
    m_loaded = false;
    m_newHtmlHelpProject = false;
    m_terminated = false;
}

void CHelpPrjTree::Terminate(bool keepChildren, bool keepRoot)
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_map.Clear();
    if (m_root) {
        if (!keepChildren && m_root->ChildCount() > 0)
            m_root->ClearChildrenCollection(false);
        if (!keepChildren && !keepRoot) {
            m_root->Terminate();
            m_root.reset();
        }
    }
    m_treeView = nullptr;
    if (m_checkSums)
        m_checkSums->Terminate();
    m_checkSums.reset();
}

// --- nodes ---

CHelpPrjTreeNode* CHelpPrjTree::SetRoot(std::unique_ptr<CHelpPrjTreeNode> root)
{
    m_map.Clear();
    m_root = std::move(root);
    if (!m_root)
        return nullptr;
    m_root->IsRootNode = true;
    m_root->SetParentNode(nullptr);
    m_root->SetHelpPrjTree(this);
    AddToMap(m_root.get());
    AddChildNodesToMap(m_root.get());
    return m_root.get();
}

std::unique_ptr<CHelpPrjTreeNode> CHelpPrjTree::ReleaseRoot()
{
    m_map.Clear();
    return std::move(m_root);
}

CHelpPrjTreeNode* CHelpPrjTree::MapItem(std::string_view key) const
{
    auto* found = m_map.Find(key);
    return found ? *found : nullptr;
}

int CHelpPrjTree::NodesQty() const
{
    return m_root ? m_root->NodesQty() : 0;
}

std::string CHelpPrjTree::FirstFreeNumberedKey(const std::string& key) const
{
    for (int i = 1; i <= 1000; ++i) {
        std::string candidate = key + std::to_string(i);
        if (!MapItem(candidate))
            return candidate;
    }
    return {};
}

CHelpPrjTreeNode* CHelpPrjTree::addItem(CHelpPrjTreeNode* parent, std::unique_ptr<CHelpPrjTreeNode> node,
    bool resolveDuplicate, CHelpPrjTreeNode* previous, CHelpPrjTreeNode* next, bool addChildrenToMap,
    bool beforePrevious, bool afterNext)
{
    std::string key = node->Key();
    if (MapItem(key)) {
        if (!resolveDuplicate)
            Raise(status::kGeneralFailure, "CHelpPrjTree.AddItem", "Duplicate node key value '" + key + "'.");
        std::string fresh = FirstFreeNumberedKey(key);
        if (fresh.empty())
            Raise(status::kSecondFailure, "CHelpPrjTree.AddItem", "Duplicate node key value '" + key + "'.");
        node->SetKey(fresh);
    }
    if (!parent)
        Raise(status::kGeneralFailure, "CHelpPrjTree.AddItem", "A node needs a parent to join the tree.");

    auto positionOf = [&](const CHelpPrjTreeNode* sibling) -> std::optional<std::size_t> {
        std::string siblingKey = sibling->Key();
        for (std::size_t i = 0; i < parent->ChildCount(); ++i)
            if (EqualsNoCase(parent->Child(i)->Key(), siblingKey))
                return i;
        return std::nullopt;
    };
    std::size_t position = parent->ChildCount();
    if (previous) {
        if (auto at = positionOf(previous))
            position = beforePrevious ? *at : *at + 1;
    } else if (next) {
        if (auto at = positionOf(next))
            position = afterNext ? *at + 1 : *at;
    }
    node->SetHelpPrjTree(this);
    CHelpPrjTreeNode* added = parent->InsertChild(position, std::move(node));
    AddToMap(added);
    if (addChildrenToMap)
        AddChildNodesToMap(added);
    return added;
}

std::unique_ptr<CHelpPrjTreeNode> CHelpPrjTree::RemoveItem(std::string_view key)
{
    CHelpPrjTreeNode* node = MapItem(key);
    if (!node)
        return nullptr;
    m_map.Remove(key);
    if (CHelpPrjTreeNode* parent = node->ParentNode())
        return parent->DetachChild(node);
    return nullptr;
}

std::string CHelpPrjTree::GetNewKeyIfGivenExists(const std::string& key, const std::string& prefix) const
{
    std::string candidate = StartsWithNoCase(key, prefix) ? key : prefix + "." + key;
    if (!MapItem(candidate))
        return candidate;
    // The numbered form is made from the bare key, without the prefix.
    std::string numbered = FirstFreeNumberedKey(key);
    if (numbered.empty())
        Raise(status::kGeneralFailure, "CHelpPrjTree.GetNewKeyIfGivenExists",
            "Can't get unique key for given key value = '" + key + "'.");
    return numbered;
}

void CHelpPrjTree::AddToMap(CHelpPrjTreeNode* node)
{
    if (node && !node->Terminated())
        m_map.Add(node->Key(), node);
}

void CHelpPrjTree::AddChildNodesToMap(CHelpPrjTreeNode* node)
{
    for (const auto& child : node->ChildNodes()) {
        // Every node of the tree must be reachable by a key of its own.
        if (MapItem(child->Key()) && MapItem(child->Key()) != child.get()) {
            std::string fresh = FirstFreeNumberedKey(child->Key());
            if (fresh.empty())
                Raise(status::kSecondFailure, "CHelpPrjTree.AddItem", "Duplicate node key value '" + child->Key() + "'.");
            child->SetKey(fresh);
        }
        AddToMap(child.get());
        AddChildNodesToMap(child.get());
    }
}

void CHelpPrjTree::RemoveFromMap(CHelpPrjTreeNode* node)
{
    if (!node || node->Terminated())
        return;
    std::string key = node->Key();
    if (MapItem(key) == node)
        m_map.Remove(key);
}

void CHelpPrjTree::RemoveChildNodesFromMap(CHelpPrjTreeNode* node)
{
    for (const auto& child : node->ChildNodes()) {
        RemoveChildNodesFromMap(child.get());
        RemoveFromMap(child.get());
    }
}

// --- lookups ---

std::string CHelpPrjTree::GetNodeHtmlRef(std::string_view name, std::string_view tag) const
{
    return m_root ? m_root->GetNodeHtmlRef(EncodeObjectName(name), tag) : std::string();
}

std::string CHelpPrjTree::GetNodeHtmlFileNameNoExt(std::string_view name, std::string_view tag) const
{
    return m_root ? m_root->GetNodeHtmlFileNameNoExt(EncodeObjectName(name), tag) : std::string();
}

bool CHelpPrjTree::HtmlFileNameIsUsed(std::string_view nameNoExt) const
{
    return m_root && m_root->HtmlFileNameIsUsed(nameNoExt);
}

std::vector<std::string> CHelpPrjTree::GetFilesHTMLCollection() const
{
    std::vector<std::string> paths;
    std::vector<std::string> keys;
    if (m_root)
        m_root->GetHtmlFilesCollection(paths, keys);
    return paths;
}

void CHelpPrjTree::Traverse(const std::function<void(CHelpPrjTreeNode&)>& visit, bool skipSerializerNodes)
{
    if (m_root)
        m_root->Traverse(visit, skipSerializerNodes);
}

// --- display ---

void CHelpPrjTree::DisplayInTreeview(ITreeView* view)
{
    m_treeView = view;
    if (!view || !m_root)
        return;
    m_root->DisplayInTreeview(view, this, true);
    if (!m_root->TreeViewNode().empty()) {
        view->SetImage(m_root->TreeViewNode(), "openedBook");
        view->SetExpanded(m_root->TreeViewNode(), true);
    }
}

void CHelpPrjTree::Expand(const std::string& itemKey)
{
    if (CHelpPrjTreeNode* node = MapItem(itemKey))
        node->Expand();
}

void CHelpPrjTree::Collapse(const std::string& itemKey)
{
    if (CHelpPrjTreeNode* node = MapItem(itemKey))
        node->Collapse();
}

int CHelpPrjTree::KeyDown(int keyCode, bool withChildren)
{
    if (keyCode != kInsertKey || !m_treeView)
        return 0;
    CHelpPrjTreeNode* node = MapItem(m_treeView->SelectedKey());
    if (!node)
        return 0;
    node->KeyDown(keyCode, withChildren);
    m_wasChanged = true;
    return 1;
}

void CHelpPrjTree::SetNodeCaption(const std::string& key, const std::string& caption)
{
    if (CHelpPrjTreeNode* node = MapItem(key))
        node->SetNodeCaption(caption);
}

bool CHelpPrjTree::TopicSkipped(const std::string& key) const
{
    CHelpPrjTreeNode* node = MapItem(key);
    return node && node->Skipped();
}

}  // namespace scriv
