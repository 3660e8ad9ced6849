#include "host/CXmlCommand.h"

#include <cctype>

#include "foundation/CXMLFile.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

std::string EscapeXmlText(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\r':
            // A parser folds line ends; a reference keeps the CR.
            out += "&#13;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

bool IsParameterName(std::string_view name)
{
    if (name.empty() || !(std::isalpha(static_cast<unsigned char>(name[0])) || name[0] == '_'))
        return false;
    for (char c : name)
        if (!(std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.'))
            return false;
    return true;
}

}  // namespace

std::string CXmlCommand::GetParamName(std::size_t index) const
{
    if (index == 0 || index > m_params.size())
        return {};
    return m_params[index - 1].first;
}

std::string CXmlCommand::GetParamValue(std::size_t index) const
{
    if (m_name.empty() || index == 0 || index > m_params.size())
        return {};
    if (PollGenerationInterrupt())
        return {};
    return m_params[index - 1].second;
}

std::string CXmlCommand::GetParamValue(std::string_view name) const
{
    if (m_name.empty())
        return {};
    if (PollGenerationInterrupt())
        return {};
    return RawParamValue(name);
}

std::string CXmlCommand::RawParamValue(std::string_view name) const
{
    for (const auto& [key, value] : m_params)
        if (EqualsNoCase(key, name))
            return value;
    return {};
}

bool CXmlCommand::ParamDefined(std::string_view name) const
{
    for (const auto& param : m_params)
        if (EqualsNoCase(param.first, name))
            return true;
    return false;
}

void CXmlCommand::AddParamValue(std::string_view name, std::string value)
{
    for (auto& param : m_params) {
        if (EqualsNoCase(param.first, name)) {
            param.second = std::move(value);
            return;
        }
    }
    m_params.emplace_back(std::string(name), std::move(value));
}

CXmlCommand& CXmlCommand::Build(std::string name, const Parameters& params)
{
    m_name = std::move(name);
    m_params = params;
    std::string text = Serialize();
    return Deserialize(text);
}

std::string CXmlCommand::Serialize() const
{
    std::string out = "<cmd name=\"" + XmlEncodeChars(m_name) + "\"><params ";
    for (const auto& [key, value] : m_params)
        out += key + "=\"" + XmlEncodeChars(value) + "\" ";
    out += "/>";
    // The text is often a document of its own; it is escaped so that it
    // arrives byte for byte.
    if (!m_text.empty())
        out += "<text>" + EscapeXmlText(m_text) + "</text>";
    out += "</cmd>";
    return out;
}

CXmlCommand& CXmlCommand::Deserialize(std::string_view text)
{
    m_name.clear();
    m_params.clear();
    m_text.clear();
    CXMLFile xml;
    bool parsed = false;
    try {
        parsed = xml.LoadXml(text) == 0;
    } catch (const std::exception&) {
        parsed = false;
    }
    if (!parsed) {
        ParseCommandByHand(text);
        return *this;
    }
    pugi::xml_node command = xml.DocumentElement();
    m_name = command.attribute("name").value();
    pugi::xml_node params = SelectNode(xml.Document(), "//cmd/params");
    for (pugi::xml_attribute attribute : params.attributes())
        m_params.emplace_back(attribute.name(), attribute.value());
    pugi::xml_node textNode = SelectNode(xml.Document(), "//cmd/text");
    if (textNode)
        m_text = textNode.child_value();
    return *this;
}

void CXmlCommand::ParseCommandByHand(std::string_view text)
{
    constexpr std::string_view nameMark = "<cmd name=\"";
    std::size_t at = text.find(nameMark);
    if (at != std::string_view::npos) {
        std::size_t start = at + nameMark.size();
        std::size_t end = text.find('"', start);
        m_name = std::string(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
    }
    std::size_t paramsAt = text.find("<params ");
    std::size_t textAt = text.find("<text>");
    std::string_view params = paramsAt == std::string_view::npos
        ? std::string_view()
        : text.substr(paramsAt + 8, (textAt == std::string_view::npos ? text.size() : textAt) - paramsAt - 8);
    std::size_t position = 0;
    while (position < params.size()) {
        std::size_t equals = params.find('=', position);
        if (equals == std::string_view::npos)
            break;
        std::string name = TrimWhitespace(params.substr(position, equals - position));
        std::size_t open = params.find('"', equals);
        if (open == std::string_view::npos)
            break;
        std::size_t close = params.find('"', open + 1);
        if (close == std::string_view::npos)
            close = params.size();
        std::string value(params.substr(open + 1, close - open - 1));
        // Only a real parameter name is taken, so that writing the command
        // again gives a well-formed text.
        if (IsParameterName(name))
            m_params.emplace_back(name, ReplaceSpecialCharsRev(value));
        // The next name starts after the blank before the next "=".
        std::size_t nextEquals = params.find('=', close);
        if (nextEquals == std::string_view::npos)
            break;
        std::size_t blank = params.rfind(' ', nextEquals);
        std::size_t next = blank == std::string_view::npos ? nextEquals : blank + 1;
        if (next <= position)
            break;
        position = next;
    }
    if (textAt != std::string_view::npos) {
        std::size_t end = text.find("</text>", textAt);
        if (end != std::string_view::npos)
            m_text = DecodeHtmlChars(text.substr(textAt + 6, end - textAt - 6));
    }
}

std::string CXmlCommand::ReplaceSpecialCharsRev(std::string_view text)
{
    if (text.find("&#") == std::string_view::npos)
        return std::string(text);
    return DecodeHtmlChars(text);
}

}  // namespace scriv
