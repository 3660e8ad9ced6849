#include <gtest/gtest.h>

#include <string>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/CSourceProjectVB6.h"
#include "host/vb6/Vb6GroupFile.h"
#include "host/vb6/Vb6ProjectFile.h"
#include "host/vb6/clsProject.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

// "\n" becomes CR LF as the IDE writes, <e> the windows-1252 byte of "é".
std::string IdeBytes(std::string text)
{
    return ReplaceAll(ReplaceAll(text, "\n", "\r\n"), "<e>", "\xE9");
}

const char* const kOrdersProject = R"VB(Type=Exe
Reference=*\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\..\Windows\System32\stdole2.tlb#OLE Automation
Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX
Form=frmOrders.frm
Form=..\shared\frmAbout.frm
Module=modMain; modMain.bas
Class=clsOrder; Classes\clsOrder.cls
UserControl=ctlDate.ctl
UserDocument=docOrder.dob
PropertyPage=ppgGeneral.pag
Designer=deOrders.dsr
Startup="frmOrders"
HelpFile=""
Title="Commandes r<e>gionales"
ExeName32="Orders.exe"
Command32=""
Name="Orders"
HelpContextID="0"
Description="Order entry"
CompatibleMode="0"
MajorVer=2
MinorVer=1
RevisionVer=14
AutoIncrementVer=0
ServerSupportFiles=0
CompilationType=0

[MS Transaction Server]
AutoRefresh=1
Name="not the project's"
)VB";

class Vb6ProjectFileTest : public ::testing::Test {
protected:
    std::string WriteProject(const std::string& bytes) { return m_root.Write("app/Orders.vbp", bytes); }

    test::TempFolder m_root;
    std::string m_bytes { IdeBytes(kOrdersProject) };
};

// --- reading ---

TEST_F(Vb6ProjectFileTest, TheCommonEntriesAreReadWithoutTheirQuotes)
{
    Vb6ProjectFile project = Vb6ProjectFile::Load(WriteProject(m_bytes));
    EXPECT_EQ(project.Type(), "Exe");
    EXPECT_EQ(project.Name(), "Orders");
    EXPECT_EQ(project.Title(), "Commandes r\xC3\xA9gionales");
    EXPECT_EQ(project.HelpFile(), "");
    EXPECT_EQ(project.ExeName32(), "Orders.exe");
    EXPECT_EQ(project.Startup(), "frmOrders");
    EXPECT_EQ(project.MajorVer(), "2");
    EXPECT_EQ(project.MinorVer(), "1");
    EXPECT_EQ(project.RevisionVer(), "14");
    EXPECT_EQ(project.Value("description"), "Order entry");
    EXPECT_EQ(project.Value("Missing", "none"), "none");
    EXPECT_EQ(project.Folder(), m_root.Path() + "app/");
    ASSERT_NE(project.FindEntry("HelpFile"), nullptr);
    EXPECT_EQ(project.FindEntry("HelpFile")->line, 13);
    EXPECT_EQ(project.FindEntry("HelpFile")->value, "\"\"");
}

TEST_F(Vb6ProjectFileTest, LaterSectionsAreEntriesOfTheirOwn)
{
    Vb6ProjectFile project = Vb6ProjectFile::Parse(m_bytes, "/apps/app/Orders.vbp");
    const Vb6ProjectEntry& last = project.Entries().back();
    EXPECT_EQ(last.section, "MS Transaction Server");
    EXPECT_EQ(last.key, "Name");
    EXPECT_EQ(last.Text(), "not the project's");
    EXPECT_EQ(project.Name(), "Orders");
    EXPECT_EQ(project.Entries().front().section, "");
}

