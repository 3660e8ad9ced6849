#include <gtest/gtest.h>

#include <regex>

#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "generation/CScrivant.h"
#include "server/CScrivServerAgent.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const char* kHost = R"(<Host>
  <Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Type="VB6" Active="true">
    <Form Name="frmMain" Text="Orders" WindowSize="480, 360"><Controls/></Form>
    <Form Name="frmCustomer" Text="Customer"><Controls/></Form>
    <Form Name="frmBroken" Fails="true"/>
  </Project>
</Host>)";

class GenerationWalkTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(kHost);
        UseProject("Orders", m_out.Path());
        Parameters().ApplicationNameStr = "Order Desk";
        Parameters().SetCSSFullPath("Office10.css");
    }

    // Loads a contents document and runs a whole generation.
    std::uint32_t Generate(const std::string& contents)
    {
        EXPECT_EQ(Tree().Load(m_data.Write("contents.xml", contents), true), 0u);
        Data().SetGenerationRunning(true);
        std::uint32_t result = Scriv().GenerateHelpProject(true, false, false, false, false);
        Data().SetGenerationRunning(false);
        return result;
    }

    std::string Page(const std::string& name) { return m_out.Read(name); }

    // A template of the test's own; a topic made from it is named like it.
    std::string Template(const std::string& name)
    {
        return m_data.Write("templates/" + name,
            "<html><head><title>{{Application}}</title></head><body><h1>x</h1><p>" + name + "</p></body></html>");
    }

    test::TempFolder m_out;
};

TEST_F(GenerationWalkTest, TheDefaultContentsGivesOnePagePerPlainTopicWithEveryPlaceholderResolved)
{
    std::string contents = *ReadFileText(test::SourceDataFolder() + "Templates/Parameterized/ScrivantContents.xml");
    ASSERT_EQ(Generate(contents), 0u);
    for (const char* page : { "Welcome.htm", "Dialogs.htm", "Copyright.htm", "OrdersTOC.htm", "Office10.css" })
        EXPECT_TRUE(FileExists(m_out / page)) << page;
    // A skipped list gives no page.
    EXPECT_FALSE(FileExists(m_out / "Reports.htm"));
    for (const std::string& page : ListFiles(m_out.Path(), "*.htm"))
        EXPECT_EQ(Page(page).find("{{"), std::string::npos) << page << ":\n" << Page(page);

    std::string welcome = Page("Welcome.htm");
    EXPECT_NE(welcome.find("<title>Order Desk</title>"), std::string::npos);
    EXPECT_NE(welcome.find("<h1>Order Desk</h1>"), std::string::npos);
    EXPECT_NE(welcome.find("charset=utf-8"), std::string::npos);
    EXPECT_NE(welcome.find("<link href=\"Office10.css\""), std::string::npos);
    EXPECT_NE(Page("OrdersTOC.htm").find("<LI><A href=\"Copyright.htm\">Copyright</A></LI>"), std::string::npos);
    EXPECT_EQ(Data().GenerationStats().HelpPagesCount, 2);
    EXPECT_EQ(ErrorCounter(), 0);
}

TEST_F(GenerationWalkTest, AListPageListsItsTopicsButNotTheSkippedOnes)
{
    ASSERT_EQ(Generate(R"(<Project Caption="Help" TemplateHtmlFile="Welcome.htm">
        <Dialogs Key="Dialogs" Caption="Dialogs" ProcessCode="1" TemplateHtmlFile="Dialogs.htm">
          <A Key="A" Caption="First &amp; one" TemplateHtmlFile="Copyright.htm" GeneratedHtmlFile="First.htm"/>
          <B Key="B" Caption="Second" TemplateHtmlFile="Copyright.htm" GeneratedHtmlFile="Second.htm" skipped="true"/>
          <Gone Key="Gone" Name="frmGone" type="2" ProcessCode="999" Caption="Gone"/>
        </Dialogs></Project>)"),
        0u);
    std::string list = Page("Dialogs.htm");
    EXPECT_NE(list.find("<LI><a href=\"Copyright.htm\">First  one</a></LI>"), std::string::npos) << list;
    EXPECT_EQ(list.find("Second"), std::string::npos);
    EXPECT_EQ(list.find("Gone"), std::string::npos);
    EXPECT_NE(list.find("<title>Dialogs</title>"), std::string::npos);
    EXPECT_FALSE(FileExists(m_out / "Second.htm"));
}

