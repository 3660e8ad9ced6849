#pragma once

#include <string>
#include <string_view>

// Where the page templates of the program are found.
namespace scriv {

// Templates/Parameterized/ below the templates root.
std::string ParameterizedFolder();
// Templates/Localized/<Language>/ when that folder has "Welcome.htm", else Localized/EN/.
std::string LocalizedFolder();
// Templates/Common/.
std::string CommonFolder();

// The template of a topic: the first of the parameterized, localized and common
// folders that holds the file (only its file name counts); the common path when
// none does.
std::string TemplateFullPath(std::string_view fileName);

}  // namespace scriv
