// The author's bench without its window: actions and their way back, paths, times, the journal.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

#include "author/bench.h"
#include "author/check_stage.h"
#include "author/edit_entries.h"
#include "author/enemy_path.h"
#include "author/journal.h"
#include "combat/enemy_move.h"
#include "stage/load_stage.h"
#include "stage/stage_script.h"
#include "test_game.h"
#include "toolkit/folder.h"
#include "toolkit/numbers.h"

namespace {

class BenchTest : public GameTest {
  protected:
    BenchTest() {
        UseFolder(true);
        EXPECT_EQ("", bench.Open());
        bench.TableLoaded(0);
    }

    // One random action of those an author has; some change nothing.
    void ActAtRandom() {
        auto next = std::make_unique<Tables>(bench.Working());
        const int table = Draw(kStageTables), first = Draw(kStageEntries), last = first + Draw(20);
        const EntryRange range{table, first, last};
        switch (Draw(9)) {
            case 0:
                static_cast<void>(InsertEntry(*next, table, first));
                break;
            case 1:
                static_cast<void>(DeleteEntries(*next, range));
                break;
            case 2:
                static_cast<void>(MoveEntries(*next, range, Draw(kStageEntries)));
                break;
            case 3:
                static_cast<void>(DuplicateEntries(*next, range));
                break;
            case 4:
                static_cast<void>(ShiftCounters(*next, range, Draw(100) - 50));
                break;
            case 5:
                static_cast<void>(MirrorX(*next, range));
                break;
            case 6:
                next->EneMove[Draw(kMovePatterns)][Draw(kMoveSteps)].DX = static_cast<Single>(Draw(9));
                break;
            case 7:
                game.EnemyData[Draw(kEnemyKinds)].Score = static_cast<Byte>(Draw(256));  // as an editor window stores
                return bench.Observe();
            default:
                return Draw(2) ? bench.GoBack() : bench.GoForward();
        }
        bench.Act(*next);
    }

