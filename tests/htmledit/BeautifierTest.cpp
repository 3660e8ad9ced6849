#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "foundation/Paths.h"
#include "htmldom/HtmlDocument.h"
#include "htmledit/CHtmlBeautifier.h"
#include "htmledit/HtmlPageFile.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

constexpr std::string_view kPageUrl = "file:///help/page.htm";

std::string Beautify(std::string_view html, std::string_view url = kPageUrl)
{
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(html);
    return BeautifiedHtml(*document, url);
}

// The lines between <BODY> and </BODY>; the body's children stand at level 3
// (four blanks).
std::string BodyOf(std::string_view html, std::string_view url = kPageUrl)
{
    std::string page = Beautify(html, url);
    std::size_t start = page.find("<BODY>\r\n");
    std::size_t end = page.rfind("\r\n  </BODY>");
    if (start == std::string::npos || end == std::string::npos || end < start + 8)
        return "(no body) " + page;
    return page.substr(start + 8, end - start - 8);
}

std::string FixtureFolder()
{
    return test::SourceDataFolder() + "../tests/htmledit/";
}

std::string ReadBytes(const std::string& path)
{
    return ReadFileText(path).value_or("(missing " + path + ")");
}

TEST(BeautifierGolden, AGeneratedTopicIsWrittenByteForByte)
{
    for (const char* name : { "OrderDesk_Form_frmLogin.htm", "OrderDeskTOC.htm" }) {
        HtmlPageText page = ReadHtmlPage(FixtureFolder() + "fixtures/" + name);
        std::string written = BeautifyHtmlText(page.text, std::string("file:///help/") + name) + page.trailer;
        EXPECT_EQ(written, ReadBytes(FixtureFolder() + "golden/" + name)) << name;
    }
}

TEST(BeautifierGolden, ItsOwnOutputComesBackUnchanged)
{
    std::vector<std::string> pages;
    for (const char* name : { "OrderDesk_Form_frmLogin.htm", "OrderDeskTOC.htm" })
        pages.push_back(ReadHtmlPage(FixtureFolder() + "fixtures/" + name).text);
    pages.push_back(
        "<html><head><title>Soup</title><style>div > p { color: red }\n  a:hover{}</style></head><body>"
        "<div><b>bold <i>both</b> italic</i></div><table><tr><td>1<td>2</tr>stray text</table>"
        "<ul><li>one<li>two</ul><p>open <span>never closed</body>");
    pages.push_back("<p title=\"&AElig;r&oslash; &quot;q&quot;\">Gr&ouml;&szlig;e&nbsp;&ndash; 日本語 &lt;tag&gt;</p>");
    pages.push_back("<body>\n  text first\n  <br>\n<a href=x.htm>x</a> <a href=y.htm>y</a>\n<pre>\n  keep\n\n   this <b>as</b> is\n</pre>"
                    "<textarea>\n  line one\n    line two</textarea><note>unknown <em>element</em> </note>"
                    "<script>var a = 1 < 2;\nif (a) { b(); }</script><!-- a\ncomment -->"
                    "<map name=m><area shape=rect coords=1,2,3,4 href=#a> \n</map><isindex prompt='Find:'>"
                    "<select><optgroup label=g><option selected>1</option></optgroup></select></body>");
    for (const std::string& page : pages) {
        std::string once = BeautifyHtmlText(page, kPageUrl);
        EXPECT_EQ(BeautifyHtmlText(once, kPageUrl), once) << once;
    }
}

// Well-formed pages of random content: blocks holding blocks or inline
// content, inline elements holding text, with blanks and line breaks between
// everything.
class RandomPage {
public:
    explicit RandomPage(unsigned seed)
        : m_random(seed)
    {
    }

    std::string Make() { return "<html><head><title>R</title></head><body>" + Blocks(3) + "</body></html>"; }

private:
    std::size_t Pick(std::size_t count) { return m_random() % count; }

    std::string Space()
    {
        static const char* const kSpaces[] = { "", "", " ", "\n", "\n  ", "\t", " \n " };
        return kSpaces[Pick(7)];
    }

