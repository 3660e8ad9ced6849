#include "host/vs/VsSolutionFile.h"

#include <regex>

#include "foundation/CUTF8File.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

VsSolutionFile VsSolutionFile::Load(const std::string& path)
{
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != 0)
        Raise(status::kGeneralFailure, "VsSolutionFile.Load", "The solution '" + path + "' cannot be read.");
    return Parse(reader.Text(), path);
}

VsSolutionFile VsSolutionFile::Parse(const std::string& text, const std::string& path)
{
    // Project("{type}") = "Name", "folder\Name.csproj", "{id}"
    static const std::regex project(R"rx(^\s*Project\("\{[^}]*\}"\)\s*=\s*"([^"]*)"\s*,\s*"([^"]*)")rx");
    VsSolutionFile solution;
    solution.m_path = path;
    std::string folder = AddBackslash(FolderOf(ToNativePath(path)));
    for (const std::string& line : SplitLines(text)) {
        std::smatch match;
        if (!std::regex_search(line, match, project))
            continue;
        std::string relative = ToNativePath(match[2].str());
        std::string extension = ToLower(FileExtension(relative));
        if (extension != ".csproj" && extension != ".vbproj" && extension != ".vjsproj" && extension != ".vcproj")
            continue;
        std::string full = IsAbsolutePath(relative) ? relative : FindPathNoCase(folder + relative);
        solution.m_projects.push_back({ match[1].str(), full });
    }
    return solution;
}

}  // namespace scriv
