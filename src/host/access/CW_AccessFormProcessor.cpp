#include "host/access/CW_AccessFormProcessor.h"

#include <cmath>

#include "foundation/EventLoop.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/vs/WinFormLayout.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

// Sections a form shows in Form view; a report shows all of its sections.
bool IsFormViewSection(const std::string& type)
{
    return EqualsNoCase(type, "FormHeader") || EqualsNoCase(type, "Section") || EqualsNoCase(type, "FormFooter");
}

bool IsSectionType(const std::string& type)
{
    for (const char* name : { "FormHeader", "PageHeader", "BreakHeader", "Section", "BreakFooter", "PageFooter",
             "FormFooter" })
        if (EqualsNoCase(type, name))
            return true;
    return false;
}

bool IsTab(const std::string& type)
{
    return EqualsNoCase(type, "Tab") || EqualsNoCase(type, "TabCtl");
}

// "cmdSave" shows as "Save"; a name all in lower case stays.
std::string NameAsCaption(std::string name)
{
    if (ToLower(name) == name)
        return name;
    auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    while (name.size() > 1 && isLower(name.front()) && !IsNumeric(name.substr(1)))
        name.erase(0, 1);
    return name;
}

constexpr int kRecordSelectorWidth = 14;
constexpr int kNavigationHeight = 18;
constexpr int kSectionBarHeight = 18;
constexpr int kTabHeight = 20;

}  // namespace

int TwipsToPixels(double twips)
{
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

class CW_AccessFormProcessor::ControlObject : public IHostObject {
public:
    explicit ControlObject(const AccessControlView* control)
        : control(control)
    {
    }
    const AccessControlView* control;
};

CW_AccessFormProcessor::CW_AccessFormProcessor(const AccessDefinition& definition, const std::string& name, bool isReport,
    int windowHandle)
    : m_definition(definition)
    , m_name(name)
    , m_isReport(isReport)
    , m_windowHandle(windowHandle)
    , m_component(std::make_unique<ControlObject>(nullptr))
{
    m_metrics.SearchMetrics();
    Build();
}

CW_AccessFormProcessor::~CW_AccessFormProcessor()
{
    Terminate();
}

void CW_AccessFormProcessor::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_objects.clear();
}

// --- the model ---

void CW_AccessFormProcessor::Build()
{
    const AccessBlock& object = m_definition.Object();
    m_width = TwipsToPixels(object.Number("Width", 0));
    if (!m_isReport) {
        int view = static_cast<int>(object.Number("DefaultView", 0));
        m_recordSelector = object.Flag("RecordSelectors", true) && view != 2 ? kRecordSelectorWidth : 0;
        m_navigation = object.Flag("NavigationButtons", true) ? kNavigationHeight : 0;
    }
    int top = 0;
    // Access writes the sections inside the object's unnamed block, after the
    // controls' defaults; hand-made definitions may put them beside it.
    std::vector<const AccessBlock*> blocks;
    for (const auto& child : object.children)
        blocks.push_back(child.get());
    for (const AccessBlock* member : object.Members())
        blocks.push_back(member);
    for (const AccessBlock* child : blocks) {
        if (!IsSectionType(child->type) || (!m_isReport && !IsFormViewSection(child->type)))
            continue;
        if (!child->Flag("Visible", true))
            continue;
        AccessSectionView section;
        section.block = child;
        section.type = child->type;
        section.name = child->Text("Name").empty() ? child->type : child->Text("Name");
        section.headerBar = m_isReport ? kSectionBarHeight : 0;
        section.top = top;
        section.height = TwipsToPixels(child->Number("Height", 0));
        top += section.headerBar + section.height;
        m_sections.push_back(section);
    }
    // Controls keep their blocks' addresses; the sections' list no longer moves.
    for (const AccessSectionView& section : m_sections) {
        for (const AccessBlock* member : section.block->Members()) {
            AccessControlView& control = AddControl(*member, section, nullptr);
            m_top.push_back(&control);
            // A control's attached label stands beside it.
            for (const AccessBlock* inner : member->Members()) {
                if (EqualsNoCase(inner->type, "Label")) {
                    AccessControlView& label = AddControl(*inner, section, nullptr);
                    label.labelOf = &control;
                    m_top.push_back(&label);
                }
            }
        }
    }
}

