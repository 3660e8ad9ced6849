#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "server/CScrivServerData.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using test::CoreFixture;
using namespace std::chrono_literals;

// A fixed moment, so that file times compare without waiting.
const std::chrono::sys_seconds kNoon = std::chrono::sys_days(std::chrono::year(2024) / 3 / 5) + 12h;

void SetFileTime(const std::string& path, std::chrono::sys_seconds when)
{
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(when));
}

class CheckSumTest : public CoreFixture {
protected:
    // The pages folder with a checksum file for project "Help".
    std::string WriteSumsFile(const std::string& lines)
    {
        return m_pages.Write("HelpCS.txt", "Version=1.0\r\n" + lines);
    }

    std::uint32_t Init() { return m_sums.init(m_pages.Path(), m_pages.Path(), "Help"); }

    // Not the user data folder: the trace files there are newer than anything.
    test::TempFolder m_pages;
    CHelpPrjCheckSums m_sums;
};

// --- the digest ---

TEST_F(CheckSumTest, TheDigestXorsEachBytePlusItsPositionIntoFourBytes)
{
    EXPECT_EQ(CalcTextFileCheckSum(m_pages.Write("a.htm", "ABCD")), "41434547");
    // The fifth byte folds into the first: 0x41 xor (0x45 + 4).
    EXPECT_EQ(CalcTextFileCheckSum(m_pages.Write("b.htm", "ABCDE")), "08434547");
    // The sum of byte and position is taken modulo 256.
    EXPECT_EQ(CalcTextFileCheckSum(m_pages.Write("c.htm", std::string("\x01\xFF", 2))), "01000000");
    // Bytes that are no text in any encoding count as they stand.
    EXPECT_EQ(CalcTextFileCheckSum(m_pages.Write("bin.htm", std::string("\xE9\x00\x80\x81", 4))), "E9018284");
}

TEST_F(CheckSumTest, AnEmptyFileGivesZerosAndAMissingOneNothing)
{
    EXPECT_EQ(CalcTextFileCheckSum(m_pages.Write("empty.htm", "")), "00000000");
    EXPECT_EQ(CalcTextFileCheckSum(m_pages / "missing.htm"), "");
}

TEST_F(CheckSumTest, SwappedFourByteBlocksGiveDifferentSums)
{
    std::string first = CalcTextFileCheckSum(m_pages.Write("one.htm", "ABCDEFGH"));
    std::string second = CalcTextFileCheckSum(m_pages.Write("two.htm", "EFGHABCD"));
    EXPECT_EQ(first, "08080808");
    EXPECT_EQ(second, "00000000");
}

// --- reading the checksum file ---

TEST_F(CheckSumTest, AnEmptyFolderOrNameLeavesTheStoreUninitialised)
{
    EXPECT_EQ(m_sums.init("", m_pages.Path(), "Help"), 0x80040001u);
    EXPECT_FALSE(m_sums.Initialized());
    EXPECT_EQ(m_sums.init(m_pages.Path(), m_pages.Path(), ""), 0x80040001u);
    EXPECT_FALSE(m_sums.Initialized());
    EXPECT_EQ(m_sums.Save(true), 0x80040001u);
    EXPECT_FALSE(FileExists(m_pages / "HelpCS.txt"));
}

TEST_F(CheckSumTest, EachLineOfTwoPartsGivesAnEntryWithThreeEqualSums)
{
    WriteSumsFile(" a.htm = 0A0B0C0D \r\nb.htm=x=y\r\nnoequals\r\nc.htm=11223344\r\n");
    ASSERT_EQ(Init(), 0u);
    EXPECT_TRUE(m_sums.Initialized());
    EXPECT_EQ(m_sums.FilePath(), m_pages / "HelpCS.txt");
    ASSERT_EQ(m_sums.Files().size(), 2u);

    CHelpPrjFileCheckSum* a = m_sums.GetItem(m_pages / "a.htm");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->FileName, "a.htm");
    EXPECT_EQ(a->SavedCheckSum, "0A0B0C0D");
    EXPECT_EQ(a->CheckSum, "0A0B0C0D");
    EXPECT_EQ(a->PreviousCheckSum, "0A0B0C0D");
    EXPECT_EQ(a->FullPath(), m_pages / "a.htm");
    // A line with two "=" is ignored.
    EXPECT_EQ(m_sums.GetItem(m_pages / "b.htm"), nullptr);
    EXPECT_NE(m_sums.GetItem(m_pages / "C.HTM"), nullptr);
}

