#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include <nlohmann/json.hpp>

#include "model/CHeadlessTreeView.h"

namespace scriv::studio {

// The Help Editor's tree as the studio keeps it for the page: the items in
// memory, and a version that every change of the items (not the selection)
// moves on, so that the page fetches the tree again only when it changed.
class EditorTreeView final : public CHeadlessTreeView {
public:
    // What the page needs of an item beside its text and image: its node's page.
    using PageOf = std::function<std::string(const std::string& key)>;

    // ^ITreeView
    bool Add(const std::string& relativeKey, TreeRelationship relationship, const std::string& key,
        const std::string& text, const std::string& image) override;
    bool Remove(const std::string& key) override;
    void Clear() override;
    void SetText(const std::string& key, const std::string& text) override;
    void SetImage(const std::string& key, const std::string& image) override;
    void SetExpanded(const std::string& key, bool expanded) override;

    std::uint64_t Version() const { return m_version; }

    // The items as nested JSON: [{"key", "text", "image", "expanded", "page",
    // "children": [...]}], top items first. page comes from pageOf ("" without it).
    nlohmann::json Json(const PageOf& pageOf) const;

private:
    nlohmann::json ItemJson(const std::string& key, const PageOf& pageOf) const;

    std::uint64_t m_version { 1 };
};

}  // namespace scriv::studio
