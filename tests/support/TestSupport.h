#pragma once

#include <string>
#include <string_view>

namespace scriv::test {

// A fresh folder below the system's temporary folder, removed with the object.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // With a final separator.
    const std::string& Path() const { return m_path; }
    // Path + relative name.
    std::string operator/(std::string_view name) const { return m_path + std::string(name); }

    // Writes bytes to a file below the folder, creating its folders; returns the full path.
    std::string Write(std::string_view relative, std::string_view bytes) const;
    std::string Read(std::string_view relative) const;

private:
    std::string m_path;
};

// The data folder of the source tree (Templates/, Settings/, Redirect/).
std::string SourceDataFolder();
// The bundled example applications of the source tree.
std::string ExamplesFolder();
// A copy of the example folder name (e.g. "OrderDesk") in target, for tests that change files.
std::string CopyExample(const std::string& name, const TempFolder& target);

}  // namespace scriv::test
