#include "support/TestSupport.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace fs = std::filesystem;

namespace scriv::test {

TempFolder::TempFolder()
{
    std::random_device device;
    std::mt19937_64 random(device());
    fs::path base = fs::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        fs::path candidate = base / ("scrivant-test-" + std::to_string(random() % 1000000000ULL));
        std::error_code error;
        if (fs::create_directory(candidate, error)) {
            m_path = candidate.string() + "/";
            return;
        }
    }
    throw std::runtime_error("cannot create a temporary folder");
}

TempFolder::~TempFolder()
{
    std::error_code error;
    fs::remove_all(m_path, error);
}

std::string TempFolder::Write(std::string_view relative, std::string_view bytes) const
{
    fs::path target = fs::path(m_path) / std::string(relative);
    fs::create_directories(target.parent_path());
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return target.string();
}

std::string TempFolder::Read(std::string_view relative) const
{
    std::ifstream in(fs::path(m_path) / std::string(relative), std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string SourceDataFolder()
{
    return std::string(SCRIVANT_TEST_DATA_DIR) + "/";
}

std::string ExamplesFolder()
{
    return fs::weakly_canonical(fs::path(SCRIVANT_TEST_DATA_DIR) / ".." / "examples").string() + "/";
}

std::string CopyExample(const std::string& name, const TempFolder& target)
{
    std::filesystem::copy(ExamplesFolder() + name, target / name, std::filesystem::copy_options::recursive);
    return target / (name + "/");
}

}  // namespace scriv::test
