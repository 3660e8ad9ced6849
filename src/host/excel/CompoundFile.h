#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

// An OLE compound file (the container of .frx exports, .xls, .doc) read whole
// into memory: its storages and the bytes of their streams.
namespace scriv {

struct CompoundStorage {
    std::map<std::string, std::string, std::less<>> streams;
    std::map<std::string, CompoundStorage, std::less<>> storages;

    // The stream of that name (without regard to case), or null.
    const std::string* Stream(std::string_view name) const;
    // The storage of that name (without regard to case), or null.
    const CompoundStorage* Storage(std::string_view name) const;
};

// The root storage of the compound file in bytes; nullopt when the bytes are
// no compound file or its directory cannot be read. A stream larger than
// maxStreamBytes is left out.
std::optional<CompoundStorage> ReadCompoundFile(std::string_view bytes, std::size_t maxStreamBytes = 64u << 20);

}  // namespace scriv
