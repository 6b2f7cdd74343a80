// Enemies, shots, hits and explosions, played as situations.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "combat/enemy_hits.h"
#include "combat/enemy_move.h"
#include "combat/enemy_shots.h"
#include "combat/explosions.h"
#include "combat/fire_patterns.h"
#include "combat/my_shots.h"
#include "combat/ship_hits.h"
#include "platform/events.h"
#include "platform/joystick_input.h"
#include "shell/menus.h"
#include "stage/faults.h"
#include "state/random.h"
#include "test_game.h"
#include "toolkit/surface.h"

namespace {

class CombatTest : public GameTest {
  protected:
    CombatTest() {
        StartEmptyGame();
        for (EnemyDataType& kind : game.EnemyData) kind = {0, 0, 32, 32, 0, 0, 10};
        Cls(MainForm.Crt);
    }

    EnemyType& PutEnemy(int slot, Byte kind, Single x, Single y, Single hp = 5) {
        game.Enemy[slot] = {};
        EnemyType& enemy = game.Enemy[slot];
        enemy.State = 1, enemy.Kind = kind, enemy.X = x, enemy.Y = y, enemy.HP = hp;
        return enemy;
    }

    EneShotType& PutShot(int slot, Byte kind, Single x, Single y, Single vx = 0, Single vy = 0) {
        game.EneShot[slot] = {};
        EneShotType& shot = game.EneShot[slot];
        shot.Used = 1, shot.Kind = kind, shot.X = x, shot.Y = y, shot.VX = vx, shot.VY = vy;
        return shot;
    }

    void Script(int pattern, const std::vector<EneMoveType>& steps) {
        std::fill(std::begin(game.EneMove[pattern]), std::end(game.EneMove[pattern]), EneMoveType{0, 0, 0, 255});
        std::copy(steps.begin(), steps.end(), game.EneMove[pattern]);
    }

    static int ShotsInFlight() {
        return static_cast<int>(std::count_if(std::begin(game.EneShot), std::end(game.EneShot),
                                              [](const EneShotType& s) { return s.Used == 1; }));
    }

    // The x positions of the first enemy after each of the next frames.
    std::vector<float> Walk(int frames) {
        std::vector<float> xs;
        for (int i = 0; i < frames; ++i) {
            MoveEnemy();
            xs.push_back(game.Enemy[0].X);
        }
        return xs;
    }

    // A box in the middle of the ship's hit box.
    Integer HitShip() {
        return HitMyShip(static_cast<Single>(game.MyX + 30), static_cast<Single>(game.MyY + 30), 4, 4);
    }

    int EffectsPlayed() const {
        return static_cast<int>(std::count_if(host.audio.begin(), host.audio.end(),
                                              [](const auto& line) { return line.starts_with("wave"); }));
    }
};

}  // namespace

TEST_F(CombatTest, ARepeatGivesOnlyTheMovementOfItsTargetAndEndsInAFrameWithoutMovement) {
    // Steps 0..4 move by 1, 2, 4, 8, 16; step 5 goes back to step 2 three times.
    Script(0, {{1, 0, 1, 0}, {2, 0, 2, 0}, {4, 0, 3, 2}, {8, 0, 4, 0}, {16, 0, 5, 0}, {2, 3, 9, 254}, {100, 0, 7, 0}});
    PutEnemy(0, 0, 0, 0);
    const std::vector<float> wanted = {1, 3, 7, 15, 31, 35, 43, 59, 63, 71, 87, 91, 99, 115, 115, 215};
    EXPECT_EQ(wanted, Walk(16));
    EXPECT_EQ(1, ShotsInFlight()) << "step 2 fires only when it is reached by itself";
    EXPECT_EQ(7, game.Enemy[0].Anime);
    MoveEnemy();
    EXPECT_EQ(0, game.Enemy[0].State);
}

TEST_F(CombatTest, JumpsRoundHalvesToEvenAndDoNotFire) {
    for (const auto& [target, step] : {std::pair{2.5F, 2}, {3.5F, 4}, {2.4F, 2}}) {
        Script(0, {{target, 0, 0, 253}, {}, {5, 0, 0, 3}, {}, {9, 0, 0, 3}});
        PutEnemy(0, 0, 0, 0);
        MoveEnemy();
        EXPECT_EQ(step == 2 ? 5 : 9, game.Enemy[0].X);
        EXPECT_EQ(step + 1, game.Enemy[0].Step);
        EXPECT_EQ(0, ShotsInFlight());
    }
}

TEST_F(CombatTest, ARepeatOfZeroTimesStandsStillForAFrame) {
    Script(0, {{5, 0, 0, 254}, {1, 0, 0, 0}});
    PutEnemy(0, 0, 3, 0);
    EXPECT_EQ((std::vector<float>{3, 4}), Walk(2));
}

