#include "generation/CXmlFormPages.h"

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/CXMLFile.h"
#include "foundation/CXmlMessages.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/CFormHtmlTemplates.h"
#include "generation/Templates.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

PageSections FormSections(bool isReport)
{
    const CScrivantParameters& parameters = Parameters();
    PageSections sections;
    if (isReport) {
        sections.addImage = parameters.AddImageForReport;
        sections.addControlsList = parameters.AddControlsListForReport;
        sections.addControlsSections = parameters.AddControlsSectionForReport;
    } else {
        sections.addImage = parameters.AddImageForForm;
        sections.addHotSpots = parameters.AddHotSpotsForForm;
        sections.addMenuList = parameters.AddControlsListForMenuList;
        sections.addMenuSections = parameters.AddControlsSectionForMenuList;
        sections.addControlsList = parameters.AddControlsListForForm;
        sections.addControlsSections = parameters.AddControlsSectionForForm;
    }
    return sections;
}

PageSections ObjectSections()
{
    PageSections sections;
    sections.addControlsList = Parameters().AddControlsListForForm;
    sections.addControlsSections = Parameters().AddControlsSectionForForm;
    return sections;
}

}  // namespace

// The steps every kind of page shares: the template, the tags, the charset
// and style sheet, the file and the definitions read back from it.
static std::string WritePage(CXmlForm& form, std::string_view fileFullPath, std::string_view templateName,
    const PageSections& sections, std::string_view queryXml, bool objectPage)
{
    CXMLFile check;
    if (check.LoadXml(form.XMLSTr()) != 0) {
        Trace("CXmlForm.SaveHTMLEx: the description of " + form.Name + " does not read");
        return {};
    }
    CFormHtmlTemplates templates;
    std::string text = templates.FileTemplate(form, sections, TemplateFullPath(templateName), {}, queryXml);
    text = Parameters().ReplaceTags(text);
    text = ReplaceAllNoCase(text, "{{charset}}", form.Charset);
    std::string pageFolder = fileFullPath.empty() ? std::string() : FolderOf(fileFullPath);
    text = ReplaceAllNoCase(text, "{{StyleSheetLinkHtml}}",
        StyleSheetLinkHtml(StyleSheetHref(form.StylesheetFullPath(), pageFolder)));
    if (objectPage) {
        text = ReplaceAll(text, "{{Description}}", XmlEncodeChars(form.Description));
        if (CXmlMessages* messages = CurrentMessages())
            text = messages->ReplaceParameters(text);
    }
    if (!fileFullPath.empty()) {
        if (!WriteTextFile(fileFullPath, text)) {
            Trace("CXmlForm.SaveHTMLEx: cannot write " + std::string(fileFullPath));
            return {};
        }
        form.MakeDefs(fileFullPath);
    }
    return text;
}

std::string SaveHTMLEx(CXmlForm& form, std::string_view fileFullPath, bool isReport)
{
    return WritePage(form, fileFullPath, "form.htm", FormSections(isReport), {}, false);
}

std::string SaveHTML4Table(CXmlForm& form, std::string_view fileFullPath, std::string_view templateName,
    std::string_view queryXml)
{
    return WritePage(form, fileFullPath, templateName, ObjectSections(), queryXml, true);
}

std::string SaveHTML4Worksheet(CXmlForm& form, std::string_view fileFullPath, std::string_view templateName,
    std::string_view worksheetHtml)
{
    std::string text = WritePage(form, {}, templateName, ObjectSections(), {}, true);
    text = ReplaceAll(text, "{{Worksheet}}", worksheetHtml);
    if (!fileFullPath.empty()) {
        if (!WriteTextFile(fileFullPath, text))
            return {};
        form.MakeDefs(fileFullPath);
    }
    return text;
}

}  // namespace scriv
