#include "foundation/Digest.h"

#include <cstdint>
#include <cstdio>

#include "foundation/Paths.h"

namespace scriv {

std::string TextDigest(std::string_view text)
{
    std::uint64_t hash = 14695981039346656037ull;
    for (unsigned char c : text) {
        hash ^= c;
        hash *= 1099511628211ull;
    }
    char out[17];
    std::snprintf(out, sizeof out, "%016llx", static_cast<unsigned long long>(hash));
    return { out, 16 };
}

std::string FileDigest(const std::string& path)
{
    std::optional<std::string> bytes = ReadFileText(path);
    return bytes ? TextDigest(*bytes) : std::string();
}

}  // namespace scriv
