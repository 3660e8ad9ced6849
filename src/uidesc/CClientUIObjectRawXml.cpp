#include "uidesc/CClientUIObjectRawXml.h"

#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/IClientFormProcessor.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

bool IsContainer(const std::string& type)
{
    for (const char* name : { "Subform", "Subreport", "GroupBox", "Frame", "OptionGroup", "PictureBox", "Panel" })
        if (EqualsNoCase(type, name))
            return true;
    return false;
}

std::string Pair(int a, int b)
{
    return std::to_string(a) + ", " + std::to_string(b);
}

std::string DataObjectElement(int objectType)
{
    switch (objectType) {
    case 0:
        return "Table";
    case 1:
        return "Query";
    case 4:
        return "Macro";
    case 81:
        return "Worksheet";
    case 82:
        return "Chart";
    default:
        return {};
    }
}

// The description of a component as the host has it for its kind.
std::string ComponentDescription(int objectType, const std::string& name)
{
    IHostAgent* agent = CurrentHostAgent();
    if (!agent)
        return {};
    if (objectType == 1)
        return agent->GetQueryDescription(name);
    if (objectType == 4)
        return agent->GetMacroDescription(name);
    return agent->GetComponentDescription(name);
}

struct RootElement {
    std::string tag;
    std::string name;
    std::string caption;
    int width { 0 };
    int height { 0 };
    int borderStyle { 0 };
    int offsetX { 0 };
    int offsetY { 0 };
    std::string originalClassName;
    int helpContextId { 0 };
    std::string sourceProjectType;
    int hwnd { 0 };
    std::string description;

    std::string Write() const
    {
        std::string out = "<" + tag + " ";
        out += "Name = \"" + XmlEncodeChars(name) + "\" ";
        out += "Text = \"" + XmlEncodeChars(caption) + "\" ";
        out += "Caption = \"" + XmlEncodeChars(caption) + "\" ";
        out += "WindowSize = \"" + Pair(width, height) + "\" ";
        out += "BorderStyle = \"" + std::to_string(borderStyle) + "\" ";
        out += "NamePrefix = \"\" ";
        out += "ClientAreaOffset = \"" + Pair(offsetX, offsetY) + "\" ";
        out += "OriginalClassName = \"" + XmlEncodeChars(originalClassName) + "\" ";
        if (helpContextId >= 1 || helpContextId == -1)
            out += "HelpContextId = \"" + std::to_string(helpContextId) + "\" ";
        if (!sourceProjectType.empty())
            out += "SourceProjectType = \"" + sourceProjectType + "\" ";
        if (hwnd != 0)
            out += "HWND = \"" + std::to_string(hwnd) + "\" ";
        if (!description.empty())
            out += "Description = \"" + XmlEncodeChars(description) + "\" ";
        return out + ">" + kCrLfText;
    }
};

