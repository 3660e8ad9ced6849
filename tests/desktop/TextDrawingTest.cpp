// Text in the pictures as Windows draws it: cut off at the control's edge,
// broken between words only, in every script, and read from the right where
// the form says so.
#include <gtest/gtest.h>

#include <cairo.h>

#include "desktop/ClassicPainter.h"
#include "desktop/PngFile.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

using test::CountPixels;
using test::FormUnderTest;
using test::Is;
using test::IsDark;

// A 300 x 200 client area at 4, 22 in a fixed dialog frame.
std::string Dialog(const std::string& controls, const std::string& formProperties = "   ControlBox      =   0   'False\n")
{
    return "VERSION 5.00\nBegin VB.Form frmText \n   BorderStyle     =   3  'Fixed Dialog\n"
           "   Caption         =   \"Text\"\n   ClientHeight    =   3000\n   ClientWidth     =   4500\n"
        + formProperties + controls + "End\n";
}

std::string Label(const std::string& name, const std::string& caption, int left, int top, int width, int height,
    const std::string& more = {})
{
    return "   Begin VB.Label " + name + " \n      Caption         =   \"" + caption + "\"\n      Height          =   "
        + std::to_string(height) + "\n      Left            =   " + std::to_string(left) + "\n      Top             =   "
        + std::to_string(top) + "\n      Width           =   " + std::to_string(width) + "\n" + more + "   End\n";
}

PixelRect Below(const PixelRect& rect, int lines, int lineHeight)
{
    return { rect.left, rect.top + lines * lineHeight, rect.width, rect.height - lines * lineHeight };
}

class TextDrawingTest : public ::testing::Test {
protected:
    RenderedForm Draw(const std::string& text)
    {
        m_form = std::make_unique<FormUnderTest>(text, m_folder / "frmText.frm");
        return m_form->Renderer().Render();
    }

    test::TempFolder m_folder;
    std::unique_ptr<FormUnderTest> m_form;
};

TEST_F(TextDrawingTest, ALabelOfOneLineCutsOffWhatDoesNotFitAndWrapsNothing)
{
    // 60 pixels wide and one line high: the words beyond the edge are lost, the
    // line below the label stays empty and nothing is drawn past its edge.
    RenderedForm drawn = Draw(Dialog(Label("lblAddress", "Logradouro do Contribuinte Principal", 150, 150, 900, 255)));
    const RenderedControl* label = drawn.Find("lblAddress");
    ASSERT_TRUE(label);
    EXPECT_GT(CountPixels(drawn.picture, label->rect, IsDark), 20);
    PixelRect right { label->rect.Right(), label->rect.top - 2, 80, label->rect.height + 20 };
    EXPECT_EQ(CountPixels(drawn.picture, right, IsDark), 0);
    PixelRect below { label->rect.left, label->rect.Bottom(), label->rect.width, 20 };
    EXPECT_EQ(CountPixels(drawn.picture, below, IsDark), 0);
}

TEST_F(TextDrawingTest, AWrappingLabelBreaksBetweenWordsAndNeverInsideOne)
{
    // Three lines of room, but one word wider than the label: Windows keeps the
    // word whole on the first line and cuts it off; nothing goes to line two.
    RenderedForm drawn = Draw(Dialog(Label("lblWord", "Contribuintes", 150, 150, 600, 900)));
    const RenderedControl* label = drawn.Find("lblWord");
    ASSERT_TRUE(label);
    EXPECT_GT(CountPixels(drawn.picture, { label->rect.left, label->rect.top, label->rect.width, 13 }, IsDark), 10);
    EXPECT_EQ(CountPixels(drawn.picture, Below(label->rect, 1, 14), IsDark), 0);

    // Two words that do not fit side by side go on two lines.
    RenderedForm two = Draw(Dialog(Label("lblTwo", "Contribuintes Principais", 150, 150, 1000, 900)));
    const RenderedControl* twoLines = two.Find("lblTwo");
    ASSERT_TRUE(twoLines);
    EXPECT_GT(CountPixels(two.picture, { twoLines->rect.left, twoLines->rect.top + 13, twoLines->rect.width, 14 }, IsDark), 10);
}

TEST_F(TextDrawingTest, ButtonsAndCheckBoxesNeverWrap)
{
    std::string controls = "   Begin VB.CommandButton cmdLong \n      Caption         =   \"Save all the changes now\"\n"
                           "      Height          =   735\n      Left            =   150\n      Top             =   150\n"
                           "      Width           =   900\n   End\n";
    RenderedForm drawn = Draw(Dialog(controls));
    const RenderedControl* button = drawn.Find("cmdLong");
    ASSERT_TRUE(button);
    // One line of text in the middle of a 49-pixel-high button: the upper
    // third holds none.
    EXPECT_EQ(CountPixels(drawn.picture, { button->rect.left + 4, button->rect.top + 4, button->rect.width - 8, 12 }, IsDark), 0);
    EXPECT_GT(CountPixels(drawn.picture, { button->rect.left + 4, button->rect.top + 18, button->rect.width - 8, 14 }, IsDark), 10);
}

