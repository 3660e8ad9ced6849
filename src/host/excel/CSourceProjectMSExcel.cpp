#include "host/excel/CSourceProjectMSExcel.h"

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "host/access/AccessDefinition.h"
#include "host/access/CSourceProjectMSAccess.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

bool CSourceProjectMSExcel::init(const std::string& projectFullPath, const std::string& typeName)
{
    if (!EqualsNoCase(typeName, "MS EXCEL"))
        return false;
    try {
        IHostAgent* agent = m_agent ? m_agent : CurrentHostAgent();
        if (!agent) {
            Trace("CSourceProjectMSExcel.init: no host to ask for the objects of " + projectFullPath);
            return false;
        }
        m_name = FileBaseName(projectFullPath);
        m_folder = AddBackslash(FolderOf(ToNativePath(projectFullPath)));
        ReadNames(*agent, agent->GetSourceWorksheetsList(), "Loading worksheets...", "Processing worksheet [",
            "Source worksheet skipped ", "Worksheet", m_worksheets, false);
        ReadNames(*agent, agent->GetSourceChartsList(), "Loading charts...", "Processing chart [", "Source chart skipped ",
            "Chart", m_charts, false);
        ReadNames(*agent, agent->GetSourceFormsList(), "Loading forms...", "Processing form [", "Source Form skipped ", "Form",
            m_forms, true);
        agent->ProgressMeterRemove();
        m_valid = true;
        return true;
    } catch (const std::exception& error) {
        Trace(std::string("CSourceProjectMSExcel.init: ") + error.what());
        return false;
    }
}

void CSourceProjectMSExcel::ReadNames(IHostAgent& agent, const std::vector<std::string>& names, const char* loading,
    const char* processing, const char* skipped, const char* subType, SourceItems& items, bool forms)
{
    agent.ProgressMeterInit(loading, static_cast<int>(names.size()));
    int done = 0;
    for (const std::string& name : names) {
        ++done;
        agent.ProgressMeterInit(processing + name + "]...", static_cast<int>(names.size()));
        agent.ProgressMeterUpdate(done);
        if (name.find('"') != std::string::npos) {
            MsgBox(skipped + name + ".\r\nPlease remove double quotes from its name.", msgbox::kExclamation,
                "Scrivant Add-In", "", 0, "CSourceProjectMSExcel.Init");
            continue;
        }
        auto item = std::make_unique<CHelpPrjSourceItem>();
        if (forms) {
            // A user form's caption is in its definition, which the host saves as text.
            std::string caption = name;
            std::string file = TemporaryFileName("~f_", ".txt");
            agent.SaveAsText(2, name, file);
            if (FileExists(file)) {
                if (std::optional<std::string> text = ReadDefinitionFile(file)) {
                    std::string found = ReadDefinitionText(*text, "").caption;
                    if (!Trim(found).empty())
                        caption = found;
                }
                DeleteFileIfExists(file);
            }
            item->InitForMSAccess(m_folder, "", m_name, "Form", name, caption);
        } else {
            item->InitForMSExcel(m_folder, "", m_name, subType, name, name);
        }
        std::string key = name;
        items.Add(std::move(key), std::move(item));
    }
}

void CSourceProjectMSExcel::Terminate()
{
    for (SourceItems* items : { &m_worksheets, &m_charts, &m_forms }) {
        for (auto& entry : *items)
            entry.value->Terminate();
        items->Clear();
    }
}

}  // namespace scriv
