// The content of the six data files at once, and their way from and to a folder.
#pragma once

#include <array>
#include <iterator>
#include <string>
#include <string_view>

#include "stage/data_files.h"
#include "stage/plays.h"
#include "state/state.h"

inline constexpr int kStageTables = std::size(kPlays);

struct Tables {
    EnemyDataType EnemyData[kEnemyKinds];
    EneMoveType EneMove[kMovePatterns][kMoveSteps];
    StageDataType Stages[kStageTables][kStageEntries];  // in the order of kPlays

    bool operator==(const Tables&) const = default;
};

struct TableName {
    std::string file;    // the data file
    std::string source;  // the Lua file it is built from
};
inline const TableName kMoveTable = {BareName(kEneMoveFile), "moves.lua"};
inline const TableName kEnemyTable = {BareName(kEnemyDataFile), "enemies.lua"};
inline TableName StageTable(std::size_t play) {
    return {BareName(kPlays[play].file), std::string(kPlays[play].name) + ".lua"};
}

// Empty when done, else a message that names the file and the reason.
std::string ReadTables(const std::string& folder, Tables& tables);

// All six files or none, also when the program is killed on the way. Empty when done, else file and reason.
std::string WriteTables(const std::string& folder, const Tables& tables);
