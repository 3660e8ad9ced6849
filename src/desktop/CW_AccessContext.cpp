#include "desktop/CW_AccessContext.h"

#include "desktop/CAccessFormRenderer.h"
#include "desktop/RenderedWindows.h"
#include "foundation/CTraceLog.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "host/CXmlCommand.h"
#include "host/access/AccessDefinition.h"
#include "host/access/CDataObjectProcessor.h"
#include "host/access/CW_AccessFormProcessor.h"
#include "model/CScrivantParameters.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

const char* KindOf(int objectType)
{
    switch (objectType) {
    case 1:
        return "query";
    case 2:
        return "form";
    case 3:
        return "report";
    case 4:
        return "macro";
    default:
        return "";
    }
}

std::string Key(int objectType, const std::string& name)
{
    return std::to_string(objectType) + ":" + ToLower(name);
}

}  // namespace

std::unique_ptr<CW_AccessContext> CW_AccessContext::Open(const std::string& path)
{
    std::unique_ptr<CW_AccessContext> context(new CW_AccessContext());
    context->m_source = AccessSource::Open(path);
    return context;
}

CW_AccessContext::~CW_AccessContext() = default;

const AccessDefinition* CW_AccessContext::Definition(int objectType, const std::string& name)
{
    std::string key = Key(objectType, name);
    auto found = m_definitions.find(key);
    if (found != m_definitions.end())
        return found->second.get();
    std::string file = m_source.DefinitionFile(KindOf(objectType), name);
    if (file.empty())
        return nullptr;
    auto definition = std::make_unique<AccessDefinition>(AccessDefinition::Load(file));
    return m_definitions.emplace(key, std::move(definition)).first->second.get();
}

int CW_AccessContext::WindowHandle(int objectType, const std::string& name)
{
    int& handle = m_handles[Key(objectType, name)];
    if (handle == 0)
        handle = m_nextHandle++;
    return handle;
}

bool CW_AccessContext::CurrentSourceProjectIsMDEorADE()
{
    const std::string& database = m_source.DatabaseFile();
    return EndsWithNoCase(database, ".mde") || EndsWithNoCase(database, ".accde");
}

void CW_AccessContext::SetHelpFileForCurrentSourceProject(const std::string& helpFileFullPath)
{
    // The database is only read here; its help file property is not written.
    Trace("CW_AccessContext: the help file " + FileNameOf(helpFileFullPath) + " is not written into " + m_source.Name());
}

void CW_AccessContext::SaveMakeRun(bool, bool, bool)
{
    myDoevents();
}

bool CW_AccessContext::ComponentExists(int compType, const std::string& compName)
{
    if (m_source.FindTable(compName) || m_source.FindQuery(compName))
        return true;
    for (const char* kind : { "form", "report", "macro" })
        if (!m_source.DefinitionFile(kind, compName).empty())
            return true;
    return false;
}

void CW_AccessContext::CloseComponent(int objType, const std::string& objName, bool saveFlag)
{
    auto handle = m_handles.find(Key(objType, objName));
    if (handle != m_handles.end())
        RenderedWindows().Remove(handle->second);
}

void CW_AccessContext::SetComponentHelp(int objType, const std::string& objName, int helpContextId)
{
    // The exported definition is what goes back into the database (LoadFromText);
    // the database file itself is only read.
    std::string file = objType == 2 || objType == 3 ? m_source.DefinitionFile(KindOf(objType), objName) : std::string();
    if (file.empty() || !WriteObjectProperty(file, "HelpContextId", std::to_string(helpContextId))) {
        Trace("CW_AccessContext: help context id " + std::to_string(helpContextId) + " of " + objName
            + " is not written" + (file.empty() ? " (no exported definition)" : " into " + file));
        return;
    }
    // A definition already read takes the new value where it stands.
    auto read = m_definitions.find(Key(objType, objName));
    if (read != m_definitions.end())
        *read->second = AccessDefinition::Load(file);
}

