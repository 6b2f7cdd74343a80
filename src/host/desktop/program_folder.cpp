#include "host/desktop/program_folder.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "host/files.h"

namespace desktop {

namespace fs = std::filesystem;

namespace {

constexpr std::array kTables = {"STAGE1.DAT", "STAGE2.DAT", "STAGE3.DAT", "Attack.DAT", "EnemyData.DAT", "EneMove.DAT"};

// Gives a finished file its name unless something of that name has come meanwhile. Empty when done.
std::string NameIfFree(const fs::path& finished, const fs::path& name) {
    if (link(finished.c_str(), name.c_str()) == 0 || errno == EEXIST) return {};
    std::error_code error;  // file systems without hard links
    if (!fs::exists(name, error)) fs::rename(finished, name, error);
    return error ? error.message() : std::string();
}

std::string CopyIfMissing(const fs::path& from, const fs::path& to) {
    std::error_code error;
    if (fs::exists(fs::symlink_status(to, error))) return {};
    const FileBytes content = ReadWholeFile(from.string());
    if (content.error != FileError::none) return content.reason;
    fs::path finished = to;
    finished.concat(".").concat(std::to_string(getpid())).concat(".copy");
    std::string reason = WriteFileKeepingTail(finished.string(), content.bytes);
    if (reason.empty()) reason = NameIfFree(finished, to);
    fs::remove(finished, error);
    return reason;
}

}  // namespace

bool HoldsOwnTables(const fs::path& folder) {
    return std::all_of(kTables.begin(), kTables.end(),
                       [&](const char* name) {
                           std::error_code error;
                           return fs::is_regular_file(folder / name, error);
                       }) &&
           access(folder.c_str(), W_OK) == 0;
}

fs::path FirstFolder(const std::vector<fs::path>& candidates) {
    for (const fs::path& candidate : candidates) {
        std::error_code error;
        if (!candidate.empty() && fs::is_directory(candidate, error)) return candidate;
    }
    return {};
}

std::vector<std::string> FillFolder(const fs::path& folder, const fs::path& data) {
    std::vector<std::string> problems;
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return {folder.string() + ": " + error.message()};
    for (fs::directory_iterator entry(data, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code notRegular;
        if (!entry->is_regular_file(notRegular)) continue;
        const fs::path to = folder / entry->path().filename();
        const std::string reason = CopyIfMissing(entry->path(), to);
        if (!reason.empty()) problems.push_back(to.string() + ": " + reason);
    }
    if (error) problems.push_back(data.string() + ": " + error.message());
    return problems;
}

std::vector<fs::path> DataCandidates(const fs::path& executableFolder) {
    const char* wanted = std::getenv("TARNVEIL_DATA");
    return {wanted ? fs::path(wanted) : fs::path(), executableFolder / ".." / "share" / "tarnveil" / "data",
            fs::path(TARNVEIL_SOURCE_DATA)};
}

fs::path ChooseFolder(const fs::path& executableFolder, const fs::path& userFolder) {
    if (HoldsOwnTables(executableFolder)) return executableFolder;
    const fs::path data = FirstFolder(DataCandidates(executableFolder));
    if (data.empty()) {
        LogLine("the installed data is not found; " + userFolder.string() + " is used as it is");
        return userFolder;
    }
    for (const std::string& problem : FillFolder(userFolder, data)) LogLine(problem);
    return userFolder;
}

}  // namespace desktop
