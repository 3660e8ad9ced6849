#pragma once

#include <cstdint>
#include <memory>

namespace scriv {

class CScrivServer;
class IHostIDEContext;

// The host's end: it owns the host context and a server of its own, and passes
// every command of the server to the host context.
class CScrivClientAgent {
public:
    explicit CScrivClientAgent(std::unique_ptr<IHostIDEContext> host);
    ~CScrivClientAgent();

    // Connects the host context, then makes a server for this client (a server
    // that was current before is kept aside) and connects it.
    std::uint32_t Connect();
    // Closes the forms, disconnects host and server, and puts back the server
    // that was kept aside.
    std::uint32_t Disconnect();

    CScrivServer& Server() { return *m_server; }
    IHostIDEContext& Host() { return *m_host; }

private:
    std::unique_ptr<IHostIDEContext> m_host;
    std::unique_ptr<CScrivServer> m_server;
    CScrivServer* m_keptAside { nullptr };
    bool m_connected { false };
};

// What a host loads: one client with its agent.
class CScrivClient {
public:
    CScrivClient();
    ~CScrivClient();

    std::uint32_t Connect(std::unique_ptr<IHostIDEContext> host);
    std::uint32_t Disconnect();
    CScrivClientAgent* Agent() { return m_agent.get(); }

private:
    std::unique_ptr<CScrivClientAgent> m_agent;
};

}  // namespace scriv
