#pragma once

#include <string_view>

#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNode.h"

// The bridge to gumbo: its output is copied into the program's own tree, so
// that nothing of gumbo outlives a parse.
namespace scriv {

// Parses a whole page and appends its nodes (the doctype first) to document.
void ParseHtmlInto(HtmlNode& document, std::string_view html);

// The nodes that html gives when parsed as the content of an element named
// contextTag (an unknown tag parses like a div).
HtmlNode::ChildList ParseHtmlFragment(std::string_view html, std::string_view contextTag, HtmlNamespace contextNamespace);

}  // namespace scriv
