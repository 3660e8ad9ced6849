#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace scriv {

class CHelpPrjTree;
class IClassFactory;
class IHelpPrjSourceProject;
class ITreeView;

// Object types of a node and of the application objects.
namespace objtype {
inline constexpr int kNone = -1;
inline constexpr int kTable = 0;
inline constexpr int kQuery = 1;
inline constexpr int kForm = 2;
inline constexpr int kReport = 3;
inline constexpr int kMacro = 4;
inline constexpr int kWorksheet = 81;
inline constexpr int kChart = 82;
}  // namespace objtype

// What a node stands for.
namespace processcode {
inline constexpr int kPlainTopic = 0;
inline constexpr int kFormsList = 1;
inline constexpr int kReportsList = 2;
inline constexpr int kTablesList = 3;
inline constexpr int kQueriesList = 4;
inline constexpr int kMacrosList = 5;
inline constexpr int kWorksheetsList = 81;
inline constexpr int kChartsList = 82;
inline constexpr int kSourceObject = 999;
bool IsListCode(int code);
}  // namespace processcode

// One topic or group of topics of the contents tree. A node is a view over an
// XML element: its properties are the element's attributes, read without
// regard to case, with an overlay for the ones the element lacks.
//
// A node owns its children. Terminate detaches a node from its parent and the
// tree; a node that had a parent is destroyed by it, so a pointer to it must
// not be used afterwards.
class CHelpPrjTreeNode {
public:
    using Children = std::vector<std::unique_ptr<CHelpPrjTreeNode>>;

    CHelpPrjTreeNode();
    ~CHelpPrjTreeNode();
    CHelpPrjTreeNode(const CHelpPrjTreeNode&) = delete;
    CHelpPrjTreeNode& operator=(const CHelpPrjTreeNode&) = delete;

    // --- building ---
    // Builds the node over an element; the node keeps the element's document.
    // Tag becomes the element's name. False for an empty element.
    bool Build(int level, CHelpPrjTree* tree, std::shared_ptr<pugi::xml_document> document, pugi::xml_node element);

    // --- the attribute bag ---
    // The value of an attribute, or of the overlay, or the default of the name
    // ("0" for ProcessCode, "-1" for type and ObjectType, "false" for hidden and
    // skipped, "" otherwise). Values holding "{" have their tags replaced while
    // a server exists. A terminated node answers "".
    std::string PropertyValue(std::string_view name) const;
    // Writes into the element's attribute when it has one, else into the overlay.
    void SetPropertyValue(std::string_view name, std::string value);
    // The raw value without tag replacement; "" when neither element nor overlay has it.
    std::string RawPropertyValue(std::string_view name) const;
    bool IsXmlDocNode() const { return static_cast<bool>(m_element); }
    pugi::xml_node Element() const { return m_element; }

