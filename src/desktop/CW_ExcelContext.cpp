#include "desktop/CW_ExcelContext.h"

#include "desktop/CWinFormRenderer.h"
#include "desktop/RenderedWindows.h"
#include "foundation/CTraceLog.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CXmlCommand.h"
#include "host/access/CDataObjectProcessor.h"
#include "host/excel/MsFormsFile.h"
#include "host/vb6/Vb6FormFile.h"
#include "host/vs/CW_IDEVSFormProcessor.h"
#include "host/vs/WinFormDesign.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

// The class of a VBA user form in the first line of its export.
constexpr std::string_view kUserFormClass = "{C62A69F0-16DC-11CE-9E98-00AA00574A4F}";

void SetText(DesignComponent& component, const std::string& property, const std::string& text)
{
    DesignValue& value = component.properties[property];
    value.kind = DesignValue::Kind::Text;
    value.text = text;
}

void SetPair(DesignComponent& component, const std::string& property, double a, double b)
{
    DesignValue& value = component.properties[property];
    value.kind = DesignValue::Kind::Pair;
    value.a = a;
    value.b = b;
}

void SetFlag(DesignComponent& component, const std::string& property, bool flag)
{
    DesignValue& value = component.properties[property];
    value.kind = DesignValue::Kind::Boolean;
    value.flag = flag;
}

void SetNumber(DesignComponent& component, const std::string& property, double number)
{
    DesignValue& value = component.properties[property];
    value.kind = DesignValue::Kind::Number;
    value.number = number;
    value.text = std::to_string(static_cast<long long>(number));
}

// The Windows Forms control that looks like a user form's control.
std::string WinFormsTypeOf(const MsFormsControl& control)
{
    switch (control.type) {
    case MsFormsControlType::Label: return "Label";
    case MsFormsControlType::TextBox: return "TextBox";
    case MsFormsControlType::ListBox: return "ListBox";
    case MsFormsControlType::ComboBox: return "ComboBox";
    case MsFormsControlType::CheckBox: return "CheckBox";
    case MsFormsControlType::ToggleButton: return "CheckBox";
    case MsFormsControlType::OptionButton: return "RadioButton";
    case MsFormsControlType::CommandButton: return "Button";
    case MsFormsControlType::Frame: return "GroupBox";
    case MsFormsControlType::Image: return "PictureBox";
    case MsFormsControlType::ScrollBar: return control.width >= control.height ? "HScrollBar" : "VScrollBar";
    case MsFormsControlType::SpinButton: return "VScrollBar";
    case MsFormsControlType::TabStrip: return "TabControl";
    case MsFormsControlType::MultiPage: return "TabControl";
    case MsFormsControlType::Page: return "TabPage";
    }
    return "Control";
}

