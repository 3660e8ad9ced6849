#include <gtest/gtest.h>

#include "host/vs/WinFormDesign.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const char* const kCSharpDesigner = R"cs(namespace Desk
{
    partial class OrderForm
    {
        private System.ComponentModel.IContainer components = null;

        #region Windows Form Designer generated code
        /// <summary>this.ignored = new System.Windows.Forms.Button();</summary>
        private void InitializeComponent()
        {
            this.components = new System.ComponentModel.Container();
            System.ComponentModel.ComponentResourceManager resources = new System.ComponentModel.ComponentResourceManager(typeof(OrderForm));
            this.grpCustomer = new System.Windows.Forms.GroupBox();
            this.lblName = new System.Windows.Forms.Label();
            this.txtName = new System.Windows.Forms.TextBox();
            this.btnSave = new System.Windows.Forms.Button();
            this.tabs = new System.Windows.Forms.TabControl();
            this.tabGeneral = new System.Windows.Forms.TabPage();
            this.tabNotes = new System.Windows.Forms.TabPage();
            this.menu = new System.Windows.Forms.MenuStrip();
            this.fileMenu = new System.Windows.Forms.ToolStripMenuItem();
            this.saveItem = new System.Windows.Forms.ToolStripMenuItem();
            this.separator = new System.Windows.Forms.ToolStripSeparator();
            this.tools = new System.Windows.Forms.ToolStrip();
            this.newButton = new System.Windows.Forms.ToolStripButton();
            this.cboPriority = new System.Windows.Forms.ComboBox();
            this.tips = new System.Windows.Forms.ToolTip(this.components);
            this.grpCustomer.SuspendLayout();
            ((System.ComponentModel.ISupportInitialize)(this.tabs)).BeginInit();
            this.SuspendLayout();
            //
            // grpCustomer
            //
            this.grpCustomer.Controls.Add(this.lblName);
            this.grpCustomer.Controls.Add(this.txtName);
            this.grpCustomer.Location = new System.Drawing.Point(12, 31);
            this.grpCustomer.Name = "grpCustomer";
            this.grpCustomer.Size = new System.Drawing.Size(260, 70);
            this.grpCustomer.TabIndex = 0;
            this.grpCustomer.TabStop = false;
            this.grpCustomer.Text = "&Customer";
            this.lblName.AutoSize = true;
            this.lblName.Location = new System.Drawing.Point(6, 22);
            this.lblName.Size = new System.Drawing.Size(38, 13);
            this.lblName.TabIndex = 0;
            this.lblName.Text = "Na&me:";
            this.txtName.Anchor = ((System.Windows.Forms.AnchorStyles)(((System.Windows.Forms.AnchorStyles.Top | System.Windows.Forms.AnchorStyles.Left)
            | System.Windows.Forms.AnchorStyles.Right)));
            this.txtName.Font = new System.Drawing.Font("Microsoft Sans Serif", 9.75F, ((System.Drawing.FontStyle)((System.Drawing.FontStyle.Bold | System.Drawing.FontStyle.Italic))), System.Drawing.GraphicsUnit.Point, ((byte)(0)));
            this.txtName.Location = new System.Drawing.Point(60, 19);
            this.txtName.Size = new System.Drawing.Size(190, 22);
            this.txtName.TabIndex = 1;
            this.txtName.Enabled = false;
            this.tips.SetToolTip(this.txtName, "The customer\'s \"full\" name");
            this.btnSave.Location = new System.Drawing.Point(197, 230);
            this.btnSave.Text = @"Save ""now""";
            this.btnSave.Visible = false;
            this.btnSave.BackColor = System.Drawing.Color.FromArgb(((int)(((byte)(255)))), ((int)(((byte)(128)))), ((int)(((byte)(0)))));
            this.btnSave.ForeColor = System.Drawing.SystemColors.ControlText;
            this.btnSave.Click += new System.EventHandler(this.btnSave_Click);
            this.tabs.Controls.Add(this.tabGeneral);
            this.tabs.Controls.Add(this.tabNotes);
            this.tabs.Dock = System.Windows.Forms.DockStyle.Bottom;
            this.tabs.Size = new System.Drawing.Size(284, 100);
            this.tabGeneral.Text = "General";
            this.tabNotes.Text = "Notes";
            this.menu.Items.AddRange(new System.Windows.Forms.ToolStripItem[] {
            this.fileMenu});
            this.fileMenu.DropDownItems.AddRange(new System.Windows.Forms.ToolStripItem[] {
            this.saveItem,
            this.separator});
            this.fileMenu.Text = "&File";
            this.saveItem.Text = "&Save";
            this.tools.Items.AddRange(new System.Windows.Forms.ToolStripItem[] { this.newButton });
            this.newButton.Image = ((System.Drawing.Image)(resources.GetObject("newButton.Image")));
            this.newButton.ToolTipText = "New order";
            this.cboPriority.Items.AddRange(new object[] {
            "Low",
            "High"});
            this.cboPriority.Location = new System.Drawing.Point(12, 110);
            this.Controls.Add(this.cboPriority);
            this.Controls.Add(this.btnSave);
            this.Controls.Add(this.grpCustomer);
            this.Controls.Add(this.tabs);
            this.Controls.Add(this.tools);
            this.Controls.Add(this.menu);
            this.MainMenuStrip = this.menu;
            this.ClientSize = new System.Drawing.Size(284, 361);
            this.FormBorderStyle = System.Windows.Forms.FormBorderStyle.FixedDialog;
            this.Text = "Order \u00e9" + " entry";
            this.SomethingNew(42);
            this.grpCustomer.ResumeLayout(false);
            this.ResumeLayout(false);
            this.PerformLayout();
        }
        #endregion

        private void NotRead()
        {
            this.Text = "never";
        }
    }
}
)cs";

