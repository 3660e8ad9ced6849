#include <gtest/gtest.h>

#include "htmldom/HtmlDocument.h"
#include "PageFixtures.h"

namespace scriv {
namespace {

std::vector<std::string> Attribute(const std::vector<HtmlElement*>& elements, std::string_view name)
{
    std::vector<std::string> values;
    for (const HtmlElement* element : elements)
        values.push_back(element->getAttribute(name));
    return values;
}

TEST(HtmlQuery, ElementsByTagNameAreInDocumentOrderWhateverTheCase)
{
    auto document = HtmlDocument::Parse(
        "<div id=a><p id=b><span id=c></span></p><P id=d></P></div><p id=e></p>");
    EXPECT_EQ(Attribute(document->getElementsByTagName("p"), "id"), (std::vector<std::string> { "b", "d", "e" }));
    EXPECT_EQ(Attribute(document->getElementsByTagName("P"), "id"), (std::vector<std::string> { "b", "d", "e" }));
    HtmlElement* div = document->getElementById("a");
    ASSERT_NE(div, nullptr);
    EXPECT_EQ(Attribute(div->getElementsByTagName("*"), "id"), (std::vector<std::string> { "b", "c", "d" }));
    EXPECT_TRUE(document->getElementsByTagName("table").empty());
}

TEST(HtmlQuery, GetElementByIdFindsTheFirstExactMatch)
{
    auto document = HtmlDocument::Parse("<p id=Intro>1</p><p id=intro>2</p><p id=intro>3</p>");
    ASSERT_NE(document->getElementById("intro"), nullptr);
    EXPECT_EQ(document->getElementById("intro")->textContent(), "2");
    EXPECT_EQ(document->getElementById("Intro")->textContent(), "1");
    EXPECT_EQ(document->getElementById("INTRO"), nullptr);
    EXPECT_EQ(document->getElementById(""), nullptr);
}

TEST(HtmlQuery, LinksAreAnchorsAndAreasWithAnHref)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic
        + "<a href=\"\">empty</a><a name=x>target</a><link href=\"x.css\"><a HREF='Last.htm'>last</a>");
    EXPECT_EQ(Attribute(document->links(), "href"),
        (std::vector<std::string> { "#cmdOK", "Customers.htm", "", "Last.htm" }));
    EXPECT_EQ(Attribute(document->images(), "src"), (std::vector<std::string> { "pics/Orders.jpg" }));
}

TEST(HtmlQuery, NavigationFollowsTheTree)
{
    auto document = HtmlDocument::Parse("<body><p>a</p><!--c--><p>b</p></body>");
    HtmlElement* body = document->body();
    ASSERT_EQ(body->childNodes().size(), 3u);
    HtmlNode* first = body->firstChild();
    HtmlNode* comment = first->nextSibling();
    EXPECT_EQ(comment->nodeName(), "#comment");
    EXPECT_EQ(comment->previousSibling(), first);
    EXPECT_EQ(comment->nextSibling(), body->lastChild());
    EXPECT_EQ(body->lastChild()->nextSibling(), nullptr);
    EXPECT_EQ(first->previousSibling(), nullptr);
    EXPECT_EQ(comment->indexInParent(), 1u);
    EXPECT_EQ(first->firstChild()->nodeName(), "#text");
    EXPECT_EQ(document->documentElement()->parentElement(), nullptr);
    EXPECT_EQ(document->documentElement()->parentNode(), document.get());
    EXPECT_TRUE(document->contains(*first->firstChild()));
    EXPECT_FALSE(first->contains(*comment));
}

TEST(HtmlQuery, InnerTextHasTheLineBreaksOfBlocks)
{
    auto document = HtmlDocument::Parse(
        "<body><h1>Title</h1><p>First   para\n graph</p><p>Second<br>line</p>"
        "<ul><li>one</li><li>two</li></ul><script>var x;</script><style>p{}</style>"
        "<div hidden>secret</div><div style=\"DISPLAY : none\">gone</div>"
        "<table><tr><td>a</td>\n<td>b</td></tr><tr><td>c</td></tr></table>"
        "<pre>  keep\n  this</pre><span> inline </span> <b>end</b></body>");
    EXPECT_EQ(document->body()->innerText(),
        "Title\n\nFirst para graph\n\nSecond\nline\n\none\ntwo\na\tb\nc\n  keep\n  this\ninline end");
}

TEST(HtmlQuery, InnerTextOfADocumentLeavesOutTheHead)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    EXPECT_EQ(document->innerText(), "Orders\nOK\n\nSaves the order.\n\nCloses the form.");
}

TEST(HtmlQuery, TextContentJoinsEveryTextIncludingScripts)
{
    auto document = HtmlDocument::Parse("<div><b>a</b> <script>s()</script><!--no-->c</div>");
    EXPECT_EQ(document->getElementsByTagName("div").at(0)->textContent(), "a s()c");
}

TEST(HtmlQuery, TheTitleCollapsesWhiteSpace)
{
    EXPECT_EQ(HtmlDocument::Parse("<title>\n  Order\t Entry \n</title>")->title(), "Order Entry");
    EXPECT_EQ(HtmlDocument::Parse("<p>no title</p>")->title(), "");
}

}  // namespace
}  // namespace scriv
