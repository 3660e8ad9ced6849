// The help project of a small VB6 application, made, compiled, regenerated
// and recompiled by the program as a user runs it.
#include <gtest/gtest.h>

#include <chm_lib.h>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

int RunProgram(std::vector<std::string> arguments, std::string& output, const std::string& dataFolder)
{
    std::vector<std::string> argv { std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant", "--data", dataFolder };
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return ShellAndWait(argv, &output);
}

std::string Golden(const std::string& name)
{
    return ReadFileText(std::string(SCRIVANT_CLI_TEST_DIR) + "/golden/" + name).value_or("<no golden file>");
}

// The files inside a compiled help file, as chmlib lists them.
std::set<std::string> ChmFiles(const std::string& path)
{
    std::set<std::string> files;
    chmFile* file = chm_open(path.c_str());
    if (!file)
        return files;
    chm_enumerate(
        file, CHM_ENUMERATE_ALL,
        [](chmFile*, chmUnitInfo* info, void* context) {
            static_cast<std::set<std::string>*>(context)->insert(info->path);
            return CHM_ENUMERATOR_CONTINUE;
        },
        &files);
    chm_close(file);
    return files;
}

// The files the contents link to, without their bookmarks.
std::set<std::string> ContentsTopics(const std::string& hhc)
{
    std::set<std::string> topics;
    const std::string marker = "<param name=\"Local\" value=\"";
    for (std::size_t at = hhc.find(marker); at != std::string::npos; at = hhc.find(marker, at + 1)) {
        std::size_t start = at + marker.size();
        std::string local = hhc.substr(start, hhc.find('"', start) - start);
        topics.insert(local.substr(0, local.find('#')));
    }
    return topics;
}

int CountOf(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

class HelpProjectTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::filesystem::copy(std::string(SCRIVANT_CLI_TEST_DIR) + "/fixtures/Tiny", m_work / "Tiny");
        m_app = m_work / "Tiny/";
        m_chm = m_app + "CHM/";
    }

    int Generate(std::string& output, std::vector<std::string> more = {})
    {
        std::vector<std::string> arguments { "generate", m_app + "Tiny.vbp" };
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunProgram(arguments, output, m_data.Path());
    }

    std::string Read(const std::string& name) const { return ReadFileText(m_chm + name).value_or(""); }

    test::TempFolder m_data;
    test::TempFolder m_work;
    std::string m_app;
    std::string m_chm;
};

TEST_F(HelpProjectTest, TheContentsIndexAndCompilerProjectAreWrittenLineForLine)
{
    std::string output;
    ASSERT_EQ(Generate(output), 0) << output;
    // The closing statistics count what was written.
    EXPECT_NE(output.find("- 4 new help pages with 10 sections,\n- 2 screenshots,"), std::string::npos) << output;
    EXPECT_NE(output.find("- 11 index entries in generated help."), std::string::npos) << output;
    for (const char* file : { "Tiny.hhc", "Tiny.hhk", "Tiny.hhp", "Tiny.h", "Tiny.txt" })
        EXPECT_EQ(Read(file), Golden(file)) << file;
    // The application's header has the ids of the lists of all dialogs too.
    EXPECT_EQ(Read("HelpContextIds.h"), "#define IDH_ALL_DIALOGS 2\r\n#define IDH_ALL_FORMS   1\r\n#define IDH_ALL_REPORTS 2 \r\n"
        + Golden("Tiny.h"));
}

TEST_F(HelpProjectTest, EveryTopicOfTheContentsIsInsideTheCompiledHelp)
{
    std::string output;
    ASSERT_EQ(Generate(output), 0) << output;
    ASSERT_TRUE(FileExists(m_chm + "Tiny.chm")) << output;
    // A copy goes beside the application, whose project now names it.
    EXPECT_TRUE(FileExists(m_app + "Tiny.chm"));
    std::set<std::string> inside = ChmFiles(m_chm + "Tiny.chm");
    std::set<std::string> topics = ContentsTopics(Read("Tiny.hhc"));
    ASSERT_EQ(topics.size(), 5u);
    for (const std::string& topic : topics)
        EXPECT_TRUE(inside.count("/" + topic)) << topic;
    EXPECT_TRUE(inside.count("/images/Tiny_Form_frmTiny.png"));
    EXPECT_TRUE(inside.count("/images/Tiny_Form_frmTiny_fraMode.png"));
}

