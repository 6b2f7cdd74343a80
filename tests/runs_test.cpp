// The player's runs: every game becomes one that verifies, also the second of a session and one that was killed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "fresh_program.h"
#include "host/files.h"
#include "host/journal.h"
#include "pilot.h"
#include "platform/events.h"
#include "recording/keeper.h"
#include "recording/run.h"
#include "shell/title_screen.h"
#include "simulation.h"
#include "test_game.h"

namespace {

using SavedRun = ::Run;  // gtest has a Run of its own

class RunsTest : public GameTest {
  protected:
    // One game from the title's start key on, played by a pilot for so many frames and then left.
    void PlayGame(std::uint64_t seed, int frames, const char* pilotName = "dodge") {
        const auto pilot = MakePilot(pilotName, Weapon::switching, seed);
        PilotHands hands;
        FixSeed(seed);
        const int end = host.yields + frames;
        host.onYield = [&] {
            if (host.yields >= end) return headless::Tap(VK_ESCAPE);
            hands.Press(pilot->Decide(game), host.events);
        };
        RunGame();
        host.onYield = nullptr;
        host.events.clear();
    }

    static SavedRun ReadRun(const std::string& path) {
        SavedRun run;
        EXPECT_EQ("", UnpackRun(ReadWholeFile(path).bytes, run)) << path;
        return run;
    }

    static std::string Verified(const Recording& recording) {
        SimReport report;
        return VerifyRecording(recording, false, report);
    }

    std::filesystem::path folder = UseFolder(true);
};

}  // namespace

TEST_F(RunsTest, EveryGameOfASessionBecomesARunThatVerifiesByItself) {
    StartKeepingRuns("1.0");
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        host.date.back() = static_cast<char>('0' + seed);
        PlayGame(seed, 600);
    }
    EXPECT_EQ("", FinishRecorder());
    const std::vector<KeptRun> runs = ListRuns();
    ASSERT_EQ(3u, runs.size());
    for (const KeptRun& kept : runs) {
        const SavedRun run = ReadRun(kept.path);
        EXPECT_EQ("1.0", run.recording.program);
        EXPECT_EQ(Outcome::left, run.recording.result.how);
        EXPECT_EQ(2u, run.recording.checks.size());
        EXPECT_EQ(96u * 64, run.picture.pixels.size());
        EXPECT_LT(std::filesystem::file_size(kept.path), 40000u);
        EXPECT_EQ("", Verified(run.recording)) << kept.path << ": what the games before it left belongs to it";
    }
    EXPECT_FALSE(ReadRun(runs.front().path).recording.left.empty());
    EXPECT_TRUE(FilesIn(RunsFolder(), "journal").empty());
}

TEST_F(RunsTest, AKilledProgramLeavesARunUpToItsLastSecond) {
    const std::string dead = RunsFolder() + "/dead.tarnveil-journal";
    StartKeepingRuns("1.0");
    std::string living;
    const auto killed = [&] {
        living = RunsFolder() + "/" + FilesIn(RunsFolder(), ".tarnveil-journal").at(0);
        EXPECT_EQ(FileError::missing, ReadDeadJournal(living).error) << "its writer lives";
        std::filesystem::copy_file(living, dead);
        std::ofstream(dead, std::ios::app) << "event 612 0 key-do";
    };
    const auto pilot = MakePilot("dodge", Weapon::switching, 1);
    PilotHands hands;
    FixSeed(1);
    host.onYield = [&] {
        if (host.yields == 610) killed();
        if (host.yields >= 620) return headless::Tap(VK_ESCAPE);
        hands.Press(pilot->Decide(game), host.events);
    };
    host.yields = 0;
    RunGame();
    host.onYield = nullptr;
    EXPECT_EQ("", FinishRecorder());
    RescueRuns();
    EXPECT_FALSE(std::filesystem::exists(dead));
    const std::vector<KeptRun> runs = ListRuns();
    ASSERT_EQ(2u, runs.size());
    for (const KeptRun& kept : runs) {
        const Recording recording = ReadRun(kept.path).recording;
        if (recording.result.how == Outcome::cutOff) EXPECT_EQ(598, recording.endFrames) << "23 times 26 frames";
        EXPECT_EQ("", Verified(recording)) << kept.path;
    }
}

TEST_F(RunsTest, TheNewestTheBestTheMarkedAndTheDamagedAreKept) {
    std::filesystem::create_directories(RunsFolder());
    SavedRun run;
    const auto put = [&](int day, int score, bool kept) {
        run.date = "2026-01-01 00:00:" + std::to_string(10 + day);
        run.recording.endScore = score;
        run.kept = kept;
        EXPECT_EQ("", KeepRun(run));
    };
    std::ofstream(RunsFolder() + "/x.tarnveil-run") << "no run";
    put(0, 70, false);  // the best one of Nomal
    put(1, 5, true);    // marked
    put(2, 5, false);   // nothing
    run.recording.parent = Parent{1, 2};
    put(3, 99, false);  // taken over
    run.recording.parent.reset();
    for (int day = 4; day < 54; ++day) put(day, 6, false);
    const std::vector<KeptRun> runs = ListRuns();
    ASSERT_EQ(53u, runs.size());
    EXPECT_EQ("2026-01-01 00:00:63", runs[0].run.date);
    EXPECT_EQ("2026-01-01 00:00:11", runs[50].run.date);
    EXPECT_EQ(70, runs[51].run.recording.endScore);
    EXPECT_NE("", runs[52].problem);

    EXPECT_EQ("", ChangeRun(runs[0].path, "first\none", true));
    SavedRun changed = ReadRun(runs[0].path);
    EXPECT_EQ("firstone", changed.name);
    EXPECT_TRUE(changed.kept);
    EXPECT_NE("", ChangeRun(runs[52].path, "x", true)) << "a damaged file stays as it is";
}

TEST_F(RunsTest, RunsAreReadAsTheyWereWrittenAndDamagedOnesRefused) {
    StartKeepingRuns("1.0");
    PlayGame(4, 300);
    EXPECT_EQ("", FinishRecorder());
    const std::string path = ListRuns().at(0).path;
    SavedRun run = ReadRun(path), again;
    run.name = "名前";
    run.recording.parent = Parent{0xABCDEF, 44};
    const std::vector<std::uint8_t> good = PackRun(run);
    ASSERT_EQ("", UnpackRun(good, again));
    EXPECT_EQ(run, again);
    ASSERT_EQ("", UnpackRunHead(good, again));
    EXPECT_EQ(run.recording.endScore, again.recording.endScore);
    EXPECT_TRUE(again.recording.events.empty());
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::vector<std::uint8_t> bytes = good;
        bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
        if (i % 3 == 0) bytes.resize(random() % bytes.size());
        static_cast<void>(UnpackRun(bytes, again));
    }
    EXPECT_NE("", UnpackRun(std::vector<std::uint8_t>(kMostRunBytes + 1, 0x78), again));
    EXPECT_NE("", UnpackRun({}, again));
}
