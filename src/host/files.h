// Files. Paths are the operating system's; names inside the program's folder are turned into paths by
// toolkit/folder.h.
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

// True when there is something of that name: a file, or a link that leads to one. What lies in a folder that may not be
// looked into counts as not there.
bool FileExists(const std::string& path);

// The whole file. What is no plain file, or over 64 MiB, counts as unreadable.
FileBytes ReadWholeFile(const std::string& path);

// Replaces the file's content; creates the file if it is missing. Atomic: the new content is complete and on the disk
// before it takes the name, so on failure, or when the program is killed, the old file is untouched. What such a kill
// may leave beside the file is removed when the file is next written. A link is followed, also to a file that is not
// there yet; what is no plain file is refused. Permissions stay, and the owner where the system allows it.
// Empty string when done, else the system's reason.
std::string WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

// Makes the folder and those above it, where they are missing. Empty string when it is there, else the reason.
std::string MakeFolder(const std::string& path);

// The names of the plain files in the folder that end in `ending`, sorted; none when there is no such folder.
std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending);

// Gives the file another path on the same disk; a file that is there already stays, and the renaming fails. Empty
// string when done, else the reason.
std::string RenameFile(const std::string& from, const std::string& to);

// Empty string when there is no such file (any more), else the reason.
std::string RemoveFile(const std::string& path);

// One line to the log (standard error).
void LogLine(const std::string& line);
