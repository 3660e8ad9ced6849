#pragma once

#include <string>
#include <string_view>
#include <vector>

// A VB6 project group (.vbg): "VBGROUP 5.0", then the projects in the order
// the IDE lists them, one "StartupProject=" line and "Project=" lines, with
// paths relative to the group's folder.
//
// Reading raises ScrivError (0x80040001, source "Vb6GroupFile.Read") naming
// the file and the line: "Orders.vbg(1): ...".
namespace scriv {

struct Vb6GroupProject {
    // As written: "Orders\Orders.vbp".
    std::string relativePath;
    // Native and resolved against the group's folder.
    std::string fullPath;
    // True for the StartupProject= line.
    bool isStartup { false };
    int line { 0 };
};

class Vb6GroupFile {
public:
    // The group file at path, read in the system code page; raises ScrivError
    // when it cannot be read or is no project group.
    static Vb6GroupFile Load(const std::string& path);
    // A group from bytes; path names the file in messages and gives the folder.
    static Vb6GroupFile Parse(std::string_view bytes, std::string path);

    const std::string& Path() const { return m_path; }
    // "5.0" from the VBGROUP line.
    const std::string& Version() const { return m_version; }
    // The projects in file order.
    const std::vector<Vb6GroupProject>& Projects() const { return m_projects; }
    // The startup project, or null when the group names none.
    const Vb6GroupProject* StartupProject() const;

private:
    Vb6GroupFile() = default;

    std::string m_path;
    std::string m_version;
    std::vector<Vb6GroupProject> m_projects;
};

}  // namespace scriv
