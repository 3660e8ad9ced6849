#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/CHostContextBase.h"
#include "host/excel/XlsxWorkbook.h"

namespace scriv {

class WinFormDesign;

// Excel, stood in for by a workbook (.xlsx, .xlsm) and the user forms of its
// VBA project exported beside it (.frm with .frx). It lists the worksheets,
// charts and user forms, answers each worksheet's range in use as a table and
// what each chart shows, and draws a user form as a dialog window with its
// caption, size and the controls that the binary part of its export (the
// .frx) keeps, drawn as the Windows Forms controls that look like them.
class CW_ExcelContext : public CHostContextBase {
public:
    struct UserForm {
        std::string name;
        std::string caption;
        std::string path;
        // The .frx that keeps the controls, and where in it; "" for none.
        std::string frxPath;
        std::uint32_t frxOffset { 0 };
        // Client size in pixels.
        int width { 0 };
        int height { 0 };
        int windowHandle { 0 };
        std::unique_ptr<WinFormDesign> design;
    };

    // Opens a workbook; raises ScrivError naming the file when it cannot be read.
    static std::unique_ptr<CW_ExcelContext> Open(const std::string& path);
    ~CW_ExcelContext() override;

    const XlsxWorkbook& Workbook() const { return m_workbook; }
    std::vector<UserForm>& UserForms() { return m_forms; }
    UserForm* FindUserForm(const std::string& name);

    // ^IHostIDEContext
    int Connect() override { return 0; }
    int Disconnect() override { return 0; }
    bool IDEDisplayModelIsMDI() override { return true; }
    bool UseProjectGroupAsSource() override { return false; }
    void SetUseProjectGroupAsSource(bool) override { }
    std::string SourceProjectsList() override { return CurrentSourceProjectName(); }
    void SetCurrentSourceProject(const std::string&) override { }
    bool AreThereAnySourceProjectsOpened() override { return true; }
    std::string CurrentSourceProjectFullPath() override { return m_workbook.Path(); }
    std::string CurrentSourceProjectName() override;
    std::string CurrentSourceProjectTypeName() override { return "MS EXCEL"; }
    bool CurrentSourceProjectIsDirty() override { return false; }
    std::string CurrentSourceProjectLocation() override;
    bool CurrentSourceProjectIsMDEorADE() override { return false; }
    bool CurrentSourceProjectIsADPorADE() override { return false; }
    int HostAppMainWindowHWnd() override { return kMainWindowHandle; }
    void HideIDEWindows() override { }
    void ResetIDEWindows() override { }
    std::string CurrentObjectName() override { return "???"; }
    int CurrentObjectType() override { return -1; }
    bool CurrentSourceProjectIsNewUnsaved() override { return false; }
    bool CurrentSourceProjectCodeIsDisabled() override { return false; }

    // ^IHostIDEContextCommands
    void SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath) override;
    void SaveMakeRun(bool, bool, bool) override;
    bool ComponentExists(int compType, const std::string& compName) override;
    void CloseComponent(int objType, const std::string& objName, bool saveFlag) override;
    void SetComponentHelp(int objType, const std::string& objName, int helpContextId) override;
    int ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
        bool forceOpenAsHidden) override;
    bool ActivateControl(const std::string&, bool, bool) override { return true; }

    // The text a topic shows of a worksheet (its range in use) or a chart; "" for neither.
    std::string WorksheetOrChartHtml(const std::string& name) const;
    // Writes a user form's definition to path; false when there is no such form.
    bool SaveUserFormAsText(const std::string& name, const std::string& path);

    static constexpr int kMainWindowHandle = 1;

protected:
    // ^CHostContextBase
    std::string ProcessComponent(const ProcessComponentRequest& request) override;
    std::string HostClassName() const override { return "CW_ExcelContext"; }
    bool ProcessOtherCommand(CXmlCommand& command) override;

private:
    CW_ExcelContext() = default;
    WinFormDesign& DesignOf(UserForm& form);
    // Adds the controls that the form's .frx keeps to its design; a form
    // without one, or whose .frx cannot be read, keeps its empty face.
    void AddUserFormControls(UserForm& form);

    XlsxWorkbook m_workbook;
    std::vector<UserForm> m_forms;
};

// The row of a worksheet's headings: of its first ten rows in use, the first
// with the most texts (two at least); 0 for none.
int HeadingRow(const XlsxSheet& sheet);

// The user forms exported beside a workbook: the .frm files of its folder
// whose form is a VBA user form, by name.
std::vector<CW_ExcelContext::UserForm> UserFormsBeside(const std::string& workbookPath);

}  // namespace scriv
