#include <gtest/gtest.h>

#include "desktop/CWinFormRenderer.h"
#include "desktop/CW_IDEVSContext.h"
#include "desktop/RenderedWindows.h"
#include "desktop/SystemColours.h"
#include "host/CXmlCommand.h"
#include "host/vs/CW_IDEVSFormProcessor.h"
#include "host/vs/WinFormDesign.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

const char* const kTabbedForm = R"(partial class Settings { private void InitializeComponent() {
    this.tabs = new System.Windows.Forms.TabControl();
    this.first = new System.Windows.Forms.TabPage();
    this.second = new System.Windows.Forms.TabPage();
    this.onFirst = new System.Windows.Forms.Button();
    this.onSecond = new System.Windows.Forms.TextBox();
    this.tabs.Controls.Add(this.first);
    this.tabs.Controls.Add(this.second);
    this.tabs.Location = new System.Drawing.Point(10, 10);
    this.tabs.Size = new System.Drawing.Size(200, 120);
    this.first.Controls.Add(this.onFirst);
    this.first.Location = new System.Drawing.Point(4, 22);
    this.first.Size = new System.Drawing.Size(192, 94);
    this.first.Text = "One";
    this.second.Controls.Add(this.onSecond);
    this.second.Location = new System.Drawing.Point(4, 22);
    this.second.Size = new System.Drawing.Size(192, 94);
    this.second.Text = "Two";
    this.onFirst.Location = new System.Drawing.Point(20, 20);
    this.onFirst.Size = new System.Drawing.Size(80, 30);
    this.onFirst.BackColor = System.Drawing.Color.FromArgb(255, 0, 0);
    this.onSecond.Location = new System.Drawing.Point(20, 20);
    this.onSecond.Size = new System.Drawing.Size(80, 30);
    this.Controls.Add(this.tabs);
    this.ClientSize = new System.Drawing.Size(220, 140);
    this.FormBorderStyle = System.Windows.Forms.FormBorderStyle.None;
    this.Text = "Settings";
} })";

class VisualStudioHostTest : public test::CoreFixture {
protected:
    const RenderedControl* Find(const RenderedForm& form, const std::string& name)
    {
        return form.Find(name);
    }

    test::TempFolder m_app;
};

TEST_F(VisualStudioHostTest, ATabControlShowsTheControlsOfItsShownPageOnly)
{
    WinFormDesign design = WinFormDesign::Read(kTabbedForm, DesignLanguage::CSharp);
    CW_IDEVSFormProcessor processor(design, 5);
    CWinFormRenderer renderer(processor);
    RenderedForm first = renderer.Render();
    // Without a frame the window is the client area.
    EXPECT_EQ(first.picture.Width(), 220);
    EXPECT_EQ(first.picture.Height(), 140);
    const RenderedControl* button = first.Find("onFirst");
    ASSERT_NE(button, nullptr);
    // tab control (10, 10) + page (4, 22) + button (20, 20)
    EXPECT_EQ(button->rect, (PixelRect { 34, 52, 80, 30 }));
    EXPECT_EQ(first.picture.Pixel(70, 67), (Rgb { 255, 0, 0 }));
    EXPECT_EQ(first.Find("onSecond"), nullptr);
    ASSERT_NE(first.Find("0_tabs"), nullptr);
    ASSERT_NE(first.Find("1_tabs"), nullptr);
    EXPECT_EQ(first.Find("1_tabs")->rect.left, first.Find("0_tabs")->rect.Right());

    ASSERT_TRUE(renderer.ShowTabPage("tabs", 1));
    EXPECT_FALSE(renderer.ShowTabPage("tabs", 2));
    EXPECT_FALSE(renderer.ShowTabPage("nothing", 0));
    RenderedForm second = renderer.Render();
    EXPECT_EQ(second.Find("onFirst"), nullptr);
    ASSERT_NE(second.Find("onSecond"), nullptr);
    // The text box is white where the button was red.
    EXPECT_EQ(second.picture.Pixel(70, 67), SystemColour(syscolour::kWindow));
}

