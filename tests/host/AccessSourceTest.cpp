#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "host/access/AccessSource.h"
#include "support/CoreFixture.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

class AccessSourceTest : public test::CoreFixture {
protected:
    test::TempFolder m_app;
};

TEST_F(AccessSourceTest, TableDefinitionsAreReadFromSql)
{
    std::vector<AccessTable> tables = ParseTableDefinitions(R"(-- MDB Tools; a comment; with semicolons
CREATE TABLE [Order Lines]
 (
	[OrderID]			Long Integer NOT NULL,
	[Amount]			Numeric (18, 2),
	"Note"			Memo/Hyperlink (255),
	PRIMARY KEY ([OrderID])
);
COMMENT ON COLUMN [Order Lines].[Amount] IS 'What the line costs, it''s net.';
COMMENT ON TABLE [Order Lines] IS 'Lines';
COMMENT ON COLUMN [Nowhere].[X] IS 'ignored';
CREATE TABLE Plain (Id Integer);
CREATE UNIQUE INDEX [x] ON [Plain] ([Id]);
)");
    ASSERT_EQ(tables.size(), 2u);
    const AccessTable& lines = tables[0];
    EXPECT_EQ(lines.name, "Order Lines");
    EXPECT_EQ(lines.description, "Lines");
    ASSERT_EQ(lines.fields.size(), 3u);
    EXPECT_EQ(lines.fields[0].name, "OrderID");
    EXPECT_EQ(lines.fields[0].type, "Long Integer");
    EXPECT_TRUE(lines.fields[0].required);
    // A comma inside a type's parentheses does not end the field.
    EXPECT_EQ(lines.fields[1].type, "Numeric (18, 2)");
    EXPECT_EQ(lines.fields[1].description, "What the line costs, it's net.");
    EXPECT_FALSE(lines.fields[1].required);
    EXPECT_EQ(lines.fields[2].name, "Note");
    EXPECT_EQ(tables[1].name, "Plain");
    ASSERT_EQ(tables[1].fields.size(), 1u);
    EXPECT_EQ(tables[1].fields[0].type, "Integer");
}

TEST_F(AccessSourceTest, AQuerysColumnsComeFromTablesOrAreCalculated)
{
    std::vector<QueryColumn> columns = SelectColumns(
        "SELECT DISTINCT TOP 10 Orders.OrderID, [Order Lines].[Qty] AS Quantity, Sum([Qty]*[Price]) AS Total, "
        "Format(OrderDate, \"yyyy, mm\") AS Month, Customers.* FROM Orders INNER JOIN [Order Lines] ON x = y");
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[0].name, "OrderID");
    EXPECT_EQ(columns[0].table, "Orders");
    EXPECT_FALSE(columns[0].calculated);
    EXPECT_EQ(columns[1].name, "Quantity");
    EXPECT_EQ(columns[1].table, "Order Lines");
    EXPECT_EQ(columns[1].field, "Qty");
    EXPECT_TRUE(columns[2].calculated);
    EXPECT_EQ(columns[2].name, "Total");
    EXPECT_EQ(columns[3].name, "Month");
    // A field without a table comes from the only table read.
    std::vector<QueryColumn> single = SelectColumns("SELECT City, Count(*) FROM Customers GROUP BY City");
    ASSERT_EQ(single.size(), 2u);
    EXPECT_EQ(single[0].table, "Customers");
    EXPECT_TRUE(single[1].calculated);
    EXPECT_EQ(single[1].name, "Count(*)");
    EXPECT_TRUE(SelectColumns("UPDATE Orders SET x = 1").empty());

    std::string xml = QueryXml({ "qryTotals", "SELECT Orders.OrderID, Sum(x) AS Total FROM Orders", "" });
    EXPECT_EQ(xml, "<Query Name=\"qryTotals\"><InheritedFields><Field Name=\"OrderID\" Title=\"OrderID\" "
                   "Table=\"Orders|OrderID\"/></InheritedFields><CalculatedFields><Field Name=\"Total\"/>"
                   "</CalculatedFields></Query>");
}

TEST_F(AccessSourceTest, PropertiesOfColumnsAreReadByName)
{
    auto properties = ParseProperties("name: Customers\n\tDescription: The buyers\nname: City\n\tCaption: Town\n"
                                      "\tDescription: Where they are\n\tDecimalPlaces: 255\n");
    EXPECT_EQ(properties["customers"]["description"], "The buyers");
    EXPECT_EQ(properties["city"]["caption"], "Town");
    EXPECT_EQ(properties["city"]["description"], "Where they are");
}

