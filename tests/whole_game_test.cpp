// Whole headless games: from stage to stage to the staff roll, recorded and played again.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "fresh_program.h"
#include "host/files.h"
#include "host/window.h"
#include "recording/recording.h"
#include "renew.h"
#include "shell/best_scores.h"
#include "shell/ending.h"
#include "shell/game_loop.h"
#include "shell/main_routine.h"
#include "shell/menus.h"
#include "shell/title_screen.h"
#include "simulation.h"
#include "stage/data_files.h"
#include "stage/plays.h"
#include "test_game.h"
#include "toolkit/folder.h"
#include "toolkit/resources.h"

namespace {

StageDataType Entry(Integer no, Integer counter = 0, Byte power = 1, Single x = 140) {
    return {x, 300, no, counter, power};
}

// Stages of a few entries over the shipped kinds and scripts.
class WholeGameTest : public GameTest {
  protected:
    void PutStage(std::string_view file, const std::vector<StageDataType>& entries) {
        std::fill(std::begin(game.StageData), std::end(game.StageData), Entry(255));
        std::copy(entries.begin(), entries.end(), game.StageData);
        ASSERT_EQ("", WriteStageData(file));
    }

    void PutShortStages() {
        for (const Play& play : kPlays) {
            PutStage(play.file, {Entry(254, 5), Entry(247), Entry(254, 10), Entry(248)});
        }
    }

    // One game from the title's start key on, with `atFrame` at every yield.
    void PlayOneGame(std::function<void()> atYield) {
        host.onYield = std::move(atYield);
        RunGame();
        host.onYield = nullptr;
    }

    std::vector<std::string> OpenedPieces() const {
        std::vector<std::string> pieces;
        for (const std::string& line : host.audio) {
            if (line.starts_with("open")) pieces.push_back(line.substr(line.rfind('/') + 1));
        }
        return pieces;
    }

