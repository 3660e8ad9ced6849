#include "model/TemplateFolders.h"

#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CScrivantParameters.h"

namespace scriv {

std::string ParameterizedFolder()
{
    return Folders().TemplatesRoot() + "Parameterized/";
}

std::string LocalizedFolder()
{
    std::string language = Trim(Parameters().Language);
    if (!language.empty()) {
        std::string folder = Folders().TemplatesRoot() + "Localized/" + language + "/";
        if (FileExists(folder + "Welcome.htm"))
            return folder;
    }
    return Folders().TemplatesRoot() + "Localized/EN/";
}

std::string CommonFolder()
{
    return Folders().TemplatesRoot() + "Common/";
}

std::string TemplateFullPath(std::string_view fileName)
{
    std::string name = FileNameOf(fileName);
    for (const std::string& folder : { ParameterizedFolder(), LocalizedFolder(), CommonFolder() })
        if (FileExists(folder + name))
            return folder + name;
    return CommonFolder() + name;
}

}  // namespace scriv
