#pragma once

#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"

namespace scriv {

// One control or menu that a topic page documents: the form and control it
// belongs to, its anchor on the page and the heading the page gives it. Pages
// are edited by hand, so these are read back from the page and kept with the
// form description; regeneration then keeps what the user wrote.
class CFormHTMLControlDef {
public:
    std::string FormName;
    std::string ControlName;
    // The anchor on the page less the form's map name and "_".
    std::string BookmarkName;
    std::string TopicCaption;
    bool IsMenu { false };

    const CXmlParseError& XmlParseError() const { return m_error; }

    // All four texts are there.
    bool IsValid() const;
    // The four texts are the same (IsMenu does not count).
    bool EqualTo(const CFormHTMLControlDef& other) const;

    // --- reading ---
    // An "Item" element of a form description: Name, Bmk, Caption, IsMenu ("True").
    // False, with XmlParseError set, for an empty node.
    bool ParseXML(const pugi::xml_node& item);
    // The text from behind "<!-- + CONTROL " (or MENU) up to its end marker: the
    // rest of the marker names form and control, the anchor behind the marker
    // gives the bookmark, the <h2> the heading. False when no anchor is found.
    bool ParseHTML(std::string_view block);
    // The text from "<a name=" to its "</a>" on pages without markers. The
    // anchor is split after pageFormName + "_" when the page names its form,
    // else at its first "_". False when the block holds no anchor name.
    bool ParseHTML1(std::string_view block, std::string_view pageFormName);
    // The inside of one heading block (<H2> ... </H2>): the anchor in it gives
    // the bookmark, the heading's text the caption. False when it holds no anchor.
    bool ParseHTML2(std::string_view block, std::string_view pageFormName);

    // --- writing ---
    // <Item  Name="..." Bmk="..." Caption="..."  /> with ` IsMenu = "True" ` before
    // the closing for a menu; values are escaped.
    std::string XMLSTr() const;

    // --- helpers shared by the page readers ---
    // The value of the name attribute of the first anchor in a text ("<a name=x>",
    // quoted or not), or "".
    static std::string AnchorName(std::string_view html);
    // The anchor less the map name of its form: what follows formName + "_" where
    // that starts the anchor or follows a "_" (a name prefix), else what follows
    // the first "_", else the whole anchor.
    static std::string BookmarkOfAnchor(std::string_view anchor, std::string_view formName);
    // Visible text of an HTML fragment: tags dropped, entities decoded, runs of
    // white space made one blank, trimmed.
    static std::string PlainText(std::string_view html);

private:
    bool Fail(std::string text, std::string source);

    CXmlParseError m_error;
};

}  // namespace scriv
