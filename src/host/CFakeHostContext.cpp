#include "host/CFakeHostContext.h"

#include <sstream>

#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"

namespace scriv {

namespace {

constexpr const char* kComponentElements[] = { "Form", "Report", "Table", "Query", "Macro", "Worksheet", "Chart" };

bool IsComponentElement(const pugi::xml_node& node)
{
    for (const char* name : kComponentElements)
        if (EqualsNoCase(node.name(), name))
            return true;
    return false;
}

bool AttributeIsTrue(const pugi::xml_node& node, const char* name)
{
    std::string value = Trim(node.attribute(name).value());
    return EqualsNoCase(value, "true") || value == "1" || value == "-1";
}

}  // namespace

CFakeHostContext::CFakeHostContext()
    : m_document(std::make_unique<pugi::xml_document>())
{
    m_document->append_child("Host");
}

CFakeHostContext::CFakeHostContext(std::unique_ptr<pugi::xml_document> document)
    : m_document(std::move(document))
{
    for (pugi::xml_node project : m_document->document_element().children("Project")) {
        if (m_currentProject.empty() || AttributeIsTrue(project, "Active"))
            m_currentProject = project.attribute("Name").value();
    }
}

std::unique_ptr<CFakeHostContext> CFakeHostContext::FromXml(const std::string& xml)
{
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_parse_result result = document->load_string(xml.c_str());
    if (!result)
        Raise(status::kGeneralFailure, "CFakeHostContext.FromXml",
            std::string("The host description does not parse: ") + result.description());
    if (!EqualsNoCase(document->document_element().name(), "Host"))
        Raise(status::kGeneralFailure, "CFakeHostContext.FromXml", "The host description has no Host element.");
    return std::unique_ptr<CFakeHostContext>(new CFakeHostContext(std::move(document)));
}

std::unique_ptr<CFakeHostContext> CFakeHostContext::FromFile(const std::string& path)
{
    auto text = ReadFileText(path);
    if (!text)
        Raise(status::kGeneralFailure, "CFakeHostContext.FromFile", "Can't read the host description '" + path + "'.");
    try {
        return FromXml(*text);
    } catch (const ScrivError& error) {
        Raise(error.Code(), error.Source(), error.Description() + " '" + path + "'");
    }
}

pugi::xml_node CFakeHostContext::CurrentProjectNode() const
{
    for (pugi::xml_node project : m_document->document_element().children("Project"))
        if (EqualsNoCase(project.attribute("Name").value(), m_currentProject))
            return project;
    return {};
}

pugi::xml_node CFakeHostContext::FindComponent(const std::string& name) const
{
    if (name.empty())
        return {};
    for (pugi::xml_node child : CurrentProjectNode().children())
        if (IsComponentElement(child) && EqualsNoCase(child.attribute("Name").value(), name))
            return child;
    return {};
}

int CFakeHostContext::CountCalls(const std::string& operation) const
{
    int count = 0;
    for (const std::string& call : m_calls)
        count += call == operation ? 1 : 0;
    return count;
}

bool CFakeHostContext::IDEDisplayModelIsMDI()
{
    Record("IDEDisplayModelIsMDI");
    pugi::xml_attribute mdi = m_document->document_element().attribute("DisplayModelMDI");
    return !mdi || AttributeIsTrue(m_document->document_element(), "DisplayModelMDI");
}

std::string CFakeHostContext::SourceProjectsList()
{
    Record("SourceProjectsList");
    std::vector<std::string> names;
    for (pugi::xml_node project : m_document->document_element().children("Project"))
        names.emplace_back(project.attribute("Name").value());
    return Join(names, "|");
}

void CFakeHostContext::SetCurrentSourceProject(const std::string& name)
{
    Record("SetCurrentSourceProject");
    if (!name.empty()) {
        for (pugi::xml_node project : m_document->document_element().children("Project"))
            if (EqualsNoCase(project.attribute("Name").value(), name))
                m_currentProject = project.attribute("Name").value();
        return;
    }
    // An empty name takes the host's active project.
    for (pugi::xml_node project : m_document->document_element().children("Project"))
        if (AttributeIsTrue(project, "Active"))
            m_currentProject = project.attribute("Name").value();
}

bool CFakeHostContext::AreThereAnySourceProjectsOpened()
{
    Record("AreThereAnySourceProjectsOpened");
    return static_cast<bool>(m_document->document_element().child("Project"));
}

std::string CFakeHostContext::CurrentSourceProjectFullPath()
{
    Record("CurrentSourceProjectFullPath");
    return CurrentProjectNode().attribute("FullPath").value();
}

std::string CFakeHostContext::CurrentSourceProjectName()
{
    Record("CurrentSourceProjectName");
    return CurrentProjectNode().attribute("Name").value();
}

std::string CFakeHostContext::CurrentSourceProjectTypeName()
{
    Record("CurrentSourceProjectTypeName");
    pugi::xml_node project = CurrentProjectNode();
    if (!project)
        return {};
    std::string type = project.attribute("Type").value();
    return type.empty() ? "VB6" : type;
}

bool CFakeHostContext::CurrentSourceProjectIsDirty()
{
    Record("CurrentSourceProjectIsDirty");
    return AttributeIsTrue(CurrentProjectNode(), "Dirty");
}

std::string CFakeHostContext::CurrentSourceProjectLocation()
{
    Record("CurrentSourceProjectLocation");
    return FolderOf(CurrentProjectNode().attribute("FullPath").value());
}

void CFakeHostContext::HideIDEWindows()
{
    Record("HideIDEWindows");
}

void CFakeHostContext::ResetIDEWindows()
{
    Record("ResetIDEWindows");
}

void CFakeHostContext::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    Record("SetHelpFileForCurrentSourceProject");
    m_helpFile = FileNameOf(helpFileFullPath);
    if (pugi::xml_node project = CurrentProjectNode()) {
        pugi::xml_attribute attribute = project.attribute("HelpFile");
        if (!attribute)
            attribute = project.append_attribute("HelpFile");
        attribute.set_value(m_helpFile.c_str());
    }
}

