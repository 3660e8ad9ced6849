#include "host/CSourceProjectVB6.h"

#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/access/CSourceProjectMSAccess.h"
#include "host/excel/CSourceProjectMSExcel.h"
#include "host/vs/CSourceProjectVS.h"

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
        Vb6FormKind kind;
        const char* subType;
    };
    static constexpr Entry entries[] = {
        { "Form=", Vb6FormKind::Form, "" },
        { "UserControl=", Vb6FormKind::UserControl, "UserControl" },
        { "UserDocument=", Vb6FormKind::UserDocument, "UserDocument" },
    };
    for (const std::string& line : *lines) {
        for (const Entry& entry : entries) {
            if (StartsWithNoCase(line, entry.prefix))
                ReadFormHeader(Trim(line.substr(std::string_view(entry.prefix).size())), entry.kind, entry.subType);
        }
    }
    m_valid = true;
    return true;
}

void CSourceProjectVB6::ReadFormHeader(const std::string& relativePath, Vb6FormKind kind, const std::string& subType)
{
    std::string path = ResolveVb6Path(m_folder, relativePath);
    std::string relative = relativePath;
    if (std::string moved = FindMovedVb6File(path, m_folder); !moved.empty()) {
        path = moved;
        relative = FileNameOf(moved);
    }
    if (!FileExists(path))
        return;
    std::optional<Vb6FormFile> file;
    try {
        file = Vb6FormFile::Load(path);
    } catch (const ScrivError& error) {
        Trace("CSourceProjectVB6: " + error.Description());
        // A form left out of the help must not go unnoticed.
        UserWarningMessage("This form is left out of the help, for its file cannot be read:\r\n" + error.Description());
        return;
    }
    // An MDI form is a form too.
    Vb6FormKind found = file->Kind() == Vb6FormKind::MDIForm ? Vb6FormKind::Form : file->Kind();
    if (found != kind) {
        Trace("CSourceProjectVB6: '" + path + "' holds no " + (subType.empty() ? std::string("form") : subType));
        return;
    }
    const Vb6Block& form = file->Form();
    std::string name = form.Name();
    // The caption counts only among the form's own properties, ahead of its
    // first nested block; a caption kept in the .frx leaves the default.
    std::string caption = FileBaseName(path);
    const Vb6Property* property = form.FindProperty("Caption");
    if (property && property->line < form.FirstNestedLine() && property->Text())
        caption = Trim(*property->Text());
    auto item = std::make_unique<CHelpPrjSourceItem>();
    item->InitForVb6(m_folder, relative, m_name, "VB6", name, caption, subType);
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
    readers.push_back(std::make_unique<CSourceProjectAspNet>());
    readers.push_back(std::make_unique<CSourceProjectMSAccess>());
    readers.push_back(std::make_unique<CSourceProjectVB6>());
    readers.push_back(std::make_unique<CSourceProjectVBNet>());
    readers.push_back(std::make_unique<CSourceProjectCS>());
    readers.push_back(std::make_unique<CSourceProjectJS>());
    readers.push_back(std::make_unique<CSourceProjectCPP>());
    readers.push_back(std::make_unique<CSourceProjectMSExcel>());
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
