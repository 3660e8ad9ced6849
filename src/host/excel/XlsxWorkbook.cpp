#include "host/excel/XlsxWorkbook.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <zip.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// The parts of a zip package, read by name.
class Package {
public:
    explicit Package(const std::string& path)
    {
        int error = 0;
        m_zip = zip_open(path.c_str(), ZIP_RDONLY, &error);
    }
    ~Package()
    {
        if (m_zip)
            zip_discard(m_zip);
    }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    bool IsOpen() const { return m_zip != nullptr; }

    std::optional<std::string> Read(const std::string& name) const
    {
        if (!m_zip)
            return std::nullopt;
        zip_int64_t index = zip_name_locate(m_zip, name.c_str(), ZIP_FL_NOCASE);
        if (index < 0)
            return std::nullopt;
        zip_stat_t stat;
        if (zip_stat_index(m_zip, static_cast<zip_uint64_t>(index), 0, &stat) != 0)
            return std::nullopt;
        zip_file_t* file = zip_fopen_index(m_zip, static_cast<zip_uint64_t>(index), 0);
        if (!file)
            return std::nullopt;
        std::string bytes(static_cast<std::size_t>(stat.size), '\0');
        zip_int64_t read = zip_fread(file, bytes.data(), stat.size);
        zip_fclose(file);
        if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size)
            return std::nullopt;
        return bytes;
    }

    bool Has(const std::string& name) const { return m_zip && zip_name_locate(m_zip, name.c_str(), ZIP_FL_NOCASE) >= 0; }

private:
    zip_t* m_zip { nullptr };
};