TEST_F(AccessSourceTest, AFolderOfExportedObjectsIsAnApplication)
{
    m_app.Write("Orders/forms/frmMain.form", "Begin Form\r\nEnd\r\n");
    m_app.Write("Orders/forms/frmA.FORM", "Begin Form\r\nEnd\r\n");
    m_app.Write("Orders/reports/rptSales.report", "Begin Report\r\nEnd\r\n");
    m_app.Write("Orders/macros/AutoExec.macro", "Begin\r\n Action =\"Beep\"\r\nEnd\r\n");
    m_app.Write("Orders/queries/qryOpen.query", "dbMemo \"SQL\" =\"SELECT Id FROM T\\015\\012\"\r\n"
                                                "dbMemo \"Description\" =\"Open ones\"\r\n");
    m_app.Write("Orders/schema.sql", "CREATE TABLE [T] ([Id] Long Integer);");
    m_app.Write("Orders/modules/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n");
    AccessSource source = AccessSource::Open(m_app / "Orders");
    EXPECT_EQ(source.Name(), "Orders");
    EXPECT_EQ(source.DatabaseFile(), "");
    EXPECT_FALSE(source.ReadFromDatabase());
    EXPECT_EQ(source.Names("form"), (std::vector<std::string> { "frmA", "frmMain" }));
    EXPECT_EQ(source.Names("report"), (std::vector<std::string> { "rptSales" }));
    EXPECT_EQ(source.Names("macro"), (std::vector<std::string> { "AutoExec" }));
    ASSERT_EQ(source.Tables().size(), 1u);
    ASSERT_NE(source.FindQuery("QRYOPEN"), nullptr);
    EXPECT_EQ(source.FindQuery("qryOpen")->sql, "SELECT Id FROM T");
    EXPECT_EQ(source.FindQuery("qryOpen")->description, "Open ones");
    EXPECT_EQ(source.DefinitionFile("form", "FRMMAIN"), m_app / "Orders/forms/frmMain.form");
    EXPECT_EQ(source.DefinitionFile("form", "nothing"), "");
}

TEST_F(AccessSourceTest, AQueryExportedAsItsSqlAloneIsAQuery)
{
    // Version-control exports: tbldefs/NAME.sql holds a table, queries/NAME.sql a query's SQL.
    m_app.Write("Shop/tbldefs/Items.sql", "CREATE TABLE [Items] ([Id] Long Integer);");
    m_app.Write("Shop/queries/qryCheap.sql", "\xEF\xBB\xBFSELECT Id\r\nFROM Items\r\nWHERE Price < 5;\r\n");
    m_app.Write("Shop/queries/qryCheap.json", "{\"Type\": \"Query\"}");
    m_app.Write("Shop/queries/qryEmpty.sql", "");
    m_app.Write("Shop/scripts/setup.sql", "SELECT 1;");
    AccessSource source = AccessSource::Open(m_app / "Shop");
    ASSERT_EQ(source.Tables().size(), 1u);
    EXPECT_EQ(source.FindQuery("Items"), nullptr);
    ASSERT_NE(source.FindQuery("qryCheap"), nullptr);
    EXPECT_EQ(source.FindQuery("qryCheap")->sql, "SELECT Id\r\nFROM Items\r\nWHERE Price < 5;");
    EXPECT_EQ(source.FindQuery("qryEmpty"), nullptr);
    // Only the queries folder holds queries.
    EXPECT_EQ(source.FindQuery("setup"), nullptr);
}

TEST_F(AccessSourceTest, ADatabaseThatCannotBeReadLeavesTheExportedDefinitions)
{
    // mdbtools refuses a file that is no database; the definitions beside it stand in.
    m_app.Write("Shop/Shop.mdb", "this is not a Jet database");
    m_app.Write("Shop/tables.sql", "CREATE TABLE [Items] ([Id] Long Integer);");
    AccessSource source = AccessSource::Open(m_app / "Shop/Shop.mdb");
    EXPECT_EQ(source.Name(), "Shop");
    EXPECT_EQ(source.DatabaseFile(), m_app / "Shop/Shop.mdb");
    EXPECT_FALSE(source.ReadFromDatabase());
    ASSERT_EQ(source.Tables().size(), 1u);
    EXPECT_EQ(source.Tables()[0].name, "Items");
    // A folder holding the database is the same application.
    EXPECT_EQ(AccessSource::Open(m_app / "Shop").DatabaseFile(), m_app / "Shop/Shop.mdb");
    EXPECT_THROW(AccessSource::Open(m_app / "Missing.mdb"), ScrivError);
    EXPECT_THROW(AccessSource::Open(m_app / "nothing here"), ScrivError);
}

