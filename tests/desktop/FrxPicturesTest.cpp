#include <gtest/gtest.h>

#include "desktop/BmpFile.h"
#include "host/vb6/FrxFile.h"
#include "desktop/cJPEG.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

using test::CountPixels;
using test::Is;

std::string U16(std::size_t value)
{
    return { static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF) };
}

std::string U32(std::size_t value)
{
    return U16(value & 0xFFFF) + U16(value >> 16);
}

// A picture record as the IDE writes it: sizes around "lt\0\0".
std::string PictureRecord(const std::string& data)
{
    return U32(data.size() + 8) + std::string("lt\0\0", 4) + U32(data.size()) + data;
}

std::string ListRecord(const std::vector<std::string>& items)
{
    std::string record = U16(items.size()) + (items.empty() ? "" : U16(3));
    for (const std::string& item : items)
        record += U16(item.size()) + item;
    return record;
}

Picture Solid(int width, int height, Rgb colour)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.SetPixel(x, y, colour);
    return picture;
}

std::string JpegBytes(const Picture& picture, const test::TempFolder& folder)
{
    cJPEG jpeg;
    jpeg.CreateFromPicture(picture);
    int number = 0;
    std::string text;
    EXPECT_TRUE(JPEG_Save(jpeg, folder / "blue.jpg", 95, false, number, text));
    return folder.Read("blue.jpg");
}

TEST(FrxFileTest, PictureRecordsGiveTheirFileBytesWithOrWithoutTheClassId)
{
    std::string bitmap = EncodeBmp(Solid(2, 2, { 1, 2, 3 }));
    std::string classId(16, '\x11');
    std::string bytes = "xx" + PictureRecord(bitmap) + U32(bitmap.size() + 24) + classId + std::string("lt\0\0", 4)
        + U32(bitmap.size()) + bitmap;
    FrxFile frx(bytes);
    ASSERT_TRUE(frx.PictureBytes(2));
    EXPECT_EQ(*frx.PictureBytes(2), bitmap);
    std::size_t second = 2 + 12 + bitmap.size();
    ASSERT_TRUE(frx.PictureBytes(static_cast<std::uint32_t>(second)));
    EXPECT_EQ(*frx.PictureBytes(static_cast<std::uint32_t>(second)), bitmap);
    EXPECT_FALSE(frx.PictureBytes(0));
    EXPECT_FALSE(frx.PictureBytes(100000));
    // A record that claims more bytes than the file holds.
    FrxFile cut(PictureRecord(bitmap).substr(0, 40));
    EXPECT_FALSE(cut.PictureBytes(0));
}

TEST(FrxFileTest, ListRecordsGiveTheirItemsInUtf8)
{
    FrxFile frx("ab" + ListRecord({ "Alpha", "Caf\xE9" }) + ListRecord({}));
    std::optional<std::vector<std::string>> items = frx.ListItems(2);
    ASSERT_TRUE(items);
    EXPECT_EQ(*items, (std::vector<std::string> { "Alpha", "Café" }));
    std::optional<std::vector<std::string>> empty = frx.ListItems(static_cast<std::uint32_t>(2 + ListRecord({ "Alpha", "Caf\xE9" }).size()));
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->empty());
    EXPECT_FALSE(FrxFile(ListRecord({ "Alpha" }).substr(0, 7)).ListItems(0));
}

TEST(FrxFileTest, OnlyBitmapsAndJpegsAreDecoded)
{
    test::TempFolder folder;
    EXPECT_TRUE(DecodePicture(EncodeBmp(Solid(2, 2, { 1, 2, 3 }))));
    EXPECT_TRUE(DecodePicture(JpegBytes(Solid(8, 8, { 0, 0, 255 }), folder)));
    EXPECT_FALSE(DecodePicture("GIF89a\x01\x00\x01\x00"));
    EXPECT_FALSE(DecodePicture(std::string("\0\0\1\0\1\0", 6)));
    EXPECT_FALSE(DecodePicture(""));
}

