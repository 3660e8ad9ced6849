#pragma once

#include <string>
#include <string_view>

// The few address helpers that links and pictures of the pages need.
namespace scriv {

// "%41" becomes "A"; a "%" without two hex digits stays as it is.
std::string PercentDecode(std::string_view text);
// An address as a relationship target holds it: blanks, quotes, angle
// brackets and bytes outside ASCII percent-encoded, "\" turned into "/".
std::string UriForRelationship(std::string_view href);
// "file://" and the absolute path, percent-encoded but for "/" and the
// characters that need no encoding.
std::string FileUrl(std::string_view path);

}  // namespace scriv
