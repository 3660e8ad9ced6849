#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

// An Excel workbook in the Office Open XML form (.xlsx, .xlsm) read from its
// package: the worksheets with the values of their cells as Excel shows
// them, and the charts, embedded in a worksheet or on a chart sheet of their own.
namespace scriv {

struct XlsxMerge {
    int firstRow, firstColumn, lastRow, lastColumn;
};

struct XlsxSheet {
    std::string name;
    // The used range (1 based); a sheet without values has lastRow 0.
    int firstRow { 1 };
    int firstColumn { 1 };
    int lastRow { 0 };
    int lastColumn { 0 };
    // The shown text of every cell with a value, by (row, column).
    std::map<std::pair<int, int>, std::string> cells;
    // Cells holding numbers, which are right-aligned.
    std::map<std::pair<int, int>, bool> numeric;
    std::vector<XlsxMerge> merges;

    bool Empty() const { return lastRow == 0; }
    // The shown text of a cell, "" for an empty one.
    std::string Text(int row, int column) const;
};

struct XlsxChart {
    // "Sales - Chart 1" for a chart on a worksheet, the sheet's name for a chart sheet.
    std::string name;
    // The name the chart object has on its sheet ("Chart 1").
    std::string objectName;
    // The sheet that shows it.
    std::string sheet;
    bool onChartSheet { false };
    std::string title;
    // "bar", "line", "pie" ...: the first plot of the chart.
    std::string type;
    std::vector<std::string> series;
};

class XlsxWorkbook {
public:
    // Reads the package; raises ScrivError naming the file when it is no
    // workbook that can be read.
    static XlsxWorkbook Load(const std::string& path);

    const std::string& Path() const { return m_path; }
    // The worksheets in the order of the workbook's tabs.
    const std::vector<XlsxSheet>& Worksheets() const { return m_sheets; }
    const std::vector<XlsxChart>& Charts() const { return m_charts; }
    const XlsxSheet* FindWorksheet(const std::string& name) const;
    const XlsxChart* FindChart(const std::string& name) const;
    // Whether the package holds a VBA project (a macro-enabled workbook).
    bool HasVbaProject() const { return m_hasVba; }

private:
    std::string m_path;
    std::vector<XlsxSheet> m_sheets;
    std::vector<XlsxChart> m_charts;
    bool m_hasVba { false };
};

// The used range of a worksheet as an HTML table, with the column letters
// above and the row numbers beside it, merged cells spanning. At most
// maxRows rows and maxColumns columns are written; a note says what was left out.
std::string WorksheetHtml(const XlsxSheet& sheet, int maxRows = 200, int maxColumns = 52);
// What a chart topic says of a chart: its name, its sheet, its kind, title and series.
std::string ChartHtml(const XlsxChart& chart);
// "A", "Z", "AA" for columns 1, 26, 27.
std::string ColumnLetters(int column);
// The row and column of a cell reference ("B12" gives 12, 2); 0, 0 when it is none.
std::pair<int, int> CellPosition(const std::string& reference);

}  // namespace scriv
