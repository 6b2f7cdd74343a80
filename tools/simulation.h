// Playing games without a window, and what came of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "shell/recording.h"

// What is played.
enum class SimPlay { wholeGame, stage1, stage2, stage3, attack };

struct SimOptions {
    SimPlay play = SimPlay::stage1;
    int level = 2;  // 1 Easy, 2 Nomal, 5 Hard
    std::string pilot = "dodge";
    std::uint64_t seed = 1;
    int frameLimit = 60000;  // a game that goes on longer counts as stuck
    std::string recordTo{};  // a file, or empty
};

struct StageReport {
    int stage = 0;  // 0 score attack
    int frames = 0;
    int hits = 0;
    int bossFrames = 0;    // with a boss on the field
    int emptyLongest = 0;  // frames in a row without an enemy, shot or explosion in sight, outside the clear message
    bool cleared = false;
};

struct SimReport {
    bool cleared = false;
    bool stuck = false;
    int diedStage = -1;  // -1: did not die
    int diedEntry = -1;  // appearance entry the script was waiting on
    int frames = 0;
    int score = 0;
    int hits = 0;
    int mostEnemies = 0;
    int mostShots = 0;
    int spawnsLost = 0;
    int neverLeft = 0;   // enemies but bosses that stayed for more than a minute
    double seconds = 0;  // of processor time
    std::vector<StageReport> stages{};
    std::string error{};
};

// Plays one game from the program's folder (SetProgramFolder) and reports on it. Pictures are not composed.
SimReport Simulate(const SimOptions& options);

// Plays a recording. Empty when every frame's fingerprint agrees, else the first frame and the groups that differ.
// `anyData`: also with other data tables than it was recorded with.
std::string VerifyRecording(const Recording& recording, bool anyData, SimReport& report);
