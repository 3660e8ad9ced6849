#!/usr/bin/env python3
"""Writes SalesReport.xlsm, the example workbook, from hand-written Office Open
XML: two worksheets (sales by region with a chart, and a customer list), a
chart sheet, shared strings, number formats and a merged title cell.

Run from this folder: python3 make_workbook.py
The user form of the workbook's VBA project is exported beside it (frmFilter.frm).
"""
import zipfile

CONTENT_TYPES = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Default Extension="xml" ContentType="application/xml"/>
<Override PartName="/xl/workbook.xml" ContentType="application/vnd.ms-excel.sheet.macroEnabled.main+xml"/>
<Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>
<Override PartName="/xl/worksheets/sheet2.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>
<Override PartName="/xl/chartsheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.chartsheet+xml"/>
<Override PartName="/xl/drawings/drawing1.xml" ContentType="application/vnd.openxmlformats-officedocument.drawing+xml"/>
<Override PartName="/xl/drawings/drawing2.xml" ContentType="application/vnd.openxmlformats-officedocument.drawing+xml"/>
<Override PartName="/xl/charts/chart1.xml" ContentType="application/vnd.openxmlformats-officedocument.drawingml.chart+xml"/>
<Override PartName="/xl/charts/chart2.xml" ContentType="application/vnd.openxmlformats-officedocument.drawingml.chart+xml"/>
<Override PartName="/xl/sharedStrings.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml"/>
<Override PartName="/xl/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/>
<Override PartName="/docProps/core.xml" ContentType="application/vnd.openxmlformats-package.core-properties+xml"/>
</Types>
"""

ROOT_RELS = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>
<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties" Target="docProps/core.xml"/>
</Relationships>
"""

CORE = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties" xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
<dc:title>Sales Report</dc:title>
<dc:creator>Scrivant examples</dc:creator>
</cp:coreProperties>
"""

WORKBOOK = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<workbookPr codeName="ThisWorkbook"/>
<sheets>
<sheet name="Sales" sheetId="1" r:id="rId1"/>
<sheet name="Customers" sheetId="2" r:id="rId2"/>
<sheet name="Trend" sheetId="3" r:id="rId3"/>
</sheets>
</workbook>
"""

WORKBOOK_RELS = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>
<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet2.xml"/>
<Relationship Id="rId3" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/chartsheet" Target="chartsheets/sheet1.xml"/>
<Relationship Id="rId4" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings" Target="sharedStrings.xml"/>
<Relationship Id="rId5" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>
</Relationships>
"""

# Style 0 General, 1 "#,##0", 2 "0.0%", 3 a date (built-in format 14), 4 bold text.
STYLES = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">
<numFmts count="1"><numFmt numFmtId="164" formatCode="0.0%"/></numFmts>
<fonts count="2"><font><sz val="11"/><name val="Calibri"/></font><font><b/><sz val="11"/><name val="Calibri"/></font></fonts>
<fills count="2"><fill><patternFill patternType="none"/></fill><fill><patternFill patternType="gray125"/></fill></fills>
<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>
<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>
<cellXfs count="5">
<xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>
<xf numFmtId="3" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1"/>
<xf numFmtId="164" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1"/>
<xf numFmtId="14" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1"/>
<xf numFmtId="0" fontId="1" fillId="0" borderId="0" xfId="0" applyFont="1"/>
</cellXfs>
</styleSheet>
"""

STRINGS = ["Sales by Region 2024", "Region", "Q1", "Q2", "Q3", "Q4", "Total", "Share",
           "North", "South", "East", "West", "All regions",
           "Customer", "City", "Since", "Orders"]


def shared(text):
    return STRINGS.index(text)


def cell(reference, value, style=0):
    """One cell: a number, a shared string, or a formula with its cached value."""
    if isinstance(value, tuple):
        formula, cached = value
        return f'<c r="{reference}" s="{style}"><f>{formula}</f><v>{cached}</v></c>'
    if isinstance(value, str):
        return f'<c r="{reference}" s="{style}" t="s"><v>{shared(value)}</v></c>'
    return f'<c r="{reference}" s="{style}"><v>{value}</v></c>'


def inline(reference, text):
    return f'<c r="{reference}" t="inlineStr"><is><t>{text}</t></is></c>'


REGIONS = [("North", [12500, 13100, 11800, 15200]),
           ("South", [9800, 10250, 11900, 12400]),
           ("East", [14300, 13900, 15100, 16800]),
           ("West", [7600, 8100, 8900, 9950])]


