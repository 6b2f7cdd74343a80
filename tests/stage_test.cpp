// Data files, the set-up of a game, the stage script, the stars and the ship's movement.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <random>

#include "host/files.h"
#include "host/window.h"
#include "platform/events.h"
#include "platform/screen.h"
#include "shell/menus.h"
#include "stage/data_files.h"
#include "stage/faults.h"
#include "stage/load_stage.h"
#include "stage/player.h"
#include "stage/stage_script.h"
#include "stage/stars.h"
#include "state/random.h"
#include "test_game.h"
#include "toolkit/resources.h"

namespace {

class StageTest : public GameTest {
  protected:
    StageTest() { StartEmptyGame(); }

    void SetEntries(const std::vector<StageDataType>& entries) {
        std::copy(entries.begin(), entries.end(), game.StageData);
        game.StageIndex = 0;
        game.StageTimer = 0;
    }

    int Alive() const {
        return static_cast<int>(std::count_if(std::begin(game.Enemy), std::end(game.Enemy),
                                              [](const EnemyType& e) { return e.State == 1; }));
    }

    void RunScript(int frames) {
        for (int i = 0; i < frames; ++i) StageScript();
    }
};

StageDataType Enemy(Integer kind, Integer counter = 0, Single x = 50, Byte power = 3) {
    return {x, -20, kind, counter, power};
}
StageDataType Command(Integer no, Single x = 0, Single y = 0, Byte power = 0) {
    return {x, y, no, 0, power};
}
StageDataType Pause(Integer counter) {
    return {0, 0, 254, counter, 0};
}

}  // namespace

TEST_F(GameTest, TablesAreExactImagesOfTheirFiles) {
    const auto folder = UseFolder(false);
    std::mt19937_64 random(1);
    for (const auto& [name, size] :
         {std::pair{"STAGE2.DAT", 6669u}, {"EnemyData.DAT", 550u}, {"EneMove.DAT", 128000u}}) {
        std::vector<std::uint8_t> bytes(size + 5);
        for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() & 0x3F);  // no NaN
        ASSERT_EQ("", WriteWholeFile((folder / name).string(), bytes));
    }
    ASSERT_EQ("", ReadStageData("\\STAGE2.DAT") + ReadEnemyData() + ReadEneMove());
    const auto before = ReadWholeFile((folder / "EneMove.DAT").string()).bytes;
    game.EneMove[3][1].DX = -7;
    game.EneMove[3][1].Flag = 9;
    ASSERT_EQ("", WriteStageData("\\STAGE2.DAT") + WriteEnemyData() + WriteEneMove());
    const auto after = ReadWholeFile((folder / "EneMove.DAT").string()).bytes;
    ASSERT_EQ(before.size(), after.size()) << "a longer file keeps its tail";
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (i < 530 || i >= 540) ASSERT_EQ(before[i], after[i]) << i;
    }
    EXPECT_EQ(9, after[539]);
    EXPECT_EQ("\\Attack.DAT", StageFileOf(4));
    EXPECT_EQ("", StageFileOf(1));
}

TEST_F(GameTest, MissingAndShortFilesAreRefusedByNameAndLeaveTheTable) {
    const auto folder = UseFolder(true);
    game.EnemyData[0].SX = 123;
    std::filesystem::remove(folder / "EnemyData.DAT");
    EXPECT_NE(std::string::npos, ReadEnemyData().find("EnemyData.DAT: the file is missing"));
    std::ofstream(folder / "EnemyData.DAT") << std::string(549, 'x');
    EXPECT_NE(std::string::npos, ReadEnemyData().find("too short: 549 of 550"));
    EXPECT_EQ(123, game.EnemyData[0].SX);
    try {
        LoadStage();
        FAIL() << "a game cannot start without its tables";
    } catch (const EndProgram& end) {
        EXPECT_EQ(1, end.status);
    }
    ASSERT_EQ(1u, host.messages.size());
    EXPECT_NE(std::string::npos, host.messages[0].find("EnemyData.DAT"));
}