TEST_F(GenerationWalkTest, AnObjectThatVanishedFromTheApplicationIsSkippedWithoutAFailure)
{
    ASSERT_EQ(Generate(R"(<Project Caption="Help" TemplateHtmlFile="Welcome.htm">
        <Dialogs Key="Dialogs" Caption="Dialogs" ProcessCode="1" TemplateHtmlFile="Dialogs.htm">
          <FORM Key="Orders.frmMain" Name="frmMain" type="2" ProcessCode="999" Caption="Orders" GeneratedHtmlFile="Main.htm"/>
          <FORM Key="Orders.frmOld" Name="frmOld" type="2" ProcessCode="999" Caption="Old" GeneratedHtmlFile="Old.htm"/>
        </Dialogs></Project>)"),
        0u);
    EXPECT_TRUE(Tree().MapItem("Orders.frmOld")->Skipped());
    EXPECT_FALSE(Tree().MapItem("Orders.frmMain")->Skipped());
    EXPECT_EQ(ErrorCounter(), 0);
    EXPECT_EQ(m_host->CountCalls("ComponentExists"), 2);
    // Only the existing form was described.
    EXPECT_EQ(m_host->CountCalls("ProcessComponent"), 1);
    const CScrivStats& stats = Data().GenerationStats();
    EXPECT_EQ(stats.FormContextIdsCount, 1);
    EXPECT_EQ(stats.HelpProvidersCount, 1);
    EXPECT_EQ(Page("Dialogs.htm").find("Old"), std::string::npos);
}

TEST_F(GenerationWalkTest, FiftyReportedErrorsStopTheRunAndResetTheCounter)
{
    std::string contents = "<Project Caption='Help' TemplateHtmlFile='Welcome.htm'><Dialogs ProcessCode='1' TemplateHtmlFile='Dialogs.htm'>";
    for (int i = 0; i < 60; ++i)
        contents += "<FORM Key='F" + std::to_string(i) + "' Name='frmBroken' type='2' ProcessCode='999'/>";
    contents += "</Dialogs></Project>";
    EXPECT_EQ(Generate(contents), status::kAbandoned);
    EXPECT_TRUE(Data().GenerationInterrupted);
    EXPECT_EQ(ErrorCounter(), 0);
    EXPECT_EQ(m_host->CountCalls("ProcessComponent"), 50);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 50u);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("Error processing source project component [frmBroken]"), std::string::npos)
        << m_ui->MessageBoxes()[0].text;
    // The failures are in the error trace.
    EXPECT_NE(m_data.Read("tracedErrors.xml").find("frmBroken"), std::string::npos);
}

TEST_F(GenerationWalkTest, ACancelStopsTheWalkAndTheHostHearsNoMore)
{
    std::string contents = "<Project Caption='Help' TemplateHtmlFile='Welcome.htm'>";
    for (int i = 0; i < 20; ++i)
        contents += "<T" + std::to_string(i) + " Caption='Topic' TemplateHtmlFile='" + Template("t" + std::to_string(i) + ".htm")
            + "'/>";
    contents += "</Project>";
    m_ui->CancelAtUpdate(6);
    EXPECT_EQ(Generate(contents), status::kAbandoned);
    EXPECT_TRUE(Data().GenerationInterrupted);
    std::size_t written = ListFiles(m_out.Path(), "t*.htm").size();
    EXPECT_GT(written, 0u);
    EXPECT_LT(written, 20u);
    // While the run is being stopped, commands come back with "0" and reach no host.
    m_host->ClearCalls();
    EXPECT_EQ(Server().Agent().CurrentSourceProjectName(), "");
    EXPECT_TRUE(m_host->Calls().empty());
}

