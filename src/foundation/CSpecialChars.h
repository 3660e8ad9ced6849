#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace scriv {

// The HTML 4 character entities: 251 rows of a name ("&agrave;") and its
// numeric reference ("&#224;"). "&euro;" is not in the table, and "&and;" and
// "&or;" stand with &#8869; and &#8870; instead of &#8743; and &#8744;. Both
// are deliberate and kept: the table answers as it always has.
//
// Names compare without regard to case, but of two names that differ only in
// case the exact one wins: "&AGRAVE;" is "&#192;", "&agrave;" is "&#224;".
class CSpecialChars {
public:
    struct Row {
        std::string_view name;
        std::string_view reference;
    };

    CSpecialChars();

    // The numeric reference of a named entity ("&agrave;" -> "&#224;"), or ""
    // when the name is unknown.
    std::string GetNumCode(std::string_view name) const;
    // The name of a numeric reference ("&#224;" -> "&agrave;"), or "" when the
    // reference is not in the table.
    std::string GetCharCode(std::string_view reference) const;

    // The rows in table order.
    static std::span<const Row> Rows();
    // The longest name or reference of the table, in bytes.
    static std::size_t LongestKey();

private:
    // Keys are lower-cased; values point into the static table.
    struct Maps {
        std::unordered_map<std::string, const Row*> byName;
        std::unordered_map<std::string, const Row*> byReference;
    };

    // Rows whose keys are free go to the first maps; a row whose name has a
    // case twin earlier in the table, or whose reference is named already,
    // goes to the second, where only an exact match counts.
    Maps m_first;
    Maps m_second;
};

// The one table of the process, built on first use.
const CSpecialChars& SpecialChars();

}  // namespace scriv
