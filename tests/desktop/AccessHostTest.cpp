#include <gtest/gtest.h>

#include <regex>

#include "desktop/CAccessFormRenderer.h"
#include "desktop/CW_AccessContext.h"
#include "desktop/RenderedWindows.h"
#include "desktop/SystemColours.h"
#include "foundation/Paths.h"
#include "host/access/CSourceProjectMSAccess.h"
#include "host/access/CW_AccessFormProcessor.h"
#include "model/CHelpPrjTree.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/Serializers.h"
#include "model/IHostAgent.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

class AccessHostTest : public test::CoreFixture {
protected:
    std::unique_ptr<IHelpPrjSourceProject> Parse()
    {
        ConnectHost(CW_AccessContext::Open(m_app / "Shop"));
        return Data().Agent().ParseSourceProject();
    }

    test::TempFolder m_app;
};

TEST_F(AccessHostTest, SystemTablesAreLeftOutButATableCalledSysIsKept)
{
    m_app.Write("Shop/tables.sql", "CREATE TABLE [sysObjects] ([Id] Long Integer);\r\n"
                                   "CREATE TABLE [sys] ([Id] Long Integer);\r\n"
                                   "CREATE TABLE [dtproperties] ([Id] Long Integer);\r\n"
                                   "CREATE TABLE [Customers] ([Id] Long Integer);\r\n"
                                   "CREATE TABLE [System Settings] ([Id] Long Integer);\r\n");
    std::unique_ptr<IHelpPrjSourceProject> source = Parse();
    ASSERT_TRUE(source);
    EXPECT_EQ(source->ProjectType(), "MS ACCESS");
    SourceItems& tables = source->Tables();
    ASSERT_EQ(tables.Count(), 3u);
    EXPECT_EQ(tables.At(0).key, "sys");
    EXPECT_EQ(tables.At(1).key, "Customers");
    EXPECT_EQ(tables.At(1).value->SubType, "Table");
    EXPECT_EQ(tables.At(1).value->FormCaption, "Customers");
    // "System ..." starts with "Sys", not "sys".
    EXPECT_EQ(tables.At(2).key, "System Settings");
    EXPECT_FALSE(tables.Contains("sysObjects"));
    EXPECT_TRUE(source->CouldHaveTables() && source->CouldHaveQueries() && source->CouldHaveMacros());
    EXPECT_TRUE(source->CouldHaveReports());
}

TEST_F(AccessHostTest, AFormsHelpContextIdGoesIntoItsExportedDefinitionAndNothingElse)
{
    const std::string form = "Version =20\r\nBegin Form\r\n    Width =1440\r\n    Begin\r\n    End\r\nEnd\r\n";
    const std::string macro = "Begin\r\n    Action =\"Beep\"\r\nEnd\r\n";
    m_app.Write("Shop/forms/frmPlain.form", form);
    m_app.Write("Shop/macros/mcrGo.macro", macro);
    ASSERT_TRUE(Parse());
    IHostAgent& agent = Data().Agent();
    agent.ActivateComponent(2, "frmPlain", true, true);
    agent.SetComponentHelpContextId(2, "frmPlain", 77);
    agent.CloseComponent(2, "frmPlain", true);
    EXPECT_EQ(ReadFileText(m_app / "Shop/forms/frmPlain.form").value_or(""),
        "Version =20\r\nBegin Form\r\n    Width =1440\r\n    HelpContextId =77\r\n    Begin\r\n    End\r\nEnd\r\n");
    // A macro has no help context id, and an object without a definition file has nowhere to take one.
    agent.SetComponentHelpContextId(4, "mcrGo", 78);
    agent.SetComponentHelpContextId(2, "frmMissing", 79);
    EXPECT_EQ(ReadFileText(m_app / "Shop/macros/mcrGo.macro").value_or(""), macro);
}