    int Draw(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    Bench bench;

  private:
    std::mt19937 random_{7};
};

bool SameBytes(const Tables& a, const Tables& b) {
    return Differences(a, b).empty();
}

TEST_F(BenchTest, TenThousandActionsTakenBackGiveTheSameTables) {
    const auto start = std::make_unique<Tables>(bench.Working());
    for (int i = 0; i < 10000; ++i) ActAtRandom();
    const auto end = std::make_unique<Tables>(bench.Working());
    ASSERT_GT(bench.Done(), 3000u);
    while (bench.Done() > 0) bench.GoBack();
    EXPECT_TRUE(SameBytes(*start, bench.Working()));
    EXPECT_TRUE(bench.Unsaved().empty());
    while (bench.Done() < bench.History().size()) bench.GoForward();
    EXPECT_TRUE(SameBytes(*end, bench.Working()));
    EXPECT_TRUE(std::ranges::equal(game.EnemyData, end->EnemyData));
    EXPECT_TRUE(std::ranges::equal(game.StageData, end->Stages[0]));
}

TEST_F(BenchTest, WhatIsStoredInAnEditorWindowIsAnActionWithAName) {
    game.StageData[40].X = 160;
    const Single before = bench.Working().Stages[0][40].X;
    bench.Observe();
    ASSERT_EQ(1u, bench.Done());
    EXPECT_EQ("entry 40: X " + TextOf(before) + " → 160", bench.History()[0].label);
    bench.GoBack();
    EXPECT_EQ(before, game.StageData[40].X);
    bench.Observe();
    EXPECT_EQ(1u, bench.History().size()) << "going back is no action";
}

TEST_F(BenchTest, TheCountOfARepeatIsPlaysOwn) {
    auto next = std::make_unique<Tables>(bench.Working());
    next->Stages[0][5] = {.X = 2, .Y = 3, .No = kRepeat, .Counter = 0, .Power = 3};
    bench.Act(*next);
    game.StageData[5].Y = 1;
    bench.Observe();
    EXPECT_EQ(1u, bench.History().size());
    game.StageData[5].X = 1;
    bench.Observe();
    EXPECT_EQ(2u, bench.History().size());
}

TEST_F(BenchTest, ATableReadByTheGameKeepsWhatIsUnsaved) {
    auto next = std::make_unique<Tables>(bench.Working());
    next->Stages[1][3].Counter = 77;
    next->EnemyData[4].Score = 99;
    bench.Act(*next);
    EXPECT_NE(77, game.StageData[3].Counter) << "stage 2 is not in memory";
    LoadStage();
    bench.TableLoaded(1);
    EXPECT_EQ(77, game.StageData[3].Counter);
    EXPECT_EQ(99, game.EnemyData[4].Score);
}

TEST_F(BenchTest, SavingWritesWhatChangedAndKeepsTheOldFileBeside) {
    const auto old = ReadFolderFile("STAGE2.DAT").bytes;
    auto next = std::make_unique<Tables>(bench.Working());
    next->Stages[1][3].Counter = 77;
    bench.Act(*next);
    EXPECT_EQ(std::vector<std::string>{"STAGE2.DAT"}, bench.Unsaved());
    bench.KeepJournal();
    EXPECT_EQ("", bench.Save());
    EXPECT_TRUE(bench.Unsaved().empty());
    EXPECT_EQ(old, ReadFolderFile("STAGE2.DAT.bak").bytes);
    EXPECT_EQ(FileError::missing, ReadFolderFile("STAGE1.DAT.bak").error);
    Bench again;
    EXPECT_EQ("", again.Open());
    EXPECT_TRUE(SameBytes(bench.Working(), again.Working()));
    EXPECT_TRUE(ReadJournal(again.Working()).changes.empty());
}

TEST_F(BenchTest, ACrashLosesNothing) {
    for (int i = 0; i < 50; ++i) ActAtRandom();
    bench.KeepJournal();
    Bench later;
    ASSERT_EQ("", later.Open());
    const LeftOver left = ReadJournal(later.Working());
    EXPECT_EQ("", left.problem);
    auto tables = std::make_unique<Tables>(later.Working());
    for (const TableChange& change : left.changes) Apply(change, Direction::forward, *tables);
    EXPECT_TRUE(SameBytes(bench.Working(), *tables));
}

TEST_F(BenchTest, ADamagedJournalIsToldWithItsLine) {
    const auto tables = std::make_unique<Tables>(bench.Working());
    for (const auto& [text, wanted] : {
             std::pair{"", "line 1: this is no journal"},
             {"tarnveil-bench 1\n", "line 1: the end is missing"},
             {"tarnveil-bench 1\nentry 4 0 1 1 1 1 1\nend 1\n", "line 2: not a record"},
             {"tarnveil-bench 1\nentry 0 513 1 1 1 1 1\nend 1\n", "line 2: not a record"},
             {"tarnveil-bench 1\nkind 3 0 0 1 1 256 0 0\nend 1\n", "line 2: not a record"},
             {"tarnveil-bench 1\nstep 3 4 1 x 0 0\nend 1\n", "line 2: not a record"},
             {"tarnveil-bench 1\nstep 3 4 1 1 0\nend 1\n", "line 2: not a record"},
             {"tarnveil-bench 1\nend 2\n", "line 2: lines are missing"},
         }) {
        auto read = std::make_unique<Tables>(*tables);
        EXPECT_NE(std::string::npos, ParseJournal(text, *read).find(wanted)) << text;
        EXPECT_TRUE(SameBytes(*tables, *read)) << text;
    }
}

TEST_F(BenchTest, FilesChangedOutsideAreSeenAndTakenAsAnAction) {
    auto mine = std::make_unique<Tables>(bench.Working());
    mine->Stages[2][9].Power = 9;
    bench.Act(*mine);
    auto bytes = ReadFolderFile("STAGE1.DAT").bytes;
    bytes[12] ^= 1;  // Power of entry 0
    ASSERT_EQ("", WriteFolderFile("STAGE1.DAT", bytes));
    EXPECT_EQ(std::vector<std::string>{"STAGE1.DAT"}, bench.ChangedOnDisk());
    const Byte before = bench.Working().Stages[0][0].Power;
    bench.TakeFromDisk();
    EXPECT_EQ(before ^ 1, game.StageData[0].Power);
    EXPECT_EQ(9, bench.Working().Stages[2][9].Power) << "what is not saved stays";
    EXPECT_EQ(std::vector<std::string>{"STAGE3.DAT"}, bench.Unsaved());
    bench.GoBack();
    EXPECT_EQ(before, bench.Working().Stages[0][0].Power);
}

TEST_F(BenchTest, RepeatsKeepTheirTargetsWhenEntriesMove) {
    auto tables = std::make_unique<Tables>();
    for (int i = 0; i < 10; ++i) tables->Stages[0][i] = {static_cast<Single>(i), 0, 1, 5, 1};
    tables->Stages[0][8] = {4, 2, kRepeat, 0, 2};
    const auto target = [&](int at) { return tables->Stages[0][at].X; };
    ASSERT_EQ("", InsertEntry(*tables, 0, 2));
    EXPECT_EQ(5, target(9));
    ASSERT_EQ("", DeleteEntries(*tables, {0, 0, 1}));
    EXPECT_EQ(3, target(7));
    ASSERT_EQ("", MoveEntries(*tables, {0, 3, 4}, 1));
    EXPECT_EQ(1, target(7));
    ASSERT_EQ("", DuplicateEntries(*tables, {0, 0, 1}));
    EXPECT_EQ(1, target(9));
    tables->Stages[0][512] = {1, 1, 1, 1, 1};
    EXPECT_EQ("the table is full: entry 512 is in use", InsertEntry(*tables, 0, 0));
    EXPECT_NE("", DuplicateEntries(*tables, {0, 0, 0}));
    EXPECT_NE("", DeleteEntries(*tables, {0, 5, 513}));
}

// An enemy alone in the real game, frame by frame.
std::vector<PathPoint> Simulated(int kind, Single x, Single y, int frames) {
    const auto before = std::make_unique<GameState>(game);
    for (EnemyType& enemy : game.Enemy) enemy.State = 0;
    EnemyType& enemy = game.Enemy[0];
    enemy = {.X = x, .Y = y, .Kind = static_cast<Byte>(kind), .State = 1};
    std::vector<PathPoint> points;
    for (int i = 0; i < frames; ++i) {
        const Integer step = enemy.Step;
        const Byte flag = game.EneMove[game.EnemyData[kind].MoveNo % kMovePatterns][step & 255].Flag;
        MoveEnemy();
        if (enemy.State != 1) break;
        points.push_back({enemy.X, enemy.Y, step, enemy.Anime, flag >= 1 && flag <= 11 ? flag : Byte{0}});
    }
    game = *before;
    return points;
}

TEST_F(BenchTest, ThePathIsTheWayOfAnEnemyInTheGame) {
    constexpr int kFrames = 600;
    LoadStage();
    for (int p = 0; p < kMovePatterns; ++p) {
        game.EnemyData[0].MoveNo = static_cast<Byte>(p);
        const auto before = std::make_unique<GameState>(game);
        const auto picture = MainForm.Crt.image;
        const EnemyPath path = PathOf(0, 150, -20, kFrames);
        EXPECT_TRUE(*before == game && picture == MainForm.Crt.image) << "pattern " << p << " leaves a trace";
        EXPECT_EQ(Simulated(0, 150, -20, kFrames), path.points) << "pattern " << p;
    }
    game.EnemyData[0].MoveNo = 7;
    for (int trial = 0; trial < 1000; ++trial) {
        for (EneMoveType& step : game.EneMove[7]) {
            const int flag = Draw(30);
            step = {static_cast<Single>(Draw(17) - 8), static_cast<Single>(Draw(17) - 4), static_cast<Byte>(Draw(4)),
                    static_cast<Byte>(flag < 20    ? 0
                                      : flag < 28  ? flag - 16
                                      : flag == 28 ? 253 + Draw(2)
                                                   : Draw(256))};
        }
        ASSERT_EQ(Simulated(0, 10, 10, 300), PathOf(0, 10, 10, 300).points) << "trial " << trial;
    }
}

TEST_F(BenchTest, APathSaysHowItEndsAndWhenItIsOutOfSight) {
    game.EnemyData[0] = {.Width = 32, .Height = 32, .MoveNo = 0};
    for (EneMoveType& step : game.EneMove[0]) step = {0, 10, 0, 0};
    game.EneMove[0][99].Flag = kEndOfEnemy;
    const EnemyPath path = PathOf(0, 100, 0, 1000);
    EXPECT_EQ(PathEnd::removed, path.end);
    EXPECT_EQ(99u, path.points.size());
    EXPECT_EQ(47, path.leaves);  // Y is 480 after frame 47
    for (EneMoveType& step : game.EneMove[0]) step = {0, 0, 0, 0};
    game.EneMove[0][3] = {0, 0, 0, kJump};
    EXPECT_EQ(-1, PathOf(0, 100, 0, 1000).leaves);
    EXPECT_EQ(PathEnd::goesOn, PathOf(0, 100, 0, 1000).end);
    game.EnemyData[0].MoveNo = 77;
    EXPECT_EQ(PathEnd::faulty, PathOf(0, 100, 0, 1000).end);
    EXPECT_EQ(PathEnd::faulty, PathOf(50, 100, 0, 1000).end);
}

// The game's own script on the same table: each entry sends in a kind of its own.
TEST_F(BenchTest, EntriesComeInTheFramesInWhichTheGameTakesThem) {
    StartEmptyGame();
    const StageDataType table[] = {{0, 0, 0, 10, 1},          {0, 0, 1, 0, 1},       {0, 0, 240, 7, 1},
                                   {0, 0, 3, 3, 1},           {2, 2, kRepeat, 0, 2}, {0, 0, 5, 4, 1},
                                   {0, 0, kStageClear, 0, 0}, {0, 0, 7, 5, 1},       {0, 0, kBossEntry, 0, 0},
                                   {0, 0, 9, 6, 1},           {0, 0, 240, 400, 0}};
    std::ranges::copy(table, game.StageData);
    const auto copy = std::make_unique<GameState>(game);
    const StageFindings found = CheckStage(copy->StageData, false);
    std::array<int, std::size(table)> frames{};
    for (int frame = 1; frame < 200; ++frame) {
        StageScript();
        for (EnemyType& enemy : game.Enemy) {
            if (enemy.State != 1) continue;
            int& first = frames[enemy.Kind];
            if (first == 0) first = frame;
            enemy.State = 0;
        }
    }
    for (const std::size_t i : {0u, 1u, 3u, 5u, 7u, 9u}) {
        EXPECT_GT(frames[i], 0) << "entry " << i;
        EXPECT_EQ(frames[i], found.frames[i]) << "entry " << i;
    }
}

}  // namespace
