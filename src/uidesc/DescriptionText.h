#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <pugixml.hpp>

#include "foundation/KeyedCollection.h"

// Small pieces shared by the readers and writers of form descriptions.
namespace scriv::desc {

// Reads the attributes of one element by exact name; an absent one counts as
// "" or 0. A number attribute that holds something else than whole numbers is
// remembered as the element's problem (the first one only).
class AttributeReader {
public:
    explicit AttributeReader(const pugi::xml_node& element)
        : m_element(element)
    {
    }

    std::string Text(const char* name) const;
    bool Has(const char* name) const { return static_cast<bool>(m_element.attribute(name)); }
    // absent is the value of a missing or empty attribute.
    int Int(const char* name, int absent = 0);
    // "a, b": a missing part is 0.
    std::pair<int, int> Pair(const char* name);
    // Up to four numbers split on ","; missing ones take absent.
    void Four(const char* name, int (&values)[4], int absent);

    bool Failed() const { return !m_problem.empty(); }
    const std::string& Problem() const { return m_problem; }

private:
    int Number(std::string_view text, const char* name, int absent);

    pugi::xml_node m_element;
    std::string m_problem;
};

// The element's name less any namespace prefix.
std::string BaseName(const pugi::xml_node& element);

// ` name = "value" ` as the walk writes attributes (a blank around "=" and
// one after the closing quote).
void Spaced(std::string& out, std::string_view name, std::string_view value);
// ` name="value" ` as the page side writes them.
void Tight(std::string& out, std::string_view name, std::string_view value);
// A value written without the entity filter still must not break the
// element: & < > and " become the predefined entities.
std::string Plain(std::string_view value);

// A bare file name joined to a folder; a path with a folder part stays.
std::string JoinBare(std::string_view fileName, std::string_view folder);
// The current help project's folder and images folder, or "" without one.
std::string ProjectFolder();
std::string ProjectPicsFolder();

// The generation option that picks captions for index texts of forms and
// controls: IdentifyControls 0 (captions), not any other value (names).
bool IndexesFromCaption();

// Keeps a part under its Name; a name already taken leaves it without a key
// rather than losing it.
template<typename T>
T& AddUnderName(KeyedCollection<std::unique_ptr<T>>& items, std::unique_ptr<T> item)
{
    T& added = *item;
    std::string key = items.Contains(item->Name) ? std::string() : item->Name;
    items.Add(std::move(key), std::move(item));
    return added;
}

}  // namespace scriv::desc