std::string LocalName(const pugi::xml_node& node)
{
    std::string name = node.name();
    std::size_t colon = name.find(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string LocalName(const pugi::xml_attribute& attribute)
{
    std::string name = attribute.name();
    std::size_t colon = name.find(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

pugi::xml_node Child(const pugi::xml_node& node, std::string_view name)
{
    for (pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element && LocalName(child) == name)
            return child;
    return {};
}

std::vector<pugi::xml_node> Children(const pugi::xml_node& node, std::string_view name)
{
    std::vector<pugi::xml_node> found;
    for (pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element && LocalName(child) == name)
            found.push_back(child);
    return found;
}

// The first element of that name below node, depth first.
pugi::xml_node Descendant(const pugi::xml_node& node, std::string_view name)
{
    for (pugi::xml_node child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        if (LocalName(child) == name)
            return child;
        if (pugi::xml_node found = Descendant(child, name))
            return found;
    }
    return {};
}

// The relationship id of an element: its attribute "r:id" under any prefix.
std::string RelationshipId(const pugi::xml_node& element)
{
    for (pugi::xml_attribute attribute : element.attributes()) {
        std::string name = attribute.name();
        if (LocalName(attribute) == "id" && name.find(':') != std::string::npos)
            return attribute.value();
    }
    return {};
}

// All text of the a:t (or t) elements below node, joined.
std::string TextOf(const pugi::xml_node& node)
{
    std::string text;
    for (pugi::xml_node child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        std::string name = LocalName(child);
        if (name == "rPh" || name == "phoneticPr")
            continue;
        if (name == "t")
            text += child.text().as_string();
        else
            text += TextOf(child);
    }
    return text;
}

bool Parse(pugi::xml_document& document, const std::optional<std::string>& bytes)
{
    return bytes && document.load_buffer(bytes->data(), bytes->size());
}

// "xl/worksheets/" and "../drawings/drawing1.xml" give "xl/drawings/drawing1.xml".
std::string ResolvePart(const std::string& folder, const std::string& target)
{
    if (!target.empty() && target[0] == '/')
        return target.substr(1);
    std::vector<std::string> parts;
    for (const std::string& part : Split(folder + target, "/")) {
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            if (!parts.empty())
                parts.pop_back();
            continue;
        }
        parts.push_back(part);
    }
    return Join(parts, "/");
}

std::string PartFolder(const std::string& part)
{
    std::size_t slash = part.rfind('/');
    return slash == std::string::npos ? std::string() : part.substr(0, slash + 1);
}

struct Relationship {
    std::string type;
    std::string part;
};

// The relationships of a part, by id, with their targets resolved.
std::map<std::string, Relationship> RelationshipsOf(const Package& package, const std::string& part)
{
    std::map<std::string, Relationship> relationships;
    std::string folder = PartFolder(part);
    std::string name = part.substr(folder.size());
    pugi::xml_document document;
    if (!Parse(document, package.Read(folder + "_rels/" + name + ".rels")))
        return relationships;
    for (pugi::xml_node relationship : Children(document.document_element(), "Relationship")) {
        std::string type = relationship.attribute("Type").value();
        std::size_t slash = type.rfind('/');
        relationships[relationship.attribute("Id").value()] = { slash == std::string::npos ? type : type.substr(slash + 1),
            ResolvePart(folder, relationship.attribute("Target").value()) };
    }
    return relationships;
}

std::string PartOfType(const std::map<std::string, Relationship>& relationships, std::string_view type)
{
    for (const auto& [id, relationship] : relationships)
        if (relationship.type == type)
            return relationship.part;
    return {};
}

// --- number formats ---

struct NumberFormat {
    int id { 0 };
    std::string code;
};

bool IsDateCode(const std::string& code)
{
    bool quoted = false;
    bool bracket = false;
    for (char c : code) {
        if (c == '"')
            quoted = !quoted;
        else if (c == '[')
            bracket = true;
        else if (c == ']')
            bracket = false;
        else if (!quoted && !bracket && std::strchr("dmyhsDMYHS", c))
            return true;
    }
    return false;
}

bool IsDateFormat(const NumberFormat& format)
{
    if ((format.id >= 14 && format.id <= 22) || (format.id >= 45 && format.id <= 47))
        return true;
    return format.id >= 164 && IsDateCode(format.code) && !EqualsNoCase(format.code, "General");
}

std::string FormatDate(double serial, bool withTime)
{
    // Day 60 of Excel's calendar is a 29 February 1900 that never was.
    long days = static_cast<long>(std::floor(serial));
    if (days < 61)
        ++days;
    // Days since 1899-12-30 to a civil date.
    long z = days - 25569 + 719468;
    long era = (z >= 0 ? z : z - 146096) / 146097;
    long doe = z - era * 146097;
    long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    long y = yoe + era * 400;
    long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    long mp = (5 * doy + 2) / 153;
    long d = doy - (153 * mp + 2) / 5 + 1;
    long m = mp + (mp < 10 ? 3 : -9);
    y += m <= 2 ? 1 : 0;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04ld-%02ld-%02ld", y, m, d);
    std::string text = buffer;
    if (withTime) {
        long seconds = std::lround((serial - std::floor(serial)) * 86400);
        std::snprintf(buffer, sizeof buffer, " %02ld:%02ld", seconds / 3600, (seconds / 60) % 60);
        text += buffer;
    }
    return text;
}

std::string Grouped(const std::string& digits)
{
    std::string out;
    int count = 0;
    for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
        if (count > 0 && count % 3 == 0)
            out.insert(out.begin(), ',');
        out.insert(out.begin(), *it);
        ++count;
    }
    return out;
}

// The literal text of a format before and after its number: "$" of "\"$\"#,##0", "€" of "[$€-407]".
std::pair<std::string, std::string> Literals(const std::string& code)
{
    std::string before;
    std::string after;
    bool seenNumber = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        char c = code[i];
        std::string* target = seenNumber ? &after : &before;
        if (c == '"') {
            std::size_t end = code.find('"', i + 1);
            end = end == std::string::npos ? code.size() : end;
            *target += code.substr(i + 1, end - i - 1);
            i = end;
        } else if (c == '[') {
            std::size_t end = code.find(']', i);
            end = end == std::string::npos ? code.size() : end;
            std::string inside = code.substr(i + 1, end - i - 1);
            if (!inside.empty() && inside[0] == '$')
                *target += inside.substr(1, inside.find('-') == std::string::npos ? std::string::npos : inside.find('-') - 1);
            i = end;
        } else if (c == '\\' && i + 1 < code.size()) {
            *target += code[++i];
        } else if (std::strchr("0#?.,", c)) {
            seenNumber = true;
        } else if (c == '%' || c == '_' || c == '*') {
            if (c != '%')
                ++i;
        } else {
            *target += c;
        }
    }
    return { before, after };
}

std::string FormatNumber(double value, const NumberFormat& format)
{
    if (IsDateFormat(format)) {
        bool withTime = format.id == 22 || ContainsNoCase(format.code, "h");
        if (format.id >= 18 && format.id <= 21)
            return FormatDate(value, true).substr(11);
        return FormatDate(value, withTime);
    }
    std::string code = format.code;
    switch (format.id) {
    case 1:
        code = "0";
        break;
    case 2:
        code = "0.00";
        break;
    case 3:
        code = "#,##0";
        break;
    case 4:
        code = "#,##0.00";
        break;
    case 9:
        code = "0%";
        break;
    case 10:
        code = "0.00%";
        break;
    default:
        break;
    }
    code = code.substr(0, code.find(';'));
    if (code.empty() || EqualsNoCase(code, "General") || code == "@") {
        if (value == std::floor(value) && std::fabs(value) < 1e15) {
            char buffer[32];
            std::snprintf(buffer, sizeof buffer, "%.0f", value);
            return buffer;
        }
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.10g", value);
        return buffer;
    }
    bool percent = code.find('%') != std::string::npos;
    if (percent)
        value *= 100;
    int decimals = 0;
    std::size_t point = code.find('.');
    if (point != std::string::npos)
        for (std::size_t i = point + 1; i < code.size() && (code[i] == '0' || code[i] == '#'); ++i)
            ++decimals;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, std::fabs(value));
    std::string number = buffer;
    if (code.find(",") != std::string::npos && code.find("#,#") != std::string::npos) {
        std::size_t dot = number.find('.');
        number = Grouped(number.substr(0, dot)) + (dot == std::string::npos ? std::string() : number.substr(dot));
    }
    auto [before, after] = Literals(code);
    bool zero = number.find_first_of("123456789") == std::string::npos;
    std::string sign = value < 0 && !zero ? "-" : "";
    return sign + before + number + after + (percent ? "%" : "");
}

