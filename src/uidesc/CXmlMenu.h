#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "uidesc/CXmlControl.h"

namespace scriv {

class CXmlForm;

// One entry of a form's menu bar.
class CXmlMenu {
public:
    CXmlMenu() = default;
    CXmlMenu(const CXmlMenu&) = delete;
    CXmlMenu& operator=(const CXmlMenu&) = delete;

    void init(CXmlForm& parent) { m_parent = &parent; }
    // Reads a "MenuEntry" element: Name, Text (else Caption), Indexes; empty
    // Indexes take the name (IdentifyControls not 0) or the text, less every
    // "&". False, with XmlParseError set, for a missing element.
    bool Parse(const pugi::xml_node& element, int level = 0);
    // <MenuEntry Name = "..." Caption = "..." [Indexes = "..." ]/>
    std::string XMLSTr() const;
    // Name, Text and Caption (the text); "" for any other.
    std::string Properties(std::string_view name) const;
    // Drops the parent reference. Runs once.
    void Terminate();

    CXmlForm* Parent() const { return m_parent; }
    bool IsForm() const { return false; }
    // Entries below this one, for whoever builds them; the document does not
    // carry them.
    CXmlControl::Collection& Controls() { return m_controls; }
    const CXmlControl::Collection& Controls() const { return m_controls; }
    std::string Name4Xml() const;
    std::string NameNormalized() const;
    std::string Text4Xml() const;
    // Indexes, or the text they take when empty.
    std::string IndexesText() const;
    const CXmlParseError& XmlParseError() const { return m_error; }

    std::string Name;
    std::string Text;
    std::string Indexes;
    int HelpContextId { 0 };

private:
    CXmlControl::Collection m_controls;
    CXmlForm* m_parent { nullptr };
    CXmlParseError m_error;
    bool m_terminated { false };
};

}  // namespace scriv
