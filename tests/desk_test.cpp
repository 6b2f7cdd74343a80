// The bench as its window shows it, games tried from an entry, and their last ten seconds again.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <random>

#include "author/desk.h"
#include "author/journal.h"
#include "author/new_path.h"
#include "author/rewind.h"
#include "host/window.h"
#include "recording/digest.h"
#include "shell/best_scores.h"
#include "shell/game_loop.h"
#include "shell/title_screen.h"
#include "simulation.h"
#include "stage/data_files.h"
#include "stage/load_stage.h"
#include "stage/stage_script.h"
#include "test_game.h"
#include "toolkit/folder.h"

namespace {

class DeskTest : public GameTest {
  protected:
    DeskTest() {
        UseFolder(true);
        EXPECT_EQ("", desk.Open());
    }

    void Press(const std::string& caption) {
        for (const DeskButton& button : desk.Buttons()) {
            if (button.caption == caption) return desk.Press(button);
        }
        ADD_FAILURE() << caption;
    }
    // Gives back what was said.
    std::string Store(DeskPlace place, const std::string& name, const std::string& text) {
        for (const DeskField& field : desk.Fields()) {
            if (field.place != place || field.name != name) continue;
            desk.Store(field, text);
            return desk.Message();
        }
        return "no such field";
    }
    const StageDataType& Entry(int i) const { return desk.Model().Working().Stages[desk.Table()][i]; }
    std::unique_ptr<Tables> Now() const { return std::make_unique<Tables>(desk.Model().Working()); }
    std::unique_ptr<Tables> Changed() const {
        auto tables = Now();
        tables->Stages[3][5].Power = 9;
        return tables;
    }
    void FreeKind(int kind) {
        auto files = std::make_unique<Tables>(desk.Model().Working());
        files->EnemyData[kind] = {};
        for (auto& table : files->Stages) {
            for (auto& entry : table) entry.No = entry.No == kind ? Integer{0} : entry.No;
        }
        ASSERT_EQ("", WriteTables(ProgramFolder(), *files));
        ASSERT_EQ("", ReadEnemyData()) << "nothing of the game's own is kept over the file";
        ASSERT_EQ("", desk.Open());
    }

