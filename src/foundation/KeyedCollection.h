#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "foundation/StringUtil.h"

namespace scriv {

// An ordered collection whose entries may carry a key; keys compare without
// regard to case and are unique. Lookups by key are O(1), positional edits O(n).
template<typename T>
class KeyedCollection {
public:
    struct Entry {
        std::string key;
        T value;
    };

    std::size_t Count() const { return m_entries.size(); }
    bool Empty() const { return m_entries.empty(); }

    bool Contains(std::string_view key) const { return m_index.count(ToLower(key)) > 0; }

    // Position of a key, or nothing.
    std::optional<std::size_t> IndexOf(std::string_view key) const
    {
        auto it = m_index.find(ToLower(key));
        if (it == m_index.end())
            return std::nullopt;
        return it->second;
    }

    T* Find(std::string_view key)
    {
        auto index = IndexOf(key);
        return index ? &m_entries[*index].value : nullptr;
    }
    const T* Find(std::string_view key) const
    {
        auto index = IndexOf(key);
        return index ? &m_entries[*index].value : nullptr;
    }

    // Adds at the end; false when the key is taken (then nothing is added).
    bool Add(std::string key, T value) { return Insert(m_entries.size(), std::move(key), std::move(value)); }

    // Adds at a position (0 = first); false when the key is taken.
    bool Insert(std::size_t position, std::string key, T value)
    {
        if (!key.empty() && Contains(key))
            return false;
        if (position > m_entries.size())
            position = m_entries.size();
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(position), Entry { std::move(key), std::move(value) });
        Reindex(position);
        return true;
    }

    bool Remove(std::string_view key)
    {
        auto index = IndexOf(key);
        if (!index)
            return false;
        RemoveAt(*index);
        return true;
    }

    void RemoveAt(std::size_t position)
    {
        if (!m_entries[position].key.empty())
            m_index.erase(ToLower(m_entries[position].key));
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
        Reindex(position);
    }

    void Clear()
    {
        m_entries.clear();
        m_index.clear();
    }

    Entry& At(std::size_t position) { return m_entries.at(position); }
    const Entry& At(std::size_t position) const { return m_entries.at(position); }

    auto begin() { return m_entries.begin(); }
    auto end() { return m_entries.end(); }
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

private:
    void Reindex(std::size_t from)
    {
        for (std::size_t i = from; i < m_entries.size(); ++i)
            if (!m_entries[i].key.empty())
                m_index[ToLower(m_entries[i].key)] = i;
    }

    std::vector<Entry> m_entries;
    std::unordered_map<std::string, std::size_t> m_index;
};

}  // namespace scriv
