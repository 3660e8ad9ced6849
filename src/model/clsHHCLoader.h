#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "foundation/CXMLFile.h"
#include "foundation/KeyedCollection.h"

namespace scriv {

// One topic of an imported contents file: the parameters of its OBJECT
// element, its depth and the topics nested below it.
class clsHHCObjectEntry {
public:
    using Children = std::vector<std::unique_ptr<clsHHCObjectEntry>>;

    // --- parameters, by name without regard to case; the first of a name counts ---
    const KeyedCollection<std::string>& Parameters() const { return m_parameters; }
    // Adds a parameter unless one of that name exists.
    void AddParameter(std::string name, std::string value);
    // The value of a parameter, or "".
    std::string Parameter(std::string_view name) const;

    std::string Name() const { return Parameter("Name"); }
    std::string Local() const { return Parameter("Local"); }
    std::string Comment() const { return Parameter("Comment"); }
    std::string URL() const { return Parameter("URL"); }
    std::string ImageNumber() const { return Parameter("ImageNumber"); }
    std::string Version() const { return Parameter("Version"); }
    std::string SourceApp() const { return Parameter("SourceApp"); }
    std::string SourceObjectType() const { return Parameter("SourceObjectType"); }
    std::string ExtraValue() const { return Parameter("ExtraValue"); }
    std::string Indexes() const { return Parameter("Indexes"); }
    // The skip mark does not survive an import: always "0".
    std::string Skipped() const;
    // The leading number of Version; 1 when it has none.
    int ScrivVersionMajor() const;

    // --- place ---
    int Level() const { return m_level; }
    void SetLevel(int level) { m_level = level; }
    clsHHCObjectEntry* Parent() const { return m_parent; }
    const Children& ChildEntries() const { return m_children; }
    clsHHCObjectEntry* AddChild(std::unique_ptr<clsHHCObjectEntry> child);

    // --- writers ---
    // The entry and its subtree as .hhc lines, indented by 8 blanks a level.
    std::string HHCStr() const;
    // The entry and its subtree as project file elements. numbering counts the
    // entries written so far and names the elements of plain topics.
    std::string XMLSTr(int& numbering) const;

private:
    // The opening tag of the entry's element without its end, and the element's name.
    struct OpeningTag {
        std::string element;
        std::string text;
    };
    OpeningTag Opening(int numbering) const;
    OpeningTag ObjectOpening(bool isForm) const;

    KeyedCollection<std::string> m_parameters;
    int m_level { 0 };
    clsHHCObjectEntry* m_parent { nullptr };
    Children m_children;
};

// Turns a .hhc contents file into the tree of the project file.
class clsHHCLoader {
public:
    // Reads a .hhc (UTF-8 when it is valid UTF-8, else in the system code page),
    // makes its lines well formed and builds the entries. 0, or the code of the
    // parse failure, whose reason XmlParseError keeps; a missing file answers
    // 0x80040001.
    std::uint32_t Load(const std::string& path);
    // The same from text that is already in memory.
    std::uint32_t LoadText(std::string_view text);
    // Writes GetXMLStr to a file. 0, or 0x80040001 when there is nothing to
    // write or the write fails.
    std::uint32_t SaveXml(const std::string& path) const;
    // The XML declaration and the first entry's XMLSTr, or "" without entries.
    std::string GetXMLStr() const;

    const CXmlParseError& XmlParseError() const { return m_parseError; }
    // The first entry (the project), or nothing.
    const clsHHCObjectEntry* FirstEntry() const { return m_entries.empty() ? nullptr : m_entries.front().get(); }
    // The entries that have no parent, in the order of the file.
    const std::vector<std::unique_ptr<clsHHCObjectEntry>>& TopEntries() const { return m_entries; }

    // The lines of a .hhc made well formed XML, joined with CR LF.
    static std::string PrepareText(std::string_view hhcText);

private:
    void Walk(const pugi::xml_node& element, int level, std::vector<clsHHCObjectEntry*>& open);
    void AddEntry(const pugi::xml_node& object, int level, std::vector<clsHHCObjectEntry*>& open);

    std::vector<std::unique_ptr<clsHHCObjectEntry>> m_entries;
    CXmlParseError m_parseError;
};

}  // namespace scriv
