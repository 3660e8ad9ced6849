#pragma once

#include <map>
#include <string>
#include <vector>

namespace scriv {

class CXmlControl;
class CXmlForm;

// The help context ids of a generation: the ids the forms and controls use
// already, new ids for what has none, the ids written back into the
// application, and the map file that ties each id to its topic.
class clsFrmRptHelpContextIds {
public:
    void Reset();
    void Terminate() { Reset(); }

    // Notes the ids a form and its controls use. A form seen before is passed over.
    void ExtractUsedHelpContextIds(const CXmlForm& form);
    // Gives every form and control of the noted forms without an id the next
    // free one, and saves their descriptions in the project's xml folder.
    void AssignHelpContextIds();
    // Writes new form ids back through the host (when application changes
    // may be saved) and writes the map file "<project>.h" of the help compiler;
    // the same lines, after the ids of the lists, are appended to the
    // application's "HelpContextIds.h".
    void SetHelpContextIds();

    // The lowest unused id from 1 to 100,000, now taken; 0 when all are.
    int NextFreeId();

    const std::vector<std::string>& Forms() const { return m_forms; }
    bool IsUsed(int id) const { return m_used.count(id) > 0; }
    const std::vector<std::string>& Duplicates() const { return m_duplicates; }
    // "<HelpContextIds>" with the forms, used and duplicate ids, for diagnosis.
    std::string DiagnosticXml() const;
    // The lines of the forms' ids, as the map file holds them; with writeBack
    // new form ids go into the application on the way.
    std::string MapFileText(bool writeBack);
    // The ids of the lists of all dialogs, forms and reports (none for a database).
    std::string GroupIdsText() const;

private:
    void Register(int id, const std::string& name);
    void ExtractControls(const std::string& formName, const CXmlControl& control);
    void AssignControls(CXmlControl& control);

    std::vector<std::string> m_forms;
    // Each used id with the first name that used it.
    std::map<int, std::string> m_used;
    std::vector<std::string> m_duplicates;
    int m_searchFrom { 1 };
};

}  // namespace scriv
