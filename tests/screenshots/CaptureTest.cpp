#include <gtest/gtest.h>

#include "desktop/BmpFile.h"
#include "desktop/RenderedWindows.h"
#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "screenshots/CFormBitmapCapture.h"
#include "screenshots/modScreenCapture.h"
#include "support/CoreFixture.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

// Every pixel tells where it is: red is x, green is y.
Picture Positions(int width, int height)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.SetPixel(x, y, { static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7 });
    return picture;
}

class CaptureTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        test::CoreFixture::SetUp();
        RenderedWindows().Clear();
        RenderedWindow window;
        window.handle = 100;
        window.parent = 1;
        window.className = "ThunderForm";
        window.text = "frmOrder (Form)";
        window.caption = "Order";
        window.name = "frmOrder";
        window.form.picture = Positions(60, 50);
        window.form.client = { 4, 22, 52, 24 };
        RenderedWindows().Register(std::move(window));
    }
    void TearDown() override
    {
        RenderedWindows().Clear();
        test::CoreFixture::TearDown();
    }

    void AddWindow(int handle, int parent, const std::string& className, const std::string& text)
    {
        RenderedWindow window;
        window.handle = handle;
        window.parent = parent;
        window.className = className;
        window.text = text;
        window.form.picture = Positions(10, 10);
        RenderedWindows().Register(std::move(window));
    }

    test::TempFolder m_folder;
};

TEST_F(CaptureTest, CaptureWindowCropsTheWindowsPixels)
{
    std::optional<Picture> picture = CaptureWindow(100, false, 10, 5, 8, 6);
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture->Width(), 8);
    ASSERT_EQ(picture->Height(), 6);
    EXPECT_EQ(picture->Pixel(0, 0), (Rgb { 10, 5, 7 }));
    EXPECT_EQ(picture->Pixel(7, 5), (Rgb { 17, 10, 7 }));
    EXPECT_EQ(*picture, Positions(60, 50).Crop(10, 5, 8, 6));
}

TEST_F(CaptureTest, TheClientAreaFlagCountsFromTheClientAreasCorner)
{
    std::optional<Picture> picture = CaptureWindow(100, true, 10, 5, 8, 6);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Pixel(0, 0), (Rgb { 14, 27, 7 }));
    EXPECT_EQ(picture->Pixel(7, 5), (Rgb { 21, 32, 7 }));
}

TEST_F(CaptureTest, WhatLiesOffTheWindowIsBlackAndSizesOfZeroGiveAnEmptyPicture)
{
    std::optional<Picture> picture = CaptureWindow(100, false, 55, 45, 10, 10);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Pixel(4, 4), (Rgb { 59, 49, 7 }));
    EXPECT_EQ(picture->Pixel(5, 5), (Rgb { 0, 0, 0 }));
    std::optional<Picture> empty = CaptureWindow(100, false, 0, 0, 0, 10);
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->Empty());
    EXPECT_FALSE(CaptureWindow(100, false, 0, 0, -1, 10));
    // A handle no window has leaves a black picture.
    std::optional<Picture> unknown = CaptureWindow(999, false, 0, 0, 3, 3);
    ASSERT_TRUE(unknown);
    EXPECT_EQ(*unknown, Picture(3, 3));
}

TEST_F(CaptureTest, CaptureWindowByHwndTakesTheWholeWindow)
{
    std::optional<Picture> picture = CaptureWindowByHWND(100);
    ASSERT_TRUE(picture);
    EXPECT_EQ(*picture, Positions(60, 50));
    EXPECT_FALSE(CaptureWindowByHWND(999));
}

TEST_F(CaptureTest, VerboseTracingWritesTheTwelveStepsOfACapture)
{
    TraceLog().SetVerbose(true);
    CaptureWindow(100, false, 0, 0, 2, 2);
    CaptureWindow(100, false, 0, 0, -2, 2);
    TraceLog().SetVerbose(false);
    std::string trace = TraceText();
    EXPECT_NE(trace.find("CaptureWindow(1), hDCSrc = 100"), std::string::npos) << trace;
    for (int step = 2; step <= 11; ++step)
        EXPECT_NE(trace.find("CaptureWindow(" + std::to_string(step) + "), "), std::string::npos) << step;
    EXPECT_NE(trace.find("CaptureWindow(12), objPic = 2 x 2"), std::string::npos) << trace;
    EXPECT_NE(trace.find("CaptureWindow(12), objPic is nothing "), std::string::npos) << trace;
}

TEST_F(CaptureTest, WithoutVerboseTracingACaptureWritesNoSteps)
{
    CaptureWindow(100, false, 0, 0, 2, 2);
    EXPECT_EQ(TraceText().find("CaptureWindow("), std::string::npos);
}

TEST_F(CaptureTest, HwndFormFindsAWindowByTextThenCaptionThenName)
{
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.hwndForm("FRMORDER (form)", ""), 100);
    EXPECT_EQ(capture.hwndForm("order", ""), 100);
    EXPECT_EQ(capture.hwndForm("Nothing like it", "frmOrder"), 100);
    EXPECT_EQ(capture.hwndForm("Nothing like it", "frmOther"), 0);
    // The designer's surface inside the window that bears the caption.
    AddWindow(101, 100, "DesignerSurface", "");
    EXPECT_EQ(capture.hwndForm("frmOrder (Form)", ""), 101);
    // An empty caption matches no window, not even one without text.
    EXPECT_EQ(capture.hwndForm("", ""), 0);
}

