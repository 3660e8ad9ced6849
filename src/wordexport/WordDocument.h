#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <pugixml.hpp>

#include "wordexport/OoxmlPackage.h"
#include "wordexport/PictureSize.h"

namespace scriv {

// A Word document made from a template: the template's title field and table
// of contents, and a body that grows at its end. It keeps what the body's
// content refers to: pictures, hyperlink targets, list numbering and bookmarks.
class WordDocument {
public:
    // --- creating ---
    // Starts a document from a template package (a .dotx, or the template's
    // readable parts). Raises ScrivError 0x80040001 when the package lacks a
    // well-formed document, content types or relationships.
    explicit WordDocument(OoxmlPackage templatePackage);
    WordDocument(const WordDocument&) = delete;
    WordDocument& operator=(const WordDocument&) = delete;

    // --- the template's fields ---
    // Shows title as the result of the first TITLE field and stores it as the
    // document's title property. False when the template has no title field
    // (the property is set all the same).
    bool SetTitle(const std::string& title);
    // Fills the first TOC field with one entry per heading of the body down to
    // lowerHeadingLevel (1 to 9), each linked to its heading, with a page
    // reference that Word or LibreOffice computes; the field and the document
    // are marked to be updated on open. False when the template has no table
    // of contents.
    bool FillTableOfContents(int lowerHeadingLevel);

    // --- the body ---
    // A new element (w:p, w:tbl) at the end of the body, before its section properties.
    pugi::xml_node AppendBlock(const char* name);
    // The width of the text between the page margins, in twips.
    int TextWidthTwips() const { return m_textWidthTwips; }

    struct Heading {
        int level { 1 };
        std::string text;
        std::string bookmark;
    };
    // Records a heading of the body for the table of contents and answers the
    // bookmark name ("_Toc" and a number) to put around it.
    std::string AddHeading(int level, std::string text);
    const std::vector<Heading>& Headings() const { return m_headings; }

    // --- what the body refers to ---
    struct Picture {
        std::string relationshipId;
        PixelSize size;
        std::string name; // the file name, for the drawing's description
        bool linked { false };
    };
    // The picture of a file: embedded as a media part (once per file) or, with
    // link, referred to by its path. Nothing when the file cannot be read or is
    // no JPEG, PNG, GIF or BMP picture.
    std::optional<Picture> AddPicture(const std::string& path, bool link);
    // The relationship id of an external hyperlink target (one per target).
    std::string AddExternalHyperlink(const std::string& target);
    // A new numbering instance of a bulleted or a numbered list whose level
    // starts at start; answers its id for w:numId.
    int NewListNumbering(bool ordered, int level, int start);

    // Bookmark names are unique in a document. Claim answers false when the
    // name is taken, or reserved for another owner.
    bool ClaimBookmarkName(const std::string& name, const std::string& owner = {});
    // Keeps names for owners that come later (the anchors of the exported pages).
    void ReserveBookmarkName(const std::string& name, const std::string& owner);
    int NextBookmarkId() { return ++m_lastBookmarkId; }
    int NextDrawingId() { return ++m_lastDrawingId; }

    // --- writing ---
    // The package as it stands, as a .docx (the template's content type turned
    // into a document's).
    OoxmlPackage Package();
    // Writes Package() to path. Raises ScrivError 0x80040001 naming the file.
    void Save(const std::string& path);

    // The text of the body's document.xml part as it would be saved.
    std::string DocumentXml() const;

private:
    void SyncParts();
    void ReadTemplateNumbering();
    void ReadTemplateIds();
    void ReadTextWidth();
    std::string NewRelationship(const char* type, const std::string& target, bool external);
    void EnsureNamespaces();
    void EnsureUpdateFieldsSetting(pugi::xml_document& settings) const;
    pugi::xml_node EnsureNumberingRoot();

    OoxmlPackage m_package;
    pugi::xml_document m_document;
    pugi::xml_document m_documentRels;
    pugi::xml_document m_contentTypes;
    pugi::xml_document m_numbering;
    bool m_hasNumbering { false };
    bool m_numberingChanged { false };
    pugi::xml_node m_body;
    pugi::xml_node m_sectionProperties;
    int m_textWidthTwips { 9638 };

    std::vector<Heading> m_headings;
    std::unordered_map<std::string, Picture> m_picturesByPath;
    std::unordered_map<std::string, std::string> m_hyperlinksByTarget;
    std::unordered_set<std::string> m_bookmarkNames;
    std::unordered_map<std::string, std::string> m_reservedBookmarks; // name -> owner
    std::set<std::string> m_mediaNames;
    int m_lastRelationshipNumber { 0 };
    int m_lastBookmarkId { 0 };
    int m_lastDrawingId { 0 };
    int m_lastNumId { 0 };
    int m_lastAbstractNumId { 0 };
    int m_bulletAbstractNum { -1 };
    int m_numberAbstractNum { -1 };
    int m_lastTocNumber { 0 };
};

}  // namespace scriv
