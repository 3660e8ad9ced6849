#include "htmledit/CHtmlStringBuilder.h"

#include <algorithm>

#include "foundation/StringUtil.h"

namespace scriv {

void CHtmlStringBuilder::init(std::size_t initialSize, std::size_t growth)
{
    m_text.clear();
    m_text.reserve(initialSize);
    m_growth = growth == 0 ? initialSize : growth;
}

void CHtmlStringBuilder::Reserve(std::size_t extra)
{
    std::size_t needed = m_text.size() + extra;
    if (needed <= m_text.capacity())
        return;
    // Never less than the growth step, and doubling on big pages so that a
    // megabyte is not copied a hundred times.
    m_text.reserve(std::max({ needed, m_text.capacity() + m_growth, m_text.capacity() * 2 }));
}

void CHtmlStringBuilder::AddString(std::string_view text, bool lineBreakFirst)
{
    bool breakFirst = lineBreakFirst && !m_text.empty();
    Reserve(text.size() + (breakFirst ? 2 : 0));
    if (breakFirst)
        m_text += kCrLf;
    m_text += text;
}

bool CHtmlStringBuilder::LastTokenIsCrLf() const
{
    return m_text.size() >= 2 && m_text.ends_with(kCrLf);
}

void CHtmlStringBuilder::RemoveTrailingVbCrLf()
{
    while (LastTokenIsCrLf())
        m_text.resize(m_text.size() - 2);
}

std::string CHtmlStringBuilder::formatString(std::string_view text, std::string_view indent)
{
    std::string out;
    out.reserve(text.size() + 16);
    bool first = true;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos)
            end = text.size();
        std::string_view line = text.substr(start, end - start);
        // Blanks only: tabs stay, as they are the script's own indentation.
        std::size_t from = line.find_first_not_of(" \r");
        std::size_t to = line.find_last_not_of(" \r");
        line = from == std::string_view::npos ? std::string_view() : line.substr(from, to - from + 1);
        if (first) {
            out += line;
        } else if (!line.empty()) {
            out += kCrLf;
            out += indent;
            out += line;
        }
        first = false;
        start = end + 1;
    }
    return out;
}

}  // namespace scriv
