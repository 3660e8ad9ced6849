#pragma once

#include <string>
#include <string_view>

// The addresses of pages on disk, in the form a browser gives them: the
// beautifier makes links relative against them, the link check resolves the
// relative links of a page into them.
namespace scriv {

// "file://" + path, with "%", blanks and "#" percent-encoded so that the
// address reads back into the same path. A Windows path ("C:/x") gets
// "file:///C:/x".
std::string FileUrlOfPath(std::string_view path);

// The absolute address that reference, standing in the page at baseUrl, points
// at, as a browser resolves it: a reference with a scheme ("http:",
// "mailto:") stays as it is; "#x" and "?x" stay on the page; "/x" and "//x"
// keep the scheme; anything else is taken from the page's folder, with "." and
// ".." steps worked out. "\" counts as "/" and blanks become "%20". An empty
// reference is the page itself.
std::string ResolveUrl(std::string_view baseUrl, std::string_view reference);

}  // namespace scriv
