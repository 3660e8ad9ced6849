#include "wordexport/OoxmlPackage.h"

#include <filesystem>
#include <memory>
#include <sstream>

#include <pugixml.hpp>
#include <zip.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// 2000-01-01 00:00 UTC: every entry gets it, so that a package's bytes depend
// on its parts alone.
constexpr time_t kEntryTime = 946684800;

[[noreturn]] void RaiseZip(const char* procedure, std::string_view what, std::string_view reason)
{
    Raise(status::kGeneralFailure, std::string("OoxmlPackage.") + procedure,
        "'" + std::string(what) + "' is not a readable Word package: " + std::string(reason) + ".");
}

bool IsStoredPart(std::string_view name)
{
    for (std::string_view extension : { ".jpeg", ".jpg", ".png", ".gif", ".zip" })
        if (EndsWithNoCase(name, extension))
            return true;
    return false;
}

struct ZipCloser {
    void operator()(zip_t* archive) const
    {
        if (archive)
            zip_discard(archive);
    }
};
using ZipHandle = std::unique_ptr<zip_t, ZipCloser>;

struct SourceFreer {
    void operator()(zip_source_t* source) const
    {
        if (source)
            zip_source_free(source);
    }
};
using SourceHandle = std::unique_ptr<zip_source_t, SourceFreer>;

}  // namespace

OoxmlPackage OoxmlPackage::Open(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        Raise(status::kGeneralFailure, "OoxmlPackage.Open", "The file '" + path + "' cannot be read.");
    return FromZipBytes(*bytes, path);
}

OoxmlPackage OoxmlPackage::FromZipBytes(std::string_view bytes, std::string_view what)
{
    zip_error_t error;
    zip_error_init(&error);
    SourceHandle source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error));
    if (!source) {
        std::string reason = zip_error_strerror(&error);
        zip_error_fini(&error);
        RaiseZip("Open", what, reason);
    }
    ZipHandle archive(zip_open_from_source(source.get(), ZIP_RDONLY, &error));
    if (!archive) {
        std::string reason = zip_error_strerror(&error);
        zip_error_fini(&error);
        RaiseZip("Open", what, reason);
    }
    // The archive owns the source from here on.
    source.release();
    zip_error_fini(&error);

    OoxmlPackage package;
    zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_int64_t index = 0; index < count; ++index) {
        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(archive.get(), index, 0, &stat) != 0 || !stat.name)
            RaiseZip("Open", what, zip_strerror(archive.get()));
        std::string name = stat.name;
        if (name.empty() || name.back() == '/')
            continue;
        zip_file_t* file = zip_fopen_index(archive.get(), index, 0);
        if (!file)
            RaiseZip("Open", what, "entry '" + name + "': " + zip_strerror(archive.get()));
        std::string content(static_cast<std::size_t>(stat.size), '\0');
        zip_int64_t read = content.empty() ? 0 : zip_fread(file, content.data(), content.size());
        zip_fclose(file);
        if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size)
            RaiseZip("Open", what, "entry '" + name + "' is damaged");
        package.m_parts[name] = std::move(content);
    }
    return package;
}

OoxmlPackage OoxmlPackage::FromFolder(const std::string& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (!fs::is_directory(folder, error))
        Raise(status::kGeneralFailure, "OoxmlPackage.FromFolder", "The folder '" + folder + "' does not exist.");
    OoxmlPackage package;
    for (auto it = fs::recursive_directory_iterator(folder, error); !error && it != fs::recursive_directory_iterator();
         it.increment(error)) {
        if (!it->is_regular_file())
            continue;
        std::string path = it->path().string();
        std::optional<std::string> bytes = ReadFileText(path);
        if (!bytes)
            Raise(status::kGeneralFailure, "OoxmlPackage.FromFolder", "The file '" + path + "' cannot be read.");
        package.m_parts[fs::relative(it->path(), folder).generic_string()] = std::move(*bytes);
    }
    if (error)
        Raise(status::kGeneralFailure, "OoxmlPackage.FromFolder",
            "The folder '" + folder + "' cannot be read: " + error.message() + ".");
    return package;
}

bool OoxmlPackage::HasPart(std::string_view name) const
{
    return m_parts.find(name) != m_parts.end();
}

