#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scriv {

struct CHtmlAttribute {
    std::string Name;
    std::string Value;
};

// Reads the attributes of an element from its markup, as they are written,
// rather than from the document's attribute list. Comparisons respect case.
class CHtmlNodeAttributes {
public:
    // The folder that "href" and "src" values are made relative to ("/"
    // separators, final "/").
    const std::string& BaseFolder() const { return m_baseFolder; }
    void SetBaseFolder(std::string folder) { m_baseFolder = std::move(folder); }

    // The name="value" pairs of the first tag of outerHtml, in order; a
    // repeated name keeps its first value, and an attribute without "=" is not
    // seen. Quotes are trimmed from the values; "href" and "src" values lose
    // "file://" and a leading BaseFolder. Never fails: text that is no tag
    // gives what could be read of it.
    std::vector<CHtmlAttribute> GetNodeAttributes(std::string_view outerHtml) const;

private:
    std::string RelativePath(const std::string& value) const;

    std::string m_baseFolder;
};

}  // namespace scriv
