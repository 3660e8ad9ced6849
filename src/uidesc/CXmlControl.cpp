#include "uidesc/CXmlControl.h"

#include <algorithm>
#include <tuple>

#include "foundation/DateTime.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/DescriptionText.h"

namespace scriv {

namespace {

bool g_applyVistaHotSpotCorrection = false;

}  // namespace

// --- the Windows version correction ---

std::pair<int, int> HotSpotCorrection(std::string_view sourceType)
{
    if (EqualsNoCase(sourceType, "MS ACCESS"))
        return { -26, -11 };
    for (const char* type : { "VB6", "VS.NET", "VB.NET", "C#", "J#", "C++" })
        if (EqualsNoCase(sourceType, type))
            return { -11, -11 };
    return { 0, 0 };
}

bool ApplyVistaHotSpotCorrection()
{
    return g_applyVistaHotSpotCorrection;
}

void SetApplyVistaHotSpotCorrection(bool apply)
{
    g_applyVistaHotSpotCorrection = apply;
}

// --- building ---

void CXmlControl::init(CXmlForm& parent)
{
    m_parentForm = &parent;
    m_parentControl = nullptr;
    m_terminated = false;
}

void CXmlControl::init(CXmlControl& parent)
{
    m_parentForm = nullptr;
    m_parentControl = &parent;
    m_terminated = false;
}

bool CXmlControl::Fail(std::string text, std::string source)
{
    m_error.SetErrInfo(status::kGeneralFailure, std::move(text), std::move(source));
    return false;
}

bool CXmlControl::Parse(std::string_view text, int level)
{
    CXMLFile file;
    try {
        if (file.LoadXml(text) != 0) {
            m_error = file.XmlParseError();
            return false;
        }
    } catch (const ScrivError& error) {
        return Fail(error.Description(), error.Source());
    }
    return Parse(file.DocumentElement(), level);
}

bool CXmlControl::Parse(const pugi::xml_node& element, int level)
{
    m_error.Clear();
    m_controls.Clear();
    if (!element || element.type() != pugi::node_element)
        return Fail("No control element to parse", "CXmlControl.Parse");
    desc::AttributeReader attributes(element);
    ReadAttributes(attributes, desc::BaseName(element), level);
    if (attributes.Failed())
        return Fail(attributes.Problem(), "CXmlControl.Parse");
    return ParseChildren(element);
}

void CXmlControl::ReadAttributes(desc::AttributeReader& read, std::string type, int level)
{
    ClassName.clear();
    SetControlType(std::move(type));
    Name = read.Text("Name");
    SetHtmlBookMarkName(read.Text("BookmarkName"));
    Description = read.Text("Description");
    Text = read.Text("Text");
    if (Text.empty())
        Text = read.Text("Caption");
    if (std::string given = read.Text("ClassName"); !given.empty())
        ClassName = given;
    OriginalClassName = read.Text("OriginalClassName");
    PicFullPath = read.Text("PicFullPath");
    // The project's pictures folder is looked up only for a bare file name.
    if (std::string bare = read.Text("PicFileName"); PicFullPath.empty() && !bare.empty())
        PicFullPath = desc::JoinBare(bare, desc::ProjectPicsFolder());
    HelpContextId = read.Int("HelpContextId");
    std::tie(Width, Height) = read.Pair("Size");
    std::tie(Left, Top) = read.Pair("Location");
    int tab[4];
    read.Four("TabPageTab", tab, -1);
    TabLeft = tab[0], TabTop = tab[1], TabWidth = tab[2], TabHeight = tab[3];
    Level = read.Int("Level", level);
    TabIndex = read.Int("TabIndex", -1);
    std::string visible = read.Text("Visible");
    Visible = !(EqualsNoCase(visible, "False") || visible == "0");
    Index = read.Int("Index");
    TabPageIndex = read.Int("TabPageIndex", -1);
    ControlSectionName = read.Text("SectionName");
    ParentControlName = read.Text("ParentControlName");
    if (Name.empty())
        Name = std::to_string(static_cast<long>(SecondsSinceMidnight())) + "_" + std::to_string(TabIndex);
    HasCaption = !Text.empty();
    Indexes = EqualsNoCase(ClassName, "Label") ? std::string() : read.Text("Indexes");
    Indexes = IndexesText();
}

bool CXmlControl::ParseChildren(const pugi::xml_node& element)
{
    for (pugi::xml_node node : element.child("Controls").children()) {
        if (node.type() != pugi::node_element)
            continue;
        auto child = std::make_unique<CXmlControl>();
        child->init(*this);
        if (!child->Parse(node, Level + 1)) {
            m_error = child->XmlParseError();
            return false;
        }
        desc::AddUnderName(m_controls, std::move(child));
    }
    return true;
}

CXmlControl& CXmlControl::AddControl(std::unique_ptr<CXmlControl> child)
{
    child->init(*this);
    return desc::AddUnderName(m_controls, std::move(child));
}

void CXmlControl::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto& entry : m_controls)
        entry.value->Terminate();
    m_parentForm = nullptr;
    m_parentControl = nullptr;
}

