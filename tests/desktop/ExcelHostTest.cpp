#include <gtest/gtest.h>

#include <zip.h>

#include <algorithm>
#include <map>

#include "desktop/CW_ExcelContext.h"
#include "desktop/RenderedWindows.h"
#include "foundation/Paths.h"
#include "host/CXmlCommand.h"
#include "host/excel/CSourceProjectMSExcel.h"
#include "host/vb6/Vb6FormFile.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/IHostAgent.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

void WritePackage(const std::string& path, const std::map<std::string, std::string>& parts)
{
    int error = 0;
    zip_t* zip = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(zip, nullptr);
    for (const auto& [name, text] : parts)
        zip_file_add(zip, name.c_str(), zip_source_buffer(zip, text.data(), text.size(), 0), ZIP_FL_OVERWRITE);
    ASSERT_EQ(zip_close(zip), 0);
}

// A workbook of worksheets named as given, each empty.
void WriteWorkbook(const std::string& path, const std::vector<std::string>& sheets)
{
    std::string list;
    std::string relationships;
    std::map<std::string, std::string> parts;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        std::string id = "rId" + std::to_string(i + 1);
        std::string name = sheets[i];
        std::string escaped;
        for (char c : name)
            escaped += c == '"' ? std::string("&quot;") : std::string(1, c);
        list += "<sheet name=\"" + escaped + "\" sheetId=\"" + std::to_string(i + 1) + "\" r:id=\"" + id + "\"/>";
        relationships += "<Relationship Id=\"" + id
            + "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\" Target=\"worksheets/s"
            + std::to_string(i) + ".xml\"/>";
        parts["xl/worksheets/s" + std::to_string(i) + ".xml"]
            = "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData/></worksheet>";
    }
    parts["xl/workbook.xml"] = "<workbook xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets>"
        + list + "</sheets></workbook>";
    parts["xl/_rels/workbook.xml.rels"] = "<Relationships>" + relationships + "</Relationships>";
    WritePackage(path, parts);
}

const char* const kUserForm = "VERSION 5.00\r\nBegin {C62A69F0-16DC-11CE-9E98-00AA00574A4F} %s \r\n%s"
                              "   ClientHeight    =   1500\r\n   ClientWidth     =   3000\r\n"
                              "   OleObjectBlob   =   \"%s.frx\":0000\r\nEnd\r\nAttribute VB_Name = \"%s\"\r\n";

std::string UserForm(const std::string& name, const std::string& captionLine)
{
    char text[512];
    std::snprintf(text, sizeof text, kUserForm, name.c_str(), captionLine.c_str(), name.c_str(), name.c_str());
    return text;
}

class ExcelHostTest : public test::CoreFixture {
protected:
    test::TempFolder m_work;
};

TEST_F(ExcelHostTest, TheWorkbooksWorksheetsChartsAndUserFormsAreItsObjects)
{
    std::string folder = test::CopyExample("ExcelDemo", m_work);
    ConnectHost(CW_ExcelContext::Open(folder + "SalesReport.xlsm"));
    IHostAgent& agent = Data().Agent();
    EXPECT_EQ(agent.CurrentSourceProjectTypeName(), "MS EXCEL");
    EXPECT_EQ(agent.CurrentSourceProjectName(), "SalesReport");
    std::unique_ptr<IHelpPrjSourceProject> source = agent.ParseSourceProject();
    ASSERT_TRUE(source);
    EXPECT_EQ(source->ProjectType(), "MS EXCEL");
    ASSERT_EQ(source->Worksheets().Count(), 2u);
    EXPECT_EQ(source->Worksheets().At(0).value->SubType, "Worksheet");
    ASSERT_EQ(source->Charts().Count(), 2u);
    EXPECT_EQ(source->Charts().At(1).key, "Trend");
    ASSERT_EQ(source->Forms().Count(), 1u);
    EXPECT_EQ(source->Forms().At(0).value->FormName, "frmFilter");
    EXPECT_EQ(source->Forms().At(0).value->FormCaption, "Filter the Sales");
    EXPECT_FALSE(source->CouldHaveTables());

    // A worksheet topic shows its range in use; a chart's names it and its sheet.
    std::string sales = agent.GetWksHtml("Sales");
    EXPECT_NE(sales.find("<td align=\"right\">191,600</td>"), std::string::npos);
    EXPECT_NE(agent.GetWksHtml("Sales - Chart 1").find("on the worksheet <b>Sales</b>"), std::string::npos);
    EXPECT_EQ(agent.GetWksHtml("Nothing"), "");

    // The description of a worksheet has a field for each column with a heading.
    ProcessComponentRequest request;
    request.objectType = 81;
    request.componentName = "Sales";
    request.sourceProjectTypeName = "MS EXCEL";
    CXmlForm worksheet;
    ASSERT_TRUE(worksheet.LoadXml(agent.ProcessComponent(request)));
    EXPECT_EQ(worksheet.Type_(), "Worksheet");
    ASSERT_EQ(worksheet.Controls().Count(), 7u);
    EXPECT_EQ(worksheet.Controls().At(0).value->Name, "A");
    EXPECT_EQ(worksheet.Controls().At(0).value->Caption(), "Region");
    EXPECT_EQ(worksheet.Width, 0);

    // A user form is drawn as a dialog of its size.
    request.objectType = 2;
    request.componentName = "frmFilter";
    CXmlForm form;
    ASSERT_TRUE(form.LoadXml(agent.ProcessComponent(request)));
    EXPECT_EQ(form.Caption(), "Filter the Sales");
    EXPECT_EQ(form.BorderStyle, 3);
    agent.ActivateComponent(2, "frmFilter", false, false);
    ASSERT_NE(RenderedWindows().Find(form.hWnd), nullptr);
    EXPECT_EQ(RenderedWindows().Find(form.hWnd)->form.picture.Width(), 320 + 8);
}

