#include "wizard/ctlHelpProjectContents.h"

#include <algorithm>

#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

// The captions of the page's menu items when the operations cannot say.
std::string DefaultCaption(std::string_view item)
{
    if (item == "mnuToggleSkippedFlag")
        return "Exclude";
    if (item == "mnuUp")
        return "Up";
    if (item == "mnuDown")
        return "Down";
    if (item == "mnuLeft")
        return "Left";
    return "Right";
}

}  // namespace

ctlHelpProjectContents::ctlHelpProjectContents()
    : CWizardPageControl("ctlHelpProjectContents")
{
}

ctlHelpProjectContents::~ctlHelpProjectContents()
{
    Detach();
}

const std::vector<std::string>& ctlHelpProjectContents::MenuItems()
{
    // In the wizard a topic can be left out and moved, nothing more.
    static const std::vector<std::string> items { "mnuToggleSkippedFlag", "mnuUp", "mnuDown", "mnuLeft", "mnuRight" };
    return items;
}

void ctlHelpProjectContents::OnInit()
{
    Detach();
    IRunContext* context = CurrentRunContext();
    if (!context)
        return;
    context->ProgressBarInit("Loading treeview...", 1);
    // The tree stays loaded while the wizard is open, so that its changes
    // survive a step back; Finish generates from it.
    std::uint32_t loaded = context->LoadTreeOfActiveProject(true);
    context->ProgressBarDispose();
    CHelpPrjTree* tree = context->LoadedTree();
    if (loaded != 0 || !tree || !tree->Root())
        return;
    m_tree = tree;
    m_view.Clear();
    tree->DisplayInTreeview(&m_view);
    if (Parameters().IdentifyControls() != 0)
        tree->Root()->SwitchNameCaption(true);
    if (!tree->Root()->TreeViewNode().empty())
        m_view.Select(tree->Root()->TreeViewNode());
    if (const WizardContentsMenuFactory& factory = Wizard().ContentsMenuFactory())
        m_menu = factory(m_view, *tree);
}

void ctlHelpProjectContents::Detach()
{
    if (m_menu) {
        m_menu->Terminate();
        m_menu.reset();
    }
    if (m_tree) {
        // The tree outlives this page (the generation reads it): its nodes
        // must not keep pointing at this page's view.
        if (m_tree->TreeView() == &m_view)
            m_tree->DisplayInTreeview(nullptr);
        m_tree->Traverse(
            [this](CHelpPrjTreeNode& node) {
                if (node.TreeView() == &m_view)
                    node.SetTreeView(nullptr);
            },
            false);
        m_tree = nullptr;
    }
    m_view.Clear();
}

void ctlHelpProjectContents::Terminate()
{
    Detach();
}

CHelpPrjTreeNode* ctlHelpProjectContents::SelectedNode() const
{
    return m_tree ? m_tree->MapItem(m_view.SelectedKey()) : nullptr;
}

bool ctlHelpProjectContents::Select(const std::string& key)
{
    if (!m_tree || !m_view.Exists(key))
        return false;
    m_view.Select(key);
    RefreshPreview();
    return true;
}

std::vector<ctlHelpProjectContents::MenuEntry> ctlHelpProjectContents::PopupMenu() const
{
    std::vector<MenuEntry> entries;
    if (!SelectedNode())
        return entries;
    for (const std::string& item : MenuItems()) {
        MenuEntry entry { item, DefaultCaption(item), false };
        if (m_menu) {
            entry.caption = m_menu->Caption(item);
            entry.enabled = m_menu->Enabled(item);
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool ctlHelpProjectContents::MenuClick(std::string_view item)
{
    if (!m_menu || std::find(MenuItems().begin(), MenuItems().end(), item) == MenuItems().end())
        return false;
    bool ran = false;
    ErrorFrame("ctlHelpProjectContents.mnu_Click", [&] { ran = m_menu->Run(item); });
    if (ran)
        RefreshPreview();
    return ran;
}

WizardPreview ctlHelpProjectContents::MakePreview()
{
    CHelpPrjTreeNode* node = SelectedNode();
    if (!node)
        return {};
    std::string page = node->GeneratedHTMLFileFullPath();
    if (!page.empty() && FileExists(page))
        return PageAt(page);
    return PageAt(Wizard().WizSampleTopicPageHtmlFullPath(node->Name().empty() ? node->Key() : node->Name(),
        node->Caption()));
}

}  // namespace scriv
