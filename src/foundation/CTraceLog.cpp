#include "foundation/CTraceLog.h"

#include <chrono>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/AppFolders.h"
#include "foundation/DateTime.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

constexpr std::string_view kClosingTag = "</dataroot>";

// Closes a descriptor on every way out.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd)
        : m_fd(fd)
    {
    }
    ~FileDescriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int Get() const { return m_fd; }
    bool Valid() const { return m_fd >= 0; }

private:
    int m_fd { -1 };
};

std::string FormatTime(const char* format)
{
    return FormatLocalTime(std::chrono::system_clock::now(), format);
}

std::string FirstLine()
{
    return "<dataroot xmlns:od=\"urn:schemas-microsoft-com:officedata\" started=\"" + FormatTime("%Y-%m-%dT%H:%M:%S")
        + "\">" + std::string(kCrLf);
}

bool WriteAllAt(int fd, std::string_view bytes, off_t offset)
{
    while (!bytes.empty()) {
        ssize_t written = ::pwrite(fd, bytes.data(), bytes.size(), offset);
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += written;
    }
    return true;
}

bool StartAnew(const std::string& path)
{
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    return file.Valid() && WriteAllAt(file.Get(), FirstLine() + std::string(kClosingTag), 0);
}

// The length of the text part of a log (where the next line goes), or nothing
// when the file is missing or does not end with the closing tag.
std::optional<off_t> TextPartLength(const std::string& path)
{
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat info {};
    if (!file.Valid() || ::fstat(file.Get(), &info) != 0)
        return std::nullopt;
    off_t textPart = info.st_size - static_cast<off_t>(kClosingTag.size());
    if (textPart < 0)
        return std::nullopt;
    std::string tail(kClosingTag.size(), '\0');
    if (::pread(file.Get(), tail.data(), tail.size(), textPart) != static_cast<ssize_t>(tail.size()) || tail != kClosingTag)
        return std::nullopt;
    return textPart;
}

std::unique_ptr<CTraceLog>& Instance()
{
    static std::unique_ptr<CTraceLog> log;
    return log;
}

}  // namespace

std::string TraceEscape(std::string_view text)
{
    std::string escaped = ReplaceAll(text, "&", "&amp;");
    escaped = ReplaceAll(escaped, "\"", "&quot;");
    escaped = ReplaceAll(escaped, "<", "&lt;");
    return ReplaceAll(escaped, ">", "&gt;");
}

CTraceLog::CTraceLog(std::string folder)
    : m_folder(AddBackslash(folder.empty() ? Folders().LogFolder() : folder))
{
}

bool CTraceLog::IsOn() const
{
    return FileExists(m_folder + "trace.txt");
}

std::uint32_t CTraceLog::addMessage(std::string_view text, bool isError)
{
    try {
        if (!IsOn())
            return status::kOk;
        std::string stamp = FormatTime("%H:%M:%S") + " - ";
        std::string line = "<msg>" + stamp + TraceEscape(text) + "</msg>" + std::string(kCrLf);
        bool written = AppendTo("trace.xml", "trace_back.xml", line);
        if (text != kClosingTag)
            Mirror(stamp + std::string(text) + std::string(kCrLf));
        if (isError)
            written = AppendTo("tracedErrors.xml", "traceErrors_back.xml", line) && written;
        return written ? status::kOk : status::kGeneralFailure;
    } catch (...) {
        return status::kGeneralFailure;
    }
}

bool CTraceLog::AppendTo(const std::string& fileName, const std::string& backName, const std::string& line)
{
    std::string path = m_folder + fileName;
    std::optional<off_t> textPart = TextPartLength(path);
    bool tooLong = textPart && static_cast<std::uintmax_t>(*textPart) > kRotationSize && !m_rotationHeld;
    // A log cut short (a full disk, an editor) is kept aside rather than written into.
    bool damaged = !textPart && FileLength(path).value_or(0) > 0;
    if (tooLong || damaged) {
        if (!CopyFileOver(path, m_folder + backName))
            return false;
        DeleteFileIfExists(path);
    }
    if (tooLong || !textPart) {
        if (!StartAnew(path))
            return false;
        textPart = TextPartLength(path);
        if (!textPart)
            return false;
    }
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.Valid() && WriteAllAt(file.Get(), line + std::string(kClosingTag), *textPart);
}

void CTraceLog::Mirror(const std::string& line)
{
    if (!FolderExists(m_folder))
        return;
    std::string path = m_folder + "trace.xml.txt";
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644));
    std::string_view rest = line;
    while (file.Valid() && !rest.empty()) {
        ssize_t written = ::write(file.Get(), rest.data(), rest.size());
        if (written <= 0)
            return;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

CTraceLog& TraceLog()
{
    auto& log = Instance();
    if (!log)
        log = std::make_unique<CTraceLog>();
    return *log;
}

void ReleaseTraceLog()
{
    Instance().reset();
}

void Trace(std::string_view text)
{
    TraceLog().addMessage(text, false);
}

}  // namespace scriv