TEST_F(CombatTest, AnInnerRepeatUsesTheCountOfTheOuterOne) {
    Script(0, {{1, 0, 0, 0}, {0, 9, 0, 254}, {0, 2, 0, 254}, {50, 0, 0, 0}});
    EnemyType& enemy = PutEnemy(0, 0, 0, 0);
    enemy.Step = 2;  // the outer one starts counting two
    Walk(2);
    EXPECT_EQ(0, enemy.LoopCount);
    EXPECT_EQ(1, enemy.Looping) << "the inner one has taken the second of them";
}

TEST_F(CombatTest, AnEndStepStillMovesAndDrawsOnce) {
    Script(0, {{3, 4, 0, 255}});
    for (Color& pixel : MainForm.EnemyPic.image) pixel = kRed;
    PutEnemy(0, 0, 10, 10);
    MoveEnemy();
    EXPECT_EQ(0, game.Enemy[0].State);
    EXPECT_EQ(13, game.Enemy[0].X);
    EXPECT_EQ(kRed, MainForm.Crt.Row(14)[13]);
    Cls(MainForm.Crt);
    MoveEnemy();
    EXPECT_EQ(kBlack, MainForm.Crt.Row(14)[13]);
}

TEST_F(CombatTest, EnemiesAreDrawnMaskThenPaintFromTheirSheet) {
    Script(0, {{0, 0, 2, 0}});
    game.EnemyData[5] = {100, 60, 20, 10, 0, 0, 0};
    game.EnemyData[37] = {3, 4, 20, 10, 0, 0, 0};
    game.EnemyData[41] = game.EnemyData[5];
    for (std::size_t i = 0; i < MainForm.EnemyPic.image.size(); ++i)
        MainForm.EnemyPic.image[i] = static_cast<Color>(i * 977) & 0xFFFFFF;
    for (const auto& [kind, drawn] : {std::pair{5, true}, {37, false}, {41, false}}) {
        for (Color& pixel : MainForm.Crt.image) pixel = 0x345678;
        PutEnemy(0, static_cast<Byte>(kind), -3.5F, 7.9F);
        MoveEnemy();
        Surface wanted = MainForm.Crt;
        for (Color& pixel : wanted.image) pixel = 0x345678;
        if (drawn) {
            BitBlt(wanted, -4, 7, 20, 10, MainForm.EnemyPic, 140, 70, SRCAND);
            BitBlt(wanted, -4, 7, 20, 10, MainForm.EnemyPic, 140, 60, SRCPAINT);
        }
        EXPECT_EQ(wanted.image, MainForm.Crt.image) << kind;  // no boss picture is loaded
    }
}

TEST_F(CombatTest, DataOutsideTheTablesEndsTheEnemy) {
    Script(0, {{300, 0, 0, 253}});
    Script(1, {{-1, 4, 0, 254}});
    game.EnemyData[1].MoveNo = 50;
    game.EnemyData[2].MoveNo = 1;
    PutEnemy(0, 0, 0, 0);
    PutEnemy(1, 1, 0, 0);
    PutEnemy(2, 50, 0, 0);
    PutEnemy(3, 0, 0, 0).Step = 256;
    PutEnemy(4, 2, 0, 0);
    MoveEnemy();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(0, game.Enemy[i].State) << i;
    EXPECT_EQ(1, FaultsSeen(Fault::noSuchPattern));
    EXPECT_EQ(1, FaultsSeen(Fault::noSuchKind));
    EXPECT_EQ(3, FaultsSeen(Fault::stepOutside));
}

TEST_F(CombatTest, FixedFireCodesPutTheirShotsAtTheirPlaces) {
    struct Born {
        Byte code, kind;
        int shots, number;  // the shot looked at
        Single x, y, vx, vy;
        bool trail;
    };
    game.EnemyData[0] = {0, 0, 25, 51, 0, 0, 0};
    game.Level = 5;
    for (const Integer outside : std::array<Integer, 2>{-1, kEnemySlots}) SetEneShot(outside, 2);
    PutEnemy(0, kEnemyKinds, 100, 200);
    SetEneShot(0, 2);
    EXPECT_EQ(0, ShotsInFlight());
    for (const Born& b : {Born{2, 2, 1, 0, 108.5F, 241, 0, 14.5F, false},
                          {8, 8, 5, 1, 88.5F, 221, -4, 20, false},
                          {8, 7, 5, 4, 222, 251, 0, 6, true},
                          {9, 7, 2, 0, 130, 226, 0, 8, true},
                          {9, 7, 2, 1, 145, 226, 0, 8, true},
                          {10, 10, 3, 2, 122.5F, 201, 3, 16, false},
                          {11, 7, 2, 1, 270, 226, 0, 8, true}}) {
        for (EneShotType& shot : game.EneShot) shot = {}, shot.TrailWait = 9;
        PutEnemy(0, 0, 100, 200);
        SetEneShot(0, b.code);
        EXPECT_EQ(b.shots, ShotsInFlight()) << int{b.code};
        const EneShotType& shot = game.EneShot[b.number];
        EXPECT_EQ(b.kind, shot.Kind);
        EXPECT_EQ((std::array{b.x, b.y, b.vx, b.vy}), (std::array{shot.X, shot.Y, shot.VX, shot.VY})) << int{b.code};
        for (const Single x : shot.TX) EXPECT_EQ(b.trail ? b.x : 0, x);
        EXPECT_EQ(b.code == 2 ? 9 : 0, shot.TrailWait);
    }
}

