#include "editor/CTreeViewEdit.h"

#include "foundation/StringUtil.h"
#include "model/ITreeView.h"

namespace scriv {

void CTreeViewEdit::init(ITreeView* view, CaptionChanged onChanged)
{
    m_view = view;
    m_onChanged = std::move(onChanged);
    m_key.clear();
}

bool CTreeViewEdit::StartLabelEdit(const std::string& key)
{
    if (!m_view || key.empty() || !m_view->Exists(key))
        return false;
    m_key = key;
    return true;
}

bool CTreeViewEdit::EndLabelEdit(const std::string& text)
{
    if (m_key.empty())
        return false;
    std::string key = m_key;
    m_key.clear();
    std::string caption = Trim(text);
    if (caption.empty() || !m_view || caption == m_view->Text(key))
        return false;
    if (m_onChanged)
        m_onChanged(key, caption);
    return true;
}

void CTreeViewEdit::CancelLabelEdit()
{
    m_key.clear();
}

}  // namespace scriv
