// Feeds arbitrary bytes to the command envelope of the host protocol. Whatever
// arrives must read as a command or fail with a ScrivError, and the text a
// command writes must read again.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/ScrivError.h"
#include "host/CXmlCommand.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        scriv::CXmlCommand command;
        command.Deserialize(text);
        std::string written = command.Serialize();
        scriv::CXmlCommand again;
        again.Deserialize(written);
        (void)again.Serialize();
    } catch (const scriv::ScrivError&) {
    }
    return 0;
}