TEST_F(CombatTest, RingsFollowTheDirectionTableAndLoseTheirLastShots) {
    PutEnemy(0, 0, 100, 100);
    for (int j = 0; j <= game.EneShotMax; ++j) game.EneShot[j].Used = 1;
    game.EneShot[7].Used = game.EneShot[20].Used = game.EneShot[39].Used = 0;
    game.EneShot[20].Count = 9;
    SetEneShot(0, 3);
    int number = 0;
    for (const int slot : {7, 20, 39}) {
        EXPECT_EQ(game.ShotDir[number].X, game.EneShot[slot].VX);
        EXPECT_EQ(game.ShotDir[number].Y, game.EneShot[slot].VY);
        EXPECT_EQ(108, game.EneShot[slot].X);
        EXPECT_EQ(116, game.EneShot[slot].Y);
        ++number;
    }
    EXPECT_EQ(9, game.EneShot[20].Count) << "only the bouncing ring clears the counter";
    EXPECT_EQ(0, game.EneShot[41].Used);
    game.EneShot[20].Used = 0;
    SetEneShot(0, 4);
    EXPECT_EQ(0, game.EneShot[20].Count);
    SetEneShot(0, 4);  // all slots in use: nothing, and no retry
    EXPECT_EQ(41, ShotsInFlight());
}

TEST_F(CombatTest, AimedShotsDrawSpeedThenErrorsAndFlyAtTheShip) {
    for (const Byte code : std::array<Byte, 4>{1, 5, 6, 7}) {
        for (const Integer level : std::array<Integer, 3>{1, 2, 5}) {
            for (int i = 0; i < 300; ++i) {
                for (EneShotType& shot : game.EneShot) shot = {};
                game.Level = level;
                PutEnemy(0, 0, 40, 60);
                const auto start = game.RandomState;
                SetEneShot(0, code);
                const auto after = game.RandomState;
                game.RandomState = start;
                const bool randomSpeed = code == 1 || code == 5;
                const int speed = randomSpeed ? RndInt(5, level + 2) : level + 3;
                ASSERT_TRUE(speed >= level + 2 && speed <= level + 6);
                const double dx = game.MyX + 32 + RndInt(90, -29) - 56.0, dy = game.MyY + 32 + RndInt(90, -29) - 82.0;
                ASSERT_EQ(after, game.RandomState);
                const double d = std::sqrt(dx * dx + dy * dy);
                ASSERT_EQ(static_cast<Single>((dx + 0.5) * speed / (d + 0.1)), game.EneShot[0].VX);
                ASSERT_EQ(static_cast<Single>((dy + 0.5) * speed / (d + 0.1)), game.EneShot[0].VY);
            }
        }
    }
}

TEST_F(CombatTest, ABouncingShotLeavesAtItsFifthContact) {
    game.MyX = 130, game.MyY = 426;
    EneShotType& shot = PutShot(0, 4, 270, 100, 12, 0);
    int contacts = 0, frames = 0;
    Single lastVx = shot.VX;
    while (shot.Used && frames++ < 500) {
        MoveEneShot();
        contacts += shot.VX != lastVx;
        lastVx = shot.VX;
    }
    EXPECT_EQ(5, contacts);
    PutShot(0, 4, 100, -40, 0, -1);  // from above the edge: a contact on every frame
    for (int i = 0; i < 4; ++i) MoveEneShot();
    EXPECT_EQ(1, game.EneShot[0].Used);
    MoveEneShot();
    EXPECT_EQ(0, game.EneShot[0].Used);
}

TEST_F(CombatTest, AHomingShotTurnsEveryFiveFramesTwentyTimes) {
    game.MyX = 100, game.MyY = 200;
    MainForm.Menu003.Checked = true;  // so that it is not stopped by the ship
    EneShotType& shot = PutShot(0, 6, 10, 10, 1, 0);
    int turns = 0;
    for (int frame = 1; frame <= 130 && shot.Used; ++frame) {
        const int before = shot.Turns;
        MoveEneShot();
        if (shot.Turns == before) continue;
        ++turns;
        EXPECT_EQ(0, frame % 5);
        EXPECT_EQ(0, shot.Count);
    }
    EXPECT_EQ(20, turns);
}

