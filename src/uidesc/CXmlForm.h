#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "foundation/KeyedCollection.h"
#include "uidesc/CFormHTMLControlDef.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlMenu.h"
#include "uidesc/CXmlSection.h"

namespace scriv {

namespace desc {
class AttributeReader;
}

class CHelpPrjTreeNode;

// The description of one documented object (form, report, table, query, macro,
// worksheet or chart): the document the form walk writes, held as objects.
// It is read back, adjusted, kept in the help project's folder and turned into
// the object's topic page. The root element's name is the object's type.
class CXmlForm {
public:
    using Menus_t = KeyedCollection<std::unique_ptr<CXmlMenu>>;
    using Sections_t = KeyedCollection<std::unique_ptr<CXmlSection>>;
    using Definitions = KeyedCollection<CFormHTMLControlDef>;

    CXmlForm() = default;
    CXmlForm(const CXmlForm&) = delete;
    CXmlForm& operator=(const CXmlForm&) = delete;

    // --- reading ---
    // Loads a description file; the first of Form, Report, Table, Query, Macro,
    // Worksheet, Chart found anywhere in it is parsed (so a MyXaml wrapper is
    // read too). False, with XmlParseError set, on any failure.
    bool Load(std::string_view fileFullPath);
    // The same over text.
    bool LoadXml(std::string_view text);
    // Reads a root element and everything below it; the object's former
    // content is dropped first. False, with XmlParseError set, for an element of
    // another name or a part that fails.
    bool Parse(const pugi::xml_node& root);

    // --- writing ---
    // The document, attributes in their fixed order, lines ending in CR LF.
    std::string XMLSTr() const;
    // The document in a MyXaml wrapper with an XML declaration.
    std::string MyXaml() const;
    // Writes XMLSTr to fileFullPath, or without one to folder + XmlFileName.
    // Answers the path, or "" on failure.
    std::string SaveXml(std::string_view folder, std::string_view fileFullPath = {}) const;

    // --- definitions of a topic page ---
    // Reads the controls and menus documented by a page into DocumentedMenus
    // and DocumentedControls. Each definition is tied to the form: its control
    // name becomes that of the control whose bookmark it carries, and one that
    // names a menu (and no control) counts as a menu. With replace the lists
    // become the page's; without, definitions not yet listed are added. Answers
    // whether the lists changed; false too when the page cannot be read.
    bool MakeDefs(std::string_view htmlFileFullPath, bool replace = true);

    // --- the tree ---
    Sections_t& Sections() { return m_sections; }
    const Sections_t& Sections() const { return m_sections; }
    Menus_t& Menus() { return m_menus; }
    const Menus_t& Menus() const { return m_menus; }
    CXmlControl::Collection& Controls() { return m_controls; }
    const CXmlControl::Collection& Controls() const { return m_controls; }
    Definitions& DocumentedMenus() { return m_documentedMenus; }
    const Definitions& DocumentedMenus() const { return m_documentedMenus; }
    Definitions& DocumentedControls() { return m_documentedControls; }
    const Definitions& DocumentedControls() const { return m_documentedControls; }
    bool HasMenu() const { return !m_menus.Empty(); }
    bool IsForm() const { return true; }

    // Each takes its part under its Name (without a key when the name is taken)
    // after init with this form.
    CXmlControl& AddControl(std::unique_ptr<CXmlControl> control);
    CXmlMenu& AddMenu(std::unique_ptr<CXmlMenu> menu);
    CXmlSection& AddSection(std::unique_ptr<CXmlSection> section);

    // Orders the controls by TabIndex, equal indexes keeping their order, at
    // every level.
    void SortControlsUsingTabIndex();
    // Gives every control a bookmark unique in the whole form.
    void AssignControlsBookmarkNames();
    // Every control at every level, parents before children, in list order.
    std::vector<CXmlControl*> AllControls() const;
    // Depth first, comparing NameNormalized exactly; nothing when none matches.
    CXmlControl* GetControl(std::string_view normalizedName) const;
    CXmlMenu* GetMenu(std::string_view normalizedName) const;
    // Drops the back references of every part. Runs once.
    void Terminate();

