#include <gtest/gtest.h>

#include <chrono>

#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/LoadedForms.h"
#include "foundation/ScrivError.h"
#include "host/CXmlCommand.h"
#include "server/CScrivServerAgent.h"
#include "server/CTimer.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using namespace std::chrono_literals;

// --- the command envelope ---

TEST(XmlCommand, SerializesNameParametersInOrderAndText)
{
    CXmlCommand command;
    command.Build("ProcessComponent", { { "ObjectType", "2" }, { "ComponentName", "frmMain" } });
    EXPECT_EQ(command.Serialize(), "<cmd name=\"ProcessComponent\"><params ObjectType=\"2\" ComponentName=\"frmMain\" /></cmd>");
    command.SetText("<Form Name=\"a &#38; b\"/>");
    EXPECT_EQ(command.Serialize(),
        "<cmd name=\"ProcessComponent\"><params ObjectType=\"2\" ComponentName=\"frmMain\" />"
        "<text>&lt;Form Name=\"a &amp;#38; b\"/&gt;</text></cmd>");
    CXmlCommand empty;
    empty.Build("Doevents", {});
    EXPECT_EQ(empty.Serialize(), "<cmd name=\"Doevents\"><params /></cmd>");
}

TEST(XmlCommand, ValuesWithQuotesBracketsAndApostrophesRoundTrip)
{
    CXmlCommand sent;
    sent.Build("SetCurrentSourceProject", { { "ProjectName", "O'Brien \"<Sales>\" / 2" } });
    std::string wire = sent.Serialize();
    EXPECT_NE(wire.find("&#34;"), std::string::npos);
    EXPECT_NE(wire.find("&#60;"), std::string::npos);
    CXmlCommand received;
    received.Deserialize(wire);
    EXPECT_EQ(received.Name(), "SetCurrentSourceProject");
    EXPECT_EQ(received.GetParamValue("projectname"), "O'Brien \"<Sales>\" / 2");
    EXPECT_EQ(received.GetParamName(1), "ProjectName");
    EXPECT_EQ(received.GetParamValue(1), "O'Brien \"<Sales>\" / 2");
    EXPECT_EQ(received.GetParamValue(2), "");
}

TEST(XmlCommand, NamedEntitiesGoOutAsTheirNumbers)
{
    CXmlCommand command;
    command.Build("X", { { "A", "R&amp;D" }, { "B", "R&D" } });
    EXPECT_NE(command.Serialize().find("A=\"R&#38;D\""), std::string::npos) << command.Serialize();
    EXPECT_NE(command.Serialize().find("B=\"R&#38;D\""), std::string::npos) << command.Serialize();
}

TEST(XmlCommand, TheTextOfAnAnswerArrivesByteForByte)
{
    std::string document = "<Form Name = \"frmMain\" Text = \"A &#38; B &lt; C\" >\r\n<Controls/></Form>\r\n";
    CXmlCommand answer;
    answer.Build("ProcessComponent", { { "RetValue", "0" } });
    answer.SetText(document);
    CXmlCommand received;
    received.Deserialize(answer.Serialize());
    EXPECT_EQ(received.Text(), document);
}

TEST(XmlCommand, AKnownParameterKeepsItsPlace)
{
    CXmlCommand command;
    command.Build("X", { { "RetValue", "1" }, { "B", "2" } });
    command.AddParamValue("retvalue", "9");
    command.AddParamValue("C", "3");
    EXPECT_EQ(command.Serialize(), "<cmd name=\"X\"><params RetValue=\"9\" B=\"2\" C=\"3\" /></cmd>");
    EXPECT_TRUE(command.ParamDefined("b"));
    EXPECT_FALSE(command.ParamDefined("D"));
}

TEST(XmlCommand, TextTheParserRefusesIsReadByHand)
{
    CXmlCommand command;
    command.Deserialize("<cmd name=\"Set\"><params Name=\"a<b\" Other=\"x &#38; y\" /><text>free & text</text></cmd>");
    EXPECT_EQ(command.Name(), "Set");
    ASSERT_EQ(command.ParamCount(), 2u);
    EXPECT_EQ(command.GetParamValue("Name"), "a<b");
    EXPECT_EQ(command.GetParamValue("Other"), "x & y");
    EXPECT_EQ(command.Text(), "free & text");
}

