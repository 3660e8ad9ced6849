#include "wordexport/PictureSize.h"

#include <cstdint>

namespace scriv {

namespace {

unsigned Byte(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

std::uint32_t BigEndian16(std::string_view bytes, std::size_t at)
{
    return (Byte(bytes, at) << 8) | Byte(bytes, at + 1);
}

std::uint32_t BigEndian32(std::string_view bytes, std::size_t at)
{
    return (BigEndian16(bytes, at) << 16) | BigEndian16(bytes, at + 2);
}

std::uint32_t LittleEndian16(std::string_view bytes, std::size_t at)
{
    return Byte(bytes, at) | (Byte(bytes, at + 1) << 8);
}

std::int32_t LittleEndian32(std::string_view bytes, std::size_t at)
{
    return static_cast<std::int32_t>(LittleEndian16(bytes, at) | (LittleEndian16(bytes, at + 2) << 16));
}

std::optional<PixelSize> Checked(long width, long height)
{
    if (width <= 0 || height <= 0 || width > 1000000 || height > 1000000)
        return std::nullopt;
    return PixelSize { static_cast<int>(width), static_cast<int>(height) };
}

// Walks the markers up to the first start of frame, which holds the size.
std::optional<PixelSize> JpegSize(std::string_view bytes)
{
    std::size_t at = 2;
    while (at + 4 <= bytes.size()) {
        if (Byte(bytes, at) != 0xFF)
            return std::nullopt;
        unsigned marker = Byte(bytes, at + 1);
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        // Markers without a length.
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
            at += 2;
            continue;
        }
        std::uint32_t length = BigEndian16(bytes, at + 2);
        bool startOfFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (startOfFrame) {
            if (at + 9 > bytes.size())
                return std::nullopt;
            return Checked(BigEndian16(bytes, at + 7), BigEndian16(bytes, at + 5));
        }
        if (length < 2)
            return std::nullopt;
        at += 2 + length;
    }
    return std::nullopt;
}

}  // namespace

PictureFormat PictureFormatOf(std::string_view bytes)
{
    if (bytes.size() >= 3 && Byte(bytes, 0) == 0xFF && Byte(bytes, 1) == 0xD8 && Byte(bytes, 2) == 0xFF)
        return PictureFormat::Jpeg;
    if (bytes.substr(0, 8) == std::string_view("\x89PNG\r\n\x1a\n", 8))
        return PictureFormat::Png;
    if (bytes.substr(0, 6) == "GIF87a" || bytes.substr(0, 6) == "GIF89a")
        return PictureFormat::Gif;
    if (bytes.substr(0, 2) == "BM")
        return PictureFormat::Bmp;
    return PictureFormat::Unknown;
}

std::string PictureExtension(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Jpeg: return "jpeg";
    case PictureFormat::Png: return "png";
    case PictureFormat::Gif: return "gif";
    case PictureFormat::Bmp: return "bmp";
    case PictureFormat::Unknown: break;
    }
    return {};
}

std::string PictureContentType(PictureFormat format)
{
    std::string extension = PictureExtension(format);
    return extension.empty() ? std::string() : "image/" + extension;
}

std::optional<PixelSize> PictureSizeOf(std::string_view bytes)
{
    switch (PictureFormatOf(bytes)) {
    case PictureFormat::Jpeg:
        return JpegSize(bytes);
    case PictureFormat::Png:
        // The IHDR chunk comes first.
        if (bytes.size() < 24 || bytes.substr(12, 4) != "IHDR")
            return std::nullopt;
        return Checked(BigEndian32(bytes, 16), BigEndian32(bytes, 20));
    case PictureFormat::Gif:
        if (bytes.size() < 10)
            return std::nullopt;
        return Checked(LittleEndian16(bytes, 6), LittleEndian16(bytes, 8));
    case PictureFormat::Bmp: {
        if (bytes.size() < 26)
            return std::nullopt;
        // An old OS/2 header holds 16-bit sizes; a negative height means top-down rows.
        if (LittleEndian32(bytes, 14) == 12)
            return Checked(LittleEndian16(bytes, 18), LittleEndian16(bytes, 20));
        long height = LittleEndian32(bytes, 22);
        return Checked(LittleEndian32(bytes, 18), height < 0 ? -height : height);
    }
    case PictureFormat::Unknown:
        break;
    }
    return std::nullopt;
}

}  // namespace scriv