AccessControlView& CW_AccessFormProcessor::AddControl(const AccessBlock& block, const AccessSectionView& section,
    AccessControlView* container)
{
    auto control = std::make_unique<AccessControlView>();
    control->block = &block;
    control->type = block.type;
    control->name = block.Text("Name");
    control->section = &section;
    control->container = container;
    control->left = TwipsToPixels(block.Number("Left", 0));
    control->top = section.top + section.headerBar + TwipsToPixels(block.Number("Top", 0));
    control->width = TwipsToPixels(block.Number("Width", 0));
    control->height = TwipsToPixels(block.Number("Height", 0));
    AccessControlView& added = *control;
    m_controls.push_back(std::move(control));
    if (EqualsNoCase(block.type, "OptionGroup")) {
        for (const AccessBlock* member : block.Members()) {
            // The group's own label is attached to the group, its members' labels to them.
            if (EqualsNoCase(member->type, "Label"))
                continue;
            AccessControlView& inner = AddControl(*member, section, &added);
            added.children.push_back(&inner);
            for (const AccessBlock* label : member->Members()) {
                if (!EqualsNoCase(label->type, "Label"))
                    continue;
                AccessControlView& labelView = AddControl(*label, section, &added);
                labelView.labelOf = &inner;
                added.children.push_back(&labelView);
            }
        }
    } else if (IsTab(block.type)) {
        for (const AccessBlock* page : block.Blocks("Page")) {
            AccessControlView& pageView = AddControl(*page, section, &added);
            added.children.push_back(&pageView);
            for (const AccessBlock* member : page->Members()) {
                AccessControlView& inner = AddControl(*member, section, &added);
                pageView.children.push_back(&inner);
                for (const AccessBlock* label : member->Members()) {
                    if (!EqualsNoCase(label->type, "Label"))
                        continue;
                    AccessControlView& labelView = AddControl(*label, section, &added);
                    labelView.labelOf = &inner;
                    pageView.children.push_back(&labelView);
                }
            }
        }
    }
    return added;
}

int CW_AccessFormProcessor::SectionsHeight() const
{
    int height = 0;
    for (const AccessSectionView& section : m_sections)
        height += section.headerBar + section.height;
    return height;
}

IHostObject* CW_AccessFormProcessor::Object(const AccessControlView* control)
{
    if (!control)
        return m_component.get();
    auto& object = m_objects[control];
    if (!object)
        object = std::make_unique<ControlObject>(control);
    return object.get();
}

const AccessControlView* CW_AccessFormProcessor::ControlOf(IHostObject* object) const
{
    auto* found = dynamic_cast<ControlObject*>(object);
    return found ? found->control : nullptr;
}

std::string CW_AccessFormProcessor::WalkTypeName(const AccessControlView& control) const
{
    if (IsTab(control.type))
        return "TabControl";
    if (EqualsNoCase(control.type, "Subform") || EqualsNoCase(control.type, "Subreport"))
        return m_isReport ? "Subreport" : "Subform";
    return control.type;
}

// --- the form ---

IHostObject* CW_AccessFormProcessor::FindActualFormOfComponent(IHostObject* component, bool a, bool b)
{
    return m_isReport ? nullptr : m_component.get();
}

IHostObject* CW_AccessFormProcessor::FindActualReportOfComponent(IHostObject* component, bool a, bool b)
{
    return m_isReport ? m_component.get() : nullptr;
}

void CW_AccessFormProcessor::myDoevents()
{
    LogicLoop().RunPending();
}

bool CW_AccessFormProcessor::HasProperty(IHostObject* object, const std::string& name)
{
    if (object == m_component.get())
        return EqualsNoCase(name, "Name") || m_definition.Object().Has(name);
    const AccessControlView* control = ControlOf(object);
    if (!control)
        return false;
    for (const char* always : { "Name", "Left", "Top", "Width", "Height" })
        if (EqualsNoCase(name, always))
            return true;
    return control->block->Has(name);
}

std::string CW_AccessFormProcessor::PropertyValue(IHostObject* object, const std::string& name)
{
    if (object == m_component.get())
        return EqualsNoCase(name, "Name") ? m_name : m_definition.Object().Text(name);
    const AccessControlView* control = ControlOf(object);
    if (!control)
        return {};
    Rect rect = GetControlRectangleInTwips(m_component.get(), object);
    if (EqualsNoCase(name, "Left"))
        return std::to_string(rect.left);
    if (EqualsNoCase(name, "Top"))
        return std::to_string(rect.top);
    if (EqualsNoCase(name, "Width"))
        return std::to_string(rect.width);
    if (EqualsNoCase(name, "Height"))
        return std::to_string(rect.height);
    return control->block->Text(name);
}

