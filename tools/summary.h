// Games added up. Everything is counted in whole numbers, so the order of the games makes no difference.
#pragma once

#include <map>
#include <utility>

#include "many_games.h"

class Summary {
  public:
    void Add(const GameResult& result);

    // The table on standard output. Of a few games each has its line.
    void Print() const;

  private:
    struct Stage {
        long long plays = 0, cleared = 0, frames = 0, hits = 0, bossFights = 0, bossFrames = 0;
        int emptyLongest = 0, bossShortest = 0, bossLongest = 0;
    };
    void AddStage(const StageReport& report);
    static void PrintStage(int number, const Stage& stage);
    void PrintStages() const;
    void PrintDeaths() const;

    long long games_ = 0, cleared_ = 0, stuck_ = 0, hits_ = 0, frames_ = 0, score_ = 0, lost_ = 0, stayed_ = 0;
    int mostEnemies_ = 0, mostShots_ = 0;
    std::map<int, Stage> stages_;                      // by number; 0 the score attack
    std::map<std::pair<int, int>, long long> deaths_;  // by stage and entry: where games end, the hard places
    std::map<std::uint64_t, GameResult> few_;          // by seed; no more than are printed
};