// Adds the controls to the container, the first of them (the back of the form) last.
void AddControls(WinFormDesign& design, DesignComponent& container, const std::vector<MsFormsControl>& controls)
{
    for (auto it = controls.rbegin(); it != controls.rend(); ++it) {
        const MsFormsControl& control = *it;
        // Pages of different multipages may share a name; the design needs one name each.
        std::string name = control.name.empty() ? MsFormsTypeName(control.type) : control.name;
        for (int n = 2; design.Find(name); ++n)
            name = (control.name.empty() ? MsFormsTypeName(control.type) : control.name) + "_" + std::to_string(n);
        DesignComponent& component = design.Create(name, "System.Windows.Forms." + WinFormsTypeOf(control));
        SetText(component, "Name", name);
        bool checkable = control.type == MsFormsControlType::CheckBox || control.type == MsFormsControlType::OptionButton
            || control.type == MsFormsControlType::ToggleButton;
        bool editable = control.type == MsFormsControlType::TextBox || control.type == MsFormsControlType::ComboBox;
        SetText(component, "Text", editable ? control.value : control.caption);
        if (checkable)
            SetFlag(component, "Checked", control.value == "1" || EqualsNoCase(control.value, "True"));
        if (control.type == MsFormsControlType::ToggleButton) {
            DesignValue& appearance = component.properties["Appearance"];
            appearance.kind = DesignValue::Kind::Enum;
            appearance.text = "Button";
            appearance.names = { "Button" };
        }
        if (control.type != MsFormsControlType::Page) {
            SetPair(component, "Location", HimetricToPixels(control.left), HimetricToPixels(control.top));
            SetPair(component, "Size", HimetricToPixels(control.width), HimetricToPixels(control.height));
        }
        if (control.tabIndex >= 0)
            SetNumber(component, "TabIndex", control.tabIndex);
        // The pages a multipage does not show are hidden in the file, not on the form.
        if (!control.visible && control.type != MsFormsControlType::Page)
            SetFlag(component, "Visible", false);
        if (!control.enabled)
            SetFlag(component, "Enabled", false);
        if (!control.controlTipText.empty())
            SetText(component, "ToolTipText", control.controlTipText);
        component.parent = &container;
        container.controls.push_back(&component);
        // The pages of a tab control stay in their order.
        if (control.type == MsFormsControlType::MultiPage) {
            for (const MsFormsControl& page : control.children) {
                std::vector<MsFormsControl> one { page };
                AddControls(design, component, one);
            }
        } else if (control.type == MsFormsControlType::TabStrip) {
            for (const std::string& tab : control.tabs) {
                MsFormsControl page;
                page.type = MsFormsControlType::Page;
                page.name = control.name + "Tab";
                page.caption = tab;
                AddControls(design, component, { page });
            }
        } else {
            AddControls(design, component, control.children);
        }
    }
}

}  // namespace

int HeadingRow(const XlsxSheet& sheet)
{
    int best = 0;
    int bestCount = 1;
    for (int row = sheet.firstRow; !sheet.Empty() && row <= sheet.lastRow && row < sheet.firstRow + 10; ++row) {
        int texts = 0;
        for (int column = sheet.firstColumn; column <= sheet.lastColumn; ++column)
            if (!sheet.Text(row, column).empty() && !sheet.numeric.count({ row, column }))
                ++texts;
        if (texts > bestCount) {
            best = row;
            bestCount = texts;
        }
    }
    return best;
}

std::vector<CW_ExcelContext::UserForm> UserFormsBeside(const std::string& workbookPath)
{
    std::vector<CW_ExcelContext::UserForm> forms;
    std::string folder = AddBackslash(FolderOf(workbookPath));
    for (const std::string& file : ListFiles(folder, "*.frm")) {
        try {
            Vb6FormFile form = Vb6FormFile::Load(folder + file);
            if (form.Kind() != Vb6FormKind::Designer || !EqualsNoCase(form.Form().LibraryType(), kUserFormClass))
                continue;
            CW_ExcelContext::UserForm userForm;
            std::string name = form.Attribute("VB_Name");
            userForm.name = name.empty() ? form.Form().Name() : name;
            userForm.caption = form.Form().Text("Caption");
            userForm.path = folder + file;
            if (const Vb6Property* blob = form.Form().FindProperty("OleObjectBlob"))
                if (std::optional<Vb6FrxReference> frx = blob->Frx()) {
                    userForm.frxPath = FindPathNoCase(JoinPath(folder, ToNativePath(frx->fileName)));
                    userForm.frxOffset = frx->offset;
                }
            userForm.width = static_cast<int>(form.Form().Number("ClientWidth", 3600) / 15 + 0.5);
            userForm.height = static_cast<int>(form.Form().Number("ClientHeight", 2700) / 15 + 0.5);
            forms.push_back(std::move(userForm));
        } catch (const ScrivError& error) {
            Trace("CW_ExcelContext: " + error.Description());
        }
    }
    return forms;
}

std::unique_ptr<CW_ExcelContext> CW_ExcelContext::Open(const std::string& path)
{
    std::unique_ptr<CW_ExcelContext> context(new CW_ExcelContext());
    context->m_workbook = XlsxWorkbook::Load(path);
    context->m_forms = UserFormsBeside(path);
    int handle = 100;
    for (UserForm& form : context->m_forms)
        form.windowHandle = handle++;
    return context;
}

