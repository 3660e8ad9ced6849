#include <gtest/gtest.h>

#include <cstdlib>

#include "desktop/CFormRenderer.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

using test::CountPixels;
using test::FormUnderTest;
using test::Is;
using test::IsDark;

// 300 x 200 client pixels in a fixed dialog frame: the window is 308 x 226
// and the client area starts at 4, 22.
const char* const kDialog = R"(VERSION 5.00
Begin VB.Form frmDialog 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Geometry"
   ClientHeight    =   3000
   ClientWidth     =   4500
   ControlBox      =   0   'False
   Begin VB.Label lblText 
      Caption         =   "Hello World"
      Height          =   300
      Left            =   150
      TabIndex        =   0
      Top             =   150
      Width           =   1500
   End
   Begin VB.Label lblWide 
      Caption         =   "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"
      Height          =   255
      Left            =   3900
      TabIndex        =   1
      Top             =   1650
      Width           =   3000
   End
   Begin VB.CheckBox chkOn 
      Caption         =   "On"
      Height          =   255
      Left            =   150
      TabIndex        =   2
      Top             =   600
      Value           =   1  'Checked
      Width           =   1500
   End
   Begin VB.CheckBox chkOff 
      Caption         =   "Off"
      Height          =   255
      Left            =   150
      TabIndex        =   3
      Top             =   900
      Width           =   1500
   End
   Begin VB.Label lblHidden 
      BackColor       =   &H000000FF&
      Height          =   300
      Left            =   2400
      TabIndex        =   4
      Top             =   150
      Visible         =   0   'False
      Width           =   600
   End
   Begin VB.Frame fraBox 
      Caption         =   "Box"
      Height          =   1200
      Left            =   150
      TabIndex        =   5
      Top             =   1500
      Width           =   2400
      Begin VB.CommandButton cmdIn 
         Caption         =   "In"
         Height          =   375
         Left            =   300
         TabIndex        =   6
         Top             =   450
         Width           =   1200
      End
   End
   Begin VB.Label lblBlue 
      BackColor       =   &H00FF0000&
      Height          =   150
      Left            =   3300
      TabIndex        =   7
      Top             =   150
      Width           =   150
   End
   Begin VB.Label lblSystem 
      BackColor       =   &H80000005&
      Height          =   150
      Left            =   3600
      TabIndex        =   8
      Top             =   150
      Width           =   150
   End
End
)";

class RenderPixelsTest : public ::testing::Test {
protected:
    test::TempFolder m_folder;
};