TEST_F(GameTest, AFailedSaveLeavesTheOldFile) {
    const auto folder = UseFolder(true);
    const auto path = (folder / "EnemyData.DAT").string();
    const auto before = ReadWholeFile(path).bytes;
    std::filesystem::create_directory(path + "." + std::to_string(getpid()) + ".new");  // where the new file would go
    game.EnemyData[0].SX = 1;
    EXPECT_NE("", WriteEnemyData());
    EXPECT_EQ(before, ReadWholeFile(path).bytes);
}

TEST_F(GameTest, EachPlayStartsWithItsStageMusicAndBackground) {
    struct Case {
        void (*choose)();
        Integer stageNo, level;
        const char* music;
        bool background;
    };
    for (const Case& c : {Case{Menu401_Click, 1, 5, "Stage1.mid", true},
                          {Menu402_Click, 2, 5, "Stage2.Mid", false},
                          {Menu403_Click, 3, 5, "Stage3.Mid", true},
                          {Menu404_Click, 0, 2, "Atacck.Mid", false}}) {
        const auto folder = UseFolder(true);
        MENU103_Click();
        c.choose();
        host.audio.clear();
        game.Score = 99;
        game.Enemy[25].State = 2;
        game.Enemy[31].State = 1;
        LoadStage();
        EXPECT_EQ(c.stageNo, game.StageNo);
        EXPECT_EQ(c.level, game.Level);
        EXPECT_EQ((std::vector<std::string>{"close", "open " + folder.string() + "/" + c.music, "play"}), host.audio);
        EXPECT_EQ(c.background, MainForm.B_Crt.HasPicture);
        if (c.background) EXPECT_TRUE(std::ranges::equal(LoadResPicture(101).pixels, MainForm.B_Crt.image));
        EXPECT_EQ(0, game.Score);
        EXPECT_EQ(0, game.Enemy[25].State);
        EXPECT_EQ(1, game.Enemy[31].State) << "slots above EnemyMax keep what they hold";
        const auto speeds = std::minmax_element(std::begin(game.Star), std::end(game.Star),
                                                [](const auto& a, const auto& b) { return a.Speed < b.Speed; });
        EXPECT_GE(speeds.first->Speed, 6);
        EXPECT_LE(speeds.second->Speed, c.stageNo == 0 ? 24 : 16);
        EXPECT_EQ(130, game.MyX);
        EXPECT_EQ(426, game.MyY);
        EXPECT_EQ(256, game.MyMaxX);
        EXPECT_EQ(std::filesystem::file_size(folder / "Wave1.wav") + 1, game.Wave1Data.size());
        EXPECT_EQ(0, game.Wave1Data.back());
        std::filesystem::remove_all(folder);
    }
}

TEST_F(GameTest, AMissingSoundIsCreatedEmpty) {
    const auto folder = UseFolder(true);
    std::filesystem::remove(folder / "Wave2.wav");
    LoadStage();
    EXPECT_EQ(std::vector<Byte>{0}, game.Wave2Data);
    EXPECT_EQ(0u, std::filesystem::file_size(folder / "Wave2.wav"));
    std::filesystem::remove(folder / "Wave2.wav");
    std::filesystem::create_directory(folder / "Wave2.wav");
    LoadStage();
    EXPECT_TRUE(host.log.back().starts_with("Wave2.wav: cannot be read")) << host.log.back();
}

TEST_F(StageTest, TheDirectionsGoRoundInStepsOf225Degrees) {
    for (int i = 0; i < kShotDirections; ++i) {
        const double angle = 225.0 * i * 3.14159265358979 / 180;
        EXPECT_NEAR(12 * std::cos(angle), game.ShotDir[i].X, 0.0001) << i;
        EXPECT_NEAR(12 * std::sin(angle), game.ShotDir[i].Y, 0.0001) << i;
    }
}

