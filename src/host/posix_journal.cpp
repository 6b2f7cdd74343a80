// The journal of the POSIX hosts: locked by its writer for as long as that lives.
#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>

#include "host/journal.h"
#include "host/posix_descriptor.h"

namespace {

struct Journal {
    Descriptor file;
    std::string path;
};
Journal journal;

}  // namespace

std::string BeginJournal(const std::string& path) {
    EndJournal();
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (file.Get() < 0 || flock(file.Get(), LOCK_EX | LOCK_NB) != 0 || ftruncate(file.Get(), 0) != 0)
        return SystemReason();
    journal.file = std::move(file);
    journal.path = path;
    return {};
}

std::string AddToJournal(std::string_view text) {
    while (!journal.path.empty() && !text.empty()) {
        const ssize_t written = write(journal.file.Get(), text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return SystemReason();
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

void EndJournal() {
    if (journal.path.empty()) return;
    std::error_code error;
    std::filesystem::remove(journal.path, error);
    journal.file = Descriptor();
    journal.path.clear();
}

FileBytes ReadDeadJournal(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file.Get() < 0) return {FileError::missing, {}, SystemReason()};
    if (flock(file.Get(), LOCK_SH | LOCK_NB) != 0) return {FileError::missing, {}, "it is being written"};
    return ReadWholeFile(path);
}
