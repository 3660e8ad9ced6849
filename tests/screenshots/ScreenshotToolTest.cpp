// Screenshots of single forms as a screenshot tool asks for them.
#include <gtest/gtest.h>

#include <filesystem>

#include "desktop/CW_IDEVB6Context.h"
#include "foundation/Paths.h"
#include "foundation/System.h"
#include "screenshots/Screenshot.h"
#include "screenshots/ScreenshotOptions.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

class ScreenshotToolTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_app = test::CopyExample("OrderDesk", m_work);
        ConnectHost(CW_IDEVB6Context::Open(m_app + "OrderDesk.vbp"));
        Parameters().Charset = "utf-8";
        Parameters().SetCSSFullPath("Office10.css");
        Parameters().AddImageForForm = true;
        Parameters().AddHotSpotsForForm = true;
        Parameters().SetHotSpots(true);
    }

    test::TempFolder m_work;
    test::TempFolder m_out;
    std::string m_app;
    Screenshot m_screenshot;
};

TEST_F(ScreenshotToolTest, WrongRequestsAreAnsweredWithTheirMessages)
{
    EXPECT_FALSE(m_screenshot.TakeVB6FormScreenshot("frmAbout", 3, m_out.Path(), "a.jpg", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "Pictype can be only equal to 1(Bitmap) or 2(Jpeg)");
    EXPECT_FALSE(m_screenshot.TakeVB6FormScreenshot("frmAbout", 2, "", "a.jpg", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "TargetFolder isn't specified");
    EXPECT_FALSE(m_screenshot.TakeVB6FormScreenshot("frmAbout", 2, m_out.Path(), "", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "Picture file name isn't specified");
    EXPECT_FALSE(m_screenshot.TakeVB6FormScreenshot("frmAbout", -1, "", "", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "Source Scriv project isn't loaded.");
    EXPECT_FALSE(m_screenshot.TakeWindowScreenshot(12345, 1, m_out.Path(), "w.bmp"));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "Unexpected error whille taking window screenshot.");
    // A call that works clears the error of the one before.
    EXPECT_TRUE(m_screenshot.TakeVB6FormScreenshot("frmAbout", 2, m_out.Path(), "about.jpg", ""));
    EXPECT_EQ(m_screenshot.LastErrNum(), 0u);
    EXPECT_EQ(m_screenshot.LastErrDscr(), "");
}

TEST_F(ScreenshotToolTest, AFormIsPhotographedAndItsTopicWrittenBesideThePicture)
{
    ASSERT_TRUE(m_screenshot.TakeVB6FormScreenshot("frmOrder", 2, m_out.Path(), "{{FormName}}.jpg", "{{FormName}}.htm"))
        << m_screenshot.LastErrDscr();
    EXPECT_EQ(m_screenshot.TakenImageFullPath(), m_out / "frmOrder.jpg");
    EXPECT_EQ(ReadFileText(m_out / "frmOrder.jpg").value_or("").substr(0, 2), "\xFF\xD8");
    // The tab pages are photographed too, each with the page shown.
    EXPECT_TRUE(FileExists(m_out / "frmOrder_tabOrder2.jpg"));
    std::string page = m_out.Read("frmOrder.htm");
    EXPECT_NE(page.find("<MAP NAME=\"frmOrder\">"), std::string::npos) << page;

    // The same again: the picture is replaced and the page kept once aside.
    ASSERT_TRUE(m_screenshot.TakeVB6FormScreenshot("frmOrder", 2, m_out.Path(), "{{FormName}}.jpg", "{{FormName}}.htm"));
    EXPECT_EQ(ListFiles(m_out.Path(), "frmOrder_2*.htm").size(), 1u);
}

TEST_F(ScreenshotToolTest, TheFormatDecidesTheExtensionAndANameWithoutTheTagStays)
{
    ASSERT_TRUE(m_screenshot.TakeVB6FormScreenshot("frmAbout", 1, m_out.Path(), "picture.jpg", ""));
    EXPECT_EQ(m_screenshot.TakenImageFullPath(), m_out / "picture.bmp");
    EXPECT_EQ(ReadFileText(m_out / "picture.bmp").value_or("").substr(0, 2), "BM");
    EXPECT_FALSE(FileExists(m_out / "frmAbout.htm"));
}

TEST_F(ScreenshotToolTest, ALoadedHelpProjectSaysWhereAFormsPictureAndTopicGo)
{
    // The help project as the program makes it, in a user data folder of its own.
    test::TempFolder data;
    std::string output;
    ASSERT_EQ(ShellAndWait({ std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant", "--data", data.Path(), "generate",
                               m_app + "OrderDesk.vbp", "--no-compile" },
                  &output),
        0)
        << output;
    std::string help = m_app + "CHM/";
    std::string topic = help + "OrderDesk_Form_frmAbout.htm";
    std::string before = ReadFileText(topic).value_or("");
    ASSERT_FALSE(before.empty());
    std::filesystem::remove(help + "images/OrderDesk_Form_frmAbout.png");

    ASSERT_TRUE(m_screenshot.LoadProject(help + "OrderDesk.svp")) << m_screenshot.LastErrDscr();
    EXPECT_EQ(m_screenshot.LoadedProjectSnapshotFormat(), "Png");
    EXPECT_EQ(m_screenshot.LoadedProjectHtmlFolder(), help);
    EXPECT_FALSE(m_screenshot.TakeVB6FormScreenshot("frmNoSuch", -1, "", "", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(),
        "Form [frmNoSuch] not found in generated project '" + help + "OrderDesk.svp'");
    ASSERT_TRUE(m_screenshot.TakeVB6FormScreenshot("frmAbout", -1, "", "", "")) << m_screenshot.LastErrDscr();
    EXPECT_EQ(m_screenshot.TakenImageFullPath(), help + "images/OrderDesk_Form_frmAbout.png");
    EXPECT_TRUE(FileExists(help + "images/OrderDesk_Form_frmAbout.png"));
    EXPECT_NE(ReadFileText(topic).value_or("").find("<MAP NAME=\"frmAbout\">"), std::string::npos);
}

TEST(ScreenshotOptionsTest, DefaultsFollowTheFormatAndTheChosenPlaces)
{
    ScreenshotOptions options("/help/App.svp", false, 1, "/help/images/", "/help/");
    EXPECT_EQ(options.PictureSaveType, 1);
    EXPECT_EQ(options.CapturedImageFileName, "{{FormName}}.bmp");
    EXPECT_EQ(options.HtmlFileName, "{{FormName}}.htm");
    EXPECT_EQ(options.DirToSaveImages, "/help/images/");
    EXPECT_TRUE(options.GenerateHTML);
    EXPECT_EQ(options.OpenMode(), 1);
    options.PictureSaveType = 2;
    EXPECT_EQ(options.DefaultCapturedImageFileName(), "{{FormName}}.jpg");

    options.Remember("DefaultDirToSaveImages", "/shots/");
    EXPECT_EQ(options.DefaultDirToSaveImages(), "/help/images/");
    options.UserControlledScreenshotLocation = true;
    EXPECT_EQ(options.DefaultDirToSaveImages(), "/shots/");
    options.Remember("HtmlFileName", "Topic.htm");
    options.SetDefaults();
    EXPECT_EQ(options.HtmlFileName, "Topic.htm");
    EXPECT_EQ(options.PictureSaveType, 1);
}

}  // namespace
}  // namespace scriv
