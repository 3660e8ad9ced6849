#include "model/CAddInSettingsXmlFile.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "foundation/Version.h"
#include "model/CScrivantParameters.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

// The Windows language code of the person's locale, as far as the charset
// default cares: Russian is 1049, anything else 1033.
int UserLanguageCode()
{
    for (const char* variable : { "LC_ALL", "LC_MESSAGES", "LANG" }) {
        const char* value = std::getenv(variable);
        if (value && *value)
            return StartsWithNoCase(value, "ru") ? 1049 : 1033;
    }
    return 1033;
}

std::string CollapseDoubledSeparators(const std::string& path)
{
    std::string out;
    for (std::size_t i = 0; i < path.size(); ++i) {
        bool doubled = IsPathSeparator(path[i]) && !out.empty() && IsPathSeparator(out.back());
        if (doubled && i != 1)
            continue;
        out += path[i];
    }
    return out;
}

}  // namespace

// --- values ---

std::string OptionValue::AsText() const
{
    switch (kind) {
    case Kind::Boolean:
        return boolean ? "true" : "false";
    case Kind::Text:
        return text;
    default:
        return {};
    }
}

bool OptionValue::AsBool() const
{
    return kind == Kind::Boolean && boolean;
}

// --- the mapping ---

CAddInSettings::CAddInSettings(CScrivantParameters& parameters)
    : m_parameters(parameters)
{
}

void CAddInSettings::Load(const ISettings& settings, bool withProjectFields)
{
    CScrivantParameters& p = m_parameters;
    auto text = [&](const char* name) { return settings.GetOptionValue(name).AsText(); };
    auto flag = [&](const char* name) { return settings.GetOptionValue(name).AsBool(); };

    if (withProjectFields) {
        if (!text("HelpProjectName").empty())
            p.SetHelpProjectName(text("HelpProjectName"));
        if (!text("HelpProjectTitle").empty())
            p.SetHelpProjectTitle(text("HelpProjectTitle"));
        if (!text("Application").empty())
            p.ApplicationNameStr = text("Application");
    }
    p.Organization = text("Organization");
    p.SetAuthor(text("Author"));
    p.Copyright = text("Copyright");
    p.Website = text("Website");
    p.email = text("EMail");
    p.RegistrationURL = text("Registration");
    std::string identifyBy = text("IdentifyBy");
    p.SetIdentifyControls(identifyBy.empty() || EqualsNoCase(identifyBy, "Caption") ? 0 : 1);
    std::string snapshotFormat = text("SnapshotFormat");
    p.SetImagesFormat(EqualsNoCase(snapshotFormat, "Bitmap") ? 1 : (EqualsNoCase(snapshotFormat, "Png") ? 3 : 2));
    p.SetBulletMenusControls(flag("BulletedControlsAndMenus"));
    p.SetHotSpots(flag("AddHotSpots"));
    p.SetAssociateHelpIndex(flag("AssociateHelpIndex"));
    p.SetNoReportsScreenShots(flag("NoReportsScreenshots"));

    std::string folder = text("FolderForGeneratedHelp");
    if (!folder.empty())
        folder = CollapseDoubledSeparators(p.ReplaceTags(folder));
    p.SetFolderForGeneratedHelp(folder);
    p.CompileHTMLHelp = flag("CompileHTMLHelp");
    p.OpenHTMLHelp = flag("OpenHTMLHelp");
    p.SaveApplicationChanges = flag("SaveApplicationChanges");
    p.OpenHTMLEditor = flag("OpenHTMLEditor");
    p.CapturePreviewAreaOnly = flag("CapturePreviewAreaOnly");
    p.LastUsedFolderForGeneratedHelp = text("LastUsedFolderForGeneratedHelp");
    if (p.LastUsedFolderForGeneratedHelp.empty())
        p.LastUsedFolderForGeneratedHelp = p.FolderForGeneratedHelp();
    p.LastUsedFolderForCapturedImages = text("LastUsedFolderForCapturedImages");
    if (p.LastUsedFolderForCapturedImages.empty())
        p.LastUsedFolderForCapturedImages = p.FolderForGeneratedHelp() + "images";
    p.Charset = text("Charset");
    if (p.Charset.empty())
        p.Charset = UserLanguageCode() == 1049 ? "windows-1251" : "windows-1252";
    p.SetCSSFullPath(text("CSSFullPath"));
    p.AddControlsListForMenuList = flag("AddControlsListForMenuList");
    p.AddControlsSectionForMenuList = flag("AddControlsSectionForMenuList");
    p.AddImageForForm = flag("AddImageForForm");
    p.AddHotSpotsForForm = flag("AddHotSpotsForForm");
    p.AddControlsListForForm = flag("AddControlsListForForm");
    p.AddControlsSectionForForm = flag("AddControlsSectionForForm");
    p.AddImageForReport = flag("AddImageForReport");
    p.AddControlsListForReport = flag("AddControlsListForReport");
    p.AddControlsSectionForReport = flag("AddControlsSectionForReport");
    p.SetNameOfFolderForGeneratedImages(text("SubFolderForScreenshots"));
    p.FillIndexFromAppObjectsAndControls = flag("FillIndexFromAppObjectsAndControls");
    p.AddSearchTabToHelp = flag("AddSearchTabToHelp");
    p.Language = text("Language");
    p.MakeNormalViewScreenshots = flag("MakeNormalViewScreenshots");
    p.SkipInvisibleControls = flag("SkipInvisibleControls");
    p.InsertExternalDescriptions = flag("InsertExternalDescriptions");
    p.LanguageCode = text("LanguageCode");
    std::string tags = text("ListOfTagsToParseContentsFrom");
    p.ListOfTagsToParseContentsFrom.clear();
    for (std::string& tag : Split(tags.empty() ? "H2" : tags, "|"))
        if (!Trim(tag).empty())
            p.ListOfTagsToParseContentsFrom.push_back(Trim(tag));
    p.SyncTOCOnHTMLPageNavigationComplete = flag("SyncTOCOnHTMLPageNavigationComplete");
    p.GenerateHelpForTables = flag("GenerateHelpForTables");
    int level = ToInt(text("MSWordTOCLowerHeadingLevel"));
    p.MSWordTOCLowerHeadingLevel = (level < 1 || level > 9) ? 2 : level;
    p.AutomatedTestModeOn = flag("AutomatedTestModeOn");
    p.GenerateHelpForQueries = flag("GenerateHelpForQueries");
    p.GenerateHelpForMacros = flag("GenerateHelpForMacros");
    p.UseProjectGroupAsSource = flag("UseProjectGroupAsSource");
    p.GenerateHelpForForms = flag("GenerateHelpForForms");
    p.GenerateHelpForReports = flag("GenerateHelpForReports");
    p.UnattendedExecution = flag("UnattendedExecution");
    p.WizardUnattendedExecution = flag("WizardUnattendedExecution");
    p.VerboseTracing = flag("VerboseTracing");
    p.HelpCompilerPath = text("HelpCompilerPath");
    p.ApplicationCodePage = text("ApplicationCodePage");
}