// --- writing ---

std::string CXmlControl::XMLSTr() const
{
    std::string indent(static_cast<std::size_t>(std::max(Level, 0)) * 2, ' ');
    std::string text = indent + "<" + m_controlType + " ";
    desc::Spaced(text, "Name", Name4Xml());
    text += AttributesText();
    if (m_controls.Empty())
        return text + "/>";
    text.append(">").append(kCrLf).append(indent).append("<Controls>").append(kCrLf);
    for (const auto& entry : m_controls)
        text.append(entry.value->XMLSTr()).append(kCrLf);
    return text.append(indent).append("</Controls>").append(kCrLf).append(indent).append("</" + m_controlType + ">");
}

std::string CXmlControl::AttributesText() const
{
    using desc::Spaced;
    std::string text;
    if (!Text.empty())
        Spaced(text, "Text", Text4Xml());
    if (!Description.empty())
        Spaced(text, "Description", Description4Xml());
    if (!ClassName.empty())
        Spaced(text, "ClassName", desc::Plain(ClassName));
    if (!OriginalClassName.empty() && OriginalClassName != ClassName)
        Spaced(text, "OriginalClassName", desc::Plain(OriginalClassName));
    Spaced(text, "Location", std::to_string(Left) + ", " + std::to_string(Top));
    Spaced(text, "Size", std::to_string(Width) + ", " + std::to_string(Height));
    if (TabIndex > -1)
        Spaced(text, "TabIndex", std::to_string(TabIndex));
    if (Index > 0)
        Spaced(text, "Index", std::to_string(Index));
    if (HelpContextId > 0)
        Spaced(text, "HelpContextId", std::to_string(HelpContextId));
    if (!PicFullPath.empty())
        Spaced(text, "PicFileName", desc::Plain(FileNameOf(PicFullPath)));
    if (!Visible)
        Spaced(text, "Visible", "False");
    if (std::string hotSpot = HotSpot(); !hotSpot.empty())
        Spaced(text, "HotSpot", hotSpot);
    if (std::string tab = TabPageTab(); !tab.empty())
        Spaced(text, "TabPageTab", tab);
    if (!ControlSectionName.empty())
        Spaced(text, "SectionName", XmlEncodeChars(ControlSectionName));
    if (!ParentControlName.empty())
        Spaced(text, "ParentControlName", XmlEncodeChars(ParentControlName));
    if (Level > 0)
        Spaced(text, "Level", std::to_string(Level));
    if (TabPageIndex > -1)
        Spaced(text, "TabPageIndex", std::to_string(TabPageIndex));
    if (!m_bookmark.empty() && m_bookmark != Name)
        Spaced(text, "BookmarkName", XmlEncodeChars(m_bookmark));
    if (std::string indexes = IndexesText(); !indexes.empty())
        Spaced(text, "Indexes", XmlEncodeChars(indexes));
    return text;
}

