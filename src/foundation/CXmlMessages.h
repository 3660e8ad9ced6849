#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedCollection.h"

namespace scriv {

// The table of user-visible texts, read from Messages.xml: a root "Messages"
// whose child elements carry Code, Text and T. A row with Code and Text is a
// message; a row with T also localises page words: ReplaceParameters turns its
// Code, wherever it stands in a text, into its T value.
class CXmlMessages {
public:
    // Message texts by code (codes compare without regard to case).
    const KeyedCollection<std::string>& Messages() const { return m_messages; }

    // The text of a code, or "" when the table does not have it.
    std::string GetMessage(std::string_view code) const;
    // The text with {1}, {2} ... replaced by params[0], params[1] ...; a
    // placeholder without a parameter stays as it is.
    std::string GetMessageWithParams(std::string_view code, const std::vector<std::string>& params) const;

    // Forgets the table, then loads path.
    void Reload(std::string_view path);
    // Reads the table from path. Raises ScrivError ("reason - code", source
    // "CXmlMessages.Load") when the file does not parse; the table is then empty.
    void Load(std::string_view path);

    // Replaces each T row's code in text by its T value, in file order.
    std::string ReplaceParameters(std::string_view text) const;

    // The file last loaded.
    const std::string& Path() const { return m_path; }

private:
    void Clear();

    KeyedCollection<std::string> m_messages;
    // The T rows: code and replacement in file order.
    std::vector<std::string> m_replaceCodes;
    std::vector<std::string> m_replaceValues;
    std::string m_path;
};

// Localized/<language>/Messages.xml below the templates root when it exists,
// else Localized/EN/Messages.xml.
std::string FindMessagesFile(std::string_view templatesRoot, std::string_view language);

// text with {1}, {2} ... replaced by the parameters by position, in one pass.
std::string ReplacePlaceholders(std::string_view text, const std::vector<std::string>& params);

}  // namespace scriv