TEST_F(HelpProjectTest, AFormTopicHasItsPictureMapAndSections)
{
    std::string output;
    ASSERT_EQ(Generate(output, { "--images", "bmp", "--no-compile" }), 0) << output;
    EXPECT_FALSE(FileExists(m_chm + "Tiny.chm"));
    std::string page = Read("Tiny_Form_frmTiny.htm");
    EXPECT_NE(page.find("<title>Tiny Editor</title>"), std::string::npos) << page;
    EXPECT_NE(page.find("<IMG SRC=\"images/Tiny_Form_frmTiny.bmp\" BORDER=0 ALT=\"Tiny Editor\" \r\nUSEMAP=\"#frmTiny\" />"),
        std::string::npos)
        << page;
    // The text box's area lies where the form has it: 960 and 120 twips are
    // 64 and 8 pixels, inside a 4-pixel frame and below an 18-pixel caption
    // and an 18-pixel menu bar.
    EXPECT_NE(page.find("COORDS=\"68,48,269,67\" HREF=\"#frmTiny_txtName\""), std::string::npos) << page;
    EXPECT_NE(page.find("<H2><a name=\"frmTiny_mnuFileOpen\">Open...</a></H2>"), std::string::npos) << page;
    EXPECT_EQ(page.find("mnuFileSep"), std::string::npos);
    EXPECT_NE(page.find("<p>Keep the text and close</p>"), std::string::npos);
    // The frame gets a picture and a map of its own.
    EXPECT_NE(page.find("<MAP NAME=\"frmTiny_fraMode\">"), std::string::npos) << page;
    EXPECT_TRUE(FileExists(m_chm + "images/Tiny_Form_frmTiny_fraMode.bmp"));
    std::string bitmap = ReadFileText(m_chm + "images/Tiny_Form_frmTiny.bmp").value_or("");
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    EXPECT_EQ(page.find("{{"), std::string::npos);
}

TEST_F(HelpProjectTest, RegeneratingAddsTheNewFormAndKeepsEditedTopics)
{
    std::string output;
    ASSERT_EQ(Generate(output, { "--no-compile" }), 0) << output;
    // The user edits one topic by hand, and the application gains a form.
    std::string edited = ReplaceAll(Read("Tiny_Form_frmNote.htm"), "</body>", "<p>Written by hand.</p>\r\n</body>");
    WriteFileBytes(m_chm + "Tiny_Form_frmNote.htm", edited);
    std::string note = ReadFileText(m_app + "frmNote.frm").value();
    WriteFileBytes(m_app + "frmExtra.frm", ReplaceAll(ReplaceAll(note, "frmNote", "frmExtra"), "\"Note\"", "\"Extra\""));
    WriteFileBytes(m_app + "Tiny.vbp", ReadFileText(m_app + "Tiny.vbp").value() + "Form=frmExtra.frm\r\n");
    int entriesBefore = CountOf(Read("Tiny.hhc"), "<LI>");
    std::vector<std::string> pagesBefore = ListFiles(m_chm, "*.htm");

    ASSERT_EQ(RunProgram({ "regenerate", m_chm + "Tiny.svp" }, output, m_data.Path()), 0) << output;
    EXPECT_EQ(Read("Tiny_Form_frmNote.htm"), edited);
    EXPECT_EQ(CountOf(Read("Tiny.hhc"), "<LI>"), entriesBefore + 1);
    EXPECT_NE(Read("Tiny.hhc").find("<param name=\"Local\" value=\"Tiny_Form_frmExtra.htm\">"), std::string::npos);
    EXPECT_EQ(ListFiles(m_chm, "*.htm").size(), pagesBefore.size() + 1);
    EXPECT_NE(Read("Tiny_Form_frmExtra.htm").find("<h1>Extra</h1>"), std::string::npos);
    EXPECT_NE(Read("Dialogs.htm").find("<a href=\"Tiny_Form_frmExtra.htm\">Extra</a>"), std::string::npos);

    ASSERT_EQ(RunProgram({ "regenerate", m_chm + "Tiny.svp" }, output, m_data.Path()), 0) << output;
    EXPECT_NE(output.find("There are no new objects in the source project"), std::string::npos) << output;
    EXPECT_EQ(Read("Tiny_Form_frmNote.htm"), edited);
}

