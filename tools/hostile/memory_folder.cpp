#include "host/files.h"
#include "hostile_folder.h"

std::string hostile::MakeFolder() {
    return "/hostile";
}

void hostile::RemoveFolder(const std::string&) {}

void hostile::PutFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    WriteWholeFile(path, bytes);
}

void hostile::DropFile(const std::string& path) {
    RemoveFile(path);
}
