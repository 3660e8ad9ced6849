#include "studio/StudioFileAccess.h"

#include <algorithm>

#include "foundation/Paths.h"

namespace scriv::studio {

namespace fs = std::filesystem;

namespace {

std::optional<fs::path> Canonical(const fs::path& path)
{
    std::error_code error;
    fs::path resolved = fs::canonical(path, error);
    if (error)
        return std::nullopt;
    return resolved;
}

bool IsUsablePath(std::string_view path)
{
    return !path.empty() && path.front() == '/' && path.find('\0') == std::string_view::npos;
}

}  // namespace

void StudioFileAccess::SetRoots(const std::vector<std::string>& folders)
{
    std::vector<std::string> roots;
    for (const std::string& folder : folders) {
        if (!IsUsablePath(folder))
            continue;
        std::optional<fs::path> resolved = Canonical(folder);
        std::error_code error;
        if (!resolved || !fs::is_directory(*resolved, error))
            continue;
        roots.push_back(AddBackslash(resolved->string()));
    }
    std::sort(roots.begin(), roots.end());
    roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
    std::lock_guard lock(m_mutex);
    m_roots = std::move(roots);
}

std::vector<std::string> StudioFileAccess::Roots() const
{
    std::lock_guard lock(m_mutex);
    return m_roots;
}

bool StudioFileAccess::InsideLocked(const std::string& resolved) const
{
    std::string candidate = AddBackslash(resolved);
    for (const std::string& root : m_roots)
        if (candidate.compare(0, root.size(), root) == 0)
            return true;
    return false;
}

bool StudioFileAccess::Inside(const fs::path& resolved) const
{
    std::lock_guard lock(m_mutex);
    return InsideLocked(resolved.string());
}

std::optional<fs::path> StudioFileAccess::Resolve(std::string_view path) const
{
    if (!IsUsablePath(path))
        return std::nullopt;
    std::optional<fs::path> resolved = Canonical(fs::path(path));
    if (!resolved || !Inside(*resolved))
        return std::nullopt;
    return resolved;
}

std::optional<fs::path> StudioFileAccess::ResolveForWriting(std::string_view path) const
{
    if (!IsUsablePath(path))
        return std::nullopt;
    fs::path target(path);
    std::string name = target.filename().string();
    if (name.empty() || name == "." || name == "..")
        return std::nullopt;
    std::optional<fs::path> folder = Resolve(target.parent_path().string());
    if (!folder)
        return std::nullopt;
    fs::path inFolder = *folder / name;
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(inFolder, error)) || fs::exists(inFolder, error)) {
        // An existing name must lead to a place inside as well.
        std::optional<fs::path> resolved = Canonical(inFolder);
        if (!resolved || !Inside(*resolved))
            return std::nullopt;
        return resolved;
    }
    return inFolder;
}

std::optional<nlohmann::json> StudioFileAccess::Browse(std::string_view folder, std::string_view pattern) const
{
    nlohmann::json listing = { { "folders", nlohmann::json::array() }, { "files", nlohmann::json::array() } };
    if (folder.empty()) {
        listing["path"] = "";
        listing["parent"] = nullptr;
        for (const std::string& root : Roots())
            listing["folders"].push_back(root);
        return listing;
    }
    std::optional<fs::path> resolved = Resolve(folder);
    std::error_code error;
    if (!resolved || !fs::is_directory(*resolved, error))
        return std::nullopt;
    listing["path"] = AddBackslash(resolved->string());
    std::optional<fs::path> parent = resolved->has_parent_path() && resolved->parent_path() != *resolved
        ? Resolve(resolved->parent_path().string())
        : std::nullopt;
    listing["parent"] = parent ? nlohmann::json(AddBackslash(parent->string())) : nlohmann::json(nullptr);

    std::vector<std::string> folders;
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(*resolved, error)) {
        std::optional<fs::path> target = Canonical(entry.path());
        if (!target || !Inside(*target))
            continue;
        std::string name = entry.path().filename().string();
        if (fs::is_directory(*target, error))
            folders.push_back(name);
        else if (pattern.empty() || pattern == "*" || MatchesPattern(name, pattern))
            files.push_back(name);
    }
    std::sort(folders.begin(), folders.end());
    std::sort(files.begin(), files.end());
    listing["folders"] = folders;
    listing["files"] = files;
    return listing;
}

}  // namespace scriv::studio