    // --- attributes ---
    std::string SourceProjectType() const { return PropertyValue("SourceProjectType"); }
    void SetSourceProjectType(std::string value) { SetPropertyValue("SourceProjectType", std::move(value)); }
    std::string SourceProjectName() const { return PropertyValue("SourceProjectName"); }
    void SetSourceProjectName(std::string value) { SetPropertyValue("SourceProjectName", std::move(value)); }
    std::string Name() const { return PropertyValue("Name"); }
    void SetName(std::string value) { SetPropertyValue("Name", std::move(value)); }
    std::string Bookmark() const { return PropertyValue("Bookmark"); }
    void SetBookmark(std::string value) { SetPropertyValue("Bookmark", std::move(value)); }
    int ObjectType() const;
    void SetObjectType(int value) { SetPropertyValue("type", std::to_string(value)); }
    // A value of over 2 characters that begins with "{{" is looked up in the
    // message table and replaced when the table knows it.
    std::string Caption() const;
    void SetCaption(std::string value) { SetPropertyValue("Caption", std::move(value)); }
    std::string HtmlTitle() const;
    void SetHtmlTitle(std::string value) { SetPropertyValue("Title", std::move(value)); }
    std::string Serializer() const { return PropertyValue("Serializer"); }
    void SetSerializer(std::string value) { SetPropertyValue("Serializer", std::move(value)); }
    bool HasSerializer() const { return !Serializer().empty(); }
    std::string Charset() const { return PropertyValue("Charset"); }
    void SetCharset(std::string value) { SetPropertyValue("Charset", std::move(value)); }
    std::string Icon() const { return PropertyValue("Icon"); }
    void SetIcon(std::string value) { SetPropertyValue("Icon", std::move(value)); }
    // An empty key reads as the tag.
    std::string Key() const;
    void SetKey(std::string value) { SetPropertyValue("Key", std::move(value)); }
    std::string PreviousNodeKey() const { return PropertyValue("pnodekey"); }
    void SetPreviousNodeKey(std::string value) { SetPropertyValue("pnodekey", std::move(value)); }
    std::string NextNodeKey() const { return PropertyValue("nnodekey"); }
    void SetNextNodeKey(std::string value) { SetPropertyValue("nnodekey", std::move(value)); }
    std::string ParentKey() const { return PropertyValue("pkey"); }
    void SetParentKey(std::string value) { SetPropertyValue("pkey", std::move(value)); }
    std::string OriginalKey() const { return PropertyValue("OriginalKey"); }
    void SetOriginalKey(std::string value) { SetPropertyValue("OriginalKey", std::move(value)); }
    std::string ParentOriginalKey() const { return PropertyValue("POriginalKey"); }
    void SetParentOriginalKey(std::string value) { SetPropertyValue("POriginalKey", std::move(value)); }
    int ProcessCode() const;
    void SetProcessCode(int value) { SetPropertyValue("ProcessCode", std::to_string(value)); }
    std::string ExtraValue() const { return PropertyValue("ExtraValue"); }
    void SetExtraValue(std::string value) { SetPropertyValue("ExtraValue", std::move(value)); }
    // The project folder + the file name of the stored value, or "".
    std::string CSSFullPath() const;
    void SetCSSFullPath(std::string value) { SetPropertyValue("CSSFullPath", std::move(value)); }
    std::string PicsSubfolderName() const { return PropertyValue("PicsSubfolderName"); }
    void SetPicsSubfolderName(std::string value) { SetPropertyValue("PicsSubfolderName", std::move(value)); }
    // The digest (FileDigest) of the page when its control definitions were
    // last derived from it in this session ("" when never): a page still of
    // that digest needs no deriving again. Kept in memory only.
    const std::string& DefinitionsPageDigest() const { return m_definitionsPageDigest; }
    void SetDefinitionsPageDigest(std::string value) { m_definitionsPageDigest = std::move(value); }
    // "" reads as false; a number is true when not 0; otherwise only "true".
    bool Skipped() const;
    void SetSkipped(bool value) { SetPropertyValue("skipped", value ? "true" : "false"); }

    // The first non-empty of TemplateHtmlFile, html, htm; cached.
    std::string TemplateHtmlFile() const;
    void SetTemplateHtmlFile(std::string value);
    std::string TemplateHtmlFileNameExtOnly() const;
    // The template searched in the template folders, or an absolute path as it stands.
    std::string TemplateHtmlFileFullPath() const;
    // The file-name part of GeneratedHtmlFile or genhtml; cached.
    std::string GeneratedHTMLFile() const;
    // Stores the file-name part of what it is given.
    void SetGeneratedHTMLFile(std::string_view value);
    // The project folder + GeneratedHTMLFile, or "" while that is empty.
    std::string GeneratedHTMLFileFullPath() const;
    std::string HTMLFileNameNoExt() const;
    // <a href="file">caption</a>, "&" removed, in <B> when bold.
    std::string HTMLFileRef(bool bold) const;
    // "Table", "Query", "Form", "Report", "Macro" for 0 to 4, else "".
    std::string NodeComponentTypeName() const;
    // The base of GeneratedHTMLFile + ".xml", and that in the project's forms folder.
    std::string XmlFormFileName() const;
    std::string XmlFormFullPath() const;

