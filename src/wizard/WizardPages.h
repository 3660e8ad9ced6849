#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "wizard/CHelpWizardForm.h"

namespace scriv {

// The rules of one wizard page. The controller fills the page's controls
// from the options; the page then fills what is its own (lists, states,
// first values) and keeps the preview beside it. A change of one of its
// controls writes the value straight into the parameters, runs the page's
// rule and refreshes the preview. While the page is being filled the events
// of its controls do nothing. Every event is trapped and reported with the
// page's control name and the event as its source.
class CWizardPageControl {
public:
    explicit CWizardPageControl(std::string controlName);
    virtual ~CWizardPageControl() = default;
    CWizardPageControl(const CWizardPageControl&) = delete;
    CWizardPageControl& operator=(const CWizardPageControl&) = delete;

    // "ctlHelpProject" ...
    const std::string& ControlName() const { return m_controlName; }

    // Shows the page: fills what is the page's own, then makes its preview.
    void init(CHelpWizardForm& wizard, CHelpWizardFormPage& page);
    // The person changed a control of the page (its value is set already).
    void Changed(CHelpWizardFormPageControl& control);
    // The person pressed a button of the page.
    void Clicked(CHelpWizardFormPageControl& control);
    // Ends the page; the controller calls it once, at its own end.
    virtual void Terminate() { }

    // The preview beside the page, as last made.
    const WizardPreview& Preview() const { return m_preview; }
    // Makes the preview again from the current choices.
    void RefreshPreview();
    // True while init runs.
    bool Filling() const { return m_filling; }

protected:
    virtual void OnInit() { }
    // By default the value goes into its option and the parameters.
    virtual void OnChanged(CHelpWizardFormPageControl& control);
    virtual void OnClicked(CHelpWizardFormPageControl&) { }
    virtual WizardPreview MakePreview() = 0;

    CHelpWizardForm& Wizard() const { return *m_wizard; }
    CHelpWizardFormPage& Page() const { return *m_page; }
    CHelpWizardFormPageControl* Find(std::string_view controlName) const;
    // Sets a control from the page's own rule; its event follows unless the
    // page is being filled. Nothing for a control the page has not.
    void Set(std::string_view controlName, const std::string& value);
    void SetShown(std::string_view controlName, bool visible);
    void SetEnabled(std::string_view controlName, bool enabled);
    // The type name of the source project ("VB6", "MS ACCESS" ...).
    static std::string SourceProjectType();

    static WizardPreview PageAt(std::string path);
    static WizardPreview PictureAt(std::string path);

private:
    std::string m_controlName;
    CHelpWizardForm* m_wizard { nullptr };
    CHelpWizardFormPage* m_page { nullptr };
    WizardPreview m_preview;
    bool m_filling { false };
};

// The rules of a page by its name in the wizard definition ("HelpProject"
// gives ctlHelpProject); a page of an unknown name gets the sample form
// beside it and no rules of its own.
std::unique_ptr<CWizardPageControl> MakeWizardPageControl(const std::string& pageName);

// --- the pages ---

class ctlIntroduction : public CWizardPageControl {
public:
    ctlIntroduction() : CWizardPageControl("ctlIntroduction") { }

protected:
    WizardPreview MakePreview() override;
};

// Name, title and the choice of the whole project group. The name is made
// unique among the registered help projects when the page starts empty, and
// a new name renames the current help project.
class ctlHelpProject : public CWizardPageControl {
public:
    ctlHelpProject() : CWizardPageControl("ctlHelpProject") { }

    // Why the last name was refused ("" when it was taken).
    const std::string& NameProblem() const { return m_nameProblem; }

protected:
    void OnInit() override;
    void OnChanged(CHelpWizardFormPageControl& control) override;
    WizardPreview MakePreview() override;

private:
    // Saves the settings and asks for the wizard to be reopened on the new source.
    void ReloadForProjectGroup();

    std::string m_nameProblem;
};

class ctlApplication : public CWizardPageControl {
public:
    ctlApplication() : CWizardPageControl("ctlApplication") { }

protected:
    WizardPreview MakePreview() override;
};

class ctlAuthor : public CWizardPageControl {
public:
    ctlAuthor() : CWizardPageControl("ctlAuthor") { }

protected:
    WizardPreview MakePreview() override;
};

// The folder of the generated help, chosen with a folder dialog or typed.
class ctlFolderForGeneratedFiles : public CWizardPageControl {
public:
    ctlFolderForGeneratedFiles() : CWizardPageControl("ctlFolderForGeneratedFiles") { }

protected:
    void OnClicked(CHelpWizardFormPageControl& control) override;
    WizardPreview MakePreview() override;
};

// The style sheet: one of the templates' style sheets, or a file chosen.
class ctlCSSFullPath : public CWizardPageControl {
public:
    ctlCSSFullPath() : CWizardPageControl("ctlCSSFullPath") { }

protected:
    void OnInit() override;
    void OnClicked(CHelpWizardFormPageControl& control) override;
    WizardPreview MakePreview() override;
};

// The help's language and the charset of its pages: a new language refills
// the charsets with its own.
class ctlLanguage : public CWizardPageControl {
public:
    ctlLanguage() : CWizardPageControl("ctlLanguage") { }

protected:
    void OnInit() override;
    void OnChanged(CHelpWizardFormPageControl& control) override;
    WizardPreview MakePreview() override;

private:
    // Fills the charsets of the language of that code; answers whether the
    // current charset is among them.
    bool FillCharsets(const std::string& languageCode);
};

class ctlNameOptions : public CWizardPageControl {
public:
    ctlNameOptions() : CWizardPageControl("ctlNameOptions") { }

protected:
    WizardPreview MakePreview() override;
};

// The picture format; screenshots in normal view only for a database.
class ctlScreenshots : public CWizardPageControl {
public:
    ctlScreenshots() : CWizardPageControl("ctlScreenshots") { }

protected:
    void OnInit() override;
    WizardPreview MakePreview() override;
};

// What a form's topic holds; web forms have no picture and no hot spots.
class ctlFormsPage : public CWizardPageControl {
public:
    ctlFormsPage() : CWizardPageControl("ctlFormsPage") { }

protected:
    void OnInit() override;
    WizardPreview MakePreview() override;
};

class ctlReportsPage : public CWizardPageControl {
public:
    ctlReportsPage() : CWizardPageControl("ctlReportsPage") { }

protected:
    WizardPreview MakePreview() override;
};

class ctlMenusPage : public CWizardPageControl {
public:
    ctlMenusPage() : CWizardPageControl("ctlMenusPage") { }

protected:
    WizardPreview MakePreview() override;
};

class ctlHelpIndex : public CWizardPageControl {
public:
    ctlHelpIndex() : CWizardPageControl("ctlHelpIndex") { }

protected:
    WizardPreview MakePreview() override;
};

// What happens at Finish. Opening the compiled help and opening the Help
// Editor exclude each other; with the trace on, verbose tracing and an
// unattended next run are offered, ticked.
class ctlGenerate : public CWizardPageControl {
public:
    ctlGenerate() : CWizardPageControl("ctlGenerate") { }

protected:
    void OnInit() override;
    void OnChanged(CHelpWizardFormPageControl& control) override;
    WizardPreview MakePreview() override;
};

}  // namespace scriv
