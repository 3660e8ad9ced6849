#include "wizard/WizardPages.h"

#include <functional>
#include <map>
#include <optional>

#include "foundation/CCodePages.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/LanguageTag.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/TemplateFolders.h"
#include "wizard/ctlHelpProjectContents.h"

namespace scriv {

namespace {

bool Ticked(const CHelpWizardFormPageControl& control)
{
    return control.Value == "1";
}

bool Is(const CHelpWizardFormPageControl& control, std::string_view name)
{
    return EqualsNoCase(control.ControlName, name);
}

}  // namespace

// --- the common part ---

CWizardPageControl::CWizardPageControl(std::string controlName)
    : m_controlName(std::move(controlName))
{
}

void CWizardPageControl::init(CHelpWizardForm& wizard, CHelpWizardFormPage& page)
{
    m_wizard = &wizard;
    m_page = &page;
    m_filling = true;
    ErrorFrame(m_controlName + ".init", [&] { OnInit(); });
    m_filling = false;
    RefreshPreview();
}

void CWizardPageControl::Changed(CHelpWizardFormPageControl& control)
{
    if (m_filling || !m_wizard)
        return;
    ErrorFrame(m_controlName + "." + control.ControlName + "_Change", [&] { OnChanged(control); });
    RefreshPreview();
}

void CWizardPageControl::Clicked(CHelpWizardFormPageControl& control)
{
    if (m_filling || !m_wizard)
        return;
    ErrorFrame(m_controlName + "." + control.ControlName + "_Click", [&] { OnClicked(control); });
}

void CWizardPageControl::OnChanged(CHelpWizardFormPageControl& control)
{
    Wizard().WriteControl(control);
}

void CWizardPageControl::RefreshPreview()
{
    if (!m_wizard)
        return;
    ErrorFrame(m_controlName + ".Preview", [&] { m_preview = MakePreview(); });
}

CHelpWizardFormPageControl* CWizardPageControl::Find(std::string_view controlName) const
{
    return m_page ? m_page->Control(std::string(controlName)) : nullptr;
}

void CWizardPageControl::Set(std::string_view controlName, const std::string& value)
{
    CHelpWizardFormPageControl* control = Find(controlName);
    if (!control || control->Value == value)
        return;
    control->Value = value;
    if (!m_filling)
        OnChanged(*control);
}

void CWizardPageControl::SetShown(std::string_view controlName, bool visible)
{
    if (CHelpWizardFormPageControl* control = Find(controlName))
        control->Visible = visible;
}

void CWizardPageControl::SetEnabled(std::string_view controlName, bool enabled)
{
    if (CHelpWizardFormPageControl* control = Find(controlName))
        control->Enabled = enabled;
}

std::string CWizardPageControl::SourceProjectType()
{
    IRunContext* context = CurrentRunContext();
    return context ? context->Agent().CurrentSourceProjectTypeName() : std::string();
}

WizardPreview CWizardPageControl::PageAt(std::string path)
{
    if (path.empty())
        return {};
    return { WizardPreview::Kind::Page, std::move(path) };
}

WizardPreview CWizardPageControl::PictureAt(std::string path)
{
    if (path.empty())
        return {};
    return { WizardPreview::Kind::Picture, std::move(path) };
}

std::unique_ptr<CWizardPageControl> MakeWizardPageControl(const std::string& pageName)
{
    using Maker = std::function<std::unique_ptr<CWizardPageControl>()>;
    static const std::map<std::string, Maker> makers {
        { "introduction", [] { return std::make_unique<ctlIntroduction>(); } },
        { "helpproject", [] { return std::make_unique<ctlHelpProject>(); } },
        { "application", [] { return std::make_unique<ctlApplication>(); } },
        { "author", [] { return std::make_unique<ctlAuthor>(); } },
        { "folderforgeneratedfiles", [] { return std::make_unique<ctlFolderForGeneratedFiles>(); } },
        { "cssfullpath", [] { return std::make_unique<ctlCSSFullPath>(); } },
        { "language", [] { return std::make_unique<ctlLanguage>(); } },
        { "nameoptions", [] { return std::make_unique<ctlNameOptions>(); } },
        { "screenshots", [] { return std::make_unique<ctlScreenshots>(); } },
        { "formspage", [] { return std::make_unique<ctlFormsPage>(); } },
        { "reportspage", [] { return std::make_unique<ctlReportsPage>(); } },
        { "menuspage", [] { return std::make_unique<ctlMenusPage>(); } },
        { "helpindex", [] { return std::make_unique<ctlHelpIndex>(); } },
        { "helpprojectcontents", [] { return std::make_unique<ctlHelpProjectContents>(); } },
        { "generate", [] { return std::make_unique<ctlGenerate>(); } },
    };
    auto found = makers.find(ToLower(pageName));
    if (found != makers.end())
        return found->second();
    // A page the program does not know still shows its controls.
    return std::make_unique<ctlIntroduction>();
}

// --- pages that only show a sample ---

WizardPreview ctlIntroduction::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

WizardPreview ctlApplication::MakePreview()
{
    return PageAt(Wizard().WizSampleApplicationPageHtmlFullPath());
}

WizardPreview ctlAuthor::MakePreview()
{
    return PageAt(Wizard().WizSampleAuthorPageHtmlFullPath());
}

WizardPreview ctlNameOptions::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

WizardPreview ctlReportsPage::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForReport(true));
}

