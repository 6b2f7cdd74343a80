// The movement editor's copy, paste and fill.
#include <algorithm>
#include <cmath>

#include "editors/enemy_move_edit.h"
#include "editors/fields.h"

namespace enemy_move_edit {

namespace {

auto& PatternShown() {
    return game.EneMove[EnemyMoveEdit["VScroll1"].Value];
}

// StepBuffer came from texts, so the store is never refused.
void PasteStep() {
    ShowStep(StepBuffer);
    UpLoad();
}

struct Fill {
    double holdSteps;  // steps that each frame lasts, less one
    double topFrame;
};

constexpr int kTopByte = 255;

// Only a whole number within a byte is ever met by the count of steps.
std::optional<double> ReadHoldSteps() {
    const auto steps = NumberOf(EnemyMoveEdit["Text8"].Text);
    if (steps && *steps >= 0 && *steps <= kTopByte && *steps == std::floor(*steps)) return steps;
    Refuse(EnemyMoveEdit, "Text8", "Label16", "a whole number from 0 to 255");
    return std::nullopt;
}

// With a new frame at every step the frame number would run past a byte before it starts again.
std::optional<double> ReadTopFrame(bool frameEachStep) {
    const auto top = NumberOf(EnemyMoveEdit["Text7"].Text);
    const bool tooHigh = frameEachStep && top >= kTopByte;
    if (top && std::isfinite(*top) && !tooHigh) return top;
    Refuse(EnemyMoveEdit, "Text7", "Label15", frameEachStep ? "a number below 255" : "a number");
    return std::nullopt;
}

std::optional<Fill> ReadFill() {
    const auto holdSteps = ReadHoldSteps();
    if (!holdSteps) return std::nullopt;
    const auto topFrame = ReadTopFrame(*holdSteps == 0);
    if (!topFrame) return std::nullopt;
    return Fill{*holdSteps, *topFrame};
}

}  // namespace

void Command1_Click() {
    std::copy_n(PatternShown(), kMoveSteps, PatternBuffer);
}

void Command2_Click() {
    std::copy_n(PatternBuffer, kMoveSteps, PatternShown());
    Load();
}

void Command5_Click() {
    if (const auto step = ReadStep()) StepBuffer = *step;
}

void Command6_Click() {
    PasteStep();
}

void Command7_Click() {
    PasteStep();
    SetScrollValue(EnemyMoveEdit, "HScroll1", EnemyMoveEdit["HScroll1"].Value + 1);
}

void Command9_Click() {
    const auto fill = ReadFill();
    if (!fill) return;
    Byte frame = 0;
    Byte count = 0;
    for (EneMoveType& step : PatternShown()) {
        step.Anime = frame;
        if (count == fill->holdSteps) {
            ++frame;
            if (fill->topFrame < frame) frame = 0;
            count = 0;
        } else {
            ++count;
        }
    }
    Load();
}

}  // namespace enemy_move_edit
