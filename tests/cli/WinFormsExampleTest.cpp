// The help of the Windows Forms example: every topic has the picture the
// renderer draws of its form, and every area of its image maps lies on the
// control it names.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string>
#include <vector>

#include "desktop/CWinFormRenderer.h"
#include "desktop/CW_IDEVSContext.h"
#include "desktop/Picture.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "host/vs/CW_IDEVSFormProcessor.h"
#include "host/vs/WinFormDesign.h"
#include "support/ImageMaps.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

using test::MetaFormName;

// Where the renderer drew every control of a form, each page of each tab control shown in turn.
std::map<std::string, PixelRect> DrawnControls(const WinFormDesign& design, Picture& picture)
{
    std::map<std::string, PixelRect> drawn;
    CW_IDEVSFormProcessor processor(design, 100);
    processor.SetFirstPageVisibleForTabControls(processor.Component());
    CWinFormRenderer renderer(processor);
    auto take = [&] {
        RenderedForm rendered = renderer.Render();
        for (const RenderedControl& control : rendered.controls) {
            drawn.emplace(control.name, control.rect);
            drawn.emplace(EncodeObjectName(control.name), control.rect);
        }
        return rendered;
    };
    picture = take().picture;
    for (const auto& component : design.Components()) {
        if (!WinFormLayout::IsTabControl(*component))
            continue;
        for (std::size_t page = 0; page < WinFormLayout::TabPages(*component).size(); ++page)
            if (renderer.ShowTabPage(component->ControlName(), static_cast<int>(page)))
                take();
    }
    return drawn;
}

TEST(WinFormsExample, TheSolutionsTopicsHavePicturesWhoseMapsLieOnTheControls)
{
    test::TempFolder data;
    test::TempFolder work;
    std::string example = test::CopyExample("WinFormsDemo", work);
    std::string output;
    ASSERT_EQ(ShellAndWait({ std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant", "--data", data.Path(), "generate",
                  example + "WinFormsDemo.sln" },
                  &output),
        0)
        << output;
    // The help of a solution lies beside its startup project, the first one.
    std::string help = example + "OrderEntry/CHM/";
    EXPECT_TRUE(FileExists(help + "OrderEntry.chm")) << output;
    std::string contents = ReadFileText(help + "OrderEntry.hhc").value_or("");
    std::string index = ReadFileText(help + "OrderEntry.hhk").value_or("");
    for (const char* caption : { "Order Entry", "Customer", "Options", "Orders of the Period" })
        EXPECT_NE(contents.find(std::string("value=\"") + caption + "\""), std::string::npos) << caption;
    EXPECT_NE(index.find("Send the monthly letter"), std::string::npos);

    std::unique_ptr<CW_IDEVSContext> host = CW_IDEVSContext::Open(example + "WinFormsDemo.sln");
    int pages = 0;
    int areas = 0;
    for (const std::string& page : ListFiles(help, "*_Form_*.htm")) {
        std::string text = ReadFileText(help + page).value_or("");
        std::string formName = MetaFormName(text);
        host->SetCurrentSourceProject(page.substr(0, page.find("_Form_")));
        CW_IDEVSContext::Component* component = host->FindComponent(formName);
        ASSERT_TRUE(component) << page;
        WinFormDesign design = WinFormDesign::Load(component->codePath);
        if (!EqualsNoCase(design.Form().Text("Name"), formName))
            FAIL() << page << " names " << formName;
        Picture picture;
        std::map<std::string, PixelRect> drawn = DrawnControls(design, picture);
        ++pages;
        std::optional<Picture> saved = DecodePicture(ReadFileText(help + "images/" + FileBaseName(page) + ".png").value_or(""));
        ASSERT_TRUE(saved) << page;
        EXPECT_EQ(saved->Width(), picture.Width()) << page;
        EXPECT_EQ(saved->Height(), picture.Height()) << page;
        for (const test::ImageMap& map : test::ImageMapsOf(text)) {
            std::string parent = map.name == formName ? std::string() : map.name.substr(formName.size() + 1);
            PixelRect origin;
            if (!parent.empty()) {
                std::smatch pageMatch;
                if (std::regex_match(parent, pageMatch, std::regex("\\d+_(.+)")))
                    parent = pageMatch[1];
                ASSERT_TRUE(drawn.count(parent)) << page << " " << map.name;
                origin = drawn[parent];
            }
            for (const test::MapArea& area : map.areas) {
                std::string name = area.href.substr(formName.size() + 1);
                ASSERT_TRUE(drawn.count(name)) << page << " " << area.href;
                const PixelRect& rect = drawn[name];
                EXPECT_EQ(area.left, rect.left - origin.left) << page << " " << name;
                EXPECT_EQ(area.top, rect.top - origin.top) << page << " " << name;
                EXPECT_EQ(area.right, rect.Right() - origin.left) << page << " " << name;
                EXPECT_EQ(area.bottom, rect.Bottom() - origin.top) << page << " " << name;
                ++areas;
            }
        }
    }
    EXPECT_EQ(pages, 4);
    EXPECT_GT(areas, 50);
}

}  // namespace
}  // namespace scriv
