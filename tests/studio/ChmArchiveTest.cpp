#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "studio/ChmArchive.h"
#include "support/TestSupport.h"

namespace scriv::studio {
namespace {

using json = nlohmann::json;

// A small compiled help made with the help compiler: two topics (one in a
// subfolder), a picture and a contents file with a nested entry.
class ChmArchiveTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (FindProgramOnPath("chmcmd").empty())
            GTEST_SKIP() << "no help compiler (chmcmd) is installed";
        m_folder.Write("t.hhp", "[OPTIONS]\r\nCompatibility=1.1 or later\r\nCompiled file=t.chm\r\n"
                                "Contents file=t.hhc\r\nDefault topic=a.htm\r\nTitle=Test Help\r\n"
                                "Language=0x409 English (United States)\r\n\r\n[FILES]\r\na.htm\r\nsub\\b.htm\r\n"
                                "img\\dot.gif\r\n");
        m_folder.Write("t.hhc", "<HTML>\r\n<BODY>\r\n<UL>\r\n"
                                "        <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                "                <param name=\"Name\" value=\"Topic A\">\r\n"
                                "                <param name=\"Local\" value=\"a.htm\">\r\n"
                                "        </OBJECT>\r\n"
                                "        <UL>\r\n"
                                "                <LI>  <OBJECT type=\"text/sitemap\">\r\n"
                                "                        <param name=\"Name\" value=\"Topic B &amp; more\">\r\n"
                                "                        <param name=\"Local\" value=\"sub/b.htm#part\">\r\n"
                                "                </OBJECT>\r\n"
                                "        </UL>\r\n"
                                "</UL>\r\n</BODY>\r\n</HTML>\r\n");
        m_folder.Write("a.htm", "<html><body><h1>A</h1><img src=\"img/dot.gif\"></body></html>");
        m_folder.Write("sub/b.htm", "<html><body><h1 id=\"part\">B</h1></body></html>");
        m_folder.Write("img/dot.gif", std::string("GIF89a\x01\x00\x01\x00\x00\x00\x00;", 14));
        std::string output;
        ASSERT_EQ(ShellAndWait({ "chmcmd", "t.hhp" }, &output, m_folder.Path()), 0) << output;
        ASSERT_TRUE(FileExists(m_folder / "t.chm")) << output;
    }

    test::TempFolder m_folder;
};

TEST_F(ChmArchiveTest, TopicsAndPicturesComeOutAsTheyWentIn)
{
    auto archive = ChmArchive::Open(m_folder / "t.chm");
    ASSERT_TRUE(archive);
    EXPECT_EQ(archive->Read("a.htm"), m_folder.Read("a.htm"));
    EXPECT_EQ(archive->Read("/a.htm"), m_folder.Read("a.htm"));
    EXPECT_EQ(archive->Read("sub/b.htm"), m_folder.Read("sub/b.htm"));
    EXPECT_EQ(archive->Read("sub/../img/dot.gif"), m_folder.Read("img/dot.gif"));
    EXPECT_FALSE(archive->Read("missing.htm"));
    EXPECT_FALSE(archive->Read("../t.hhp"));
    EXPECT_FALSE(archive->Read("/"));
    std::vector<std::string> files = archive->Files();
    EXPECT_NE(std::find(files.begin(), files.end(), "/a.htm"), files.end());
    for (const std::string& file : files)
        EXPECT_NE(file.rfind("/#", 0), 0u) << file;
}

TEST_F(ChmArchiveTest, TheContentsTitleAndDefaultTopicAreReadFromTheFile)
{
    auto archive = ChmArchive::Open(m_folder / "t.chm");
    ASSERT_TRUE(archive);
    EXPECT_EQ(archive->Title(), "Test Help");
    EXPECT_EQ(archive->DefaultTopic(), "a.htm");
    EXPECT_TRUE(EndsWithNoCase(archive->ContentsFile(), "t.hhc")) << archive->ContentsFile();
    json contents = archive->Contents();
    EXPECT_EQ(contents["title"], "Test Help");
    ASSERT_EQ(contents["topics"].size(), 1u);
    EXPECT_EQ(contents["topics"][0]["name"], "Topic A");
    EXPECT_EQ(contents["topics"][0]["local"], "a.htm");
    ASSERT_EQ(contents["topics"][0]["children"].size(), 1u);
    EXPECT_EQ(contents["topics"][0]["children"][0]["name"], "Topic B & more");
    EXPECT_EQ(contents["topics"][0]["children"][0]["local"], "sub/b.htm#part");
}

TEST(ChmArchive, AFileThatIsNoCompiledHelpDoesNotOpen)
{
    test::TempFolder folder;
    EXPECT_FALSE(ChmArchive::Open(folder.Write("fake.chm", "<html>not a compiled help</html>")));
    EXPECT_FALSE(ChmArchive::Open(folder / "missing.chm"));
}

TEST(ChmArchive, InnerPathsAreWorkedOutWithoutClimbingAboveTheTop)
{
    EXPECT_EQ(ChmArchive::NormaliseInnerPath("a/./b/../c.htm"), "/a/c.htm");
    EXPECT_EQ(ChmArchive::NormaliseInnerPath("//images//x.jpg"), "/images/x.jpg");
    EXPECT_EQ(ChmArchive::NormaliseInnerPath(""), "/");
    EXPECT_FALSE(ChmArchive::NormaliseInnerPath("../x.htm"));
    EXPECT_FALSE(ChmArchive::NormaliseInnerPath("a/../../x.htm"));
}

}  // namespace
}  // namespace scriv::studio