TEST_F(StageTest, EntriesComeWhenTheirCounterHasElapsedSinceTheLastOne) {
    SetEntries({Enemy(1, 0), Enemy(2, 0), Enemy(3, 0), Enemy(4, 5), Pause(2), Enemy(5, 0), Pause(9999)});
    RunScript(1);
    EXPECT_EQ(3, Alive());
    RunScript(4);
    EXPECT_EQ(3, Alive());
    RunScript(1);
    EXPECT_EQ(4, Alive());
    RunScript(1);
    EXPECT_EQ(4, Alive());
    RunScript(1);
    EXPECT_EQ(5, Alive());
    EXPECT_EQ(5, game.Enemy[4].Kind);
    EXPECT_EQ(3, game.Enemy[0].HP);
}

TEST_F(StageTest, ASpawnTakesTheLowestFreeSlotAndKeepsItsAnimationFrame) {
    SetEntries({Enemy(7, 0, 33), Enemy(8, 0), Pause(999)});
    game.Enemy[0] = {1, 1, 9, 1, 6, 0, 5, 77, 1, 12};
    game.Enemy[1].State = 2;
    RunScript(1);
    EXPECT_EQ((EnemyType{33, -20, 7, 3, 6, 1, 0, 0, 0, 0}), game.Enemy[0]);
    EXPECT_EQ(8, game.Enemy[2].Kind);
}

TEST_F(StageTest, ASpawnWithoutAFreeSlotIsConsumedWithoutADraw) {
    SetEntries({Enemy(1, 0, kRandomX), Pause(999)});
    for (int i = 0; i <= game.EnemyMax; ++i) game.Enemy[i].State = 1;
    const auto random = game.RandomState;
    RunScript(1);
    EXPECT_EQ(1, game.StageIndex);
    EXPECT_EQ(random, game.RandomState);
    EXPECT_EQ(0, game.Enemy[31].State);
}

TEST_F(StageTest, ARandomEdgeIsAWholeNumberFrom0To287AndOnlyExactly700AsksForIt) {
    std::vector<int> seen(288);
    for (int i = 0; i < 20000; ++i) {
        SetEntries({Enemy(1, 0, kRandomX), Enemy(1, 0, 700.5F), Pause(999)});
        game.Enemy[0].State = game.Enemy[1].State = 0;
        RunScript(1);
        ASSERT_EQ(std::floor(game.Enemy[0].X), game.Enemy[0].X);
        ++seen.at(static_cast<std::size_t>(game.Enemy[0].X));
        ASSERT_EQ(700.5F, game.Enemy[1].X);
    }
    EXPECT_EQ(0, std::count(seen.begin(), seen.end(), 0));
}

TEST_F(StageTest, ARepeatPlaysItsEntriesAgainAndReloadsItsCount) {
    SetEntries({Enemy(1, 1), Enemy(2, 1), Command(256, 0, 2, 2), Enemy(9, 1), Pause(9999)});
    RunScript(60);
    int ones = 0, nines = 0;
    for (const EnemyType& e : game.Enemy) ones += e.State == 1 && e.Kind == 1, nines += e.State == 1 && e.Kind == 9;
    EXPECT_EQ(3, ones);
    EXPECT_EQ(1, nines);
    EXPECT_EQ(2, game.StageData[2].Y);
}

TEST_F(StageTest, ACommandReachedByAJumpIsPassedOverNotPerformed) {
    SetEntries({Command(247), Enemy(1, 1), Command(255)});
    RunScript(1);
    EXPECT_EQ(True, game.StageClear) << "performed when first reached";
    game.StageClear = 0;
    RunScript(1);  // entry 1 at timer 2, then 255 jumps to 0, passed over with its Counter 0
    RunScript(5);
    EXPECT_EQ(0, game.StageClear);
    EXPECT_GE(Alive(), 3);
}

