#include "host/vb6/Vb6Property.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "foundation/StringUtil.h"
#include "host/vb6/Vb6Syntax.h"

namespace scriv {

namespace {

struct HexValue {
    std::uint32_t bits { 0 };
    bool isLong { false }; // "&" suffix or more than four digits
};

// &H8000000F& or &HFF.
std::optional<HexValue> ParseHex(std::string_view value)
{
    if (value.size() < 3 || value[0] != '&' || (value[1] != 'H' && value[1] != 'h'))
        return std::nullopt;
    std::string_view digits = value.substr(2);
    bool suffix = !digits.empty() && digits.back() == '&';
    if (suffix)
        digits.remove_suffix(1);
    if (digits.empty() || digits.size() > 8)
        return std::nullopt;
    HexValue hex;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), hex.bits, 16);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    hex.isLong = suffix || digits.size() > 4;
    return hex;
}

std::optional<double> ParseDecimal(std::string_view value)
{
    if (value.empty() || !std::all_of(value.begin(), value.end(), [](char c) {
            return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
        }))
        return std::nullopt;
    if (value.front() == '+')
        value.remove_prefix(1);
    double number = 0;
    auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || end != value.data() + value.size())
        return std::nullopt;
    return number;
}

bool IsQuoted(std::string_view value)
{
    return value.size() >= 2 && value.front() == '"' && value.back() == '"';
}

}  // namespace

// --- Vb6Property ---

std::optional<std::string> Vb6Property::Text() const
{
    if (Frx())
        return frxText;
    return Vb6Unquote(value);
}

std::optional<double> Vb6Property::Number() const
{
    if (auto hex = ParseHex(value)) {
        if (hex->isLong)
            return static_cast<double>(static_cast<std::int32_t>(hex->bits));
        return static_cast<double>(static_cast<std::int16_t>(hex->bits));
    }
    return ParseDecimal(value);
}

std::optional<bool> Vb6Property::Boolean() const
{
    if (EqualsNoCase(value, "True"))
        return true;
    if (EqualsNoCase(value, "False"))
        return false;
    if (auto number = Number())
        return *number != 0;
    return std::nullopt;
}

std::optional<std::uint32_t> Vb6Property::Colour() const
{
    if (auto hex = ParseHex(value))
        return hex->bits;
    auto number = ParseDecimal(value);
    if (!number || *number < 0 || *number > 4294967295.0 || *number != static_cast<double>(static_cast<std::uint64_t>(*number)))
        return std::nullopt;
    return static_cast<std::uint32_t>(*number);
}

std::optional<Vb6FrxReference> Vb6Property::Frx() const
{
    std::string_view text = value;
    Vb6FrxReference reference;
    if (!text.empty() && text.front() == '$') {
        reference.isText = true;
        text.remove_prefix(1);
    }
    std::size_t colon = text.rfind("\":");
    if (colon == std::string_view::npos || !IsQuoted(text.substr(0, colon + 1)))
        return std::nullopt;
    std::string_view offset = text.substr(colon + 2);
    auto [end, error] = std::from_chars(offset.data(), offset.data() + offset.size(), reference.offset, 16);
    if (offset.empty() || error != std::errc() || end != offset.data() + offset.size())
        return std::nullopt;
    reference.fileName = Vb6Unquote(text.substr(0, colon + 1));
    return reference;
}

// --- Vb6PropertyList ---

std::vector<Vb6PropertyGroup*> Vb6PropertyList::MutableGroups()
{
    std::vector<Vb6PropertyGroup*> groups;
    for (auto& group : m_groups)
        groups.push_back(group.get());
    return groups;
}

const Vb6Property* Vb6PropertyList::FindProperty(std::string_view name) const
{
    auto found = std::find_if(m_properties.begin(), m_properties.end(),
        [&](const Vb6Property& property) { return EqualsNoCase(property.name, name); });
    return found == m_properties.end() ? nullptr : &*found;
}

Vb6Property* Vb6PropertyList::FindPropertyToChange(std::string_view name)
{
    return const_cast<Vb6Property*>(std::as_const(*this).FindProperty(name));
}

const Vb6PropertyGroup* Vb6PropertyList::FindGroup(std::string_view name) const
{
    auto found = std::find_if(m_groups.begin(), m_groups.end(),
        [&](const std::unique_ptr<Vb6PropertyGroup>& group) { return EqualsNoCase(group->Name(), name); });
    return found == m_groups.end() ? nullptr : found->get();
}

std::string Vb6PropertyList::Text(std::string_view name, std::string_view fallback) const
{
    const Vb6Property* property = FindProperty(name);
    std::optional<std::string> text = property ? property->Text() : std::nullopt;
    return text ? *text : std::string(fallback);
}

double Vb6PropertyList::Number(std::string_view name, double fallback) const
{
    const Vb6Property* property = FindProperty(name);
    return property ? property->Number().value_or(fallback) : fallback;
}

bool Vb6PropertyList::Boolean(std::string_view name, bool fallback) const
{
    const Vb6Property* property = FindProperty(name);
    return property ? property->Boolean().value_or(fallback) : fallback;
}

std::uint32_t Vb6PropertyList::Colour(std::string_view name, std::uint32_t fallback) const
{
    const Vb6Property* property = FindProperty(name);
    return property ? property->Colour().value_or(fallback) : fallback;
}

Vb6Property& Vb6PropertyList::AddProperty(Vb6Property property)
{
    auto position = std::find_if(m_properties.begin(), m_properties.end(),
        [&](const Vb6Property& existing) { return existing.line > property.line; });
    return *m_properties.insert(position, std::move(property));
}

Vb6PropertyGroup& Vb6PropertyList::AddGroup(std::unique_ptr<Vb6PropertyGroup> group)
{
    m_groups.push_back(std::move(group));
    return *m_groups.back();
}

void Vb6PropertyList::ShiftLines(int fromLine)
{
    for (Vb6Property& property : m_properties)
        ShiftLine(property.line, fromLine);
    for (auto& group : m_groups)
        group->ShiftLines(fromLine);
}

void Vb6PropertyGroup::ShiftLines(int fromLine)
{
    ShiftLine(m_beginLine, fromLine);
    ShiftLine(m_endLine, fromLine);
    Vb6PropertyList::ShiftLines(fromLine);
}

}  // namespace scriv
