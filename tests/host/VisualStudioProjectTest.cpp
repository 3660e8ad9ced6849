#include <gtest/gtest.h>

#include "host/CSourceProjectVB6.h"
#include "foundation/Paths.h"
#include "host/vs/CSourceProjectVS.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// A C# form as Visual Studio .NET 2003 wrote it: everything in one file.
const char* const kOldForm = R"(namespace Orders
{
    public class frmOrder : System.Windows.Forms.Form
    {
        private void InitializeComponent()
        {
            this.Text = "Order entry";
            this.Name = "frmOrder";
        }
    }
}
)";

std::string DesignerCs(const std::string& className, const std::string& text, const std::string& base = "Form")
{
    return "namespace App {\r\n    partial class " + className + "\r\n    {\r\n        private void InitializeComponent()\r\n"
        + "        {\r\n            this.Name = \"" + className + "\";\r\n            this.Text = \"" + text
        + "\";\r\n        }\r\n    }\r\n}\r\n" + "// base " + base + "\r\n";
}

std::string CodeCs(const std::string& className, const std::string& base = "Form")
{
    return "using System.Windows.Forms;\r\nnamespace App {\r\n    public partial class " + className + " : " + base
        + "\r\n    {\r\n        public " + className + "() { InitializeComponent(); }\r\n    }\r\n}\r\n";
}

class VisualStudioProjectTest : public test::CoreFixture {
protected:
    test::TempFolder m_app;
};

TEST_F(VisualStudioProjectTest, TheOldProjectXmlListsFormsAndUserControlsWithTheirNamesAndCaptions)
{
    m_app.Write("Orders.csproj", R"(<VisualStudioProject>
    <CSHARP ProjectType = "Local" ProductVersion = "7.10.3077">
        <Files>
            <Include>
                <File RelPath = "frmOrder.cs" SubType = "Form" BuildAction = "Compile" />
                <File RelPath = "Customer.cs" SubType = "Code" BuildAction = "Compile" />
                <File RelPath = "ctlDate.cs" SubType = "UserControl" BuildAction = "Compile" />
                <File RelPath = "Forms\frmGone.cs" SubType = "Form" BuildAction = "Compile" />
            </Include>
        </Files>
    </CSHARP>
</VisualStudioProject>
)");
    m_app.Write("frmOrder.cs", kOldForm);
    m_app.Write("ctlDate.cs", "class ctlDate : System.Windows.Forms.UserControl { void InitializeComponent() { } }");
    CSourceProjectCS project;
    ASSERT_TRUE(project.init(m_app / "Orders.csproj", "c#"));
    EXPECT_TRUE(project.IsValid());
    EXPECT_EQ(project.Name(), "Orders");
    EXPECT_EQ(project.ProjectType(), "C#");
    SourceItems& forms = project.Forms();
    ASSERT_EQ(forms.Count(), 3u);
    EXPECT_EQ(forms.At(0).key, "frmOrder");
    EXPECT_EQ(forms.At(0).value->FormCaption, "Order entry");
    EXPECT_EQ(forms.At(0).value->SubType, "Form");
    EXPECT_TRUE(forms.At(0).value->IsVSProjectItem);
    // No name in the code: the file's base name stands for both.
    EXPECT_EQ(forms.At(1).value->FormName, "ctlDate");
    EXPECT_EQ(forms.At(1).value->FormCaption, "ctlDate");
    // A file that is not there keeps its base name and is still listed.
    EXPECT_EQ(forms.At(2).value->FormName, "frmGone");
    EXPECT_FALSE(project.CouldHaveReports());
    EXPECT_EQ(project.Tables().Count(), 0u);
}