// --- reading ---

struct Styles {
    std::vector<int> cellFormats;
    std::map<int, std::string> codes;

    NumberFormat Of(int style) const
    {
        NumberFormat format;
        if (style >= 0 && style < static_cast<int>(cellFormats.size()))
            format.id = cellFormats[static_cast<std::size_t>(style)];
        auto code = codes.find(format.id);
        if (code != codes.end())
            format.code = code->second;
        return format;
    }
};

Styles ReadStyles(const Package& package, const std::string& part)
{
    Styles styles;
    pugi::xml_document document;
    if (part.empty() || !Parse(document, package.Read(part)))
        return styles;
    pugi::xml_node root = document.document_element();
    for (pugi::xml_node format : Children(Child(root, "numFmts"), "numFmt"))
        styles.codes[format.attribute("numFmtId").as_int()] = format.attribute("formatCode").value();
    for (pugi::xml_node xf : Children(Child(root, "cellXfs"), "xf"))
        styles.cellFormats.push_back(xf.attribute("numFmtId").as_int());
    return styles;
}

std::vector<std::string> ReadSharedStrings(const Package& package, const std::string& part)
{
    std::vector<std::string> strings;
    pugi::xml_document document;
    if (part.empty() || !Parse(document, package.Read(part)))
        return strings;
    for (pugi::xml_node item : Children(document.document_element(), "si"))
        strings.push_back(TextOf(item));
    return strings;
}

std::pair<int, int> RangeEnd(const std::string& reference, std::size_t colon)
{
    return CellPosition(reference.substr(colon + 1));
}

