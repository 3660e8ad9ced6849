#include "desktop/Picture.h"

#include <algorithm>
#include <cairo.h>
#include <bit>
#include <cstring>

#include "desktop/BmpFile.h"
#include "desktop/PngFile.h"
#include "desktop/cJPEG.h"

namespace scriv {

namespace {

// No window of a form is anywhere near this; a larger request is a mistake
// that must not turn into gigabytes of memory.
constexpr int kMaxSide = 32768;

int Side(int value)
{
    return std::clamp(value, 0, kMaxSide);
}

}  // namespace

Picture::Picture(int width, int height)
    : m_width(Side(width))
    , m_height(Side(height))
    , m_bytes(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height) * 3, 0)
{
}

Picture Picture::FromSurface(cairo_surface_t* surface)
{
    if (!surface || cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE)
        return {};
    cairo_format_t format = cairo_image_surface_get_format(surface);
    if (format != CAIRO_FORMAT_ARGB32 && format != CAIRO_FORMAT_RGB24)
        return {};
    cairo_surface_flush(surface);
    Picture picture(cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface));
    const unsigned char* data = cairo_image_surface_get_data(surface);
    int stride = cairo_image_surface_get_stride(surface);
    if (picture.Empty())
        return picture;
    static_assert(std::endian::native == std::endian::little, "pixels are stored as little-endian words");
    std::uint8_t* out = picture.m_bytes.data();
    std::uint8_t* last = out + picture.m_bytes.size() - 3;
    for (int y = 0; y < picture.m_height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < picture.m_width; ++x, out += 3) {
            std::uint32_t pixel = row[x];
            // Red, green, blue and one byte more in a single store; the next
            // pixel overwrites the extra byte, and the last pixel of all is
            // stored byte by byte.
            std::uint32_t rgb = ((pixel >> 16) & 0xFF) | (pixel & 0xFF00) | ((pixel & 0xFF) << 16);
            if (out != last) {
                std::memcpy(out, &rgb, 4);
            } else {
                out[0] = static_cast<std::uint8_t>(rgb);
                out[1] = static_cast<std::uint8_t>(rgb >> 8);
                out[2] = static_cast<std::uint8_t>(rgb >> 16);
            }
        }
    }
    return picture;
}

cairo_surface_t* Picture::ToSurface() const
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, m_width, m_height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS)
        return surface;
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < m_height; ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) * stride);
        const std::uint8_t* in = m_bytes.data() + static_cast<std::size_t>(y) * m_width * 3;
        for (int x = 0; x < m_width; ++x, in += 3)
            row[x] = 0xFF000000u | (std::uint32_t { in[0] } << 16) | (std::uint32_t { in[1] } << 8) | in[2];
    }
    cairo_surface_mark_dirty(surface);
    return surface;
}

Rgb Picture::Pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height)
        return {};
    const std::uint8_t* p = m_bytes.data() + (static_cast<std::size_t>(y) * m_width + x) * 3;
    return { p[0], p[1], p[2] };
}

void Picture::SetPixel(int x, int y, Rgb colour)
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height)
        return;
    std::uint8_t* p = m_bytes.data() + (static_cast<std::size_t>(y) * m_width + x) * 3;
    p[0] = colour.r;
    p[1] = colour.g;
    p[2] = colour.b;
}

Picture Picture::Crop(int left, int top, int width, int height) const
{
    Picture part(width, height);
    // The overlap of the asked area with this picture, copied row by row.
    int fromX = std::max(left, 0);
    int toX = std::min(left + part.m_width, m_width);
    int fromY = std::max(top, 0);
    int toY = std::min(top + part.m_height, m_height);
    if (fromX >= toX || fromY >= toY)
        return part;
    std::size_t rowBytes = static_cast<std::size_t>(toX - fromX) * 3;
    for (int y = fromY; y < toY; ++y) {
        const std::uint8_t* in = m_bytes.data() + (static_cast<std::size_t>(y) * m_width + fromX) * 3;
        std::uint8_t* out
            = part.m_bytes.data() + (static_cast<std::size_t>(y - top) * part.m_width + (fromX - left)) * 3;
        std::memcpy(out, in, rowBytes);
    }
    return part;
}

void Picture::Paste(const Picture& part, int left, int top)
{
    int fromX = std::max(left, 0);
    int toX = std::min(left + part.m_width, m_width);
    int fromY = std::max(top, 0);
    int toY = std::min(top + part.m_height, m_height);
    if (fromX >= toX || fromY >= toY)
        return;
    std::size_t rowBytes = static_cast<std::size_t>(toX - fromX) * 3;
    for (int y = fromY; y < toY; ++y) {
        const std::uint8_t* in
            = part.m_bytes.data() + (static_cast<std::size_t>(y - top) * part.m_width + (fromX - left)) * 3;
        std::memcpy(m_bytes.data() + (static_cast<std::size_t>(y) * m_width + fromX) * 3, in, rowBytes);
    }
}

bool Picture::WritePng(const std::string& path) const
{
    cairo_surface_t* surface = ToSurface();
    bool written = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS
        && cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return written;
}

std::optional<Picture> DecodePicture(std::string_view bytes)
{
    if (bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M')
        return DecodeBmp(bytes);
    if (bytes.size() >= 3 && static_cast<unsigned char>(bytes[0]) == 0xFF && static_cast<unsigned char>(bytes[1]) == 0xD8)
        return DecodeJpeg(bytes);
    if (bytes.size() >= 8 && bytes.substr(1, 3) == "PNG")
        return DecodePng(bytes);
    return std::nullopt;
}

}  // namespace scriv