TEST_F(VisualStudioHostTest, ASolutionsProjectsAreTheSourceProjects)
{
    m_app.Write("Suite.sln",
        "Microsoft Visual Studio Solution File, Format Version 12.00\r\n"
        "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Desk\", \"Desk\\Desk.csproj\", \"{1}\"\r\nEndProject\r\n"
        "Project(\"{F184B08F-C81C-45F6-A57F-5ABD9991F28F}\") = \"Web\", \"Web\\Web.vbproj\", \"{2}\"\r\nEndProject\r\n"
        "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Docs\", \"Docs\", \"{3}\"\r\nEndProject\r\n"
        "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"Gone\", \"Gone\\Gone.csproj\", \"{4}\"\r\nEndProject\r\n");
    m_app.Write("Desk/Desk.csproj", R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003"><ItemGroup>
        <Compile Include="Settings.cs"><SubType>Form</SubType></Compile>
        <Compile Include="Settings.Designer.cs"><DependentUpon>Settings.cs</DependentUpon></Compile>
        </ItemGroup></Project>)");
    m_app.Write("Desk/Settings.cs", "public partial class Settings : Form { }");
    m_app.Write("Desk/Settings.Designer.cs", kTabbedForm);
    m_app.Write("Web/Web.vbproj", R"(<VisualStudioProject><VisualBasic ProjectType = "Web"><Files><Include>
        <File RelPath = "Default.aspx" BuildAction = "Content" />
        </Include></Files></VisualBasic></VisualStudioProject>)");
    m_app.Write("Web/Default.aspx", "<%@ Page %><html><head><title>Start page</title></head></html>");

    std::unique_ptr<CW_IDEVSContext> host = CW_IDEVSContext::Open(m_app / "Suite.sln");
    EXPECT_EQ(host->SourceProjectsList(), "Desk|Web");
    ASSERT_EQ(host->OpenErrors().size(), 1u);
    EXPECT_EQ(host->CurrentSourceProjectTypeName(), "C#");
    EXPECT_EQ(host->CurrentSourceProjectLocation(), m_app.Path() + "Desk/");
    ASSERT_EQ(host->Components().size(), 1u);
    EXPECT_TRUE(host->ComponentExists(2, "SETTINGS"));

    // The host answers the commands of the logic, the description among them.
    CXmlCommand command;
    command.Build("ProcessComponent", { { "ObjectType", "2" }, { "ComponentName", "Settings" },
                                           { "SourceProjectTypeName", "C#" }, { "IsInDesignView", "True" } });
    CXmlCommand answer;
    answer.Deserialize(host->ProcessCallBack(command.Serialize()));
    CXmlForm form;
    ASSERT_TRUE(form.LoadXml(answer.Text()));
    EXPECT_EQ(form.Name, "Settings");
    EXPECT_EQ(form.Caption(), "Settings");
    EXPECT_NE(form.hWnd, 0);
    int handle = host->ActivateComponent(2, "Settings", false, false);
    EXPECT_EQ(handle, form.hWnd);
    ASSERT_NE(RenderedWindows().Find(handle), nullptr);
    EXPECT_EQ(RenderedWindows().Find(handle)->className, kWinFormWindowClass);

    CXmlCommand byHandle;
    byHandle.Build("GetWinFormNameByHWND", { { "HWND", std::to_string(handle) } });
    CXmlCommand named;
    named.Deserialize(host->ProcessCallBack(byHandle.Serialize()));
    EXPECT_EQ(named.GetParamValue("RetValue"), "Settings");
    host->CloseComponent(2, "Settings", false);
    EXPECT_EQ(RenderedWindows().Find(handle), nullptr);

    // A web project's pages are described without a window to photograph.
    host->SetCurrentSourceProject("web");
    EXPECT_EQ(host->CurrentSourceProjectTypeName(), "ASP.NET");
    EXPECT_FALSE(host->DrawsForms());
    CXmlCommand pageCommand;
    pageCommand.Build("ProcessComponent", { { "ObjectType", "2" }, { "ComponentName", "Default" },
                                               { "SourceProjectTypeName", "ASP.NET" } });
    CXmlCommand pageAnswer;
    pageAnswer.Deserialize(host->ProcessCallBack(pageCommand.Serialize()));
    CXmlForm page;
    ASSERT_TRUE(page.LoadXml(pageAnswer.Text()));
    EXPECT_EQ(page.Caption(), "Start page");
    EXPECT_EQ(page.hWnd, 0);
    EXPECT_EQ(host->ActivateComponent(2, "Default", false, false), 0);
}

TEST_F(VisualStudioHostTest, WhatCannotBeOpenedIsNamed)
{
    m_app.Write("Empty.sln", "Microsoft Visual Studio Solution File, Format Version 12.00\r\n");
    EXPECT_THROW(CW_IDEVSContext::Open(m_app / "Empty.sln"), ScrivError);
    EXPECT_THROW(CW_IDEVSContext::Open(m_app / "Missing.csproj"), ScrivError);
    EXPECT_THROW(CW_IDEVSContext::Open(m_app / "Other.txt"), ScrivError);
}

}  // namespace
}  // namespace scriv
