#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace scriv {

// A text file by name: its parts, its contents as one text, deletion.
//
// Failures raise ScrivError, or with Silent set are kept in Error (0 after an
// operation that succeeded) and the operation answers an empty result.
// Codes: 0x80040001 no file name or the file cannot be read or written,
// 0x80040002 the file does not exist.
class clsFile {
public:
    clsFile() = default;
    explicit clsFile(std::string fullName, bool silent = false)
        : m_fullName(std::move(fullName))
        , m_silent(silent)
    {
    }

    bool Silent() const { return m_silent; }
    void SetSilent(bool silent) { m_silent = silent; }

    // The code of the last failure, or 0.
    std::uint32_t Error() const { return m_error; }
    const std::string& ErrorDescription() const { return m_errorDescription; }

    const std::string& FullName() const { return m_fullName; }
    void SetFullName(std::string fullName) { m_fullName = std::move(fullName); }

    // The folder with its final separator, or "".
    std::string Path() const;
    std::string NameWithExtension() const;
    // NameWithExtension up to the last ".", or the whole when there is none.
    std::string Name() const;
    // What follows the last ".", without the dot, or "".
    std::string Extension() const;

    // The file's lines joined with CR LF (a final line end is not kept), read
    // as the system's text files are (UTF-8 when marked or declared, else the
    // system code page).
    std::string Contents();
    // Replaces the file with the text, written as one block in the encoding
    // the text declares, else the system code page.
    void SetContents(std::string_view text);
    // Deletes the file; a missing file is a failure.
    void Delete();

private:
    void ClearError();
    void Fail(std::uint32_t code, std::string_view procedure, std::string description);

    std::string m_fullName;
    bool m_silent { false };
    std::uint32_t m_error { 0 };
    std::string m_errorDescription;
};

}  // namespace scriv
