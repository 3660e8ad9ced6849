#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmledit/HtmlPageFile.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

const std::string kScript = "\r\n\r\n<script type=\"text/javascript\" id=\"wbh\">\r\n<!--\r\ntry {} catch(e) {}\r\n//-->\r\n</script>";

TEST(HtmlPageFile, ABeautifiedPageKeepsItsBrowserHelpScriptByteForByte)
{
    test::TempFolder folder;
    std::string path = folder.Write("Topic.htm", "<html><body><p>x</p></body></html>" + kScript);
    EXPECT_TRUE(BeautifyHtmlFile(path));
    EXPECT_EQ(folder.Read("Topic.htm"),
        "<HTML>\r\n  <HEAD>\r\n  </HEAD>\r\n  <BODY>\r\n    <P>x</P>\r\n  </BODY>\r\n</HTML>" + kScript);
    // A second run finds nothing to change and leaves the file alone.
    EXPECT_FALSE(BeautifyHtmlFile(path));
}

TEST(HtmlPageFile, APageIsWrittenBackInItsCharset)
{
    test::TempFolder folder;
    std::string head = "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\"></head>";
    std::string path = folder.Write("Latin.htm", head + "<body><p>caf\xE9 \x80</p></body></html>");
    HtmlPageText page = ReadHtmlPage(path);
    EXPECT_EQ(page.encoding, "windows-1252");
    std::unique_ptr<HtmlDocument> document = ParseHtmlPage(page);
    HtmlElement* paragraph = document->getElementsByTagName("p").front();
    paragraph->setTextContent(paragraph->textContent() + " \xC5\x91");
    SaveHtmlDocument(page, *document);
    std::string bytes = folder.Read("Latin.htm");
    EXPECT_NE(bytes.find("<P>caf\xE9 \x80 &#337;</P>"), std::string::npos) << bytes;
    EXPECT_NE(ReadHtmlPage(path).text.find("caf\xC3\xA9 \xE2\x82\xAC &#337;"), std::string::npos);
}

TEST(HtmlPageFile, AByteOrderMarkStays)
{
    test::TempFolder folder;
    std::string path = folder.Write("Marked.htm", "\xEF\xBB\xBF<p>\xC3\xA9</p>");
    BeautifyHtmlFile(path);
    std::string bytes = folder.Read("Marked.htm");
    EXPECT_EQ(bytes.substr(0, 11), "\xEF\xBB\xBF<HTML>\r\n");
    EXPECT_NE(bytes.find("<P>\xC3\xA9</P>"), std::string::npos);
    EXPECT_EQ(EncodePageText("a\xC3\xA9", "utf-8", false), "a\xC3\xA9");
    EXPECT_EQ(EncodePageText("\xE2\x82\xAC\xD0\x96", "iso-8859-1", false), "&#8364;&#1046;");
}

TEST(HtmlPageFile, AMissingPageOrAFolderIsNamedAndNothingIsWritten)
{
    test::TempFolder folder;
    try {
        BeautifyHtmlFile(folder / "Gone.htm");
        FAIL() << "no error";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), 0x80040002u);
        EXPECT_EQ(error.Description(), "File [" + (folder / "Gone.htm") + "] does not exist!");
    }
    EXPECT_FALSE(FileExists(folder / "Gone.htm"));
    MakeFolders(folder / "Dir.htm");
    EXPECT_THROW(BeautifyHtmlFile(folder / "Dir.htm"), ScrivError);
    EXPECT_TRUE(FolderExists(folder / "Dir.htm"));
}

TEST(HtmlPageFile, TheCursorMarkerNeverReachesAFile)
{
    EXPECT_EQ(RemoveCursorMarker("a {CURRENTCURSORPOSITON} b{CURRENTCURSORPOSITON}"), "a b");
    test::TempFolder folder;
    std::string path = folder.Write("Edited.htm", "<p>one {CURRENTCURSORPOSITON} two</p>");
    BeautifyHtmlFile(path);
    EXPECT_NE(folder.Read("Edited.htm").find("<P>one two</P>"), std::string::npos) << folder.Read("Edited.htm");
}

}  // namespace
}  // namespace scriv