void CAddInSettings::Save(ISettings& settings)
{
    const CScrivantParameters& p = m_parameters;
    auto text = [&](const char* name, std::string value) { settings.SetOptionValue(name, OptionValue::Text(std::move(value))); };
    auto flag = [&](const char* name, bool value) { settings.SetOptionValue(name, OptionValue::Bool(value)); };

    text("Version", kProgramVersion);
    text("HelpProjectName", p.HelpProjectName());
    text("HelpProjectTitle", p.HelpProjectTitle());
    text("Application", p.ApplicationNameStr);
    text("Organization", p.Organization);
    text("Author", p.Author());
    text("Copyright", p.Copyright);
    text("Website", p.Website);
    text("EMail", p.email);
    text("Registration", p.RegistrationURL);
    text("IdentifyBy", p.IdentifyControls() == 0 ? "Caption" : "Name");
    text("SnapshotFormat", p.ImagesFormat() == 1 ? "Bitmap" : (p.ImagesFormat() == 3 ? "Png" : "Jpeg"));
    flag("BulletedControlsAndMenus", p.BulletMenusControls());
    flag("AddHotSpots", p.HotSpots());
    flag("AssociateHelpIndex", p.AssociateHelpIndex());
    flag("NoReportsScreenshots", p.NoReportsScreenShots());
    text("FolderForGeneratedHelp", p.FolderForGeneratedHelpRaw());
    flag("CompileHTMLHelp", p.CompileHTMLHelp);
    flag("OpenHTMLHelp", p.OpenHTMLHelp);
    flag("SaveApplicationChanges", p.SaveApplicationChanges);
    flag("OpenHTMLEditor", p.OpenHTMLEditor);
    flag("CapturePreviewAreaOnly", p.CapturePreviewAreaOnly);
    text("LastUsedFolderForGeneratedHelp", p.LastUsedFolderForGeneratedHelp);
    text("LastUsedFolderForCapturedImages", p.LastUsedFolderForCapturedImages);
    text("Charset", p.Charset);
    text("CSSFullPath", p.CSSFullPath());
    flag("AddControlsListForMenuList", p.AddControlsListForMenuList);
    flag("AddControlsSectionForMenuList", p.AddControlsSectionForMenuList);
    flag("AddImageForForm", p.AddImageForForm);
    flag("AddHotSpotsForForm", p.AddHotSpotsForForm);
    flag("AddControlsListForForm", p.AddControlsListForForm);
    flag("AddControlsSectionForForm", p.AddControlsSectionForForm);
    flag("AddImageForReport", p.AddImageForReport);
    flag("AddControlsListForReport", p.AddControlsListForReport);
    flag("AddControlsSectionForReport", p.AddControlsSectionForReport);
    text("SubFolderForScreenshots", RemoveBackslash(p.NameOfFolderForGeneratedImages()));
    flag("FillIndexFromAppObjectsAndControls", p.FillIndexFromAppObjectsAndControls);
    flag("AddSearchTabToHelp", p.AddSearchTabToHelp);
    text("Language", p.Language);
    flag("MakeNormalViewScreenshots", p.MakeNormalViewScreenshots);
    flag("SkipInvisibleControls", p.SkipInvisibleControls);
    flag("InsertExternalDescriptions", p.InsertExternalDescriptions);
    text("LanguageCode", p.LanguageCode);
    text("ListOfTagsToParseContentsFrom", Join(p.ListOfTagsToParseContentsFrom, "|"));
    flag("SyncTOCOnHTMLPageNavigationComplete", p.SyncTOCOnHTMLPageNavigationComplete);
    flag("GenerateHelpForTables", p.GenerateHelpForTables);
    text("MSWordTOCLowerHeadingLevel", std::to_string(p.MSWordTOCLowerHeadingLevel));
    flag("AutomatedTestModeOn", p.AutomatedTestModeOn);
    flag("GenerateHelpForQueries", p.GenerateHelpForQueries);
    flag("GenerateHelpForMacros", p.GenerateHelpForMacros);
    flag("UseProjectGroupAsSource", p.UseProjectGroupAsSource);
    flag("GenerateHelpForForms", p.GenerateHelpForForms);
    flag("GenerateHelpForReports", p.GenerateHelpForReports);
    flag("UnattendedExecution", p.UnattendedExecution);
}

