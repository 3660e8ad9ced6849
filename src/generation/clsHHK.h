#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedCollection.h"

namespace scriv {

class CXmlForm;

// One parameter of an index entry.
class clsHHKObjectParameter {
public:
    clsHHKObjectParameter(std::string name, std::string value)
        : Name(std::move(name))
        , m_value(std::move(value))
    {
    }
    // For "Local", only the file-name part of what is stored.
    std::string Value() const;
    void SetValue(std::string value) { m_value = std::move(value); }

    std::string Name;

private:
    std::string m_value;
};

// One index entry, or by nesting a keyword group. Children are kept sorted by
// the text they show; one that sorts equal to a present child is not added.
class clsHHKObject {
public:
    explicit clsHHKObject(std::string key, bool isRoot = false)
        : m_key(std::move(key))
        , m_isRoot(isRoot)
    {
    }

    const std::string& Key() const { return m_key; }
    // The text to sort and show; the key while none is set.
    std::string IndexGroupDisplayValue() const { return m_displayValue.empty() ? m_key : m_displayValue; }
    void SetIndexGroupDisplayValue(std::string value) { m_displayValue = std::move(value); }
    bool IsRoot() const { return m_isRoot; }

    std::vector<clsHHKObjectParameter>& Parameters() { return m_parameters; }
    const std::vector<clsHHKObjectParameter>& Parameters() const { return m_parameters; }
    void AddParameter(std::string name, std::string value) { m_parameters.emplace_back(std::move(name), std::move(value)); }

    clsHHKObject* GetObject(std::string_view key);
    bool ObjectExists(std::string_view key) const { return m_children.Contains(key); }
    // Inserts before the first child that sorts after it; false when one sorts equal.
    bool Add(std::unique_ptr<clsHHKObject> object);
    std::size_t ChildCount() const { return m_children.Count(); }
    const clsHHKObject& Child(std::size_t index) const { return *m_children.At(index).value; }

    // The lines of this entry (and its children) in the index file.
    std::string GenerateHHK(int level) const;
    void Terminate() { m_children.Clear(); }

private:
    std::string SortText() const;
    std::string ParameterLines(const std::string& indent, bool withLocal) const;

    std::string m_key;
    std::string m_displayValue;
    bool m_isRoot { false };
    std::vector<clsHHKObjectParameter> m_parameters;
    KeyedCollection<std::unique_ptr<clsHHKObject>> m_children;
    std::size_t m_unkeyed { 0 };
};

// The index of a help project: keyword groups under one root.
class clsHHK {
public:
    clsHHK();
    void Terminate();
    void AddCustomLink(const std::string& caption, const std::string& keyword, const std::string& fileName,
        const std::string& bookmark);
    // The links of a form topic: its caption and keywords, then those of its
    // documented controls and menus.
    void AddXmlFormLinks(const CXmlForm& form, const std::string& fileName);
    // The whole index file.
    std::string HHKContents() const;
    const clsHHKObject& Root() const { return *m_root; }

private:
    void AddKeywords(const std::string& text, const std::string& indexes, const std::string& file,
        const std::string& bookmark);

    std::unique_ptr<clsHHKObject> m_root;
};

// A caption of the index cut after its words pass 32 characters ("..."
// follows); a one-word text stays whole.
std::string TruncateCaption(std::string_view text);

}  // namespace scriv
