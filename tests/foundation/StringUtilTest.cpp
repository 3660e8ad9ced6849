#include <gtest/gtest.h>

#include "foundation/KeyedCollection.h"
#include "foundation/StringUtil.h"

namespace scriv {
namespace {

TEST(CaseFolding, ComparesLettersOfEveryScriptWithoutCase)
{
    EXPECT_TRUE(EqualsNoCase("Forms", "FORMS"));
    EXPECT_TRUE(EqualsNoCase("Éclair", "éCLAIR"));
    EXPECT_TRUE(EqualsNoCase("Форма", "ФОРМА"));
    EXPECT_FALSE(EqualsNoCase("Form", "Forms"));
    EXPECT_LT(CompareNoCase("apple", "Banana"), 0);
    EXPECT_GT(CompareNoCase("b", "A"), 0);
}

TEST(CaseFolding, EqualityAgreesWithTheComparisonOnAsciiAndMixedNames)
{
    // Characters one case bit apart that are no letters, names that end
    // early, and non-ASCII letters after an ASCII start.
    const char* const names[] = { "", "a", "A", "@", "`", "[", "{", "Form1", "FORM1", "form1x", "cmd_OK", "CMD_ok",
        "Caption", "Captio", "txtÄrger", "TXTärger", "txtärgeR", "Kelvin", "\xE2\x84\xAA" "elvin", "s", "\xC5\xBF",
        "Ärger", "ärger", "name\x7F", "NAME\x7F", "ab\xFF", "AB\xFF" };
    for (const char* a : names)
        for (const char* b : names)
            EXPECT_EQ(EqualsNoCase(a, b), CompareNoCase(a, b) == 0) << "'" << a << "' and '" << b << "'";
    EXPECT_TRUE(EqualsNoCase("txtÄrger", "TXTärger"));
    EXPECT_FALSE(EqualsNoCase("@", "`"));
    EXPECT_FALSE(EqualsNoCase("[", "{"));
}

TEST(CaseFolding, FindsAndReplacesWithoutCase)
{
    EXPECT_EQ(FindNoCase("<HTML><Title>x</title>", "<title>"), 6u);
    EXPECT_EQ(FindNoCase("abc", "d"), std::string::npos);
    EXPECT_EQ(ReplaceAllNoCase("{{BODY}} and {{body}}", "{{Body}}", "x"), "x and x");
    EXPECT_EQ(ReplaceAllNoCase("Ärger ÄRGER", "ärger", "ok"), "ok ok");
    EXPECT_TRUE(StartsWithNoCase("Begin VB.Form frmMain", "begin vb.form"));
    EXPECT_FALSE(StartsWithNoCase("Beg", "Begin"));
    EXPECT_TRUE(EndsWithNoCase("main.HTM", ".htm"));
}

TEST(Replacing, ReplacesEveryOccurrenceOnce)
{
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceFirst("a-b-c", "-", "+"), "a+b-c");
}

TEST(Trimming, TrimTakesBlanksOnly)
{
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(TrimWhitespace("\t a \r\n"), "a");
    EXPECT_EQ(StripLineEnds("line\r\n\r\n"), "line");
}

TEST(Splitting, KeepsEmptyPartsAndHandlesAllLineEnds)
{
    EXPECT_EQ(Split("a||b", "|"), (std::vector<std::string> { "a", "", "b" }));
    EXPECT_EQ(Split("", "|"), (std::vector<std::string> { "" }));
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (std::vector<std::string> { "a", "b", "c", "d" }));
    EXPECT_EQ(Join({ "a", "b" }, "|"), "a|b");
}

TEST(Numbers, ReadsLeadingNumbersLikeTheFilesWriteThem)
{
    EXPECT_EQ(ToInt("12abc"), 12);
    EXPECT_EQ(ToInt(" -5 "), -5);
    EXPECT_EQ(ToInt(""), 0);
    EXPECT_EQ(ParseInteger("-1"), -1);
    EXPECT_FALSE(ParseInteger("1x").has_value());
    EXPECT_TRUE(IsNumeric("-1"));
    EXPECT_TRUE(IsNumeric("3.5"));
    EXPECT_FALSE(IsNumeric("true"));
}

TEST(Utf8, CountsAndCutsByCharacters)
{
    EXPECT_EQ(CharCount("aé€"), 3u);
    EXPECT_EQ(LeftChars("aé€b", 3), "aé€");
    EXPECT_EQ(Utf32ToUtf8(Utf8ToUtf32("Ωmega €")), "Ωmega €");
    EXPECT_TRUE(IsValidUtf8("aé"));
    EXPECT_FALSE(IsValidUtf8("a\xE9"));
    // A stray byte survives a round trip as a Latin-1 character instead of vanishing.
    EXPECT_EQ(Utf8ToUtf32("a\xE9"), U"a\u00E9");
}

TEST(Alphabetic, KnowsLettersOfOtherScripts)
{
    EXPECT_TRUE(IsAlphabetic(U'é'));
    EXPECT_TRUE(IsAlphabetic(U'Ж'));
    EXPECT_TRUE(IsAlphabetic(U'λ'));
    EXPECT_FALSE(IsAlphabetic(U'1'));
    EXPECT_FALSE(IsAlphabetic(U'€'));
}

TEST(KeyedCollection, KeysAreUniqueWithoutCaseAndOrderIsKept)
{
    KeyedCollection<int> items;
    EXPECT_TRUE(items.Add("Forms", 1));
    EXPECT_TRUE(items.Add("Reports", 2));
    EXPECT_FALSE(items.Add("FORMS", 3));
    EXPECT_TRUE(items.Insert(0, "Welcome", 0));
    EXPECT_EQ(items.Count(), 3u);
    EXPECT_EQ(items.At(0).key, "Welcome");
    EXPECT_EQ(*items.Find("reports"), 2);
    EXPECT_EQ(items.IndexOf("forms"), 1u);
    EXPECT_TRUE(items.Remove("WELCOME"));
    EXPECT_EQ(items.IndexOf("Reports"), 1u);
    EXPECT_EQ(items.Find("Welcome"), nullptr);
}

}  // namespace
}  // namespace scriv