TEST(XmlCommand, NothingUsableGivesAnEmptyCommand)
{
    CXmlCommand command;
    command.Deserialize("garbage");
    EXPECT_EQ(command.Name(), "");
    EXPECT_EQ(command.ParamCount(), 0u);
    EXPECT_EQ(command.GetParamValue("x"), "");
}

// --- timers ---

TEST(RequestQueue, TwoRequestsWithinTheIntervalGiveTwoTimers)
{
    EventLoop loop;
    std::vector<std::string> handled;
    CRequestQueue queue(loop, [&](const std::string& request) { handled.push_back(request); });
    auto started = std::chrono::steady_clock::now();
    queue.Queue("ReloadWizardForm");
    queue.Queue("ReloadWizardForm");
    EXPECT_TRUE(queue.HasPendingTimer());
    loop.RunPending();
    EXPECT_TRUE(handled.empty());
    ASSERT_TRUE(loop.RunUntil([&] { return handled.size() == 2; }, 2s));
    EXPECT_GE(std::chrono::steady_clock::now() - started, 100ms);
    EXPECT_FALSE(queue.HasPendingTimer());
}

TEST(RequestQueue, ATickAfterTheQueueIsGoneDoesNothing)
{
    EventLoop loop;
    int handled = 0;
    {
        CRequestQueue queue(loop, [&](const std::string&) { ++handled; });
        queue.Queue("ReloadWizardForm");
    }
    loop.RunUntil([] { return false; }, 200ms);
    EXPECT_EQ(handled, 0);
}

TEST(Timer, FiresOnceWithItsTextEvenWhenTheObjectIsGone)
{
    EventLoop loop;
    std::vector<std::string> ticks;
    {
        CTimer timer(loop, [&](const std::string& text) { ticks.push_back(text); });
        timer.SetTimer(10, "one");
    }
    ASSERT_TRUE(loop.RunUntil([&] { return !ticks.empty(); }, 1s));
    loop.RunUntil([] { return false; }, 50ms);
    EXPECT_EQ(ticks, (std::vector<std::string> { "one" }));
}

// --- server, host and guards ---

// A window the guards look for.
class FakeForm : public IHostForm {
public:
    FakeForm(std::string name, bool iconic)
        : m_name(std::move(name))
        , m_iconic(iconic)
    {
        LoadedForms().Register(this);
    }
    ~FakeForm() override { LoadedForms().Unregister(this); }
    std::string FormName() const override { return m_name; }
    bool IsIconic() const override { return m_iconic; }
    bool Visible() const override { return true; }
    void SetVisible(bool) override { }
    void Restore() override
    {
        m_iconic = false;
        ++restored;
    }
    void SetFocus() override { }
    void Unload() override { ++unloaded; }
    int restored { 0 };
    int unloaded { 0 };

private:
    std::string m_name;
    bool m_iconic { false };
};

class ServerTest : public test::CoreFixture { };

TEST_F(ServerTest, AnUnknownCommandIsAFailureWithItsName)
{
    Connect();
    try {
        m_host->ProcessCallBack("<cmd name=\"Xyz\"><params /></cmd>");
        FAIL();
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kSecondFailure);
        EXPECT_EQ(error.Description(), "Undefined callback command [Xyz]");
        EXPECT_EQ(error.Source(), "CFakeHostContext.IHostIDEContext_ProcessCallBack");
    }
}