// mdbtools answers as it does for a Jet database: table names, their
// schema, the properties of their columns, and the queries with their SQL.
// The stand-ins print what mdbtools prints for such a database, so that what
// the program makes of those answers is tested without a database file.
class AccessDatabaseTest : public AccessSourceTest {
protected:
    void SetUp() override
    {
        AccessSourceTest::SetUp();
        Tool("mdb-tables", "printf 'Shippers\\nOrder Details\\n'");
        Tool("mdb-schema", "cat <<'END'\n-- comment\nCREATE TABLE [Shippers]\n (\n\t[ShipperID]\t\t\tLong Integer, \n"
                           "\t[CompanyName]\t\t\tText (40) NOT NULL, \n\t[Phone]\t\t\tText (24)\n);\nEND");
        Tool("mdb-prop", "[ \"$2\" = Shippers ] || exit 0\ncat <<'END'\nname: (none)\n\tDefaultView: 2\n"
                         "\tDescription: Shippers' names and phone numbers.\n\nname: CompanyName\n\tRequired: yes\n"
                         "\tCaption: Company Name\n\tDescription: Name of shipping company.\nEND");
        Tool("mdb-queries", "if [ \"$1\" = -L ]; then printf '~sq_cOrders~sq_cShipVia\\nInvoices Filter\\n'; exit 0; fi\n"
                            "[ \"$2\" = 'Invoices Filter' ] && echo 'SELECT Invoices.* FROM [Invoices] WHERE Invoices.OrderID=1 '");
        m_app.Write("Shop/Shop.mdb", "a database");
        m_path = std::getenv("PATH") ? std::getenv("PATH") : "";
        setenv("PATH", (m_app / "bin" + ":" + m_path).c_str(), 1);
    }

    void TearDown() override
    {
        setenv("PATH", m_path.c_str(), 1);
        AccessSourceTest::TearDown();
    }

    void Tool(const std::string& name, const std::string& body)
    {
        m_app.Write("bin/" + name, "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(m_app / "bin/" + name, std::filesystem::perms::owner_all);
    }

    std::string m_path;
};

TEST_F(AccessDatabaseTest, TablesColumnsAndQueriesComeFromTheDatabase)
{
    AccessSource source = AccessSource::Open(m_app / "Shop/Shop.mdb");
    ASSERT_TRUE(source.ReadFromDatabase());
    ASSERT_EQ(source.Tables().size(), 2u);
    const AccessTable* shippers = source.FindTable("shippers");
    ASSERT_NE(shippers, nullptr);
    EXPECT_EQ(shippers->description, "Shippers' names and phone numbers.");
    ASSERT_EQ(shippers->fields.size(), 3u);
    EXPECT_EQ(shippers->fields[1].name, "CompanyName");
    EXPECT_EQ(shippers->fields[1].type, "Text (40)");
    EXPECT_TRUE(shippers->fields[1].required);
    EXPECT_EQ(shippers->fields[1].caption, "Company Name");
    EXPECT_EQ(shippers->fields[1].description, "Name of shipping company.");
    // A table that the schema does not define is still listed.
    EXPECT_NE(source.FindTable("Order Details"), nullptr);
    // The row sources Access keeps for its forms are no queries of the application.
    ASSERT_EQ(source.Queries().size(), 1u);
    EXPECT_EQ(source.Queries()[0].name, "Invoices Filter");
    EXPECT_EQ(source.Queries()[0].sql, "SELECT Invoices.* FROM [Invoices] WHERE Invoices.OrderID=1");
}

// The example's database, read through the mdbtools installed: the same
// tables, columns and queries as its exported definitions, and what only the
// database holds (captions, the description of each query).
class AccessDemoDatabaseTest : public AccessSourceTest {
protected:
    void SetUp() override
    {
        AccessSourceTest::SetUp();
        if (FindProgramOnPath("mdb-tables").empty())
            GTEST_SKIP() << "mdbtools is not installed";
    }
};

TEST_F(AccessDemoDatabaseTest, TablesAndQueriesAreReadFromTheDatabase)
{
    std::string app = test::CopyExample("AccessDemo", m_app);
    AccessSource source = AccessSource::Open(RemoveBackslash(app));
    EXPECT_EQ(source.DatabaseFile(), app + "AccessDemo.mdb");
    ASSERT_TRUE(source.ReadFromDatabase());

    std::vector<std::string> names;
    for (const AccessTable& table : source.Tables())
        names.push_back(table.name);
    EXPECT_EQ(names, (std::vector<std::string> { "Customers", "Products", "Orders", "Order Lines" }));

    const AccessTable* customers = source.FindTable("Customers");
    ASSERT_NE(customers, nullptr);
    EXPECT_EQ(customers->description, "The companies that order from us, with their addresses and credit limits.");
    ASSERT_EQ(customers->fields.size(), 9u);
    const AccessField& company = customers->fields[1];
    EXPECT_EQ(company.name, "CompanyName");
    EXPECT_EQ(company.type, "Text (80)");
    EXPECT_TRUE(company.required);
    EXPECT_EQ(company.caption, "Company");
    EXPECT_EQ(company.description, "The name invoices are made out to.");
    EXPECT_EQ(customers->fields[7].type, "Currency");
    EXPECT_EQ(customers->fields[7].description, "The most the customer may owe before new orders wait for payment.");
    EXPECT_EQ(customers->fields[8].type, "Boolean");
    EXPECT_TRUE(customers->fields[8].required);
    // A field without properties is captioned with its name.
    EXPECT_EQ(customers->fields[3].caption, "Street");
    EXPECT_EQ(customers->fields[3].description, "");

    const AccessTable* lines = source.FindTable("order lines");
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->description, "The products of each order, with the price agreed.");
    ASSERT_EQ(lines->fields.size(), 5u);
    EXPECT_EQ(lines->fields[2].type, "Integer");
    EXPECT_EQ(lines->fields[4].type, "Single");
    EXPECT_FALSE(lines->fields[4].required);
    EXPECT_EQ(source.FindTable("Orders")->fields[3].description, "Empty until the goods have left the warehouse.");
    EXPECT_EQ(source.FindTable("Orders")->fields[2].type, "DateTime");

