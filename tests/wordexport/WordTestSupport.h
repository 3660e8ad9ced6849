#pragma once

#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "htmldom/HtmlDocument.h"
#include "support/TestSupport.h"
#include "wordexport/HtmlToWordml.h"
#include "wordexport/OoxmlPackage.h"
#include "wordexport/WordDocument.h"

namespace scriv::test {

// The template's readable parts in the source tree.
inline std::string TemplatePartsFolder()
{
    return SourceDataFolder() + "Templates/WordDocTemplate/";
}

inline OoxmlPackage TemplateParts()
{
    return OoxmlPackage::FromFolder(TemplatePartsFolder());
}

// What the body got after the template's own content: the text between the
// template's page break and the section properties.
inline std::string AppendedBody(const WordDocument& document)
{
    std::string xml = document.DocumentXml();
    std::string pageBreak = "<w:br w:type=\"page\"/></w:r></w:p>";
    std::size_t start = xml.find(pageBreak);
    std::size_t end = xml.rfind("<w:sectPr");
    if (start == std::string::npos || end == std::string::npos || end < start)
        return "(template body not found)";
    start += pageBreak.size();
    return xml.substr(start, end - start);
}

inline void AppendPage(WordDocument& document, std::string_view html, const std::string& folder = {},
    const std::string& anchor = "Page", bool linkPictures = false)
{
    auto page = HtmlDocument::Parse(html);
    HtmlToWordmlOptions options;
    options.pageFolder = folder;
    options.pageAnchor = anchor;
    options.linkPictures = linkPictures;
    AppendHtmlBody(document, *page, options);
}

// The body XML that one page gives in a fresh document.
inline std::string ConvertBody(std::string_view html)
{
    WordDocument document(TemplateParts());
    AppendPage(document, html);
    return AppendedBody(document);
}

inline void LoadPart(const OoxmlPackage& package, std::string_view name, pugi::xml_document& doc)
{
    LoadXmlPart(package, name, doc);
}

// Values of an attribute over the nodes an XPath selects, in document order.
inline std::vector<std::string> Values(const pugi::xml_node& root, const char* xpath, const char* attribute)
{
    std::vector<std::string> values;
    for (const pugi::xpath_node& found : root.select_nodes(xpath))
        values.emplace_back(found.node().attribute(attribute).value());
    return values;
}

// A file that looks like a PNG of width x height to anything that reads its header.
inline std::string PngHeader(unsigned width, unsigned height)
{
    std::string bytes("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16);
    for (unsigned value : { width, height })
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>((value >> shift) & 0xFF);
    bytes += std::string("\x08\x02\0\0\0", 5);
    return bytes;
}

}  // namespace scriv::test
