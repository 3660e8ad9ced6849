#include "uidesc/CXmlForm.h"

#include <array>
#include <tuple>

#include "foundation/CTraceLog.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CFormHTMLControlDefs.h"
#include "uidesc/DescriptionText.h"

namespace scriv {

namespace {

struct SourceObjectTag {
    const char* name;
    int type;
};

// The root elements in the order a document is searched for them.
constexpr std::array<SourceObjectTag, 7> kSourceObjectTags { {
    { "Form", 2 },
    { "Report", 3 },
    { "Table", 0 },
    { "Query", 1 },
    { "Macro", 4 },
    { "Worksheet", 81 },
    { "Chart", 82 },
} };

constexpr const char* kMyXamlStart = "<MyXaml xml:lang=\"ru-RU\" xmlns:def=\"Definition\" "
                                     "xmlns=\"System.Windows.Forms, System.Windows.Forms, Version=1.0.5000.0, "
                                     "Culture=neutral, PublicKeyToken=b77a5c561934e089\" "
                                     "xmlns:css=\"CSSample, DataSet1.cs, Version=0.0.0.0, Culture=neutral, "
                                     "PublicKeyToken=null\" "
                                     "xmlns:s=\"System, mscorlib, Version=1.0.5000.0, Culture=neutral, "
                                     "PublicKeyToken=b77a5c561934e089\" "
                                     "xmlns:sd=\"System.Data, System.Data, Version=1.0.5000.0, Culture=neutral, "
                                     "PublicKeyToken=b77a5c561934e089\">";

std::string Pair(int a, int b)
{
    return std::to_string(a) + ", " + std::to_string(b);
}

bool SameDefinitions(const CXmlForm::Definitions& a, const CXmlForm::Definitions& b)
{
    if (a.Count() != b.Count())
        return false;
    for (std::size_t i = 0; i < a.Count(); ++i)
        if (!a.At(i).value.EqualTo(b.At(i).value) || a.At(i).value.IsMenu != b.At(i).value.IsMenu)
            return false;
    return true;
}

// Reads the parts below one group element of the root, each under its name; the
// first part that fails stops the reading and leaves its error in error.
template<typename Part>
bool ReadGroup(CXmlForm& form, const pugi::xml_node& group, KeyedCollection<std::unique_ptr<Part>>& into,
    CXmlParseError& error)
{
    for (pugi::xml_node node : group.children()) {
        if (node.type() != pugi::node_element)
            continue;
        auto part = std::make_unique<Part>();
        part->init(form);
        if (!part->Parse(node, 0)) {
            error = part->XmlParseError();
            return false;
        }
        desc::AddUnderName(into, std::move(part));
    }
    return true;
}

template<typename Part>
std::string XmlOf(const std::unique_ptr<Part>& part)
{
    return part->XMLSTr();
}

std::string XmlOf(const CFormHTMLControlDef& definition)
{
    return definition.XMLSTr();
}

}  // namespace

// --- reading ---

bool CXmlForm::Fail(std::string text, std::string source)
{
    m_error.SetErrInfo(status::kGeneralFailure, std::move(text), std::move(source));
    return false;
}

bool CXmlForm::Load(std::string_view fileFullPath)
{
    m_error.Clear();
    CXMLFile file;
    if (file.Load(fileFullPath) != 0) {
        m_error = file.XmlParseError();
        return false;
    }
    return LoadDocument(file, FileNameOf(fileFullPath));
}

bool CXmlForm::LoadXml(std::string_view text)
{
    m_error.Clear();
    CXMLFile file;
    try {
        if (file.LoadXml(text) != 0) {
            m_error = file.XmlParseError();
            return false;
        }
    } catch (const ScrivError& error) {
        return Fail(error.Description(), error.Source());
    }
    return LoadDocument(file, {});
}

bool CXmlForm::LoadDocument(const CXMLFile& file, std::string_view fileName)
{
    pugi::xml_node root = file.SelectSingleNode("//MyXaml/Form");
    for (std::size_t i = 0; !root && i < kSourceObjectTags.size(); ++i)
        root = file.SelectSingleNode(("//" + std::string(kSourceObjectTags[i].name)).c_str());
    if (!root)
        return Fail("Error parsing XML definition of '" + std::string(fileName) + "'", "CXmlForm.Load");
    return Parse(root);
}

void CXmlForm::Clear()
{
    Terminate();
    m_sections.Clear();
    m_menus.Clear();
    m_controls.Clear();
    m_documentedMenus.Clear();
    m_documentedControls.Clear();
    m_error.Clear();
    m_terminated = false;
}

bool CXmlForm::Parse(const pugi::xml_node& root)
{
    Clear();
    SetType_(root.name());
    if (m_sourceObjectType == -1)
        return Fail("Undefined source object tag", "CXmlForm.Parse");
    desc::AttributeReader attributes(root);
    ReadAttributes(attributes);
    if (attributes.Failed())
        return Fail(attributes.Problem(), "CXmlForm.Parse");
    if (!ReadParts(root))
        return false;
    AssignControlsBookmarkNames();
    ReadDocumented(root);
    return true;
}

void CXmlForm::ReadAttributes(desc::AttributeReader& read)
{
    Name = read.Text("Name");
    Text = read.Text("Text");
    if (Text.empty())
        Text = read.Text("Caption");
    m_picFullPath = read.Text("PicFullPath");
    // The project's pictures folder is looked up only for a bare file name.
    if (std::string bare = read.Text("PicFileName"); m_picFullPath.empty() && !bare.empty())
        m_picFullPath = desc::JoinBare(bare, desc::ProjectPicsFolder());
    m_htmlFullPath = read.Text("HtmlFullPath");
    if (m_htmlFullPath.empty())
        m_htmlFullPath = desc::JoinBare(read.Text("HtmlFileName"), desc::ProjectFolder());
    HelpContextId = read.Int("HelpContextId");
    NewHelpContextIdsCount = read.Int("NewHelpContextIdsCount");
    hWnd = read.Int("HWND");
    std::tie(Width, Height) = read.Pair("WindowSize");
    std::tie(AutoScaleBaseSizeX, AutoScaleBaseSizeY) = read.Pair("AutoScaleBaseSize");
    std::tie(ClientAreaOffsetX, ClientAreaOffsetY) = read.Pair("ClientAreaOffset");
    OriginalClassName = read.Text("OriginalClassName");
    HasMap = !read.Text("HasMap").empty();
    Charset = read.Text("Charset");
    Description = read.Text("Description");
    Language = read.Text("Language");
    m_stylesheet = read.Text("Stylesheet");
    SourceProjectType = read.Text("SourceProjectType");
    SourceProjectName = read.Text("SourceProjectName");
    NamePrefix = read.Text("NamePrefix");
    BorderStyle = read.Int("BorderStyle");
    GUIObjectSubType = read.Text("GUIObjectSubType");
    Indexes = read.Text("Indexes");
    Indexes = IndexesText();
}

bool CXmlForm::ReadParts(const pugi::xml_node& root)
{
    return ReadGroup(*this, root.child("Sections"), m_sections, m_error)
        && ReadGroup(*this, root.child("Menu"), m_menus, m_error)
        && ReadGroup(*this, root.child("Controls"), m_controls, m_error);
}

void CXmlForm::ReadDocumented(const pugi::xml_node& root)
{
    pugi::xml_node documented = root.child("Documented");
    auto read = [this](const pugi::xml_node& list, Definitions& into, bool menus) {
        for (pugi::xml_node item : list.children()) {
            CFormHTMLControlDef definition;
            if (item.type() != pugi::node_element || !definition.ParseXML(item))
                continue;
            definition.FormName = NameNormalized();
            definition.IsMenu = definition.IsMenu || menus;
            AddDefinition(into, std::move(definition));
        }
    };
    read(documented.child("Menus"), m_documentedMenus, true);
    read(documented.child("Controls"), m_documentedControls, false);
}

void CXmlForm::AddDefinition(Definitions& list, CFormHTMLControlDef definition)
{
    std::string key = definition.FormName + "_" + definition.BookmarkName;
    if (!list.Contains(key))
        list.Add(std::move(key), std::move(definition));
}

// --- writing ---

std::string CXmlForm::XMLSTr() const
{
    std::string text = StartTag();
    text.append(">").append(kCrLf).append(PartsText());
    text.append("</").append(m_type).append(">").append(kCrLf);
    return ReplaceAll(text, "\r\n\r\n", "\r\n");
}

std::string CXmlForm::StartTag() const
{
    using desc::Plain;
    using desc::Spaced;
    using desc::Tight;
    std::string text = "<" + m_type + " ";
    Spaced(text, "Name", Name4Xml());
    Spaced(text, "Text", Text4Xml());
    if (AutoScaleBaseSizeX > 0)
        Spaced(text, "AutoScaleBaseSize", Pair(AutoScaleBaseSizeX, AutoScaleBaseSizeY));
    Spaced(text, "WindowSize", Pair(Width, Height));
    Spaced(text, "ClientAreaOffset", Pair(ClientAreaOffsetX, ClientAreaOffsetY));
    Spaced(text, "BorderStyle", std::to_string(BorderStyle));
    if (HasMap)
        Spaced(text, "HasMap", "True");
    // The attributes of the page side are written without blanks around "=".
    const std::pair<const char*, std::string> pageSide[] = { { "Charset", Plain(Charset) },
        { "Description", XmlEncodeChars(Description) }, { "Language", Plain(Language) },
        { "Stylesheet", Plain(FileNameOf(StylesheetFullPath())) }, { "NamePrefix", Plain(NamePrefix) },
        { "PicFileName", Plain(FileNameOf(PicFullPath())) }, { "HtmlFileName", Plain(FileNameOf(HtmlFullPath())) } };
    for (const auto& [name, value] : pageSide)
        if (!value.empty())
            Tight(text, name, value);
    if (HelpContextId > 0 || HelpContextId == -1)
        Spaced(text, "HelpContextId", std::to_string(HelpContextId));
    if (NewHelpContextIdsCount > 0)
        Spaced(text, "NewHelpContextIdsCount", std::to_string(NewHelpContextIdsCount));
    const std::pair<const char*, std::string> walkSide[] = { { "SourceProjectType", Plain(SourceProjectType) },
        { "SourceProjectName", Plain(SourceProjectName) }, { "OriginalClassName", XmlEncodeChars(OriginalClassName) },
        { "GUIObjectSubType", Plain(GUIObjectSubType) } };
    for (const auto& [name, value] : walkSide)
        if (!value.empty())
            Spaced(text, name, value);
    if (hWnd != 0)
        Spaced(text, "HWND", std::to_string(hWnd));
    if (std::string indexes = IndexesText(); !indexes.empty())
        Spaced(text, "Indexes", XmlEncodeChars(indexes));
    return text;
}

std::string CXmlForm::PartsText() const
{
    std::string text;
    auto group = [&](std::string_view tag, const auto& items) {
        if (items.Empty())
            return;
        text.append("<").append(tag).append(">").append(kCrLf);
        for (const auto& entry : items)
            text.append(XmlOf(entry.value)).append(kCrLf);
        text.append("</").append(tag).append(">").append(kCrLf);
    };
    group("Sections", m_sections);
    group("Menu", m_menus);
    group("Controls", m_controls);
    text.append("<Documented>").append(kCrLf);
    group("Menus", m_documentedMenus);
    group("Controls", m_documentedControls);
    text.append("</Documented>").append(kCrLf);
    return text;
}

std::string CXmlForm::MyXaml() const
{
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>";
    text.append(kCrLf).append(kMyXamlStart).append(kCrLf).append(XMLSTr()).append(kCrLf);
    return text + "</MyXaml>";
}

std::string CXmlForm::SaveXml(std::string_view folder, std::string_view fileFullPath) const
{
    std::string path = fileFullPath.empty() ? JoinPath(folder, XmlFileName()) : std::string(fileFullPath);
    CXMLFile file;
    return file.SaveXml(path, XMLSTr()) == status::kOk ? path : std::string();
}

// --- definitions of a topic page ---

bool CXmlForm::MakeDefs(std::string_view htmlFileFullPath, bool replace)
{
    CFormHTMLControlDefs page;
    if (!page.Parse(htmlFileFullPath, Parameters().ListOfTagsToParseContentsFrom))
        return false;
    Definitions menus;
    Definitions controls;
    auto take = [&](CFormHTMLControlDef definition) {
        LinkDefinition(definition);
        AddDefinition(definition.IsMenu ? menus : controls, std::move(definition));
    };
    for (const auto& entry : page.Menus())
        take(entry.value);
    for (const auto& entry : page.Controls())
        take(entry.value);
    if (replace) {
        bool changed = !SameDefinitions(m_documentedMenus, menus) || !SameDefinitions(m_documentedControls, controls);
        m_documentedMenus = std::move(menus);
        m_documentedControls = std::move(controls);
        return changed;
    }
    bool changed = false;
    for (auto [list, found] : { std::pair { &m_documentedMenus, &menus }, std::pair { &m_documentedControls, &controls } }) {
        for (auto& entry : *found) {
            if (list->Contains(entry.key))
                continue;
            list->Add(entry.key, entry.value);
            changed = true;
        }
    }
    return changed;
}

void CXmlForm::LinkDefinition(CFormHTMLControlDef& definition) const
{
    // On the page a control is known by its bookmark and a menu by its name.
    const CXmlControl* control = nullptr;
    for (const CXmlControl* candidate : AllControls()) {
        if (EqualsNoCase(EncodeObjectName(candidate->HtmlBookMarkName()), definition.BookmarkName)) {
            control = candidate;
            break;
        }
    }
    const CXmlMenu* menu = nullptr;
    for (const auto& entry : m_menus) {
        if (EqualsNoCase(entry.value->NameNormalized(), definition.BookmarkName)) {
            menu = entry.value.get();
            break;
        }
    }
    if (menu && (definition.IsMenu || !control)) {
        definition.IsMenu = true;
        definition.ControlName = menu->NameNormalized();
    } else if (control) {
        definition.IsMenu = false;
        definition.ControlName = control->NameNormalized();
    }
}

// --- the tree ---

CXmlControl& CXmlForm::AddControl(std::unique_ptr<CXmlControl> control)
{
    control->init(*this);
    return desc::AddUnderName(m_controls, std::move(control));
}

CXmlMenu& CXmlForm::AddMenu(std::unique_ptr<CXmlMenu> menu)
{
    menu->init(*this);
    return desc::AddUnderName(m_menus, std::move(menu));
}

CXmlSection& CXmlForm::AddSection(std::unique_ptr<CXmlSection> section)
{
    section->init(*this);
    return desc::AddUnderName(m_sections, std::move(section));
}

void CXmlForm::SortControlsUsingTabIndex()
{
    CXmlControl::SortUsingTabIndex(m_controls);
}

void CXmlForm::AssignControlsBookmarkNames()
{
    CXmlControl::BookmarkSet used;
    CXmlControl::AssignBookmarkNames(m_controls, used);
}

std::vector<CXmlControl*> CXmlForm::AllControls() const
{
    std::vector<CXmlControl*> all;
    CXmlControl::Collect(m_controls, all);
    return all;
}

CXmlControl* CXmlForm::GetControl(std::string_view normalizedName) const
{
    return CXmlControl::Find(m_controls, normalizedName);
}

CXmlMenu* CXmlForm::GetMenu(std::string_view normalizedName) const
{
    for (const auto& entry : m_menus)
        if (entry.value->NameNormalized() == normalizedName)
            return entry.value.get();
    return nullptr;
}

void CXmlForm::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto& entry : m_sections)
        entry.value->Terminate();
    for (auto& entry : m_menus)
        entry.value->Terminate();
    for (auto& entry : m_controls)
        entry.value->Terminate();
}

