#include <gtest/gtest.h>

#include <map>
#include <zip.h>

#include "foundation/ScrivError.h"
#include "host/excel/XlsxWorkbook.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

// Writes a zip package of the given parts.
void WritePackage(const std::string& path, const std::map<std::string, std::string>& parts)
{
    int error = 0;
    zip_t* zip = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(zip, nullptr);
    for (const auto& [name, text] : parts) {
        zip_source_t* source = zip_source_buffer(zip, text.data(), text.size(), 0);
        ASSERT_GE(zip_file_add(zip, name.c_str(), source, ZIP_FL_OVERWRITE), 0);
    }
    ASSERT_EQ(zip_close(zip), 0);
}

const char* const kRels = R"(<?xml version="1.0"?><Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="/xl/workbook.xml"/>
</Relationships>)";

// A workbook of one sheet in the given cells, with shared strings, styles and merges.
std::map<std::string, std::string> OneSheet(const std::string& sheetData, const std::string& after = "")
{
    return {
        { "_rels/.rels", kRels },
        { "xl/workbook.xml", R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"
            xmlns:rel="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
            <sheets><sheet name="Data &amp; more" sheetId="1" rel:id="s1"/></sheets></workbook>)" },
        { "xl/_rels/workbook.xml.rels", R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
            <Relationship Id="s1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/data.xml"/>
            <Relationship Id="s2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings" Target="strings.xml"/>
            <Relationship Id="s3" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>
            </Relationships>)" },
        { "xl/strings.xml", R"(<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">
            <si><t>Plain</t></si>
            <si><r><t>Rich </t></r><r><rPr><b/></rPr><t>text</t></r><rPh><t>phonetic</t></rPh></si>
            </sst>)" },
        { "xl/styles.xml", R"(<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">
            <numFmts><numFmt numFmtId="170" formatCode="&quot;$&quot;#,##0.00"/><numFmt numFmtId="171" formatCode="dd/mm/yyyy hh:mm"/></numFmts>
            <cellXfs><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="170"/><xf numFmtId="10"/><xf numFmtId="171"/><xf numFmtId="3"/></cellXfs>
            </styleSheet>)" },
        { "xl/worksheets/data.xml", "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>"
                + sheetData + "</sheetData>" + after + "</worksheet>" },
    };
}

TEST(XlsxWorkbook, CellsShowWhatExcelShows)
{
    test::TempFolder folder;
    std::string path = folder / "book.xlsx";
    WritePackage(path, OneSheet(R"(
        <row r="2"><c r="B2" t="s"><v>0</v></c><c r="C2" t="s"><v>1</v></c><c r="D2" t="inlineStr"><is><t>inline &lt;x&gt;</t></is></c></row>
        <row r="3"><c r="B3" s="1"><v>45292</v></c><c r="C3" s="2"><v>-1234.5</v></c><c r="D3" s="3"><v>0.125</v></c></row>
        <row r="4"><c r="B4" t="b"><v>1</v></c><c r="C4" t="e"><v>#DIV/0!</v></c><c r="D4" t="str"><f>A1</f><v>formula</v></c>
          <c r="E4"><v>0.1</v></c><c r="F4" s="4"><v>45292.5</v></c><c r="G4" s="5"><v>1234567</v></c><c r="H4" s="1"><v>59</v></c><c r="I4" s="1"><v>61</v></c></row>
        <row r="5"><c r="B5" s="1"/><c r="C5"><v>3</v></c></row>)",
        R"(<mergeCells><mergeCell ref="C5:D6"/></mergeCells>)"));
    XlsxWorkbook book = XlsxWorkbook::Load(path);
    ASSERT_EQ(book.Worksheets().size(), 1u);
    const XlsxSheet& sheet = book.Worksheets()[0];
    EXPECT_EQ(sheet.name, "Data & more");
    EXPECT_EQ(sheet.Text(2, 2), "Plain");
    EXPECT_EQ(sheet.Text(2, 3), "Rich text");
    EXPECT_EQ(sheet.Text(2, 4), "inline <x>");
    EXPECT_EQ(sheet.Text(3, 2), "2024-01-01");
    EXPECT_EQ(sheet.Text(3, 3), "-$1,234.50");
    EXPECT_EQ(sheet.Text(3, 4), "12.50%");
    EXPECT_EQ(sheet.Text(4, 2), "TRUE");
    EXPECT_EQ(sheet.Text(4, 3), "#DIV/0!");
    EXPECT_EQ(sheet.Text(4, 4), "formula");
    EXPECT_EQ(sheet.Text(4, 5), "0.1");
    EXPECT_EQ(sheet.Text(4, 6), "2024-01-01 12:00");
    EXPECT_EQ(sheet.Text(4, 7), "1,234,567");
    // Excel counts a 29 February 1900 that never was, between its days 59 and 61.
    EXPECT_EQ(sheet.Text(4, 8), "1900-02-28");
    EXPECT_EQ(sheet.Text(4, 9), "1900-03-01");
    EXPECT_EQ(sheet.Text(5, 2), "");
    // The range in use holds the cells with values, an empty styled cell not.
    EXPECT_EQ(sheet.firstRow, 2);
    EXPECT_EQ(sheet.firstColumn, 2);
    EXPECT_EQ(sheet.lastRow, 5);
    EXPECT_EQ(sheet.lastColumn, 9);
    EXPECT_TRUE(sheet.numeric.count({ 3, 3 }));
    EXPECT_FALSE(sheet.numeric.count({ 2, 2 }));
    EXPECT_FALSE(book.HasVbaProject());

    std::string html = WorksheetHtml(sheet);
    EXPECT_NE(html.find("<tr><th></th><th>B</th><th>C</th>"), std::string::npos);
    EXPECT_NE(html.find("<td>inline &lt;x&gt;</td>"), std::string::npos);
    EXPECT_NE(html.find("<td align=\"right\">-$1,234.50</td>"), std::string::npos);
    // A merged range spans, clipped to the range in use; the cells it covers are left out.
    EXPECT_NE(html.find("<td colspan=\"2\" align=\"right\">3</td>"), std::string::npos);
    std::string small = WorksheetHtml(sheet, 2, 2);
    EXPECT_NE(small.find("The table shows the cells B2 to C3 of the range in use, B2 to I5."), std::string::npos);
}

