#pragma once

#include <string>
#include <vector>

namespace scriv {

// Where a new item goes, relative to another.
enum class TreeRelationship : int {
    Last = 1,
    Next = 2,
    Previous = 3,
    Child = 4,
};

// The display of the contents tree. Items are addressed by their keys, which
// are the keys of the nodes they show. The headless view serves the command line
// and the tests; the studio mirrors one to the browser.
class ITreeView {
public:
    virtual ~ITreeView() = default;

    // Adds an item. With an empty relative key the item is a last top-level item.
    // False when the key is taken or the relative does not exist.
    virtual bool Add(const std::string& relativeKey, TreeRelationship relationship, const std::string& key,
        const std::string& text, const std::string& image)
        = 0;
    // Removes an item with everything below it.
    virtual bool Remove(const std::string& key) = 0;
    virtual bool Exists(const std::string& key) const = 0;
    virtual void Clear() = 0;

    virtual std::string Text(const std::string& key) const = 0;
    virtual void SetText(const std::string& key, const std::string& text) = 0;
    virtual std::string Image(const std::string& key) const = 0;
    virtual void SetImage(const std::string& key, const std::string& image) = 0;
    virtual bool Expanded(const std::string& key) const = 0;
    virtual void SetExpanded(const std::string& key, bool expanded) = 0;
    // A free text kept with the item.
    virtual std::string Tag(const std::string& key) const = 0;
    virtual void SetTag(const std::string& key, const std::string& tag) = 0;

    // Keys of neighbours, or "" when there is none.
    virtual std::string PreviousKey(const std::string& key) const = 0;
    virtual std::string NextKey(const std::string& key) const = 0;
    virtual std::string ParentKey(const std::string& key) const = 0;
    virtual std::vector<std::string> ChildrenKeys(const std::string& key) const = 0;
    virtual std::vector<std::string> TopKeys() const = 0;

    virtual std::string SelectedKey() const = 0;
    virtual void Select(const std::string& key) = 0;
};

}  // namespace scriv