TEST_F(Vb6ProjectFileTest, ComponentsComeInFileOrderWithResolvedPaths)
{
    Vb6ProjectFile project = Vb6ProjectFile::Parse(m_bytes, "/apps/app/Orders.vbp");
    const auto& components = project.Components();
    ASSERT_EQ(components.size(), 8u);
    EXPECT_EQ(components[0].kind, Vb6ComponentKind::Form);
    EXPECT_EQ(components[0].fullPath, "/apps/app/frmOrders.frm");
    EXPECT_EQ(components[0].line, 4);
    EXPECT_EQ(components[1].relativePath, "..\\shared\\frmAbout.frm");
    EXPECT_EQ(components[1].fullPath, "/apps/shared/frmAbout.frm");
    EXPECT_EQ(components[2].kind, Vb6ComponentKind::Module);
    EXPECT_EQ(components[2].name, "modMain");
    EXPECT_EQ(components[2].relativePath, "modMain.bas");
    EXPECT_EQ(components[3].kind, Vb6ComponentKind::Class);
    EXPECT_EQ(components[3].name, "clsOrder");
    EXPECT_EQ(components[3].fullPath, "/apps/app/Classes/clsOrder.cls");
    EXPECT_EQ(components[4].kind, Vb6ComponentKind::UserControl);
    EXPECT_EQ(components[5].kind, Vb6ComponentKind::UserDocument);
    EXPECT_EQ(components[6].kind, Vb6ComponentKind::PropertyPage);
    EXPECT_EQ(components[7].kind, Vb6ComponentKind::Designer);
    EXPECT_EQ(components[7].name, "");
    EXPECT_EQ(components[7].fullPath, "/apps/app/deOrders.dsr");
}

TEST_F(Vb6ProjectFileTest, AProjectFileThatCannotBeReadRaises)
{
    EXPECT_THROW(Vb6ProjectFile::Load(m_root / "Missing.vbp"), ScrivError);
}

// --- writing HelpFile back ---

TEST_F(Vb6ProjectFileTest, AnExistingHelpFileLineIsReplacedAndNothingElse)
{
    std::string path = WriteProject(m_bytes);
    Vb6ProjectFile project = Vb6ProjectFile::Load(path);
    EXPECT_TRUE(project.SetHelpFile("/home/me/help/Orders.chm"));
    std::string expected = ReplaceFirst(m_bytes, "HelpFile=\"\"\r\n", "HelpFile=\"Orders.chm\"\r\n");
    EXPECT_EQ(project.Bytes(), expected);
    EXPECT_EQ(project.HelpFile(), "Orders.chm");
    EXPECT_TRUE(project.Save());
    EXPECT_EQ(m_root.Read("app/Orders.vbp"), expected);
    EXPECT_EQ(ListFiles(m_root.Path() + "app/"), std::vector<std::string> { "Orders.vbp" });
    // The same name again changes nothing and writes nothing.
    EXPECT_FALSE(project.SetHelpFile("Orders.chm"));
    EXPECT_FALSE(project.IsDirty());
    ASSERT_TRUE(DeleteFileIfExists(path));
    EXPECT_FALSE(project.Save());
    EXPECT_FALSE(FileExists(path));
}

TEST_F(Vb6ProjectFileTest, AnAbsentHelpFileGoesBehindTheTitle)
{
    std::string bytes = ReplaceFirst(m_bytes, "HelpFile=\"\"\r\n", "");
    Vb6ProjectFile project = Vb6ProjectFile::Parse(bytes, WriteProject(bytes));
    EXPECT_TRUE(project.SetHelpFile("Orders.chm"));
    std::string expected = ReplaceFirst(bytes, "gionales\"\r\n", "gionales\"\r\nHelpFile=\"Orders.chm\"\r\n");
    EXPECT_EQ(project.Bytes(), expected);
    // Entries after the new line have moved down.
    EXPECT_EQ(project.FindEntry("ExeName32")->line, project.FindEntry("HelpFile")->line + 1);
    EXPECT_TRUE(project.Save());
    EXPECT_EQ(m_root.Read("app/Orders.vbp"), expected);
}

