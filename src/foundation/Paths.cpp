#include "foundation/Paths.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/StringUtil.h"

namespace fs = std::filesystem;

namespace scriv {

namespace {

std::size_t LastSeparator(std::string_view path)
{
    std::size_t slash = path.find_last_of("/\\");
    return slash;
}

fs::path ToFsPath(std::string_view path)
{
    return fs::path(std::string(path));
}

}  // namespace

bool IsPathSeparator(char c)
{
    return c == '/' || c == '\\';
}

std::string AddBackslash(std::string_view path)
{
    if (path.empty() || IsPathSeparator(path.back()))
        return std::string(path);
    return std::string(path) + kPathSeparator;
}

std::string RemoveBackslash(std::string_view path)
{
    std::size_t end = path.size();
    while (end > 1 && IsPathSeparator(path[end - 1]))
        --end;
    return std::string(path.substr(0, end));
}

std::string FileNameOf(std::string_view path)
{
    std::size_t slash = LastSeparator(path);
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string FileBaseName(std::string_view path)
{
    std::string name = FileNameOf(path);
    std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string FileExtension(std::string_view path)
{
    std::string name = FileNameOf(path);
    std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

std::string ParentFolder(std::string_view path)
{
    std::string_view trimmed = path;
    if (!trimmed.empty() && IsPathSeparator(trimmed.back()))
        trimmed.remove_suffix(1);
    std::size_t slash = LastSeparator(trimmed);
    if (slash == std::string_view::npos)
        return {};
    return std::string(trimmed.substr(0, slash + 1));
}

std::string FolderOf(std::string_view path)
{
    std::size_t slash = LastSeparator(path);
    if (slash == std::string_view::npos)
        return {};
    return std::string(path.substr(0, slash + 1));
}

std::string ToNativePath(std::string_view path)
{
    std::string result(path);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

bool IsAbsolutePath(std::string_view path)
{
    return !path.empty() && IsPathSeparator(path.front());
}

std::string JoinPath(std::string_view folder, std::string_view name)
{
    if (folder.empty())
        return std::string(name);
    std::string_view rest = name;
    while (!rest.empty() && IsPathSeparator(rest.front()))
        rest.remove_prefix(1);
    return AddBackslash(folder) + std::string(rest);
}

SplitPathResult SplitPath(std::string_view path)
{
    SplitPathResult result;
    result.folder = FolderOf(path);
    std::string name = FileNameOf(path);
    std::size_t dot = name.rfind('.');
    std::string base = dot == std::string::npos ? name : name.substr(0, dot);
    std::string extension = dot == std::string::npos ? std::string() : name.substr(dot);
    if (base.size() <= 255)
        result.fileName = base;
    if (extension.size() <= 255)
        result.extension = extension;
    return result;
}

bool FileExists(std::string_view path)
{
    if (path.empty())
        return false;
    struct stat info {};
    return ::stat(std::string(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::string FindPathNoCase(std::string_view path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    fs::path wanted { std::string(path) };
    if (path.empty() || fs::exists(wanted, error))
        return std::string(path);
    // Files written on Windows are named in any case; look for each part of
    // the path in its folder without regard to case.
    fs::path found = wanted.root_path();
    for (const fs::path& part : wanted.relative_path()) {
        fs::path exact = found.empty() ? part : found / part;
        if (fs::exists(exact, error) || part == "." || part == "..") {
            found = exact;
            continue;
        }
        fs::path folder = found.empty() ? fs::path(".") : found;
        bool matched = false;
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
            if (EqualsNoCase(it->path().filename().string(), part.string())) {
                found = found.empty() ? it->path().filename() : found / it->path().filename();
                matched = true;
                break;
            }
        }
        if (!matched)
            return std::string(path);
    }
    return found.string();
}

bool FolderExists(std::string_view path)
{
    if (path.empty())
        return false;
    struct stat info {};
    return ::stat(std::string(path).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::optional<std::string> ReadFileText(std::string_view path)
{
    if (!FileExists(path))
        return std::nullopt;
    std::ifstream in(std::string(path), std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad())
        return std::nullopt;
    return bytes;
}

bool WriteFileBytes(std::string_view path, std::string_view bytes)
{
    std::string target(path);
    std::string folder = FolderOf(target);
    static thread_local std::mt19937 random(std::random_device {}());
    std::string temporary = folder + "." + FileNameOf(target) + "." + std::to_string(random() % 1000000) + ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out)
            return false;
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.flush();
        if (!out) {
            out.close();
            std::remove(temporary.c_str());
            return false;
        }
    }
    // Keep the permissions of a file that is replaced.
    struct stat info {};
    if (::stat(target.c_str(), &info) == 0)
        ::chmod(temporary.c_str(), info.st_mode & 07777);
    if (std::rename(temporary.c_str(), target.c_str()) != 0) {
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

std::optional<std::uintmax_t> FileLength(std::string_view path)
{
    std::error_code error;
    auto size = fs::file_size(ToFsPath(path), error);
    if (error)
        return std::nullopt;
    return size;
}

std::optional<std::chrono::system_clock::time_point> FileTime(std::string_view path)
{
    struct stat info {};
    if (::stat(std::string(path).c_str(), &info) != 0)
        return std::nullopt;
    auto since = std::chrono::seconds(info.st_mtim.tv_sec) + std::chrono::nanoseconds(info.st_mtim.tv_nsec);
    return std::chrono::system_clock::time_point(std::chrono::duration_cast<std::chrono::system_clock::duration>(since));
}

bool IsReadOnly(std::string_view path)
{
    struct stat info {};
    if (::stat(std::string(path).c_str(), &info) != 0)
        return false;
    return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool CopyFileOver(std::string_view from, std::string_view to)
{
    std::error_code error;
    fs::copy_file(ToFsPath(from), ToFsPath(to), fs::copy_options::overwrite_existing, error);
    return !error;
}

bool DeleteFileIfExists(std::string_view path)
{
    std::error_code error;
    fs::remove(ToFsPath(path), error);
    return !error;
}

bool RenameFile(std::string_view from, std::string_view to)
{
    std::error_code error;
    fs::rename(ToFsPath(from), ToFsPath(to), error);
    return !error;
}

bool MakeFolders(std::string_view path)
{
    if (path.empty())
        return false;
    std::error_code error;
    fs::create_directories(ToFsPath(RemoveBackslash(path)), error);
    return FolderExists(RemoveBackslash(path));
}

bool FolderHasWriteAccess(std::string_view folder)
{
    std::string probe = JoinPath(folder, "test.txt");
    {
        std::ofstream out(probe, std::ios::binary | std::ios::trunc);
        if (!out)
            return false;
        out << "test";
        if (!out)
            return false;
    }
    return std::remove(probe.c_str()) == 0;
}

bool FilesAreEqual(std::string_view a, std::string_view b)
{
    auto lengthA = FileLength(a);
    auto lengthB = FileLength(b);
    if (!lengthA || !lengthB || *lengthA != *lengthB)
        return false;
    auto bytesA = ReadFileText(a);
    auto bytesB = ReadFileText(b);
    return bytesA && bytesB && *bytesA == *bytesB;
}

bool MatchesPattern(std::string_view name, std::string_view pattern)
{
    std::u32string text = Utf8ToUtf32(ToLower(name));
    std::u32string mask = Utf8ToUtf32(ToLower(pattern));
    std::size_t t = 0, m = 0, star = std::u32string::npos, mark = 0;
    while (t < text.size()) {
        if (m < mask.size() && (mask[m] == U'?' || mask[m] == text[t])) {
            ++t;
            ++m;
        } else if (m < mask.size() && mask[m] == U'*') {
            star = m++;
            mark = t;
        } else if (star != std::u32string::npos) {
            m = star + 1;
            t = ++mark;
        } else {
            return false;
        }
    }
    while (m < mask.size() && mask[m] == U'*')
        ++m;
    return m == mask.size();
}

std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(ToFsPath(RemoveBackslash(folder)), error)) {
        if (!entry.is_regular_file(error))
            continue;
        std::string name = entry.path().filename().string();
        if (MatchesPattern(name, pattern))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string TempFolder()
{
    const char* fromEnvironment = std::getenv("TMPDIR");
    std::string folder = (fromEnvironment && *fromEnvironment) ? fromEnvironment : "/tmp";
    return AddBackslash(folder);
}

std::string ProgramFolder()
{
    std::error_code error;
    fs::path self = fs::read_symlink("/proc/self/exe", error);
    if (error)
        return AddBackslash(fs::current_path(error).string());
    return AddBackslash(self.parent_path().string());
}

}  // namespace scriv
