// Several files of one folder that are replaced together: all or none, also when the writer is killed on the way.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct NamedBytes {
    std::string name;  // of a file in the folder
    std::vector<std::uint8_t> bytes;

    bool operator==(const NamedBytes&) const = default;
};

// Empty when all are written, else what is wrong, with the path; then none has changed. While the files take their
// names, one after the other, all of them are also in the journal "build.journal" of the folder.
std::string WriteFileSet(const std::string& folder, std::span<const NamedBytes> files);

// To be called before anything of the folder is read or written: finishes what a killed WriteFileSet has left. Quick
// when there is nothing. Empty when the files are whole, else what is wrong.
std::string CompleteFileSet(const std::string& folder);
