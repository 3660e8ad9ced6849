#include "host/CSourceProjectVB6.h"

#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// The lines of a file in the system code page, each trimmed; nothing when the
// file cannot be read.
std::optional<std::vector<std::string>> ReadTrimmedLines(const std::string& path)
{
    auto bytes = ReadFileText(path);
    if (!bytes)
        return std::nullopt;
    std::vector<std::string> lines;
    for (std::string& line : SplitLines(FromSystemCodePage(*bytes)))
        lines.push_back(TrimWhitespace(line));
    return lines;
}

// A quoted value of a VB6 file: "Say ""hi""" gives Say "hi".
std::string QuotedValue(const std::string& line)
{
    std::size_t open = line.find('"');
    if (open == std::string::npos)
        return {};
    std::string value;
    for (std::size_t i = open + 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            if (i + 1 < line.size() && line[i + 1] == '"') {
                value += '"';
                ++i;
                continue;
            }
            break;
        }
        value += line[i];
    }
    return Trim(value);
}

}  // namespace

bool CSourceProjectVB6::init(const std::string& projectFullPath, const std::string& typeName)
{
    if (!EqualsNoCase(typeName, "VB6"))
        return false;
    m_name = FileBaseName(projectFullPath);
    m_folder = FolderOf(ToNativePath(projectFullPath));
    auto lines = ReadTrimmedLines(projectFullPath);
    if (!lines) {
        Trace("CSourceProjectVB6.init: can't read '" + projectFullPath + "'");
        m_valid = false;
        return true;
    }
    struct Entry {
        const char* prefix;
        const char* marker;
        const char* subType;
    };
    static constexpr Entry entries[] = {
        { "Form=", "Begin VB.Form", "" },
        { "UserControl=", "Begin VB.UserControl", "UserControl" },
        { "UserDocument=", "Begin VB.UserDocument", "UserDocument" },
    };
    for (const std::string& line : *lines) {
        for (const Entry& entry : entries) {
            if (StartsWithNoCase(line, entry.prefix))
                ReadFormHeader(Trim(line.substr(std::string_view(entry.prefix).size())), entry.marker, entry.subType);
        }
    }
    m_valid = true;
    return true;
}

void CSourceProjectVB6::ReadFormHeader(const std::string& relativePath, const std::string& marker,
    const std::string& subType)
{
    std::string path = ToNativePath(relativePath);
    if (!IsAbsolutePath(path) && relativePath.rfind("\\\\", 0) != 0 && path.find(':') == std::string::npos)
        path = m_folder + path;
    auto lines = ReadTrimmedLines(path);
    if (!lines)
        return;
    std::string name;
    std::string caption = FileBaseName(path);
    bool begun = false;
    for (const std::string& line : *lines) {
        if (!begun) {
            // An MDI form is a form too.
            std::string mdiMarker = marker == "Begin VB.Form" ? "Begin VB.MDIForm" : marker;
            for (const std::string& candidate : { marker, mdiMarker }) {
                if (StartsWithNoCase(line, candidate + " ")) {
                    name = Trim(line.substr(candidate.size()));
                    begun = true;
                    break;
                }
            }
            continue;
        }
        if (StartsWithNoCase(line, "Begin") || StartsWithNoCase(line, "End"))
            break;
        if (StartsWithNoCase(line, "Caption")) {
            caption = QuotedValue(line);
            break;
        }
    }
    if (name.empty()) {
        Trace("CSourceProjectVB6: no form in '" + path + "'");
        return;
    }
    auto item = std::make_unique<CHelpPrjSourceItem>();
    item->BaseFolder = m_folder;
    item->RelativePath = relativePath;
    item->ProjectName = m_name;
    item->FormName = name;
    item->FormCaption = caption;
    item->SubType = "Form";
    item->GUIObjectSubType = subType;
    std::string key = name;
    m_forms.Add(std::move(key), std::move(item));
}

void CSourceProjectVB6::Terminate()
{
    for (auto& entry : m_forms)
        entry.value->Terminate();
    m_forms.Clear();
}

// --- the front ---

bool CHelpPrjSourceProject::init(const std::string& projectFullPath, const std::string& typeName)
{
    std::vector<std::unique_ptr<IHelpPrjSourceProject>> readers;
    readers.push_back(std::make_unique<CSourceProjectVB6>());
    for (auto& reader : readers) {
        if (reader->init(projectFullPath, typeName)) {
            m_reader = std::move(reader);
            return true;
        }
    }
    return false;
}

void CHelpPrjSourceProject::Terminate()
{
    if (m_reader)
        m_reader->Terminate();
}

}  // namespace scriv
