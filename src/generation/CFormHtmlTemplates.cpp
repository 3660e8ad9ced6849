#include "generation/CFormHtmlTemplates.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/CXMLFile.h"
#include "foundation/CXmlMessages.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/CScrivant.h"
#include "generation/Templates.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"
#include "uidesc/CFormHTMLControlDef.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlMenu.h"
#include "uidesc/DescriptionText.h"

namespace scriv {

namespace {

const std::string kEol { kCrLf };

const std::string_view kSectionMarkers[] = {
    "<!-- + MENUS + -->",
    "<!-- - MENUS - -->",
    "<!-- + CONTROLS + -->",
    "<!-- - CONTROLS - -->",
};

bool IsLabel(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "label");
}

// A control without a size (a common dialog, a timer) has nothing to click on.
bool HasArea(const CXmlControl& control)
{
    return control.Width > 0 && control.Height > 0;
}

bool IsTabControl(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "tabcontrol");
}

bool IsPage(const CXmlControl& control)
{
    return EqualsNoCase(control.ClassName, "Page");
}

// "&File" shows as "File"; "&&" is a real ampersand.
std::string WithoutAccelerators(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size() && text[i + 1] == '&') {
            out += '&';
            ++i;
        } else if (text[i] != '&') {
            out += text[i];
        }
    }
    return out;
}

// Hot spots inside a frame's picture of an Access form stand a little lower.
int ParentInset(const CXmlForm& form, const CXmlControl& parent)
{
    if (!EqualsNoCase(form.SourceProjectType, "MS ACCESS"))
        return 0;
    if (EqualsNoCase(parent.ClassName, "Frame") || EqualsNoCase(parent.ClassName, "OptionGroup"))
        return 8;
    if (EqualsNoCase(parent.ClassName, "TabControl") || EqualsNoCase(parent.ClassName, "Page")
        || EqualsNoCase(parent.ClassName, "SSTab"))
        return 2;
    return 0;
}

std::string Coordinates(int left, int top, int right, int bottom)
{
    return std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(right) + ","
        + std::to_string(bottom);
}

// The picture's path as the topic in pageFolder reaches it.
std::string RelativePicture(std::string_view picture, std::string_view pageFolder)
{
    std::string pictureFolder = FolderOf(picture);
    if (!pageFolder.empty() && FolderExists(pictureFolder) && FolderExists(pageFolder)
        && pictureFolder.rfind(AddBackslash(pageFolder), 0) == 0)
        return std::string(picture.substr(AddBackslash(pageFolder).size()));
    return std::string(picture);
}

std::string PictureSource(std::string_view localPath, std::string_view fullPath, bool useLocalPath,
    std::string_view basePath, std::string_view pageFolder)
{
    if (useLocalPath)
        return std::string(localPath);
    if (!basePath.empty())
        return AddBackslash(basePath) + FileNameOf(fullPath);
    return RelativePicture(fullPath, pageFolder);
}

// The text alternative of a picture or hot spot: what the reader sees as its
// caption, else its name.
std::string TextAlternative(std::string_view caption, std::string_view name)
{
    return XmlEncodeChars(Trim(caption).empty() ? name : caption);
}

std::string ReplaceMessages(std::string text)
{
    if (CXmlMessages* messages = CurrentMessages())
        return messages->ReplaceParameters(text);
    return text;
}

}  // namespace

bool CutBetweenMarkers(std::string& text, std::string_view begin, std::string_view end)
{
    std::size_t start = text.find(begin);
    if (start == std::string::npos || start == 0)
        return false;
    std::size_t stop = text.find(end, start + begin.size());
    if (stop == std::string::npos)
        return false;
    text.erase(start, stop + end.size() - start);
    return true;
}

// --- names ---

std::string CFormHtmlTemplates::MapName(const CXmlForm& form)
{
    return EncodeObjectName(form.NamePrefix.empty() ? form.Name : form.NamePrefix + "_" + form.Name);
}

