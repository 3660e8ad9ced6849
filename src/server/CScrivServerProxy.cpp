#include "server/CScrivServerProxy.h"

#include "foundation/StringUtil.h"
#include "server/CScrivServer.h"

namespace scriv {

namespace {

std::string& ProgramNameSlot()
{
    static std::string name;
    return name;
}

}  // namespace

CScrivServerProxy::CScrivServerProxy() = default;

CScrivServerProxy::~CScrivServerProxy()
{
    if (m_owned && CurrentServer() == m_owned.get())
        SetCurrentServer(nullptr);
}

void CScrivServerProxy::Connect(const std::string& programName, const std::string& projectFileName)
{
    ProgramNameSlot() = programName.empty() ? projectFileName : programName;
}

CScrivServer& CScrivServerProxy::ScrivServerObject()
{
    if (CScrivServer* server = CurrentServer())
        return *server;
    m_owned = std::make_unique<CScrivServer>();
    m_owned->Connect();
    return *m_owned;
}

const std::string& HostProgramName()
{
    return ProgramNameSlot();
}

bool HostIsMSAccess()
{
    return ContainsNoCase(ProgramNameSlot(), "Access") || ContainsNoCase(ProgramNameSlot(), "msaccess");
}

}  // namespace scriv
