#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vb6/Vb6FormFile.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

// Test files are written as readable text: "\n" becomes CR LF as the IDE writes,
// <e> the windows-1252 byte of "é", <E> of "É", <euro> of "€".
std::string IdeBytes(std::string text)
{
    text = ReplaceAll(text, "\n", "\r\n");
    text = ReplaceAll(text, "<e>", "\xE9");
    text = ReplaceAll(text, "<E>", "\xC9");
    return ReplaceAll(text, "<euro>", "\x80");
}

const char* const kOrdersForm = R"VB(VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Object = "{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCT2.OCX"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Begin VB.Form frmOrders 
   BackColor       =   &H8000000F&
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Orders ""open"" <e> <euro>"
   ClientHeight    =   6135
   ClientLeft      =   45
   ClientTop       =   435
   ClientWidth     =   8760
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   -1  'True
      Strikethrough   =   0   'False
   EndProperty
   Icon            =   "frmOrders.frx":0000
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   ScaleHeight     =   6135
   ScaleWidth      =   8760
   StartUpPosition =   1  'CenterOwner
   Begin MSComctlLib.Toolbar tbrMain 
      Align           =   1  'Align Top
      Height          =   420
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   8760
      _ExtentX        =   15452
      _ExtentY        =   741
      ButtonWidth     =   609
      ButtonHeight    =   582
      _Version        =   393216
      BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} 
         NumButtons      =   3
         BeginProperty Button1 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "new"
            Object.ToolTipText     =   "New order"
            ImageIndex      =   1
         EndProperty
         BeginProperty Button2 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Style           =   3
         EndProperty
         BeginProperty Button3 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Key             =   "print"
            Object.ToolTipText     =   "Print"
            ImageIndex      =   2
         EndProperty
      EndProperty
   End
   Begin TabDlg.SSTab tabOrder 
      Height          =   4575
      Left            =   120
      TabIndex        =   1
      Top             =   600
      Width           =   8535
      _ExtentX        =   15055
      _ExtentY        =   8070
      _Version        =   393216
      Tabs            =   2
      TabHeight       =   520
      TabCaption(0)   =   "&General"
      TabPicture(0)   =   "frmOrders.frx":0442
      Tab(0).ControlEnabled=   -1  'True
      Tab(0).Control(0)=   "fraCustomer"
      Tab(0).Control(0).Enabled=   0   'False
      Tab(0).ControlCount=   1
      TabCaption(1)   =   "&Delivery"
      TabPicture(1)   =   "frmOrders.frx":045E
      Tab(1).ControlEnabled=   0   'False
      Tab(1).Control(0)=   "dtpDelivery"
      Tab(1).Control(1)=   "optShip(0)"
      Tab(1).Control(2)=   "optShip(1)"
      Tab(1).ControlCount=   3
      Begin VB.Frame fraCustomer 
         Caption         =   "Customer"
         Height          =   3855
         Left            =   120
         TabIndex        =   2
         Top             =   480
         Width           =   8295
         Begin VB.Frame fraAddress 
            Caption         =   "Address"
            Height          =   1815
            Left            =   120
            TabIndex        =   3
            Top             =   240
            Width           =   7935
            Begin VB.TextBox txtStreet 
               BackColor       =   &H00FFFFFF&
               Height          =   315
               Left            =   1200
               TabIndex        =   5
               Text            =   "Rue de l'<E>glise"
               Top             =   360
               Width           =   3000
            End
            Begin VB.Label lblStreet 
               BackStyle       =   0  'Transparent
               Caption         =   "&Street:"
               Height          =   255
               Left            =   120
               TabIndex        =   4
               Top             =   390
               Width           =   975
            End
         End
      End
      Begin MSComCtl2.DTPicker dtpDelivery 
         Height          =   315
         Left            =   -73800
         TabIndex        =   6
         Top             =   600
         Width           =   1695
         _ExtentX        =   2990
         _ExtentY        =   556
         _Version        =   393216
         Format          =   22085633
         CurrentDate     =   38000
      End
      Begin VB.OptionButton optShip 
         Caption         =   "By post"
         Height          =   255
         Index           =   1
         Left            =   -74760
         TabIndex        =   8
         Top             =   1440
         Width           =   2055
      End
      Begin VB.OptionButton optShip 
         Caption         =   "Collect"
         Height          =   255
         Index           =   0
         Left            =   -74760
         TabIndex        =   7
         Top             =   1080
         Value           =   -1  'True
         Width           =   2055
      End
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      HelpContextID   =   1200
      Left            =   6240
      TabIndex        =   9
      Top             =   5400
      Width           =   1095
   End
   Begin MSComDlg.CommonDialog dlgPrint 
      Left            =   120
      Top             =   5400
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
   End
   Begin VB.Label lblNote 
      Caption         =   $"frmOrders.frx":047A
      ForeColor       =   &H8000000D&
      Height          =   615
      Left            =   120
      TabIndex        =   10
      Top             =   5280
      Width           =   4095
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileSep1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpContents 
         Caption         =   "&Contents"
         Shortcut        =   {F1}
      End
   End
