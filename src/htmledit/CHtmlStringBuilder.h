#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scriv {

// The output buffer of the beautifier: one growing text with CR LF line ends,
// that knows whether it ends in a line break.
class CHtmlStringBuilder {
public:
    // Empties the buffer and reserves initialSize characters; each time it is
    // full it grows by growth characters at least (0: by initialSize).
    void init(std::size_t initialSize, std::size_t growth);

    // Appends text; with lineBreakFirst a CR LF goes in front, unless the
    // buffer is empty.
    void AddString(std::string_view text, bool lineBreakFirst = false);
    std::size_t CurrentLen() const { return m_text.size(); }
    const std::string& Value() const { return m_text; }
    std::string TakeValue() { return std::move(m_text); }

    // The buffer holds two characters at least and ends in CR LF.
    bool LastTokenIsCrLf() const;
    // Removes CR LF pairs from the end until none is left.
    void RemoveTrailingVbCrLf();

    // The text's lines (split at CR LF or LF) trimmed of blanks; empty lines dropped,
    // except an empty first line, which stays as one; every line but the
    // first gets indent in front. Joined with CR LF.
    static std::string formatString(std::string_view text, std::string_view indent);

private:
    void Reserve(std::size_t extra);

    std::string m_text;
    std::size_t m_growth { 0 };
};

}  // namespace scriv
