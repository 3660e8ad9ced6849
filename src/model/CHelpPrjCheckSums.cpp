#include "model/CHelpPrjCheckSums.h"

#include <cstdio>
#include <functional>
#include <optional>

#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/DateTime.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);
constexpr std::string_view kVersionLine = "Version=1.0";

using FileClock = std::chrono::system_clock;

// File times count in whole seconds, so that a file written in the same second
// as the reference is not newer than it.
std::optional<std::chrono::sys_seconds> FileSeconds(const std::string& path)
{
    auto time = FileTime(path);
    if (!time)
        return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(*time);
}

// "Tuesday, March 5, 2024".
std::string LongDateText(std::chrono::sys_seconds when)
{
    std::string day = FormatLocalTime(when, "%d");
    if (day.size() == 2 && day[0] == '0')
        day.erase(0, 1);
    return FormatLocalTime(when, "%A, %B ") + day + FormatLocalTime(when, ", %Y");
}

// The first file of the folder, other than the reference, that is newer than it
// and that counts; "" when none is.
std::string NewerFile(const std::string& folder, const std::string& referencePath, std::chrono::sys_seconds reference,
    const std::function<bool(const std::string&)>& counts, std::chrono::sys_seconds& newerTime)
{
    for (const std::string& name : ListFiles(folder, "*")) {
        if (!counts(name) || EqualsNoCase(folder + name, referencePath))
            continue;
        auto time = FileSeconds(folder + name);
        if (time && *time > reference) {
            newerTime = *time;
            return name;
        }
    }
    return {};
}

}  // namespace

// --- one page ---

std::string CHelpPrjFileCheckSum::FullPath() const
{
    return AddBackslash(Folder) + FileName;
}

bool CHelpPrjFileCheckSum::CheckSumChanged() const
{
    return !EqualsNoCase(CheckSum, SavedCheckSum);
}

bool CHelpPrjFileCheckSum::PreviousCheckSumChanged() const
{
    return !EqualsNoCase(CheckSum, PreviousCheckSum);
}

// --- the digest ---

std::string CalcTextFileCheckSum(const std::string& path)
{
    auto bytes = ReadFileText(path);
    if (!bytes)
        return {};
    // The position in the file is part of the sum, so reordered blocks differ.
    unsigned char digest[4] = { 0, 0, 0, 0 };
    for (std::size_t i = 0; i < bytes->size(); ++i) {
        auto b = static_cast<unsigned char>((*bytes)[i]);
        digest[i % 4] = static_cast<unsigned char>(((b + i) & 0xFF) ^ digest[i % 4]);
    }
    char text[9];
    std::snprintf(text, sizeof text, "%02X%02X%02X%02X", digest[0], digest[1], digest[2], digest[3]);
    return text;
}

// --- the store ---

std::uint32_t CHelpPrjCheckSums::init(const std::string& pagesFolder, const std::string& checkSumFolder,
    const std::string& projectName)
{
    m_files.Clear();
    m_initialized = false;
    m_terminated = false;
    if (pagesFolder.empty() || projectName.empty())
        return status::kGeneralFailure;
    m_folder = AddBackslash(pagesFolder);
    m_filePath = AddBackslash(checkSumFolder.empty() ? pagesFolder : checkSumFolder) + projectName + "CS" + ".txt";

    if (auto bytes = ReadFileText(m_filePath)) {
        std::string text = IsValidUtf8(*bytes) ? *bytes : FromSystemCodePage(*bytes);
        std::vector<std::string> lines = SplitLines(text);
        // The first line holds the version and is not looked at.
        for (std::size_t i = 1; i < lines.size(); ++i) {
            std::vector<std::string> parts = Split(lines[i], "=");
            if (parts.size() != 2)
                continue;
            auto entry = std::make_unique<CHelpPrjFileCheckSum>();
            entry->FileName = Trim(parts[0]);
            entry->SavedCheckSum = entry->CheckSum = entry->PreviousCheckSum = Trim(parts[1]);
            entry->Folder = m_folder;
            std::string key = entry->FullPath();
            m_files.Add(std::move(key), std::move(entry));
        }
    }
    m_initialized = true;
    return status::kOk;
}

CHelpPrjFileCheckSum* CHelpPrjCheckSums::GetItem(const std::string& fullPath)
{
    auto* found = m_files.Find(fullPath);
    return found ? found->get() : nullptr;
}