TEST_F(Vb6ProjectFileTest, WithoutTitleTheLineEndsTheFirstSection)
{
    std::string bytes = ReplaceFirst(ReplaceFirst(m_bytes, "HelpFile=\"\"\r\n", ""), "Title=\"Commandes r\xE9gionales\"\r\n", "");
    Vb6ProjectFile project = Vb6ProjectFile::Parse(bytes, "Orders.vbp");
    EXPECT_TRUE(project.SetHelpFile("Orders.chm"));
    EXPECT_EQ(project.Bytes(), ReplaceFirst(bytes, "CompilationType=0\r\n", "CompilationType=0\r\nHelpFile=\"Orders.chm\"\r\n"));
    // A file of one section without a final line end.
    Vb6ProjectFile bare = Vb6ProjectFile::Parse("Type=Exe\nName=\"A\"", "A.vbp");
    EXPECT_TRUE(bare.SetHelpFile("A.chm"));
    EXPECT_EQ(bare.Bytes(), "Type=Exe\nName=\"A\"\nHelpFile=\"A.chm\"");
}

TEST_F(Vb6ProjectFileTest, AHelpFileNameIsWrittenInWindows1252)
{
    Vb6ProjectFile project = Vb6ProjectFile::Parse(m_bytes, "Orders.vbp");
    EXPECT_TRUE(project.SetHelpFile("Aide r\xC3\xA9gions.chm"));
    EXPECT_EQ(project.Bytes(), ReplaceFirst(m_bytes, "HelpFile=\"\"", "HelpFile=\"Aide r\xE9gions.chm\""));
    EXPECT_EQ(project.HelpFile(), "Aide r\xC3\xA9gions.chm");
    EXPECT_THROW(project.SetValue("Title", "\"a\"\r\nType=OleDll"), ScrivError);
}

// --- project groups ---

TEST(Vb6GroupFileTest, ProjectsComeInFileOrderWithTheStartupProjectMarked)
{
    test::TempFolder root;
    std::string path = root.Write("work/Orders.vbg",
        IdeBytes("VBGROUP 5.0\nProject=..\\Controls\\Controls.vbp\nStartupProject=App\\Orders.vbp\nProject=Tools\\Tools.vbp\n"));
    Vb6GroupFile group = Vb6GroupFile::Load(path);
    EXPECT_EQ(group.Version(), "5.0");
    ASSERT_EQ(group.Projects().size(), 3u);
    EXPECT_EQ(group.Projects()[0].relativePath, "..\\Controls\\Controls.vbp");
    EXPECT_EQ(group.Projects()[0].fullPath, root.Path() + "Controls/Controls.vbp");
    EXPECT_FALSE(group.Projects()[0].isStartup);
    EXPECT_EQ(group.Projects()[1].fullPath, root.Path() + "work/App/Orders.vbp");
    EXPECT_TRUE(group.Projects()[1].isStartup);
    EXPECT_EQ(group.Projects()[2].fullPath, root.Path() + "work/Tools/Tools.vbp");
    EXPECT_EQ(group.Projects()[2].line, 4);
    ASSERT_NE(group.StartupProject(), nullptr);
    EXPECT_EQ(group.StartupProject()->relativePath, "App\\Orders.vbp");
}

TEST(Vb6GroupFileTest, AFileThatIsNoGroupIsRefusedNamingItsLine)
{
    try {
        Vb6GroupFile::Parse("\r\nType=Exe\r\n", "/work/Orders.vbg");
        FAIL() << "no error";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Description().rfind("Orders.vbg(2): ", 0), 0u) << error.Description();
    }
    EXPECT_THROW(Vb6GroupFile::Load("/nonexistent/Orders.vbg"), ScrivError);
    EXPECT_EQ(Vb6GroupFile::Parse("VBGROUP 5.0\r\n", "g.vbg").StartupProject(), nullptr);
}

// --- clsProject and clsProjectFile ---

class clsProjectTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_root.Write("app/Orders.vbp", IdeBytes("Type=OleDll\nForm=frmOrders.frm\nForm=..\\shared\\frmAbout.frm\n"
                                                "UserControl=ctlDate.ctl\nModule=modMain; modMain.bas\nClass=clsOrder; clsOrder.cls\n"
                                                "Title=\"Orders\"\nDescription=\"Order entry\"\nExeName32=\"Orders.dll\"\n"
                                                "Name=\"OrdersLib\"\nStartup=\"(None)\"\nMajorVer=2\nMinorVer=1\nRevisionVer=14\n"));
        m_root.Write("app/frmOrders.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmOrders \nEnd\nAttribute VB_Name = \"frmOrders\"\nOption Explicit\n"));
        m_root.Write("shared/frmAbout.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmAbout \nEnd\n"));
        m_root.Write("app/modMain.bas", m_module);
        m_root.Write("app/clsOrder.cls", IdeBytes("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"clsOrder\"\nOption Explicit"));
    }

    test::TempFolder m_root;
    std::string m_module { IdeBytes("Attribute VB_Name = \"modMain\"\n'+====================\n' Module: modMain\n'  Starts the program\n"
                                    "'-====================\nOption Explicit\n") };
};

