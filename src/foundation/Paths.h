#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Path helpers. Paths are native ("/"), and a folder value carries its final
// separator. Paths that come from Windows files may hold "\": every helper that
// takes a path apart treats both characters as separators.
namespace scriv {

inline constexpr char kPathSeparator = '/';

bool IsPathSeparator(char c);
// A non-empty path gets a final separator when it has none.
std::string AddBackslash(std::string_view path);
// Drops final separators (but keeps a lone "/").
std::string RemoveBackslash(std::string_view path);
// What follows the last separator, or the whole text.
std::string FileNameOf(std::string_view path);
// FileNameOf without what follows the last ".".
std::string FileBaseName(std::string_view path);
// The extension with its dot (".htm"), or empty.
std::string FileExtension(std::string_view path);
// Drops one final separator, then cuts behind the last separator and keeps it.
std::string ParentFolder(std::string_view path);
// The folder part of a path with its final separator, or empty.
std::string FolderOf(std::string_view path);
// "\" becomes "/".
std::string ToNativePath(std::string_view path);
bool IsAbsolutePath(std::string_view path);
// folder + name, with exactly one separator between.
std::string JoinPath(std::string_view folder, std::string_view name);

struct SplitPathResult {
    std::string drive; // always empty on this platform
    std::string folder; // with final separator
    std::string fileName; // base name, no extension
    std::string extension; // with its dot
};
// Splits a path; file names and extensions of over 255 characters count as none.
SplitPathResult SplitPath(std::string_view path);

// --- the file system ---
bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);
// The path as it exists on disk when it exists in another case of letters
// ("Form1.frm" for FORM1.FRM); otherwise the path unchanged.
std::string FindPathNoCase(std::string_view path);
// The whole of a file as bytes, or nothing when it is missing or unreadable.
std::optional<std::string> ReadFileText(std::string_view path);
// Writes bytes through a temporary file and a rename; false on failure.
bool WriteFileBytes(std::string_view path, std::string_view bytes);
std::optional<std::uintmax_t> FileLength(std::string_view path);
std::optional<std::chrono::system_clock::time_point> FileTime(std::string_view path);
bool IsReadOnly(std::string_view path);
// Copies over an existing target; false on failure.
bool CopyFileOver(std::string_view from, std::string_view to);
bool DeleteFileIfExists(std::string_view path);
bool RenameFile(std::string_view from, std::string_view to);
// Creates every level of a folder; true when it exists afterwards.
bool MakeFolders(std::string_view path);
// Creates and deletes "test.txt" in the folder.
bool FolderHasWriteAccess(std::string_view folder);
// Same length and the same bytes.
bool FilesAreEqual(std::string_view a, std::string_view b);
// Names (not paths) of the files in a folder that match a pattern such as
// "*.htm" (case-insensitive), sorted by name.
std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern = "*");
// Wildcard match with "*" and "?", without regard to case.
bool MatchesPattern(std::string_view name, std::string_view pattern);
// The system's temporary folder with a final separator.
std::string TempFolder();
// The folder of the running program, with a final separator.
std::string ProgramFolder();

}  // namespace scriv