    Desk desk;
};

TEST_F(DeskTest, AWaveOfANewKindOnADrawnPath) {
    FreeKind(9);
    const auto start = Now();
    desk.Choose(3, 3);
    Press("Insert");
    EXPECT_EQ(StageDataType{}, Entry(3));
    EXPECT_EQ("", Store(DeskPlace::entry, "Counter", "30"));
    Press("New kind");
    ASSERT_EQ(9, Entry(3).No) << desk.Message();
    EXPECT_EQ(41, desk.Model().Working().EnemyData[9].MoveNo) << "the first pattern that nothing uses";
    Press("Draw path");
    desk.Grip({60, -10}, 5);
    for (int i = 1; i <= 40; ++i)
        desk.DragTo({60.0F + static_cast<float>(3 * i), -10.0F + static_cast<float>(4 * i)}, false);
    desk.LetGo();
    EXPECT_EQ("", desk.Message());
    const EneMoveType first = desk.Model().Working().EneMove[41][0];
    EXPECT_NEAR(3 * 0.6, first.DX, 0.11);
    EXPECT_NEAR(3 * 0.8, first.DY, 0.11);
    EXPECT_EQ(60 - 16, Entry(3).X);
    EXPECT_NE(std::string::npos, desk.Caption().find("leaves after")) << "straight on, out of the field";
    EXPECT_EQ("", Store(DeskPlace::range, "Across", "-20"));
    Press("Wave");
    for (int i = 1; i <= 4; ++i) {
        EXPECT_EQ(Entry(3).X - static_cast<Single>(20 * i), Entry(3 + i).X);
        EXPECT_EQ(12, Entry(3 + i).Counter);
    }
    EXPECT_EQ(start->Stages[0][3], Entry(8)) << "the rest has moved up";
    EXPECT_EQ(7, desk.Chosen().last);
    desk.GoTo(0);
    EXPECT_TRUE(Differences(*start, desk.Model().Working()).empty());
}

TEST_F(DeskTest, FieldsTakeNumbersAndNamesAndSayWhatTheyWant) {
    desk.Choose(2, 4);
    EXPECT_EQ("", Store(DeskPlace::entry, "No", "boss_wait"));
    for (int i = 2; i <= 4; ++i) EXPECT_EQ(kBossWait, Entry(i).No) << "the whole range";
    EXPECT_EQ("boss_wait", desk.Cell(3, DeskColumn::name));
    EXPECT_NE("", desk.Reason(2)) << "no boss is there to wait for";
    EXPECT_EQ("", desk.Reason(1));
    const auto before = Now();
    EXPECT_EQ("Power: a whole number from 0 to 255 is wanted", Store(DeskPlace::entry, "Power", "256"));
    EXPECT_EQ("X: a number is wanted", Store(DeskPlace::entry, "X", "left"));
    EXPECT_EQ("Energy: from 0.1 to 10", Store(DeskPlace::start, "Energy", "11"));
    EXPECT_EQ("Level: 1, 2 or 5", Store(DeskPlace::start, "Level", "3"));
    EXPECT_TRUE(Differences(*before, desk.Model().Working()).empty());
    EXPECT_EQ("", Store(DeskPlace::entry, "X", "1E2"));
    EXPECT_EQ(100, Entry(2).X);
}

TEST_F(DeskTest, ADragIsOneActionAndShowsItsNumbers) {
    desk.Choose(0, 0);
    const EnemyDataType kind = desk.Model().Working().EnemyData[Entry(0).No];
    const EnemyPath path = PathOf(Entry(0).No, Entry(0).X, Entry(0).Y, 50);
    const EneMoveType old = desk.Model().Working().EneMove[kind.MoveNo][path.points[20].Step];
    const DrawnPoint at = MiddleOf(path.points[20], kind);
    desk.Grip(at, 1.5F);
    for (int i = 1; i <= 5; ++i) desk.DragTo({at.x + static_cast<float>(i), at.y}, false);
    desk.LetGo();
    ASSERT_EQ(1u, desk.Model().Done());
    const EneMoveType now = desk.Model().Working().EneMove[kind.MoveNo][path.points[20].Step];
    EXPECT_EQ(std::round(old.DX + 5), now.DX);
    EXPECT_EQ(std::round(old.DY), now.DY) << "whole pixels";
    const DrawnPoint start = StartOf(Entry(0), kind);
    const StageDataType before = Entry(0);
    desk.Grip({start.x - 10, start.y - 10}, 1.5F);
    desk.DragTo({start.x + 30.25F, start.y - 10}, true);
    desk.LetGo();
    EXPECT_EQ(2u, desk.Model().Done());
    EXPECT_EQ(before.X + 40.25F, Entry(0).X);
    EXPECT_EQ(before.Y, Entry(0).Y);
}

TEST_F(DeskTest, OthersAreShownWhereTheGameHasThem) {
    desk.Choose(16, 16);
    desk.ChooseTime(160);
    gameStart = {};
    LoadStage();
    for (int frame = 0; frame < 160; ++frame) {
        StageScript();
        MoveEnemy();
    }
    std::vector<DrawnPoint> there, drawn;
    for (int i = 0; i <= game.EnemyMax; ++i) {
        if (game.Enemy[i].State == 1) there.push_back({game.Enemy[i].X, game.Enemy[i].Y});
    }
    for (const Shape& shape : desk.Picture().shapes) {
        const auto* sprite = std::get_if<DrawnSprite>(&shape);
        if (sprite && sprite->strength != 0.5F) drawn.push_back(sprite->corner);  // that one is the entry's own place
    }
    const auto order = [](DrawnPoint a, DrawnPoint b) { return std::pair(a.x, a.y) < std::pair(b.x, b.y); };
    std::ranges::sort(there, order);
    std::ranges::sort(drawn, order);
    ASSERT_LT(10u, there.size());
    ASSERT_EQ(there.size(), drawn.size());
    for (std::size_t i = 0; i < there.size(); ++i) {
        EXPECT_EQ(there[i].x, drawn[i].x);
        EXPECT_EQ(there[i].y, drawn[i].y);
    }
}

// A child edits and is killed; afterwards everything is there but perhaps the action under way.
TEST_F(DeskTest, TwoHundredKillsLoseAtMostTheLastAction) {
    constexpr int kKills = 200, kActions = 240;
    const auto act = [this](int i) { Store(DeskPlace::entry, "Power", std::to_string(1 + i % 250)); };
    std::mt19937 random(3);
    for (int kill = 0; kill < kKills; ++kill) {
        int done[2];
        ASSERT_EQ(0, pipe(done));
        const pid_t child = fork();
        if (child == 0) {
            for (int i = 0; i < kActions; ++i) {
                desk.Choose(i, i);
                act(i);
                if (write(done[1], &i, sizeof i) != sizeof i) break;
            }
            pause();
        }
        usleep(1000 + static_cast<useconds_t>(random() % 12000));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(done[1]);
        int last = -1;
        for (int i = 0; read(done[0], &i, sizeof i) == sizeof i;) last = i;
        close(done[0]);
        Bench later;
        ASSERT_EQ("", later.Open());
        const LeftOver left = ReadJournal(later.Working());
        ASSERT_EQ("", left.problem);
        for (int i = 0; i <= last && i < static_cast<int>(left.changes.size()); ++i) {
            const auto& change = std::get<RecordChange<StageDataType>>(left.changes[static_cast<std::size_t>(i)]);
            EXPECT_TRUE(change.index == i && change.after.Power == 1 + i % 250) << i;
        }
        const auto found = static_cast<int>(left.changes.size());
        EXPECT_TRUE(found == last + 1 || found == last + 2) << found << " of " << last + 1;
        std::filesystem::remove(std::filesystem::path(ProgramFolder()) / "Bench.journal");
    }
    WriteJournal(Differences(*Now(), *Changed()));
    Desk later;
    ASSERT_EQ("", later.Open());
    EXPECT_FALSE(later.Offer().text.empty());
    later.Answer(true);
    EXPECT_TRUE(later.Offer().text.empty());
    EXPECT_EQ(9, later.Model().Working().Stages[3][5].Power);
    Desk last;
    ASSERT_EQ("", last.Open());
    EXPECT_FALSE(last.Offer().text.empty()) << "taken, but still not saved";
    last.Answer(false);
    EXPECT_TRUE(ReadJournal(last.Model().Working()).changes.empty()) << "offered once";
}

class TryOutTest : public DeskTest {
  protected:
    TryOutTest() {
        WatchTryOuts({[this](int table) { desk.TableLoaded(table); }, [this] { ++ended; }});
    }
    ~TryOutTest() override { keepBestScores = true; }

