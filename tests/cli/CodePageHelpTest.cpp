// Help for applications whose texts are not in windows-1252, and for projects
// that came from another machine, made by the program as a user runs it.
#include <gtest/gtest.h>

#include <chm_lib.h>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/Picture.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "support/RenderSupport.h"
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

bool ChmHas(const std::string& path, const std::string& inside)
{
    chmFile* file = chm_open(path.c_str());
    if (!file)
        return false;
    chmUnitInfo info;
    bool found = chm_resolve_object(file, inside.c_str(), &info) == CHM_RESOLVE_SUCCESS;
    chm_close(file);
    return found;
}

struct Script {
    const char* example;
    const char* codePage;
    const char* languageLine;
    const char* htmlStart;
    std::string formCaption;
    std::string noteWord;
};

class CodePageHelpTest : public ::testing::TestWithParam<Script> {
protected:
    void SetUp() override
    {
        m_app = test::CopyExample(GetParam().example, m_work);
        m_chm = m_app + "CHM/";
    }

    std::string Read(const std::string& name) const { return ReadFileText(m_chm + name).value_or(""); }

    test::TempFolder m_data;
    test::TempFolder m_work;
    std::string m_app;
    std::string m_chm;
};

TEST_P(CodePageHelpTest, TopicsContentsIndexAndPicturesCarryTheOriginalText)
{
    const Script& script = GetParam();
    std::string name = script.example;
    std::string output;
    ASSERT_EQ(RunProgram({ "generate", m_app + name + ".vbp", "--images", "png" }, output, m_data.Path()), 0) << output;

    // The contents and index byte for byte, in the code page of the language
    // the application's fonts gave the help.
    EXPECT_EQ(Read(name + ".hhc"), Golden(name + ".hhc"));
    EXPECT_EQ(Read(name + ".hhk"), Golden(name + ".hhk"));
    std::string hhp = ConvertToUtf8(Read(name + ".hhp"), script.codePage);
    EXPECT_NE(hhp.find(script.languageLine), std::string::npos) << hhp;
    EXPECT_NE(ConvertToUtf8(Read(name + ".hhc"), script.codePage).find(script.formCaption), std::string::npos);

    // Topics are UTF-8 and say their language.
    std::string topic = Read(name + "_Form_frmCustomer.htm");
    EXPECT_NE(topic.find(script.htmlStart), std::string::npos) << topic.substr(0, 200);
    EXPECT_NE(topic.find("<title>" + script.formCaption + "</title>"), std::string::npos);
    EXPECT_NE(topic.find("ALT=\"" + script.formCaption + "\""), std::string::npos);

    // The note's caption lies in the .frx file; the picture shows text where
    // its label stands, and the fonts have every glyph of it.
    std::optional<Picture> note = DecodePicture(Read("images/" + name + "_Form_frmNote.png"));
    ASSERT_TRUE(note);
    EXPECT_GT(test::CountPixels(*note, { 10, 36, 300, 40 }, test::IsDark), 150);

    EXPECT_TRUE(ChmHas(m_chm + name + ".chm", "/" + name + "_Form_frmNote.htm"));
    EXPECT_TRUE(ChmHas(m_chm + name + ".chm", "/images/" + name + "_Form_frmNote.png"));
}

INSTANTIATE_TEST_SUITE_P(Scripts, CodePageHelpTest,
    ::testing::Values(Script { "Bazaar", "windows-1256", "Language=0x401 Arabic (Saudi Arabia)",
                          "<html lang=\"ar-SA\" dir=\"rtl\">", "\xD8\xA8\xD9\x8A\xD8\xA7\xD9\x86\xD8\xA7\xD8\xAA \xD8\xA7\xD9\x84\xD8\xB9\xD9\x85\xD9\x8A\xD9\x84", "" },
        Script { "Sklad", "windows-1251", "Language=0x419 Russian", "<html lang=\"ru-RU\">",
            "\xD0\x9A\xD0\xB0\xD1\x80\xD1\x82\xD0\xBE\xD1\x87\xD0\xBA\xD0\xB0 \xD0\xBA\xD0\xBB\xD0\xB8\xD0\xB5\xD0\xBD\xD1\x82\xD0\xB0", "" }),
    [](const ::testing::TestParamInfo<Script>& info) { return std::string(info.param.example); });

