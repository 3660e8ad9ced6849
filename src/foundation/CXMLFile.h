#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace scriv {

// The last failure of parsing a document: a code, the parser's reason and where.
class CXmlParseError {
public:
    std::uint32_t ErrorCode() const { return m_errorCode; }
    const std::string& Reason() const { return m_reason; }
    long Line() const { return m_line; }
    long LinePos() const { return m_linePos; }
    const std::string& Source() const { return m_source; }
    const std::string& Url() const { return m_url; }
    bool Failed() const { return m_errorCode != 0; }

    void SetErrInfo(std::uint32_t number, std::string text, std::string source);
    void SetPosition(long line, long linePos) { m_line = line, m_linePos = linePos; }
    void SetUrl(std::string url) { m_url = std::move(url); }
    void Clear() { *this = CXmlParseError(); }

    // "code - reason" as messages show it.
    std::string Describe() const;

private:
    std::uint32_t m_errorCode { 0 };
    std::string m_reason;
    std::string m_source;
    std::string m_url;
    long m_line { 0 };
    long m_linePos { 0 };
};

// An XML document loaded from a file or text, with the error of the last parse.
// The document is shared so that objects built over its elements can keep it.
class CXMLFile {
public:
    CXMLFile();

    // Loads a file in the encoding its declaration names. 0 or the parse error code.
    std::uint32_t Load(std::string_view path);
    // Parses text; any XML declaration of the text is replaced by a fresh one
    // (utf-16 or utf-8), so the declared encoding of the input never counts.
    // Raises 0x80040001 "Invalid xml file header" for a declaration without "?>".
    std::uint32_t LoadXml(std::string_view text, bool utf16 = false);
    // Writes text as UTF-8 without a byte order mark, adding the declaration
    // when the text lacks it. 0 or 0x80040001.
    std::uint32_t SaveXml(std::string_view path, std::string_view text);

    pugi::xml_document& Document() { return *m_document; }
    const pugi::xml_document& Document() const { return *m_document; }
    std::shared_ptr<pugi::xml_document> SharedDocument() const { return m_document; }
    pugi::xml_node DocumentElement() const { return m_document->document_element(); }
    // The first node that an XPath expression selects, or an empty node.
    pugi::xml_node SelectSingleNode(const char* xpath) const;

    const CXmlParseError& XmlParseError() const { return m_error; }

private:
    std::uint32_t Parse(std::string_view utf8Text, std::string_view url);

    std::shared_ptr<pugi::xml_document> m_document;
    CXmlParseError m_error;
};

// The value of an attribute compared by name without regard to case, or "".
std::string AttributeNoCase(const pugi::xml_node& element, std::string_view name);
// The first node an XPath selects below a node, or an empty node; never throws.
pugi::xml_node SelectNode(const pugi::xml_node& from, const char* xpath);

// The XML declaration every file of the program starts with.
inline constexpr std::string_view kXmlHeaderUtf8 = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>";

}  // namespace scriv