    // The title, until `yield` at one of its yields throws.
    void Play(std::function<void()> yield) {
        host.onYield = std::move(yield);
        EXPECT_THROW(TitleScreen(), EndProgram);
        host.onYield = nullptr;
    }

    int ended = 0;
};

TEST_F(TryOutTest, AGameFromAnEntryLeavesEverythingAsItWas) {
    desk.ChooseTable(1);
    desk.Choose(20, 20);
    EXPECT_EQ("", Store(DeskPlace::start, "Energy", "4"));
    EXPECT_EQ("", Store(DeskPlace::start, "Level", "5"));
    EXPECT_EQ("", Store(DeskPlace::start, "Seed", "77"));
    EXPECT_EQ("", Store(DeskPlace::entry, "Power", "99"));
    StartTryOut(desk.Start());
    const auto scores = ReadFolderFile("Scores.DAT").bytes;
    int frames = 0, atTitle = 0;
    gameWatcher.FrameDone = [] { game.Score = game.HiScore = 99'999; };
    Play([&] {
        if (MainForm.MENU100.Enabled) {
            if (frames > 0 && ++atTitle > 1) throw EndProgram{};
            return;
        }
        if (++frames == 1) {
            EXPECT_EQ(2, game.StageNo);
            EXPECT_LE(20, game.StageIndex);
            EXPECT_EQ(4, game.MyPower);
            EXPECT_EQ(5, game.Level);
            EXPECT_EQ(99, game.StageData[20].Power) << "what is not saved is played";
        }
        if (frames == 5) headless::Tap(VK_ESCAPE);
    });
    EXPECT_EQ(1, ended);
    EXPECT_EQ(0, game.DigestMode);
    EXPECT_TRUE(MainForm.MENU102.Checked);
    EXPECT_EQ(GameStart{}, gameStart);
    EXPECT_FALSE(FixedSeed());
    EXPECT_TRUE(keepBestScores);
    EXPECT_EQ(scores, ReadFolderFile("Scores.DAT").bytes) << "such a game has no best score";
}

// Without a change the past goes as it went, key for key; with a key of the author's own it is left.
TEST_F(TryOutTest, TheLastTenSecondsGoTheSameWayAgain) {
    StartTryOut({.table = 0, .entry = 10, .seed = 5});
    std::vector<std::uint64_t> digests;
    int frames = 0, again = 0;
    gameWatcher.FrameDone = [] { KeepMoment(); };
    Play([&] {
        if (MainForm.MENU100.Enabled) {
            if (frames > 700) throw EndProgram{};
            return;
        }
        ++frames;
        const GameState state = game;
        game.FrameStart = game.FrameEnd = game.FrameWork = game.FrameTime = game.Fps = game.FpsNext = game.FpsNow = 0;
        const std::uint64_t digest = DigestState(game);
        game = state;
        if (frames <= 500) {
            digests.push_back(digest);
            if (frames % 7 == 0) headless::KeyDown(frames % 2 ? VK_LEFT : VK_RIGHT);
            if (frames % 7 == 4) headless::KeyUp(frames % 2 ? VK_RIGHT : VK_LEFT);
            if (frames == 500) EXPECT_TRUE(PlayAgain());
            return;
        }
        if (frames == 501) again = static_cast<int>(std::ranges::find(digests, digest) - digests.begin());
        if (frames <= 700) EXPECT_EQ(digests[static_cast<std::size_t>(again + frames - 501)], digest) << frames;
        if (frames == 710) headless::Tap(VK_ESCAPE);
        if (frames < 712) return;
        ADD_FAILURE() << "Esc of the author's own leaves the past and the game";
        throw EndProgram{};
    });
    EXPECT_TRUE(again >= 500 - 288 && again <= 500 - 256) << again;
}

TEST(PlaceTest, NamesStageAndEntry) {
    TryOut place;
    EXPECT_EQ("", ReadPlace("stage3:512", place));
    EXPECT_EQ(2, place.table);
    EXPECT_EQ(512, place.entry);
    for (const char* wrong : {"", "stage3", "stage3:", "stage3:513", "stage3:-1", "stage9:0", "stage1:1.2.3"})
        EXPECT_NE("", ReadPlace(wrong, place)) << wrong;
}

}  // namespace
