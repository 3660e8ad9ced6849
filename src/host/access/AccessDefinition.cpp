#include "host/access/AccessDefinition.h"

#include <cstdlib>

#include "foundation/CUTF8File.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// The string of a value that starts with a double quote, escapes undone: \" \\ and \NNN (octal).
std::string QuotedText(std::string_view value)
{
    std::string text;
    for (std::size_t i = 1; i < value.size(); ++i) {
        char c = value[i];
        if (c == '"')
            break;
        if (c == '\\' && i + 1 < value.size()) {
            char next = value[i + 1];
            if (next >= '0' && next <= '7' && i + 3 < value.size()) {
                std::string octal(value.substr(i + 1, 3));
                text += static_cast<char>(std::strtol(octal.c_str(), nullptr, 8));
                i += 3;
                continue;
            }
            text += next;
            ++i;
            continue;
        }
        text += c;
    }
    return text;
}

[[noreturn]] void Fail(const std::string& fileName, int line, const std::string& why)
{
    Raise(status::kGeneralFailure, "AccessDefinition.Read", fileName + "(" + std::to_string(line) + "): " + why);
}

}  // namespace

bool AccessBlock::Has(std::string_view name) const
{
    for (const auto& [key, value] : properties)
        if (EqualsNoCase(key, name))
            return true;
    return false;
}

std::string AccessBlock::Text(std::string_view name) const
{
    for (const auto& [key, value] : properties)
        if (EqualsNoCase(key, name))
            return value;
    return {};
}

std::vector<std::string> AccessBlock::Values(std::string_view name) const
{
    std::vector<std::string> values;
    for (const auto& [key, value] : properties)
        if (EqualsNoCase(key, name))
            values.push_back(value);
    return values;
}

double AccessBlock::Number(std::string_view name, double fallback) const
{
    std::optional<double> number = ParseNumber(TrimWhitespace(Text(name)));
    return Has(name) && number ? *number : fallback;
}

bool AccessBlock::Flag(std::string_view name, bool defaultValue) const
{
    if (!Has(name))
        return defaultValue;
    std::string value = TrimWhitespace(Text(name));
    if (EqualsNoCase(value, "NotDefault"))
        return !defaultValue;
    if (EqualsNoCase(value, "True") || value == "-1" || value == "1")
        return true;
    if (EqualsNoCase(value, "False") || value == "0")
        return false;
    return defaultValue;
}

std::vector<const AccessBlock*> AccessBlock::Blocks(std::string_view blockType) const
{
    std::vector<const AccessBlock*> found;
    for (const auto& child : children) {
        if (child->type.empty()) {
            for (const AccessBlock* inner : child->Blocks(blockType))
                found.push_back(inner);
        } else if (EqualsNoCase(child->type, blockType)) {
            found.push_back(child.get());
        }
    }
    return found;
}

std::vector<const AccessBlock*> AccessBlock::Members() const
{
    std::vector<const AccessBlock*> found;
    for (const auto& child : children)
        if (child->type.empty())
            for (const auto& inner : child->children)
                if (!inner->type.empty())
                    found.push_back(inner.get());
    return found;
}

AccessDefinition::AccessDefinition()
    : m_header(std::make_unique<AccessBlock>())
{
    m_object = m_header.get();
}

AccessDefinition::AccessDefinition(AccessDefinition&&) noexcept = default;
AccessDefinition& AccessDefinition::operator=(AccessDefinition&&) noexcept = default;
AccessDefinition::~AccessDefinition() = default;

AccessDefinition AccessDefinition::Parse(std::string_view text, const std::string& fileName)
{
    AccessDefinition definition;
    definition.m_fileName = fileName;
    AccessBlock* current = definition.m_header.get();
    std::vector<std::string> lines = SplitLines(text);
    std::string* lastString = nullptr;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        int lineNumber = static_cast<int>(index) + 1;
        std::string line = TrimWhitespace(lines[index]);
        if (line.empty())
            continue;
        if (current == definition.m_header.get()
            && (StartsWithNoCase(line, "CodeBehindForm") || StartsWithNoCase(line, "CodeBehindReport")))
            break;
        // A string too long for one line goes on in the lines below.
        if (line[0] == '"' && lastString) {
            *lastString += QuotedText(line);
            continue;
        }
        lastString = nullptr;
        if (EqualsNoCase(line, "End")) {
            if (!current->parent)
                Fail(fileName, lineNumber, "End without Begin");
            current = current->parent;
            continue;
        }
        if (EqualsNoCase(line, "Begin") || StartsWithNoCase(line, "Begin ")) {
            auto block = std::make_unique<AccessBlock>();
            block->type = TrimWhitespace(line.substr(5));
            block->parent = current;
            block->line = lineNumber;
            current->children.push_back(std::move(block));
            current = current->children.back().get();
            if (current->parent == definition.m_header.get() && !current->type.empty()
                && definition.m_object == definition.m_header.get())
                definition.m_object = current;
            continue;
        }
        std::size_t equals = line.find('=');
        if (equals == std::string::npos)
            continue;
        std::string name = TrimWhitespace(line.substr(0, equals));
        std::string value = TrimWhitespace(line.substr(equals + 1));
        // Query properties are typed: dbMemo "SQL" ="SELECT ...".
        if (StartsWithNoCase(name, "db") && name.find('"') != std::string::npos)
            name = QuotedText(name.substr(name.find('"')));
        if (EqualsNoCase(value, "Begin")) {
            // A binary value: lines of hex up to its End.
            for (++index; index < lines.size() && !EqualsNoCase(TrimWhitespace(lines[index]), "End"); ++index) { }
            if (index >= lines.size())
                Fail(fileName, lineNumber, "the value of " + name + " does not end");
            continue;
        }
        bool quoted = !value.empty() && value[0] == '"';
        current->properties.emplace_back(name, quoted ? QuotedText(value) : value);
        if (quoted)
            lastString = &current->properties.back().second;
    }
    if (current != definition.m_header.get())
        Fail(fileName, current->line, "the block Begin " + current->type + " does not end");
    return definition;
}

