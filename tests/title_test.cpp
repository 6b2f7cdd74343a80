// The title's loop, the information screen, the best scores, the status line and the pacing.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "host/files.h"
#include "host/window.h"
#include "platform/waits.h"
#include "shell/best_scores.h"
#include "shell/game_loop.h"
#include "shell/status.h"
#include "shell/title_screen.h"
#include "test_game.h"
#include "toolkit/resources.h"

namespace {

// Plays a person at the title: `script` runs at every yield and may send events; the program ends after `yields`.
class TitleTest : public GameTest {
  protected:
    void RunTitle(int yields, std::function<void(int)> script) {
        host.onYield = [=, this, count = 0]() mutable {
            if (++count > yields) throw EndProgram{};
            script(count);
        };
        EXPECT_THROW(TitleScreen(), EndProgram);
        host.onYield = nullptr;
    }

    int GamesStarted() const {
        return static_cast<int>(std::count_if(host.audio.begin(), host.audio.end(),
                                              [](const auto& line) { return line.starts_with("open"); }));
    }

    void WriteScores(const std::vector<std::uint8_t>& bytes) {
        std::ofstream((folder / "Scores.DAT").string(), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    std::vector<std::uint8_t> ReadScores() { return ReadWholeFile((folder / "Scores.DAT").string()).bytes; }

    std::filesystem::path folder = UseFolder(true);
};

const std::vector<std::uint8_t> kScores = {1, 0, 0, 0, 2, 1, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0};

}  // namespace

TEST_F(TitleTest, SpaceStartsAGameWithTheMenusOffAndEscComesBack) {
    bool menusOffInGame = false;
    RunTitle(40, [&](int yield) {
        if (yield == 3) headless::Tap(VK_SPACE);
        if (yield == 10) {
            menusOffInGame = !MainForm.MENU100.Enabled && !MainForm.Menu400.Enabled;
            headless::Tap(VK_ESCAPE);
        }
    });
    EXPECT_EQ(1, GamesStarted());
    EXPECT_TRUE(menusOffInGame);
    EXPECT_TRUE(MainForm.MENU100.Enabled);
    EXPECT_EQ("close", host.audio.back()) << "no music at the title";
    EXPECT_EQ(16u, ReadScores().size());
}

TEST_F(TitleTest, AnEscTappedAtTheTitleDoesNotEndTheNextGameButAHeldOneDoes) {
    RunTitle(30, [&](int yield) {
        if (yield == 2) headless::Tap(VK_ESCAPE);
        if (yield == 3) headless::Tap(VK_SPACE);
    });
    EXPECT_FALSE(MainForm.MENU100.Enabled) << "still in the game";

    headless::Reset();
    MainForm.MENU100.Enabled = true;
    RunTitle(30, [&](int yield) {
        if (yield == 2) headless::KeyDown(VK_ESCAPE);
        if (yield == 3) headless::Tap(VK_SPACE);
    });
    EXPECT_TRUE(MainForm.MENU100.Enabled);
    EXPECT_EQ(1, GamesStarted());
}

TEST_F(TitleTest, AJoystickButtonHeldFromBeforeDoesNotStart) {
    headless::MoveJoystick(0, 9, 9, 2);
    MainForm.Menu008.Checked = false;
    RunTitle(20, [&](int yield) {
        if (yield == 1) headless::ClickMenuItem("Menu008");
        if (yield == 5) EXPECT_EQ(True, game.JoyUse);
    });
    // Yield 1 ended with the button down, so it was never seen released.
    EXPECT_EQ(0, GamesStarted());
    RunTitle(30, [&](int yield) {
        if (yield == 3) headless::MoveJoystick(0, 9, 9, 0);
        if (yield == 6) headless::MoveJoystick(0, 9, 9, 2);
    });
    EXPECT_EQ(1, GamesStarted());
}

TEST_F(TitleTest, TheInformationScreenComesAfterSixIdleSecondsAndLastsSix) {
    std::uint32_t came = 0, went = 0, start = host.now;
    RunTitle(4000, [&](int) {
        if (game.ScrollSpeed == 1 && came == 0) came = host.now;
        const bool titleAgain = came != 0 && MainForm.B_Crt.image == LoadResPicture(102).pixels;
        if (!titleAgain) return;
        went = host.now;
        throw EndProgram{};
    });
    EXPECT_NEAR(6000, came - start, 60);
    EXPECT_NEAR(6000, went - came, 250);
    EXPECT_EQ(0, GamesStarted());
}

TEST_F(TitleTest, TheTitleSlidesInFromBothSides) {
    std::vector<Color> half;
    host.onShow = [&](const Surface& crt) {
        if (host.shows == 41) half = crt.image;  // i = 80
    };
    for (Color& pixel : MainForm.Crt.image) pixel = kRed;
    DrawTitle();
    EXPECT_EQ(81, host.shows);
    const Picture& title = LoadResPicture(102);
    EXPECT_EQ(title.pixels, MainForm.Crt.image);
    ASSERT_FALSE(half.empty());
    const auto at = [&](int x, int y) { return half[static_cast<std::size_t>(y * 320 + x)]; };
    const auto in = [&](int x, int y) { return title.pixels[static_cast<std::size_t>(y * 320 + x)]; };
    for (int y = 0; y < 480; y += 37) {
        EXPECT_EQ(in(159, y), at(79, y)) << "the left half's inner edge";
        EXPECT_EQ(in(160, y), at(240, y)) << "the right half's inner edge";
        EXPECT_EQ(kRed, at(80, y));
        EXPECT_EQ(kRed, at(239, y));
    }
}

TEST_F(TitleTest, EachPlayReadsAndWritesItsOwnBestScore) {
    struct Case {
        const char* level;
        const char* play;
        Long best;        // -1: HiScore is left alone
        int savedOffset;  // -1: nothing is stored
    };
    for (const Case& c : {Case{"MENU101", "Menu401", 1, 0},
                          {"MENU102", "Menu401", 258, 4},
                          {"MENU103", "Menu401", 3, 8},
                          {"MENU103", "Menu404", 4, 12},
                          {"MENU101", "Menu402", -1, -1},
                          {"MENU101", "Menu403", -1, -1}}) {
        WriteScores(kScores);
        ClickMenu(*FindMenuItem(c.level));
        ClickMenu(*FindMenuItem(c.play));
        game.HiScore = 77;
        LoadBestScores();
        EXPECT_EQ(c.best < 0 ? 77 : c.best, game.HiScore) << c.level << c.play;
        game.HiScore = 5000;
        SaveBestScores();
        auto wanted = kScores;
        if (c.savedOffset >= 0) {
            wanted[static_cast<std::size_t>(c.savedOffset)] = 0x88;
            wanted[static_cast<std::size_t>(c.savedOffset) + 1] = 0x13;
        }
        EXPECT_EQ(wanted, ReadScores()) << c.level << c.play;
    }
}

TEST_F(TitleTest, MissingAndShortScoreFilesCountAsZerosAndLongerOnesKeepTheirTail) {
    std::filesystem::remove(folder / "Scores.DAT");
    game.HiScore = 9;
    LoadBestScores();
    EXPECT_EQ(0, game.HiScore);
    EXPECT_TRUE(host.log.empty());

    WriteScores({9, 9, 9, 9, 9, 9, 9});
    game.HiScore = 9;
    LoadBestScores();
    EXPECT_EQ(ScoresType{}, game.Scores);
    EXPECT_EQ(1u, host.log.size());

    auto longer = kScores;
    longer.insert(longer.end(), {0xAA, 0xBB});
    WriteScores(longer);
    LoadBestScores();
    SaveBestScores();
    EXPECT_EQ(longer, ReadScores());
}

TEST_F(TitleTest, AScoreFileThatCannotBeWrittenIsToldOnceAndLeftAsItWas) {
    std::filesystem::remove(folder / "Scores.DAT");
    std::filesystem::create_directory(folder / "Scores.DAT");
    SaveBestScores();
    SaveBestScores();
    ASSERT_EQ(1u, host.messages.size());
    EXPECT_NE(std::string::npos, host.messages[0].find("Scores.DAT"));
}

TEST_F(GameTest, StatusLineHasItsFixedForm) {
    EXPECT_EQ("HISCORE 000000  SCORE 000000   POWER 0     FPS 00000", StatusLine());
    game.HiScore = 1234567;
    game.Score = -42;
    game.ShotMode = 1;
    game.Fps = 123456;
    EXPECT_EQ("HISCORE 1234567  SCORE -000042   POWER 1     FPS 123456", StatusLine());
}

TEST_F(GameTest, FrameRateComesFromOneFrameAtMostEveryQuarterSecond) {
    host.stepPerReading = 0;
    game.FrameTime = 39;
    DrawStatus();  // samples the clock
    EXPECT_EQ(0, game.Fps);
    DrawStatus();
    EXPECT_EQ(25, game.Fps);
    game.FrameTime = 38;
    host.now += 250;
    DrawStatus();  // FpsNow reaches FpsNext
    EXPECT_EQ(25, game.Fps);
    host.now += 1;
    DrawStatus();
    DrawStatus();
    EXPECT_EQ(26, game.Fps);
    game.FrameTime = 0;
    host.now += 1000;
    DrawStatus();
    DrawStatus();
    EXPECT_EQ(26, game.Fps) << "a frame of no length gives no figure";
}

TEST_F(GameTest, TheFrameRateDoesNotNoticeTheWrapOfTheClock) {
    const auto figures = [this](std::uint32_t start) {
        host.stepPerReading = 0;
        host.now = start;
        std::string seen;
        for (int frame = 0; frame < 60; ++frame, host.now += 39) {
            game.FrameTime = 20 + frame;
            DrawStatus();
            seen += std::to_string(game.Fps) + " ";
        }
        return seen;
    };
    std::map<std::uint32_t, std::string> seen;
    for (const std::uint32_t start : {1000u, 0x7FFFFC00u, 0xFFFFFC00u, 0x90000000u}) {
        game = GameState{};
        seen[start] = figures(start);
        EXPECT_EQ(seen[1000u], seen[start]) << start;
        host.now += 0x80000000u;  // weeks at the title
        game.FrameTime = 500;
        for (int frame = 0; frame < 3; ++frame, host.now += 39) DrawStatus();
        EXPECT_EQ(2, game.Fps) << start;
    }
}

TEST_F(GameTest, StatusTextLeavesThePixelsBetweenTheLettersAndFits) {
    for (Color& pixel : MainForm.Crt.image) pixel = kRed;
    DrawStatus();
    int text = 0, red = 0, other = 0;
    for (const Color pixel : MainForm.Crt.image) {
        ++(pixel == MainForm.Crt.ForeColor ? text : pixel == kRed ? red : other);
    }
    EXPECT_GT(text, 300);
    EXPECT_EQ(0, other);
    for (int y = 0; y < 480; ++y) EXPECT_EQ(kRed, MainForm.Crt.Row(y)[319]) << "the line ends inside the screen";
}

TEST_F(GameTest, WaitsLastLongerThanAskedAlsoAcrossTheWrapOfTheClock) {
    for (const std::uint32_t start : {1000u, 0xFFFFFFF0u, 0x7FFFFFF0u}) {
        host.now = start;
        WaitMs(38);
        EXPECT_EQ(40u, host.now - start) << "one reading to start from, then 39 steps";
    }
}

TEST_F(GameTest, PacingFillsTheFrameUpAndNeverShortensIt) {
    struct Case {
        std::uint32_t work;
        bool wait;
        Long frameWork, frameTime;
    };
    for (const std::uint32_t start : {5000u, 0xFFFFFFF8u, 0x7FFFFFF8u}) {
        for (const Case& c : {Case{10, true, 11, 41}, {38, true, 39, 40}, {100, true, 101, 102}, {10, false, 11, 12}}) {
            MainForm.Menu002.Checked = c.wait;
            host.now = start;
            game.FrameStart = static_cast<Long>(start);
            host.now += c.work;
            PaceFrame();
            EXPECT_EQ(c.frameWork, game.FrameWork);
            EXPECT_EQ(c.frameTime, game.FrameTime);
        }
    }
}
