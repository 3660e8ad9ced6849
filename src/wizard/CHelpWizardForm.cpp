#include "wizard/CHelpWizardForm.h"

#include <filesystem>
#include <unistd.h>

#include "foundation/AppFolders.h"
#include "foundation/CCodePages.h"
#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "generation/CScrivant.h"
#include "generation/Templates.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

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
            if (element && page->Parse(element))
                m_pages.push_back(std::move(page));
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
    if (!control)
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

std::string CHelpWizardForm::SamplePage(const std::string& templateName, const std::string& name)
{
    const CScrivantParameters& parameters = Parameters();
    std::string folder = SampleFolder();
    MakeFolders(folder);
    std::string target = folder + "~" + name + ".html";
    std::string source = templateName == "Title.htm" ? CommonFolder() + templateName : LocalizedFolder() + templateName;
    std::string css = parameters.CSSFullPath();
    if (!css.empty() && !FileExists(css))
        css = CommonFolder() + FileNameOf(css);
    ReplaceTagsAndCopy(source, target,
        { "{{StyleSheetLinkHtml}}|" + StyleSheetLinkHtml(css.empty() ? std::string() : "file://" + css),
            "{{charset}}|" + parameters.Charset, "[name]|" + parameters.HelpProjectName(),
            "[title]|" + parameters.HelpProjectTitle() });
    m_sampleFiles.push_back(target);
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

}  // namespace scriv
