#include <gtest/gtest.h>

#include "foundation/AppFolders.h"
#include "foundation/Paths.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

TEST(PathHelpers, TakePathsApartWithEitherSeparator)
{
    EXPECT_EQ(AddBackslash("/help"), "/help/");
    EXPECT_EQ(AddBackslash("/help/"), "/help/");
    EXPECT_EQ(AddBackslash(""), "");
    EXPECT_EQ(FileNameOf("/a/b/Form.htm"), "Form.htm");
    EXPECT_EQ(FileNameOf("..\\shared\\frmA.frm"), "frmA.frm");
    EXPECT_EQ(FileNameOf("plain"), "plain");
    EXPECT_EQ(FileBaseName("/a/b.c/d.tar.gz"), "d.tar");
    EXPECT_EQ(ParentFolder("/a/b/c/"), "/a/b/");
    EXPECT_EQ(ParentFolder("/a/b/c"), "/a/b/");
    EXPECT_EQ(ParentFolder("c"), "");
    EXPECT_EQ(JoinPath("/a", "/b"), "/a/b");
    auto parts = SplitPath("/x/y/Main.Form.htm");
    EXPECT_EQ(parts.folder, "/x/y/");
    EXPECT_EQ(parts.fileName, "Main.Form");
    EXPECT_EQ(parts.extension, ".htm");
    EXPECT_EQ(SplitPath("/x/" + std::string(300, 'a') + ".htm").fileName, "");
}

TEST(PathHelpers, PatternsMatchWithoutCase)
{
    EXPECT_TRUE(MatchesPattern("Page.HTM", "*.htm"));
    EXPECT_TRUE(MatchesPattern("z1_a.bak", "z?_*.bak"));
    EXPECT_FALSE(MatchesPattern("page.html", "*.htm"));
}

TEST(FileSystem, WritesReadsCopiesAndCompares)
{
    test::TempFolder folder;
    std::string a = folder / "a.txt";
    ASSERT_TRUE(WriteFileBytes(a, "one\r\ntwo"));
    EXPECT_TRUE(FileExists(a));
    EXPECT_FALSE(FolderExists(a));
    EXPECT_EQ(*ReadFileText(a), "one\r\ntwo");
    EXPECT_FALSE(ReadFileText(folder / "missing.txt").has_value());
    ASSERT_TRUE(CopyFileOver(a, folder / "b.txt"));
    EXPECT_TRUE(FilesAreEqual(a, folder / "b.txt"));
    ASSERT_TRUE(WriteFileBytes(folder / "b.txt", "one\r\ntwO"));
    EXPECT_FALSE(FilesAreEqual(a, folder / "b.txt"));
    EXPECT_EQ(ListFiles(folder.Path(), "*.TXT"), (std::vector<std::string> { "a.txt", "b.txt" }));
    EXPECT_TRUE(MakeFolders(folder / "x/y/z/"));
    EXPECT_TRUE(FolderHasWriteAccess(folder / "x/y/z/"));
    EXPECT_FALSE(FileExists(folder / "x/y/z/test.txt"));
}

TEST(FileSystem, PathsWrittenOnWindowsAreFoundInAnyCase)
{
    test::TempFolder folder;
    std::string form = folder.Write("Sub/FORM1.FRM", "x");
    EXPECT_EQ(FindPathNoCase(folder / "sub/Form1.frm"), form);
    EXPECT_EQ(FindPathNoCase(folder / "Sub/../Sub/form1.FRM"), folder / "Sub/../Sub/FORM1.FRM");
    EXPECT_EQ(FindPathNoCase(form), form);
    // What is not there in any case comes back as it was asked for.
    EXPECT_EQ(FindPathNoCase(folder / "sub/Form2.frm"), folder / "sub/Form2.frm");
    EXPECT_EQ(FindPathNoCase(""), "");
}

TEST(AppFolders, RedirectFilesMoveTheFolders)
{
    test::TempFolder home;
    test::TempFolder data;
    home.Write("Settings/ScrivantSettings.xml", "<Settings/>");
    AppFolders folders({ home.Path(), data.Path() });
    EXPECT_EQ(folders.TemplatesRoot(), home.Path() + "Templates/");
    EXPECT_EQ(folders.LogFolder(), data.Path());
    // The settings folder is the user's writable copy of the shipped one.
    EXPECT_EQ(folders.SettingsFolder(), data.Path() + "Settings/");
    EXPECT_TRUE(FileExists(data.Path() + "Settings/ScrivantSettings.xml"));

    // A redirect without a final separator still names a folder.
    home.Write("Redirect/Templates.rdt", "  /elsewhere/templates  \r\nignored\r\n");
    home.Write("Redirect/Log.rdt", "");
    EXPECT_EQ(folders.TemplatesRoot(), "/elsewhere/templates/");
    EXPECT_EQ(folders.LogFolder(), data.Path());
}

}  // namespace
}  // namespace scriv
