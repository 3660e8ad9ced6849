#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

typedef struct _cairo_surface cairo_surface_t;

namespace scriv {

// One pixel colour.
struct Rgb {
    std::uint8_t r { 0 };
    std::uint8_t g { 0 };
    std::uint8_t b { 0 };

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

// A picture in memory: what a window capture hands over and what the image
// writers take. 24-bit colour, rows top down, no padding between rows.
class Picture {
public:
    Picture() = default;
    // A black picture of that size (a size below 0 counts as 0).
    Picture(int width, int height);

    // --- creating ---

    // A copy of the pixels of a cairo image surface (ARGB32 or RGB24); a
    // surface of another format, or none, gives an empty picture.
    static Picture FromSurface(cairo_surface_t* surface);
    // A copy of the picture as a new RGB24 cairo image surface; the caller
    // destroys it.
    cairo_surface_t* ToSurface() const;

    // --- reading ---

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    bool Empty() const { return m_width == 0 || m_height == 0; }
    // The colour at x, y; black outside the picture.
    Rgb Pixel(int x, int y) const;
    void SetPixel(int x, int y, Rgb colour);
    // Rows top down, three bytes a pixel in the order red, green, blue.
    const std::vector<std::uint8_t>& Bytes() const { return m_bytes; }
    std::vector<std::uint8_t>& Bytes() { return m_bytes; }

    // --- taking apart ---

    // The part at left, top of that size. What lies outside the picture is
    // black, as a screen copy of an area off the window would be.
    Picture Crop(int left, int top, int width, int height) const;
    // Copies part over this picture with its top left corner at left, top;
    // what falls outside this picture is left out.
    void Paste(const Picture& part, int left, int top);

    // Writes a PNG file (for looking at renderings); false on failure.
    bool WritePng(const std::string& path) const;

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    int m_width { 0 };
    int m_height { 0 };
    std::vector<std::uint8_t> m_bytes;
};

// The picture of image file bytes when they are a bitmap, a JPEG or a PNG;
// nothing for any other kind (GIF, icons and metafiles are left out).
std::optional<Picture> DecodePicture(std::string_view bytes);

}  // namespace scriv
