#include "wizard/CHelpWizardForm.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

#include "foundation/AppFolders.h"
#include "foundation/CCodePages.h"
#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/CUTF8File.h"
#include "foundation/CXmlMessages.h"
#include "foundation/ErrorMessage.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "foundation/Version.h"
#include "generation/CScrivant.h"
#include "generation/Templates.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/TemplateFolders.h"
#include "generation/CXmlFormPages.h"
#include "uidesc/CXmlForm.h"
#include "wizard/WizardPages.h"

namespace scriv {

namespace {

std::string Attribute(const pugi::xml_node& element, const char* name)
{
    return AttributeNoCase(element, name);
}

bool IsTrueText(const std::string& value)
{
    std::string text = Trim(value);
    return EqualsNoCase(text, "true") || text == "1" || text == "-1";
}

}  // namespace

// --- controls and pages ---

bool CHelpWizardFormPageControl::Parse(const pugi::xml_node& element)
{
    ControlName = Attribute(element, "ControlName");
    OptName = Attribute(element, "OptName");
    OptCaption = Attribute(element, "OptCaption");
    Text = Attribute(element, "Text");
    TabIndex = ToInt(Attribute(element, "TabIndex"));
    OptionName = Attribute(element, "OptionName");
    OptionValueTranslator = Attribute(element, "OptionValueTranslator");
    return !ControlName.empty();
}

CHelpWizardFormPageControl::Kind CHelpWizardFormPageControl::ControlKind() const
{
    struct Prefix {
        const char* text;
        Kind kind;
    };
    static constexpr Prefix prefixes[] = { { "chk", Kind::CheckBox }, { "opt", Kind::OptionButton },
        { "txt", Kind::TextBox }, { "cbo", Kind::ComboBox }, { "lbl", Kind::Label }, { "cmd", Kind::CommandButton } };
    for (const Prefix& prefix : prefixes)
        if (StartsWithNoCase(ControlName, prefix.text))
            return prefix.kind;
    return Kind::Other;
}

CHelpWizardFormPage::CHelpWizardFormPage() = default;

CHelpWizardFormPage::~CHelpWizardFormPage() = default;

bool CHelpWizardFormPage::Parse(const pugi::xml_node& element)
{
    Name = Attribute(element, "Name");
    Title = Attribute(element, "Title");
    Description = Attribute(element, "Description");
    HelpContextId = ToInt(Attribute(element, "HelpContextId"));
    Controls.clear();
    for (pugi::xml_node child : element.child("Controls").children()) {
        if (child.type() != pugi::node_element)
            continue;
        auto control = std::make_unique<CHelpWizardFormPageControl>();
        if (control->Parse(child))
            Controls.push_back(std::move(control));
    }
    return !Name.empty();
}

void CHelpWizardFormPage::Terminate()
{
    if (PageControl)
        PageControl->Terminate();
    for (auto it = Controls.rbegin(); it != Controls.rend(); ++it)
        (*it)->Terminate();
    Controls.clear();
}

CHelpWizardFormPageControl* CHelpWizardFormPage::Control(const std::string& controlName)
{
    for (auto& control : Controls)
        if (EqualsNoCase(control->ControlName, controlName))
            return control.get();
    return nullptr;
}

// --- the controller ---

CHelpWizardForm::CHelpWizardForm()
    : m_codePages(std::make_unique<CCodePages>())
{
}

CHelpWizardForm::~CHelpWizardForm()
{
    Terminate();
}

bool CHelpWizardForm::init(CAddInSettingsXmlFile& settings)
{
    bool loaded = false;
    ErrorFrame("CHelpWizardForm.init", [&] {
        m_settings = &settings;
        m_saved = Parameters().Clone();
        // The pages show and change the options: start them from the parameters.
        settings.CopyToOptions();
        m_savedOptions.clear();
        for (const CXMLOption& option : settings.Options())
            m_savedOptions.emplace_back(option.Name, option.Value);
        IRunContext* context = CurrentRunContext();
        if (context)
            context->UnloadTreeOfActiveProject();
        std::string sourceType = context ? context->Agent().CurrentSourceProjectTypeName() : std::string();

        CXMLFile definition;
        std::string settingsFolder = Folders().SettingsFolder();
        if (definition.Load(settingsFolder + kProgramBaseName + "WizardDef.xml") != 0) {
            Trace("CHelpWizardForm.init: " + definition.XmlParseError().Describe());
            return;
        }
        pugi::xml_node sequence = definition.SelectSingleNode("//Wizard/PagesSequence");
        for (pugi::xml_node entry : sequence.children()) {
            if (entry.type() != pugi::node_element)
                continue;
            std::string name = Attribute(entry, "Name");
            if (name.empty())
                name = Trim(entry.child_value());
            if (name.empty() || name == "?")
                continue;
            // Web forms have no screenshots and no menus.
            if (EqualsNoCase(sourceType, "ASP.NET") && (EqualsNoCase(name, "Screenshots") || EqualsNoCase(name, "MenusPage")))
                continue;
            pugi::xml_node element;
            for (pugi::xml_node page : definition.SelectSingleNode("//Wizard/Pages").children("Page"))
                if (EqualsNoCase(Attribute(page, "Name"), name))
                    element = page;
            auto page = std::make_unique<CHelpWizardFormPage>();
            if (element && page->Parse(element)) {
                page->PageControl = MakeWizardPageControl(page->Name);
                m_pages.push_back(std::move(page));
            }
        }
        m_codePages->Load(settingsFolder + "CodePages.xml");
        loaded = !m_pages.empty();
    });
    return loaded;
}

void CHelpWizardForm::Show()
{
    if (!m_registered) {
        LoadedForms().Register(this);
        m_registered = true;
    }
    m_shown = true;
    if (m_current < 0 && !m_pages.empty()) {
        m_current = 0;
        FillPage(*m_pages.front());
    }
}

CHelpWizardFormPage* CHelpWizardForm::CurrentPage() const
{
    if (m_current < 0 || m_current >= static_cast<int>(m_pages.size()))
        return nullptr;
    return m_pages[static_cast<std::size_t>(m_current)].get();
}

void CHelpWizardForm::ShowWizardPage(int step)
{
    if (m_inShowPage || m_pages.empty())
        return;
    m_inShowPage = true;
    ErrorFrame("CHelpWizardForm.ShowWizardPage", [&] {
        if (CHelpWizardFormPage* page = CurrentPage())
            SavePage(*page);
        int next = std::clamp(std::max(m_current, 0) + step, 0, static_cast<int>(m_pages.size()) - 1);
        m_current = next;
        FillPage(*m_pages[static_cast<std::size_t>(next)]);
    });
    m_inShowPage = false;
}

void CHelpWizardForm::FillPage(CHelpWizardFormPage& page)
{
    for (auto& control : page.Controls) {
        control->Enabled = true;
        control->Visible = true;
        auto kind = control->ControlKind();
        if (kind == CHelpWizardFormPageControl::Kind::Label || kind == CHelpWizardFormPageControl::Kind::CommandButton) {
            control->Value = control->Text;
            continue;
        }
        if (control->OptionName.empty() || !m_settings)
            continue;
        OptionValue value = m_settings->GetOptionValue(control->OptionName);
        if (kind == CHelpWizardFormPageControl::Kind::CheckBox)
            control->Value = value.AsBool() ? "1" : "0";
        else if (kind == CHelpWizardFormPageControl::Kind::OptionButton)
            control->Value = EqualsNoCase(value.AsText(), control->OptionValueTranslator) ? "1" : "0";
        else
            control->Value = Parameters().ReplaceTags(value.AsText());
    }
    // The page fills what is its own and makes its preview.
    if (page.PageControl)
        page.PageControl->init(*this, page);
}

void CHelpWizardForm::SavePage(CHelpWizardFormPage& page)
{
    if (!m_settings)
        return;
    for (auto& control : page.Controls) {
        if (control->OptionName.empty())
            continue;
        switch (control->ControlKind()) {
        case CHelpWizardFormPageControl::Kind::CheckBox:
            m_settings->SetOptionValue(control->OptionName, OptionValue::Bool(control->Value == "1"));
            break;
        case CHelpWizardFormPageControl::Kind::OptionButton:
            if (control->Value == "1")
                m_settings->SetOptionText(control->OptionName, control->OptionValueTranslator);
            break;
        case CHelpWizardFormPageControl::Kind::Label:
        case CHelpWizardFormPageControl::Kind::CommandButton:
            break;
        default:
            m_settings->SetOptionText(control->OptionName, control->Value);
        }
    }
    // The parameters follow the options the page has set.
    CAddInSettings(Parameters()).Load(*m_settings, true);
}

bool CHelpWizardForm::SetControlValue(const std::string& controlName, const std::string& value)
{
    CHelpWizardFormPage* page = CurrentPage();
    CHelpWizardFormPageControl* control = page ? page->Control(controlName) : nullptr;
    if (!control || !control->Enabled)
        return false;
    if (control->ControlKind() == CHelpWizardFormPageControl::Kind::CheckBox)
        control->Value = IsTrueText(value) ? "1" : "0";
    else
        control->Value = value;
    // Choosing one option button clears the others of its option.
    if (control->ControlKind() == CHelpWizardFormPageControl::Kind::OptionButton && control->Value == "1") {
        for (auto& other : page->Controls)
            if (other.get() != control && EqualsNoCase(other->OptionName, control->OptionName))
                other->Value = "0";
    }
    if (page->PageControl)
        page->PageControl->Changed(*control);
    return true;
}

bool CHelpWizardForm::ClickControl(const std::string& controlName)
{
    CHelpWizardFormPage* page = CurrentPage();
    CHelpWizardFormPageControl* control = page ? page->Control(controlName) : nullptr;
    if (!control || !control->Enabled)
        return false;
    if (page->PageControl)
        page->PageControl->Clicked(*control);
    return true;
}

void CHelpWizardForm::WriteControl(const CHelpWizardFormPageControl& control)
{
    if (!m_settings || control.OptionName.empty())
        return;
    switch (control.ControlKind()) {
    case CHelpWizardFormPageControl::Kind::CheckBox:
        m_settings->SetOptionValue(control.OptionName, OptionValue::Bool(control.Value == "1"));
        break;
    case CHelpWizardFormPageControl::Kind::OptionButton:
        if (control.Value != "1")
            return;
        m_settings->SetOptionText(control.OptionName, control.OptionValueTranslator);
        break;
    case CHelpWizardFormPageControl::Kind::Label:
    case CHelpWizardFormPageControl::Kind::CommandButton:
        return;
    default:
        m_settings->SetOptionText(control.OptionName, control.Value);
    }
    CAddInSettings(Parameters()).Load(*m_settings, true);
}

WizardPreview CHelpWizardForm::CurrentPreview() const
{
    CHelpWizardFormPage* page = CurrentPage();
    return page && page->PageControl ? page->PageControl->Preview() : WizardPreview {};
}

bool CHelpWizardForm::Reload()
{
    if (!m_onReload)
        return false;
    m_onReload();
    return true;
}

void CHelpWizardForm::Finish()
{
    ErrorFrame("CHelpWizardForm.Finish", [&] {
        if (CHelpWizardFormPage* page = CurrentPage())
            SavePage(*page);
        m_ok = true;
        Unload();
    });
    // The server may end this wizard while it generates; nothing here runs after.
    if (m_onClosing)
        m_onClosing();
}

void CHelpWizardForm::Cancel()
{
    ErrorFrame("CHelpWizardForm.Cancel", [&] {
        m_ok = false;
        if (m_saved)
            Parameters() = *m_saved;
        // The options the pages changed go back too.
        if (m_settings)
            for (const auto& [name, value] : m_savedOptions)
                m_settings->SetOptionText(name, value);
        Unload();
    });
    if (m_onClosing)
        m_onClosing();
}

void CHelpWizardForm::Unload()
{
    if (m_registered) {
        LoadedForms().Unregister(this);
        m_registered = false;
    }
    m_shown = false;
}

void CHelpWizardForm::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto it = m_pages.rbegin(); it != m_pages.rend(); ++it)
        (*it)->Terminate();
    m_pages.clear();
    m_codePages->Terminate();
    Unload();
    for (const std::string& file : m_sampleFiles)
        DeleteFileIfExists(file);
    m_sampleFiles.clear();
    std::error_code error;
    std::filesystem::remove_all(SampleFolder(), error);
    // The shared folder goes with the last program that used it.
    std::filesystem::remove(TempFolder() + "ScrivTemp", error);
}