const char* const kBasicDesigner = R"vb(<Global.Microsoft.VisualBasic.CompilerServices.DesignerGenerated()> _
Partial Class frmAbout
    Inherits System.Windows.Forms.Form

    'Required by the Windows Form Designer
    <System.Diagnostics.DebuggerStepThrough()> _
    Private Sub InitializeComponent()
        Me.components = New System.ComponentModel.Container
        Me.Panel1 = New System.Windows.Forms.Panel()
        Me.OK = New System.Windows.Forms.Button()
        Me.MainMenu1 = New System.Windows.Forms.MainMenu(Me.components)
        Me.MenuItem1 = New System.Windows.Forms.MenuItem()
        Me.lstItems = New System.Windows.Forms.ListBox()
        Me.Panel1.SuspendLayout()
        Me.SuspendLayout()
        '
        'Panel1 - Me.Text = "a comment"
        '
        Me.Panel1.BorderStyle = System.Windows.Forms.BorderStyle.Fixed3D
        Me.Panel1.Controls.Add(Me.OK)
        Me.Panel1.Location = New System.Drawing.Point(8, 8)
        Me.Panel1.Size = New System.Drawing.Size(200, 100)
        Me.OK.Anchor = CType((System.Windows.Forms.AnchorStyles.Bottom Or System.Windows.Forms.AnchorStyles.Right), _
            System.Windows.Forms.AnchorStyles)
        Me.OK.Font = New System.Drawing.Font("Tahoma", 12.0!, System.Drawing.FontStyle.Bold, System.Drawing.GraphicsUnit.Pixel, CType(0, Byte))
        Me.OK.Location = New System.Drawing.Point(110, 70)
        Me.OK.Name = "OK"
        Me.OK.Text = "&OK ""now"""
        Me.OK.BackColor = System.Drawing.Color.White
        Me.MainMenu1.MenuItems.AddRange(New System.Windows.Forms.MenuItem() {Me.MenuItem1})
        Me.MenuItem1.Index = 0
        Me.MenuItem1.Text = "&Help"
        Me.lstItems.Items.AddRange(New Object() {"One", "Two" & vbCrLf & "lines"})
        Me.Controls.AddRange(New System.Windows.Forms.Control() {Me.lstItems, Me.Panel1})
        Me.ClientSize = New System.Drawing.Size(292, 166)
        Me.Menu = Me.MainMenu1
        Me.Name = "frmAbout"
        Me.Text = "About"
        AddHandler OK.Click, AddressOf OK_Click
        Dim x As Integer = 3
        Me.Panel1.ResumeLayout(False)
        Me.ResumeLayout(False)

    End Sub
    Friend WithEvents OK As System.Windows.Forms.Button