TEST_F(VisualStudioProjectTest, AProjectWithoutFormsIsValidAndEmpty)
{
    m_app.Write("Lib.vbproj", R"(<VisualStudioProject><VisualBasic><Files><Include>
        <File RelPath = "Module1.vb" SubType = "Code" />
    </Include></Files></VisualBasic></VisualStudioProject>)");
    CSourceProjectVBNet project;
    ASSERT_TRUE(project.init(m_app / "Lib.vbproj", "VB.NET"));
    EXPECT_TRUE(project.IsValid());
    EXPECT_EQ(project.Forms().Count(), 0u);

    m_app.Write("Empty.csproj", R"(<Project ToolsVersion="4.0" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <ItemGroup><Compile Include="Program.cs" /></ItemGroup></Project>)");
    m_app.Write("Program.cs", "static class Program { }");
    CSourceProjectCS msbuild;
    ASSERT_TRUE(msbuild.init(m_app / "Empty.csproj", "C#"));
    EXPECT_TRUE(msbuild.IsValid());
    EXPECT_EQ(msbuild.Forms().Count(), 0u);
}

TEST_F(VisualStudioProjectTest, EachReaderAnswersOnlyToItsOwnTypeName)
{
    m_app.Write("App.csproj", R"(<VisualStudioProject><CSHARP><Files><Include/></Files></CSHARP></VisualStudioProject>)");
    std::string path = m_app / "App.csproj";
    EXPECT_FALSE(CSourceProjectCS().init(path, "VB.NET"));
    EXPECT_FALSE(CSourceProjectVBNet().init(path, "C#"));
    EXPECT_FALSE(CSourceProjectJS().init(path, "VS.NET"));
    EXPECT_FALSE(CSourceProjectAspNet().init(path, "C#"));
    // The VB.NET reader takes the type but finds no Visual Basic project in a C# file... nor MSBuild.
    EXPECT_FALSE(CSourceProjectVBNet().init(path, "VB.NET"));

    CHelpPrjSourceProject front;
    ASSERT_TRUE(front.init(path, "C#"));
    EXPECT_TRUE(front.IsValid());
    EXPECT_EQ(front.ProjectType(), "C#");
    CHelpPrjSourceProject unknown;
    EXPECT_FALSE(unknown.init(path, "Delphi"));
    EXPECT_FALSE(unknown.IsValid());
}

TEST_F(VisualStudioProjectTest, ACppProjectMustBeOfTypeVisualCpp)
{
    const char* project = R"(<VisualStudioProject ProjectType="%s" Name="Tools">
  <Files>
    <Filter Name="Source Files"><File RelativePath=".\Main.cpp" FileType="3"/></Filter>
    <Filter Name="Header Files">
      <File RelativePath=".\MainForm.h" FileType="3"/>
      <File RelativePath=".\stdafx.h" FileType="1"/>
      <File RelativePath=".\About.h" FileType="4"/>
    </Filter>
  </Files>
</VisualStudioProject>)";
    char text[1024];
    std::snprintf(text, sizeof text, project, "Visual C++");
    m_app.Write("Tools.vcproj", text);
    m_app.Write("MainForm.h", "this->Name = S\"TheMainForm\";\r\nthis->Text = S\"Tools\";\r\n");
    CSourceProjectCPP cpp;
    ASSERT_TRUE(cpp.init(m_app / "Tools.vcproj", "C++"));
    ASSERT_EQ(cpp.Forms().Count(), 2u);
    // A C++ form is named after its file, whatever the code says; its caption is read.
    EXPECT_EQ(cpp.Forms().At(0).value->FormName, "MainForm");
    EXPECT_EQ(cpp.Forms().At(0).value->FormCaption, "Tools");
    EXPECT_EQ(cpp.Forms().At(0).value->SubType, "Form");
    EXPECT_EQ(cpp.Forms().At(1).value->FormName, "About");

    std::snprintf(text, sizeof text, project, "Visual Basic");
    m_app.Write("Other.vcproj", text);
    CSourceProjectCPP other;
    EXPECT_FALSE(other.init(m_app / "Other.vcproj", "C++"));
    EXPECT_FALSE(other.IsValid());
}

