// Files. Paths are the operating system's; names inside the program's folder are turned into paths by
// platform/folder.h.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

enum class FileError {
    none,
    missing,     // there is no such file
    unreadable,  // it exists but cannot be read
    unwritable,
};

struct FileBytes {
    FileError error = FileError::none;
    std::vector<std::uint8_t> bytes;
    std::string reason;  // the system's words, for messages
};

// The whole file. A directory or a file over 64 MiB counts as unreadable.
FileBytes ReadWholeFile(const std::string& path);

// Replaces the file's content; creates the file if it is missing. Atomic: the new content is written beside it, flushed
// and renamed over it, so on failure the old file is untouched.
// Empty string when done, else the system's reason.
std::string WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

// The same, but overwrites only the first bytes of the file and keeps a longer file's tail.
std::string WriteFileKeepingTail(const std::string& path, std::span<const std::uint8_t> bytes);

// One line to the log (standard error).
void LogLine(const std::string& line);