std::string CHelpWizardForm::SampleFolder()
{
    // One folder per program below the shared one: two wizards never clear each other's pages.
    return TempFolder() + "ScrivTemp/" + std::to_string(::getpid()) + "/";
}

// --- sample pages ---

void CHelpWizardForm::Remember(const std::string& sampleFile)
{
    if (std::find(m_sampleFiles.begin(), m_sampleFiles.end(), sampleFile) == m_sampleFiles.end())
        m_sampleFiles.push_back(sampleFile);
}

std::string CHelpWizardForm::SampleStyleSheet()
{
    // As the generation does: the chosen file, else the templates' one of its name.
    std::string css = Parameters().CSSFullPath();
    if (css.empty())
        return {};
    std::string source = css;
    if (!FileExists(source))
        source = CommonFolder() + FileNameOf(css);
    if (!FileExists(source))
        source = CommonFolder() + "Office10.css";
    MakeFolders(SampleFolder());
    // A copy beside the samples: they are shown from the folder they lie in.
    std::string target = SampleFolder() + FileNameOf(css);
    if (!FileExists(source) || !CopyFileOver(source, target))
        return {};
    Remember(target);
    return FileNameOf(css);
}

std::string CHelpWizardForm::SamplePage(const std::string& templateName, const std::string& name)
{
    const CScrivantParameters& parameters = Parameters();
    std::string folder = SampleFolder();
    MakeFolders(folder);
    std::string target = folder + "~" + name + ".html";
    std::string source = templateName == "Title.htm" ? CommonFolder() + templateName : LocalizedFolder() + templateName;
    std::string css = SampleStyleSheet();
    ReplaceTagsAndCopy(source, target,
        { "{{StyleSheetLinkHtml}}|" + StyleSheetLinkHtml(css), "{{charset}}|" + parameters.Charset,
            "[name]|" + parameters.HelpProjectName(), "[title]|" + parameters.HelpProjectTitle() });
    Remember(target);
    return target;
}

