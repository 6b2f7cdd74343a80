// A new author's way through the bench, with mouse and keyboard on a real window system: a wave of five of a new kind
// on a new path, tried, changed twice, one change taken back, saved, and seen again after another start. The program
// runs in the main thread; a second thread is the author. With TARNVEIL_WALK_PICTURES=DIR it leaves pictures for the
// documents.
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <atomic>
#include <cstdlib>
#include <thread>

#include "author/tables.h"
#include "bench_window/bench_window.h"
#include "combat/enemy_move.h"
#include "desktop_test.h"
#include "platform/events.h"
#include "recording/forget_program.h"
#include "shell/main_routine.h"
#include "shell/title_screen.h"
#include "stage/stage_script.h"
#include "toolkit/folder.h"
#include "x_client.h"

namespace {

constexpr std::uint32_t kReturn = 0xFF0D, kEscape = 0xFF1B, kF1 = 0xFFBE, kControl = 0xFFE3, kAlt = 0xFFE9;

// The tables of an author who has just begun: one kind, three of it, the end.
std::unique_ptr<Tables> FirstTables() {
    auto tables = std::make_unique<Tables>();
    tables->EnemyData[0] = {0, 0, 32, 32, 0, 0, 10};
    for (int i = 0; i < 200; ++i) tables->EneMove[0][i] = {0, 3, 0, 0};
    tables->EneMove[0][60].Flag = 1;
    tables->EneMove[0][200].Flag = kEndOfEnemy;
    for (auto& table : tables->Stages) {
        for (int i = 0; i < 3; ++i) table[i] = {static_cast<Single>(60 + 80 * i), -32, 0, 40, 1};
        table[3] = {0, 0, 254, 150, 0};
        table[4].No = kStageClear;
        table[5] = {0, 0, 254, 130, 0};
        table[6].No = kNextStage;
    }
    return tables;
}

class BenchWalk : public testing::Test {
  protected:
    BenchWalk() {
        SetProgramFolder(folder_.path.string());
        EXPECT_EQ("", WriteTables(folder_.path.string(), *FirstTables()));
        EXPECT_TRUE(client_.WaitForWindowManager());
    }
    ~BenchWalk() override { SetProgramFolder("."); }

    // The program from its start to its end, as main runs it, with the author at it.
    void RunProgram(const std::function<void()>& author) {
        ForgetProgram();
        MainForm.Menu002.Checked = true;
        desktop::TheHost().extras.clear();
        auto bench = std::make_unique<bench_window::BenchWindow>(desktop::TheHost());
        bench_ = bench.get();
        std::thread user;
        try {
            StartProgram();
            user = std::thread([&] {
                try {
                    author();
                } catch (const GivenUp&) {
                    Close();
                }
            });
            TitleScreen();
        } catch (const EndProgram&) {
        }
        while (!left_) QTest::qWait(10);  // the author may still ask
        user.join();
        left_ = false;
        bench.reset();
        desktop::TheHost().window.reset();
        desktop::TheHost().events.clear();
    }

