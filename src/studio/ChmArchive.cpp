#include "studio/ChmArchive.h"

#include <chm_lib.h>

#include "foundation/CodePage.h"
#include "foundation/StringUtil.h"
#include "model/clsHHCLoader.h"

namespace scriv::studio {

namespace {

// The entries of the compiler's #SYSTEM file that the viewer needs.
constexpr int kSystemContentsFile = 0;
constexpr int kSystemDefaultTopic = 2;
constexpr int kSystemTitle = 3;

unsigned ReadWord(const std::string& bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]) | (static_cast<unsigned char>(bytes[at + 1]) << 8);
}

// A text of #SYSTEM: up to its terminating zero.
std::string SystemText(std::string_view data)
{
    return std::string(data.substr(0, data.find('\0')));
}

nlohmann::json TopicJson(const clsHHCObjectEntry& entry)
{
    nlohmann::json children = nlohmann::json::array();
    for (const auto& child : entry.ChildEntries())
        children.push_back(TopicJson(*child));
    return { { "name", entry.Name() }, { "local", entry.Local() }, { "children", children } };
}

}  // namespace

std::unique_ptr<ChmArchive> ChmArchive::Open(const std::string& path)
{
    chmFile* file = chm_open(path.c_str());
    if (!file)
        return nullptr;
    std::unique_ptr<ChmArchive> archive(new ChmArchive(file));
    archive->ReadSystemFile();
    return archive;
}

ChmArchive::~ChmArchive()
{
    chm_close(m_file);
}

std::optional<std::string> ChmArchive::NormaliseInnerPath(std::string_view innerPath)
{
    std::vector<std::string> parts;
    for (const std::string& part : Split(innerPath, "/")) {
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            if (parts.empty())
                return std::nullopt;
            parts.pop_back();
            continue;
        }
        parts.push_back(part);
    }
    return "/" + Join(parts, "/");
}

std::optional<std::string> ChmArchive::Read(std::string_view innerPath) const
{
    std::optional<std::string> path = NormaliseInnerPath(innerPath);
    if (!path || *path == "/")
        return std::nullopt;
    chmUnitInfo info {};
    if (chm_resolve_object(m_file, path->c_str(), &info) != CHM_RESOLVE_SUCCESS)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(info.length), '\0');
    if (info.length == 0)
        return bytes;
    LONGINT64 got = chm_retrieve_object(m_file, &info, reinterpret_cast<unsigned char*>(bytes.data()), 0,
        static_cast<LONGINT64>(info.length));
    if (got != static_cast<LONGINT64>(info.length))
        return std::nullopt;
    return bytes;
}

std::vector<std::string> ChmArchive::Files() const
{
    std::vector<std::string> files;
    chm_enumerate(
        m_file, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES,
        [](chmFile*, chmUnitInfo* info, void* context) {
            static_cast<std::vector<std::string>*>(context)->push_back(info->path);
            return CHM_ENUMERATOR_CONTINUE;
        },
        &files);
    return files;
}

void ChmArchive::ReadSystemFile()
{
    std::optional<std::string> system = Read("/#SYSTEM");
    if (system && system->size() >= 4) {
        // A version word of four bytes, then entries: code, length, data.
        std::size_t at = 4;
        while (at + 4 <= system->size()) {
            unsigned code = ReadWord(*system, at);
            std::size_t length = ReadWord(*system, at + 2);
            at += 4;
            if (at + length > system->size())
                break;
            std::string_view data(system->data() + at, length);
            if (code == kSystemContentsFile)
                m_contentsFile = SystemText(data);
            else if (code == kSystemDefaultTopic)
                m_defaultTopic = SystemText(data);
            else if (code == kSystemTitle)
                m_title = SystemText(data);
            at += length;
        }
    }
    if (m_contentsFile.empty()) {
        for (const std::string& file : Files()) {
            if (EndsWithNoCase(file, ".hhc")) {
                m_contentsFile = file;
                break;
            }
        }
    }
}

nlohmann::json ChmArchive::Contents() const
{
    nlohmann::json contents = { { "title", m_title }, { "defaultTopic", m_defaultTopic },
        { "topics", nlohmann::json::array() } };
    std::optional<std::string> bytes = m_contentsFile.empty() ? std::nullopt : Read(m_contentsFile);
    if (!bytes)
        return contents;
    std::string_view body = *bytes;
    if (body.substr(0, 3) == "\xEF\xBB\xBF")
        body.remove_prefix(3);
    clsHHCLoader loader;
    if (loader.LoadText(IsValidUtf8(body) ? std::string(body) : FromSystemCodePage(body)) != 0)
        return contents;
    for (const auto& entry : loader.TopEntries())
        contents["topics"].push_back(TopicJson(*entry));
    return contents;
}

}  // namespace scriv::studio
