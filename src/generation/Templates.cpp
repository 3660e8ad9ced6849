#include "generation/Templates.h"

#include <filesystem>

#include "foundation/AppFolders.h"
#include "foundation/CUTF8File.h"
#include "foundation/CXmlMessages.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

std::vector<Replacement> ParseReplacementList(const std::vector<std::string>& entries)
{
    std::vector<Replacement> list;
    for (const std::string& entry : entries) {
        std::size_t bar = entry.find('|');
        if (bar == std::string::npos)
            continue;
        list.push_back({ Trim(entry.substr(0, bar)), Trim(entry.substr(bar + 1)) });
    }
    return list;
}

std::string ReplaceTagsAndCopy(std::string_view sourcePath, std::string_view targetPath,
    const std::vector<std::string>& replacementList)
{
    std::vector<Replacement> replacements = ParseReplacementList(replacementList);
    if (!FileExists(sourcePath))
        return {};
    CUTF8FileReader reader;
    if (reader.LoadFile(sourcePath) != status::kOk)
        return {};
    std::string text = Parameters().ReplaceTags(reader.Text());
    for (const Replacement& replacement : replacements)
        text = ReplaceAllNoCase(text, replacement.find, replacement.replace);
    if (CXmlMessages* messages = CurrentMessages())
        text = messages->ReplaceParameters(text);
    if (!targetPath.empty() && !WriteUtf8File(targetPath, text))
        Raise(status::kGeneralFailure, "modScrivUtils.ReplaceTagsAndCopy", "Error saving file " + std::string(targetPath));
    return text;
}

std::string StyleSheetLinkHtml(std::string_view styleSheetPath)
{
    if (styleSheetPath.empty())
        return {};
    return "<link href=\"" + std::string(styleSheetPath) + "\" type=\"text/css\" rel=\"stylesheet\">";
}

std::string StyleSheetHref(std::string_view styleSheetPath, std::string_view pageFolder)
{
    if (styleSheetPath.empty())
        return {};
    if (pageFolder.empty() || !IsAbsolutePath(styleSheetPath))
        return FileNameOf(styleSheetPath);
    std::string relative = SetRelativePath(styleSheetPath, pageFolder);
    return relative.empty() ? FileNameOf(styleSheetPath) : relative;
}

std::string EscapeHtmlEntities(std::string_view text, bool strip)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c != '&') {
            out += c;
            continue;
        }
        bool last = i + 1 == text.size();
        if (last) {
            out += '&';
        } else if (text[i + 1] == '&') {
            out += "&&";
        } else if (text[i + 1] == '#') {
            out += '&';
        }
    }
    if (strip) {
        constexpr std::string_view mark = "&#38;";
        std::size_t at = out.find(mark);
        while (at != std::string::npos) {
            std::size_t after = at + mark.size();
            if (after < out.size() && out.find(mark, after) == std::string::npos) {
                out.erase(at, mark.size());
                break;
            }
            at = out.find(mark, after);
        }
    }
    return out;
}

std::string SetRelativePath(std::string_view fullPath, std::string_view baseFolder)
{
    namespace fs = std::filesystem;
    fs::path relative = fs::path(ToNativePath(fullPath)).lexically_relative(fs::path(AddBackslash(ToNativePath(baseFolder))));
    std::string result = relative.generic_string();
    if (result.empty() || result == ".")
        return {};
    if (result.rfind("./", 0) == 0)
        result.erase(0, 2);
    while (!result.empty() && result.front() == '/')
        result.erase(0, 1);
    return result;
}

std::string JoinCollection(const std::vector<std::string>& items)
{
    return Join(items, "|");
}

std::vector<std::string> SplitToCollection(std::string_view text)
{
    return Split(text, "|");
}

int TreeNodeImageIndex(std::string_view imageKey)
{
    static constexpr const char* keys[] = { "no", "openedBook", "hlpclose", "document", "document1", "form", "report" };
    static constexpr int indexes[] = { 1, 2, 3, 3, 4, 5, 6 };
    std::string key = ToLower(imageKey);
    for (std::size_t i = 0; i < std::size(keys); ++i)
        if (key == ToLower(keys[i]))
            return indexes[i];
    return 0;
}

}  // namespace scriv
