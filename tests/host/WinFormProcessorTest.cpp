#include <gtest/gtest.h>

#include "host/vs/CW_IDEVSFormProcessor.h"
#include "support/CoreFixture.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CClientUIObjectXml.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlMenu.h"

namespace scriv {
namespace {

const char* const kDesigner = R"(partial class Main {
private void InitializeComponent() {
    this.menu = new System.Windows.Forms.MenuStrip();
    this.fileItem = new System.Windows.Forms.ToolStripMenuItem();
    this.exitItem = new System.Windows.Forms.ToolStripMenuItem();
    this.tools = new System.Windows.Forms.ToolStrip();
    this.btnNew = new System.Windows.Forms.ToolStripButton();
    this.sep = new System.Windows.Forms.ToolStripSeparator();
    this.btnOpen = new System.Windows.Forms.ToolStripButton();
    this.status = new System.Windows.Forms.StatusStrip();
    this.tabs = new System.Windows.Forms.TabControl();
    this.tabA = new System.Windows.Forms.TabPage();
    this.tabB = new System.Windows.Forms.TabPage();
    this.lblCity = new System.Windows.Forms.Label();
    this.txtCity = new System.Windows.Forms.TextBox();
    this.chkB = new System.Windows.Forms.CheckBox();
    this.grp = new System.Windows.Forms.GroupBox();
    this.btnIn = new System.Windows.Forms.Button();
    this.panel = new System.Windows.Forms.Panel();
    this.list = new System.Windows.Forms.ListBox();
    this.timer = new System.Windows.Forms.Timer(this.components);
    this.menu.Items.AddRange(new System.Windows.Forms.ToolStripItem[] { this.fileItem });
    this.menu.Location = new System.Drawing.Point(0, 0);
    this.menu.Size = new System.Drawing.Size(300, 24);
    this.fileItem.DropDownItems.AddRange(new System.Windows.Forms.ToolStripItem[] { this.exitItem });
    this.fileItem.Text = "&File";
    this.exitItem.Text = "E&xit";
    this.tools.Items.AddRange(new System.Windows.Forms.ToolStripItem[] { this.btnNew, this.sep, this.btnOpen });
    this.tools.Size = new System.Drawing.Size(300, 25);
    this.btnNew.Size = new System.Drawing.Size(23, 22);
    this.btnNew.Text = "New";
    this.btnNew.ToolTipText = "A new order";
    this.btnOpen.Size = new System.Drawing.Size(23, 22);
    this.status.Size = new System.Drawing.Size(300, 22);
    this.tabs.Controls.Add(this.tabA);
    this.tabs.Controls.Add(this.tabB);
    this.tabs.Location = new System.Drawing.Point(10, 60);
    this.tabs.Size = new System.Drawing.Size(200, 100);
    this.tabA.Controls.Add(this.lblCity);
    this.tabA.Controls.Add(this.txtCity);
    this.tabA.Location = new System.Drawing.Point(4, 22);
    this.tabA.Size = new System.Drawing.Size(192, 74);
    this.tabA.Text = "&General";
    this.tabB.Controls.Add(this.chkB);
    this.tabB.Location = new System.Drawing.Point(4, 22);
    this.tabB.Size = new System.Drawing.Size(192, 74);
    this.tabB.Text = "Notes";
    this.lblCity.Location = new System.Drawing.Point(6, 11);
    this.lblCity.Text = "&City:";
    this.lblCity.TabIndex = 0;
    this.txtCity.Location = new System.Drawing.Point(60, 8);
    this.txtCity.Text = "Paris";
    this.txtCity.TabIndex = 1;
    this.chkB.Location = new System.Drawing.Point(6, 30);
    this.chkB.Text = "Urgent";
    this.grp.Controls.Add(this.btnIn);
    this.grp.Location = new System.Drawing.Point(220, 60);
    this.grp.Size = new System.Drawing.Size(70, 80);
    this.btnIn.Location = new System.Drawing.Point(5, 20);
    this.btnIn.Size = new System.Drawing.Size(60, 23);
    this.panel.BorderStyle = System.Windows.Forms.BorderStyle.Fixed3D;
    this.panel.Controls.Add(this.list);
    this.panel.Dock = System.Windows.Forms.DockStyle.Right;
    this.panel.Size = new System.Drawing.Size(50, 10);
    this.list.Dock = System.Windows.Forms.DockStyle.Fill;
    this.Controls.Add(this.panel);
    this.Controls.Add(this.tabs);
    this.Controls.Add(this.grp);
    this.Controls.Add(this.status);
    this.Controls.Add(this.tools);
    this.Controls.Add(this.menu);
    this.ClientSize = new System.Drawing.Size(300, 200);
    this.MainMenuStrip = this.menu;
    this.Text = "Orders";
} }
)";

class WinFormProcessorTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_design = WinFormDesign::Read(kDesigner, DesignLanguage::CSharp);
    }

    std::unique_ptr<CXmlForm> Describe(const std::string& type = "C#")
    {
        CW_IDEVSFormProcessor processor(m_design, 77);
        std::string raw = CClientUIObjectRawXml().Get_(processor, 2, processor.Component(), 1, true, type, false, false);
        return CClientUIObjectXml().AdjustForm(raw, 2, false, 2, "", "", "images", false);
    }

    static CXmlControl* Control(CXmlForm& form, const std::string& name)
    {
        for (CXmlControl* control : form.AllControls())
            if (control->Name == name)
                return control;
        return nullptr;
    }

    WinFormDesign m_design;
};

TEST_F(WinFormProcessorTest, DockedControlsTakeTheirPlacesFromTheBackOfTheOrder)
{
    WinFormLayout layout(m_design);
    EXPECT_EQ(layout.Bounds(*m_design.Find("menu")), (LayoutRect { 0, 0, 300, 24 }));
    EXPECT_EQ(layout.Bounds(*m_design.Find("tools")), (LayoutRect { 0, 24, 300, 25 }));
    EXPECT_EQ(layout.Bounds(*m_design.Find("status")), (LayoutRect { 0, 178, 300, 22 }));
    // The panel docks right into what the strips left, and its list fills it inside the 3D border.
    EXPECT_EQ(layout.Bounds(*m_design.Find("panel")), (LayoutRect { 250, 49, 50, 129 }));
    EXPECT_EQ(layout.Bounds(*m_design.Find("list")), (LayoutRect { 2, 2, 46, 125 }));
    // Undocked controls stay where the designer put them.
    EXPECT_EQ(layout.Bounds(*m_design.Find("grp")), (LayoutRect { 220, 60, 70, 80 }));
    EXPECT_EQ(layout.Bounds(*m_design.Find("btnIn")), (LayoutRect { 5, 20, 60, 23 }));
}

TEST_F(WinFormProcessorTest, TheWindowIsTheClientAreaInASizableFrame)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->Name, "Main");
    EXPECT_EQ(form->Caption(), "Orders");
    EXPECT_EQ(form->Width, 308);
    EXPECT_EQ(form->Height, 226);
    EXPECT_EQ(form->ClientAreaOffsetX, 4);
    // A menu strip lies inside the client area: the offset holds no menu bar.
    EXPECT_EQ(form->ClientAreaOffsetY, 22);
    EXPECT_EQ(form->BorderStyle, 2);
    EXPECT_EQ(form->hWnd, 77);
    EXPECT_EQ(form->SourceProjectType, "C#");
}

