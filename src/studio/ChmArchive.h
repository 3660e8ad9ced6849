#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

struct chmFile;

namespace scriv::studio {

// A compiled help file (.chm) opened for reading through chmlib: its topics,
// pictures and contents file come out of it as they were put in.
class ChmArchive {
public:
    // The archive, or nothing when the file is missing or no compiled help.
    static std::unique_ptr<ChmArchive> Open(const std::string& path);
    ~ChmArchive();
    ChmArchive(const ChmArchive&) = delete;
    ChmArchive& operator=(const ChmArchive&) = delete;

    // The bytes of a file inside ("images/a.jpg" or "/images/a.jpg"); nothing
    // when there is none or the path climbs out with "..".
    std::optional<std::string> Read(std::string_view innerPath) const;
    // The paths of the ordinary files inside ("/Welcome.htm" ...), in the
    // archive's order; the compiler's own files ("#SYSTEM", "::DataSpace/...")
    // are left out.
    std::vector<std::string> Files() const;

    // What the compiler's #SYSTEM file names: the contents file, the default
    // topic and the title ("" where it names none). A missing contents entry
    // falls back on the first .hhc inside.
    const std::string& ContentsFile() const { return m_contentsFile; }
    const std::string& DefaultTopic() const { return m_defaultTopic; }
    const std::string& Title() const { return m_title; }

    // The contents as a tree: {"title", "defaultTopic", "topics": [{"name",
    // "local", "children": [...]}]}; no topics when the contents file is
    // missing or does not parse.
    nlohmann::json Contents() const;

    // The path inside an archive that a URL path names: "/" + path with "."
    // and ".." worked out; nothing when ".." climbs above the top.
    static std::optional<std::string> NormaliseInnerPath(std::string_view innerPath);

private:
    explicit ChmArchive(chmFile* file)
        : m_file(file)
    {
    }
    void ReadSystemFile();

    chmFile* m_file;
    std::string m_contentsFile;
    std::string m_defaultTopic;
    std::string m_title;
};

}  // namespace scriv::studio
