#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

// Copies of a file kept before it is replaced.
namespace scriv {

// The name a file is moved aside to before it is rewritten: in the same
// folder, its base name + "_" + the date as "yyyymmdd" + a counter (none
// first, then 1, 2 ...) + its extension, the first such name that is free.
// "/h/Page.htm" on 2024-03-05 gives "/h/Page_20240305.htm", then
// "/h/Page_202403051.htm".
std::string BackupFileName(std::string_view path, std::chrono::year_month_day today);
// The same with today's local date.
std::string BackupFileName(std::string_view path);

// The name of rotating copy 1, 2 or 3 of a file: "z1_" + name + ".bak" beside it.
std::string RotatingBackupName(std::string_view path, int generation);

// Keeps three rotating copies of a file before it is overwritten. An empty
// path or a missing file does nothing. Without a first copy the file is copied
// to all three; when the first copy has the file's bytes nothing changes;
// otherwise copy 2 goes to 3, 1 to 2 and the file to 1, so the copies hold
// the last three different versions. Answers true; raises ScrivError
// (0x80040001) when a copy cannot be written.
bool RotateBackups(std::string_view path);

// Replaces a file in the way that loses nothing: the file is first moved aside
// to its backup name, then write runs. When the file is not there afterwards
// the person is told "Can't save file '...'.", the original comes back, and
// the answer is false; otherwise the backup is deleted.
bool ReplaceFileSafely(const std::string& path, const std::function<void()>& write);

}  // namespace scriv
