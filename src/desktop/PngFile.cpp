#include "desktop/PngFile.h"

#include <array>
#include <csetjmp>
#include <cstring>
#include <png.h>
#include <unordered_map>
#include <vector>

#include "foundation/Paths.h"

namespace scriv {

namespace {

constexpr std::size_t kMaxPaletteColours = 256;

std::uint32_t Key(const std::uint8_t* rgb)
{
    return (static_cast<std::uint32_t>(rgb[0]) << 16) | (static_cast<std::uint32_t>(rgb[1]) << 8) | rgb[2];
}

// The colours of the picture in the order they first appear and the palette
// index of every pixel; nothing when there are more than a palette holds.
struct Palette {
    std::vector<png_color> colours;
    std::vector<std::uint8_t> pixels;
};

std::optional<Palette> PaletteOf(const Picture& picture)
{
    Palette palette;
    std::unordered_map<std::uint32_t, std::uint8_t> index;
    const std::vector<std::uint8_t>& bytes = picture.Bytes();
    palette.pixels.reserve(bytes.size() / 3);
    // Screenshots are runs of one colour: the previous pixel's index is most often the answer.
    std::uint32_t lastKey = 0;
    std::uint8_t lastIndex = 0;
    bool hasLast = false;
    for (std::size_t i = 0; i + 2 < bytes.size(); i += 3) {
        std::uint32_t key = Key(&bytes[i]);
        if (!hasLast || key != lastKey) {
            auto found = index.find(key);
            if (found == index.end()) {
                if (palette.colours.size() == kMaxPaletteColours)
                    return std::nullopt;
                found = index.emplace(key, static_cast<std::uint8_t>(palette.colours.size())).first;
                palette.colours.push_back({ bytes[i], bytes[i + 1], bytes[i + 2] });
            }
            lastKey = key;
            lastIndex = found->second;
            hasLast = true;
        }
        palette.pixels.push_back(lastIndex);
    }
    return palette;
}

int BitsFor(std::size_t colours)
{
    if (colours <= 2)
        return 1;
    if (colours <= 4)
        return 2;
    return colours <= 16 ? 4 : 8;
}

// Packs palette indexes of one row into bytes of bits-wide fields, first pixel highest.
std::vector<std::uint8_t> PackedRow(const Picture& picture, int y, const Palette& palette, int bits)
{
    int width = picture.Width();
    std::vector<std::uint8_t> row((static_cast<std::size_t>(width) * bits + 7) / 8, 0);
    const std::uint8_t* indexes = palette.pixels.data() + static_cast<std::size_t>(y) * width;
    for (int x = 0; x < width; ++x) {
        std::uint8_t index = indexes[x];
        std::size_t bit = static_cast<std::size_t>(x) * bits;
        row[bit / 8] |= static_cast<std::uint8_t>(index << (8 - bits - bit % 8));
    }
    return row;
}

void AppendToString(png_structp png, png_bytep data, png_size_t length)
{
    auto* out = static_cast<std::string*>(png_get_io_ptr(png));
    out->append(reinterpret_cast<const char*>(data), length);
}

void Flush(png_structp) { }

// libpng reports a failure through longjmp; the handlers keep it out of stderr.
void OnError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) { }

struct Reading {
    std::string_view bytes;
    std::size_t at { 0 };
};

void ReadFromView(png_structp png, png_bytep data, png_size_t length)
{
    auto* in = static_cast<Reading*>(png_get_io_ptr(png));
    if (length > in->bytes.size() - in->at)
        png_error(png, "truncated");
    std::memcpy(data, in->bytes.data() + in->at, length);
    in->at += length;
}

// libpng unwinds a failure with longjmp, so everything it fills lives in the
// caller's frame and only plain pointers live in this one.
bool Write(const Picture& picture, const Palette* palette, int bits, std::vector<png_bytep>& rowPointers,
    std::string& out)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info) {
        png_destroy_write_struct(&png, nullptr);
        return false;
    }
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_set_write_fn(png, &out, AppendToString, Flush);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.Width()), static_cast<png_uint_32>(picture.Height()), bits,
        palette ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
        PNG_FILTER_TYPE_DEFAULT);
    if (palette)
        png_set_PLTE(png, info, palette->colours.data(), static_cast<int>(palette->colours.size()));
    // 96 dots per inch, as the screen the picture stands for.
    png_set_pHYs(png, info, 3780, 3780, PNG_RESOLUTION_METER);
    // Screenshots of flat controls are long runs of few colours: the fastest
    // compression makes them within a sixth of the smallest, at half the
    // time; indexed rows gain nothing from filters, and colour rows (title
    // bar gradients, pictures) most from the difference to the left.
    png_set_compression_level(png, 1);
    // One filter each: trying every filter on every row is where the time went.
    png_set_filter(png, 0, palette ? PNG_FILTER_NONE : PNG_FILTER_SUB);
    png_set_rows(png, info, rowPointers.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

// Reads the image as 8-bit RGBA rows into rgba; false when it does not read.
bool Read(Reading& in, std::vector<std::uint8_t>& rgba, std::vector<png_bytep>& rows, png_uint_32& width,
    png_uint_32& height)
{
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        return false;
    }
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_read_struct(&png, &info, nullptr);
        return false;
    }
    png_set_read_fn(png, &in, ReadFromView);
    png_read_info(png, info);
    width = png_get_image_width(png, info);
    height = png_get_image_height(png, info);
    if (width == 0 || height == 0 || width > 30000 || height > 30000)
        png_error(png, "size");
    png_set_expand(png);
    png_set_strip_16(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    rgba.assign(static_cast<std::size_t>(width) * height * 4, 0);
    rows.assign(height, nullptr);
    for (png_uint_32 y = 0; y < height; ++y)
        rows[y] = rgba.data() + static_cast<std::size_t>(y) * width * 4;
    png_read_image(png, rows.data());
    png_read_end(png, nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
    return true;
}

}  // namespace