TEST_F(CombatTest, ATrailShotWandersOutUntilItsSecondTurn) {
    EneShotType& shot = PutShot(0, 7, 100, 470, 0, 8);
    for (int frame = 1; frame < 25; ++frame) MoveEneShot();
    EXPECT_EQ(1, shot.Used) << "far below the field";
    EXPECT_EQ(shot.Y - 8, shot.TY[1]);
    EXPECT_EQ(shot.Y, shot.TY[0]);
    MoveEneShot();
    EXPECT_EQ(1, shot.Turns);
    EXPECT_GT(0, shot.VY) << "back towards the ship";
    shot.Y = 900;
    for (int frame = 0; frame < 25; ++frame) MoveEneShot();
    EXPECT_EQ(0, shot.Used) << "after the second turn outside means gone";
    PutShot(0, 1, 319, 10, 1, 0);
    MoveEneShot();
    EXPECT_EQ(1, game.EneShot[0].Used) << "the bound itself is inside";
    MoveEneShot();
    EXPECT_EQ(0, game.EneShot[0].Used);
}

TEST_F(CombatTest, ShotsAreDrawnBeforeTheyMoveAndCountersStopAt255) {
    std::fill(MainForm.EneShotPic.image.begin(), MainForm.EneShotPic.image.end(), kRed);
    PutShot(0, 1, 50.9F, 60, 100, 0);
    MoveEneShot();
    EXPECT_EQ(kRed, MainForm.Crt.Row(60)[50]);
    EXPECT_EQ(kBlack, MainForm.Crt.Row(60)[151]);
    EneShotType& comet = PutShot(0, 7, 50, 60);
    comet.Turns = 2, comet.Count = 255;
    EneShotType& unknown = PutShot(1, 12, 50, 60, 1, 1);
    MoveEneShot();
    EXPECT_EQ(255, comet.Count);
    EXPECT_EQ(50, unknown.X) << "a kind that does not exist is left untouched";
}

TEST_F(CombatTest, ShotsAreDrawnWithTheirMasksAndOverTheirTrails) {
    Surface& sheet = MainForm.EneShotPic;
    for (std::size_t i = 0; i < sheet.image.size(); ++i) sheet.image[i] = static_cast<Color>(i * 977) & 0xFFFFFF;
    for (Color& pixel : MainForm.Crt.image) pixel = 0x345678;
    Surface wanted = MainForm.Crt;
    PutShot(0, 4, 50, 60);
    BitBlt(wanted, 50, 60, 32, 32, sheet, 0, 48, SRCAND);
    BitBlt(wanted, 50, 60, 32, 32, sheet, 0, 16, SRCPAINT);
    EneShotType& comet = PutShot(1, 7, 100, 200);
    for (int k = 0; k < static_cast<int>(std::size(comet.TX)); ++k) {
        comet.TX[k] = static_cast<Single>(20 * k), comet.TY[k] = 300;
        BitBlt(wanted, 20 * k, 300, 16, 16, sheet, 64, 16 * k, SRCPAINT);
    }
    BitBlt(wanted, 100, 200, 16, 16, sheet, 48, 32, SRCAND);
    BitBlt(wanted, 100, 200, 16, 16, sheet, 32, 32, SRCPAINT);
    MoveEneShot();
    EXPECT_EQ(wanted.image, MainForm.Crt.image);
}

