#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/CHeadlessTreeView.h"
#include "wizard/WizardPages.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;

// The tree operations that the contents page offers, made over the shown
// tree by the layer that owns them.
class IWizardContentsMenu {
public:
    virtual ~IWizardContentsMenu() = default;
    // Whether an item ("mnuUp" ...) can run on the selected node now.
    virtual bool Enabled(std::string_view item) const = 0;
    // Runs an item on the selected node; false when it is disabled.
    virtual bool Run(std::string_view item) = 0;
    // The caption of an item for the selected node ("Exclude" or "Include" ...).
    virtual std::string Caption(std::string_view item) const = 0;
    // Drops every reference to the tree and its view. Runs once.
    virtual void Terminate() = 0;
};

// The contents of the new help: the tree of topics as it will be generated,
// shown with names or captions as the controls are to be identified. A
// topic can be left out or taken in again, and moved up, down, left and
// right; the topic of the selected node (or a stand-in for one that has no
// page yet) stands beside the page.
class ctlHelpProjectContents : public CWizardPageControl {
public:
    struct MenuEntry {
        std::string name;
        std::string caption;
        bool enabled { false };
    };

    ctlHelpProjectContents();
    ~ctlHelpProjectContents() override;

    // The items of the page's popup menu, in their order.
    static const std::vector<std::string>& MenuItems();

    // The shown tree; its keys are the nodes' keys.
    const CHeadlessTreeView& TreeView() const { return m_view; }
    // The contents tree while the page is shown, else nothing.
    CHelpPrjTree* Tree() const { return m_tree; }
    // Whether the tree can be changed (the operations were supplied).
    bool CanChangeTree() const { return m_menu != nullptr; }

    // A click on an item: it is selected and its topic shown. False for a
    // key the tree has not.
    bool Select(const std::string& key);
    // The page's menu for the selected node; empty without a selection.
    std::vector<MenuEntry> PopupMenu() const;
    // Runs an item of the page's menu on the selected node; false for an
    // item the page does not offer or one disabled now.
    bool MenuClick(std::string_view item);

    // ^CWizardPageControl
    void Terminate() override;

protected:
    void OnInit() override;
    WizardPreview MakePreview() override;

private:
    CHelpPrjTreeNode* SelectedNode() const;
    // Lets go of the tree: its nodes no longer point at this page's view.
    void Detach();

    CHeadlessTreeView m_view;
    CHelpPrjTree* m_tree { nullptr };
    std::unique_ptr<IWizardContentsMenu> m_menu;
};

}  // namespace scriv
