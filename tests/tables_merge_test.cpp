// tarnveil-tables merge: changed tables back into the Lua sources.
#include <algorithm>

#include "dump_tables.h"
#include "merge_tables.h"
#include "tables_fixture.h"

namespace {

using Lines = std::vector<std::string>;

class MergeTest : public TablesTest {
  protected:
    // What the sources build becomes what is wanted; then the test changes it.
    void Want() {
        ASSERT_EQ("", BuildTables(sources, *wanted));
        stage = wanted->Stages[0];
    }

    void WantShipped() {
        const std::string content = std::string(TARNVEIL_ASSETS) + "/../content";
        for (const char* part : {"/tables", "/art"}) std::filesystem::copy(content + part, folder + part);
        sources = folder + "/tables";
        Want();
    }

    void Merge() {
        result = MergeTables(*wanted, sources);
        for (const auto& [name, text] : result.sources) std::ofstream(sources + "/" + name) << text;
        ASSERT_EQ("", BuildTables(sources, *tables));
    }

    std::string sources = folder;
    std::unique_ptr<Tables> wanted = std::make_unique<Tables>();
    StageDataType* stage = nullptr;
    MergeResult result;
};

TEST_F(MergeTest, TheShippedSourcesKeepTheirStructure) {
    WantShipped();
    stage[46].Power = 12;                         // by introduce, which takes the kind's own
    stage[47].X += 10;                            // by spawn
    stage[48].Counter = 40;                       // by the wait before it
    for (int i = 1; i < 8; ++i) stage[i].X += 6;  // not the whole stairs
    std::copy_backward(stage + 49, stage + 512, stage + 513);
    stage[49] = {100, -32, 5, 10, 8};
    stage[105] = {254, -32, 9, 36, 8};  // another kind, as tough as the one before
    for (int i = 20; i < 92; ++i) wanted->EneMove[0][i].DY = 7;
    wanted->EneMove[5][27].Flag = 2;
    wanted->EnemyData[5].Score = 99;
    wanted->EnemyData[7].MoveNo = 3;
    Merge();
    const auto lineIn = [&](const std::string& file, const std::string& line) {
        return result.sources[file].find(line + "\n") != std::string::npos;
    };
    for (const char* line :
         {"spawn(\"talon\", 60)\nwait(40)\nspawn(\"talon\", 270)\nwait(10) spawn(\"talon\", 116, -32, 0, 8)",
          "spawn(\"fang\", 270, -32, 0, 8)"}) {
        EXPECT_TRUE(lineIn("stage1.lua", line)) << line << "\n" << result.sources["stage1.lua"];
    }
    EXPECT_TRUE(lineIn("moves.lua", "fly(72, 0, 7)"));
    EXPECT_TRUE(lineIn("moves.lua", "arm(2, 1)\nhold(14)"));
    EXPECT_NE(std::string::npos, result.sources["roster.lua"].find("\"stop_shoot\",    bom = 0, score = 99"));
    EXPECT_EQ((Lines{"stage1.lua:12: entry 1: X 24 → 30, and 6 more: this line makes 8 records by one rule",
                     "stage1.lua:25: entry 46: Power 8 → 12: no single number, name or line gives it"}),
              result.left);
    for (int i = 1; i < 8; ++i) stage[i].X -= 6;
    stage[46].Power = 8;
    EXPECT_TRUE(*wanted == *tables);
}

TEST_F(MergeTest, EntriesStepsAndKindsAreChangedAddedAndLeftOut) {
    Write("stage1.lua",
          "for i = 1, 4 do entry { No = 'dart', X = 10 * i } end\nentry { X = 1, Y = 2, No = 'pass' }\n"
          "entry{}\n    entry { No = 'dart', X = 4 } -- 4\n");
    Want();
    for (int i = 0; i < 4; ++i) stage[i].X *= 2;
    stage[4] = {1, 2.5, 250, 3, 0};
    stage[5] = {0, 0, 0, 0, 9};
    stage[6] = {};  // gone
    stage[7] = stage[8] = {};
    wanted->EnemyData[0].Height = 8;
    wanted->EnemyData[0].BomType = 1;
    std::copy_backward(wanted->EneMove[0] + 1, wanted->EneMove[0] + 255, wanted->EneMove[0] + 256);
    wanted->EneMove[0][1] = {0.5, 0, 1, 11};
    Merge();
    EXPECT_EQ(Lines(), result.left);
    EXPECT_TRUE(*wanted == *tables);
    EXPECT_EQ(
        "for i = 1, 4 do entry { No = 'dart', X = 20 * i } end\n"
        "entry { X = 1, Y = 2.5, No = \"boss_entry\", Counter = 3 }\nentry{ Power = 9}\n",
        result.sources["stage1.lua"]);
    EXPECT_EQ(
        "pattern 'down'\nstep{DY = 2}\nstep { DX = 0.5, Anime = 1, Flag = 11 }\n"
        "step{DX = 0, DY = 100, Flag = 'repeat'}\nstep{Flag = 'end'}",
        result.sources["moves.lua"]);
}

TEST_F(MergeTest, AGroupThatIsBrokenBecomesSmallerOnes) {
    ASSERT_EQ("", ReadTables(std::string(TARNVEIL_ASSETS) + "/data", *wanted));
    for (const LuaSource& source : DumpTables(*wanted, NumberedNames())) Write(source.name, source.text);
    Want();
    stage[4].X += 3;                                   // in stairs
    std::copy(stage + 121, stage + 513, stage + 120);  // one of a loop over two kinds
    std::copy_backward(stage + 35, stage + 512, stage + 513);
    stage[35] = {99, -32, 3, 1, 2};  // within a swarm
    wanted->EneMove[0][50].DY = 9;
    Merge();
    EXPECT_EQ(Lines(), result.left);
    EXPECT_TRUE(*wanted == *tables);
    for (const auto& [file, line] :
         {std::pair{"moves.lua", "step { DY = 9"},
          {"stage1.lua", "swarm { No = \"kind_0\", X = { 24, 58, 92, 129, 160, 194, 228 }"},
          {"stage1.lua", "\nentry { No = \"kind_3\", X = 99, Y = -32, Counter = 1, Power = 2 }"}}) {
        EXPECT_NE(std::string::npos, result.sources[file].find(line)) << line;
    }
}

// What is no number of its own is not taken for one.
TEST_F(MergeTest, SignsCommentsTextsAndHexadecimalsAreRead) {
    Write("stage1.lua",
          "local x2 = '-5 \\' 3' -- -5 3\nlocal y = #x2 --[==[ 3\n]] ]==] + 0\n"
          "entry { X = -5 --[[ 7 ]], Y = y-3, Counter = 0x10, Power = 1e1 }");
    Want();
    stage[0].X = 5;
    stage[0].Y += 10;
    stage[0].Counter = 20;
    stage[0].Power = 11;
    Merge();
    EXPECT_EQ(Lines(), result.left);
    EXPECT_EQ(
        "local x2 = '-5 \\' 3' -- -5 3\nlocal y = #x2 --[==[ 3\n]] ]==] + 10\n"
        "entry { X = 5 --[[ 7 ]], Y = y-3, Counter = 20, Power = 11 }",
        result.sources["stage1.lua"]);
}

TEST_F(MergeTest, TheCommandWritesAndTellsByItsStatus) {
    const std::string tool = std::string(TARNVEIL_TABLES_TOOL) + " merge ";
    const auto status = [&](const std::string& line) { return WEXITSTATUS(std::system((tool + line).c_str())); };
    const std::string data = folder + "/data", quiet = " >/dev/null 2>&1";
    std::filesystem::create_directory(data);
    Want();
    stage[0].Power = 3;
    ASSERT_EQ("", WriteTables(data, *wanted));
    EXPECT_EQ(0, status(data + " " + folder + quiet));
    EXPECT_EQ(0, status(data + " " + folder + quiet));
    ASSERT_EQ("", Build());
    EXPECT_TRUE(*wanted == *tables);
    wanted->EnemyData[40].Score = 1;
    ASSERT_EQ("", WriteTables(data, *wanted));
    EXPECT_EQ(1, status(data + " " + folder + quiet));
    Write("stage1.lua", "spoilt");
    EXPECT_EQ(1, status(data + " " + folder + quiet));
}

}  // namespace
