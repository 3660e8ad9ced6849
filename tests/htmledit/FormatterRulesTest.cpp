#include <gtest/gtest.h>

#include "htmledit/CHtmlNodeAttributes.h"
#include "htmledit/CHtmlStringBuilder.h"
#include "htmledit/CHtmlStringFormatter.h"
#include "htmledit/PageUrls.h"

namespace scriv {
namespace {

TEST(HtmlStringBuilder, ALineBreakGoesInFrontOnlyWhenThereIsText)
{
    CHtmlStringBuilder builder;
    builder.init(10, 0);
    builder.AddString("<A>", true);
    EXPECT_EQ(builder.Value(), "<A>");
    builder.AddString("<B>", true);
    EXPECT_EQ(builder.Value(), "<A>\r\n<B>");
    EXPECT_FALSE(builder.LastTokenIsCrLf());
    builder.AddString("\r\n\r\n");
    EXPECT_TRUE(builder.LastTokenIsCrLf());
    builder.RemoveTrailingVbCrLf();
    EXPECT_EQ(builder.Value(), "<A>\r\n<B>");
    EXPECT_EQ(builder.CurrentLen(), 8u);

    CHtmlStringBuilder shortOne;
    shortOne.init(0, 0);
    shortOne.AddString("\n");
    EXPECT_FALSE(shortOne.LastTokenIsCrLf());
    // Far past the initial size it keeps every character.
    for (int i = 0; i < 1000; ++i)
        shortOne.AddString("0123456789");
    EXPECT_EQ(shortOne.CurrentLen(), 10001u);
}

TEST(HtmlStringBuilder, FormatStringTrimsLinesAndIndentsAllButTheFirst)
{
    EXPECT_EQ(CHtmlStringBuilder::formatString("  a\r\n   b  \n\n c", "..."), "a\r\n...b\r\n...c");
    EXPECT_EQ(CHtmlStringBuilder::formatString("\n\n  a\n", "  "), "\r\n  a");
    EXPECT_EQ(CHtmlStringBuilder::formatString("   ", "  "), "");
    EXPECT_EQ(CHtmlStringBuilder::formatString("\ta", "  "), "\ta");
}

TEST(HtmlStringFormatter, EncodeTextAndEncodeAttribute)
{
    EXPECT_EQ(CHtmlStringFormatter::EncodeText(""), "");
    EXPECT_EQ(CHtmlStringFormatter::EncodeText("a & b < c > \"d\"\r\n"), "a &amp; b &lt; c &gt; \"d\"\r\n");
    EXPECT_EQ(CHtmlStringFormatter::EncodeText("1\xC2\xA0" "2"), "1&nbsp;2");
    EXPECT_EQ(CHtmlStringFormatter::EncodeText("&amp;"), "&amp;amp;");
    EXPECT_EQ(CHtmlStringFormatter::EncodeAttribute("a \"b\" & <c>\xC2\xA0"), "a &quot;b&quot; &amp; &lt;c&gt;\xC2\xA0");
}

TEST(HtmlStringFormatter, DecodeUrlReplacesInItsOwnOrder)
{
    EXPECT_EQ(CHtmlStringFormatter::DecodeUrl("C:\\a%20b\\%23%26%5E%5B%5D%7B%7D.htm"), "C:/a b/#&^[]{}.htm");
    // "%25" comes late, so "%2520" ends as "%20".
    EXPECT_EQ(CHtmlStringFormatter::DecodeUrl("a%2520b"), "a%20b");
    EXPECT_EQ(CHtmlStringFormatter::DecodeUrl("x.htm?a=1&amp;b=2"), "x.htm?a=1&b=2");
    EXPECT_EQ(CHtmlStringFormatter::DecodeUrl("%5e"), "%5e");
}

TEST(HtmlStringFormatter, BaseFolderAndFileNameComeFromThePageAddress)
{
    CHtmlStringFormatter formatter;
    formatter.SetBaseFolder("file:///home/u/My%20Help/page%20one.htm");
    formatter.SetFileName("file:///home/u/My%20Help/page%20one.htm");
    EXPECT_EQ(formatter.BaseFolder(), "home/u/My Help/");
    EXPECT_EQ(formatter.FileName(), "page one.htm");
    EXPECT_EQ(formatter.MakeRelative("file:///home/u/My%20Help/page%20one.htm#a"), "#a");
    EXPECT_EQ(formatter.MakeRelative("file:///home/u/My%20Help/page%20one.htm"), "");
    formatter.SetBaseFolder("file:///C:\\Help\\x.htm");
    EXPECT_EQ(formatter.BaseFolder(), "C:/Help/");
    EXPECT_EQ(formatter.MakeRelative("file:///c:/help/pics/a.png"), "pics/a.png");
    EXPECT_EQ(formatter.MakeRelative("C:\\Help\\pics\\a.png"), "pics/a.png");
}

TEST(HtmlNodeAttributes, AttributesAreReadFromTheFirstTag)
{
    CHtmlNodeAttributes reader;
    reader.SetBaseFolder("help/");
    std::vector<CHtmlAttribute> attributes = reader.GetNodeAttributes(
        "<IMG  src = \"file:///help/a%20b.png\"\r\n alt='x  \"y\"' border=0 hidden alt=\"second\" data-x=\"a>b\">text<b c=d>");
    ASSERT_EQ(attributes.size(), 4u);
    EXPECT_EQ(attributes[0].Name, "src");
    EXPECT_EQ(attributes[0].Value, "a b.png");
    EXPECT_EQ(attributes[1].Name, "alt");
    EXPECT_EQ(attributes[1].Value, "x \"y\"");
    EXPECT_EQ(attributes[2].Name, "border");
    EXPECT_EQ(attributes[2].Value, "0");
    EXPECT_EQ(attributes[3].Name, "data-x");
    EXPECT_EQ(attributes[3].Value, "a>b");
    // The base folder goes only from the front, respecting case; an empty result keeps the value.
    EXPECT_EQ(reader.GetNodeAttributes("<a href=\"HELP/x.htm\">")[0].Value, "HELP/x.htm");
    EXPECT_EQ(reader.GetNodeAttributes("<a href=\"file:///help/\">")[0].Value, "file:///help/");
    EXPECT_TRUE(reader.GetNodeAttributes("no tag = here").empty());
}

TEST(PageUrls, APathBecomesAnAddressThatReadsBack)
{
    EXPECT_EQ(FileUrlOfPath("/tmp/my help/a#1%.htm"), "file:///tmp/my%20help/a%231%25.htm");
    EXPECT_EQ(FileUrlOfPath("C:\\Help\\x.htm"), "file:///C:/Help/x.htm");
}

TEST(PageUrls, ReferencesAreResolvedAsABrowserDoes)
{
    std::string base = "file:///help/topics/page.htm";
    EXPECT_EQ(ResolveUrl(base, "pic.png"), "file:///help/topics/pic.png");
    EXPECT_EQ(ResolveUrl(base, " ../images/a b.png "), "file:///help/images/a%20b.png");
    EXPECT_EQ(ResolveUrl(base, "./x/../y.htm#f.1"), "file:///help/topics/y.htm#f.1");
    EXPECT_EQ(ResolveUrl(base, "images\\a.png"), "file:///help/topics/images/a.png");
    EXPECT_EQ(ResolveUrl(base, "../../../../x.htm"), "file:///x.htm");
    EXPECT_EQ(ResolveUrl(base, "#top"), "file:///help/topics/page.htm#top");
    EXPECT_EQ(ResolveUrl(base, ""), base);
    EXPECT_EQ(ResolveUrl(base, "?q=1"), "file:///help/topics/page.htm?q=1");
    EXPECT_EQ(ResolveUrl(base, "/abs/z.htm"), "file:///abs/z.htm");
    EXPECT_EQ(ResolveUrl(base, "//server/share/z.htm"), "file://server/share/z.htm");
    EXPECT_EQ(ResolveUrl(base, "C:\\x.htm"), "file:///C:/x.htm");
    EXPECT_EQ(ResolveUrl(base, "mailto:someone@example.com"), "mailto:someone@example.com");
    EXPECT_EQ(ResolveUrl(base, "HTTP://example.com/a b"), "HTTP://example.com/a%20b");
    EXPECT_EQ(ResolveUrl(base, "file:///other/x.htm"), "file:///other/x.htm");
    EXPECT_EQ(ResolveUrl("http://host/a/b.htm", "c.htm"), "http://host/a/c.htm");
}

}  // namespace
}  // namespace scriv
