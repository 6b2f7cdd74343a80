// The content of the six data files at once, and their way from and to a folder.
#pragma once

#include <array>
#include <string>

#include "shell/state.h"

inline constexpr int kStageTables = 4;

struct Tables {
    EnemyDataType EnemyData[kEnemyKinds];
    EneMoveType EneMove[kMovePatterns][kMoveSteps];
    StageDataType Stages[kStageTables][kStageEntries];  // in the order of kStageTableFiles

    bool operator==(const Tables&) const = default;
};

struct TableName {
    const char* file;    // the data file
    const char* source;  // the Lua file it is built from
};
inline constexpr TableName kMoveTable = {"EneMove.DAT", "moves.lua"};
inline constexpr TableName kEnemyTable = {"EnemyData.DAT", "enemies.lua"};
inline constexpr std::array<TableName, kStageTables> kStageTableNames = {{
    {"STAGE1.DAT", "stage1.lua"},
    {"STAGE2.DAT", "stage2.lua"},
    {"STAGE3.DAT", "stage3.lua"},
    {"Attack.DAT", "attack.lua"},
}};

// Empty when done, else a message that names the file and the reason.
std::string ReadTables(const std::string& folder, Tables& tables);

// All six files or none: when one cannot be written, those before it get their old content back.
std::string WriteTables(const std::string& folder, const Tables& tables);
