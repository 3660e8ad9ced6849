#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/vb6/Vb6Block.h"
#include "host/vb6/Vb6Syntax.h"

// A VB6 form file as the IDE writes it (.frm, .ctl, .dob, .pag, and the
// header of a .dsr): the description of the form and its controls, the
// attributes, and the code, which is kept as text.
//
// Reading raises ScrivError (0x80040001, source "Vb6FormFile.Read") with a
// description that names the file and the line: "frmMain.frm(12): ...".
// Writing back changes only the lines that were changed; every other byte of
// the file, line ends included, stays as it was.
namespace scriv {

// What the top block of the file is.
enum class Vb6FormKind { Form, MDIForm, UserControl, UserDocument, PropertyPage, Designer };

// Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
struct Vb6ObjectLine {
    // The first text: "{GUID}#version#locale", or "*\A..." for a project in a group.
    std::string reference;
    // The second text, "TABCTL32.OCX", or empty when the line has none.
    std::string fileName;
    int line { 0 };
};

// Attribute VB_Name = "frmMain"
struct Vb6Attribute {
    std::string name;
    // As written: "\"frmMain\"", "False".
    std::string value;
    int line { 0 };

    // The value with quotes removed.
    std::string Text() const { return Vb6Unquote(value); }
};

class Vb6FormFile {
public:
    // --- reading ---

    // The file at path, with the texts that its properties keep in .frx files
    // beside it; raises ScrivError when it cannot be read or is no VB6 form file.
    static Vb6FormFile Load(const std::string& path);
    // The form in bytes; path names the file in messages and is where Save
    // writes. Raises ScrivError when the bytes are no VB6 form file.
    // The texts are read in the code page that the fonts of the form name
    // (the form's own font, else the one most of its controls name), else in
    // the system code page.
    static Vb6FormFile Parse(std::string_view bytes, std::string path);

    // --- what the file holds ---

    const std::string& Path() const { return m_path; }
    // The code page of the file's texts, and whether its fonts named it.
    const std::string& CodePage() const { return m_codePage; }
    bool CodePageFromFonts() const { return m_codePageFromFonts; }
    // The version of the VERSION line: "5.00".
    const std::string& Version() const { return m_version; }
    Vb6FormKind Kind() const { return m_kind; }
    const std::vector<Vb6ObjectLine>& Objects() const { return m_objects; }
    // The top block: the form, user control, user document, property page or
    // designer. A designer's nested blocks are kept as text, not read.
    const Vb6Block& Form() const { return *m_form; }
    const std::vector<Vb6Attribute>& Attributes() const { return m_attributes; }
    // The text of an attribute ("VB_Name"), or empty when the file has none.
    std::string Attribute(std::string_view name) const;
    // The code behind the attributes, as UTF-8 with the file's line ends.
    std::string Code() const;
    // The 1-based line where the code starts (one past the last line when none).
    int CodeLine() const { return m_codeLine; }
    int LineCount() const { return static_cast<int>(m_lines.size()); }

    // --- writing back ---

    // Sets a property of a block of this file to value, written as the file
    // writes values ("17", "\"Orders\"", "-1  'True"): an existing line keeps
    // everything up to its value; a new line is aligned like its neighbours and
    // goes before the block's first nested Begin or BeginProperty, else before
    // its End. True when the file's bytes changed; raises ScrivError when the
    // block is not of this file or the line would not read back.
    bool SetProperty(const Vb6Block& block, std::string_view name, std::string_view value);
    // SetProperty on the top block.
    bool SetFormProperty(std::string_view name, std::string_view value) { return SetProperty(*m_form, name, value); }
    // True when a property was changed since reading or saving.
    bool IsDirty() const { return m_dirty; }
    // The file's bytes as they stand now.
    std::string Bytes() const { return JoinRawLines(m_lines); }
    // Writes the file through a temporary file and a rename when something
    // changed; true when it wrote. Raises ScrivError when the write fails.
    bool Save();

    // --- values as the IDE writes them ---

    // -1  'True or 0   'False.
    static std::string BooleanValue(bool value);
    // A quoted text with inner quotes doubled.
    static std::string TextValue(std::string_view text) { return Vb6Quote(text); }

private:
    class Reader;
    struct Layout;

    Vb6FormFile() = default;
    // Fills in the texts that properties keep in .frx files beside the form.
    void ReadFrxTexts();
    Vb6Block* OwnBlock(const Vb6Block& block);
    Layout LayoutFor(const Vb6Block& block) const;
    bool ChangeLine(Vb6Property& property, std::string_view value);
    void AddLine(Vb6Block& block, std::string_view name, std::string_view value);
    void ShiftLines(int fromLine);

    std::string m_path;
    std::string m_codePage;
    bool m_codePageFromFonts { false };
    std::vector<Vb6RawLine> m_lines;
    std::string m_version;
    Vb6FormKind m_kind { Vb6FormKind::Form };
    std::vector<Vb6ObjectLine> m_objects;
    std::unique_ptr<Vb6Block> m_form;
    std::vector<Vb6Attribute> m_attributes;
    int m_codeLine { 0 };
    bool m_dirty { false };
};

}  // namespace scriv