TEST_F(RenderPixelsTest, TheWindowHasTheProcessorsSizeAndABlueCaptionWithAWhiteTitle)
{
    FormUnderTest form(kDialog, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    ASSERT_EQ(drawn.picture.Width(), 308);
    ASSERT_EQ(drawn.picture.Height(), 226);
    EXPECT_EQ(drawn.client, (PixelRect { 4, 22, 300, 200 }));
    // The caption runs from the active caption's dark blue on the left to its
    // light blue on the right; without a control box there is no button.
    Rgb left = drawn.picture.Pixel(4, 8);
    EXPECT_NEAR(left.r, 10, 2);
    EXPECT_NEAR(left.g, 36, 2);
    EXPECT_NEAR(left.b, 106, 2);
    Rgb right = drawn.picture.Pixel(302, 8);
    EXPECT_NEAR(right.r, 166, 4);
    EXPECT_NEAR(right.g, 202, 4);
    EXPECT_NEAR(right.b, 240, 4);
    EXPECT_GT(CountPixels(drawn.picture, { 4, 4, 80, 17 }, Is(test::kWhite)), 10);
    // The frame's outer edge: light at the top left, dark at the bottom right.
    EXPECT_EQ(drawn.picture.Pixel(0, 100), (Rgb { 212, 208, 200 }));
    EXPECT_EQ(drawn.picture.Pixel(307, 100), (Rgb { 64, 64, 64 }));
}

TEST_F(RenderPixelsTest, ASizableFormWithAControlBoxHasItsIconAndCaptionButtons)
{
    std::string text = ReplaceAll(kDialog, "   BorderStyle     =   3  'Fixed Dialog\n", "");
    text = ReplaceAll(text, "   ControlBox      =   0   'False\n", "");
    FormUnderTest form(text, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    // The close button at the right end of the caption is a grey button face.
    EXPECT_GT(CountPixels(drawn.picture, { 280, 5, 22, 15 }, Is(test::kButtonFace)), 100);
    // Minimize, maximize and close: three buttons' worth of face.
    EXPECT_GT(CountPixels(drawn.picture, { 240, 5, 64, 15 }, Is(test::kButtonFace)), 300);
}

TEST_F(RenderPixelsTest, ALabelsTextIsDarkInsideItAndNeverOnTheFrame)
{
    FormUnderTest form(kDialog, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    const RenderedControl* label = drawn.Find("lblText");
    ASSERT_TRUE(label);
    EXPECT_EQ(label->rect, (PixelRect { 14, 32, 100, 20 }));
    EXPECT_GT(CountPixels(drawn.picture, label->rect, IsDark), 15);
    // Beside the label the form is plain.
    EXPECT_EQ(CountPixels(drawn.picture, { 114, 32, 40, 20 }, IsDark), 0);
    // lblWide runs past the client area's right edge: the frame beside it is
    // drawn as it is everywhere else.
    const RenderedControl* wide = drawn.Find("lblWide");
    ASSERT_TRUE(wide);
    EXPECT_GT(wide->rect.Right(), drawn.client.Right());
    for (int y = wide->rect.top; y < wide->rect.Bottom(); ++y)
        for (int x = drawn.client.Right(); x < drawn.picture.Width(); ++x)
            EXPECT_EQ(drawn.picture.Pixel(x, y), drawn.picture.Pixel(x, 60)) << x << "," << y;
    EXPECT_GT(CountPixels(drawn.picture, { wide->rect.left, wide->rect.top, drawn.client.Right() - wide->rect.left, wide->rect.height }, IsDark), 20);
}

TEST_F(RenderPixelsTest, ACheckedCheckBoxHasItsCheckMarkAndAnUncheckedOneHasNone)
{
    FormUnderTest form(kDialog, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    const RenderedControl* on = drawn.Find("chkOn");
    const RenderedControl* off = drawn.Find("chkOff");
    ASSERT_TRUE(on && off);
    auto box = [](const PixelRect& rect) {
        // The 13-pixel box at the left, centred on the control's height; the
        // mark lies inside its 2-pixel edge.
        return PixelRect { rect.left + 3, rect.top + (rect.height - 13) / 2 + 3, 7, 7 };
    };
    EXPECT_EQ(CountPixels(drawn.picture, box(on->rect), Is({ 0, 0, 0 })), 21);
    EXPECT_EQ(CountPixels(drawn.picture, box(off->rect), Is(test::kWhite)), 49);
}

TEST_F(RenderPixelsTest, AnInvisibleControlIsDrawnInDesignViewOnly)
{
    FormUnderTest design(kDialog, m_folder / "frmDialog.frm");
    RenderedForm designed = design.Renderer().Render();
    ASSERT_TRUE(designed.Find("lblHidden"));
    EXPECT_EQ(CountPixels(designed.picture, designed.Find("lblHidden")->rect, Is(test::kRed)), 40 * 20);

    FormUnderTest running(kDialog, m_folder / "frmDialog.frm", { false });
    RenderedForm run = running.Renderer().Render();
    EXPECT_FALSE(run.Find("lblHidden"));
    EXPECT_EQ(CountPixels(run.picture, { 0, 0, run.picture.Width(), run.picture.Height() }, Is(test::kRed)), 0);
    EXPECT_TRUE(run.Find("lblText"));
}

TEST_F(RenderPixelsTest, AControlInAFrameStandsAtTheSumOfBothPositions)
{
    FormUnderTest form(kDialog, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    const RenderedControl* button = drawn.Find("cmdIn");
    ASSERT_TRUE(button);
    EXPECT_EQ(button->rect, (PixelRect { 4 + 10 + 20, 22 + 100 + 30, 80, 25 }));
    // A push button: light top-left corner, dark bottom-right one.
    EXPECT_EQ(drawn.picture.Pixel(button->rect.left, button->rect.top), test::kWhite);
    EXPECT_EQ(drawn.picture.Pixel(button->rect.Right() - 1, button->rect.Bottom() - 1), (Rgb { 64, 64, 64 }));
    EXPECT_GT(CountPixels(drawn.picture, button->rect, IsDark), 10);
}

TEST_F(RenderPixelsTest, ColoursAreBgrValuesOrSystemColours)
{
    FormUnderTest form(kDialog, m_folder / "frmDialog.frm");
    RenderedForm drawn = form.Renderer().Render();
    ASSERT_TRUE(drawn.Find("lblBlue") && drawn.Find("lblSystem"));
    EXPECT_EQ(CountPixels(drawn.picture, drawn.Find("lblBlue")->rect, Is({ 0, 0, 255 })), 100);
    EXPECT_EQ(CountPixels(drawn.picture, drawn.Find("lblSystem")->rect, Is(test::kWhite)), 100);
    // The form's own background is the button face of the classic scheme.
    EXPECT_EQ(drawn.picture.Pixel(290, 200), test::kButtonFace);
}

const char* const kTabbed = R"(VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmTabs 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Tabs"
   ClientHeight    =   3000
   ClientWidth     =   4500
   Begin TabDlg.SSTab tabMain 
      Height          =   2700
      Left            =   150
      TabIndex        =   0
      Top             =   150
      Width           =   4200
      Tabs            =   2
      TabsPerRow      =   2
      TabHeight       =   450
      TabCaption(0)   =   "&First"
      Tab(0).ControlCount=   1
      Tab(0).Control(0)=   "txtA"
      TabCaption(1)   =   "&Second"
      Tab(1).ControlCount=   2
      Tab(1).Control(0)=   "lblB"
      Tab(1).Control(1)=   "hsbB"
      Begin VB.TextBox txtA 
         Height          =   450
         Left            =   300
         TabIndex        =   1
         Top             =   900
         Width           =   1500
      End
      Begin VB.Label lblB 
         BackColor       =   &H000000FF&
         Height          =   450
         Left            =   -72600
         TabIndex        =   2
         Top             =   900
         Width           =   1500
      End
      Begin VB.HScrollBar hsbB 
         Height          =   255
         Left            =   -74700
         TabIndex        =   3
         Top             =   1800
         Width           =   3000
      End
   End
End
)";

TEST_F(RenderPixelsTest, TheShownPageOfATabControlShowsItsControlsAndNoOthers)
{
    FormUnderTest form(kTabbed, m_folder / "frmTabs.frm");
    RenderedForm first = form.Renderer().Render();
    ASSERT_TRUE(first.Find("txtA"));
    EXPECT_FALSE(first.Find("lblB"));
    PixelRect text = first.Find("txtA")->rect;
    EXPECT_EQ(text, (PixelRect { 4 + 10 + 20, 22 + 10 + 60, 100, 30 }));
    EXPECT_GT(CountPixels(first.picture, text.Inset(3), Is(test::kWhite)), 90 * 20);
    EXPECT_EQ(CountPixels(first.picture, { 0, 0, first.picture.Width(), first.picture.Height() }, Is(test::kRed)), 0);
    // The tabs of both pages are drawn and recorded where the processor has them.
    ASSERT_TRUE(first.Find("0_tabMain") && first.Find("1_tabMain"));
    EXPECT_EQ(first.Find("0_tabMain")->rect, (PixelRect { 14, 32, 140, 30 }));
    EXPECT_EQ(first.Find("1_tabMain")->rect, (PixelRect { 154, 32, 140, 30 }));

    ASSERT_TRUE(form.Renderer().ShowTabPage("tabMain", 1));
    RenderedForm second = form.Renderer().Render();
    EXPECT_FALSE(second.Find("txtA"));
    ASSERT_TRUE(second.Find("lblB"));
    EXPECT_EQ(second.Find("lblB")->rect, (PixelRect { 4 + 10 + 160, 22 + 10 + 60, 100, 30 }));
    EXPECT_EQ(CountPixels(second.picture, second.Find("lblB")->rect, Is(test::kRed)), 100 * 30);
    EXPECT_LT(CountPixels(second.picture, text.Inset(3), Is(test::kWhite)), 10);
    // The scroll bar the processor leaves out is drawn on its page from the
    // file's numbers, at 34, 152: its track is checkered with white.
    PixelRect track { 60, 152, 100, 17 };
    EXPECT_GT(CountPixels(second.picture, track, Is(test::kWhite)), 500);
    EXPECT_EQ(CountPixels(first.picture, track, Is(test::kWhite)), 0);
}

TEST_F(RenderPixelsTest, ThePropertyPageStyleSetsTheHiddenPagesTabsBack)
{
    FormUnderTest dialog(kTabbed, m_folder / "frmTabs.frm");
    RenderedForm level = dialog.Renderer().Render();
    // The tab of the hidden second page starts at 154, 32: in the tabbed
    // dialog style its light top edge is on that row.
    EXPECT_EQ(level.picture.Pixel(170, 32), test::kWhite);
    FormUnderTest pages(ReplaceAll(kTabbed, "      Tabs            =   2\n", "      Tabs            =   2\n      Style           =   1\n"),
        m_folder / "frmTabs.frm");
    RenderedForm lowered = pages.Renderer().Render();
    EXPECT_EQ(lowered.picture.Pixel(170, 32), test::kButtonFace);
    EXPECT_EQ(lowered.picture.Pixel(170, 34), test::kWhite);
    // The tab of the shown page is as high in both.
    EXPECT_EQ(level.picture.Pixel(30, 32), test::kWhite);
    EXPECT_EQ(lowered.picture.Pixel(30, 32), test::kWhite);
}

const char* const kMenuForm = R"(VERSION 5.00
Begin VB.Form frmMenus 
   Caption         =   "Menus"
   ClientHeight    =   1500
   ClientWidth     =   3000
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuSecret 
      Caption         =   "&Secret"
      Visible         =   0   'False
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
   End
End
)";

TEST_F(RenderPixelsTest, TheMenuBarShowsTheVisibleTopMenusAboveTheClientArea)
{
    FormUnderTest form(kMenuForm, m_folder / "frmMenus.frm");
    RenderedForm drawn = form.Renderer().Render();
    EXPECT_EQ(drawn.client, (PixelRect { 4, 40, 200, 100 }));
    PixelRect bar { 4, 22, 200, 18 };
    EXPECT_GT(CountPixels(drawn.picture, bar, IsDark), 20);
    // Without the invisible menu the bar is drawn the same.
    std::string without = ReplaceAll(kMenuForm,
        "   Begin VB.Menu mnuSecret \n      Caption         =   \"&Secret\"\n      Visible         =   0   'False\n   End\n", "");
    ASSERT_NE(without, kMenuForm);
    FormUnderTest other(without, m_folder / "frmMenus.frm");
    RenderedForm plain = other.Renderer().Render();
    EXPECT_EQ(drawn.picture.Crop(bar.left, bar.top, bar.width, bar.height), plain.picture.Crop(bar.left, bar.top, bar.width, bar.height));
    // With the menu shown the bar differs.
    FormUnderTest shown(ReplaceAll(kMenuForm, "      Visible         =   0   'False\n", ""), m_folder / "frmMenus.frm");
    RenderedForm more = shown.Renderer().Render();
    EXPECT_NE(more.picture.Crop(bar.left, bar.top, bar.width, bar.height), plain.picture.Crop(bar.left, bar.top, bar.width, bar.height));
}

TEST_F(RenderPixelsTest, AnMdiFormHasADarkClientAreaAndAUserControlNoCaption)
{
    FormUnderTest mdi("VERSION 5.00\nBegin VB.MDIForm frmFrame \n   Caption = \"Frame\"\n   ClientHeight = 1500\n"
                      "   ClientWidth = 3000\nEnd\n",
        m_folder / "frmFrame.frm");
    RenderedForm frame = mdi.Renderer().Render();
    EXPECT_EQ(frame.picture.Pixel(100, 80), (Rgb { 128, 128, 128 }));

    FormUnderTest control("VERSION 5.00\nBegin VB.UserControl ctlBox \n   ClientHeight = 300\n   ClientWidth = 1500\n"
                          "   Begin VB.Label lblIn \n      Caption = \"In\"\n      Height = 300\n      Left = 0\n"
                          "      TabIndex = 0\n      Top = 0\n      Width = 1500\n   End\nEnd\n",
        m_folder / "ctlBox.ctl");
    RenderedForm drawn = control.Renderer().Render();
    EXPECT_EQ(drawn.picture.Width(), 100);
    EXPECT_EQ(drawn.picture.Height(), 20);
    EXPECT_EQ(drawn.client, (PixelRect { 0, 0, 100, 20 }));
    EXPECT_EQ(CountPixels(drawn.picture, { 0, 0, 100, 20 }, [](Rgb c) { return c.b > c.r + 40; }), 0);
    EXPECT_GT(CountPixels(drawn.picture, drawn.Find("lblIn")->rect, IsDark), 5);
}

const char* const kShapes = R"(VERSION 5.00
Begin VB.Form frmShapes 
   BorderStyle     =   0  'None
   ClientHeight    =   1500
   ClientWidth     =   3000
   Begin VB.Line linRed 
      BorderColor     =   &H000000FF&
      X1              =   150
      X2              =   1650
      Y1              =   300
      Y2              =   300
   End
   Begin VB.Shape shpCircle 
      FillColor       =   &H0000FF00&
      FillStyle       =   0  'Solid
      Height          =   900
      Left            =   1800
      Shape           =   3  'Circle
      Top             =   300
      Width           =   900
   End
   Begin VB.TextBox txtSecret 
      Height          =   285
      Left            =   150
      PasswordChar    =   "*"
      TabIndex        =   0
      Text            =   "secret"
      Top             =   600
      Width           =   1500
   End
   Begin VB.Label lblOff 
      Caption         =   "Disabled"
      Enabled         =   0   'False
      Height          =   255
      Left            =   150
      TabIndex        =   1
      Top             =   1050
      Width           =   1500
   End
End
)";

TEST_F(RenderPixelsTest, LinesShapesPasswordsAndDisabledTextLookAsTheirPropertiesSay)
{
    FormUnderTest form(kShapes, m_folder / "frmShapes.frm");
    RenderedForm drawn = form.Renderer().Render();
    // The line from 10, 20 to 110, 20 (a borderless form has no frame).
    EXPECT_GE(CountPixels(drawn.picture, { 10, 20, 101, 1 }, Is(test::kRed)), 100);
    EXPECT_EQ(CountPixels(drawn.picture, { 10, 22, 101, 5 }, Is(test::kRed)), 0);
    // The circle fills its middle, not the corners of its square.
    EXPECT_EQ(drawn.picture.Pixel(150, 50), (Rgb { 0, 255, 0 }));
    EXPECT_NE(drawn.picture.Pixel(122, 22), (Rgb { 0, 255, 0 }));
    // A password shows stars, not the text.
    FormUnderTest plain(ReplaceAll(kShapes, "      PasswordChar    =   \"*\"\n", ""), m_folder / "frmShapes.frm");
    RenderedForm clear = plain.Renderer().Render();
    PixelRect box = drawn.Find("txtSecret")->rect;
    EXPECT_NE(drawn.picture.Crop(box.left, box.top, box.width, box.height), clear.picture.Crop(box.left, box.top, box.width, box.height));
    EXPECT_GT(CountPixels(drawn.picture, box.Inset(2), IsDark), 10);
    // Disabled text is engraved: grey over white, no black.
    PixelRect off = drawn.Find("lblOff")->rect;
    EXPECT_GT(CountPixels(drawn.picture, off, Is({ 128, 128, 128 })), 5);
    EXPECT_EQ(CountPixels(drawn.picture, off, Is({ 0, 0, 0 })), 0);
}

}  // namespace
}  // namespace scriv
