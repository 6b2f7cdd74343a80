#include "host/web/files.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "host/file_sets.h"
#include "host/files.h"

namespace {

// The list is written by the build, one entry per shipped file, "data/NAME".
struct Entry {
    const char* name;
    const std::uint8_t* begin;
    const std::uint8_t* end;
};
#include "shipped_files.inc"

std::map<std::string, std::vector<std::uint8_t>> written;  // by path
web::Keeper keeper;

// The name of a file that lies in `folder`; empty when it lies elsewhere.
std::string NameIn(const std::string& folder, const std::string& path) {
    const bool inside = path.starts_with(folder) && path.size() > folder.size() && path[folder.size()] == '/';
    return inside ? path.substr(folder.size() + 1) : "";
}

FileBytes Shipped(const std::string& name) {
    for (const Entry& entry : kBuiltInFiles) {
        if (entry.begin && "data/" + name == entry.name) return {FileError::none, {entry.begin, entry.end}, {}};
    }
    return {FileError::missing, {}, std::strerror(ENOENT)};
}

}  // namespace

void web::PutPlayerFile(const std::string& name, std::span<const std::uint8_t> bytes) {
    written[std::string(kPlayerFolder) + "/" + name].assign(bytes.begin(), bytes.end());
}

void web::SetKeeper(Keeper newKeeper) {
    keeper = std::move(newKeeper);
}

bool FileExists(const std::string& path) {
    return ReadWholeFile(path).error == FileError::none;
}

FileBytes ReadWholeFile(const std::string& path) {
    const auto file = written.find(path);
    if (file != written.end()) return {FileError::none, file->second, {}};
    return Shipped(NameIn(web::kShippedFolder, path));
}

std::string WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    if (!NameIn(web::kShippedFolder, path).empty()) return std::strerror(EROFS);
    const std::string name = NameIn(web::kPlayerFolder, path);
    if (!name.empty() && keeper) {
        std::string reason = keeper(name, bytes);
        if (!reason.empty()) return reason;
    }
    written[path].assign(bytes.begin(), bytes.end());
    return {};
}

// The browser has no folders of its own.
std::string MakeFolder(const std::string&) {
    return {};
}

// Each file is kept by itself: no set is ever half written.
std::string CompleteFileSet(const std::string&) {
    return {};
}