void ReadWorksheet(const pugi::xml_document& document, const std::vector<std::string>& shared, const Styles& styles,
    XlsxSheet& sheet)
{
    pugi::xml_node root = document.document_element();
    int firstRow = 0, firstColumn = 0, lastRow = 0, lastColumn = 0;
    for (pugi::xml_node row : Children(Child(root, "sheetData"), "row")) {
        int rowNumber = row.attribute("r").as_int();
        int columnNumber = 0;
        for (pugi::xml_node cell : Children(row, "c")) {
            auto [r, c] = CellPosition(cell.attribute("r").value());
            if (r == 0) {
                r = rowNumber;
                c = columnNumber + 1;
            }
            columnNumber = c;
            std::string type = cell.attribute("t").value();
            std::string value = Child(cell, "v").text().as_string();
            std::string text;
            bool number = false;
            if (type == "s") {
                std::size_t index = static_cast<std::size_t>(std::max(0, ToInt(value)));
                text = index < shared.size() ? shared[index] : std::string();
            } else if (type == "inlineStr") {
                text = TextOf(Child(cell, "is"));
            } else if (type == "str" || type == "e") {
                text = value;
            } else if (type == "b") {
                text = value == "1" ? "TRUE" : "FALSE";
            } else if (!value.empty()) {
                std::optional<double> parsed = ParseNumber(value);
                text = parsed ? FormatNumber(*parsed, styles.Of(cell.attribute("s").as_int())) : value;
                number = parsed.has_value();
            }
            if (text.empty() || r <= 0 || c <= 0)
                continue;
            sheet.cells[{ r, c }] = text;
            if (number)
                sheet.numeric[{ r, c }] = true;
            firstRow = firstRow == 0 ? r : std::min(firstRow, r);
            firstColumn = firstColumn == 0 ? c : std::min(firstColumn, c);
            lastRow = std::max(lastRow, r);
            lastColumn = std::max(lastColumn, c);
        }
    }
    for (pugi::xml_node merge : Children(Child(root, "mergeCells"), "mergeCell")) {
        std::string reference = merge.attribute("ref").value();
        std::size_t colon = reference.find(':');
        if (colon == std::string::npos)
            continue;
        auto [r1, c1] = CellPosition(reference.substr(0, colon));
        auto [r2, c2] = RangeEnd(reference, colon);
        if (r1 > 0 && c1 > 0 && r2 >= r1 && c2 >= c1)
            sheet.merges.push_back({ r1, c1, r2, c2 });
    }
    if (lastRow > 0) {
        sheet.firstRow = firstRow;
        sheet.firstColumn = firstColumn;
        sheet.lastRow = lastRow;
        sheet.lastColumn = lastColumn;
    }
}

// The charts a drawing holds: their object names and their chart parts.
std::vector<std::pair<std::string, std::string>> ChartsOfDrawing(const Package& package, const std::string& drawingPart)
{
    std::vector<std::pair<std::string, std::string>> charts;
    pugi::xml_document document;
    if (!Parse(document, package.Read(drawingPart)))
        return charts;
    std::map<std::string, Relationship> relationships = RelationshipsOf(package, drawingPart);
    for (pugi::xml_node anchor : document.document_element().children()) {
        pugi::xml_node frame = Descendant(anchor, "graphicFrame");
        pugi::xml_node chart = frame ? Descendant(frame, "chart") : pugi::xml_node();
        if (!chart)
            continue;
        auto relationship = relationships.find(RelationshipId(chart));
        if (relationship == relationships.end())
            continue;
        std::string name = Descendant(frame, "cNvPr").attribute("name").value();
        charts.emplace_back(name, relationship->second.part);
    }
    return charts;
}

void ReadChartPart(const Package& package, const std::string& part, XlsxChart& chart)
{
    pugi::xml_document document;
    if (!Parse(document, package.Read(part)))
        return;
    pugi::xml_node body = Child(document.document_element(), "chart");
    if (pugi::xml_node title = Child(body, "title"))
        chart.title = TrimWhitespace(TextOf(title));
    pugi::xml_node plot = Child(body, "plotArea");
    for (pugi::xml_node kind : plot.children()) {
        std::string name = LocalName(kind);
        if (name.size() <= 5 || name.compare(name.size() - 5, 5, "Chart") != 0)
            continue;
        if (chart.type.empty()) {
            chart.type = name.substr(0, name.size() - 5);
            if (chart.type == "bar" && std::string(Child(kind, "barDir").attribute("val").value()) == "col")
                chart.type = "column";
        }
        for (pugi::xml_node series : Children(kind, "ser")) {
            std::string seriesName = TrimWhitespace(TextOf(Child(series, "tx")));
            if (seriesName.empty()) {
                pugi::xml_node cached = Descendant(Child(series, "tx"), "v");
                seriesName = cached.text().as_string();
            }
            if (seriesName.empty())
                seriesName = "Series " + std::to_string(chart.series.size() + 1);
            chart.series.push_back(seriesName);
        }
    }
}

