#pragma once

#include <string>
#include <string_view>

#include "uidesc/CXmlForm.h"

// The topic page of a form description, written from the templates.
namespace scriv {

// Writes the page of a form or report from the "form.htm" template and reads
// its documented controls back into the form. Without a file name only the
// text is made. The page text, or "" when the description does not read.
std::string SaveHTMLEx(CXmlForm& form, std::string_view fileFullPath, bool isReport);
// The page of a table, query or macro from its own template; queryXml lists
// the fields of a query.
std::string SaveHTML4Table(CXmlForm& form, std::string_view fileFullPath, std::string_view templateName,
    std::string_view queryXml = {});
// The page of a worksheet or chart; worksheetHtml is the host's picture of it.
std::string SaveHTML4Worksheet(CXmlForm& form, std::string_view fileFullPath, std::string_view templateName,
    std::string_view worksheetHtml);

}  // namespace scriv