    // Every table the exported schema defines has the same fields, types and requirements in the database.
    std::vector<AccessTable> exported = ParseTableDefinitions(ReadFileText(app + "tables/Tables.sql").value_or(""));
    ASSERT_EQ(exported.size(), source.Tables().size());
    for (const AccessTable& table : exported) {
        const AccessTable* read = source.FindTable(table.name);
        ASSERT_NE(read, nullptr) << table.name;
        EXPECT_EQ(read->description, table.description) << table.name;
        ASSERT_EQ(read->fields.size(), table.fields.size()) << table.name;
        for (std::size_t i = 0; i < table.fields.size(); ++i) {
            EXPECT_EQ(read->fields[i].name, table.fields[i].name);
            EXPECT_EQ(read->fields[i].type, table.fields[i].type) << table.fields[i].name;
            EXPECT_EQ(read->fields[i].required, table.fields[i].required) << table.fields[i].name;
            EXPECT_EQ(read->fields[i].description, table.fields[i].description) << table.fields[i].name;
        }
    }

    ASSERT_EQ(source.Queries().size(), 2u);
    const AccessQuery* open = source.FindQuery("qryOpenOrders");
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->description, "The orders not shipped yet, oldest first, with the customer to ship to.");
    // The SQL is the one Access wrote, with its join, not the one mdb-queries rebuilds.
    EXPECT_NE(open->sql.find("INNER JOIN Orders ON Customers.CustomerID = Orders.CustomerID"), std::string::npos);
    const AccessQuery* totals = source.FindQuery("qryOrderTotals");
    ASSERT_NE(totals, nullptr);
    EXPECT_EQ(totals->description, "");
    std::vector<QueryColumn> columns = SelectColumns(totals->sql);
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[1].name, "Total");
    EXPECT_EQ(columns[2].name, "Lines");
}

TEST_F(AccessDemoDatabaseTest, AQueryWithoutExportedDefinitionHasTheSqlOfMdbQueries)
{
    std::string app = test::CopyExample("AccessDemo", m_app);
    std::filesystem::remove_all(app + "queries");
    AccessSource source = AccessSource::Open(app + "AccessDemo.mdb");
    ASSERT_TRUE(source.ReadFromDatabase());
    const AccessQuery* open = source.FindQuery("qryOpenOrders");
    ASSERT_NE(open, nullptr);
    // mdb-queries writes the tables read, the columns and the condition; the description is the database's.
    EXPECT_EQ(open->sql, "SELECT Orders.OrderID,Orders.OrderDate,Customers.CompanyName,Customers.City FROM "
                         "[Orders],[Customers] WHERE (((Orders.ShippedDate) Is Null))");
    EXPECT_EQ(open->description, "The orders not shipped yet, oldest first, with the customer to ship to.");
    std::vector<QueryColumn> columns = SelectColumns(open->sql);
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[2].table, "Customers");
    EXPECT_EQ(columns[2].field, "CompanyName");
}

