#include "host/desktop/program_folder.h"

#include <unistd.h>

#include <QtCore/QCryptographicHash>
#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <system_error>

#include "host/files.h"
#include "toolkit/resources.h"

namespace desktop {

namespace fs = std::filesystem;

namespace {

constexpr const char* kVersionList = "shipped_versions.txt";  // lines of sha256sum: digest and name

std::string DigestOf(const std::vector<std::uint8_t>& content) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(content.data()), std::ssize(content));
    return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha256).toHex().toStdString();
}

// A link is somebody's own arrangement, whatever it leads to.
bool IsPlainFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(fs::symlink_status(path, error));
}

}  // namespace

bool HoldsOwnTables(const fs::path& folder, std::span<const std::string> tables) {
    return std::all_of(tables.begin(), tables.end(),
                       [&](const std::string& name) {
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

void RemoveShippedCopies(const fs::path& userFolder) {
    const auto list = BuiltInFile(kVersionList);
    std::istringstream lines(std::string(list.begin(), list.end()));
    for (std::string digest, name; lines >> digest >> name;) {
        const fs::path path = userFolder / name;
        if (!IsPlainFile(path) || DigestOf(ReadWholeFile(path.string()).bytes) != digest) continue;
        std::error_code error;
        fs::remove(path, error);
        if (error) LogLine(path.string() + ": hides the shipped file: " + error.message());
    }
}

std::vector<fs::path> DataCandidates(const fs::path& executableFolder) {
    const char* wanted = std::getenv("TARNVEIL_DATA");
    return {wanted ? fs::path(wanted) : fs::path(), executableFolder / ".." / "share" / "tarnveil" / "data",
            executableFolder / "data"};
}

Folders ChooseFolders(const fs::path& executableFolder, const fs::path& userFolder,
                      std::span<const std::string> tables) {
    if (HoldsOwnTables(executableFolder, tables)) return {executableFolder, {}};
    const fs::path data = FirstFolder(DataCandidates(executableFolder));
    if (data.empty()) LogLine("the installed data is not found; " + userFolder.string() + " is used as it is");
    std::error_code error;
    if (data.empty() || fs::equivalent(data, userFolder, error)) return {userFolder, {}};
    RemoveShippedCopies(userFolder);
    return {userFolder, data};
}

}  // namespace desktop
