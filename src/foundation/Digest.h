#pragma once

#include <string>
#include <string_view>

// Digests that tell whether a text changed: FNV-1a over the bytes, 64 bits
// written as sixteen lower-case hexadecimal digits.
namespace scriv {

std::string TextDigest(std::string_view text);

// The digest of a file's bytes; "" when the file cannot be read.
std::string FileDigest(const std::string& path);

}  // namespace scriv