TEST_F(CheckSumTest, TheFirstLineIsSkippedWhateverItHolds)
{
    m_pages.Write("HelpCS.txt", "first.htm=00000000\r\nsecond.htm=00000000\r\n");
    ASSERT_EQ(Init(), 0u);
    EXPECT_EQ(m_sums.GetItem(m_pages / "first.htm"), nullptr);
    EXPECT_NE(m_sums.GetItem(m_pages / "second.htm"), nullptr);
}

TEST_F(CheckSumTest, WithoutAChecksumFileTheStoreStartsEmpty)
{
    ASSERT_EQ(Init(), 0u);
    EXPECT_TRUE(m_sums.Initialized());
    EXPECT_TRUE(m_sums.Files().empty());
}

// --- entries and changes ---

TEST_F(CheckSumTest, APageWithoutALineHasNoSavedSumAndCountsAsChanged)
{
    std::string page = m_pages.Write("new.htm", "<p>new</p>");
    ASSERT_EQ(Init(), 0u);
    CHelpPrjFileCheckSum* entry = m_sums.GetCheckSumObject(page, false);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->SavedCheckSum, "");
    EXPECT_EQ(entry->CheckSum, CalcTextFileCheckSum(page));
    EXPECT_EQ(entry->PreviousCheckSum, entry->CheckSum);
    EXPECT_EQ(entry->Folder, m_pages.Path());
    EXPECT_TRUE(entry->CheckSumChanged());
    EXPECT_FALSE(entry->PreviousCheckSumChanged());
    EXPECT_EQ(m_sums.GetCheckSumObject(page, false), entry);
}

TEST_F(CheckSumTest, APageChangedAndChangedBackCountsAsUnchanged)
{
    std::string page = m_pages.Write("page.htm", "<p>original</p>");
    WriteSumsFile("page.htm=" + CalcTextFileCheckSum(page) + "\r\n");
    ASSERT_EQ(Init(), 0u);

    m_pages.Write("page.htm", "<p>edited</p>");
    m_sums.Recalc();
    CHelpPrjFileCheckSum* entry = m_sums.GetItem(page);
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(entry->CheckSumChanged());
    EXPECT_TRUE(entry->PreviousCheckSumChanged());
    EXPECT_EQ(m_sums.ChangedFiles().size(), 1u);

    m_pages.Write("page.htm", "<p>original</p>");
    m_sums.Recalc();
    EXPECT_FALSE(entry->CheckSumChanged());
    EXPECT_TRUE(m_sums.ChangedFiles().empty());
}

TEST_F(CheckSumTest, SumsCompareWithoutRegardToCase)
{
    CHelpPrjFileCheckSum entry;
    entry.CheckSum = "0a0b0c0d";
    entry.SavedCheckSum = "0A0B0C0D";
    entry.PreviousCheckSum = "0A0B0C0E";
    EXPECT_FALSE(entry.CheckSumChanged());
    EXPECT_TRUE(entry.PreviousCheckSumChanged());
}

TEST_F(CheckSumTest, RecalcTakesThePagesOfTheFolderButNoOtherFiles)
{
    m_pages.Write("a.htm", "a");
    m_pages.Write("b.htm", "b");
    m_pages.Write("popups.txt", "IDH_X=some popup text");
    m_pages.Write("style.css", "p {}");
    ASSERT_EQ(Init(), 0u);
    std::vector<std::string> used = m_sums.Recalc();
    EXPECT_EQ(used, (std::vector<std::string> { "a.htm", "b.htm" }));
    EXPECT_EQ(m_sums.Files().size(), 2u);
    EXPECT_EQ(m_sums.GetItem(m_pages / "popups.txt"), nullptr);
    EXPECT_EQ(m_sums.GetItem(m_pages / "style.css"), nullptr);
}

