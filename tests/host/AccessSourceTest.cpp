#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "foundation/ScrivError.h"
#include "host/access/AccessSource.h"
#include "support/CoreFixture.h"

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

}  // namespace
}  // namespace scriv