std::string CFormHtmlTemplates::BookmarkName(const CXmlForm& form, const CXmlControl& control)
{
    return EncodeObjectName(MapName(form) + "_" + control.HtmlBookMarkName());
}

std::string CFormHtmlTemplates::BookmarkNameForMenu(const CXmlForm& form, const CXmlMenu& menu)
{
    return EncodeObjectName(MapName(form) + "_" + menu.Name);
}

std::string CFormHtmlTemplates::BookmarkNameForDocumentedMenuOrControl(const CXmlForm& form,
    const CFormHTMLControlDef& definition)
{
    return EncodeObjectName(MapName(form) + "_" + definition.BookmarkName);
}

// A title by caption falls back on the name where there is no caption (a
// toolbar button of pictures only): a heading or link must not be empty.
std::string CFormHtmlTemplates::Title(const CXmlForm& form)
{
    return desc::IndexesFromCaption() ? TextAlternative(form.Caption(), form.Name) : XmlEncodeChars(form.Name);
}

std::string CFormHtmlTemplates::Title(const CXmlMenu& menu)
{
    return desc::IndexesFromCaption() ? TextAlternative(WithoutAccelerators(menu.Text), menu.Name)
                                      : XmlEncodeChars(menu.Name);
}

std::string CFormHtmlTemplates::Title(const CXmlControl& control)
{
    return desc::IndexesFromCaption() ? TextAlternative(control.Caption(), control.Name) : XmlEncodeChars(control.Name);
}

// --- lists ---

std::string CFormHtmlTemplates::ListOpen() const
{
    return Parameters().BulletMenusControls() ? "<UL>" : "<P>";
}

std::string CFormHtmlTemplates::ListClose() const
{
    return Parameters().BulletMenusControls() ? "</UL>" : "</P>";
}

std::string CFormHtmlTemplates::ItemOpen() const
{
    return Parameters().BulletMenusControls() ? "<LI>" : "";
}

std::string CFormHtmlTemplates::ItemClose() const
{
    return Parameters().BulletMenusControls() ? "</LI>" : "<BR/>";
}

// --- the page ---

