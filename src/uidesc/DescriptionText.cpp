#include "uidesc/DescriptionText.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv::desc {

std::string AttributeReader::Text(const char* name) const
{
    return m_element.attribute(name).value();
}

int AttributeReader::Number(std::string_view text, const char* name, int absent)
{
    if (Trim(text).empty())
        return absent;
    std::optional<std::int64_t> value = ParseInteger(text);
    if (!value || *value < INT32_MIN || *value > INT32_MAX) {
        if (m_problem.empty())
            m_problem = "Invalid number '" + std::string(text) + "' in attribute " + name + " of element "
                + m_element.name();
        return absent;
    }
    return static_cast<int>(*value);
}

int AttributeReader::Int(const char* name, int absent)
{
    return Number(Text(name), name, absent);
}

std::pair<int, int> AttributeReader::Pair(const char* name)
{
    std::vector<std::string> parts = Split(Text(name), ",");
    return { Number(parts[0], name, 0), parts.size() > 1 ? Number(parts[1], name, 0) : 0 };
}

void AttributeReader::Four(const char* name, int (&values)[4], int absent)
{
    std::vector<std::string> parts = Split(Text(name), ",");
    for (std::size_t i = 0; i < 4; ++i)
        values[i] = i < parts.size() ? Number(parts[i], name, absent) : absent;
}

std::string BaseName(const pugi::xml_node& element)
{
    std::string_view name = element.name();
    std::size_t colon = name.find(':');
    return std::string(colon == std::string_view::npos ? name : name.substr(colon + 1));
}

void Spaced(std::string& out, std::string_view name, std::string_view value)
{
    out.append(name).append(" = \"").append(value).append("\" ");
}

void Tight(std::string& out, std::string_view name, std::string_view value)
{
    out.append(name).append("=\"").append(value).append("\" ");
}

std::string Plain(std::string_view value)
{
    std::string out;
    out.reserve(value.size());
    for (char c : value) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string JoinBare(std::string_view fileName, std::string_view folder)
{
    if (fileName.empty() || folder.empty() || FileNameOf(fileName) != fileName)
        return std::string(fileName);
    return JoinPath(folder, fileName);
}

std::string ProjectFolder()
{
    CAddInProject* project = CurrentAddInProject();
    return project ? project->Folder : std::string();
}

std::string ProjectPicsFolder()
{
    CAddInProject* project = CurrentAddInProject();
    return project ? project->PicsSubfolderPath() : std::string();
}

bool IndexesFromCaption()
{
    // 0 shows objects by their captions, any other value by their names.
    return Parameters().IdentifyControls() == 0;
}

}  // namespace scriv::desc
