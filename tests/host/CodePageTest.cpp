// Forms saved on Windows machines of other languages: their texts are in the
// code page their fonts name, and long captions lie in the .frx file.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "foundation/CodePage.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vb6/FrxFile.h"
#include "host/vb6/Vb6FormFile.h"
#include "host/vb6/Vb6ProjectFile.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

std::string FontBlock(int charset, const std::string& indent)
{
    return indent + "BeginProperty Font \n" + indent + "   Name            =   \"Tahoma\"\n" + indent
        + "   Size            =   8.25\n" + indent + "   Charset         =   " + std::to_string(charset) + "\n" + indent
        + "EndProperty\n";
}

std::string Label(const std::string& name, const std::string& captionBytes, int charset)
{
    return "   Begin VB.Label " + name + " \n      Caption         =   \"" + captionBytes + "\"\n"
        + (charset >= 0 ? FontBlock(charset, "      ") : std::string()) + "   End\n";
}

// A form with its own font charset (none when below 0) and labels.
std::string FormBytes(const std::string& captionBytes, int charset, const std::string& labels)
{
    std::string text = "VERSION 5.00\nBegin VB.Form frmTest \n   Caption         =   \"" + captionBytes + "\"\n"
        + (charset >= 0 ? FontBlock(charset, "   ") : std::string()) + labels + "End\n";
    return ReplaceAll(text, "\n", "\r\n");
}

// "Customer" in Arabic and in Russian as the IDE of those systems saves it.
const std::string kArabicUtf8 = "\xD8\xA7\xD9\x84\xD8\xB9\xD9\x85\xD9\x8A\xD9\x84";
const std::string kRussianUtf8 = "\xD0\x9A\xD0\xBB\xD0\xB8\xD0\xB5\xD0\xBD\xD1\x82";

std::string In(const std::string& utf8, const std::string& codePage)
{
    return ConvertFromUtf8(utf8, codePage);
}

class SystemCodePageScope {
public:
    explicit SystemCodePageScope(std::string codePage)
        : m_kept(SystemCodePage())
    {
        SetSystemCodePage(std::move(codePage));
    }
    ~SystemCodePageScope() { SetSystemCodePage(m_kept); }

private:
    std::string m_kept;
};

TEST(FormCodePage, TheFormsOwnFontNamesTheCodePageOfEveryText)
{
    std::string bytes = FormBytes(In(kArabicUtf8, "windows-1256"), 178,
        Label("lblName", In(kArabicUtf8, "windows-1256"), 0));
    Vb6FormFile file = Vb6FormFile::Parse(bytes, "frmTest.frm");
    EXPECT_EQ(file.CodePage(), "windows-1256");
    EXPECT_TRUE(file.CodePageFromFonts());
    EXPECT_EQ(file.Form().Text("Caption"), kArabicUtf8);
    ASSERT_EQ(file.Form().Children().size(), 1u);
    EXPECT_EQ(file.Form().Children()[0]->Text("Caption"), kArabicUtf8);
}

TEST(FormCodePage, WithoutTheFormsWordTheControlsMostlyDecide)
{
    std::string russian = In(kRussianUtf8, "windows-1251");
    std::string labels = Label("lblA", russian, 204) + Label("lblB", russian, 204) + Label("lblC", "x", 161)
        + Label("lblD", "y", 1);
    Vb6FormFile file = Vb6FormFile::Parse(FormBytes(russian, 0, labels), "frmTest.frm");
    EXPECT_EQ(file.CodePage(), "windows-1251");
    EXPECT_EQ(file.Form().Text("Caption"), kRussianUtf8);
}

TEST(FormCodePage, FontsThatSayNothingLeaveTheApplicationsCodePage)
{
    SystemCodePageScope scope("windows-1251");
    std::string russian = In(kRussianUtf8, "windows-1251");
    Vb6FormFile file = Vb6FormFile::Parse(FormBytes(russian, 0, Label("lblA", russian, 1)), "frmTest.frm");
    EXPECT_EQ(file.CodePage(), "windows-1251");
    EXPECT_FALSE(file.CodePageFromFonts());
    EXPECT_EQ(file.Form().Text("Caption"), kRussianUtf8);

    SetSystemCodePage("windows-1252");
    Vb6FormFile western = Vb6FormFile::Parse(FormBytes("Caf\xE9", -1, ""), "frmTest.frm");
    EXPECT_EQ(western.CodePage(), "windows-1252");
    EXPECT_EQ(western.Form().Text("Caption"), "Caf\xC3\xA9");
}