void CFakeHostContext::SaveMakeRun(bool saveAppChanges, bool makeApp, bool runApp)
{
    Record("SaveMakeRun");
}

void CFakeHostContext::ProgressMeterInit(const std::string& message, int maxVal)
{
    Record("ProgressMeterInit");
    // The message arrives escaped once more than the protocol needs.
    UserInterface().ProgressInit(DecodeHtmlChars(message), maxVal);
    m_progressShown = true;
}

void CFakeHostContext::ProgressMeterRemove()
{
    Record("ProgressMeterRemove");
    if (m_progressShown)
        UserInterface().ProgressDispose();
    m_progressShown = false;
}

void CFakeHostContext::ProgressMeterToggle(bool onFlag)
{
    Record("ProgressMeterToggle");
}

void CFakeHostContext::ProgressMeterUpdate(int currentValue)
{
    Record("ProgressMeterUpdate");
    if (m_progressShown)
        UserInterface().ProgressUpdate({}, currentValue);
}

void CFakeHostContext::myDoevents()
{
    Record("myDoevents");
    LogicLoop().RunPending();
}

bool CFakeHostContext::ComponentExists(int compType, const std::string& compName)
{
    Record("ComponentExists");
    return static_cast<bool>(FindComponent(compName));
}

void CFakeHostContext::CloseComponent(int objType, const std::string& objName, bool saveFlag)
{
    Record("CloseComponent");
}

void CFakeHostContext::SetComponentHelp(int objType, const std::string& objName, int helpContextId)
{
    Record("SetComponentHelp");
    pugi::xml_node component = FindComponent(objName);
    if (!component)
        return;
    pugi::xml_attribute attribute = component.attribute("HelpContextId");
    if (!attribute)
        attribute = component.append_attribute("HelpContextId");
    attribute.set_value(helpContextId);
}

int CFakeHostContext::HelpContextIdOf(const std::string& component) const
{
    return FindComponent(component).attribute("HelpContextId").as_int();
}

int CFakeHostContext::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    Record("ActivateComponent");
    // A window handle here is only a number the logic stores and passes on.
    int handle = 100;
    for (pugi::xml_node child : CurrentProjectNode().children()) {
        if (IsComponentElement(child) && EqualsNoCase(child.attribute("Name").value(), objName))
            return handle;
        ++handle;
    }
    return 0;
}

bool CFakeHostContext::ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag)
{
    Record("ActivateControl");
    return true;
}

std::string CFakeHostContext::ProcessComponent(const ProcessComponentRequest& request)
{
    Record("ProcessComponent");
    pugi::xml_node component = FindComponent(request.componentName);
    if (!component || AttributeIsTrue(component, "Fails"))
        return {};
    std::ostringstream out;
    component.print(out, "  ", pugi::format_default | pugi::format_no_declaration, pugi::encoding_utf8);
    return out.str();
}

}  // namespace scriv