TEST_F(VisualStudioProjectTest, AnAspNetProjectInVisualBasicIsFoundAtTheThirdRoot)
{
    m_app.Write("Web.vbproj", R"(<VisualStudioProject><VisualBasic ProjectType = "Web"><Files><Include>
        <File RelPath = "Default.aspx" BuildAction = "Content" />
        <File RelPath = "Default.aspx.vb" DependentUpon = "Default.aspx" SubType = "ASPXCodeBehind" />
        <File RelPath = "Header.ascx" BuildAction = "Content" />
        <File RelPath = "Login.aspx" SubType = "Form" />
        <File RelPath = "Styles.css" BuildAction = "Content" />
    </Include></Files></VisualBasic></VisualStudioProject>)");
    m_app.Write("Default.aspx", "<%@ Page %>\r\nMe.Name = \"NotRead\"\r\n");
    CSourceProjectAspNet web;
    ASSERT_TRUE(web.init(m_app / "Web.vbproj", "ASP.NET"));
    EXPECT_TRUE(web.IsValid());
    ASSERT_EQ(web.Forms().Count(), 3u);
    // Pages are never searched for a name.
    EXPECT_EQ(web.Forms().At(0).value->FormName, "Default");
    EXPECT_EQ(web.Forms().At(1).value->FormName, "Header");
    EXPECT_EQ(web.Forms().At(2).value->FormName, "Login");
    // The copy it read from is gone.
    EXPECT_FALSE(FileExists(m_app / "Web.vbproj.tmp"));
    EXPECT_EQ(VSProjectTypeName(m_app / "Web.vbproj"), "ASP.NET");
}

TEST_F(VisualStudioProjectTest, MSBuildProjectsGiveOneFormPerDesignerFileOfACodeFile)
{
    m_app.Write("Desk.csproj", R"(<?xml version="1.0" encoding="utf-8"?>
<Project ToolsVersion="15.0" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <ItemGroup>
    <Compile Include="Forms\MainForm.cs"><SubType>Form</SubType></Compile>
    <Compile Include="Forms\MainForm.Designer.cs"><DependentUpon>MainForm.cs</DependentUpon></Compile>
    <Compile Include="Worker.cs"><SubType>Component</SubType></Compile>
    <Compile Include="Worker.Designer.cs"><DependentUpon>Worker.cs</DependentUpon></Compile>
    <Compile Include="Properties\Settings.Designer.cs"><DependentUpon>Settings.settings</DependentUpon></Compile>
    <Compile Include="Legacy.cs"><SubType>Form</SubType></Compile>
    <Compile Include="Picker.cs"><SubType>UserControl</SubType></Compile>
    <Compile Include="Picker.Designer.cs"><DependentUpon>Picker.cs</DependentUpon></Compile>
    <EmbeddedResource Include="Forms\MainForm.resx"><DependentUpon>MainForm.cs</DependentUpon></EmbeddedResource>
  </ItemGroup>
</Project>)");
    m_app.Write("Forms/MainForm.cs", CodeCs("MainForm"));
    m_app.Write("Forms/MainForm.Designer.cs", DesignerCs("MainForm", "Order Desk"));
    m_app.Write("Worker.cs", CodeCs("Worker", "Component"));
    m_app.Write("Worker.Designer.cs", DesignerCs("Worker", "not a form"));
    m_app.Write("Legacy.cs", kOldForm);
    m_app.Write("Picker.cs", CodeCs("Picker", "UserControl"));
    m_app.Write("Picker.Designer.cs", DesignerCs("Picker", ""));
    CSourceProjectCS project;
    ASSERT_TRUE(project.init(m_app / "Desk.csproj", "C#"));
    SourceItems& forms = project.Forms();
    ASSERT_EQ(forms.Count(), 3u);
    EXPECT_EQ(forms.At(0).key, "MainForm");
    EXPECT_EQ(forms.At(0).value->FormCaption, "Order Desk");
    EXPECT_EQ(forms.At(0).value->RelativePath, "Forms/MainForm.Designer.cs");
    EXPECT_EQ(forms.At(0).value->SubType, "Form");
    EXPECT_EQ(forms.At(1).key, "Picker");
    EXPECT_EQ(forms.At(1).value->GUIObjectSubType, "UserControl");
    // A form of the old kind has no designer file: its own code is read.
    EXPECT_EQ(forms.At(2).key, "frmOrder");
    EXPECT_EQ(forms.At(2).value->FormCaption, "Order entry");
}

