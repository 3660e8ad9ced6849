#include "desktop/FrxFile.h"

#include "desktop/BmpFile.h"
#include "desktop/cJPEG.h"
#include "foundation/CodePage.h"
#include "foundation/Paths.h"

namespace scriv {

namespace {

constexpr std::string_view kPictureMark { "lt\0\0", 4 };
// The class id of a standard picture, as it is stored (16 bytes).
constexpr std::size_t kClassIdSize = 16;

}  // namespace

std::optional<FrxFile> FrxFile::Load(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    if (!bytes)
        return std::nullopt;
    return FrxFile(std::move(*bytes));
}

std::uint32_t FrxFile::U16(std::size_t at) const
{
    if (!Has(at, 2))
        return 0;
    return static_cast<std::uint8_t>(m_bytes[at]) | (static_cast<std::uint32_t>(static_cast<std::uint8_t>(m_bytes[at + 1])) << 8);
}

std::uint32_t FrxFile::U32(std::size_t at) const
{
    return U16(at) | (U16(at + 2) << 16);
}

std::optional<std::string> FrxFile::PictureBytes(std::uint32_t offset) const
{
    std::size_t at = offset;
    std::size_t mark = at + 4;
    if (Has(mark, 4) && std::string_view(m_bytes).substr(mark, 4) != kPictureMark)
        mark += kClassIdSize;
    if (!Has(mark, 8) || std::string_view(m_bytes).substr(mark, 4) != kPictureMark)
        return std::nullopt;
    std::size_t size = U32(mark + 4);
    std::size_t data = mark + 8;
    if (size == 0 || !Has(data, size))
        return std::nullopt;
    return m_bytes.substr(data, size);
}

std::optional<std::vector<std::string>> FrxFile::ListItems(std::uint32_t offset) const
{
    std::size_t at = offset;
    if (!Has(at, 2))
        return std::nullopt;
    std::size_t count = U16(at);
    at += 2;
    std::vector<std::string> items;
    if (count == 0)
        return items;
    at += 2;
    for (std::size_t i = 0; i < count; ++i) {
        if (!Has(at, 2))
            return std::nullopt;
        std::size_t length = U16(at);
        at += 2;
        if (!Has(at, length))
            return std::nullopt;
        items.push_back(FromSystemCodePage(std::string_view(m_bytes).substr(at, length)));
        at += length;
    }
    return items;
}

std::optional<Picture> DecodePicture(std::string_view bytes)
{
    if (bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M')
        return DecodeBmp(bytes);
    if (bytes.size() >= 3 && static_cast<unsigned char>(bytes[0]) == 0xFF && static_cast<unsigned char>(bytes[1]) == 0xD8)
        return DecodeJpeg(bytes);
    return std::nullopt;
}

}  // namespace scriv
