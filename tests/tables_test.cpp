// tarnveil-tables: from Lua to the data files and back.
#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <random>

#include "dump_tables.h"
#include "stage/stage_script.h"
#include "tables_fixture.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes RandomBytes(std::mt19937& random, std::size_t size) {
    Bytes bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

std::vector<Bytes> Encoded(const Tables& tables) {
    std::vector<Bytes> all = {EncodeEnemyData(tables.EnemyData), EncodeEneMove(tables.EneMove)};
    for (const auto& stage : tables.Stages) all.push_back(EncodeStageData(stage));
    return all;
}

// "" when the tool ended with `status`, else what it did.
std::string RunTool(const std::string& arguments, int status) {
    const std::string command = std::string(TARNVEIL_TABLES_TOOL) + " " + arguments + " >/dev/null 2>&1";
    const int ended = WEXITSTATUS(std::system(command.c_str()));
    return ended == status ? "" : arguments + " ended with " + std::to_string(ended);
}

// The lines of the six sources, which are left in the folder.
std::size_t DumpTo(const std::string& folder, const Tables& tables) {
    std::size_t lines = 0;
    for (const LuaSource& source : DumpTables(tables, NumberedNames())) {
        std::ofstream(folder + "/" + source.name) << source.text;
        lines += static_cast<std::size_t>(std::ranges::count(source.text, '\n'));
    }
    return lines;
}

TEST_F(TablesTest, RandomBytesSurviveDumpAndBuild) {
    std::mt19937 random(7);
    for (int round = 0; round < 3; ++round) {
        auto original = std::make_unique<Tables>();
        DecodeEnemyData(RandomBytes(random, kEnemyDataFileBytes), original->EnemyData);
        DecodeEneMove(RandomBytes(random, kEneMoveFileBytes), original->EneMove);
        for (auto& stage : original->Stages) DecodeStageData(RandomBytes(random, kStageFileBytes), stage);
        DumpTo(folder, *original);
        ASSERT_EQ("", Build());
        EXPECT_EQ(Encoded(*original), Encoded(*tables)) << "round " << round;
    }
}

// Few values, so that chance makes streams, rows, stairs, loops and jumps of all lengths, broken off anywhere.
TEST_F(TablesTest, WhatIsRegularByChanceSurvivesDumpAndBuild) {
    std::mt19937 random(8);
    const auto draw = [&](auto... values) { return std::array{values...}[random() % sizeof...(values)]; };
    for (int round = 0; round < 20; ++round) {
        auto original = std::make_unique<Tables>();
        for (auto& kind : original->EnemyData) kind.Score = static_cast<Byte>(random() % 2);
        for (auto& pattern : original->EneMove) {
            for (int i = 0; i < kMoveSteps; ++i) {
                pattern[i] = {draw(0.0F, 0.1F * static_cast<Single>(i), 3.0F), draw(-0.0F, 0.0F, 0.0F, 0.0F),
                              static_cast<Byte>(draw(i, i, i / 3) % 4), draw(Byte{0}, Byte{0}, Byte{1}, Byte{254})};
            }
        }
        for (auto& stage : original->Stages) {
            for (int i = 0; i < kStageEntries; ++i) {
                stage[i] = {draw(40.0F, 40.0F, 7.0F * static_cast<Single>(i), 100.0F / 3), draw(-32.0F, -32.0F, 0.5F),
                            draw(Integer{0}, Integer{1}, Integer{1}, Integer{kRepeat}),
                            draw(Integer{0}, Integer{0}, Integer{9}), 1};
            }
        }
        DumpTo(folder, *original);
        ASSERT_EQ("", Build());
        ASSERT_EQ(Encoded(*original), Encoded(*tables)) << "round " << round;
    }
}

TEST_F(TablesTest, ADumpGroupsWhatIsRegular) {
    auto shipped = std::make_unique<Tables>();
    ASSERT_EQ("", ReadTables(std::string(TARNVEIL_ASSETS) + "/data", *shipped));
    EXPECT_LT(DumpTo(folder, *shipped), 3700U);  // of 9,500 records
    ASSERT_EQ("", Build());
    EXPECT_EQ(Encoded(*shipped), Encoded(*tables));
    std::ifstream source(folder + "/stage1.lua");
    const std::string text(std::istreambuf_iterator<char>(source), {});
    for (const char* line : {"row { n = 7, No = \"kind_0\", X = 4, dx = 46.6666667, Y = -32, after = 2 } -- 16..22\n",
                             "    entry { No = \"kind_2\", X = 34, Y = -32, Counter = i == 0 and 28 or 7 }\n",
                             "entry { No = \"boss_entry\" } -- "}) {
        EXPECT_NE(std::string::npos, text.find(line)) << line;
    }
}

