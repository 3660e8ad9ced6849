#include "uidesc/clsFrmRptHelpContextIds.h"

#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

constexpr int kLastId = 100000;

std::string FormsFolder()
{
    CAddInProject* project = CurrentAddInProject();
    return project ? project->XmlFormsFolder() : std::string();
}

int ObjectTypeOf(const CXmlForm& form)
{
    return EqualsNoCase(form.Type_(), "Report") ? objtype::kReport : objtype::kForm;
}

IHostAgent* Agent()
{
    return CurrentHostAgent();
}

}  // namespace

void clsFrmRptHelpContextIds::Reset()
{
    m_forms.clear();
    m_used.clear();
    m_duplicates.clear();
    m_searchFrom = 1;
}

// --- collecting ---

void clsFrmRptHelpContextIds::Register(int id, const std::string& name)
{
    if (id <= 0)
        return;
    auto [entry, added] = m_used.emplace(id, name);
    // A duplicate stays as it is on both objects; it is only noted.
    if (!added)
        m_duplicates.push_back(std::to_string(id) + "*" + entry->second + "*" + name);
}

void clsFrmRptHelpContextIds::ExtractUsedHelpContextIds(const CXmlForm& form)
{
    std::string name = form.UniqueName();
    if (name.empty() || std::find(m_forms.begin(), m_forms.end(), name) != m_forms.end())
        return;
    m_forms.push_back(name);
    Register(form.HelpContextId, name);
    for (const auto& entry : form.Controls())
        ExtractControls(name, *entry.value);
}

void clsFrmRptHelpContextIds::ExtractControls(const std::string& formName, const CXmlControl& control)
{
    if (control.HelpContextId >= 1)
        Register(control.HelpContextId, formName + control.UniqueNameWithinXmlForm());
    for (const auto& child : control.Controls())
        ExtractControls(formName, *child.value);
}

// --- assigning ---

int clsFrmRptHelpContextIds::NextFreeId()
{
    for (int id = m_searchFrom; id <= kLastId; ++id) {
        if (m_used.count(id))
            continue;
        m_used.emplace(id, std::string());
        m_searchFrom = id + 1;
        return id;
    }
    return 0;
}

void clsFrmRptHelpContextIds::AssignControls(CXmlControl& control)
{
    if (control.HelpContextId == 0)
        control.HelpContextId = NextFreeId();
    for (auto& child : control.Controls())
        AssignControls(*child.value);
}

void clsFrmRptHelpContextIds::AssignHelpContextIds()
{
    IHostAgent* agent = Agent();
    if (agent)
        agent->ProgressMeterInit("Assigning help context Ids...", static_cast<int>(m_forms.size()));
    std::string folder = FormsFolder();
    int counter = 0;
    for (const std::string& name : m_forms) {
        if (agent)
            agent->ProgressMeterUpdate(++counter);
        CXmlForm form;
        if (!form.Load(folder + name + ".xml")) {
            Trace("clsFrmRptHelpContextIds.AssignHelpContextIds: " + form.XmlParseError().Reason());
            continue;
        }
        // A user control or document has no id of its own in the application.
        if (form.HelpContextId == 0 && form.GUIObjectSubType != "UserControl"
            && form.GUIObjectSubType != "UserDocument") {
            form.HelpContextId = NextFreeId();
            if (form.HelpContextId > 0)
                ++form.NewHelpContextIdsCount;
        }
        for (auto& control : form.Controls())
            AssignControls(*control.value);
        form.SaveXml(folder, folder + name + ".xml");
    }
    if (agent)
        agent->ProgressMeterRemove();
}

// --- writing back ---

std::string clsFrmRptHelpContextIds::GroupIdsText() const
{
    IHostAgent* agent = Agent();
    if (agent && EqualsNoCase(agent->CurrentSourceProjectTypeName(), "MS ACCESS"))
        return {};
    // Dialogs and reports share a number; the blank after the last one stays.
    return "#define IDH_ALL_DIALOGS 2\r\n#define IDH_ALL_FORMS   1\r\n#define IDH_ALL_REPORTS 2 \r\n";
}

std::string clsFrmRptHelpContextIds::MapFileText(bool writeBack)
{
    IHostAgent* agent = Agent();
    std::string sourceType = agent ? agent->CurrentSourceProjectTypeName() : std::string();
    std::string text;
    std::string folder = FormsFolder();
    bool mayWrite = writeBack && Parameters().SaveApplicationChanges && !EqualsNoCase(sourceType, "ASP.NET");
    for (const std::string& name : m_forms) {
        if (name.empty())
            continue;
        CXmlForm form;
        if (!form.Load(folder + name + ".xml"))
            continue;
        if (mayWrite && agent && form.HelpContextId >= 1 && form.NewHelpContextIdsCount >= 1) {
            int type = ObjectTypeOf(form);
            agent->ActivateComponent(type, form.Name, true, true);
            agent->SetComponentHelpContextId(type, form.Name, form.HelpContextId);
            agent->CloseComponent(type, form.Name, true);
        }
        text += "#define IDH_" + EncodeObjectName(ReplaceAll(form.UniqueName(), " ", "_")) + "  "
            + std::to_string(form.HelpContextId) + "\r\n";
    }
    return text;
}

void clsFrmRptHelpContextIds::SetHelpContextIds()
{
    IHostAgent* agent = Agent();
    if (agent && (agent->CurrentSourceProjectIsMDEorADE() || agent->CurrentSourceProjectCodeIsDisabled()))
        return;
    if (agent)
        agent->ProgressMeterInit("Setting help context Ids...", static_cast<int>(m_forms.size()));
    std::string text = MapFileText(true);
    const CScrivantParameters& parameters = Parameters();
    std::string folder = parameters.FolderForGeneratedHelp();
    std::string mapFile = folder + EncodeObjectName(parameters.HelpProjectName()) + ".h";
    // The help compiler reads this file and wants a topic of its own for
    // every id it holds, which the ids of all dialogs, forms and reports do
    // not have; those stand in the application's header only.
    if (!WriteFileBytes(mapFile, text))
        Trace("clsFrmRptHelpContextIds.SetHelpContextIds: cannot write " + mapFile);
    std::string all = ReadFileText(folder + "HelpContextIds.h").value_or(std::string());
    WriteFileBytes(folder + "HelpContextIds.h", all + GroupIdsText() + text);
    if (agent)
        agent->ProgressMeterRemove();
}

std::string clsFrmRptHelpContextIds::DiagnosticXml() const
{
    std::string text = "<HelpContextIds>\r\n";
    for (const std::string& form : m_forms)
        text += "<Form>" + form + "</Form>\r\n";
    for (const auto& [id, name] : m_used)
        text += "<UsedId>" + std::to_string(id) + "</UsedId>\r\n";
    for (const std::string& duplicate : m_duplicates)
        text += "<DuplId>" + duplicate + "</DuplId>\r\n";
    return text + "</HelpContextIds>\r\n";
}

}  // namespace scriv
