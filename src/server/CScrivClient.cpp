#include "server/CScrivClient.h"

#include "foundation/ErrorMessage.h"
#include "host/IHostIDEContext.h"
#include "server/CScrivServer.h"

namespace scriv {

CScrivClientAgent::CScrivClientAgent(std::unique_ptr<IHostIDEContext> host)
    : m_host(std::move(host))
{
}

CScrivClientAgent::~CScrivClientAgent()
{
    if (m_connected)
        Disconnect();
}

std::uint32_t CScrivClientAgent::Connect()
{
    return ErrorFrame("CScrivClientAgent.Connect", [&] {
        m_host->Connect();
        m_keptAside = CurrentServer();
        SetCurrentServer(nullptr);
        m_server = std::make_unique<CScrivServer>();
        IHostIDEContext* host = m_host.get();
        m_server->SetClientCallBack([host](const std::string& command) { return host->ProcessCallBack(command); });
        m_server->Connect();
        m_connected = true;
    });
}

std::uint32_t CScrivClientAgent::Disconnect()
{
    return ErrorFrame("CScrivClientAgent.Disconnect", [&] {
        if (!m_connected)
            return;
        m_connected = false;
        if (m_server)
            m_server->CloseFormsOnDisconnection();
        m_host->Disconnect();
        if (m_server)
            m_server->Disconnect();
        m_server.reset();
        SetCurrentServer(m_keptAside);
        m_keptAside = nullptr;
    });
}

CScrivClient::CScrivClient() = default;

CScrivClient::~CScrivClient()
{
    Disconnect();
}

std::uint32_t CScrivClient::Connect(std::unique_ptr<IHostIDEContext> host)
{
    m_agent = std::make_unique<CScrivClientAgent>(std::move(host));
    return m_agent->Connect();
}

std::uint32_t CScrivClient::Disconnect()
{
    if (!m_agent)
        return 0;
    std::uint32_t result = m_agent->Disconnect();
    m_agent.reset();
    return result;
}

}  // namespace scriv
