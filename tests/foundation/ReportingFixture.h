#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foundation/AppFolders.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/ScriptedUserInterface.h"
#include "support/TestSupport.h"

namespace scriv::test {

// Points the process's trace log, user interface and report settings at test
// doubles (tracing on, in a temporary folder) and puts everything back after.
class ReportingFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_previousFolders = { Folders().InstallFolder(), Folders().UserDataFolder() };
        ConfigureFolders({ m_home.Path(), m_data.Path() });
        ReleaseTraceLog();
        m_data.Write("trace.txt", "");
        auto scripted = std::make_unique<ScriptedUserInterface>();
        m_ui = scripted.get();
        m_previousUi = SetUserInterface(std::move(scripted));
        m_previousLauncher = SetProcessLauncher([this](const std::vector<std::string>& argv) {
            m_launched.push_back(argv);
            return m_launchResult;
        });
        SetErrorCounter(0);
        SetSupportContact("");
        SetReportDefaultNo(false);
    }

    void TearDown() override
    {
        SetProcessLauncher(std::move(m_previousLauncher));
        SetUserInterface(std::move(m_previousUi));
        SetSupportContact("");
        SetReportDefaultNo(false);
        SetErrorCounter(0);
        ReleaseTraceLog();
        ConfigureFolders(m_previousFolders);
    }

    std::string TraceText() const { return m_data.Read("trace.xml"); }
    std::string ErrorTraceText() const { return m_data.Read("tracedErrors.xml"); }

    TempFolder m_home;
    TempFolder m_data;
    ScriptedUserInterface* m_ui { nullptr };
    std::vector<std::vector<std::string>> m_launched;
    int m_launchResult { 0 };

private:
    AppFolderOptions m_previousFolders;
    std::unique_ptr<IUserInterface> m_previousUi;
    ProcessLauncher m_previousLauncher;
};

}  // namespace scriv::test
