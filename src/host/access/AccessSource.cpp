#include "host/access/AccessSource.h"

#include <algorithm>
#include <filesystem>

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/TextEncoding.h"
#include "host/access/AccessDefinition.h"

namespace scriv {

namespace {

// Extensions of the exported definitions, and the kind each holds.
struct ExportKind {
    const char* extension;
    const char* kind;
};

constexpr ExportKind kExportKinds[] = {
    { ".form", "form" }, { ".report", "report" }, { ".macro", "macro" }, { ".query", "query" }, { ".sql", "sql" },
};

bool IsDatabaseFile(const std::string& path)
{
    return EndsWithNoCase(path, ".mdb") || EndsWithNoCase(path, ".accdb");
}

// An identifier of SQL: [Name], "Name", `Name` or Name.
std::string Unquoted(std::string_view text)
{
    std::string name = TrimWhitespace(text);
    if (name.size() >= 2
        && ((name.front() == '[' && name.back() == ']') || (name.front() == '"' && name.back() == '"')
            || (name.front() == '`' && name.back() == '`')))
        return name.substr(1, name.size() - 2);
    return name;
}

// Reads an identifier at pos (bracketed, quoted or plain); pos ends behind it.
std::string ReadIdentifier(const std::string& text, std::size_t& pos)
{
    while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos])))
        ++pos;
    if (pos >= text.size())
        return {};
    char open = text[pos];
    char close = open == '[' ? ']' : open == '"' ? '"' : open == '`' ? '`' : '\0';
    if (close) {
        std::size_t end = text.find(close, pos + 1);
        end = end == std::string::npos ? text.size() : end;
        std::string name = text.substr(pos + 1, end - pos - 1);
        pos = std::min(end + 1, text.size());
        return name;
    }
    std::size_t start = pos;
    while (pos < text.size() && (std::isalnum(static_cast<unsigned char>(text[pos])) || text[pos] == '_'
               || static_cast<unsigned char>(text[pos]) >= 0x80))
        ++pos;
    return text.substr(start, pos - start);
}

// The parts of text separated by commas outside parentheses, brackets and quotes.
std::vector<std::string> TopLevelParts(const std::string& text)
{
    std::vector<std::string> parts;
    std::string current;
    int depth = 0;
    char quote = '\0';
    for (char c : text) {
        if (quote) {
            current += c;
            if (c == quote)
                quote = '\0';
            continue;
        }
        if (c == '\'' || c == '"')
            quote = c;
        else if (c == '[')
            quote = ']';
        if (c == '(')
            ++depth;
        if (c == ')')
            --depth;
        if (c == ',' && depth == 0) {
            parts.push_back(TrimWhitespace(current));
            current.clear();
            continue;
        }
        current += c;
    }
    if (!TrimWhitespace(current).empty())
        parts.push_back(TrimWhitespace(current));
    return parts;
}

// The position of a word of SQL outside parentheses, brackets and quotes, or npos.
std::size_t FindWord(const std::string& text, std::string_view word, std::size_t from = 0)
{
    int depth = 0;
    char quote = '\0';
    for (std::size_t i = from; i < text.size(); ++i) {
        char c = text[i];
        if (quote) {
            if (c == quote)
                quote = '\0';
            continue;
        }
        if (c == '\'' || c == '"') {
            quote = c;
            continue;
        }
        if (c == '[') {
            quote = ']';
            continue;
        }
        if (c == '(')
            ++depth;
        else if (c == ')')
            --depth;
        if (depth != 0 || !StartsWithNoCase(std::string_view(text).substr(i), word))
            continue;
        bool before = i == 0 || !std::isalnum(static_cast<unsigned char>(text[i - 1]));
        std::size_t end = i + word.size();
        bool after = end >= text.size() || !std::isalnum(static_cast<unsigned char>(text[end]));
        if (before && after)
            return i;
    }
    return std::string::npos;
}