TEST(XlsxWorkbook, ChartsAreFoundOnWorksheetsAndChartSheets)
{
    XlsxWorkbook book = XlsxWorkbook::Load(test::ExamplesFolder() + "ExcelDemo/SalesReport.xlsm");
    ASSERT_EQ(book.Worksheets().size(), 2u);
    EXPECT_EQ(book.Worksheets()[0].name, "Sales");
    EXPECT_EQ(book.Worksheets()[1].name, "Customers");
    ASSERT_EQ(book.Charts().size(), 2u);
    const XlsxChart& embedded = book.Charts()[0];
    EXPECT_EQ(embedded.name, "Sales - Chart 1");
    EXPECT_EQ(embedded.objectName, "Chart 1");
    EXPECT_EQ(embedded.sheet, "Sales");
    EXPECT_FALSE(embedded.onChartSheet);
    EXPECT_EQ(embedded.type, "column");
    EXPECT_EQ(embedded.title, "Sales by quarter");
    EXPECT_EQ(embedded.series, (std::vector<std::string> { "Q1", "Q2", "Q3", "Q4" }));
    const XlsxChart* trend = book.FindChart("trend");
    ASSERT_NE(trend, nullptr);
    EXPECT_TRUE(trend->onChartSheet);
    EXPECT_EQ(trend->type, "line");
    EXPECT_NE(ChartHtml(*trend).find("The chart sheet <b>Trend</b> is a line chart titled &quot;Sales over the year&quot;."),
        std::string::npos);
    const XlsxSheet* customers = book.FindWorksheet("Customers");
    ASSERT_NE(customers, nullptr);
    EXPECT_EQ(customers->Text(5, 1), "Smith & Sons");
    EXPECT_EQ(customers->Text(2, 3), "2019-01-01");
}

TEST(XlsxWorkbook, CellReferencesAndColumnLetters)
{
    EXPECT_EQ(CellPosition("B12"), (std::pair<int, int> { 12, 2 }));
    EXPECT_EQ(CellPosition("$AA$3"), (std::pair<int, int> { 3, 27 }));
    EXPECT_EQ(CellPosition("12"), (std::pair<int, int> { 0, 0 }));
    EXPECT_EQ(CellPosition("B"), (std::pair<int, int> { 0, 0 }));
    EXPECT_EQ(CellPosition("ZZZZ1"), (std::pair<int, int> { 0, 0 }));
    EXPECT_EQ(ColumnLetters(1), "A");
    EXPECT_EQ(ColumnLetters(26), "Z");
    EXPECT_EQ(ColumnLetters(27), "AA");
    EXPECT_EQ(ColumnLetters(702), "ZZ");
    EXPECT_EQ(ColumnLetters(703), "AAA");
}

TEST(XlsxWorkbook, WhatIsNoWorkbookIsNamed)
{
    test::TempFolder folder;
    std::string text = folder.Write("text.xlsx", "this is no zip");
    EXPECT_THROW(XlsxWorkbook::Load(text), ScrivError);
    EXPECT_THROW(XlsxWorkbook::Load(folder / "missing.xlsx"), ScrivError);
    std::string empty = folder / "empty.xlsx";
    WritePackage(empty, { { "readme.txt", "no workbook" } });
    EXPECT_THROW(XlsxWorkbook::Load(empty), ScrivError);
}

}  // namespace
}  // namespace scriv
