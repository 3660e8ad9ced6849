#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/vb6/Vb6Property.h"

namespace scriv {

// One "Begin <Library.Type> <Name>" ... "End" block of a form description: the
// form itself, a control, or a menu. Children and properties are in file order.
class Vb6Block : public Vb6PropertyList {
public:
    Vb6Block(std::string libraryType, std::string name, int beginLine, const Vb6Block* parent)
        : m_libraryType(std::move(libraryType))
        , m_name(std::move(name))
        , m_parent(parent)
        , m_beginLine(beginLine)
    {
    }

    // --- what the block is ---

    // "VB.CommandButton", "TabDlg.SSTab", or a class id "{...}" for a designer.
    const std::string& LibraryType() const { return m_libraryType; }
    // The type without its library: "CommandButton", "SSTab"; a class id stays whole.
    std::string ShortType() const;
    const std::string& Name() const { return m_name; }
    // The Index of a control array member, or nothing when the block is none.
    std::optional<int> Index() const;
    // The name as code writes it: "Name", or "Name(3)" for an array member.
    std::string IndexedName() const;
    // True for a "VB.Menu" block.
    bool IsMenu() const;
    // True for a menu whose caption is "-".
    bool IsSeparator() const;

    // --- the tree ---

    // The enclosing block, or null for the form itself.
    const Vb6Block* Parent() const { return m_parent; }
    const std::vector<std::unique_ptr<Vb6Block>>& Children() const { return m_children; }
    // Every block below this one, depth first in file order.
    std::vector<const Vb6Block*> Descendants() const;
    // The first block below this one with that name (without regard to case)
    // and, when given, that Index; null when there is none.
    const Vb6Block* FindBlock(std::string_view name, std::optional<int> index = std::nullopt) const;
    // The controls a tab control lists for a page (0 based) in its
    // Tab(page).Control(i) lines, as written ("Text1", "Option1(0)").
    std::vector<std::string> TabPageControlNames(int page) const;

    // --- lines ---

    int BeginLine() const { return m_beginLine; }
    int EndLine() const { return m_endLine; }
    // The line of the first nested Begin or BeginProperty, or the End line when
    // the block holds only properties: where a new property line goes.
    int FirstNestedLine() const { return m_firstNestedLine ? m_firstNestedLine : m_endLine; }

    // --- building; used by the reader and by writing back ---

    Vb6Block& AddChild(std::unique_ptr<Vb6Block> child);
    void SetEndLine(int line) { m_endLine = line; }
    // Notes a nested Begin or BeginProperty line; the first one counts.
    void NoteNestedLine(int line);
    // ^Vb6PropertyList
    void ShiftLines(int fromLine) override;

private:
    void CollectDescendants(std::vector<const Vb6Block*>& blocks) const;

    std::string m_libraryType;
    std::string m_name;
    const Vb6Block* m_parent { nullptr };
    std::vector<std::unique_ptr<Vb6Block>> m_children;
    int m_beginLine { 0 };
    int m_endLine { 0 };
    int m_firstNestedLine { 0 };
};

}  // namespace scriv
