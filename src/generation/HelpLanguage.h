#pragma once

#include <string>
#include <string_view>

// The language and code page of what the help compiler and viewer read: the
// contents, the index, the compiler's project file and the text popups. The
// pages themselves are UTF-8.
namespace scriv {

// The language code of the shipped settings; a project that still has it
// has not been given a language by the person.
inline constexpr std::string_view kShippedLanguageCode = "1033";

// The Windows code page of the compiler's files: the project's Charset when
// it is one, else that of the project's language (LanguageCode), else the
// system code page.
std::string HelpCompilerCodePage();

// Gives a project whose language is still the shipped one the first language
// of the application's code page (Arabic for "windows-1256", Russian for
// "windows-1251" ...), so that the help viewer reads the application's texts
// in the right script. True when the language changed.
bool AdoptApplicationLanguage(std::string_view applicationCodePage);

// The text of the contents or the index in HelpCompilerCodePage(); what that
// code page cannot hold becomes a numeric character reference.
std::string SitemapInHelpCompilerCodePage(std::string_view text);
// The text of the compiler's project or popups file in HelpCompilerCodePage().
std::string InHelpCompilerCodePage(std::string_view text);

}  // namespace scriv
