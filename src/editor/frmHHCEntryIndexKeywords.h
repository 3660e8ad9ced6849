#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scriv {

// The dialog "Node Index Entries" without its window: the index entries of one
// topic in a list, a text box for a new entry, and the buttons that change the
// list. Whoever shows it sets the text box and the selection from the person's
// actions and calls the buttons; IsValid tells afterwards whether OK was pressed.
class frmHHCEntryIndexKeywords {
public:
    static constexpr std::string_view kTitle = "Node Index Entries";

    // Which buttons may be pressed now.
    struct ButtonStates {
        bool addEntry { false };
        bool deleteEntry { false };
        bool moveUp { false };
        bool moveDown { false };
    };

    // Starts the dialog on a list of entries; nothing selected, empty text box.
    void init(std::vector<std::string> entries);

    // The entries as they stand (the result, once confirmed).
    const std::vector<std::string>& IndexesCollection() const { return m_entries; }

    // --- the controls ---
    const std::string& txtIndexEntry() const { return m_text; }
    void SetTxtIndexEntry(std::string text) { m_text = std::move(text); }
    // The selected entry of lstIndexEntries, or nothing.
    std::optional<std::size_t> ListIndex() const { return m_selected; }
    // Selects an entry; an index past the end selects nothing.
    void SetListIndex(std::optional<std::size_t> index);
    // The text box has the focus (after an add that left nothing to add).
    bool TextBoxHasFocus() const { return m_textFocus; }

    // Adds the text box's text, less double quotes and semicolons, at the end
    // and selects it. Answers false, and puts the focus in the text box, when
    // nothing is left; false also when the entry is there already (any case).
    bool cmdAddEntry_Click();
    // Asks whether to delete the selected entry and deletes it on Yes; the entry
    // after it (else before it) is selected. False when nothing was deleted.
    bool cmdDeleteEntry_Click();
    // Swap the selected entry with its neighbour; false at the end of the list.
    bool cmdMoveUp_Click();
    bool cmdMoveDown_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    ButtonStates ToggleButtons() const;

    // True once OK was pressed.
    bool IsValid() const { return m_valid; }
    // True once OK or Cancel was pressed.
    bool Closed() const { return m_closed; }

private:
    std::vector<std::string> m_entries;
    std::string m_text;
    std::optional<std::size_t> m_selected;
    bool m_textFocus { false };
    bool m_valid { false };
    bool m_closed { false };
};

}  // namespace scriv
