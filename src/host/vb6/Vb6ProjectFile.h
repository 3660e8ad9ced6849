#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/vb6/Vb6Syntax.h"

// A VB6 project file (.vbp): "Key=Value" lines, a first section without a
// name and further "[Name]" sections. Paths in it are relative to the
// project's folder and written with "\".
//
// Writing back changes one line or adds one; every other byte of the file,
// line ends included, stays as it was. Failures raise ScrivError (0x80040001).
namespace scriv {

enum class Vb6ComponentKind { Form, UserControl, UserDocument, PropertyPage, Designer, Module, Class };

// One "Key=Value" line.
struct Vb6ProjectEntry {
    // Empty for the first section, else the name between the brackets.
    std::string section;
    // As written: "Form", "HelpFile", "MajorVer".
    std::string key;
    // As written after "=": "\"Orders\"", "1", "modMain; modMain.bas".
    std::string value;
    int line { 0 };

    // The value trimmed, with quotes removed.
    std::string Text() const { return Vb6Unquote(TrimVb6(value)); }
};

// A file of the project: Form=, UserControl=, UserDocument=, PropertyPage=,
// Designer=, Module=Name; file, Class=Name; file.
struct Vb6ProjectComponent {
    Vb6ComponentKind kind { Vb6ComponentKind::Form };
    // The name a Module or Class line gives before ";"; empty for the others,
    // whose names stand in their own files.
    std::string name;
    // As written: "..\shared\frmA.frm".
    std::string relativePath;
    // Native and resolved against the project's folder.
    std::string fullPath;
    int line { 0 };
};

class Vb6ProjectFile {
public:
    // --- reading ---

    // The project file at path, read in the system code page; raises
    // ScrivError when it cannot be read.
    static Vb6ProjectFile Load(const std::string& path);
    // A project file from bytes; path gives the folder that relative paths
    // start from and is where Save writes.
    static Vb6ProjectFile Parse(std::string_view bytes, std::string path);

    const std::string& Path() const { return m_path; }
    // The project's folder, with a final separator.
    std::string Folder() const;

    // Every "Key=Value" line of every section, in file order.
    const std::vector<Vb6ProjectEntry>& Entries() const { return m_entries; }
    // The first entry of the first section with that key (without regard to
    // case), or null.
    const Vb6ProjectEntry* FindEntry(std::string_view key) const;
    // The text of that entry, or fallback when there is none.
    std::string Value(std::string_view key, std::string_view fallback = {}) const;

    // The common entries: "Exe", "OleDll", "OleExe", "Control" for Type.
    std::string Type() const { return Value("Type"); }
    std::string Name() const { return Value("Name"); }
    std::string Title() const { return Value("Title"); }
    std::string HelpFile() const { return Value("HelpFile"); }
    std::string ExeName32() const { return Value("ExeName32"); }
    std::string Startup() const { return Value("Startup"); }
    std::string MajorVer() const { return Value("MajorVer"); }
    std::string MinorVer() const { return Value("MinorVer"); }
    std::string RevisionVer() const { return Value("RevisionVer"); }

    // The project's files in file order.
    const std::vector<Vb6ProjectComponent>& Components() const { return m_components; }

    // --- writing back ---

    // Sets HelpFile="name" to the file name part of helpFile: the line is
    // replaced, or added after Title=, or at the end of the first section.
    // True when the bytes changed.
    bool SetHelpFile(std::string_view helpFile);
    // Sets Key=value (value as written, quotes included) in the first section:
    // the line is replaced, or added after the entry afterKey when there is
    // one, else after the last line of the first section. True when the
    // bytes changed.
    bool SetValue(std::string_view key, std::string_view value, std::string_view afterKey = {});
    bool IsDirty() const { return m_dirty; }
    std::string Bytes() const { return JoinRawLines(m_lines); }
    // Writes the file through a temporary file and a rename when something
    // changed; true when it wrote. Raises ScrivError when the write fails.
    bool Save();

private:
    Vb6ProjectFile() = default;
    void ReadLines();
    void AddComponent(const Vb6ProjectEntry& entry);
    std::size_t EndOfFirstSection() const;
    void InsertLine(std::size_t at, std::string bytes);

    std::string m_path;
    std::vector<Vb6RawLine> m_lines;
    std::vector<Vb6ProjectEntry> m_entries;
    std::vector<Vb6ProjectComponent> m_components;
    bool m_dirty { false };
};

}  // namespace scriv
