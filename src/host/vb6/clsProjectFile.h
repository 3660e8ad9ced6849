#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/vb6/Vb6Syntax.h"

namespace scriv {

// One source file of a project as its project file lists it (Form=, Module=,
// Class=): its type, name and path, its lines, and the comment block at its
// top between a "'+=" line and a "'-=" line.
//
// A file that cannot be read leaves no lines and is traced; writing raises
// ScrivError (0x80040001).
class clsProjectFile {
public:
    // Takes the key of the project line ("Form", "Module", "Class"), the text
    // after "=" ("frmMain.frm", "modMain; modMain.bas") and the project's
    // folder, resolves the path against the folder and reads the file.
    void init(std::string_view fileType, std::string_view value, std::string_view folder);

    // "FORM", "MODULE" or "CLASS".
    const std::string& FileType() const { return m_fileType; }
    // The name a Module or Class line gives; for a form the file's name up to its first ".".
    const std::string& Name() const { return m_name; }
    // The file's native path.
    const std::string& FileName() const { return m_fileName; }
    // False when the file could not be read.
    bool IsRead() const { return m_read; }
    std::size_t LineCount() const { return m_lines.size(); }
    // The file's lines as UTF-8, without line ends.
    std::vector<std::string> Lines() const;

    // The comment lines between the "'+=" and "'-=" lines, each without its
    // "'", joined with CR LF; empty when the file has no such block.
    std::string FileHeader() const;
    // Replaces the block's comment lines with the lines of header, each behind
    // "'"; a file without the block gets one ahead of its code, behind its
    // Attribute lines. Nothing is written until Save; the same header again
    // changes nothing.
    void SetFileHeader(std::string_view header);
    bool IsDirty() const { return m_dirty; }
    // Writes the file through a temporary file and a rename when it changed;
    // true when it wrote. Raises ScrivError when the write fails or the file
    // could not be read in the first place.
    bool Save();

private:
    struct Block {
        std::size_t begin { 0 };
        std::size_t end { 0 };
    };
    std::optional<Block> FindHeader() const;
    std::size_t HeaderPosition() const;
    std::string LineEnd() const;

    std::string m_fileType;
    std::string m_name;
    std::string m_fileName;
    std::vector<Vb6RawLine> m_lines;
    bool m_read { false };
    bool m_dirty { false };
};

}  // namespace scriv