std::string CW_AccessFormProcessor::ComponentCaptionGet(IHostObject* form)
{
    std::string caption = m_definition.Object().Text("Caption");
    return caption.empty() ? m_name : caption;
}

std::string CW_AccessFormProcessor::ComponentWindowCaptionGet(IHostObject* form)
{
    return m_name + (m_isReport ? " : Report" : " : Form");
}

std::string CW_AccessFormProcessor::ControlNameGet(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view ? view->name : std::string();
}

std::string CW_AccessFormProcessor::ControlCaptionGet(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    if (!view)
        return {};
    std::string caption = view->block->Text("Caption");
    if (caption.empty()) {
        // A control is named by the label attached to it.
        for (const auto& other : m_controls) {
            if (other->labelOf == view) {
                caption = other->block->Text("Caption");
                break;
            }
        }
    }
    if (!caption.empty())
        return RemoveAll(caption, "&");
    return NameAsCaption(view->name);
}

std::string CW_AccessFormProcessor::ObjectTypeName(IHostObject* object)
{
    if (object == m_component.get())
        return m_isReport ? "Report" : "Form";
    const AccessControlView* control = ControlOf(object);
    return control ? WalkTypeName(*control) : std::string();
}

CControlsCollection CW_AccessFormProcessor::Filtered(const std::vector<AccessControlView*>& controls)
{
    CControlsCollection collection;
    for (const AccessControlView* control : controls)
        if (!IsFilteredControlType(WalkTypeName(*control)) && !EqualsNoCase(control->type, "Page"))
            collection.Add(Object(control));
    return collection;
}

CControlsCollection CW_AccessFormProcessor::ControlsCollectionGet(IHostObject* object)
{
    if (object == m_component.get())
        return Filtered(m_top);
    const AccessControlView* control = ControlOf(object);
    // A subform's controls belong to the form it shows.
    if (!control || IsTab(control->type) || EqualsNoCase(control->type, "Subform") || EqualsNoCase(control->type, "Subreport"))
        return {};
    return Filtered(control->children);
}

std::string CW_AccessFormProcessor::ControlSeedTextGet(IHostObject* form, IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    if (!view)
        return {};
    std::string text = view->block->Text("StatusBarText");
    return text.empty() ? view->block->Text("ControlTipText") : text;
}

// --- tab controls ---

void CW_AccessFormProcessor::SetFirstPageVisibleForTabControls(IHostObject* form)
{
    for (const auto& control : m_controls)
        if (IsTab(control->type))
            m_shownPages[control.get()] = 0;
    myDoevents();
}

int CW_AccessFormProcessor::ShownPage(const AccessControlView& tabControl) const
{
    auto shown = m_shownPages.find(&tabControl);
    return shown == m_shownPages.end() ? 0 : shown->second;
}

IHostObject* CW_AccessFormProcessor::TabPageActivate(IHostObject* control, int page)
{
    const AccessControlView* view = ControlOf(control);
    if (!view || !IsTab(view->type) || page < 0 || page >= static_cast<int>(view->children.size()))
        return nullptr;
    m_shownPages[view] = page;
    myDoevents();
    return control;
}

std::string CW_AccessFormProcessor::TabPageCaptionGet(IHostObject* control, int page, bool activate)
{
    if (activate)
        TabPageActivate(control, page);
    const AccessControlView* view = ControlOf(control);
    if (!view || page < 0 || page >= static_cast<int>(view->children.size()))
        return {};
    const AccessBlock& block = *view->children[static_cast<std::size_t>(page)]->block;
    std::string caption = block.Text("Caption");
    return RemoveAll(caption.empty() ? block.Text("Name") : caption, "&");
}

std::string CW_AccessFormProcessor::TabControlCaptionGet(IHostObject* control)
{
    return RemoveAll(ControlNameGet(control), "&");
}

int CW_AccessFormProcessor::TabControlPagesQtyGet(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view && IsTab(view->type) ? static_cast<int>(view->children.size()) : 0;
}

CControlsCollection CW_AccessFormProcessor::TabPageControlsCollectionGet(IHostObject* control, int page)
{
    const AccessControlView* view = ControlOf(control);
    if (!view || page < 0 || page >= static_cast<int>(view->children.size()))
        return {};
    return Filtered(view->children[static_cast<std::size_t>(page)]->children);
}

