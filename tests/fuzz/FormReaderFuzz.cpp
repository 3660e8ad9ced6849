// Feeds arbitrary bytes to the VB6 form reader. Reading may refuse the bytes
// with a ScrivError, nothing else; a form that reads must survive the typed
// reads, and a HelpContextID written into it must read back from the new bytes.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/ScrivError.h"
#include "host/vb6/Vb6FormFile.h"

namespace {

void Touch(const scriv::Vb6PropertyList& list)
{
    for (const scriv::Vb6Property& property : list.Properties()) {
        (void)property.Text();
        (void)property.Number();
        (void)property.Boolean();
        (void)property.Colour();
        (void)property.Frx();
    }
    for (const auto& group : list.Groups())
        Touch(*group);
}

void Check(bool condition)
{
    if (!condition)
        __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        scriv::Vb6FormFile file = scriv::Vb6FormFile::Parse(bytes, "fuzz.frm");
        Touch(file.Form());
        for (const scriv::Vb6Block* block : file.Form().Descendants()) {
            Touch(*block);
            (void)block->IndexedName();
            (void)block->TabPageControlNames(0);
        }
        (void)file.Code();
        (void)file.Attribute("VB_Name");
        Check(file.Bytes() == bytes);

        file.SetFormProperty("HelpContextID", "17");
        scriv::Vb6FormFile again = scriv::Vb6FormFile::Parse(file.Bytes(), "fuzz.frm");
        Check(again.Form().Number("HelpContextID") == 17);
        Check(again.Form().Children().size() == file.Form().Children().size());
        Check(again.Form().EndLine() == file.Form().EndLine());
    } catch (const scriv::ScrivError&) {
    }
    return 0;
}
