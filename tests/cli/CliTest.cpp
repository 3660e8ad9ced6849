#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/Paths.h"
#include "foundation/System.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

// Runs the built program with a user data folder of the test's own and answers
// its exit code; output (stdout and stderr) goes to output.
int RunProgram(std::vector<std::string> arguments, std::string& output, const std::string& dataFolder = {})
{
    std::vector<std::string> argv { std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant" };
    if (!dataFolder.empty()) {
        argv.push_back("--data");
        argv.push_back(dataFolder);
    }
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return ShellAndWait(argv, &output);
}

std::string DefaultContents()
{
    return test::SourceDataFolder() + "Templates/Parameterized/ScrivantContents.xml";
}

TEST(Cli, PrintsItsVersionAndHelp)
{
    std::string output;
    EXPECT_EQ(RunProgram({ "--version" }, output), 0);
    EXPECT_EQ(output, "Scrivant 0.1.0\n");
    EXPECT_EQ(RunProgram({ "--help" }, output), 0);
    EXPECT_NE(output.find("generate"), std::string::npos);
    EXPECT_NE(output.find("--home"), std::string::npos);
    EXPECT_EQ(RunProgram({ "generate", "--help" }, output), 0);
    EXPECT_NE(output.find("--contents"), std::string::npos);
    EXPECT_NE(output.find("--out"), std::string::npos);
}

TEST(Cli, BadUsageEndsWithCodeTwo)
{
    std::string output;
    EXPECT_EQ(RunProgram({ "generate", "--out", "/tmp/x" }, output), 2);
    EXPECT_NE(output.find("SOURCE is required"), std::string::npos) << output;
    EXPECT_EQ(RunProgram({ "generate", "--contents", "a.xml" }, output), 2);
    EXPECT_NE(output.find("--contents needs --out"), std::string::npos) << output;
    EXPECT_EQ(RunProgram({ "generate", "app.vbp", "--contents", "a.xml", "--out", "x" }, output), 2);
    EXPECT_EQ(RunProgram({ "generate", "app.vbp", "--images", "gif" }, output), 2);
    EXPECT_EQ(RunProgram({ "--no-such-option" }, output), 2);
    EXPECT_EQ(RunProgram({ "--home", "/no/such/folder", "generate", "--contents", "a", "--out", "b" }, output), 2);
}

TEST(Cli, GeneratesThePlainTopicsOfTheDefaultContents)
{
    test::TempFolder data;
    test::TempFolder out;
    std::string output;
    ASSERT_EQ(RunProgram({ "generate", "--contents", DefaultContents(), "--out", out.Path(), "--name", "Orders", "--title",
                    "Order Desk" },
                  output, data.Path()),
        0)
        << output;
    for (const char* page : { "Welcome.htm", "Dialogs.htm", "Copyright.htm", "OrdersTOC.htm" }) {
        ASSERT_TRUE(FileExists(out / page)) << page;
        EXPECT_EQ(out.Read(page).find("{{"), std::string::npos) << page;
    }
    EXPECT_NE(out.Read("Welcome.htm").find("<title>Order Desk</title>"), std::string::npos);
    EXPECT_NE(output.find("2 new help pages"), std::string::npos) << output;
    EXPECT_NE(output.find("Processing TOC"), std::string::npos) << output;
}

TEST(Cli, AContentsDocumentThatDoesNotParseIsReportedAndNothingIsWritten)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string contents = work.Write("broken.xml", "<ScrivProject>\n<Project>\n<Topic>\n</Project>");
    std::string out = work / "out";
    std::string output;
    EXPECT_EQ(RunProgram({ "generate", "--contents", contents, "--out", out }, output, data.Path()), 1);
    EXPECT_NE(output.find("0xC00CE5"), std::string::npos) << output;
    EXPECT_NE(output.find("line 4"), std::string::npos) << output;
    EXPECT_NE(output.find(contents), std::string::npos) << output;
    EXPECT_FALSE(FolderExists(out));
}

TEST(Cli, TheUsersHomeIsLeftAloneWhenADataFolderIsGiven)
{
    test::TempFolder home;
    test::TempFolder data;
    test::TempFolder out;
    std::string output;
    std::vector<std::string> argv { "env", "HOME=" + home.Path(), "XDG_DATA_HOME=",
        std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant", "--data", data.Path(), "generate", "--contents",
        DefaultContents(), "--out", out.Path() };
    ASSERT_EQ(ShellAndWait(argv, &output), 0) << output;
    EXPECT_TRUE(std::filesystem::is_empty(home.Path()));
    EXPECT_TRUE(FolderExists(data / "Settings"));
}
}  // namespace
}  // namespace scriv

