#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/ITreeView.h"

namespace scriv {

// A tree view without a window: the items in memory, and a text picture of them.
class CHeadlessTreeView : public ITreeView {
public:
    CHeadlessTreeView();
    ~CHeadlessTreeView() override;

    // ^ITreeView
    bool Add(const std::string& relativeKey, TreeRelationship relationship, const std::string& key,
        const std::string& text, const std::string& image) override;
    bool Remove(const std::string& key) override;
    bool Exists(const std::string& key) const override;
    void Clear() override;
    std::string Text(const std::string& key) const override;
    void SetText(const std::string& key, const std::string& text) override;
    std::string Image(const std::string& key) const override;
    void SetImage(const std::string& key, const std::string& image) override;
    bool Expanded(const std::string& key) const override;
    void SetExpanded(const std::string& key, bool expanded) override;
    std::string Tag(const std::string& key) const override;
    void SetTag(const std::string& key, const std::string& tag) override;
    std::string PreviousKey(const std::string& key) const override;
    std::string NextKey(const std::string& key) const override;
    std::string ParentKey(const std::string& key) const override;
    std::vector<std::string> ChildrenKeys(const std::string& key) const override;
    std::vector<std::string> TopKeys() const override;
    std::string SelectedKey() const override;
    void Select(const std::string& key) override;

    std::size_t Count() const { return m_items.size(); }

    // One line per item, indented by depth, with its image in brackets:
    // "  [hlpclose] Forms".
    std::string Render() const;

private:
    struct Item {
        std::string key;
        std::string text;
        std::string image;
        std::string tag;
        bool expanded { false };
        Item* parent { nullptr };
        std::vector<std::unique_ptr<Item>> children;
    };
    Item* FindItem(const std::string& key) const;
    std::vector<std::unique_ptr<Item>>& SiblingsOf(const Item* item);
    const std::vector<std::unique_ptr<Item>>& SiblingsOf(const Item* item) const;
    std::size_t PositionOf(const Item* item) const;
    void Forget(const Item* item);
    void RenderItems(const std::vector<std::unique_ptr<Item>>& items, int depth, std::string& out) const;

    std::vector<std::unique_ptr<Item>> m_top;
    std::unordered_map<std::string, Item*> m_items; // by lower-cased key
    std::string m_selected;
};

}  // namespace scriv
