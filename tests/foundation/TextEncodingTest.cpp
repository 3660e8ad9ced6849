#include <gtest/gtest.h>

#include "foundation/TextEncoding.h"

namespace scriv {
namespace {

TEST(XmlEncodeChars, LeavesPlainTextAlone)
{
    EXPECT_EQ(XmlEncodeChars(""), "");
    EXPECT_EQ(XmlEncodeChars("Form1 cmdOK [Save]"), "Form1 cmdOK [Save]");
    EXPECT_EQ(XmlEncodeChars("a=b; c?d@e_f{g|h}!#$%()*+,.:"), "a=b; c?d@e_f{g|h}!#$%()*+,.:");
}

TEST(XmlEncodeChars, WritesOtherAsciiAsNumericReferences)
{
    EXPECT_EQ(XmlEncodeChars("/"), "&#47;");
    EXPECT_EQ(XmlEncodeChars("\""), "&#34;");
    EXPECT_EQ(XmlEncodeChars("<b>"), "&#60;b&#62;");
    EXPECT_EQ(XmlEncodeChars("it's"), "it&#39;s");
    EXPECT_EQ(XmlEncodeChars("a-b\\c^d`e~"), "a&#45;b&#92;c&#94;d&#96;e&#126;");
    EXPECT_EQ(XmlEncodeChars("a\tb\r\n"), "a&#9;b&#13;&#10;");
}

TEST(XmlEncodeChars, LettersOfAnyScriptPassButOtherSymbolsDoNot)
{
    EXPECT_EQ(XmlEncodeChars("Café Ωμέγα Жук"), "Café Ωμέγα Жук");
    EXPECT_EQ(XmlEncodeChars("5 €"), "5 &#8364;");
    EXPECT_EQ(XmlEncodeChars("©"), "&#169;");
    EXPECT_EQ(XmlEncodeChars("\xC2\xA0"), "&#160;");
    // Beyond the basic plane the code point is written, not two halves.
    EXPECT_EQ(XmlEncodeChars("\xF0\x9F\x98\x80"), "&#128512;");
}

TEST(XmlEncodeChars, NamedEntitiesBecomeNumericReferences)
{
    EXPECT_EQ(XmlEncodeChars("&amp;"), "&#38;");
    EXPECT_EQ(XmlEncodeChars("&nbsp;"), "&#160;");
    EXPECT_EQ(XmlEncodeChars("Fish &amp; Chips&nbsp;Ltd"), "Fish &#38; Chips&#160;Ltd");
    EXPECT_EQ(XmlEncodeChars("&AGRAVE;&agrave;"), "&#192;&#224;");
}

TEST(XmlEncodeChars, KnownNumericReferencesStay)
{
    EXPECT_EQ(XmlEncodeChars("&#38;"), "&#38;");
    EXPECT_EQ(XmlEncodeChars("x&#160;y"), "x&#160;y");
    // Not in the table (the euro sign has no row), so the ampersand is escaped.
    EXPECT_EQ(XmlEncodeChars("&#8364;"), "&#38;#8364;");
}

TEST(XmlEncodeChars, LoneOrUnknownAmpersandIsEscaped)
{
    EXPECT_EQ(XmlEncodeChars("&"), "&#38;");
    EXPECT_EQ(XmlEncodeChars("R&D"), "R&#38;D");
    EXPECT_EQ(XmlEncodeChars("a & b; c"), "a &#38; b; c");
    EXPECT_EQ(XmlEncodeChars("&bogus;"), "&#38;bogus;");
    EXPECT_EQ(XmlEncodeChars("&&amp;"), "&#38;&#38;");
    // A ";" far behind cannot close an entity.
    EXPECT_EQ(XmlEncodeChars("&nbsp" + std::string(20, 'x') + ";"), "&#38;nbsp" + std::string(20, 'x') + ";");
}

TEST(XmlEncodeChars, LongTextWithManyAmpersandsStaysFast)
{
    // Quadratic work would take minutes here.
    std::string text(1'000'000, '&');
    text += ';';
    std::string encoded = XmlEncodeChars(text);
    EXPECT_EQ(encoded.size(), 1'000'000u * 5 + 1);
}

TEST(DecodeHtmlChars, NumericReferencesBecomeCharacters)
{
    EXPECT_EQ(DecodeHtmlChars("&#65;&#233;&#8364;"), "Aé€");
    EXPECT_EQ(DecodeHtmlChars("&#x41;&#XE9;"), "Aé");
    EXPECT_EQ(DecodeHtmlChars("&#128512;"), "\xF0\x9F\x98\x80");
    // Malformed or impossible references stay as text.
    EXPECT_EQ(DecodeHtmlChars("&#;&#x;&#12a;&#65"), "&#;&#x;&#12a;&#65");
    EXPECT_EQ(DecodeHtmlChars("&#0;&#55296;&#1114112;&#99999999999;"), "&#0;&#55296;&#1114112;&#99999999999;");
}

TEST(DecodeHtmlChars, TheListedNamesBecomeCharacters)
{
    EXPECT_EQ(DecodeHtmlChars("&amp;&lt;&gt;&quot;&#39;"), "&<>\"'");
    EXPECT_EQ(DecodeHtmlChars("&lsquo;&rsquo;&ldquo;&rdquo;&sbquo;&bdquo;"), "\u2018\u2019\u201C\u201D\u201A\u201E");
    EXPECT_EQ(DecodeHtmlChars("&trade;&ndash;&mdash;&copy;&reg;"), "\u2122\u2013\u2014\u00A9\u00AE");
    EXPECT_EQ(DecodeHtmlChars("&nbsp;&agrave;&AMP;"), "&nbsp;&agrave;&AMP;");
}

TEST(DecodeHtmlChars, CircStandsForTheEuroSign)
{
    EXPECT_EQ(DecodeHtmlChars("5 &circ;"), "5 \u20AC");
    EXPECT_EQ(DecodeHtmlEntities("5 &circ;"), "5 \u20AC");
}

TEST(DecodeHtmlEntities, TranslatesLikeDecodeHtmlChars)
{
    EXPECT_EQ(DecodeHtmlEntities("Tom &amp; Jerry&#8482;"), "Tom & Jerry\u2122");
    EXPECT_EQ(DecodeHtmlEntities("plain"), "plain");
}

TEST(CaptionFilter, DecodesDropsQuotesAndEncodes)
{
    EXPECT_EQ(CaptionFilter("Save &amp; Close"), "Save &#38; Close");
    EXPECT_EQ(CaptionFilter("The &quot;Main&quot; form"), "The Main form");
    EXPECT_EQ(CaptionFilter("Say \"hi\" <now>"), "Say hi &#60;now&#62;");
    EXPECT_EQ(CaptionFilter("&#47;"), "&#47;");
    EXPECT_EQ(CaptionFilter("Prix &circ;"), "Prix &#8364;");
}

}  // namespace
}  // namespace scriv