std::string CXmlControl::Properties(std::string_view name) const
{
    auto is = [name](std::string_view key) { return EqualsNoCase(name, key); };
    if (is("Name"))
        return Name;
    if (is("BookmarkName"))
        return HtmlBookMarkName();
    if (is("Text"))
        return Text;
    if (is("Visible"))
        return Visible ? "True" : "False";
    if (is("ClassName"))
        return ClassName;
    if (is("OriginalClassName"))
        return OriginalClassName;
    if (is("TabPageTab"))
        return TabPageTab();
    if (is("HotSpot"))
        return HotSpot();
    const std::pair<const char*, int> numbers[] = { { "Width", Width }, { "Height", Height }, { "Top", Top },
        { "Left", Left }, { "TabIndex", TabIndex }, { "Index", Index }, { "HelpContextId", HelpContextId } };
    for (const auto& [key, value] : numbers)
        if (is(key))
            return std::to_string(value);
    return {};
}

// --- the tree ---

CXmlForm* CXmlControl::Form() const
{
    const CXmlControl* control = this;
    while (control->m_parentControl)
        control = control->m_parentControl;
    return control->m_parentForm;
}

void CXmlControl::SortControlsUsingTabIndex()
{
    SortUsingTabIndex(m_controls);
}

void CXmlControl::AssignControlsBookmarkNames(BookmarkSet& used)
{
    AssignBookmarkNames(m_controls, used);
}

void CXmlControl::CollectControls(std::vector<CXmlControl*>& into) const
{
    Collect(m_controls, into);
}

CXmlControl* CXmlControl::FindControl(std::string_view normalizedName) const
{
    return Find(m_controls, normalizedName);
}

void CXmlControl::SortUsingTabIndex(Collection& controls)
{
    Collection sorted;
    for (auto& entry : controls) {
        std::size_t position = sorted.Count();
        for (std::size_t i = 0; i < sorted.Count(); ++i) {
            if (sorted.At(i).value->TabIndex > entry.value->TabIndex) {
                position = i;
                break;
            }
        }
        sorted.Insert(position, entry.key, std::move(entry.value));
    }
    controls = std::move(sorted);
    for (auto& entry : controls)
        if (!entry.value->m_controls.Empty())
            SortUsingTabIndex(entry.value->m_controls);
}

void CXmlControl::AssignBookmarkNames(Collection& controls, BookmarkSet& used)
{
    for (auto& entry : controls) {
        CXmlControl& child = *entry.value;
        std::string found = child.Name;
        for (int suffix = 1; used.count(ToLower(found)) > 0; ++suffix)
            found = suffix < 1000 ? child.Name + std::to_string(suffix) : std::string();
        child.SetHtmlBookMarkName(found);
        if (!found.empty())
            used.insert(ToLower(found));
        AssignBookmarkNames(child.m_controls, used);
    }
}

void CXmlControl::Collect(const Collection& controls, std::vector<CXmlControl*>& into)
{
    for (const auto& entry : controls) {
        into.push_back(entry.value.get());
        Collect(entry.value->m_controls, into);
    }
}

CXmlControl* CXmlControl::Find(const Collection& controls, std::string_view normalizedName)
{
    for (const auto& entry : controls) {
        if (entry.value->NameNormalized() == normalizedName)
            return entry.value.get();
        if (CXmlControl* found = Find(entry.value->m_controls, normalizedName))
            return found;
    }
    return nullptr;
}

// --- names and texts ---

void CXmlControl::SetControlType(std::string type)
{
    m_controlType = std::move(type);
    if (ClassName.empty())
        ClassName = m_controlType;
}

std::string CXmlControl::Name4Xml() const
{
    return XmlEncodeChars(Name);
}

