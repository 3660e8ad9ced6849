#include <gtest/gtest.h>

#include "desktop/CScaler.h"
#include "foundation/ScrivError.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

TEST(CScalerTest, TheMultipliersFollowTheScaleModeTable)
{
    struct Row {
        int mode;
        double x;
        double y;
    };
    for (Row row : { Row { 0, 1, 1 }, Row { 1, 1, 1 }, Row { 2, 20, 20 }, Row { 3, 15, 15 }, Row { 4, 120, 240 },
             Row { 5, 1440, 1440 }, Row { 6, 56.69, 56.69 }, Row { 7, 566.9, 566.9 }, Row { 8, 0, 0 }, Row { -1, 0, 0 } }) {
        CScaler scaler;
        scaler.ScaleY(row.mode);
        EXPECT_DOUBLE_EQ(scaler.ConstToMultiplyX, row.x) << row.mode;
        EXPECT_DOUBLE_EQ(scaler.ConstToMultiplyY, row.y) << row.mode;
        EXPECT_DOUBLE_EQ(scaler.ScaleX(2), 2 * row.x) << row.mode;
    }
}

// Five tabs, three to a row: 300 pixels wide, so 100 a tab, 30 high.
const char* const kFiveTabs = R"(VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmFive 
   ClientHeight    =   4500
   ClientWidth     =   6000
   ScaleMode       =   @MODE@
   Begin TabDlg.SSTab tabFive 
      Height          =   @HEIGHT@
      Left            =   @LEFT@
      TabIndex        =   0
      Top             =   @TOP@
      Width           =   @WIDTH@
      Tabs            =   5
      TabsPerRow      =   3
      TabHeight       =   @TABHEIGHT@
   End
   Begin VB.Frame fraOuter 
      Height          =   @HEIGHT@
      Left            =   @LEFT@
      TabIndex        =   1
      Top             =   @TOP@
      Width           =   @WIDTH@
      Begin VB.CheckBox chkIn 
         Height          =   255
         Left            =   300
         TabIndex        =   2
         Top             =   450
         Width           =   1500
      End
   End
End
)";

// The file keeps twips whatever the form's ScaleMode; in pixels the IDE (and
// the processor) hand them out divided by 15.
std::string FiveTabs(bool pixels)
{
    std::string text = ReplaceAll(kFiveTabs, "@MODE@", pixels ? "3" : "1");
    for (auto [key, twips] : { std::pair { "@LEFT@", "300" }, { "@TOP@", "600" }, { "@WIDTH@", "4500" },
             { "@HEIGHT@", "3000" }, { "@TABHEIGHT@", "450" } })
        text = ReplaceAll(text, key, twips);
    return text;
}

TEST(CScalerTest, TabsAreStackedFromTheBottomRowUpAndMatchTheProcessor)
{
    test::TempFolder folder;
    for (bool pixels : { false, true }) {
        test::FormUnderTest form(FiveTabs(pixels), folder / "frmFive.frm");
        IHostObject* tab = form.Control("tabFive");
        ASSERT_TRUE(tab);
        CScaler scaler;
        scaler.init(tab, form.Processor(), form.Form(), true);
        EXPECT_EQ(scaler.Container(), form.Form());
        EXPECT_EQ(scaler.TabsQTy(), 5);
        EXPECT_EQ(scaler.TabsPerRow(), 3);
        EXPECT_EQ(scaler.CalcTabsHotSpots(0), 1);
        EXPECT_EQ(scaler.CalcTabsHotSpots(2), 1);
        EXPECT_EQ(scaler.CalcTabsHotSpots(3), 0);
        EXPECT_EQ(scaler.CalcTabsHotSpots(4), 0);
        EXPECT_EQ(scaler.TabIndexInRow(4), 1);
        EXPECT_EQ(scaler.TabHeight(), 30);
        EXPECT_EQ(scaler.Left(), 20);
        EXPECT_EQ(scaler.Top(), 40);
        EXPECT_EQ(scaler.Width(), 300);
        EXPECT_EQ(scaler.Height(), 200);
        for (int page = 0; page < 5; ++page) {
            IClientFormProcessor::Rect expected = form.Processor().GetTabPageTabRectangleInTwips(page, form.Form(), tab);
            EXPECT_EQ(scaler.TabLeft(page), expected.left) << page;
            EXPECT_EQ(scaler.TabTop(page), expected.top) << page;
            EXPECT_EQ(scaler.TabWidth(page), expected.width) << page;
            EXPECT_EQ(scaler.TabHeight(), expected.height) << page;
        }
        EXPECT_EQ(scaler.TabTop(0), 70);
        EXPECT_EQ(scaler.TabTop(4), 40);
        EXPECT_EQ(scaler.TabLeft(4), 120);
    }
}