TEST_F(GenerationWalkTest, AnUnknownProcessCodeIsReportedAndTheWalkGoesOn)
{
    Generate(R"(<Project Caption="Help" TemplateHtmlFile="Welcome.htm">
        <Odd Name="odd" ProcessCode="7"/><Copyright Caption="Copyright" TemplateHtmlFile="Copyright.htm"/></Project>)");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("Unknown ProcessCode = 7 for odd"), std::string::npos);
    EXPECT_TRUE(FileExists(m_out / "Copyright.htm"));
    EXPECT_EQ(ErrorCounter(), 1);
}

TEST_F(GenerationWalkTest, RegeneratingLeavesUnflaggedTopicsAsTheyAre)
{
    std::string contents = R"(<Project Caption="Help" TemplateHtmlFile="Welcome.htm">
        <A Key="A" Caption="A" TemplateHtmlFile=")" + Template("A.htm") + R"("/>
        <B Key="B" Caption="B" TemplateHtmlFile=")" + Template("B.htm") + R"("/></Project>)";
    ASSERT_EQ(Generate(contents), 0u);
    m_out.Write("A.htm", "edited by hand");
    m_out.Write("B.htm", "edited too");
    Tree().MapItem("B")->RegenerateHelpFiles = true;
    Tree().SetNewHtmlHelpProject(true);
    ASSERT_EQ(Scriv().GenerateHelpProject(false, false, true, false, true), 0u);
    EXPECT_EQ(Page("A.htm"), "edited by hand");
    EXPECT_NE(Page("B.htm"), "edited too");
    EXPECT_NE(Page("B.htm").find("<h1>B</h1>"), std::string::npos);
}

TEST_F(GenerationWalkTest, TreeValuesWithTagsResolveWhenRead)
{
    Parameters().Copyright = "(c) Acme";
    Tree().Load("", true, "<Project Caption='{{Copyright}} for {ProjectName}' />");
    EXPECT_EQ(Tree().Root()->Caption(), "(c) Acme for Orders");
}

TEST_F(GenerationWalkTest, CaptionsThatNameAMessageTakeItsText)
{
    Tree().Load("", true, "<Project Caption='{{TopicDialogs}}' Title='{{NoSuchMessage}}'/>");
    EXPECT_EQ(Tree().Root()->Caption(), "Dialogs");
    EXPECT_EQ(Tree().Root()->HtmlTitle(), "{{NoSuchMessage}}");
}

TEST_F(GenerationWalkTest, ANewProjectLoadsTheDefaultContents)
{
    Data().Projects().CurrentProject()->FileName = "";
    ASSERT_EQ(Scriv().LoadTreviewForActiveProject(false), 0u);
    ASSERT_NE(Tree().Root(), nullptr);
    EXPECT_NE(Tree().MapItem("Dialogs"), nullptr);
    EXPECT_NE(Tree().MapItem("Copyright"), nullptr);
    // A loaded tree stays when asked to keep it.
    CHelpPrjTreeNode* root = Tree().Root();
    ASSERT_EQ(Scriv().LoadTreviewForActiveProject(true), 0u);
    EXPECT_EQ(Tree().Root(), root);
}

TEST_F(GenerationWalkTest, TheSourceObjectStepAsksTheHostForTheDescriptionWithItsPaths)
{
    ASSERT_EQ(Generate(R"(<Project Caption="Help" TemplateHtmlFile="Welcome.htm">
        <FORM Key="F" Name="frmMain" type="2" ProcessCode="999" SourceProjectName="Orders"/></Project>)"),
        0u);
    EXPECT_EQ(m_host->CountCalls("ProcessComponent"), 1);
    EXPECT_GE(m_host->CountCalls("CloseComponent"), 1);
    EXPECT_NE(TraceText().find("ComponentName = frmMain, ObjectType = 2, Exists = True"), std::string::npos);
}

}  // namespace
}  // namespace scriv