End Class
)vb";

class DesignerCodeTest : public test::CoreFixture { };

TEST_F(DesignerCodeTest, CSharpStatementsBuildTheControlsWithTheirProperties)
{
    WinFormDesign design = WinFormDesign::Read(kCSharpDesigner, DesignLanguage::CSharp);
    ASSERT_TRUE(design.HasInitializeComponent());
    EXPECT_EQ(design.FormClass(), "OrderForm");
    EXPECT_EQ(design.Find("ignored"), nullptr);

    const DesignComponent& form = design.Form();
    EXPECT_EQ(form.Text("Text"), "Order \xC3\xA9 entry");
    EXPECT_EQ(form.EnumValue("FormBorderStyle"), "FixedDialog");
    const DesignValue* client = form.Property("ClientSize");
    ASSERT_NE(client, nullptr);
    EXPECT_EQ(client->a, 284);
    EXPECT_EQ(client->b, 361);

    DesignComponent* group = design.Find("grpCustomer");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->type, "GroupBox");
    EXPECT_EQ(group->fullType, "System.Windows.Forms.GroupBox");
    EXPECT_EQ(group->Text("Text"), "&Customer");
    EXPECT_EQ(group->Number("TabIndex", -1), 0);
    EXPECT_FALSE(group->Boolean("TabStop", true));
    ASSERT_EQ(group->controls.size(), 2u);
    EXPECT_EQ(group->controls[0]->name, "lblName");
    EXPECT_EQ(group->parent, &form);

    DesignComponent* name = design.Find("txtName");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->parent, group);
    const DesignValue* anchor = name->Property("Anchor");
    ASSERT_NE(anchor, nullptr);
    EXPECT_EQ(anchor->kind, DesignValue::Kind::Enum);
    EXPECT_TRUE(anchor->Has("Top") && anchor->Has("Left") && anchor->Has("Right"));
    EXPECT_FALSE(anchor->Has("Bottom"));
    const DesignValue* font = name->Property("Font");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->kind, DesignValue::Kind::Font);
    EXPECT_EQ(font->text, "Microsoft Sans Serif");
    EXPECT_DOUBLE_EQ(font->number, 9.75);
    EXPECT_TRUE(font->Has("Bold") && font->Has("Italic"));
    EXPECT_FALSE(name->Boolean("Enabled", true));
    EXPECT_EQ(name->Text("ToolTipText"), "The customer's \"full\" name");

    DesignComponent* save = design.Find("btnSave");
    ASSERT_NE(save, nullptr);
    EXPECT_EQ(save->Text("Text"), "Save \"now\"");
    EXPECT_FALSE(save->Boolean("Visible", true));
    const DesignValue* back = save->Property("BackColor");
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->rgb, 0xFF8000u);
    const DesignValue* fore = save->Property("ForeColor");
    ASSERT_NE(fore, nullptr);
    EXPECT_TRUE(fore->systemColour);
    EXPECT_EQ(fore->text, "ControlText");

    // The form's controls in the order they were added; index 0 is the front.
    ASSERT_EQ(form.controls.size(), 6u);
    EXPECT_EQ(form.controls[0]->name, "cboPriority");
    EXPECT_EQ(form.controls[5]->name, "menu");
    EXPECT_EQ(design.Find("cboPriority")->listItems, (std::vector<std::string> { "Low", "High" }));
}

