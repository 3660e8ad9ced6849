#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/Picture.h"

// Windows bitmap files: the writer of the captured pictures and a reader of
// the bitmaps that forms keep in their .frx files.
namespace scriv {

// A 24-bit bitmap file: BITMAPFILEHEADER, BITMAPINFOHEADER (96 dpi), then the
// rows bottom up in blue, green, red order, each padded to 4 bytes.
std::string EncodeBmp(const Picture& picture);

// Writes EncodeBmp to a file through a temporary file and a rename; false
// when it cannot be written.
bool WriteBmpFile(const Picture& picture, const std::string& path);

// The picture of a bitmap file of 1, 4, 8, 16, 24 or 32 bits a pixel,
// uncompressed or with bit fields, with a core or an info header, rows bottom
// up or top down. Nothing for anything else (run-length compressed bitmaps
// included) and for bytes that end too soon.
std::optional<Picture> DecodeBmp(std::string_view bytes);

}  // namespace scriv
