// Every area of every image map of a generated help lies on the control it
// names, as the renderer recorded drawing it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "desktop/CFormRenderer.h"
#include "desktop/CW_IDEVB6Context.h"
#include "desktop/Picture.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6Block.h"
#include "host/vb6/Vb6FormFile.h"
#include "support/ImageMaps.h"
#include "support/TestSupport.h"

namespace scriv {
namespace {

using test::MetaFormName;

// The pages (tab control, page) a control stands on, outermost first.
std::vector<std::pair<std::string, int>> OuterPages(const Vb6Block& control)
{
    std::vector<std::pair<std::string, int>> pages;
    for (const Vb6Block* child = &control; child->Parent(); child = child->Parent()) {
        const Vb6Block* parent = child->Parent();
        if (!EqualsNoCase(parent->ShortType(), "SSTab"))
            continue;
        for (int page = 0; page < static_cast<int>(parent->Number("Tabs", 3)); ++page)
            for (const std::string& name : parent->TabPageControlNames(page))
                if (EqualsNoCase(name, child->IndexedName()))
                    pages.insert(pages.begin(), { parent->IndexedName(), page });
    }
    return pages;
}

// Where the renderer drew every control of a form, with each page of each
// tab control shown in turn.
std::map<std::string, PixelRect> DrawnControls(const Vb6FormFile& file, Picture* firstPicture)
{
    std::map<std::string, PixelRect> drawn;
    CW_IDEVB6FormProcessor processor(const_cast<Vb6FormFile&>(file), 100);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    processor.SetFirstPageVisibleForTabControls(form);
    CFormRenderer renderer(processor, form, file);
    auto take = [&] {
        RenderedForm rendered = renderer.Render();
        // Bookmarks carry names as file names do: transliterated.
        // A control drawn where its page is shown counts over one recorded
        // on a page moved aside.
        auto keep = [&](const std::string& name, const PixelRect& rect) {
            auto found = drawn.find(name);
            if (found == drawn.end() || (found->second.left < -1000 && rect.left >= -1000))
                drawn[name] = rect;
        };
        for (const RenderedControl& control : rendered.controls) {
            keep(control.name, control.rect);
            keep(EncodeObjectName(control.name), control.rect);
        }
        return rendered;
    };
    RenderedForm first = take();
    if (firstPicture)
        *firstPicture = first.picture;
    for (const Vb6Block* block : file.Form().Descendants()) {
        if (!EqualsNoCase(block->ShortType(), "SSTab"))
            continue;
        for (int page = 0; page < static_cast<int>(block->Number("Tabs", 3)); ++page) {
            // A tab control on another's page shows when that page does.
            for (const auto& [outer, outerPage] : OuterPages(*block))
                renderer.ShowTabPage(outer, outerPage);
            if (renderer.ShowTabPage(block->IndexedName(), page))
                take();
        }
    }
    return drawn;
}

int Generate(const std::string& source, const std::string& data, std::string& output)
{
    return ShellAndWait({ std::string(SCRIVANT_BINARY_DIR) + "/bin/scrivant", "--data", data, "generate", source,
                            "--no-compile" },
        &output);
}

struct Checked {
    int pages { 0 };
    int areas { 0 };
};

// Checks the topics of one generated project against drawings of its forms.
void CheckProject(const std::string& projectFile, const std::string& helpFolder, Checked& checked)
{
    std::unique_ptr<CW_IDEVB6Context> host = CW_IDEVB6Context::Open(projectFile);
    for (const std::string& page : ListFiles(helpFolder, "*_Form_*.htm")) {
        std::string text = ReadFileText(helpFolder + page).value_or("");
        std::string formName = MetaFormName(text);
        CW_IDEVB6Context::Component* component = host->FindComponent(formName);
        ASSERT_TRUE(component && component->file) << page;
        Picture picture;
        std::map<std::string, PixelRect> drawn = DrawnControls(*component->file, &picture);
        ++checked.pages;
        // The picture of the page is the drawing of the form.
        std::string bytes = ReadFileText(helpFolder + "images/" + FileBaseName(page) + ".png").value_or("");
        std::optional<Picture> decoded = DecodePicture(bytes);
        ASSERT_TRUE(decoded) << page;
        EXPECT_EQ(decoded->Width(), picture.Width()) << page;
        EXPECT_EQ(decoded->Height(), picture.Height()) << page;

        for (const test::ImageMap& map : test::ImageMapsOf(text)) {
            // A control's own map lies on its picture; a page's on its tab control's.
            std::string parent = map.name == formName ? std::string() : map.name.substr(formName.size() + 1);
            PixelRect origin { 0, 0, 0, 0 };
            if (!parent.empty()) {
                std::smatch page_;
                if (std::regex_match(parent, page_, std::regex("\\d+_(.+)")))
                    parent = page_[1];
                ASSERT_TRUE(drawn.count(parent)) << page << " " << map.name;
                origin = drawn[parent];
            }
            for (const test::MapArea& area : map.areas) {
                std::string name = area.href.substr(formName.size() + 1);
                ASSERT_TRUE(drawn.count(name)) << page << " " << area.href;
                const PixelRect& rect = drawn[name];
                EXPECT_EQ(area.left, rect.left - origin.left) << page << " " << name;
                EXPECT_EQ(area.top, rect.top - origin.top) << page << " " << name;
                EXPECT_EQ(area.right, rect.left + rect.width - origin.left) << page << " " << name;
                EXPECT_EQ(area.bottom, rect.top + rect.height - origin.top) << page << " " << name;
                ++checked.areas;
            }
        }
    }
}

TEST(MapFit, EveryAreaOfTheExamplesTopicsLiesOnTheControlItNames)
{
    test::TempFolder data;
    test::TempFolder work;
    Checked checked;
    std::string orderDesk = test::CopyExample("OrderDesk", work);
    std::string inventory = test::CopyExample("Inventory", work);
    for (const std::string& project :
        { orderDesk + "OrderDesk.vbp", inventory + "InventoryApp.vbp", inventory + "Reports/InventoryReports.vbp" }) {
        std::string output;
        ASSERT_EQ(Generate(project, data.Path(), output), 0) << output;
        CheckProject(project, FolderOf(project) + "CHM/", checked);
    }
    EXPECT_EQ(checked.pages, 16);
    EXPECT_GT(checked.areas, 150);
}

// With SCRIVANT_MAPFIT_PROJECTS naming .vbp files (separated by ":"), the
// same check runs over them, each generated in a copy of its folder.
TEST(MapFit, ProjectsNamedInTheEnvironmentFitToo)
{
    const char* list = std::getenv("SCRIVANT_MAPFIT_PROJECTS");
    if (!list)
        GTEST_SKIP() << "SCRIVANT_MAPFIT_PROJECTS names no projects";
    test::TempFolder data;
    Checked checked;
    for (const std::string& project : Split(list, ":")) {
        if (project.empty())
            continue;
        test::TempFolder work;
        std::filesystem::copy(FolderOf(project), work.Path(), std::filesystem::copy_options::recursive);
        std::string copy = work / FileNameOf(project);
        std::string output;
        Generate(copy, data.Path(), output);
        CheckProject(copy, work / "CHM/", checked);
    }
    std::cout << "checked " << checked.pages << " topics and " << checked.areas << " areas\n";
}

}  // namespace
}  // namespace scriv
