#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text helpers over UTF-8 strings. Case-insensitive operations fold case by
// Unicode rules (C.UTF-8), so "É" and "é" compare equal like "A" and "a".
namespace scriv {

// --- case ---
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
// Three-way comparison without regard to case, as a text sort needs.
int CompareNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
bool EndsWithNoCase(std::string_view text, std::string_view suffix);
// Byte position of the first match at or after pos, or npos.
std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t pos = 0);
bool ContainsNoCase(std::string_view text, std::string_view what);
// True for a letter of any script (the test that the system calls "alphabetic").
bool IsAlphabetic(char32_t c);

// --- replacing ---
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);
std::string ReplaceAllNoCase(std::string_view text, std::string_view find, std::string_view replacement);
std::string ReplaceFirst(std::string_view text, std::string_view find, std::string_view replacement);
std::string RemoveAll(std::string_view text, std::string_view what);

// --- trimming: Trim takes blanks only; TrimWhitespace also tabs and line ends ---
std::string Trim(std::string_view text);
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);
std::string TrimWhitespace(std::string_view text);
// Drops every trailing CR and LF.
std::string StripLineEnds(std::string_view text);

// --- splitting and joining ---
// Split at every occurrence of separator; an empty text gives one empty part.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
// Split at line ends (CR LF, LF or CR).
std::vector<std::string> SplitLines(std::string_view text);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// --- numbers ---
// The leading number of a text as a 32-bit value ("12abc" gives 12, "" gives 0).
std::int32_t ToInt(std::string_view text);
std::optional<std::int64_t> ParseInteger(std::string_view text);
bool IsNumeric(std::string_view text);
std::optional<double> ParseNumber(std::string_view text);

// --- UTF-8 ---
std::u32string Utf8ToUtf32(std::string_view text);
std::string Utf32ToUtf8(std::u32string_view text);
std::string CodePointToUtf8(char32_t c);
// Number of characters (code points) in a UTF-8 text.
std::size_t CharCount(std::string_view text);
// The first count characters of a UTF-8 text.
std::string LeftChars(std::string_view text, std::size_t count);
bool IsValidUtf8(std::string_view text);

// --- booleans as text ---
// "true"/"false" as the settings and attributes write them.
inline std::string BoolText(bool value) { return value ? "true" : "false"; }

// The line end of every file the system writes.
inline constexpr std::string_view kCrLf = "\r\n";

// Cut to 32 characters and "..." when longer.
std::string TruncateForCaption(std::string_view text);

}  // namespace scriv
