#include "foundation/ScrivError.h"

#include <cstdio>

namespace scriv {

ScrivError::ScrivError(std::uint32_t code, std::string source, std::string description)
    : std::runtime_error(description)
    , m_code(code)
    , m_source(std::move(source))
    , m_description(std::move(description))
{
}

void Raise(std::uint32_t code, std::string source, std::string description)
{
    throw ScrivError(code, std::move(source), std::move(description));
}

std::string FormatCode(std::uint32_t code)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%08X", code);
    return buffer;
}

}  // namespace scriv
