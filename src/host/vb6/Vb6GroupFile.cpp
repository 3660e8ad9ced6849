#include "host/vb6/Vb6GroupFile.h"

#include <algorithm>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vb6/Vb6Syntax.h"

namespace scriv {

Vb6GroupFile Vb6GroupFile::Load(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        Raise(status::kGeneralFailure, "Vb6GroupFile.Load", "Can't read the project group '" + path + "'");
    return Parse(*bytes, path);
}

Vb6GroupFile Vb6GroupFile::Parse(std::string_view bytes, std::string path)
{
    Vb6GroupFile group;
    group.m_path = std::move(path);
    std::vector<Vb6RawLine> lines = SplitRawLines(bytes);
    auto first = std::find_if(lines.begin(), lines.end(), [](const Vb6RawLine& line) { return !TrimVb6(line.bytes).empty(); });
    if (first == lines.end() || !StartsWithVb6Keyword(first->bytes, "VBGROUP")) {
        int line = first == lines.end() ? 1 : static_cast<int>(first - lines.begin()) + 1;
        Raise(status::kGeneralFailure, "Vb6GroupFile.Read",
            Vb6Place(FileNameOf(group.m_path), line) + "this is no VB6 project group: it does not start with VBGROUP");
    }
    group.m_version = DecodeVb6(TrimVb6(TrimVb6(first->bytes).substr(7)));
    std::string folder = FolderOf(ToNativePath(group.m_path));
    for (auto it = first + 1; it != lines.end(); ++it) {
        std::string_view raw = it->bytes;
        std::size_t equals = raw.find('=');
        if (equals == std::string_view::npos)
            continue;
        std::string_view key = TrimVb6(raw.substr(0, equals));
        bool startup = EqualsNoCase(key, "StartupProject");
        if (!startup && !EqualsNoCase(key, "Project"))
            continue;
        std::string relative = DecodeVb6(TrimVb6(raw.substr(equals + 1)));
        group.m_projects.push_back({ relative, ResolveVb6Path(folder, relative), startup, static_cast<int>(it - lines.begin()) + 1 });
    }
    return group;
}

const Vb6GroupProject* Vb6GroupFile::StartupProject() const
{
    auto found = std::find_if(m_projects.begin(), m_projects.end(), [](const Vb6GroupProject& project) { return project.isStartup; });
    return found == m_projects.end() ? nullptr : &*found;
}

}  // namespace scriv