const std::string& CXmlControl::NameNormalized() const
{
    if (!m_normalizedKnown || m_normalizedFrom != Name) {
        m_normalized = EncodeObjectName(Name);
        m_normalizedFrom = Name;
        m_normalizedKnown = true;
    }
    return m_normalized;
}

std::string CXmlControl::Text4Xml() const
{
    return XmlEncodeChars(Text);
}

std::string CXmlControl::Caption() const
{
    std::string caption = Trim(Text);
    if (CharCount(caption) > 1 && caption.back() == ':')
        caption.pop_back();
    return caption;
}

std::string CXmlControl::Caption4Xml() const
{
    return XmlEncodeChars(Caption());
}

std::string CXmlControl::Description4Xml() const
{
    return XmlEncodeChars(Description);
}

void CXmlControl::SetHtmlBookMarkName(std::string_view bookmark)
{
    m_bookmark = ReplaceAll(bookmark, " ", "_");
}

std::string CXmlControl::IndexesText() const
{
    if (!Indexes.empty())
        return Indexes;
    return TruncateForCaption(RemoveAll(desc::IndexesFromCaption() ? Caption() : Name, "&"));
}

std::string CXmlControl::PicLocalPath() const
{
    return PicFullPath.empty() ? std::string() : Parameters().NameOfFolderForGeneratedImagesWithSlash() + FileNameOf(PicFullPath);
}

bool CXmlControl::IsTabPage() const
{
    return EqualsNoCase(ClassName, "Page");
}

bool CXmlControl::IsTabControl() const
{
    return EqualsNoCase(ClassName, "TabControl");
}

bool CXmlControl::IsSubFormOrSubReport() const
{
    return EqualsNoCase(ClassName, "Subform") || EqualsNoCase(ClassName, "Subreport");
}

// --- geometry ---

int CXmlControl::ClientAreaOffsetX() const
{
    const CXmlForm* form = Form();
    return form ? form->ClientAreaOffsetX : 0;
}

int CXmlControl::ClientAreaOffsetY() const
{
    const CXmlForm* form = Form();
    return form ? form->ClientAreaOffsetY : 0;
}

int CXmlControl::ControlSectionOffsetX() const
{
    const CXmlForm* form = Form();
    return form ? form->ControlSectionOffsetX(ControlSectionName) : 0;
}

int CXmlControl::ControlSectionOffsetY() const
{
    const CXmlForm* form = Form();
    return form ? form->ControlSectionOffsetY(ControlSectionName) : 0;
}

std::pair<int, int> CXmlControl::Correction() const
{
    if (!ApplyVistaHotSpotCorrection())
        return { 0, 0 };
    // The host knows the source project's type; without one the form says it.
    IHostAgent* agent = CurrentHostAgent();
    if (agent)
        return HotSpotCorrection(agent->CurrentSourceProjectTypeName());
    const CXmlForm* form = Form();
    return HotSpotCorrection(form ? form->SourceProjectType : std::string());
}

int CXmlControl::HotSpotLeft(bool noOffset) const
{
    return Left + (noOffset ? 0 : ClientAreaOffsetX()) + Correction().first;
}

int CXmlControl::HotSpotTop(bool noOffset) const
{
    return Top + (noOffset ? 0 : ClientAreaOffsetY()) + Correction().second;
}

std::string CXmlControl::HotSpot() const
{
    if (Left < 0)
        return {};
    return std::to_string(HotSpotLeft()) + "," + std::to_string(HotSpotTop()) + "," + std::to_string(HotSpotRight()) + ","
        + std::to_string(HotSpotBottom());
}

std::string CXmlControl::TabPageTab() const
{
    if (TabLeft < 0)
        return {};
    return std::to_string(TabLeft) + "," + std::to_string(TabTop) + "," + std::to_string(TabWidth) + ","
        + std::to_string(TabHeight);
}

}  // namespace scriv
