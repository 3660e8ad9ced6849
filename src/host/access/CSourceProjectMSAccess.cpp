#include "host/access/CSourceProjectMSAccess.h"

#include <atomic>
#include <random>

#include "foundation/CTraceLog.h"
#include "host/access/AccessDefinition.h"
#include "foundation/CUTF8File.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"

namespace scriv {

// The words of each kind of object in the progress texts and messages.
struct CSourceProjectMSAccess::Kind {
    const char* subType;
    const char* loading;
    const char* processing;
    const char* processingEnd;
    const char* skipped;
    // Objects with a definition: its object type and temporary file prefix.
    int objectType;
    const char* tempPrefix;
    bool systemNames;
};

namespace {

std::string TextAfterQuote(const std::string& line)
{
    std::size_t quote = line.find('"');
    if (quote == std::string::npos)
        return {};
    std::string rest = line.substr(quote + 1);
    if (!rest.empty())
        rest.pop_back();
    return Trim(rest);
}

// System tables of Access and SQL Server are not the application's.
bool IsSystemTable(const std::string& name)
{
    return (name.size() > 3 && name.compare(0, 3, "sys") == 0) || name == "dtproperties";
}

const std::string kSkippedEnd = ".\r\nPlease remove double quotes from its name.";

}  // namespace

DefinitionSummary ReadDefinitionText(const std::string& text, const std::string& kind)
{
    DefinitionSummary summary;
    std::string begin = kind.empty() ? "Begin" : "Begin " + kind;
    bool started = false;
    bool searching = true;
    for (const std::string& raw : SplitLines(text)) {
        std::string line = TrimWhitespace(raw);
        if (StartsWithNoCase(line, "SourceObject")) {
            std::string object = TextAfterQuote(line);
            for (const char* prefix : { "Form.", "Report." })
                if (StartsWithNoCase(object, prefix))
                    object = object.substr(std::string_view(prefix).size());
            if (!object.empty())
                summary.subObjects.push_back(object);
            continue;
        }
        if (!started) {
            started = StartsWithNoCase(line, begin);
            continue;
        }
        if (!searching)
            continue;
        if (StartsWithNoCase(line, "Begin")) {
            searching = false;
        } else if (StartsWithNoCase(line, "Caption")) {
            summary.caption = TextAfterQuote(line);
            searching = false;
        }
    }
    return summary;
}

std::string TemporaryFileName(const std::string& prefix, const std::string& extension)
{
    static std::atomic<unsigned> counter { 0 };
    std::random_device random;
    char part[32];
    std::snprintf(part, sizeof part, "%08x%04x", random(), counter++ & 0xFFFF);
    return TempFolder() + prefix + part + extension;
}

bool CSourceProjectMSAccess::init(const std::string& projectFullPath, const std::string& typeName)
{
    if (!EqualsNoCase(typeName, "MS ACCESS"))
        return false;
    try {
        IHostAgent* agent = m_agent ? m_agent : CurrentHostAgent();
        if (!agent) {
            Trace("CSourceProjectMSAccess.init: no host to ask for the objects of " + projectFullPath);
            return false;
        }
        m_name = FileBaseName(projectFullPath);
        m_folder = AddBackslash(FolderOf(ToNativePath(projectFullPath)));
        static const Kind tables { "Table", "Loading tables...", "Processing table [", "]...", "Source table skipped ", -1, "",
            true };
        static const Kind queries { "Query", "Loading queries...", "Processing query [", "]...", "Source query skipped ", -1,
            "", false };
        static const Kind macros { "Macro", "Loading macros...", "Processing macro [", "]...", "Source macro skipped ", -1, "",
            false };
        static const Kind forms { "Form", "Loading forms...", "Processing form [", "]...", "Source Form skipped ", 2, "~f_",
            false };
        static const Kind reports { "Report", "Loading reports...", "Processing report ", "...", "Source report skipped ", 3,
            "~r_", false };
        ReadNames(*agent, tables, agent->GetSourceTablesList(), m_tables);
        ReadNames(*agent, queries, agent->GetSourceQueriesList(), m_queries);
        ReadNames(*agent, macros, agent->GetSourceMacrosList(), m_macros);
        ReadNames(*agent, forms, agent->GetSourceFormsList(), m_forms);
        ReadNames(*agent, reports, agent->GetSourceReportsList(), m_reports);
        agent->ProgressMeterRemove();
        m_valid = true;
        return true;
    } catch (const std::exception& error) {
        Trace(std::string("CSourceProjectMSAccess.init: ") + error.what());
        return false;
    }
}

void CSourceProjectMSAccess::ReadNames(IHostAgent& agent, const Kind& kind, const std::vector<std::string>& names,
    SourceItems& items)
{
    agent.ProgressMeterInit(kind.loading, static_cast<int>(names.size()));
    int done = 0;
    for (const std::string& name : names) {
        ++done;
        if (kind.systemNames && IsSystemTable(name))
            continue;
        agent.ProgressMeterInit(kind.processing + name + kind.processingEnd, static_cast<int>(names.size()));
        agent.ProgressMeterUpdate(done);
        if (name.find('"') != std::string::npos) {
            MsgBox(kind.skipped + name + kSkippedEnd, msgbox::kExclamation, "Scrivant Add-In", "", 0,
                "CSourceProjectMSAccess.Init");
            continue;
        }
        std::string caption = name;
        if (kind.objectType > 0) {
            // The caption is in the definition, which the host saves as text.
            std::string file = TemporaryFileName(kind.tempPrefix, ".txt");
            agent.SaveAsText(kind.objectType, name, file);
            if (FileExists(file)) {
                if (std::optional<std::string> text = ReadDefinitionFile(file)) {
                    DefinitionSummary summary = ReadDefinitionText(*text, kind.subType);
                    if (!Trim(summary.caption).empty())
                        caption = summary.caption;
                    m_subObjects[ToLower(name)] = summary.subObjects;
                }
                DeleteFileIfExists(file);
            }
        }
        auto item = std::make_unique<CHelpPrjSourceItem>();
        item->InitForMSAccess(m_folder, "", m_name, kind.subType, name, caption);
        std::string key = name;
        items.Add(std::move(key), std::move(item));
    }
}

void CSourceProjectMSAccess::Terminate()
{
    for (SourceItems* items : { &m_tables, &m_queries, &m_macros, &m_forms, &m_reports }) {
        for (auto& entry : *items)
            entry.value->Terminate();
        items->Clear();
    }
}

const std::vector<std::string>& CSourceProjectMSAccess::SubObjectsOf(const std::string& name) const
{
    static const std::vector<std::string> none;
    auto found = m_subObjects.find(ToLower(name));
    return found == m_subObjects.end() ? none : found->second;
}

}  // namespace scriv