std::string HtmlText(const std::string& text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\r':
            break;
        case '\n':
            out += "<br>";
            break;
        default:
            out += c;
        }
    }
    return out;
}

}  // namespace

std::string XlsxSheet::Text(int row, int column) const
{
    auto found = cells.find({ row, column });
    return found == cells.end() ? std::string() : found->second;
}

std::string ColumnLetters(int column)
{
    std::string letters;
    while (column > 0) {
        int digit = (column - 1) % 26;
        letters.insert(letters.begin(), static_cast<char>('A' + digit));
        column = (column - 1) / 26;
    }
    return letters;
}

std::pair<int, int> CellPosition(const std::string& reference)
{
    std::size_t i = 0;
    int column = 0;
    while (i < reference.size() && reference[i] == '$')
        ++i;
    std::size_t letters = i;
    while (i < reference.size() && std::isalpha(static_cast<unsigned char>(reference[i]))) {
        column = column * 26 + (std::toupper(static_cast<unsigned char>(reference[i])) - 'A' + 1);
        if (column > 16384)
            return { 0, 0 };
        ++i;
    }
    if (i == letters)
        return { 0, 0 };
    while (i < reference.size() && reference[i] == '$')
        ++i;
    std::string digits = reference.substr(i);
    if (digits.empty() || digits.size() > 7 || !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return { 0, 0 };
    return { std::stoi(digits), column };
}

XlsxWorkbook XlsxWorkbook::Load(const std::string& path)
{
    Package package(path);
    if (!package.IsOpen())
        Raise(status::kGeneralFailure, "XlsxWorkbook.Load", "The workbook '" + path + "' cannot be opened.");
    std::string workbookPart = PartOfType(RelationshipsOf(package, "_rels/.rels"), "officeDocument");
    if (workbookPart.empty())
        workbookPart = "xl/workbook.xml";
    pugi::xml_document workbook;
    if (!Parse(workbook, package.Read(workbookPart)))
        Raise(status::kGeneralFailure, "XlsxWorkbook.Load", "'" + path + "' holds no workbook.");
    std::map<std::string, Relationship> relationships = RelationshipsOf(package, workbookPart);
    Styles styles = ReadStyles(package, PartOfType(relationships, "styles"));
    std::vector<std::string> shared = ReadSharedStrings(package, PartOfType(relationships, "sharedStrings"));

    XlsxWorkbook result;
    result.m_path = path;
    result.m_hasVba = !PartOfType(relationships, "vbaProject").empty() || package.Has("xl/vbaProject.bin");
    for (pugi::xml_node sheet : Children(Child(workbook.document_element(), "sheets"), "sheet")) {
        std::string name = sheet.attribute("name").value();
        auto relationship = relationships.find(RelationshipId(sheet));
        if (relationship == relationships.end())
            continue;
        const std::string& part = relationship->second.part;
        pugi::xml_document document;
        if (!Parse(document, package.Read(part)))
            continue;
        std::map<std::string, Relationship> sheetRelationships = RelationshipsOf(package, part);
        bool chartSheet = relationship->second.type == "chartsheet";
        if (!chartSheet) {
            XlsxSheet worksheet;
            worksheet.name = name;
            ReadWorksheet(document, shared, styles, worksheet);
            result.m_sheets.push_back(std::move(worksheet));
        }
        pugi::xml_node drawing = Child(document.document_element(), "drawing");
        auto drawingPart = drawing ? sheetRelationships.find(RelationshipId(drawing)) : sheetRelationships.end();
        if (drawingPart == sheetRelationships.end())
            continue;
        for (const auto& [objectName, chartPart] : ChartsOfDrawing(package, drawingPart->second.part)) {
            XlsxChart chart;
            chart.objectName = objectName;
            chart.sheet = name;
            chart.onChartSheet = chartSheet;
            chart.name = chartSheet ? name : name + " - " + objectName;
            ReadChartPart(package, chartPart, chart);
            result.m_charts.push_back(std::move(chart));
        }
    }
    return result;
}

const XlsxSheet* XlsxWorkbook::FindWorksheet(const std::string& name) const
{
    for (const XlsxSheet& sheet : m_sheets)
        if (EqualsNoCase(sheet.name, name))
            return &sheet;
    return nullptr;
}

const XlsxChart* XlsxWorkbook::FindChart(const std::string& name) const
{
    for (const XlsxChart& chart : m_charts)
        if (EqualsNoCase(chart.name, name))
            return &chart;
    return nullptr;
}

std::string WorksheetHtml(const XlsxSheet& sheet, int maxRows, int maxColumns)
{
    if (sheet.Empty())
        return "<p>The worksheet holds no values.</p>";
    int lastRow = std::min(sheet.lastRow, sheet.firstRow + maxRows - 1);
    int lastColumn = std::min(sheet.lastColumn, sheet.firstColumn + maxColumns - 1);
    // Where each merged range starts, and the cells it covers.
    std::map<std::pair<int, int>, const XlsxMerge*> starts;
    std::map<std::pair<int, int>, bool> covered;
    for (const XlsxMerge& merge : sheet.merges) {
        starts[{ merge.firstRow, merge.firstColumn }] = &merge;
        for (int r = merge.firstRow; r <= merge.lastRow; ++r)
            for (int c = merge.firstColumn; c <= merge.lastColumn; ++c)
                if (r != merge.firstRow || c != merge.firstColumn)
                    covered[{ r, c }] = true;
    }
    std::string html = "<table class=\"worksheet\" border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\r\n<tr><th></th>";
    for (int c = sheet.firstColumn; c <= lastColumn; ++c)
        html += "<th>" + ColumnLetters(c) + "</th>";
    html += "</tr>\r\n";
    for (int r = sheet.firstRow; r <= lastRow; ++r) {
        html += "<tr><th>" + std::to_string(r) + "</th>";
        for (int c = sheet.firstColumn; c <= lastColumn; ++c) {
            if (covered.count({ r, c }))
                continue;
            std::string attributes;
            if (auto merge = starts.find({ r, c }); merge != starts.end()) {
                int columns = std::min(merge->second->lastColumn, lastColumn) - c + 1;
                int rows = std::min(merge->second->lastRow, lastRow) - r + 1;
                if (columns > 1)
                    attributes += " colspan=\"" + std::to_string(columns) + "\"";
                if (rows > 1)
                    attributes += " rowspan=\"" + std::to_string(rows) + "\"";
            }
            if (sheet.numeric.count({ r, c }))
                attributes += " align=\"right\"";
            std::string text = sheet.Text(r, c);
            html += "<td" + attributes + ">" + (text.empty() ? std::string("&nbsp;") : HtmlText(text)) + "</td>";
        }
        html += "</tr>\r\n";
    }
    html += "</table>\r\n";
    if (lastRow < sheet.lastRow || lastColumn < sheet.lastColumn)
        html += "<p>The table shows the cells " + ColumnLetters(sheet.firstColumn) + std::to_string(sheet.firstRow) + " to "
            + ColumnLetters(lastColumn) + std::to_string(lastRow) + " of the range in use, "
            + ColumnLetters(sheet.firstColumn) + std::to_string(sheet.firstRow) + " to " + ColumnLetters(sheet.lastColumn)
            + std::to_string(sheet.lastRow) + ".</p>\r\n";
    return html;
}

std::string ChartHtml(const XlsxChart& chart)
{
    std::string html = "<p>";
    if (chart.onChartSheet)
        html += "The chart sheet <b>" + HtmlText(chart.sheet) + "</b>";
    else
        html += "The chart <b>" + HtmlText(chart.objectName) + "</b> on the worksheet <b>" + HtmlText(chart.sheet) + "</b>";
    if (!chart.type.empty())
        html += " is a " + HtmlText(chart.type) + " chart";
    else
        html += " is a chart";
    if (!chart.title.empty())
        html += " titled &quot;" + HtmlText(chart.title) + "&quot;";
    html += ".</p>\r\n";
    if (!chart.series.empty()) {
        html += "<p>Its series:</p>\r\n<ul>\r\n";
        for (const std::string& series : chart.series)
            html += "<li>" + HtmlText(series) + "</li>\r\n";
        html += "</ul>\r\n";
    }
    return html;
}

}  // namespace scriv
