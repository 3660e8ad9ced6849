#include "uidesc/CFormHTMLManipulator.h"

#include "foundation/CUTF8File.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Position of the last occurrence of a text without regard to case, or npos.
std::size_t FindLastNoCase(std::string_view text, std::string_view what)
{
    std::size_t last = std::string_view::npos;
    for (std::size_t at = FindNoCase(text, what); at != std::string_view::npos; at = FindNoCase(text, what, at + 1))
        last = at;
    return last;
}

}  // namespace

bool CFormHTMLManipulator::LoadHtmlDocument(std::string_view path)
{
    Terminate();
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != 0)
        return false;
    m_text = reader.Text();
    m_encoding = reader.Encoding();
    m_hasByteOrderMark = reader.HasUTF8Header();
    m_loaded = true;
    return true;
}

bool CFormHTMLManipulator::AddHTMLElementToBody(std::string_view html)
{
    if (!m_loaded)
        return false;
    std::size_t at = FindLastNoCase(m_text, "</body>");
    if (at == std::string::npos)
        at = FindLastNoCase(m_text, "</html>");
    if (at == std::string::npos)
        at = m_text.size();
    m_text.insert(at, html);
    return true;
}

bool CFormHTMLManipulator::SaveDoc(std::string_view path)
{
    if (!m_loaded || path.empty())
        return false;
    // Written back in the encoding it was read in, so that the bytes around the
    // insertion stay as they were.
    std::string bytes = EqualsNoCase(m_encoding, "utf-8") ? m_text : ConvertFromUtf8(m_text, m_encoding);
    if (m_hasByteOrderMark)
        bytes.insert(0, "\xEF\xBB\xBF");
    std::string temporary = std::string(path) + ".tmp";
    if (WriteFileBytes(temporary, bytes) && RenameFile(temporary, path))
        return true;
    DeleteFileIfExists(temporary);
    return false;
}

void CFormHTMLManipulator::Terminate()
{
    m_text.clear();
    m_encoding.clear();
    m_hasByteOrderMark = false;
    m_loaded = false;
}

}  // namespace scriv
