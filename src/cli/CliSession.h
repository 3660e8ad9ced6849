#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "foundation/AppFolders.h"

namespace scriv {

class CScrivClient;
class IHostIDEContext;

// Exit codes of the program.
namespace exitcode {
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kUsage = 2;
inline constexpr int kCancelled = 3;
}  // namespace exitcode

struct GlobalOptions {
    std::string home;
    std::string data;
    bool assumeYes { false };
    // The code page of the application's texts for this run, where its forms'
    // fonts name none; empty: the settings'.
    std::string codePage;
};

// One run of the program: folders, the console as user interface, and a host
// connected to a server.
class CliSession {
public:
    explicit CliSession(const GlobalOptions& options);
    ~CliSession();

    // Connects a host; the server it gets becomes the current one.
    void Connect(std::unique_ptr<IHostIDEContext> host);

private:
    std::unique_ptr<CScrivClient> m_client;
    std::string m_codePage;
};

class CScrivServer;

// The host of a source: a VB6 project or group, a Visual Studio solution or
// project, an Excel workbook, an Access database or folder of exported
// Access objects, read from their files; an XML description of projects and
// forms; or (for "") a host with no projects.
std::unique_ptr<IHostIDEContext> MakeHost(const std::string& hostFile);
// Whether a source is an Access application: a database, or a folder of its exported objects.
bool IsAccessSource(const std::string& path);
// The exit code of a status: 0 done, cancelled, or failed.
int ExitCodeOf(std::uint32_t status);
// Runs body in a session connected to the host of hostFile, with the
// settings loaded; a ScrivError becomes a message and exit code 1.
int WithSession(const GlobalOptions& global, const std::string& hostFile,
    const std::function<int(CScrivServer&)>& body);

struct GenerateOptions {
    std::string contents;
    std::string out;
    std::string host;
    std::string name;
    std::string title;
};

// Loads a contents document and runs the generation walk into a folder.
int RunGenerateFromContents(const GlobalOptions& global, const GenerateOptions& options);

}  // namespace scriv