TEST(MovedProject, AFormNamedByAnotherMachinesPathIsFoundBesideTheProject)
{
    test::TempFolder work;
    test::TempFolder data;
    std::string app = test::CopyExample("Sklad", work);
    std::string project = ReadFileText(app + "Sklad.vbp").value_or("");
    project = ReplaceAll(project, "Form=frmNote.frm", "Form=C:\\Documents and Settings\\dev\\Desktop\\Sklad\\FRMNOTE.FRM");
    project = ReplaceAll(project, "Form=frmCustomer.frm", "Form=..\\..\\..\\Projects\\Old\\frmCustomer.frm");
    ASSERT_TRUE(WriteFileBytes(app + "Sklad.vbp", project));
    std::string output;
    ASSERT_EQ(RunProgram({ "--yes", "generate", app + "Sklad.vbp", "--no-compile" }, output, data.Path()), 0) << output;
    EXPECT_TRUE(FileExists(app + "CHM/Sklad_Form_frmNote.htm")) << output;
    EXPECT_TRUE(FileExists(app + "CHM/Sklad_Form_frmCustomer.htm")) << output;
    // The warning names the path of the project and the file taken in its place.
    EXPECT_NE(output.find("C:/Documents and Settings/dev/Desktop/Sklad/FRMNOTE.FRM"), std::string::npos) << output;
    EXPECT_NE(output.find(app + "frmNote.frm"), std::string::npos) << output;
}

TEST(MovedProject, AFileThatIsNoProjectIsRefused)
{
    test::TempFolder work;
    test::TempFolder data;
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>((i * 7919) % 256);
    std::string path = work.Write("Noise.vbp", bytes);
    std::string output;
    EXPECT_EQ(RunProgram({ "generate", path, "--no-compile" }, output, data.Path()), 1) << output;
    EXPECT_NE(output.find("is no VB6 project"), std::string::npos) << output;
    EXPECT_FALSE(FolderExists(work / "CHM"));

    work.Write("Letter.vbp", "Dear reader,\r\nthis is a letter.\r\n");
    EXPECT_EQ(RunProgram({ "generate", work / "Letter.vbp", "--no-compile" }, output, data.Path()), 1) << output;
    EXPECT_NE(output.find("Letter.vbp' is no VB6 project"), std::string::npos) << output;
}

}  // namespace
}  // namespace scriv

namespace scriv {
namespace {

TEST(RunCodePage, FormsWhoseFontsSayNothingAreReadInTheCodePageGivenForTheRun)
{
    test::TempFolder work;
    test::TempFolder data;
    std::string app = test::CopyExample("Sklad", work);
    for (const char* form : { "frmCustomer.frm", "frmNote.frm" }) {
        std::string bytes = ReadFileText(app + form).value_or("");
        ASSERT_TRUE(WriteFileBytes(app + form, ReplaceAll(bytes, "Charset         =   204", "Charset         =   0")));
    }
    // The program's own options may follow the command's name.
    std::string output;
    ASSERT_EQ(RunProgram({ "generate", app + "Sklad.vbp", "--no-compile", "--codepage", "windows-1251", "--yes" }, output,
                  data.Path()),
        0)
        << output;
    std::string topic = ReadFileText(app + "CHM/Sklad_Form_frmCustomer.htm").value_or("");
    EXPECT_NE(topic.find("<title>\xD0\x9A\xD0\xB0\xD1\x80\xD1\x82\xD0\xBE\xD1\x87\xD0\xBA\xD0\xB0"), std::string::npos)
        << topic.substr(0, 300);

    EXPECT_EQ(RunProgram({ "generate", app + "Sklad.vbp", "--codepage", "no-such-code-page" }, output, data.Path()), 2);
    EXPECT_NE(output.find("no-such-code-page"), std::string::npos) << output;
}

}  // namespace
}  // namespace scriv