TEST_F(CheckSumTest, RecalcOfAListTakesOnlyThoseNames)
{
    m_pages.Write("a.htm", "a");
    m_pages.Write("b.htm", "b");
    ASSERT_EQ(Init(), 0u);
    std::vector<std::string> names { "b.htm" };
    EXPECT_EQ(m_sums.Recalc(&names), names);
    EXPECT_EQ(m_sums.GetItem(m_pages / "a.htm"), nullptr);
    EXPECT_NE(m_sums.GetItem(m_pages / "b.htm"), nullptr);
}

// --- writing the checksum file ---

TEST_F(CheckSumTest, SavingWritesTheVersionLineAndOneLinePerPage)
{
    std::string a = m_pages.Write("a.htm", "ABCD");
    std::string b = m_pages.Write("b.htm", "");
    ASSERT_EQ(Init(), 0u);
    m_sums.Recalc();
    ASSERT_EQ(m_sums.Save(true), 0u);
    EXPECT_EQ(m_pages.Read("HelpCS.txt"), "Version=1.0\r\na.htm=41434547\r\nb.htm=00000000\r\n");
    EXPECT_TRUE(m_sums.ChangedFiles().empty());
}

TEST_F(CheckSumTest, WithoutKeepAChangedPageKeepsItsSavedSumAndANewPageTakesOne)
{
    std::string old = m_pages.Write("old.htm", "changed");
    m_pages.Write("new.htm", "ABCD");
    WriteSumsFile("old.htm=01020304\r\n");
    ASSERT_EQ(Init(), 0u);
    m_sums.Recalc();
    ASSERT_EQ(m_sums.Save(false), 0u);
    EXPECT_EQ(m_pages.Read("HelpCS.txt"), "Version=1.0\r\nold.htm=01020304\r\nnew.htm=41434547\r\n");
    EXPECT_TRUE(m_sums.GetItem(old)->CheckSumChanged());

    ASSERT_EQ(m_sums.Save(true), 0u);
    EXPECT_EQ(m_pages.Read("HelpCS.txt"),
        "Version=1.0\r\nold.htm=" + CalcTextFileCheckSum(old) + "\r\nnew.htm=41434547\r\n");
    EXPECT_FALSE(m_sums.GetItem(old)->CheckSumChanged());
}

TEST_F(CheckSumTest, ASavedFileReadsBackToTheSameSums)
{
    m_pages.Write("a.htm", "first page");
    m_pages.Write("b.htm", "second page");
    ASSERT_EQ(Init(), 0u);
    m_sums.Recalc();
    ASSERT_EQ(m_sums.Save(true), 0u);

    CHelpPrjCheckSums again;
    ASSERT_EQ(again.init(m_pages.Path(), m_pages.Path(), "Help"), 0u);
    again.Recalc();
    EXPECT_EQ(again.Files().size(), 2u);
    EXPECT_TRUE(again.ChangedFiles().empty());
}

// --- file times ---

TEST_F(CheckSumTest, AFileDatedLikeTheCompiledHelpIsNotNewer)
{
    std::string chm = m_pages.Write("help.chm", "chm");
    std::string page = m_pages.Write("page.htm", "page");
    SetFileTime(chm, kNoon);
    SetFileTime(page, kNoon);
    EXPECT_FALSE(HelpProjectChangedSinceCompile(chm));

    SetFileTime(page, kNoon + 1s);
    EXPECT_TRUE(HelpProjectChangedSinceCompile(chm));
    std::string trace = TraceText();
    EXPECT_NE(trace.find("CHMFullPath = " + chm + ", CHMFileDate = Tuesday, March 5, 2024"), std::string::npos) << trace;
    EXPECT_NE(trace.find("File = page.htm, FileDate = Tuesday, March 5, 2024"), std::string::npos);
}