TEST_F(clsProjectTest, TheProjectFileFillsTheFields)
{
    clsProject project;
    EXPECT_EQ(project.Version(), "V??.??.??");
    project.SetProjectFile(m_root.Path() + "app/Orders.vbp");
    EXPECT_TRUE(project.IsValidProject());
    EXPECT_EQ(project.ProjectType, "ActiveX DLL");
    EXPECT_EQ(project.Title, "Orders");
    EXPECT_EQ(project.Description, "Order entry");
    EXPECT_EQ(project.EXEName, "Orders.dll");
    EXPECT_EQ(project.Name, "OrdersLib");
    EXPECT_EQ(project.StartupObject, "(None)");
    EXPECT_EQ(project.Version(), "V2.1.14");
    // Forms, modules and classes; a user control is none of them.
    ASSERT_EQ(project.FileCount(), 4u);
    EXPECT_EQ(project.FileRef(1).FileType(), "FORM");
    EXPECT_EQ(project.FileRef(1).Name(), "frmOrders");
    EXPECT_EQ(project.FileRef(1).LineCount(), 5u);
    EXPECT_EQ(project.FileRef(2).FileName(), m_root.Path() + "shared/frmAbout.frm");
    EXPECT_EQ(project.FileRef(2).Name(), "frmAbout");
    EXPECT_TRUE(project.FileRef(2).IsRead());
    EXPECT_EQ(project.FileRef(3).FileType(), "MODULE");
    EXPECT_EQ(project.FileRef(3).Name(), "modMain");
    EXPECT_EQ(project.FileRef(4).Name(), "clsOrder");
    EXPECT_EQ(project.FileRef(4).Lines().back(), "Option Explicit");
    EXPECT_THROW(project.FileRef(0), ScrivError);
    EXPECT_THROW(project.FileRef(5), ScrivError);
}

TEST_F(clsProjectTest, ProjectTypesAreNamedAndOtherPathsClearTheObject)
{
    m_root.Write("x/Ctl.VBP", "Type=Control\r\n");
    m_root.Write("x/Srv.vbp", "Type=OleExe\r\n");
    m_root.Write("x/App.vbp", "Type=Exe\r\n");
    clsProject project;
    project.SetProjectFile(m_root.Path() + "x/Ctl.VBP");
    EXPECT_EQ(project.ProjectType, "ActiveX Control");
    project.SetProjectFile(m_root.Path() + "x/Srv.vbp");
    EXPECT_EQ(project.ProjectType, "ActiveX EXE");
    project.SetProjectFile(m_root.Path() + "x/App.vbp");
    EXPECT_EQ(project.ProjectType, "Exe");
    project.SetProjectFile(m_root.Path() + "app/Orders.vbp");
    project.SetProjectFile(m_root.Path() + "x/Notes.txt");
    EXPECT_EQ(project.ProjectFile(), "");
    EXPECT_EQ(project.FileCount(), 0u);
    EXPECT_EQ(project.ProjectType, "");
    EXPECT_EQ(project.Version(), "V??.??.??");
    project.SetProjectFile(m_root.Path() + "x/Missing.vbp");
    EXPECT_FALSE(project.IsValidProject());
}