TEST_F(CombatTest, EveryKindOfShotHasItsPictureAndItsHitBox) {
    struct Look {
        Byte kind;
        int w, h, x, y, maskX, maskY;  // maskX -1: none
        Single left, top, right, bottom;
    };
    static int reported;
    reported = 0;
    shotWatcher.Hit = [](int slot) { reported += slot == 3; };
    Surface& sheet = MainForm.EneShotPic;
    for (std::size_t i = 0; i < sheet.image.size(); ++i) sheet.image[i] = static_cast<Color>(i * 977) & 0xFFFFFF;
    for (const Look& look : {Look{1, 8, 8, 16, 8, -1, 0, 0, 0, 0, 0},
                             {2, 8, 16, 0, 0, 8, 0, 0, 0, 8, 8},
                             {3, 16, 16, 32, 0, 48, 0, 0, 0, 8, 8},
                             {4, 32, 32, 0, 16, 0, 48, 12, 12, 32, 32},
                             {5, 16, 16, 32, 16, 48, 16, 4, 4, 12, 12},
                             {6, 16, 16, 32, 32, 48, 32, 4, 4, 12, 12},
                             {8, 16, 32, 32, 48, -1, 0, 4, 4, 12, 12},
                             {10, 16, 32, 32, 48, -1, 0, 4, 4, 12, 12}}) {
        for (Color& pixel : MainForm.Crt.image) pixel = 0x345678;
        Surface wanted = MainForm.Crt;
        if (look.maskX >= 0) BitBlt(wanted, 50, 60, look.w, look.h, sheet, look.maskX, look.maskY, SRCAND);
        BitBlt(wanted, 50, 60, look.w, look.h, sheet, look.x, look.y, SRCPAINT);
        PutShot(3, look.kind, 50, 60);
        MoveEneShot();
        EXPECT_TRUE(wanted.image == MainForm.Crt.image) << int{look.kind};
        game.MyX = 100, game.MyY = 200;  // hit within 116..148, 224..242
        const auto hits = [&](Single x, Single y) {
            game.MyPower = 32;
            PutShot(3, look.kind, x, y);
            MoveEneShot();
            return game.EneShot[3].Used == 0;
        };
        const Single x = 130 - look.left, y = 233 - look.top;
        for (const Single inside : {0.5F, -0.5F}) {
            EXPECT_EQ(inside > 0, hits(116 - look.right + inside, y)) << int{look.kind};
            EXPECT_EQ(inside > 0, hits(148 - look.left - inside, y)) << int{look.kind};
            EXPECT_EQ(inside > 0, hits(x, 224 - look.bottom + inside)) << int{look.kind};
            EXPECT_EQ(inside > 0, hits(x, 242 - look.top - inside)) << int{look.kind};
        }
    }
    EXPECT_EQ(8 * 4, reported);
}

TEST_F(CombatTest, TheHitBoxIsOpenOnAllSides) {
    game.MyX = 100, game.MyY = 200;  // 116..148, 224..242
    struct Case {
        Single x, y, w, h;
        Integer hit;
    };
    for (const Case& c : {Case{108, 230, 8, 8, 0},
                          {108.01F, 230, 8, 8, 1},
                          {148, 230, 8, 8, 0},
                          {147.9F, 230, 8, 8, 1},
                          {120, 216, 8, 8, 0},
                          {120, 216.1F, 8, 8, 1},
                          {120, 242, 8, 8, 0},
                          {120, 241.9F, 8, 8, 1},
                          {116, 230, 0, 0, 0},
                          {116.1F, 230, 0, 0, 1}}) {
        EXPECT_EQ(c.hit, HitMyShip(c.x, c.y, c.w, c.h)) << c.x << ' ' << c.y;
    }
}

TEST_F(CombatTest, TheShipDiesWithTheTenthHitAndWithThe26thOnEasy) {
    struct Case {
        void (*level)();
        Integer stage;
        int dead, red;
    };
    for (const Case& c : {Case{MENU102_Click, 1, 10, 6},
                          {MENU103_Click, 1, 10, 6},
                          {MENU101_Click, 1, 26, 16},
                          {MENU103_Click, 0, 26, 16}}) {
        c.level();
        game.StageNo = c.stage;
        game.MyPower = 10, game.MyDead = False;
        SetBackColor(MainForm.MyPowerPic, kBlue);
        int red = 0, hits = 0;
        while (game.MyDead == False && hits < 100) {
            ASSERT_EQ(1, HitShip());
            ++hits;
            if (red == 0 && MainForm.MyPowerPic.BackColor == kRed) red = hits;
        }
        EXPECT_EQ(c.dead, hits);
        EXPECT_EQ(c.red, red);
        EXPECT_EQ(0, game.MyPower);
        const auto effects = EffectsPlayed();
        EXPECT_EQ(0, HitShip()) << "a destroyed ship takes no hit";
        EXPECT_EQ(effects, EffectsPlayed());
    }
}

TEST_F(CombatTest, AHitFlashesRedYieldsOnceAndStandsStill) {
    int red = 0;
    host.onYield = [&] {
        red += static_cast<int>(std::count(MainForm.Crt.image.begin(), MainForm.Crt.image.end(), kRed));
        headless::ClickMenuItem("Menu004");  // a menu command in the middle of the frame
    };
    const auto start = host.now;
    const int yields = host.yields;
    HitShip();
    EXPECT_EQ(320 * 480, red);
    EXPECT_EQ(yields + 1, host.yields);
    EXPECT_GT(host.now - start, 100u);
    EXPECT_EQ(kBlack, MainForm.Crt.BackColor);
    EXPECT_FALSE(MainForm.Menu004.Checked);
    EXPECT_EQ(1, EffectsPlayed());
    host.onYield = nullptr;
    HitShip();
    EXPECT_EQ(1, EffectsPlayed()) << "the effects are off now";
}

