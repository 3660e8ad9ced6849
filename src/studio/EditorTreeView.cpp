#include "studio/EditorTreeView.h"

namespace scriv::studio {

using json = nlohmann::json;

bool EditorTreeView::Add(const std::string& relativeKey, TreeRelationship relationship, const std::string& key,
    const std::string& text, const std::string& image)
{
    bool added = CHeadlessTreeView::Add(relativeKey, relationship, key, text, image);
    m_version += added ? 1 : 0;
    return added;
}

bool EditorTreeView::Remove(const std::string& key)
{
    bool removed = CHeadlessTreeView::Remove(key);
    m_version += removed ? 1 : 0;
    return removed;
}

void EditorTreeView::Clear()
{
    CHeadlessTreeView::Clear();
    ++m_version;
}

void EditorTreeView::SetText(const std::string& key, const std::string& text)
{
    if (Exists(key) && Text(key) == text)
        return;
    CHeadlessTreeView::SetText(key, text);
    ++m_version;
}

void EditorTreeView::SetImage(const std::string& key, const std::string& image)
{
    if (Exists(key) && Image(key) == image)
        return;
    CHeadlessTreeView::SetImage(key, image);
    ++m_version;
}

void EditorTreeView::SetExpanded(const std::string& key, bool expanded)
{
    if (Exists(key) && Expanded(key) == expanded)
        return;
    CHeadlessTreeView::SetExpanded(key, expanded);
    ++m_version;
}

json EditorTreeView::ItemJson(const std::string& key, const PageOf& pageOf) const
{
    json children = json::array();
    for (const std::string& child : ChildrenKeys(key))
        children.push_back(ItemJson(child, pageOf));
    return {
        { "key", key },
        { "text", Text(key) },
        { "image", Image(key) },
        { "expanded", Expanded(key) },
        { "page", pageOf ? pageOf(key) : std::string() },
        { "children", std::move(children) },
    };
}

json EditorTreeView::Json(const PageOf& pageOf) const
{
    json items = json::array();
    for (const std::string& key : TopKeys())
        items.push_back(ItemJson(key, pageOf));
    return items;
}

}  // namespace scriv::studio
