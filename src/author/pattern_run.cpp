#include "author/pattern_run.h"

#include <algorithm>

#include "combat/enemy_move.h"
#include "toolkit/rounding.h"

namespace {

bool IsStep(int step) {
    return step >= 0 && step < kMoveSteps;
}

bool IsMove(const EneMoveType& step) {
    return step.Flag < kJump && !(step.Flag >= kFirstFireCode && step.Flag <= kLastFireCode);
}

// All that decides how a script goes on.
struct Place {
    int step = 0;
    bool looping = false;
    int count = 0;

    bool operator==(const Place&) const = default;
};

// The step whose movement is taken in this frame.
int TakeStep(const EneMoveType& step, Place& place) {
    if (step.Flag == kJump) return RoundTo<Integer>(step.DX);
    if (step.Flag != kRepeatStep) return place.step;
    if (!place.looping) place.count = RoundTo<Integer>(step.DY);
    place.looping = place.count > 0;
    if (!place.looping) return place.step;
    --place.count;
    return RoundTo<Integer>(step.DX);
}

// False at the end of the script.
bool Advance(const EneMoveType (&script)[kMoveSteps], Place& place, PatternRun& run) {
    run.where = place.step;
    const EneMoveType& step = script[place.step];
    run.used.set(static_cast<std::size_t>(place.step));
    if (IsMove(step)) run.highestFrame = std::max<int>(run.highestFrame, step.Anime);
    const int moved = TakeStep(step, place);
    if (IsStep(moved)) run.used.set(static_cast<std::size_t>(moved));
    if (step.Flag == kEndOfEnemy) return false;
    place.step = moved + 1;
    if (IsStep(moved) && IsStep(place.step)) return true;
    run.end = PatternEnd::leaves;
    return false;
}

}  // namespace

// A loop is found by coming back to a place marked earlier; the marks lie further and further apart, so that any loop
// fits between two of them at last.
PatternRun RunPattern(const EneMoveType (&script)[kMoveSteps]) {
    PatternRun run;
    run.startsWithMove = IsMove(script[0]);
    Place place, mark;
    long sinceMark = 0, nextMark = 1;
    while (Advance(script, place, run)) {
        if (place == mark) {
            run.end = PatternEnd::loops;
            break;
        }
        if (++sinceMark < nextMark) continue;
        mark = place;
        sinceMark = 0;
        nextMark *= 2;
    }
    return run;
}