TEST_F(ExcelHostTest, AUserFormTakesItsHelpContextIdIntoItsFormFile)
{
    std::string book = m_work / "Book.xlsx";
    WriteWorkbook(book, { "Plan" });
    std::string before = UserForm("frmPlan", "   Caption         =   \"Plan\"\r\n");
    m_work.Write("frmPlan.frm", before);
    ConnectHost(CW_ExcelContext::Open(book));
    IHostAgent& agent = Data().Agent();
    agent.SetComponentHelpContextId(2, "frmPlan", 4711);
    std::string after = m_work.Read("frmPlan.frm");
    EXPECT_NE(after.find("HelpContextID   =   4711\r\n"), std::string::npos) << after;
    // One line more, every other line as it was, and the reader sees the id.
    EXPECT_EQ(after.size(), before.size() + std::string("   HelpContextID   =   4711\r\n").size()) << after;
    EXPECT_EQ(Vb6FormFile::Load(m_work / "frmPlan.frm").Form().Number("HelpContextID", 0), 4711);
    // Set again, the line is changed, not added.
    agent.SetComponentHelpContextId(2, "frmPlan", 12);
    after = m_work.Read("frmPlan.frm");
    EXPECT_EQ(after.find("4711"), std::string::npos);
    EXPECT_EQ(Vb6FormFile::Load(m_work / "frmPlan.frm").Form().Number("HelpContextID", 0), 12);
    // A worksheet has nowhere to keep one; nothing is written.
    agent.SetComponentHelpContextId(81, "Plan", 5);
    EXPECT_EQ(m_work.Read("frmPlan.frm"), after);
}

TEST_F(ExcelHostTest, ANameWithADoubleQuoteIsAnnouncedAndSkipped)
{
    std::string book = m_work / "Book.xlsx";
    WriteWorkbook(book, { "Plan", "Q\"1", "Actual" });
    m_work.Write("frmPlain.frm", UserForm("frmPlain", ""));
    m_work.Write("frmTitled.frm", UserForm("frmTitled", "   Caption         =   \"Choose a plan\"\r\n"));
    m_work.Write("frmOld.frm", "VERSION 5.00\r\nBegin VB.Form frmOld\r\n   Caption = \"A VB6 form\"\r\nEnd\r\n");
    ConnectHost(CW_ExcelContext::Open(book));
    std::unique_ptr<IHelpPrjSourceProject> source = Data().Agent().ParseSourceProject();
    ASSERT_TRUE(source);
    ASSERT_EQ(source->Worksheets().Count(), 2u);
    EXPECT_EQ(source->Worksheets().At(1).key, "Actual");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Source worksheet skipped Q\"1.\r\nPlease remove double quotes from its name.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 48);
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    // Only the user forms count; one without a caption takes its name.
    ASSERT_EQ(source->Forms().Count(), 2u);
    EXPECT_EQ(source->Forms().At(0).value->FormCaption, "frmPlain");
    EXPECT_EQ(source->Forms().At(1).value->FormCaption, "Choose a plan");
}