TEST_F(CombatTest, AHitClearsTheOtherShotsExceptOnHard) {
    struct Case {
        void (*level)();
        Integer stage;
        int left;
    };
    for (const auto& [level, stage, left] : {Case{MENU102_Click, 1, 0}, {MENU103_Click, 1, 2}, {MENU103_Click, 0, 0}}) {
        level();
        game.StageNo = stage;
        game.MyX = 100, game.MyY = 200;
        PutShot(0, 5, 10, 10, 1, 1);
        PutShot(1, 5, 120, 225, 1, 1);  // hits
        PutShot(2, 5, 20, 10, 1, 1);
        MoveEneShot();
        EXPECT_EQ(left, ShotsInFlight());
        EXPECT_EQ(0, game.EneShot[1].Used);
        EXPECT_EQ(left == 0 ? 20 : 21, game.EneShot[2].X) << "freed shots do not fly on in the same frame";
    }
}

TEST_F(CombatTest, InvincibleModeLetsShotsPass) {
    MainForm.Menu003.Checked = true;
    game.MyX = 100, game.MyY = 200;
    PutShot(0, 5, 120, 225, 0, 1);
    for (int i = 0; i < 10; ++i) MoveEneShot();
    EXPECT_EQ(10, game.MyPower);
    EXPECT_EQ(1, game.EneShot[0].Used);
}

TEST_F(CombatTest, TheGaugeIsTenPixelsPerUnitRounded) {
    for (const auto& [power, width] : {std::pair{10.0F, 100}, {9.6F, 96}, {0.4F, 4}, {0.25F, 2}, {0.0F, 0}}) {
        Cls(MainForm.Crt);
        game.MyPower = power;
        DrawPowerGauge();
        EXPECT_EQ(6 * width, std::count(MainForm.Crt.image.begin(), MainForm.Crt.image.end(), kBlue)) << power;
        if (width > 0) EXPECT_EQ(kBlue, MainForm.Crt.Row(20)[4 + width]);
    }
}

TEST_F(CombatTest, VolleysLeaveEveryThirdFrameWhileTheKeyIsHeld) {
    headless::KeyDown(VK_X);
    DoEvents();
    std::vector<int> frames;
    for (int frame = 1; frame <= 12; ++frame) {
        const auto flying = [] {
            return std::count_if(std::begin(game.MyShot), std::end(game.MyShot), [](auto& s) { return s.Used == 1; });
        };
        const auto before = flying();
        SetMyShot();
        if (flying() != before) frames.push_back(frame);
    }
    EXPECT_EQ((std::vector<int>{3, 6, 9, 12}), frames);
    EXPECT_EQ((MyShotType{132, 426, 0, 20, 1}), game.MyShot[0]);
    EXPECT_EQ((MyShotType{172, 426, 0, 20, 1}), game.MyShot[1]);
    EXPECT_EQ(0, game.MyShot[2].Used);
    EXPECT_EQ(1, game.MyShot[4].Used);
}

TEST_F(CombatTest, TheSecondButtonFiresAndTheFirstChangesTheMode) {
    for (const unsigned buttons : {0u, 1u, 2u, 4u, 8u}) {
        headless::MoveJoystick(0, 0, 0, buttons);
        DoEvents();
        InitJoystick();
        game.ShotMode = 0, game.MyShotWait = 2, game.MyShot[0].Used = 0;
        SetMyShot();
        EXPECT_EQ(buttons == 2 ? 1 : 0, game.MyShot[0].Used) << buttons;
        ChangeShotMode();
        EXPECT_EQ(buttons == 1 ? 1 : 0, game.ShotMode) << buttons;
    }
}

TEST_F(CombatTest, ASpreadVolleyNeedsAWholeFreeGroup) {
    headless::KeyDown(VK_X);
    DoEvents();
    game.ShotMode = 1;
    game.MyShotWait = 2;
    game.MyShot[0].Used = game.MyShot[7].Used = 1;
    SetMyShot();
    EXPECT_EQ((MyShotType{120, 436, -4, 20, 1}), game.MyShot[8]);
    EXPECT_EQ((MyShotType{136, 426, -1.2F, 20, 1}), game.MyShot[9]);
    EXPECT_EQ((MyShotType{171, 426, 1.2F, 20, 1}), game.MyShot[10]);
    EXPECT_EQ((MyShotType{185, 436, 4, 20, 1}), game.MyShot[11]);

    game.ShotMode = 0;  // the forward volley does not look at the group's other two slots
    game.MyShotWait = 2;
    SetMyShot();
    EXPECT_EQ(1, game.MyShot[4].Used);
    for (int i = 0; i < 36; ++i) game.MyShot[i].Used = 1;
    game.MyShotWait = 2;
    SetMyShot();
    EXPECT_EQ(0, game.MyShot[36].Used) << "slots 36..50 are never used";
    for (MyShotType& shot : game.MyShot) shot.Used = 0;
    game.MyDead = True;
    game.MyShotWait = 2;
    SetMyShot();
    EXPECT_EQ(0, game.MyShot[0].Used);
}

