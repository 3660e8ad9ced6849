#include <gtest/gtest.h>

#include <filesystem>

#include <cairo.h>

#include "desktop/BmpFile.h"
#include "desktop/Picture.h"
#include "desktop/cJPEG.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "model/CScrivantParameters.h"
#include "screenshots/CFormBitmapCapture.h"
#include "screenshots/modScreenCapture.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// A picture whose every pixel differs: red from x, green from y, blue from both.
Picture Pattern(int width, int height)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.SetPixel(x, y, { static_cast<std::uint8_t>(x * 40), static_cast<std::uint8_t>(y * 60),
                                       static_cast<std::uint8_t>(200 - x - y) });
    return picture;
}

Picture Solid(int width, int height, Rgb colour)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.SetPixel(x, y, colour);
    return picture;
}

std::string Bytes(std::initializer_list<int> values)
{
    std::string bytes;
    for (int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

// --- bitmaps ---

TEST(PictureTest, ASurfaceGivesEveryPixelInRedGreenBlueOrderUpToTheLast)
{
    for (auto [width, height] : { std::pair { 1, 1 }, std::pair { 1, 5 }, std::pair { 7, 3 }, std::pair { 13, 1 } }) {
        for (cairo_format_t format : { CAIRO_FORMAT_RGB24, CAIRO_FORMAT_ARGB32 }) {
            cairo_surface_t* surface = cairo_image_surface_create(format, width, height);
            cairo_surface_flush(surface);
            unsigned char* data = cairo_image_surface_get_data(surface);
            int stride = cairo_image_surface_get_stride(surface);
            auto colourAt = [](int x, int y) {
                return Rgb { static_cast<std::uint8_t>(10 + x * 17), static_cast<std::uint8_t>(200 - y * 13),
                    static_cast<std::uint8_t>(x * 7 + y * 11 + 1) };
            };
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    Rgb c = colourAt(x, y);
                    reinterpret_cast<std::uint32_t*>(data + y * stride)[x]
                        = 0xFF000000u | (std::uint32_t { c.r } << 16) | (std::uint32_t { c.g } << 8) | c.b;
                }
            cairo_surface_mark_dirty(surface);
            Picture picture = Picture::FromSurface(surface);
            ASSERT_EQ(picture.Width(), width);
            ASSERT_EQ(picture.Height(), height);
            ASSERT_EQ(picture.Bytes().size(), static_cast<std::size_t>(width * height * 3));
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    EXPECT_EQ(picture.Pixel(x, y), colourAt(x, y)) << width << "x" << height << " at " << x << "," << y;
            // And back: the same pixels on a new surface.
            cairo_surface_t* back = picture.ToSurface();
            EXPECT_TRUE(Picture::FromSurface(back) == picture);
            cairo_surface_destroy(back);
            cairo_surface_destroy(surface);
        }
    }
    cairo_surface_t* empty = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 0, 0);
    EXPECT_TRUE(Picture::FromSurface(empty).Empty());
    cairo_surface_destroy(empty);
}

TEST(PictureTest, PastingCopiesThePartThatFallsInside)
{
    Picture canvas(4, 3);
    Picture part(3, 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            part.SetPixel(x, y, { static_cast<std::uint8_t>(x + 1), static_cast<std::uint8_t>(y + 1), 9 });
    canvas.Paste(part, 2, 2);
    // Only the top row of the part, and of it the two left pixels, fall inside.
    EXPECT_EQ(canvas.Pixel(2, 2), (Rgb { 1, 1, 9 }));
    EXPECT_EQ(canvas.Pixel(3, 2), (Rgb { 2, 1, 9 }));
    EXPECT_EQ(canvas.Pixel(1, 2), (Rgb {}));
    EXPECT_EQ(canvas.Pixel(2, 1), (Rgb {}));
    canvas.Paste(part, -2, -1);
    EXPECT_EQ(canvas.Pixel(0, 0), (Rgb { 3, 2, 9 }));
    EXPECT_EQ(canvas.Pixel(1, 0), (Rgb {}));
    EXPECT_TRUE(canvas.Crop(2, 2, 2, 1) == part.Crop(0, 0, 2, 1));
}

TEST(BmpFileTest, AThreeByTwoPictureIsWrittenByteForByte)
{
    std::string expected = Bytes({
        'B', 'M', 78, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, // file header: size 78, pixels at 54
        40, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0, // info header: 3 x 2, one plane, 24 bits
        0, 0, 0, 0, 24, 0, 0, 0, 0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0, 0, // no compression, 24 bytes, 96 dpi
        0, 0, 0, 0, 0, 0, 0, 0, // no palette
        // the bottom row first, blue green red, padded to 12 bytes
        199, 60, 0, 198, 60, 40, 197, 60, 80, 0, 0, 0,
        200, 0, 0, 199, 0, 40, 198, 0, 80, 0, 0, 0 });
    EXPECT_EQ(EncodeBmp(Pattern(3, 2)), expected);
}

TEST(BmpFileTest, AWrittenBitmapReadsBackAsTheSamePicture)
{
    test::TempFolder folder;
    Picture picture = Pattern(5, 4);
    ASSERT_TRUE(WriteBmpFile(picture, folder / "p.bmp"));
    std::optional<Picture> back = DecodeBmp(folder.Read("p.bmp"));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, picture);
    EXPECT_FALSE(WriteBmpFile(picture, folder / "missing/folder/p.bmp"));
}

