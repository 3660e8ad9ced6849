#include <gtest/gtest.h>

#include "foundation/ObjectNames.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

std::string ShippedTable()
{
    return test::SourceDataFolder() + "Settings/" + std::string(kObjectNameEncodingFile);
}

class ShippedObjectNames : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_GT(LoadObjectNameEncoding(ShippedTable()), 300u); }
};

TEST_F(ShippedObjectNames, LatinNamesStayAsTheyAre)
{
    EXPECT_EQ(EncodeObjectName("frmMain"), "frmMain");
    EXPECT_EQ(EncodeObjectName(""), "");
    EXPECT_EQ(GetComponentFileName("frmMain"), "frmMain");
    EXPECT_EQ(GetComponentFileName("Form1", "cmdOK"), "Form1_cmdOK");
    EXPECT_EQ(GetComponentFileName("Form1", "", "x"), "Form1_x");
    EXPECT_EQ(GetComponentFileName("Form1", "fraA", "txt(2)"), "Form1_fraA_txt(2)");
}

TEST_F(ShippedObjectNames, AccentedLettersLoseTheirMarks)
{
    EXPECT_EQ(EncodeObjectName("Éléphant"), "Elephant");
    EXPECT_EQ(EncodeObjectName("Straße"), "Strasse");
    EXPECT_EQ(EncodeObjectName("Æsir Øl Łódź Œuvre"), "AEsir Ol Lodz OEuvre");
}

TEST_F(ShippedObjectNames, CyrillicIsTransliterated)
{
    EXPECT_EQ(EncodeObjectName("ЖукЩитЫ"), "ZhukShchitY");
    EXPECT_EQ(EncodeObjectName("фрмГлавная"), "frmGlavnaia");
    EXPECT_EQ(EncodeObjectName("Їжак Ґава Ўсход Љубав Ќерка"), "Izhak Gava Uskhod Ljubav Kjerka");
    // Soft and hard signs still give a letter, never nothing.
    EXPECT_EQ(EncodeObjectName("ьъ"), "jie");
}

TEST_F(ShippedObjectNames, GreekIsTransliterated)
{
    EXPECT_EQ(EncodeObjectName("Ψυχή"), "Psychi");
    EXPECT_EQ(EncodeObjectName("Όμέγας"), "Omegas");
}

TEST_F(ShippedObjectNames, CharactersForbiddenInFileNamesBecomeUnderscores)
{
    EXPECT_EQ(EncodeObjectName("a/b\\c:d*e?f\"g<h>i|j"), "a_b_c_d_e_f_g_h_i_j");
    EXPECT_EQ(GetComponentFileName("frm", "a/b"), "frm_a_b");
}

TEST_F(ShippedObjectNames, CharactersOutsideTheTableAreKept)
{
    EXPECT_EQ(EncodeObjectName("表单1"), "表单1");
    EXPECT_EQ(EncodeObjectName("€x"), "€x");
    EXPECT_EQ(EncodeObjectName("a\xF0\x9F\x98\x80"), "a\xF0\x9F\x98\x80");
}

TEST(ObjectNameTable, ReadsRowsWithAttributesAndDigitsInAnyCase)
{
    test::TempFolder folder;
    std::string path = folder.Write("table.xml",
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n"
        "<Root><EncodingTable>\r\n"
        "  <c u=\"00e9\" t=\"e\" />\r\n"
        "  <row U=\"00FC\" T=\"ue\" />\r\n"
        "  <c u=\"00E9\" t=\"E\" />\r\n" // a second row for a character: the first counts
        "  <c u=\"\" t=\"x\" />\r\n"
        "  <c u=\"00F6\" t=\"\" />\r\n"
        "  <c u=\"F6\" t=\"o\" />\r\n"
        "  <c u=\"00G6\" t=\"o\" />\r\n"
        "  <!-- a comment -->\r\n"
        "</EncodingTable></Root>\r\n");
    ObjectNameTable table;
    EXPECT_EQ(table.Load(path), 2u);
    EXPECT_EQ(table.Count(), 2u);
    EXPECT_EQ(table.Encode("éüö"), "eueö");
    ASSERT_NE(table.Find(u'\u00E9'), nullptr);
    EXPECT_EQ(*table.Find(u'\u00E9'), "e");
    EXPECT_EQ(table.Find(u'\u00F6'), nullptr);
}

TEST(ObjectNameTable, MissingOrBrokenFileGivesAnEmptyTable)
{
    test::TempFolder folder;
    ObjectNameTable table;
    EXPECT_EQ(table.Load(folder / "missing.xml"), 0u);
    EXPECT_EQ(table.Load(folder.Write("broken.xml", "<EncodingTable><c u=\"00E9\" t=\"e\">")), 0u);
    EXPECT_EQ(table.Encode("é"), "é");
}

TEST(ObjectNameTable, TheModuleTableCanBeReplaced)
{
    test::TempFolder folder;
    std::string path = folder.Write("t.xml", "<EncodingTable><c u=\"0041\" t=\"Z\" /></EncodingTable>");
    EXPECT_EQ(LoadObjectNameEncoding(path), 1u);
    EXPECT_EQ(EncodeObjectName("Aé"), "Zé");
    EXPECT_GT(LoadObjectNameEncoding(ShippedTable()), 0u);
    EXPECT_EQ(EncodeObjectName("Aé"), "Ae");
}

}  // namespace
}  // namespace scriv
