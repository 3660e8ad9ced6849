#pragma once

#include <memory>
#include <string>

namespace scriv {

class CScrivServer;

// The public entry for hosts other than the VB6 IDE: they connect with their
// program's name and reach the current server through it.
class CScrivServerProxy {
public:
    CScrivServerProxy();
    ~CScrivServerProxy();

    // Keeps the host's program name (the project's file name when it is empty).
    void Connect(const std::string& programName, const std::string& projectFileName = {});
    void Disconnect() { }
    // The current server, or a new one that this proxy owns.
    CScrivServer& ScrivServerObject();

private:
    std::unique_ptr<CScrivServer> m_owned;
};

// The program name a host gave when it connected ("" when none did).
const std::string& HostProgramName();
// Whether that host is Microsoft Access (the database host names its pages differently).
bool HostIsMSAccess();

}  // namespace scriv
