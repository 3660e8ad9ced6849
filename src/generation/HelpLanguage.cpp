#include "generation/HelpLanguage.h"

#include <optional>

#include "foundation/AppFolders.h"
#include "foundation/CCodePages.h"
#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/StringUtil.h"
#include "model/CScrivantParameters.h"

namespace scriv {

namespace {

std::optional<CCodePages> LoadCodePages()
{
    CCodePages pages;
    if (pages.Load(Folders().SettingsFolder() + "CodePages.xml") != 0)
        return std::nullopt;
    return pages;
}

}  // namespace

std::string HelpCompilerCodePage()
{
    const CScrivantParameters& parameters = Parameters();
    if (std::string own = WindowsAnsiCodePage(parameters.Charset); !own.empty())
        return own;
    if (std::optional<CCodePages> pages = LoadCodePages())
        if (const CCodePage* language = pages->GetCodePageByLanguageCode(parameters.LanguageCode))
            if (std::string codePage = WindowsAnsiCodePage(language->CP1); !codePage.empty())
                return codePage;
    return SystemCodePage();
}

bool AdoptApplicationLanguage(std::string_view applicationCodePage)
{
    CScrivantParameters& parameters = Parameters();
    std::string codePage = WindowsAnsiCodePage(applicationCodePage);
    if (codePage.empty() || codePage == "windows-1252" || Trim(parameters.LanguageCode) != kShippedLanguageCode)
        return false;
    std::optional<CCodePages> pages = LoadCodePages();
    const CCodePage* language = pages ? pages->FirstLanguageOfCodePage(codePage) : nullptr;
    if (!language)
        return false;
    Trace("AdoptApplicationLanguage: " + codePage + " gives " + language->LName + " (" + language->LCode + ")");
    parameters.LanguageCode = Trim(language->LCode);
    return true;
}

std::string SitemapInHelpCompilerCodePage(std::string_view text)
{
    std::string codePage = HelpCompilerCodePage();
    return IsKnownEncoding(codePage) ? ConvertFromUtf8ForHtml(text, codePage) : std::string(text);
}

std::string InHelpCompilerCodePage(std::string_view text)
{
    std::string codePage = HelpCompilerCodePage();
    return IsKnownEncoding(codePage) ? ConvertFromUtf8(text, codePage) : std::string(text);
}

}  // namespace scriv
