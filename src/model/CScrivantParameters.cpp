#include "model/CScrivantParameters.h"

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/Version.h"
#include "model/CAddInProject.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

// Collapses doubled separators; a leading pair (a network path) stays.
std::string CollapseSeparators(const std::string& path)
{
    std::string out;
    out.reserve(path.size());
    for (std::size_t i = 0; i < path.size(); ++i) {
        bool doubled = IsPathSeparator(path[i]) && !out.empty() && IsPathSeparator(out.back());
        bool leadingPair = i == 1;
        if (doubled && !leadingPair)
            continue;
        out += path[i];
    }
    return out;
}

}  // namespace

CScrivantParameters::CScrivantParameters() = default;

std::unique_ptr<CScrivantParameters> CScrivantParameters::Clone() const
{
    return std::make_unique<CScrivantParameters>(*this);
}

std::string CScrivantParameters::ReplaceTags(std::string_view text, bool useGiven, std::string_view givenLocation,
    std::string_view givenProjectName) const
{
    std::string location(givenLocation);
    std::string projectName(givenProjectName);
    if (!useGiven) {
        location.clear();
        projectName.clear();
        if (IHostAgent* agent = CurrentHostAgent()) {
            location = agent->CurrentSourceProjectLocation();
            projectName = agent->CurrentSourceProjectName();
        }
        if (location.empty())
            location = TempFolder();
    }
    std::string titleAndVersion = std::string(kProgramTitle) + " v." + kProgramVersion;
    const std::pair<const char*, std::string> tags[] = {
        { "{{Application}}", ApplicationNameStr },
        { "{{ProjectName}}", projectName },
        { "{{HelpProjectName}}", HelpProjectName() },
        { "{{HelpProjectTitle}}", HelpProjectTitle() },
        { "{{Organization}}", Organization },
        { "{{Author}}", Author() },
        { "{{Copyright}}", Copyright },
        { "{{Website}}", Website },
        { "{{Email}}", email },
        { "{{RegistrationURL}}", RegistrationURL },
        { "{{Project Location}}", location },
        { "{{HtmlScrivantTitleAndVersion}}", titleAndVersion },
        { "{{HtmlScrivantVersion}}", kProgramVersion },
        { "{Application}", ApplicationNameStr },
        { "{ProjectName}", projectName },
        { "{Organization}", Organization },
        { "{Author}", Author() },
        { "{Copyright}", Copyright },
        { "{Website}", Website },
        { "{Email}", email },
        { "{RegistrationURL}", RegistrationURL },
        { "{Project Location}", location },
    };
    std::string result(text);
    if (result.find('{') == std::string::npos)
        return result;
    for (const auto& [tag, value] : tags)
        result = ReplaceAll(result, tag, value);
    return result;
}

std::string CScrivantParameters::GeneratedHelpFileName() const
{
    return "{{:GeneratedHelpFileName}}.chm";
}

std::string CScrivantParameters::Author() const
{
    if (m_author.empty())
        m_author = LoggedOnUserName();
    return m_author;
}

std::string CScrivantParameters::CSSFullPath() const
{
    if (m_cssFullPath.empty() || !FolderOf(m_cssFullPath).empty())
        return m_cssFullPath;
    CAddInProject* project = CurrentAddInProject();
    return project ? AddBackslash(project->Folder) + m_cssFullPath : m_cssFullPath;
}

std::string CScrivantParameters::FolderForGeneratedHelp() const
{
    std::string value = m_folderForGeneratedHelp;
    if (CharCount(value) > 2)
        value = AddBackslash(value);
    for (const char* placeholder : { "{Project Location}\\", "{Project Location}/" })
        value = ReplaceAll(value, placeholder, "{{ProjectLocation}}");
    value = Trim(value);
    return CollapseSeparators(value);
}

std::string CScrivantParameters::NameOfFolderForGeneratedImages() const
{
    if (m_nameOfFolderForGeneratedImages.empty())
        m_nameOfFolderForGeneratedImages = "images";
    return m_nameOfFolderForGeneratedImages;
}

void CScrivantParameters::SetNameOfFolderForGeneratedImages(std::string value)
{
    m_nameOfFolderForGeneratedImages = value.empty() ? std::string() : AddBackslash(value);
}

std::string CScrivantParameters::NameOfFolderForGeneratedImagesWithSlash() const
{
    return AddBackslash(NameOfFolderForGeneratedImages());
}

std::string CScrivantParameters::FolderForGeneratedImages() const
{
    return AddBackslash(FolderForGeneratedHelp() + NameOfFolderForGeneratedImagesWithSlash());
}

std::string CScrivantParameters::CompiledHelpFullPath() const
{
    CAddInProject* project = CurrentAddInProject();
    return FolderForGeneratedHelp() + (project ? project->Name : std::string()) + ".chm";
}

std::string CScrivantParameters::HelpProjectName() const
{
    if (m_helpProjectName.empty()) {
        if (CAddInProject* project = CurrentAddInProject())
            return project->Name;
    }
    return m_helpProjectName;
}

std::string CScrivantParameters::HelpProjectTitle() const
{
    return m_helpProjectTitle.empty() ? ApplicationNameStr : m_helpProjectTitle;
}

CScrivantParameters& Parameters()
{
    static CScrivantParameters parameters;
    return parameters;
}

}  // namespace scriv