TEST_F(AccessHostTest, ANameWithADoubleQuoteIsAnnouncedAndSkipped)
{
    m_app.Write("Shop/forms/Say \"Hi\".form", "Begin Form\r\n    Caption =\"Hello\"\r\nEnd\r\n");
    m_app.Write("Shop/forms/frmPlain.form", "Begin Form\r\n    Width =1440\r\nEnd\r\n");
    m_app.Write("Shop/forms/frmNamed.form", "Begin Form\r\n    Caption =\"Order entry\"\r\n"
                                            "    Begin Section\r\n        Begin\r\n            Begin Subform\r\n"
                                            "                SourceObject =\"Form.sfrmLines\"\r\n            End\r\n"
                                            "        End\r\n    End\r\nEnd\r\n");
    m_app.Write("Shop/reports/rptSales.report", "Begin Report\r\n    Caption =\"Sales\"\r\nEnd\r\n");
    m_app.Write("Shop/macros/mcr\"Go\".macro", "Begin\r\n    Action =\"Beep\"\r\nEnd\r\n");
    std::unique_ptr<IHelpPrjSourceProject> source = Parse();
    ASSERT_TRUE(source);
    SourceItems& forms = source->Forms();
    ASSERT_EQ(forms.Count(), 2u);
    // A form without a caption has its name for one.
    EXPECT_EQ(forms.Find("frmPlain")->get()->FormCaption, "frmPlain");
    EXPECT_EQ(forms.Find("frmNamed")->get()->FormCaption, "Order entry");
    EXPECT_EQ(source->Reports().At(0).value->FormCaption, "Sales");
    EXPECT_EQ(source->Macros().Count(), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 2u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Source macro skipped mcr\"Go\".\r\nPlease remove double quotes from its name.");
    EXPECT_EQ(m_ui->MessageBoxes()[1].text, "Source Form skipped Say \"Hi\".\r\nPlease remove double quotes from its name.");
    EXPECT_EQ(m_ui->MessageBoxes()[1].flags, 48);
    EXPECT_EQ(m_ui->MessageBoxes()[1].title, "Scrivant Add-In");
    EXPECT_EQ(m_ui->MessageBoxes()[1].source, "CSourceProjectMSAccess.Init");
    // The server holds a copy of the lists; the host's own reading knows the subforms.
    CSourceProjectMSAccess access;
    ASSERT_TRUE(access.init(m_app / "Shop", "MS ACCESS"));
    EXPECT_EQ(access.SubObjectsOf("frmNamed"), (std::vector<std::string> { "sfrmLines" }));
    EXPECT_TRUE(access.SubObjectsOf("frmPlain").empty());
}

TEST_F(AccessHostTest, TablesQueriesAndMacrosAreDescribedByTheirFields)
{
    m_app.Write("Shop/tables.sql", "CREATE TABLE [Items] ([Id] Long Integer NOT NULL, [Name] Text (40));\r\n"
                                   "COMMENT ON TABLE [Items] IS 'What we sell';\r\n"
                                   "COMMENT ON COLUMN [Items].[Name] IS 'Shown on invoices';\r\n");
    m_app.Write("Shop/qryCheap.query", "dbMemo \"SQL\" =\"SELECT Items.Name, [Price]*2 AS Twice FROM Items\"\r\n");
    m_app.Write("Shop/mcrHello.macro", "Begin\r\n    Comment =\"Greets\"\r\nEnd\r\nBegin\r\n    Action =\"MsgBox\"\r\n"
                                       "    Argument =\"Hello\"\r\n    Comment =\"Says hello\"\r\nEnd\r\n");
    ConnectHost(CW_AccessContext::Open(m_app / "Shop"));
    IHostAgent& agent = Data().Agent();
    EXPECT_EQ(agent.GetSourceTablesList(), (std::vector<std::string> { "Items" }));
    EXPECT_EQ(agent.GetComponentDescription("Items"), "What we sell");
    EXPECT_EQ(agent.GetQueryDescription("qryCheap"), "SQL: SELECT Items.Name, [Price]*2 AS Twice FROM Items");
    EXPECT_EQ(agent.GetMacroDescription("mcrHello"), "Greets");
    EXPECT_NE(agent.GetQueryXmlStr("qryCheap").find("Table=\"Items"), std::string::npos);

    ProcessComponentRequest request;
    request.objectType = 0;
    request.componentName = "Items";
    request.sourceProjectTypeName = "MS ACCESS";
    CXmlForm table;
    ASSERT_TRUE(table.LoadXml(agent.ProcessComponent(request)));
    EXPECT_EQ(table.Type_(), "Table");
    EXPECT_EQ(table.Description, "What we sell");
    ASSERT_EQ(table.Controls().Count(), 2u);
    EXPECT_EQ(table.Controls().At(0).value->Description, "Long Integer, required");
    EXPECT_EQ(table.Controls().At(1).value->Description, "Shown on invoices");

    request.objectType = 4;
    request.componentName = "mcrHello";
    CXmlForm macro;
    ASSERT_TRUE(macro.LoadXml(agent.ProcessComponent(request)));
    ASSERT_EQ(macro.Controls().Count(), 1u);
    EXPECT_EQ(macro.Controls().At(0).value->Caption(), "MsgBox Hello");
    EXPECT_EQ(macro.Controls().At(0).value->Description, "Says hello");
}

