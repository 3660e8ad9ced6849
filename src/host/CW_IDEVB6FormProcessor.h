#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CNonClientMetrics.h"
#include "host/IClientFormProcessor.h"

namespace scriv {

class Vb6Block;
class Vb6FormFile;
class Vb6PropertyGroup;

// A form of a VB6 project as the IDE's designer would show it, answered from
// the form file. The designer's live state that a walk changes (the page shown
// by each tab control, and with it where the pages' controls stand) is kept here.
class CW_IDEVB6FormProcessor : public IClientFormProcessor {
public:
    // The processor looks at one form file, which must outlive it.
    explicit CW_IDEVB6FormProcessor(Vb6FormFile& file, int windowHandle = 0);
    ~CW_IDEVB6FormProcessor() override;

    // The component the processor was made for (the form file).
    IHostObject* Component() { return m_component.get(); }

    // ^IClientFormProcessor
    IHostObject* FindActualFormOfComponent(IHostObject* component, bool a, bool b) override;
    IHostObject* FindActualReportOfComponent(IHostObject* component, bool a, bool b) override { return nullptr; }
    void ActualFormClose(IHostObject* form, bool a, bool b) override;
    void ActualReportClose(IHostObject* report, bool a, bool b) override { }
    void myDoevents() override;
    bool HasProperty(IHostObject* object, const std::string& name) override;
    std::string PropertyValue(IHostObject* object, const std::string& name) override;
    std::string ComponentCaptionGet(IHostObject* form) override;
    std::string ComponentTypeName(IHostObject* form) override { return "Form"; }
    std::string ControlNameGet(IHostObject* control) override;
    std::string ControlCaptionGet(IHostObject* control) override;
    std::string ObjectTypeName(IHostObject* object) override;
    void SetFirstPageVisibleForTabControls(IHostObject* form) override;
    int ScaleMode(IHostObject* form) override;
    CControlsCollection ControlsCollectionGet(IHostObject* object) override;
    bool FormHasMenus(IHostObject* form) override;
    std::string ControlSeedTextGet(IHostObject* form, IHostObject* control) override;
    std::string ComponentWindowCaptionGet(IHostObject* form) override;
    IHostObject* TabPageActivate(IHostObject* control, int page) override;
    std::string TabPageCaptionGet(IHostObject* control, int page, bool activate) override;
    std::string TabControlCaptionGet(IHostObject* control) override;
    int TabControlPagesQtyGet(IHostObject* control) override;
    CControlsCollection TabPageControlsCollectionGet(IHostObject* control, int page) override;
    bool IsCorrectTypeForAForm(int componentType) override { return componentType >= 5 && componentType <= 9; }
    int DisplayModel() override { return 1; }
    void Terminate() override;
    std::string FormNamePrefix() override { return "dlg"; }
    std::string ReportNamePrefix() override { return "rpt"; }
    std::string TableNamePrefix() override { return "tbl"; }
    std::string QueryNamePrefix() override { return "qry"; }
    std::string MacroNamePrefix() override { return "mcr"; }
    int BorderStyle(IHostObject* form) override;
    int ControlSectionOffsetY(IHostObject*) override { return 0; }
    int ControlSectionOffsetX(IHostObject*) override { return 0; }
    int ControlSectionTitleHeight(IHostObject*) override { return 0; }
    std::string ControlSectionName(IHostObject*) override { return {}; }
    bool IsMSAccess() override { return false; }
    void GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height) override;
    int FormClientAreaOffsetX(IHostObject* form) override;
    int FormClientAreaOffsetY(IHostObject* form) override;
    std::string FormSectionsXML(IHostObject*) override { return {}; }
    void GetControlIndexes(IHostObject* control, int& tabIndex, int& index) override;
    std::string GetLabelControlParentName(IHostObject*) override { return {}; }
    Rect GetControlRectangleInTwips(IHostObject* form, IHostObject* control) override;
    Rect GetTabPageTabRectangleInTwips(int page, IHostObject* form, IHostObject* control) override;
    int GetComponentHwnd(IHostObject* component, bool a, bool b) override { return m_windowHandle; }
    void SetComponentHelpContextId(IHostObject* form, bool a, int id) override;
    int GetComponentHelpContextId(IHostObject* form, bool a) override;
    int GetControlHelpContextId(IHostObject* control) override;
    int ActivateComponent(IHostObject* component) override { return m_windowHandle; }
    std::string FormMenusXML(IHostObject* form) override;
    int ToolbarButtonsQtyGet(IHostObject* control) override;
    CControlsCollection ToolbarButtonsCollectionGet(IHostObject* control) override;
    IHostObject* ToolbarButton(IHostObject* control, int button) override;
    Rect GetToolbarButtonRectangleInTwips(int button, IHostObject* form, IHostObject* control) override;
    std::vector<Field> FieldsCollectionGet(const std::string&, const std::string&) override { return {}; }

private:
    class BlockObject;
    class ButtonObject;

    BlockObject* Object(const Vb6Block* block);
    const Vb6Block* BlockOf(IHostObject* object) const;
    const Vb6Block* FormBlock() const;
    // A number property of a control as the live designer has it.
    double Number(const Vb6Block* block, const std::string& name, double fallback) const;
    // Twips per unit of the form's scale mode, on each axis.
    double ScaleFactorX() const;
    double ScaleFactorY() const;
    bool ContainerIsForm(const Vb6Block* block) const;
    int ActivePage(const Vb6Block* tabControl) const;
    int PageOf(const Vb6Block* tabControl, const Vb6Block* control) const;
    void MovePageControls(const Vb6Block* tabControl, int page);
    int MenuBarHeight() const;

    Vb6FormFile& m_file;
    int m_windowHandle { 0 };
    CNonClientMetrics m_metrics;
    std::unique_ptr<IHostObject> m_component;
    std::map<const Vb6Block*, std::unique_ptr<BlockObject>> m_objects;
    std::vector<std::unique_ptr<ButtonObject>> m_buttons;
    // Where the walk has put each tab control: the page shown.
    std::map<const Vb6Block*, int> m_activePages;
    // How far each control stands left of where the file has it (twips).
    std::map<const Vb6Block*, double> m_leftShift;
    bool m_terminated { false };
};

// The SSTab keeps the controls of its hidden pages this far to the left.
inline constexpr double kHiddenTabOffset = 75000;

// Hundredths of a millimetre, the unit of the sizes an OCX keeps in its file, in twips.
double HimetricToTwips(double himetric);

// The whole part of value, held to the range of int (NaN gives 0).
int ToInt(double value);

// Rounds to the nearest whole number, ties to the even one; held to the range of int.
int RoundHalfEven(double value);
// A measure in pixels, rounded as RoundHalfEven and held within a million either way.
int Pixels(double value);

}  // namespace scriv