def sales_sheet():
    grand = sum(sum(q) for _, q in REGIONS)
    rows = [f'<row r="1">{cell("A1", "Sales by Region 2024", 4)}</row>']
    headers = ["Region", "Q1", "Q2", "Q3", "Q4", "Total", "Share"]
    rows.append('<row r="3">' + "".join(cell(f"{chr(65 + i)}3", h, 4) for i, h in enumerate(headers)) + "</row>")
    for n, (region, quarters) in enumerate(REGIONS):
        r = 4 + n
        cells = [cell(f"A{r}", region)]
        cells += [cell(f"{chr(66 + i)}{r}", q, 1) for i, q in enumerate(quarters)]
        total = sum(quarters)
        cells.append(cell(f"F{r}", (f"SUM(B{r}:E{r})", total), 1))
        cells.append(cell(f"G{r}", (f"F{r}/$F$8", repr(total / grand)), 2))
        rows.append(f'<row r="{r}">' + "".join(cells) + "</row>")
    totals = [cell("A8", "All regions", 4)]
    for i in range(5):
        column = chr(66 + i)
        value = sum(q[i] for _, q in REGIONS) if i < 4 else grand
        totals.append(cell(f"{column}8", (f"SUM({column}4:{column}7)", value), 1))
    totals.append(cell("G8", ("SUM(G4:G7)", 1), 2))
    rows.append('<row r="8">' + "".join(totals) + "</row>")
    return ("""<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<dimension ref="A1:G8"/>
<sheetData>""" + "".join(rows) + """</sheetData>
<mergeCells count="1"><mergeCell ref="A1:G1"/></mergeCells>
<drawing r:id="rId1"/>
</worksheet>
""")


CUSTOMERS = [("Bakery Martin", "Lyon", 43466, 14), ("Nordwind GmbH", "Hamburg", 44197, 31),
             ("Casa Verde", "Sevilla", 44835, 9), ("Smith &amp; Sons", "Leeds", 45200, 22)]


def customers_sheet():
    rows = ['<row r="1">' + cell("A1", "Customer", 4) + cell("B1", "City", 4) + cell("C1", "Since", 4)
            + cell("D1", "Orders", 4) + "</row>"]
    for n, (name, city, since, orders) in enumerate(CUSTOMERS):
        r = 2 + n
        rows.append(f'<row r="{r}">' + inline(f"A{r}", name) + inline(f"B{r}", city) + cell(f"C{r}", since, 3)
                    + cell(f"D{r}", orders) + "</row>")
    return ("""<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">
<sheetData>""" + "".join(rows) + """</sheetData>
</worksheet>
""")


SHEET1_RELS = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/drawing" Target="../drawings/drawing1.xml"/>
</Relationships>
"""

CHARTSHEET = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<chartsheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<sheetViews><sheetView workbookViewId="0"/></sheetViews>
<drawing r:id="rId1"/>
</chartsheet>
"""

CHARTSHEET_RELS = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/drawing" Target="../drawings/drawing2.xml"/>
</Relationships>
"""


def drawing(anchor, name, chart_id):
    return f"""<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<xdr:wsDr xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing" xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main">
{anchor}
<xdr:graphicFrame macro="">
<xdr:nvGraphicFramePr><xdr:cNvPr id="2" name="{name}"/><xdr:cNvGraphicFramePr/></xdr:nvGraphicFramePr>
<xdr:xfrm><a:off x="0" y="0"/><a:ext cx="0" cy="0"/></xdr:xfrm>
<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/chart"><c:chart xmlns:c="http://schemas.openxmlformats.org/drawingml/2006/chart" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:id="{chart_id}"/></a:graphicData></a:graphic>
</xdr:graphicFrame>
<xdr:clientData/>
</{anchor_end(anchor)}>
</xdr:wsDr>
"""


def anchor_end(anchor):
    return "xdr:twoCellAnchor" if "twoCellAnchor" in anchor else "xdr:absoluteAnchor"


TWO_CELL = ('<xdr:twoCellAnchor><xdr:from><xdr:col>8</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>2</xdr:row>'
            '<xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:to><xdr:col>15</xdr:col><xdr:colOff>0</xdr:colOff>'
            '<xdr:row>18</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:to>')
ABSOLUTE = '<xdr:absoluteAnchor><xdr:pos x="0" y="0"/><xdr:ext cx="9300000" cy="6000000"/>'

DRAWING_RELS = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/chart" Target="../charts/chart{n}.xml"/>
</Relationships>
"""