    // Index keywords of the topic: Indexes, then Indexes1 ... Indexes100 up to the
    // first empty one, split at "|"; read once.
    const std::vector<std::string>& IndexesCollection() const;
    void SetIndexesCollection(std::vector<std::string> keywords);

    // --- place in the tree ---
    const std::string& Tag() const { return m_tag; }
    void SetTag(std::string tag) { m_tag = std::move(tag); }
    int Level() const { return m_level; }
    void SetLevel(int level) { m_level = level; }
    CHelpPrjTreeNode* ParentNode() const { return m_parent; }
    void SetParentNode(CHelpPrjTreeNode* parent) { m_parent = parent; }
    CHelpPrjTree* HelpPrjTree() const { return m_tree; }
    void SetHelpPrjTree(CHelpPrjTree* tree);
    const Children& ChildNodes() const { return m_children; }
    std::size_t ChildCount() const { return m_children.size(); }
    CHelpPrjTreeNode* Child(std::size_t index) const { return m_children.at(index).get(); }
    // Position among the parent's children, or nothing.
    std::optional<std::size_t> IndexInParent() const;
    // Takes a child out of the collection and hands it over.
    std::unique_ptr<CHelpPrjTreeNode> DetachChild(const CHelpPrjTreeNode* child);
    // Puts a child at a position (clamped to the end).
    CHelpPrjTreeNode* InsertChild(std::size_t position, std::unique_ptr<CHelpPrjTreeNode> child);

    bool IsRootNode { false };
    bool IsControl { false };
    bool IsMenu { false };
    bool RegenerateHelpFiles { false };
    bool NewUIObject { false };
    std::string UniqueObjectName;
    bool Terminated() const { return m_terminated; }

    // --- removal ---
    // Terminates the children, leaves the parent's children, the key map and the
    // tree view, and marks the node terminated. Runs once.
    void Terminate();
    // This node and its descendants leave the key map.
    void RemoveKeysFromKeyMap();
    void RemoveFromTreview();
    // Each control or menu child leaves the map with its descendants and is terminated.
    void DropChildrenControls();
    // Empties the children; with terminateChildren they are terminated first.
    void ClearChildrenCollection(bool terminateChildren);

    // --- keys ---
    // Seconds since midnight with two decimals, without the decimal point.
    static std::string GeneratedKeySuffix();
    // Gives the node (and then its children) a new key when the tree's map holds
    // its key; needs a tree view. Raises code 10 when no free key comes up
    // within 3 seconds.
    void AssignNewKeyIfDuplicate(CHelpPrjTree* tree);
    void AssignNewKeysToAllNodesIfDuplicateInANewTree(CHelpPrjTree* tree, bool skipSerializerNodes);
    // Each child gets level + 1, down to nodes with a serializer.
    void AdjustChildrenNodesLevel(int level, bool skipSerializerNodes);

    // Puts a node (with its subtree) under parent: relative to previous (before it
    // when beforePrevious) or to next (after it when afterNext), else last.
    static CHelpPrjTreeNode* Paste(std::unique_ptr<CHelpPrjTreeNode> node, CHelpPrjTreeNode* parent, ITreeView* treeView,
        CHelpPrjTree* tree, CHelpPrjTreeNode* previous, CHelpPrjTreeNode* next, bool beforePrevious, bool afterNext);

    // --- display ---
    ITreeView* TreeView() const { return m_treeView; }
    void SetTreeView(ITreeView* view) { m_treeView = view; }
    // The key of this node's item in the tree view, or "".
    const std::string& TreeViewNode() const { return m_treeViewNode; }
    // Shows the node and its children; with relativeKey the item goes there.
    void DisplayInTreeview(ITreeView* view, CHelpPrjTree* tree, bool skipSerializerNodes,
        const std::string& relativeKey = {}, int relationship = 0);
    void Expand();
    void Collapse();
    // Insert (45) toggles Skipped; with children the children follow.
    void KeyDown(int keyCode, bool withChildren);
    void SetNodeCaption(const std::string& caption);

