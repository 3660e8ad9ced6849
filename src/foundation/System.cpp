#include "foundation/System.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <random>
#include <spawn.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

extern char** environ;

namespace scriv {

namespace {

void RandomBytes(unsigned char* buffer, std::size_t size)
{
    std::size_t filled = 0;
    while (filled < size) {
        ssize_t got = ::getrandom(buffer + filled, size - filled, 0);
        if (got > 0) {
            filled += static_cast<std::size_t>(got);
        } else if (got < 0 && errno != EINTR) {
            break;
        }
    }
    if (filled < size) {
        std::random_device device;
        for (; filled < size; ++filled)
            buffer[filled] = static_cast<unsigned char>(device());
    }
}

// Closes a descriptor once, whatever path leaves the scope.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd = -1)
        : m_fd(fd)
    {
    }
    ~FileDescriptor() { Close(); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int Get() const { return m_fd; }
    void Reset(int fd)
    {
        Close();
        m_fd = fd;
    }
    void Close()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = -1;
    }

private:
    int m_fd { -1 };
};

class SpawnActions {
public:
    SpawnActions() { posix_spawn_file_actions_init(&m_actions); }
    ~SpawnActions() { posix_spawn_file_actions_destroy(&m_actions); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    posix_spawn_file_actions_t* Get() { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions;
};

class SpawnAttributes {
public:
    SpawnAttributes() { posix_spawnattr_init(&m_attributes); }
    ~SpawnAttributes() { posix_spawnattr_destroy(&m_attributes); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
    posix_spawnattr_t* Get() { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes;
};

std::vector<char*> ArgumentPointers(const std::vector<std::string>& argv)
{
    std::vector<char*> pointers;
    pointers.reserve(argv.size() + 1);
    for (const std::string& argument : argv)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// The child's exit code as ShellAndWait answers it.
int WaitForExit(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    if (WIFSIGNALED(status))
        return 128 + WTERMSIG(status);
    return -1;
}

void ReadAll(int fd, std::string& out)
{
    std::array<char, 4096> buffer {};
    for (;;) {
        ssize_t got = ::read(fd, buffer.data(), buffer.size());
        if (got > 0)
            out.append(buffer.data(), static_cast<std::size_t>(got));
        else if (got == 0 || errno != EINTR)
            return;
    }
}

bool IsExecutableFile(const std::string& path)
{
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

std::string CurrentFolder()
{
    std::error_code error;
    return std::filesystem::current_path(error).string();
}

}  // namespace

std::string NewGuid()
{
    std::array<unsigned char, 16> bytes {};
    RandomBytes(bytes.data(), bytes.size());
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    std::string text = "{";
    char hex[3];
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        std::snprintf(hex, sizeof hex, "%02X", bytes[i]);
        text += hex;
    }
    return text + "}";
}

int ShellAndWait(const std::vector<std::string>& argv, std::string* capturedOutput, const std::string& workingFolder)
{
    if (argv.empty() || argv.front().empty())
        return -1;
    SpawnActions actions;
    if (!workingFolder.empty())
        posix_spawn_file_actions_addchdir_np(actions.Get(), workingFolder.c_str());
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
    if (capturedOutput) {
        int fds[2];
        if (::pipe2(fds, O_CLOEXEC) != 0)
            return -1;
        readEnd.Reset(fds[0]);
        writeEnd.Reset(fds[1]);
        // dup2 clears close-on-exec on the copies, so only 1 and 2 reach the child.
        posix_spawn_file_actions_adddup2(actions.Get(), writeEnd.Get(), STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(actions.Get(), writeEnd.Get(), STDERR_FILENO);
    }
    std::vector<char*> arguments = ArgumentPointers(argv);
    pid_t pid = 0;
    if (::posix_spawnp(&pid, arguments[0], actions.Get(), nullptr, arguments.data(), environ) != 0)
        return -1;
    if (capturedOutput) {
        writeEnd.Close();
        capturedOutput->clear();
        ReadAll(readEnd.Get(), *capturedOutput);
    }
    return WaitForExit(pid);
}

bool ShellOpen(std::string_view path)
{
    std::vector<std::string> argv { "xdg-open", std::string(path) };
    SpawnActions actions;
    posix_spawn_file_actions_addopen(actions.Get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(actions.Get(), STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(actions.Get(), STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // Its own session, so that a Ctrl+C in our terminal does not close the viewer.
    SpawnAttributes attributes;
    posix_spawnattr_setflags(attributes.Get(), POSIX_SPAWN_SETSID);
    std::vector<char*> arguments = ArgumentPointers(argv);
    pid_t pid = 0;
    if (::posix_spawnp(&pid, arguments[0], actions.Get(), attributes.Get(), arguments.data(), environ) != 0)
        return false;
    // Reap it in the background so that it does not linger as a zombie.
    std::thread([pid] { WaitForExit(pid); }).detach();
    return true;
}

std::string LoggedOnUserName()
{
    long size = ::sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384);
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_name)
        return found->pw_name;
    const char* user = std::getenv("USER");
    return user ? user : "";
}

std::string FindProgramOnPath(std::string_view name)
{
    if (name.empty())
        return {};
    std::string program(name);
    if (program.find('/') != std::string::npos)
        return IsExecutableFile(program) ? program : std::string();
    const char* path = std::getenv("PATH");
    for (const std::string& folder : Split(path ? path : "", ":")) {
        // An empty entry of PATH is the current folder.
        std::string candidate = AddBackslash(folder.empty() ? CurrentFolder() : folder) + program;
        if (IsExecutableFile(candidate))
            return candidate;
    }
    return {};
}

}  // namespace scriv