TEST(BmpFileTest, PalettedTopDownAndBitFieldBitmapsAreRead)
{
    // 2 x 2 at 1 bit, two palette entries (red, blue); rows bottom up: 10, 01.
    std::string oneBit = Bytes({ 'B', 'M', 70, 0, 0, 0, 0, 0, 0, 0, 62, 0, 0, 0, 40, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0, 1, 0,
        1, 0, 0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0,
        0x80, 0, 0, 0, 0x40, 0, 0, 0 });
    std::optional<Picture> bits = DecodeBmp(oneBit);
    ASSERT_TRUE(bits);
    EXPECT_EQ(bits->Pixel(0, 1), (Rgb { 0, 0, 255 }));
    EXPECT_EQ(bits->Pixel(1, 1), (Rgb { 255, 0, 0 }));
    EXPECT_EQ(bits->Pixel(0, 0), (Rgb { 255, 0, 0 }));
    EXPECT_EQ(bits->Pixel(1, 0), (Rgb { 0, 0, 255 }));

    // 2 x 1 top down at 32 bits with bit fields: red in the first byte, blue in the third.
    std::string fields = Bytes({ 'B', 'M', 74, 0, 0, 0, 0, 0, 0, 0, 66, 0, 0, 0, 40, 0, 0, 0, 2, 0, 0, 0, 0xFF, 0xFF, 0xFF,
        0xFF, 1, 0, 32, 0, 3, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0, 0, 0, 0, 0xFF,
        0, 0, 0, 0, 0xFF, 0, 10, 20, 30, 0, 0, 0, 0xFF, 0 });
    std::optional<Picture> masked = DecodeBmp(fields);
    ASSERT_TRUE(masked);
    EXPECT_EQ(masked->Width(), 2);
    EXPECT_EQ(masked->Height(), 1);
    EXPECT_EQ(masked->Pixel(0, 0), (Rgb { 10, 20, 30 }));
    EXPECT_EQ(masked->Pixel(1, 0), (Rgb { 0, 0, 255 }));
}

TEST(BmpFileTest, BytesThatAreNoBitmapGiveNothing)
{
    std::string good = EncodeBmp(Pattern(3, 2));
    EXPECT_FALSE(DecodeBmp(""));
    EXPECT_FALSE(DecodeBmp("GIF89a"));
    EXPECT_FALSE(DecodeBmp(good.substr(0, good.size() - 1)));
    std::string compressed = good;
    compressed[30] = 1; // run-length encoded
    EXPECT_FALSE(DecodeBmp(compressed));
    std::string huge = good;
    huge[18] = huge[19] = huge[20] = huge[21] = 0x7F; // a width no picture has
    EXPECT_FALSE(DecodeBmp(huge));
}

// --- JPEG ---

class JpegTest : public test::CoreFixture {
protected:
    test::TempFolder m_folder;
};

TEST_F(JpegTest, ASavedJpegDecodesToThePicturesSizeAndColours)
{
    cJPEG jpeg;
    ASSERT_TRUE(jpeg.CreateFromPicture(Solid(37, 21, { 200, 30, 40 })));
    EXPECT_TRUE(jpeg.PictureLoaded());
    EXPECT_EQ(jpeg.Width(), 37);
    EXPECT_EQ(jpeg.Height(), 21);
    EXPECT_EQ(jpeg.BytesPerScanLine(), 112);
    int number = 99;
    std::string text = "x";
    ASSERT_TRUE(JPEG_Save(jpeg, m_folder / "a.jpg", 90, false, number, text));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(text, "");
    std::optional<Picture> back = DecodeJpeg(m_folder.Read("a.jpg"));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->Width(), 37);
    EXPECT_EQ(back->Height(), 21);
    Rgb middle = back->Pixel(18, 10);
    EXPECT_NEAR(middle.r, 200, 8);
    EXPECT_NEAR(middle.g, 30, 8);
    EXPECT_NEAR(middle.b, 40, 8);
}