// A host's type name as an element name: what XML does not allow in a name
// becomes "_".
std::string ElementNameFor(const std::string& type)
{
    auto isNameChar = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-'
            || c == '.';
    };
    std::string name = type;
    std::replace_if(name.begin(), name.end(), [&](char c) { return !isNameChar(c); }, '_');
    if (name.empty() || !((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z') || name[0] == '_'))
        name.insert(0, "_");
    return name;
}

}  // namespace

std::string RawControlElement::Write() const
{
    std::string indent(static_cast<std::size_t>(level) * 2, ' ');
    std::string out = indent + "<" + type + " Name = \"" + XmlEncodeChars(name) + "\" Text = \"" + XmlEncodeChars(caption)
        + "\" Caption = \"" + XmlEncodeChars(caption) + "\" Location = \"" + Pair(left, top) + "\" Size = \""
        + Pair(width, height) + "\" ";
    if (!tabPageTab.empty())
        out += "TabPageTab = \"" + tabPageTab + "\" ";
    if (tabIndex > -1)
        out += "TabIndex = \"" + std::to_string(tabIndex) + "\" ";
    if (index > 0)
        out += "Index = \"" + std::to_string(index) + "\" ";
    if (helpContextId > 0)
        out += "HelpContextId = \"" + std::to_string(helpContextId) + "\" ";
    if (!description.empty())
        out += "Description = \"" + XmlEncodeChars(description) + "\" ";
    if (!sectionName.empty())
        out += "SectionName = \"" + sectionName + "\" ";
    if (!parentControlName.empty())
        out += "ParentControlName = \"" + XmlEncodeChars(parentControlName) + "\" ";
    if (!originalClassName.empty())
        out += "OriginalClassName = \"" + originalClassName + "\" ";
    if (level > 0)
        out += "Level = \"" + std::to_string(level) + "\" ";
    if (tabPageIndex > -1)
        out += "TabPageIndex = \"" + std::to_string(tabPageIndex) + "\" ";
    if (children.empty())
        return out + "/>";
    return out + ">" + kCrLfText + indent + "<Controls>" + kCrLfText + children + kCrLfText + indent + "</Controls>"
        + kCrLfText + indent + "</" + type + ">";
}

std::string CClientUIObjectRawXml::Get_(IClientFormProcessor& processor, int objectType, IHostObject* component,
    int hostAppIdeHwnd, bool isInDesignView, const std::string& sourceProjectTypeName, bool keepSourceObjectOpened,
    bool trace)
{
    if (!DataObjectElement(objectType).empty())
        return Get1_(processor, objectType, component, processor.PropertyValue(component, "Name"), sourceProjectTypeName);
    m_processor = &processor;
    std::string name = processor.PropertyValue(component, "Name");
    bool isForm = objectType == 2;
    m_form = isForm ? processor.FindActualFormOfComponent(component, false, false)
                    : processor.FindActualReportOfComponent(component, false, false);
    processor.myDoevents();
    if (!m_form)
        return {};

    RootElement root;
    root.tag = isForm ? "Form" : "Report";
    root.name = name;
    root.originalClassName = processor.ObjectTypeName(m_form);
    processor.GetComponentWidthAndHeightInTwips(m_form, root.width, root.height);
    root.offsetX = processor.FormClientAreaOffsetX(m_form);
    root.offsetY = processor.FormClientAreaOffsetY(m_form);
    root.hwnd = processor.GetComponentHwnd(component, false, false);
    if (trace)
        Trace("Get_(1): hwnd = " + std::to_string(root.hwnd));
    root.helpContextId = processor.GetComponentHelpContextId(m_form, false);
    root.caption = processor.ComponentCaptionGet(m_form);
    if (trace)
        Trace("Get_(2): caption = " + root.caption);
    if (root.caption.empty()) {
        root.caption = processor.ComponentCaptionGet(component);
        if (trace)
            Trace("Get_(3): caption = " + root.caption);
    }
    if (root.caption.empty()) {
        root.caption = name;
        if (trace)
            Trace("Get_(4): caption = " + root.caption);
    }
    root.borderStyle = processor.BorderStyle(m_form);
    root.sourceProjectType = sourceProjectTypeName;
    root.description = ComponentDescription(objectType, name);

    std::string out = root.Write();
    std::string sections = processor.FormSectionsXML(m_form);
    if (!sections.empty())
        out += "<Sections>" + kCrLfText + sections + kCrLfText + "</Sections>" + kCrLfText;
    out += "<Controls>" + kCrLfText;
    processor.myDoevents();
    processor.SetFirstPageVisibleForTabControls(m_form);
    std::vector<std::string> elements;
    for (IHostObject* control : processor.ControlsCollectionGet(m_form)) {
        std::string element = WalkControl(control, 0);
        if (!element.empty())
            elements.push_back(element);
    }
    out += Join(elements, kCrLfText);
    out += kCrLfText + "</Controls>" + kCrLfText + processor.FormMenusXML(m_form) + kCrLfText + "</" + root.tag + ">";
    if (!keepSourceObjectOpened) {
        if (isForm)
            processor.ActualFormClose(m_form, false, false);
        else
            processor.ActualReportClose(m_form, false, false);
    }
    return out;
}

std::string CClientUIObjectRawXml::WalkControl(IHostObject* control, int level)
{
    IClientFormProcessor& processor = *m_processor;
    RawControlElement element;
    element.name = processor.ControlNameGet(control);
    element.caption = processor.ControlCaptionGet(control);
    std::string type = processor.ObjectTypeName(control);
    if (element.caption == "-" || EqualsNoCase(type, "menu") || EqualsNoCase(type, "mainmenu"))
        return {};
    element.originalClassName = type;
    element.type = ElementNameFor(type);
    element.level = level;

    bool tabControl = EqualsNoCase(type, "TabControl") || EqualsNoCase(type, "SSTab");
    bool described = false;
    if (IsContainer(type)) {
        std::vector<std::string> children;
        for (IHostObject* child : processor.ControlsCollectionGet(control)) {
            std::string text = WalkControl(child, level + 1);
            if (!text.empty())
                children.push_back(text);
        }
        element.children = Join(children, kCrLfText);
    } else if (tabControl) {
        element.type = "TabControl";
        element.children = WalkTabControl(control, level, element.description);
        described = true;
    } else if (EqualsNoCase(type, "Toolbar")) {
        element.children = WalkToolbar(control, level);
    }
    if (!described)
        element.description = processor.ControlSeedTextGet(m_form, control);

    processor.GetControlIndexes(control, element.tabIndex, element.index);
    IClientFormProcessor::Rect rect = processor.GetControlRectangleInTwips(m_form, control);
    element.left = rect.left;
    element.top = rect.top;
    element.width = rect.width;
    element.height = rect.height;
    element.sectionName = processor.ControlSectionName(control);
    element.parentControlName = processor.GetLabelControlParentName(control);
    element.helpContextId = processor.GetControlHelpContextId(control);
    return element.Write();
}

std::string CClientUIObjectRawXml::WalkTabControl(IHostObject* control, int level, std::string& description)
{
    IClientFormProcessor& processor = *m_processor;
    int pages = processor.TabControlPagesQtyGet(control);
    std::vector<std::string> pageElements;
    for (int page = 0; page < pages; ++page) {
        if (!processor.TabPageActivate(control, page))
            continue;
        RawControlElement pageElement;
        pageElement.type = "Page";
        pageElement.caption = processor.TabPageCaptionGet(control, page, false);
        std::vector<std::string> children;
        for (IHostObject* child : processor.TabPageControlsCollectionGet(control, page)) {
            // The other pages' controls stand at a negative Left while this page shows.
            if (!processor.HasProperty(child, "Left") || ToInt(processor.PropertyValue(child, "Left")) < 0)
                continue;
            std::string text = WalkControl(child, level + 2);
            if (!text.empty())
                children.push_back(text);
        }
        processor.TabPageActivate(control, page);
        int tabIndex = -1;
        int index = -1;
        processor.GetControlIndexes(control, tabIndex, index);
        IClientFormProcessor::Rect rect = processor.TabPageRectangle(m_form, control, page);
        description = processor.ControlSeedTextGet(m_form, control);
        pageElement.sectionName = processor.ControlSectionName(control);
        pageElement.helpContextId = processor.GetControlHelpContextId(control);
        IClientFormProcessor::Rect tab = processor.GetTabPageTabRectangleInTwips(page, m_form, control);
        pageElement.tabPageTab = std::to_string(tab.left) + "," + std::to_string(tab.top) + "," + std::to_string(tab.width)
            + "," + std::to_string(tab.height);
        pageElement.name = std::to_string(page) + "_" + processor.ControlNameGet(control);
        pageElement.left = rect.left;
        pageElement.top = rect.top;
        pageElement.width = rect.width;
        pageElement.height = rect.height;
        pageElement.level = level + 1;
        pageElement.tabPageIndex = page;
        pageElement.children = Join(children, kCrLfText);
        pageElements.push_back(pageElement.Write());
    }
    return Join(pageElements, kCrLfText);
}

std::string CClientUIObjectRawXml::WalkToolbar(IHostObject* control, int level)
{
    IClientFormProcessor& processor = *m_processor;
    int count = processor.ToolbarButtonsQtyGet(control);
    std::vector<std::string> buttons;
    for (int i = 1; i <= count; ++i) {
        IHostObject* button = processor.ToolbarButton(control, i);
        if (!button)
            continue;
        RawControlElement element;
        element.type = "ToolbarButton";
        element.name = std::to_string(i) + "_" + processor.ControlNameGet(control);
        element.caption = processor.PropertyValue(button, "Caption");
        element.description = processor.ControlSeedTextGet(m_form, button);
        element.sectionName = processor.ControlSectionName(button);
        IClientFormProcessor::Rect rect = processor.GetToolbarButtonRectangleInTwips(i, m_form, control);
        element.left = rect.left;
        element.top = rect.top;
        element.width = rect.width;
        element.height = rect.height;
        element.level = level + 1;
        element.tabIndex = -1;
        element.tabPageIndex = -1;
        buttons.push_back(element.Write());
    }
    return Join(buttons, kCrLfText);
}

std::string CClientUIObjectRawXml::Get1_(IClientFormProcessor& processor, int objectType, IHostObject* component,
    const std::string& componentName, const std::string& sourceProjectTypeName)
{
    RootElement root;
    root.tag = DataObjectElement(objectType);
    root.name = componentName;
    root.caption = componentName;
    root.originalClassName = root.tag;
    root.helpContextId = processor.GetComponentHelpContextId(component, false);
    root.sourceProjectType = sourceProjectTypeName;
    root.description = ComponentDescription(objectType, componentName);
    std::string out = root.Write();
    out += "<Sections>" + kCrLfText + "</Sections>" + kCrLfText + "<Controls>" + kCrLfText;
    std::vector<std::string> fields;
    for (const IClientFormProcessor::Field& field : processor.FieldsCollectionGet(componentName, root.tag)) {
        RawControlElement element;
        element.type = "Field";
        element.name = field.name;
        element.caption = field.caption;
        element.description = field.description;
        element.tabIndex = field.tabIndex;
        element.originalClassName = "Field";
        element.level = 1;
        fields.push_back(element.Write());
    }
    out += Join(fields, kCrLfText);
    out += kCrLfText + "</Controls>" + kCrLfText + processor.FormMenusXML(component) + kCrLfText + "</" + root.tag + ">";
    return out;
}

bool IsFilteredControlType(const std::string& typeName)
{
    for (const char* name : { "Data", "HScrollBar", "Timer", "VScrollBar", "ImageList", "Line" })
        if (EqualsNoCase(typeName, name))
            return true;
    return false;
}

}  // namespace scriv
