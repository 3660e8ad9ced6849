#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/ScriptedUserInterface.h"
#include "generation/CScrivant.h"
#include "host/CFakeHostContext.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivClient.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "support/TestSupport.h"

namespace scriv::test {

// The program's data from the source tree, a temporary user data folder with
// tracing on, a scripted user interface, fresh parameters, and (on request) a
// fake host connected to a server of its own.
class CoreFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        ConfigureFolders({ SourceDataFolder(), m_data.Path() });
        ReleaseTraceLog();
        m_data.Write("trace.txt", "");
        auto scripted = std::make_unique<ScriptedUserInterface>();
        m_ui = scripted.get();
        m_previousUi = SetUserInterface(std::move(scripted));
        Parameters() = CScrivantParameters();
        SetErrorCounter(0);
    }

    void TearDown() override
    {
        if (m_client)
            m_client->Disconnect();
        m_client.reset();
        SetUserInterface(std::move(m_previousUi));
        SetErrorCounter(0);
        Parameters() = CScrivantParameters();
        ReleaseTraceLog();
        ConfigureFolders({});
    }

    // Connects a fake host described by xml; the server becomes the current one.
    CScrivServer& Connect(const std::string& hostXml = "<Host/>")
    {
        auto host = CFakeHostContext::FromXml(hostXml);
        m_host = host.get();
        return ConnectHost(std::move(host));
    }

    // Connects any host; the server becomes the current one.
    CScrivServer& ConnectHost(std::unique_ptr<IHostIDEContext> host)
    {
        m_client = std::make_unique<CScrivClient>();
        EXPECT_EQ(m_client->Connect(std::move(host)), 0u);
        CurrentServer()->Data().LoadSettings(false);
        return *CurrentServer();
    }

    CScrivServer& Server() { return *CurrentServer(); }
    CScrivServerData& Data() { return CurrentServer()->Data(); }
    CScrivant& Scriv() { return Data().ScrivEngine(); }
    CHelpPrjTree& Tree() { return Scriv().HelpProjectTree(); }

    // Registers a current help project writing into folder.
    CAddInProject& UseProject(const std::string& name, const std::string& folder)
    {
        auto project = std::make_unique<CAddInProject>();
        project->Name = name;
        project->Folder = folder;
        CAddInProject* added = Data().Projects().Add(std::move(project));
        Data().Projects().SetCurrentProject(added);
        Parameters().SetFolderForGeneratedHelp(folder);
        Parameters().SetHelpProjectName(name);
        Parameters().Charset = "utf-8";
        return *added;
    }

    std::string TraceText() const { return m_data.Read("trace.xml"); }

    TempFolder m_data;
    ScriptedUserInterface* m_ui { nullptr };
    CFakeHostContext* m_host { nullptr };
    std::unique_ptr<CScrivClient> m_client;

private:
    std::unique_ptr<IUserInterface> m_previousUi;
};

}  // namespace scriv::test