std::string CFormHtmlTemplates::FileTemplate(const CXmlForm& form, const PageSections& sections,
    std::string_view templateFullPath, std::string_view styleSheetLink, std::string_view queryXml) const
{
    std::string text;
    CUTF8FileReader reader;
    bool fromTemplate = !templateFullPath.empty() && FileExists(templateFullPath) && reader.LoadFile(templateFullPath) == 0;
    std::string title = Title(form);
    if (fromTemplate) {
        text = reader.Text();
        if (!styleSheetLink.empty())
            text = ReplaceAll(text, "{{StyleSheetLinkHtml}}",
                std::string(styleSheetLink) + kEol + "{{StyleSheetLinkHtml}}");
        text = ReplaceAll(text, "{{HtmlTopicCaption}}", title);
        text = ReplaceAll(text, "{{HtmlPageTitle}}", title);
        text = ReplaceAll(text, "{{HtmlTopicCaption}}", title);
        text = ReplaceAll(text, "{{MAP}}", sections.addHotSpots ? ControlsMap(form) : std::string());
        text = ReplaceAll(text, "{{IMAGE}}", sections.addImage ? MainImage(form, true, {}) : std::string());
        if (!form.HasMenu()) {
            CutBetweenMarkers(text, "<!-- + MENUS LIST + -->", "<!-- - MENUS LIST - -->");
            CutBetweenMarkers(text, "<!-- + MENUS + -->", "<!-- - MENUS - -->");
        } else {
            if (sections.addMenuList)
                text = ReplaceAll(text, "{{MenusList}}", MenusList(form));
            else
                CutBetweenMarkers(text, "<!-- + MENUS LIST + -->", "<!-- - MENUS LIST - -->");
            if (sections.addMenuSections)
                text = ReplaceAll(text, "{{Menus}}", Menus(form));
            else
                CutBetweenMarkers(text, "<!-- + MENUS + -->", "<!-- - MENUS - -->");
        }
        if (sections.addControlsList)
            text = ReplaceAll(text, "{{ControlsList}}", ControlsList(form));
        else
            CutBetweenMarkers(text, "<!-- + CONTROLS LIST + -->", "<!-- - CONTROLS LIST - -->");
        if (sections.addControlsSections) {
            text = ReplaceAll(text, "{{Controls}}", Controls(form, sections.addImage, sections.addHotSpots));
            bool isQuery = EqualsNoCase(form.Type_(), "Query");
            text = ReplaceAll(text, "{{Fields}}", isQuery ? GenerateQueryFieldsHTML(queryXml, form.Name) : std::string());
        } else {
            CutBetweenMarkers(text, "<!-- + CONTROLS + -->", "<!-- - CONTROLS - -->");
        }
    } else {
        const std::string_view head[] = {
            "<HTML>",
            "<HEAD>",
            "<meta name=\"GENERATOR\" content=\"{{HtmlScrivantTitleAndVersion}}\">",
            "<meta name=\"SCRIVANT-VERSION\" content=\"{{HtmlScrivantVersion}}\">",
            "<meta name=\"SCRIVANT-FORM-NAME\" content=\"{{FormName}}\">",
            "<meta name=\"SCRIVANT-TOC-EXCLUDE-LIST\" content=\"{{HtmlScrivantExcludeList}}\">",
            "<meta http-equiv=\"Content-Type\" content=\"text/html; charset={{charset}}\">",
            "{{StyleSheetLinkHtml}}",
        };
        for (std::string_view line : head)
            text.append(line).append(kCrLf);
        text += "<TITLE>" + title + "</TITLE>" + kEol;
        if (!styleSheetLink.empty())
            text.append(styleSheetLink).append(kCrLf);
        text += "</HEAD>" + kEol + "<BODY>" + kEol;
        text += FormTitle(form);
        if (sections.addHotSpots)
            text += ControlsMap(form);
        if (sections.addImage)
            text += MainImage(form, true, {});
        if (sections.addMenuList)
            text += MenusList(form);
        if (sections.addMenuSections)
            text += Menus(form);
        if (sections.addControlsList)
            text += ControlsList(form);
        if (sections.addControlsSections)
            text += Controls(form, sections.addImage, sections.addHotSpots);
        text += "</BODY>" + kEol + "</HTML>" + kEol;
    }
    text = ReplaceAll(text, "{{FormName}}", form.NameNormalized());
    for (std::string_view marker : kSectionMarkers)
        text = ReplaceAll(text, marker, "");
    text = ReplaceAll(text, "{{HtmlScrivantExcludeList}}", "");
    text = WithHtmlLanguage(text, ProjectPageLanguage());
    text = WithPageTitle(text, title.empty() ? XmlEncodeChars(form.Name) : title);
    return ReplaceMessages(std::move(text));
}

std::string CFormHtmlTemplates::Charset(std::string_view charset)
{
    if (charset.empty())
        return {};
    return "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + std::string(charset) + "\">"
        + kEol;
}

std::string CFormHtmlTemplates::FormTitle(const CXmlForm& form) const
{
    return "<!-- + FORM TITLE + -->" + kEol + "<H1>" + Title(form) + "</H1>" + kEol
        + "<!-- - FORM TITLE - -->" + kEol;
}

// --- image maps ---

std::string CFormHtmlTemplates::ControlsMap(const CXmlForm& form) const
{
    if (!form.HasMap)
        return {};
    std::string out = "<!-- + CONTROLS MAP + -->" + kEol;
    out += "<MAP NAME=\"" + MapName(form) + "\"> " + kEol;
    for (const auto& entry : form.Controls()) {
        const CXmlControl& control = *entry.value;
        if (IsLabel(control) || !HasArea(control))
            continue;
        if (!IsTabControl(control)) {
            out += ControlArea(form, control, nullptr, false);
            continue;
        }
        bool first = true;
        for (const auto& pageEntry : control.Controls()) {
            const CXmlControl& page = *pageEntry.value;
            if (page.TabTop > -1)
                out += ControlArea(form, page, nullptr, true);
            if (first) {
                for (const auto& child : page.Controls())
                    if (!IsLabel(*child.value) && HasArea(*child.value))
                        out += ControlArea(form, *child.value, nullptr, false);
            }
            first = false;
        }
    }
    out += "</MAP>" + kEol + "<!-- - CONTROLS MAP - -->" + kEol;
    return out;
}

