// Feeds arbitrary bytes to the VB6 form reader and, when they read as a form,
// draws it, then again with the pages of its tab controls shown. Whatever
// sizes, colours, fonts and captions the file holds, drawing must not fail,
// and the picture has the window's size.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "desktop/CFormRenderer.h"
#include "foundation/ScrivError.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::unique_ptr<scriv::Vb6FormFile> file;
    try {
        file = std::make_unique<scriv::Vb6FormFile>(scriv::Vb6FormFile::Parse(bytes, "fuzz.frm"));
    } catch (const scriv::ScrivError&) {
        return 0;
    }
    scriv::CW_IDEVB6FormProcessor processor(*file, 100);
    scriv::IHostObject* form = processor.FindActualFormOfComponent(processor.Component(), false, false);
    int width = 0;
    int height = 0;
    processor.GetComponentWidthAndHeightInTwips(form, width, height);
    // A window larger than any screen is not drawn; the renderer may refuse it.
    if (width > 4000 || height > 4000)
        return 0;
    scriv::CFormRenderer renderer(processor, form, *file);
    scriv::RenderedForm drawn = renderer.Render();
    if (width > 0 && height > 0 && (drawn.picture.Width() != width || drawn.picture.Height() != height))
        __builtin_trap();
    for (const scriv::Vb6Block* block : file->Form().Descendants())
        if (block->ShortType() == "SSTab")
            for (int page = 0; page < 3; ++page)
                if (renderer.ShowTabPage(block->IndexedName(), page))
                    renderer.Render();
    return 0;
}
