#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "foundation/LoadedForms.h"

namespace scriv {

class CAddInSettingsXmlFile;
class CCodePages;
class CScrivantParameters;

// One control of a wizard page, as the wizard definition describes it, with the
// value it holds while the page is shown.
class CHelpWizardFormPageControl {
public:
    enum class Kind { TextBox, CheckBox, OptionButton, ComboBox, Label, CommandButton, Other };

    bool Parse(const pugi::xml_node& element);
    void Terminate() { }

    std::string ControlName;
    std::string OptName;
    std::string OptCaption;
    std::string Text;
    int TabIndex { 0 };
    // The settings option the control shows and changes; empty for none.
    std::string OptionName;
    // For option buttons: the option's value when the button is chosen.
    std::string OptionValueTranslator;

    // The kind follows the control's name: "chk" a check box, "opt" an option
    // button, "txt" a text box, "cbo" a combo box, "lbl" a label, "cmd" a button.
    Kind ControlKind() const;
    // A check box holds "1" or "0"; an option button "1" when chosen; others their text.
    std::string Value;
};

// One page of the wizard.
class CHelpWizardFormPage {
public:
    bool Parse(const pugi::xml_node& element);
    void Terminate();

    std::string Name;
    std::string Title;
    std::string Description;
    int HelpContextId { 0 };
    std::vector<std::unique_ptr<CHelpWizardFormPageControl>> Controls;

    CHelpWizardFormPageControl* Control(const std::string& controlName);
};

// Drives the wizard: reads its pages from the wizard definition, shows one
// page at a time, moves values between the page controls and the settings,
// and ends with Finish or Cancel, both of which hand over to the server. It
// needs no window: a user interface shows CurrentPage() and sets values.
class CHelpWizardForm : public IHostForm {
public:
    CHelpWizardForm();
    ~CHelpWizardForm() override;

    // Keeps a copy of the parameters for Cancel, reads the pages and code pages.
    // False when the definition cannot be read (no pages then).
    bool init(CAddInSettingsXmlFile& settings);
    // What runs when the wizard has closed with Finish or Cancel (the server
    // takes over there). The call may end the wizard itself.
    void SetOnClosing(std::function<void()> onClosing) { m_onClosing = std::move(onClosing); }
    // Shows the first page; the wizard counts as a loaded form until it ends.
    void Show();
    void Terminate();

    // 0 refreshes the page, -1 goes back, 1 forward.
    void ShowWizardPage(int step);
    void PreviousPage() { ShowWizardPage(-1); }
    void NextPage() { ShowWizardPage(1); }
    void RefreshCurrentPage() { ShowWizardPage(0); }
    // Saves the page, sets OK and lets the server go on with the generation.
    void Finish();
    // Puts the parameters back as they were and lets the server close the wizard.
    void Cancel();
    bool OK() const { return m_ok; }
    bool Shown() const { return m_shown; }

    const std::vector<std::unique_ptr<CHelpWizardFormPage>>& Pages() const { return m_pages; }
    CHelpWizardFormPage* CurrentPage() const;
    // The step number shown on the page (1 based) and the two buttons' states.
    int StepNumber() const { return m_current + 1; }
    bool BackEnabled() const { return m_current > 0; }
    bool ForwardEnabled() const { return m_current + 1 < static_cast<int>(m_pages.size()); }
    // Sets a control of the current page as the person would.
    bool SetControlValue(const std::string& controlName, const std::string& value);
    CCodePages& CodePages() { return *m_codePages; }

    // Sample pages of how the choices will look, made from the templates.
    std::string WizSampleApplicationPageHtmlFullPath();
    std::string WizSampleAuthorPageHtmlFullPath();
    std::string WizSampleHelpProjectPageHtmlFullPath();
    // The picture that explains the index options of the current choices.
    std::string ShowHelpOptionsPics() const;

    // ^IHostForm
    std::string FormName() const override { return "frmHelpWizard"; }
    bool IsIconic() const override { return false; }
    bool Visible() const override { return m_shown; }
    void SetVisible(bool visible) override { m_shown = visible; }
    void Restore() override { }
    void SetFocus() override { }
    void Unload() override;

private:
    void SavePage(CHelpWizardFormPage& page);
    void FillPage(CHelpWizardFormPage& page);
    static std::string SampleFolder();
    std::string SamplePage(const std::string& templateName, const std::string& name);

    CAddInSettingsXmlFile* m_settings { nullptr };
    std::function<void()> m_onClosing;
    std::unique_ptr<CScrivantParameters> m_saved;
    std::vector<std::unique_ptr<CHelpWizardFormPage>> m_pages;
    std::unique_ptr<CCodePages> m_codePages;
    std::vector<std::string> m_sampleFiles;
    int m_current { -1 };
    bool m_ok { false };
    bool m_shown { false };
    bool m_registered { false };
    bool m_inShowPage { false };
    bool m_terminated { false };
};

}  // namespace scriv