TEST_F(StageTest, BossWaitsHoldTheScriptAtTimerZeroAndConsumeTheDefeat) {
    for (const Integer wait : {kBossWaitStop, kBossWait}) {
        SetEntries({Command(wait), Pause(9999)});
        host.audio.clear();
        RunScript(50);
        EXPECT_EQ(0, game.StageIndex);
        EXPECT_EQ(0, game.StageTimer);
        game.BossDefeated = True;
        RunScript(1);
        EXPECT_EQ(1, game.StageIndex);
        EXPECT_EQ(1, game.StageTimer);
        EXPECT_EQ(False, game.BossDefeated);
        EXPECT_EQ(wait == kBossWaitStop ? 1u : 0u, host.audio.size());
    }
}

TEST_F(StageTest, ClearingAStageTurnsEnergyIntoScoreUnlessTheGameIsOver) {
    SetEntries({Command(247), Pause(9999)});
    game.MyPower = 3.2F;
    game.Score = 100;
    game.HiScore = 1000;
    RunScript(1);
    EXPECT_EQ(1700, game.Score);
    EXPECT_EQ(1700, game.HiScore);
    EXPECT_EQ(True, game.StageClear);
    ASSERT_EQ(3u, host.audio.size());
    EXPECT_TRUE(host.audio[1].ends_with("Cleared.Mid"));

    SetEntries({Command(247), Pause(9999)});
    game.GameOver = 1;
    game.StageClear = 0;
    host.audio.clear();
    RunScript(1);
    EXPECT_EQ(1700, game.Score);
    EXPECT_EQ(True, game.StageClear);
    EXPECT_TRUE(host.audio.empty());

    SetEntries({Command(247)});
    game.GameOver = 0;
    game.Score = std::numeric_limits<Long>::max() - 1;
    RunScript(1);
    EXPECT_EQ(std::numeric_limits<Long>::max(), game.Score);
}

TEST_F(StageTest, EachBossBringsItsPictureAndItsStrength) {
    struct Case {
        Integer kind;
        Single hp;
        int width;
    };
    for (const Case& c : {Case{37, 200, 210}, {38, 200, 160}, {39, 300, 600}, {40, 100, 0}}) {
        SetEntries({Enemy(c.kind, 0, 10, 100), Pause(9999)});
        game.Enemy[0].State = 0;
        Resize(MainForm.BossPic, 16, 16);
        RemovePicture(MainForm.BossPic);
        RunScript(1);
        EXPECT_EQ(c.hp, game.Enemy[0].HP);
        EXPECT_EQ(c.width > 0, MainForm.BossPic.HasPicture);
        if (c.width > 0) EXPECT_EQ(c.width, MainForm.BossPic.imageWidth);
    }
}

TEST_F(StageTest, TheLastBossEmptiesTheSkyAndTurnsTheStars) {
    SetEntries({Enemy(39), Pause(9999)});
    const int yields = host.yields;
    ASSERT_TRUE(MainForm.EnemyPic.HasPicture);
    RunScript(1);
    EXPECT_EQ(yields + 1, host.yields);
    EXPECT_FALSE(MainForm.EnemyPic.HasPicture || MainForm.BomPic128.HasPicture || MainForm.B_Crt.HasPicture);
    EXPECT_EQ(32, MainForm.EnemyPic.Width);
    EXPECT_EQ(True, game.StarReverse);
}

TEST_F(StageTest, BossEntryChoosesMusicAndPictureByStage) {
    for (const auto& [stage, music, width] :
         {std::tuple{1, "boss.mid", 210}, {2, "boss.mid", 160}, {3, "boss02.mid", 210}}) {
        SetEntries({Command(250), Pause(9999)});
        game.StageNo = static_cast<Integer>(stage);
        host.audio.clear();
        RunScript(3);
        EXPECT_TRUE(host.audio.at(1).ends_with(music));
        EXPECT_EQ(width, MainForm.BossPic.imageWidth);
        EXPECT_EQ(2, game.StageTimer);
    }
}

