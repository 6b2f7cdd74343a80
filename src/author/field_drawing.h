// The playfield with the way of one enemy in it: where it comes, flies, fires and leaves, and who else is there.
#pragma once

#include <string>
#include <vector>

#include "author/drawing.h"
#include "author/enemy_path.h"

struct OnionSkin {
    int entry;
    int kind;
    PathPoint at;
};

struct FieldScene {
    StageDataType entry{};  // the chosen one
    EnemyDataType kind{};   // its kind
    EnemyPath path;         // empty for commands
    int age = 0;            // frames since it has come, at the chosen time; before 0 it is not there yet
    int step = -1;          // the step that is marked; -1: none
    std::vector<OnionSkin> others{};
    const EnemyDataType* kinds = nullptr;  // the table of kinds
    std::string note{};                    // beside `notePlace`, while something is dragged
    DrawnPoint notePlace{};
    std::vector<DrawnPoint> stroke{};  // the way that is being drawn
};

// The room around the field that is shown too, in pixels.
inline constexpr float kFieldMargin = 60;

Drawing DrawField(const FieldScene& scene);

// The middle of the enemy's sprite in that frame.
DrawnPoint MiddleOf(const PathPoint& point, const EnemyDataType& kind);
// The same before its first frame: where its entry puts it. A random place counts as the one that PathOf takes.
DrawnPoint StartOf(const StageDataType& entry, const EnemyDataType& kind);

// The step whose DX and DY have moved the enemy in frame `i` of the path; -1 when no step to be changed has: the last
// frame that is known, and frames of jumps into jumps.
int StepMoved(const EnemyPath& path, std::size_t i);