    // --- names and texts ---
    const std::string& Type_() const { return m_type; }
    // The root element's name; sets SourceObjectType (-1 for an unknown name).
    void SetType_(std::string type);
    int SourceObjectType() const { return m_sourceObjectType; }
    std::string Name4Xml() const;
    std::string NameNormalized() const;
    const std::string& Caption() const { return Text; }
    std::string Text4Xml() const;
    std::string Caption4Xml() const { return Text4Xml(); }
    // Indexes, or when empty the caption (IdentifyControls not 0) or the name,
    // cut to 32 characters and "...".
    std::string IndexesText() const;
    // Name, Text and HelpContextId; "" for any other.
    std::string Properties(std::string_view name) const;

    // --- files; a bare file name reads joined to the current project's folder ---
    std::string StylesheetFullPath() const;
    void SetStylesheetFullPath(std::string path) { m_stylesheet = std::move(path); }
    std::string PicFullPath() const;
    void SetPicFullPath(std::string path) { m_picFullPath = std::move(path); }
    std::string HtmlFullPath() const;
    void SetHtmlFullPath(std::string path) { m_htmlFullPath = std::move(path); }
    // Images folder of the generation + file name of the screenshot.
    std::string PicLocalPath() const;
    // Base name of the topic file.
    std::string UniqueName() const;
    std::string XmlFileName() const { return UniqueName() + ".xml"; }

    // --- sections ---
    // The named section's values, 0 when there is no such section.
    int ControlSectionOffsetX(std::string_view sectionName) const;
    int ControlSectionOffsetY(std::string_view sectionName) const;
    int ControlSectionHeaderHeight(std::string_view sectionName) const;

    const CXmlParseError& XmlParseError() const { return m_error; }

    // --- plain values ---
    std::string Name;
    std::string Text;
    int Width { 0 };
    int Height { 0 };
    int ClientAreaOffsetX { 0 };
    int ClientAreaOffsetY { 0 };
    // AutoScaleBaseSize of a Visual Studio form; written when X is above 0.
    int AutoScaleBaseSizeX { 0 };
    int AutoScaleBaseSizeY { 0 };
    int BorderStyle { 0 };
    bool HasMap { false };
    std::string Charset;
    std::string Language;
    std::string Description;
    std::string NamePrefix;
    int HelpContextId { 0 };
    int NewHelpContextIdsCount { 0 };
    std::string SourceProjectType;
    std::string SourceProjectName;
    std::string OriginalClassName;
    std::string GUIObjectSubType;
    int hWnd { 0 };
    std::string Indexes;
    std::string ClassName;

private:
    bool Fail(std::string text, std::string source);
    bool LoadDocument(const CXMLFile& file, std::string_view fileName);
    void Clear();
    void ReadAttributes(desc::AttributeReader& read);
    bool ReadParts(const pugi::xml_node& root);
    void ReadDocumented(const pugi::xml_node& root);
    std::string StartTag() const;
    std::string PartsText() const;
    void LinkDefinition(CFormHTMLControlDef& definition) const;
    void AddDefinition(Definitions& list, CFormHTMLControlDef definition);

    std::string m_type;
    int m_sourceObjectType { -1 };
    std::string m_stylesheet;
    std::string m_picFullPath;
    std::string m_htmlFullPath;
    Sections_t m_sections;
    Menus_t m_menus;
    CXmlControl::Collection m_controls;
    Definitions m_documentedMenus;
    Definitions m_documentedControls;
    CXmlParseError m_error;
    bool m_terminated { false };
};

// The saved description of a topic's object (the node's file in the
// project's xml folder), or nothing when there is none or it does not read.
std::unique_ptr<CXmlForm> LoadXmlForm(const CHelpPrjTreeNode& node);

}  // namespace scriv
