#include "uidesc/CXmlSection.h"

#include <tuple>

#include "foundation/ObjectNames.h"
#include "foundation/ScrivError.h"
#include "foundation/TextEncoding.h"
#include "uidesc/DescriptionText.h"

namespace scriv {

bool CXmlSection::Parse(const pugi::xml_node& element, int level)
{
    m_error.Clear();
    if (!element || element.type() != pugi::node_element) {
        m_error.SetErrInfo(status::kGeneralFailure, "No section element to parse", "CXmlSection.Parse");
        return false;
    }
    desc::AttributeReader read(element);
    Name = read.Text("Name");
    Height = read.Int("Height");
    AccessFormRecordSelectorWidth = read.Int("FormRecordSelectorWidth");
    std::tie(ClientAreaOffsetX, ClientAreaOffsetY) = read.Pair("ClientAreaOffset");
    DesignTimeHeaderHeight = read.Int("DesignTimeHeaderHeight");
    if (read.Failed()) {
        m_error.SetErrInfo(status::kGeneralFailure, read.Problem(), "CXmlSection.Parse");
        return false;
    }
    return true;
}

std::string CXmlSection::XMLSTr() const
{
    using desc::Spaced;
    std::string text = "<Section ";
    Spaced(text, "Name", Name4Xml());
    Spaced(text, "Height", std::to_string(Height));
    if (AccessFormRecordSelectorWidth != 0)
        Spaced(text, "FormRecordSelectorWidth", std::to_string(AccessFormRecordSelectorWidth));
    Spaced(text, "ClientAreaOffset", std::to_string(ClientAreaOffsetX) + ", " + std::to_string(ClientAreaOffsetY));
    Spaced(text, "DesignTimeHeaderHeight", std::to_string(DesignTimeHeaderHeight));
    return text + "/>";
}

void CXmlSection::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    for (auto& entry : m_controls)
        entry.value->Terminate();
    m_parent = nullptr;
}

std::string CXmlSection::Name4Xml() const
{
    return XmlEncodeChars(Name);
}

std::string CXmlSection::NameNormalized() const
{
    return EncodeObjectName(Name);
}

}  // namespace scriv