// --- names and texts ---

void CXmlForm::SetType_(std::string type)
{
    m_type = std::move(type);
    m_sourceObjectType = -1;
    for (const auto& tag : kSourceObjectTags)
        if (m_type == tag.name)
            m_sourceObjectType = tag.type;
}

std::string CXmlForm::Name4Xml() const
{
    return XmlEncodeChars(Name);
}

std::string CXmlForm::NameNormalized() const
{
    return EncodeObjectName(Name);
}

std::string CXmlForm::Text4Xml() const
{
    return XmlEncodeChars(Text);
}

std::string CXmlForm::IndexesText() const
{
    if (!Indexes.empty())
        return Indexes;
    return TruncateForCaption(desc::IndexesFromCaption() ? Caption() : Name);
}

std::string CXmlForm::Properties(std::string_view name) const
{
    if (EqualsNoCase(name, "Name"))
        return Name;
    if (EqualsNoCase(name, "Text"))
        return Text;
    if (EqualsNoCase(name, "HelpContextId"))
        return std::to_string(HelpContextId);
    return {};
}

// --- files ---

std::string CXmlForm::StylesheetFullPath() const
{
    return desc::JoinBare(m_stylesheet, desc::ProjectFolder());
}

std::string CXmlForm::PicFullPath() const
{
    return desc::JoinBare(m_picFullPath, desc::ProjectFolder());
}