std::string SqlStringValue(const std::string& text, std::size_t pos)
{
    std::size_t quote = text.find('\'', pos);
    if (quote == std::string::npos)
        return {};
    std::string value;
    for (std::size_t i = quote + 1; i < text.size(); ++i) {
        if (text[i] == '\'') {
            if (i + 1 < text.size() && text[i + 1] == '\'') {
                value += '\'';
                ++i;
                continue;
            }
            break;
        }
        value += text[i];
    }
    return value;
}

// Runs an mdbtools program; its output, or nothing when it failed.
std::optional<std::string> RunTool(const std::vector<std::string>& argv)
{
    if (FindProgramOnPath(argv[0]).empty())
        return std::nullopt;
    std::string output;
    int code = ShellAndWait(argv, &output);
    if (code != 0) {
        Trace("AccessSource: " + Join(argv, " ") + " failed with " + std::to_string(code) + ": " + output);
        return std::nullopt;
    }
    return output;
}

std::vector<std::string> NonEmptyLines(const std::string& text)
{
    std::vector<std::string> lines;
    for (const std::string& line : SplitLines(text))
        if (!TrimWhitespace(line).empty())
            lines.push_back(TrimWhitespace(line));
    return lines;
}

AccessQuery QueryFromDefinition(const std::string& name, const std::string& text, const std::string& file)
{
    AccessDefinition definition = AccessDefinition::Parse(text, file);
    AccessQuery query;
    query.name = name;
    query.sql = TrimWhitespace(definition.Header().Text("SQL"));
    query.description = definition.Header().Text("Description");
    return query;
}

using PropertiesByName = std::map<std::string, std::map<std::string, std::string>>;

// The properties of the object itself among those mdb-prop printed for it, or null.
std::map<std::string, std::string>* OwnProperties(PropertiesByName& byName, const std::string& object)
{
    // mdbtools names the object's own block "(none)"; older versions name it after the object.
    auto own = byName.find("(none)");
    if (own == byName.end())
        own = byName.find(ToLower(object));
    return own == byName.end() ? nullptr : &own->second;
}

}  // namespace

// --- SQL definitions ---

std::vector<AccessTable> ParseTableDefinitions(const std::string& sql)
{
    std::vector<AccessTable> tables;
    // Comments of one line go; strings keep their dashes.
    std::string text;
    for (const std::string& line : SplitLines(sql)) {
        std::string trimmed = TrimWhitespace(line);
        if (trimmed.rfind("--", 0) == 0)
            continue;
        text += line + "\n";
    }
    auto findTable = [&](const std::string& name) -> AccessTable* {
        for (AccessTable& table : tables)
            if (EqualsNoCase(table.name, name))
                return &table;
        return nullptr;
    };
    for (const std::string& raw : Split(text, ";")) {
        std::string statement = TrimWhitespace(raw);
        if (StartsWithNoCase(statement, "CREATE TABLE")) {
            std::size_t pos = 12;
            AccessTable table;
            table.name = ReadIdentifier(statement, pos);
            std::size_t open = statement.find('(', pos);
            std::size_t close = statement.rfind(')');
            if (table.name.empty() || open == std::string::npos || close == std::string::npos || close < open)
                continue;
            for (const std::string& part : TopLevelParts(statement.substr(open + 1, close - open - 1))) {
                std::string upper = ToUpper(part);
                if (upper.rfind("PRIMARY KEY", 0) == 0 || upper.rfind("CONSTRAINT", 0) == 0
                    || upper.rfind("FOREIGN KEY", 0) == 0 || upper.rfind("UNIQUE", 0) == 0)
                    continue;
                std::size_t at = 0;
                AccessField field;
                field.name = ReadIdentifier(part, at);
                std::string type = TrimWhitespace(part.substr(at));
                std::size_t notNull = FindWord(type, "NOT NULL");
                if (notNull != std::string::npos) {
                    field.required = true;
                    type = TrimWhitespace(type.substr(0, notNull) + type.substr(notNull + 8));
                }
                field.type = type;
                field.caption = field.name;
                if (!field.name.empty())
                    table.fields.push_back(std::move(field));
            }
            if (!findTable(table.name))
                tables.push_back(std::move(table));
        } else if (StartsWithNoCase(statement, "COMMENT ON TABLE")) {
            std::size_t pos = 16;
            std::string name = ReadIdentifier(statement, pos);
            std::size_t is = FindWord(statement, "IS", pos);
            if (AccessTable* table = findTable(name); table && is != std::string::npos)
                table->description = SqlStringValue(statement, is);
        } else if (StartsWithNoCase(statement, "COMMENT ON COLUMN")) {
            std::size_t pos = 17;
            std::string tableName = ReadIdentifier(statement, pos);
            if (pos < statement.size() && statement[pos] == '.')
                ++pos;
            std::string column = ReadIdentifier(statement, pos);
            std::size_t is = FindWord(statement, "IS", pos);
            AccessTable* table = findTable(tableName);
            if (!table || is == std::string::npos)
                continue;
            for (AccessField& field : table->fields)
                if (EqualsNoCase(field.name, column))
                    field.description = SqlStringValue(statement, is);
        }
    }
    return tables;
}