End
Attribute VB_Name = "frmOrders"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdOK_Click()
    ' Begin and End here are code, not description
    Unload Me
End Sub
)VB";

// The 1-based number of the first line of bytes that holds text.
int LineOf(const std::string& bytes, std::string_view text)
{
    std::size_t at = bytes.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    return 1 + static_cast<int>(std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

// The description of the ScrivError that reading bytes raises, or "" when none.
std::string ReadFault(const std::string& bytes, const std::string& path = "frmBad.frm")
{
    try {
        Vb6FormFile::Parse(bytes, path);
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kGeneralFailure);
        return error.Description();
    }
    return {};
}

class Vb6FormFileTest : public ::testing::Test {
protected:
    Vb6FormFileTest()
        : m_bytes(IdeBytes(kOrdersForm))
        , m_form(Vb6FormFile::Parse(m_bytes, "/apps/orders/frmOrders.frm"))
    {
    }

    const Vb6Block& Block(std::string_view name) const
    {
        const Vb6Block* block = m_form.Form().FindBlock(name);
        EXPECT_NE(block, nullptr) << name;
        return block ? *block : m_form.Form();
    }

    std::string m_bytes;
    Vb6FormFile m_form;
};

// --- reading a form ---

TEST_F(Vb6FormFileTest, TheHeaderGivesVersionObjectLinesAndKind)
{
    EXPECT_EQ(m_form.Version(), "5.00");
    EXPECT_EQ(m_form.Kind(), Vb6FormKind::Form);
    ASSERT_EQ(m_form.Objects().size(), 4u);
    EXPECT_EQ(m_form.Objects()[0].reference, "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0");
    EXPECT_EQ(m_form.Objects()[0].fileName, "TABCTL32.OCX");
    EXPECT_EQ(m_form.Objects()[3].fileName, "COMDLG32.OCX");
    EXPECT_EQ(m_form.Objects()[3].line, 5);
}

TEST_F(Vb6FormFileTest, TheFormsPropertiesReadAsTextNumberBooleanAndColour)
{
    const Vb6Block& form = m_form.Form();
    EXPECT_EQ(form.LibraryType(), "VB.Form");
    EXPECT_EQ(form.ShortType(), "Form");
    EXPECT_EQ(form.Name(), "frmOrders");
    EXPECT_EQ(form.Parent(), nullptr);
    // Doubled quotes undone, windows-1252 decoded.
    EXPECT_EQ(form.Text("Caption"), "Orders \"open\" \xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(form.Number("ClientWidth"), 8760);
    EXPECT_EQ(form.Number("BorderStyle"), 3);
    EXPECT_EQ(form.FindProperty("BorderStyle")->comment, "Fixed Dialog");
    EXPECT_FALSE(form.Boolean("MaxButton", true));
    EXPECT_EQ(form.Colour("BackColor"), 0x8000000Fu);
    // The same value as a VB Long.
    EXPECT_EQ(form.Number("BackColor"), -2147483633.0);
    // Names are found without regard to case; properties keep file order.
    EXPECT_EQ(form.Number("startupposition"), 1);
    EXPECT_EQ(form.Properties().front().name, "BackColor");
    EXPECT_EQ(form.Properties().back().name, "StartUpPosition");
    EXPECT_EQ(form.FindProperty("ClientHeight")->line, LineOf(m_bytes, "ClientHeight"));
}

TEST_F(Vb6FormFileTest, AbsentPropertiesGiveTheirDefaults)
{
    const Vb6Block& form = m_form.Form();
    EXPECT_EQ(form.Text("HelpContextID", "none"), "none");
    EXPECT_EQ(form.Number("HelpContextID", 7), 7);
    EXPECT_TRUE(form.Boolean("Visible", true));
    EXPECT_EQ(form.Colour("ForeColor", 0x80000012u), 0x80000012u);
    // A value of another kind gives the default too.
    EXPECT_EQ(form.Number("LinkTopic", -1), -1);
    EXPECT_EQ(form.Colour("Caption", 5u), 5u);
}

TEST_F(Vb6FormFileTest, FontGroupsHoldTheirOwnProperties)
{
    const Vb6PropertyGroup* font = m_form.Form().FindGroup("Font");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->ClassId(), "");
    EXPECT_EQ(font->Text("Name"), "Tahoma");
    EXPECT_DOUBLE_EQ(font->Number("Size"), 8.25);
    EXPECT_TRUE(font->Boolean("Italic"));
    EXPECT_FALSE(font->Boolean("Underline", true));
    EXPECT_EQ(font->BeginLine(), LineOf(m_bytes, "BeginProperty Font"));
    EXPECT_EQ(font->EndLine(), font->BeginLine() + 8);
    // The font's Name is not the form's.
    EXPECT_FALSE(m_form.Form().HasProperty("Size"));
}

TEST_F(Vb6FormFileTest, FrxReferencesAreKeptAndHaveNoText)
{
    const Vb6Property* icon = m_form.Form().FindProperty("Icon");
    ASSERT_NE(icon, nullptr);
    ASSERT_TRUE(icon->Frx());
    EXPECT_EQ(icon->Frx()->fileName, "frmOrders.frx");
    EXPECT_EQ(icon->Frx()->offset, 0u);
    EXPECT_FALSE(icon->Frx()->isText);
    EXPECT_FALSE(icon->Text());
    const Vb6Property* note = Block("lblNote").FindProperty("Caption");
    ASSERT_TRUE(note && note->Frx());
    EXPECT_TRUE(note->Frx()->isText);
    EXPECT_EQ(note->Frx()->offset, 0x47Au);
    EXPECT_EQ(note->value, "$\"frmOrders.frx\":047A");
    EXPECT_EQ(Block("lblNote").Text("Caption", "(in frx)"), "(in frx)");
    EXPECT_FALSE(m_form.Form().FindProperty("LinkTopic")->Frx());
}

TEST_F(Vb6FormFileTest, ControlsNestInFileOrderWithTheirParents)
{
    std::vector<std::string> names;
    for (const auto& child : m_form.Form().Children())
        names.push_back(child->Name());
    EXPECT_EQ(names, (std::vector<std::string> { "tbrMain", "tabOrder", "cmdOK", "dlgPrint", "lblNote", "mnuFile", "mnuHelp" }));
    const Vb6Block& street = Block("txtStreet");
    EXPECT_EQ(street.ShortType(), "TextBox");
    ASSERT_NE(street.Parent(), nullptr);
    EXPECT_EQ(street.Parent()->Name(), "fraAddress");
    EXPECT_EQ(street.Parent()->Parent()->Name(), "fraCustomer");
    EXPECT_EQ(street.Parent()->Parent()->Parent()->LibraryType(), "TabDlg.SSTab");
    EXPECT_EQ(street.Parent()->Parent()->Parent()->Parent(), &m_form.Form());
    EXPECT_EQ(street.BeginLine(), LineOf(m_bytes, "Begin VB.TextBox txtStreet"));
    EXPECT_EQ(street.EndLine(), street.BeginLine() + 8);
    // An apostrophe inside a string is text, not a comment.
    EXPECT_EQ(street.Text("Text"), "Rue de l'\xC3\x89glise");
    EXPECT_EQ(street.FindProperty("Text")->comment, "");
    EXPECT_EQ(street.Colour("BackColor"), 0x00FFFFFFu);
    EXPECT_EQ(Block("lblNote").Colour("ForeColor"), 0x8000000Du);
    EXPECT_EQ(Block("dtpDelivery").ShortType(), "DTPicker");
    EXPECT_EQ(Block("dlgPrint").LibraryType(), "MSComDlg.CommonDialog");
    EXPECT_EQ(m_form.Form().Descendants().size(), 18u);
}

TEST_F(Vb6FormFileTest, ATabControlListsTheControlsOfEachPage)
{
    const Vb6Block& tab = Block("tabOrder");
    EXPECT_EQ(tab.Number("Tabs"), 2);
    EXPECT_EQ(tab.Text("TabCaption(1)"), "&Delivery");
    EXPECT_TRUE(tab.Boolean("Tab(0).ControlEnabled"));
    EXPECT_FALSE(tab.Boolean("Tab(0).Control(0).Enabled", true));
    EXPECT_EQ(tab.TabPageControlNames(0), std::vector<std::string> { "fraCustomer" });
    EXPECT_EQ(tab.TabPageControlNames(1), (std::vector<std::string> { "dtpDelivery", "optShip(0)", "optShip(1)" }));
    EXPECT_TRUE(tab.TabPageControlNames(2).empty());
    // Controls of a page other than the design-time one stand far to the left.
    EXPECT_EQ(Block("dtpDelivery").Number("Left"), -73800);
    EXPECT_EQ(Block("dtpDelivery").Number("Format"), 22085633);
}

TEST_F(Vb6FormFileTest, ToolbarButtonsAreNestedGroups)
{
    const Vb6Block& toolbar = Block("tbrMain");
    EXPECT_EQ(toolbar.Number("ButtonWidth"), 609);
    const Vb6PropertyGroup* buttons = toolbar.FindGroup("Buttons");
    ASSERT_NE(buttons, nullptr);
    EXPECT_EQ(buttons->ClassId(), "{66833FE8-8583-11D1-B16A-00C0F0283628}");
    EXPECT_EQ(buttons->Number("NumButtons"), 3);
    ASSERT_EQ(buttons->Groups().size(), 3u);
    EXPECT_EQ(buttons->Groups()[1]->Name(), "Button2");
    EXPECT_EQ(buttons->Groups()[1]->Number("Style"), 3);
    const Vb6PropertyGroup* print = buttons->FindGroup("Button3");
    ASSERT_NE(print, nullptr);
    EXPECT_EQ(print->Text("Object.ToolTipText"), "Print");
    EXPECT_EQ(print->Text("Key"), "print");
    // A nested group is not the toolbar's own.
    EXPECT_EQ(toolbar.FindGroup("Button1"), nullptr);
    EXPECT_EQ(toolbar.Groups().size(), 1u);
}

TEST_F(Vb6FormFileTest, MenusNestAndSeparatorsAreKnown)
{
    const Vb6Block& file = Block("mnuFile");
    EXPECT_TRUE(file.IsMenu());
    EXPECT_FALSE(file.IsSeparator());
    ASSERT_EQ(file.Children().size(), 3u);
    EXPECT_EQ(file.Children()[0]->Text("Shortcut"), "^N");
    EXPECT_TRUE(file.Children()[1]->IsSeparator());
    EXPECT_EQ(file.Children()[2]->Text("Caption"), "E&xit");
    EXPECT_EQ(Block("mnuHelpContents").Text("Shortcut"), "{F1}");
    EXPECT_EQ(Block("mnuHelpContents").Parent()->Name(), "mnuHelp");
    EXPECT_FALSE(Block("cmdOK").IsMenu());
}

TEST_F(Vb6FormFileTest, ControlArrayMembersAreToldApartByIndex)
{
    const Vb6Block* collect = m_form.Form().FindBlock("optShip", 0);
    const Vb6Block* post = m_form.Form().FindBlock("OPTSHIP", 1);
    ASSERT_TRUE(collect && post);
    EXPECT_NE(collect, post);
    EXPECT_EQ(collect->Text("Caption"), "Collect");
    EXPECT_EQ(collect->IndexedName(), "optShip(0)");
    EXPECT_TRUE(collect->Boolean("Value"));
    EXPECT_EQ(post->IndexedName(), "optShip(1)");
    EXPECT_EQ(m_form.Form().FindBlock("optShip", 2), nullptr);
    EXPECT_EQ(Block("cmdOK").Index(), std::nullopt);
    EXPECT_EQ(Block("cmdOK").IndexedName(), "cmdOK");
}

TEST_F(Vb6FormFileTest, AttributesAndCodeFollowTheDescription)
{
    ASSERT_EQ(m_form.Attributes().size(), 5u);
    EXPECT_EQ(m_form.Attribute("VB_Name"), "frmOrders");
    EXPECT_EQ(m_form.Attribute("vb_predeclaredid"), "True");
    EXPECT_EQ(m_form.Attributes()[0].value, "\"frmOrders\"");
    EXPECT_EQ(m_form.Attribute("VB_Missing"), "");
    EXPECT_EQ(m_form.Form().EndLine(), LineOf(m_bytes, "Attribute VB_Name") - 1);
    EXPECT_EQ(m_form.CodeLine(), LineOf(m_bytes, "Option Explicit"));
    std::string code = m_form.Code();
    EXPECT_EQ(code.rfind("Option Explicit\r\n\r\nPrivate Sub cmdOK_Click()\r\n", 0), 0u);
    EXPECT_NE(code.find("End Sub\r\n"), std::string::npos);
}

TEST_F(Vb6FormFileTest, FilesOnDiskAreReadInTheSystemCodePage)
{
    test::TempFolder folder;
    std::string path = folder.Write("frmOrders.frm", m_bytes);
    Vb6FormFile loaded = Vb6FormFile::Load(path);
    EXPECT_EQ(loaded.Path(), path);
    EXPECT_EQ(loaded.Bytes(), m_bytes);
    EXPECT_EQ(loaded.Form().Text("Caption"), m_form.Form().Text("Caption"));
    EXPECT_THROW(Vb6FormFile::Load(folder / "frmMissing.frm"), ScrivError);
}

// --- other kinds of form file ---

TEST(Vb6FormKindTest, UserControlsDocumentsPagesAndMdiFormsAreForms)
{
    std::string control = IdeBytes(R"VB(VERSION 5.00
Begin VB.UserControl ctlDate 
   ClientHeight    =   375
   ClientWidth     =   1815
   ScaleHeight     =   375
   ScaleWidth      =   1815
   ToolboxBitmap   =   "ctlDate.ctx":0000
   Begin VB.TextBox txtDay 
      Height          =   315
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   495
   End
End
Attribute VB_Name = "ctlDate"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Option Explicit
Public Property Get Value() As Date
Attribute Value.VB_UserMemId = 0
End Property
)VB");
    Vb6FormFile file = Vb6FormFile::Parse(control, "ctlDate.ctl");
    EXPECT_EQ(file.Kind(), Vb6FormKind::UserControl);
    EXPECT_EQ(file.Form().ShortType(), "UserControl");
    EXPECT_EQ(file.Form().Children().at(0)->Name(), "txtDay");
    EXPECT_EQ(file.Form().FindProperty("ToolboxBitmap")->Frx()->fileName, "ctlDate.ctx");
    EXPECT_EQ(file.Attribute("VB_Exposed"), "True");
    // An Attribute line inside the code is code.
    EXPECT_EQ(file.Attributes().size(), 5u);
    EXPECT_NE(file.Code().find("Attribute Value.VB_UserMemId = 0"), std::string::npos);

    auto kindOf = [](const std::string& top) {
        return Vb6FormFile::Parse(IdeBytes("VERSION 5.00\n" + top + "\nEnd\n"), "x.frm").Kind();
    };
    EXPECT_EQ(kindOf("Begin VB.MDIForm mdiMain "), Vb6FormKind::MDIForm);
    EXPECT_EQ(kindOf("Begin VB.UserDocument docOrder "), Vb6FormKind::UserDocument);
    EXPECT_EQ(kindOf("Begin VB.PropertyPage ppgGeneral "), Vb6FormKind::PropertyPage);
}

const char* const kDesigner = R"VB(VERSION 5.00
Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} deOrders 
   ClientHeight    =   6660
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   9480
   _ExtentX        =   16722
   _ExtentY        =   11748
   FolderFlags     =   1
   TypeLibGuid     =   "{6B8E0C0A-1F4B-4F1C-9A0B-3C4B1B2C9D10}"
   Begin {78E93846-85FD-11D0-8487-00A0C90DC8A9} Connection1 
      ConnectionSource=   "Provider=Microsoft.Jet.OLEDB.4.0"
      this line is kept as it stands
   End