// What a program writes to its error output, its standard output thrown away.
std::string ErrorOutput(std::vector<std::string> command)
{
    command.insert(command.begin(), { "sh", "-c", "\"$@\" 2>&1 >/dev/null", "sh" });
    std::string output;
    ShellAndWait(command, &output);
    return output;
}

TEST_F(AccessDemoDatabaseTest, MdbtoolsReadsEveryPartOfItWithoutAWarning)
{
    std::string database = test::ExamplesFolder() + "AccessDemo/AccessDemo.mdb";
    std::vector<std::vector<std::string>> commands = {
        { "mdb-ver", database },
        { "mdb-tables", "-1", "-S", database },
        { "mdb-schema", "--comments", database, "access" },
        { "mdb-schema", database, "postgres" },
        { "mdb-queries", "-L", "-1", database },
        { "mdb-queries", database, "qryOpenOrders" },
        { "mdb-queries", database, "qryOrderTotals" },
    };
    for (const char* table : { "Customers", "Products", "Orders", "Order Lines", "MSysObjects", "MSysQueries",
             "MSysRelationships" })
        commands.push_back({ "mdb-export", database, table });
    // Only objects with properties: mdb-prop reads garbage for one without (mdbtools 1.0).
    for (const char* object : { "Customers", "Products", "Orders", "Order Lines", "qryOpenOrders", "qryOrderTotals" })
        commands.push_back({ "mdb-prop", database, object });
    for (const auto& command : commands)
        EXPECT_EQ(ErrorOutput(command), "") << Join(command, " ");

    std::string output;
    ASSERT_EQ(ShellAndWait({ "mdb-ver", database }, &output), 0);
    EXPECT_EQ(output, "JET4\n");
    ASSERT_EQ(ShellAndWait({ "mdb-export", "-T", "%Y-%m-%d", database, "Orders" }, &output), 0);
    EXPECT_EQ(output, "OrderID,CustomerID,OrderDate,ShippedDate,ShipVia\n"
                      "1001,1,\"2024-02-05\",\"2024-02-07\",\"Road\"\n"
                      "1002,2,\"2024-02-19\",,\"Sea\"\n"
                      "1003,1,\"2024-03-04\",,\n"
                      "1004,3,\"2024-01-22\",\"2024-01-25\",\"Air\"\n");
    // Text beyond ASCII, currency, a null amid the row and a boolean.
    ASSERT_EQ(ShellAndWait({ "mdb-export", database, "Customers" }, &output), 0);
    EXPECT_NE(output.find("3,\"Maison Rivi\xC3\xA8re\",\"Claire Dubois\",\"4 rue des Tanneurs\",\"Lyon\",\"France\",,"
                          "2500.0000,0\n"),
        std::string::npos)
        << output;
    ASSERT_EQ(ShellAndWait({ "mdb-export", database, "Order Lines" }, &output), 0);
    EXPECT_NE(output.find("1001,2,20,6.9500,0.125\n"), std::string::npos) << output;
    ASSERT_EQ(ShellAndWait({ "mdb-schema", database, "postgres" }, &output), 0);
    EXPECT_NE(output.find("Relationship from \"Orders\" (\"customerid\") to \"Customers\"(\"customerid\")"),
        std::string::npos)
        << output;
}

TEST(AccessDemoDatabaseScript, WritesTheCommittedDatabaseByteForByte)
{
    if (FindProgramOnPath("python3").empty())
        GTEST_SKIP() << "python3 is not installed";
    test::TempFolder folder;
    std::string script = test::ExamplesFolder() + "scripts/make-access-mdb.py";
    std::string output;
    ASSERT_EQ(ShellAndWait({ "python3", script, folder / "AccessDemo.mdb" }, &output), 0) << output;
    std::optional<std::string> written = ReadFileText(folder / "AccessDemo.mdb");
    std::optional<std::string> committed = ReadFileText(test::ExamplesFolder() + "AccessDemo/AccessDemo.mdb");
    ASSERT_TRUE(written && committed);
    EXPECT_EQ(written->size(), 16u * 4096u);
    // Compared as booleans: a difference of 64 KB of bytes helps no one when printed.
    EXPECT_TRUE(*written == *committed) << "examples/AccessDemo/AccessDemo.mdb differs from what "
                                           "examples/scripts/make-access-mdb.py writes; run the script again";
}

}  // namespace
}  // namespace scriv
