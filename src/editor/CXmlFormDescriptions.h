#pragma once

#include <memory>
#include <optional>
#include <string>

#include "model/IFormDescriptions.h"

namespace scriv {

class CHelpPrjTree;
class CHelpPrjTreeNode;
class CXmlForm;

// The saved form descriptions of a help project (its "xml/" folder), as the
// contents tree and the editor need them: the documented controls and menus of
// a topic, and the description itself to read and write.
class CXmlFormDescriptions : public IFormDescriptions {
public:
    // xmlFormsFolder: the project's folder of descriptions; empty means "xml/"
    // beside each topic's page.
    explicit CXmlFormDescriptions(std::string xmlFormsFolder);

    // ^IFormDescriptions
    std::optional<DocumentedControls> DocumentedControlsOf(const CHelpPrjTreeNode& node, bool refreshFromPage) override;

    // The description file of a topic: the forms folder (else "xml/" beside the
    // page) + the page's base name + ".xml".
    std::string FormPath(const CHelpPrjTreeNode& node) const;
    // The description of a topic, or nothing when it has none or it does not read.
    std::unique_ptr<CXmlForm> LoadXmlForm(const CHelpPrjTreeNode& node) const;
    // Writes the description of a form or report topic. Raises 0x80040001 "Xml
    // form is not defined for this object type" for any other topic, and
    // 0x80040002 when the file cannot be written.
    void SaveXmlForm(const CHelpPrjTreeNode& node, const CXmlForm& form) const;

    // The anchor of a documented control on its form's page: the form's map
    // name, "_" and the bookmark, transliterated.
    static std::string AnchorOf(const CXmlForm& form, const std::string& bookmarkName);

private:
    std::string m_folder;
};

// Refreshes the control and menu nodes of a form or report topic from its page
// after the page was saved: the page's documented controls go into the saved
// description, and when the page changed the nodes are dropped and rebuilt.
// Answers whether they were rebuilt.
bool RebuildControlNodesFromSavedFormHTML(CHelpPrjTree& tree, CHelpPrjTreeNode& node, IFormDescriptions& descriptions,
    bool useControlNames);

}  // namespace scriv