    template <typename Function>
    static auto InProgram(Function what) {
        decltype(what()) answer{};
        QMetaObject::invokeMethod(
            qApp, [&] { answer = what(); }, Qt::BlockingQueuedConnection);
        return answer;
    }
    struct GivenUp {};
    void Until(const std::function<bool()>& condition) {
        constexpr int kTries = 1500;
        for (int i = 0; i < kTries; ++i) {
            if (InProgram(condition)) return;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        ADD_FAILURE() << "in vain after " << actions;
        throw GivenUp();
    }

    // What the author does; each is one action.
    void Tap(std::uint32_t key) { ++actions, client_.Tap(key); }
    void TapWith(std::uint32_t shift, std::uint32_t key) {
        ++actions;
        client_.Key(shift, true);
        client_.Tap(key);
        client_.Key(shift, false);
    }
    void Click(const char* button) { ClickAt(PlaceOf<QPushButton>(button)); }
    void ClickAt(QPoint place) { ++actions, client_.Click(place.x(), place.y()); }
    void Fill(const char* field, const std::string& text) {
        const QPoint place = PlaceOf<QLineEdit>(field);
        ++actions;
        client_.Click(place.x(), place.y());
        Until([=, this] { return bench_->findChild<QLineEdit*>(field)->hasFocus(); });
        client_.Key(kControl, true);
        client_.Tap('a');
        client_.Key(kControl, false);
        for (const char c : text) client_.Tap(static_cast<std::uint32_t>(c));
        client_.Tap(kReturn);
    }
    void DragInField(const std::vector<DrawnPoint>& way) {
        std::vector<std::pair<int, int>> places;
        for (const DrawnPoint& point : way) {
            const QPoint at = OnScreen([&] {
                const auto* view = &bench_->Field();
                return view->mapTo(bench_, view->PlaceOf(point).toPoint());
            });
            places.emplace_back(at.x(), at.y());
        }
        ++actions;
        client_.Drag(places);
    }

    // Where a point of a widget stands on the screen by now; the window manager may have moved the bench.
    QPoint OnScreen(const std::function<QPoint()>& inBench) {
        const auto id = InProgram([this] { return static_cast<unsigned long>(bench_->winId()); });
        const auto [x, y] = client_.PlaceOf(id);
        return QPoint(x, y) + InProgram(inBench);
    }
    template <class Widget>
    QPoint PlaceOf(const char* name) {
        return OnScreen([=, this] {
            auto* widget = bench_->findChild<Widget*>(name);
            return widget->mapTo(bench_, widget->rect().center());
        });
    }
    QPoint RowAt(int row) {
        return OnScreen([=, this] {
            auto* list = bench_->findChild<QTableView*>();
            const QPoint inList = list->visualRect(list->model()->index(row, 3)).center();
            return list->viewport()->mapTo(bench_, inList);
        });
    }
    void BenchIsInFront() {
        Until([this] { return bench_->isVisible() && bench_->isActiveWindow(); });
    }
    void GameIsInFront() {
        Until([] { return desktop::TheHost().window->isActiveWindow(); });
    }
    Desk& TheDesk() { return bench_->TheDesk(); }
    const Tables& Now() { return TheDesk().Model().Working(); }
    void Picture(const char* name) {
        const char* folder = std::getenv("TARNVEIL_WALK_PICTURES");
        if (!folder) return;
        InProgram([=, this] { return bench_->grab().save(QString("%1/%2.png").arg(folder, name)); });
    }
    void Leave() { left_ = true; }
    void Close() {
        QMetaObject::invokeMethod(qApp, [] { desktop::TheHost().window->close(); });
        Leave();
    }

    int actions = 0;
    bench_window::BenchWindow* bench_ = nullptr;

  private:
    TemporaryFolder folder_;
    XClient client_;
    std::atomic<bool> left_ = false;
};

// A hand's way from the upper left in a bow to the lower right.
std::vector<DrawnPoint> Bow() {
    std::vector<DrawnPoint> way;
    for (int i = 0; i <= 40; ++i) {
        const float t = static_cast<float>(i) / 40;
        way.push_back({30 + 250 * t * t, -20 + 420 * t});
    }
    return way;
}

TEST_F(BenchWalk, AWaveInTwentyFiveActions) {
    Single dragged = 0;
    RunProgram([&] {
        GameIsInFront();
        Tap(kF1 + 8);
        BenchIsInFront();
        ClickAt(RowAt(3));
        Until([&] { return TheDesk().Chosen().first == 3; });
        Click("Insert");
        Click("New kind");
        Until([&] { return Now().Stages[0][3].No == 1; });
        Fill("Counter", "60");
        Fill("Power", "2");
        Click("Draw path");
        Until([&] { return TheDesk().DrawsNextDrag(); });
        DragInField(Bow());
        Until([&] { return Now().EneMove[1][0].DY > 0 && !TheDesk().DrawsNextDrag(); });
        Fill("Across", "25");
        Click("Wave");
        Until([&] { return Now().Stages[0][7].No == 1 && Now().Stages[0][7].Counter == 12; });
        Picture("bench-wave");
        Tap(kF1 + 4);
        const auto flying = [] {
            return std::ranges::count_if(game.Enemy, [](const EnemyType& e) { return e.State == 1 && e.Kind == 1; });
        };
        Until([&] { return flying() == 5; });
        Tap(kEscape);
        BenchIsInFront();
        const StageDataType before = Now().Stages[0][3];
        const DrawnPoint start{before.X + 4, before.Y + 4};
        ClickAt(RowAt(3));
        Until([&] { return TheDesk().Chosen().last == 3; });
        DragInField({start, {start.x + 10, start.y}, {start.x + 20, start.y}, {start.x + 20, start.y}});
        Until([&] { return Now().Stages[0][3].X > before.X + 15; });
        dragged = Now().Stages[0][3].X;
        Fill("Counter", "90");
        Until([&] { return Now().Stages[0][3].Counter == 90; });
        Tap(kF1 + 6);
        Until([&] { return Now().Stages[0][3].Counter == 60; });
        TapWith(kControl, 's');
        Until([&] { return TheDesk().Model().Unsaved().empty(); });
        Tap(kF1 + 8);
        GameIsInFront();
        TapWith(kAlt, kF1 + 3);
        Leave();
    });
    RunProgram([&] {
        GameIsInFront();
        Tap(kF1 + 8);
        BenchIsInFront();
        ClickAt(RowAt(5));
        Until([&] { return TheDesk().Chosen().first == 5; });
        EXPECT_EQ(dragged, Now().Stages[0][3].X);
        EXPECT_EQ(60, Now().Stages[0][3].Counter);
        for (int i = 3; i <= 7; ++i) EXPECT_EQ(1, Now().Stages[0][i].No);
        EXPECT_TRUE(TheDesk().Offer().text.empty());
        Picture("bench-again");
        Close();
    });
    EXPECT_LE(actions, 25);
    RecordProperty("actions", actions);
}

}  // namespace
