#include "foundation/CUTF8File.h"

#include "foundation/CodePage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool HasNonAscii(std::string_view bytes)
{
    for (char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x80)
            return true;
    return false;
}

// The value after "key" up to a quote, blank, semicolon or ">".
std::string ValueAfter(std::string_view head, std::size_t at)
{
    std::size_t start = at;
    while (start < head.size() && (head[start] == '"' || head[start] == '\'' || head[start] == ' '))
        ++start;
    std::size_t end = start;
    while (end < head.size() && head[end] != '"' && head[end] != '\'' && head[end] != ' ' && head[end] != ';'
        && head[end] != '>' && head[end] != '?' && head[end] != '/')
        ++end;
    return ToLower(head.substr(start, end - start));
}

}  // namespace

std::string DeclaredEncoding(std::string_view text)
{
    std::string head = LeftChars(text, 2048);
    std::size_t charset = FindNoCase(head, "charset=");
    if (charset != std::string::npos) {
        std::string value = ValueAfter(head, charset + 8);
        // "{{charset}}" in a template is not a declaration yet.
        if (!value.empty() && value.front() != '{')
            return value;
    }
    std::size_t encoding = FindNoCase(head, "encoding=");
    if (encoding != std::string::npos && encoding < FindNoCase(head, "?>"))
        return ValueAfter(head, encoding + 9);
    return {};
}

std::uint32_t CUTF8FileReader::LoadFile(std::string_view path)
{
    Dispose();
    if (path.empty())
        return status::kAbandoned;
    auto bytes = ReadFileText(path);
    if (!bytes)
        return status::kGeneralFailure;
    m_bytes = std::move(*bytes);
    std::string_view body = m_bytes;
    if (body.substr(0, 3) == kByteOrderMark) {
        m_hasHeader = true;
        m_encoding = "utf-8";
        m_text = std::string(body.substr(3));
        return status::kOk;
    }
    std::string declared = DeclaredEncoding(body);
    if (declared == "utf-8" || declared == "utf8") {
        m_encoding = "utf-8";
    } else if (!declared.empty() && IsKnownEncoding(declared)) {
        m_encoding = declared;
    } else if (HasNonAscii(body) && IsValidUtf8(body)) {
        // Undeclared text that is valid UTF-8 is what editors on this platform write.
        m_encoding = "utf-8";
    } else {
        m_encoding = SystemCodePage();
    }
    m_text = ConvertToUtf8(body, m_encoding);
    return status::kOk;
}

void CUTF8FileReader::Dispose()
{
    m_bytes.clear();
    m_text.clear();
    m_encoding.clear();
    m_hasHeader = false;
}

std::uint32_t CUTF8FileWriter::SaveFile(std::string_view path, bool writeByteOrderMark)
{
    if (path.empty())
        return status::kAbandoned;
    std::string declared = DeclaredEncoding(m_text);
    bool utf8 = declared == "utf-8" || declared == "utf8";
    std::string encoding = utf8 ? "utf-8" : (!declared.empty() && IsKnownEncoding(declared) ? declared : SystemCodePage());
    std::string bytes;
    if (EqualsNoCase(encoding, "utf-8")) {
        if (writeByteOrderMark)
            bytes = std::string(kByteOrderMark);
        bytes += m_text;
    } else {
        bytes = ConvertFromUtf8(m_text, encoding);
    }
    return WriteFileBytes(path, bytes) ? status::kOk : status::kGeneralFailure;
}

std::string ReadTextFile(std::string_view path)
{
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != status::kOk)
        return {};
    return reader.Text();
}

bool WriteTextFile(std::string_view path, std::string_view text, bool writeByteOrderMark)
{
    CUTF8FileWriter writer;
    writer.AddText(text);
    return writer.SaveFile(path, writeByteOrderMark) == status::kOk;
}

bool WriteUtf8File(std::string_view path, std::string_view text)
{
    return WriteFileBytes(path, text);
}

}  // namespace scriv
