#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/Picture.h"

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
    // its bytes), converted from the system code page; nothing when the record
    // runs past the end of the file.
    std::optional<std::vector<std::string>> ListItems(std::uint32_t offset) const;

private:
    std::uint32_t U16(std::size_t at) const;
    std::uint32_t U32(std::size_t at) const;
    bool Has(std::size_t at, std::size_t count) const { return at <= m_bytes.size() && count <= m_bytes.size() - at; }

    std::string m_bytes;
};

// The picture of image file bytes when they are a bitmap or a JPEG; nothing
// for any other kind (GIF, icons and metafiles are left out).
std::optional<Picture> DecodePicture(std::string_view bytes);

}  // namespace scriv
