#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/KeyedCollection.h"

namespace scriv {

// One language as the wizard offers it and the HTML Help project file names it.
class CCodePage {
public:
    std::string LName; // "English (United States)"
    std::string LCode; // the decimal language code, "1033"
    // Charsets a page in this language can declare, most usual first.
    std::string CP1;
    std::string CP2;
    std::string CP3;
    // The values of the project file's "Language=" and "Default Font=" lines.
    std::string HHPLName; // "0x409 English (United States)"
    std::string HHPDefaultFont; // "Arial,8,0"

    // The key of the page in CCodePages: its language name.
    const std::string& Key() const { return LName; }
};

// The languages of the code pages file (CodePages.xml in the settings folder):
// below the CodePages element, one element per language with the attributes
// LName, LCode, CP1, CP2, CP3, HHPLName and HHPDefaultFont.
class CCodePages {
public:
    // Reads the file, replacing what was loaded. 0 on success; 0x80040004 for
    // a missing file; a file that does not parse is reported with code, reason
    // and path and its code answered; a file without CodePages answers
    // 0x80040001. An element without a name, or with a name already read, is
    // passed over.
    std::uint32_t Load(const std::string& path);
    // Forgets every page.
    void Terminate();

    // The pages in file order, keyed by language name.
    const KeyedCollection<std::unique_ptr<CCodePage>>& Pages() const { return m_pages; }
    std::size_t Count() const { return m_pages.Count(); }
    // The page of a language name, or nothing.
    const CCodePage* Page(std::string_view name) const;
    // The page of a language code ("1033"; blanks around it do not count), or
    // nothing for an empty or unknown code.
    const CCodePage* GetCodePageByLanguageCode(std::string_view code) const;
    // The first language whose own ANSI code page (CP1) is that Windows code
    // page, or nothing.
    const CCodePage* FirstLanguageOfCodePage(std::string_view codePage) const;

private:
    KeyedCollection<std::unique_ptr<CCodePage>> m_pages;
};

}  // namespace scriv