CW_ExcelContext::~CW_ExcelContext() = default;

CW_ExcelContext::UserForm* CW_ExcelContext::FindUserForm(const std::string& name)
{
    for (UserForm& form : m_forms)
        if (EqualsNoCase(form.name, name))
            return &form;
    return nullptr;
}

std::string CW_ExcelContext::CurrentSourceProjectName()
{
    return FileBaseName(m_workbook.Path());
}

std::string CW_ExcelContext::CurrentSourceProjectLocation()
{
    return AddBackslash(FolderOf(m_workbook.Path()));
}

void CW_ExcelContext::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    // The workbook's VBA project is binary and is not written here.
    Trace("CW_ExcelContext: the help file " + FileNameOf(helpFileFullPath) + " is not written into the workbook");
}

void CW_ExcelContext::SaveMakeRun(bool, bool, bool)
{
    myDoevents();
}

bool CW_ExcelContext::ComponentExists(int compType, const std::string& compName)
{
    return m_workbook.FindWorksheet(compName) || m_workbook.FindChart(compName) || FindUserForm(compName);
}

WinFormDesign& CW_ExcelContext::DesignOf(UserForm& form)
{
    if (!form.design) {
        // A user form is a dialog with a close button, its caption and its size.
        form.design = std::make_unique<WinFormDesign>();
        DesignComponent& root = form.design->Form();
        SetText(root, "Text", form.caption);
        SetText(root, "Name", form.name);
        DesignValue& size = root.properties["ClientSize"];
        size.kind = DesignValue::Kind::Pair;
        size.a = form.width;
        size.b = form.height;
        DesignValue& border = root.properties["FormBorderStyle"];
        border.kind = DesignValue::Kind::Enum;
        border.text = "FixedDialog";
        border.names = { "FixedDialog" };
        for (const char* box : { "MinimizeBox", "MaximizeBox" }) {
            DesignValue& flag = root.properties[box];
            flag.kind = DesignValue::Kind::Boolean;
            flag.flag = false;
        }
        AddUserFormControls(form);
    }
    return *form.design;
}

void CW_ExcelContext::AddUserFormControls(UserForm& form)
{
    if (form.frxPath.empty() || !FileExists(form.frxPath)) {
        Trace("CW_ExcelContext: the user form " + form.name + " has no .frx with its controls");
        return;
    }
    MsFormsForm controls;
    try {
        controls = MsFormsFile::Load(form.frxPath, form.frxOffset);
    } catch (const ScrivError& error) {
        Trace("CW_ExcelContext: the controls of " + form.name + " are not drawn: " + error.Description());
        return;
    }
    DesignComponent& root = form.design->Form();
    // User forms write in Tahoma 8 unless they name another font.
    DesignValue& font = root.properties["Font"];
    font.kind = DesignValue::Kind::Font;
    font.text = controls.fontName.empty() ? "Tahoma" : controls.fontName;
    font.number = controls.fontSize > 0 ? controls.fontSize : 8;
    AddControls(*form.design, root, controls.controls);
}

void CW_ExcelContext::CloseComponent(int objType, const std::string& objName, bool saveFlag)
{
    if (UserForm* form = FindUserForm(objName))
        RenderedWindows().Remove(form->windowHandle);
}

void CW_ExcelContext::SetComponentHelp(int objType, const std::string& objName, int helpContextId)
{
    // A user form keeps its id in the header of its exported form file, as
    // the VBA editor writes it; worksheets and charts have none.
    UserForm* form = FindUserForm(objName);
    if (!form) {
        Trace("CW_ExcelContext: help context id " + std::to_string(helpContextId) + " of " + objName
            + " is not written: only user forms keep one");
        return;
    }
    Vb6FormFile file = Vb6FormFile::Load(form->path);
    file.SetFormProperty("HelpContextID", std::to_string(helpContextId));
    file.Save();
}

int CW_ExcelContext::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    UserForm* form = FindUserForm(objName);
    if (!form)
        return 0;
    CW_IDEVSFormProcessor processor(DesignOf(*form), form->windowHandle);
    RenderWinFormWindow(form->windowHandle, processor, {}, kMainWindowHandle);
    return form->windowHandle;
}

