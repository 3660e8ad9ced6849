#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

// An Access application as files: the definitions of its forms, reports,
// macros and queries exported as text (SaveAsText), its tables' definitions,
// and the database itself (.mdb, .accdb) when there is one. Tables and queries
// come from the database through mdbtools when it can be read (the SQL of a
// query from its exported definition when there is one: mdb-queries rebuilds
// it without joins, grouping and column names), else from the exported
// definitions: table definitions as SQL (CREATE TABLE, as
// mdb-schema writes them, with COMMENT ON for descriptions) in ".sql" files,
// queries as ".query" files. Forms, reports and macros are ".form",
// ".report" and ".macro" files; the name of each object is its file's base
// name. Files are found in the source's folder and the folders below it.
namespace scriv {

struct AccessField {
    std::string name;
    // As the definition writes it: "Text (50)", "Long Integer".
    std::string type;
    std::string caption;
    std::string description;
    bool required { false };
};

struct AccessTable {
    std::string name;
    std::string description;
    std::vector<AccessField> fields;
};

struct AccessQuery {
    std::string name;
    std::string sql;
    std::string description;
};

// One output column of a query: the table and field it comes from, or an expression.
struct QueryColumn {
    std::string name;
    std::string table;
    std::string field;
    bool calculated { false };
};

class AccessSource {
public:
    // Opens a folder of exported definitions or a database file (whose folder
    // holds the definitions). Raises ScrivError naming the path when it is neither.
    static AccessSource Open(const std::string& path);

    // The application's name: the database's base name, else the folder's.
    const std::string& Name() const { return m_name; }
    // The path it was opened with.
    const std::string& Path() const { return m_path; }
    // The folder searched for definitions, with a final separator.
    const std::string& Folder() const { return m_folder; }
    // The database file, or "" when there is none.
    const std::string& DatabaseFile() const { return m_database; }
    // Whether tables and queries were read from the database.
    bool ReadFromDatabase() const { return m_fromDatabase; }

    const std::vector<AccessTable>& Tables() const { return m_tables; }
    const std::vector<AccessQuery>& Queries() const { return m_queries; }
    const AccessTable* FindTable(const std::string& name) const;
    const AccessQuery* FindQuery(const std::string& name) const;
    // Names of the exported forms, reports and macros.
    std::vector<std::string> Names(const std::string& kind) const;
    // The definition file of a form, report, macro or query ("form", "report",
    // "macro", "query"), or "".
    std::string DefinitionFile(const std::string& kind, const std::string& name) const;

private:
    void ReadDefinitions();
    bool ReadDatabase();

    std::string m_name;
    std::string m_path;
    std::string m_folder;
    std::string m_database;
    bool m_fromDatabase { false };
    std::vector<AccessTable> m_tables;
    std::vector<AccessQuery> m_queries;
    // By kind, by lower-case name: the file.
    std::map<std::string, std::map<std::string, std::string>> m_files;
    // The names as the files have them, by kind, in order.
    std::map<std::string, std::vector<std::string>> m_names;
};

// The tables of SQL definitions (CREATE TABLE with bracketed or quoted names,
// COMMENT ON TABLE and COLUMN), in the order they come.
std::vector<AccessTable> ParseTableDefinitions(const std::string& sql);
// The captions and descriptions that mdb-prop prints for a table's columns
// (and the table itself, under its own name), by column name.
std::map<std::string, std::map<std::string, std::string>> ParseProperties(const std::string& text);
// The output columns of a SELECT statement.
std::vector<QueryColumn> SelectColumns(const std::string& sql);
// A query as the page of a query wants it: <Query Name=""> with its inherited
// and calculated fields.
std::string QueryXml(const AccessQuery& query);
}  // namespace scriv