const std::vector<std::string>& CAddInSettings::KnownOptions()
{
    static const std::vector<std::string> names = [] {
        // The order Save writes them in, then the options it only reads.
        CScrivantParameters parameters;
        struct Recorder : ISettings {
            std::vector<std::string> names;
            OptionValue GetOptionValue(std::string_view) const override { return {}; }
            void SetOptionValue(std::string_view name, const OptionValue&) override { names.emplace_back(name); }
        } recorder;
        CAddInSettings(parameters).Save(recorder);
        recorder.names.push_back("WizardUnattendedExecution");
        recorder.names.push_back("VerboseTracing");
        recorder.names.push_back("DefaultHtmlFullPath");
        recorder.names.push_back("HelpCompilerPath");
        recorder.names.push_back("ApplicationCodePage");
        return recorder.names;
    }();
    return names;
}

// --- the store ---

CAddInSettingsXmlFile::CAddInSettingsXmlFile(CScrivantParameters& parameters)
    : m_parameters(parameters)
{
}

void CAddInSettingsXmlFile::Terminate()
{
    m_options.clear();
}

OptionValue CAddInSettingsXmlFile::GetOptionValue(std::string_view name) const
{
    for (const CXMLOption& option : m_options) {
        if (!EqualsNoCase(option.Name, name))
            continue;
        if (EqualsNoCase(option.Value, "true"))
            return OptionValue::Bool(true);
        if (EqualsNoCase(option.Value, "false"))
            return OptionValue::Bool(false);
        return OptionValue::Text(option.Value);
    }
    return OptionValue::Empty();
}

