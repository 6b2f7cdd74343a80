// Playing games without a window, and what came of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "combat/enemy_move.h"
#include "pilot.h"
#include "recording/recording.h"
#include "stage/plays.h"

// What is played: a play to the end of its stage, or the whole normal game.
struct SimPlay {
    Byte number = kNormalPlay;  // of kPlays
    bool wholeGame = false;

    bool operator==(const SimPlay&) const = default;
};

struct SimOptions {
    SimPlay play;
    int level = kNomal;
    std::string pilot = "dodge";
    Weapon weapon = Weapon::switching;
    std::uint64_t seed = 1;
    int frameLimit = 60000;  // a game that goes on longer counts as stuck
    GameStart start{};       // within the first stage
    std::string recordTo{};  // a file, or empty
    OptionMarks options{};
};

inline constexpr int kFireCodes = kLastFireCode + 1;  // 0: none

struct StageReport {
    int stage = 0;  // 0 score attack
    int frames = 0;
    int hits = 0;
    int hitsByCode[kFireCodes] = {};   // by the fire code of the shot
    int hitsByKind[kEnemyKinds] = {};  // by the enemy that fired it
    int longestSafe = 0;               // frames in a row without a hit
    int bossFrames = 0;                // with a boss on the field
    int emptyLongest = 0;  // frames in a row without an enemy, shot or explosion in sight, outside the clear message
    // On the way to the first boss:
    int wayFrames = 0;
    int wayHits = 0;
    int lonely = 0;         // frames without a live enemy in sight
    int lonelyLongest = 0;  // of them in a row
    long enemies = 0;       // in sight, summed over the frames
    long shots = 0;
    int offScreen = 0;  // shots born outside the field
    bool cleared = false;
};

// What was in sight during kBinFrames frames of a stage.
struct TimeBin {
    int frames = 0;
    int enemies = 0;  // summed over the frames
    int shots = 0;
    int hits = 0;
};
inline constexpr int kBinFrames = 64;  // 2.5 s

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
    std::vector<TimeBin> bins{};  // of the first stage played
    std::string error{};
};

// Plays one game from the program's folder (SetProgramFolder) and reports on it. Pictures are not composed.
SimReport Simulate(const SimOptions& options);

// Plays a recording. Empty when every frame's fingerprint agrees, else the first frame and the groups that differ.
// `anyData`: also with other data tables than it was recorded with.
std::string VerifyRecording(const Recording& recording, bool anyData, SimReport& report);