TEST(CScalerTest, AControlInAContainerAddsTheContainersOffsetInTwips)
{
    test::TempFolder folder;
    for (bool pixels : { false, true }) {
        test::FormUnderTest form(FiveTabs(pixels), folder / "frmFive.frm");
        IHostObject* check = form.Control("chkIn");
        ASSERT_TRUE(check);
        CScaler scaler;
        scaler.init(check, form.Processor(), form.Form());
        EXPECT_EQ(scaler.Container(), form.Control("fraOuter"));
        // The frame at 20, 40 in the form's units; the box 300, 450 twips into it.
        EXPECT_EQ(scaler.Left(), 40) << pixels;
        EXPECT_EQ(scaler.Top(), 70) << pixels;
        EXPECT_EQ(scaler.Width(), 100) << pixels;
        EXPECT_EQ(scaler.Height(), 17) << pixels;
    }
}

TEST(CScalerTest, MissingPropertiesAndNoTabsPerRowRaiseUnderTheScalersName)
{
    test::TempFolder folder;
    std::string text = ReplaceAll(FiveTabs(false), "      TabsPerRow      =   3\n", "      TabsPerRow      =   0\n");
    test::FormUnderTest form(text, folder / "frmFive.frm");
    CScaler scaler;
    try {
        scaler.init(form.Control("tabFive"), form.Processor(), form.Form(), true);
        FAIL() << "no tabs per row must raise";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Source(), "CScaler.CalcScaleMultipliers");
    }
    EXPECT_EQ(scaler.TabIndexInRow(4), 4);
    EXPECT_THROW(scaler.CalcTabsHotSpots(1), ScrivError);

    test::FormUnderTest bare("VERSION 5.00\nBegin VB.Form frmBare \n   Begin VB.Label lblNoSize \n      Caption = \"x\"\n"
                             "   End\nEnd\n",
        folder / "frmBare.frm");
    try {
        scaler.init(bare.Control("lblNoSize"), bare.Processor(), bare.Form());
        FAIL() << "a control without a position must raise";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Source(), "CScaler.init");
    }
    // Without a control only the scale is read.
    scaler.init(nullptr, bare.Processor(), bare.Form());
    EXPECT_DOUBLE_EQ(scaler.ConstToMultiplyX, 1);
}

TEST(CScalerTest, TheNonClientMetricsAreThoseOfTheClassicDesktop)
{
    CNonClientMetrics metrics;
    metrics.SearchMetrics();
    EXPECT_EQ(metrics.MaxHeight, 18);
    EXPECT_EQ(metrics.MinHeight, 15);
    EXPECT_EQ(metrics.HeightMenus, 18);
    EXPECT_EQ(metrics.borderWidth, 1);
    const int captions[] = { 0, 18, 18, 18, 15, 15, 0, 0 };
    for (int style = 0; style < 8; ++style)
        EXPECT_EQ(metrics.GetFormNCM(style), captions[style]) << style;
    EXPECT_EQ(metrics.FrameWidth(0), 0);
    EXPECT_EQ(metrics.FrameWidth(3), 4);
}

TEST(CScalerTest, AccessEstimatesATabsWidthFromItsCaption)
{
    // A bold caption of ten characters at 8 points.
    EXPECT_NEAR(CScaler::AccessCaptionWidthTwips("0123456789", 700, 8), 668.0 / 4 * 10 * (4.65 / 4) * 3 / 4, 1e-9);
    EXPECT_NEAR(CScaler::AccessCaptionWidthTwips("0123456789", 400, 8), 1252.5, 1e-9);
    EXPECT_NEAR(CScaler::AccessCaptionWidthTwips("abc", 400, 16), 668.0 / 4 * 3 * 2 * 3 / 4, 1e-9);
}

}  // namespace
}  // namespace scriv
