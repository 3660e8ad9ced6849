#include <gtest/gtest.h>

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
