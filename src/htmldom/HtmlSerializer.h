#pragma once

#include <string>
#include <string_view>

#include "htmldom/HtmlNode.h"

// Writing a tree back as HTML, by the serialization rules of browsers, so that
// parsing the output again gives the same tree.
namespace scriv {

// "&", "<", ">" and U+00A0 as entities.
std::string EscapeHtmlText(std::string_view text);
// "&", "\"" and U+00A0 as entities.
std::string EscapeHtmlAttribute(std::string_view value);

// The node and its descendants. Nodes directly below a document go on lines of
// their own.
std::string SerializeHtml(const HtmlNode& node);
// The descendants only.
std::string SerializeHtmlChildren(const HtmlNode& node);

}  // namespace scriv