TEST_F(ServerTest, CommandsAreAnsweredThroughTheHost)
{
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/><Project Name="B" FullPath="/y/B.vbp" Active="true">
        <Form Name="frmMain"/></Project></Host>)");
    CScrivServerAgent& agent = Server().Agent();
    EXPECT_EQ(agent.GetSourceProjectsList(), (std::vector<std::string> { "A", "B" }));
    EXPECT_EQ(agent.CurrentSourceProjectName(), "B");
    EXPECT_EQ(agent.CurrentSourceProjectLocation(), "/y/");
    EXPECT_EQ(agent.CurrentSourceProjectTypeName(), "VB6");
    EXPECT_TRUE(agent.ComponentExistsTest(2, "FRMMAIN"));
    EXPECT_FALSE(agent.ComponentExistsTest(2, "frmOther"));
    agent.SetCurrentSourceProject("A");
    EXPECT_EQ(agent.CurrentSourceProjectFullPath(), "/x/A.vbp");
    EXPECT_EQ(agent.FormNamePrefix(), "dlg_");
    EXPECT_EQ(agent.CurrentObjectName(), "???");
    EXPECT_EQ(agent.CurrentObjectType(), -1);
    EXPECT_TRUE(agent.IDEDisplayModelIsMDI());
}

TEST_F(ServerTest, WhileAGenerationIsStoppedNoCommandReachesTheHost)
{
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    Data().GenerationInterrupted = true;
    m_host->ClearCalls();
    std::string answer = Server().ExecuteCommand("<cmd name=\"CurrentSourceProjectName\"><params /></cmd>");
    EXPECT_EQ(answer, "<cmd name=\"CurrentSourceProjectName\"><params RetValue=\"0\" /></cmd>");
    // The host itself answers the same way when a command gets through.
    EXPECT_EQ(m_host->ProcessCallBack("<cmd name=\"Xyz\"><params /></cmd>"), "<cmd name=\"Xyz\"><params RetValue=\"0\" /></cmd>");
    EXPECT_TRUE(m_host->Calls().empty());
    EXPECT_FALSE(Server().Agent().AreThereAnySourceProjectsOpened());
}

TEST_F(ServerTest, FiftyErrorsSetTheCancelFlagAndStartTheCountAgain)
{
    Connect();
    SetErrorCounter(49);
    CheckGenerationInterrupt();
    EXPECT_FALSE(Data().GenerationInterrupted);
    SetErrorCounter(50);
    CheckGenerationInterrupt();
    EXPECT_TRUE(Data().GenerationInterrupted);
    EXPECT_EQ(ErrorCounter(), 0);
}

TEST_F(ServerTest, TheHourglassNests)
{
    Connect();
    m_host->HourglassOn();
    m_host->HourglassOn();
    m_host->HourglassOff();
    EXPECT_TRUE(m_host->HourglassShown());
    m_host->HourglassOff();
    EXPECT_FALSE(m_host->HourglassShown());
    m_host->HourglassOff();
    EXPECT_EQ(m_host->HourglassCount(), -1);
    m_host->HourglassOffFinal();
    EXPECT_EQ(m_host->HourglassCount(), 0);
}

TEST_F(ServerTest, AMinimisedEditorIsRestoredAndNothingMoreHappens)
{
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    FakeForm editor("frmHelpEditor", true);
    m_host->ClearCalls();
    EXPECT_EQ(Server().OpenNewProject(), status::kAbandoned);
    EXPECT_EQ(editor.restored, 1);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    EXPECT_TRUE(m_host->Calls().empty());
}

TEST_F(ServerTest, AnOpenEditorStopsBothCommandsWithAWarning)
{
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    FakeForm editor("frmHelpEditor", false);
    Server().OpenNewProject();
    Server().OpenProject();
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "You have to close the Help Editor before you can generate a new Help project.");
    EXPECT_EQ(m_ui->MessageBoxes()[1].text, "You have to close the Help Editor before you can open another Help project.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    EXPECT_EQ(editor.restored, 0);
}

TEST_F(ServerTest, AnOpenWizardStopsOpeningAProject)
{
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    FakeForm wizard("frmHelpWizard", false);
    Server().OpenProject();
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Please close Scrivant's Wizard form before opening help project.");
}

TEST_F(ServerTest, AHostInSingleWindowModeIsRefused)
{
    Connect(R"(<Host DisplayModelMDI="false"><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    Server().OpenNewProject();
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "This version of Scrivant Add-In doesn't support SDI display model of host application IDE.\r\n"
        "Please switch to MDI display model.");
    EXPECT_EQ(m_host->CountCalls("SourceProjectsList"), 0);
}

