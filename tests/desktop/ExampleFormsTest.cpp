#include <gtest/gtest.h>

#include <map>
#include <pugixml.hpp>
#include <set>

#include "desktop/CFormRenderer.h"
#include "desktop/CW_IDEVB6Context.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"
#include "support/RenderSupport.h"
#include "support/TestSupport.h"
#include "uidesc/CClientUIObjectRawXml.h"

namespace scriv {
namespace {

bool IsTabControl(const std::string& type)
{
    return EqualsNoCase(type, "SSTab") || EqualsNoCase(type, "TabControl");
}

// Where the processor puts every control as it stands now, in window pixels:
// the client offset, the origins of the containers and the control's own
// rectangle, with the tabs of tab controls and the buttons of toolbars.
class ProcessorRectangles {
public:
    ProcessorRectangles(IClientFormProcessor& processor, IHostObject* form)
        : m_processor(processor)
        , m_form(form)
    {
        Walk(form, processor.FormClientAreaOffsetX(form), processor.FormClientAreaOffsetY(form));
    }
    const std::map<std::string, PixelRect>& Rectangles() const { return m_rectangles; }

private:
    PixelRect Shifted(const IClientFormProcessor::Rect& rect, int x, int y)
    {
        return { x + rect.left, y + rect.top, rect.width, rect.height };
    }

    void Walk(IHostObject* parent, int x, int y)
    {
        for (IHostObject* child : m_processor.ControlsCollectionGet(parent)) {
            std::string name = m_processor.ControlNameGet(child);
            std::string type = m_processor.ObjectTypeName(child);
            PixelRect rect = Shifted(m_processor.GetControlRectangleInTwips(m_form, child), x, y);
            m_rectangles[name] = rect;
            if (IsTabControl(type))
                for (int page = 0; page < m_processor.TabControlPagesQtyGet(child); ++page)
                    m_rectangles[std::to_string(page) + "_" + name]
                        = Shifted(m_processor.GetTabPageTabRectangleInTwips(page, m_form, child), x, y);
            if (type == "Toolbar")
                for (int button = 1; button <= m_processor.ToolbarButtonsQtyGet(child); ++button)
                    m_rectangles[std::to_string(button) + "_" + name]
                        = Shifted(m_processor.GetToolbarButtonRectangleInTwips(button, m_form, child), x, y);
            Walk(child, rect.left, rect.top);
        }
    }