TEST_F(DesignerCodeTest, PagesMenusAndToolStripItemsAreCollected)
{
    WinFormDesign design = WinFormDesign::Read(kCSharpDesigner, DesignLanguage::CSharp);
    DesignComponent* tabs = design.Find("tabs");
    ASSERT_NE(tabs, nullptr);
    ASSERT_EQ(tabs->controls.size(), 2u);
    EXPECT_EQ(tabs->controls[1]->Text("Text"), "Notes");
    EXPECT_EQ(tabs->EnumValue("Dock"), "Bottom");

    DesignComponent* menu = design.Find("menu");
    ASSERT_EQ(menu->items.size(), 1u);
    DesignComponent* file = menu->items[0];
    EXPECT_EQ(file->Text("Text"), "&File");
    ASSERT_EQ(file->items.size(), 2u);
    EXPECT_EQ(file->items[0]->name, "saveItem");
    EXPECT_EQ(file->items[1]->type, "ToolStripSeparator");
    EXPECT_EQ(file->owner, menu);
    const DesignValue* mainMenu = design.Form().Property("MainMenuStrip");
    ASSERT_NE(mainMenu, nullptr);
    EXPECT_EQ(mainMenu->kind, DesignValue::Kind::Reference);
    EXPECT_EQ(mainMenu->text, "menu");

    DesignComponent* tools = design.Find("tools");
    ASSERT_EQ(tools->items.size(), 1u);
    EXPECT_EQ(tools->items[0]->Text("ToolTipText"), "New order");
}

TEST_F(DesignerCodeTest, StatementsNotUnderstoodAreSkippedAndTraced)
{
    WinFormDesign design = WinFormDesign::Read(kCSharpDesigner, DesignLanguage::CSharp);
    const std::vector<std::string>& skipped = design.Skipped();
    auto has = [&](const std::string& part) {
        return std::any_of(skipped.begin(), skipped.end(), [&](const std::string& s) { return s.find(part) != std::string::npos; });
    };
    EXPECT_TRUE(has("SomethingNew"));
    EXPECT_TRUE(has("resources"));
    EXPECT_TRUE(has("GetObject"));
    // Layout calls and event handlers are known, not skipped.
    EXPECT_FALSE(has("SuspendLayout"));
    EXPECT_FALSE(has("btnSave_Click"));
    EXPECT_FALSE(has("BeginInit"));
    EXPECT_NE(TraceText().find("SomethingNew"), std::string::npos);
    // A method other than InitializeComponent is not read.
    EXPECT_NE(design.Form().Text("Text"), "never");
}

TEST_F(DesignerCodeTest, VisualBasicStatementsAreReadTheSameWay)
{
    WinFormDesign design = WinFormDesign::Read(kBasicDesigner, DesignLanguage::Basic);
    ASSERT_TRUE(design.HasInitializeComponent());
    EXPECT_EQ(design.FormClass(), "frmAbout");
    const DesignComponent& form = design.Form();
    EXPECT_EQ(form.Text("Text"), "About");
    EXPECT_EQ(form.Text("Name"), "frmAbout");
    const DesignValue* menu = form.Property("Menu");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->text, "MainMenu1");
    ASSERT_EQ(design.Find("MainMenu1")->items.size(), 1u);
    EXPECT_EQ(design.Find("MainMenu1")->items[0]->Text("Text"), "&Help");

    // Controls.AddRange keeps the array's order.
    ASSERT_EQ(form.controls.size(), 2u);
    EXPECT_EQ(form.controls[0]->name, "lstItems");
    EXPECT_EQ(form.controls[1]->name, "Panel1");
    EXPECT_EQ(design.Find("Panel1")->EnumValue("BorderStyle"), "Fixed3D");

    DesignComponent* ok = design.Find("ok");
    ASSERT_NE(ok, nullptr);
    EXPECT_EQ(ok->parent, design.Find("Panel1"));
    EXPECT_EQ(ok->Text("Text"), "&OK \"now\"");
    // A line continued with " _" is one statement.
    const DesignValue* anchor = ok->Property("Anchor");
    ASSERT_NE(anchor, nullptr);
    EXPECT_TRUE(anchor->Has("Bottom") && anchor->Has("Right"));
    // A size in pixels is kept in points.
    const DesignValue* font = ok->Property("Font");
    ASSERT_NE(font, nullptr);
    EXPECT_DOUBLE_EQ(font->number, 9.0);
    EXPECT_TRUE(font->Has("Bold"));
    EXPECT_EQ(ok->Property("BackColor")->rgb, 0xFFFFFFu);
    EXPECT_EQ(design.Find("lstItems")->listItems, (std::vector<std::string> { "One", "Two\r\nlines" }));
    // The comment's text sets nothing; the local variable is skipped.
    EXPECT_NE(form.Text("Text"), "a comment");
    ASSERT_EQ(design.Skipped().size(), 1u);
    EXPECT_NE(design.Skipped()[0].find("Dim"), std::string::npos);
}

