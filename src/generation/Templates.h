#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/LanguageTag.h"
#include "model/TemplateFolders.h"

// Where page templates are found, and the one replacement scheme every page
// passes through.
namespace scriv {

// One entry of a replacement list: "find|replace".
struct Replacement {
    std::string find;
    std::string replace;
};
// Entries without "|" are left out; both sides are trimmed.
std::vector<Replacement> ParseReplacementList(const std::vector<std::string>& entries);

// Reads a template (UTF-8), replaces the parameter tags, then each entry of the
// list without regard to case, then the message table's page words; gives the
// page its language and a title and drops its empty links; writes the
// result as UTF-8 to target when one is given, and answers it. A missing
// template gives "" and writes nothing. A failed write raises
// "Error saving file <path>".
std::string ReplaceTagsAndCopy(std::string_view sourcePath, std::string_view targetPath,
    const std::vector<std::string>& replacementList);

// --- what every page states about itself ---

// The language of the project's pages: its language code (the help's
// language, which the application's code page decides when the person has
// not), else its Language parameter (the folder of localized templates), else
// English (the language of the templates that every other falls back on).
LanguageTag ProjectPageLanguage();
// The page with lang, and dir="rtl" for a right-to-left language, on its
// <html> tag. A tag that states its lang already keeps what it has, and so
// does a text without an <html> tag.
std::string WithHtmlLanguage(std::string_view page, const LanguageTag& language);
// The page with fallback as its title where its <title> is empty, or where it
// has none (then it goes first in <head>). A page without <head>, and an
// empty fallback, leave the text as it is. fallback is HTML text.
std::string WithPageTitle(std::string_view page, std::string_view fallback);
// The page without the links that show nothing and lead nowhere (an empty
// address, or a scheme alone such as "mailto:"): what a template's link
// becomes when the value that fills it is empty.
std::string WithoutEmptyLinks(std::string_view page);

// <link href="path" type="text/css" rel="stylesheet">, or "" for an empty path.
std::string StyleSheetLinkHtml(std::string_view styleSheetPath);

// The href of a style sheet as seen from a page's folder: relative where it
// can be, else the file name.
std::string StyleSheetHref(std::string_view styleSheetPath, std::string_view pageFolder);

// Keeps an "&" only where HTML Help shows it as text: last, or before "&" or "#";
// a doubled one is doubled again. With strip, "&#38;" is taken out where no other
// follows.
std::string EscapeHtmlEntities(std::string_view text, bool strip);
// The path of fullPath relative to baseFolder ("../images/a.jpg").
std::string SetRelativePath(std::string_view fullPath, std::string_view baseFolder);
std::string JoinCollection(const std::vector<std::string>& items);
std::vector<std::string> SplitToCollection(std::string_view text);
// 1 "no", 2 "openedBook", 3 "hlpclose", then "document", "document1", "form",
// "report" as 3 to 6; 0 for any other key.
int TreeNodeImageIndex(std::string_view imageKey);

}  // namespace scriv