void CW_AccessContext::Render(int objectType, const std::string& name)
{
    const AccessDefinition* definition = Definition(objectType, name);
    if (!definition)
        return;
    int handle = WindowHandle(objectType, name);
    CW_AccessFormProcessor processor(*definition, name, objectType == 3, handle);
    auto subforms = [this](const std::string& form) { return Definition(2, form); };
    RenderAccessWindow(handle, processor, subforms, m_shownPages[Key(objectType, name)], kMainWindowHandle);
}

int CW_AccessContext::ActivateComponent(int objType, const std::string& objName, bool forceOpenInDesignView,
    bool forceOpenAsHidden)
{
    if (objType != 2 && objType != 3)
        return 0;
    if (!Definition(objType, objName))
        return 0;
    m_shownPages[Key(objType, objName)].clear();
    Render(objType, objName);
    return WindowHandle(objType, objName);
}

bool CW_AccessContext::ActivateControl(const std::string& controlFullPath, bool runtimeFlag, bool setFocusFlag)
{
    // "Form.frmOrders.tabDetails.1_tabDetails.[1]" shows page 1 of tabDetails.
    std::vector<std::string> parts = Split(controlFullPath, ".");
    if (parts.size() < 5 || parts.back().size() < 3 || parts.back().front() != '[' || parts.back().back() != ']')
        return true;
    int type = EqualsNoCase(parts[0], "Report") ? 3 : 2;
    if (!Definition(type, parts[1]))
        return false;
    auto& pages = m_shownPages[Key(type, parts[1])];
    for (std::size_t i = 4; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        if (part.size() < 3 || part.front() != '[' || part.back() != ']')
            continue;
        std::string page = part.substr(1, part.size() - 2);
        if (!IsNumeric(page))
            return false;
        pages[parts[i - 2]] = ToInt(page);
    }
    Render(type, parts[1]);
    return true;
}

std::vector<IClientFormProcessor::Field> CW_AccessContext::FieldsOf(int objectType, const std::string& name)
{
    std::vector<IClientFormProcessor::Field> fields;
    if (objectType == 0) {
        if (const AccessTable* table = m_source.FindTable(name)) {
            int index = 0;
            for (const AccessField& field : table->fields) {
                std::string description = field.description.empty() ? field.type + (field.required ? ", required" : "")
                                                                     : field.description;
                fields.push_back({ field.name, field.caption.empty() ? field.name : field.caption, description, index++ });
            }
        }
    } else if (objectType == 1) {
        if (const AccessQuery* query = m_source.FindQuery(name)) {
            int index = 0;
            for (const QueryColumn& column : SelectColumns(query->sql)) {
                std::string description = column.calculated ? "Calculated" : "From " + column.table + "." + column.field;
                fields.push_back({ column.name, column.name, description, index++ });
            }
        }
    } else if (objectType == 4) {
        // A macro's fields are its actions, in order.
        if (const AccessDefinition* macro = Definition(4, name)) {
            int index = 0;
            for (const auto& step : macro->Header().children) {
                std::string action = step->Text("Action");
                if (action.empty())
                    continue;
                std::vector<std::string> arguments = step->Values("Argument");
                std::string caption = action;
                if (!arguments.empty() && !arguments.front().empty())
                    caption += " " + arguments.front();
                std::string stepName = step->Text("MacroName");
                fields.push_back({ stepName.empty() ? "Action" + std::to_string(index + 1) : stepName, caption,
                    step->Text("Comment"), index });
                ++index;
            }
        }
    }
    return fields;
}

