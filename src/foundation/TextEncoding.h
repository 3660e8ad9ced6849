#pragma once

#include <string>
#include <string_view>

// The text filters that every writer of XML and of the contents and index
// files puts its values through.
namespace scriv {

// Makes text safe inside an XML attribute or an HTML Help parameter. Letters
// of any script, digits, blanks and the harmless punctuation pass; a named
// entity of the HTML 4 table becomes its numeric reference ("&amp;" ->
// "&#38;"), a numeric reference of the table stays, and every other character
// (a lone "&" too) becomes "&#" + code point + ";". "/" gives "&#47;".
std::string XmlEncodeChars(std::string_view text);

// Turns numeric references ("&#233;", also "&#xE9;") into their characters,
// then the named entities &amp; &lt; &gt; &lsquo; &rsquo; &ldquo; &rdquo;
// &sbquo; &bdquo; &quot; &#39; &trade; &ndash; &mdash; &copy; &reg; and &circ;
// in that order. "&circ;" gives the euro sign, not a circumflex; the pairing
// is deliberate and kept. Other named entities stay as they are.
std::string DecodeHtmlChars(std::string_view text);

// The entity translation of page captions and titles; the same as DecodeHtmlChars.
std::string DecodeHtmlEntities(std::string_view text);

// The filter of captions and values in the contents and index files: decode
// the entities, drop every double quotation mark, then XmlEncodeChars.
std::string CaptionFilter(std::string_view text);

}  // namespace scriv
