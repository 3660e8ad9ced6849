#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the VB6 file readers share: lines kept as the bytes of the file, the
// code page at the file edge, the quoting of VB strings, and the reading of one
// line of a form description. Structure is read on the raw bytes (every byte
// that matters is ASCII); only names, values and code are decoded.
namespace scriv {

// --- lines as bytes ---

// One line of a file: its bytes without the line end, and the line end itself
// ("\r\n", "\n", "\r" or "" for a last line without one).
struct Vb6RawLine {
    std::string bytes;
    std::string end;
};

// Cuts bytes into lines; joining the result gives back exactly the same bytes.
std::vector<Vb6RawLine> SplitRawLines(std::string_view bytes);
// The bytes of the lines, each followed by its own line end.
std::string JoinRawLines(const std::vector<Vb6RawLine>& lines);

// --- encoding at the file edge ---

// Bytes in a code page (the system code page when none is named) as UTF-8;
// pure ASCII is copied as it stands.
std::string DecodeVb6(std::string_view bytes, std::string_view codePage = {});
// UTF-8 as bytes in a code page (the system code page when none is named).
std::string EncodeVb6(std::string_view text, std::string_view codePage = {});

// --- small syntax ---

// True for a blank or a tab.
inline bool IsVb6Blank(char c) { return c == ' ' || c == '\t'; }
// The text without leading and trailing blanks and tabs.
std::string_view TrimVb6(std::string_view text);
// The text of a VB string literal: quotes around it removed, doubled quotes
// made single; a text that is not quoted comes back as it stands.
std::string Vb6Unquote(std::string_view text);
// A VB string literal for a text: in quotes, inner quotes doubled.
std::string Vb6Quote(std::string_view text);
// "frmMain.frm(12): " - where a fault stands, as every reader reports it.
std::string Vb6Place(std::string_view fileName, int line);
// A path from a project file (relative with "\" or "..\", or absolute) as a
// native path: relative ones are joined to folder and normalized; UNC and
// drive paths cannot be resolved here and only get "/" for "\".
std::string ResolveVb6Path(std::string_view folder, std::string_view path);
// The file of the same name as path in folder (in any case of letters), when
// path names no file and that one exists; "" otherwise. A project made on
// another machine names its files by that machine's paths, and the files
// usually came along beside the project.
std::string FindMovedVb6File(std::string_view path, std::string_view folder);

// --- a line of a form description ---

// One line of a form's description taken apart. The views point into the raw
// line that was read.
struct Vb6Line {
    enum class Kind { Blank, Begin, End, BeginProperty, EndProperty, Property };
    Kind kind { Kind::Blank };
    std::string_view type; // Begin: "VB.CommandButton" or "{GUID}"
    std::string_view name; // Begin, BeginProperty, Property
    std::string_view guid; // BeginProperty: "{...}" or empty
    std::string_view value; // Property: the value as written, without comment
    std::string_view comment; // Property: what follows "'" after the value
    std::size_t valueOffset { 0 }; // Property: where the value starts in the line
};

// Reads one raw line; nothing when it cannot be read, with the reason in fault.
std::optional<Vb6Line> ReadVb6Line(std::string_view raw, std::string& fault);

// True when the first word of a raw line is the keyword (without regard to
// case) and it stands alone or is followed by a blank.
bool StartsWithVb6Keyword(std::string_view raw, std::string_view keyword);

}  // namespace scriv
