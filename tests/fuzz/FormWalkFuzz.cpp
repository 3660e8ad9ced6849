// Feeds arbitrary bytes to the VB6 form reader and, when they read as a form,
// walks it as the generation does. Whatever names and captions the file holds,
// the walk must give a description that reads back.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/ScrivError.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CXmlForm.h"

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
    scriv::CClientUIObjectRawXml walk;
    std::string raw = walk.Get_(processor, 2, processor.Component(), 1, true, "VB6", false, false);
    scriv::CXmlForm form;
    if (!raw.empty() && !form.LoadXml(raw))
        __builtin_trap();
    (void)form.XMLSTr();
    return 0;
}
