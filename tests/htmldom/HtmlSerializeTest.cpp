#include <gtest/gtest.h>

#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlSerializer.h"
#include "PageFixtures.h"

namespace scriv {
namespace {

std::string Reserialized(std::string_view html)
{
    return HtmlDocument::Parse(html)->outerHTML();
}

TEST(HtmlSerialize, ADocumentIsWrittenByteForByte)
{
    std::string html = Reserialized(
        "<!DOCTYPE html><HTML><HEAD><TITLE>T</TITLE></HEAD><BODY><P CLASS=x>a &amp; b &lt; c<BR>"
        "<IMG SRC=\"i.png\" ALT='say \"hi\"'></BODY></HTML>");
    EXPECT_EQ(html,
        "<!DOCTYPE html>\n<html><head><title>T</title></head><body><p class=\"x\">a &amp; b &lt; c<br>"
        "<img src=\"i.png\" alt=\"say &quot;hi&quot;\"></p></body></html>");
}

TEST(HtmlSerialize, ALegacyDoctypeKeepsItsIdentifiers)
{
    EXPECT_EQ(Reserialized("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\"><p>x"),
        "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\">\n"
        "<html><head></head><body><p>x</p></body></html>");
    EXPECT_EQ(Reserialized("<!DOCTYPE html SYSTEM \"about:legacy-compat\">"),
        "<!DOCTYPE html SYSTEM \"about:legacy-compat\">\n<html><head></head><body></body></html>");
}

TEST(HtmlSerialize, VoidElementsHaveNoEndTag)
{
    auto document = HtmlDocument::Parse("<map name=m><AREA shape=rect href=a.htm /></map><hr/><input value=1>");
    EXPECT_EQ(document->body()->innerHTML(),
        "<map name=\"m\"><area shape=\"rect\" href=\"a.htm\"></map><hr><input value=\"1\">");
}

TEST(HtmlSerialize, ScriptAndStyleTextIsWrittenAsItStands)
{
    const std::string body = "<script>if (a < b && c > d) x = \"&amp;\";</script><style>p > a { content: \"&\" }</style>";
    auto document = HtmlDocument::Parse("<body>" + body + "</body>");
    EXPECT_EQ(document->body()->innerHTML(), body);
}

TEST(HtmlSerialize, TextAndAttributesAreEscaped)
{
    auto document = HtmlDocument::Parse("<body></body>");
    HtmlElement& p = static_cast<HtmlElement&>(document->body()->appendChild(HtmlDocument::createElement("p")));
    p.setAttribute("title", "a \"b\" & <c>\u00A0d");
    p.appendChild(HtmlDocument::createTextNode("1 < 2 & 3 > \"2\"\u00A0ok"));
    EXPECT_EQ(p.outerHTML(), "<p title=\"a &quot;b&quot; &amp; <c>&nbsp;d\">1 &lt; 2 &amp; 3 &gt; \"2\"&nbsp;ok</p>");
    EXPECT_EQ(EscapeHtmlText("x\xC2"), "x\xC2");
}

TEST(HtmlSerialize, CommentsKeepTheirTextWhereTheyStood)
{
    auto document = HtmlDocument::Parse("<!-- before --><html><body><!-- + CONTROLS + --><p>x</p></body></html><!-- after -->");
    EXPECT_EQ(document->outerHTML(),
        "<!-- before -->\n<html><head></head><body><!-- + CONTROLS + --><p>x</p></body></html>\n<!-- after -->");
}

TEST(HtmlSerialize, NonAsciiTextIsByteIdentical)
{
    const std::string text = "Größe – 日本語 😀 ÆØÅ";
    auto document = HtmlDocument::Parse("<body><p title=\"" + text + "\">" + text + "</p></body>");
    EXPECT_EQ(document->body()->innerHTML(), "<p title=\"" + text + "\">" + text + "</p>");
}

TEST(HtmlSerialize, NamedEntitiesBecomeCharactersExceptMarkupOnes)
{
    auto document = HtmlDocument::Parse(test::kInternational);
    EXPECT_EQ(document->getElementsByTagName("p").at(0)->innerHTML(),
        "Größe&nbsp;– 日本語 😀 © é € A &lt;tag&gt;");
}

TEST(HtmlSerialize, ALeadingLineBreakOfPreformattedTextSurvives)
{
    // The parser drops the first line break after <pre>; the second must stay.
    std::string once = Reserialized("<pre>\n\nline</pre><textarea>\n\nx &lt; y</textarea>");
    EXPECT_EQ(once, "<html><head></head><body><pre>\n\nline</pre><textarea>\n\nx &lt; y</textarea></body></html>");
    EXPECT_EQ(Reserialized(once), once);
}

TEST(HtmlSerialize, AnElementAloneHasNoLeadingLineBreak)
{
    auto document = HtmlDocument::Parse("<!DOCTYPE html><p>x");
    EXPECT_EQ(document->documentElement()->outerHTML(), "<html><head></head><body><p>x</p></body></html>");
    EXPECT_EQ(document->innerHTML(), document->outerHTML());
}

TEST(HtmlSerialize, ParseWriteParseWriteIsStable)
{
    const std::string pages[] = {
        test::kGeneratedTopic,
        test::kTagSoup,
        test::kInternational,
        "<table><tr><td>a</td></tr></table><table>text<tr>x</table>",
        "<p><div>block in paragraph</div></p><a href=x><a href=y>nested links</a></a>",
        "<select><option>one<option selected>two</select><form><input type=checkbox checked></form>",
        "<title>a &amp; b</title><noscript><p>no script</p></noscript><template><td>cell</td></template>",
        "<svg><path d=\"M0 0\"/><![CDATA[raw <text>]]></svg><math><mi>x</mi></math>",
        "<body onload=\"a()\"><h1>x<h2>y</h1></h2><font color=red><b>z</font>w</b>",
        "<frameset><frame src=a.htm><frame src=b.htm></frameset><noframes>none</noframes>",
        "text before html <html> text <head> text <body> text </body> text </html> text",
    };
    for (const std::string& page : pages) {
        std::string first = Reserialized(page);
        std::string second = Reserialized(first);
        EXPECT_EQ(first, second) << "page: " << page;
    }
}

TEST(HtmlSerialize, CrLfPagesComeBackWithLineFeeds)
{
    std::string html = Reserialized(test::kGeneratedTopic);
    EXPECT_EQ(html.find('\r'), std::string::npos);
    EXPECT_NE(html.find("<h1>Orders</h1>\n<img src=\"pics/Orders.jpg\" usemap=\"#map1\" border=\"0\">\n<map name=\"map1\">\n"
                        "<area shape=\"rect\" coords=\"1,2,3,4\" href=\"#cmdOK\">\n"),
        std::string::npos);
    EXPECT_NE(html.find("<!-- - CONTROLS - -->\n\n\n\n<script type=\"text/javascript\" id=\"wbh\">\n<!--\n"), std::string::npos);
}

}  // namespace
}  // namespace scriv