TEST_F(DesignerCodeTest, CodeWithoutInitializeComponentGivesAnEmptyForm)
{
    WinFormDesign design = WinFormDesign::Read("public class Helper { void Run() { this.x = new Foo(); } }",
        DesignLanguage::CSharp);
    EXPECT_FALSE(design.HasInitializeComponent());
    EXPECT_EQ(design.FormClass(), "Helper");
    EXPECT_TRUE(design.Components().empty());
    EXPECT_TRUE(design.Form().controls.empty());
}

TEST_F(DesignerCodeTest, BrokenStatementsDoNotStopTheReading)
{
    const char* code = R"(class F { void InitializeComponent() {
        this.a = new System.Windows.Forms.Button();
        this.a.Location = new System.Drawing.Point(1, ;
        this.a.Text = ;
        this.a.Font = new System.Drawing.Font(this.Font);
        this.b = new System.Windows.Forms.Label();
        this.Controls.Add(this.b);
        this.Controls.Add(this.nothing);
        = 4;
        this.a.Size = new System.Drawing.Size(10, 20);
    } })";
    WinFormDesign design = WinFormDesign::Read(code, DesignLanguage::CSharp);
    ASSERT_NE(design.Find("a"), nullptr);
    EXPECT_EQ(design.Find("a")->Property("Location"), nullptr);
    ASSERT_NE(design.Find("b"), nullptr);
    ASSERT_EQ(design.Form().controls.size(), 1u);
    EXPECT_FALSE(design.Skipped().empty());
}

TEST_F(DesignerCodeTest, SplitContainersHaveTwoPanelsThatHoldControls)
{
    const char* code = R"(class F { void InitializeComponent() {
        this.split = new System.Windows.Forms.SplitContainer();
        this.tree = new System.Windows.Forms.TreeView();
        this.split.Panel1.Controls.Add(this.tree);
        this.split.Panel2.BackColor = System.Drawing.Color.White;
        this.split.SplitterDistance = 90;
        this.Controls.Add(this.split);
    } })";
    WinFormDesign design = WinFormDesign::Read(code, DesignLanguage::CSharp);
    DesignComponent* split = design.Find("split");
    ASSERT_EQ(split->controls.size(), 2u);
    EXPECT_EQ(split->controls[0]->type, "SplitterPanel");
    EXPECT_EQ(design.Find("tree")->parent, split->controls[0]);
    EXPECT_EQ(split->controls[1]->Property("BackColor")->rgb, 0xFFFFFFu);
    EXPECT_EQ(split->Number("SplitterDistance", 0), 90);
}

TEST_F(DesignerCodeTest, ADesignerFileIsReadInItsLanguage)
{
    test::TempFolder folder;
    std::string path = folder.Write("frmAbout.Designer.vb", std::string("\xEF\xBB\xBF") + kBasicDesigner);
    WinFormDesign design = WinFormDesign::Load(path);
    EXPECT_EQ(design.Form().Text("Text"), "About");
    EXPECT_THROW(WinFormDesign::Load(folder / "missing.Designer.cs"), ScrivError);
}

}  // namespace
}  // namespace scriv
