#include <gtest/gtest.h>

#include <set>

#include "foundation/CSpecialChars.h"
#include "foundation/StringUtil.h"

namespace scriv {
namespace {

TEST(SpecialCharsTable, HoldsTheHtml4SetWithoutEuro)
{
    auto rows = CSpecialChars::Rows();
    EXPECT_EQ(rows.size(), 251u);
    std::set<std::string_view> names;
    for (const auto& row : rows) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(row.name.front(), '&');
        EXPECT_EQ(row.name.back(), ';');
        EXPECT_TRUE(row.reference.starts_with("&#")) << row.reference;
    }
    EXPECT_EQ(names.count("&euro;"), 0u);
    EXPECT_EQ(SpecialChars().GetNumCode("&euro;"), "");
    // The sets follow one another: Latin-1, then symbols, then the special set.
    EXPECT_EQ(rows.front().name, "&nbsp;");
    EXPECT_EQ(rows[95].name, "&yuml;");
    EXPECT_EQ(rows[96].name, "&fnof;");
    EXPECT_EQ(rows[220].name, "&quot;");
    EXPECT_EQ(rows.back().name, "&rsaquo;");
}

TEST(SpecialCharsTable, TranslatesBothWays)
{
    const CSpecialChars& table = SpecialChars();
    EXPECT_EQ(table.GetNumCode("&nbsp;"), "&#160;");
    EXPECT_EQ(table.GetNumCode("&amp;"), "&#38;");
    EXPECT_EQ(table.GetNumCode("&hearts;"), "&#9829;");
    EXPECT_EQ(table.GetCharCode("&#160;"), "&nbsp;");
    EXPECT_EQ(table.GetCharCode("&#8364;"), "");
    EXPECT_EQ(table.GetNumCode("&bogus;"), "");
    EXPECT_EQ(table.GetNumCode(""), "");
    EXPECT_EQ(table.GetCharCode("&#;"), "");
    EXPECT_EQ(table.GetNumCode("&" + std::string(500, 'a') + ";"), "");
}

TEST(SpecialCharsTable, ExactCaseWinsBetweenTwins)
{
    const CSpecialChars& table = SpecialChars();
    EXPECT_EQ(table.GetNumCode("&agrave;"), "&#224;");
    EXPECT_EQ(table.GetNumCode("&Agrave;"), "&#192;");
    EXPECT_EQ(table.GetNumCode("&AGRAVE;"), "&#192;");
    EXPECT_EQ(table.GetCharCode("&#224;"), "&agrave;");
    EXPECT_EQ(table.GetCharCode("&#192;"), "&Agrave;");
    EXPECT_EQ(table.GetNumCode("&alpha;"), "&#945;");
    EXPECT_EQ(table.GetNumCode("&Alpha;"), "&#913;");
    EXPECT_EQ(table.GetNumCode("&prime;"), "&#8242;");
    EXPECT_EQ(table.GetNumCode("&Prime;"), "&#8243;");
    EXPECT_EQ(table.GetNumCode("&PRIME;"), "&#8242;");
    EXPECT_EQ(table.GetNumCode("&lArr;"), "&#8656;");
    EXPECT_EQ(table.GetNumCode("&larr;"), "&#8592;");
    // The twin that comes later in the table is the lower case one here.
    EXPECT_EQ(table.GetNumCode("&dagger;"), "&#8224;");
    EXPECT_EQ(table.GetNumCode("&Dagger;"), "&#8225;");
    EXPECT_EQ(table.GetNumCode("&yuml;"), "&#255;");
    EXPECT_EQ(table.GetNumCode("&Yuml;"), "&#376;");
    EXPECT_EQ(table.GetCharCode("&#376;"), "&Yuml;");
}

TEST(SpecialCharsTable, NamesWithoutTwinIgnoreCase)
{
    const CSpecialChars& table = SpecialChars();
    EXPECT_EQ(table.GetNumCode("&NBSP;"), "&#160;");
    EXPECT_EQ(table.GetNumCode("&Copy;"), "&#169;");
    EXPECT_EQ(table.GetNumCode("&PERP;"), "&#8869;");
}

TEST(SpecialCharsTable, KeepsTheOldPairingsOfAndAndOr)
{
    const CSpecialChars& table = SpecialChars();
    EXPECT_EQ(table.GetNumCode("&and;"), "&#8869;");
    EXPECT_EQ(table.GetNumCode("&or;"), "&#8870;");
    EXPECT_EQ(table.GetNumCode("&perp;"), "&#8869;");
    // &#8869; is named twice; the later row answers.
    EXPECT_EQ(table.GetCharCode("&#8869;"), "&perp;");
    EXPECT_EQ(table.GetCharCode("&#8870;"), "&or;");
    EXPECT_EQ(table.GetCharCode("&#8743;"), "");
}

TEST(SpecialCharsTable, EveryRowAnswersItsOwnName)
{
    const CSpecialChars& table = SpecialChars();
    for (const auto& row : CSpecialChars::Rows()) {
        EXPECT_EQ(table.GetNumCode(row.name), row.reference) << row.name;
        if (row.name != "&and;") {
            EXPECT_EQ(table.GetCharCode(row.reference), row.name) << row.reference;
        }
    }
}

}  // namespace
}  // namespace scriv
