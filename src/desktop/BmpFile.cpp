#include "desktop/BmpFile.h"

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "foundation/Paths.h"

namespace scriv {

namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::size_t kCoreHeaderSize = 12;
// 96 dots per inch in pixels per metre.
constexpr std::uint32_t kPixelsPerMetre = 3780;
// Beyond any picture a form holds; guards the allocation against a bad header.
constexpr std::int64_t kMaxPixels = 64LL * 1024 * 1024;

void PutU16(std::string& out, std::uint16_t value)
{
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8);
}

void PutU32(std::string& out, std::uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>((value >> shift) & 0xFF);
}

std::size_t RowBytes(int width, int bitsPerPixel)
{
    return ((static_cast<std::size_t>(width) * bitsPerPixel + 31) / 32) * 4;
}

// Little-endian reads that answer 0 past the end; callers check sizes first.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes)
        : m_bytes(bytes)
    {
    }
    bool Has(std::size_t offset, std::size_t count) const
    {
        return offset <= m_bytes.size() && count <= m_bytes.size() - offset;
    }
    std::uint32_t U8(std::size_t offset) const
    {
        return Has(offset, 1) ? static_cast<std::uint8_t>(m_bytes[offset]) : 0;
    }
    std::uint32_t U16(std::size_t offset) const { return U8(offset) | (U8(offset + 1) << 8); }
    std::uint32_t U32(std::size_t offset) const { return U16(offset) | (U16(offset + 2) << 16); }
    std::int32_t I32(std::size_t offset) const { return static_cast<std::int32_t>(U32(offset)); }

private:
    std::string_view m_bytes;
};

struct BmpLayout {
    int width { 0 };
    int height { 0 };
    bool topDown { false };
    int bits { 0 };
    std::uint32_t compression { 0 };
    std::size_t paletteOffset { 0 };
    std::size_t paletteEntrySize { 4 };
    std::size_t paletteCount { 0 };
    std::size_t pixelOffset { 0 };
    std::array<std::uint32_t, 3> masks { 0, 0, 0 };
};

// The value of a channel under a bit-field mask, scaled to 0..255.
std::uint8_t Channel(std::uint32_t pixel, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    int shift = std::countr_zero(mask);
    std::uint32_t max = mask >> shift;
    std::uint32_t value = (pixel & mask) >> shift;
    return static_cast<std::uint8_t>((value * 255 + max / 2) / max);
}

std::optional<BmpLayout> ReadLayout(const ByteReader& in)
{
    if (!in.Has(0, kFileHeaderSize + 4) || in.U16(0) != 0x4D42)
        return std::nullopt;
    BmpLayout layout;
    std::size_t header = in.U32(kFileHeaderSize);
    std::size_t at = kFileHeaderSize;
    if (header == kCoreHeaderSize) {
        layout.width = static_cast<int>(in.U16(at + 4));
        layout.height = static_cast<int>(in.U16(at + 6));
        layout.bits = static_cast<int>(in.U16(at + 10));
        layout.paletteEntrySize = 3;
    } else if (header >= kInfoHeaderSize && in.Has(at, kInfoHeaderSize)) {
        std::int32_t height = in.I32(at + 8);
        layout.width = in.I32(at + 4);
        layout.topDown = height < 0;
        layout.height = height == INT32_MIN ? 0 : (height < 0 ? -height : height);
        layout.bits = static_cast<int>(in.U16(at + 14));
        layout.compression = in.U32(at + 16);
        layout.paletteCount = in.U32(at + 32);
    } else {
        return std::nullopt;
    }
    if (layout.width <= 0 || layout.height <= 0
        || static_cast<std::int64_t>(layout.width) * layout.height > kMaxPixels)
        return std::nullopt;
    layout.paletteOffset = at + header;
    if (layout.compression == 3) {
        // Bit fields follow an info header; later headers hold them inside.
        std::size_t masksAt = header == kInfoHeaderSize ? at + header : at + 40;
        layout.masks = { in.U32(masksAt), in.U32(masksAt + 4), in.U32(masksAt + 8) };
        if (header == kInfoHeaderSize)
            layout.paletteOffset += 12;
    } else if (layout.bits == 16) {
        layout.masks = { 0x7C00, 0x03E0, 0x001F };
    } else if (layout.bits == 32) {
        layout.masks = { 0x00FF0000, 0x0000FF00, 0x000000FF };
    }
    if (layout.bits <= 8 && layout.paletteCount == 0)
        layout.paletteCount = std::size_t { 1 } << layout.bits;
    layout.pixelOffset = in.U32(10);
    bool known = layout.compression == 0 || (layout.compression == 3 && (layout.bits == 16 || layout.bits == 32));
    bool bits = layout.bits == 1 || layout.bits == 4 || layout.bits == 8 || layout.bits == 16 || layout.bits == 24
        || layout.bits == 32;
    if (!known || !bits || layout.paletteCount > 256)
        return std::nullopt;
    return layout;
}