std::map<std::string, std::map<std::string, std::string>> ParseProperties(const std::string& text)
{
    std::map<std::string, std::map<std::string, std::string>> properties;
    std::string current;
    for (const std::string& line : SplitLines(text)) {
        std::string trimmed = TrimWhitespace(line);
        std::size_t colon = trimmed.find(':');
        if (colon == std::string::npos)
            continue;
        std::string key = TrimWhitespace(trimmed.substr(0, colon));
        std::string value = TrimWhitespace(trimmed.substr(colon + 1));
        if (EqualsNoCase(key, "name")) {
            current = value;
            continue;
        }
        if (!current.empty())
            properties[ToLower(current)][ToLower(key)] = value;
    }
    return properties;
}

std::vector<QueryColumn> SelectColumns(const std::string& sql)
{
    std::vector<QueryColumn> columns;
    std::size_t select = FindWord(sql, "SELECT");
    if (select == std::string::npos)
        return columns;
    std::size_t from = FindWord(sql, "FROM", select);
    std::string list = sql.substr(select + 6, from == std::string::npos ? std::string::npos : from - select - 6);
    std::string rest = TrimWhitespace(list);
    auto dropWord = [&](std::string_view word) {
        if (FindWord(rest, word) != 0)
            return false;
        rest = TrimWhitespace(rest.substr(word.size()));
        return true;
    };
    for (const char* word : { "DISTINCTROW", "DISTINCT", "ALL" })
        dropWord(word);
    if (dropWord("TOP")) {
        std::size_t space = rest.find_first_of(" \t\r\n");
        rest = space == std::string::npos ? std::string() : TrimWhitespace(rest.substr(space));
        dropWord("PERCENT");
    }
    list = rest;
    // The table an unqualified field comes from, when the query reads one.
    std::string onlyTable;
    if (from != std::string::npos) {
        std::size_t pos = from + 4;
        std::string first = ReadIdentifier(sql, pos);
        std::size_t join = FindWord(sql, "JOIN", from);
        if (join == std::string::npos && sql.find(',', pos) == std::string::npos)
            onlyTable = first;
    }
    for (const std::string& item : TopLevelParts(list)) {
        QueryColumn column;
        std::string expression = item;
        std::size_t as = std::string::npos;
        for (std::size_t at = FindWord(item, "AS"); at != std::string::npos; at = FindWord(item, "AS", at + 2))
            as = at;
        if (as != std::string::npos) {
            column.name = Unquoted(item.substr(as + 2));
            expression = TrimWhitespace(item.substr(0, as));
        }
        if (expression == "*" || EndsWithNoCase(expression, ".*"))
            continue;
        // A field is a name, or a table's name, a point and a name.
        std::size_t pos = 0;
        std::string first = ReadIdentifier(expression, pos);
        std::string second;
        bool simple = !first.empty();
        if (simple && pos < expression.size() && expression[pos] == '.') {
            ++pos;
            second = ReadIdentifier(expression, pos);
            simple = !second.empty();
        }
        simple = simple && TrimWhitespace(expression.substr(pos)).empty();
        if (simple) {
            column.table = second.empty() ? onlyTable : first;
            column.field = second.empty() ? first : second;
            column.calculated = column.table.empty();
        } else {
            column.calculated = true;
        }
        if (column.name.empty())
            column.name = simple ? column.field : expression;
        columns.push_back(std::move(column));
    }
    return columns;
}