    IClientFormProcessor& m_processor;
    IHostObject* m_form;
    std::map<std::string, PixelRect> m_rectangles;
};

// The names of the controls of the form walk's description.
std::set<std::string> DescribedNames(Vb6FormFile& file)
{
    CW_IDEVB6FormProcessor processor(file);
    std::string raw = CClientUIObjectRawXml().Get_(processor, 2, processor.Component(), 0, true, "VB6", true, false);
    pugi::xml_document document;
    EXPECT_TRUE(document.load_string(raw.c_str())) << raw;
    std::set<std::string> names;
    for (const pugi::xpath_node& node : document.select_nodes("/*/Controls//*[@Name]"))
        names.insert(node.node().attribute("Name").value());
    return names;
}

// The tab controls of a form file, by name.
std::vector<const Vb6Block*> TabControls(const Vb6FormFile& file)
{
    std::vector<const Vb6Block*> tabs;
    for (const Vb6Block* block : file.Form().Descendants())
        if (IsTabControl(block->ShortType()))
            tabs.push_back(block);
    return tabs;
}

struct Checked {
    int forms { 0 };
    int records { 0 };
    int redrawn { 0 };
};

// Renders the form once as it stands and once for every page of every tab
// control; every record must lie where the processor puts the control then,
// and together the records must name every control of the description.
void CheckForm(const CW_IDEVB6Context::Component& component, Checked& checked)
{
    std::set<std::string> described = DescribedNames(*component.file);
    CW_IDEVB6FormProcessor processor(*component.file);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    CFormRenderer renderer(processor, form, *component.file);
    std::set<std::string> recorded;
    auto renderAndCompare = [&](const std::string& state) {
        RenderedForm rendered = renderer.Render();
        ProcessorRectangles expected(processor, form);
        int width = 0;
        int height = 0;
        processor.GetComponentWidthAndHeightInTwips(form, width, height);
        EXPECT_EQ(rendered.picture.Width(), width) << component.name;
        EXPECT_EQ(rendered.picture.Height(), height) << component.name;
        for (const RenderedControl& control : rendered.controls) {
            auto found = expected.Rectangles().find(control.name);
            ASSERT_NE(found, expected.Rectangles().end()) << component.name << " " << control.name;
            EXPECT_EQ(control.rect, found->second) << component.name << " " << control.name << " " << state;
            recorded.insert(control.name);
            ++checked.records;
        }
    };
    renderAndCompare("as opened");
    RenderedForm earlier = renderer.Render();
    for (const Vb6Block* tab : TabControls(*component.file)) {
        for (int page = 0; page < ToInt(tab->Number("Tabs", 3)); ++page) {
            ASSERT_TRUE(renderer.ShowTabPage(tab->IndexedName(), page)) << tab->IndexedName();
            std::string state = tab->IndexedName() + " page " + std::to_string(page);
            renderAndCompare(state);
            // Drawing only the tab control over the drawing before gives the same pixels and records.
            RenderedForm whole = renderer.Render();
            const RenderedControl* turned = earlier.Find(tab->IndexedName());
            if (!turned)
                continue;
            RenderedForm over = renderer.RenderOver(earlier, turned->rect);
            EXPECT_TRUE(over.picture == whole.picture) << component.name << " " << state;
            ASSERT_EQ(over.controls.size(), whole.controls.size()) << component.name << " " << state;
            for (std::size_t i = 0; i < whole.controls.size(); ++i) {
                EXPECT_EQ(over.controls[i].name, whole.controls[i].name);
                EXPECT_EQ(over.controls[i].rect, whole.controls[i].rect) << over.controls[i].name;
            }
            ++checked.redrawn;
            earlier = std::move(whole);
        }
    }
    for (const std::string& name : described)
        EXPECT_TRUE(recorded.count(name)) << component.name << ": " << name << " was never drawn";
    ++checked.forms;
}

TEST(ExampleFormsTest, EveryControlOfTheDescriptionIsDrawnWhereTheProcessorPutsIt)
{
    Checked checked;
    for (std::string source : { "OrderDesk/OrderDesk.vbp", "Inventory/Inventory.vbg" }) {
        std::unique_ptr<CW_IDEVB6Context> host = CW_IDEVB6Context::Open(test::ExamplesFolder() + source);
        host->SetUseProjectGroupAsSource(true);
        for (const std::string& project : Split(host->SourceProjectsList(), "|")) {
            host->SetCurrentSourceProject(project);
            for (const CW_IDEVB6Context::Component& component : host->Components()) {
                ASSERT_TRUE(component.file) << component.error;
                CheckForm(component, checked);
            }
        }
    }
    EXPECT_EQ(checked.forms, 16);
    // The examples hold well over a hundred documented controls.
    EXPECT_GT(checked.records, 300);
    // Tab pages of the order form and the inventory's item form.
    EXPECT_GE(checked.redrawn, 3);
}

TEST(ExampleFormsTest, TheOrderFormShowsEachPageOfItsTabControlInTurn)
{
    std::unique_ptr<CW_IDEVB6Context> host = CW_IDEVB6Context::Open(test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp");
    CW_IDEVB6Context::Component* component = host->FindComponent("frmOrder");
    ASSERT_TRUE(component && component->file);
    CW_IDEVB6FormProcessor processor(*component->file);
    IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    CFormRenderer renderer(processor, form, *component->file);
    // As the file has it, the first page is shown.
    RenderedForm first = renderer.Render();
    EXPECT_TRUE(first.Find("optPriority(1)"));
    EXPECT_FALSE(first.Find("txtItem(0)"));
    EXPECT_TRUE(first.Find("2_tabOrder"));
    ASSERT_TRUE(renderer.ShowTabPage("tabOrder", 1));
    RenderedForm second = renderer.Render();
    EXPECT_FALSE(second.Find("optPriority(1)"));
    ASSERT_TRUE(second.Find("txtItem(0)"));
    // The text box is white where it stands and was not there before.
    const PixelRect& item = second.Find("txtItem(0)")->rect;
    EXPECT_EQ(second.picture.Pixel(item.left + item.width / 2, item.top + item.height / 2), (Rgb { 255, 255, 255 }));
    EXPECT_NE(first.picture.Pixel(item.left + item.width / 2, item.top + item.height / 2), (Rgb { 255, 255, 255 }));
    EXPECT_FALSE(renderer.ShowTabPage("tabOrder", 3));
    EXPECT_FALSE(renderer.ShowTabPage("cmdSave", 0));
}

}  // namespace
}  // namespace scriv
