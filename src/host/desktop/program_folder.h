// Which folder is the program's: the place of the tables, the sounds and the best scores.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace desktop {

// True when the folder holds all the tables and files can be written in it: a copy of the game that is kept together.
bool HoldsOwnTables(const std::filesystem::path& folder, std::span<const std::string> tables);

// The first of the candidates that is a folder; empty when none is.
std::filesystem::path FirstFolder(const std::vector<std::filesystem::path>& candidates);

// Where the program's files are, as SetProgramFolder of toolkit/folder.h takes it.
struct Folders {
    std::filesystem::path own;
    std::filesystem::path shipped;  // empty: `own` alone

    bool operator==(const Folders&) const = default;
};

// The folders when none is given: the executable's own alone if it HoldsOwnTables, else the user's over the installed
// data. The user's is not made here; what it holds of RemoveShippedCopies is removed.
// `tables`: the names of all the game's tables.
Folders ChooseFolders(const std::filesystem::path& executableFolder, const std::filesystem::path& userFolder,
                      std::span<const std::string> tables);

// Earlier programs copied the shipped data into the user's folder, where it would hide every later version. Removes
// each file whose content is that of any version that was ever shipped under its name; all others stay.
void RemoveShippedCopies(const std::filesystem::path& userFolder);

// Where the installed data may lie, best first: TARNVEIL_DATA, the share folder beside the executable's, a folder
// "data" in the executable's, as a build has it.
std::vector<std::filesystem::path> DataCandidates(const std::filesystem::path& executableFolder);

}  // namespace desktop
