#include <gtest/gtest.h>

#include "htmldom/HtmlDocument.h"
#include "PageFixtures.h"

namespace scriv {
namespace {

std::vector<std::string> TagNames(const std::vector<HtmlElement*>& elements)
{
    std::vector<std::string> names;
    for (const HtmlElement* element : elements)
        names.push_back(element->tagName());
    return names;
}

std::vector<const HtmlComment*> Comments(const HtmlNode& root)
{
    std::vector<const HtmlComment*> found;
    for (const auto& child : root.childNodes()) {
        if (child->nodeType() == HtmlNodeType::Comment)
            found.push_back(static_cast<const HtmlComment*>(child.get()));
        auto below = Comments(*child);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

TEST(HtmlParse, AGeneratedTopicHasItsStructure)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    ASSERT_NE(document->documentElement(), nullptr);
    EXPECT_EQ(document->documentElement()->tagName(), "html");
    ASSERT_NE(document->head(), nullptr);
    ASSERT_NE(document->body(), nullptr);
    EXPECT_EQ(document->title(), "Orders & Invoices");

    ASSERT_NE(document->doctype(), nullptr);
    EXPECT_EQ(document->doctype()->name(), "html");
    EXPECT_EQ(document->doctype()->publicId(), "-//W3C//DTD HTML 4.01 Transitional//EN");

    auto h1 = document->getElementsByTagName("H1");
    ASSERT_EQ(h1.size(), 1u);
    EXPECT_EQ(h1[0]->textContent(), "Orders");
    EXPECT_EQ(h1[0]->parentElement(), document->body());
}

TEST(HtmlParse, UpperCaseTagsAndAttributeNamesBecomeLowerCase)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    auto images = document->images();
    ASSERT_EQ(images.size(), 1u);
    ASSERT_EQ(images[0]->attributes().size(), 3u);
    EXPECT_EQ(images[0]->attributes()[0].name, "src");
    EXPECT_EQ(images[0]->attributes()[1].name, "usemap");
    EXPECT_EQ(images[0]->attributes()[1].value, "#map1");
    EXPECT_EQ(images[0]->attributes()[2].name, "border");
    EXPECT_EQ(images[0]->attributes()[2].value, "0");
    EXPECT_EQ(document->body()->getAttribute("onload"), "init()");
    EXPECT_EQ(document->body()->getAttribute("ONLOAD"), "init()");
}

TEST(HtmlParse, SelfClosedAreasStayInsideTheirMap)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    auto areas = document->getElementsByTagName("area");
    ASSERT_EQ(areas.size(), 2u);
    for (HtmlElement* area : areas) {
        EXPECT_EQ(area->parentElement()->tagName(), "map");
        EXPECT_FALSE(area->hasChildNodes());
    }
    EXPECT_EQ(areas[0]->getAttribute("coords"), "1,2,3,4");
    EXPECT_EQ(areas[1]->getAttribute("href"), "Customers.htm");
}

TEST(HtmlParse, MarkerCommentsAreKeptWithTheirText)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    auto comments = Comments(*document->body());
    ASSERT_GE(comments.size(), 2u);
    EXPECT_EQ(comments[0]->data(), " + CONTROLS + ");
    EXPECT_EQ(comments[1]->data(), " - CONTROLS - ");
}

TEST(HtmlParse, UnclosedParagraphsEndAtTheNextParagraph)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    auto paragraphs = document->getElementsByTagName("p");
    ASSERT_EQ(paragraphs.size(), 2u);
    EXPECT_EQ(paragraphs[0]->innerText(), "Saves the order.");
    EXPECT_EQ(paragraphs[1]->innerText(), "Closes the form.");
    EXPECT_EQ(paragraphs[0]->nextSibling(), paragraphs[1]);
}

TEST(HtmlParse, AScriptAfterTheEndOfTheHtmlLandsAtTheEndOfTheBody)
{
    auto document = HtmlDocument::Parse(test::kGeneratedTopic);
    HtmlElement* script = document->getElementById("wbh");
    ASSERT_NE(script, nullptr);
    EXPECT_EQ(script->tagName(), "script");
    // </BODY> does not close the last open paragraph, so the script joins it.
    EXPECT_EQ(script->parentElement()->tagName(), "p");
    EXPECT_EQ(document->getElementsByTagName("*").back(), script);

    auto closed = HtmlDocument::Parse("<html><body><p>x</p></body></html>\r\n<script id=wbh>s()</script>");
    EXPECT_EQ(closed->getElementById("wbh")->parentElement(), closed->body());
    EXPECT_EQ(closed->body()->lastChild(), closed->getElementById("wbh"));
    EXPECT_NE(script->textContent().find("top.location.href=\"main.htm?\"+location.href;"), std::string::npos);
}