    // --- lookups ---
    // Count of all descendants.
    int NodesQty() const;
    bool NodeFileNameDefined(std::string_view fileName) const;
    std::string GetNodeHtmlRef(std::string_view name, std::string_view tag) const;
    std::string GetNodeHtmlFileNameNoExt(std::string_view name, std::string_view tag) const;
    // This node's file name, else the first child's answer (later siblings are not visited).
    bool HtmlFileNameIsUsed(std::string_view nameNoExt) const;
    // Among object nodes of forms and reports, the first of that type and name.
    CHelpPrjTreeNode* GetUIObjectXMLNode(int objectType, std::string_view name);
    // Adds every generated page of the subtree, keyed by lower-case file name.
    void GetHtmlFilesCollection(std::vector<std::string>& paths, std::vector<std::string>& keys) const;
    // Depth first, parents before children.
    void Traverse(const std::function<void(CHelpPrjTreeNode&)>& visit, bool skipSerializerNodes);

    // --- the project file ---
    // The node as an element of the project file, with its children when
    // recursive; nothing for control and menu nodes, nor (with
    // excludeSerializerNodes) for a node with a serializer.
    std::string XMLSTr(int level, bool excludeSerializerNodes, bool recursive, bool withHeader,
        const std::string& extraAttributes);
    // The index keywords as " Indexes = "..." " chunks of about 80 characters.
    std::string IndexesXmlStr() const;

    // --- expansion ---
    // Expands this node's serializer: its nodes go behind it, under its parent,
    // once per source project of a group when the group is the source.
    void ExpandSerializerNodes(IClassFactory& factory, CHelpPrjTree& tree,
        const std::function<std::unique_ptr<IHelpPrjSourceProject>()>& provider);
    // Children captioned Reports, Forms or Dialogs take the code (unless -1),
    // recursively.
    void SetFormsReportsProcessCode(int code);
    // Each child with a name shows its name (or its caption) in the tree view.
    void SwitchNameCaption(bool useName);

    // The nested list of the browser contents page.
    std::string ContentsHTML(int level, bool excludeControls) const;

    // --- what the contents and index files link to ---
    // True for a topic of one application object (a form, report, table ...).
    bool IsObjectTopic() const;
    // The file (and "#bookmark" for a control or menu) that the node's entries link to.
    std::string LocalLink() const;

private:
    void ExpandSerializerNodes4CurrentProject(class IXmlSerializer& serializer, CHelpPrjTree& tree,
        IHelpPrjSourceProject& source, std::size_t& insertAt);
    std::string DefaultValue(const std::string& lowerName) const;
    pugi::xml_attribute FindAttribute(const std::string& lowerName) const;
    std::string ApplyTagReplacement(std::string value) const;
    std::string MessageLookup(std::string value) const;
    void ClearCaches();

    std::shared_ptr<pugi::xml_document> m_document;
    pugi::xml_node m_element;
    mutable std::unordered_map<std::string, pugi::xml_attribute> m_positions; // by lower-case name
    mutable std::unordered_map<std::string, std::string> m_overlay; // by lower-case name

    std::string m_tag;
    int m_level { 0 };
    CHelpPrjTreeNode* m_parent { nullptr };
    CHelpPrjTree* m_tree { nullptr };
    Children m_children;
    ITreeView* m_treeView { nullptr };
    std::string m_treeViewNode;
    bool m_terminated { false };
    std::string m_definitionsPageDigest;

    mutable std::optional<std::string> m_templateHtmlFile;
    mutable std::optional<std::string> m_generatedHtmlFile;
    mutable std::optional<std::vector<std::string>> m_indexes;
};

// The image a tree item shows for a node.
std::string NodeImage(const CHelpPrjTreeNode& node);

}  // namespace scriv