TEST_F(CombatTest, AHeldModeKeyTogglesOnceAndOnlyAfterARelease) {
    const auto frame = [&](std::function<void()> keys) {
        keys();
        DoEvents();
        ChangeShotMode();
        return int{game.ShotMode};
    };
    const auto nothing = [] {};
    EXPECT_EQ(0, frame([] { headless::KeyDown(VK_Z); })) << "held from before the first check";
    EXPECT_EQ(0, frame([] { headless::KeyUp(VK_Z); }));
    EXPECT_EQ(1, frame([] { headless::KeyDown(VK_Z); }));
    EXPECT_EQ(1, frame(nothing));
    EXPECT_EQ(1, frame([] { headless::KeyUp(VK_Z); }));
    EXPECT_EQ(0, frame([] { headless::Tap(VK_Z); })) << "a tap between two frames counts";
}

TEST_F(CombatTest, PlayerShotsLeaveAtTheTopAndTheSides) {
    struct Case {
        Single x, y, vx, vy;
        Integer used;
    };
    for (const Case& c : {Case{100, 21, 0, 20, 1},
                          {100, 20.9F, 0, 20, 0},
                          {335.9F, 100, 0, 0, 1},
                          {336, 100, 0, 0, 0},
                          {-15, 100, 0, 0, 1},
                          {-15.1F, 100, 0, 0, 0}}) {
        game.MyShot[35] = {c.x, c.y, c.vx, c.vy, 1};
        game.MyShot[36] = {c.x, c.y, 5, 5, 1};
        MoveMyShot();
        EXPECT_EQ(c.used, game.MyShot[35].Used) << c.x << ' ' << c.y;
        EXPECT_EQ(c.x, game.MyShot[36].X);
    }
}

TEST_F(CombatTest, HitPointsWearDownAsSingles) {
    for (const auto& [mode, hp, hits] :
         {std::tuple{0, 1, 1}, {0, 7, 7}, {0, 0, 1}, {1, 1, 3}, {1, 2, 6}, {1, 4, 10}, {1, 10, 26}}) {
        game.ShotMode = static_cast<Byte>(mode);
        PutEnemy(0, 3, 100, 100, static_cast<Single>(hp));
        int needed = 0;
        while (game.Enemy[0].State == 1 && needed < 99) {
            ASSERT_EQ(1, HitEnemy(110, 110));
            ++needed;
        }
        EXPECT_EQ(hits, needed) << mode << ' ' << hp;
    }
}

TEST_F(CombatTest, TheHitAreaIsOpenAndOneShotHitsEverythingItTouches) {
    struct Case {
        Single x, y;
        Integer hit;
    };
    PutEnemy(0, 3, 100, 100, 999);
    for (const Case& c : {Case{75, 110, 0},
                          {75.1F, 110, 1},
                          {127, 110, 0},
                          {126.9F, 110, 1},
                          {110, 76, 0},
                          {110, 76.1F, 1},
                          {110, 122, 0},
                          {110, 121.9F, 1}}) {
        EXPECT_EQ(c.hit, HitEnemy(c.x, c.y)) << c.x << ' ' << c.y;
    }
    game.Score = 0, game.HiScore = 15;
    PutEnemy(1, 3, 90, 100, 1);
    PutEnemy(2, 4, 105, 95, 1);
    PutEnemy(30, 4, 200, 200, 1);
    PutEnemy(31, 4, 105, 95, 1);
    EXPECT_EQ(1, HitEnemy(110, 110));
    EXPECT_EQ(2, game.Enemy[1].State);
    EXPECT_EQ(2, game.Enemy[2].State);
    EXPECT_EQ(1, game.Enemy[31].State) << "never processed";
    EXPECT_EQ(20, game.Score);
    EXPECT_EQ(20, game.HiScore);
    EXPECT_EQ(1, HitEnemy(205, 215)) << "the last slot that is";
    game.Score = std::numeric_limits<Long>::max() - 3;
    PutEnemy(1, 3, 90, 100, 1);
    HitEnemy(110, 110);
    EXPECT_EQ(std::numeric_limits<Long>::max(), game.Score);
}

