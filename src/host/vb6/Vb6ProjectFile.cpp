#include "host/vb6/Vb6ProjectFile.h"

#include <algorithm>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

struct ComponentKey {
    std::string_view key;
    Vb6ComponentKind kind;
};

constexpr ComponentKey kComponentKeys[] = {
    { "Form", Vb6ComponentKind::Form },
    { "UserControl", Vb6ComponentKind::UserControl },
    { "UserDocument", Vb6ComponentKind::UserDocument },
    { "PropertyPage", Vb6ComponentKind::PropertyPage },
    { "Designer", Vb6ComponentKind::Designer },
    { "Module", Vb6ComponentKind::Module },
    { "Class", Vb6ComponentKind::Class },
};

// "[MS Transaction Server]" gives "MS Transaction Server".
std::optional<std::string_view> SectionName(std::string_view raw)
{
    std::string_view trimmed = TrimVb6(raw);
    if (trimmed.size() < 2 || trimmed.front() != '[' || trimmed.back() != ']')
        return std::nullopt;
    return trimmed.substr(1, trimmed.size() - 2);
}

}  // namespace

Vb6ProjectFile Vb6ProjectFile::Load(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        Raise(status::kGeneralFailure, "Vb6ProjectFile.Load", "Can't read the project file '" + path + "'");
    return Parse(*bytes, path);
}

Vb6ProjectFile Vb6ProjectFile::Parse(std::string_view bytes, std::string path)
{
    Vb6ProjectFile file;
    file.m_path = std::move(path);
    file.m_lines = SplitRawLines(bytes);
    file.ReadLines();
    // Every project the IDE saves says what it builds; anything else is some
    // other file with the extension, and documenting it would make an empty help.
    static constexpr std::string_view kTypes[] = { "Exe", "OleDll", "OleExe", "Control" };
    std::string type(TrimVb6(file.Value("Type")));
    bool known = std::any_of(std::begin(kTypes), std::end(kTypes), [&](std::string_view t) { return EqualsNoCase(type, t); });
    if (!known || bytes.find('\0') != std::string_view::npos)
        Raise(status::kGeneralFailure, "Vb6ProjectFile.Read",
            "The file '" + file.m_path + "' is no VB6 project: it has no line Type=Exe, OleDll, OleExe or Control.");
    return file;
}

std::string Vb6ProjectFile::Folder() const
{
    return FolderOf(ToNativePath(m_path));
}

// Entries and components from the lines; run again after every change, which
// keeps line numbers right without bookkeeping (project files are small).
void Vb6ProjectFile::ReadLines()
{
    m_entries.clear();
    m_components.clear();
    std::string section;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        std::string_view raw = m_lines[i].bytes;
        if (auto name = SectionName(raw)) {
            section = DecodeVb6(*name);
            continue;
        }
        std::size_t equals = raw.find('=');
        if (equals == std::string_view::npos || TrimVb6(raw.substr(0, equals)).empty())
            continue;
        m_entries.push_back({ section, DecodeVb6(TrimVb6(raw.substr(0, equals))), DecodeVb6(raw.substr(equals + 1)),
            static_cast<int>(i) + 1 });
        if (section.empty())
            AddComponent(m_entries.back());
    }
}

void Vb6ProjectFile::AddComponent(const Vb6ProjectEntry& entry)
{
    auto known = std::find_if(std::begin(kComponentKeys), std::end(kComponentKeys),
        [&](const ComponentKey& candidate) { return EqualsNoCase(entry.key, candidate.key); });
    if (known == std::end(kComponentKeys))
        return;
    Vb6ProjectComponent component;
    component.kind = known->kind;
    component.line = entry.line;
    std::string value(TrimVb6(entry.value));
    std::size_t semicolon = value.find(';');
    bool named = component.kind == Vb6ComponentKind::Module || component.kind == Vb6ComponentKind::Class;
    if (named && semicolon != std::string::npos) {
        std::string path(TrimVb6(std::string_view(value).substr(semicolon + 1)));
        component.name = TrimVb6(std::string_view(value).substr(0, semicolon));
        value = std::move(path);
    }
    component.relativePath = value;
    component.fullPath = ResolveVb6Path(Folder(), value);
    m_components.push_back(std::move(component));
}

const Vb6ProjectEntry* Vb6ProjectFile::FindEntry(std::string_view key) const
{
    auto found = std::find_if(m_entries.begin(), m_entries.end(),
        [&](const Vb6ProjectEntry& entry) { return entry.section.empty() && EqualsNoCase(entry.key, key); });
    return found == m_entries.end() ? nullptr : &*found;
}

std::string Vb6ProjectFile::Value(std::string_view key, std::string_view fallback) const
{
    const Vb6ProjectEntry* entry = FindEntry(key);
    return entry ? entry->Text() : std::string(fallback);
}

bool Vb6ProjectFile::SetHelpFile(std::string_view helpFile)
{
    return SetValue("HelpFile", Vb6Quote(FileNameOf(helpFile)), "Title");
}

bool Vb6ProjectFile::SetValue(std::string_view key, std::string_view value, std::string_view afterKey)
{
    if (value.find_first_of("\r\n") != std::string_view::npos)
        Raise(status::kGeneralFailure, "Vb6ProjectFile.SetValue", "A value of " + std::string(key) + " can't hold a line end");
    if (const Vb6ProjectEntry* entry = FindEntry(key)) {
        std::string bytes = EncodeVb6(entry->key + "=" + std::string(value));
        Vb6RawLine& raw = m_lines[static_cast<std::size_t>(entry->line) - 1];
        if (raw.bytes == bytes)
            return false;
        raw.bytes = std::move(bytes);
    } else {
        const Vb6ProjectEntry* after = afterKey.empty() ? nullptr : FindEntry(afterKey);
        std::size_t at = after ? static_cast<std::size_t>(after->line) : EndOfFirstSection();
        InsertLine(at, EncodeVb6(std::string(key) + "=" + std::string(value)));
    }
    ReadLines();
    m_dirty = true;
    return true;
}

// The position behind the last line of the first section that is not blank.
std::size_t Vb6ProjectFile::EndOfFirstSection() const
{
    std::size_t end = 0;
    for (std::size_t i = 0; i < m_lines.size() && !SectionName(m_lines[i].bytes); ++i) {
        if (!TrimVb6(m_lines[i].bytes).empty())
            end = i + 1;
    }
    return end;
}

void Vb6ProjectFile::InsertLine(std::size_t at, std::string bytes)
{
    std::string end(kCrLf);
    if (at > 0) {
        Vb6RawLine& previous = m_lines[at - 1];
        if (previous.end.empty()) {
            // The previous line ended the file without a line end; it gets
            // the file's line end and the new last line goes without one.
            previous.end = m_lines.front().end.empty() ? std::string(kCrLf) : m_lines.front().end;
            end.clear();
        } else {
            end = previous.end;
        }
    } else if (!m_lines.empty() && !m_lines.front().end.empty()) {
        end = m_lines.front().end;
    }
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), Vb6RawLine { std::move(bytes), std::move(end) });
}

bool Vb6ProjectFile::Save()
{
    if (!m_dirty)
        return false;
    if (m_path.empty() || !WriteFileBytes(m_path, Bytes()))
        Raise(status::kGeneralFailure, "Vb6ProjectFile.Save", "Can't write the project file '" + m_path + "'");
    m_dirty = false;
    return true;
}

}  // namespace scriv
