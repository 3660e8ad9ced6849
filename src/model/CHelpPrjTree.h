#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedCollection.h"
#include "model/CHelpPrjTreeNode.h"

namespace scriv {

class CHelpPrjCheckSums;
class CHelpPrjFileCheckSum;
class IClassFactory;
class IFormDescriptions;
struct DocumentedControls;
class IHelpPrjSourceProject;
class ITreeView;

// The contents tree of one help project: the root node, and a map of every node
// by key (keys compare without regard to case and are unique in the tree).
class CHelpPrjTree {
public:
    CHelpPrjTree();
    ~CHelpPrjTree();
    CHelpPrjTree(const CHelpPrjTree&) = delete;
    CHelpPrjTree& operator=(const CHelpPrjTree&) = delete;

    // --- loading ---
    // Loads a tree from a project file or contents document (its Project element),
    // or from xmlText when that is given. A document that does not parse is
    // reported to the user with code, reason and file, and its code answered;
    // the tree then stays empty. 0 on success.
    std::uint32_t Load(const std::string& fullPath, bool newProject, const std::string& xmlText = {},
        bool addControls = false);
    // Clears root, map and the state flags.
    void Reset();
    // Ends the tree: empties the map, and unless kept, clears the root's children
    // and terminates the root. Runs once.
    void Terminate(bool keepChildren = false, bool keepRoot = false);

    // --- nodes ---
    CHelpPrjTreeNode* Root() const { return m_root.get(); }
    // Makes a node the root; it enters the map.
    CHelpPrjTreeNode* SetRoot(std::unique_ptr<CHelpPrjTreeNode> root);
    // Hands the root over (a tree pasted from another).
    std::unique_ptr<CHelpPrjTreeNode> ReleaseRoot();
    // The node of a key, or nothing.
    CHelpPrjTreeNode* MapItem(std::string_view key) const;
    const KeyedCollection<CHelpPrjTreeNode*>& MapItems() const { return m_map; }
    // Count of nodes below the root.
    int NodesQty() const;

    // Adds a node under parent. A key the map holds raises 0x80040001
    // "Duplicate node key value '...'." unless resolveDuplicate, which appends
    // 1, 2 ... 1000 to the key (0x80040002 when all are taken). The node goes
    // after previous (before it with beforePrevious), else before next (after
    // it with afterNext), else last; then into the map, with its descendants
    // when addChildrenToMap.
    CHelpPrjTreeNode* addItem(CHelpPrjTreeNode* parent, std::unique_ptr<CHelpPrjTreeNode> node, bool resolveDuplicate,
        CHelpPrjTreeNode* previous = nullptr, CHelpPrjTreeNode* next = nullptr, bool addChildrenToMap = true,
        bool beforePrevious = false, bool afterNext = false);
    // Takes the node of a key out of its parent and the map, and hands it over
    // (nothing when it has no parent).
    std::unique_ptr<CHelpPrjTreeNode> RemoveItem(std::string_view key);
    // A key for key that the map does not hold: key itself, or prefix + "." + key
    // when key does not begin with prefix, else the numbered form of the bare key.
    std::string GetNewKeyIfGivenExists(const std::string& key, const std::string& prefix) const;
    // The first of key1 ... key1000 that is free, or "".
    std::string FirstFreeNumberedKey(const std::string& key) const;

    void AddToMap(CHelpPrjTreeNode* node);
    void AddChildNodesToMap(CHelpPrjTreeNode* node);
    void RemoveFromMap(CHelpPrjTreeNode* node);
    void RemoveChildNodesFromMap(CHelpPrjTreeNode* node);

    // --- lookups (names go through the object-name encoding first) ---
    std::string GetNodeHtmlRef(std::string_view name, std::string_view tag) const;
    std::string GetNodeHtmlFileNameNoExt(std::string_view name, std::string_view tag) const;
    bool HtmlFileNameIsUsed(std::string_view nameNoExt) const;
    // The generated pages of the whole tree.
    std::vector<std::string> GetFilesHTMLCollection() const;
    void Traverse(const std::function<void(CHelpPrjTreeNode&)>& visit, bool skipSerializerNodes);

    // --- the project file ---
    // Writes the project file: the nodes (XMLSTr of the root, serializer nodes
    // left out when asked, extraRootAttributes put into the root's first line)
    // and the settings block. 0 on success; a failed write is traced with the
    // whole text and raised (source "SaveXML.CHelpPrjTree").
    std::uint32_t SaveXml(const std::string& path, bool excludeSerializerNodes, const std::string& extraRootAttributes);
    // The root's XMLSTr(1, excludeSerializerNodes, true, false, extra), or "".
    std::string GetXMLStr(bool excludeSerializerNodes, const std::string& extraRootAttributes) const;

