#include "host/vb6/clsProjectFile.h"

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

bool StartsWithMarker(std::string_view raw, std::string_view marker)
{
    return TrimVb6(raw).substr(0, marker.size()) == marker;
}

}  // namespace

void clsProjectFile::init(std::string_view fileType, std::string_view value, std::string_view folder)
{
    m_fileType = ToUpper(fileType);
    std::string path(TrimVb6(value));
    if (m_fileType == "MODULE" || m_fileType == "CLASS") {
        std::vector<std::string> parts = Split(value, ";");
        m_name = TrimVb6(parts[0]);
        path = parts.size() > 1 ? std::string(TrimVb6(parts[1])) : std::string();
    }
    m_fileName = ResolveVb6Path(folder, path);
    if (m_fileType == "FORM") {
        std::string fileName = FileNameOf(m_fileName);
        m_name = fileName.substr(0, fileName.find('.'));
    }
    std::optional<std::string> bytes = ReadFileText(m_fileName);
    m_read = bytes.has_value();
    m_lines = m_read ? SplitRawLines(*bytes) : std::vector<Vb6RawLine>();
    m_dirty = false;
    if (!m_read)
        Trace("clsProjectFile.init: can't read '" + m_fileName + "'");
}

std::vector<std::string> clsProjectFile::Lines() const
{
    std::vector<std::string> lines;
    lines.reserve(m_lines.size());
    for (const Vb6RawLine& line : m_lines)
        lines.push_back(DecodeVb6(line.bytes));
    return lines;
}

std::optional<clsProjectFile::Block> clsProjectFile::FindHeader() const
{
    for (std::size_t begin = 0; begin < m_lines.size(); ++begin) {
        if (!StartsWithMarker(m_lines[begin].bytes, "'+="))
            continue;
        for (std::size_t end = begin + 1; end < m_lines.size(); ++end) {
            if (StartsWithMarker(m_lines[end].bytes, "'-="))
                return Block { begin, end };
        }
        return std::nullopt;
    }
    return std::nullopt;
}

std::string clsProjectFile::FileHeader() const
{
    std::optional<Block> block = FindHeader();
    if (!block)
        return {};
    std::vector<std::string> comments;
    for (std::size_t i = block->begin + 1; i < block->end; ++i) {
        std::string_view line = TrimVb6(m_lines[i].bytes);
        if (!line.empty() && line.front() == '\'')
            comments.push_back(DecodeVb6(line.substr(1)));
    }
    return Join(comments, kCrLf);
}

// Behind the Attribute lines that end a file's description, or the top.
std::size_t clsProjectFile::HeaderPosition() const
{
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (!StartsWithVb6Keyword(m_lines[i].bytes, "Attribute"))
            continue;
        while (i < m_lines.size() && StartsWithVb6Keyword(m_lines[i].bytes, "Attribute"))
            ++i;
        return i;
    }
    return 0;
}

std::string clsProjectFile::LineEnd() const
{
    for (const Vb6RawLine& line : m_lines) {
        if (!line.end.empty())
            return line.end;
    }
    return std::string(kCrLf);
}

void clsProjectFile::SetFileHeader(std::string_view header)
{
    std::string end = LineEnd();
    std::vector<Vb6RawLine> comments;
    if (!header.empty()) {
        for (const std::string& line : SplitLines(header))
            comments.push_back({ EncodeVb6("'" + line), end });
    }
    std::vector<Vb6RawLine> lines = m_lines;
    std::optional<Block> block = FindHeader();
    std::size_t at = 0;
    if (block) {
        at = block->begin + 1;
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at), lines.begin() + static_cast<std::ptrdiff_t>(block->end));
    } else {
        at = HeaderPosition();
        // A last line without a line end gets one before lines follow it.
        if (at > 0 && lines[at - 1].end.empty())
            lines[at - 1].end = end;
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), { Vb6RawLine { "'+=", end }, Vb6RawLine { "'-=", end } });
        ++at;
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), comments.begin(), comments.end());
    if (JoinRawLines(lines) == JoinRawLines(m_lines))
        return;
    m_lines = std::move(lines);
    m_dirty = true;
}

bool clsProjectFile::Save()
{
    if (!m_dirty)
        return false;
    if (!m_read)
        Raise(status::kGeneralFailure, "clsProjectFile.Save", "The file '" + m_fileName + "' was never read; it is not replaced");
    if (!WriteFileBytes(m_fileName, JoinRawLines(m_lines)))
        Raise(status::kGeneralFailure, "clsProjectFile.Save", "Can't write the file '" + m_fileName + "'");
    m_dirty = false;
    return true;
}

}  // namespace scriv
