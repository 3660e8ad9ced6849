#pragma once

#include <string>
#include <string_view>

// Tag and attribute names: HTML compares them without regard to ASCII case,
// and a few sets of tags decide how content is parsed and written.
namespace scriv {

std::string AsciiLower(std::string_view text);
bool AsciiEqualsNoCase(std::string_view a, std::string_view b);

// HTML elements that have no end tag (br, img, area ...).
bool IsVoidElement(std::string_view tagName);
// HTML elements whose text is written unescaped (script, style ...).
bool IsRawTextElement(std::string_view tagName);

}  // namespace scriv
