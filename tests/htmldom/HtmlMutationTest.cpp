#include <gtest/gtest.h>

#include "foundation/ScrivError.h"
#include "htmldom/HtmlDocument.h"

namespace scriv {
namespace {

HtmlElement& AppendElement(HtmlNode& parent, std::string_view tag)
{
    return static_cast<HtmlElement&>(parent.appendChild(HtmlDocument::createElement(tag)));
}

TEST(HtmlMutation, AttributesKeepTheirPlaceWhenChanged)
{
    auto document = HtmlDocument::Parse("<img src=a.jpg alt=A border=0>");
    HtmlElement* img = document->images().at(0);
    img->setAttribute("ALT", "changed");
    img->setAttribute("Width", "10");
    EXPECT_TRUE(img->removeAttribute("border"));
    EXPECT_FALSE(img->removeAttribute("border"));
    EXPECT_EQ(img->outerHTML(), "<img src=\"a.jpg\" alt=\"changed\" width=\"10\">");
    EXPECT_TRUE(img->hasAttribute("WIDTH"));
    EXPECT_EQ(img->findAttribute("height"), nullptr);
    EXPECT_EQ(img->getAttribute("height"), "");
}

TEST(HtmlMutation, ChildrenCanBeAddedMovedAndRemoved)
{
    auto document = HtmlDocument::Parse("<body><p id=a>a</p><p id=c>c</p></body>");
    HtmlElement* body = document->body();
    HtmlElement* c = document->getElementById("c");

    auto b = HtmlDocument::createElement("p");
    b->setAttribute("id", "b");
    b->appendChild(HtmlDocument::createTextNode("b"));
    HtmlNode& inserted = body->insertBefore(std::move(b), c);
    EXPECT_EQ(inserted.parentNode(), body);
    EXPECT_EQ(body->innerHTML(), "<p id=\"a\">a</p><p id=\"b\">b</p><p id=\"c\">c</p>");

    std::unique_ptr<HtmlNode> removed = body->removeChild(*document->getElementById("a"));
    EXPECT_EQ(removed->parentNode(), nullptr);
    body->appendChild(std::move(removed));
    EXPECT_EQ(body->innerHTML(), "<p id=\"b\">b</p><p id=\"c\">c</p><p id=\"a\">a</p>");

    std::unique_ptr<HtmlNode> old = body->replaceChild(HtmlDocument::createComment(" gone "), *c);
    EXPECT_EQ(old.get(), c);
    EXPECT_EQ(body->innerHTML(), "<p id=\"b\">b</p><!-- gone --><p id=\"a\">a</p>");

    std::unique_ptr<HtmlNode> detached = document->getElementById("b")->remove();
    ASSERT_NE(detached, nullptr);
    EXPECT_EQ(detached->remove(), nullptr);
    EXPECT_EQ(body->innerHTML(), "<!-- gone --><p id=\"a\">a</p>");

    body->removeAllChildren();
    EXPECT_EQ(body->innerHTML(), "");
}

TEST(HtmlMutation, ImpossibleChangesAreRefusedAndLeaveTheTreeAlone)
{
    auto document = HtmlDocument::Parse("<body><div id=outer><div id=inner>x</div></div><p>y</p></body>");
    HtmlElement* outer = document->getElementById("outer");
    HtmlNode* text = document->getElementById("inner")->firstChild();
    const std::string before = document->outerHTML();

    EXPECT_THROW(text->appendChild(HtmlDocument::createElement("b")), ScrivError);
    EXPECT_THROW(outer->insertBefore(HtmlDocument::createElement("b"), document->body()->lastChild()), ScrivError);
    EXPECT_THROW(outer->removeChild(*document->body()->lastChild()), ScrivError);
    EXPECT_THROW(outer->replaceChild(HtmlDocument::createElement("b"), *text), ScrivError);
    EXPECT_THROW(outer->appendChild(nullptr), ScrivError);
    EXPECT_EQ(document->outerHTML(), before);

    // A detached subtree cannot be put inside itself.
    std::unique_ptr<HtmlNode> subtree = outer->remove();
    HtmlElement* inner = static_cast<HtmlElement*>(subtree->firstChild());
    try {
        inner->appendChild(std::move(subtree));
        FAIL() << "a node went into its own descendant";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kGeneralFailure);
        EXPECT_EQ(error.Source(), "HtmlNode.insertBefore");
    }
}

TEST(HtmlMutation, ADeepCloneIsIndependentOfItsOriginal)
{
    auto document = HtmlDocument::Parse("<body><ul class=list><li>one</li><li>two</li></ul></body>");
    HtmlElement* list = document->getElementsByTagName("ul").at(0);
    std::unique_ptr<HtmlNode> copy = list->cloneNode(true);
    std::unique_ptr<HtmlNode> shallow = list->cloneNode(false);
    EXPECT_EQ(copy->outerHTML(), list->outerHTML());
    EXPECT_EQ(shallow->outerHTML(), "<ul class=\"list\"></ul>");
    EXPECT_EQ(copy->parentNode(), nullptr);

    copy->asElement()->setAttribute("class", "copy");
    static_cast<HtmlText*>(copy->firstChild()->firstChild())->setData("changed");
    EXPECT_EQ(list->outerHTML(), "<ul class=\"list\"><li>one</li><li>two</li></ul>");
    EXPECT_EQ(copy->outerHTML(), "<ul class=\"copy\"><li>changed</li><li>two</li></ul>");

    std::unique_ptr<HtmlNode> wholeCopy = document->cloneNode(true);
    EXPECT_EQ(wholeCopy->outerHTML(), document->outerHTML());
}

TEST(HtmlMutation, InnerHtmlIsParsedInTheContextOfTheElement)
{
    auto document = HtmlDocument::Parse("<table><tr id=row></tr></table><div id=box>old</div>");
    HtmlElement* row = document->getElementById("row");
    row->setInnerHTML("<td>1<td>2");
    EXPECT_EQ(row->innerHTML(), "<td>1</td><td>2</td>");
    EXPECT_EQ(row->getElementsByTagName("td").at(0)->parentNode(), row);

    HtmlElement* box = document->getElementById("box");
    box->setInnerHTML("<p>a<p>b &amp; <B>c</B>");
    EXPECT_EQ(box->innerHTML(), "<p>a</p><p>b &amp; <b>c</b></p>");
    box->setInnerHTML("");
    EXPECT_FALSE(box->hasChildNodes());

    box->setTextContent("<not markup>");
    EXPECT_EQ(box->innerHTML(), "&lt;not markup&gt;");
}

TEST(HtmlMutation, CreateStyleSheetAddsALinkAtTheEndOfTheHead)
{
    auto document = HtmlDocument::Parse("<html><head><title>T</title></head><body>x</body></html>");
    HtmlElement& link = document->createStyleSheet("../styles/Office10.css");
    EXPECT_EQ(link.parentElement(), document->head());
    EXPECT_EQ(document->head()->lastChild(), &link);
    EXPECT_EQ(document->head()->innerHTML(),
        "<title>T</title><link rel=\"stylesheet\" type=\"text/css\" href=\"../styles/Office10.css\">");
}

TEST(HtmlMutation, CreateStyleSheetMakesAHeadWhenThereIsNone)
{
    auto document = HtmlDocument::Parse("<p>x");
    document->head()->remove();
    ASSERT_EQ(document->head(), nullptr);
    document->createStyleSheet("a.css");
    ASSERT_NE(document->head(), nullptr);
    EXPECT_EQ(document->documentElement()->firstChild(), document->head());
    EXPECT_EQ(document->documentElement()->outerHTML(),
        "<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"a.css\"></head><body><p>x</p></body></html>");
}

TEST(HtmlMutation, VeryDeepTreesAreWalkedCopiedAndFreedWithoutRecursion)
{
    // Deep enough that one stack frame per level would overflow the stack.
    constexpr int kDepth = 300000;
    auto document = HtmlDocument::Parse("");
    HtmlNode* parent = document->body();
    for (int i = 0; i < kDepth; ++i)
        parent = &AppendElement(*parent, "div");
    parent->appendChild(HtmlDocument::createTextNode("bottom"));

    std::string html = document->body()->innerHTML();
    EXPECT_EQ(html.size(), static_cast<std::size_t>(kDepth) * 11 + 6);
    EXPECT_EQ(document->body()->innerText(), "bottom");
    EXPECT_EQ(document->getElementsByTagName("div").size(), static_cast<std::size_t>(kDepth));
    std::unique_ptr<HtmlNode> copy = document->cloneNode(true);
    EXPECT_EQ(copy->textContent(), "bottom");
    copy.reset();
    document.reset();
}

}  // namespace
}  // namespace scriv
