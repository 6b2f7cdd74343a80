#include "host/posix_staged_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr const char* kTemporaryEnding = ".new";
constexpr mode_t kNewFile = 0666;  // less what the umask takes
constexpr mode_t kOnlyOwner = 0600;
constexpr mode_t kAllBits = 07777;

std::string FolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// Where symbolic links lead, so that no link is replaced; the last one may lead to nothing yet.
std::string FollowLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path.string();
}

std::string_view KindOf(mode_t mode) {
    if (S_ISDIR(mode)) return "a folder";
    if (S_ISFIFO(mode)) return "a pipe";
    if (S_ISSOCK(mode)) return "a socket";
    return "a device";
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

bool IsNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "STAGE1.DAT.1234.new" for the target "STAGE1.DAT".
bool IsTemporaryOf(std::string_view target, std::string_view name) {
    if (!name.starts_with(target) || !name.ends_with(kTemporaryEnding)) return false;
    name.remove_prefix(target.size());
    name.remove_suffix(std::string_view(kTemporaryEnding).size());
    return name.starts_with('.') && IsNumber(name.substr(1));
}

// A writer holds its temporary locked as long as it lives.
void RemoveIfLeftBehind(const fs::path& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat info {};
    if (file.Get() < 0 || fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return;
    if (flock(file.Get(), LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
}

void RemoveLeftovers(const fs::path& target) {
    std::error_code error;
    const std::string name = target.filename().string();
    for (fs::directory_iterator entry(FolderOf(target.string()), error), end; !error && entry != end;
         entry.increment(error)) {
        if (IsTemporaryOf(name, entry->path().filename().string())) RemoveIfLeftBehind(entry->path());
    }
}

// The way from an open file without a name to a name leads through here.
std::string ProcPath(int fd) {
    return "/proc/self/fd/" + std::to_string(fd);
}

// The error, or 0. Nothing but calls of the system: it runs between vfork and _exit.
int LinkAndRename(const char* file, const char* temporary, const char* target) {
    if (linkat(AT_FDCWD, file, AT_FDCWD, temporary, AT_SYMLINK_FOLLOW) != 0) return errno;
    return rename(temporary, target) == 0 ? 0 : errno;
}

// By a child of a moment, so that no kill of this process comes between the two calls and leaves the temporary name.
int LinkAndRenameInOneGo(const char* file, const char* temporary, const char* target) {
    const pid_t child = vfork();  // NOLINT(clang-analyzer-security.insecureAPI.vfork): it waits for two calls only
    if (child == 0) _exit(LinkAndRename(file, temporary, target));  // NOLINT(clang-analyzer-unix.Vfork)
    if (child < 0) return LinkAndRename(file, temporary, target);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : EINTR;
}

}  // namespace

StagedFile::~StagedFile() {
    if (named_) unlink(temporary_.c_str());
}

std::string StagedFile::LookAtTarget(const std::string& path) {
    target_ = FollowLinks(path);
    temporary_ = target_ + "." + std::to_string(getpid()) + kTemporaryEnding;
    struct stat info {};
    replaces_ = stat(target_.c_str(), &info) == 0;
    if (!replaces_) return errno == ENOENT ? "" : SystemReason();
    if (!S_ISREG(info.st_mode)) return "it is " + std::string(KindOf(info.st_mode)) + " and no plain file";
    mode_ = info.st_mode & kAllBits, user_ = info.st_uid, group_ = info.st_gid;
    replaced_ = Descriptor(open(target_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return access(target_.c_str(), W_OK) == 0 ? "" : SystemReason();
}

// Without a name where the file system can, so that a killed writer leaves nothing behind.
bool StagedFile::Open() {
    const mode_t mode = replaces_ ? kOnlyOwner : kNewFile;
    file_ = Descriptor(open(FolderOf(target_).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
    if (file_.Get() >= 0 && access(ProcPath(file_.Get()).c_str(), F_OK) == 0) return true;
    file_ = Descriptor(open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    named_ = file_.Get() >= 0;
    return named_;
}

// What the system does not allow is left: the file is then its writer's own.
void StagedFile::KeepOwnerAndMode() const {
    struct stat now {};
    const bool same = fstat(file_.Get(), &now) == 0 && now.st_uid == user_ && now.st_gid == group_;
    if (!same && fchown(file_.Get(), user_, group_) != 0) {
        static_cast<void>(!fchown(file_.Get(), static_cast<uid_t>(-1), group_));
    }
    fchmod(file_.Get(), mode_);
}

std::string StagedFile::Stage(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::string refused = LookAtTarget(path);
    if (!refused.empty()) return refused;
    RemoveLeftovers(target_);
    if (!Open()) return SystemReason();
    flock(file_.Get(), LOCK_EX | LOCK_NB);
    if (!WriteAll(file_.Get(), bytes)) return SystemReason();
    if (replaces_) KeepOwnerAndMode();
    return fsync(file_.Get()) == 0 ? "" : SystemReason();
}

bool StagedFile::LinkTo(const std::string& name) const {
    return linkat(AT_FDCWD, ProcPath(file_.Get()).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

// A name that is taken cannot be linked to: the content gets one beside it for the moment before the rename.
std::string StagedFile::Commit() {
    if (!named_ && !replaces_ && LinkTo(target_)) return {};
    const std::string file = ProcPath(file_.Get());
    int error = 0;
    if (!named_) {
        error = LinkAndRenameInOneGo(file.c_str(), temporary_.c_str(), target_.c_str());
    } else if (rename(temporary_.c_str(), target_.c_str()) != 0) {
        error = errno;
    }
    named_ = error != 0 && error != EEXIST;  // a temporary name that is taken is somebody else's
    return error == 0 ? "" : std::strerror(error);
}

std::string StagedFile::CommitAsNew() {
    if (!named_) return LinkTo(target_) ? "" : SystemReason();
    named_ = renameat2(AT_FDCWD, temporary_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0;
    return named_ ? SystemReason() : "";
}

void FlushFolderOf(const std::string& path) {
    const Descriptor folder(open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Get() >= 0) fsync(folder.Get());
}