TEST_F(WinFormProcessorTest, ControlsOnPagesEndRelativeToTheClientArea)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    CXmlControl* city = Control(*form, "txtCity");
    ASSERT_NE(city, nullptr);
    // tab control (10, 60) + page (4, 22) + control (60, 8)
    EXPECT_EQ(city->Left, 74);
    EXPECT_EQ(city->Top, 90);
    // The label before it in the tab order names it.
    EXPECT_EQ(city->Caption(), "City");
    CXmlControl* urgent = Control(*form, "chkB");
    ASSERT_NE(urgent, nullptr);
    EXPECT_EQ(urgent->Left, 20);
    EXPECT_EQ(urgent->Top, 112);
    CXmlControl* page = Control(*form, "1_tabs");
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->ClassName, "Page");
    EXPECT_EQ(page->Left, 10);
    EXPECT_EQ(page->Top, 60);
    EXPECT_EQ(page->Width, 200);
    EXPECT_EQ(page->Caption(), "Notes");
    // Its tab comes after the first one's, on the tab row.
    CXmlControl* first = Control(*form, "0_tabs");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->TabTop, 62);
    EXPECT_EQ(first->TabLeft, 12);
    EXPECT_EQ(page->TabLeft, first->TabLeft + first->TabWidth);
    CXmlControl* inside = Control(*form, "btnIn");
    ASSERT_NE(inside, nullptr);
    EXPECT_EQ(inside->Left, 225);
    EXPECT_EQ(inside->Top, 80);
    // The list in the docked panel.
    CXmlControl* list = Control(*form, "list");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->Left, 252);
    EXPECT_EQ(list->Top, 51);
}

TEST_F(WinFormProcessorTest, ToolStripItemsAreToolbarButtonsAndMenuItemsMenuEntries)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    CXmlControl* tools = Control(*form, "tools");
    ASSERT_NE(tools, nullptr);
    EXPECT_EQ(tools->ClassName, "Toolbar");
    ASSERT_EQ(tools->Controls().Count(), 3u);
    CXmlControl* open = Control(*form, "3_tools");
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->ClassName, "ToolbarButton");
    // After the grip, a 23-pixel button and a 6-pixel separator.
    EXPECT_EQ(open->Left, 11 + 23 + 6);
    EXPECT_EQ(open->Top, 25);
    CXmlControl* created = Control(*form, "1_tools");
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->Description, "A new order");

    ASSERT_EQ(form->Menus().Count(), 2u);
    EXPECT_EQ(form->Menus().At(0).value->Text, "&File");
    EXPECT_EQ(form->Menus().At(1).value->Name, "exitItem");
    // The strip itself is a control of the client area; the timer is left out.
    EXPECT_NE(Control(*form, "menu"), nullptr);
    EXPECT_EQ(Control(*form, "timer"), nullptr);
}

TEST_F(WinFormProcessorTest, PagesStayWithTheirTabControlForOtherSourceTypes)
{
    // The page positions of Windows Forms are made absolute only for the Visual Studio types.
    auto form = Describe("VB6");
    ASSERT_TRUE(form);
    CXmlControl* city = Control(*form, "txtCity");
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->Left, 70);
    EXPECT_EQ(city->Top, 68);
}

TEST_F(WinFormProcessorTest, AMainMenuLiesOutsideTheClientArea)
{
    const char* code = R"(class Old { void InitializeComponent() {
        this.mainMenu1 = new System.Windows.Forms.MainMenu();
        this.menuItem1 = new System.Windows.Forms.MenuItem();
        this.menuItem2 = new System.Windows.Forms.MenuItem();
        this.mainMenu1.MenuItems.AddRange(new System.Windows.Forms.MenuItem[] { this.menuItem1, this.menuItem2 });
        this.menuItem1.Text = "&File";
        this.menuItem2.Text = "-";
        this.ClientSize = new System.Drawing.Size(200, 100);
        this.FormBorderStyle = System.Windows.Forms.FormBorderStyle.FixedToolWindow;
        this.Menu = this.mainMenu1;
    } })";
    WinFormDesign design = WinFormDesign::Read(code, DesignLanguage::CSharp);
    CW_IDEVSFormProcessor processor(design);
    IHostObject* formObject = processor.Component();
    EXPECT_EQ(processor.BorderStyle(formObject), 4);
    EXPECT_EQ(processor.FormClientAreaOffsetY(formObject), 4 + 15 + 18);
    int width = 0;
    int height = 0;
    processor.GetComponentWidthAndHeightInTwips(formObject, width, height);
    EXPECT_EQ(width, 208);
    EXPECT_EQ(height, 100 + 8 + 15 + 18);
    EXPECT_TRUE(processor.FormHasMenus(formObject));
    EXPECT_EQ(processor.MenuEntries().size(), 1u);
}

}  // namespace
}  // namespace scriv
