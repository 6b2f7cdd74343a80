// Which folder is the program's: the place of the tables, the sounds and the best scores.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace desktop {

// True when the folder holds all six tables and files can be written in it: a copy of the game that is kept together.
bool HoldsOwnTables(const std::filesystem::path& folder);

// The first of the candidates that is a folder; empty when none is.
std::filesystem::path FirstFolder(const std::vector<std::filesystem::path>& candidates);

// Creates `folder` and copies into it every file of `data` that it does not have yet. No file that is there is ever
// overwritten, and none appears half written. What could not be done: one line each, empty when all went well.
std::vector<std::string> FillFolder(const std::filesystem::path& folder, const std::filesystem::path& data);

// The program's folder when none is given: the executable's own folder if it HoldsOwnTables, else `userFolder`, filled
// from the installed data. What could not be filled in is logged.
std::filesystem::path ChooseFolder(const std::filesystem::path& executableFolder,
                                   const std::filesystem::path& userFolder);

// Where the installed data may lie, best first: TARNVEIL_DATA, the share folder beside the executable's, the source
// tree the program was built from.
std::vector<std::filesystem::path> DataCandidates(const std::filesystem::path& executableFolder);

}  // namespace desktop
