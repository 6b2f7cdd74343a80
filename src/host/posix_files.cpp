// The files of both hosts: POSIX.
#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "host/posix_descriptor.h"
#include "host/posix_staged_file.h"

namespace {

constexpr std::size_t kLargestFile = 64u << 20;

FileBytes Failed(FileError error, const std::string& reason) {
    return {error, {}, reason};
}

// Only plain files: reading a device or a pipe may take something out of it, or never end.
std::string WhyNotReadable(int fd) {
    struct stat info {};
    if (fstat(fd, &info) != 0) return SystemReason();
    return S_ISREG(info.st_mode) ? "" : "it is no plain file";
}

bool ReadAll(int fd, std::vector<std::uint8_t>& bytes) {
    constexpr std::size_t kChunk = 1u << 16;
    for (;;) {
        const std::size_t size = bytes.size();
        if (size > kLargestFile) {
            errno = EFBIG;
            return false;
        }
        bytes.resize(size + kChunk);
        const ssize_t got = read(fd, bytes.data() + size, kChunk);
        bytes.resize(size + static_cast<std::size_t>(got > 0 ? got : 0));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
    }
}

}  // namespace

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

FileBytes ReadWholeFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Get() < 0) return Failed(errno == ENOENT ? FileError::missing : FileError::unreadable, SystemReason());
    const std::string refused = WhyNotReadable(file.Get());
    if (!refused.empty()) return Failed(FileError::unreadable, refused);
    FileBytes result;
    if (!ReadAll(file.Get(), result.bytes)) return Failed(FileError::unreadable, SystemReason());
    return result;
}

std::string WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    StagedFile file;
    std::string reason = file.Stage(path, bytes);
    if (reason.empty()) reason = file.Commit();
    if (reason.empty()) FlushFolderOf(path);
    return reason;
}

std::string MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return error ? error.message() : "";
}

std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator file(folder, error), end; !error && file != end; file.increment(error)) {
        std::error_code unknown;
        std::string name = file->path().filename().string();
        if (name.ends_with(ending) && file->is_regular_file(unknown)) names.push_back(std::move(name));
    }
    std::ranges::sort(names);
    return names;
}

std::string RenameFile(const std::string& from, const std::string& to) {
    if (link(from.c_str(), to.c_str()) != 0) return SystemReason();
    return unlink(from.c_str()) == 0 ? "" : SystemReason();
}

std::string RemoveFile(const std::string& path) {
    return unlink(path.c_str()) == 0 || errno == ENOENT ? "" : SystemReason();
}
