// Recorded games as films: any moment of them, taken over from there, and the program as it was afterwards.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "host/window.h"
#include "platform/unseen.h"
#include "recording/film.h"
#include "recording/verify.h"
#include "runs_fixture.h"
#include "shell/best_scores.h"
#include "toolkit/folder.h"

namespace {

class FilmTest : public RunsTest {
  protected:
    // Plays on from where the film stands with a pilot, for so many frames, and leaves.
    Try TakeOverBy(Film& film, std::uint64_t seed, int frames) {
        const auto pilot = MakePilot("dodge", Weapon::switching, seed);
        PilotHands hands;
        const int end = host.yields + frames;
        host.onYield = [&] {
            if (host.yields >= end) return headless::Tap(VK_ESCAPE);
            hands.Press(pilot->Decide(game), host.events);
        };
        const Try tried = film.TakeOver({VK_X}, [] { return false; });
        host.onYield = nullptr;
        host.events.clear();
        return tried;
    }
};

}  // namespace

TEST_F(FilmTest, EveryMomentIsAsItWasPlayedAndTheProgramIsLeftAlone) {
    const Recording recording = Kept(5, 1100);
    game.HiScore = 77;
    const GameState before = game;
    {
        Film film(recording);
        EXPECT_EQ("", film.Track().problem);
        ASSERT_EQ(recording.endFrames, film.Frames());
        std::vector<std::uint64_t> played{DigestState(game)};
        std::vector<std::vector<Color>> pictures{{}};
        for (int i = 0; i < film.Frames(); ++i) {
            film.Step();
            played.push_back(DigestState(game));
            pictures.push_back((i + 1) % 50 == 0 ? MainForm.Crt.image : std::vector<Color>());
        }
        std::mt19937 random(1);
        for (int i = 0; i < 60; ++i) {
            const int frame = i % 3 == 0 ? static_cast<int>(random() % 20) * 50
                                         : static_cast<int>(random() % static_cast<unsigned>(film.Frames()));
            film.JumpTo(frame);
            ASSERT_EQ(frame, film.Frame());
            EXPECT_EQ(played[static_cast<std::size_t>(frame)], DigestState(game)) << frame;
            const auto& picture = pictures[static_cast<std::size_t>(frame)];
            if (picture.empty()) continue;
            const auto below = 20 * MainForm.Crt.imageWidth;  // the status line has the clock's figure in it
            EXPECT_TRUE(std::equal(picture.begin() + below, picture.end(), MainForm.Crt.image.begin() + below))
                << frame;
        }
        film.JumpTo(film.Frames() + 5);
        film.Step();
        EXPECT_TRUE(film.Ended());
        film.JumpTo(1);
        EXPECT_FALSE(film.Ended());
        EXPECT_FALSE(unseen);
    }
    EXPECT_TRUE(before == game);
    EXPECT_TRUE(keepBestScores);
}

TEST_F(FilmTest, AGameTakenOverVerifiesFromItsBeginningAndIsNoBestScore) {
    std::mt19937 random(7);
    for (int i = 0; i < GamesToTry(6); ++i) {
        const Recording parent = Kept(random(), 900);
        int moment = 0;
        const auto scores = ReadFolderFile("\\Scores.DAT").bytes;
        {
            Film film(parent);
            moment = static_cast<int>(random() % static_cast<unsigned>(film.Frames()));
            film.JumpTo(moment);
            const std::uint64_t there = DigestState(game);
            const Try tried = TakeOverBy(film, random(), 200);
            EXPECT_TRUE(tried.over);
            EXPECT_EQ(moment, film.Frame());
            EXPECT_EQ(there, DigestState(game)) << "the film stands where it stood";
        }
        const std::vector<KeptRun> runs = ListRuns();
        ASSERT_EQ(1u, runs.size());
        const Recording taken = ReadRun(runs[0].path).recording;
        EXPECT_EQ((Parent{RunIdentity(parent), moment}), taken.parent);
        EXPECT_EQ("", Verify(taken).reason) << "moment " << moment;
        EXPECT_EQ("taken over", WhyNotRanked(taken));
        EXPECT_EQ(scores, ReadFolderFile("\\Scores.DAT").bytes);
        std::filesystem::remove(runs[0].path);
    }
}

TEST_F(FilmTest, ATryThatIsGivenUpIsNotKeptAndALeftProgramKeepsWhatWasPlayed) {
    const Recording parent = Kept(3, 500);
    {
        Film film(parent);
        film.JumpTo(300);
        int yields = 0;
        const Try tried = film.TakeOver({}, [&] { return ++yields > 50; });
        EXPECT_FALSE(tried.over);
        EXPECT_GE(tried.frames, 40);
        EXPECT_TRUE(ListRuns().empty());
        host.onYield = [&] {
            if (++yields == 100) throw EndProgram{};
        };
        EXPECT_THROW(film.TakeOver({}, [] { return false; }), EndProgram);
        host.onYield = nullptr;
    }
    ASSERT_EQ(1u, ListRuns().size());
    const Recording taken = ReadRun(ListRuns()[0].path).recording;
    EXPECT_EQ(Outcome::cutOff, taken.result.how);
    EXPECT_EQ("", Verify(taken).reason);
}

TEST_F(FilmTest, AJumpInAWholeGameTakesATenthOfASecond) {
    Recording recording;
    ASSERT_EQ("", ReadRecording(std::string(TARNVEIL_TESTS) + "/runs/nomal-game.txt", recording));
    Film film(recording);
    ASSERT_LT(10000, film.Frames());
    const auto stages = std::ranges::count(film.Track().marks, FilmMark::Kind::stage, &FilmMark::kind);
    EXPECT_EQ(2, stages);
    std::mt19937 random(1);
    std::vector<double> times;
    for (int i = 0; i < 100; ++i) {
        const auto start = std::chrono::steady_clock::now();
        film.JumpTo(static_cast<int>(random() % static_cast<unsigned>(film.Frames())));
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::ranges::sort(times);
    RecordProperty("jump_ms_95th", std::to_string(times[94]));
    EXPECT_LT(times[49], 200) << "the median, so that a busy machine does not matter";
}
