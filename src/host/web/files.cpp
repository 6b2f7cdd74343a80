#include "host/web/files.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "host/file_sets.h"
#include "host/files.h"
#include "host/journal.h"

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

std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) {
    std::vector<std::string> names;
    for (const auto& [path, bytes] : written) {
        std::string name = NameIn(folder, path);
        if (name.ends_with(ending) && name.find('/') == std::string::npos) names.push_back(std::move(name));
    }
    return names;
}

std::string RenameFile(const std::string& from, const std::string& to) {
    if (written.contains(to)) return std::strerror(EEXIST);
    const FileBytes file = ReadWholeFile(from);
    if (file.error != FileError::none) return file.reason;
    std::string reason = WriteWholeFile(to, file.bytes);
    return reason.empty() ? RemoveFile(from) : reason;
}

// What the page keeps of it stays there, empty.
std::string RemoveFile(const std::string& path) {
    if (!written.contains(path)) return {};
    std::string reason = WriteWholeFile(path, {});
    written.erase(path);
    return reason;
}

// Each file is kept by itself: no set is ever half written.
std::string CompleteFileSet(const std::string&) {
    return {};
}

// In the browser no game outlives the page it is played on.
std::string BeginJournal(const std::string&) {
    return {};
}

std::string AddToJournal(std::string_view) {
    return {};
}

void EndJournal() {}

FileBytes ReadDeadJournal(const std::string&) {
    return {FileError::missing, {}, std::strerror(ENOENT)};
}