TEST_F(StageTest, StagesFollowOneAnotherAndTheThirdLeadsToTheEnding) {
    const auto folder = UseFolder(true);
    for (const auto& [stage, music] : {std::pair{2, "Stage2.Mid"}, {3, "Stage3.Mid"}, {4, ""}}) {
        SetEntries({Pause(1), Command(248)});
        game.MyX = 7;
        game.MyPower = 1;
        game.StageClear = True;
        game.MessageCount = 110;
        host.audio.clear();
        const auto now = host.now;
        RunScript(1);
        EXPECT_EQ(stage, game.StageNo);
        EXPECT_EQ(130, game.MyX);
        EXPECT_EQ(10, game.MyPower);
        EXPECT_EQ(0, game.MessageCount);
        EXPECT_EQ(0, game.StageClear);
        EXPECT_GT(host.now - now, 1000u) << "a pause of a second";
        EXPECT_EQ(stage == 4, game.AllClear != False);
        EXPECT_EQ(stage == 3 || stage == 4, MainForm.B_Crt.HasPicture);
        if (*music) EXPECT_TRUE(host.audio.at(1).ends_with(music));
    }
    EXPECT_EQ(False, game.QuitGame);
}

TEST_F(StageTest, ADigestPlayEndsAtItsFirstStageChangeAndAGameOverNeverLeavesIt) {
    game.DigestMode = 2;
    SetEntries({Command(248)});
    RunScript(1);
    EXPECT_EQ(True, game.QuitGame);
    EXPECT_EQ(False, game.AllClear);

    game.QuitGame = False;
    game.GameOver = 1;
    SetEntries({Command(248)});
    RunScript(100);
    EXPECT_EQ(False, game.QuitGame);
    EXPECT_EQ(0, game.StageIndex);
    EXPECT_EQ(0, game.StageTimer);
}

TEST_F(StageTest, FaultyTablesArePassedOverAndBounded) {
    SetEntries(
        {Enemy(50), Enemy(238), Enemy(-5), Enemy(239), Enemy(1), Command(256, 900, 5, 5), Enemy(2), Pause(9999)});
    RunScript(3);
    EXPECT_EQ(2, Alive());
    EXPECT_EQ(3, FaultsSeen(Fault::noSuchKind));
    EXPECT_EQ(1, FaultsSeen(Fault::jumpOutside));
    EXPECT_EQ(2u, host.log.size()) << "one line per kind of fault";
    EXPECT_NE(std::string::npos, host.log[0].find("entry 0"));

    SetEntries({Enemy(1), Command(255)});
    RunScript(3);  // would never end by itself
    EXPECT_EQ(3, FaultsSeen(Fault::endlessTable));

    for (auto& entry : game.StageData) entry = Command(246);
    SetEntries({});
    RunScript(3);
    EXPECT_EQ(513, game.StageIndex);
    EXPECT_LE(1, FaultsSeen(Fault::stageIndexOutside));
}

TEST_F(StageTest, ATableOfZerosSendsInEnemiesUntilTheSlotsAreFull) {
    std::fill(std::begin(game.StageData), std::end(game.StageData), StageDataType{});
    RunScript(1);
    EXPECT_EQ(31, Alive());
}

TEST_F(StageTest, StarsAreDrawnWhereTheyWereAndWrapIntoANewColumn) {
    struct Case {
        Integer y, speed, reverse, next;
    };
    for (const Case& c : {Case{478, 6, 0, 0}, {474, 6, 0, 480}, {480, 6, 0, 0}, {3, 6, True, 480}, {6, 6, True, 0}}) {
        game.StarMax = 0;
        game.StarReverse = c.reverse;
        game.Star[0] = {100, c.y, c.speed};
        Cls(MainForm.Crt);
        const auto random = game.RandomState;
        MoveStars();
        EXPECT_EQ(c.next, game.Star[0].Y) << c.y;
        const bool wrapped = game.RandomState != random;
        EXPECT_EQ(c.next != c.y + c.speed && c.next != c.y - c.speed, wrapped);
        if (c.y < 480) EXPECT_EQ(kWhite, MainForm.Crt.Row(c.y)[100]);
    }
    game.Star[0] = {320, 480, 1};  // just outside
    MoveStars();
}

