#pragma once

#include <functional>
#include <string>

namespace scriv {

class ITreeView;

// The in-place edit of a tree item's caption: started on an item, ended with
// the text the person typed. The view shows the editor; this keeps which item
// is edited and reports a changed caption.
class CTreeViewEdit {
public:
    using CaptionChanged = std::function<void(const std::string& key, const std::string& caption)>;

    void init(ITreeView* view, CaptionChanged onChanged);
    // Starts editing an item of the view; false when there is no such item.
    bool StartLabelEdit(const std::string& key);
    // Ends the edit with the typed text. A text that is not empty and differs
    // from the item's reports NodeCaptionChanged; answers whether it did.
    bool EndLabelEdit(const std::string& text);
    void CancelLabelEdit();

    bool Editing() const { return !m_key.empty(); }
    const std::string& EditedKey() const { return m_key; }

private:
    ITreeView* m_view { nullptr };
    CaptionChanged m_onChanged;
    std::string m_key;
};

}  // namespace scriv