namespace scriv {
namespace {

// A source project in a folder of its own, described to the program as a host.
struct SourceFolder {
    test::TempFolder folder;
    std::string host;
    SourceFolder()
    {
        host = folder.Write("host.xml", "<Host><Project Name=\"Orders\" FullPath=\"" + folder.Path()
                + "Orders.vbp\" Type=\"VB6\" Active=\"true\"/></Host>");
    }
};

TEST(CliProjects, ANewProjectIsGeneratedRegisteredAndOpenedAgain)
{
    test::TempFolder data;
    SourceFolder source;
    std::string output;
    ASSERT_EQ(RunProgram({ "--yes", "new", "--host", source.host }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("The Scrivant added:\n- 2 new help pages"), std::string::npos) << output;
    std::string project = source.folder / "CHM/Orders.svp";
    ASSERT_TRUE(FileExists(project));

    ASSERT_EQ(RunProgram({ "projects" }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("Orders\n    project file: " + project), std::string::npos) << output;

    ASSERT_EQ(RunProgram({ "open", project, "--host", source.host }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("Help project Orders (" + project + ")"), std::string::npos) << output;
    EXPECT_NE(output.find("[openedBook] Orders"), std::string::npos) << output;
    EXPECT_NE(output.find("  [no] Reports"), std::string::npos) << output;
    EXPECT_NE(output.find("  [helptopic] Copyright"), std::string::npos) << output;
}

TEST(CliProjects, AProjectFileThatDoesNotParseIsReportedAndLeftAsItIs)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string broken = work.Write("Broken.svp", "<ScrivProject><Project></ScrivProject>");
    std::string output;
    EXPECT_NE(RunProgram({ "open", broken }, output, data.Path()), 0);
    EXPECT_NE(output.find("0xC00CE5"), std::string::npos) << output;
    EXPECT_NE(output.find(broken), std::string::npos) << output;
    EXPECT_EQ(work.Read("Broken.svp"), "<ScrivProject><Project></ScrivProject>");
}

TEST(CliSettings, OptionsAreShownReadAndWritten)
{
    test::TempFolder data;
    std::string output;
    ASSERT_EQ(RunProgram({ "settings" }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("CSSFullPath = Office10.css"), std::string::npos) << output;
    ASSERT_EQ(RunProgram({ "settings", "--set", "Copyright=(c) \"Acme\" & Sons" }, output, data.Path()), 0) << output;
    ASSERT_EQ(RunProgram({ "settings", "--get", "copyright" }, output, data.Path()), 0) << output;
    EXPECT_EQ(output, "(c) \"Acme\" & Sons\n");
    ASSERT_EQ(RunProgram({ "settings", "--set", "MSWordTOCLowerHeadingLevel=10" }, output, data.Path()), 0) << output;
    ASSERT_EQ(RunProgram({ "settings", "--get", "MSWordTOCLowerHeadingLevel" }, output, data.Path()), 0) << output;
    EXPECT_EQ(output, "2\n");
    EXPECT_EQ(RunProgram({ "settings", "--set", "NoSuchOption=1" }, output, data.Path()), 2);
    EXPECT_EQ(RunProgram({ "settings", "--get", "NoSuchOption" }, output, data.Path()), 2);
}

int CountOf(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

TEST(CliDescribe, EveryFormOfAProjectIsDescribed)
{
    test::TempFolder data;
    std::string output;
    std::string project = test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp";
    ASSERT_EQ(RunProgram({ "describe", project }, output, data.Path()), 0) << output;
    EXPECT_EQ(CountOf(output, "</Form>"), 8) << output;
    EXPECT_EQ(CountOf(output, "<Form Name = \"frmMain\""), 1);
    EXPECT_EQ(output.find("scrivant:"), std::string::npos) << output;

    ASSERT_EQ(RunProgram({ "describe", project, "frmOrder", "FRMABOUT" }, output, data.Path()), 0) << output;
    EXPECT_EQ(CountOf(output, "</Form>"), 2);
    EXPECT_NE(output.find("<Page Name = \"2_tabOrder\" Text = \"Delivery\""), std::string::npos) << output;
    EXPECT_NE(output.find("HtmlFileName=\"frmAbout.htm\""), std::string::npos) << output;

    ASSERT_EQ(RunProgram({ "describe", test::ExamplesFolder() + "Inventory/Inventory.vbg", "docReportSummary" }, output,
                  data.Path()),
        0)
        << output;
    EXPECT_NE(output.find("SourceProjectName = \"InventoryReports\""), std::string::npos) << output;
}

TEST(CliDescribe, AFormThatCannotBeReadIsNamedAndTheRestDescribed)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string folder = test::CopyExample("OrderDesk", work);
    std::string project = folder + "OrderDesk.vbp";
    WriteFileBytes(project, "Form=frmBroken.frm\r\n" + ReadFileText(project).value());
    WriteFileBytes(folder + "frmBroken.frm", "VERSION 5.00\r\nBegin VB.Form frmBroken\r\n   Caption = \"x\r\n");
    std::string output;
    ASSERT_EQ(RunProgram({ "describe", project }, output, data.Path()), 0) << output;
    EXPECT_NE(output.find("frmBroken.frm(3)"), std::string::npos) << output;
    EXPECT_EQ(CountOf(output, "</Form>"), 8);
    // Alone, the broken form fails the run.
    EXPECT_EQ(RunProgram({ "describe", project, "frmBroken" }, output, data.Path()), 1);
    EXPECT_NE(output.find("frmBroken.frm(3)"), std::string::npos) << output;
}

TEST(CliNew, AVb6ProjectGetsAHelpProjectWithADescriptionPerForm)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string folder = test::CopyExample("OrderDesk", work);
    std::string output;
    ASSERT_EQ(RunProgram({ "--yes", "new", "--host", folder + "OrderDesk.vbp" }, output, data.Path()), 0) << output;
    EXPECT_TRUE(FileExists(folder + "CHM/OrderDesk.svp")) << output;
    EXPECT_TRUE(FileExists(folder + "CHM/Welcome.htm"));
    for (const char* form : { "frmMain", "frmOrder", "ctlDatePicker" }) {
        std::string description = folder + "CHM/xml/OrderDesk_Form_" + form + ".xml";
        ASSERT_TRUE(FileExists(description)) << description;
        EXPECT_NE(ReadFileText(description)->find("Name = \"" + std::string(form) + "\""), std::string::npos);
    }
    EXPECT_NE(ReadFileText(folder + "CHM/xml/OrderDesk_Form_frmOrder.xml")->find("<Page Name = \"0_tabOrder\""),
        std::string::npos);
}

TEST(CliScreenshot, AFormIsDrawnIntoAJpegOrABitmap)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string project = test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp";
    std::string output;
    ASSERT_EQ(RunProgram({ "screenshot", project, "frmOrder", "--out", work / "order.jpg", "--page", "tabOrder=1" },
                  output, data.Path()),
        0)
        << output;
    std::string jpeg = ReadFileText(work / "order.jpg").value_or("");
    ASSERT_GT(jpeg.size(), 1000u);
    EXPECT_EQ(jpeg.substr(0, 3), "\xFF\xD8\xFF");
    ASSERT_EQ(RunProgram({ "screenshot", project, "frmAbout", "--out", work / "about.bmp" }, output, data.Path()), 0)
        << output;
    std::string bitmap = ReadFileText(work / "about.bmp").value_or("");
    ASSERT_GT(bitmap.size(), 54u);
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    // 385 x 239 pixels of 3 bytes, rows padded to 4 bytes, and the headers.
    EXPECT_EQ(bitmap.size(), 54u + 239u * ((385u * 3 + 3) / 4 * 4));

    EXPECT_EQ(RunProgram({ "screenshot", project, "frmAbout", "--out", work / "about.gif" }, output, data.Path()), 2);
    EXPECT_EQ(RunProgram({ "screenshot", project, "frmNoSuch", "--out", work / "x.jpg" }, output, data.Path()), 1);
    EXPECT_NE(output.find("frmNoSuch"), std::string::npos) << output;
}

TEST(CliDescribe, WrongSourcesAndFormsAreNamed)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string output;
    std::string project = test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp";
    EXPECT_EQ(RunProgram({ "describe", project, "frmNoSuch" }, output, data.Path()), 1);
    EXPECT_NE(output.find("has no form frmNoSuch"), std::string::npos) << output;
    EXPECT_EQ(RunProgram({ "describe", work / "missing.vbp" }, output, data.Path()), 2);
    std::string notAGroup = work.Write("odd.vbg", "this is no group\r\n");
    EXPECT_EQ(RunProgram({ "describe", notAGroup }, output, data.Path()), 1);
    EXPECT_NE(output.find("odd.vbg"), std::string::npos) << output;
    EXPECT_EQ(RunProgram({ "describe", "--help" }, output), 0);
    EXPECT_NE(output.find("FORM"), std::string::npos) << output;
}

}  // namespace
}  // namespace scriv