TEST_F(StageTest, TheShipMovesTenPixelsAndStaysInside) {
    struct Case {
        std::vector<int> keys;
        Integer x, y, toX, toY;
        Byte frame;
    };
    for (const Case& c : {Case{{VK_RIGHT}, 250, 100, 256, 100, 2},
                          {{VK_LEFT}, 5, 100, 0, 100, 1},
                          {{VK_UP, VK_RIGHT}, 100, 100, 110, 90, 2},
                          {{VK_DOWN, VK_LEFT}, 100, 420, 90, 426, 1},
                          {{VK_UP}, 100, 3, 100, 0, 0},
                          {{}, 100, 100, 100, 100, 0}}) {
        ResetInputState();
        for (const int key : c.keys) headless::KeyDown(key);
        DoEvents();
        game.MyX = c.x, game.MyY = c.y, game.MyShipFrame = 1;
        UpdatePlayer();
        EXPECT_EQ(c.toX, game.MyX);
        EXPECT_EQ(c.toY, game.MyY);
        EXPECT_EQ(c.frame, game.MyShipFrame);
    }
}

TEST_F(StageTest, TwoDevicesAtOnceGiveTheirCodesCombinedBitByBit) {
    headless::MoveJoystick(0, 100, 100);
    DoEvents();
    game.JoyUse = True, game.JoyId = 0, game.JoyCenterX = 100, game.JoyCenterY = 100;
    headless::MoveJoystick(0, 100, 0);  // up, 1
    headless::KeyDown(VK_LEFT);         // 7: 1 OR 7 = 7
    DoEvents();
    game.MyX = 100, game.MyY = 100;
    UpdatePlayer();
    EXPECT_EQ(90, game.MyX);
    EXPECT_EQ(100, game.MyY);
    headless::MoveJoystick(0, 0, 0);  // 8 OR 7 = 15: no row
    DoEvents();
    game.MyShipFrame = 2;
    UpdatePlayer();
    EXPECT_EQ(90, game.MyX);
    EXPECT_EQ(2, game.MyShipFrame);
}

TEST_F(StageTest, ADestroyedShipSinksInSixteenFramesAndThenSpaceEndsTheGame) {
    game.MyDead = True;
    headless::KeyDown(VK_SPACE);
    DoEvents();
    for (int frame = 1; frame <= 15; ++frame) {
        UpdatePlayer();
        ASSERT_EQ(False, game.QuitGame);
    }
    EXPECT_EQ(486, game.MyY);
    UpdatePlayer();
    EXPECT_EQ(490, game.MyY);
    EXPECT_EQ(True, game.QuitGame);
    EXPECT_EQ(0, game.GameOver);
    UpdatePlayer();
    EXPECT_EQ(1, game.GameOver);
    EXPECT_EQ(490, game.MyY);
    const auto opened =
        std::find_if(host.audio.begin(), host.audio.end(), [](auto& a) { return a.starts_with("open"); });
    EXPECT_TRUE(opened != host.audio.end() && opened->ends_with("gameover.mid"));
    EXPECT_EQ(False, game.BgmLoop);
}

TEST_F(StageTest, TheSinkingShipBurstsEveryThirdFrameInTheFirstFreeSlot) {
    game.MyDead = True;
    game.Enemy[21].State = 1;
    game.Enemy[22].BomFrame = 4;
    for (int i = 0; i < 3; ++i) UpdatePlayer();
    EXPECT_EQ(2, game.Enemy[22].State);
    EXPECT_EQ(4, game.Enemy[22].BomFrame) << "starts where the slot was left";
    EXPECT_EQ(0, game.Enemy[23].State);
    EXPECT_GE(game.Enemy[22].X, game.MyX + 1);
    EXPECT_LE(game.Enemy[22].X, game.MyX + 50);
    for (int i = 0; i < 9; ++i) UpdatePlayer();
    EXPECT_EQ(2, game.Enemy[25].State);
    const auto random = game.RandomState;
    for (int i = 0; i < 3; ++i) UpdatePlayer();
    EXPECT_EQ(random, game.RandomState) << "all five are busy";
    EXPECT_EQ(0, game.DeadCount);
}