TEST_F(HelpProjectTest, RecompilingTakesThePagesAsTheyStand)
{
    std::string output;
    ASSERT_EQ(Generate(output), 0) << output;
    std::string edited = ReplaceAll(Read("Welcome.htm"), "</body>", "<p>A word of our own: zanzibar.</p>\r\n</body>");
    WriteFileBytes(m_chm + "Welcome.htm", edited);
    std::filesystem::remove(m_chm + "Tiny.hhk");
    ASSERT_EQ(RunProgram({ "recompile", m_chm + "Tiny.svp" }, output, m_data.Path()), 0) << output;
    EXPECT_EQ(Read("Tiny.hhk"), Golden("Tiny.hhk"));
    EXPECT_EQ(Read("Welcome.htm"), edited);
    EXPECT_TRUE(FileExists(m_chm + "Tiny.chm"));
    ASSERT_EQ(RunProgram({ "recompile", m_chm + "Tiny.svp", "--web-only" }, output, m_data.Path()), 0) << output;
}

TEST_F(HelpProjectTest, AFormThatCannotBeReadIsNamedAndTheRestIsWritten)
{
    WriteFileBytes(m_app + "frmBroken.frm", "VERSION 5.00\r\nBegin VB.Form frmBroken\r\n   Caption = \"x\r\nEnd\r\n");
    WriteFileBytes(m_app + "Tiny.vbp", ReadFileText(m_app + "Tiny.vbp").value() + "Form=frmBroken.frm\r\n");
    std::string output;
    Generate(output, { "--no-compile" });
    EXPECT_NE(output.find("frmBroken.frm(3)"), std::string::npos) << output;
    EXPECT_TRUE(FileExists(m_chm + "Tiny_Form_frmTiny.htm"));
    EXPECT_TRUE(FileExists(m_chm + "Tiny.hhc"));
}

TEST_F(HelpProjectTest, WithoutACompilerTheRestIsWrittenAndTheRunSaysSo)
{
    std::string output;
    ASSERT_EQ(RunProgram({ "settings", "--set", "HelpCompilerPath=/no/such/chmcmd" }, output, m_data.Path()), 0)
        << output;
    ASSERT_EQ(Generate(output, { "--images", "bmp" }), 0) << output;
    EXPECT_NE(output.find("no .chm was made: there is no help compiler"), std::string::npos) << output;
    EXPECT_FALSE(FileExists(m_chm + "Tiny.chm"));
    EXPECT_TRUE(FileExists(m_chm + "Tiny.hhp"));
    EXPECT_TRUE(FileExists(m_chm + "Tiny_Form_frmTiny.htm"));
    // One picture format for the whole run.
    EXPECT_FALSE(ListFiles(m_chm + "images/", "*.bmp").empty());
    EXPECT_TRUE(ListFiles(m_chm + "images/", "*.jpg").empty());
    // Recompiling says what is missing.
    RunProgram({ "--yes", "recompile", m_chm + "Tiny.svp" }, output, m_data.Path());
    EXPECT_NE(output.find("HTML help workshop is not installed."), std::string::npos) << output;
}

TEST_F(HelpProjectTest, ATargetFolderWithAPercentSignIsQuestioned)
{
    std::string output;
    // Without a person to answer, the default is to choose another folder.
    EXPECT_NE(Generate(output, { "--out", m_work / "50%" }), 0);
    EXPECT_NE(output.find("contains character '%'"), std::string::npos) << output;
    EXPECT_FALSE(FileExists(m_work / "50%/Tiny.svp"));
}

}  // namespace
}  // namespace scriv

namespace scriv {
namespace {

TEST(GroupHelpProject, AGroupIsDocumentedWholeIntoOneHelp)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string group = test::CopyExample("Inventory", work);
    std::string output;
    ASSERT_EQ(RunProgram({ "generate", group + "Inventory.vbg" }, output, data.Path()), 0) << output;
    std::string chm = group + "CHM/";
    for (const char* topic : { "InventoryApp_Form_frmStock.htm", "InventoryApp_Form_frmReorder.htm",
             "InventoryReports_Form_frmReportPicker.htm", "InventoryReports_Form_docReportSummary.htm" })
        EXPECT_TRUE(FileExists(chm + topic)) << topic;
    std::set<std::string> inside = ChmFiles(chm + "InventoryApp.chm");
    for (const std::string& topic : ContentsTopics(ReadFileText(chm + "InventoryApp.hhc").value_or("")))
        EXPECT_TRUE(inside.count("/" + topic)) << topic;
    EXPECT_TRUE(FileExists(chm + "main.htm"));
    EXPECT_TRUE(FileExists(chm + "ss.html"));
}

}  // namespace
}  // namespace scriv
