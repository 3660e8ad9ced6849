#include "desktop/cJPEG.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstring>
// jpeglib.h needs FILE and size_t declared before it.
#include <jpeglib.h>
#include <jerror.h>

#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"

namespace scriv {

namespace {

// Return codes of the encoder, as the error table numbers them.
constexpr int kNoPicture = -1;
constexpr int kMemoryError = -5;
constexpr int kCloseError = -9;
constexpr int kInvalidFileName = -10;
constexpr int kFileError = -23;
constexpr int kInternalError = -24;

constexpr const char* kErrorTexts[] = {
    "Exception detected",
    "Invalid encoder",
    "Unsupported subsampling",
    "Unsupported bytes per pixel",
    "Memory Error",
    "Bad huffman table",
    "Bad quant table",
    "Invalid JPEG properties specified",
    "An error occored while closing the file",
    "Invalid file name",
    "EOF Error",
    "Prog Not Supported",
    "Error - NOT JPEG",
    "Error - COMP",
    "Error - SOF",
    "Error - DNL",
    "Error - NO HUF",
    "Error - NO QUAN",
    "Error - NO FRAME",
    "Error - MULT FRAME",
    "Error - DATA",
    "Error - NO IMAGE",
    "File Error",
    "Internal Error",
    "Bad RST Marker",
    "Thumbnail - DIB Too Small",
    "Thumbnail - DIB Wrong Color",
};

// libjpeg reports a fatal error by calling error_exit, which must not return:
// it jumps back to the setjmp of the call that is running. Only plain data
// lives in the frames it jumps over.
struct JumpingErrors {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
    int messageCode;
};

void JumpBack(j_common_ptr info)
{
    auto* errors = reinterpret_cast<JumpingErrors*>(info->err);
    errors->messageCode = errors->manager.msg_code;
    std::longjmp(errors->jump, 1);
}

void Silent(j_common_ptr)
{
}

jpeg_error_mgr* InstallErrors(JumpingErrors& errors)
{
    jpeg_error_mgr* manager = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = JumpBack;
    errors.manager.output_message = Silent;
    errors.messageCode = 0;
    return manager;
}

int CodeOfLibraryError(int messageCode)
{
    if (messageCode == JERR_FILE_WRITE)
        return kFileError;
    if (messageCode == JERR_OUT_OF_MEMORY)
        return kMemoryError;
    return kInternalError;
}

// Compresses the bottom-up BGR rows into an open file; 0 or an encoder code.
// *initialising stays true when the encoder could not even be set up.
int Compress(std::FILE* file, const std::uint8_t* bits, int width, int height, int stride, int quality,
    bool* initialising)
{
    jpeg_compress_struct info;
    JumpingErrors errors;
    info.err = InstallErrors(errors);
    *initialising = true;
    if (setjmp(errors.jump)) {
        jpeg_destroy_compress(&info);
        return CodeOfLibraryError(errors.messageCode);
    }
    jpeg_create_compress(&info);
    *initialising = false;
    jpeg_stdio_dest(&info, file);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = 3;
    info.in_color_space = JCS_EXT_BGR;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        // The first row of the image is the last of the bitmap.
        auto row = const_cast<JSAMPROW>(bits + static_cast<std::size_t>(height - 1 - static_cast<int>(info.next_scanline)) * stride);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return 0;
}

// Decompresses into rgb (resized here); false when the bytes are no JPEG.
bool Decompress(const unsigned char* bytes, std::size_t size, std::vector<std::uint8_t>* rgb, int* width, int* height)
{
    jpeg_decompress_struct info;
    JumpingErrors errors;
    info.err = InstallErrors(errors);
    if (setjmp(errors.jump)) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes, static_cast<unsigned long>(size));
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    jpeg_start_decompress(&info);
    if (info.output_components != 3 || static_cast<long long>(info.output_width) * info.output_height > 64LL << 20) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    *width = static_cast<int>(info.output_width);
    *height = static_cast<int>(info.output_height);
    rgb->assign(static_cast<std::size_t>(*width) * static_cast<std::size_t>(*height) * 3, 0);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = rgb->data() + static_cast<std::size_t>(info.output_scanline) * static_cast<std::size_t>(*width) * 3;
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return true;
}

bool MayOverwrite(const std::string& path)
{
    std::string text = path + "\r" + "This file already exists." + "\r\r" + "Replace existing file?";
    return MsgBox(text, msgbox::kYesNo | msgbox::kExclamation, "  Confirm File Overwrite", "", 0, "modJPEG.JPEG_Save")
        == vbYes;
}

struct WriteResult {
    int code { 0 };
    bool initialising { false };
};

WriteResult WriteJpegFile(const cJPEG& image, const std::string& path, int quality)
{
    if (path.empty() || path.find('\0') != std::string::npos)
        return { kInvalidFileName };
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return { kFileError };
    bool initialising = false;
    int code = Compress(file, image.DIBSectionBits().data(), image.Width(), image.Height(), image.BytesPerScanLine(),
        quality, &initialising);
    bool flushed = std::fflush(file) == 0 && !std::ferror(file);
    if (std::fclose(file) != 0 && code == 0)
        code = kCloseError;
    if (!flushed && code == 0)
        code = kFileError;
    // A half-written picture is worse than none.
    if (code != 0)
        std::remove(path.c_str());
    return { code, initialising && code != 0 };
}

}  // namespace

