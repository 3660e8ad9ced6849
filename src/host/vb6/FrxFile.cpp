#include "host/vb6/FrxFile.h"

#include <algorithm>

#include "foundation/CodePage.h"
#include "foundation/Paths.h"

namespace scriv {

namespace {

constexpr std::string_view kPictureMark { "lt\0\0", 4 };
// The class id of a standard picture, as it is stored (16 bytes).
constexpr std::size_t kClassIdSize = 16;

std::string Decode(std::string_view bytes, std::string_view codePage)
{
    return ConvertToUtf8(bytes, codePage.empty() ? std::string_view(SystemCodePage()) : codePage);
}

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

std::optional<std::vector<std::string>> FrxFile::ListItems(std::uint32_t offset, std::string_view codePage) const
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
        items.push_back(Decode(std::string_view(m_bytes).substr(at, length), codePage));
        at += length;
    }
    return items;
}

std::optional<std::string> FrxFile::Text(std::uint32_t offset, std::string_view codePage) const
{
    std::size_t at = offset;
    if (!Has(at, 1))
        return std::nullopt;
    // A 32-bit length has a zero among its bytes; the first bytes of a
    // one-byte length record are the length and the text, which has none.
    std::string_view head = std::string_view(m_bytes).substr(at, std::min<std::size_t>(4, m_bytes.size() - at));
    std::size_t length = 0;
    if (head.size() == 4 && head.find('\0') != std::string_view::npos) {
        length = U32(at);
        at += 4;
    } else if (static_cast<unsigned char>(m_bytes[at]) == 0xFF) {
        if (!Has(at + 1, 2))
            return std::nullopt;
        length = U16(at + 1);
        at += 3;
    } else {
        length = static_cast<unsigned char>(m_bytes[at]);
        at += 1;
    }
    if (!Has(at, length))
        return std::nullopt;
    return Decode(std::string_view(m_bytes).substr(at, length), codePage);
}

}  // namespace scriv