    std::string Inline(int depth)
    {
        static const char* const kWords[] = { "word", "two words", "a&amp;b", "&lt;x&gt;", "&nbsp;", "end." };
        std::string html;
        for (std::size_t i = 0, n = 1 + Pick(4); i < n; ++i) {
            html += Space();
            switch (depth > 0 ? Pick(8) : 0) {
            case 0:
            case 1:
            case 2:
                html += kWords[Pick(6)];
                break;
            case 3:
                html += "<br>";
                break;
            case 4:
                html += "<a href=\"p" + std::to_string(Pick(3)) + ".htm\">" + Inline(0) + "</a>";
                break;
            case 5:
                html += "<img src=\"i.png\" alt=\"\">";
                break;
            default: {
                static const char* const kTags[] = { "b", "i", "span", "font" };
                std::string tag = kTags[Pick(4)];
                html += "<" + tag + ">" + Inline(depth - 1) + "</" + tag + ">";
            }
            }
            html += Space();
        }
        return html;
    }

    std::string Blocks(int depth)
    {
        std::string html;
        for (std::size_t i = 0, n = 1 + Pick(4); i < n; ++i) {
            html += Space();
            switch (depth > 0 ? Pick(9) : Pick(2)) {
            case 0:
                html += "<p>" + Inline(2) + "</p>";
                break;
            case 1:
                html += "<h2>" + Inline(1) + "</h2>";
                break;
            case 2:
                html += "<div>" + Blocks(depth - 1) + "</div>";
                break;
            case 3:
                html += "<ul>" + Space() + "<li>" + Inline(1) + "</li>" + Space() + "<li>" + Blocks(depth - 1) + "</li></ul>";
                break;
            case 4:
                html += "<table><tr>" + Space() + "<td>" + Inline(1) + "</td><td>" + Blocks(depth - 1) + "</td></tr></table>";
                break;
            case 5:
                html += "<!-- note " + std::to_string(i) + " -->";
                break;
            case 6:
                html += "<pre>\n  kept " + Inline(1) + "\n</pre>";
                break;
            case 7:
                html += "<script>var a = 1 < 2;\n  go();</script>";
                break;
            default:
                html += Inline(2);
            }
            html += Space();
        }
        return html;
    }

    std::mt19937 m_random;
};

TEST(BeautifierGolden, RandomWellFormedPagesComeBackUnchanged)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        std::string page = RandomPage(seed).Make();
        std::string once = BeautifyHtmlText(page, kPageUrl);
        ASSERT_EQ(BeautifyHtmlText(once, kPageUrl), once) << "seed " << seed << "\n" << page;
    }
}

TEST(BeautifierLines, TheFirstTagOpensTheTextAndEveryLineEndsInCrLf)
{
    std::string page = Beautify("<!DOCTYPE html><p>a\nb</p>");
    EXPECT_EQ(page.rfind("<!DOCTYPE HTML>\r\n<HTML>\r\n  <HEAD>\r\n  </HEAD>\r\n  <BODY>\r\n", 0), 0u) << page;
    for (std::size_t at = page.find('\n'); at != std::string::npos; at = page.find('\n', at + 1))
        EXPECT_EQ(page[at - 1], '\r');
    EXPECT_EQ(Beautify("<html></html>").substr(0, 6), "<HTML>");
}

TEST(BeautifierLines, AnEmptyDocumentWritesNothing)
{
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse("");
    document->removeAllChildren();
    EXPECT_EQ(BeautifiedHtml(*document, kPageUrl), "");
    CHtmlBeautifier unset;
    EXPECT_EQ(unset.EditModeReadyHTML(), "");
}

TEST(BeautifierLines, ElementsNestTwoBlanksPerLevelAndBlocksCloseOnTheirOwnLine)
{
    EXPECT_EQ(BodyOf("<div><p>a</p><ul><li>x</li></ul></div>"),
        "    <DIV>\r\n"
        "      <P>a</P>\r\n"
        "      <UL>\r\n"
        "        <LI>x</LI>\r\n"
        "      </UL>\r\n"
        "    </DIV>");
    EXPECT_EQ(BodyOf("<p><span>x</span></p><h1>T</h1>"), "    <P>\r\n      <SPAN>x</SPAN></P>\r\n    <H1>T</H1>");
}

