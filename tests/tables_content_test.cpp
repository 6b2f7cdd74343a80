// What the shipped stages promise to whoever plays them.
#include <algorithm>
#include <set>

#include "author/pattern_run.h"
#include "stage/stage_script.h"
#include "tables_fixture.h"

namespace {

constexpr int kFirstBoss = 37;
constexpr double kFramesPerSecond = 1000.0 / 39;

class ShippedContent : public TablesTest {
  protected:
    ShippedContent() { EXPECT_EQ("", ReadTables(std::string(TARNVEIL_ASSETS) + "/data", *tables)); }

    std::set<int> KindsSentIn() const {
        std::set<int> kinds;
        for (const auto& stage : tables->Stages) {
            for (const StageDataType& entry : stage) {
                if (entry.No == kNextStage) break;
                if (entry.No < kFirstCommand) kinds.insert(entry.No);
            }
        }
        return kinds;
    }
};

struct Spawn {
    int time;  // frames since the stage began
    int kind;
};

// The spawns of a stage without repeats, as if every boss were beaten at once.
std::vector<Spawn> SpawnsOf(const StageDataType (&stage)[kStageEntries]) {
    std::vector<Spawn> spawns;
    int time = 0;
    for (const StageDataType& entry : stage) {
        if (entry.No == kNextStage) break;
        if (entry.No < kFirstCommand || entry.No == 254) time += entry.Counter;
        if (entry.No < kFirstCommand) spawns.push_back({time, entry.No});
    }
    return spawns;
}

TEST_F(ShippedContent, UsesManyKindsPatternsAndEveryFireCode) {
    const std::set<int> kinds = KindsSentIn();
    std::set<int> patterns, codes;
    for (const int kind : kinds) patterns.insert(tables->EnemyData[kind].MoveNo);
    for (const int pattern : patterns) {
        const PatternRun run = RunPattern(tables->EneMove[pattern]);
        for (int step = 0; step < kMoveSteps; ++step) {
            const Byte flag = tables->EneMove[pattern][step].Flag;
            if (run.used[static_cast<std::size_t>(step)] && flag >= 1 && flag <= 11) codes.insert(flag);
        }
    }
    EXPECT_GE(kinds.size(), 28U);
    EXPECT_GE(patterns.size(), 40U);
    EXPECT_EQ((std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}), codes);
}

// In play order; the mirror image of a known machine, which shows the same picture, needs no introduction.
TEST_F(ShippedContent, EveryNewEnemyShowsItselfAloneFirst) {
    constexpr int kAlone = 25;  // frames without another spawn before and after
    std::set<int> known;
    for (const auto* stage : {&tables->Stages[0], &tables->Stages[1], &tables->Stages[2]}) {
        const std::vector<Spawn> spawns = SpawnsOf(*stage);
        for (std::size_t i = 0; i < spawns.size(); ++i) {
            const EnemyDataType& kind = tables->EnemyData[spawns[i].kind];
            if (!known.insert(kind.SY * 1000 + kind.SX).second || spawns[i].kind >= kFirstBoss) continue;
            if (i > 0) EXPECT_GE(spawns[i].time - spawns[i - 1].time, kAlone) << "kind " << spawns[i].kind;
            EXPECT_GE(spawns[i + 1].time - spawns[i].time, kAlone) << "kind " << spawns[i].kind;
        }
    }
    EXPECT_GE(known.size(), 28U);
}

TEST_F(ShippedContent, EveryStageEndsWithABossAndMusicThatIsHeard) {
    for (int i = 0; i < 3; ++i) {
        const auto& stage = tables->Stages[i];
        const auto find = [&](Integer command) { return std::ranges::find(stage, command, &StageDataType::No); };
        const auto entry = find(kBossEntry), clear = find(kStageClear), next = find(kNextStage);
        ASSERT_TRUE(entry < clear && clear < next && next != std::end(stage)) << "stage " << i + 1;
        EXPECT_EQ(1, std::count_if(entry, clear, [&](const auto& e) { return e.No == kFirstBoss + i; }));
        int heard = 0;
        for (auto e = clear; e != next; ++e) heard += e->Counter;
        EXPECT_GE(heard / kFramesPerSecond, 5.0) << "stage " << i + 1;
    }
}

// Without the boss fights, whose length depends on the player.
TEST_F(ShippedContent, EachStageIsLongerThanTheOneBefore) {
    int before = 0;
    for (int i = 0; i < 3; ++i) {
        const int last = SpawnsOf(tables->Stages[i]).back().time;
        EXPECT_GT(last, before) << "stage " << i + 1;
        before = last;
    }
}

}  // namespace
