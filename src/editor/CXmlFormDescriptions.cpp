#include "editor/CXmlFormDescriptions.h"

#include "foundation/CTraceLog.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

CXmlFormDescriptions::CXmlFormDescriptions(std::string xmlFormsFolder)
    : m_folder(xmlFormsFolder.empty() ? std::string() : AddBackslash(xmlFormsFolder))
{
}

std::string CXmlFormDescriptions::FormPath(const CHelpPrjTreeNode& node) const
{
    if (node.GeneratedHTMLFile().empty())
        return {};
    if (!m_folder.empty())
        return m_folder + node.XmlFormFileName();
    std::string page = node.GeneratedHTMLFileFullPath();
    return page.empty() ? std::string() : FolderOf(page) + "xml/" + node.XmlFormFileName();
}

std::unique_ptr<CXmlForm> CXmlFormDescriptions::LoadXmlForm(const CHelpPrjTreeNode& node) const
{
    std::string path = FormPath(node);
    if (path.empty() || !FileExists(path))
        return nullptr;
    auto form = std::make_unique<CXmlForm>();
    if (!form->Load(path)) {
        Trace("CXmlFormDescriptions.LoadXmlForm: " + path + ": " + form->XmlParseError().Reason());
        return nullptr;
    }
    return form;
}

void CXmlFormDescriptions::SaveXmlForm(const CHelpPrjTreeNode& node, const CXmlForm& form) const
{
    int type = node.ObjectType();
    if (type != objtype::kForm && type != objtype::kReport)
        Raise(status::kGeneralFailure, "CHelpPrjTreeNode.SaveXmlForm", "Xml form is not defined for this object type");
    std::string path = FormPath(node);
    if (path.empty() || !MakeFolders(FolderOf(path)) || form.SaveXml(FolderOf(path), path).empty())
        Raise(status::kSecondFailure, "CHelpPrjTreeNode.SaveXmlForm", "Error saving XML file " + path);
}

std::string CXmlFormDescriptions::AnchorOf(const CXmlForm& form, const std::string& bookmarkName)
{
    std::string mapName = EncodeObjectName(form.NamePrefix.empty() ? form.Name : form.NamePrefix + "_" + form.Name);
    return EncodeObjectName(mapName + "_" + bookmarkName);
}

std::optional<DocumentedControls> CXmlFormDescriptions::DocumentedControlsOf(const CHelpPrjTreeNode& node,
    bool refreshFromPage)
{
    std::unique_ptr<CXmlForm> form = LoadXmlForm(node);
    if (!form)
        return std::nullopt;
    DocumentedControls controls;
    std::string page = node.GeneratedHTMLFileFullPath();
    if (refreshFromPage && !page.empty() && FileExists(page)) {
        controls.changed = form->MakeDefs(page, true);
        if (controls.changed && form->SaveXml(FolderOf(FormPath(node)), FormPath(node)).empty())
            Trace("CXmlFormDescriptions.DocumentedControlsOf: cannot save " + FormPath(node));
    }
    controls.pageFile = FileNameOf(form->HtmlFullPath());
    for (const auto* list : { &form->DocumentedMenus(), &form->DocumentedControls() }) {
        for (const auto& entry : *list) {
            const CFormHTMLControlDef& definition = entry.value;
            DocumentedControl control;
            control.name = definition.ControlName;
            control.bookmarkName = definition.BookmarkName;
            control.anchor = AnchorOf(*form, definition.BookmarkName);
            control.caption = definition.TopicCaption;
            control.isMenu = definition.IsMenu;
            controls.items.push_back(std::move(control));
        }
    }
    return controls;
}

bool RebuildControlNodesFromSavedFormHTML(CHelpPrjTree& tree, CHelpPrjTreeNode& node, IFormDescriptions& descriptions,
    bool useControlNames)
{
    int type = node.ObjectType();
    if (node.IsControl || node.IsMenu || node.ProcessCode() != processcode::kSourceObject
        || (type != objtype::kForm && type != objtype::kReport))
        return false;
    std::optional<DocumentedControls> controls = descriptions.DocumentedControlsOf(node, true);
    if (!controls)
        return false;
    // Without a checksum store the changed definitions alone decide.
    CHelpPrjFileCheckSum* checkSum = tree.GetCheckSumObject(node.GeneratedHTMLFileFullPath(), true);
    bool pageChanged = checkSum ? checkSum->PreviousCheckSumChanged() : false;
    if (!pageChanged && !controls->changed)
        return false;
    node.DropChildrenControls();
    tree.AddControls(node, node.Level(), *controls, useControlNames);
    return true;
}

}  // namespace scriv
