#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scriv {

// A finished page read back for its title and caption, and written again with
// title, caption, style sheet, charset and body put in.
class clsHTMLFile {
public:
    // Reads a page: 0x80040001 for an empty path, 0x80040002 for a missing file.
    // Title is the text between the first <title> and </title>, Caption between
    // the first <h1> and </h1>.
    std::uint32_t Load(std::string_view path);
    // Writes the page to path (or where it was loaded from). The file it replaces
    // is moved aside first and restored when the new one cannot be written.
    std::uint32_t Save(std::string_view path = {});

    std::string HTML;
    std::string Title;
    std::string Caption;
    std::string CSSFullPath;
    std::string Charset;
    std::string Body;
    std::string ZoomFactor;

    const std::string& FullPath() const { return m_fullPath; }

    // The text as Save writes it, without writing it.
    std::string Render() const;

private:
    std::string m_fullPath;
};

}  // namespace scriv
