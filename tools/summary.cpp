#include "summary.h"
#include "recording/frame_time.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr std::size_t kFewGames = 12;

double PerMinute(long long hits, long long frames) {
    constexpr double kFramesPerMinute = 60 / kSecondsPerFrame;
    return frames == 0 ? 0 : static_cast<double>(hits) * kFramesPerMinute / static_cast<double>(frames);
}

double Percent(long long part, long long whole) {
    return 100.0 * static_cast<double>(part) / static_cast<double>(std::max(whole, 1LL));
}

double Mean(long long sum, long long count) {
    return static_cast<double>(sum) / static_cast<double>(std::max(count, 1LL));
}

std::string EndOf(const GameResult& g) {
    if (g.error[0]) return g.error;
    if (g.stuck) return "stuck";
    if (g.cleared) return "cleared";
    return "died in stage " + std::to_string(g.diedStage) + " at entry " + std::to_string(g.diedEntry);
}

void PrintGame(const GameResult& g) {
    std::printf("seed %-6llu %-32s %6d frames %7d points %3d hits, most %2d enemies %2d shots, %d lost, %d stayed\n",
                static_cast<unsigned long long>(g.seed), EndOf(g).c_str(), g.frames, g.score, g.hits, g.mostEnemies,
                g.mostShots, g.spawnsLost, g.neverLeft);
}

}  // namespace

void Summary::Add(const GameResult& result) {
    ++games_;
    cleared_ += result.cleared, stuck_ += result.stuck, hits_ += result.hits, frames_ += result.frames,
        score_ += result.score;
    lost_ += result.spawnsLost, stayed_ += result.neverLeft;
    mostEnemies_ = std::max(mostEnemies_, result.mostEnemies), mostShots_ = std::max(mostShots_, result.mostShots);
    for (int i = 0; i < result.stages; ++i) AddStage(result.stage[i]);
    if (result.diedStage >= 0) ++deaths_[{result.diedStage, result.diedEntry}];
    if (few_.size() <= kFewGames) few_.emplace(result.seed, result);
}

void Summary::AddStage(const StageReport& report) {
    Stage& stage = stages_[report.stage];
    ++stage.plays, stage.cleared += report.cleared, stage.frames += report.frames, stage.hits += report.hits;
    stage.emptyLongest = std::max(stage.emptyLongest, report.emptyLongest);
    if (!report.cleared || report.bossFrames == 0) return;
    stage.bossLongest = std::max(stage.bossLongest, report.bossFrames);
    stage.bossShortest = stage.bossFights == 0 ? report.bossFrames : std::min(stage.bossShortest, report.bossFrames);
    ++stage.bossFights, stage.bossFrames += report.bossFrames;
}

void Summary::Print() const {
    if (few_.size() <= kFewGames) {
        for (const auto& [seed, result] : few_) PrintGame(result);
    }
    std::printf(
        "%lld games: %lld cleared (%.1f %%), %lld stuck; %.2f hits/min, %.0f points, most %d enemies %d shots, "
        "%lld spawns lost, %lld stayed\n",
        games_, cleared_, Percent(cleared_, games_), stuck_, PerMinute(hits_, frames_), Mean(score_, games_),
        mostEnemies_, mostShots_, lost_, stayed_);
    PrintStages();
    PrintDeaths();
}

void Summary::PrintStages() const {
    for (const auto& [number, stage] : stages_) {
        if (number != 0) PrintStage(number, stage);
    }
    if (const auto attack = stages_.find(0); attack != stages_.end()) PrintStage(0, attack->second);
}

void Summary::PrintStage(int number, const Stage& stage) {
    std::printf("stage %d: %lld plays, %lld cleared (%.1f %%), %.1f s each, %.2f hits/min, longest empty %.1f s",
                number, stage.plays, stage.cleared, Percent(stage.cleared, stage.plays),
                Mean(stage.frames, stage.plays) * kSecondsPerFrame, PerMinute(stage.hits, stage.frames),
                stage.emptyLongest * kSecondsPerFrame);
    if (stage.bossFights > 0) {
        std::printf(", boss %.1f s (%.1f to %.1f)", Mean(stage.bossFrames, stage.bossFights) * kSecondsPerFrame,
                    stage.bossShortest * kSecondsPerFrame, stage.bossLongest * kSecondsPerFrame);
    }
    std::puts("");
}

void Summary::PrintDeaths() const {
    if (deaths_.empty()) return;
    std::printf("deaths (stage:entry x games):");
    for (const auto& [where, games] : deaths_) std::printf(" %d:%d x%lld", where.first, where.second, games);
    std::puts("");
}
