#include <gtest/gtest.h>

#include <filesystem>

#include "foundation/FileBackups.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "ReportingFixture.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

using namespace std::chrono;

TEST(BackupFileName, AddsTheDateAndCountsWhileTaken)
{
    test::TempFolder folder;
    std::string page = folder.Write("Page.htm", "x");
    year_month_day day { year { 2024 }, month { 3 }, std::chrono::day { 5 } };
    EXPECT_EQ(BackupFileName(page, day), folder / "Page_20240305.htm");
    folder.Write("Page_20240305.htm", "1");
    EXPECT_EQ(BackupFileName(page, day), folder / "Page_202403051.htm");
    folder.Write("Page_202403051.htm", "2");
    EXPECT_EQ(BackupFileName(page, day), folder / "Page_202403052.htm");
    // A name comes free again once its backup is gone.
    DeleteFileIfExists(folder / "Page_20240305.htm");
    EXPECT_EQ(BackupFileName(page, day), folder / "Page_20240305.htm");
}

TEST(BackupFileName, KeepsNamesWithoutExtensionAndPadsTheDate)
{
    test::TempFolder folder;
    year_month_day day { year { 2031 }, month { 1 }, std::chrono::day { 2 } };
    EXPECT_EQ(BackupFileName(folder / "README", day), folder / "README_20310102");
    EXPECT_EQ(BackupFileName(folder / "a.b.txt", day), folder / "a.b_20310102.txt");
}

TEST(BackupFileName, TodayIsEightDigits)
{
    test::TempFolder folder;
    std::string name = FileNameOf(BackupFileName(folder / "x.htm"));
    ASSERT_EQ(name.size(), std::string("x_yyyymmdd.htm").size());
    EXPECT_EQ(name.substr(0, 2), "x_");
    EXPECT_EQ(name.find_first_not_of("0123456789", 2), 10u);
}

class RotatingBackups : public ::testing::Test {
protected:
    std::string Copy(int generation) { return m_folder.Read("z" + std::to_string(generation) + "_Help.hhc.bak"); }

    test::TempFolder m_folder;
    std::string m_file { m_folder.Write("Help.hhc", "version 1") };
};

TEST_F(RotatingBackups, FirstRunCopiesTheFileThreeTimes)
{
    EXPECT_TRUE(RotateBackups(m_file));
    EXPECT_EQ(Copy(1), "version 1");
    EXPECT_EQ(Copy(2), "version 1");
    EXPECT_EQ(Copy(3), "version 1");
    EXPECT_EQ(RotatingBackupName(m_file, 2), m_folder / "z2_Help.hhc.bak");
}

TEST_F(RotatingBackups, AnUnchangedFileLeavesAllCopiesAlone)
{
    RotateBackups(m_file);
    m_folder.Write("z2_Help.hhc.bak", "older");
    m_folder.Write("z3_Help.hhc.bak", "oldest");
    EXPECT_TRUE(RotateBackups(m_file));
    EXPECT_EQ(Copy(1), "version 1");
    EXPECT_EQ(Copy(2), "older");
    EXPECT_EQ(Copy(3), "oldest");
}

TEST_F(RotatingBackups, AChangedFileRotatesTheCopies)
{
    RotateBackups(m_file);
    m_folder.Write("Help.hhc", "version 2");
    EXPECT_TRUE(RotateBackups(m_file));
    EXPECT_EQ(Copy(1), "version 2");
    EXPECT_EQ(Copy(2), "version 1");
    EXPECT_EQ(Copy(3), "version 1");
    m_folder.Write("Help.hhc", "version 3");
    RotateBackups(m_file);
    m_folder.Write("Help.hhc", "version 4!");
    RotateBackups(m_file);
    EXPECT_EQ(Copy(1), "version 4!");
    EXPECT_EQ(Copy(2), "version 3");
    EXPECT_EQ(Copy(3), "version 2");
    EXPECT_EQ(m_folder.Read("Help.hhc"), "version 4!");
}

TEST_F(RotatingBackups, NothingToDoForAnEmptyPathOrAMissingFile)
{
    EXPECT_TRUE(RotateBackups(""));
    EXPECT_TRUE(RotateBackups(m_folder / "missing.hhk"));
    EXPECT_EQ(ListFiles(m_folder.Path()), std::vector<std::string> { "Help.hhc" });
}

TEST_F(RotatingBackups, ACopyThatCannotBeWrittenRaises)
{
    RotateBackups(m_file);
    m_folder.Write("Help.hhc", "version 2");
    DeleteFileIfExists(m_folder / "z2_Help.hhc.bak");
    std::filesystem::create_directory(m_folder / "z2_Help.hhc.bak");
    EXPECT_THROW(RotateBackups(m_file), ScrivError);
    // The file itself is never touched.
    EXPECT_EQ(m_folder.Read("Help.hhc"), "version 2");
}

}  // namespace
}  // namespace scriv

namespace scriv {
namespace {

class SafeReplacement : public test::ReportingFixture { };

TEST_F(SafeReplacement, TheOldFileGoesOnlyWhenTheNewOneIsThere)
{
    std::string path = m_data.Write("page.htm", "old");
    EXPECT_TRUE(ReplaceFileSafely(path, [&] { m_data.Write("page.htm", "new"); }));
    EXPECT_EQ(m_data.Read("page.htm"), "new");
    EXPECT_EQ(ListFiles(m_data.Path(), "page*"), (std::vector<std::string> { "page.htm" }));
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(SafeReplacement, AFailedWriteBringsTheOriginalBackAndSaysSo)
{
    std::string path = m_data.Write("page.htm", "old");
    EXPECT_FALSE(ReplaceFileSafely(path, [] {}));
    EXPECT_EQ(m_data.Read("page.htm"), "old");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Can't save file '" + path + "'.\r\nThe original file is restored.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 48);
}

}  // namespace
}  // namespace scriv
