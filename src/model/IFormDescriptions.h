#pragma once

#include <optional>
#include <string>
#include <vector>

namespace scriv {

class CHelpPrjTreeNode;

// One documented menu or control of a form topic, as its tree node shows it.
struct DocumentedControl {
    // The name of the control or menu in the form.
    std::string name;
    // Its bookmark within the form, unique there; the node's key ends in it.
    std::string bookmarkName;
    // Its anchor on the topic page.
    std::string anchor;
    // The heading the page gives it.
    std::string caption;
    bool isMenu { false };
    bool skipped { false };
};

// The documented menus (first) and controls of one form topic.
struct DocumentedControls {
    // The file name of the topic page they are documented on.
    std::string pageFile;
    std::vector<DocumentedControl> items;
    // Reading them from the page changed the saved description.
    bool changed { false };
};

// The saved descriptions of form topics, as the contents tree needs them for
// the control and menu nodes. The layer that reads form descriptions supplies
// it, so that the tree does not depend on their format.
class IFormDescriptions {
public:
    virtual ~IFormDescriptions() = default;

    // The documented menus and controls of a topic's saved description. With
    // refreshFromPage they are first read from the topic's page, and the
    // description is saved when they changed. Nothing when the topic has no
    // saved description.
    virtual std::optional<DocumentedControls> DocumentedControlsOf(const CHelpPrjTreeNode& node, bool refreshFromPage) = 0;
};

}  // namespace scriv