WizardPreview ctlMenusPage::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

WizardPreview ctlHelpIndex::MakePreview()
{
    return PictureAt(Wizard().ShowHelpOptionsPics());
}

// --- ctlHelpProject ---

void ctlHelpProject::OnInit()
{
    m_nameProblem.clear();
    CHelpWizardFormPageControl* name = Find("txtName");
    IRunContext* context = CurrentRunContext();
    if (!name || !Trim(name->Value).empty() || !context)
        return;
    // A new name that no registered help project has, and the application's title.
    std::string base = GetComponentFileName(FileBaseName(context->Agent().CurrentSourceProjectFullPath()));
    CAddInProject* current = context->HasProjects() ? context->Projects().CurrentProject() : nullptr;
    if (base.empty() && current)
        base = FileNameOf(RemoveBackslash(current->Name));
    std::string title = current && !current->Title().empty() ? current->Title() : base;
    std::string unique = context->HasProjects() ? context->Projects().GetUniqueProjectName(base) : base;
    name->Value = unique;
    Set("txtTitle", title);
    CScrivantParameters& parameters = Parameters();
    parameters.SetHelpProjectName(unique);
    parameters.SetHelpProjectTitle(title);
    if (CAddInSettingsXmlFile* settings = Wizard().Settings()) {
        settings->SetOptionText("HelpProjectName", unique);
        settings->SetOptionText("HelpProjectTitle", title);
    }
}

void ctlHelpProject::OnChanged(CHelpWizardFormPageControl& control)
{
    IRunContext* context = CurrentRunContext();
    CAddInProjects* projects = context && context->HasProjects() ? &context->Projects() : nullptr;
    if (Is(control, "txtName")) {
        std::string name = Trim(control.Value);
        m_nameProblem.clear();
        // The registry is keyed by name: a name another project has is refused,
        // and the box shows the name the project keeps.
        if (name.empty())
            m_nameProblem = "A help project needs a name.";
        else if (projects && !projects->ChangeCurrentProjectName(name))
            m_nameProblem = "Scrivant project already exists '" + name + "'.";
        if (!m_nameProblem.empty()) {
            control.Value = Parameters().HelpProjectName();
            return;
        }
        control.Value = name;
        Wizard().WriteControl(control);
        return;
    }
    if (Is(control, "txtTitle")) {
        Wizard().WriteControl(control);
        if (CAddInProject* current = projects ? projects->CurrentProject() : nullptr)
            current->SetTitle(control.Value);
        return;
    }
    if (Is(control, "chkGenerateHelpForProjectGroup")) {
        bool before = Parameters().UseProjectGroupAsSource;
        Wizard().WriteControl(control);
        if (Parameters().UseProjectGroupAsSource != before)
            ReloadForProjectGroup();
        return;
    }
    Wizard().WriteControl(control);
}

