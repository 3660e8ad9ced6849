#include "model/Serializers.h"

#include <chrono>

#include "foundation/DateTime.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

// The source project as the host names it: its name and its type name.
struct SourceProjectNames {
    std::string name;
    std::string typeName;
};

SourceProjectNames CurrentSourceProjectNames()
{
    IHostAgent* agent = CurrentHostAgent();
    if (!agent)
        return {};
    return { agent->CurrentSourceProjectName(), agent->CurrentSourceProjectTypeName() };
}

std::string FormNamePrefix()
{
    IHostAgent* agent = CurrentHostAgent();
    return agent ? agent->FormNamePrefix() : std::string();
}

bool FileNameTaken(const CHelpPrjTree& tree, const std::string& fileName)
{
    return tree.Root() && tree.Root()->NodeFileNameDefined(fileName);
}

// A page name no node of the tree has: the plain one, else with the host's form
// prefix, else with the time of day.
std::string UniqueFormFileName(const CHelpPrjTree& tree, const std::string& projectName, const std::string& formName)
{
    std::string fileName = XmlEncodeChars(projectName) + "_Form_" + GetComponentFileName(formName) + ".htm";
    if (!FileNameTaken(tree, fileName))
        return fileName;
    fileName = FormNamePrefix() + "_" + fileName;
    if (!FileNameTaken(tree, fileName))
        return fileName;
    return FileBaseName(fileName) + "_" + FormatLocalTime(std::chrono::system_clock::now(), "%H%M%S") + ".htm";
}

}  // namespace

// --- clsVBFormsList ---

std::string clsVBFormsList::XmlText() const
{
    std::string text;
    for (const std::string& item : m_collection)
        text += item + std::string(kCrLf);
    return text;
}

const std::vector<std::string>& clsVBFormsList::XmlCollection(CHelpPrjTree& tree, IHelpPrjSourceProject& sourceProject)
{
    SourceProjectNames source = CurrentSourceProjectNames();
    std::string encodedProject = XmlEncodeChars(source.name);
    bool byName = Parameters().IdentifyControls() != 0;
    for (const auto& entry : sourceProject.Forms()) {
        const CHelpPrjSourceItem& form = *entry.value;
        // Encoded like the title: a caption may hold quotes and brackets.
        std::string caption = XmlEncodeChars(byName ? form.FormName : form.FormCaption);
        std::string fileName = UniqueFormFileName(tree, source.name, form.FormName);
        // The blank inside the type value is part of the format.
        std::string item = "<FORM Name=\"" + form.FormName + "\" Key=\"" + encodedProject + ".Form_" + form.FormName
            + "\" caption=\"" + caption + "\" icon = \"form" + "\" ProcessCode=\"999" + "\" GeneratedHTMLFile = \""
            + fileName + "\" TemplateHTMLFile = \"Form.htm" + "\" title = \"" + XmlEncodeChars(form.FormCaption)
            + "\" type = \"2 \"";
        if (!form.GUIObjectSubType.empty())
            item += " GUIObjectSubType = \"" + form.GUIObjectSubType + "\" ";
        item += " SourceProjectType = \"" + source.typeName + "\" ";
        item += " SourceProjectName = \"" + source.name + "\" ";
        item += "/>";
        m_collection.push_back(std::move(item));
    }
    return m_collection;
}

// --- clsObjectsList ---

