#include "wordexport/WordDocument.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <regex>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "wordexport/UriText.h"

namespace scriv {

namespace {

constexpr const char* kSettingsPart = "word/settings.xml";
constexpr const char* kNumberingPart = "word/numbering.xml";
constexpr const char* kCorePart = "docProps/core.xml";

bool IsNamed(const pugi::xml_node& node, const char* name)
{
    return node.type() == pugi::node_element && std::strcmp(node.name(), name) == 0;
}

// The next node in document order below root, or an empty node at the end.
pugi::xml_node NextInOrder(pugi::xml_node node, const pugi::xml_node& root)
{
    if (node.first_child())
        return node.first_child();
    while (node && node != root) {
        if (node.next_sibling())
            return node.next_sibling();
        node = node.parent();
    }
    return {};
}

pugi::xml_node EnclosingElement(pugi::xml_node node, const char* name)
{
    for (; node; node = node.parent())
        if (IsNamed(node, name))
            return node;
    return {};
}

std::string FieldCharType(const pugi::xml_node& run)
{
    pugi::xml_node fieldChar = run.child("w:fldChar");
    return fieldChar ? fieldChar.attribute("w:fldCharType").value() : std::string();
}

// A run with one child element.
pugi::xml_node AppendRun(pugi::xml_node parent, const char* childName)
{
    pugi::xml_node run = parent.append_child("w:r");
    run.append_child(childName);
    return run;
}

pugi::xml_node AppendTextRun(pugi::xml_node parent, const std::string& text)
{
    pugi::xml_node t = AppendRun(parent, "w:t").child("w:t");
    t.append_attribute("xml:space") = "preserve";
    t.text().set(text.c_str());
    return t.parent();
}

pugi::xml_node AppendFieldChar(pugi::xml_node parent, const char* type)
{
    pugi::xml_node run = AppendRun(parent, "w:fldChar");
    run.child("w:fldChar").append_attribute("w:fldCharType") = type;
    return run;
}

// The w:instrText or w:fldSimple of the first field whose instruction starts
// with keyword (a whole word, any case).
pugi::xml_node FindField(const pugi::xml_document& doc, std::string_view keyword)
{
    auto matches = [&](std::string instruction) {
        instruction = TrimWhitespace(instruction);
        if (!StartsWithNoCase(instruction, keyword))
            return false;
        return instruction.size() == keyword.size() || instruction[keyword.size()] == ' '
            || instruction[keyword.size()] == '\\';
    };
    pugi::xml_node root = doc.document_element();
    for (pugi::xml_node node = root; node; node = NextInOrder(node, root)) {
        if (IsNamed(node, "w:instrText") && matches(node.text().get()))
            return node;
        if (IsNamed(node, "w:fldSimple") && matches(node.attribute("w:instr").value()))
            return node;
    }
    return {};
}

// Turns a simple field into begin, instruction, separate, its result, end.
pugi::xml_node ExpandSimpleField(pugi::xml_node simple)
{
    pugi::xml_node parent = simple.parent();
    std::string instruction = simple.attribute("w:instr").value();
    pugi::xml_node begin = parent.insert_child_before("w:r", simple);
    begin.append_child("w:fldChar").append_attribute("w:fldCharType") = "begin";
    pugi::xml_node instr = parent.insert_child_before("w:r", simple);
    pugi::xml_node text = instr.append_child("w:instrText");
    text.append_attribute("xml:space") = "preserve";
    text.text().set(instruction.c_str());
    pugi::xml_node separate = parent.insert_child_before("w:r", simple);
    separate.append_child("w:fldChar").append_attribute("w:fldCharType") = "separate";
    while (pugi::xml_node child = simple.first_child())
        parent.insert_move_before(child, simple);
    pugi::xml_node end = parent.insert_child_before("w:r", simple);
    end.append_child("w:fldChar").append_attribute("w:fldCharType") = "end";
    parent.remove_child(simple);
    return text;
}

// The runs that bound a complex field, found from one of its instruction runs.
struct FieldRuns {
    pugi::xml_node begin;
    pugi::xml_node separate; // may be empty: a field without result
    pugi::xml_node end;
    std::vector<pugi::xml_node> instructions;
};

std::optional<FieldRuns> LocateField(pugi::xml_node instrText, const pugi::xml_node& root)
{
    FieldRuns field;
    pugi::xml_node instrRun = instrText.parent();
    // Back to the begin: the nearest unmatched begin before the instruction.
    pugi::xml_node paragraph = EnclosingElement(instrRun, "w:p");
    if (!paragraph)
        return std::nullopt;
    int depth = 0;
    for (pugi::xml_node run = instrRun.previous_sibling(); run; run = run.previous_sibling()) {
        std::string type = FieldCharType(run);
        if (type == "end")
            ++depth;
        else if (type == "begin" && depth-- == 0) {
            field.begin = run;
            break;
        }
    }
    if (!field.begin)
        return std::nullopt;
    depth = 0;
    for (pugi::xml_node node = NextInOrder(field.begin, root); node; node = NextInOrder(node, root)) {
        if (!IsNamed(node, "w:r"))
            continue;
        std::string type = FieldCharType(node);
        if (type == "begin")
            ++depth;
        else if (type == "end" && depth-- == 0) {
            field.end = node;
            break;
        } else if (type == "separate" && depth == 0)
            field.separate = node;
        else if (depth == 0 && !field.separate && node.child("w:instrText"))
            field.instructions.push_back(node);
    }
    if (!field.end)
        return std::nullopt;
    return field;
}

int IntAttribute(const pugi::xml_node& node, const char* name, int fallback)
{
    pugi::xml_attribute attribute = node.attribute(name);
    return attribute ? attribute.as_int(fallback) : fallback;
}

void AddAbstractNumbering(pugi::xml_node numbering, int id, bool ordered)
{
    pugi::xml_node before = numbering.child("w:num");
    if (!before)
        before = numbering.child("w:numIdMacAtCleanup");
    pugi::xml_node abstract
        = before ? numbering.insert_child_before("w:abstractNum", before) : numbering.append_child("w:abstractNum");
    abstract.append_attribute("w:abstractNumId") = id;
    abstract.append_child("w:multiLevelType").append_attribute("w:val") = ordered ? "multilevel" : "hybridMultilevel";
    static const char* bullets[] = { "\xE2\x80\xA2", "\xE2\x97\xA6", "\xE2\x96\xAA" };
    for (int level = 0; level < 9; ++level) {
        pugi::xml_node lvl = abstract.append_child("w:lvl");
        lvl.append_attribute("w:ilvl") = level;
        lvl.append_child("w:start").append_attribute("w:val") = 1;
        lvl.append_child("w:numFmt").append_attribute("w:val") = ordered ? "decimal" : "bullet";
        std::string text = ordered ? "%" + std::to_string(level + 1) + "." : bullets[level % 3];
        lvl.append_child("w:lvlText").append_attribute("w:val") = text.c_str();
        lvl.append_child("w:lvlJc").append_attribute("w:val") = "left";
        pugi::xml_node ind = lvl.append_child("w:pPr").append_child("w:ind");
        ind.append_attribute("w:left") = 360 * (level + 1) + 360;
        ind.append_attribute("w:hanging") = 360;
    }
}

}  // namespace

WordDocument::WordDocument(OoxmlPackage templatePackage)
    : m_package(std::move(templatePackage))
{
    LoadXmlPart(m_package, ooxml::kDocumentPart, m_document);
    LoadXmlPart(m_package, ooxml::kContentTypesPart, m_contentTypes);
    if (m_package.HasPart(ooxml::kDocumentRelsPart))
        LoadXmlPart(m_package, ooxml::kDocumentRelsPart, m_documentRels);
    else
        m_documentRels.append_child("Relationships").append_attribute("xmlns") = ooxml::kNsPackageRels;
    m_body = m_document.document_element().child("w:body");
    if (!m_body)
        Raise(status::kGeneralFailure, "WordDocument.WordDocument", "The Word template's document has no body.");
    for (pugi::xml_node child = m_body.last_child(); child; child = child.previous_sibling())
        if (child.type() == pugi::node_element) {
            if (IsNamed(child, "w:sectPr"))
                m_sectionProperties = child;
            break;
        }
    EnsureNamespaces();
    ReadTemplateIds();
    ReadTemplateNumbering();
    ReadTextWidth();

    // The fields are brought up to date when the document is opened.
    pugi::xml_document settings;
    if (m_package.HasPart(kSettingsPart)) {
        LoadXmlPart(m_package, kSettingsPart, settings);
    } else {
        pugi::xml_node root = settings.append_child("w:settings");
        root.append_attribute("xmlns:w") = ooxml::kNsMain;
        NewRelationship(ooxml::kRelSettings, "settings.xml", false);
        pugi::xml_node types = m_contentTypes.document_element();
        pugi::xml_node override = types.append_child("Override");
        override.append_attribute("PartName") = "/word/settings.xml";
        override.append_attribute("ContentType") = ooxml::kSettingsType;
    }
    EnsureUpdateFieldsSetting(settings);
    m_package.SetPart(kSettingsPart, SerializeXmlPart(settings));
}

void WordDocument::EnsureNamespaces()
{
    pugi::xml_node root = m_document.document_element();
    const std::pair<const char*, const char*> namespaces[] = {
        { "xmlns:w", ooxml::kNsMain },
        { "xmlns:r", ooxml::kNsRelationships },
        { "xmlns:wp", ooxml::kNsWordDrawing },
        { "xmlns:a", ooxml::kNsDrawing },
        { "xmlns:pic", ooxml::kNsPicture },
    };
    for (const auto& [name, uri] : namespaces)
        if (!root.attribute(name))
            root.append_attribute(name) = uri;
}

void WordDocument::EnsureUpdateFieldsSetting(pugi::xml_document& settings) const
{
    pugi::xml_node root = settings.document_element();
    pugi::xml_node update = root.child("w:updateFields");
    if (!update) {
        // The schema wants it in front of these, and behind every other setting.
        static const char* later[] = { "w:hdrShapeDefaults", "w:footnotePr", "w:endnotePr", "w:compat", "w:docVars",
            "w:rsids", "m:mathPr", "w:attachedSchema", "w:themeFontLang", "w:clrSchemeMapping",
            "w:doNotIncludeSubdocsInStats", "w:doNotAutoCompressPictures", "w:forceUpgrade", "w:captions",
            "w:readModeInkLockDown", "w:smartTagType", "sl:schemaLibrary", "w:shapeDefaults",
            "w:doNotEmbedSmartTags", "w:decimalSymbol", "w:listSeparator" };
        pugi::xml_node before;
        for (pugi::xml_node child = root.first_child(); child && !before; child = child.next_sibling())
            for (const char* name : later)
                if (IsNamed(child, name))
                    before = child;
        update = before ? root.insert_child_before("w:updateFields", before) : root.append_child("w:updateFields");
    }
    if (!update.attribute("w:val"))
        update.append_attribute("w:val");
    update.attribute("w:val") = "true";
}

void WordDocument::ReadTemplateIds()
{
    pugi::xml_node root = m_document.document_element();
    for (pugi::xml_node node = root; node; node = NextInOrder(node, root)) {
        if (IsNamed(node, "w:bookmarkStart")) {
            m_lastBookmarkId = std::max(m_lastBookmarkId, IntAttribute(node, "w:id", 0));
            m_bookmarkNames.insert(ToLower(node.attribute("w:name").value()));
        } else if (IsNamed(node, "wp:docPr"))
            m_lastDrawingId = std::max(m_lastDrawingId, IntAttribute(node, "id", 0));
    }
    for (pugi::xml_node rel : m_documentRels.document_element().children("Relationship")) {
        std::string id = rel.attribute("Id").value();
        if (StartsWithNoCase(id, "rId"))
            m_lastRelationshipNumber = std::max(m_lastRelationshipNumber, ToInt(id.substr(3)));
    }
    for (const std::string& name : m_package.PartNames())
        if (name.rfind("word/media/", 0) == 0)
            m_mediaNames.insert(name);
}

void WordDocument::ReadTemplateNumbering()
{
    if (!m_package.HasPart(kNumberingPart))
        return;
    LoadXmlPart(m_package, kNumberingPart, m_numbering);
    m_hasNumbering = true;
    pugi::xml_node root = m_numbering.document_element();
    for (pugi::xml_node abstract : root.children("w:abstractNum")) {
        int id = IntAttribute(abstract, "w:abstractNumId", 0);
        m_lastAbstractNumId = std::max(m_lastAbstractNumId, id);
        for (pugi::xml_node lvl : abstract.children("w:lvl")) {
            if (IntAttribute(lvl, "w:ilvl", -1) != 0)
                continue;
            std::string format = lvl.child("w:numFmt").attribute("w:val").value();
            if (format == "bullet" && m_bulletAbstractNum < 0)
                m_bulletAbstractNum = id;
            else if (format == "decimal" && m_numberAbstractNum < 0)
                m_numberAbstractNum = id;
        }
    }
    for (pugi::xml_node num : root.children("w:num"))
        m_lastNumId = std::max(m_lastNumId, IntAttribute(num, "w:numId", 0));
}

void WordDocument::ReadTextWidth()
{
    if (!m_sectionProperties)
        return;
    int page = IntAttribute(m_sectionProperties.child("w:pgSz"), "w:w", 11906);
    pugi::xml_node margins = m_sectionProperties.child("w:pgMar");
    int width = page - IntAttribute(margins, "w:left", 1134) - IntAttribute(margins, "w:right", 1134);
    if (width > 1440)
        m_textWidthTwips = width;
}

std::string WordDocument::NewRelationship(const char* type, const std::string& target, bool external)
{
    std::string id = "rId" + std::to_string(++m_lastRelationshipNumber);
    pugi::xml_node rel = m_documentRels.document_element().append_child("Relationship");
    rel.append_attribute("Id") = id.c_str();
    rel.append_attribute("Type") = type;
    rel.append_attribute("Target") = target.c_str();
    if (external)
        rel.append_attribute("TargetMode") = "External";
    return id;
}

bool WordDocument::SetTitle(const std::string& title)
{
    if (const std::string* core = m_package.Part(kCorePart)) {
        pugi::xml_document properties;
        if (properties.load_buffer(core->data(), core->size())) {
            pugi::xml_node root = properties.document_element();
            pugi::xml_node element = root.child("dc:title");
            if (!element) {
                element = root.append_child("dc:title");
                if (!root.attribute("xmlns:dc"))
                    root.append_attribute("xmlns:dc") = "http://purl.org/dc/elements/1.1/";
            }
            element.text().set(title.c_str());
            m_package.SetPart(kCorePart, SerializeXmlPart(properties));
        }
    }

    pugi::xml_node found = FindField(m_document, "TITLE");
    if (!found)
        return false;
    if (IsNamed(found, "w:fldSimple"))
        found = ExpandSimpleField(found);
    std::optional<FieldRuns> field = LocateField(found, m_document.document_element());
    if (!field)
        return false;
    pugi::xml_node paragraph = field->end.parent();
    if (!field->separate) {
        field->separate = paragraph.insert_child_before("w:r", field->end);
        field->separate.append_child("w:fldChar").append_attribute("w:fldCharType") = "separate";
    }
    // The result is replaced only where it lies in one paragraph with its end.
    if (field->separate.parent() != paragraph)
        return true;
    // The title keeps the look of the result it replaces.
    pugi::xml_document format;
    while (field->separate.next_sibling() != field->end) {
        pugi::xml_node old = field->separate.next_sibling();
        if (!format.first_child() && old.child("w:rPr"))
            format.append_copy(old.child("w:rPr"));
        paragraph.remove_child(old);
    }
    pugi::xml_node run = paragraph.insert_child_before("w:r", field->end);
    if (format.first_child())
        run.append_copy(format.first_child());
    pugi::xml_node t = run.append_child("w:t");
    t.append_attribute("xml:space") = "preserve";
    t.text().set(title.c_str());
    return true;
}

bool WordDocument::FillTableOfContents(int lowerHeadingLevel)
{
    lowerHeadingLevel = std::clamp(lowerHeadingLevel, 1, 9);
    pugi::xml_node found = FindField(m_document, "TOC");
    if (!found)
        return false;
    if (IsNamed(found, "w:fldSimple"))
        found = ExpandSimpleField(found);
    pugi::xml_node root = m_document.document_element();
    std::optional<FieldRuns> field = LocateField(found, root);
    if (!field)
        return false;
    pugi::xml_node first = EnclosingElement(field->begin, "w:p");
    pugi::xml_node last = EnclosingElement(field->end, "w:p");
    if (!first || !last || first.parent() != last.parent())
        return false;

    // The instruction, with its lowest heading level.
    std::string instruction;
    for (pugi::xml_node run : field->instructions)
        instruction += run.child("w:instrText").text().get();
    std::string levels = "\\o \"1-" + std::to_string(lowerHeadingLevel) + "\"";
    static const std::regex outline(R"(\\o\s*"[^"]*")");
    if (std::regex_search(instruction, outline))
        instruction = std::regex_replace(instruction, outline, levels);
    else
        instruction = " TOC " + levels + " " + TrimWhitespace(instruction).substr(3) + " ";
    for (std::size_t i = 0; i < field->instructions.size(); ++i)
        field->instructions[i].child("w:instrText").text().set(i == 0 ? instruction.c_str() : "");
    pugi::xml_node beginChar = field->begin.child("w:fldChar");
    if (!beginChar.attribute("w:dirty"))
        beginChar.append_attribute("w:dirty");
    beginChar.attribute("w:dirty") = "true";

    // What follows the field in its last paragraph stays behind it.
    pugi::xml_document tail;
    for (pugi::xml_node node = field->end.next_sibling(); node; node = node.next_sibling())
        tail.append_copy(node);
    pugi::xml_document endRun;
    endRun.append_copy(field->end);
    if (!field->separate || field->separate.parent() != first) {
        field->separate = first.insert_child_after("w:r", field->instructions.empty() ? field->begin
                                                                                       : field->instructions.back());
        field->separate.append_child("w:fldChar").append_attribute("w:fldCharType") = "separate";
    }
    while (pugi::xml_node after = field->separate.next_sibling())
        first.remove_child(after);
    pugi::xml_node container = first.parent();
    if (last != first) {
        while (first.next_sibling() != last)
            container.remove_child(first.next_sibling());
        container.remove_child(last);
    }

    pugi::xml_node paragraph = first;
    bool firstEntry = true;
    for (const Heading& heading : m_headings) {
        if (heading.level > lowerHeadingLevel)
            continue;
        if (!firstEntry)
            paragraph = container.insert_child_after("w:p", paragraph);
        pugi::xml_node properties = paragraph.child("w:pPr");
        if (properties)
            paragraph.remove_child(properties);
        properties = paragraph.prepend_child("w:pPr");
        std::string style = "TOC" + std::to_string(heading.level);
        properties.append_child("w:pStyle").append_attribute("w:val") = style.c_str();
        pugi::xml_node tab = properties.append_child("w:tabs").append_child("w:tab");
        tab.append_attribute("w:val") = "right";
        tab.append_attribute("w:leader") = "dot";
        tab.append_attribute("w:pos") = m_textWidthTwips - 10;
        firstEntry = false;

        pugi::xml_node link = paragraph.append_child("w:hyperlink");
        link.append_attribute("w:anchor") = heading.bookmark.c_str();
        link.append_attribute("w:history") = "1";
        AppendTextRun(link, heading.text);
        AppendRun(link, "w:tab");
        AppendFieldChar(link, "begin");
        pugi::xml_node instr = AppendRun(link, "w:instrText").child("w:instrText");
        instr.append_attribute("xml:space") = "preserve";
        std::string reference = " PAGEREF " + heading.bookmark + " \\h ";
        instr.text().set(reference.c_str());
        AppendFieldChar(link, "separate");
        AppendFieldChar(link, "end");
    }
    paragraph.append_copy(endRun.first_child());
    for (pugi::xml_node node = tail.first_child(); node; node = node.next_sibling())
        paragraph.append_copy(node);
    return true;
}

pugi::xml_node WordDocument::AppendBlock(const char* name)
{
    if (m_sectionProperties)
        return m_body.insert_child_before(name, m_sectionProperties);
    return m_body.append_child(name);
}

std::string WordDocument::AddHeading(int level, std::string text)
{
    char name[24];
    do {
        std::snprintf(name, sizeof name, "_Toc%09d", ++m_lastTocNumber);
    } while (!ClaimBookmarkName(name));
    m_headings.push_back({ std::clamp(level, 1, 9), std::move(text), name });
    return name;
}

std::optional<WordDocument::Picture> WordDocument::AddPicture(const std::string& path, bool link)
{
    std::string key = (link ? "link:" : "embed:") + path;
    if (auto known = m_picturesByPath.find(key); known != m_picturesByPath.end())
        return known->second;
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        return std::nullopt;
    PictureFormat format = PictureFormatOf(*bytes);
    std::optional<PixelSize> size = PictureSizeOf(*bytes);
    if (format == PictureFormat::Unknown || !size)
        return std::nullopt;

    Picture picture;
    picture.size = *size;
    picture.name = FileNameOf(path);
    picture.linked = link;
    if (link) {
        picture.relationshipId = NewRelationship(ooxml::kRelImage, FileUrl(path), true);
    } else {
        std::string extension = PictureExtension(format);
        std::string media;
        for (std::size_t n = m_mediaNames.size() + 1;; ++n) {
            media = "word/media/image" + std::to_string(n) + "." + extension;
            if (m_mediaNames.insert(media).second)
                break;
        }
        m_package.SetPart(media, std::move(*bytes));
        pugi::xml_node types = m_contentTypes.document_element();
        bool known = false;
        for (pugi::xml_node entry : types.children("Default"))
            known = known || EqualsNoCase(entry.attribute("Extension").value(), extension);
        if (!known) {
            pugi::xml_node entry = types.prepend_child("Default");
            entry.append_attribute("Extension") = extension.c_str();
            entry.append_attribute("ContentType") = PictureContentType(format).c_str();
        }
        picture.relationshipId = NewRelationship(ooxml::kRelImage, media.substr(5), false);
    }
    m_picturesByPath.emplace(key, picture);
    return picture;
}

std::string WordDocument::AddExternalHyperlink(const std::string& target)
{
    if (auto known = m_hyperlinksByTarget.find(target); known != m_hyperlinksByTarget.end())
        return known->second;
    std::string id = NewRelationship(ooxml::kRelHyperlink, target, true);
    m_hyperlinksByTarget.emplace(target, id);
    return id;
}

pugi::xml_node WordDocument::EnsureNumberingRoot()
{
    if (!m_hasNumbering) {
        pugi::xml_node root = m_numbering.append_child("w:numbering");
        root.append_attribute("xmlns:w") = ooxml::kNsMain;
        NewRelationship(ooxml::kRelNumbering, "numbering.xml", false);
        pugi::xml_node override = m_contentTypes.document_element().append_child("Override");
        override.append_attribute("PartName") = "/word/numbering.xml";
        override.append_attribute("ContentType") = ooxml::kNumberingType;
        m_hasNumbering = true;
    }
    return m_numbering.document_element();
}

int WordDocument::NewListNumbering(bool ordered, int level, int start)
{
    pugi::xml_node root = EnsureNumberingRoot();
    int& abstract = ordered ? m_numberAbstractNum : m_bulletAbstractNum;
    if (abstract < 0) {
        abstract = ++m_lastAbstractNumId;
        AddAbstractNumbering(root, abstract, ordered);
    }
    int id = ++m_lastNumId;
    pugi::xml_node cleanup = root.child("w:numIdMacAtCleanup");
    pugi::xml_node num = cleanup ? root.insert_child_before("w:num", cleanup) : root.append_child("w:num");
    num.append_attribute("w:numId") = id;
    num.append_child("w:abstractNumId").append_attribute("w:val") = abstract;
    if (ordered) {
        // Each list counts from its own start.
        pugi::xml_node override = num.append_child("w:lvlOverride");
        override.append_attribute("w:ilvl") = std::clamp(level, 0, 8);
        override.append_child("w:startOverride").append_attribute("w:val") = std::max(start, 0);
    }
    m_numberingChanged = true;
    return id;
}

// Word takes bookmark names without regard to case.
bool WordDocument::ClaimBookmarkName(const std::string& name, const std::string& owner)
{
    std::string key = ToLower(name);
    if (auto reserved = m_reservedBookmarks.find(key); reserved != m_reservedBookmarks.end()
        && !EqualsNoCase(reserved->second, owner))
        return false;
    return m_bookmarkNames.insert(key).second;
}

void WordDocument::ReserveBookmarkName(const std::string& name, const std::string& owner)
{
    m_reservedBookmarks.emplace(ToLower(name), owner);
}

std::string WordDocument::DocumentXml() const
{
    return SerializeXmlPart(m_document);
}

OoxmlPackage WordDocument::Package()
{
    SyncParts();
    return m_package;
}

void WordDocument::Save(const std::string& path)
{
    SyncParts();
    m_package.Save(path);
}

void WordDocument::SyncParts()
{
    // The body's parts go into the package as they stand now.
    pugi::xml_node types = m_contentTypes.document_element();
    pugi::xml_node main;
    for (pugi::xml_node entry : types.children("Override"))
        if (EqualsNoCase(entry.attribute("PartName").value(), "/word/document.xml"))
            main = entry;
    if (!main) {
        main = types.append_child("Override");
        main.append_attribute("PartName") = "/word/document.xml";
        main.append_attribute("ContentType");
    }
    main.attribute("ContentType") = ooxml::kDocumentMainType;
    m_package.SetPart(ooxml::kContentTypesPart, SerializeXmlPart(m_contentTypes));
    m_package.SetPart(ooxml::kDocumentRelsPart, SerializeXmlPart(m_documentRels));
    m_package.SetPart(ooxml::kDocumentPart, SerializeXmlPart(m_document));
    if (m_hasNumbering && (m_numberingChanged || !m_package.HasPart(kNumberingPart)))
        m_package.SetPart(kNumberingPart, SerializeXmlPart(m_numbering));
    m_numberingChanged = false;
}

}  // namespace scriv