std::vector<Rgb> ReadPalette(const ByteReader& in, const BmpLayout& layout)
{
    std::vector<Rgb> palette;
    for (std::size_t i = 0; i < layout.paletteCount; ++i) {
        std::size_t at = layout.paletteOffset + i * layout.paletteEntrySize;
        palette.push_back({ static_cast<std::uint8_t>(in.U8(at + 2)), static_cast<std::uint8_t>(in.U8(at + 1)),
            static_cast<std::uint8_t>(in.U8(at)) });
    }
    return palette;
}

Rgb PixelOf(const ByteReader& in, std::size_t row, int x, const BmpLayout& layout, const std::vector<Rgb>& palette)
{
    switch (layout.bits) {
    case 1:
    case 4:
    case 8: {
        std::size_t bit = static_cast<std::size_t>(x) * layout.bits;
        std::uint32_t byte = in.U8(row + bit / 8);
        std::uint32_t shift = 8 - layout.bits - bit % 8;
        std::uint32_t index = (byte >> shift) & ((1u << layout.bits) - 1);
        return index < palette.size() ? palette[index] : Rgb {};
    }
    case 16: {
        std::uint32_t pixel = in.U16(row + static_cast<std::size_t>(x) * 2);
        return { Channel(pixel, layout.masks[0]), Channel(pixel, layout.masks[1]), Channel(pixel, layout.masks[2]) };
    }
    case 24: {
        std::size_t at = row + static_cast<std::size_t>(x) * 3;
        return { static_cast<std::uint8_t>(in.U8(at + 2)), static_cast<std::uint8_t>(in.U8(at + 1)),
            static_cast<std::uint8_t>(in.U8(at)) };
    }
    default: {
        std::uint32_t pixel = in.U32(row + static_cast<std::size_t>(x) * 4);
        return { Channel(pixel, layout.masks[0]), Channel(pixel, layout.masks[1]), Channel(pixel, layout.masks[2]) };
    }
    }
}

}  // namespace

std::string EncodeBmp(const Picture& picture)
{
    std::size_t rowBytes = RowBytes(picture.Width(), 24);
    std::size_t imageSize = rowBytes * static_cast<std::size_t>(picture.Height());
    std::size_t offset = kFileHeaderSize + kInfoHeaderSize;
    std::string out;
    out.reserve(offset + imageSize);
    out += "BM";
    PutU32(out, static_cast<std::uint32_t>(offset + imageSize));
    PutU32(out, 0);
    PutU32(out, static_cast<std::uint32_t>(offset));
    PutU32(out, kInfoHeaderSize);
    PutU32(out, static_cast<std::uint32_t>(picture.Width()));
    PutU32(out, static_cast<std::uint32_t>(picture.Height()));
    PutU16(out, 1);
    PutU16(out, 24);
    PutU32(out, 0);
    PutU32(out, static_cast<std::uint32_t>(imageSize));
    PutU32(out, kPixelsPerMetre);
    PutU32(out, kPixelsPerMetre);
    PutU32(out, 0);
    PutU32(out, 0);
    std::string row(rowBytes, '\0');
    for (int y = picture.Height() - 1; y >= 0; --y) {
        const std::uint8_t* in = picture.Bytes().data() + static_cast<std::size_t>(y) * picture.Width() * 3;
        for (int x = 0; x < picture.Width(); ++x, in += 3) {
            row[static_cast<std::size_t>(x) * 3] = static_cast<char>(in[2]);
            row[static_cast<std::size_t>(x) * 3 + 1] = static_cast<char>(in[1]);
            row[static_cast<std::size_t>(x) * 3 + 2] = static_cast<char>(in[0]);
        }
        out += row;
    }
    return out;
}

bool WriteBmpFile(const Picture& picture, const std::string& path)
{
    return WriteFileBytes(path, EncodeBmp(picture));
}

std::optional<Picture> DecodeBmp(std::string_view bytes)
{
    ByteReader in(bytes);
    std::optional<BmpLayout> layout = ReadLayout(in);
    if (!layout)
        return std::nullopt;
    std::size_t rowBytes = RowBytes(layout->width, layout->bits);
    if (!in.Has(layout->pixelOffset, rowBytes * static_cast<std::size_t>(layout->height)))
        return std::nullopt;
    std::vector<Rgb> palette = ReadPalette(in, *layout);
    Picture picture(layout->width, layout->height);
    for (int y = 0; y < layout->height; ++y) {
        int fileRow = layout->topDown ? y : layout->height - 1 - y;
        std::size_t row = layout->pixelOffset + static_cast<std::size_t>(fileRow) * rowBytes;
        for (int x = 0; x < layout->width; ++x)
            picture.SetPixel(x, y, PixelOf(in, row, x, *layout, palette));
    }
    return picture;
}

}  // namespace scriv
