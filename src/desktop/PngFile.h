#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/Picture.h"

// PNG files of pictures: lossless, and for the flat colours of classic
// controls several times smaller than JPEG.
namespace scriv {

// The picture as a PNG file: with at most 256 colours an indexed image of 1,
// 2, 4 or 8 bits a pixel, otherwise 24-bit colour. An empty picture gives "".
std::string EncodePng(const Picture& picture);

// Writes EncodePng to a file through a temporary file and a rename; false
// when it cannot be written or the picture is empty.
bool WritePngFile(const Picture& picture, const std::string& path);

// The picture of PNG file bytes (any colour type, with transparency laid on
// white); nothing for bytes that are no PNG or end too soon.
std::optional<Picture> DecodePng(std::string_view bytes);

}  // namespace scriv