std::string CHelpWizardForm::SampleObjectPage(const std::string& sampleName, bool isReport, bool rebuild)
{
    const CScrivantParameters& parameters = Parameters();
    std::string folder = SampleFolder();
    std::string target = folder + "~" + sampleName + ".html";
    if (!rebuild && FileExists(target))
        return target;
    std::string settings = Folders().SettingsFolder();
    CXmlForm form;
    if (!form.Load(settings + sampleName + ".xml")) {
        Trace("CHelpWizardForm.SampleHtmlFullPath: " + form.XmlParseError().Describe());
        return {};
    }
    // The sample folder stands for the project's: the picture lies in its images folder.
    std::string images = folder + parameters.NameOfFolderForGeneratedImagesWithSlash();
    MakeFolders(images);
    std::string picture = images + sampleName + ".jpg";
    if (CopyFileOver(settings + sampleName + ".jpg", picture))
        Remember(picture);
    std::string css = SampleStyleSheet();
    form.SetStylesheetFullPath(css.empty() ? std::string() : folder + css);
    form.Language = parameters.Language;
    form.Charset = parameters.Charset;
    form.SetPicFullPath(picture);
    form.SetHtmlFullPath(target);
    if (SaveHTMLEx(form, target, isReport).empty())
        return {};
    Remember(target);
    return target;
}

