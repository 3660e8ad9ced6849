#include <gtest/gtest.h>

#include "foundation/CCodePages.h"
#include "foundation/LanguageTag.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

std::string TagOf(std::string_view language)
{
    return LanguageTagOf(language).tag;
}

TEST(LanguageTags, FolderNamesAndTagsComeOutInTheCaseATagIsWritten)
{
    EXPECT_EQ(TagOf("EN"), "en");
    EXPECT_EQ(TagOf("de"), "de");
    EXPECT_EQ(TagOf(" RU "), "ru");
    EXPECT_EQ(TagOf("ZH-CN"), "zh-CN");
    EXPECT_EQ(TagOf("pt_br"), "pt-BR");
    EXPECT_EQ(TagOf("zh-hant-tw"), "zh-Hant-TW");
    EXPECT_EQ(TagOf("es-419"), "es-419");
    EXPECT_EQ(TagOf("de-CH-1996"), "de-CH-1996");
    EXPECT_EQ(TagOf("en-US-x-Help"), "en-US-x-help");
    // The names .NET gave the two Chinese scripts.
    EXPECT_EQ(TagOf("zh-CHS"), "zh-Hans");
    EXPECT_EQ(TagOf("zh-CHT"), "zh-Hant");
}

TEST(LanguageTags, ThreeLetterCodesBecomeTheShortestCode)
{
    EXPECT_EQ(TagOf("deu"), "de");
    EXPECT_EQ(TagOf("GER"), "de");
    EXPECT_EQ(TagOf("fra"), "fr");
    EXPECT_EQ(TagOf("eng"), "en");
    EXPECT_EQ(TagOf("lao"), "lo");
    // Windows abbreviations that are no ISO code.
    EXPECT_EQ(TagOf("ENU"), "en-US");
    EXPECT_EQ(TagOf("CHS"), "zh-CN");
    EXPECT_EQ(TagOf("PTB"), "pt-BR");
    EXPECT_EQ(TagOf("ROM"), "ro-RO");
    // A language with no two-letter code keeps its own.
    EXPECT_EQ(TagOf("haw"), "haw");
    EXPECT_EQ(TagOf("fil"), "fil");
}

TEST(LanguageTags, WithdrawnCodesAndCountryFoldersNameTheLanguage)
{
    EXPECT_EQ(TagOf("iw"), "he");
    EXPECT_EQ(TagOf("in"), "id");
    EXPECT_EQ(TagOf("JP"), "ja");
    EXPECT_EQ(TagOf("CN"), "zh-CN");
    EXPECT_EQ(TagOf("GR"), "el");
    // A country code that is also a language code is the language.
    EXPECT_EQ(TagOf("BR"), "br");
    EXPECT_EQ(TagOf("SE"), "se");
}

TEST(LanguageTags, NamesWithARegionScriptOrVariantInBrackets)
{
    EXPECT_EQ(TagOf("English"), "en");
    EXPECT_EQ(TagOf("english (united kingdom)"), "en-GB");
    EXPECT_EQ(TagOf("Arabic (Egypt)"), "ar-EG");
    EXPECT_EQ(TagOf("Chinese (PRC)"), "zh-CN");
    EXPECT_EQ(TagOf("Chinese (Hong Kong SAR)"), "zh-HK");
    EXPECT_EQ(TagOf("Chinese (Traditional)"), "zh-Hant");
    EXPECT_EQ(TagOf("Serbian (Cyrillic)"), "sr-Cyrl");
    EXPECT_EQ(TagOf("Norwegian (Bokmal)"), "nb");
    EXPECT_EQ(TagOf("Norwegian (Nynorsk)"), "nn");
    EXPECT_EQ(TagOf("Farsi"), "fa");
    EXPECT_EQ(TagOf("Persian"), "fa");
    // A bracket that names nothing known leaves the language alone.
    EXPECT_EQ(TagOf("German (Atlantis)"), "de");
}

TEST(LanguageTags, WindowsLanguageCodesInDecimalOrHexadecimal)
{
    EXPECT_EQ(TagOf("1033"), "en-US");
    EXPECT_EQ(TagOf("1025"), "ar-SA");
    EXPECT_EQ(TagOf("2052"), "zh-CN");
    EXPECT_EQ(TagOf("0x419 Russian"), "ru-RU");
    EXPECT_EQ(TagOf("0X40D"), "he-IL");
    // A code not listed whole is known by its language.
    EXPECT_EQ(TagOf("7177"), "en");
    EXPECT_EQ(TagOf("1033x"), "");
    EXPECT_EQ(TagOf("99999"), "");
}

TEST(LanguageTags, WhatNamesNoLanguageGivesNoTag)
{
    for (std::string_view text : { "", "   ", "XX", "Klingon", "e", "en--US", "en-US!", "de-toolongsubtag", "en-abc",
             "(German)", "x-private", "12ab" }) {
        LanguageTag result = LanguageTagOf(text);
        EXPECT_FALSE(result.Known()) << "'" << text << "' gave " << result.tag;
        EXPECT_FALSE(result.rightToLeft) << text;
    }
}

TEST(LanguageTags, RightToLeftFollowsTheScriptElseTheLanguage)
{
    for (std::string_view rtl : { "AR", "he", "iw", "fa", "Farsi", "ur", "ps", "yi", "ckb", "dv", "ug", "sd",
             "Hebrew", "Arabic (Saudi Arabia)", "1025", "0x401", "az-Arab", "pa-Arab", "ms-Arab-MY" })
        EXPECT_TRUE(LanguageTagOf(rtl).rightToLeft) << rtl;
    for (std::string_view ltr : { "en", "ru", "zh-CN", "ja", "Greek", "ku", "ku-Latn", "sd-Deva", "uz-Latn",
             "ar-Latn", "1033", "tr" })
        EXPECT_FALSE(LanguageTagOf(ltr).rightToLeft) << ltr;
    // A script after an extension is no script.
    EXPECT_FALSE(IsRightToLeftTag("en-x-arab"));
    EXPECT_TRUE(IsRightToLeftTag("ar-x-latn"));
}

// Each language of the shipped code pages table is known by its name and by
// its code, and both name the same language.
TEST(LanguageTags, EveryLanguageOfTheCodePagesTableHasATag)
{
    CCodePages pages;
    ASSERT_EQ(pages.Load(std::string(SCRIVANT_TEST_DATA_DIR) + "/Settings/CodePages.xml"), 0u);
    ASSERT_GT(pages.Count(), 40u);
    for (const auto& entry : pages.Pages()) {
        const CCodePage& page = *entry.value;
        LanguageTag byName = LanguageTagOf(page.LName);
        LanguageTag byCode = LanguageTagOf(page.LCode);
        LanguageTag byProjectName = LanguageTagOf(page.HHPLName);
        ASSERT_TRUE(byName.Known()) << page.LName;
        ASSERT_TRUE(byCode.Known()) << page.LCode;
        EXPECT_EQ(byCode.tag, byProjectName.tag) << page.HHPLName;
        EXPECT_EQ(byName.tag.substr(0, byName.tag.find('-')), byCode.tag.substr(0, byCode.tag.find('-')))
            << page.LName << " / " << page.LCode;
        EXPECT_EQ(byName.rightToLeft, byCode.rightToLeft) << page.LName;
    }
}

}  // namespace
}  // namespace scriv
