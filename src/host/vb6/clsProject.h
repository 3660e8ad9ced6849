#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/vb6/clsProjectFile.h"

namespace scriv {

class Vb6ProjectFile;

// A project file read into fields: type, title, names, version, and its
// forms, modules and classes as clsProjectFile objects.
class clsProject {
public:
    // "ActiveX DLL", "ActiveX EXE", "ActiveX Control", or the Type as written ("Exe").
    std::string ProjectType;
    std::string Title;
    std::string Description;
    std::string EXEName;
    std::string Name;
    std::string StartupObject;
    std::string MajorVersion;
    std::string MinorVersion;
    std::string RevisionVersion;

    const std::string& ProjectFile() const { return m_projectFile; }
    // Reads the project at path. A path that holds none of ".vbp", ".vbproj",
    // ".csproj", ".vcproj" (without regard to case) clears the object; a file
    // that cannot be read leaves IsValidProject false.
    void SetProjectFile(const std::string& path);
    bool IsValidProject() const { return m_valid; }

    std::size_t FileCount() const { return m_files.size(); }
    // The file of that number, counting from 1; raises ScrivError out of range.
    clsProjectFile& FileRef(std::size_t number);

    // "V" + major + "." + minor + "." + revision, or "V??.??.??" when no
    // project file is set.
    std::string Version() const;
    // Back to the empty object.
    void Clear();

private:
    void Read(const Vb6ProjectFile& file);

    std::string m_projectFile;
    std::vector<std::unique_ptr<clsProjectFile>> m_files;
    bool m_valid { false };
};

}  // namespace scriv
