#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace scriv::studio {

// The folders whose files the studio may serve and write: the open source
// project's folder, the registered help projects' folders and the program's
// data folders. A path counts as inside only after "..", "." and symbolic
// links are resolved, so that neither a ".." nor a link leads out. Safe from
// any thread: the logic thread sets the roots, the HTTP threads ask.
class StudioFileAccess {
public:
    // Replaces the roots. Each is resolved; folders that do not exist are left out.
    void SetRoots(const std::vector<std::string>& folders);
    // The resolved roots, each with a final separator, sorted.
    std::vector<std::string> Roots() const;

    // The resolved path of an existing file or folder inside a root; nothing
    // for a relative path, a path that does not exist, or one that resolves
    // outside every root.
    std::optional<std::filesystem::path> Resolve(std::string_view path) const;
    // The resolved path a file may be written to: its folder must resolve
    // inside a root, and an existing file there must not be a link that leads
    // out. Nothing otherwise.
    std::optional<std::filesystem::path> ResolveForWriting(std::string_view path) const;
    bool Inside(const std::filesystem::path& resolved) const;

    // A folder's listing for the file dialogs: {"path", "parent", "folders",
    // "files"} with the names of its subfolders and of its files that match
    // pattern ("*.svp"; "" or "*" for all), both sorted; entries that lead
    // out of the roots are left out. An empty folder lists the roots as
    // folders. Nothing when the folder is not inside a root.
    std::optional<nlohmann::json> Browse(std::string_view folder, std::string_view pattern) const;

private:
    bool InsideLocked(const std::string& resolved) const;

    mutable std::mutex m_mutex;
    std::vector<std::string> m_roots;
};

}  // namespace scriv::studio