// --- cJPEG ---

bool cJPEG::Create(int width, int height)
{
    ClearUp();
    if (width < 1 || height < 1 || static_cast<long long>(width) * height > 64LL << 20)
        return false;
    m_width = width;
    m_height = height;
    m_bytesPerScanLine = ((width * 3) + 3) / 4 * 4;
    m_bits.assign(static_cast<std::size_t>(m_bytesPerScanLine) * static_cast<std::size_t>(height), 0);
    m_loaded = true;
    return true;
}

bool cJPEG::CreateFromPicture(const Picture& picture)
{
    if (!Create(picture.Width(), picture.Height()))
        return false;
    LoadPictureBlt(picture);
    return true;
}

void cJPEG::LoadPictureBlt(const Picture& picture)
{
    for (int y = 0; y < m_height; ++y) {
        const std::uint8_t* in = picture.Bytes().data() + static_cast<std::size_t>(y) * m_width * 3;
        std::uint8_t* out = m_bits.data() + static_cast<std::size_t>(m_height - 1 - y) * m_bytesPerScanLine;
        for (int x = 0; x < m_width; ++x, in += 3, out += 3) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
        }
    }
}

void cJPEG::ClearUp()
{
    m_bits.clear();
    m_bits.shrink_to_fit();
    m_width = m_height = m_bytesPerScanLine = 0;
    m_loaded = false;
}

Picture cJPEG::ToPicture() const
{
    Picture picture(m_width, m_height);
    for (int y = 0; y < m_height; ++y) {
        const std::uint8_t* in = m_bits.data() + static_cast<std::size_t>(m_height - 1 - y) * m_bytesPerScanLine;
        for (int x = 0; x < m_width; ++x, in += 3)
            picture.SetPixel(x, y, { in[2], in[1], in[0] });
    }
    return picture;
}

// --- modJPEG ---

int ClampJpegQuality(int quality)
{
    return std::clamp(quality, 1, 100);
}

std::string JpegErrorText(int code)
{
    if (code >= 0 && code <= 2)
        return {};
    if (code == -99)
        return "Reserved";
    if (code <= -1 && code >= -static_cast<int>(std::size(kErrorTexts)))
        return kErrorTexts[-code - 1];
    return "Unknown Error";
}

bool JPEG_Save(const cJPEG& image, const std::string& path, int quality, bool askOverwrite, int& errorNumber,
    std::string& errorText)
{
    errorNumber = 0;
    errorText.clear();
    if (!image.PictureLoaded()) {
        errorNumber = kNoPicture;
        errorText = "No picture loaded to save.";
        return false;
    }
    if (askOverwrite && FileExists(path) && !MayOverwrite(path))
        return false;
    WriteResult result = WriteJpegFile(image, path, ClampJpegQuality(quality));
    if (result.code == 0)
        return true;
    errorNumber = result.code;
    errorText = (result.initialising ? "Failed to initialise the IJL library - " : "ijlWrite Error - ")
        + JpegErrorText(result.code);
    return false;
}

std::optional<Picture> DecodeJpeg(std::string_view bytes)
{
    std::vector<std::uint8_t> rgb;
    int width = 0;
    int height = 0;
    if (bytes.size() < 4 || !Decompress(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), &rgb, &width, &height))
        return std::nullopt;
    Picture picture(width, height);
    picture.Bytes() = std::move(rgb);
    return picture;
}

}  // namespace scriv
