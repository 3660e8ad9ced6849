#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "uidesc/CXmlControl.h"

namespace scriv {

class CXmlForm;

// One section of a sectioned form or report (header, detail, footer): its
// height and where its client area starts in the window image.
class CXmlSection {
public:
    CXmlSection() = default;
    CXmlSection(const CXmlSection&) = delete;
    CXmlSection& operator=(const CXmlSection&) = delete;

    void init(CXmlForm& parent) { m_parent = &parent; }
    // Reads a "Section" element: Name, Height, FormRecordSelectorWidth,
    // ClientAreaOffset ("x, y"), DesignTimeHeaderHeight. False, with
    // XmlParseError set, for a missing element.
    bool Parse(const pugi::xml_node& element, int level = 0);
    // <Section Name = "..." Height = "h" [FormRecordSelectorWidth = "n" ]
    // ClientAreaOffset = "x, y" DesignTimeHeaderHeight = "h" />
    std::string XMLSTr() const;
    // Drops the parent reference. Runs once.
    void Terminate();

    CXmlForm* Parent() const { return m_parent; }
    // Controls placed in the section by whoever builds it; the document does
    // not carry them.
    CXmlControl::Collection& Controls() { return m_controls; }
    const CXmlControl::Collection& Controls() const { return m_controls; }
    std::string Name4Xml() const;
    std::string NameNormalized() const;
    const CXmlParseError& XmlParseError() const { return m_error; }

    std::string Name;
    int Height { 0 };
    int DesignTimeHeaderHeight { 0 };
    int ClientAreaOffsetX { 0 };
    int ClientAreaOffsetY { 0 };
    int AccessFormRecordSelectorWidth { 0 };

private:
    CXmlControl::Collection m_controls;
    CXmlForm* m_parent { nullptr };
    CXmlParseError m_error;
    bool m_terminated { false };
};

}  // namespace scriv
