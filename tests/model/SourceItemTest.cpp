#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "model/IHelpPrjSourceProject.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

class SourceItemParseTest : public ::testing::Test {
protected:
    CHelpPrjSourceItem Parsed(const std::string& file, const std::string& text, const std::string& type,
        bool* found = nullptr)
    {
        std::string path = m_folder.Write(file, text);
        CHelpPrjSourceItem item;
        bool result = item.Parse(path, type, true);
        if (found)
            *found = result;
        return item;
    }

    test::TempFolder m_folder;
};

TEST_F(SourceItemParseTest, NameAndCaptionComeFromTheStatementsThatSetThem)
{
    CHelpPrjSourceItem item = Parsed("Form1.vb",
        "Public Class Form1\r\n    Private Sub InitializeComponent()\r\n        Me.Text = \"Main window\"\r\n"
        "        Me.Name = \"frmMain\"\r\n",
        "VB.NET");
    EXPECT_EQ(item.FormName, "frmMain");
    EXPECT_EQ(item.FormCaption, "Main window");

    item = Parsed("Order.cs", "x\tthis.Text = \"Orders \";\n\tTHIS.NAME = \"OrderForm\";", "c#");
    EXPECT_EQ(item.FormName, "OrderForm");
    EXPECT_EQ(item.FormCaption, "Orders ");

    item = Parsed("Pick.jsl", "this.set_Name(\"PickForm\");this.set_Text(\"Pick\");", "J#");
    EXPECT_EQ(item.FormName, "PickForm");
    EXPECT_EQ(item.FormCaption, "Pick");
}

TEST_F(SourceItemParseTest, OnlyAnOccurrenceAtAStatementStartCounts)
{
    // A point before the text is no statement start; the next occurrence is.
    CHelpPrjSourceItem item = Parsed("A.vb", "Form.Me.Name = \"Wrong\"\nx:Me.Name = \"Right\"", "VB.NET");
    EXPECT_EQ(item.FormName, "Right");
    // A comment is text like any other: the first occurrence after a blank wins.
    item = Parsed("B.vb", "' Me.Name = \"Old\"\r\n Me.Name = \"New\"\r\n", "VB.NET");
    EXPECT_EQ(item.FormName, "Old");
    // At the very start of the file.
    item = Parsed("C.vb", "Me.Name = \"First\"", "VB.NET");
    EXPECT_EQ(item.FormName, "First");
}

TEST_F(SourceItemParseTest, ACaptionWithoutClosingQuoteTakesTheRestOfTheFile)
{
    CHelpPrjSourceItem item = Parsed("D.vb", "Me.Text = \"Open\r\nend", "VB.NET");
    EXPECT_EQ(item.FormCaption, "Open\r\nend");
    EXPECT_EQ(item.FormName, "D");
}

TEST_F(SourceItemParseTest, ADesignerFileAndItsCompanionStandInForEachOther)
{
    m_folder.Write("Form1.Designer.vb", " Me.Name = \"frmOne\"\r\n Me.Text = \"One\"\r\n");
    CHelpPrjSourceItem item = Parsed("Form1.vb", "Public Class Form1\r\nEnd Class\r\n", "VB.NET");
    EXPECT_EQ(item.FormName, "frmOne");
    EXPECT_EQ(item.FormCaption, "One");

    // Named after its companion when it sets nothing itself.
    item = Parsed("Form2.Designer.vb", "nothing here", "VB.NET");
    EXPECT_EQ(item.FormName, "Form2");
    EXPECT_EQ(item.FormCaption, "Form2");
}

TEST_F(SourceItemParseTest, MissingFilesCppAndAspNetKeepTheirDefaults)
{
    CHelpPrjSourceItem item;
    EXPECT_FALSE(item.Parse(m_folder / "Gone.vb", "VB.NET", true));
    EXPECT_EQ(item.FormName, "Gone");
    EXPECT_EQ(item.FormCaption, "Gone");

    bool found = false;
    item = Parsed("Dialog.h", "this->Name = S\"CDialogForm\";\nthis->Text = S\"Settings\";", "C++", &found);
    EXPECT_TRUE(found);
    EXPECT_EQ(item.FormName, "Dialog");
    EXPECT_EQ(item.FormCaption, "Settings");

    item = Parsed("Page.aspx.vb", " Me.Name = \"x\"", "ASP.NET");
    EXPECT_EQ(item.FormName, "Page.aspx");
}

TEST_F(SourceItemParseTest, AVisualStudioFileEntryIsReadAndItsFileParsed)
{
    m_folder.Write("Forms/Edit.cs", " this.Name = \"EditForm\";");
    pugi::xml_document document;
    std::string xml = "<Files><File RelPath=\"Forms\\Edit.cs\" SubType=\"Form\" BuildAction=\"Compile\"/>"
                      "<File RelativePath=\"Other.cs\" RelPath=\"Ignored.cs\" FileType=\"3\" SubType=\"Code\" "
                      "BuildAction=\"None\" Link=\""
        + m_folder / "Forms/Edit.cs" + "\"/></Files>";
    ASSERT_TRUE(document.load_string(xml.c_str()));
    pugi::xml_node first = document.child("Files").first_child();
    CHelpPrjSourceItem item;
    item.Init(first, m_folder.Path(), "Editor", "C#");
    EXPECT_TRUE(item.IsVSProjectItem);
    EXPECT_EQ(item.RelativePath, "Forms\\Edit.cs");
    EXPECT_EQ(item.SubType, "Form");
    EXPECT_EQ(item.ProjectName, "Editor");
    EXPECT_EQ(item.FormName, "EditForm");
    EXPECT_EQ(item.ObjectType(), 2);

    CHelpPrjSourceItem linked;
    linked.Init(first.next_sibling(), m_folder.Path(), "Editor", "C#");
    EXPECT_EQ(linked.RelativePath, "Other.cs");
    EXPECT_EQ(linked.SubType, "Form");
    EXPECT_EQ(linked.BuildAction, "None");
    EXPECT_EQ(linked.FormName, "EditForm");

    // An extra file name beside the project wins over the entry's paths.
    m_folder.Write("Extra.cs", " this.Name = \"ExtraForm\";");
    CHelpPrjSourceItem extra;
    extra.Init(first, m_folder.Path(), "Editor", "C#", "Extra.cs");
    EXPECT_EQ(extra.FormName, "ExtraForm");
}

TEST(SourceItemMakers, VbAccessAndExcelItemsTakeWhatTheirReadersFound)
{
    CHelpPrjSourceItem vb;
    vb.InitForVb6("/apps/orders", "frmMain.frm", "Orders", "VB6", "frmMain", "Main", "UserControl");
    EXPECT_EQ(vb.BaseFolder, "/apps/orders/");
    EXPECT_EQ(vb.SubType, "Form");
    EXPECT_EQ(vb.GUIObjectSubType, "UserControl");
    EXPECT_EQ(vb.FormCaption, "Main");
    CHelpPrjSourceItem access;
    access.InitForMSAccess("/db/", "", "Shop", "Report", "rptSales", "Sales");
    EXPECT_EQ(access.ObjectType(), 3);
    EXPECT_EQ(access.BuildAction, "Compile");
    CHelpPrjSourceItem excel;
    excel.InitForMSExcel("/xl/", "", "Book", "Chart", "Chart1", "Chart 1");
    EXPECT_EQ(excel.ObjectType(), 82);
}

}  // namespace
}  // namespace scriv
