#include "host/vb6/clsProject.h"

#include "foundation/CTraceLog.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vb6/Vb6ProjectFile.h"

namespace scriv {

namespace {

std::string ProjectTypeName(const std::string& type)
{
    if (EqualsNoCase(type, "OLEDLL"))
        return "ActiveX DLL";
    if (EqualsNoCase(type, "OLEEXE"))
        return "ActiveX EXE";
    if (EqualsNoCase(type, "CONTROL"))
        return "ActiveX Control";
    return type;
}

}  // namespace

void clsProject::SetProjectFile(const std::string& path)
{
    Clear();
    bool known = false;
    for (const char* extension : { ".VBP", ".vbproj", ".csproj", ".vcproj" })
        known = known || ContainsNoCase(path, extension);
    if (!known)
        return;
    m_projectFile = path;
    try {
        Read(Vb6ProjectFile::Load(path));
        m_valid = true;
    } catch (const ScrivError& error) {
        Trace("clsProject.ProjectFile: " + error.Description());
    }
}

void clsProject::Read(const Vb6ProjectFile& file)
{
    for (const Vb6ProjectEntry& entry : file.Entries()) {
        std::string key = ToUpper(entry.key);
        std::string value = entry.Text();
        if (key == "TYPE")
            ProjectType = ProjectTypeName(value);
        else if (key == "FORM" || key == "MODULE" || key == "CLASS") {
            auto projectFile = std::make_unique<clsProjectFile>();
            projectFile->init(key, value, file.Folder());
            m_files.push_back(std::move(projectFile));
        } else if (key == "TITLE")
            Title = value;
        else if (key == "DESCRIPTION")
            Description = value;
        else if (key == "EXENAME32")
            EXEName = value;
        else if (key == "NAME")
            Name = value;
        else if (key == "STARTUP")
            StartupObject = value;
        else if (key == "MAJORVER")
            MajorVersion = value;
        else if (key == "MINORVER")
            MinorVersion = value;
        else if (key == "REVISIONVER")
            RevisionVersion = value;
    }
}

clsProjectFile& clsProject::FileRef(std::size_t number)
{
    if (number < 1 || number > m_files.size())
        Raise(status::kGeneralFailure, "clsProject.FileRef", "There is no file " + std::to_string(number) + " in the project");
    return *m_files[number - 1];
}

std::string clsProject::Version() const
{
    if (m_projectFile.empty())
        return "V??.??.??";
    return "V" + MajorVersion + "." + MinorVersion + "." + RevisionVersion;
}

void clsProject::Clear()
{
    *this = clsProject();
}

}  // namespace scriv