TEST(BeautifierLines, BrAndAStayOnTheRunningLineAfterText)
{
    EXPECT_EQ(BodyOf("<p>one<br>two <a href=\"x.htm\">link</a>.</p>"),
        "    <P>one<BR>two <A href=\"x.htm\">link</A>.</P>");
}

TEST(BeautifierLines, BrAndAAfterABlockOrACommentStartALine)
{
    EXPECT_EQ(BodyOf("<table><tr><td>1</td></tr></table><br>"),
        "    <TABLE>\r\n"
        "      <TBODY>\r\n"
        "        <TR>\r\n"
        "          <TD>1</TD>\r\n"
        "        </TR>\r\n"
        "      </TBODY>\r\n"
        "    </TABLE>\r\n"
        "    <BR>");
    EXPECT_EQ(BodyOf("<div><a href=a.htm>x</a></div><!-- c --><br>"),
        "    <DIV>\r\n      <A href=\"a.htm\">x</A>\r\n    </DIV>\r\n    <!-- c -->\r\n    <BR>");
    EXPECT_EQ(BodyOf("<span>s</span><br>"), "    <SPAN>s</SPAN><BR>");
    // The line break in front of such an A is no blank that would keep it on
    // the running line the next time.
    std::string page = Beautify("<div>x</div><a href=a.htm>y</a>");
    EXPECT_NE(page.find("    </DIV>\r\n    <A href=\"a.htm\">y</A>"), std::string::npos) << page;
    EXPECT_EQ(Beautify(page), page);
}

