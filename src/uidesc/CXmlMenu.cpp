#include "uidesc/CXmlMenu.h"

#include "foundation/ObjectNames.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "uidesc/DescriptionText.h"

namespace scriv {

bool CXmlMenu::Parse(const pugi::xml_node& element, int level)
{
    m_error.Clear();
    if (!element || element.type() != pugi::node_element) {
        m_error.SetErrInfo(status::kGeneralFailure, "No menu element to parse", "CXmlMenu.Parse");
        return false;
    }
    desc::AttributeReader read(element);
    Name = read.Text("Name");
    Text = read.Text("Text");
    if (Text.empty())
        Text = read.Text("Caption");
    Indexes = read.Text("Indexes");
    Indexes = IndexesText();
    return true;
}

std::string CXmlMenu::IndexesText() const
{
    if (!Indexes.empty())
        return Indexes;
    // Unlike forms and controls, a menu takes its name when IdentifyControls is set.
    return RemoveAll(desc::IndexesFromCaption() ? Text : Name, "&");
}

std::string CXmlMenu::XMLSTr() const
{
    std::string text = "<MenuEntry ";
    desc::Spaced(text, "Name", Name4Xml());
    desc::Spaced(text, "Caption", Text4Xml());
    if (std::string indexes = IndexesText(); !indexes.empty())
        desc::Spaced(text, "Indexes", XmlEncodeChars(indexes));
    return text + "/>";
}

std::string CXmlMenu::Properties(std::string_view name) const
{
    if (EqualsNoCase(name, "Name"))
        return Name;
    if (EqualsNoCase(name, "Text") || EqualsNoCase(name, "Caption"))
        return Text;
    return {};
}

void CXmlMenu::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto& entry : m_controls)
        entry.value->Terminate();
    m_parent = nullptr;
}

std::string CXmlMenu::Name4Xml() const
{
    return XmlEncodeChars(Name);
}

std::string CXmlMenu::NameNormalized() const
{
    return EncodeObjectName(Name);
}

std::string CXmlMenu::Text4Xml() const
{
    return XmlEncodeChars(Text);
}

}  // namespace scriv