std::optional<std::string> ReadDefinitionFile(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        return std::nullopt;
    if (bytes->size() >= 2 && (*bytes)[0] == '\xFF' && (*bytes)[1] == '\xFE')
        return ConvertToUtf8(std::string_view(*bytes).substr(2), "UTF-16LE");
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != 0)
        return std::nullopt;
    return reader.Text();
}

namespace {

// The object's block in the lines of a definition: where its own properties
// are, and where a new one goes.
struct ObjectLines {
    std::size_t begin { 0 };      // the "Begin Form" line
    std::size_t property { 0 };   // the line of the property sought, or 0
    std::size_t insertAt { 0 };   // before this line a new property goes
    std::string indent;
};

bool StartsBlock(std::string_view trimmed)
{
    return trimmed == "Begin" || StartsWithNoCase(trimmed, "Begin ") || EndsWithNoCase(trimmed, "= Begin")
        || EndsWithNoCase(trimmed, "=Begin");
}

std::optional<ObjectLines> FindObjectLines(const std::vector<std::string>& lines, std::string_view name)
{
    ObjectLines found;
    std::size_t at = 0;
    for (; at < lines.size(); ++at) {
        std::string trimmed = TrimWhitespace(lines[at]);
        if (EqualsNoCase(trimmed, "Begin Form") || EqualsNoCase(trimmed, "Begin Report"))
            break;
    }
    if (at == lines.size())
        return std::nullopt;
    found.begin = at;
    int depth = 1;
    for (std::size_t line = at + 1; line < lines.size() && depth > 0; ++line) {
        std::string trimmed = TrimWhitespace(lines[line]);
        if (trimmed == "End") {
            if (--depth == 0 && found.insertAt == 0)
                found.insertAt = line;
            continue;
        }
        bool block = StartsBlock(trimmed);
        if (depth == 1) {
            if (found.indent.empty())
                found.indent = lines[line].substr(0, lines[line].find_first_not_of(" \t"));
            std::size_t equals = trimmed.find('=');
            if (!block && equals != std::string::npos && EqualsNoCase(TrimWhitespace(trimmed.substr(0, equals)), name))
                found.property = line;
            if (block && found.insertAt == 0)
                found.insertAt = line;
        }
        if (block)
            ++depth;
    }
    if (found.insertAt == 0)
        return std::nullopt;
    if (found.indent.empty())
        found.indent = "    ";
    return found;
}

}  // namespace

bool WriteObjectProperty(const std::string& path, std::string_view name, std::string_view value)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        return false;
    // Access writes UTF-16 with a byte order mark; the other forms are ASCII-compatible.
    bool wide = bytes->size() >= 2 && (*bytes)[0] == '\xFF' && (*bytes)[1] == '\xFE';
    std::string text = wide ? ConvertToUtf8(std::string_view(*bytes).substr(2), "UTF-16LE") : *bytes;
    std::string lineEnd = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    std::vector<std::string> lines = Split(text, lineEnd);
    std::optional<ObjectLines> object = FindObjectLines(lines, name);
    if (!object)
        return false;
    if (object->property != 0) {
        // The name keeps its spelling and spacing; only the value changes.
        std::string& line = lines[object->property];
        line = line.substr(0, line.find('=') + 1) + std::string(value);
    } else {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(object->insertAt),
            object->indent + std::string(name) + " =" + std::string(value));
    }
    text = Join(lines, lineEnd);
    return WriteFileBytes(path, wide ? std::string("\xFF\xFE") + ConvertFromUtf8(text, "UTF-16LE") : text);
}

AccessDefinition AccessDefinition::Load(const std::string& path)
{
    std::optional<std::string> text = ReadDefinitionFile(path);
    if (!text)
        Raise(status::kGeneralFailure, "AccessDefinition.Load", "The definition '" + path + "' cannot be read.");
    return Parse(*text, path);
}

std::optional<std::uint32_t> AccessColour(const std::string& value)
{
    std::optional<std::int64_t> number = ParseInteger(TrimWhitespace(value));
    if (!number)
        return std::nullopt;
    std::uint32_t bits = static_cast<std::uint32_t>(*number);
    if (bits & 0x80000000u)
        return 0x80000000u | (bits & 0xFFu);
    return bits & 0xFFFFFFu;
}

}  // namespace scriv