std::vector<CHelpPrjFileCheckSum*> CHelpPrjCheckSums::Files()
{
    std::vector<CHelpPrjFileCheckSum*> files;
    for (auto& entry : m_files)
        files.push_back(entry.value.get());
    return files;
}

std::vector<CHelpPrjFileCheckSum*> CHelpPrjCheckSums::ChangedFiles()
{
    std::vector<CHelpPrjFileCheckSum*> files;
    for (auto& entry : m_files)
        if (entry.value->CheckSumChanged())
            files.push_back(entry.value.get());
    return files;
}

CHelpPrjFileCheckSum* CHelpPrjCheckSums::GetCheckSumObject(const std::string& fullPath, bool recompute)
{
    if (CHelpPrjFileCheckSum* present = GetItem(fullPath)) {
        if (recompute)
            present->CheckSum = CalcTextFileCheckSum(fullPath);
        return present;
    }
    auto entry = std::make_unique<CHelpPrjFileCheckSum>();
    entry->Folder = FolderOf(fullPath);
    entry->FileName = FileNameOf(fullPath);
    entry->CheckSum = entry->PreviousCheckSum = CalcTextFileCheckSum(fullPath);
    CHelpPrjFileCheckSum* added = entry.get();
    std::string key = entry->FullPath();
    m_files.Add(std::move(key), std::move(entry));
    return added;
}

std::vector<std::string> CHelpPrjCheckSums::Recalc(const std::vector<std::string>* fileNames)
{
    std::vector<std::string> names = fileNames ? *fileNames : ListFiles(m_folder, "*.htm");
    for (const std::string& name : names)
        GetCheckSumObject(m_folder + name, true);
    return names;
}

std::uint32_t CHelpPrjCheckSums::Save(bool keepPrevious)
{
    if (!m_initialized)
        return status::kGeneralFailure;
    bool readOnly = FileExists(m_filePath) && IsReadOnly(m_filePath);

    std::string text = std::string(kVersionLine) + kCrLfText;
    for (auto& item : m_files) {
        CHelpPrjFileCheckSum& entry = *item.value;
        // Without keepPrevious a changed page keeps the sum it was saved with;
        // only a page that had none takes its new one.
        if (entry.CheckSumChanged() && (entry.SavedCheckSum.empty() || keepPrevious))
            entry.SavedCheckSum = entry.CheckSum;
        text += entry.FileName + "=" + entry.SavedCheckSum + kCrLfText;
    }
    if (WriteFileBytes(m_filePath, text))
        return status::kOk;
    Trace("Can't save the checksum file '" + m_filePath + "'" + (readOnly ? ", it is read-only." : "."));
    return status::kGeneralFailure;
}

void CHelpPrjCheckSums::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_files.Clear();
    m_initialized = false;
}

// --- file times ---

bool HelpProjectChangedSinceCompile(const std::string& chmPath)
{
    std::string folder = FolderOf(chmPath);
    auto reference = EndsWithNoCase(chmPath, ".chm") ? FileSeconds(chmPath) : std::nullopt;
    if (!reference)
        return false;
    auto counts = [](const std::string& name) { return !EndsWithNoCase(name, ".chm") && !EndsWithNoCase(name, ".svp"); };
    std::chrono::sys_seconds newerTime {};
    std::string newer = NewerFile(folder, chmPath, *reference, counts, newerTime);
    if (newer.empty())
        return false;
    Trace("CHMFullPath = " + chmPath + ", CHMFileDate = " + LongDateText(*reference));
    Trace("File = " + newer + ", FileDate = " + LongDateText(newerTime));
    return true;
}

bool WebHelpChangedSinceGeneration(const std::string& mainPagePath)
{
    auto reference = FileSeconds(mainPagePath);
    if (!reference)
        return false;
    auto counts = [](const std::string& name) {
        return EndsWithNoCase(name, ".hhc") || EndsWithNoCase(name, ".hhk") || EndsWithNoCase(name, ".svp");
    };
    std::chrono::sys_seconds newerTime {};
    std::string newer = NewerFile(FolderOf(mainPagePath), mainPagePath, *reference, counts, newerTime);
    if (newer.empty())
        return false;
    Trace("WebHelpFullPath = " + mainPagePath + ", WebHelpFileDate = " + LongDateText(*reference));
    Trace("File = " + newer + ", FileDate = " + LongDateText(newerTime));
    return true;
}

}  // namespace scriv
