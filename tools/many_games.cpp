#include "many_games.h"

#include <cstdio>

#include "side_by_side.h"

GameResult PlayOne(const SimOptions& options) {
    const SimReport report = Simulate(options);
    GameResult r{};
    r.seed = options.seed;
    r.cleared = report.cleared, r.stuck = report.stuck, r.diedStage = report.diedStage;
    r.diedEntry = report.diedEntry, r.frames = report.frames, r.score = report.score, r.hits = report.hits;
    r.mostEnemies = report.mostEnemies, r.mostShots = report.mostShots, r.spawnsLost = report.spawnsLost;
    r.neverLeft = report.neverLeft, r.seconds = report.seconds;
    r.done = true;
    for (const StageReport& stage : report.stages) {
        if (r.stages < kMostStages) r.stage[r.stages++] = stage;
    }
    std::snprintf(r.error, sizeof r.error, "%s", report.error.c_str());
    return r;
}

std::vector<GameResult> PlayMany(const std::vector<SimOptions>& games, int jobs, const InOrder& inOrder) {
    std::vector<GameResult> results(games.size());
    for (std::size_t i = 0; i < games.size(); ++i) {
        results[i].seed = games[i].seed;
        std::snprintf(results[i].error, sizeof results[i].error, "its process died");
    }
    SideBySide(
        results, jobs, [&](std::size_t i) { return PlayOne(games[i]); },
        [&](const GameResult& result) {
            if (inOrder) inOrder(result);
        });
    return results;
}

std::vector<SimOptions> SeedsOf(const SimOptions& options, int seeds) {
    std::vector<SimOptions> games(static_cast<std::size_t>(seeds), options);
    for (std::size_t i = 0; i < games.size(); ++i) games[i].seed += i;
    return games;
}
