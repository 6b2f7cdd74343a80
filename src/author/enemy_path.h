// The way of one enemy through its movement pattern, found by letting the game itself move it.
#pragma once

#include <vector>

#include "state/state.h"

// Where the enemy is after one frame.
struct PathPoint {
    Single X;
    Single Y;
    Integer Step;  // the step that was performed
    Byte Anime;    // the frame that is shown
    Byte Fire;     // the fire code of that step, or 0

    bool operator==(const PathPoint&) const = default;
};

enum class PathEnd {
    removed,  // by its script
    faulty,   // its kind, pattern or a step does not exist
    goesOn,   // it is still there after the frames that were asked for
};

struct EnemyPath {
    std::vector<PathPoint> points;  // points[0] is the end of the frame in which the enemy comes
    PathEnd end = PathEnd::goesOn;
    int leaves = -1;  // the first frame from which on nothing of it is in the playfield, -1: it never leaves
};

// Where an enemy for a random place starts here: in the middle of the places that it may take.
inline constexpr Single kMiddleOfRandomX = 144;

// Runs an enemy of that kind from (x, y), at most `frames` frames. An x of 700, a random place, starts at
// kMiddleOfRandomX. The state of the game, its random numbers and its picture are as before when it returns. Called at
// any time between two frames; kinds outside 0..49 give a faulty path without points.
EnemyPath PathOf(int kind, Single x, Single y, int frames);