std::string CHelpWizardForm::SampleHtmlFullPathForForm(bool rebuild)
{
    return SampleObjectPage("SampleForm", false, rebuild);
}

std::string CHelpWizardForm::SampleHtmlFullPathForReport(bool rebuild)
{
    return SampleObjectPage("SampleReport", true, rebuild);
}

std::string CHelpWizardForm::WizSampleTopicPageHtmlFullPath(const std::string& nodeName, const std::string& caption)
{
    const CScrivantParameters& parameters = Parameters();
    std::string folder = SampleFolder();
    MakeFolders(folder);
    std::string target = folder + "~" + GetComponentFileName(nodeName) + ".html";
    std::string css = SampleStyleSheet();
    const std::string eol(kCrLf);
    std::string text = "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">" + eol + "<html>" + eol
        + "<head>" + eol + "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + parameters.Charset
        + "\">" + eol + StyleSheetLinkHtml(css) + eol + "<title>[Topic title]</title>" + eol + "</head>" + eol
        + "<body>" + eol + "<h1>" + XmlEncodeChars(caption.empty() ? nodeName : caption) + "</h1>" + eol
        + "<p>{{GeneratedTextWillBeWrittenHere}}</p>" + eol + "</body>" + eol + "</html>" + eol;
    if (CXmlMessages* messages = CurrentMessages())
        text = messages->ReplaceParameters(text);
    if (!WriteUtf8File(target, text))
        return {};
    Remember(target);
    return target;
}

std::string CHelpWizardForm::WizSampleApplicationPageHtmlFullPath()
{
    return SamplePage("Welcome.htm", "Application");
}

std::string CHelpWizardForm::WizSampleAuthorPageHtmlFullPath()
{
    return SamplePage("Copyright.htm", "Author");
}

std::string CHelpWizardForm::WizSampleHelpProjectPageHtmlFullPath()
{
    return SamplePage("Title.htm", "HelpProject");
}

std::string CHelpWizardForm::ShowHelpOptionsPics() const
{
    const CScrivantParameters& parameters = Parameters();
    std::string code = std::string(parameters.AssociateHelpIndex() ? "1" : "0") + (parameters.AddSearchTabToHelp ? "1" : "0")
        + (parameters.FillIndexFromAppObjectsAndControls ? "1" : "0");
    // Filling the index matters only when there is an index or a search tab.
    if (code == "001")
        code = "000";
    else if (code == "011")
        code = "010";
    return Folders().SettingsFolder() + "index" + code + ".bmp";
}

std::string CHelpWizardForm::ShowGeneratedHelpPicture() const
{
    return Folders().SettingsFolder() + "GeneratedHelp.bmp";
}

}  // namespace scriv
