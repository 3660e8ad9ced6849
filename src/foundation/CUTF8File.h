#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Reading and writing the text files of a help project. Pages are UTF-8; a file
// that says nothing of its encoding is in the system code page.
namespace scriv {

class CUTF8FileReader {
public:
    // Reads a file. 0 on success; 0x8003FE09 for an empty path, 0x80040001 when
    // the file cannot be read.
    std::uint32_t LoadFile(std::string_view path);
    void Dispose();

    std::size_t Length() const { return m_bytes.size(); }
    // 3 when the file starts with the UTF-8 mark EF BB BF, else 0.
    int IsUTF8() const { return m_hasHeader ? 3 : 0; }
    bool HasUTF8Header() const { return m_hasHeader; }
    // The encoding the text was read in ("utf-8", "windows-1252" ...).
    const std::string& Encoding() const { return m_encoding; }
    // The file's text as UTF-8.
    const std::string& Text() const { return m_text; }

private:
    std::string m_bytes;
    std::string m_text;
    std::string m_encoding;
    bool m_hasHeader { false };
};

class CUTF8FileWriter {
public:
    void ClearText() { m_text.clear(); }
    void AddText(std::string_view text) { m_text += text; }
    const std::string& Text() const { return m_text; }
    void Dispose() { m_text.clear(); }

    // Writes the collected text, replacing the file. The text is written in the
    // encoding it declares (a meta charset or an XML encoding), else in the
    // system code page; writeByteOrderMark puts EF BB BF ahead of UTF-8.
    // 0 on success; 0x8003FE09 for an empty path, 0x80040001 when the write fails.
    std::uint32_t SaveFile(std::string_view path, bool writeByteOrderMark = false);

private:
    std::string m_text;
};

// The charset a page or XML text declares in its head ("utf-8", "windows-1251"),
// lower-cased, or empty. Only the first 2,048 characters are looked at.
std::string DeclaredEncoding(std::string_view text);

// Whole-file helpers over the two classes.
// The text of a file, or empty when it cannot be read.
std::string ReadTextFile(std::string_view path);
// Writes text as the writer does; true on success.
bool WriteTextFile(std::string_view path, std::string_view text, bool writeByteOrderMark = false);
// Writes text as UTF-8 regardless of what it declares; true on success.
bool WriteUtf8File(std::string_view path, std::string_view text);

}  // namespace scriv
