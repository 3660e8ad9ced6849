#pragma once

#include <string>
#include <string_view>

// Conversions between the UTF-8 text used inside the program and the
// single-byte code pages of the files that Windows tools read and write.
namespace scriv {

// The code page that stands for the "system code page": windows-1252 unless
// the settings choose another.
const std::string& SystemCodePage();
void SetSystemCodePage(std::string codePage);

// Bytes in the given encoding to UTF-8. Bytes that the encoding does not define
// are taken as Latin-1 so that nothing is lost.
std::string ConvertToUtf8(std::string_view bytes, std::string_view fromEncoding);
// UTF-8 to the given encoding; characters it cannot hold are transliterated
// where possible, otherwise written as "?".
std::string ConvertFromUtf8(std::string_view text, std::string_view toEncoding);

// UTF-8 to the given encoding for text that an HTML reader takes: a
// character the encoding cannot hold becomes a numeric character reference
// ("&#1575;") instead of a guess.
std::string ConvertFromUtf8ForHtml(std::string_view text, std::string_view toEncoding);

inline std::string FromSystemCodePage(std::string_view bytes) { return ConvertToUtf8(bytes, SystemCodePage()); }
inline std::string ToSystemCodePage(std::string_view text) { return ConvertFromUtf8(text, SystemCodePage()); }

// The ANSI code page of a Windows font character set ("windows-1256" for 178,
// Arabic), or "" for a character set that names none: 0 (ANSI), 1 (default),
// 2 (symbol) and any number Windows does not use.
std::string CodePageOfFontCharset(int charset);

// The Windows ANSI code page that an encoding name stands for, in the name
// iconv knows it by ("windows-1251" for "windows-1251", "CP932" for
// "shift_jis", "CP949" for "ks_c_5601-1987"); "" for an encoding that is no
// Windows ANSI code page (UTF-8, ISO 8859, KOI8 ...).
std::string WindowsAnsiCodePage(std::string_view encoding);

// True when iconv knows the encoding name.
bool IsKnownEncoding(std::string_view encoding);

}  // namespace scriv
