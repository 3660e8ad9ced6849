// The control and menu nodes of form topics: one node per control or menu
// that the topic's page documents. They are rebuilt from the saved form
// descriptions rather than stored in the project file.

#include <memory>

#include "foundation/CTraceLog.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/IFormDescriptions.h"
#include "model/ITreeView.h"

namespace scriv {

namespace {

bool HasControlChildren(const CHelpPrjTreeNode& node)
{
    for (const auto& child : node.ChildNodes())
        if (child->IsControl || child->IsMenu)
            return true;
    return false;
}

std::unique_ptr<CHelpPrjTreeNode> MakeControlNode(const CHelpPrjTreeNode& topic, int level,
    const DocumentedControl& control, const std::string& pageFile, bool useControlNames)
{
    auto node = std::make_unique<CHelpPrjTreeNode>();
    node->SetLevel(level + 1);
    node->SetTag(control.isMenu ? "MenuItem" : "Control");
    node->SetKey(topic.Key() + "." + control.bookmarkName);
    node->SetCaption(useControlNames || control.caption.empty() ? control.name : control.caption);
    node->SetGeneratedHTMLFile(pageFile);
    node->SetBookmark(control.anchor);
    node->SetName(control.name);
    node->IsMenu = control.isMenu;
    node->IsControl = !control.isMenu;
    node->SetSkipped(control.skipped);
    node->SetIcon(control.skipped ? "no" : "helptopic");
    return node;
}

}  // namespace

bool CHelpPrjTree::IsObjectTopicTag(std::string_view tag)
{
    for (const char* name : { "Form", "Report", "Table", "Query", "Macro", "Worksheet", "Chart" })
        if (EqualsNoCase(tag, name))
            return true;
    return false;
}

void CHelpPrjTree::SetFormDescriptions(IFormDescriptions* descriptions, bool useControlNames)
{
    m_formDescriptions = descriptions;
    m_useControlNames = useControlNames;
}

int CHelpPrjTree::AddControls(CHelpPrjTreeNode& node, int level, const DocumentedControls& controls,
    bool useControlNames)
{
    std::string pageFile = controls.pageFile.empty() ? node.GeneratedHTMLFile() : controls.pageFile;
    ITreeView* view = node.TreeView();
    bool shown = view && !node.TreeViewNode().empty();
    int added = 0;
    for (const DocumentedControl& control : controls.items) {
        if (control.bookmarkName.empty())
            continue;
        CHelpPrjTreeNode* child
            = addItem(&node, MakeControlNode(node, level, control, pageFile, useControlNames), true);
        ++added;
        if (shown)
            child->DisplayInTreeview(view, this, true, node.TreeViewNode(), static_cast<int>(TreeRelationship::Child));
    }
    // A topic that had no children shows a closed book now.
    if (shown && added > 0 && !node.Skipped() && view->Image(node.TreeViewNode()) == "helptopic") {
        node.SetIcon("hlpclose");
        view->SetImage(node.TreeViewNode(), "hlpclose");
    }
    return added;
}

int CHelpPrjTree::AddControls(CHelpPrjTreeNode& node, int level, IFormDescriptions& descriptions, bool useControlNames)
{
    std::optional<DocumentedControls> controls = descriptions.DocumentedControlsOf(node, true);
    if (!controls)
        return 0;
    return AddControls(node, level, *controls, useControlNames);
}

bool CHelpPrjTree::AddControlsIfAbsent(CHelpPrjTreeNode& node, IFormDescriptions& descriptions, bool useControlNames)
{
    if (HasControlChildren(node))
        return false;
    std::optional<DocumentedControls> controls = descriptions.DocumentedControlsOf(node, false);
    if (!controls || controls->items.empty())
        return false;
    node.DropChildrenControls();
    AddControls(node, node.Level(), *controls, useControlNames);
    return true;
}

}  // namespace scriv
