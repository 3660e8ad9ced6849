#pragma once

#include <string>

namespace scriv {

// One help project known on this machine: its name, folder and the source
// project it documents.
class CAddInProject {
public:
    std::string Name;
    std::string FileName; // base name of the project file, no extension
    std::string Folder; // with a final separator
    std::string PicsSubfolderName;
    std::string SourceProjectFullPath;
    std::string HUID; // this help project
    std::string SUID; // its source project, shared by all its help projects
    bool IsNew { true };
    bool HasSeveralSourceProjects { false };

    // The help title; empty reads as the name.
    std::string Title() const { return m_title.empty() ? Name : m_title; }
    void SetTitle(std::string title) { m_title = std::move(title); }

    // Folder + FileName + extension, or "" while FileName is empty.
    std::string SVPFullPath() const { return PathWithExtension(".svp"); }
    std::string CHMFullPath() const { return PathWithExtension(".chm"); }
    std::string HHPFullPath() const { return PathWithExtension(".hhp"); }
    std::string HHKFullPath() const { return PathWithExtension(".hhk"); }
    std::string HHCFullPath() const { return PathWithExtension(".hhc"); }
    // Folder + "xml/".
    std::string XmlFormsFolder() const;
    // Folder + images folder + "/"; a missing folder falls back to "images".
    std::string PicsSubfolderPath() const;

    // Names of the source projects of a group, joined with "|". Filled from the
    // host on first read; RefreshSourceProjectsList reads it again.
    std::string SourceProjectsList();
    void SetSourceProjectsList(std::string list) { m_sourceProjectsList = std::move(list), m_sourceProjectsListRead = true; }
    void RefreshSourceProjectsList();

private:
    std::string PathWithExtension(const char* extension) const;

    std::string m_title;
    std::string m_sourceProjectsList;
    bool m_sourceProjectsListRead { false };
    // The pictures folder last found on disk.
    mutable std::string m_picsFolderFound;
};

}  // namespace scriv