TEST_F(AccessHostTest, TheObjectsOfEachKindBecomeNodesOfTheirKind)
{
    m_app.Write("Shop/tables.sql", "CREATE TABLE [Order Lines] ([Id] Long Integer);\r\n");
    m_app.Write("Shop/rptDaily.report", "Begin Report\r\n    Caption =\"Daily \\\"totals\\\"\"\r\nEnd\r\n");
    std::unique_ptr<IHelpPrjSourceProject> source = Parse();
    ASSERT_TRUE(source);
    CHelpPrjTree tree;
    ASSERT_EQ(tree.Load("", true, "<Project Key='P'><Topic Key='A' GeneratedHtmlFile='Shop_Table_Order_Lines.htm'/></Project>"),
        0u);
    CHelpPrjObjectsCF factory;
    std::unique_ptr<IXmlSerializer> tables = factory.CreateObject("GetTablesXml");
    ASSERT_TRUE(tables);
    std::string table = tables->XmlCollection(tree, *source).at(0);
    EXPECT_EQ(table.rfind("<TABLE Name=\"Order Lines\" Key=\"Shop.Table_Order Lines\"", 0), 0u) << table;
    EXPECT_NE(table.find("type = \"0 \""), std::string::npos);
    EXPECT_NE(table.find("SourceProjectType = \"MS ACCESS\""), std::string::npos);
    // A page name holds no blank; one taken already gets the time of day.
    std::smatch match;
    ASSERT_TRUE(std::regex_search(table, match, std::regex("GeneratedHTMLFile = \"([^\"]*)\"")));
    EXPECT_TRUE(std::regex_match(match[1].str(), std::regex("Shop_Table_Order_Lines_[0-9]{6}\\.htm"))) << match[1];
    std::unique_ptr<IXmlSerializer> reports = factory.CreateReportsListObject();
    std::string report = reports->XmlCollection(tree, *source).at(0);
    EXPECT_NE(report.find("<REPORT Name=\"rptDaily\""), std::string::npos);
    EXPECT_NE(report.find("type = \"3 \""), std::string::npos);
    // The caption is kept as the definition writes it, encoded so that the node reads back.
    EXPECT_NE(report.find("caption=\"Daily &#92;&#34;totals&#92;&#34;\""), std::string::npos) << report;
    // The forms are those of the plain factory; an unknown name makes nothing.
    EXPECT_NE(dynamic_cast<clsVBFormsList*>(factory.CreateObject("GetVBFormsXml").get()), nullptr);
    EXPECT_EQ(factory.CreateObject("GetNothingXml"), nullptr);
    EXPECT_TRUE(factory.CreateWorksheetsListObject()->XmlCollection(tree, *source).empty());
}

TEST_F(AccessHostTest, AFormIsDrawnInFormViewWithItsSubform)
{
    std::string example = test::CopyExample("AccessDemo", m_app);
    std::unique_ptr<CW_AccessContext> host = CW_AccessContext::Open(example);
    const AccessDefinition* customers = host->Definition(2, "frmCustomers");
    ASSERT_NE(customers, nullptr);
    CW_AccessFormProcessor processor(*customers, "frmCustomers", false, 9);
    CAccessFormRenderer renderer(processor, [&](const std::string& name) { return host->Definition(2, name); });
    RenderedForm drawn = renderer.Render();
    const RenderedControl* subform = drawn.Find("sfrmOrders");
    ASSERT_NE(subform, nullptr);
    // Inside the subform's border its own form begins: the white detail of the orders' subform.
    EXPECT_EQ(drawn.picture.Pixel(subform->rect.left + 200, subform->rect.top + 2 + 20 + 10), (Rgb { 255, 255, 255 }));
    // Below the sections lie the navigation buttons, on the face colour.
    int navigationTop = processor.FormClientAreaOffsetY(processor.Component()) + processor.SectionsHeight();
    EXPECT_EQ(drawn.picture.Pixel(drawn.picture.Width() - 10, navigationTop + 9), SystemColour(syscolour::kButtonFace));
    EXPECT_EQ(drawn.picture.Height(), navigationTop + 18 + 4);
    // The subform's own controls are not those of this form.
    EXPECT_EQ(drawn.Find("OrderDate"), nullptr);

    // The host draws it under its window when it is opened.
    int handle = host->ActivateComponent(2, "frmCustomers", false, false);
    ASSERT_NE(RenderedWindows().Find(handle), nullptr);
    EXPECT_EQ(RenderedWindows().Find(handle)->className, kAccessFormWindowClass);
    EXPECT_EQ(host->ActivateComponent(0, "Customers", false, false), 0);
}

}  // namespace
}  // namespace scriv