void ctlHelpProject::ReloadForProjectGroup()
{
    IRunContext* context = CurrentRunContext();
    if (!context)
        return;
    context->ProgressBarInit("Reloading Wizard form", 2);
    context->ProgressBarUpdate("Reloading Wizard form", 1);
    Wizard().SetVisible(false);
    context->Agent().Doevents();
    if (CAddInSettingsXmlFile* settings = Wizard().Settings())
        settings->Save(context->SettingsFilePath());
    Wizard().Reload();
    context->ProgressBarDispose();
}

WizardPreview ctlHelpProject::MakePreview()
{
    return PageAt(Wizard().WizSampleHelpProjectPageHtmlFullPath());
}

// --- ctlFolderForGeneratedFiles ---

void ctlFolderForGeneratedFiles::OnClicked(CHelpWizardFormPageControl& control)
{
    if (!Is(control, "cmdOpen"))
        return;
    CHelpWizardFormPageControl* folder = Find("txtDirToSaveHtml");
    std::string start = folder ? Parameters().ReplaceTags(folder->Value) : std::string();
    std::optional<std::string> chosen = UserInterface().ChooseFolder("Select folder for generated files", start);
    if (chosen && !chosen->empty()) {
        Set("txtDirToSaveHtml", AddBackslash(*chosen));
        RefreshPreview();
    }
}

WizardPreview ctlFolderForGeneratedFiles::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

// --- ctlCSSFullPath ---

void ctlCSSFullPath::OnInit()
{
    CHelpWizardFormPageControl* css = Find("cboCSS");
    if (!css)
        return;
    css->Items.clear();
    for (const std::string& name : ListFiles(CommonFolder(), "*.css"))
        css->Items.push_back({ name, name });
    // A style sheet of the project's own folder shows by its name, as the templates' do.
    CAddInProject* project = CurrentAddInProject();
    if (project && !project->Folder.empty() && EqualsNoCase(FolderOf(css->Value), AddBackslash(project->Folder)))
        css->Value = FileNameOf(css->Value);
    bool listed = false;
    for (const auto& item : css->Items)
        listed = listed || EqualsNoCase(item.value, css->Value);
    if (!listed && !css->Value.empty())
        css->Items.push_back({ css->Value, css->Value });
}

void ctlCSSFullPath::OnClicked(CHelpWizardFormPageControl& control)
{
    if (!Is(control, "cmdBrowseForCSS"))
        return;
    FileChoiceRequest request;
    request.title = "Select CSS file...";
    // The dialog's filter: "CSS Files (*.css)|*.css*|All Files (*.*)|*.*".
    request.filterName = "CSS Files";
    request.pattern = "*.css";
    CHelpWizardFormPageControl* css = Find("cboCSS");
    std::string current = css ? css->Value : std::string();
    request.startFolder = IsAbsolutePath(current) ? FolderOf(current) : CommonFolder();
    std::optional<std::string> chosen = UserInterface().ChooseFile(request);
    if (!chosen || chosen->empty() || !css)
        return;
    bool listed = false;
    for (const auto& item : css->Items)
        listed = listed || item.value == *chosen;
    if (!listed)
        css->Items.push_back({ *chosen, *chosen });
    Set("cboCSS", *chosen);
    RefreshPreview();
}

WizardPreview ctlCSSFullPath::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

// --- ctlLanguage ---