TEST_F(TablesTest, OddSinglesSurvive) {
    const std::uint32_t bits[] = {0x80000000, 0x00000001, 0x7f800000, 0xff800000,
                                  0x7fc00000, 0x7f800001, 0xffffffff, std::bit_cast<std::uint32_t>(0.1F)};
    auto original = std::make_unique<Tables>();
    for (std::size_t i = 0; i < std::size(bits); ++i) original->Stages[0][i].X = std::bit_cast<Single>(bits[i]);
    DumpTo(folder, *original);
    ASSERT_EQ("", Build());
    for (std::size_t i = 0; i < std::size(bits); ++i) {
        EXPECT_EQ(bits[i], std::bit_cast<std::uint32_t>(tables->Stages[0][i].X));
    }
}

// So that an author who only passes a step in the editor changes nothing.
TEST_F(TablesTest, SinglesAreRoundedToTheSevenDigitsThatTheEditorsShow) {
    Write("stage1.lua", "entry{X = 100 / 3, Y = -2e9 / 3} entry{X = 1.23456785e-9, Y = 0.1} entry{X = 16777215}");
    ASSERT_EQ("", Build());
    const auto& stage = tables->Stages[0];
    EXPECT_EQ(33.33333F, stage[0].X);
    EXPECT_EQ(-6.666667E8F, stage[0].Y);
    EXPECT_EQ(1.234568E-9F, stage[1].X);
    EXPECT_EQ(0.1F, stage[1].Y);
    EXPECT_EQ(1.677722E7F, stage[2].X);
}

TEST_F(TablesTest, NamesStandForNumbers) {
    Write("moves.lua", "pattern('a', 7) step{Flag = 'end'} pattern('b') step{Flag = 'jump'} step{Flag = 'repeat'}");
    Write("enemies.lua", "kind{name = 'x', number = 30, MoveNo = 'b'} kind{name = 'dart', MoveNo = 'a'}");
    Write("stage1.lua",
          "for _, n in ipairs{'dart', 'x', 'pass', 'clear', 'next_stage', 'boss_wait_stop', 'boss_entry', 'boss_wait', "
          "'restart', 'repeat'} do entry{No = n} end");
    ASSERT_EQ("", Build());
    EXPECT_EQ(255, tables->EneMove[7][0].Flag);
    EXPECT_EQ(253, tables->EneMove[8][0].Flag);
    EXPECT_EQ(254, tables->EneMove[8][1].Flag);
    EXPECT_EQ(8, tables->EnemyData[30].MoveNo);
    EXPECT_EQ(7, tables->EnemyData[31].MoveNo);
    const Integer expected[] = {31, 30, 254, 247, 248, 249, 250, 251, 255, 256};
    for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(expected[i], tables->Stages[0][i].No) << i;
}

TEST_F(TablesTest, StepsAndEntriesTellTheirNumbers) {
    Write("moves.lua",
          "pattern 'p'\nlocal at = next_step()\nassert(step{} == 0 and at == 0)\n"
          "assert(step{} == 1 and next_step() == 2)\npattern 'q'\nassert(next_step() == 0)");
    Write("enemies.lua", "");
    for (const Play& play : kPlays) {
        Write(std::string(play.name) + ".lua", "assert(next_entry() == 0 and entry{} == 0 and next_entry() == 1)");
    }
    EXPECT_EQ("", Build());
}

// The order of a table's keys in memory differs from run to run.
TEST_F(TablesTest, PairsGoesByKey) {
    Write("stage1.lua",
          "local t = {}\nfor i = 1, 60 do t['k' .. i % 7 .. i] = i end\nt[3], t[-1] = 61, 62\n"
          "for k, v in pairs(t) do entry{Counter = v} end");
    ASSERT_EQ("", Build());
    const auto& stage = tables->Stages[0];
    EXPECT_EQ(62, stage[0].Counter);
    EXPECT_EQ(61, stage[1].Counter);
    EXPECT_EQ(14, stage[2].Counter);  // k014, the first in the order of letters
    EXPECT_EQ(62, std::ranges::count_if(stage, [](const StageDataType& e) { return e.Counter != 0; }));
}

TEST_F(TablesTest, RandomNumbersAreTheSameInEveryBuild) {
    Write("stage1.lua", "for _ = 1, 50 do entry{X = math.random(0, 319)} end");
    ASSERT_EQ("", Build());
    const auto first = Encoded(*tables);
    ASSERT_EQ("", Build());
    EXPECT_EQ(first, Encoded(*tables));
}

TEST_F(TablesTest, IncludedFilesRunOnce) {
    Write("words.lua", "count = (count or 0) + 1\nreturn {hp = 9}");
    Write("stage1.lua",
          "local a = include 'words.lua'\nlocal b = include 'words.lua'\n"
          "entry{Power = a.hp, Counter = count, X = a == b and 1 or 2}");
    ASSERT_EQ("", Build());
    EXPECT_EQ((StageDataType{1, 0, 0, 1, 9}), tables->Stages[0][0]);
}

TEST_F(TablesTest, NothingIsWrittenWhenOneFileCannotBe) {
    const std::string out = folder + "/out";
    std::filesystem::create_directories(out + "/Attack.DAT");  // a folder in the way of the last file
    const Bytes old(600, 42);
    ASSERT_EQ("", WriteWholeFile(out + "/EnemyData.DAT", old));
    EXPECT_EQ("", RunTool("build " + folder + " " + out, 1));
    EXPECT_EQ(old, FileAt(out + "/EnemyData.DAT"));
    for (const char* name : {"EneMove.DAT", "STAGE1.DAT", "STAGE2.DAT", "STAGE3.DAT"}) {
        EXPECT_FALSE(std::filesystem::exists(out + "/" + name)) << name;
    }
}