End
Attribute VB_Name = "deOrders"
Attribute VB_GlobalNameSpace = False
)VB";

TEST(Vb6DesignerTest, ADesignersHeaderIsReadAndTheRestKept)
{
    std::string bytes = IdeBytes(kDesigner);
    Vb6FormFile file = Vb6FormFile::Parse(bytes, "deOrders.dsr");
    EXPECT_EQ(file.Kind(), Vb6FormKind::Designer);
    EXPECT_EQ(file.Form().LibraryType(), "{C0E45035-5775-11D0-B388-00A0C9055D8E}");
    EXPECT_EQ(file.Form().ShortType(), file.Form().LibraryType());
    EXPECT_EQ(file.Form().Name(), "deOrders");
    EXPECT_EQ(file.Form().Number("ClientWidth"), 9480);
    EXPECT_EQ(file.Form().Properties().size(), 8u);
    EXPECT_TRUE(file.Form().Children().empty());
    EXPECT_EQ(file.Form().EndLine(), 15);
    EXPECT_EQ(file.Attribute("VB_Name"), "deOrders");

    // A new property goes ahead of the nested part, which stays byte for byte.
    EXPECT_TRUE(file.SetFormProperty("HelpContextID", "40"));
    EXPECT_EQ(file.Bytes(), ReplaceFirst(bytes, "   Begin {78E93846", "   HelpContextID   =   40\r\n   Begin {78E93846"));
    EXPECT_EQ(file.Form().EndLine(), 16);
}