TEST_F(StageTest, WithoutSpaceTheGameEndsAfterSevenHundredFrames) {
    game.MyDead = True;
    game.MyY = 490;
    game.GameOver = 1;
    int frames = 0;
    while (game.QuitGame == False && frames < 2000) UpdatePlayer(), ++frames;
    EXPECT_EQ(701, frames);
}

TEST_F(StageTest, TheBackgroundScrollsAsAnEndlessLoopAndErasesTheFrame) {
    const Picture& sky = LoadResPicture(101);
    SetPicture(MainForm.B_Crt, sky);
    game.ScrollY = 0;
    for (int frame = 0; frame < 241; ++frame) {
        for (Color& pixel : MainForm.Crt.image) pixel = kRed;
        const int offset = game.ScrollY;
        ScrollBackground();
        for (int y = 0; y < 480; y += 53) {
            const int from = (y - offset + 480) % 480;
            ASSERT_TRUE(std::equal(MainForm.Crt.Row(y), MainForm.Crt.Row(y) + 320,
                                   sky.pixels.begin() + static_cast<std::ptrdiff_t>(from) * 320));
        }
    }
    EXPECT_EQ(2, game.ScrollY) << "0, 2, ..., 478, 0";
    RemovePicture(MainForm.B_Crt);
    ScrollBackground();
    EXPECT_EQ(320 * 480, std::count(MainForm.Crt.image.begin(), MainForm.Crt.image.end(), kBlack));
}

TEST_F(StageTest, TheBannerNamesTheStage) {
    struct Word {
        int x, y, width, height, fromX, fromY;
    };
    const auto expectWords = [](int stage, std::initializer_list<Word> words) {
        Cls(MainForm.Crt);
        Surface wanted = MainForm.Crt;
        for (const auto& [x, y, width, height, fromX, fromY] : words)
            BitBlt(wanted, x, y, width, height, MainForm.MessagePic, fromX, fromY, SRCPAINT);
        game.StageNo = static_cast<Integer>(stage);
        game.MessageCount = 50;
        DrawMessages();
        EXPECT_EQ(wanted.image, MainForm.Crt.image) << stage;
    };
    expectWords(0, {{80, 180, 172, 48, 0, 0}, {35, 228, 272, 48, 0, 96}});
    for (int n = 1; n <= 5; ++n) expectWords(n, {{60, 200, 180, 50, 0, 0}, {230, 200, 48, 48, 48 * (n - 1), 144}});
}

TEST_F(StageTest, TheBannerShowsFromFrame20To100AndGameOverHidesTheClearMessage) {
    const auto painted = [&] {
        Cls(MainForm.Crt);
        DrawMessages();
        return std::any_of(MainForm.Crt.image.begin(), MainForm.Crt.image.end(), [](Color c) { return c != kBlack; });
    };
    game.StageNo = 2;
    for (int frame = 1; frame <= 115; ++frame) ASSERT_EQ(frame >= 20 && frame <= 100, painted()) << frame;
    EXPECT_EQ(110, game.MessageCount);
    game.StageNo = 6;
    game.MessageCount = 50;
    EXPECT_FALSE(painted());
    game.StageNo = 0;
    EXPECT_TRUE(painted());
    game.MessageCount = 110;
    game.StageClear = True;
    ASSERT_TRUE(painted());
    const auto clearWords = MainForm.Crt.image;
    game.GameOver = 1;
    ASSERT_TRUE(painted());
    const auto both = MainForm.Crt.image;
    game.StageClear = 0;
    ASSERT_TRUE(painted());
    EXPECT_EQ(both, MainForm.Crt.image);
    EXPECT_NE(clearWords, both);
}
