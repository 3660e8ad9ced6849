#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/Picture.h"

namespace scriv {

// A picture held as a device-independent bitmap, the form the JPEG encoder
// takes: 24 bits a pixel, rows bottom up in blue, green, red order, each row
// padded to a multiple of 4 bytes.
class cJPEG {
public:
    // --- creating ---

    // A black bitmap of that size; false (and nothing loaded) for a size
    // below 1. Drops what was loaded before.
    bool Create(int width, int height);
    // A bitmap holding a copy of the picture; false for an empty picture.
    bool CreateFromPicture(const Picture& picture);
    // Drops the bitmap.
    void ClearUp();

    // --- reading ---

    bool PictureLoaded() const { return m_loaded; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    // Bytes of one row, padding included.
    int BytesPerScanLine() const { return m_bytesPerScanLine; }
    // The rows, bottom up.
    const std::vector<std::uint8_t>& DIBSectionBits() const { return m_bits; }
    // The bitmap as a picture again (rows top down).
    Picture ToPicture() const;

private:
    // Copies the picture's pixels into the bitmap, row by row.
    void LoadPictureBlt(const Picture& picture);

    std::vector<std::uint8_t> m_bits;
    int m_width { 0 };
    int m_height { 0 };
    int m_bytesPerScanLine { 0 };
    bool m_loaded { false };
};

// Writes the bitmap as a JPEG file at the given quality, clamped to 1..100.
// True on success only. The error number is set to 0 first; on failure it and
// the text tell why (the encoder's codes: -1 and "No picture loaded to save."
// when nothing is loaded, -23 "File Error" when the file cannot be written ...).
// With askOverwrite and an existing file the person is asked first; any answer
// but Yes writes nothing.
bool JPEG_Save(const cJPEG& image, const std::string& path, int quality, bool askOverwrite, int& errorNumber,
    std::string& errorText);

// The text of an encoder return code ("File Error" for -23); empty for 0, 1
// and 2, "Unknown Error" for a code the table does not hold.
std::string JpegErrorText(int code);

// The quality JPEG_Save writes with: quality held within 1..100.
int ClampJpegQuality(int quality);

// The picture of JPEG bytes (grey or colour), or nothing when they are no
// JPEG the decoder can read.
std::optional<Picture> DecodeJpeg(std::string_view bytes);

}  // namespace scriv
