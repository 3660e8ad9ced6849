#include "foundation/FileBackups.h"

#include <cstdio>
#include <ctime>

#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

std::string DateText(std::chrono::year_month_day date)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%04d%02u%02u", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return buffer;
}

std::chrono::year_month_day LocalToday()
{
    std::time_t now = std::time(nullptr);
    std::tm local {};
    localtime_r(&now, &local);
    return std::chrono::year_month_day { std::chrono::year { local.tm_year + 1900 },
        std::chrono::month { static_cast<unsigned>(local.tm_mon + 1) },
        std::chrono::day { static_cast<unsigned>(local.tm_mday) } };
}

bool NameIsTaken(const std::string& path)
{
    return FileExists(path) || FolderExists(path);
}

void CopyOrRaise(const std::string& from, const std::string& to)
{
    if (!CopyFileOver(from, to))
        Raise(status::kGeneralFailure, "FileBackups.RotateBackups", "Can't copy '" + from + "' to '" + to + "'.");
}

}  // namespace

std::string BackupFileName(std::string_view path, std::chrono::year_month_day today)
{
    std::string stem = FolderOf(path) + FileBaseName(path) + "_" + DateText(today);
    std::string extension = FileExtension(path);
    std::string candidate = stem + extension;
    for (int counter = 1; NameIsTaken(candidate); ++counter)
        candidate = stem + std::to_string(counter) + extension;
    return candidate;
}

std::string BackupFileName(std::string_view path)
{
    return BackupFileName(path, LocalToday());
}

std::string RotatingBackupName(std::string_view path, int generation)
{
    return FolderOf(path) + "z" + std::to_string(generation) + "_" + FileNameOf(path) + ".bak";
}

bool RotateBackups(std::string_view path)
{
    if (path.empty() || !FileExists(path))
        return true;
    std::string file(path);
    std::string first = RotatingBackupName(path, 1);
    std::string second = RotatingBackupName(path, 2);
    std::string third = RotatingBackupName(path, 3);
    if (!FileExists(first)) {
        CopyOrRaise(file, first);
        CopyOrRaise(file, second);
        CopyOrRaise(file, third);
        return true;
    }
    if (FilesAreEqual(file, first))
        return true;
    // A copy that went missing is made again from the next newer one.
    CopyOrRaise(FileExists(second) ? second : first, third);
    CopyOrRaise(first, second);
    CopyOrRaise(file, first);
    return true;
}

bool ReplaceFileSafely(const std::string& path, const std::function<void()>& write)
{
    std::string backup;
    if (FileExists(path)) {
        backup = BackupFileName(path);
        if (!RenameFile(path, backup))
            backup.clear();
    }
    write();
    if (!FileExists(path)) {
        std::string message = "Can't save file '" + path + "'.";
        if (!backup.empty() && FileExists(backup)) {
            RenameFile(backup, path);
            message += std::string(kCrLf) + "The original file is restored.";
        }
        MsgBox(message, msgbox::kExclamation, "");
        return false;
    }
    if (!backup.empty())
        DeleteFileIfExists(backup);
    return true;
}

}  // namespace scriv