TEST_F(JpegTest, TheBitmapHoldsRowsBottomUpInBlueGreenRedOrder)
{
    cJPEG jpeg;
    ASSERT_TRUE(jpeg.CreateFromPicture(Pattern(3, 2)));
    const std::vector<std::uint8_t>& bits = jpeg.DIBSectionBits();
    ASSERT_EQ(bits.size(), 24u);
    // The first row of the bitmap is the picture's last: x 0, y 1.
    EXPECT_EQ(bits[0], 199);
    EXPECT_EQ(bits[1], 60);
    EXPECT_EQ(bits[2], 0);
    EXPECT_EQ(jpeg.ToPicture(), Pattern(3, 2));
    jpeg.ClearUp();
    EXPECT_FALSE(jpeg.PictureLoaded());
    EXPECT_FALSE(jpeg.Create(0, 5));
}

TEST_F(JpegTest, TheQualityIsHeldBetweenOneAndAHundred)
{
    EXPECT_EQ(ClampJpegQuality(0), 1);
    EXPECT_EQ(ClampJpegQuality(-5), 1);
    EXPECT_EQ(ClampJpegQuality(150), 100);
    EXPECT_EQ(ClampJpegQuality(85), 85);
    cJPEG jpeg;
    ASSERT_TRUE(jpeg.CreateFromPicture(Pattern(40, 30)));
    int number = 0;
    std::string text;
    for (auto [name, quality] : { std::pair { "q0.jpg", 0 }, { "q1.jpg", 1 }, { "q100.jpg", 100 }, { "q150.jpg", 150 } })
        ASSERT_TRUE(JPEG_Save(jpeg, m_folder / name, quality, false, number, text)) << name;
    EXPECT_EQ(m_folder.Read("q0.jpg"), m_folder.Read("q1.jpg"));
    EXPECT_EQ(m_folder.Read("q150.jpg"), m_folder.Read("q100.jpg"));
    EXPECT_LT(m_folder.Read("q1.jpg").size(), m_folder.Read("q100.jpg").size());
}

TEST_F(JpegTest, FailuresComeBackAsTheEncodersNumberAndText)
{
    cJPEG empty;
    int number = 0;
    std::string text;
    EXPECT_FALSE(JPEG_Save(empty, m_folder / "e.jpg", 85, false, number, text));
    EXPECT_EQ(number, -1);
    EXPECT_EQ(text, "No picture loaded to save.");

    cJPEG jpeg;
    ASSERT_TRUE(jpeg.CreateFromPicture(Pattern(4, 4)));
    EXPECT_FALSE(JPEG_Save(jpeg, m_folder / "no/such/folder/x.jpg", 85, false, number, text));
    EXPECT_EQ(number, -23);
    EXPECT_EQ(text, "ijlWrite Error - File Error");
    EXPECT_FALSE(FileExists(m_folder / "no/such/folder/x.jpg"));
    // A success clears what an earlier failure left.
    EXPECT_TRUE(JPEG_Save(jpeg, m_folder / "x.jpg", 85, false, number, text));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(text, "");
}

TEST_F(JpegTest, TheErrorTableGivesTheTextOfEachCode)
{
    EXPECT_EQ(JpegErrorText(-1), "Exception detected");
    EXPECT_EQ(JpegErrorText(-9), "An error occored while closing the file");
    EXPECT_EQ(JpegErrorText(-23), "File Error");
    EXPECT_EQ(JpegErrorText(-27), "Thumbnail - DIB Wrong Color");
    EXPECT_EQ(JpegErrorText(-99), "Reserved");
    EXPECT_EQ(JpegErrorText(0), "");
    EXPECT_EQ(JpegErrorText(2), "");
    EXPECT_EQ(JpegErrorText(-28), "Unknown Error");
    EXPECT_EQ(JpegErrorText(3), "Unknown Error");
}

TEST_F(JpegTest, AnExistingFileIsReplacedOnlyWhenThePersonSaysYes)
{
    std::string path = m_folder.Write("old.jpg", "old bytes");
    cJPEG jpeg;
    ASSERT_TRUE(jpeg.CreateFromPicture(Pattern(4, 4)));
    int number = 0;
    std::string text;
    m_ui->QueueAnswer(vbNo);
    EXPECT_FALSE(JPEG_Save(jpeg, path, 85, true, number, text));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(m_folder.Read("old.jpg"), "old bytes");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, path + "\rThis file already exists.\r\rReplace existing file?");
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "  Confirm File Overwrite");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, msgbox::kYesNo | msgbox::kExclamation);

    m_ui->QueueAnswer(vbYes);
    EXPECT_TRUE(JPEG_Save(jpeg, path, 85, true, number, text));
    EXPECT_TRUE(DecodeJpeg(m_folder.Read("old.jpg")));
    // Without the question an existing file is simply replaced.
    EXPECT_TRUE(JPEG_Save(jpeg, path, 50, false, number, text));
    EXPECT_EQ(m_ui->MessageBoxes().size(), 2u);
}