TEST(HtmlParse, LineEndsAreNormalisedToLineFeeds)
{
    auto document = HtmlDocument::Parse("<p>one\r\ntwo\rthree</p>");
    EXPECT_EQ(document->getElementsByTagName("p")[0]->textContent(), "one\ntwo\nthree");
}

TEST(HtmlParse, UnknownTagsKeepTheirNameInLowerCase)
{
    auto document = HtmlDocument::Parse("<body><myTag Foo=1>x</myTag><Scriv:Note>y</Scriv:Note></body>");
    auto elements = document->body()->getElementsByTagName("*");
    EXPECT_EQ(TagNames(elements), (std::vector<std::string> { "mytag", "scriv:note" }));
    EXPECT_EQ(elements[0]->getAttribute("foo"), "1");
    EXPECT_EQ(document->getElementsByTagName("MYTAG").size(), 1u);
    EXPECT_TRUE(elements[0]->isUnknown());
    EXPECT_FALSE(document->body()->isUnknown());
    EXPECT_FALSE(HtmlDocument::createElement("AREA")->isUnknown());
}

TEST(HtmlParse, SvgKeepsItsMixedCaseNames)
{
    auto document = HtmlDocument::Parse("<body><svg viewBox=\"0 0 4 4\"><foreignObject></foreignObject></svg></body>");
    HtmlElement* svg = document->getElementsByTagName("svg").at(0);
    EXPECT_EQ(svg->elementNamespace(), HtmlNamespace::Svg);
    EXPECT_EQ(svg->attributes().at(0).name, "viewBox");
    EXPECT_EQ(svg->getElementsByTagName("foreignobject").at(0)->tagName(), "foreignObject");
}

TEST(HtmlParse, TagSoupIsRepairedLikeABrowserDoes)
{
    auto document = HtmlDocument::Parse(test::kTagSoup);
    // The misnested <i> is split in two; the stray table text moves in front of the table.
    EXPECT_EQ(document->getElementsByTagName("i").size(), 2u);
    HtmlElement* table = document->getElementsByTagName("table").at(0);
    ASSERT_NE(table->previousSibling(), nullptr);
    ASSERT_TRUE(table->previousSibling()->isText());
    EXPECT_EQ(static_cast<HtmlText*>(table->previousSibling())->data(), "stray text");
    EXPECT_EQ(document->getElementsByTagName("td").size(), 2u);
    EXPECT_EQ(document->getElementsByTagName("li").size(), 2u);
    EXPECT_EQ(document->getElementsByTagName("span").at(0)->textContent(), "never closed");
}

TEST(HtmlParse, EntitiesAreDecodedAndUtf8IsKept)
{
    auto document = HtmlDocument::Parse(test::kInternational);
    EXPECT_EQ(document->title(), "Größe – 日本語");
    HtmlElement* p = document->getElementsByTagName("p").at(0);
    EXPECT_EQ(p->textContent(), "Größe\u00A0– 日本語 😀 © é € A <tag>");
    EXPECT_EQ(p->getAttribute("title"), "Ærø \"quoted\"");
}

TEST(HtmlParse, EmptyAndBrokenInputStillGiveAWholeDocument)
{
    for (std::string_view input : { std::string_view(""), std::string_view("<"), std::string_view("</p></div>"),
             std::string_view("<html><head><body>\xff\xfe bad bytes"), std::string_view("\0x<p", 4) }) {
        auto document = HtmlDocument::Parse(input);
        ASSERT_NE(document->documentElement(), nullptr);
        EXPECT_NE(document->head(), nullptr);
        EXPECT_NE(document->body(), nullptr);
    }
    auto document = HtmlDocument::Parse("<body>\xff</body>");
    EXPECT_EQ(document->body()->textContent(), "\uFFFD");
}

TEST(HtmlParse, AFramesetPageHasTheFramesetAsItsBody)
{
    auto document = HtmlDocument::Parse(
        "<html><head><title>Help</title></head><frameset cols=\"30%,*\"><frame name=\"left\" src=\"toc.htm\">"
        "<frame name=\"right\" src=\"Welcome.htm\"></frameset></html>");
    ASSERT_NE(document->body(), nullptr);
    EXPECT_EQ(document->body()->tagName(), "frameset");
    EXPECT_EQ(document->getElementsByTagName("frame").size(), 2u);
}

}  // namespace
}  // namespace scriv