    static int Lines(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

    std::filesystem::path folder = UseFolder(true);
};

}  // namespace

TEST_F(WholeGameTest, ANormalGamePassesItsStagesAndTheEndingAndSavesItsScore) {
    PutShortStages();
    std::vector<Integer> wantedStages, stages;
    std::vector<std::string> wantedPieces;
    for (const Play* play = FindPlay(kNormalPlay); play; play = NextStage(*play)) {
        wantedStages.push_back(play->stageNo);
        wantedPieces.insert(wantedPieces.end(), {play->music, "Cleared.Mid"});
    }
    const auto bonus = static_cast<Long>(5000 * wantedStages.size());  // full energy at each end
    wantedStages.push_back(static_cast<Integer>(wantedStages.back() + 1));
    wantedPieces.emplace_back("End.mid");
    PlayOneGame([&] {
        if (stages.empty() || stages.back() != game.StageNo) stages.push_back(game.StageNo);
        if (game.AllClear != False) headless::Tap(VK_SPACE);
    });
    EXPECT_EQ(wantedStages, stages);
    EXPECT_EQ(wantedPieces, OpenedPieces());
    EXPECT_EQ(bonus, game.Score);
    game.Scores = {};
    LoadBestScores();
    EXPECT_EQ((ScoresType{.Nomal = bonus}), game.Scores);
}

TEST_F(WholeGameTest, TitleGameAndEndingDoNotNoticeTheWrapOfTheClock) {
    PutShortStages();
    bool ending = false;
    const auto trace = [&](std::uint32_t start) {
        FreshProgram();
        SetProgramFolder(folder.string());
        FixSeed(1);
        host.now = start;
        std::vector<std::uint32_t> seen;
        int yields = 0;
        host.onYield = [&] {
            constexpr int kEnd = 4000;
            if (++yields == kEnd) throw EndProgram();
            if (yields % 100 == 0) headless::Tap(VK_SPACE);
            ending |= game.StageNo == kPlays[0].stageNo + 3;
            seen.insert(seen.end(), {host.now - start, static_cast<std::uint32_t>(game.StageNo),
                                     static_cast<std::uint32_t>(game.FrameTime), MainForm.Crt.image[yields]});
        };
        EXPECT_THROW(TitleScreen(), EndProgram);
        host.onYield = nullptr;
        return seen;
    };
    const auto usual = trace(1000);
    const std::uint32_t length = usual[usual.size() - 4];
    for (const std::uint32_t wrap : {0x80000000u, 0u}) {
        constexpr std::uint32_t kPlaces = 4;
        for (std::uint32_t place = 0; place < kPlaces; ++place) {
            const std::uint32_t before = length / kPlaces * place + 3;
            EXPECT_TRUE(usual == trace(wrap - before)) << before << " ms before " << wrap;
        }
    }
    EXPECT_TRUE(ending) << "was reached";
}

TEST_F(WholeGameTest, DigestPlaysAndScoreAttackEndAtTheirFirstStageChange) {
    PutShortStages();
    for (const auto choose : {Menu402_Click, Menu403_Click, Menu404_Click}) {
        choose();
        host.audio.clear();
        game.HiScore = 0;
        PlayOneGame([] {});
        EXPECT_EQ(2u, OpenedPieces().size()) << "stage and clear music, no ending";
        EXPECT_EQ(5000, game.Score);
        EXPECT_EQ(game.DigestMode == 4 ? 5000 : 0, game.Scores.ScoreAttack);
        EXPECT_EQ(0, game.Scores.Nomal);
        std::filesystem::remove(folder / "Scores.DAT");
    }
}

TEST_F(WholeGameTest, AGameOverStopsEveryWayForward) {
    // The ship is sunk by hand while the script stands before each command; the game must end by Space, at the title.
    for (const Integer command : std::initializer_list<Integer>{247, 248, 249, 250, 251}) {
        PutStage("\\STAGE1.DAT", {Entry(254, 40), Entry(command), Entry(254, 20), Entry(248)});
        host.audio.clear();
        game.BossDefeated = False;
        int yields = 0;
        PlayOneGame([&] {
            if (++yields == 3) game.MyDead = True, game.MyPower = 0;
            if (yields == 200) headless::Tap(VK_SPACE);
            ASSERT_LT(yields, 400);
        });
        EXPECT_EQ((std::vector<std::string>{"Stage1.mid", "gameover.mid"}), OpenedPieces()) << command;
        EXPECT_EQ(1, game.StageNo) << command;
        EXPECT_EQ(command == 247 ? True : 0, game.StageClear);
    }
}

TEST_F(WholeGameTest, TheStaffRollKeepsItsTimes) {
    game.StarMax = 20;
    MainForm.Menu006.Checked = true;
    int frame = 0;
    std::vector<int> textFrames;
    std::vector<Color> lastScreen;
    host.onYield = [&] {
        ++frame;
        const Surface& canvas = MainForm.EndingPic;
        // A line printed in this frame has moved up by one already: its first rows are at 489.
        const auto lineAt = [&](int y) {
            return std::any_of(canvas.Row(y), canvas.Row(y) + 240, [](Color c) { return c == kBlue; });
        };
        bool printed = false;
        for (int y = 489; y < 489 + 12; ++y) printed = printed || lineAt(y);
        if (printed && (textFrames.empty() || frame - textFrames.back() >= 30)) textFrames.push_back(frame);
        headless::KeyDown(VK_SPACE);
        if (frame == 1329) lastScreen = MainForm.Crt.image;
        ASSERT_LE(frame, 1330);
    };
    const auto start = host.now;
    Ending();
    host.onYield = nullptr;
    EXPECT_EQ(1330, frame) << "500 frames after the last line";
    ASSERT_FALSE(textFrames.empty());
    EXPECT_EQ(110, textFrames.front());
    EXPECT_EQ(830, textFrames.back()) << "the last line";
    EXPECT_GT(host.now - start, 2000u + 1330 * 38);
    EXPECT_EQ(True, game.QuitGame);
    EXPECT_EQ(16, MainForm.EndingPic.Width);
    EXPECT_FALSE(MainForm.EndingPic.HasPicture);
    // The logo stands on the black of the canvas, 120 pixels in.
    const Picture& logo = DesignPicture("LogoPic.gif");
    bool logoSeen = false;
    for (int top = 170; top < 200; ++top) {
        bool same = true;
        for (int y = 0; y < 46 && same; ++y) {
            for (int x = 30; x < 190 && same; x += 7) {
                const Color seen = lastScreen[static_cast<std::size_t>((top + y) * 320 + 120 + x)];
                same = seen == logo.pixels[static_cast<std::size_t>(y * logo.width + x)] || seen == kWhite;  // a star
            }
        }
        logoSeen = logoSeen || same;
    }
    EXPECT_TRUE(logoSeen);
    EXPECT_EQ((std::vector<std::string>{"End.mid"}), OpenedPieces());
    EXPECT_EQ("stop", host.audio.back());
}

TEST_F(WholeGameTest, ATapWithinOneFrameEndsTheStoppedRollAndTheMenuDoesNot) {
    int frame = 0;
    host.onYield = [&] {
        ++frame;
        if (frame == 1320 || frame == 1340) headless::Tap(VK_ESCAPE);  // too early, and in time
        if (frame == 1335) headless::ClickMenuItem("Menu301");
        ASSERT_LE(frame, 1341);
    };
    Ending();
    host.onYield = nullptr;
    EXPECT_EQ(1340, frame);
}

TEST_F(WholeGameTest, TheSameSeedAndEventsGiveTheSameGameAndAnotherSeedAnother) {
    std::vector<std::string> texts;
    for (const std::uint64_t seed : {7u, 7u, 8u}) {
        const std::string path = (folder / "run.txt").string();
        SimReport report = Simulate({.play = {4}, .pilot = "sweep", .seed = seed, .frameLimit = 500, .recordTo = path});
        EXPECT_EQ("", report.error);
        EXPECT_GE(report.frames, 500);
        const auto bytes = ReadWholeFile(path).bytes;
        texts.emplace_back(bytes.begin(), bytes.end());
    }
    EXPECT_EQ(texts[0], texts[1]);
    EXPECT_NE(texts[0], texts[2]);
    EXPECT_LT(500 / 8, Lines(texts[0]));
}

TEST_F(WholeGameTest, ARecordingPlaysAgainAndNamesTheFirstFrameThatDiffers) {
    const std::string path = (folder / "run.txt").string();
    Simulate({.level = 5, .pilot = "dodge", .seed = 3, .frameLimit = 700, .recordTo = path});
    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    EXPECT_EQ(5, recording.level);
    EXPECT_EQ(recording, [&] {
        Recording again;
        EXPECT_EQ("", ParseRecording(FormatRecording(recording), again));
        return again;
    }());
    SimReport report;
    EXPECT_EQ("", VerifyRecording(recording, false, report));
    EXPECT_EQ(static_cast<int>(recording.frames.size()), report.frames);

    Recording changed = recording;
    changed.frames[400][static_cast<std::size_t>(StateGroup::ship)] ^= 1;
    const std::string difference = VerifyRecording(changed, false, report);
    EXPECT_TRUE(difference.starts_with("frame 401: ship: now MyX=")) << difference;

    changed = recording;
    std::erase_if(changed.events, [](const RecordedEvent& e) { return e.time.frame > 300; });
    EXPECT_NE("", VerifyRecording(changed, false, report));
    changed = recording;
    changed.dataDigest ^= 1;
    EXPECT_NE(std::string::npos, VerifyRecording(changed, false, report).find("data tables"));
    EXPECT_EQ("", VerifyRecording(changed, true, report));
}

TEST_F(WholeGameTest, ARecordingOfAPilotIsRenewedWithWhatHasChanged) {
    PutShortStages();
    PutStage("\\STAGE1.DAT", {Entry(0, 5, 1), Entry(254, 40), Entry(248)});
    const std::string path = (folder / "run.txt").string(), stage = (folder / "STAGE1.DAT").string();
    Simulate({.level = 5, .pilot = "sweep", .weapon = Weapon::spread, .seed = 3, .recordTo = path});
    std::string change;
    const auto renewed = [&] {
        EXPECT_EQ("", Renew(path, change));
        return change;
    };
    EXPECT_EQ("nothing has changed", renewed());
    std::ofstream(stage, std::ios::app) << "behind the table";
    EXPECT_TRUE(renewed().starts_with("the same play; only the fingerprint")) << change;
    PutStage("\\STAGE1.DAT", {Entry(0, 30, 1), Entry(254, 40), Entry(248)});
    EXPECT_TRUE(renewed().starts_with("the play is another one from frame 5 on")) << change;
    EXPECT_EQ("nothing has changed", renewed());

    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    recording.pilot.clear();
    std::ofstream(path) << FormatRecording(recording);
    EXPECT_NE(std::string::npos, Renew(path, change).find("names no pilot"));
}

TEST_F(WholeGameTest, BrokenRecordingsAreRefusedWithTheirLine) {
    Recording sample;
    sample.held = {{38, true, false}};
    sample.events = {{{3, 1}, {InputEvent::Kind::joystick, 1, 2, 3, 4}}, {{4, 0}, {InputEvent::Kind::allKeysUp}}};
    sample.frames = std::vector<FrameDigest>(11);
    sample.endFrames = 11;
    const std::string good = FormatRecording(sample);
    Recording parsed;
    ASSERT_EQ("", ParseRecording(good, parsed));
    EXPECT_EQ(sample, parsed);
    const auto replaced = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    for (const auto& [text, wanted] : std::vector<std::pair<std::string, std::string>>{
             {replaced("recording 1", "recording 2"), "line 1"},
             {replaced("seed 0", "seed x"), "line 2"},
             {replaced("level 2", "level 2 3"), "line 3"},
             {replaced("level 2", "level 3"), "line 3"},
             {replaced("play 0", "play 1"), "line 4"},
             {replaced("Effects=1", "Effects=7"), "line 5"},
             {replaced("Effects=1", "Effect=1"), "line 5"},
             {replaced("Effects=1", "Wait=0"), "line 5"},
             {replaced("joystick 1 2 3 4", "joystick 1 2"), "not understood"},
             {replaced("frame 9", "frame 10"), "not understood"},
             {replaced("frames=11", "frames=12"), "not understood"},
             {good.substr(0, good.find("end ")), "cut off"},
             {"", "line 1"}}) {
        EXPECT_NE(std::string::npos, ParseRecording(text, parsed).find(wanted)) << text.substr(0, 60);
    }
    EXPECT_EQ(sample, parsed) << "a refused text changes nothing";
    EXPECT_EQ("", ParseRecording(replaced("Wait=1 Invincible=0 Effects=1", "Effects=0 Wait=1"), parsed));
    sample.options[&MainFormType::Menu004] = false;
    EXPECT_EQ(sample, parsed) << "options in any order; one that is absent is as at start";
}

TEST_F(WholeGameTest, OpeningAnEditorEndsTheRecordingThere) {
    PutShortStages();
    PutStage("\\STAGE1.DAT", {Entry(254, 9999)});
    EnableAuthorMenus();
    const std::string path = (folder / "run.txt").string();
    StartRecorder(path);
    FixSeed(1);
    int yields = 0;
    PlayOneGame([&] {
        if (++yields == 10) headless::ClickMenuItem("Menu201");
        if (yields == 20) headless::Tap(VK_ESCAPE);
    });
    EXPECT_EQ("", FinishRecorder());
    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    EXPECT_EQ(10u, recording.frames.size());
    EXPECT_EQ(0u, recording.endDigest);
    SimReport report;
    EXPECT_EQ("", VerifyRecording(recording, false, report)) << "what was recorded plays again";
}

TEST_F(WholeGameTest, ARecordingLeftInTheStaffRollEndsThere) {
    PutShortStages();
    const std::string path = (folder / "run.txt").string();
    StartRecorder(path);
    FixSeed(1);
    int yields = 0;
    EXPECT_THROW(PlayOneGame([&] {
                     if (game.AllClear != False && ++yields == 30) throw EndProgram{};
                 }),
                 EndProgram);
    EXPECT_EQ("", FinishRecorder());
    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    host.onYield = nullptr;
    SimReport report;
    EXPECT_EQ("", VerifyRecording(recording, false, report));
    EXPECT_EQ(static_cast<int>(recording.frames.size()), report.frames);
}

TEST_F(WholeGameTest, AReplayWhoseStaffRollNeverGetsItsKeyDiffersAndEnds) {
    PutShortStages();
    const std::string path = (folder / "run.txt").string();
    Simulate({.play = {.wholeGame = true}, .pilot = "idle", .recordTo = path});
    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    SimReport report;
    EXPECT_EQ("", VerifyRecording(recording, false, report));
    std::erase_if(recording.events, [](const RecordedEvent& e) { return e.event.code == VK_SPACE; });
    EXPECT_NE(std::string::npos, VerifyRecording(recording, false, report).find("next frame or its end"));
}

TEST_F(WholeGameTest, ARecordingIsOnTheDiskAsSoonAsItsGameHasEndedAndReplacesALongerOne) {
    PutShortStages();
    const std::filesystem::path path = folder / "run.txt";
    std::ofstream(path) << std::string(1000000, '\n');
    StartRecorder(path.string());
    FixSeed(1);
    PlayOneGame([] {
        if (game.AllClear != False) headless::Tap(VK_ESCAPE);
    });
    Recording recording;
    EXPECT_EQ("", ReadRecording(path.string(), recording));
    EXPECT_NE(0u, recording.endDigest);
    EXPECT_LT(std::filesystem::file_size(path), 100000u);
    EXPECT_EQ("", FinishRecorder());
}

TEST_F(WholeGameTest, ARecordingThatCannotBeWrittenIsTold) {
    PutShortStages();
    const std::filesystem::path path = folder / "nowhere" / "run.txt";
    StartRecorder(path.string());
    PlayOneGame([] { headless::Tap(VK_ESCAPE); });
    EXPECT_NE(std::string::npos, FinishRecorder().find("run.txt: the recording cannot be written"));
}

TEST_F(WholeGameTest, AReplayAtTheTitleStartsByItselfIgnoresKeysAndSavesNoScore) {
    const std::string path = (folder / "run.txt").string();
    Simulate({.play = {3}, .pilot = "sweep", .seed = 3, .frameLimit = 300, .recordTo = path});
    Recording recording;
    ASSERT_EQ("", ReadRecording(path, recording));
    NewProgram();
    StartReplay(recording);
    host.onYield = [] { headless::Tap(VK_ESCAPE); };
    EXPECT_THROW(Main(), EndProgram);
    host.onYield = nullptr;
    EXPECT_EQ(ReplayState::finished, Replay().state) << Replay().message;
    StopReplay();
    EXPECT_FALSE(std::filesystem::exists(folder / "Scores.DAT"));
}

// A recording says at which entry, and how, its game was started.
TEST_F(WholeGameTest, AGameStartedWithinAStageVerifies) {
    const std::string path = (folder / "run.txt").string();
    for (const GameStart& start : {GameStart{7, 2.5F, 1}, GameStart{60, 10, 0}, GameStart{512, 0.1F, 0}}) {
        Simulate({.play = {2}, .pilot = "dodge", .seed = 5, .frameLimit = 400, .start = start, .recordTo = path});
        Recording recording;
        ASSERT_EQ("", ReadRecording(path, recording));
        EXPECT_EQ(start, recording.start);
        SimReport report;
        EXPECT_EQ("", VerifyRecording(recording, false, report)) << "entry " << start.entry;
        EXPECT_EQ(GameStart{}, gameStart) << "the next game starts as usual";
        recording.start = {};
        EXPECT_NE("", VerifyRecording(recording, false, report));
    }
}

// Recorded games of the shipped stages: every build type must play them alike. A change of rule or data that alters
// them is a commit of its own that says why.
TEST_F(WholeGameTest, GoldenRunsPlayTheSame) {
    std::set<int> plays;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(TARNVEIL_TESTS) / "runs")) {
        if (file.path().extension() != ".txt") continue;
        Recording recording;
        ASSERT_EQ("", ReadRecording(file.path().string(), recording));
        SimReport report;
        EXPECT_EQ("", VerifyRecording(recording, false, report)) << file.path();
        plays.insert(recording.play);
    }
    for (const Play& play : kPlays) EXPECT_TRUE(plays.contains(play.number)) << play.file << ": no recorded game";
}

TEST_F(WholeGameTest, EveryPlayHasItsMenuItemItsTableAndItsMusic) {
    std::vector<const MenuItem*> inMenu, inTable;
    for (auto item : kMenuBar) {
        if (PopupOf(MainForm.*item) == &MainForm.Menu400) inMenu.push_back(&(MainForm.*item));
    }
    for (const Play& play : kPlays) {
        inTable.push_back(&(MainForm.*play.item));
        game.DigestMode = 99;
        EXPECT_TRUE(ClickMenu(MainForm.*play.item));
        EXPECT_EQ(play.number, game.DigestMode);
        for (const std::string& file : {BareName(play.file), std::string(play.music), std::string(play.bossMusic)}) {
            EXPECT_TRUE(std::filesystem::is_regular_file(folder / file)) << file;
        }
    }
    EXPECT_EQ(inMenu, inTable);
}