TEST_F(CheckSumTest, ProjectFilesAndOtherCompiledHelpDoNotCountAsChanges)
{
    std::string chm = m_pages.Write("help.chm", "chm");
    SetFileTime(chm, kNoon);
    SetFileTime(m_pages.Write("help.svp", "svp"), kNoon + 1h);
    SetFileTime(m_pages.Write("other.CHM", "chm"), kNoon + 1h);
    SetFileTime(m_pages.Write("old.htm", "old"), kNoon - 1h);
    EXPECT_FALSE(HelpProjectChangedSinceCompile(chm));
    SetFileTime(m_pages.Write("help.hhk", "hhk"), kNoon + 1h);
    EXPECT_TRUE(HelpProjectChangedSinceCompile(chm));
}

TEST_F(CheckSumTest, WithoutTheReferenceFileNothingHasChanged)
{
    m_pages.Write("page.htm", "page");
    m_pages.Write("help.svp", "svp");
    EXPECT_FALSE(HelpProjectChangedSinceCompile(m_pages / "help.chm"));
    EXPECT_FALSE(WebHelpChangedSinceGeneration(m_pages / "main.htm"));
}

TEST_F(CheckSumTest, BrowserHelpCountsOnlyContentsIndexAndProjectFiles)
{
    std::string main = m_pages.Write("main.htm", "main");
    SetFileTime(main, kNoon);
    SetFileTime(m_pages.Write("page.htm", "page"), kNoon + 1h);
    SetFileTime(m_pages.Write("help.hhp", "hhp"), kNoon + 1h);
    SetFileTime(m_pages.Write("help.hhc", "hhc"), kNoon);
    EXPECT_FALSE(WebHelpChangedSinceGeneration(main));

    SetFileTime(m_pages.Write("help.HHK", "hhk"), kNoon + 2s);
    EXPECT_TRUE(WebHelpChangedSinceGeneration(main));
    std::string trace = TraceText();
    EXPECT_NE(trace.find("WebHelpFullPath = " + main + ", WebHelpFileDate = Tuesday, March 5, 2024"), std::string::npos);
    EXPECT_NE(trace.find("File = help.HHK, FileDate = "), std::string::npos);
}

// --- the tree's store of the current project ---

TEST_F(CheckSumTest, TheTreeInitialisesTheStoreOfTheCurrentProjectOnFirstUse)
{
    Connect();
    UseProject("Help", m_pages.Path());
    std::string page = m_pages.Write("page.htm", "ABCD");
    m_pages.Write("other.htm", "other");
    WriteSumsFile("page.htm=41434547\r\n");

    CHelpPrjTree tree;
    CHelpPrjFileCheckSum* entry = tree.GetCheckSumObject(page, false);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->SavedCheckSum, "41434547");
    EXPECT_FALSE(entry->CheckSumChanged());
    // The first use computed every page of the folder.
    ASSERT_NE(tree.CheckSums().GetItem(m_pages / "other.htm"), nullptr);
    EXPECT_TRUE(tree.CheckSums().GetItem(m_pages / "other.htm")->CheckSumChanged());

    ASSERT_EQ(tree.SaveCheckSums(true), 0u);
    EXPECT_EQ(m_pages.Read("HelpCS.txt"), "Version=1.0\r\npage.htm=41434547\r\nother.htm=" + CalcTextFileCheckSum(m_pages / "other.htm") + "\r\n");
}

TEST_F(CheckSumTest, InRunTimeModeTheTreeTracksNoPages)
{
    Connect();
    UseProject("Help", m_pages.Path());
    Data().Runtime = true;
    std::string page = m_pages.Write("page.htm", "ABCD");
    CHelpPrjTree tree;
    EXPECT_EQ(tree.GetCheckSumObject(page, false), nullptr);
    EXPECT_FALSE(tree.CheckSums().Initialized());
    EXPECT_EQ(tree.SaveCheckSums(true), 0x80040001u);
    EXPECT_FALSE(FileExists(m_pages / "HelpCS.txt"));
}

}  // namespace
}  // namespace scriv
