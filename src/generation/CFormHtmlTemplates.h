#pragma once

#include <string>
#include <string_view>

namespace scriv {

class CXmlControl;
class CXmlForm;
class CXmlMenu;
class CFormHTMLControlDef;

// Which sections a topic page gets.
struct PageSections {
    bool addImage { false };
    bool addHotSpots { false };
    bool addMenuList { false };
    bool addMenuSections { false };
    bool addControlsList { false };
    bool addControlsSections { false };
};

// Writes the topic of one form, report, table, query, macro or worksheet
// from its description: from a template when there is one, else a plain
// page. Sections carry comment markers by which an edited page is read again.
class CFormHtmlTemplates {
public:
    // The page. templateFullPath may be empty or missing (the plain page);
    // styleSheetLink is the link element or ""; queryXml feeds "{{Fields}}".
    std::string FileTemplate(const CXmlForm& form, const PageSections& sections, std::string_view templateFullPath,
        std::string_view styleSheetLink, std::string_view queryXml = {}) const;

    // --- section writers; each text ends in CR LF, or is empty ---
    static std::string Charset(std::string_view charset);
    std::string FormTitle(const CXmlForm& form) const;
    std::string ControlsMap(const CXmlForm& form) const;
    std::string ControlsMapOfControl(const CXmlForm& form, const CXmlControl& control) const;
    std::string ControlArea(const CXmlForm& form, const CXmlControl& control, const CXmlControl* parent,
        bool isTab) const;
    // basePath: the folder the page's links start from, or "".
    std::string MainImage(const CXmlForm& form, bool useLocalPath, std::string_view basePath) const;
    std::string ControlImage(const CXmlForm& form, const CXmlControl& control, bool useLocalPath,
        std::string_view basePath) const;
    std::string MenusList(const CXmlForm& form) const;
    std::string Menus(const CXmlForm& form) const;
    std::string ControlsList(const CXmlForm& form) const;
    std::string SubControlsList(const CXmlForm& form, const CXmlControl& control, bool recursive) const;
    std::string Controls(const CXmlForm& form, bool addImage, bool addMap) const;
    std::string SubControls(const CXmlForm& form, const CXmlControl& control, bool addImage, bool addMap) const;
    std::string GenerateQueryFieldsHTML(std::string_view queryXml, std::string_view name) const;

    // The text of folder + "Descriptions.db" for key, or "" when there is no
    // such database, table or row.
    static std::string GetDescription(std::string_view folder, std::string_view key);

    // --- names on a page ---
    static std::string MapName(const CXmlForm& form);
    static std::string BookmarkName(const CXmlForm& form, const CXmlControl& control);
    static std::string BookmarkNameForMenu(const CXmlForm& form, const CXmlMenu& menu);
    static std::string BookmarkNameForDocumentedMenuOrControl(const CXmlForm& form,
        const CFormHTMLControlDef& definition);

    // --- titles, by the IdentifyControls setting, HTML-safe ---
    static std::string Title(const CXmlForm& form);
    static std::string Title(const CXmlMenu& menu);
    static std::string Title(const CXmlControl& control);

private:
    std::string ListOpen() const;
    std::string ListClose() const;
    std::string ItemOpen() const;
    std::string ItemClose() const;
};

// Cuts the text from the start of begin to the end of end; false (and the
// text unchanged) unless both are there, begin ahead of end and past the start.
bool CutBetweenMarkers(std::string& text, std::string_view begin, std::string_view end);

}  // namespace scriv