const std::string* OoxmlPackage::Part(std::string_view name) const
{
    auto found = m_parts.find(name);
    return found == m_parts.end() ? nullptr : &found->second;
}

void OoxmlPackage::SetPart(std::string name, std::string bytes)
{
    m_parts[std::move(name)] = std::move(bytes);
}

void OoxmlPackage::RemovePart(std::string_view name)
{
    auto found = m_parts.find(name);
    if (found != m_parts.end())
        m_parts.erase(found);
}

std::vector<std::string> OoxmlPackage::PartNames() const
{
    std::vector<std::string> names;
    // Readers that stream a package look for the content types first.
    for (const char* first : { ooxml::kContentTypesPart, ooxml::kPackageRelsPart })
        if (HasPart(first))
            names.emplace_back(first);
    for (const auto& [name, bytes] : m_parts)
        if (name != ooxml::kContentTypesPart && name != ooxml::kPackageRelsPart)
            names.push_back(name);
    return names;
}

std::string OoxmlPackage::ZipBytes() const
{
    auto fail = [](std::string reason) -> std::string {
        Raise(status::kGeneralFailure, "OoxmlPackage.ZipBytes", "The Word package cannot be made: " + reason + ".");
    };
    zip_error_t error;
    zip_error_init(&error);
    SourceHandle buffer(zip_source_buffer_create(nullptr, 0, 0, &error));
    if (!buffer)
        return fail(zip_error_strerror(&error));
    // The buffer outlives the archive that writes into it.
    zip_source_keep(buffer.get());
    ZipHandle archive(zip_open_from_source(buffer.get(), ZIP_TRUNCATE, &error));
    if (!archive) {
        zip_source_free(buffer.get());
        return fail(zip_error_strerror(&error));
    }
    zip_error_fini(&error);

    for (const std::string& name : PartNames()) {
        const std::string& bytes = *Part(name);
        zip_source_t* source = zip_source_buffer(archive.get(), bytes.data(), bytes.size(), 0);
        if (!source)
            return fail(zip_strerror(archive.get()));
        zip_int64_t index = zip_file_add(archive.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE);
        if (index < 0) {
            zip_source_free(source);
            return fail(zip_strerror(archive.get()));
        }
        zip_set_file_compression(archive.get(), static_cast<zip_uint64_t>(index),
            IsStoredPart(name) ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 6);
        zip_file_set_mtime(archive.get(), static_cast<zip_uint64_t>(index), kEntryTime, 0);
    }
    if (zip_close(archive.get()) != 0)
        return fail(zip_strerror(archive.get()));
    archive.release();

    std::string out;
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_source_stat(buffer.get(), &stat) != 0 || zip_source_open(buffer.get()) != 0)
        return fail("the zip in memory cannot be read back");
    out.resize(static_cast<std::size_t>(stat.size));
    zip_int64_t read = out.empty() ? 0 : zip_source_read(buffer.get(), out.data(), out.size());
    zip_source_close(buffer.get());
    if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size)
        return fail("the zip in memory cannot be read back");
    return out;
}

void OoxmlPackage::Save(const std::string& path) const
{
    std::string bytes = ZipBytes();
    if (!WriteFileBytes(path, bytes))
        Raise(status::kGeneralFailure, "OoxmlPackage.Save", "The document '" + path + "' cannot be written.");
}

void LoadXmlPart(const OoxmlPackage& package, std::string_view name, pugi::xml_document& doc)
{
    const std::string* bytes = package.Part(name);
    if (!bytes)
        Raise(status::kGeneralFailure, "OoxmlPackage.LoadXmlPart",
            "The Word template has no part '" + std::string(name) + "'.");
    pugi::xml_parse_result result = doc.load_buffer(bytes->data(), bytes->size(), pugi::parse_default);
    if (!result)
        Raise(status::kGeneralFailure, "OoxmlPackage.LoadXmlPart",
            "The part '" + std::string(name) + "' of the Word template is not well formed: "
                + result.description() + " at byte " + std::to_string(result.offset) + ".");
}

std::string SerializeXmlPart(const pugi::xml_document& doc)
{
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n";
    doc.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return out.str();
}

}  // namespace scriv
