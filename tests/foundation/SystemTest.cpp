#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <thread>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

// Sets PATH for one test and puts the old value back.
class ScopedPath {
public:
    explicit ScopedPath(const std::string& value)
    {
        const char* old = std::getenv("PATH");
        m_hadValue = old != nullptr;
        m_old = old ? old : "";
        ::setenv("PATH", value.c_str(), 1);
    }
    ~ScopedPath()
    {
        if (m_hadValue)
            ::setenv("PATH", m_old.c_str(), 1);
        else
            ::unsetenv("PATH");
    }

private:
    std::string m_old;
    bool m_hadValue { false };
};

std::string WriteScript(const test::TempFolder& folder, const std::string& name, const std::string& body)
{
    std::string path = folder.Write(name, "#!/bin/sh\n" + body);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
}

TEST(NewGuid, IsAVersion4GuidInBraces)
{
    std::string guid = NewGuid();
    ASSERT_EQ(guid.size(), 38u);
    EXPECT_EQ(guid.front(), '{');
    EXPECT_EQ(guid.back(), '}');
    for (std::size_t i = 1; i < 37; ++i) {
        if (i == 9 || i == 14 || i == 19 || i == 24)
            EXPECT_EQ(guid[i], '-') << guid;
        else
            EXPECT_NE(std::string("0123456789ABCDEF").find(guid[i]), std::string::npos) << guid;
    }
    EXPECT_EQ(guid[15], '4') << guid;
    EXPECT_NE(std::string("89AB").find(guid[20]), std::string::npos) << guid;
}

TEST(NewGuid, IsNewEachTime)
{
    std::set<std::string> seen;
    for (int i = 0; i < 2000; ++i)
        seen.insert(NewGuid());
    EXPECT_EQ(seen.size(), 2000u);
}

TEST(ShellAndWait, AnswersTheExitCode)
{
    EXPECT_EQ(ShellAndWait({ "sh", "-c", "exit 3" }), 3);
    EXPECT_EQ(ShellAndWait({ "true" }), 0);
    EXPECT_EQ(ShellAndWait({ "sh", "-c", "kill -9 $$" }), 128 + 9);
}

TEST(ShellAndWait, AProgramThatCannotStartGivesMinusOne)
{
    EXPECT_EQ(ShellAndWait({ "scrivant-no-such-program-4711" }), -1);
    EXPECT_EQ(ShellAndWait({}), -1);
    std::string output = "stale";
    EXPECT_EQ(ShellAndWait({ "scrivant-no-such-program-4711" }, &output), -1);
}

TEST(ShellAndWait, CollectsOutputAndPassesArgumentsWithoutAShell)
{
    std::string output;
    EXPECT_EQ(ShellAndWait({ "sh", "-c", "echo out; echo err >&2; exit 2" }, &output), 2);
    EXPECT_EQ(output, "out\nerr\n");
    EXPECT_EQ(ShellAndWait({ "printf", "%s|", "a b", "$HOME", "*" }, &output), 0);
    EXPECT_EQ(output, "a b|$HOME|*|");
}

TEST(ShellAndWait, CollectsMoreThanAPipeHolds)
{
    std::string output;
    EXPECT_EQ(ShellAndWait({ "head", "-c", "1000000", "/dev/zero" }, &output), 0);
    EXPECT_EQ(output.size(), 1000000u);
}

TEST(FindProgramOnPath, FindsExecutablesOnly)
{
    test::TempFolder folder;
    std::string program = WriteScript(folder, "scrivtool", "exit 0\n");
    folder.Write("plainfile", "not a program");
    ScopedPath path("/nonexistent:" + RemoveBackslash(folder.Path()));
    EXPECT_EQ(FindProgramOnPath("scrivtool"), program);
    EXPECT_EQ(FindProgramOnPath("plainfile"), "");
    EXPECT_EQ(FindProgramOnPath("missing"), "");
    EXPECT_EQ(FindProgramOnPath(""), "");
    EXPECT_EQ(FindProgramOnPath(program), program);
    EXPECT_EQ(FindProgramOnPath(folder / "plainfile"), "");
}

TEST(FindProgramOnPath, FindsTheShell)
{
    std::string shell = FindProgramOnPath("sh");
    EXPECT_TRUE(IsAbsolutePath(shell)) << shell;
    EXPECT_EQ(FileNameOf(shell), "sh");
}

TEST(LoggedOnUserName, AgreesWithTheSystem)
{
    std::string expected;
    ASSERT_EQ(ShellAndWait({ "id", "-un" }, &expected), 0);
    EXPECT_EQ(LoggedOnUserName(), TrimWhitespace(expected));
}

TEST(ShellOpen, HandsThePathToTheDesktopHandler)
{
    test::TempFolder folder;
    WriteScript(folder, "xdg-open", "printf '%s' \"$1\" > \"" + folder.Path() + "opened.tmp\"\n"
        "mv \"" + folder.Path() + "opened.tmp\" \"" + folder.Path() + "opened.txt\"\n");
    ScopedPath path(RemoveBackslash(folder.Path()) + ":/usr/bin:/bin");
    EXPECT_TRUE(ShellOpen("/some/help file.chm"));
    // The handler runs on its own; wait until it has written what it got.
    for (int i = 0; i < 500 && !FileExists(folder / "opened.txt"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(folder.Read("opened.txt"), "/some/help file.chm");
}

TEST(ShellOpen, FailsWithoutAHandler)
{
    test::TempFolder folder;
    ScopedPath path(RemoveBackslash(folder.Path()));
    EXPECT_FALSE(ShellOpen("/some/file.chm"));
}

}  // namespace
}  // namespace scriv
