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
class CWizardPageControl;
class IWizardContentsMenu;
class CHelpPrjTree;
class ITreeView;

// What stands beside a wizard page: a sample page, a picture, or nothing.
struct WizardPreview {
    enum class Kind { None, Page, Picture };
    Kind kind { Kind::None };
    std::string path;

    bool operator==(const WizardPreview&) const = default;
};

// Makes the tree operations of the contents page over a shown tree; they
// live in a layer above the wizard, which supplies this.
using WizardContentsMenuFactory = std::function<std::unique_ptr<IWizardContentsMenu>(ITreeView&, CHelpPrjTree&)>;

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
    // The caption shown with the control: OptCaption, else Text.
    const std::string& Caption() const { return OptCaption.empty() ? Text : OptCaption; }

    // What the page shows of the control now.
    bool Enabled { true };
    bool Visible { true };
    // The entries of a list (value and the text shown), filled by its page.
    struct ListItem {
        std::string value;
        std::string text;
    };
    std::vector<ListItem> Items;
};

// One page of the wizard.
class CHelpWizardFormPage {
public:
    CHelpWizardFormPage();
    ~CHelpWizardFormPage();
    CHelpWizardFormPage(const CHelpWizardFormPage&) = delete;
    CHelpWizardFormPage& operator=(const CHelpWizardFormPage&) = delete;

    bool Parse(const pugi::xml_node& element);
    void Terminate();

    std::string Name;
    std::string Title;
    std::string Description;
    int HelpContextId { 0 };
    std::vector<std::unique_ptr<CHelpWizardFormPageControl>> Controls;
    // The page's own rules (ctlHelpProject ...), made from its name.
    std::unique_ptr<CWizardPageControl> PageControl;

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
    // What reopens the wizard for a changed source (the server queues it).
    void SetOnReload(std::function<void()> onReload) { m_onReload = std::move(onReload); }
    // Asks for the wizard to be reopened; false when nobody can.
    bool Reload();
    // The tree operations of the contents page; without them its tree can
    // be looked at but not changed.
    void SetContentsMenuFactory(WizardContentsMenuFactory factory) { m_contentsMenuFactory = std::move(factory); }
    const WizardContentsMenuFactory& ContentsMenuFactory() const { return m_contentsMenuFactory; }
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
    int PageCount() const { return static_cast<int>(m_pages.size()); }
    // Sets a control of the current page as the person would: its page's rule
    // follows. False for a control the page has not, or one that is disabled.
    bool SetControlValue(const std::string& controlName, const std::string& value);
    // Presses a button of the current page. False for a control it has not.
    bool ClickControl(const std::string& controlName);
    // Writes a control's value into its option and the parameters.
    void WriteControl(const CHelpWizardFormPageControl& control);
    // The preview beside the current page.
    WizardPreview CurrentPreview() const;
    CCodePages& CodePages() { return *m_codePages; }
    CAddInSettingsXmlFile* Settings() const { return m_settings; }

    // Sample pages of how the choices will look, made from the templates.
    std::string WizSampleApplicationPageHtmlFullPath();
    std::string WizSampleAuthorPageHtmlFullPath();
    std::string WizSampleHelpProjectPageHtmlFullPath();
    // The topic of the sample form (or report) with the current choices;
    // made again with rebuild, else only when it is not there. "" when the
    // sample cannot be read.
    std::string SampleHtmlFullPathForForm(bool rebuild);
    std::string SampleHtmlFullPathForReport(bool rebuild);
    // A stand-in page for a topic that has no page yet.
    std::string WizSampleTopicPageHtmlFullPath(const std::string& nodeName, const std::string& caption);
    // The picture that explains the index options of the current choices.
    std::string ShowHelpOptionsPics() const;
    // The picture of the closing page.
    std::string ShowGeneratedHelpPicture() const;
    // The folder of this program's sample pages (below the temporary folder).
    static std::string SampleFolder();

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
    std::string SamplePage(const std::string& templateName, const std::string& name);
    std::string SampleObjectPage(const std::string& sampleName, bool isReport, bool rebuild);
    // The style sheet of the sample pages, copied beside them; its file name, or "".
    std::string SampleStyleSheet();
    void Remember(const std::string& sampleFile);

    CAddInSettingsXmlFile* m_settings { nullptr };
    std::function<void()> m_onClosing;
    std::function<void()> m_onReload;
    WizardContentsMenuFactory m_contentsMenuFactory;
    // The options as they were at init, for Cancel.
    std::vector<std::pair<std::string, std::string>> m_savedOptions;
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
