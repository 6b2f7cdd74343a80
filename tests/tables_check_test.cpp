// What tarnveil-tables check finds.
#include <functional>

#include "author/check_tables.h"
#include "tables_fixture.h"

namespace {

// A clean game: one kind on one pattern, a boss, and stages that send both in.
Tables CleanTables() {
    Tables t{};
    t.EnemyData[0] = {0, 0, 32, 32, 0, 0, 10};
    t.EnemyData[37] = {0, 0, 105, 150, 2, 1, 0};
    t.EneMove[0][0] = {0, 2, 3, 0};
    t.EneMove[0][1] = {0, 100, 0, 254};
    t.EneMove[0][2] = {0, 0, 0, 255};
    t.EneMove[1][0] = {0, 1, 1, 0};
    t.EneMove[1][1] = {0, 0, 0, 3};
    t.EneMove[1][2] = {0, 0, 0, 253};
    const StageDataType entries[] = {{0, -32, 0, 5, 1},  {0, 0, 250, 0, 0}, {0, 0, 37, 20, 100}, {0, 0, 249, 0, 0},
                                     {0, 0, 254, 60, 0}, {0, 0, 247, 0, 0}, {0, 0, 254, 130, 0}, {0, 0, 248, 0, 0}};
    for (auto& stage : t.Stages) std::ranges::copy(entries, stage);
    return t;
}

TEST(TablesCheck, FindsNothingInCleanTables) {
    EXPECT_EQ(std::vector<std::string>{}, CheckTables(CleanTables()));
}

struct Spoilt {
    std::function<void(Tables&)> spoil;
    std::vector<std::string> findings;
};

void PrintTo(const Spoilt& spoilt, std::ostream* out) {
    *out << testing::PrintToString(spoilt.findings);
}

class TablesCheckFinds : public testing::TestWithParam<Spoilt> {};

TEST_P(TablesCheckFinds, OneLineForEachFault) {
    auto tables = std::make_unique<Tables>(CleanTables());
    GetParam().spoil(*tables);
    EXPECT_EQ(GetParam().findings, CheckTables(*tables));
}

std::string NameOf(const testing::TestParamInfo<Spoilt>& info) {
    const auto& findings = info.param.findings;
    return CaseName(info.index, findings.empty() ? "_clean" : findings[0]);
}

std::function<void(Tables&)> Step(int pattern, int step, EneMoveType wanted) {
    return [=](Tables& t) { t.EneMove[pattern][step] = wanted; };
}

std::function<void(Tables&)> Entry(int stage, int entry, StageDataType wanted) {
    return [=](Tables& t) { t.Stages[stage][entry] = wanted; };
}

// How the clean tables are changed -> the lines that are expected.
const Spoilt kKinds[] = {
    {[](Tables& t) { t.EnemyData[5] = {0, 0, 32, 32, 0, 50, 0}; }, {"EnemyData.DAT: kind 5: there is no pattern 50"}},
    {[](Tables& t) { t.EnemyData[0].SX = 672 - 4 * 32 + 1; },
     {"EnemyData.DAT: kind 0: has no picture: frames 0..3 and their masks lie outside the 672 x 512 sheet"}},
    {[](Tables& t) { t.EnemyData[0].SX = 672 - 4 * 32, t.EnemyData[0].SY = 512 - 64; }, {}},
    {[](Tables& t) { t.EnemyData[0].SY = 512 - 63; },
     {"EnemyData.DAT: kind 0: has no picture: frames 0..3 and their masks lie outside the 672 x 512 sheet"}},
    {[](Tables& t) { t.EnemyData[0].Width = 0; },
     {"EnemyData.DAT: kind 0: has no picture: frames 0..3 and their masks lie outside the 672 x 512 sheet"}},
    {[](Tables& t) { t.EneMove[1][0].Anime = 2; },
     {"EnemyData.DAT: kind 37: has no picture: frames 0..2 and their masks lie outside the 210 x 300 sheet"}},
    {[](Tables& t) { t.EnemyData[38] = {0, 0, 160, 160, 2, 1, 0}; },
     {"EnemyData.DAT: kind 38: has no picture: frames 0..1 and their masks lie outside the 160 x 320 sheet"}},
    {[](Tables& t) { t.EnemyData[39] = {0, 0, 300, 200, 2, 1, 0}; }, {}},
    {[](Tables& t) { t.EnemyData[40] = t.EnemyData[37]; }, {}},
    {[](Tables& t) { t.EnemyData[41] = t.EnemyData[0]; },
     {"EnemyData.DAT: kind 41: has no picture: kinds above 40 are never drawn"}},
    {[](Tables& t) { t.EnemyData[0].MoveNo = 1; }, {"EnemyData.DAT: kind 0: stays for ever: pattern 1 never ends"}},
    {[](Tables& t) { t.EnemyData[37].MoveNo = 0, t.EneMove[0][0].Anime = 0; },
     {"EnemyData.DAT: kind 37: a boss that leaves: pattern 0 ends"}}};
INSTANTIATE_TEST_SUITE_P(Kinds, TablesCheckFinds, testing::ValuesIn(kKinds), NameOf);

const Spoilt kPatterns[] = {
    {[](Tables& t) { t.EneMove[0][2].Flag = 0; },
     {"EneMove.DAT: pattern 0, step 255: the script runs past its last step"}},
    {Step(0, 2, {256, 0, 0, 253}), {"EneMove.DAT: pattern 0, step 2: leads outside the steps 0..255"}},
    {Step(0, 2, {255, 0, 0, 253}),  // 255 gives its movement, then 256 comes
     {"EneMove.DAT: pattern 0, step 2: leads outside the steps 0..255"}},
    {Step(0, 1, {-1, 1, 0, 254}),
     {"EneMove.DAT: pattern 0, step 1: leads outside the steps 0..255",
      "EneMove.DAT: pattern 0, steps 2: never reached"}},
    {Step(0, 1, {300, 0, 0, 254}), {}},  // a repeat of no times goes nowhere
    {[](Tables& t) { t.EneMove[0][5].DX = t.EneMove[0][6].DX = t.EneMove[0][9].DX = 1; },
     {"EneMove.DAT: pattern 0, steps 5..6, 9: never reached"}},
    {[](Tables& t) {
         t.EneMove[0][2] = {7, 0, 0, 253}, t.EneMove[0][7].DX = 1, t.EneMove[0][8].Flag = 255;
     },
     {}},  // jumped to for its movement
    {[](Tables& t) { t.EneMove[0][0].Flag = 2; },
     {"EneMove.DAT: pattern 0, step 0: no move step: the enemy first shows the frame of another one"}},
    {[](Tables& t) { t.EneMove[0][0].DX = -1.2345678f, t.EneMove[1][1].DY = 4 / 3.0f; },
     {"EneMove.DAT: pattern 0, steps 0: more than the seven digits that the editors keep",
      "EneMove.DAT: pattern 1, steps 1: more than the seven digits that the editors keep"}},
    {[](Tables& t) { t.EneMove[0][0].DX = 1.333333f, t.EneMove[0][0].DY = -1e-5f; }, {}},
    {[](Tables& t) { t.EneMove[9][0].DY = 1; },
     {"EneMove.DAT: pattern 9, step 255: the script runs past its last step"}}};
INSTANTIATE_TEST_SUITE_P(Patterns, TablesCheckFinds, testing::ValuesIn(kPatterns), NameOf);

// Repeats do not nest: the inner one uses up the count of the outer one, which then starts anew, for ever.
TEST(TablesCheck, PlaysRepeatsAsTheGameDoes) {
    auto tables = std::make_unique<Tables>(CleanTables());
    auto& script = tables->EneMove[0];
    script[2] = {0, 2, 0, 0};
    script[3] = {2, 50, 0, 254};
    script[4] = {0, 0, 0, 255};
    EXPECT_EQ(std::vector<std::string>{}, CheckTables(*tables));  // one after the other
    script[3] = {0, 50, 0, 254};
    EXPECT_EQ((std::vector<std::string>{"EnemyData.DAT: kind 0: stays for ever: pattern 0 never ends",
                                        "EneMove.DAT: pattern 0, steps 4: never reached"}),
              CheckTables(*tables));
}

const Spoilt kStages[] = {
    {[](Tables& t) { t.Stages[1][0].X = t.Stages[1][2].Y = 100 / 3.0f; },
     {"STAGE2.DAT: entries 0, 2: more than the seven digits that the editors keep"}},
    {[](Tables& t) { t.Stages[0][0].No = 50; }, {"STAGE1.DAT: entry 0: there is no kind 50"}},
    {[](Tables& t) { t.Stages[0][0].No = -1; }, {"STAGE1.DAT: entry 0: there is no kind -1"}},
    {[](Tables& t) { t.Stages[0][0].No = 3; }, {"STAGE1.DAT: kind 3 is sent in but not described"}},
    {[](Tables& t) { t.Stages[2][2].No = 0; }, {"STAGE3.DAT: entry 3: waits for a boss before one is sent in"}},
    {[](Tables& t) { t.Stages[2][3].No = 254; }, {"STAGE3.DAT: entry 7: the stage ends without a wait for its boss"}},
    {Entry(1, 0, {0, 0, 250, 0, 0}), {"STAGE2.DAT: entry 0: command 250 is passed over, because a jump leads to it"}},
    {Entry(0, 0, {0, 0, 250, 0, 0}), {}},  // nothing leads to it
    {Entry(3, 4, {0, 2, 256, 0, 2}), {}},
    {Entry(3, 4, {513, 2, 256, 0, 2}), {"Attack.DAT: entry 4: repeats from entry 513, outside 0..512"}},
    {Entry(3, 4, {1, 2, 256, 0, 2}), {"Attack.DAT: entry 1: command 250 is passed over, because a jump leads to it"}},
    {[](Tables& t) { t.Stages[3][7].No = 254; },
     {"Attack.DAT: entry 8: the play runs past the end of the table: it never reaches 248"}}};
INSTANTIATE_TEST_SUITE_P(Stages, TablesCheckFinds, testing::ValuesIn(kStages), NameOf);

TEST(TablesCheck, FindsWhatComesBehindTheEnd) {
    auto tables = std::make_unique<Tables>(CleanTables());
    for (const int i : {20, 21, 22, 30}) tables->Stages[0][i].X = 1;
    EXPECT_EQ(std::vector<std::string>{"STAGE1.DAT: entries 20..22, 30: never reached"}, CheckTables(*tables));
}

TEST(TablesCheck, FindsStagesWithoutAnEnd) {
    auto tables = std::make_unique<Tables>(CleanTables());
    tables->Stages[0][3] = {0, 0, 255, 0, 0};
    for (int i = 0; i < kStageEntries; ++i) tables->Stages[1][i] = {0, 0, 254, 1, 0};
    tables->Stages[2][1] = {0, 0, 255, 0, 0};
    tables->Stages[2][0] = {0, 0, 254, 0, 0};
    const auto findings = CheckTables(*tables);
    ASSERT_EQ(5U, findings.size());
    EXPECT_EQ("STAGE1.DAT: entries 4..7: never reached", findings[1]);
    EXPECT_TRUE(findings[0].ends_with("the play goes round and round: it never reaches 248")) << findings[0];
    EXPECT_EQ("STAGE2.DAT: entry 512: the play runs past the end of the table: it never reaches 248", findings[2]);
    EXPECT_EQ("STAGE3.DAT: entry 0: an endless loop: 513 entries in one frame", findings[3]);
    EXPECT_EQ("STAGE3.DAT: entries 2..7: never reached", findings[4]);
}

// A used-up repeat ends the frame: 400 entries before it and 150 after it are not 550 at once.
TEST(TablesCheck, CountsEntriesByTheFrame) {
    auto tables = std::make_unique<Tables>(CleanTables());
    auto& stage = tables->Stages[3];
    for (auto& entry : stage) entry = {0, 0, 254, 0, 0};
    stage[200] = {0, 1, 256, 0, 1};
    stage[350] = {0, 0, 248, 0, 0};
    std::fill(stage + 351, stage + kStageEntries, StageDataType{});
    EXPECT_EQ(std::vector<std::string>{}, CheckTables(*tables));
    stage[200].Y = 2;
    EXPECT_EQ("Attack.DAT: entry 112: an endless loop: 513 entries in one frame", CheckTables(*tables).front());
}

TEST(TablesCheck, KnowsThatTheLastBossEmptiesTheSheet) {
    auto tables = std::make_unique<Tables>(CleanTables());
    tables->EnemyData[39] = {0, 0, 300, 200, 2, 1, 0};
    tables->Stages[3][2].No = 39;
    tables->Stages[3][4] = {0, 0, 0, 10, 1};
    EXPECT_EQ(
        std::vector<std::string>{"Attack.DAT: entry 4: kind 0 is invisible: the last boss has emptied the enemy sheet"},
        CheckTables(*tables));

    tables->Stages[3][2].No = 37;  // in a stage that another one follows: nothing brings the sheet back
    tables->Stages[1][2].No = 39;
    EXPECT_EQ(std::vector<std::string>{"STAGE2.DAT: entry 2: the last boss empties the enemy sheet: "
                                       "the enemies of STAGE3.DAT stay invisible"},
              CheckTables(*tables));
}

TEST_F(TablesTest, ShippedTablesAreClean) {
    ASSERT_EQ("", ReadTables(std::string(TARNVEIL_ASSETS) + "/data", *tables));
    EXPECT_EQ(std::vector<std::string>{}, CheckTables(*tables));
}

}  // namespace
