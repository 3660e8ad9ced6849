#include <gtest/gtest.h>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/ScrivError.h"
#include "host/access/AccessDefinition.h"
#include "host/access/CSourceProjectMSAccess.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

const char* const kForm = "Version =20\r\n"
                          "Checksum =-12345\r\n"
                          "Begin Form\r\n"
                          "    RecordSelectors = NotDefault\r\n"
                          "    AutoCenter = NotDefault\r\n"
                          "    Width =7200\r\n"
                          "    PrtMip = Begin\r\n"
                          "        0x6801000068010000\r\n"
                          "        0x0100000068010000\r\n"
                          "    End\r\n"
                          "    Caption =\"Say \\\"Hi\\\"\"\r\n"
                          "    RecordSource =\"SELECT * FROM Customers \"\r\n"
                          "        \"WHERE Active\"\r\n"
                          "    Begin\r\n"
                          "        Begin Label\r\n"
                          "            FontName =\"Tahoma\"\r\n"
                          "        End\r\n"
                          "    End\r\n"
                          "    Begin Section\r\n"
                          "        Height =3000\r\n"
                          "        Name =\"Detail\"\r\n"
                          "        Begin\r\n"
                          "            Begin TextBox\r\n"
                          "                Name =\"City\"\r\n"
                          "                Left =1440\r\n"
                          "                Begin\r\n"
                          "                    Begin Label\r\n"
                          "                        Name =\"lblCity\"\r\n"
                          "                        Caption =\"City:\\015\\012\"\r\n"
                          "                    End\r\n"
                          "                End\r\n"
                          "            End\r\n"
                          "            Begin SourceObjectLabel\r\n"
                          "                SourceObject =\"Form.sfrmLines\"\r\n"
                          "            End\r\n"
                          "        End\r\n"
                          "    End\r\n"
                          "End\r\n"
                          "CodeBehindForm\r\n"
                          "Begin Unrelated\r\n";

TEST(AccessDefinition, BlocksPropertiesAndStringsAreRead)
{
    AccessDefinition definition = AccessDefinition::Parse(kForm, "frmTest.form");
    EXPECT_EQ(definition.Header().Text("Version"), "20");
    const AccessBlock& form = definition.Object();
    EXPECT_EQ(form.type, "Form");
    EXPECT_EQ(form.Number("width", 0), 7200);
    // "NotDefault" is the opposite of the default, whichever it is.
    EXPECT_FALSE(form.Flag("RecordSelectors", true));
    EXPECT_TRUE(form.Flag("AutoCenter", false));
    EXPECT_TRUE(form.Flag("NavigationButtons", true));
    EXPECT_EQ(form.Text("Caption"), "Say \"Hi\"");
    // A string continued on the next line is one value; a binary value is skipped whole.
    EXPECT_EQ(form.Text("RecordSource"), "SELECT * FROM Customers WHERE Active");
    EXPECT_EQ(form.Text("PrtMip"), "");
    EXPECT_FALSE(form.Has("PrtMip"));

    std::vector<const AccessBlock*> sections = form.Blocks("Section");
    ASSERT_EQ(sections.size(), 1u);
    std::vector<const AccessBlock*> members = sections[0]->Members();
    ASSERT_EQ(members.size(), 2u);
    EXPECT_EQ(members[0]->type, "TextBox");
    EXPECT_EQ(members[0]->parent->parent, sections[0]);
    ASSERT_EQ(members[0]->Members().size(), 1u);
    EXPECT_EQ(members[0]->Members()[0]->Text("Caption"), "City:\r\n");
    // The code behind the form is not read.
    EXPECT_TRUE(form.Blocks("Unrelated").empty());
    EXPECT_EQ(definition.Header().children.size(), 1u);
}