TEST_F(TablesTest, NothingIsWrittenWhenOneSourceIsFaulty) {
    const std::string out = folder + "/out";
    std::filesystem::create_directory(out);
    Write("attack.lua", "entry{Power = 256}");
    EXPECT_EQ("", RunTool("build " + folder + " " + out, 1));
    EXPECT_TRUE(std::filesystem::is_empty(out));
}

TEST_F(TablesTest, BytesBehindATableStay) {
    ASSERT_EQ("", Build());
    ASSERT_EQ("", WriteTables(folder, *tables));
    Bytes longer = FileAt(folder + "/STAGE2.DAT");
    longer.insert(longer.end(), {1, 2, 3});
    ASSERT_EQ("", WriteWholeFile(folder + "/STAGE2.DAT", longer));
    ASSERT_EQ("", WriteTables(folder, *tables));
    EXPECT_EQ(longer, FileAt(folder + "/STAGE2.DAT"));
}

TEST_F(TablesTest, TheCommandTellsByItsStatus) {
    const std::string out = folder + "/out", dump = folder + "/dump";
    std::filesystem::create_directory(out);
    std::filesystem::create_directory(dump);
    EXPECT_EQ("", RunTool("check " + out, 1));  // nothing there
    EXPECT_EQ("", RunTool("build " + folder + " " + out, 0));
    EXPECT_EQ("", RunTool("check " + out, 0));
    EXPECT_EQ("", RunTool("dump " + out + " -", 0));
    EXPECT_EQ("", RunTool("dump " + out + " " + dump, 0));
    EXPECT_EQ("", RunTool("dump " + out + " " + dump, 1));  // never over sources
    EXPECT_EQ("", RunTool("check", 2));
}

TEST_F(TablesTest, PicturesShowEveryEnemyOnceAndEveryShot) {
    const std::string tool = std::string(TARNVEIL_TABLES_TOOL) + " picture ", file = folder + "/picture.svg";
    const auto count = [&](const std::string& arguments, const std::string& what) {
        EXPECT_EQ(0, std::system((tool + arguments + " >" + file).c_str())) << arguments;
        const Bytes bytes = FileAt(file);
        const std::string text(bytes.begin(), bytes.end());
        int found = 0;
        for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
        return found;
    };
    Write(
        "stage1.lua",
        "for i = 1, 9 do entry { No = 'dart', X = 30 * i, Counter = 5 } end entry{} entry{No = 'next_stage'} entry{}");
    Write("moves.lua", "pattern 'down' for i = 1, 20 do step { DY = 30, Flag = i % 3 } end step { Flag = 'end' }");
    ASSERT_EQ("", Build());
    ASSERT_EQ("", WriteTables(folder, *tables));
    EXPECT_EQ(10, count(folder + " --stage stage1", "<use href=\"#k0-0\""));
    EXPECT_EQ(1, count(folder + " --stage stage1", "<image id="));
    EXPECT_EQ(10 * 10, count(folder + " --stage stage1", "<circle"));  // in 15 frames until it is out of sight
    EXPECT_EQ(14, count(folder + " --pattern 0", "r=\"5\""));
    EXPECT_EQ(0, count(folder + " --pattern 49", "r=\"5\""));
    EXPECT_EQ(1, count(folder + " --kind 0", "<use href=\"#k0-0\" x=\"80\" y=\"164\"/>"));
    EXPECT_EQ("", RunTool("picture " + folder, 2));
    EXPECT_EQ("", RunTool("picture " + folder + " --kind 1 --pattern 1", 2));
}

TEST_F(TablesTest, ShortFilesAreRefused) {
    ASSERT_EQ("", Build());
    ASSERT_EQ("", WriteTables(folder, *tables));
    std::filesystem::resize_file(folder + "/EneMove.DAT", 127999);
    EXPECT_EQ(folder + "/EneMove.DAT: the file is too short: 127999 of 128000 bytes", ReadTables(folder, *tables));
}

TEST_F(TablesTest, ShippedSourcesBuildExactlyTheShippedFiles) {
    const std::string assets = std::string(TARNVEIL_ASSETS);
    ASSERT_EQ("", BuildTables(assets + "/../content/tables", *tables));
    ASSERT_EQ("", WriteTables(folder, *tables));
    for (const char* name : {"EnemyData.DAT", "EneMove.DAT", "STAGE1.DAT", "STAGE2.DAT", "STAGE3.DAT", "Attack.DAT"}) {
        const Bytes shipped = FileAt(assets + "/data/" + name);
        EXPECT_FALSE(shipped.empty()) << name;
        EXPECT_TRUE(shipped == FileAt(folder + "/" + name)) << name << " is not what its source builds";
    }
}

}  // namespace