std::string CFormHtmlTemplates::ControlsMapOfControl(const CXmlForm& form, const CXmlControl& control) const
{
    if (!form.HasMap || control.Controls().Empty())
        return {};
    std::string out = "<!-- + CONTROLS MAP + -->" + kEol;
    out += "<MAP NAME=\"" + EncodeObjectName(MapName(form) + "_" + control.Name) + "\"> " + kEol;
    for (const auto& child : control.Controls())
        if (!IsLabel(*child.value) && HasArea(*child.value))
            out += ControlArea(form, *child.value, &control, IsPage(*child.value) && child.value->TabTop > -1);
    out += "</MAP>" + kEol + "<!-- - CONTROLS MAP - -->" + kEol;
    return out;
}

std::string CFormHtmlTemplates::ControlArea(const CXmlForm& form, const CXmlControl& control,
    const CXmlControl* parent, bool isTab) const
{
    std::string coords;
    if (isTab && parent) {
        // On the tab control's own picture a page is reached by its tab.
        coords = Coordinates(control.TabHotSpotLeft() - parent->HotSpotLeft(), control.TabHotSpotTop() - parent->HotSpotTop(),
            control.TabHotSpotRight() - parent->HotSpotLeft(), control.TabHotSpotBottom() - parent->HotSpotTop());
    } else if (isTab) {
        coords = Coordinates(control.TabHotSpotLeft(), control.TabHotSpotTop(), control.TabHotSpotRight(),
            control.TabHotSpotBottom());
    } else if (!parent) {
        coords = Coordinates(control.HotSpotLeft(false), control.HotSpotTop(false), control.HotSpotRight(false),
            control.HotSpotBottom(false));
    } else {
        // The area lies in the parent's own picture; a page's picture is its tab control's.
        const CXmlControl& frame = IsPage(*parent) && parent->ParentControl() ? *parent->ParentControl() : *parent;
        int inset = ParentInset(form, frame);
        coords = Coordinates(control.HotSpotLeft() - frame.HotSpotLeft(), control.HotSpotTop() - frame.HotSpotTop() + inset,
            control.HotSpotRight() - frame.HotSpotLeft(), control.HotSpotBottom() - frame.HotSpotTop() + inset);
    }
    return "<AREA SHAPE=\"RECT\" COORDS=\"" + coords + "\" HREF=\"#" + BookmarkName(form, control)
        + "\" FRAME=\"\" alt=\"" + TextAlternative(control.Caption(), control.Name) + "\" />" + kEol;
}

// --- pictures ---

std::string CFormHtmlTemplates::MainImage(const CXmlForm& form, bool useLocalPath, std::string_view basePath) const
{
    std::string picture = form.PicFullPath();
    if (picture.empty() || !FileExists(picture))
        return {};
    std::string source = PictureSource(form.PicLocalPath(), picture, useLocalPath, basePath, FolderOf(form.HtmlFullPath()));
    std::string out = "<!-- + MAIN IMAGE + -->" + kEol;
    out += "<IMG SRC=\"" + source + "\" BORDER=0 ALT=\"" + TextAlternative(form.Caption(), form.Name) + "\" " + kEol;
    if (form.HasMap)
        out += "USEMAP=\"#" + MapName(form) + "\" ";
    out += "/>" + kEol + "<!-- - MAIN IMAGE - -->" + kEol;
    return out;
}