TEST(Vb6DesignerTest, ADesignerWithoutEndAtTheMarginIsNeverClosed)
{
    std::string bytes = IdeBytes("VERSION 5.00\nBegin {C0E45035-5775-11D0-B388-00A0C9055D8E} de1 \n   A = 1\n   Begin {X} y\n   End\n");
    std::string fault = ReadFault(bytes, "de1.dsr");
    EXPECT_EQ(fault.rfind("de1.dsr(2): ", 0), 0u) << fault;
    EXPECT_NE(fault.find("never closed"), std::string::npos);
}

// --- faults name the file and the line ---

TEST(Vb6FormFaultTest, AFileThatIsNoFormFileIsRefusedAtItsFirstLine)
{
    EXPECT_EQ(ReadFault("Hello there\r\n").rfind("frmBad.frm(1): ", 0), 0u);
    EXPECT_EQ(ReadFault("").rfind("frmBad.frm(1): ", 0), 0u);
    EXPECT_EQ(ReadFault("\r\n\r\nType=Exe\r\n").rfind("frmBad.frm(3): ", 0), 0u);
    EXPECT_EQ(ReadFault("VERSION\r\nBegin VB.Form f\r\nEnd\r\n").rfind("frmBad.frm(1): ", 0), 0u);
    // The path's folder is left out of the message.
    EXPECT_EQ(ReadFault("x", "/apps/orders/frmMain.frm").rfind("frmMain.frm(1): ", 0), 0u);
}

