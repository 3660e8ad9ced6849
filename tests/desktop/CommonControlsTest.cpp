#include <gtest/gtest.h>

#include "desktop/CW_IDEVB6Context.h"
#include "support/RenderSupport.h"

namespace scriv {
namespace {

using test::CountPixels;
using test::Is;
using test::IsDark;

class CommonControlsTest : public ::testing::Test {
protected:
    RenderedForm Draw(const std::string& source, const std::string& name)
    {
        m_host = CW_IDEVB6Context::Open(test::ExamplesFolder() + source);
        m_host->SetUseProjectGroupAsSource(true);
        for (const std::string& project : Split(m_host->SourceProjectsList(), "|")) {
            m_host->SetCurrentSourceProject(project);
            if (CW_IDEVB6Context::Component* component = m_host->FindComponent(name)) {
                m_processor = std::make_unique<CW_IDEVB6FormProcessor>(*component->file);
                IHostObject* form = m_processor->FindActualFormOfComponent(m_processor->Component(), false, false);
                return CFormRenderer(*m_processor, form, *component->file).Render();
            }
        }
        ADD_FAILURE() << name << " not found";
        return {};
    }

    std::unique_ptr<CW_IDEVB6Context> m_host;
    std::unique_ptr<CW_IDEVB6FormProcessor> m_processor;
};

TEST_F(CommonControlsTest, ToolbarButtonsAreRaisedFacesAndSeparatorsAreNot)
{
    RenderedForm main = Draw("OrderDesk/OrderDesk.vbp", "frmMain");
    const RenderedControl* first = main.Find("1_tbrMain");
    const RenderedControl* separator = main.Find("4_tbrMain");
    ASSERT_TRUE(first && separator);
    // A standard toolbar button: white top-left, dark bottom-right, empty face.
    EXPECT_EQ(main.picture.Pixel(first->rect.left, first->rect.top + 5), test::kWhite);
    EXPECT_EQ(main.picture.Pixel(first->rect.Right() - 1, first->rect.top + 5), (Rgb { 64, 64, 64 }));
    EXPECT_EQ(CountPixels(main.picture, first->rect.Inset(3), IsDark), 0);
    // The separator of a standard toolbar is a gap.
    EXPECT_EQ(CountPixels(main.picture, { separator->rect.left, separator->rect.top + 3, separator->rect.width,
                                            separator->rect.height - 3 },
                  Is(test::kButtonFace)),
        separator->rect.width * (separator->rect.height - 3));
}

TEST_F(CommonControlsTest, StatusBarPanelsShowTheirTextsAndTheDisabledOneIsGrey)
{
    RenderedForm main = Draw("OrderDesk/OrderDesk.vbp", "frmMain");
    const RenderedControl* bar = main.Find("sbrMain");
    ASSERT_TRUE(bar);
    // "Ready" at the left, in black.
    EXPECT_GT(CountPixels(main.picture, { bar->rect.left, bar->rect.top, 60, bar->rect.height }, Is({ 0, 0, 0 })), 10);
    // The CAPS panel is disabled: grey text and no black, left of the date.
    PixelRect right { bar->rect.Right() - 140, bar->rect.top, 40, bar->rect.height };
    EXPECT_GT(CountPixels(main.picture, right, Is({ 128, 128, 128 })), 5);
    // The sizable window's status bar has its grip in the corner.
    PixelRect grip { bar->rect.Right() - 12, bar->rect.Bottom() - 12, 12, 12 };
    EXPECT_GT(CountPixels(main.picture, grip, Is({ 128, 128, 128 })), 15);
}

TEST_F(CommonControlsTest, AReportListViewShowsItsColumnHeaders)
{
    RenderedForm search = Draw("OrderDesk/OrderDesk.vbp", "frmSearch");
    const RenderedControl* list = search.Find("lvwResults");
    ASSERT_TRUE(list);
    PixelRect header { list->rect.left + 2, list->rect.top + 2, list->rect.width - 4, 16 };
    EXPECT_GT(CountPixels(search.picture, header, Is(test::kButtonFace)), header.width * 8);
    EXPECT_GT(CountPixels(search.picture, header, IsDark), 40);
    // Below the headers the list is white and empty.
    PixelRect body { list->rect.left + 4, list->rect.top + 30, list->rect.width - 8, list->rect.height - 34 };
    EXPECT_EQ(CountPixels(search.picture, body, Is(test::kWhite)), body.width * body.height);
}

TEST_F(CommonControlsTest, ATabStripDrawsATabForEachOfItsTabs)
{
    RenderedForm options = Draw("OrderDesk/OrderDesk.vbp", "frmOptions");
    const RenderedControl* strip = options.Find("tabOptions");
    ASSERT_TRUE(strip);
    // Each tab ends on the right in a dark line, below the captions: three tabs, three lines.
    int edges = 0;
    for (int x = strip->rect.left; x < strip->rect.Right(); ++x)
        edges += options.picture.Pixel(x, strip->rect.top + 17) == Rgb { 64, 64, 64 } ? 1 : 0;
    EXPECT_EQ(edges, 3);
    EXPECT_GT(CountPixels(options.picture, { strip->rect.left, strip->rect.top, strip->rect.width, 20 }, IsDark), 60);
}

}  // namespace
}  // namespace scriv
