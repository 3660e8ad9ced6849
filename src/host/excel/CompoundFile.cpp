#include "host/excel/CompoundFile.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-utils.h>

#include <memory>

#include "foundation/StringUtil.h"

namespace scriv {

namespace {

struct ObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T>
using GsfPtr = std::unique_ptr<T, ObjectUnref>;

// Deeper storages than this are taken as a damaged directory.
constexpr int kMaxDepth = 16;

bool ReadStorage(GsfInfile* infile, CompoundStorage& storage, std::size_t maxStreamBytes, int depth)
{
    if (depth > kMaxDepth)
        return false;
    int count = gsf_infile_num_children(infile);
    for (int i = 0; i < count; ++i) {
        GsfPtr<GsfInput> child(gsf_infile_child_by_index(infile, i));
        if (!child)
            return false;
        const char* rawName = gsf_input_name(child.get());
        std::string name = rawName ? rawName : "";
        if (GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0) {
            if (!ReadStorage(GSF_INFILE(child.get()), storage.storages[name], maxStreamBytes, depth + 1))
                return false;
            continue;
        }
        gsf_off_t size = gsf_input_size(child.get());
        if (size < 0 || static_cast<std::uint64_t>(size) > maxStreamBytes)
            continue;
        std::string bytes(static_cast<std::size_t>(size), '\0');
        if (size > 0 && !gsf_input_read(child.get(), static_cast<std::size_t>(size), reinterpret_cast<guint8*>(bytes.data())))
            return false;
        storage.streams[name] = std::move(bytes);
    }
    return true;
}

template <typename Map>
auto FindNoCase(const Map& map, std::string_view name) -> const typename Map::mapped_type*
{
    if (auto it = map.find(name); it != map.end())
        return &it->second;
    for (const auto& [key, value] : map)
        if (EqualsNoCase(key, name))
            return &value;
    return nullptr;
}

}  // namespace

const std::string* CompoundStorage::Stream(std::string_view name) const
{
    return FindNoCase(streams, name);
}

const CompoundStorage* CompoundStorage::Storage(std::string_view name) const
{
    return FindNoCase(storages, name);
}

std::optional<CompoundStorage> ReadCompoundFile(std::string_view bytes, std::size_t maxStreamBytes)
{
    static const bool initialised = [] {
        gsf_init();
        return true;
    }();
    (void)initialised;
    GsfPtr<GsfInput> input(gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.data()),
        static_cast<gsf_off_t>(bytes.size()), FALSE));
    if (!input)
        return std::nullopt;
    GError* error = nullptr;
    GsfPtr<GsfInfile> root(gsf_infile_msole_new(input.get(), &error));
    if (error)
        g_error_free(error);
    if (!root)
        return std::nullopt;
    CompoundStorage storage;
    if (!ReadStorage(root.get(), storage, maxStreamBytes, 0))
        return std::nullopt;
    return storage;
}

}  // namespace scriv