TEST_F(TextDrawingTest, ATransparentLabelShowsItsTextOverTheShapeBelowIt)
{
    // The form file lists the label first: it lies on top of the filled shape.
    std::string controls = Label("lblOver", "Over the shape", 300, 300, 2400, 255, "      BackStyle       =   0  'Transparent\n")
        + "   Begin VB.Shape shpBack \n      FillColor       =   &H000000FF&\n      FillStyle       =   0  'Solid\n"
          "      Height          =   900\n      Left            =   150\n      Top             =   150\n"
          "      Width           =   3000\n   End\n";
    RenderedForm drawn = Draw(Dialog(controls));
    const RenderedControl* label = drawn.Find("lblOver");
    ASSERT_TRUE(label);
    EXPECT_GT(CountPixels(drawn.picture, label->rect, IsDark), 20);
    // Around the text the shape's red shows through the label.
    EXPECT_GT(CountPixels(drawn.picture, label->rect, Is(test::kRed)), label->rect.width * label->rect.height / 2);
}

TEST_F(TextDrawingTest, ACaptionKeptInTheFrxFileIsDrawn)
{
    std::string caption = "Read from the frx file";
    std::uint32_t size = static_cast<std::uint32_t>(caption.size());
    m_folder.Write("frmText.frx", std::string(reinterpret_cast<const char*>(&size), 4) + caption);
    std::string text = Dialog("   Begin VB.Label lblFrx \n      Caption         =   $\"frmText.frx\":0000\n"
                              "      Height          =   255\n      Left            =   150\n      Top             =   150\n"
                              "      Width           =   3000\n   End\n");
    std::string path = m_folder.Write("frmText.frm", ReplaceAll(text, "\n", "\r\n"));
    Vb6FormFile file = Vb6FormFile::Load(path);
    CW_IDEVB6FormProcessor processor(file);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    RenderedForm drawn = CFormRenderer(processor, form, file).Render();
    const RenderedControl* label = drawn.Find("lblFrx");
    ASSERT_TRUE(label);
    EXPECT_GT(CountPixels(drawn.picture, label->rect, IsDark), 40);
}

TEST_F(TextDrawingTest, ARightToLeftFormReadsFromTheRightAndMirrorsItsTitleBar)
{
    std::string rtl = "   RightToLeft     =   -1  'True\n";
    std::string label = Label("lblName", "Name:", 150, 150, 2400, 255, "      RightToLeft     =   -1  'True\n");
    RenderedForm drawn = Draw(Dialog(label, rtl));
    const RenderedControl* name = drawn.Find("lblName");
    ASSERT_TRUE(name);
    PixelRect leftHalf { name->rect.left, name->rect.top, name->rect.width / 2, name->rect.height };
    PixelRect rightHalf { name->rect.left + name->rect.width / 2, name->rect.top, name->rect.width / 2, name->rect.height };
    EXPECT_EQ(CountPixels(drawn.picture, leftHalf, IsDark), 0);
    EXPECT_GT(CountPixels(drawn.picture, rightHalf, IsDark), 10);
    // The caption's title is white text at the right end of the bar, the
    // close button at the left end.
    EXPECT_GT(CountPixels(drawn.picture, { 200, 5, 100, 14 }, Is(test::kWhite)), 10);
    EXPECT_GT(CountPixels(drawn.picture, { 4, 5, 22, 14 }, Is(test::kButtonFace)), 100);
}

TEST(Scripts, TheInstalledFontsDrawEveryScriptOfTheApplications)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 10, 10);
    cairo_t* cr = cairo_create(surface);
    {
        ClassicPainter painter(cr);
        const std::pair<const char*, std::string> samples[] = {
            { "Arabic", "\xD8\xA8\xD9\x8A\xD8\xA7\xD9\x86\xD8\xA7\xD8\xAA" },
            { "Persian", "\xD9\xBE\xDA\xAF\xDA\x86\xDA\x98" },
            { "Hebrew", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D" },
            { "Cyrillic", "\xD0\xA1\xD0\xBA\xD0\xBB\xD0\xB0\xD0\xB4" },
            { "Greek", "\xCE\x91\xCF\x80\xCE\xBF\xCE\xB8\xCE\xAE\xCE\xBA\xCE\xB7" },
            { "Japanese", "\xE5\x9C\xA8\xE5\xBA\xAB\xE3\x81\xA8\xE3\x82\xAB\xE3\x83\x8A" },
            { "Chinese", "\xE5\xAE\xA2\xE6\x88\xB7" },
            { "Korean", "\xEA\xB3\xA0\xEA\xB0\x9D" },
            { "Thai", "\xE0\xB8\xA5\xE0\xB8\xB9\xE0\xB8\x81\xE0\xB8\x84\xE0\xB9\x89\xE0\xB8\xB2" },
        };
        for (const auto& [script, text] : samples)
            for (const char* face : { "MS Sans Serif", "Tahoma", "Arial" })
                EXPECT_EQ(painter.MissingGlyphs(text, FontSpec { face, 8.25 }), 0) << script << " in " << face;
    }
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
}

