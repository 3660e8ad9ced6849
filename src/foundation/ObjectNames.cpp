#include "foundation/ObjectNames.h"

#include <memory>
#include <optional>

#include "foundation/AppFolders.h"
#include "foundation/CXMLFile.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Exactly four hexadecimal digits as a UTF-16 unit.
std::optional<char16_t> ParseKey(std::string_view key)
{
    if (key.size() != 4)
        return std::nullopt;
    unsigned value = 0;
    for (char c : key) {
        unsigned digit = 0;
        if (c >= '0' && c <= '9')
            digit = c - '0';
        else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'f')
            digit = (c | 0x20) - 'a' + 10;
        else
            return std::nullopt;
        value = value * 16 + digit;
    }
    return static_cast<char16_t>(value);
}

std::unique_ptr<ObjectNameTable>& ModuleTable()
{
    static std::unique_ptr<ObjectNameTable> table;
    return table;
}

const ObjectNameTable& Table()
{
    auto& table = ModuleTable();
    if (!table) {
        table = std::make_unique<ObjectNameTable>();
        table->Load(Folders().SettingsFolder() + std::string(kObjectNameEncodingFile));
    }
    return *table;
}

}  // namespace

std::size_t ObjectNameTable::Load(std::string_view path)
{
    CXMLFile file;
    if (file.Load(path) != 0)
        return 0;
    pugi::xml_node root = file.SelectSingleNode("//EncodingTable");
    std::size_t added = 0;
    for (pugi::xml_node row : root.children()) {
        if (row.type() != pugi::node_element)
            continue;
        auto code = ParseKey(AttributeNoCase(row, "u"));
        std::string replacement = AttributeNoCase(row, "t");
        if (code && !replacement.empty() && Add(*code, std::move(replacement)))
            ++added;
    }
    return added;
}

bool ObjectNameTable::Add(char16_t code, std::string replacement)
{
    return m_rows.emplace(code, std::move(replacement)).second;
}

const std::string* ObjectNameTable::Find(char16_t code) const
{
    auto it = m_rows.find(code);
    return it == m_rows.end() ? nullptr : &it->second;
}

std::string ObjectNameTable::Encode(std::string_view text) const
{
    std::string out;
    out.reserve(text.size());
    for (char32_t c : Utf8ToUtf32(text)) {
        const std::string* replacement = c <= 0xFFFF ? Find(static_cast<char16_t>(c)) : nullptr;
        if (replacement)
            out += *replacement;
        else
            out += CodePointToUtf8(c);
    }
    return out;
}

std::string EncodeObjectName(std::string_view text)
{
    return Table().Encode(text);
}

std::string GetComponentFileName(std::string_view first, std::string_view second, std::string_view third)
{
    std::string name(first);
    if (!second.empty())
        name += "_" + std::string(second);
    if (!third.empty())
        name += "_" + std::string(third);
    return EncodeObjectName(name);
}

std::size_t LoadObjectNameEncoding(std::string_view path)
{
    auto table = std::make_unique<ObjectNameTable>();
    std::size_t rows = table->Load(path);
    ModuleTable() = std::move(table);
    return rows;
}

}  // namespace scriv