def series(index, name_cell, name, values_range, values):
    points = "".join(f'<c:pt idx="{i}"><c:v>{v}</c:v></c:pt>' for i, v in enumerate(values))
    return f"""<c:ser><c:idx val="{index}"/><c:order val="{index}"/>
<c:tx><c:strRef><c:f>{name_cell}</c:f><c:strCache><c:ptCount val="1"/><c:pt idx="0"><c:v>{name}</c:v></c:pt></c:strCache></c:strRef></c:tx>
<c:val><c:numRef><c:f>{values_range}</c:f><c:numCache><c:ptCount val="{len(values)}"/>{points}</c:numCache></c:numRef></c:val>
</c:ser>"""


def chart(kind, title, body_series, extra=""):
    return f"""<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<c:chartSpace xmlns:c="http://schemas.openxmlformats.org/drawingml/2006/chart" xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<c:chart>
<c:title><c:tx><c:rich><a:bodyPr/><a:p><a:r><a:t>{title}</a:t></a:r></a:p></c:rich></c:tx><c:overlay val="0"/></c:title>
<c:plotArea><c:layout/>
<c:{kind}>{extra}{body_series}<c:axId val="1"/><c:axId val="2"/></c:{kind}>
</c:plotArea>
<c:legend><c:legendPos val="r"/></c:legend>
</c:chart>
</c:chartSpace>
"""


def charts():
    by_quarter = "".join(series(i, f"Sales!${chr(66 + i)}$3", f"Q{i + 1}", f"Sales!${chr(66 + i)}$4:${chr(66 + i)}$7",
                                [q[i] for _, q in REGIONS]) for i in range(4))
    first = chart("barChart", "Sales by quarter", by_quarter, '<c:barDir val="col"/><c:grouping val="clustered"/>')
    totals = [sum(q[i] for _, q in REGIONS) for i in range(4)]
    second = chart("lineChart", "Sales over the year", series(0, "Sales!$A$8", "All regions", "Sales!$B$8:$E$8", totals),
                   '<c:grouping val="standard"/>')
    return first, second


def main():
    first_chart, second_chart = charts()
    shared_strings = ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
                      f'<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" count="{len(STRINGS)}" '
                      f'uniqueCount="{len(STRINGS)}">' + "".join(f"<si><t>{s}</t></si>" for s in STRINGS) + "</sst>\n")
    parts = {
        "[Content_Types].xml": CONTENT_TYPES,
        "_rels/.rels": ROOT_RELS,
        "docProps/core.xml": CORE,
        "xl/workbook.xml": WORKBOOK,
        "xl/_rels/workbook.xml.rels": WORKBOOK_RELS,
        "xl/styles.xml": STYLES,
        "xl/sharedStrings.xml": shared_strings,
        "xl/worksheets/sheet1.xml": sales_sheet(),
        "xl/worksheets/_rels/sheet1.xml.rels": SHEET1_RELS,
        "xl/worksheets/sheet2.xml": customers_sheet(),
        "xl/chartsheets/sheet1.xml": CHARTSHEET,
        "xl/chartsheets/_rels/sheet1.xml.rels": CHARTSHEET_RELS,
        "xl/drawings/drawing1.xml": drawing(TWO_CELL, "Chart 1", "rId1"),
        "xl/drawings/_rels/drawing1.xml.rels": DRAWING_RELS.format(n=1),
        "xl/drawings/drawing2.xml": drawing(ABSOLUTE, "Chart 2", "rId1"),
        "xl/drawings/_rels/drawing2.xml.rels": DRAWING_RELS.format(n=2),
        "xl/charts/chart1.xml": first_chart,
        "xl/charts/chart2.xml": second_chart,
    }
    # A fixed time stamp keeps the file the same from run to run.
    with zipfile.ZipFile("SalesReport.xlsm", "w", zipfile.ZIP_DEFLATED) as package:
        for name, text in parts.items():
            info = zipfile.ZipInfo(name, date_time=(2024, 1, 1, 0, 0, 0))
            info.compress_type = zipfile.ZIP_DEFLATED
            package.writestr(info, text.encode("utf-8"))


if __name__ == "__main__":
    main()
