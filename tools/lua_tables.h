// From Lua sources to the six tables.
//
// moves.lua    pattern(NAME [, NUMBER]) begins a movement pattern, step{DX=, DY=, Anime=, Flag=} adds to it
// enemies.lua  kind{name=, number=, SX=, SY=, Width=, Height=, BomType=, MoveNo=, Score=}
// stage*.lua   entry{X=, Y=, No=, Counter=, Power=}
//
// Numbers count up by themselves where none is given; a field left out is 0. MoveNo may be the name of a pattern, No
// that of a kind or a command, Flag that of a control step. next_step() and next_entry() tell the number of the step
// or entry that comes next: a jump target. A Single may be given as "#7FC00000", its exact bits.
#pragma once

#include <string>

#include "tables.h"

// Runs the six sources of `folder` in the order moves, enemies, stages. Empty when all is done, else the first fault.
std::string BuildTables(const std::string& folder, Tables& tables);
