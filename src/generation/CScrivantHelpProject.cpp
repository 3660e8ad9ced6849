// The project file of the help compiler and the text popups file.
#include <algorithm>

#include "foundation/AppFolders.h"
#include "foundation/CCodePages.h"
#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivant.h"
#include "generation/HelpLanguage.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

const std::string kEol { kCrLf };

// Frame pages of the browser help are no topics of the compiled help.
bool IsExcludedPage(const std::string& name)
{
    return EqualsNoCase(name, "hh_index_java.htm") || EqualsNoCase(name, "hh_toc_java.htm")
        || EqualsNoCase(name, "main.htm");
}

std::vector<std::string> SortedFiles(const std::string& folder, const char* extension)
{
    std::vector<std::string> files;
    for (const std::string& name : ListFiles(folder, std::string("*") + extension))
        if (EndsWithNoCase(name, extension))
            files.push_back(name);
    std::sort(files.begin(), files.end(), [](const std::string& a, const std::string& b) { return CompareNoCase(a, b) < 0; });
    return files;
}

std::vector<std::string> TopicFiles(const std::string& folder, const std::string& projectFile)
{
    std::vector<std::string> files;
    for (const std::string& name : SortedFiles(folder, ".htm"))
        if (!IsExcludedPage(name) && !EqualsNoCase(name, projectFile))
            files.push_back(name);
    return files;
}

// "Language=" and "Default Font=" of a language code, empty when unknown.
std::pair<std::string, std::string> LanguageLines(const std::string& languageCode)
{
    if (Trim(languageCode).empty())
        return {};
    CCodePages pages;
    if (pages.Load(Folders().SettingsFolder() + "CodePages.xml") != 0)
        return {};
    const CCodePage* page = pages.GetCodePageByLanguageCode(languageCode);
    if (!page)
        return {};
    return { Trim(page->HHPLName), Trim(page->HHPDefaultFont) };
}

}  // namespace

bool IsNonHtmlFile(std::string_view name)
{
    if (name.size() < 4)
        return false;
    std::string_view tail = name.substr(name.size() - 4);
    for (const char* extension : { ".ICO", ".HHC", ".HHP", ".BMP", ".JPG" })
        if (EqualsNoCase(tail, extension))
            return true;
    return false;
}

std::string CScrivant::HHPText()
{
    CAddInProject* project = CurrentAddInProject();
    if (!project)
        return {};
    const CScrivantParameters& parameters = Parameters();
    const std::string& name = project->FileName;
    std::string folder = AddBackslash(project->Folder);
    std::string text = "[Options]" + kEol;
    text += "Binary index = No" + kEol;
    text += "Compatibility = 1.1 Or later" + kEol;
    text += "Compiled file = " + name + ".chm" + kEol;
    text += "Contents file = " + name + ".hhc" + kEol;
    text += parameters.AssociateHelpIndex() ? "index file = " + name + ".hhk" + kEol : "index file = " + kEol;
    CHelpPrjTreeNode* root = HelpProjectTree().Root();
    text += "Default Topic = " + (root ? FileNameOf(root->GeneratedHTMLFile()) : std::string()) + kEol;
    text += "Display compile progress=Yes" + kEol;
    text += std::string(parameters.AddSearchTabToHelp ? "Full-text search=Yes" : "Full-text search=No") + kEol;
    auto [language, font] = LanguageLines(parameters.LanguageCode);
    if (!language.empty())
        text += "Language=" + language + kEol;
    if (!font.empty())
        text += "Default Font=" + font + kEol;
    text += "Title=" + project->Title() + kEol;
    text += "[Files]" + kEol;
    std::vector<std::string> topics = TopicFiles(folder, name + ".hhp");
    for (const std::string& topic : topics)
        text += topic + kEol;
    std::string images = RemoveBackslash(parameters.NameOfFolderForGeneratedImages());
    std::string imagesFolder = folder + images + "/";
    for (const char* extension : { ".bmp", ".jpg", ".png" })
        for (const std::string& picture : SortedFiles(imagesFolder, extension))
            text += images + "\\" + picture + kEol;
    text += "[ALIAS]" + kEol;
    for (const std::string& topic : topics)
        text += "IDH_" + FileBaseName(topic) + "=" + topic + kEol;
    text += "[MAP]" + kEol;
    text += "#include " + name + ".h" + kEol;
    text += "[TEXT POPUPS]" + kEol;
    text += "#include " + name + ".h" + kEol;
    text += "#include " + name + ".txt" + kEol;
    return text;
}

std::uint32_t CScrivant::WriteHHPFile(const std::string& path)
{
    CAddInProject* project = CurrentAddInProject();
    if (!project)
        return status::kAbandoned;
    std::string target = path.empty() ? project->HHPFullPath() : path;
    if (!WriteFileBytes(target, InHelpCompilerCodePage(HHPText()))) {
        Trace("CScrivant.WriteHHPFile: cannot write '" + target + "'");
        return status::kGeneralFailure;
    }
    WriteTextPopupsFile();
    return 0;
}

void CScrivant::WriteTextPopupsFile()
{
    CAddInProject* project = CurrentAddInProject();
    if (!project)
        return;
    std::string folder = Parameters().FolderForGeneratedHelp();
    std::string text;
    for (const std::string& topic : TopicFiles(folder, project->FileName + ".hhp")) {
        text += ".topic " + Trim(FileBaseName(topic)) + " " + kEol;
        text += "Refers to : " + topic + kEol;
    }
    WriteFileBytes(folder + project->FileName + ".txt", InHelpCompilerCodePage(text));
}

}  // namespace scriv
