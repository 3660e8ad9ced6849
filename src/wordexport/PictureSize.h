#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scriv {

struct PixelSize {
    int width { 0 };
    int height { 0 };
};

// Picture formats a Word document can hold, told by their first bytes.
enum class PictureFormat { Unknown, Jpeg, Png, Gif, Bmp };

PictureFormat PictureFormatOf(std::string_view bytes);
// "jpeg", "png", "gif", "bmp", or "" for Unknown.
std::string PictureExtension(PictureFormat format);
// "image/jpeg" ..., or "" for Unknown.
std::string PictureContentType(PictureFormat format);

// The size in pixels that the picture's header gives; nothing when the data is
// no picture of a known format or its header is cut short or gives no size.
std::optional<PixelSize> PictureSizeOf(std::string_view bytes);

}  // namespace scriv
