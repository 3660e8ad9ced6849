#include "editor/frmHHCEntryIndexKeywords.h"

#include <utility>

#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/StringUtil.h"

namespace scriv {

void frmHHCEntryIndexKeywords::init(std::vector<std::string> entries)
{
    m_entries = std::move(entries);
    m_text.clear();
    m_selected.reset();
    m_textFocus = false;
    m_valid = false;
    m_closed = false;
}

void frmHHCEntryIndexKeywords::SetListIndex(std::optional<std::size_t> index)
{
    if (index && *index >= m_entries.size())
        index.reset();
    m_selected = index;
}

bool frmHHCEntryIndexKeywords::cmdAddEntry_Click()
{
    // Quotes and semicolons would break the index file's parameters.
    std::string entry = Trim(RemoveAll(RemoveAll(m_text, "\""), ";"));
    if (entry.empty()) {
        m_textFocus = true;
        return false;
    }
    m_textFocus = false;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        if (EqualsNoCase(m_entries[i], entry)) {
            m_selected = i;
            return false;
        }
    }
    m_entries.push_back(entry);
    m_selected = m_entries.size() - 1;
    return true;
}

bool frmHHCEntryIndexKeywords::cmdDeleteEntry_Click()
{
    if (!m_selected)
        return false;
    int answer = MsgBox("Are you sure you wanted to delete this index entry?", msgbox::kYesNo | msgbox::kQuestion,
        kTitle, "", 0, "frmHHCEntryIndexKeywords.cmdDeleteEntry_Click");
    if (answer != vbYes)
        return false;
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(*m_selected));
    if (m_entries.empty())
        m_selected.reset();
    else if (*m_selected >= m_entries.size())
        m_selected = m_entries.size() - 1;
    return true;
}

bool frmHHCEntryIndexKeywords::cmdMoveUp_Click()
{
    if (!m_selected || *m_selected == 0)
        return false;
    std::swap(m_entries[*m_selected], m_entries[*m_selected - 1]);
    --*m_selected;
    return true;
}

bool frmHHCEntryIndexKeywords::cmdMoveDown_Click()
{
    if (!m_selected || *m_selected + 1 >= m_entries.size())
        return false;
    std::swap(m_entries[*m_selected], m_entries[*m_selected + 1]);
    ++*m_selected;
    return true;
}

void frmHHCEntryIndexKeywords::cmdOK_Click()
{
    m_valid = true;
    m_closed = true;
}

void frmHHCEntryIndexKeywords::cmdCancel_Click()
{
    m_valid = false;
    m_closed = true;
}

frmHHCEntryIndexKeywords::ButtonStates frmHHCEntryIndexKeywords::ToggleButtons() const
{
    ButtonStates states;
    states.addEntry = !Trim(RemoveAll(RemoveAll(m_text, "\""), ";")).empty();
    states.deleteEntry = m_selected.has_value();
    states.moveUp = m_selected && *m_selected > 0;
    states.moveDown = m_selected && *m_selected + 1 < m_entries.size();
    return states;
}

}  // namespace scriv
