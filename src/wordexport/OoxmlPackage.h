#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
}

namespace scriv {

// An Open Packaging Conventions file (.docx, .dotx) held in memory: its parts
// by name ("word/document.xml", no leading "/"), as bytes.
class OoxmlPackage {
public:
    // --- creating ---
    // Reads every part of a zip file. Raises ScrivError 0x80040001 naming the
    // file and the reason when it cannot be read or is no zip.
    static OoxmlPackage Open(const std::string& path);
    // Reads a zip held in memory; raises as Open does, with what in place of the file.
    static OoxmlPackage FromZipBytes(std::string_view bytes, std::string_view what);
    // Takes every file below folder as a part (the package's readable sources).
    // Raises ScrivError 0x80040001 when the folder is missing or a file unreadable.
    static OoxmlPackage FromFolder(const std::string& folder);

    // --- parts ---
    bool HasPart(std::string_view name) const;
    // The bytes of a part, or nullptr when there is none.
    const std::string* Part(std::string_view name) const;
    void SetPart(std::string name, std::string bytes);
    void RemovePart(std::string_view name);
    // Names in the order they are written: "[Content_Types].xml", "_rels/.rels",
    // then the others by name.
    std::vector<std::string> PartNames() const;

    // --- writing ---
    // The package as zip bytes: pictures stored, everything else deflated, every
    // entry with the same fixed time so that equal packages give equal bytes.
    // Raises ScrivError 0x80040001 when the zip cannot be made.
    std::string ZipBytes() const;
    // Writes ZipBytes to path through a temporary file and a rename. Raises
    // ScrivError 0x80040001 naming the file when it cannot be written.
    void Save(const std::string& path) const;

private:
    std::map<std::string, std::string, std::less<>> m_parts;
};

// --- the XML of parts ---

// Parses a part into doc; raises ScrivError 0x80040001 naming the part when it
// is missing or not well formed.
void LoadXmlPart(const OoxmlPackage& package, std::string_view name, pugi::xml_document& doc);
// The document as bytes: UTF-8 with a standalone declaration, no indentation.
std::string SerializeXmlPart(const pugi::xml_document& doc);

// Content types, relationship types and namespaces that the writer uses.
namespace ooxml {
inline constexpr const char* kContentTypesPart = "[Content_Types].xml";
inline constexpr const char* kPackageRelsPart = "_rels/.rels";
inline constexpr const char* kDocumentPart = "word/document.xml";
inline constexpr const char* kDocumentRelsPart = "word/_rels/document.xml.rels";

inline constexpr const char* kDocumentMainType
    = "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml";
inline constexpr const char* kTemplateMainType
    = "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml";
inline constexpr const char* kNumberingType
    = "application/vnd.openxmlformats-officedocument.wordprocessingml.numbering+xml";
inline constexpr const char* kSettingsType
    = "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml";
inline constexpr const char* kRelationshipsType = "application/vnd.openxmlformats-package.relationships+xml";

inline constexpr const char* kRelOfficeDocument
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
inline constexpr const char* kRelImage = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";
inline constexpr const char* kRelHyperlink
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/hyperlink";
inline constexpr const char* kRelNumbering
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/numbering";
inline constexpr const char* kRelSettings
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/settings";
inline constexpr const char* kRelCoreProperties
    = "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";

inline constexpr const char* kNsMain = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
inline constexpr const char* kNsRelationships
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
inline constexpr const char* kNsWordDrawing = "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing";
inline constexpr const char* kNsDrawing = "http://schemas.openxmlformats.org/drawingml/2006/main";
inline constexpr const char* kNsPicture = "http://schemas.openxmlformats.org/drawingml/2006/picture";
inline constexpr const char* kNsPackageRels = "http://schemas.openxmlformats.org/package/2006/relationships";
inline constexpr const char* kNsContentTypes = "http://schemas.openxmlformats.org/package/2006/content-types";
}  // namespace ooxml

}  // namespace scriv
