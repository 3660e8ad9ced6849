#include "foundation/clsFile.h"

#include <cstdio>

#include "foundation/CUTF8File.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

std::string clsFile::Path() const
{
    return FolderOf(m_fullName);
}

std::string clsFile::NameWithExtension() const
{
    return FileNameOf(m_fullName);
}

std::string clsFile::Name() const
{
    std::string name = NameWithExtension();
    std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string clsFile::Extension() const
{
    std::string name = NameWithExtension();
    std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string clsFile::Contents()
{
    ClearError();
    if (m_fullName.empty()) {
        Fail(status::kGeneralFailure, "Contents", "No file name given.");
        return {};
    }
    if (!FileExists(m_fullName)) {
        Fail(status::kSecondFailure, "Contents", "File not found: '" + m_fullName + "'.");
        return {};
    }
    CUTF8FileReader reader;
    if (reader.LoadFile(m_fullName) != status::kOk) {
        Fail(status::kGeneralFailure, "Contents", "Can't read file '" + m_fullName + "'.");
        return {};
    }
    return Join(SplitLines(reader.Text()), kCrLf);
}

void clsFile::SetContents(std::string_view text)
{
    ClearError();
    if (m_fullName.empty()) {
        Fail(status::kGeneralFailure, "Contents", "No file name given.");
        return;
    }
    // The writer replaces the file through a temporary one, so the old file
    // is not deleted ahead: a failed write leaves it in place.
    CUTF8FileWriter writer;
    writer.AddText(text);
    if (writer.SaveFile(m_fullName) != status::kOk)
        Fail(status::kGeneralFailure, "Contents", "Can't save file '" + m_fullName + "'.");
}

void clsFile::Delete()
{
    ClearError();
    if (m_fullName.empty()) {
        Fail(status::kGeneralFailure, "Delete", "No file name given.");
        return;
    }
    if (!FileExists(m_fullName)) {
        Fail(status::kSecondFailure, "Delete", "File not found: '" + m_fullName + "'.");
        return;
    }
    if (std::remove(m_fullName.c_str()) != 0)
        Fail(status::kGeneralFailure, "Delete", "Can't delete file '" + m_fullName + "'.");
}

void clsFile::ClearError()
{
    m_error = status::kOk;
    m_errorDescription.clear();
}

void clsFile::Fail(std::uint32_t code, std::string_view procedure, std::string description)
{
    m_error = code;
    m_errorDescription = description;
    if (!m_silent)
        Raise(code, "clsFile." + std::string(procedure), std::move(description));
}

}  // namespace scriv
