// The files of both hosts: POSIX.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/files.h"

namespace {

constexpr std::size_t kLargestFile = 64u << 20;

// Closes the descriptor on every way out.
class Descriptor {
  public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (fd_ >= 0) close(fd_);
    }
    int Get() const { return fd_; }
    // False when the system reports a late write error.
    bool Close() {
        const int result = close(fd_);
        fd_ = -1;
        return result == 0;
    }

  private:
    int fd_;
};

std::string SystemReason() {
    return std::strerror(errno);
}

FileBytes Failed(FileError error, const std::string& reason) {
    return {error, {}, reason};
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

bool WriteAll(int fd, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t put = write(fd, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
    return true;
}

// Keeps the permissions of the file that is replaced.
mode_t ModeFor(const std::string& path) {
    constexpr mode_t kNewFile = 0644, kAllBits = 07777;
    struct stat info {};
    return stat(path.c_str(), &info) == 0 ? info.st_mode & kAllBits : kNewFile;
}

// The rename is only safe on disk once the folder is flushed too.
void FlushFolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const Descriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Get() >= 0) fsync(directory.Get());
}

std::string WriteNewFile(const std::string& path, std::span<const std::uint8_t> bytes, mode_t mode) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode));
    if (file.Get() < 0) return SystemReason();
    if (!WriteAll(file.Get(), bytes) || fsync(file.Get()) != 0 || !file.Close()) return SystemReason();
    return {};
}

// Where a symbolic link leads, so that the link itself is not replaced.
std::string RealPath(const std::string& path) {
    char* resolved = realpath(path.c_str(), nullptr);
    if (!resolved) return path;
    std::string real(resolved);
    free(resolved);
    return real;
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Get() < 0) return Failed(errno == ENOENT ? FileError::missing : FileError::unreadable, SystemReason());
    FileBytes result;
    if (!ReadAll(file.Get(), result.bytes)) return Failed(FileError::unreadable, SystemReason());
    return result;
}

std::string WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    const std::string target = RealPath(path);
    if (access(target.c_str(), F_OK) == 0 && access(target.c_str(), W_OK) != 0) return SystemReason();
    const std::string temporary = target + "." + std::to_string(getpid()) + ".new";
    std::string reason = WriteNewFile(temporary, bytes, ModeFor(target));
    if (reason.empty() && rename(temporary.c_str(), target.c_str()) != 0) reason = SystemReason();
    if (!reason.empty()) {
        unlink(temporary.c_str());
        return reason;
    }
    FlushFolderOf(target);
    return {};
}

std::string WriteFileKeepingTail(const std::string& path, std::span<const std::uint8_t> bytes) {
    const FileBytes old = ReadWholeFile(path);
    if (old.error == FileError::unreadable) return old.reason;  // its tail would be lost
    std::vector<std::uint8_t> content(bytes.begin(), bytes.end());
    if (old.bytes.size() > content.size()) {
        content.insert(content.end(), old.bytes.begin() + static_cast<std::ptrdiff_t>(content.size()), old.bytes.end());
    }
    return WriteWholeFile(path, content);
}
