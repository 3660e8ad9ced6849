#include "foundation/CXMLFile.h"

#include "foundation/CUTF8File.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Parse failures carry codes in the range of the XML parser's errors.
constexpr std::uint32_t kParseErrorBase = 0xC00CE500;

void LineAndColumn(std::string_view text, std::ptrdiff_t offset, long& line, long& column)
{
    line = 1;
    column = 1;
    if (offset < 0)
        return;
    for (std::ptrdiff_t i = 0; i < offset && i < static_cast<std::ptrdiff_t>(text.size()); ++i) {
        if (text[i] == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
}

// The encoding named by an XML declaration at the start of the bytes, or empty.
std::string XmlDeclaredEncoding(std::string_view bytes)
{
    if (bytes.substr(0, 5) != "<?xml")
        return {};
    std::size_t end = bytes.find("?>");
    if (end == std::string_view::npos)
        return {};
    std::string declaration(bytes.substr(0, end));
    std::size_t at = FindNoCase(declaration, "encoding");
    if (at == std::string::npos)
        return {};
    std::size_t quote = declaration.find_first_of("\"'", at);
    if (quote == std::string::npos)
        return {};
    std::size_t close = declaration.find(declaration[quote], quote + 1);
    if (close == std::string::npos)
        return {};
    return ToLower(declaration.substr(quote + 1, close - quote - 1));
}

}  // namespace

void CXmlParseError::SetErrInfo(std::uint32_t number, std::string text, std::string source)
{
    m_errorCode = number;
    m_reason = std::move(text);
    m_source = std::move(source);
}

std::string CXmlParseError::Describe() const
{
    return FormatCode(m_errorCode) + " - " + m_reason;
}

CXMLFile::CXMLFile()
    : m_document(std::make_shared<pugi::xml_document>())
{
}

std::uint32_t CXMLFile::Parse(std::string_view utf8Text, std::string_view url)
{
    m_document = std::make_shared<pugi::xml_document>();
    m_error.Clear();
    m_error.SetUrl(std::string(url));
    pugi::xml_parse_result result = m_document->load_buffer(utf8Text.data(), utf8Text.size(),
        pugi::parse_default | pugi::parse_declaration | pugi::parse_comments, pugi::encoding_utf8);
    if (result)
        return status::kOk;
    long line = 0, column = 0;
    LineAndColumn(utf8Text, result.offset, line, column);
    std::uint32_t code = kParseErrorBase + static_cast<std::uint32_t>(result.status);
    m_error.SetErrInfo(code,
        std::string(result.description()) + " (line " + std::to_string(line) + ", position " + std::to_string(column) + ")",
        "CXmlFile.Load");
    m_error.SetPosition(line, column);
    return code;
}

std::uint32_t CXMLFile::Load(std::string_view path)
{
    auto bytes = ReadFileText(path);
    if (!bytes) {
        m_document = std::make_shared<pugi::xml_document>();
        m_error.Clear();
        m_error.SetUrl(std::string(path));
        m_error.SetErrInfo(kParseErrorBase + pugi::status_file_not_found, "The system cannot locate the object specified.",
            "CXmlFile.Load");
        return m_error.ErrorCode();
    }
    std::string_view body = *bytes;
    std::string text;
    if (body.substr(0, 3) == "\xEF\xBB\xBF") {
        text = std::string(body.substr(3));
    } else if (body.size() >= 2 && ((body[0] == '\xFF' && body[1] == '\xFE') || (body[0] == '\xFE' && body[1] == '\xFF'))) {
        text = ConvertToUtf8(body, body[0] == '\xFF' ? "UTF-16LE" : "UTF-16BE");
        if (text.substr(0, 3) == "\xEF\xBB\xBF")
            text.erase(0, 3);
    } else {
        std::string declared = XmlDeclaredEncoding(body);
        text = declared.empty() ? std::string(body) : ConvertToUtf8(body, declared);
    }
    return Parse(text, path);
}

std::uint32_t CXMLFile::LoadXml(std::string_view text, bool utf16)
{
    std::string rest(text);
    if (rest.find("<?xml version=\"1.0\"") != std::string::npos) {
        std::size_t end = rest.find("?>");
        if (end == std::string::npos)
            Raise(status::kGeneralFailure, "CXmlFile.LoadXml", "Invalid xml file header");
        rest = TrimWhitespace(rest.substr(end + 2));
    } else {
        rest = TrimWhitespace(rest);
    }
    if (rest.rfind("<?", 0) == 0)
        rest.erase(0, 2);
    else if (rest.empty() || rest.front() != '<')
        rest.insert(0, "<");
    std::string header = utf16 ? "<?xml version=\"1.0\" encoding=\"utf-16\" ?>" : std::string(kXmlHeaderUtf8);
    return Parse(header + "\r\n" + rest, "");
}

std::uint32_t CXMLFile::SaveXml(std::string_view path, std::string_view text)
{
    std::string content(text);
    if (content.find("<?xml") == std::string::npos)
        content = std::string(kXmlHeaderUtf8) + "\r\n" + content;
    CUTF8FileWriter writer;
    writer.AddText(content);
    return writer.SaveFile(path, false) == status::kOk ? status::kOk : status::kGeneralFailure;
}

pugi::xml_node CXMLFile::SelectSingleNode(const char* xpath) const
{
    return SelectNode(*m_document, xpath);
}

pugi::xml_node SelectNode(const pugi::xml_node& from, const char* xpath)
{
    try {
        return from.select_node(xpath).node();
    } catch (const pugi::xpath_exception&) {
        return {};
    }
}

std::string AttributeNoCase(const pugi::xml_node& element, std::string_view name)
{
    for (pugi::xml_attribute attribute : element.attributes())
        if (EqualsNoCase(attribute.name(), name))
            return attribute.value();
    return {};
}

}  // namespace scriv