TEST_F(clsProjectTest, TheFileHeaderIsTheCommentBetweenTheMarkers)
{
    clsProjectFile module;
    module.init("Module", "modMain; modMain.bas", m_root.Path() + "app");
    EXPECT_EQ(module.FileHeader(), " Module: modMain\r\n  Starts the program");
    module.SetFileHeader(module.FileHeader());
    EXPECT_FALSE(module.IsDirty());
    module.SetFileHeader(" Module: modMain\n Author: Ann");
    EXPECT_EQ(module.FileHeader(), " Module: modMain\r\n Author: Ann");
    EXPECT_TRUE(module.Save());
    EXPECT_EQ(m_root.Read("app/modMain.bas"), ReplaceFirst(m_module, "'  Starts the program", "' Author: Ann"));
    EXPECT_FALSE(module.Save());
}

TEST_F(clsProjectTest, AFileWithoutHeaderGetsOneBehindItsAttributes)
{
    clsProjectFile form;
    form.init("FORM", "frmOrders.frm", m_root.Path() + "app/");
    EXPECT_EQ(form.FileHeader(), "");
    form.SetFileHeader("Orders form");
    EXPECT_TRUE(form.Save());
    EXPECT_EQ(m_root.Read("app/frmOrders.frm"),
        IdeBytes("VERSION 5.00\nBegin VB.Form frmOrders \nEnd\nAttribute VB_Name = \"frmOrders\"\n'+=\n'Orders form\n'-=\nOption Explicit\n"));
    // A class whose last line has no line end.
    clsProjectFile cls;
    cls.init("Class", "clsOrder; clsOrder.cls", m_root.Path() + "app");
    cls.SetFileHeader("Order");
    EXPECT_TRUE(cls.Save());
    EXPECT_EQ(m_root.Read("app/clsOrder.cls"),
        IdeBytes("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"clsOrder\"\n'+=\n'Order\n'-=\nOption Explicit"));
    // A file that is missing has no lines and no header.
    clsProjectFile missing;
    missing.init("Form", "frmGone.frm", m_root.Path() + "app");
    EXPECT_FALSE(missing.IsRead());
    EXPECT_EQ(missing.LineCount(), 0u);
    EXPECT_EQ(missing.Name(), "frmGone");
    missing.SetFileHeader("Gone");
    EXPECT_THROW(missing.Save(), ScrivError);
    EXPECT_FALSE(FileExists(m_root.Path() + "app/frmGone.frm"));
}

// --- the source project reader on top of the form reader ---

TEST(Vb6SourceProjectTest, FormsThatDoNotReadOrAreOfAnotherKindAreLeftOut)
{
    test::TempFolder root;
    root.Write("Orders.vbp", IdeBytes("Type=Exe\nForm=frmGood.frm\nForm=frmBroken.frm\nForm=ctlDate.ctl\nUserControl=ctlDate.ctl\n"
                                      "Form=frmLate.frm\nForm=frmFrx.frm\n"));
    root.Write("frmGood.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmGood \n   Caption         =   \"  Good \"\nEnd\n"));
    root.Write("frmBroken.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmBroken \n   Caption         =   \"Broken\"\n"));
    root.Write("ctlDate.ctl", IdeBytes("VERSION 5.00\nBegin VB.UserControl ctlDate \nEnd\n"));
    root.Write("frmLate.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmLate \n   Begin VB.Label lbl \n   End\n   Caption = \"Late\"\nEnd\n"));
    root.Write("frmFrx.frm", IdeBytes("VERSION 5.00\nBegin VB.Form frmFrx \n   Caption         =   $\"frmFrx.frx\":0000\nEnd\n"));
    CSourceProjectVB6 project;
    ASSERT_TRUE(project.init(root / "Orders.vbp", "VB6"));
    SourceItems& forms = project.Forms();
    ASSERT_EQ(forms.Count(), 4u);
    EXPECT_EQ(forms.At(0).value->FormCaption, "Good");
    EXPECT_EQ(forms.At(1).value->FormName, "ctlDate");
    EXPECT_EQ(forms.At(1).value->GUIObjectSubType, "UserControl");
    // A caption behind a nested block, or kept in the .frx, leaves the file's name.
    EXPECT_EQ(forms.At(2).value->FormCaption, "frmLate");
    EXPECT_EQ(forms.At(3).value->FormCaption, "frmFrx");
}

}  // namespace
}  // namespace scriv
