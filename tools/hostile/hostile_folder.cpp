#include "hostile_folder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

std::string hostile::MakeFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarnveil-hostile-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::system_error(errno, std::generic_category(), pattern);
    return pattern;
}

void hostile::RemoveFolder(const std::string& folder) {
    std::filesystem::remove_all(folder);
}

void hostile::PutFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void hostile::DropFile(const std::string& path) {
    std::filesystem::remove(path);
}