TEST(AccessDefinition, UnclosedBlocksAreNamedWithTheirLine)
{
    try {
        AccessDefinition::Parse("Begin Form\r\n    Begin Section\r\n        Height =1\r\nEnd\r\n", "frmBroken.form");
        FAIL() << "no error";
    } catch (const ScrivError& error) {
        EXPECT_NE(error.Description().find("frmBroken.form(1)"), std::string::npos) << error.Description();
    }
    EXPECT_THROW(AccessDefinition::Parse("End\r\n", "x.form"), ScrivError);
    EXPECT_THROW(AccessDefinition::Parse("Begin Form\r\n    Picture = Begin\r\n        0x00\r\n", "x.form"), ScrivError);
}

TEST(AccessDefinition, MacrosKeepEveryArgumentInOrder)
{
    AccessDefinition macro = AccessDefinition::Parse(
        "Version =196611\r\nBegin\r\n    Comment =\"Opens the menu\"\r\nEnd\r\nBegin\r\n    Action =\"OpenForm\"\r\n"
        "    Argument =\"frmMenu\"\r\n    Argument =\"0\"\r\n    Argument =\"\"\r\nEnd\r\n",
        "AutoExec.macro");
    // A macro has no object block: its steps stand at the top.
    EXPECT_EQ(&macro.Object(), &macro.Header());
    ASSERT_EQ(macro.Header().children.size(), 2u);
    EXPECT_EQ(macro.Header().children[1]->Values("Argument"), (std::vector<std::string> { "frmMenu", "0", "" }));
}

TEST(AccessDefinition, Utf16FilesAreReadAsAccessWritesThem)
{
    test::TempFolder folder;
    std::string text = "Begin Form\r\n    Caption =\"\xC3\x9C" "bersicht\"\r\nEnd\r\n";
    std::string utf16 = "\xFF\xFE";
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == 0xC3) {
            utf16 += '\xDC';
            utf16 += '\0';
            ++i;
            continue;
        }
        utf16 += text[i];
        utf16 += '\0';
    }
    std::string path = folder.Write("frmU.form", utf16);
    EXPECT_EQ(AccessDefinition::Load(path).Object().Text("Caption"), "\xC3\x9C" "bersicht");
    EXPECT_THROW(AccessDefinition::Load(folder / "missing.form"), ScrivError);
}

// The lines of a file, split at its own line ends.
std::vector<std::string> LinesOf(const std::string& path, const char* lineEnd = "\r\n")
{
    return Split(ReadFileText(path).value_or(""), lineEnd);
}

TEST(AccessDefinition, AnObjectPropertyIsAddedAfterTheSimpleOnesAndThenChangedInPlace)
{
    test::TempFolder folder;
    std::string path = folder.Write("frmCustomers.form", kForm);
    std::vector<std::string> before = LinesOf(path);
    ASSERT_TRUE(WriteObjectProperty(path, "HelpContextId", "2010"));
    std::vector<std::string> after = LinesOf(path);
    ASSERT_EQ(after.size(), before.size() + 1);
    // Before the first nested block (the binary PrtMip), indented as its neighbours.
    EXPECT_EQ(after[6], "    HelpContextId =2010");
    EXPECT_EQ(after[7], "    PrtMip = Begin");
    after.erase(after.begin() + 6);
    EXPECT_EQ(after, before);
    AccessDefinition definition = AccessDefinition::Load(path);
    EXPECT_EQ(definition.Object().Number("HelpContextId", 0), 2010);
    EXPECT_EQ(definition.Object().Text("Caption"), "Say \"Hi\"");

    ASSERT_TRUE(WriteObjectProperty(path, "helpcontextid", "2011"));
    std::vector<std::string> again = LinesOf(path);
    ASSERT_EQ(again.size(), before.size() + 1);
    EXPECT_EQ(again[6], "    HelpContextId =2011");
}

