#include "platform/folder.h"

namespace {
std::string programFolder = ".";
}

void SetProgramFolder(const std::string& path) {
    programFolder = path;
}

const std::string& ProgramFolder() {
    return programFolder;
}

std::string FolderPath(std::string_view name) {
    if (!name.empty() && name.front() == '\\') name.remove_prefix(1);
    return programFolder + "/" + std::string(name);
}

FileBytes ReadFolderFile(std::string_view name) {
    return ReadWholeFile(FolderPath(name));
}

std::string WriteFolderFile(std::string_view name, std::span<const std::uint8_t> bytes) {
    return WriteFileKeepingTail(FolderPath(name), bytes);
}
