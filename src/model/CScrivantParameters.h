#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scriv {

// The options that steer a generation. There is one current set, reached
// through Parameters(); the settings fill it and the wizard changes it.
class CScrivantParameters {
public:
    CScrivantParameters();

    // An independent copy of every field and property.
    std::unique_ptr<CScrivantParameters> Clone() const;

    // Replaces the placeholders of page and tree texts ("{{Copyright}}" ...).
    // Without useGiven, the location and project name are asked of the host
    // (the location falls back on the temporary folder).
    std::string ReplaceTags(std::string_view text, bool useGiven = false, std::string_view givenLocation = {},
        std::string_view givenProjectName = {}) const;

    // --- plain fields ---
    bool CompileHTMLHelp { false };
    bool SaveApplicationChanges { false };
    bool OpenHTMLEditor { false };
    bool OpenHTMLHelp { false };
    std::string LastUsedFolderForCapturedImages;
    std::string LastUsedFolderForGeneratedHelp;
    bool CapturePreviewAreaOnly { false };
    bool MakeNormalViewScreenshots { false };
    bool SkipInvisibleControls { false };
    bool InsertExternalDescriptions { false };
    std::string LanguageCode;
    std::vector<std::string> ListOfTagsToParseContentsFrom { "H2" };
    bool SyncTOCOnHTMLPageNavigationComplete { false };
    bool GenerateHelpForTables { false };
    bool GenerateHelpForQueries { false };
    bool GenerateHelpForMacros { false };
    std::int32_t MSWordTOCLowerHeadingLevel { 0 };
    bool AutomatedTestModeOn { false };
    bool UseProjectGroupAsSource { false };
    bool GenerateHelpForForms { true };
    bool GenerateHelpForReports { true };
    bool UnattendedExecution { false };
    bool WizardUnattendedExecution { false };
    bool VerboseTracing { false };
    // The help compiler to run; empty: chmcmd, else hhc, found on PATH.
    std::string HelpCompilerPath;
    // The code page of the application's texts where the fonts of its forms
    // name none ("windows-1251"); empty for windows-1252.
    std::string ApplicationCodePage;

    // --- section switches of the page templates and of the project file ---
    bool AddControlsListForMenuList { false };
    bool AddControlsSectionForMenuList { false };
    bool AddImageForForm { false };
    bool AddHotSpotsForForm { false };
    bool AddControlsListForForm { false };
    bool AddControlsSectionForForm { false };
    bool AddImageForReport { false };
    bool AddControlsListForReport { false };
    bool AddControlsSectionForReport { false };
    bool AddSearchTabToHelp { false };
    bool FillIndexFromAppObjectsAndControls { false };

    // --- free values for placeholders ---
    std::string Website;
    std::string Copyright;
    std::string Organization;
    std::string RegistrationURL;
    std::string email;
    std::string ApplicationNameStr;
    std::string Charset;
    std::string Language;

    // --- properties with rules ---
    // "{{:GeneratedHelpFileName}}.chm": the name stays a placeholder until the
    // project is known.
    std::string GeneratedHelpFileName() const;

    bool AssociateHelpIndex() const { return m_associateHelpIndex; }
    void SetAssociateHelpIndex(bool value) { m_associateHelpIndex = value; }
    bool NoReportsScreenShots() const { return m_noReportsScreenShots; }
    void SetNoReportsScreenShots(bool value) { m_noReportsScreenShots = value; }
    bool HotSpots() const { return m_hotSpots; }
    void SetHotSpots(bool value) { m_hotSpots = value; }
    bool BulletMenusControls() const { return m_bulletMenusControls; }
    void SetBulletMenusControls(bool value) { m_bulletMenusControls = value; }

    // 0: a control is shown by its caption, otherwise by its name.
    std::int32_t IdentifyControls() const { return m_identifyControls; }
    void SetIdentifyControls(std::int32_t value) { m_identifyControls = value; }
    // 1 is a bitmap, every other value a JPEG.
    std::int32_t ImagesFormat() const { return m_imagesFormat; }
    void SetImagesFormat(std::int32_t value) { m_imagesFormat = value; }
    // 1 bitmap, 2 JPEG, 3 PNG.
    std::string ImagesFileExt() const { return "." + ImagesType(); }
    std::string ImagesType() const { return m_imagesFormat == 1 ? "bmp" : (m_imagesFormat == 3 ? "png" : "jpg"); }

    // Read empty, it takes the logged-on user's name and keeps it.
    std::string Author() const;
    void SetAuthor(std::string value) { m_author = std::move(value); }

    // Read: a value without a folder part gets the current project's folder in front.
    std::string CSSFullPath() const;
    void SetCSSFullPath(std::string value) { m_cssFullPath = std::move(value); }

    // Stored raw; read with a final separator, "{Project Location}/" as
    // "{{ProjectLocation}}", trimmed, and doubled separators collapsed (a leading
    // pair is kept).
    std::string FolderForGeneratedHelp() const;
    void SetFolderForGeneratedHelp(std::string value) { m_folderForGeneratedHelp = std::move(value); }
    const std::string& FolderForGeneratedHelpRaw() const { return m_folderForGeneratedHelp; }

    std::string FolderForGeneratedImages() const;
    std::string NameOfFolderForGeneratedImagesWithSlash() const;
    // Read empty it becomes "images" and stays so; written with a final separator.
    std::string NameOfFolderForGeneratedImages() const;
    void SetNameOfFolderForGeneratedImages(std::string value);

    // FolderForGeneratedHelp + the current project's name + ".chm".
    std::string CompiledHelpFullPath() const;

    // Read empty, it takes the current project's name.
    std::string HelpProjectName() const;
    void SetHelpProjectName(std::string value) { m_helpProjectName = std::move(value); }
    // Read empty, it takes ApplicationNameStr.
    std::string HelpProjectTitle() const;
    void SetHelpProjectTitle(std::string value) { m_helpProjectTitle = std::move(value); }

private:
    bool m_associateHelpIndex { false };
    bool m_noReportsScreenShots { false };
    bool m_hotSpots { false };
    std::int32_t m_identifyControls { 0 };
    std::int32_t m_imagesFormat { 0 };
    bool m_bulletMenusControls { false };
    mutable std::string m_author;
    std::string m_cssFullPath;
    std::string m_folderForGeneratedHelp;
    mutable std::string m_nameOfFolderForGeneratedImages;
    std::string m_helpProjectName;
    std::string m_helpProjectTitle;
};

// The current generation parameters, created on first use.
CScrivantParameters& Parameters();

}  // namespace scriv