std::string QueryXml(const AccessQuery& query)
{
    auto attribute = [](const std::string& text) { return XmlEncodeChars(text); };
    std::string inherited;
    std::string calculated;
    for (const QueryColumn& column : SelectColumns(query.sql)) {
        if (column.calculated)
            calculated += "<Field Name=\"" + attribute(column.name) + "\"/>";
        else
            inherited += "<Field Name=\"" + attribute(column.name) + "\" Title=\"" + attribute(column.name) + "\" Table=\""
                + attribute(column.table + "|" + column.field) + "\"/>";
    }
    return "<Query Name=\"" + attribute(query.name) + "\"><InheritedFields>" + inherited + "</InheritedFields><CalculatedFields>"
        + calculated + "</CalculatedFields></Query>";
}

// --- the source ---

AccessSource AccessSource::Open(const std::string& path)
{
    AccessSource source;
    std::string native = RemoveBackslash(ToNativePath(path));
    source.m_path = native;
    if (IsDatabaseFile(native)) {
        if (!FileExists(native))
            Raise(status::kGeneralFailure, "AccessSource.Open", "The database '" + native + "' does not exist.");
        source.m_database = native;
        source.m_folder = AddBackslash(FolderOf(native));
        source.m_name = FileBaseName(native);
    } else if (FolderExists(native)) {
        source.m_folder = AddBackslash(native);
        source.m_name = FileNameOf(native);
        // A database in the folder is the application's.
        for (const std::string& file : ListFiles(source.m_folder, "*")) {
            if (IsDatabaseFile(file)) {
                source.m_database = source.m_folder + file;
                break;
            }
        }
    } else {
        Raise(status::kGeneralFailure, "AccessSource.Open",
            "'" + native + "' is neither a database (.mdb, .accdb) nor a folder of exported Access objects.");
    }
    source.ReadDefinitions();
    if (!source.m_database.empty())
        source.m_fromDatabase = source.ReadDatabase();
    if (!source.m_fromDatabase) {
        for (const std::string& name : source.m_names["sql"]) {
            std::optional<std::string> text = ReadDefinitionFile(source.m_files["sql"][ToLower(name)]);
            for (AccessTable& table : ParseTableDefinitions(text.value_or("")))
                if (!source.FindTable(table.name))
                    source.m_tables.push_back(std::move(table));
        }
        for (const std::string& name : source.m_names["query"]) {
            std::string file = source.m_files["query"][ToLower(name)];
            try {
                source.m_queries.push_back(QueryFromDefinition(name, ReadDefinitionFile(file).value_or(""), file));
            } catch (const ScrivError& error) {
                Trace("AccessSource: " + error.Description());
            }
        }
        // Version-control exports keep each query's SQL alone in queries/NAME.sql.
        for (const std::string& name : source.m_names["sql"]) {
            std::string file = source.m_files["sql"][ToLower(name)];
            if (!EqualsNoCase(FileNameOf(RemoveBackslash(FolderOf(file))), "queries")
                || source.FindTable(name) || source.FindQuery(name))
                continue;
            AccessQuery query;
            query.name = name;
            query.sql = TrimWhitespace(ReadDefinitionFile(file).value_or(""));
            if (!query.sql.empty())
                source.m_queries.push_back(std::move(query));
        }
    }
    return source;
}