std::string CFormHtmlTemplates::ControlImage(const CXmlForm& form, const CXmlControl& control, bool useLocalPath,
    std::string_view basePath) const
{
    std::string source = PictureSource(control.PicLocalPath(), control.PicFullPath, useLocalPath, basePath,
        FolderOf(form.HtmlFullPath()));
    std::string out = "<!-- + CONTROL IMAGE + -->" + kEol;
    out += "<IMG SRC=\"" + source + "\" BORDER=0 ALT=\"" + TextAlternative(control.Caption(), control.Name) + "\" "
        + kEol;
    if (form.HasMap && !control.Controls().Empty())
        out += "USEMAP=\"#" + EncodeObjectName(MapName(form) + "_" + control.Name) + "\" ";
    out += "/>" + kEol + "<!-- - CONTROL IMAGE - -->" + kEol;
    return out;
}

// --- menus ---

std::string CFormHtmlTemplates::MenusList(const CXmlForm& form) const
{
    if (!form.HasMenu())
        return {};
    std::string out = ListOpen() + kEol;
    for (const auto& entry : form.Menus())
        out += ItemOpen() + "<a href=\"#" + BookmarkNameForMenu(form, *entry.value) + "\">" + Title(*entry.value)
            + "</a>" + ItemClose() + kEol;
    return out + ListClose() + kEol;
}

std::string CFormHtmlTemplates::Menus(const CXmlForm& form) const
{
    std::string out;
    for (const auto& entry : form.Menus())
        out += "<H2><a name=\"" + BookmarkNameForMenu(form, *entry.value) + "\">" + Title(*entry.value) + "</a></H2>"
            + kEol;
    return out;
}

// --- controls ---

std::string CFormHtmlTemplates::ControlsList(const CXmlForm& form) const
{
    if (form.Controls().Empty())
        return {};
    std::string out = ListOpen() + kEol;
    for (const auto& entry : form.Controls())
        if (!IsLabel(*entry.value))
            out += SubControlsList(form, *entry.value, true);
    return out + ListClose() + kEol;
}

std::string CFormHtmlTemplates::SubControlsList(const CXmlForm& form, const CXmlControl& control,
    bool recursive) const
{
    std::string title = IsPage(control) ? "TAB:" + Title(control) : Title(control);
    std::string out = ItemOpen() + "<a href=\"#" + BookmarkName(form, control) + "\">" + title + "</a>" + ItemClose()
        + kEol;
    if (recursive)
        for (const auto& child : control.Controls())
            if (!IsLabel(*child.value))
                out += SubControlsList(form, *child.value, true);
    return out;
}

std::string CFormHtmlTemplates::Controls(const CXmlForm& form, bool addImage, bool addMap) const
{
    std::string out;
    for (const auto& entry : form.Controls())
        if (!IsLabel(*entry.value))
            out += SubControls(form, *entry.value, addImage, addMap);
    return out;
}

std::string CFormHtmlTemplates::SubControls(const CXmlForm& form, const CXmlControl& control, bool addImage,
    bool addMap) const
{
    std::string bookmark = BookmarkName(form, control);
    std::string title = IsPage(control) ? "TAB:" + Title(control) : Title(control);
    std::string out = "<H2><a name=\"" + bookmark + "\">" + title + "</a></H2>" + kEol;
    bool compound = IsTabControl(control) || EqualsNoCase(control.ClassName, "Frame") || !control.Controls().Empty();
    if (addImage && !control.PicFullPath.empty() && compound) {
        if (addMap)
            out += ControlsMapOfControl(form, control);
        out += ControlImage(form, control, true, {});
    }
    if (IsTabControl(control) && !control.Controls().Empty()) {
        out += ListOpen() + kEol;
        for (const auto& page : control.Controls())
            out += ItemOpen() + "<a HREF=\"#" + BookmarkName(form, *page.value) + "\">TAB:" + Title(*page.value)
                + "</a>" + ItemClose() + kEol;
        out += ListClose() + kEol;
    }
    std::string description;
    if (Parameters().InsertExternalDescriptions)
        description = GetDescription(Folders().UserDataFolder() + "descriptions/", bookmark);
    if (description.empty() && !control.Description.empty())
        description = XmlEncodeChars(control.Description);
    if (!description.empty())
        out += "<p>" + description + "</p>" + kEol;
    for (const auto& child : control.Controls())
        if (!IsLabel(*child.value))
            out += SubControls(form, *child.value, addImage, addMap);
    return out;
}