namespace {

struct ObjectKind {
    const char* kind;
    int type;
    const char* serializer;
};

constexpr ObjectKind kObjectKinds[] = {
    { "Report", 3, "GetVBReportsXml" },
    { "Table", 0, "GetTablesXml" },
    { "Query", 1, "GetQueriesXml" },
    { "Macro", 4, "GetMacrosXml" },
    { "Worksheet", 81, "GetWorksheetsXml" },
    { "Chart", 82, "GetChartsXml" },
};

SourceItems* ItemsOfKind(IHelpPrjSourceProject& source, const std::string& kind)
{
    if (kind == "Report")
        return &source.Reports();
    if (kind == "Table")
        return &source.Tables();
    if (kind == "Query")
        return &source.Queries();
    if (kind == "Macro")
        return &source.Macros();
    if (kind == "Worksheet")
        return &source.Worksheets();
    if (kind == "Chart")
        return &source.Charts();
    return nullptr;
}

// A page name no node has: the project, the kind and the object, else with the time of day.
std::string UniqueObjectFileName(const CHelpPrjTree& tree, const std::string& projectName, const std::string& kind,
    const std::string& name)
{
    // Tables and charts are named with blanks, which a page name of compiled help may not hold.
    std::string fileName = XmlEncodeChars(projectName) + "_" + kind + "_" + GetComponentFileName(ReplaceAll(name, " ", "_"))
        + ".htm";
    if (!FileNameTaken(tree, fileName))
        return fileName;
    return FileBaseName(fileName) + "_" + FormatLocalTime(std::chrono::system_clock::now(), "%H%M%S") + ".htm";
}

}  // namespace

std::string clsObjectsList::XmlText() const
{
    std::string text;
    for (const std::string& item : m_collection)
        text += item + std::string(kCrLf);
    return text;
}

const std::vector<std::string>& clsObjectsList::XmlCollection(CHelpPrjTree& tree, IHelpPrjSourceProject& sourceProject)
{
    SourceItems* items = ItemsOfKind(sourceProject, m_kind);
    if (!items)
        return m_collection;
    int type = -1;
    for (const ObjectKind& kind : kObjectKinds)
        if (m_kind == kind.kind)
            type = kind.type;
    SourceProjectNames source = CurrentSourceProjectNames();
    std::string encodedProject = XmlEncodeChars(source.name);
    bool byName = Parameters().IdentifyControls() != 0;
    std::string tag = ToUpper(m_kind);
    for (const auto& entry : *items) {
        const CHelpPrjSourceItem& object = *entry.value;
        std::string name = XmlEncodeChars(object.FormName);
        std::string caption = XmlEncodeChars(byName ? object.FormName : object.FormCaption);
        std::string item = "<" + tag + " Name=\"" + name + "\" Key=\"" + encodedProject + "." + m_kind + "_" + name
            + "\" caption=\"" + caption + "\" icon = \"" + ToLower(m_kind) + "\" ProcessCode=\"999\" GeneratedHTMLFile = \""
            + UniqueObjectFileName(tree, source.name, m_kind, object.FormName) + "\" title = \""
            + XmlEncodeChars(object.FormCaption) + "\" type = \"" + std::to_string(type) + " \"";
        item += " SourceProjectType = \"" + source.typeName + "\" ";
        item += " SourceProjectName = \"" + source.name + "\" ";
        item += "/>";
        m_collection.push_back(std::move(item));
    }
    return m_collection;
}

// --- CHelpPrjTreeCF ---

std::unique_ptr<IXmlSerializer> CHelpPrjTreeCF::CreateObject(const std::string& name)
{
    if (name == "GetVBFormsXml")
        return std::make_unique<clsVBFormsList>();
    return nullptr;
}

std::unique_ptr<IXmlSerializer> CHelpPrjTreeCF::CreateFormsListObject()
{
    return std::make_unique<clsVBFormsList>();
}

// --- CHelpPrjObjectsCF ---

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateObject(const std::string& name)
{
    for (const ObjectKind& kind : kObjectKinds)
        if (name == kind.serializer)
            return std::make_unique<clsObjectsList>(kind.kind);
    return CHelpPrjTreeCF::CreateObject(name);
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateReportsListObject()
{
    return std::make_unique<clsObjectsList>("Report");
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateTablesListObject()
{
    return std::make_unique<clsObjectsList>("Table");
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateQueriesListObject()
{
    return std::make_unique<clsObjectsList>("Query");
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateMacrosListObject()
{
    return std::make_unique<clsObjectsList>("Macro");
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateWorksheetsListObject()
{
    return std::make_unique<clsObjectsList>("Worksheet");
}

std::unique_ptr<IXmlSerializer> CHelpPrjObjectsCF::CreateChartsListObject()
{
    return std::make_unique<clsObjectsList>("Chart");
}

}  // namespace scriv