std::string CW_ExcelContext::WorksheetOrChartHtml(const std::string& name) const
{
    if (const XlsxSheet* sheet = m_workbook.FindWorksheet(name))
        return WorksheetHtml(*sheet);
    if (const XlsxChart* chart = m_workbook.FindChart(name))
        return ChartHtml(*chart);
    return {};
}

bool CW_ExcelContext::SaveUserFormAsText(const std::string& name, const std::string& path)
{
    UserForm* form = FindUserForm(name);
    return form && CopyFileOver(form->path, path);
}

bool CW_ExcelContext::ProcessOtherCommand(CXmlCommand& command)
{
    auto is = [&](std::string_view name) { return EqualsNoCase(command.Name(), name); };
    auto answer = [&](std::string value) { command.AddParamValue("RetValue", std::move(value)); };
    if (is("GetSourceWorksheetsList")) {
        std::vector<std::string> names;
        for (const XlsxSheet& sheet : m_workbook.Worksheets())
            names.push_back(sheet.name);
        answer(Join(names, "|"));
    } else if (is("GetSourceChartsList")) {
        std::vector<std::string> names;
        for (const XlsxChart& chart : m_workbook.Charts())
            names.push_back(chart.name);
        answer(Join(names, "|"));
    } else if (is("GetSourceFormsList")) {
        std::vector<std::string> names;
        for (const UserForm& form : m_forms)
            names.push_back(form.name);
        answer(Join(names, "|"));
    } else if (is("SaveAsText")) {
        SaveUserFormAsText(command.GetParamValue("ObjName"), command.GetParamValue("FullPath"));
    } else if (is("GetWksHtml")) {
        answer(WorksheetOrChartHtml(command.GetParamValue("XmlCmdParam_WksName")));
    } else if (is("GetComponentDescription")) {
        answer("");
    } else {
        return false;
    }
    return true;
}

std::string CW_ExcelContext::ProcessComponent(const ProcessComponentRequest& request)
{
    std::string raw;
    CClientUIObjectRawXml walk;
    if (request.objectType == 2) {
        UserForm* form = FindUserForm(request.componentName);
        if (!form)
            return {};
        CW_IDEVSFormProcessor processor(DesignOf(*form), form->windowHandle);
        raw = walk.Get_(processor, 2, processor.Component(), request.hostAppIdeHwnd, request.isInDesignView,
            request.sourceProjectTypeName, request.keepSourceObjectOpened, Parameters().VerboseTracing);
    } else {
        std::vector<IClientFormProcessor::Field> fields;
        if (const XlsxSheet* sheet = m_workbook.FindWorksheet(request.componentName)) {
            // The columns of the range in use that have a heading.
            int headings = HeadingRow(*sheet);
            for (int column = sheet->firstColumn; headings > 0 && column <= sheet->lastColumn; ++column) {
                std::string heading = sheet->Text(headings, column);
                if (!heading.empty())
                    fields.push_back({ ColumnLetters(column), heading, {}, column - sheet->firstColumn });
            }
        } else if (const XlsxChart* chart = m_workbook.FindChart(request.componentName)) {
            for (std::size_t i = 0; i < chart->series.size(); ++i)
                fields.push_back({ "Series" + std::to_string(i + 1), chart->series[i], {}, static_cast<int>(i) });
        } else {
            return {};
        }
        CDataObjectProcessor processor(request.componentName, std::move(fields));
        raw = walk.Get_(processor, request.objectType, processor.Component(), request.hostAppIdeHwnd,
            request.isInDesignView, request.sourceProjectTypeName, request.keepSourceObjectOpened,
            Parameters().VerboseTracing);
    }
    CXmlForm form;
    if (!form.LoadXml(raw)) {
        Raise(status::kSecondFailure, "CW_ExcelContext.IHostIDEContext_ProcessCallBack",
            "Error processing source project component [" + request.componentName + "]: "
                + form.XmlParseError().Reason());
    }
    return form.XMLSTr();
}

}  // namespace scriv
