#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/clsFile.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

TEST(clsFileNames, DerivesThePartsOfTheFullName)
{
    clsFile file("/help/pages/Report.Final.htm");
    EXPECT_EQ(file.Path(), "/help/pages/");
    EXPECT_EQ(file.NameWithExtension(), "Report.Final.htm");
    EXPECT_EQ(file.Name(), "Report.Final");
    EXPECT_EQ(file.Extension(), "htm");

    file.SetFullName("/help/README");
    EXPECT_EQ(file.Name(), "README");
    EXPECT_EQ(file.Extension(), "");
    file.SetFullName("plain.txt");
    EXPECT_EQ(file.Path(), "");
    EXPECT_EQ(file.Name(), "plain");
}

TEST(clsFileContents, JoinsTheLinesWithCrLf)
{
    test::TempFolder folder;
    clsFile file(folder.Write("a.txt", "one\ntwo\r\n\r\nthree\rfour\n"));
    EXPECT_EQ(file.Contents(), "one\r\ntwo\r\n\r\nthree\r\nfour");
    EXPECT_EQ(file.Error(), 0u);
    clsFile empty(folder.Write("empty.txt", ""));
    EXPECT_EQ(empty.Contents(), "");
}

TEST(clsFileContents, ReadsUtf8AndTheSystemCodePage)
{
    test::TempFolder folder;
    clsFile marked(folder.Write("u.htm", "\xEF\xBB\xBF<p>Caf\xC3\xA9</p>"));
    EXPECT_EQ(marked.Contents(), "<p>Café</p>");
    clsFile ansi(folder.Write("a.txt", "Caf\xE9"));
    EXPECT_EQ(ansi.Contents(), "Café");
}

TEST(clsFileContents, WritingReplacesTheFileInOneBlock)
{
    test::TempFolder folder;
    std::string path = folder.Write("out.txt", "old text that is longer than the new one");
    clsFile file(path);
    file.SetContents("Café\r\nline 2");
    EXPECT_EQ(file.Error(), 0u);
    // Undeclared text goes out in the system code page, byte for byte.
    EXPECT_EQ(folder.Read("out.txt"), "Caf\xE9\r\nline 2");
    EXPECT_EQ(file.Contents(), "Café\r\nline 2");

    file.SetContents("<?xml version=\"1.0\" encoding=\"utf-8\" ?><a>Жук</a>");
    EXPECT_EQ(folder.Read("out.txt"), "<?xml version=\"1.0\" encoding=\"utf-8\" ?><a>\xD0\x96\xD1\x83\xD0\xBA</a>");
}

TEST(clsFileFailures, RaiseUnlessSilent)
{
    test::TempFolder folder;
    clsFile file(folder / "missing.txt");
    try {
        file.Contents();
        FAIL() << "reading a missing file must fail";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), status::kSecondFailure);
        EXPECT_EQ(error.Source(), "clsFile.Contents");
    }
    EXPECT_THROW(clsFile().Contents(), ScrivError);
    EXPECT_THROW(clsFile(folder / "no/such/folder/x.txt").SetContents("x"), ScrivError);
    EXPECT_THROW(file.Delete(), ScrivError);
}

TEST(clsFileFailures, SilentKeepsTheErrorAndClearsItOnSuccess)
{
    test::TempFolder folder;
    clsFile file(folder / "missing.txt", true);
    EXPECT_EQ(file.Contents(), "");
    EXPECT_EQ(file.Error(), status::kSecondFailure);
    EXPECT_FALSE(file.ErrorDescription().empty());

    file.SetContents("now here");
    EXPECT_EQ(file.Error(), 0u);
    EXPECT_TRUE(file.ErrorDescription().empty());

    clsFile unwritable(folder / "no/such/folder/x.txt", true);
    unwritable.SetContents("x");
    EXPECT_EQ(unwritable.Error(), status::kGeneralFailure);
}

TEST(clsFileDelete, DeletesAndStoresTheOutcome)
{
    test::TempFolder folder;
    std::string path = folder.Write("gone.txt", "x");
    clsFile file(path, true);
    file.Delete();
    EXPECT_EQ(file.Error(), 0u);
    EXPECT_FALSE(FileExists(path));
    file.Delete();
    EXPECT_EQ(file.Error(), status::kSecondFailure);
}

}  // namespace
}  // namespace scriv
