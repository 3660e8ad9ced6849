#pragma once

#include <string>
#include <vector>

// A Visual Studio solution (.sln): the projects it groups, in its order.
namespace scriv {

struct VsSolutionProject {
    std::string name;
    // The project file, resolved against the solution's folder.
    std::string fullPath;
};

class VsSolutionFile {
public:
    // Reads the solution; raises ScrivError naming the file when it cannot be read.
    static VsSolutionFile Load(const std::string& path);
    // Reads the text of a solution kept at path. Lines that are no project,
    // and projects that are no project file (solution folders, web sites kept
    // as a folder), are left out.
    static VsSolutionFile Parse(const std::string& text, const std::string& path);

    const std::string& Path() const { return m_path; }
    const std::vector<VsSolutionProject>& Projects() const { return m_projects; }

private:
    std::string m_path;
    std::vector<VsSolutionProject> m_projects;
};

}  // namespace scriv
