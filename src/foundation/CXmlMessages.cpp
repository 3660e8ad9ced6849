#include "foundation/CXmlMessages.h"

#include "foundation/CXMLFile.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

std::string CXmlMessages::GetMessage(std::string_view code) const
{
    const std::string* text = m_messages.Find(code);
    return text ? *text : std::string();
}

std::string CXmlMessages::GetMessageWithParams(std::string_view code, const std::vector<std::string>& params) const
{
    return ReplacePlaceholders(GetMessage(code), params);
}

void CXmlMessages::Clear()
{
    m_messages.Clear();
    m_replaceCodes.clear();
    m_replaceValues.clear();
}

void CXmlMessages::Reload(std::string_view path)
{
    Clear();
    m_path.clear();
    Load(path);
}

void CXmlMessages::Load(std::string_view path)
{
    CXMLFile file;
    std::uint32_t code = file.Load(path);
    Clear();
    m_path = std::string(path);
    if (code != status::kOk)
        Raise(code, "CXmlMessages.Load", file.XmlParseError().Reason() + " - " + FormatCode(code));
    pugi::xml_node root = file.SelectSingleNode("//Messages");
    for (pugi::xml_node row : root.children()) {
        if (row.type() != pugi::node_element)
            continue;
        std::string rowCode = AttributeNoCase(row, "Code");
        std::string text = AttributeNoCase(row, "Text");
        std::string replacement = AttributeNoCase(row, "T");
        if (!rowCode.empty() && !text.empty())
            m_messages.Add(rowCode, text);
        if (!replacement.empty()) {
            m_replaceCodes.push_back(rowCode);
            m_replaceValues.push_back(replacement);
        }
    }
}

std::string CXmlMessages::ReplaceParameters(std::string_view text) const
{
    std::string result(text);
    for (std::size_t i = 0; i < m_replaceCodes.size(); ++i)
        if (!m_replaceCodes[i].empty())
            result = ReplaceAll(result, m_replaceCodes[i], m_replaceValues[i]);
    return result;
}

std::string FindMessagesFile(std::string_view templatesRoot, std::string_view language)
{
    std::string localized = AddBackslash(templatesRoot) + "Localized/";
    if (!language.empty()) {
        std::string candidate = localized + std::string(language) + "/Messages.xml";
        if (FileExists(candidate))
            return candidate;
    }
    return localized + "EN/Messages.xml";
}

std::string ReplacePlaceholders(std::string_view text, const std::vector<std::string>& params)
{
    // One pass, so that a parameter holding "{2}" is not replaced again.
    std::string result;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t open = text.find('{', pos);
        if (open == std::string_view::npos)
            break;
        std::size_t close = text.find('}', open + 1);
        if (close == std::string_view::npos)
            break;
        std::string_view inside = text.substr(open + 1, close - open - 1);
        std::size_t number = 0;
        bool digitsOnly = !inside.empty() && inside.size() <= 9 && inside.find_first_not_of("0123456789") == std::string_view::npos;
        for (char digit : digitsOnly ? inside : std::string_view())
            number = number * 10 + static_cast<std::size_t>(digit - '0');
        if (number >= 1 && number <= params.size()) {
            result.append(text.substr(pos, open - pos));
            result += params[number - 1];
            pos = close + 1;
        } else {
            result.append(text.substr(pos, open + 1 - pos));
            pos = open + 1;
        }
    }
    result.append(text.substr(pos));
    return result;
}

}  // namespace scriv