// --- outside texts ---

std::string CFormHtmlTemplates::GetDescription(std::string_view folder, std::string_view key)
{
    std::string path = AddBackslash(folder) + "Descriptions.db";
    if (key.empty() || !FileExists(path))
        return {};
    sqlite3* raw = nullptr;
    if (sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        Trace("CFormHtmlTemplates.GetDescription: cannot open " + path);
        sqlite3_close(raw);
        return {};
    }
    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(raw, &sqlite3_close);
    sqlite3_stmt* rawStatement = nullptr;
    if (sqlite3_prepare_v2(database.get(), "SELECT Description FROM tblDescription WHERE Key = ?1", -1,
            &rawStatement, nullptr)
        != SQLITE_OK) {
        Trace("CFormHtmlTemplates.GetDescription: " + std::string(sqlite3_errmsg(database.get())));
        return {};
    }
    std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(rawStatement, &sqlite3_finalize);
    sqlite3_bind_text(statement.get(), 1, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    if (sqlite3_step(statement.get()) != SQLITE_ROW)
        return {};
    const unsigned char* text = sqlite3_column_text(statement.get(), 0);
    return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

std::string CFormHtmlTemplates::GenerateQueryFieldsHTML(std::string_view queryXml, std::string_view name) const
{
    CXMLFile document;
    if (queryXml.empty() || document.LoadXml(queryXml) != 0)
        return {};
    pugi::xml_node query = document.SelectSingleNode("//Query");
    if (!query)
        return {};
    std::string out = "<H2>" + XmlEncodeChars(query.attribute("Name").value()) + "</H2>" + kEol;
    CHelpPrjTree* tree = nullptr;
    if (IRunContext* context = CurrentRunContext())
        tree = context->LoadedTree();
    // Inherited fields are listed per table, six to a line, each linked to its table's topic.
    std::vector<std::pair<std::string, std::vector<std::string>>> tables;
    for (pugi::xml_node field : document.SelectSingleNode("//Query/InheritedFields").children()) {
        std::string text = field.attribute("Table").value();
        std::vector<std::string> parts = Split(text, "|");
        std::string table = parts.size() > 1 ? parts[0] : text;
        std::string fieldName = parts.size() > 1 ? parts[1] : std::string(field.attribute("Name").value());
        auto group = std::find_if(tables.begin(), tables.end(), [&](const auto& g) { return g.first == table; });
        if (group == tables.end()) {
            tables.push_back({ table, {} });
            group = std::prev(tables.end());
        }
        group->second.push_back(fieldName);
    }
    for (const auto& [table, fields] : tables) {
        std::string file = tree ? tree->GetNodeHtmlFileNameNoExt(table, "Table") : EncodeObjectName(table);
        out += "<P>";
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (i > 0)
                out += ", ";
            if (i > 0 && i % 6 == 0)
                out += "<BR>";
            out += "<A href=\"" + file + ".htm#" + EncodeObjectName(table) + "_" + EncodeObjectName(fields[i]) + "\">"
                + XmlEncodeChars(fields[i]) + "</A>";
        }
        out += "&nbsp;from <A href=\"" + file + ".htm\">" + XmlEncodeChars(table) + "</A>&nbsp;table.</P>"
            + kEol;
    }
    pugi::xml_node calculated = document.SelectSingleNode("//Query/CalculatedFields");
    if (calculated) {
        out += "<P></P>" + kEol;
        for (pugi::xml_node field : calculated.children()) {
            std::string fieldName = field.attribute("Name").value();
            out += "<H3><A name=\"" + EncodeObjectName(std::string(name) + "_" + fieldName) + "\">"
                + XmlEncodeChars(fieldName) + "</A></H3>" + kEol;
        }
    }
    return out;
}

}  // namespace scriv