    // --- checksums of the pages ---
    // The store of the current project, initialised on first use (not in run-time mode).
    CHelpPrjCheckSums& CheckSums();
    std::uint32_t SaveCheckSums(bool keepPrevious);
    CHelpPrjFileCheckSum* GetCheckSumObject(const std::string& fullPath, bool recompute);

    // --- expansion and generation options ---
    // The application project to expand serializers from; asked once per
    // source project (after that project was made current).
    using SourceProjectProvider = std::function<std::unique_ptr<IHelpPrjSourceProject>()>;
    // Expands every node that has a serializer into one node per object it
    // yields, added behind it; the serializer node is marked skipped.
    void ExpandSerializerNodes(IClassFactory& factory, const SourceProjectProvider& provider);
    // Sets the generation options of the object groups from the group pages'
    // skipped marks.
    void SetGroupFlagsFromTree();
    // Whether a node's template is one of the eight group templates.
    static bool IsGroupTemplate(const CHelpPrjTreeNode& node);
    // Every node tagged Form, Report, Table, Query, Macro, Worksheet or Chart.
    std::vector<CHelpPrjTreeNode*> ObjectNodes() const;

    // --- control and menu nodes of form topics ---
    // Adds under a topic one node per documented menu, then per documented
    // control: tag "MenuItem" or "Control", key = topic key + "." + bookmark
    // name, caption (or, with useControlNames, the control's name), the topic's
    // page with the anchor as bookmark, the mark IsMenu or IsControl, level + 1.
    // Nodes are shown when the topic is. Answers the number added.
    int AddControls(CHelpPrjTreeNode& node, int level, const DocumentedControls& controls, bool useControlNames);
    // The same with the controls that the saved description of the topic
    // documents, read again from its page first; 0 without a description.
    int AddControls(CHelpPrjTreeNode& node, int level, IFormDescriptions& descriptions, bool useControlNames);
    // Rebuilds the control and menu nodes of a topic whose description
    // documents some while the node has none; answers whether it did.
    bool AddControlsIfAbsent(CHelpPrjTreeNode& node, IFormDescriptions& descriptions, bool useControlNames);
    // The descriptions that Load reads control nodes from when it is asked to
    // add them; without any, Load adds none. They must outlive the loads.
    void SetFormDescriptions(IFormDescriptions* descriptions, bool useControlNames);
    // Form, Report, Table, Query, Macro, Worksheet or Chart, in any case: the
    // tags of topics that may have control nodes.
    static bool IsObjectTopicTag(std::string_view tag);

    // --- display ---
    ITreeView* TreeView() const { return m_treeView; }
    void DisplayInTreeview(ITreeView* view);
    void Expand(const std::string& itemKey);
    void Collapse(const std::string& itemKey);
    // Insert (45) on the selected item toggles its Skipped mark.
    int KeyDown(int keyCode, bool withChildren);
    void SetNodeCaption(const std::string& key, const std::string& caption);
    bool TopicSkipped(const std::string& key) const;

    // --- state ---
    std::string HTMLHelpProjectRootDir;
    std::string HTMLHelpLoadedHHCFullPath;
    bool NewHtmlHelpProject() const { return m_newHtmlHelpProject; }
    void SetNewHtmlHelpProject(bool value) { m_newHtmlHelpProject = value; }
    bool WasChanged() const { return m_wasChanged; }
    void SetWasChanged(bool value) { m_wasChanged = value; }
    bool Loaded() const { return m_loaded; }
    float BuildTimeTotal { 0 };
    float AddControlsTimeTotal { 0 };

private:
    std::uint32_t BuildXmlNodes(int level, std::shared_ptr<pugi::xml_document> document, pugi::xml_node element,
        CHelpPrjTreeNode* parent, bool addControls);
    bool SkipChildElement(const pugi::xml_node& child) const;

    std::unique_ptr<CHelpPrjTreeNode> m_root;
    std::unique_ptr<CHelpPrjCheckSums> m_checkSums;
    IFormDescriptions* m_formDescriptions { nullptr };
    bool m_useControlNames { false };
    KeyedCollection<CHelpPrjTreeNode*> m_map;
    ITreeView* m_treeView { nullptr };
    bool m_newHtmlHelpProject { false };
    bool m_wasChanged { false };
    bool m_loaded { false };
    bool m_terminated { false };
};

}  // namespace scriv
