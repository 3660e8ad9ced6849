#include <gtest/gtest.h>

#include <string>

#include "DescriptionFixture.h"
#include "foundation/Paths.h"
#include "uidesc/CFormHTMLManipulator.h"

namespace scriv {
namespace {

using ManipulatorTest = test::DescriptionFixture;

constexpr const char* kPage = "<!DOCTYPE html>\r\n<html>\r\n<head><meta charset=\"utf-8\"></head>\r\n"
                              "<body>\r\n<p>Hand-written text stays.</p>\r\n</BODY>\r\n</html>\r\n";

TEST_F(ManipulatorTest, ElementsGoRightBeforeTheClosingBodyTag)
{
    std::string path = m_data.Write("page.htm", kPage);
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(path));
    ASSERT_TRUE(page.AddHTMLElementToBody("<H2>New</H2>\r\n"));
    ASSERT_TRUE(page.SaveDoc(path));
    EXPECT_EQ(m_data.Read("page.htm"),
        "<!DOCTYPE html>\r\n<html>\r\n<head><meta charset=\"utf-8\"></head>\r\n"
        "<body>\r\n<p>Hand-written text stays.</p>\r\n<H2>New</H2>\r\n</BODY>\r\n</html>\r\n");
    EXPECT_FALSE(FileExists(path + ".tmp"));
}

TEST_F(ManipulatorTest, TheLastBodyCloseIsTheOneThatCounts)
{
    std::string path = m_data.Write("page.htm", "<body><pre>&lt;/body&gt; </body> in text</pre></body>");
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(path));
    page.AddHTMLElementToBody("<p>x</p>");
    EXPECT_EQ(page.DocumentText(), "<body><pre>&lt;/body&gt; </body> in text</pre><p>x</p></body>");
}

TEST_F(ManipulatorTest, APageWithoutBodyCloseTakesItBeforeTheHtmlCloseOrAtTheEnd)
{
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(m_data.Write("a.htm", "<html><p>a</p></html>")));
    page.AddHTMLElementToBody("<p>b</p>");
    EXPECT_EQ(page.DocumentText(), "<html><p>a</p><p>b</p></html>");
    ASSERT_TRUE(page.LoadHtmlDocument(m_data.Write("b.htm", "<p>a</p>")));
    page.AddHTMLElementToBody("<p>b</p>");
    EXPECT_EQ(page.DocumentText(), "<p>a</p><p>b</p>");
}

TEST_F(ManipulatorTest, AByteOrderMarkIsKept)
{
    std::string path = m_data.Write("bom.htm", "\xEF\xBB\xBF<body>caf\xC3\xA9</body>");
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(path));
    page.AddHTMLElementToBody("<p>\xC3\xBC</p>");
    ASSERT_TRUE(page.SaveDoc(path));
    EXPECT_EQ(m_data.Read("bom.htm"), "\xEF\xBB\xBF<body>caf\xC3\xA9<p>\xC3\xBC</p></body>");
}

TEST_F(ManipulatorTest, APageInTheCodePageIsWrittenBackInIt)
{
    std::string path = m_data.Write("ansi.htm", "<body>caf\xE9</body>");
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(path));
    page.AddHTMLElementToBody("<p>\xC3\xBC</p>");
    ASSERT_TRUE(page.SaveDoc(path));
    EXPECT_EQ(m_data.Read("ansi.htm"), "<body>caf\xE9<p>\xFC</p></body>");
}

TEST_F(ManipulatorTest, NothingLoadedMeansNothingDone)
{
    CFormHTMLManipulator page;
    EXPECT_FALSE(page.LoadHtmlDocument(m_data / "missing.htm"));
    EXPECT_FALSE(page.AddHTMLElementToBody("<p/>"));
    EXPECT_FALSE(page.SaveDoc(m_data / "out.htm"));
    EXPECT_FALSE(FileExists(m_data / "out.htm"));
}

TEST_F(ManipulatorTest, AFailedSaveLeavesTheOldFileAndNoTemporary)
{
    std::string path = m_data.Write("page.htm", kPage);
    CFormHTMLManipulator page;
    ASSERT_TRUE(page.LoadHtmlDocument(path));
    page.AddHTMLElementToBody("<p/>");
    EXPECT_FALSE(page.SaveDoc(m_data / "missing/page.htm"));
    EXPECT_FALSE(FileExists(m_data / "missing/page.htm.tmp"));
    EXPECT_EQ(m_data.Read("page.htm"), kPage);
    page.Terminate();
    EXPECT_FALSE(page.IsLoaded());
}

}  // namespace
}  // namespace scriv