TEST(BeautifierLines, CommentsAndTheDoctypeStandOnLinesOfTheirOwn)
{
    EXPECT_EQ(BodyOf("<p>x</p><!-- one\ntwo --><p>y</p>"), "    <P>x</P>\r\n    <!-- one\r\ntwo -->\r\n    <P>y</P>");
    EXPECT_EQ(Beautify("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\"><title>t</title>")
                  .rfind("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">\r\n<HTML>\r\n", 0),
        0u);
}

TEST(BeautifierLines, AnElementWithoutContentClosesOnce)
{
    EXPECT_EQ(BodyOf("<p></p>"), "    <P></P>");
    EXPECT_EQ(BodyOf("<div></div>"), "    <DIV>\r\n    </DIV>");
    EXPECT_EQ(BodyOf("<span></span>"), "    <SPAN></SPAN>");
}

TEST(BeautifierLines, EmptyElementsHaveNoEndTag)
{
    EXPECT_EQ(BodyOf("<hr><img src=a.png><input value=1><embed src=m.swf>"),
        "    <HR>\r\n    <IMG src=\"a.png\">\r\n    <INPUT value=\"1\">\r\n    <EMBED src=\"m.swf\">");
}

TEST(BeautifierLines, AnUnknownElementKeepsItsEndTag)
{
    EXPECT_EQ(BodyOf("<p><note>see <b>this</b></note></p>"),
        "    <P>\r\n      <NOTE>see\r\n        <B>this</B></NOTE></P>");
}

TEST(BeautifierLines, TheAreasOfAnImageMapGoOnLinesOfTheirOwn)
{
    EXPECT_EQ(BodyOf("<img src=a.png usemap=#m><map name=m> \n<area shape=rect coords='1,2,3,4' href='#x' alt=''> \n</map>"),
        "    <IMG src=\"a.png\" usemap=\"#m\">\r\n"
        "    <MAP name=\"m\">\r\n"
        "      <AREA shape=\"rect\" coords=\"1,2,3,4\" href=\"#x\" alt=\"\"></MAP>");
}

TEST(BeautifierText, EntitiesAndNonBreakingSpacesAreWrittenBack)
{
    EXPECT_EQ(BodyOf("<p>a&nbsp;b &amp; &lt;c&gt; &eacute;</p>"), "    <P>a&nbsp;b &amp; &lt;c&gt; é</P>");
    EXPECT_EQ(BodyOf("<td>&nbsp;</td>"), "    &nbsp;");
}

TEST(BeautifierText, BlanksAfterALineEndDisappearAndRunsOfWhiteSpaceBecomeOneBlank)
{
    EXPECT_EQ(BodyOf("<div>   \n  <p>one\n   two\tthree</p>   </div>"), "    <DIV>\r\n      <P>one two three</P>\r\n    </DIV>");
    EXPECT_EQ(BodyOf("<p>Hello <b>you</b> there</p>"), "    <P>Hello\r\n      <B>you</B> there</P>");
}

TEST(BeautifierText, PreformattedTextKeepsItsLinesAndBlanks)
{
    EXPECT_EQ(BodyOf("<pre>  line 1\n    <b>line</b>  2\n</pre>"), "    <PRE>  line 1\r\n    <B>line</B>  2\r\n</PRE>");
    EXPECT_EQ(BodyOf("<pre>\n\nafter a blank line</pre>"), "    <PRE>\r\n\r\nafter a blank line</PRE>");
}

TEST(BeautifierText, ScriptsAndStylesGoOutUnencodedOnIndentedLines)
{
    std::string page = Beautify("<head><script>var a = 1 < 2 && b;\n   if (a) {}\n</script>"
                                "<style>\n  div > p { color: red }\n</style><title>A & B</title></head>");
    EXPECT_NE(page.find("    <SCRIPT>\r\n      var a = 1 < 2 && b;\r\n      if (a) {}\r\n    </SCRIPT>\r\n"), std::string::npos)
        << page;
    EXPECT_NE(page.find("    <STYLE>\r\n      div > p { color: red }\r\n    </STYLE>\r\n"), std::string::npos) << page;
    EXPECT_NE(page.find("    <TITLE>A &amp; B</TITLE>\r\n"), std::string::npos) << page;
    EXPECT_EQ(BodyOf("<textarea>  a < b\n   c</textarea>"), "    <TEXTAREA>a &lt; b\r\n      c</TEXTAREA>");
}

TEST(BeautifierText, TheBrowserHelpScriptAndWhatFollowsItAreLeftOut)
{
    EXPECT_EQ(BodyOf("<p>x</p><script type=\"text/javascript\" id=\"wbh\">top.location='main.htm'</script><p>after</p>"),
        "    <P>x</P>");
    std::string page = Beautify("<html><body><p>x</p></body></html>\r\n\r\n<script id=\"wbh\">\r\n<!--\r\ntry {} catch(e) {}\r\n//-->\r\n</script>");
    EXPECT_EQ(page.find("wbh"), std::string::npos) << page;
    EXPECT_EQ(page.find("SCRIPT"), std::string::npos) << page;
    EXPECT_EQ(BodyOf("<p>x</p><script id=other>go()</script>"), "    <P>x</P>\r\n    <SCRIPT id=\"other\">\r\n      go()\r\n    </SCRIPT>");
}

TEST(BeautifierText, AnIsIndexIsWrittenAsOneTag)
{
    // The tag goes where the form stood, on the running line.
    EXPECT_EQ(BodyOf("<isindex prompt='Find:' size=20>"), "<ISINDEX PROMPT=\"Find:\" size=\"20\">");
    EXPECT_EQ(BodyOf("<form><input name=isindex></form><form><input name=q></form>"),
        "<ISINDEX PROMPT=\"\">\r\n    <FORM>\r\n      <INPUT name=\"q\">\r\n    </FORM>");
}

TEST(BeautifierAttributes, ValuesStandInDoubleQuotesEncoded)
{
    EXPECT_EQ(BodyOf("<img src='a.png' alt='say \"hi\" & <go>' WIDTH=10 title=''>"),
        "    <IMG src=\"a.png\" alt=\"say &quot;hi&quot; &amp; &lt;go&gt;\" width=\"10\" title=\"\">");
    EXPECT_EQ(BodyOf("<map><area nohref=\"true\" onclick=\"go('x')\"></map>"),
        "    <MAP>\r\n      <AREA nohref=\"-1\" onclick=\"go('x')\"></MAP>");
}

TEST(BeautifierAttributes, AnImageOfWidthZeroTakesTheWidthOfItsStyle)
{
    EXPECT_EQ(BodyOf("<img width=0 height=0 style='height:30px; WIDTH: 120px'>"),
        "    <IMG width=\"120px\" height=\"30px\" style=\"height:30px; WIDTH: 120px\">");
    EXPECT_EQ(BodyOf("<img width=0>"), "    <IMG width=\"0\">");
}

TEST(BeautifierAttributes, LinksIntoThePagesFolderBecomeRelative)
{
    std::string url = "file:///home/u/My%20Help/page.htm";
    EXPECT_EQ(BodyOf("<img src='file:///home/u/My%20Help/pics/a%20b.png'>", url), "    <IMG src=\"pics/a b.png\">");
    EXPECT_EQ(BodyOf("<a href='FILE:///HOME/U/my%20help/other.htm#x'>o</a>", url), "    <A href=\"other.htm#x\">o</A>");
    EXPECT_EQ(BodyOf("<a href='/home/u/My Help/sub/p.htm'>p</a>", url), "    <A href=\"sub/p.htm\">p</A>");
    // A link to the page itself keeps only its bookmark.
    EXPECT_EQ(BodyOf("<a href='file:///home/u/My%20Help/page.htm#sec'>s</a>", url), "    <A href=\"#sec\">s</A>");
    EXPECT_EQ(BodyOf("<a href='file:///home/u/My%20Help/page.html'>s</a>", url), "    <A href=\"page.html\">s</A>");
    // Addresses outside the folder stay as they are, percent signs and all.
    EXPECT_EQ(BodyOf("<a href='file:///elsewhere/x%20y.htm'>e</a>", url), "    <A href=\"file:///elsewhere/x%20y.htm\">e</A>");
    EXPECT_EQ(BodyOf("<a href='http://example.com/a%20b?q=1&amp;r=2'>w</a>", url),
        "    <A href=\"http://example.com/a%20b?q=1&amp;r=2\">w</A>");
    EXPECT_EQ(BodyOf("<a href='pics/x.htm'>r</a>", url), "    <A href=\"pics/x.htm\">r</A>");
}

TEST(BeautifierAttributes, ABaseElementGivesTheFolderAndKeepsItsOwnAddress)
{
    std::string page = Beautify("<head><base href='file:///other/'></head><body><a href='file:///other/x.htm'>x</a></body>");
    EXPECT_NE(page.find("<BASE href=\"file:///other/\">"), std::string::npos) << page;
    EXPECT_NE(page.find("<A href=\"x.htm\">x</A>"), std::string::npos) << page;
}

TEST(BeautifierAttributes, SourceAttributesAreTakenAsWritten)
{
    std::unique_ptr<HtmlDocument> document
        = HtmlDocument::Parse("<body><a href='file:///help/x%20y.htm' title=\"it's\" onclick=\"go('a b')\">x</a></body>");
    CHtmlBeautifier beautifier;
    beautifier.UseSourceAttributes = true;
    beautifier.SetDocument(*document, kPageUrl);
    std::string page = beautifier.EditModeReadyHTML();
    EXPECT_NE(page.find("<A href=\"x y.htm\" title=\"it's\" onclick=\"go('a b')\">x</A>"), std::string::npos) << page;
    beautifier.Dispose();
    beautifier.Dispose();
    EXPECT_EQ(beautifier.EditModeReadyHTML(), "");
}

TEST(BeautifierAttributes, MetaElementsAreCollectedOnce)
{
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(
        "<head><meta charset=utf-8><meta name=a content=b><meta name=a content=b></head>");
    CHtmlBeautifier beautifier;
    beautifier.SetDocument(*document, kPageUrl);
    EXPECT_EQ(beautifier.MetaElementsCollection(),
        (std::vector<std::string> { "<meta charset=\"utf-8\">", "<meta name=\"a\" content=\"b\">" }));
}

}  // namespace
}  // namespace scriv
