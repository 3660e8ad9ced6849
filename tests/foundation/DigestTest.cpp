#include <gtest/gtest.h>

#include "foundation/Digest.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

TEST(Digest, IsTheFnv1aOfTheBytesInSixteenHexDigits)
{
    // The published 64-bit FNV-1a values.
    EXPECT_EQ(TextDigest(""), "cbf29ce484222325");
    EXPECT_EQ(TextDigest("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(TextDigest("foobar"), "85944171f73967e8");
    // Bytes that swap places or change by one bit give another digest.
    EXPECT_NE(TextDigest("<p>ab</p>"), TextDigest("<p>ba</p>"));
    EXPECT_NE(TextDigest("Form1"), TextDigest("Form0"));
}

TEST(Digest, AFileGivesTheDigestOfItsBytesAndAMissingOneNothing)
{
    test::TempFolder folder;
    std::string path = folder.Write("page.htm", std::string("<html>\0\xFF</html>", 15));
    EXPECT_EQ(FileDigest(path), TextDigest(std::string("<html>\0\xFF</html>", 15)));
    EXPECT_EQ(FileDigest(folder / "missing.htm"), "");
}

}  // namespace
}  // namespace scriv