TEST(Vb6FormFaultTest, AnUnknownLineBeforeTheFormIsNamed)
{
    std::string fault = ReadFault(IdeBytes("VERSION 5.00\nObject = \"{A}#1.0#0\"; \"A.OCX\"\nReference = 1\nBegin VB.Form f\nEnd\n"));
    EXPECT_EQ(fault.rfind("frmBad.frm(3): ", 0), 0u) << fault;
    EXPECT_NE(fault.find("Reference = 1"), std::string::npos);
    EXPECT_EQ(ReadFault(IdeBytes("VERSION 5.00\nObject = {A}\nBegin VB.Form f\nEnd\n")).rfind("frmBad.frm(2): ", 0), 0u);
    EXPECT_EQ(ReadFault(IdeBytes("VERSION 5.00\nObject = \"{A}\"; A.OCX\nBegin VB.Form f\nEnd\n")).rfind("frmBad.frm(2): ", 0), 0u);
    EXPECT_EQ(ReadFault(IdeBytes("VERSION 5.00\n\n")).rfind("frmBad.frm(2): ", 0), 0u);
}

TEST(Vb6FormFaultTest, ATopBlockThatIsNoFormIsRefused)
{
    std::string fault = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.TextBox Text1\nEnd\n"));
    EXPECT_EQ(fault.rfind("frmBad.frm(2): ", 0), 0u) << fault;
    EXPECT_EQ(ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form\nEnd\n")).rfind("frmBad.frm(2): ", 0), 0u);
}

TEST(Vb6FormFaultTest, ABlockThatIsNeverClosedIsNamedAtItsBegin)
{
    std::string fault = ReadFault(IdeBytes(R"VB(VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Main"
   Begin VB.Frame Frame1 
      Begin VB.CommandButton Command1 
         Caption         =   "Go"
      End
End
)VB"));
    EXPECT_EQ(fault.rfind("frmBad.frm(2): ", 0), 0u) << fault;
    EXPECT_NE(fault.find("Begin VB.Form frmMain"), std::string::npos);
    fault = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form f\n   Begin VB.Frame Frame1\n"));
    EXPECT_EQ(fault.rfind("frmBad.frm(3): ", 0), 0u) << fault;
    EXPECT_NE(fault.find("never closed"), std::string::npos);
    fault = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form f\n   BeginProperty Font\n      Size = 8\nEnd\n"));
    EXPECT_EQ(fault.rfind("frmBad.frm(5): ", 0), 0u) << fault;
}

TEST(Vb6FormFaultTest, LinesThatCannotBeReadAreNamed)
{
    auto faultAtLine3 = [](const std::string& line) {
        std::string fault = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form f\n" + line + "\nEnd\n"));
        EXPECT_EQ(fault.rfind("frmBad.frm(3): ", 0), 0u) << line << " gives " << fault;
        return fault;
    };
    EXPECT_NE(faultAtLine3("   Caption \"Main\"").find("no \"=\""), std::string::npos);
    faultAtLine3("   Caption = \"Main");
    faultAtLine3("   Caption = \"Main\" extra");
    faultAtLine3("   Picture = \"f.frx\":");
    faultAtLine3("   Two Words = 1");
    faultAtLine3("   EndProperty");
    faultAtLine3("   Begin VB.Label");
    faultAtLine3("   End now");
    faultAtLine3("   BeginProperty Font {A} extra");
    // Names and types are identifiers; anything else would be carried into the descriptions.
    EXPECT_NE(faultAtLine3("   Begin MSComctlLib.Toolbar, tbr").find("no control type"), std::string::npos);
    EXPECT_NE(faultAtLine3("   Begin VB.Label 1st").find("no control name"), std::string::npos);
    faultAtLine3("   Begin VB..Label lbl");
    faultAtLine3("   Begin VB.Label lbl<x>");
    std::string attribute = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form f\nEnd\nAttribute VB_Name\n"));
    EXPECT_EQ(attribute.rfind("frmBad.frm(4): ", 0), 0u) << attribute;
}

TEST(Vb6FormFaultTest, ABeginInsideAPropertyGroupIsRefused)
{
    std::string fault = ReadFault(IdeBytes("VERSION 5.00\nBegin VB.Form f\n   BeginProperty Font\n   Begin VB.Label l\n   End\n   EndProperty\nEnd\n"));
    EXPECT_EQ(fault.rfind("frmBad.frm(4): ", 0), 0u) << fault;
}

TEST(Vb6FormFaultTest, NestingBeyondAnyRealFormIsRefusedWithoutExhaustingTheStack)
{
    std::string bytes = "VERSION 5.00\r\nBegin VB.Form f\r\n";
    for (int i = 0; i < 100000; ++i)
        bytes += "Begin VB.Frame x\r\n";
    std::string fault = ReadFault(bytes);
    EXPECT_EQ(fault.rfind("frmBad.frm(102): ", 0), 0u) << fault.substr(0, 80);
}

// --- writing back ---

class Vb6FormWriteTest : public Vb6FormFileTest {
protected:
    std::string Save(const std::string& bytes)
    {
        m_path = m_folder.Write("frmOrders.frm", bytes);
        return m_path;
    }

    test::TempFolder m_folder;
    std::string m_path;
};

TEST_F(Vb6FormWriteTest, AnAbsentHelpContextIdIsAddedAheadOfTheFirstGroup)
{
    Vb6FormFile file = Vb6FormFile::Load(Save(m_bytes));
    int iconLine = file.Form().FindProperty("Icon")->line;
    int okLine = file.Form().FindBlock("cmdOK")->BeginLine();
    EXPECT_TRUE(file.SetFormProperty("HelpContextID", "17"));
    EXPECT_TRUE(file.IsDirty());
    std::string expected = ReplaceFirst(m_bytes, "   BeginProperty Font", "   HelpContextID   =   17\r\n   BeginProperty Font");
    EXPECT_EQ(file.Bytes(), expected);
    // What follows has moved down a line, and the new property reads back.
    EXPECT_EQ(file.Form().Number("HelpContextID"), 17);
    EXPECT_EQ(file.Form().FindProperty("HelpContextID")->line, LineOf(expected, "HelpContextID   =   17"));
    EXPECT_EQ(file.Form().FindProperty("Icon")->line, iconLine + 1);
    EXPECT_EQ(file.Form().FindBlock("cmdOK")->BeginLine(), okLine + 1);
    EXPECT_EQ(file.Form().FindBlock("cmdOK")->Number("HelpContextID"), 1200);
    EXPECT_EQ(file.Attributes()[0].line, LineOf(expected, "Attribute VB_Name"));
    EXPECT_EQ(file.CodeLine(), LineOf(expected, "Option Explicit"));
    EXPECT_EQ(file.Form().FindGroup("Font")->BeginLine(), LineOf(expected, "BeginProperty Font"));

    EXPECT_TRUE(file.Save());
    EXPECT_FALSE(file.IsDirty());
    EXPECT_EQ(m_folder.Read("frmOrders.frm"), expected);
    // Written through a temporary file that does not stay behind.
    EXPECT_EQ(ListFiles(m_folder.Path()), std::vector<std::string> { "frmOrders.frm" });
    // Changing the new line again changes just its value.
    EXPECT_TRUE(file.SetFormProperty("HelpContextID", "18"));
    EXPECT_EQ(file.Bytes(), ReplaceFirst(expected, "HelpContextID   =   17\r\n", "HelpContextID   =   18\r\n"));
}

TEST_F(Vb6FormWriteTest, AnExistingLineChangesOnlyItsValue)
{
    std::string bytes = ReplaceFirst(m_bytes, "   Icon ", "   HelpContextID   =   5\r\n   Icon ");
    Vb6FormFile file = Vb6FormFile::Parse(bytes, Save(bytes));
    EXPECT_TRUE(file.SetFormProperty("helpcontextid", "2040"));
    std::string expected = ReplaceFirst(bytes, "HelpContextID   =   5\r\n", "HelpContextID   =   2040\r\n");
    EXPECT_EQ(file.Bytes(), expected);
    EXPECT_TRUE(file.Save());
    EXPECT_EQ(m_folder.Read("frmOrders.frm"), expected);
    // A control's HelpContextID is its own.
    EXPECT_EQ(file.Form().FindBlock("cmdOK")->Number("HelpContextID"), 1200);
}

TEST_F(Vb6FormWriteTest, NothingIsWrittenWhenNothingChanged)
{
    Vb6FormFile file = Vb6FormFile::Load(Save(m_bytes));
    EXPECT_FALSE(file.SetFormProperty("ClientWidth", "8760"));
    EXPECT_FALSE(file.SetProperty(*file.Form().FindBlock("cmdOK"), "HelpContextID", "1200"));
    EXPECT_FALSE(file.IsDirty());
    ASSERT_TRUE(DeleteFileIfExists(m_path));
    EXPECT_FALSE(file.Save());
    EXPECT_FALSE(FileExists(m_path));
}

TEST_F(Vb6FormWriteTest, AControlsPropertyCanBeWrittenToo)
{
    Vb6FormFile file = Vb6FormFile::Parse(m_bytes, Save(m_bytes));
    EXPECT_TRUE(file.SetProperty(*file.Form().FindBlock("cmdOK"), "HelpContextID", "1300"));
    EXPECT_TRUE(file.SetProperty(*file.Form().FindBlock("optShip", 0), "HelpContextID", "1400"));
    std::string expected = ReplaceFirst(m_bytes, "HelpContextID   =   1200", "HelpContextID   =   1300");
    expected = ReplaceFirst(expected, "         Value           =   -1  'True\r\n         Width           =   2055\r\n",
        "         Value           =   -1  'True\r\n         Width           =   2055\r\n         HelpContextID   =   1400\r\n");
    EXPECT_EQ(file.Bytes(), expected);
    EXPECT_EQ(file.Form().FindBlock("optShip", 0)->Number("HelpContextID"), 1400);
    EXPECT_EQ(file.Form().FindBlock("optShip", 0)->EndLine(), LineOf(expected, "HelpContextID   =   1400") + 1);
}

TEST_F(Vb6FormWriteTest, AFormWithoutNestedBlocksGetsTheLineBeforeItsEnd)
{
    std::string bytes = IdeBytes("VERSION 5.00\nBegin VB.Form frmAbout \n   Caption         =   \"About\"\n   ClientHeight    =   3000\nEnd\nAttribute VB_Name = \"frmAbout\"\n");
    Vb6FormFile file = Vb6FormFile::Parse(bytes, "frmAbout.frm");
    EXPECT_TRUE(file.SetFormProperty("HelpContextID", "3"));
    EXPECT_EQ(file.Bytes(), ReplaceFirst(bytes, "3000\r\nEnd", "3000\r\n   HelpContextID   =   3\r\nEnd"));
    EXPECT_EQ(file.Form().EndLine(), 6);
}

TEST_F(Vb6FormWriteTest, ANewLineFollowsTheLayoutAndLineEndsOfItsNeighbours)
{
    // Names padded to 11, one blank after "=", LF line ends.
    std::string bytes = "VERSION 5.00\nBegin VB.Form f\n  Caption    = \"x\"\n  Tab(0).ControlCount= 1\n  Begin VB.Label l\n  End\nEnd\n";
    Vb6FormFile file = Vb6FormFile::Parse(bytes, "f.frm");
    EXPECT_TRUE(file.SetFormProperty("HelpContextID", "9"));
    EXPECT_TRUE(file.SetFormProperty("WhatsThisHelp", Vb6FormFile::BooleanValue(true)));
    EXPECT_EQ(file.Bytes(), ReplaceFirst(bytes, "  Begin VB.Label", "  HelpContextID= 9\n  WhatsThisHelp= -1  'True\n  Begin VB.Label"));
    EXPECT_TRUE(file.Form().Boolean("WhatsThisHelp"));
    EXPECT_EQ(file.Form().FindProperty("WhatsThisHelp")->comment, "True");
    // With no neighbour, the IDE's layout.
    Vb6FormFile bare = Vb6FormFile::Parse(IdeBytes("VERSION 5.00\nBegin VB.Form f\nEnd\n"), "f.frm");
    EXPECT_TRUE(bare.SetFormProperty("Caption", Vb6FormFile::TextValue("Say \"hi\"")));
    EXPECT_EQ(bare.Bytes(), IdeBytes("VERSION 5.00\nBegin VB.Form f\n   Caption         =   \"Say \"\"hi\"\"\"\nEnd\n"));
    EXPECT_EQ(bare.Form().Text("Caption"), "Say \"hi\"");
}

TEST_F(Vb6FormWriteTest, AChangedLineIsWrittenInWindows1252AndOtherBytesStayRaw)
{
    // 0x81 is no character of windows-1252: it must survive untouched.
    std::string bytes = m_bytes + "' odd byte \x81 in a comment\r\n";
    Vb6FormFile file = Vb6FormFile::Parse(bytes, Save(bytes));
    EXPECT_TRUE(file.SetProperty(*file.Form().FindBlock("lblStreet"), "Caption", Vb6FormFile::TextValue("&Stra\xC3\x9F" "e \xE2\x82\xAC")));
    std::string expected = ReplaceFirst(bytes, "\"&Street:\"", "\"&Stra\xDF" "e \x80\"");
    EXPECT_EQ(file.Bytes(), expected);
    EXPECT_EQ(file.Form().FindBlock("lblStreet")->Text("Caption"), "&Stra\xC3\x9F" "e \xE2\x82\xAC");
    EXPECT_TRUE(file.Save());
    EXPECT_EQ(m_folder.Read("frmOrders.frm"), expected);
    EXPECT_EQ(Vb6FormFile::Load(m_path).Form().FindBlock("lblStreet")->Text("Caption"), "&Stra\xC3\x9F" "e \xE2\x82\xAC");
}

TEST_F(Vb6FormWriteTest, ValuesThatWouldNotReadBackAreRefusedAndChangeNothing)
{
    Vb6FormFile file = Vb6FormFile::Parse(m_bytes, "frmOrders.frm");
    EXPECT_THROW(file.SetFormProperty("Caption", "\"open"), ScrivError);
    EXPECT_THROW(file.SetFormProperty("Caption", "\"a\"\r\n   Visible = 0"), ScrivError);
    EXPECT_THROW(file.SetFormProperty("Help Id", "1"), ScrivError);
    EXPECT_THROW(file.SetFormProperty("A=B", "1"), ScrivError);
    EXPECT_THROW(file.SetFormProperty("", "1"), ScrivError);
    EXPECT_EQ(file.Bytes(), m_bytes);
    EXPECT_FALSE(file.IsDirty());
    // A block of another file is not this file's to change.
    EXPECT_THROW(file.SetProperty(m_form.Form(), "HelpContextID", "1"), ScrivError);
    // A file made from bytes alone has nowhere to go.
    Vb6FormFile unnamed = Vb6FormFile::Parse(m_bytes, "");
    unnamed.SetFormProperty("HelpContextID", "1");
    EXPECT_THROW(unnamed.Save(), ScrivError);
}

}  // namespace
}  // namespace scriv
