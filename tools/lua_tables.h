// From Lua sources to the six tables.
//
// moves.lua    pattern(NAME [, NUMBER]) begins a movement pattern, step{DX=, DY=, Anime=, Flag=} adds to it
// enemies.lua  kind{name=, number=, SX=, SY=, Width=, Height=, BomType=, MoveNo=, Score=}
// stage*.lua   entry{X=, Y=, No=, Counter=, Power=}
//
// Numbers count up by themselves where none is given; a field left out is 0. MoveNo may be the name of a pattern, No
// that of a kind or a command, Flag that of a control step. next_step() and next_entry() tell the number of the step
// or entry that comes next: a jump target. A Single is rounded to seven digits, as the editors do; "#7FC00000" gives
// its exact bits. here() tells the line of the source that is at work; entry{from=} takes it back, for those who
// write entries later than they are called. name_passage(FRAME, NAME) notes what begins in a frame of a stage; it
// changes no table.
#pragma once

#include <string>

#include "author/tables.h"
#include "lua_script.h"

// Runs the six sources of `folder` in the order moves, enemies, stages. Empty when all is done, else the first fault.
// A build that takes more than 10 s of processor time is one.
std::string BuildTables(const std::string& folder, Tables& tables);

// A stretch of a stage that its source has given a name.
struct Passage {
    int stage;      // as in Tables::Stages
    int frame;      // from the beginning of the stage, as if every boss were beaten at once
    char name[48];  // cut short
};
inline constexpr int kMostPassages = 200;
struct Passages {
    int count;
    Passage list[kMostPassages];  // of all stages, in order
};

inline constexpr std::size_t kLongestName = 100;  // what scripts make longer would only fill the memory
using GivenName = char[kLongestName + 1];         // empty: none

// All that the sources give. Plain values, because it comes out of another process.
struct BuiltTables {
    Tables tables;
    Passages passages;
    GivenName patternNames[kMovePatterns];
    GivenName kindNames[kEnemyKinds];
    // Where in its own source each record was made: not in a file that the source includes.
    Origin stepOrigins[kMovePatterns][kMoveSteps];
    Origin kindOrigins[kEnemyKinds];
    Origin entryOrigins[kStageTables][kStageEntries];
};
std::string BuildTables(const std::string& folder, BuiltTables& built);
std::string BuildTables(const SourceReader& read, BuiltTables& built);