TEST_F(VisualStudioProjectTest, SdkProjectsFindTheirFormsBesideTheirCode)
{
    m_app.Write("Modern.vbproj", R"(<Project Sdk="Microsoft.NET.Sdk">
  <PropertyGroup><OutputType>WinExe</OutputType><UseWindowsForms>true</UseWindowsForms></PropertyGroup>
  <ItemGroup><Compile Update="Settings.vb"><SubType>Code</SubType></Compile></ItemGroup>
</Project>)");
    m_app.Write("Forms/Main.vb", "Public Class Main\r\nEnd Class\r\n");
    m_app.Write("Forms/Main.Designer.vb",
        "<Global.Microsoft.VisualBasic.CompilerServices.DesignerGenerated()> _\r\nPartial Class Main\r\n"
        "    Inherits System.Windows.Forms.Form\r\n    Private Sub InitializeComponent()\r\n"
        "        Me.Text = \"Modern main\"\r\n        Me.Name = \"Main\"\r\n    End Sub\r\nEnd Class\r\n");
    m_app.Write("My Project/Resources.Designer.vb", "Partial Class Resources\r\nEnd Class\r\n");
    m_app.Write("Orphan.Designer.vb", "Partial Class Orphan\r\n    Inherits System.Windows.Forms.Form\r\nEnd Class\r\n");
    m_app.Write("obj/Debug/Main.Designer.vb", "Partial Class Main\r\n    Inherits System.Windows.Forms.Form\r\nEnd Class\r\n");
    m_app.Write("obj/Debug/Main.vb", "");
    CSourceProjectVBNet project;
    ASSERT_TRUE(project.init(m_app / "Modern.vbproj", "VB.NET"));
    ASSERT_EQ(project.Forms().Count(), 1u);
    EXPECT_EQ(project.Forms().At(0).value->FormName, "Main");
    EXPECT_EQ(project.Forms().At(0).value->FormCaption, "Modern main");
    EXPECT_EQ(VSProjectTypeName(m_app / "Modern.vbproj"), "VB.NET");
}

TEST_F(VisualStudioProjectTest, TheTypeOfAProjectFileComesFromItsExtensionAndItsWebMarks)
{
    m_app.Write("a.csproj", "<Project Sdk=\"Microsoft.NET.Sdk.Web\"/>");
    m_app.Write("b.csproj",
        "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"><PropertyGroup><ProjectTypeGuids>"
        "{349c5851-65df-11da-9384-00065b846f21};{fae04ec0-301f-11d3-bf4b-00c04f79efbc}</ProjectTypeGuids>"
        "</PropertyGroup></Project>");
    m_app.Write("c.csproj", "<Project/>");
    m_app.Write("d.vjsproj", "<Project/>");
    m_app.Write("e.vcproj", "<VisualStudioProject/>");
    EXPECT_EQ(VSProjectTypeName(m_app / "a.csproj"), "ASP.NET");
    EXPECT_EQ(VSProjectTypeName(m_app / "b.csproj"), "ASP.NET");
    EXPECT_EQ(VSProjectTypeName(m_app / "c.csproj"), "C#");
    EXPECT_EQ(VSProjectTypeName(m_app / "d.vjsproj"), "J#");
    EXPECT_EQ(VSProjectTypeName(m_app / "e.vcproj"), "C++");
    EXPECT_EQ(VSProjectTypeName(m_app / "f.vbp"), "");
}

TEST_F(VisualStudioProjectTest, AProjectFileThatIsNoXmlIsNoProject)
{
    m_app.Write("Broken.csproj", "<VisualStudioProject><CSHARP>");
    CSourceProjectCS project;
    EXPECT_FALSE(project.init(m_app / "Broken.csproj", "C#"));
    EXPECT_FALSE(project.IsValid());
    EXPECT_FALSE(CSourceProjectCS().init(m_app / "Missing.csproj", "C#"));
}

}  // namespace
}  // namespace scriv