const char* const kPictures = R"(VERSION 5.00
Begin VB.Form frmPictures 
   BorderStyle     =   0  'None
   ClientHeight    =   1500
   ClientWidth     =   3000
   Begin VB.PictureBox picLogo 
      BorderStyle     =   0  'None
      Height          =   300
      Left            =   150
      Picture         =   "frmPictures.frx":0000
      ScaleHeight     =   300
      ScaleWidth      =   600
      TabIndex        =   0
      Top             =   150
      Width           =   600
   End
   Begin VB.Image imgPhoto 
      Height          =   480
      Left            =   1500
      Picture         =   "FRMPICTURES.FRX":@PHOTO@
      Stretch         =   -1  'True
      Top             =   150
      Width           =   480
   End
   Begin VB.ListBox lstNames 
      Height          =   645
      Left            =   150
      List            =   "frmPictures.frx":@LIST@
      TabIndex        =   1
      Top             =   750
      Width           =   1500
   End
   Begin VB.PictureBox picMissing 
      Height          =   300
      Left            =   2250
      Picture         =   "frmPictures.frx":FFFF
      TabIndex        =   2
      Top             =   150
      Width           =   450
   End
End
)";

// The number of runs of rows with dark pixels in the rectangle: lines of text.
int DarkBands(const Picture& picture, const PixelRect& rect)
{
    int bands = 0;
    bool inBand = false;
    for (int y = rect.top; y < rect.Bottom(); ++y) {
        bool dark = CountPixels(picture, { rect.left, y, rect.width, 1 }, test::IsDark) > 0;
        if (dark && !inBand)
            ++bands;
        inBand = dark;
    }
    return bands;
}

std::string Hex(std::size_t value)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%04zX", value);
    return buffer;
}

TEST(FrxPicturesTest, PicturesAndListsOfTheFrxAreDrawnInTheirControls)
{
    test::TempFolder folder;
    std::string bitmap = PictureRecord(EncodeBmp(Solid(4, 3, { 255, 0, 0 })));
    std::string photo = PictureRecord(JpegBytes(Solid(8, 8, { 0, 0, 255 }), folder));
    std::string list = ListRecord({ "Alpha", "Beta" });
    folder.Write("frmPictures.frx", bitmap + photo + list);
    std::string text = ReplaceAll(kPictures, "@PHOTO@", Hex(bitmap.size()));
    text = ReplaceAll(text, "@LIST@", Hex(bitmap.size() + photo.size()));
    test::FormUnderTest form(text, folder / "frmPictures.frm");
    RenderedForm drawn = form.Renderer().Render();

    // The bitmap at the picture box's corner, and no more of it.
    EXPECT_EQ(CountPixels(drawn.picture, { 10, 10, 4, 3 }, Is(test::kRed)), 12);
    EXPECT_EQ(CountPixels(drawn.picture, { 14, 10, 20, 10 }, Is(test::kRed)), 0);
    // The JPEG stretched over the whole image.
    EXPECT_GT(CountPixels(drawn.picture, { 100, 10, 32, 32 }, [](Rgb c) { return c.b > 200 && c.r < 40 && c.g < 40; }), 32 * 32 - 1);
    // Two lines of text in the list, one under the other, and nothing below.
    const RenderedControl* names = drawn.Find("lstNames");
    ASSERT_TRUE(names);
    PixelRect inner = names->rect.Inset(2);
    EXPECT_EQ(DarkBands(drawn.picture, inner), 2);
    EXPECT_EQ(CountPixels(drawn.picture, { inner.left, inner.top + 30, inner.width, inner.height - 30 }, test::IsDark), 0);
    // A reference past the end of the file leaves the picture box plain.
    const RenderedControl* missing = drawn.Find("picMissing");
    ASSERT_TRUE(missing);
    EXPECT_EQ(CountPixels(drawn.picture, missing->rect.Inset(2), Is(test::kButtonFace)), 26 * 16);
}

TEST(FrxPicturesTest, WithoutItsFrxAFormIsStillDrawn)
{
    test::TempFolder folder;
    std::string text = ReplaceAll(ReplaceAll(kPictures, "@PHOTO@", "0010"), "@LIST@", "0020");
    test::FormUnderTest form(text, folder / "frmPictures.frm");
    RenderedForm drawn = form.Renderer().Render();
    EXPECT_EQ(drawn.picture.Width(), 200);
    EXPECT_TRUE(drawn.Find("lstNames"));
    EXPECT_EQ(CountPixels(drawn.picture, { 0, 0, 200, 100 }, Is(test::kRed)), 0);
    const RenderedControl* names = drawn.Find("lstNames");
    EXPECT_EQ(CountPixels(drawn.picture, names->rect.Inset(2), test::IsDark), 0);
}

}  // namespace
}  // namespace scriv