std::string CXmlForm::HtmlFullPath() const
{
    return desc::JoinBare(m_htmlFullPath, desc::ProjectFolder());
}

std::string CXmlForm::PicLocalPath() const
{
    std::string picture = PicFullPath();
    return picture.empty() ? std::string() : Parameters().NameOfFolderForGeneratedImagesWithSlash() + FileNameOf(picture);
}

std::string CXmlForm::UniqueName() const
{
    return FileBaseName(HtmlFullPath());
}

// --- sections ---

int CXmlForm::ControlSectionOffsetX(std::string_view sectionName) const
{
    const auto* section = m_sections.Find(sectionName);
    return section ? (*section)->ClientAreaOffsetX : 0;
}

int CXmlForm::ControlSectionOffsetY(std::string_view sectionName) const
{
    const auto* section = m_sections.Find(sectionName);
    return section ? (*section)->ClientAreaOffsetY : 0;
}

int CXmlForm::ControlSectionHeaderHeight(std::string_view sectionName) const
{
    const auto* section = m_sections.Find(sectionName);
    return section ? (*section)->DesignTimeHeaderHeight : 0;
}

std::unique_ptr<CXmlForm> LoadXmlForm(const CHelpPrjTreeNode& node)
{
    std::string path = node.XmlFormFullPath();
    if (path.empty() || !FileExists(path))
        return nullptr;
    auto form = std::make_unique<CXmlForm>();
    if (!form->Load(path)) {
        Trace("CHelpPrjTreeNode.LoadXmlForm: " + form->XmlParseError().Reason());
        return nullptr;
    }
    return form;
}

}  // namespace scriv
