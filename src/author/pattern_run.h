// What an enemy does with a movement pattern, found by running it: scripts depend on nothing but themselves.
#pragma once

#include <bitset>

#include "state/state.h"

enum class PatternEnd {
    ends,   // at an end step
    loops,  // for ever
    leaves  // the table, at `where`
};

struct PatternRun {
    PatternEnd end = PatternEnd::ends;
    int where = 0;                 // the step that ends it, leaves the table, or lies on the loop
    std::bitset<kMoveSteps> used;  // steps performed, or jumped to for their movement
    int highestFrame = 0;          // Anime of the move steps performed
    bool startsWithMove = false;   // else the enemy shows at first the frame that its slot last held
};

PatternRun RunPattern(const EneMoveType (&script)[kMoveSteps]);
