#include "host/vb6/Vb6Block.h"

#include <cmath>

#include "foundation/StringUtil.h"

namespace scriv {

std::string Vb6Block::ShortType() const
{
    if (!m_libraryType.empty() && m_libraryType.front() == '{')
        return m_libraryType;
    std::size_t dot = m_libraryType.rfind('.');
    return dot == std::string::npos ? m_libraryType : m_libraryType.substr(dot + 1);
}

std::optional<int> Vb6Block::Index() const
{
    const Vb6Property* property = FindProperty("Index");
    std::optional<double> number = property ? property->Number() : std::nullopt;
    if (!number || std::abs(*number) > 1e9)
        return std::nullopt;
    return static_cast<int>(*number);
}

std::string Vb6Block::IndexedName() const
{
    std::optional<int> index = Index();
    return index ? m_name + "(" + std::to_string(*index) + ")" : m_name;
}

bool Vb6Block::IsMenu() const
{
    return EqualsNoCase(m_libraryType, "VB.Menu");
}

bool Vb6Block::IsSeparator() const
{
    return IsMenu() && Text("Caption") == "-";
}

std::vector<const Vb6Block*> Vb6Block::Descendants() const
{
    std::vector<const Vb6Block*> blocks;
    CollectDescendants(blocks);
    return blocks;
}

void Vb6Block::CollectDescendants(std::vector<const Vb6Block*>& blocks) const
{
    for (const auto& child : m_children) {
        blocks.push_back(child.get());
        child->CollectDescendants(blocks);
    }
}

const Vb6Block* Vb6Block::FindBlock(std::string_view name, std::optional<int> index) const
{
    for (const Vb6Block* block : Descendants()) {
        if (EqualsNoCase(block->Name(), name) && (!index || block->Index() == index))
            return block;
    }
    return nullptr;
}

std::vector<std::string> Vb6Block::TabPageControlNames(int page) const
{
    std::vector<std::string> names;
    std::string prefix = "Tab(" + std::to_string(page) + ").Control(";
    for (int i = 0;; ++i) {
        const Vb6Property* property = FindProperty(prefix + std::to_string(i) + ")");
        if (!property)
            break;
        names.push_back(property->Text().value_or(property->value));
    }
    return names;
}

Vb6Block& Vb6Block::AddChild(std::unique_ptr<Vb6Block> child)
{
    m_children.push_back(std::move(child));
    return *m_children.back();
}

void Vb6Block::NoteNestedLine(int line)
{
    if (m_firstNestedLine == 0)
        m_firstNestedLine = line;
}

void Vb6Block::ShiftLines(int fromLine)
{
    ShiftLine(m_beginLine, fromLine);
    ShiftLine(m_endLine, fromLine);
    ShiftLine(m_firstNestedLine, fromLine);
    Vb6PropertyList::ShiftLines(fromLine);
    for (auto& child : m_children)
        child->ShiftLines(fromLine);
}

}  // namespace scriv
