// Playing a stage from one of its entries, and its last ten seconds again, as an author tries what was changed.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "state/state.h"

struct TryOut {
    int table = 0;  // of kPlays
    int entry = 0;
    Single energy = 10;  // 0 < energy <= 10
    Byte shotMode = 0;   // 0 forward, 1 spread
    Integer level = 2;   // of kDifficulties
    std::optional<std::uint64_t> seed{};
    bool invincible = false;
};

// Where "STAGE:ENTRY" points to: "stage2:40". Empty, or what is wrong with it.
std::string ReadPlace(const std::string& text, TryOut& place);

// Starts such a game as soon as the program yields: a running one is left. Options, choice of play and seed come back
// as they were when it ends. It has no best score.
void StartTryOut(const TryOut& tryOut);

// Puts the game back by ten seconds, with the tables as they are now, and gives it the same keys again until the
// author presses one. A game that was left is started again for it. False when nothing was played yet.
bool PlayAgain();

struct TryOutWatch {
    std::function<void(int table)> tableLoaded;  // the game has read that appearance table's file
    std::function<void()> ended;                 // a game that StartTryOut has begun
};

// Called once, after everything else that watches games and events is in place, and before Main.
void WatchTryOuts(TryOutWatch watch);