bool CW_AccessContext::ProcessOtherCommand(CXmlCommand& command)
{
    auto is = [&](std::string_view name) { return EqualsNoCase(command.Name(), name); };
    auto answer = [&](std::string value) { command.AddParamValue("RetValue", std::move(value)); };
    if (is("GetSourceTablesList")) {
        std::vector<std::string> names;
        for (const AccessTable& table : m_source.Tables())
            names.push_back(table.name);
        answer(Join(names, "|"));
    } else if (is("GetSourceQueriesList")) {
        std::vector<std::string> names;
        for (const AccessQuery& query : m_source.Queries())
            names.push_back(query.name);
        answer(Join(names, "|"));
    } else if (is("GetSourceMacrosList")) {
        answer(Join(m_source.Names("macro"), "|"));
    } else if (is("GetSourceFormsList")) {
        answer(Join(m_source.Names("form"), "|"));
    } else if (is("GetSourceReportsList")) {
        answer(Join(m_source.Names("report"), "|"));
    } else if (is("SaveAsText")) {
        std::string file = m_source.DefinitionFile(KindOf(ToInt(command.GetParamValue("ObjType"))), command.GetParamValue("ObjName"));
        if (!file.empty())
            CopyFileOver(file, command.GetParamValue("FullPath"));
    } else if (is("GetComponentDescription")) {
        const AccessTable* table = m_source.FindTable(command.GetParamValue("CompName"));
        answer(table ? table->description : std::string());
    } else if (is("GetQueryDescription")) {
        const AccessQuery* query = m_source.FindQuery(command.GetParamValue("CompName"));
        std::string text;
        if (query)
            text = query->description.empty() ? "SQL: " + query->sql : query->description;
        answer(text);
    } else if (is("GetMacroDescription")) {
        const AccessDefinition* macro = Definition(4, command.GetParamValue("CompName"));
        std::string text;
        // A macro says what it is for in the comment of its first line.
        if (macro)
            for (const auto& step : macro->Header().children)
                if (text.empty() && step->Text("Action").empty())
                    text = step->Text("Comment");
        answer(text);
    } else if (is("GetQueryXmlStr")) {
        const AccessQuery* query = m_source.FindQuery(command.GetParamValue("QueryName"));
        answer(query ? QueryXml(*query) : std::string());
    } else if (is("TableNamePrefix")) {
        answer(TableNamePrefix());
    } else if (is("QueryNamePrefix")) {
        answer(QueryNamePrefix());
    } else if (is("MacroNamePrefix")) {
        answer(MacroNamePrefix());
    } else if (is("CurrentSourceProjectIsADPorADE")) {
        answer("False");
    } else if (is("UnhideDbWindow") || is("ShowToolbar") || is("DeleteToolbar")) {
        // There is no database window or toolbar to show here.
    } else if (is("ScreenshotDatamodelWindow")) {
        // The relationships window is not drawn: the data model has no topic.
        answer("");
    } else if (is("ActiveObjectName")) {
        answer(CurrentObjectName());
    } else {
        return false;
    }
    return true;
}

std::string CW_AccessContext::ProcessComponent(const ProcessComponentRequest& request)
{
    std::string raw;
    CClientUIObjectRawXml walk;
    int type = request.objectType;
    if (type == 2 || type == 3) {
        const AccessDefinition* definition = Definition(type, request.componentName);
        if (!definition)
            return {};
        CW_AccessFormProcessor processor(*definition, request.componentName, type == 3, WindowHandle(type, request.componentName));
        raw = walk.Get_(processor, type, processor.Component(), request.hostAppIdeHwnd, request.isInDesignView,
            request.sourceProjectTypeName, request.keepSourceObjectOpened, Parameters().VerboseTracing);
    } else {
        if (!ComponentExists(type, request.componentName))
            return {};
        CDataObjectProcessor processor(request.componentName, FieldsOf(type, request.componentName));
        raw = walk.Get_(processor, type, processor.Component(), request.hostAppIdeHwnd, request.isInDesignView,
            request.sourceProjectTypeName, request.keepSourceObjectOpened, Parameters().VerboseTracing);
    }
    CXmlForm form;
    if (!form.LoadXml(raw)) {
        Raise(status::kSecondFailure, "CW_AccessContext.IHostIDEContext_ProcessCallBack",
            "Error processing source project component [" + request.componentName + "]: "
                + form.XmlParseError().Reason());
    }
    return form.XMLSTr();
}

}  // namespace scriv
