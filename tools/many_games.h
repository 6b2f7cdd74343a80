// Many games side by side.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "simulation.h"

inline constexpr int kMostStages = std::size(kPlays);

// What is kept of a game: plain values, because it comes out of another process.
struct GameResult {
    std::uint64_t seed;
    bool cleared, stuck;
    int diedStage, diedEntry, frames, score, hits, mostEnemies, mostShots, spawnsLost, neverLeft;
    double seconds;
    bool done;
    int stages;
    StageReport stage[kMostStages];
    char error[200];
};

// Plays one game in this process.
GameResult PlayOne(const SimOptions& options);

// Called with a result as soon as it and those of all games before it are there.
using InOrder = std::function<void(const GameResult&)>;

// Plays the games in `jobs` processes (the game's state is one per process; with 1 it is this one). The results are in
// the order of the games; those whose process died have an error and `done` false.
std::vector<GameResult> PlayMany(const std::vector<SimOptions>& games, int jobs, const InOrder& inOrder = {});

// `options` with `seeds` seeds, from its own one on.
std::vector<SimOptions> SeedsOf(const SimOptions& options, int seeds);
