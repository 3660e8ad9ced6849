#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/IClientFormProcessor.h"

namespace scriv {

// A table, query, macro, worksheet or chart seen as the form walk sees a data
// object: a name and its fields, no window, no controls, no menus. Database
// and workbook hosts describe their data objects through it.
class CDataObjectProcessor : public IClientFormProcessor {
public:
    CDataObjectProcessor(std::string name, std::vector<Field> fields);
    ~CDataObjectProcessor() override;

    // The object the processor stands for.
    IHostObject* Component() { return m_object.get(); }

    // ^IClientFormProcessor
    IHostObject* FindActualFormOfComponent(IHostObject*, bool, bool) override { return nullptr; }
    IHostObject* FindActualReportOfComponent(IHostObject*, bool, bool) override { return nullptr; }
    void ActualFormClose(IHostObject*, bool, bool) override { }
    void ActualReportClose(IHostObject*, bool, bool) override { }
    void myDoevents() override { }
    bool HasProperty(IHostObject* object, const std::string& name) override;
    std::string PropertyValue(IHostObject* object, const std::string& name) override;
    std::string ComponentCaptionGet(IHostObject*) override { return m_name; }
    std::string ComponentTypeName(IHostObject*) override { return {}; }
    std::string ControlNameGet(IHostObject*) override { return {}; }
    std::string ControlCaptionGet(IHostObject*) override { return {}; }
    std::string ObjectTypeName(IHostObject*) override { return {}; }
    void SetFirstPageVisibleForTabControls(IHostObject*) override { }
    int ScaleMode(IHostObject*) override { return 3; }
    CControlsCollection ControlsCollectionGet(IHostObject*) override { return {}; }
    bool FormHasMenus(IHostObject*) override { return false; }
    std::string ControlSeedTextGet(IHostObject*, IHostObject*) override { return {}; }
    std::string ComponentWindowCaptionGet(IHostObject*) override { return m_name; }
    IHostObject* TabPageActivate(IHostObject*, int) override { return nullptr; }
    std::string TabPageCaptionGet(IHostObject*, int, bool) override { return {}; }
    std::string TabControlCaptionGet(IHostObject*) override { return {}; }
    int TabControlPagesQtyGet(IHostObject*) override { return 0; }
    CControlsCollection TabPageControlsCollectionGet(IHostObject*, int) override { return {}; }
    bool IsCorrectTypeForAForm(int) override { return false; }
    int DisplayModel() override { return 1; }
    void Terminate() override { }
    std::string FormNamePrefix() override { return "dlg"; }
    std::string ReportNamePrefix() override { return "rpt"; }
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }
    int BorderStyle(IHostObject*) override { return 0; }
    int ControlSectionOffsetY(IHostObject*) override { return 0; }
    int ControlSectionOffsetX(IHostObject*) override { return 0; }
    int ControlSectionTitleHeight(IHostObject*) override { return 0; }
    std::string ControlSectionName(IHostObject*) override { return {}; }
    bool IsMSAccess() override { return false; }
    void GetComponentWidthAndHeightInTwips(IHostObject*, int& width, int& height) override { width = height = 0; }
    int FormClientAreaOffsetX(IHostObject*) override { return 0; }
    int FormClientAreaOffsetY(IHostObject*) override { return 0; }
    std::string FormSectionsXML(IHostObject*) override { return {}; }
    void GetControlIndexes(IHostObject*, int& tabIndex, int& index) override { tabIndex = index = 0; }
    std::string GetLabelControlParentName(IHostObject*) override { return {}; }
    Rect GetControlRectangleInTwips(IHostObject*, IHostObject*) override { return {}; }
    Rect GetTabPageTabRectangleInTwips(int, IHostObject*, IHostObject*) override { return {}; }
    int GetComponentHwnd(IHostObject*, bool, bool) override { return 0; }
    void SetComponentHelpContextId(IHostObject*, bool, int) override { }
    int GetComponentHelpContextId(IHostObject*, bool) override { return 0; }
    int GetControlHelpContextId(IHostObject*) override { return 0; }
    int ActivateComponent(IHostObject*) override { return 0; }
    std::string FormMenusXML(IHostObject*) override;
    int ToolbarButtonsQtyGet(IHostObject*) override { return 0; }
    CControlsCollection ToolbarButtonsCollectionGet(IHostObject*) override { return {}; }
    IHostObject* ToolbarButton(IHostObject*, int) override { return nullptr; }
    Rect GetToolbarButtonRectangleInTwips(int, IHostObject*, IHostObject*) override { return {}; }
    std::vector<Field> FieldsCollectionGet(const std::string& objectName, const std::string& objectKind) override;

private:
    std::string m_name;
    std::vector<Field> m_fields;
    std::unique_ptr<IHostObject> m_object;
};

}  // namespace scriv