TEST_F(ServerTest, AnUnsavedWorkbookOpensNothing)
{
    Connect(R"(<Host><Project Name="Book1" FullPath="" Type="MS EXCEL"/></Host>)");
    EXPECT_EQ(Server().OpenNewProject(), status::kAbandoned);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "There is no any workbook opened or\r\nopened active workbook is not saved.");
    EXPECT_EQ(m_host->CountCalls("SourceProjectsList"), 0);
}

TEST_F(ServerTest, PastTheGuardsTheCommandReachesItsActions)
{
    test::TempFolder home;
    ConfigureFolders({ home.Path(), m_data.Path() });
    Connect(R"(<Host><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    EXPECT_EQ(Server().OpenNewProject(), status::kWizardDefinitionMissing);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "Wizard form definition file is missing '" + m_data.Path() + "Settings/ScrivantWizardDef.xml'.");
    EXPECT_EQ(m_host->CountCalls("SourceProjectsList"), 1);
}

TEST_F(ServerTest, AReloadRequestReopensTheCommandAfterAPause)
{
    Connect(R"(<Host DisplayModelMDI="false"><Project Name="A" FullPath="/x/A.vbp"/></Host>)");
    EXPECT_EQ(Server().ReloadNewProject(), 0u);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    ASSERT_TRUE(LogicLoop().RunUntil([&] { return !m_ui->MessageBoxes().empty(); }, 2s));
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("SDI"), std::string::npos);
    EXPECT_NE(TraceText().find("Close wizard form"), std::string::npos);
}

TEST_F(ServerTest, AClientKeepsAnEarlierServerAsideAndPutsItBack)
{
    CScrivServer& first = Connect();
    {
        CScrivClient second;
        ASSERT_EQ(second.Connect(std::make_unique<CFakeHostContext>()), 0u);
        EXPECT_NE(CurrentServer(), &first);
        EXPECT_NE(CurrentServer(), nullptr);
        second.Disconnect();
        EXPECT_EQ(CurrentServer(), &first);
    }
    m_client->Disconnect();
    EXPECT_EQ(CurrentServer(), nullptr);
}

TEST_F(ServerTest, DisconnectingEndsTheDataInOrderAndLeavesNoServer)
{
    Connect();
    Server().Disconnect();
    std::string trace = TraceText();
    std::size_t scriv = trace.find("mobjScriv is Nothing = False");
    std::size_t projects = trace.find("mobjProjects is Nothing = False");
    std::size_t log = trace.find("mobjTraceLog is Nothing");
    ASSERT_NE(scriv, std::string::npos);
    ASSERT_NE(projects, std::string::npos);
    EXPECT_LT(scriv, projects);
    EXPECT_LT(projects, log);
    EXPECT_EQ(CurrentServer(), nullptr);
}

TEST_F(ServerTest, ComponentFileNamesTakeSuffixOverrideAndPrefix)
{
    Connect();
    EXPECT_EQ(Server().GetComponentFileName("frmMain", "cmdOK"), "frmMain_cmdOK");
    EXPECT_EQ(Server().GetComponentFileName("frmMain", "", "Other"), "Other");
    EXPECT_EQ(Server().GetComponentFileName("Ввод"), "Vvod");
    EXPECT_EQ(Server().GetComponentFileNameWithPrefix(2, "Main"), "dlg_Main");
}

TEST_F(ServerTest, VerboseTracingRecordsEveryCommandBothWays)
{
    Connect();
    Parameters().VerboseTracing = true;
    Server().Agent().Doevents();
    std::string trace = TraceText();
    EXPECT_NE(trace.find("CMD+ &gt; &lt;cmd name=&quot;Doevents&quot;&gt;"), std::string::npos) << trace;
    EXPECT_NE(trace.find("CMD- &gt;"), std::string::npos);
    EXPECT_NE(trace.find("interrupted = False"), std::string::npos);
}

}  // namespace
}  // namespace scriv
