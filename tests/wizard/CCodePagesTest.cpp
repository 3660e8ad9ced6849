#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "foundation/CCodePages.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

std::string ShippedFile()
{
    return test::SourceDataFolder() + "Settings/CodePages.xml";
}

class CodePagesTest : public test::CoreFixture {
protected:
    std::string Write(const std::string& body)
    {
        return m_dir.Write("CodePages.xml", "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n" + body);
    }

    CCodePages m_pages;
    test::TempFolder m_dir;
};

// --- the shipped file ---

TEST_F(CodePagesTest, TheShippedFileFindsEnglishAndRussianByCode)
{
    ASSERT_EQ(m_pages.Load(ShippedFile()), 0u);
    const CCodePage* english = m_pages.GetCodePageByLanguageCode("1033");
    ASSERT_NE(english, nullptr);
    EXPECT_EQ(english->LName, "English (United States)");
    EXPECT_EQ(english->CP1, "windows-1252");
    EXPECT_EQ(english->HHPLName, "0x409 English (United States)");
    EXPECT_EQ(english->HHPDefaultFont, "Arial,8,0");
    EXPECT_EQ(english->Key(), "English (United States)");

    const CCodePage* russian = m_pages.GetCodePageByLanguageCode("1049");
    ASSERT_NE(russian, nullptr);
    EXPECT_EQ(russian->LName, "Russian");
    EXPECT_EQ(russian->CP1, "windows-1251");
    EXPECT_EQ(russian->HHPLName, "0x419 Russian");
    EXPECT_EQ(russian->HHPDefaultFont, "Arial,8,204");

    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("9999"), nullptr);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode(""), nullptr);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("  "), nullptr);
}

TEST_F(CodePagesTest, TheShippedFileCoversTheCommonLanguages)
{
    ASSERT_EQ(m_pages.Load(ShippedFile()), 0u);
    for (const char* code : { "1033", "2057", "1031", "1036", "1040", "3082", "1043", "1046", "2070", "1045", "1029",
             "1038", "1049", "1058", "1026", "1032", "1055", "1053", "1030", "1044", "1035", "1037", "1025", "1041",
             "2052", "1028", "1042", "1054", "1066" })
        EXPECT_NE(m_pages.GetCodePageByLanguageCode(code), nullptr) << code;
}

// Every row must be usable as it stands in a project file: the language line
// names the same code in hex, and the font's character set fits the script.
TEST_F(CodePagesTest, EveryShippedRowIsConsistent)
{
    ASSERT_EQ(m_pages.Load(ShippedFile()), 0u);
    const std::set<std::string> charsets { "0", "204", "161", "162", "238", "177", "178", "128", "134", "136", "129",
        "222", "163", "186" };
    std::regex font(R"(([^,]+),(\d+),(\d+))");
    std::set<std::string> codes;
    for (const auto& entry : m_pages.Pages()) {
        const CCodePage& page = *entry.value;
        SCOPED_TRACE(page.LName);
        ASSERT_TRUE(IsNumeric(page.LCode));
        EXPECT_TRUE(codes.insert(page.LCode).second) << "duplicate code";
        char hex[16];
        std::snprintf(hex, sizeof hex, "0x%x ", static_cast<unsigned>(ToInt(page.LCode)));
        EXPECT_EQ(page.HHPLName, hex + page.LName);
        std::smatch parts;
        ASSERT_TRUE(std::regex_match(page.HHPDefaultFont, parts, font)) << page.HHPDefaultFont;
        EXPECT_TRUE(charsets.count(parts[3].str())) << page.HHPDefaultFont;
        EXPECT_FALSE(page.CP1.empty());
        EXPECT_FALSE(page.CP2.empty());
        EXPECT_FALSE(page.CP3.empty());
        EXPECT_EQ(std::set<std::string>({ page.CP1, page.CP2, page.CP3 }).size(), 3u) << "repeated charset";
    }
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("1037")->HHPDefaultFont, "Arial,8,177");
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("1041")->HHPDefaultFont.substr(
                  m_pages.GetCodePageByLanguageCode("1041")->HHPDefaultFont.rfind(',')),
        ",128");
}

