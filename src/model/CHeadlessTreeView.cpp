#include "model/CHeadlessTreeView.h"

#include "foundation/StringUtil.h"

namespace scriv {

CHeadlessTreeView::CHeadlessTreeView() = default;
CHeadlessTreeView::~CHeadlessTreeView() = default;

CHeadlessTreeView::Item* CHeadlessTreeView::FindItem(const std::string& key) const
{
    auto it = m_items.find(ToLower(key));
    return it == m_items.end() ? nullptr : it->second;
}

std::vector<std::unique_ptr<CHeadlessTreeView::Item>>& CHeadlessTreeView::SiblingsOf(const Item* item)
{
    return item->parent ? item->parent->children : m_top;
}

const std::vector<std::unique_ptr<CHeadlessTreeView::Item>>& CHeadlessTreeView::SiblingsOf(const Item* item) const
{
    return item->parent ? item->parent->children : m_top;
}

std::size_t CHeadlessTreeView::PositionOf(const Item* item) const
{
    const auto& siblings = SiblingsOf(item);
    for (std::size_t i = 0; i < siblings.size(); ++i)
        if (siblings[i].get() == item)
            return i;
    return siblings.size();
}

bool CHeadlessTreeView::Add(const std::string& relativeKey, TreeRelationship relationship, const std::string& key,
    const std::string& text, const std::string& image)
{
    if (key.empty() || FindItem(key))
        return false;
    auto item = std::make_unique<Item>();
    item->key = key;
    item->text = text;
    item->image = image;
    Item* raw = item.get();
    Item* relative = relativeKey.empty() ? nullptr : FindItem(relativeKey);
    if (!relativeKey.empty() && !relative)
        return false;
    if (!relative) {
        m_top.push_back(std::move(item));
    } else if (relationship == TreeRelationship::Child) {
        raw->parent = relative;
        relative->children.push_back(std::move(item));
    } else {
        raw->parent = relative->parent;
        auto& siblings = SiblingsOf(relative);
        std::size_t position = PositionOf(relative);
        if (relationship == TreeRelationship::Next)
            ++position;
        else if (relationship == TreeRelationship::Last)
            position = siblings.size();
        siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(position), std::move(item));
    }
    m_items[ToLower(key)] = raw;
    return true;
}

void CHeadlessTreeView::Forget(const Item* item)
{
    for (const auto& child : item->children)
        Forget(child.get());
    if (EqualsNoCase(m_selected, item->key))
        m_selected.clear();
    m_items.erase(ToLower(item->key));
}

bool CHeadlessTreeView::Remove(const std::string& key)
{
    Item* item = FindItem(key);
    if (!item)
        return false;
    Forget(item);
    auto& siblings = SiblingsOf(item);
    siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(PositionOf(item)));
    return true;
}

bool CHeadlessTreeView::Exists(const std::string& key) const
{
    return FindItem(key) != nullptr;
}

void CHeadlessTreeView::Clear()
{
    m_top.clear();
    m_items.clear();
    m_selected.clear();
}

std::string CHeadlessTreeView::Text(const std::string& key) const
{
    Item* item = FindItem(key);
    return item ? item->text : std::string();
}

void CHeadlessTreeView::SetText(const std::string& key, const std::string& text)
{
    if (Item* item = FindItem(key))
        item->text = text;
}

std::string CHeadlessTreeView::Image(const std::string& key) const
{
    Item* item = FindItem(key);
    return item ? item->image : std::string();
}

void CHeadlessTreeView::SetImage(const std::string& key, const std::string& image)
{
    if (Item* item = FindItem(key))
        item->image = image;
}

bool CHeadlessTreeView::Expanded(const std::string& key) const
{
    Item* item = FindItem(key);
    return item && item->expanded;
}

void CHeadlessTreeView::SetExpanded(const std::string& key, bool expanded)
{
    if (Item* item = FindItem(key))
        item->expanded = expanded;
}

std::string CHeadlessTreeView::Tag(const std::string& key) const
{
    Item* item = FindItem(key);
    return item ? item->tag : std::string();
}

void CHeadlessTreeView::SetTag(const std::string& key, const std::string& tag)
{
    if (Item* item = FindItem(key))
        item->tag = tag;
}

std::string CHeadlessTreeView::PreviousKey(const std::string& key) const
{
    Item* item = FindItem(key);
    if (!item)
        return {};
    std::size_t position = PositionOf(item);
    return position == 0 ? std::string() : SiblingsOf(item)[position - 1]->key;
}

std::string CHeadlessTreeView::NextKey(const std::string& key) const
{
    Item* item = FindItem(key);
    if (!item)
        return {};
    const auto& siblings = SiblingsOf(item);
    std::size_t position = PositionOf(item);
    return position + 1 >= siblings.size() ? std::string() : siblings[position + 1]->key;
}

std::string CHeadlessTreeView::ParentKey(const std::string& key) const
{
    Item* item = FindItem(key);
    return item && item->parent ? item->parent->key : std::string();
}

std::vector<std::string> CHeadlessTreeView::ChildrenKeys(const std::string& key) const
{
    std::vector<std::string> keys;
    if (Item* item = FindItem(key))
        for (const auto& child : item->children)
            keys.push_back(child->key);
    return keys;
}

std::vector<std::string> CHeadlessTreeView::TopKeys() const
{
    std::vector<std::string> keys;
    for (const auto& item : m_top)
        keys.push_back(item->key);
    return keys;
}

std::string CHeadlessTreeView::SelectedKey() const
{
    return m_selected;
}

void CHeadlessTreeView::Select(const std::string& key)
{
    if (FindItem(key))
        m_selected = key;
}

void CHeadlessTreeView::RenderItems(const std::vector<std::unique_ptr<Item>>& items, int depth, std::string& out) const
{
    for (const auto& item : items) {
        out += std::string(static_cast<std::size_t>(depth) * 2, ' ');
        out += "[" + item->image + "] " + item->text + "\n";
        RenderItems(item->children, depth + 1, out);
    }
}

std::string CHeadlessTreeView::Render() const
{
    std::string out;
    RenderItems(m_top, 0, out);
    return out;
}

}  // namespace scriv
