#include "host/file_sets.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <charconv>
#include <optional>
#include <string_view>

#include "host/files.h"
#include "host/posix_descriptor.h"
#include "host/posix_staged_file.h"

namespace {

constexpr const char* kJournal = "build.journal";
constexpr const char* kUnwritable = ": the file cannot be written: ";

std::string Join(const std::string& folder, const std::string& name) {
    return folder + "/" + name;
}

// Each file: its size and name in a line, then its bytes.
std::vector<std::uint8_t> Format(std::span<const NamedBytes> files) {
    std::vector<std::uint8_t> journal;
    for (const NamedBytes& file : files) {
        const std::string line = std::to_string(file.bytes.size()) + " " + file.name + "\n";
        journal.insert(journal.end(), line.begin(), line.end());
        journal.insert(journal.end(), file.bytes.begin(), file.bytes.end());
    }
    return journal;
}

// Takes the first file off the journal; nothing when it is not understood.
std::optional<NamedBytes> TakeFile(std::string_view& journal) {
    std::size_t size = 0;
    const char* end = journal.data() + journal.size();
    const auto [space, error] = std::from_chars(journal.data(), end, size);
    const auto lineEnd = journal.find('\n');
    if (error != std::errc() || lineEnd == std::string_view::npos || *space != ' ') return {};
    const std::string_view name(space + 1, journal.data() + lineEnd);
    journal.remove_prefix(lineEnd + 1);
    if (name.empty() || name.find('/') != std::string_view::npos || journal.size() < size) return {};
    NamedBytes file{std::string(name), {journal.begin(), journal.begin() + static_cast<std::ptrdiff_t>(size)}};
    journal.remove_prefix(size);
    return file;
}

// Waits for a living writer to end. False when it takes too long.
bool Lock(int fd) {
    constexpr int kTries = 200;
    constexpr useconds_t kPause = 10000;  // microseconds
    for (int i = 0; i < kTries; ++i) {
        if (flock(fd, LOCK_EX | LOCK_NB) == 0) return true;
        usleep(kPause);
    }
    return false;
}

bool IsStillThere(int fd) {
    struct stat info {};
    return fstat(fd, &info) == 0 && info.st_nlink > 0;
}

// From the journal, which is whole whenever it is there.
std::string Complete(const std::string& folder) {
    const FileBytes journal = ReadWholeFile(Join(folder, kJournal));
    if (journal.error != FileError::none) return journal.reason;
    std::string_view rest(reinterpret_cast<const char*>(journal.bytes.data()), journal.bytes.size());
    std::vector<NamedBytes> files;
    while (!rest.empty()) {
        std::optional<NamedBytes> file = TakeFile(rest);
        if (!file) return "it is damaged";
        files.push_back(std::move(*file));
    }
    for (const NamedBytes& file : files) {
        const std::string reason = WriteWholeFile(Join(folder, file.name), file.bytes);
        if (!reason.empty()) return file.name + ": " + reason;
    }
    return unlink(Join(folder, kJournal).c_str()) == 0 ? "" : SystemReason();
}

// What the files hold before they are replaced.
struct Former {
    std::string path;
    FileBytes content;
};

void PutBack(const Former& former) {
    if (former.content.error == FileError::missing) {
        unlink(former.path.c_str());
    } else {
        static_cast<void>(WriteWholeFile(former.path, former.content.bytes));
    }
}

// Between the journal's first and last call nothing waits for a disk.
std::string CommitAll(std::span<StagedFile> staged, std::span<const Former> formers) {
    for (std::size_t i = 0; i < staged.size(); ++i) {
        const std::string reason = staged[i].Commit();
        if (reason.empty()) continue;
        for (const Former& former : formers.first(i)) PutBack(former);
        return formers[i].path + kUnwritable + reason;
    }
    return {};
}

}  // namespace

std::string WriteFileSet(const std::string& folder, std::span<const NamedBytes> files) {
    const std::string path = Join(folder, kJournal);
    std::string reason = CompleteFileSet(folder);
    if (!reason.empty()) return reason;
    std::vector<StagedFile> staged(files.size());
    std::vector<Former> formers;
    for (std::size_t i = 0; i < files.size(); ++i) {
        formers.push_back({Join(folder, files[i].name), ReadWholeFile(Join(folder, files[i].name))});
        reason = staged[i].Stage(formers[i].path, files[i].bytes);
        if (!reason.empty()) return formers[i].path + kUnwritable + reason;
    }
    StagedFile journal;
    reason = journal.Stage(path, Format(files));
    if (reason.empty()) reason = journal.CommitAsNew();
    if (!reason.empty()) return path + kUnwritable + reason;
    reason = CommitAll(staged, formers);
    unlink(path.c_str());
    FlushFolderOf(path);
    return reason;
}

std::string CompleteFileSet(const std::string& folder) {
    const std::string path = Join(folder, kJournal);
    const Descriptor journal(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (journal.Get() < 0) return FileExists(path) ? path + ": " + SystemReason() : "";
    const bool locked = Lock(journal.Get());
    if (locked && !IsStillThere(journal.Get())) return {};
    const std::string reason = locked ? Complete(folder) : "another program is at it";
    return reason.empty() ? "" : path + ": a build that was cut short cannot be completed: " + reason;
}