TEST_F(CombatTest, ABossScoresNothingButIsDefeatedAndReleasesItsPicture) {
    Resize(MainForm.BomPic128, 32, 32);
    RemovePicture(MainForm.BomPic128);
    PutEnemy(0, 37, 100, 100, 1);
    HitEnemy(110, 110);
    EXPECT_EQ(0, game.Score);
    EXPECT_EQ(True, game.BossDefeated);
    EXPECT_FALSE(MainForm.BossPic.HasPicture);
    EXPECT_EQ(16, MainForm.BossPic.Width);
    EXPECT_EQ(768, MainForm.BomPic128.imageWidth);
}

TEST_F(CombatTest, DamageSoundsOnEveryThirdCallAndOncePerShot) {
    game.Wave1Data.assign(100, 0), game.Wave2Data.assign(200, 0);
    PutEnemy(0, 3, 100, 100, 99);
    PutEnemy(1, 3, 100, 100, 99);
    for (int i = 0; i < 9; ++i) HitEnemy(110, 110);
    EXPECT_EQ(std::vector<std::string>(3, "wave 200"), host.audio);
    MainForm.Menu004.Checked = false;
    for (int i = 0; i < 4; ++i) HitEnemy(110, 110);
    EXPECT_EQ(1, game.HitSoundWait);
    EXPECT_EQ(3u, host.audio.size());
    MainForm.Menu004.Checked = true;
    game.Enemy[0].HP = 1;
    HitEnemy(110, 110);
    EXPECT_EQ("wave 100", host.audio.back());
}

TEST_F(CombatTest, ASingleExplosionTakesTwentyOneFramesAndDriftsDown) {
    PutEnemy(4, 3, 100, 50).State = 2;
    for (int frame = 1; frame <= 20; ++frame) {
        EXPECT_EQ((frame - 1) / 3, game.Enemy[4].BomFrame);
        DrawBom();
        ASSERT_EQ(2, game.Enemy[4].State) << frame;
    }
    DrawBom();
    EXPECT_EQ(0, game.Enemy[4].State);
    EXPECT_EQ(0, game.Enemy[4].BomFrame);
    EXPECT_EQ(50 + 21 * 8, game.Enemy[4].Y);
}

TEST_F(CombatTest, OfThreeExplosionsOnlyTheLastAdvancesAndThenTheOthersShare) {
    for (const int slot : {2, 5, 9}) PutEnemy(slot, 3, 100, 50).State = 2;
    for (int frame = 1; frame <= 7; ++frame) DrawBom();
    EXPECT_EQ(0, game.Enemy[9].State);
    EXPECT_EQ(0, game.Enemy[2].BomFrame);
    EXPECT_EQ(0, game.Enemy[5].BomFrame);
    for (int frame = 1; frame <= 3; ++frame) DrawBom();
    EXPECT_EQ(2, game.Enemy[2].BomFrame + game.Enemy[5].BomFrame);
}

TEST_F(CombatTest, ExplosionsAreDrawnInTheSizeOfTheKindAndTheirSeventhFrameShowsNothing) {
    for (Surface* strip : {&MainForm.BomPic, &MainForm.BomPic64, &MainForm.BomPic128}) {
        std::fill(strip->image.begin(), strip->image.end(), kRed);
    }
    for (const auto& [type, size, left] : {std::tuple{0, 32, 100}, {1, 64, 100}, {2, 128, 67}, {3, 0, 0}}) {
        game.EnemyData[3].BomType = static_cast<Byte>(type);
        game.EnemyData[3].Width = 64;
        for (const Integer frame : std::array<Integer, 2>{5, 6}) {
            Cls(MainForm.Crt);
            PutEnemy(0, 3, 100, 200).State = 2;
            game.Enemy[0].BomFrame = frame;
            game.BomWait = 0;
            DrawBom();
            const auto red = std::count(MainForm.Crt.image.begin(), MainForm.Crt.image.end(), kRed);
            EXPECT_EQ(frame == 6 ? 0 : size * size, red) << type << ' ' << frame;
            if (red > 0) EXPECT_EQ(kRed, MainForm.Crt.Row(200)[left]);
            if (red > 0) EXPECT_EQ(kBlack, MainForm.Crt.Row(200)[left - 1]);
        }
    }
}

TEST_F(CombatTest, TheShipIsDrawnInItsFrameAlsoWhileItSinks) {
    game.MyDead = True;
    game.MyShipFrame = 2;
    Surface wanted = MainForm.Crt;
    DrawMyShip();
    BitBlt(wanted, 130, 426, 64, 64, MainForm.Chr, 64, 128, SRCAND);
    BitBlt(wanted, 130, 426, 64, 64, MainForm.Chr, 0, 128, SRCPAINT);
    EXPECT_EQ(wanted.image, MainForm.Crt.image);
    game.MyShipFrame = 3;
    DrawMyShip();  // no such frame
    EXPECT_EQ(wanted.image, MainForm.Crt.image);
}
