#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

// The transliteration of object names into file names. Generated pages and
// images are named after forms and controls, whose names may hold letters of
// any script; the table ObjectNameEncoding.xml of the settings folder turns
// each such character into Latin letters.
namespace scriv {

// Rows of character code to replacement text. The file has an EncodingTable
// element whose children carry "u" (four hexadecimal digits) and "t" (the
// replacement); attribute names and hexadecimal digits ignore case, rows with
// an empty or malformed "u" or an empty "t" are left out, and of two rows for
// one character the first counts.
class ObjectNameTable {
public:
    // Adds the rows of a file; answers the number of rows added (0 when the
    // file is missing or is no table).
    std::size_t Load(std::string_view path);
    // Adds one row unless the character has one already.
    bool Add(char16_t code, std::string replacement);

    // The replacement of a character, or nullptr.
    const std::string* Find(char16_t code) const;
    std::size_t Count() const { return m_rows.size(); }

    // Each character with a row becomes its replacement; the others, and
    // characters beyond U+FFFF, stay as they are.
    std::string Encode(std::string_view text) const;

private:
    std::unordered_map<char16_t, std::string> m_rows;
};

// The transliteration behind every generated file name, through the table of
// the settings folder (read once, on first use).
std::string EncodeObjectName(std::string_view text);

// first, "_" + second when second is not empty, "_" + third likewise, all
// through EncodeObjectName: ("Form1", "cmdOK") gives "Form1_cmdOK".
std::string GetComponentFileName(std::string_view first, std::string_view second = {}, std::string_view third = {});

// Replaces the table of EncodeObjectName by the one in a file; answers the
// number of rows. Without a call the settings folder's file is used.
std::size_t LoadObjectNameEncoding(std::string_view path);

// The file name of the table in the settings folder.
inline constexpr std::string_view kObjectNameEncodingFile = "ObjectNameEncoding.xml";

}  // namespace scriv
