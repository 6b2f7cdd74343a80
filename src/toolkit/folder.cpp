#include "toolkit/folder.h"

#include <utility>

#include "host/file_sets.h"

namespace {

std::string programFolder = ".";
std::string shippedFolder;  // empty: none
std::map<std::string, std::vector<std::uint8_t>> laidOver;

std::string PathIn(const std::string& folder, std::string_view name) {
    if (name.starts_with('\\')) name.remove_prefix(1);
    return folder + "/" + std::string(name);
}

// A set of tables that a killed builder has left half written is read by nobody.
std::string CompleteFolders() {
    std::string reason = CompleteFileSet(programFolder);
    if (reason.empty() && !shippedFolder.empty()) reason = CompleteFileSet(shippedFolder);
    return reason;
}

}  // namespace

void SetProgramFolder(const std::string& path) {
    SetProgramFolder(path, {});
}

void SetProgramFolder(const std::string& path, const std::string& shippedData) {
    programFolder = path;
    shippedFolder = shippedData;
}

const std::string& ProgramFolder() {
    return programFolder;
}

std::string FolderPath(std::string_view name) {
    std::string own = PathIn(programFolder, name);
    if (shippedFolder.empty() || FileExists(own)) return own;
    std::string shipped = PathIn(shippedFolder, name);
    return FileExists(shipped) ? shipped : own;
}

void LayOverFolder(std::map<std::string, std::vector<std::uint8_t>> files) {
    laidOver = std::move(files);
}

FileBytes ReadFolderFile(std::string_view name) {
    const auto laid = laidOver.find(std::string(name.substr(name.starts_with('\\') ? 1 : 0)));
    if (laid != laidOver.end()) return {FileError::none, laid->second, {}};
    const std::string reason = CompleteFolders();
    if (!reason.empty()) return {FileError::unreadable, {}, reason};
    return ReadWholeFile(FolderPath(name));
}

std::string WriteFolderFile(std::string_view name, std::span<const std::uint8_t> bytes) {
    const FileBytes old = ReadFolderFile(name);
    if (old.error == FileError::unreadable) return old.reason;  // its tail would be lost
    const std::string reason = shippedFolder.empty() ? "" : MakeFolder(programFolder);
    return reason.empty() ? WriteWholeFile(PathIn(programFolder, name), WithTail(bytes, old.bytes)) : reason;
}

std::vector<std::uint8_t> WithTail(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> old) {
    std::vector<std::uint8_t> content(bytes.begin(), bytes.end());
    if (old.size() > bytes.size()) content.insert(content.end(), old.begin() + std::ssize(bytes), old.end());
    return content;
}
