// The player's runs: every game becomes one that verifies, also the second of a session and one that was killed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "host/journal.h"
#include "recording/released_tables.h"
#include "recording/verify.h"
#include "runs_fixture.h"
#include "toolkit/resources.h"

TEST_F(RunsTest, EveryGameOfASessionBecomesARunThatVerifiesByItself) {
    StartKeepingRuns();
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        host.date.back() = static_cast<char>('0' + seed);
        PlayGame(seed, 600);
    }
    EXPECT_EQ("", FinishRecorder());
    const std::vector<KeptRun> runs = ListRuns();
    ASSERT_EQ(3u, runs.size());
    for (const KeptRun& kept : runs) {
        const SavedRun run = ReadRun(kept.path);
        EXPECT_FALSE(run.recording.program.empty());
        EXPECT_EQ(Outcome::left, run.recording.result.how);
        EXPECT_EQ(2u, run.recording.checks.size());
        EXPECT_EQ(60u * 40, run.picture.pixels.size());
        EXPECT_LT(std::filesystem::file_size(kept.path), 40000u);
        EXPECT_EQ("", Verified(run.recording)) << kept.path << ": what the games before it left belongs to it";
    }
    EXPECT_FALSE(ReadRun(runs.front().path).recording.left.empty());
    EXPECT_TRUE(FilesIn(RunsFolder(), "journal").empty());
}

TEST_F(RunsTest, AKilledProgramLeavesARunUpToItsLastSecond) {
    const std::string dead = RunsFolder() + "/dead.tarnveil-journal";
    StartKeepingRuns();
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
    StartKeepingRuns();
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

TEST_F(RunsTest, GamesOfPilotsAreVerified) {
    for (int i = 0; i < GamesToTry(12); ++i) {
        const Recording recording = Kept(static_cast<std::uint64_t>(i), 300 + i * 37 % 900);
        const Verification verified = Verify(recording);
        EXPECT_EQ("", verified.reason) << "seed " << i;
        EXPECT_EQ(Verdict::agrees, verified.verdict);
        EXPECT_EQ(recording.endScore, verified.score);
    }
}

TEST_F(RunsTest, EachKindOfForgeryIsToldApart) {
    using Change = void (*)(Recording&);
    constexpr struct {
        Verdict verdict;
        Change change;
    } kForgeries[] = {
        {Verdict::forgedResult, [](Recording& r) { r.endScore += 10; }},
        {Verdict::forgedResult, [](Recording& r) { r.endScore += 10, r.endDigest = 0; }},
        {Verdict::forgedResult, [](Recording& r) { r.endEnergy = 9.75F; }},
        {Verdict::forgedResult, [](Recording& r) { r.result.how = Outcome::won; }},
        {Verdict::forgedResult, [](Recording& r) { r.result.spread += 1; }},
        {Verdict::otherEvents, [](Recording& r) { r.checks.at(0) ^= 1; }},
        {Verdict::otherEvents, [](Recording& r) { r.seed += 1; }},
        {Verdict::otherEvents, [](Recording& r) { r.events.erase(r.events.begin(), r.events.begin() + 12); }},
        {Verdict::otherEvents,
         [](Recording& r) {
             r.endFrames -= 20;
             std::erase_if(r.events, [&](const RecordedEvent& e) { return e.time.frame > r.endFrames; });
         }},
        {Verdict::otherTables, [](Recording& r) { r.dataDigest ^= 1; }},
        {Verdict::impossibleTiming, [](Recording& r) { std::swap(r.events[3].time, r.events[9].time); }},
        {Verdict::impossibleTiming, [](Recording& r) { r.events[5].time.yield = 3, r.events[5].event.code = 200; }},
        {Verdict::impossibleTiming, [](Recording& r) { r.events.insert(r.events.begin(), 40, r.events[0]); }},
        {Verdict::impossibleTiming, [](Recording& r) { r.events.back().time.frame += 50; }},
        {Verdict::otherVersion, [](Recording& r) { r.rules += 1; }},
        {Verdict::damaged, [](Recording& r) { r.endFrames = kMostVerifiedFrames + 1; }},
    };
    for (const std::uint64_t seed : {4u, 9u}) {
        const Recording good = Kept(seed);
        ASSERT_EQ(Verdict::agrees, Verify(good).verdict);
        for (const auto& [verdict, change] : kForgeries) {
            Recording forged = good;
            change(forged);
            const Verification verified = Verify(forged);
            EXPECT_STREQ(VerdictName(verdict), VerdictName(verified.verdict)) << verified.reason;
            EXPECT_NE("", verified.reason);
        }
    }
}

// Forgeries that are made at random: events taken out, moved, pressed otherwise, taken from another game; figures
// raised. All are games of a pilot that answers what it sees: one that does not presses the same keys in every game.
TEST_F(RunsTest, NoForgeryAtRandomIsAccepted) {
    std::mt19937 random(3);
    const int games = GamesToTry(40);
    Recording good, other;
    int accepted = 0;
    for (int i = 0; i < games; ++i) {
        while (random() % 16 == 0 || good.events.size() < 24 || other.events.size() < 24)
            good = Kept(random() / 4 * 4, 900), other = Kept(random() / 4 * 4, 900);
        Recording forged = good;
        auto& event = forged.events[random() % forged.events.size()];
        const auto cut = static_cast<std::ptrdiff_t>(1 + random() % (good.events.size() / 4));
        switch (i % 5) {
            case 0:
                forged.endScore += static_cast<int>(1 + random() % 5000);
                break;
            case 1:  // most of another game
                forged.events.erase(forged.events.begin() + cut, forged.events.end());
                for (const RecordedEvent& e : other.events) {
                    if (!(e.time < good.events[static_cast<std::size_t>(cut)].time)) forged.events.push_back(e);
                }
                break;
            case 2:
                forged.dataDigest += 1 + random();
                break;
            case 3:
                event.time.yield += static_cast<int>(2 + random() % 5);
                break;
            default:  // a score that could be, and everything else of the other game
                forged = other;
                forged.seed = good.seed;
        }
        const Verification verified = Verify(forged);
        accepted += verified.verdict == Verdict::agrees;
        EXPECT_NE(Verdict::agrees, verified.verdict) << "forgery " << i;
    }
    EXPECT_EQ(0, accepted);
}

// For each released version a run that was made with it: on other tables it is played with those of its time.
TEST_F(RunsTest, RunsOfReleasedVersionsStayGood) {
    std::ofstream(folder / "EnemyData.DAT", std::ios::in | std::ios::out | std::ios::binary).write("xxxxxxx", 7);
    const std::uint64_t own = DataDigest();
    int versions = 0;
    for (const std::string_view tables : BuiltInNames("released/")) {
        const std::string version(tables.substr(9, tables.rfind('.') - 9));
        const SavedRun run = ReadRun(std::string(TARNVEIL_TESTS) + "/runs/released/" + version + kRunEnding);
        EXPECT_EQ(version, run.recording.program);
        EXPECT_EQ("", Verify(run.recording).reason) << version;
        EXPECT_EQ(own, DataDigest()) << "afterwards the folder's tables are read again";
        ++versions;
    }
    EXPECT_GE(versions, 1);
}
