// Feeds arbitrary bytes to the reader of user forms' persisted controls. The
// input is split into the form's "f" and "o" streams and those of one frame
// ("i0" to "i15"); reading may refuse them with a ScrivError, nothing else, and every
// control that comes out lies within what a form can hold.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/ScrivError.h"
#include "host/excel/CompoundFile.h"
#include "host/excel/MsFormsFile.h"

namespace {

void Check(bool condition)
{
    if (!condition)
        __builtin_trap();
}

// The next part of the input: a 16-bit length, then that many bytes (or what is left).
std::string Take(std::string_view& input)
{
    if (input.size() < 2)
        return {};
    std::size_t size = static_cast<unsigned char>(input[0]) | (static_cast<std::size_t>(static_cast<unsigned char>(input[1])) << 8);
    input.remove_prefix(2);
    size = std::min(size, input.size());
    std::string part(input.substr(0, size));
    input.remove_prefix(size);
    return part;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view input(reinterpret_cast<const char*>(data), size);
    scriv::CompoundStorage root;
    root.streams["f"] = Take(input);
    root.streams["o"] = Take(input);
    scriv::CompoundStorage frame;
    frame.streams["f"] = Take(input);
    frame.streams["o"] = std::string(input);
    // Whichever small id a frame of the input has finds its storage.
    for (int id = 0; id < 16; ++id)
        root.storages["i" + std::to_string(id)] = frame;
    try {
        scriv::MsFormsForm form = scriv::MsFormsFile::Parse(root, "fuzz.frx");
        Check(form.controls.size() <= size);
        for (const scriv::MsFormsControl& control : form.controls)
            Check(control.name.size() <= 3 * size);
    } catch (const scriv::ScrivError&) {
    }
    return 0;
}