void CAddInSettingsXmlFile::SetOptionValue(std::string_view name, const OptionValue& value)
{
    for (CXMLOption& option : m_options) {
        if (EqualsNoCase(option.Name, name)) {
            option.Value = value.AsText();
            return;
        }
    }
    m_options.push_back({ std::string(name), value.AsText() });
}

std::uint32_t CAddInSettingsXmlFile::Load(const std::string& path, bool fromProjectFile)
{
    m_parseError.Clear();
    CXMLFile xml;
    std::uint32_t code = xml.Load(path);
    if (code != 0) {
        m_parseError = xml.XmlParseError();
        UserWarningMessage(FormatCode(code) + " - " + m_parseError.Reason() + " in '" + path + "'");
        return code;
    }
    pugi::xml_node options
        = xml.SelectSingleNode(fromProjectFile ? "//ScrivProject/Settings/Options" : "//Settings/Options");
    if (!options)
        return status::kGeneralFailure;
    for (pugi::xml_node element : options.children()) {
        if (element.type() != pugi::node_element)
            continue;
        std::string name = AttributeNoCase(element, "Name");
        std::string value = element.attribute("Value").value();
        if (value.empty())
            value = element.attribute("value").value();
        // An option with an empty value is not loaded: its default rule applies.
        if (!name.empty() && !value.empty())
            SetOptionValue(name, OptionValue::Text(value));
    }
    m_path = path;
    CAddInSettings(m_parameters).Load(*this, fromProjectFile);
    return 0;
}

std::string CAddInSettingsXmlFile::XMLSTr(const std::vector<std::string>& exclusions,
    const std::map<std::string, std::string>& replacements) const
{
    auto excluded = [&](const std::string& name) {
        return std::any_of(exclusions.begin(), exclusions.end(), [&](const std::string& e) { return EqualsNoCase(e, name); });
    };
    auto replacement = [&](const std::string& name) -> std::string {
        for (const auto& [key, value] : replacements)
            if (EqualsNoCase(key, name))
                return value;
        return {};
    };
    std::string out = "<Settings>" + kCrLfText + "<Options>" + kCrLfText;
    for (const CXMLOption& option : m_options) {
        if (excluded(option.Name))
            continue;
        std::string value = replacement(option.Name);
        if (value.empty())
            value = option.Value;
        out += "  <Option Name = \"" + option.Name + "\" Value = \"" + XmlEncodeChars(value) + "\" />" + kCrLfText;
    }
    out += "</Options>" + kCrLfText + "</Settings>" + kCrLfText;
    return out;
}

void CAddInSettingsXmlFile::CopyToOptions()
{
    CAddInSettings(m_parameters).Save(*this);
}

void CAddInSettingsXmlFile::Save(const std::string& path)
{
    CopyToOptions();
    // Beside the target, so that two programs saving their own settings never share it.
    std::string temporary = FolderOf(path) + "~" + FileNameOf(path);
    std::map<std::string, std::string> replacements {
        { "Application", "{Application}" },
        { "FolderForGeneratedHelp", "{Project Location}CHM" },
    };
    CXMLFile writer;
    if (writer.SaveXml(temporary, XMLSTr({}, replacements)) != 0)
        Raise(status::kGeneralFailure, "CAddInSettingsXmlFile.Save", "Can't write the settings to '" + temporary + "'.");
    CXMLFile test;
    std::uint32_t code = test.Load(temporary);
    if (code != 0) {
        const CXmlParseError& error = test.XmlParseError();
        Raise(status::kGeneralFailure, "CAddInSettingsXmlFile.Save",
            "Xml parse error on line " + std::to_string(error.Line()) + " position " + std::to_string(error.LinePos())
                + ", errCode = " + FormatCode(code) + " - " + error.Reason() + kCrLfText + "Please send file '"
                + temporary + "' to Scrivant support.");
    }
    if (!CopyFileOver(temporary, path))
        Raise(status::kGeneralFailure, "CAddInSettingsXmlFile.Save", "Can't save the settings file '" + path + "'.");
    DeleteFileIfExists(temporary);
    m_path = path;
}

}  // namespace scriv