IClientFormProcessor::Rect CW_AccessFormProcessor::TabRect(const AccessControlView& tabControl, int page) const
{
    double points = tabControl.block->Number("FontSize", 8);
    int left = 2;
    for (int i = 0; i < static_cast<int>(tabControl.children.size()); ++i) {
        const AccessBlock& block = *tabControl.children[static_cast<std::size_t>(i)]->block;
        std::string caption = block.Text("Caption").empty() ? block.Text("Name") : block.Text("Caption");
        int width = std::max(EstimateTextWidth(caption, points) + 12, 20);
        if (i == page)
            return { left, 2, width, kTabHeight - 2 };
        left += width;
    }
    return {};
}

// --- measures ---

int CW_AccessFormProcessor::BorderStyle(IHostObject* form)
{
    // 0 none, 1 thin, 2 sizable (the default), 3 dialog; a report's window is sizable.
    if (m_isReport)
        return 2;
    int style = static_cast<int>(m_definition.Object().Number("BorderStyle", 2));
    return style >= 0 && style <= 3 ? style : 2;
}

void CW_AccessFormProcessor::GetComponentWidthAndHeightInTwips(IHostObject* form, int& width, int& height)
{
    int style = BorderStyle(form);
    int frame = m_metrics.FrameWidth(style);
    width = 2 * frame + m_recordSelector + m_width;
    height = 2 * frame + m_metrics.GetFormNCM(style) + SectionsHeight() + m_navigation;
}

int CW_AccessFormProcessor::FormClientAreaOffsetX(IHostObject* form)
{
    return m_metrics.FrameWidth(BorderStyle(form)) + m_recordSelector;
}

int CW_AccessFormProcessor::FormClientAreaOffsetY(IHostObject* form)
{
    int style = BorderStyle(form);
    return m_metrics.FrameWidth(style) + m_metrics.GetFormNCM(style);
}

std::string CW_AccessFormProcessor::FormSectionsXML(IHostObject* form)
{
    std::vector<std::string> lines;
    for (const AccessSectionView& section : m_sections) {
        std::string line = "<Section Name = \"" + XmlEncodeChars(section.name) + "\" Height = \""
            + std::to_string(section.height) + "\" ";
        if (m_recordSelector > 0)
            line += "FormRecordSelectorWidth = \"" + std::to_string(m_recordSelector) + "\" ";
        line += "ClientAreaOffset = \"0, " + std::to_string(section.top) + "\" DesignTimeHeaderHeight = \""
            + std::to_string(section.headerBar) + "\" />";
        lines.push_back(line);
    }
    return Join(lines, kCrLfText);
}

int CW_AccessFormProcessor::ControlSectionOffsetY(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view ? view->section->top : 0;
}

int CW_AccessFormProcessor::ControlSectionOffsetX(IHostObject* control)
{
    return 0;
}

int CW_AccessFormProcessor::ControlSectionTitleHeight(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view ? view->section->headerBar : 0;
}

std::string CW_AccessFormProcessor::ControlSectionName(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view ? view->section->name : std::string();
}

void CW_AccessFormProcessor::GetControlIndexes(IHostObject* control, int& tabIndex, int& index)
{
    const AccessControlView* view = ControlOf(control);
    tabIndex = view ? static_cast<int>(view->block->Number("TabIndex", 0)) : 0;
    index = 0;
}

std::string CW_AccessFormProcessor::GetLabelControlParentName(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view && view->labelOf ? view->labelOf->name : std::string();
}

IClientFormProcessor::Rect CW_AccessFormProcessor::GetControlRectangleInTwips(IHostObject* form, IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    if (!view)
        return {};
    int left = view->left;
    int top = view->top;
    // Access measures every control from its section; the walk wants it from its container.
    if (view->container) {
        left -= view->container->left;
        top -= view->container->top;
    }
    return { left, top, view->width, view->height };
}

IClientFormProcessor::Rect CW_AccessFormProcessor::GetTabPageTabRectangleInTwips(int page, IHostObject* form,
    IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    if (!view)
        return {};
    Rect own = GetControlRectangleInTwips(form, control);
    Rect tab = TabRect(*view, page);
    return { own.left + tab.left, own.top + tab.top, tab.width, tab.height };
}

int CW_AccessFormProcessor::GetComponentHelpContextId(IHostObject* form, bool a)
{
    return static_cast<int>(m_definition.Object().Number("HelpContextId", 0));
}

int CW_AccessFormProcessor::GetControlHelpContextId(IHostObject* control)
{
    const AccessControlView* view = ControlOf(control);
    return view ? static_cast<int>(view->block->Number("HelpContextId", 0)) : 0;
}

std::string CW_AccessFormProcessor::FormMenusXML(IHostObject* form)
{
    return "<Menu>" + kCrLfText + "</Menu>";
}

}  // namespace scriv