std::string EncodePng(const Picture& picture)
{
    if (picture.Empty())
        return {};
    std::optional<Palette> palette = PaletteOf(picture);
    int bits = palette ? BitsFor(palette->colours.size()) : 8;
    std::vector<std::vector<std::uint8_t>> rows;
    rows.reserve(static_cast<std::size_t>(picture.Height()));
    for (int y = 0; y < picture.Height(); ++y) {
        if (palette)
            rows.push_back(PackedRow(picture, y, *palette, bits));
        else {
            auto begin = picture.Bytes().begin() + static_cast<std::ptrdiff_t>(y) * picture.Width() * 3;
            rows.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(picture.Width()) * 3);
        }
    }
    std::vector<png_bytep> rowPointers;
    for (auto& row : rows)
        rowPointers.push_back(row.data());

    std::string out;
    if (!Write(picture, palette ? &*palette : nullptr, bits, rowPointers, out))
        return {};
    return out;
}

bool WritePngFile(const Picture& picture, const std::string& path)
{
    std::string bytes = EncodePng(picture);
    return !bytes.empty() && WriteFileBytes(path, bytes);
}

std::optional<Picture> DecodePng(std::string_view bytes)
{
    if (bytes.size() < 8 || png_sig_cmp(reinterpret_cast<png_const_bytep>(bytes.data()), 0, 8) != 0)
        return std::nullopt;
    Reading in { bytes, 0 };
    std::vector<std::uint8_t> rgba;
    std::vector<png_bytep> rows;
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    if (!Read(in, rgba, rows, width, height))
        return std::nullopt;
    Picture picture(static_cast<int>(width), static_cast<int>(height));
    for (std::size_t i = 0, o = 0; i < rgba.size(); i += 4, o += 3) {
        unsigned alpha = rgba[i + 3];
        for (int c = 0; c < 3; ++c)
            picture.Bytes()[o + c] = static_cast<std::uint8_t>((rgba[i + c] * alpha + 255 * (255 - alpha)) / 255);
    }
    return picture;
}

}  // namespace scriv