TEST_F(JpegTest, BytesThatAreNoJpegGiveNothing)
{
    EXPECT_FALSE(DecodeJpeg(""));
    EXPECT_FALSE(DecodeJpeg("\xFF\xD8\xFF\xE0 and then nothing"));
    EXPECT_FALSE(DecodeJpeg(EncodeBmp(Pattern(2, 2))));
}

// --- saving in the generation's format ---

TEST_F(JpegTest, SavePictureErrWritesAJpegBesideTheBitmapsPathWhenTheFormatSaysSo)
{
    Picture picture = Pattern(6, 5);
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.SavePictureErr(nullptr, m_folder / "a.bmp"), -1);

    Parameters().SetImagesFormat(1);
    EXPECT_EQ(capture.SavePictureErr(&picture, m_folder / "a.bmp"), 1);
    EXPECT_EQ(DecodeBmp(m_folder.Read("a.bmp")), picture);
    EXPECT_FALSE(FileExists(m_folder / "a.jpg"));

    Parameters().SetImagesFormat(2);
    m_folder.Write("b.jpg", "stale");
    EXPECT_EQ(capture.SavePictureErr(&picture, m_folder / "b.BMP"), 2);
    std::optional<Picture> jpeg = DecodeJpeg(m_folder.Read("b.jpg"));
    ASSERT_TRUE(jpeg);
    EXPECT_EQ(jpeg->Width(), 6);
    EXPECT_FALSE(FileExists(m_folder / "b.BMP"));
    // A path without ".bmp" is kept for the JPEG.
    EXPECT_EQ(capture.SavePictureErr(&picture, m_folder / "c.png"), 2);
    EXPECT_TRUE(DecodeJpeg(m_folder.Read("c.png")));
}

TEST_F(JpegTest, SavePictureErrFallsBackToABitmapWhenTheJpegCannotBeWritten)
{
    Parameters().SetImagesFormat(2);
    // A folder that is not empty stands where the JPEG would go.
    m_folder.Write("d.jpg/keep", "x");
    Picture picture = Pattern(3, 3);
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.SavePictureErr(&picture, m_folder / "d.bmp"), 1);
    EXPECT_EQ(DecodeBmp(m_folder.Read("d.bmp")), picture);
    // No message was shown.
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(JpegTest, SavePictureErr1SavesOnlyCompoundControlsWithTheFlagSet)
{
    Parameters().SetImagesFormat(1);
    Picture picture = Pattern(2, 2);
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.SavePictureErr1(&picture, m_folder / "f.bmp", "frame", true), 1);
    EXPECT_EQ(capture.SavePictureErr1(&picture, m_folder / "t.bmp", "SSTab", true), 1);
    EXPECT_EQ(capture.SavePictureErr1(&picture, m_folder / "s.bmp", "Shape", false), 0);
    EXPECT_EQ(capture.SavePictureErr1(&picture, m_folder / "c.bmp", "CommandButton", true), 0);
    EXPECT_TRUE(FileExists(m_folder / "f.bmp"));
    EXPECT_TRUE(FileExists(m_folder / "t.bmp"));
    EXPECT_FALSE(FileExists(m_folder / "s.bmp"));
    EXPECT_FALSE(FileExists(m_folder / "c.bmp"));
}

TEST_F(JpegTest, WritePictureToFileWritesBitmapsAndFullQualityJpegs)
{
    Picture picture = Pattern(5, 5);
    WritePictureToFile(&picture, "BMP", m_folder / "w.bmp");
    EXPECT_EQ(DecodeBmp(m_folder.Read("w.bmp")), picture);
    WritePictureToFile(&picture, "jpg", m_folder / "w.jpg");
    cJPEG jpeg;
    jpeg.CreateFromPicture(picture);
    int number = 0;
    std::string text;
    ASSERT_TRUE(JPEG_Save(jpeg, m_folder / "q100.jpg", 100, false, number, text));
    EXPECT_EQ(m_folder.Read("w.jpg"), m_folder.Read("q100.jpg"));
    WritePictureToFile(nullptr, "bmp", m_folder / "none.bmp");
    WritePictureToFile(&picture, "gif", m_folder / "w.gif");
    EXPECT_FALSE(FileExists(m_folder / "none.bmp"));
    EXPECT_FALSE(FileExists(m_folder / "w.gif"));
}

}  // namespace
}  // namespace scriv