// --- reading ---

TEST_F(CodePagesTest, AttributesAreReadInFileOrderAndPagesFoundByName)
{
    Write("<CodePages>\r\n"
          "  <CodePage LName=\"Greek\" LCode=\"1032\" CP1=\"windows-1253\" CP2=\"iso-8859-7\" CP3=\"utf-8\" "
          "HHPLName=\"0x408 Greek\" HHPDefaultFont=\"Arial,8,161\"/>\r\n"
          "  <Lang lname=\"Thai\" lcode=\" 1054 \" cp1=\"windows-874\"/>\r\n"
          "</CodePages>\r\n");
    ASSERT_EQ(m_pages.Load(m_dir / "CodePages.xml"), 0u);
    ASSERT_EQ(m_pages.Count(), 2u);
    EXPECT_EQ(m_pages.Pages().At(0).key, "Greek");
    EXPECT_EQ(m_pages.Pages().At(1).key, "Thai");
    const CCodePage* greek = m_pages.Page("GREEK");
    ASSERT_NE(greek, nullptr);
    EXPECT_EQ(greek->CP2, "iso-8859-7");
    EXPECT_EQ(greek->CP3, "utf-8");
    // Names of attributes do not depend on case, and codes are trimmed.
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("1054"), m_pages.Page("Thai"));
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode(" 1032 "), greek);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("01032"), greek);
    EXPECT_EQ(m_pages.Page("Thai")->CP1, "windows-874");
    EXPECT_EQ(m_pages.Page("Thai")->CP2, "");
}

TEST_F(CodePagesTest, NamelessAndRepeatedLanguagesArePassedOver)
{
    Write("<CodePages><P LCode=\"1\"/><P LName=\"A\" LCode=\"2\"/><P LName=\"a\" LCode=\"3\"/></CodePages>");
    ASSERT_EQ(m_pages.Load(m_dir / "CodePages.xml"), 0u);
    EXPECT_EQ(m_pages.Count(), 1u);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("2"), m_pages.Page("A"));
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("1"), nullptr);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("3"), nullptr);
}

TEST_F(CodePagesTest, ALoadReplacesThePagesAndTerminateForgetsThem)
{
    ASSERT_EQ(m_pages.Load(ShippedFile()), 0u);
    Write("<CodePages><P LName=\"Only\" LCode=\"7\"/></CodePages>");
    ASSERT_EQ(m_pages.Load(m_dir / "CodePages.xml"), 0u);
    EXPECT_EQ(m_pages.Count(), 1u);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("1033"), nullptr);
    m_pages.Terminate();
    EXPECT_EQ(m_pages.Count(), 0u);
    EXPECT_EQ(m_pages.GetCodePageByLanguageCode("7"), nullptr);
}

// --- bad input ---

TEST_F(CodePagesTest, AMissingFileAnswersTheCodePagesCode)
{
    EXPECT_EQ(m_pages.Load(m_dir / "none.xml"), 0x80040004u);
    EXPECT_EQ(m_pages.Count(), 0u);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(CodePagesTest, AFileThatDoesNotParseIsReportedWithItsPath)
{
    std::string path = Write("<CodePages><P LName=\"x\"</CodePages>");
    std::uint32_t code = m_pages.Load(path);
    EXPECT_NE(code, 0u);
    EXPECT_EQ(m_pages.Count(), 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text.rfind(FormatCode(code) + " - ", 0), 0u);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("in '" + path + "'"), std::string::npos);
}

TEST_F(CodePagesTest, AFileWithoutCodePagesAnswersTheFirstCode)
{
    Write("<Languages><P LName=\"x\" LCode=\"1\"/></Languages>");
    EXPECT_EQ(m_pages.Load(m_dir / "CodePages.xml"), 0x80040001u);
    EXPECT_EQ(m_pages.Count(), 0u);
}

}  // namespace
}  // namespace scriv
