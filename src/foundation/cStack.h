#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "foundation/ScrivError.h"

namespace scriv {

// A stack of texts with a cursor, as a history of visited places needs it.
//
// Positions count from 1 at the bottom to StackCount() at the top; 0 means
// "no position" and is the cursor of an empty stack. Push puts a text on top
// and moves the cursor to it. Up and Down move the cursor one place toward the
// top or the bottom; the items stay. Pop and RemoveItem take an item out; the
// cursor stays on its item, and when that item is the one taken out it moves
// to the item that takes its place, or to the new top.
class cStack {
public:
    void Push(std::string text)
    {
        m_items.push_back(std::move(text));
        m_cursor = m_items.size();
    }

    // Takes the top item off and answers it; raises "Stack is empty".
    std::string Pop()
    {
        if (m_items.empty())
            Raise(status::kGeneralFailure, "cStack::Pop", "Stack is empty");
        std::string top = std::move(m_items.back());
        m_items.pop_back();
        ClampCursor();
        return top;
    }

    // The top item, or "" for an empty stack.
    std::string Top() const { return m_items.empty() ? std::string() : m_items.back(); }
    // The item at the cursor, or "" for an empty stack.
    std::string Current() const { return m_cursor == 0 ? std::string() : m_items[m_cursor - 1]; }

    // Moves the cursor one place up; raises "Already top" when it is at the
    // top or the stack is empty.
    void Up()
    {
        if (m_cursor >= m_items.size())
            Raise(status::kGeneralFailure, "cStack::Up", "Already top");
        ++m_cursor;
    }

    // Moves the cursor one place down; false (and no move) at the bottom or
    // on an empty stack.
    bool Down()
    {
        if (m_cursor <= 1)
            return false;
        --m_cursor;
        return true;
    }

    bool IsEmpty() const { return m_items.empty(); }
    std::size_t StackCount() const { return m_items.size(); }
    void Clear()
    {
        m_items.clear();
        m_cursor = 0;
    }

    std::size_t CursorPosition() const { return m_cursor; }

    // The item at a position (1 = bottom); raises for a position outside the stack.
    const std::string& Item(std::size_t position) const
    {
        CheckPosition(position, "cStack::Item");
        return m_items[position - 1];
    }

    // Removes the item at a position (1 = bottom); raises for a position
    // outside the stack.
    void RemoveItem(std::size_t position)
    {
        CheckPosition(position, "cStack::RemoveItem");
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(position - 1));
        if (position < m_cursor)
            --m_cursor;
        ClampCursor();
    }

private:
    void CheckPosition(std::size_t position, const char* source) const
    {
        if (position == 0 || position > m_items.size())
            Raise(status::kGeneralFailure, source, "Invalid stack position " + std::to_string(position));
    }

    void ClampCursor()
    {
        if (m_cursor > m_items.size())
            m_cursor = m_items.size();
    }

    std::vector<std::string> m_items;
    std::size_t m_cursor { 0 };
};

}  // namespace scriv