void ctlLanguage::OnInit()
{
    CHelpWizardFormPageControl* language = Find("cboLanguage");
    if (!language)
        return;
    language->Items.clear();
    for (const auto& entry : Wizard().CodePages().Pages())
        language->Items.push_back({ Trim(entry.value->LCode), entry.value->LName });
    // The settings may name the language by its code or by its name.
    if (!Wizard().CodePages().GetCodePageByLanguageCode(language->Value))
        if (const CCodePage* named = Wizard().CodePages().Page(language->Value))
            language->Value = Trim(named->LCode);
    FillCharsets(language->Value);
}

bool ctlLanguage::FillCharsets(const std::string& languageCode)
{
    CHelpWizardFormPageControl* charset = Find("cboCharset");
    if (!charset)
        return false;
    charset->Items.clear();
    const CCodePage* page = Wizard().CodePages().GetCodePageByLanguageCode(languageCode);
    bool listed = false;
    if (page) {
        for (const std::string* codePage : { &page->CP1, &page->CP2, &page->CP3 }) {
            if (Trim(*codePage).empty())
                continue;
            charset->Items.push_back({ Trim(*codePage), Trim(*codePage) });
            listed = listed || EqualsNoCase(Trim(*codePage), charset->Value);
        }
    }
    return listed;
}

void ctlLanguage::OnChanged(CHelpWizardFormPageControl& control)
{
    Wizard().WriteControl(control);
    if (!Is(control, "cboLanguage"))
        return;
    const CCodePage* page = Wizard().CodePages().GetCodePageByLanguageCode(control.Value);
    if (!page)
        page = Wizard().CodePages().Page(control.Value);
    if (!page)
        return;
    // The localized templates are named by the language's two letters.
    LanguageTag tag = LanguageTagOf(page->LCode);
    if (tag.Known()) {
        std::string folder = ToUpper(tag.tag.substr(0, tag.tag.find('-')));
        Parameters().Language = folder;
        if (CAddInSettingsXmlFile* settings = Wizard().Settings())
            settings->SetOptionText("Language", folder);
    }
    if (!FillCharsets(Trim(page->LCode))) {
        CHelpWizardFormPageControl* charset = Find("cboCharset");
        if (charset && !charset->Items.empty())
            Set("cboCharset", charset->Items.front().value);
    }
}

WizardPreview ctlLanguage::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

// --- ctlScreenshots ---

void ctlScreenshots::OnInit()
{
    bool database = EqualsNoCase(SourceProjectType(), "MS ACCESS");
    SetShown("chkMakeNormalViewScreenshots", database);
    SetShown("lblHostNote", database);
}

WizardPreview ctlScreenshots::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

// --- ctlFormsPage ---

void ctlFormsPage::OnInit()
{
    bool web = EqualsNoCase(SourceProjectType(), "ASP.NET");
    SetEnabled("chkAddHotspots", !web);
    SetEnabled("chkAddImage", !web);
}

WizardPreview ctlFormsPage::MakePreview()
{
    return PageAt(Wizard().SampleHtmlFullPathForForm(true));
}

// --- ctlGenerate ---

void ctlGenerate::OnInit()
{
    bool tracing = TraceLog().IsOn();
    for (const char* name : { "chkVerboseTracing", "chkWizardUnattendedExecution" }) {
        SetShown(name, tracing);
        if (tracing)
            Set(name, "1");
    }
}

void ctlGenerate::OnChanged(CHelpWizardFormPageControl& control)
{
    Wizard().WriteControl(control);
    if (!Ticked(control))
        return;
    if (Is(control, "chkOpenHTML"))
        Set("chkOpenHtmlEditor", "0");
    else if (Is(control, "chkOpenHtmlEditor"))
        Set("chkOpenHTML", "0");
}

WizardPreview ctlGenerate::MakePreview()
{
    return PictureAt(Wizard().ShowGeneratedHelpPicture());
}

}  // namespace scriv