TEST_F(ExcelHostTest, AUserFormsControlsAreWalkedAndDrawnFromItsFrx)
{
    std::string folder = test::CopyExample("ExcelDemo", m_work);
    ConnectHost(CW_ExcelContext::Open(folder + "SalesReport.xlsm"));
    IHostAgent& agent = Data().Agent();
    ProcessComponentRequest request;
    request.objectType = 2;
    request.componentName = "frmFilter";
    request.sourceProjectTypeName = "MS EXCEL";
    CXmlForm form;
    ASSERT_TRUE(form.LoadXml(agent.ProcessComponent(request)));
    std::map<std::string, const CXmlControl*> controls;
    for (const CXmlControl* control : form.AllControls())
        controls[control->Name] = control;
    for (const char* name : { "lblRegions", "lstRegions", "fraPeriod", "optYear", "optQuarter", "chkTotals", "txtTitle",
             "cmdApply", "cmdCancel" })
        EXPECT_TRUE(controls.count(name)) << name;
    ASSERT_TRUE(controls.count("cmdApply") && controls.count("optQuarter"));
    EXPECT_EQ(controls["cmdApply"]->Text, "Apply");
    EXPECT_EQ(controls["cmdApply"]->Left, 156);
    EXPECT_EQ(controls["cmdApply"]->Top, 190);
    EXPECT_EQ(controls["cmdApply"]->Width, 76);
    EXPECT_EQ(controls["cmdApply"]->Height, 26);
    EXPECT_EQ(controls["cmdApply"]->TabIndex, 5);
    // The option buttons stand in the frame, placed in it.
    ASSERT_TRUE(controls.count("fraPeriod"));
    std::vector<std::string> inFrame;
    for (const auto& entry : controls["fraPeriod"]->Controls())
        inFrame.push_back(entry.value->Name);
    std::sort(inFrame.begin(), inFrame.end());
    EXPECT_EQ(inFrame, (std::vector<std::string> { "optQuarter", "optYear" }));
    EXPECT_EQ(controls["optQuarter"]->Text, "Last quarter");
    EXPECT_EQ(controls["optQuarter"]->Left, 8);
    EXPECT_EQ(controls["optQuarter"]->Top, 40);
}

TEST_F(ExcelHostTest, AUserFormWithoutOrWithADamagedFrxKeepsItsEmptyFace)
{
    std::string book = m_work / "Book.xlsx";
    WriteWorkbook(book, { "Plan" });
    m_work.Write("frmAlone.frm", UserForm("frmAlone", ""));
    m_work.Write("frmBroken.frm", UserForm("frmBroken", ""));
    m_work.Write("frmBroken.frx", std::string("LB\x08\0\x10\0\0\0", 8) + std::string(16, '\0') + "not a compound file");
    ConnectHost(CW_ExcelContext::Open(book));
    IHostAgent& agent = Data().Agent();
    for (const char* name : { "frmAlone", "frmBroken" }) {
        ProcessComponentRequest request;
        request.objectType = 2;
        request.componentName = name;
        request.sourceProjectTypeName = "MS EXCEL";
        CXmlForm form;
        ASSERT_TRUE(form.LoadXml(agent.ProcessComponent(request))) << name;
        EXPECT_EQ(form.Controls().Count(), 0u) << name;
        agent.ActivateComponent(2, name, false, false);
        ASSERT_NE(RenderedWindows().Find(form.hWnd), nullptr) << name;
        EXPECT_EQ(RenderedWindows().Find(form.hWnd)->form.picture.Width(), 200 + 8) << name;
    }
    std::string trace = ReadFileText(TraceLog().Folder() + "trace.xml.txt").value_or("");
    EXPECT_NE(trace.find("frmAlone has no .frx"), std::string::npos) << trace;
    EXPECT_NE(trace.find("frmBroken.frx holds no compound file"), std::string::npos) << trace;
}

TEST_F(ExcelHostTest, OnlyTheExcelTypeIsReadByTheWorkbookReader)
{
    CSourceProjectMSExcel reader;
    EXPECT_FALSE(reader.init("Book.xlsx", "MS ACCESS"));
    // Without a host to ask, there is nothing to list.
    EXPECT_FALSE(reader.init("Book.xlsx", "MS EXCEL"));
    EXPECT_FALSE(reader.IsValid());
}

TEST_F(ExcelHostTest, TheHeadingRowIsTheFirstWithTheMostTexts)
{
    XlsxSheet sheet;
    sheet.firstRow = 1;
    sheet.lastRow = 4;
    sheet.firstColumn = 1;
    sheet.lastColumn = 3;
    sheet.cells[{ 1, 1 }] = "Title";
    sheet.cells[{ 3, 1 }] = "Name";
    sheet.cells[{ 3, 2 }] = "Amount";
    sheet.cells[{ 4, 1 }] = "x";
    sheet.cells[{ 4, 2 }] = "5";
    sheet.numeric[{ 4, 2 }] = true;
    EXPECT_EQ(HeadingRow(sheet), 3);
    XlsxSheet single;
    single.lastRow = 1;
    single.lastColumn = 1;
    single.cells[{ 1, 1 }] = "alone";
    EXPECT_EQ(HeadingRow(single), 0);
}

}  // namespace
}  // namespace scriv
