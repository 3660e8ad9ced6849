// Screenshots of Windows Forms forms, found by the window the host drew them in.
#include <gtest/gtest.h>

#include "desktop/CW_IDEVSContext.h"
#include "desktop/RenderedWindows.h"
#include "foundation/Paths.h"
#include "model/IHostAgent.h"
#include "screenshots/Screenshot.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

class WinFormScreenshotTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_app = test::CopyExample("WinFormsDemo", m_work);
        ConnectHost(CW_IDEVSContext::Open(m_app + "OrderEntry/OrderEntry.csproj"));
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

TEST_F(WinFormScreenshotTest, AFormFoundByItsWindowIsPhotographedWithItsTopic)
{
    // Opened, the form is drawn in a window of its own.
    CurrentHostAgent()->ActivateComponent(2, "OptionsDialog", false, false);
    int handle = 0;
    for (const RenderedWindow* window : RenderedWindows().All())
        if (window->name == "OptionsDialog")
            handle = window->handle;
    ASSERT_NE(handle, 0);
    EXPECT_EQ(CurrentHostAgent()->GetWinFormNameByHWND(handle), "OptionsDialog");
    ASSERT_TRUE(m_screenshot.TakeWinFormScreenshot(handle, 2, m_out.Path(), "{{FormName}}.jpg", "{{FormName}}.htm"))
        << m_screenshot.LastErrDscr();
    EXPECT_EQ(m_screenshot.TakenImageFullPath(), m_out / "OptionsDialog.jpg");
    EXPECT_EQ(ReadFileText(m_out / "OptionsDialog.jpg").value_or("").substr(0, 2), "\xFF\xD8");
    std::string page = ReadFileText(m_out / "OptionsDialog.htm").value_or("");
    // A check box of the first page lies where the tab control, its page and the box put it.
    EXPECT_NE(page.find("COORDS=\"36,72,196,89\" HREF=\"#OptionsDialog_chkAutoSave\""), std::string::npos);
    EXPECT_NE(TraceText().find("IsVSNet = True"), std::string::npos);
}

TEST_F(WinFormScreenshotTest, AWindowNoFormWasDrawnInIsNamedInTheMessage)
{
    EXPECT_FALSE(m_screenshot.TakeWinFormScreenshot(4242, 2, m_out.Path(), "a.jpg", ""));
    EXPECT_EQ(m_screenshot.LastErrDscr(), "Form not found for HWND = 4242 and project ''");
}

}  // namespace
}  // namespace scriv