TEST_F(CaptureTest, ChildWindowsAreFoundByClassDepthFirst)
{
    AddWindow(200, 100, "Pane", "a");
    AddWindow(210, 200, "ThunderForm", "inner");
    AddWindow(300, 100, "ThunderForm", "later");
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.GetIDEChildWindowHwndByWinClassName(100, "thunderform"), 210);
    EXPECT_EQ(capture.GetIDEChildWindowHwndByWinClassName(100, "pane"), 200);
    EXPECT_EQ(capture.GetIDEChildWindowHwndByWinClassName(1, "ThunderForm"), 100);
    EXPECT_EQ(capture.GetIDEChildWindowHwndByWinClassName(100, "Nothing"), 0);
}

TEST_F(CaptureTest, AWindowScreenshotIsWrittenInTheFormatAsked)
{
    CFormBitmapCapture capture;
    EXPECT_TRUE(capture.CaptureWindowScreenshot(100, m_folder / "w.bmp", "bmp"));
    EXPECT_EQ(DecodeBmp(m_folder.Read("w.bmp")), Positions(60, 50));
    EXPECT_FALSE(capture.CaptureWindowScreenshot(0, m_folder / "zero.bmp", "bmp"));
    EXPECT_FALSE(capture.CaptureWindowScreenshot(999, m_folder / "none.bmp", "bmp"));
    EXPECT_FALSE(FileExists(m_folder / "zero.bmp"));
    EXPECT_FALSE(FileExists(m_folder / "none.bmp"));
    EXPECT_TRUE(capture.CaptureFormInDesignView(100, 20, 10));
    EXPECT_EQ(*capture.CaptureFormInDesignView(100, 20, 10), Positions(60, 50).Crop(0, 0, 20, 10));
}

TEST_F(CaptureTest, TheServersCapturesFindTheFormAndCutControlsFromItsClientArea)
{
    EXPECT_TRUE(CaptureForm(m_folder / "form.bmp", "bmp", "Order", 60, 50, 0));
    EXPECT_EQ(DecodeBmp(m_folder.Read("form.bmp")), Positions(60, 50));
    EXPECT_FALSE(CaptureForm(m_folder / "gone.bmp", "bmp", "No such form", 60, 50, 0));
    EXPECT_FALSE(FileExists(m_folder / "gone.bmp"));
    EXPECT_NE(TraceText().find("CaptureForm(1): WinCaption = [Order], Width = 60, Height = 50, Hwnd = 0"),
        std::string::npos);
    EXPECT_TRUE(CaptureControl(m_folder / "control.bmp", "bmp", 100, 2, 3, 5, 4));
    EXPECT_EQ(DecodeBmp(m_folder.Read("control.bmp")), Positions(60, 50).Crop(6, 25, 5, 4));
}

TEST_F(CaptureTest, RegisteringAWindowReplacesTheOneOfTheSameHandle)
{
    EXPECT_FALSE(RenderedWindows().Register(RenderedWindow {}));
    AddWindow(100, 0, "ThunderForm", "again");
    EXPECT_EQ(RenderedWindows().Count(), 1u);
    EXPECT_EQ(RenderedWindows().Find(100)->text, "again");
    EXPECT_TRUE(RenderedWindows().Remove(100));
    EXPECT_FALSE(RenderedWindows().Remove(100));
    EXPECT_EQ(RenderedWindows().Find(100), nullptr);
}

TEST_F(CaptureTest, ARenderedFormIsRegisteredUnderItsHandleWithItsDesignersCaption)
{
    test::FormUnderTest form("VERSION 5.00\nBegin VB.Form frmSmall \n   BorderStyle = 3\n   Caption = \"Small\"\n"
                             "   ClientHeight = 600\n   ClientWidth = 900\nEnd\n",
        m_folder / "frmSmall.frm");
    const RenderedWindow* window = RenderFormWindow(500, form.Processor(), form.Form(), form.File(), {}, {}, 1);
    ASSERT_TRUE(window);
    EXPECT_EQ(window->text, "frmSmall (Form)");
    EXPECT_EQ(window->className, "ThunderForm");
    EXPECT_EQ(window->caption, "Small");
    EXPECT_EQ(window->form.picture.Width(), 68);
    EXPECT_EQ(window->form.picture.Height(), 66);
    CFormBitmapCapture capture;
    EXPECT_EQ(capture.hwndForm("frmSmall (Form)", ""), 500);
    std::optional<Picture> client = CaptureWindow(500, true, 0, 0, 60, 40);
    ASSERT_TRUE(client);
    EXPECT_EQ(test::CountPixels(*client, { 0, 0, 60, 40 }, test::Is(test::kButtonFace)), 60 * 40);
    EXPECT_EQ(RenderFormWindow(0, form.Processor(), form.Form(), form.File()), nullptr);
}

}  // namespace
}  // namespace scriv
