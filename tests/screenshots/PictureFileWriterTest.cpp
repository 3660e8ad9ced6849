// Pictures written on a thread of their own while the next window is drawn.
#include <gtest/gtest.h>

#include "desktop/PngFile.h"
#include "desktop/cJPEG.h"
#include "foundation/Paths.h"
#include "screenshots/PictureFileWriter.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

Picture Gradient(int width, int height, int seed)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.SetPixel(x, y, { static_cast<std::uint8_t>(x + seed), static_cast<std::uint8_t>(y), 90 });
    return picture;
}

TEST(PictureFileWriter, EveryQueuedPictureIsOnDiskWhenFinishAnswers)
{
    test::TempFolder folder;
    PictureFileWriter writer;
    for (int i = 0; i < 40; ++i)
        writer.Write(Gradient(300, 200, i), folder / ("p" + std::to_string(i) + ".png"), "png");
    EXPECT_TRUE(writer.Finish().empty());
    for (int i = 0; i < 40; ++i) {
        std::optional<Picture> back = DecodePng(folder.Read("p" + std::to_string(i) + ".png"));
        ASSERT_TRUE(back) << i;
        EXPECT_TRUE(*back == Gradient(300, 200, i)) << i;
    }
}

TEST(PictureFileWriter, PicturesThatCannotBeWrittenAreNamedOnce)
{
    test::TempFolder folder;
    PictureFileWriter writer;
    writer.Write(Gradient(10, 10, 0), folder / "a.bmp", "bmp");
    writer.Write(Gradient(10, 10, 0), "/proc/no-such-folder/b.png", "png");
    writer.Write(Gradient(10, 10, 0), folder / "c.gif", "gif");
    writer.Write(Gradient(10, 10, 0), folder / "d.jpg", "jpg");
    EXPECT_EQ(writer.Finish(), (std::vector<std::string> { "/proc/no-such-folder/b.png", folder / "c.gif" }));
    EXPECT_TRUE(writer.Finish().empty());
    EXPECT_TRUE(FileExists(folder / "a.bmp"));
    EXPECT_TRUE(DecodeJpeg(folder.Read("d.jpg")));
}

TEST(PictureFileWriter, WaitingForOnePictureFindsItOnDiskAndLeavesTheRestGoing)
{
    test::TempFolder folder;
    PictureFileWriter writer;
    for (int i = 0; i < 30; ++i)
        writer.Write(Gradient(400, 300, i), folder / ("p" + std::to_string(i) + ".png"), "png");
    writer.WaitFor(folder / "p3.png");
    std::optional<Picture> third = DecodePng(folder.Read("p3.png"));
    ASSERT_TRUE(third);
    EXPECT_TRUE(*third == Gradient(400, 300, 3));
    // One queued far behind is taken out of turn and is there as well.
    writer.WaitFor(folder / "p27.png");
    std::optional<Picture> late = DecodePng(folder.Read("p27.png"));
    ASSERT_TRUE(late);
    EXPECT_TRUE(*late == Gradient(400, 300, 27));
    // A path never queued does not wait.
    writer.WaitFor(folder / "never.png");
    writer.Write(Gradient(10, 10, 0), "/proc/no-such-folder/x.png", "png");
    writer.WaitFor("/proc/no-such-folder/x.png");
    EXPECT_EQ(writer.TakeFailures(), (std::vector<std::string> { "/proc/no-such-folder/x.png" }));
    EXPECT_TRUE(writer.TakeFailures().empty());
    EXPECT_TRUE(writer.Finish().empty());
    EXPECT_TRUE(FileExists(folder / "p29.png"));
}

TEST(PictureFileWriter, PicturesLargerThanTheQueueStillPass)
{
    test::TempFolder folder;
    {
        PictureFileWriter writer;
        // Each is larger than the whole queue may hold; they go one at a time.
        for (int i = 0; i < 3; ++i)
            writer.Write(Picture(5000, 5000), folder / ("big" + std::to_string(i) + ".png"), "png");
    }
    // Leaving the writer writes what was still queued.
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(FileExists(folder / ("big" + std::to_string(i) + ".png"))) << i;
}

}  // namespace
}  // namespace scriv