void AccessSource::ReadDefinitions()
{
    namespace fs = std::filesystem;
    std::error_code error;
    std::vector<std::string> files;
    fs::recursive_directory_iterator it(m_folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        std::string name = it->path().filename().string();
        if (it->is_directory(error)) {
            if (!name.empty() && name[0] == '.')
                it.disable_recursion_pending();
            continue;
        }
        files.push_back(it->path().string());
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        for (const ExportKind& kind : kExportKinds) {
            if (!EndsWithNoCase(file, kind.extension))
                continue;
            std::string name = FileBaseName(file);
            auto& byName = m_files[kind.kind];
            if (byName.count(ToLower(name)))
                continue;
            byName[ToLower(name)] = file;
            m_names[kind.kind].push_back(name);
        }
    }
}

bool AccessSource::ReadDatabase()
{
    std::optional<std::string> tables = RunTool({ "mdb-tables", "-1", m_database });
    if (!tables) {
        Trace("AccessSource: the tables of '" + m_database + "' cannot be read through mdbtools; the exported "
            "definitions are read instead");
        return false;
    }
    std::optional<std::string> schema = RunTool({ "mdb-schema", "--comments", m_database, "access" });
    std::vector<AccessTable> defined = ParseTableDefinitions(schema.value_or(""));
    for (const std::string& name : NonEmptyLines(*tables)) {
        AccessTable table;
        table.name = name;
        for (AccessTable& candidate : defined)
            if (EqualsNoCase(candidate.name, name))
                table = candidate;
        // Captions and descriptions are properties of the table's columns.
        if (std::optional<std::string> properties = RunTool({ "mdb-prop", m_database, name })) {
            auto byColumn = ParseProperties(*properties);
            if (auto* own = OwnProperties(byColumn, name); own && own->count("description"))
                table.description = (*own)["description"];
            for (AccessField& field : table.fields) {
                auto column = byColumn.find(ToLower(field.name));
                if (column == byColumn.end())
                    continue;
                if (column->second.count("caption"))
                    field.caption = column->second["caption"];
                if (column->second.count("description"))
                    field.description = column->second["description"];
            }
        }
        m_tables.push_back(std::move(table));
    }
    if (std::optional<std::string> queries = RunTool({ "mdb-queries", "-L", "-1", m_database })) {
        for (const std::string& name : NonEmptyLines(*queries)) {
            // "~sq_" queries are the row sources Access keeps for forms and
            // reports; the database window never lists them.
            if (name.rfind('~', 0) == 0)
                continue;
            AccessQuery query;
            query.name = name;
            // mdb-queries rebuilds the SQL from the query's parts and drops its joins,
            // grouping and column names; the exported definition has the SQL Access wrote.
            if (std::string file = DefinitionFile("query", name); !file.empty()) {
                try {
                    query = QueryFromDefinition(name, ReadDefinitionFile(file).value_or(""), file);
                } catch (const ScrivError& error) {
                    Trace("AccessSource: " + error.Description());
                }
            }
            if (query.sql.empty())
                query.sql = TrimWhitespace(RunTool({ "mdb-queries", m_database, name }).value_or(""));
            if (std::optional<std::string> properties = RunTool({ "mdb-prop", m_database, name })) {
                auto byName = ParseProperties(*properties);
                if (auto* own = OwnProperties(byName, name); own && own->count("description"))
                    query.description = (*own)["description"];
            }
            m_queries.push_back(std::move(query));
        }
    }
    return true;
}

const AccessTable* AccessSource::FindTable(const std::string& name) const
{
    for (const AccessTable& table : m_tables)
        if (EqualsNoCase(table.name, name))
            return &table;
    return nullptr;
}

const AccessQuery* AccessSource::FindQuery(const std::string& name) const
{
    for (const AccessQuery& query : m_queries)
        if (EqualsNoCase(query.name, name))
            return &query;
    return nullptr;
}

std::vector<std::string> AccessSource::Names(const std::string& kind) const
{
    auto found = m_names.find(kind);
    return found == m_names.end() ? std::vector<std::string>() : found->second;
}

std::string AccessSource::DefinitionFile(const std::string& kind, const std::string& name) const
{
    auto byKind = m_files.find(kind);
    if (byKind == m_files.end())
        return {};
    auto file = byKind->second.find(ToLower(name));
    return file == byKind->second.end() ? std::string() : file->second;
}

}  // namespace scriv