TEST(FormCodePage, TextWrittenBackIsInTheFormsCodePage)
{
    std::string arabic = In(kArabicUtf8, "windows-1256");
    Vb6FormFile file = Vb6FormFile::Parse(FormBytes(arabic, 178, ""), "frmTest.frm");
    ASSERT_TRUE(file.SetFormProperty("Tag", Vb6FormFile::TextValue(kArabicUtf8)));
    EXPECT_NE(file.Bytes().find("\"" + arabic + "\""), std::string::npos);
    // The caption line is untouched byte for byte.
    EXPECT_NE(file.Bytes().find("Caption         =   \"" + arabic + "\"\r\n"), std::string::npos);
}

// --- texts kept in the .frx ---

std::string LongRecord(const std::string& bytes)
{
    std::uint32_t size = static_cast<std::uint32_t>(bytes.size());
    return std::string(reinterpret_cast<const char*>(&size), 4) + bytes;
}

TEST(FrxTexts, CaptionsTextsAndListsAreReadInTheGivenCodePage)
{
    std::string russian = In(kRussianUtf8, "windows-1251");
    std::string shortText = std::string(1, static_cast<char>(russian.size())) + russian;
    std::string longText(300, 'a');
    std::string longTextRecord = "\xFF" + std::string("\x2C\x01", 2) + longText;
    FrxFile frx(LongRecord(russian) + shortText + longTextRecord);
    EXPECT_EQ(frx.Text(0, "windows-1251"), kRussianUtf8);
    EXPECT_EQ(frx.Text(static_cast<std::uint32_t>(4 + russian.size()), "windows-1251"), kRussianUtf8);
    EXPECT_EQ(frx.Text(static_cast<std::uint32_t>(4 + russian.size() + shortText.size())), longText);
    // A record that runs past the end of the file gives nothing.
    EXPECT_FALSE(FrxFile(LongRecord(russian).substr(0, 8)).Text(0));
    EXPECT_FALSE(FrxFile("").Text(0));

    std::string list = std::string("\x01\x00\x00\x00", 4) + std::string(1, static_cast<char>(russian.size())) + '\0' + russian;
    std::optional<std::vector<std::string>> items = FrxFile(list).ListItems(0, "windows-1251");
    ASSERT_TRUE(items);
    EXPECT_EQ(*items, std::vector<std::string> { kRussianUtf8 });
}

TEST(FrxTexts, ALoadedFormFillsInTheCaptionsOfItsFrxFile)
{
    test::TempFolder folder;
    std::string russian = In(kRussianUtf8, "windows-1251");
    folder.Write("frmNote.frx", std::string("junk") + LongRecord(russian + "\r\n" + russian));
    std::string labels = "   Begin VB.Label lblNote \n      Caption         =   $\"FRMNOTE.frx\":0004\n"
        + FontBlock(204, "      ") + "   End\n   Begin VB.Label lblLost \n      Caption         =   $\"gone.frx\":0000\n   End\n";
    std::string path = folder.Write("frmNote.frm", FormBytes("x", 204, ReplaceAll(labels, "\n", "\r\n")));
    Vb6FormFile file = Vb6FormFile::Load(path);
    ASSERT_EQ(file.Form().Children().size(), 2u);
    EXPECT_EQ(file.Form().Children()[0]->Text("Caption"), kRussianUtf8 + "\r\n" + kRussianUtf8);
    // A reference to a file that is not there reads as no text, not as the reference.
    EXPECT_EQ(file.Form().Children()[1]->Text("Caption"), "");
    // Parsing bytes alone reads no .frx file.
    Vb6FormFile parsed = Vb6FormFile::Parse(folder.Read("frmNote.frm"), path);
    EXPECT_EQ(parsed.Form().Children()[0]->Text("Caption"), "");
}

// --- project files that are no projects ---

TEST(ProjectFileIdentity, AFileWithoutATypeLineIsNoProject)
{
    for (const std::string& bytes : { std::string("Hello, this is a letter.\r\n"), std::string("\x89PNG\r\n\x1A\n\0\0", 10),
             std::string("Type=Document\r\nForm=a.frm\r\n"), std::string() }) {
        try {
            Vb6ProjectFile::Parse(bytes, "/apps/Letter.vbp");
            ADD_FAILURE() << "read as a project: " << bytes;
        } catch (const ScrivError& error) {
            EXPECT_NE(error.Description().find("'/apps/Letter.vbp' is no VB6 project"), std::string::npos) << error.Description();
        }
    }
    for (const char* type : { "Exe", "OleDll", "OleExe", "Control", "exe" })
        EXPECT_NO_THROW(Vb6ProjectFile::Parse(std::string("Type=") + type + "\r\n", "/apps/A.vbp")) << type;
}

}  // namespace
}  // namespace scriv