TEST(Scripts, WindowsFacesStandInByTheirMetricTwins)
{
    EXPECT_EQ(StandInFamily("MS Sans Serif"), "MS Sans Serif");
    EXPECT_EQ(StandInFamily("tahoma"), "Tahoma");
    EXPECT_EQ(StandInFamily("Arial"), "Liberation Sans");
    EXPECT_EQ(StandInFamily("Times New Roman"), "Liberation Serif");
    EXPECT_EQ(StandInFamily("Courier New"), "Liberation Mono");
    EXPECT_EQ(StandInFamily("Some Unknown Face"), "Liberation Sans");
}

// --- PNG files ---

Picture Stripes(int width, int height, int colours)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            int c = (x + y * width) % colours;
            picture.SetPixel(x, y, { static_cast<std::uint8_t>(c * 7), static_cast<std::uint8_t>(c / 5), 200 });
        }
    return picture;
}

TEST(PngFile, PicturesComeBackPixelForPixel)
{
    for (int colours : { 1, 2, 3, 16, 17, 256, 257, 4000 }) {
        Picture picture = Stripes(37, 11, colours);
        std::string bytes = EncodePng(picture);
        ASSERT_GE(bytes.size(), 8u);
        EXPECT_EQ(bytes.substr(1, 3), "PNG");
        std::optional<Picture> back = DecodePng(bytes);
        ASSERT_TRUE(back) << colours;
        EXPECT_TRUE(*back == picture) << colours << " colours";
        EXPECT_TRUE(DecodePicture(bytes)) << colours;
    }
}

TEST(PngFile, RunsOfOneColourComeBackAcrossRowEnds)
{
    // Screenshots are long runs, often continuing from one row into the next.
    Picture picture(23, 9);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 23; ++x) {
            int run = (x + y * 23) / 17 % 5;
            picture.SetPixel(x, y, { static_cast<std::uint8_t>(run * 40), 10, static_cast<std::uint8_t>(255 - run) });
        }
    std::optional<Picture> back = DecodePng(EncodePng(picture));
    ASSERT_TRUE(back);
    EXPECT_TRUE(*back == picture);
}

TEST(PngFile, FewColoursMakeAnIndexedImageOfFewBits)
{
    // The colour type byte of the header: 3 indexed, 2 true colour; the bit depth before it.
    auto header = [](const std::string& bytes) { return std::make_pair(int(bytes[24]), int(bytes[25])); };
    EXPECT_EQ(header(EncodePng(Stripes(40, 40, 2))), std::make_pair(1, 3));
    EXPECT_EQ(header(EncodePng(Stripes(40, 40, 16))), std::make_pair(4, 3));
    EXPECT_EQ(header(EncodePng(Stripes(40, 40, 200))), std::make_pair(8, 3));
    EXPECT_EQ(header(EncodePng(Stripes(40, 40, 300))), std::make_pair(8, 2));
    EXPECT_EQ(EncodePng(Picture()), "");
}

TEST(PngFile, BytesThatAreNoPngGiveNothing)
{
    std::string good = EncodePng(Stripes(20, 20, 5));
    EXPECT_FALSE(DecodePng(""));
    EXPECT_FALSE(DecodePng("GIF89a....."));
    EXPECT_FALSE(DecodePng(good.substr(0, good.size() / 2)));
    std::string damaged = good;
    damaged[40] = static_cast<char>(damaged[40] ^ 0x5A);
    EXPECT_FALSE(DecodePng(damaged));
}

TEST(PngFile, AFileIsWrittenWhole)
{
    test::TempFolder folder;
    Picture picture = Stripes(30, 30, 9);
    ASSERT_TRUE(WritePngFile(picture, folder / "a.png"));
    std::optional<Picture> back = DecodePng(folder.Read("a.png"));
    ASSERT_TRUE(back);
    EXPECT_TRUE(*back == picture);
    EXPECT_FALSE(WritePngFile(Picture(), folder / "b.png"));
    EXPECT_FALSE(WritePngFile(picture, "/proc/no-such-folder/c.png"));
}

}  // namespace
}  // namespace scriv
