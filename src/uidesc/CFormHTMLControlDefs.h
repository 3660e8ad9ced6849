#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedCollection.h"
#include "uidesc/CFormHTMLControlDef.h"

namespace scriv {

// Recovers from a finished or hand-edited topic page which controls and menus
// it documents. Pages of different generator versions mark their sections in
// different ways; the version the page declares picks the reader.
class CFormHTMLControlDefs {
public:
    // Definitions keyed by bookmark; of two with one bookmark the first stays.
    using Definitions = KeyedCollection<CFormHTMLControlDef>;

    // --- reading a page ---
    // Reads the page and fills Controls and Menus; beginTags name the heading
    // elements whose blocks document one item each ("H2" when none are given).
    // False when the page cannot be read (the lists are then empty).
    bool Parse(std::string_view htmlFileFullPath, const std::vector<std::string>& beginTags = {});
    // The same over a page's text.
    void ParseText(std::string_view html, const std::vector<std::string>& beginTags = {});

    // Pages without markers: every "<a name=...>...</a>" is one definition,
    // added to Controls unless its bookmark is excluded. True when any was added.
    bool Parse1(std::string_view html);
    // Pages whose headings carry the anchors: each block between a begin tag and
    // its closing tag is one definition. A heading "Menus:" or "Controls:" sends
    // the blocks after it to Menus or Controls (Controls until one is met).
    // Excluded bookmarks are dropped. True when any was added.
    bool Parse2(std::string_view html, const std::vector<std::string>& beginTags = {});
    // Pages with the comment markers "<!-- + CONTROL " ... "<!-- - CONTROL " and
    // the same for MENU.
    void ParseCommentMarkers(std::string_view html);

    // --- results ---
    Definitions& Controls() { return m_controls; }
    const Definitions& Controls() const { return m_controls; }
    Definitions& Menus() { return m_menus; }
    const Definitions& Menus() const { return m_menus; }
    // The form the page documents, from its meta values ("" when not given).
    const std::string& FormName() const { return m_formName; }
    const std::vector<std::string>& ExcludeList() const { return m_excludeList; }
    // Generator version of the page: major, minor, build, revision.
    const std::array<int, 4>& Version() const { return m_version; }
    // True when the page declares a version.
    bool HasVersion() const { return m_hasVersion; }

    // Value of a page's meta element: the text in double quotes behind the first
    // "=" that follows the key, unless the element ends first; "" when missing.
    static std::string MetaValue(std::string_view html, std::string_view key);

private:
    void Clear();
    void ReadMetaValues(std::string_view html);
    bool IsExcluded(const CFormHTMLControlDef& definition) const;
    bool AddUnlessExcluded(Definitions& list, CFormHTMLControlDef definition);
    void ReadMarkedBlocks(std::string_view html, std::string_view begin, std::string_view end, bool isMenu);

    Definitions m_controls;
    Definitions m_menus;
    std::string m_formName;
    std::vector<std::string> m_excludeList;
    std::array<int, 4> m_version { 2, 0, 1, 1 };
    bool m_hasVersion { false };
};

}  // namespace scriv
