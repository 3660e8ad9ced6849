#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>


// The binary companion of a form file (.frx, .ctx, .dox): values too large or
// too binary for the text, each a record at the offset that the form file's
// property names ("frmMain.frx":0A2C).
namespace scriv {

class FrxFile {
public:
    // The file's bytes; nothing when it cannot be read.
    static std::optional<FrxFile> Load(const std::string& path);
    explicit FrxFile(std::string bytes)
        : m_bytes(std::move(bytes))
    {
    }

    // The bytes of the picture stored at offset (a bitmap, JPEG, GIF, icon or
    // metafile file as it was loaded), or nothing when no picture record is there.
    // A record is a 32-bit size, "lt\0\0", a 32-bit data size and the data; the
    // record of a control's picture property has the picture class id between
    // the size and "lt\0\0".
    std::optional<std::string> PictureBytes(std::uint32_t offset) const;

    // The items of a list stored at offset (a 16-bit count, for a non-empty
    // list a 16-bit field of its own, then each item as a 16-bit length and
    // its bytes), converted from the code page (the system code page when
    // none is named); nothing when the record runs past the end of the file.
    std::optional<std::vector<std::string>> ListItems(std::uint32_t offset, std::string_view codePage = {}) const;

    // The text stored at offset, converted from the code page (the system code
    // page when none is named): a 32-bit length and the bytes (captions and
    // tips), or a one-byte length, 255 standing for a 16-bit length behind it
    // (the text of a text box). Nothing when the record runs past the end.
    std::optional<std::string> Text(std::uint32_t offset, std::string_view codePage = {}) const;

private:
    std::uint32_t U16(std::size_t at) const;
    std::uint32_t U32(std::size_t at) const;
    bool Has(std::size_t at, std::size_t count) const { return at <= m_bytes.size() && count <= m_bytes.size() - at; }

    std::string m_bytes;
};

}  // namespace scriv