TEST(AccessDefinition, AControlsPropertyOfTheSameNameIsLeftAlone)
{
    test::TempFolder folder;
    std::string text = "Begin Report\n    Width =7200\n    Begin Section\n        Begin\n            Begin TextBox\n"
                       "                HelpContextId =5\n            End\n        End\n    End\nEnd\n";
    std::string path = folder.Write("rptSales.report", text);
    ASSERT_TRUE(WriteObjectProperty(path, "HelpContextId", "3000"));
    // Line ends stay as the file has them.
    EXPECT_EQ(ReadFileText(path).value_or(""),
        "Begin Report\n    Width =7200\n    HelpContextId =3000\n    Begin Section\n        Begin\n"
        "            Begin TextBox\n                HelpContextId =5\n            End\n        End\n    End\nEnd\n");
}

TEST(AccessDefinition, AUtf16DefinitionStaysUtf16)
{
    test::TempFolder folder;
    std::string text = "Begin Form\r\n    Caption =\"\xC3\x9C" "bersicht\"\r\nEnd\r\n";
    std::string path = folder.Write("frmU.form", "\xFF\xFE" + ConvertFromUtf8(text, "UTF-16LE"));
    ASSERT_TRUE(WriteObjectProperty(path, "HelpContextId", "42"));
    std::string bytes = ReadFileText(path).value_or("");
    ASSERT_GE(bytes.size(), 2u);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(ConvertToUtf8(std::string_view(bytes).substr(2), "UTF-16LE"),
        "Begin Form\r\n    Caption =\"\xC3\x9C" "bersicht\"\r\n    HelpContextId =42\r\nEnd\r\n");
}

TEST(AccessDefinition, APropertyIsNotWrittenWhereThereIsNoFormOrReport)
{
    test::TempFolder folder;
    std::string macro = "Begin\r\n    Action =\"Beep\"\r\nEnd\r\n";
    std::string path = folder.Write("AutoExec.macro", macro);
    EXPECT_FALSE(WriteObjectProperty(path, "HelpContextId", "1"));
    EXPECT_EQ(ReadFileText(path).value_or(""), macro);
    std::string open = folder.Write("frmOpen.form", "Begin Form\r\n    Width =1\r\n");
    EXPECT_FALSE(WriteObjectProperty(open, "HelpContextId", "1"));
    EXPECT_FALSE(WriteObjectProperty(folder / "missing.form", "HelpContextId", "1"));
}

TEST(AccessDefinition, ColoursAreSystemOrBlueGreenRed)
{
    EXPECT_EQ(AccessColour("-2147483633"), 0x8000000Fu);
    EXPECT_EQ(AccessColour("16777215"), 0x00FFFFFFu);
    EXPECT_EQ(AccessColour("255"), 0x000000FFu);
    EXPECT_FALSE(AccessColour("red"));
}

TEST(AccessDefinition, TheCaptionComesFromTheObjectsOwnLinesAndSubformsAreCollected)
{
    DefinitionSummary form = ReadDefinitionText(kForm, "Form");
    EXPECT_EQ(form.caption, "Say \\\"Hi\\\"");
    EXPECT_EQ(form.subObjects, (std::vector<std::string> { "sfrmLines" }));
    // A caption met after a nested block is not the object's.
    DefinitionSummary late = ReadDefinitionText("Begin Form\r\n  Begin\r\n  End\r\n  Caption =\"Too late\"\r\nEnd\r\n", "Form");
    EXPECT_EQ(late.caption, "");
    // Only the block of the kind asked for starts the search.
    DefinitionSummary report = ReadDefinitionText(
        "Begin Form\r\n Caption =\"Form caption\"\r\nEnd\r\nBegin Report\r\n Caption =\"Sales\"\r\n"
        "  SourceObject =\"Report.srptLines\"\r\nEnd\r\n",
        "Report");
    EXPECT_EQ(report.caption, "Sales");
    EXPECT_EQ(report.subObjects, (std::vector<std::string> { "srptLines" }));
}

}  // namespace
}  // namespace scriv
