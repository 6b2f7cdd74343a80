// The keyboard under X while other windows and menus take it away and give it back. The program runs in the main thread
// as it always does; a second thread is the user, who goes by what the program has done and never by the clock.
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "desktop_test.h"
#include "platform/events.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"
#include "x_client.h"

namespace {

struct XKey {
    std::uint32_t symbol;
    int code;
};
constexpr XKey kLeft{0xFF51, VK_LEFT}, kUp{0xFF52, VK_UP}, kEscape{0xFF1B, VK_ESCAPE};
constexpr std::uint32_t kAlt = 0xFFE9, kReturn = 0xFF0D;

// Counts the repeats of keys and the clicks, whoever gets them.
struct Repeats : QObject {
    std::atomic<int> seen = 0, clicks = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool press = event->type() == QEvent::KeyPress && watched->isWindowType();
        if (event->type() == QEvent::MouseButtonRelease && watched->isWindowType()) ++clicks;
        if (press && static_cast<QKeyEvent*>(event)->isAutoRepeat()) ++seen;
        return false;
    }
};

// Runs `what` in the program's thread, wherever that waits, and returns its answer.
template <typename Function>
auto InProgram(Function what) {
    decltype(what()) answer{};
    QMetaObject::invokeMethod(
        qApp, [&] { answer = what(); }, Qt::BlockingQueuedConnection);
    return answer;
}

bool Until(const std::function<bool()>& condition) {
    constexpr int kTries = 4000;
    for (int i = 0; i < kTries; ++i) {
        if (InProgram(condition)) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
}

bool IsDown(const XKey& key) {
    const auto held = HeldKeys();
    return std::any_of(held.begin(), held.end(),
                       [&](const HeldKey& each) { return each.code == key.code && each.down; });
}

desktop::MainWindow& Window() {
    return *desktop::TheHost().window;
}

class ManagerIsThere : public testing::Environment {
    void SetUp() override { ASSERT_TRUE(XClient().WaitForWindowManager()); }
};
const auto* managerIsThere = testing::AddGlobalTestEnvironment(new ManagerIsThere);

class XKeyboardTest : public DesktopTest {
  protected:
    XKeyboardTest() {
        SetProgramFolder(TARNVEIL_ASSETS "/data");
        EnableAuthorMenus();
        qApp->installEventFilter(&repeats);
    }

    // Plays the user's part while the program yields as its loops do.
    void WhileTheProgramRuns(const std::function<void()>& part) {
        std::atomic<bool> done = false;
        std::thread thread([&] {
            GoElsewhere();  // there and back: a window manager is then done with the new windows
            user.GiveKeyboard(windowId);
            if (GoesOn()) {
                part();
            } else {
                ADD_FAILURE() << "the game does not get the keyboard";
            }
            done = true;
        });
        while (!done) Yield();
        thread.join();
    }
    void Yield() {
        DoEvents();
        ++yields;
        if (const auto order = std::exchange(asked, nullptr)) order();
    }

    // The program yields and has the keyboard, also as the X server sees it.
    bool GoesOn() {
        const int start = yields;
        return Until([&] { return yields > start + 3 && View().hasFocus() && user.KeyboardIsIn(windowId); });
    }
    void Hold(const XKey& key) {
        user.Key(key.symbol, true);
        EXPECT_TRUE(Until([&] { return IsDown(key); }));
    }
    void WaitForRepeats() {
        const int start = repeats.seen;
        if (repeating) EXPECT_TRUE(Until([&] { return repeats.seen > start + 2; })) << "no repeats";
    }
    void LetGo(const XKey& key) {
        user.Key(key.symbol, false);
        EXPECT_TRUE(Until([&] { return !IsDown(key); })) << "stuck";
    }

    // In the main window, whose place the window manager may have changed.
    static QPoint ItemOfBar(int index) {
        auto& bar = *Window().findChild<QMenuBar*>();
        return bar.mapTo(&Window(), bar.actionGeometry(bar.actions()[index]).center());
    }
    QPoint PlaceOfItem(int index) {
        const auto [x, y] = user.PlaceOf(windowId);
        return QPoint(x, y) + InProgram([&] { return ItemOfBar(index); });
    }
    void OpenMenu(int index) {
        EXPECT_TRUE(Until([] { return Window().isActiveWindow(); }));
        const QPoint place = PlaceOfItem(index);
        user.Click(place.x(), place.y());
        EXPECT_TRUE(Until([] { return QApplication::activePopupWidget() != nullptr; })) << "menu " << index;
    }
    void CloseWith(std::uint32_t symbol) {
        user.Tap(symbol);
        EXPECT_TRUE(Until([] { return !QApplication::activePopupWidget() && !QApplication::activeModalWidget(); }));
        InProgram([] { return QGuiApplication::sync(), 0; });  // a window manager hears of it before what follows
    }
    void Ask(std::function<void()> order) {
        InProgram([&] { return asked = std::move(order), 0; });
        EXPECT_TRUE(Until([] {
            const QWidget* modal = QApplication::activeModalWidget();
            return modal && modal == QApplication::activeWindow();
        }));
    }
    void GoElsewhere() {
        user.TakeKeyboard();
        EXPECT_TRUE(Until([] { return !QApplication::activeWindow(); }));
    }

    // What takes the keyboard and what gives it back.
    struct Way {
        std::string name;
        std::function<void()> leave, back;
    };
    std::vector<Way> Ways() {
        // Whom a window manager gives the keyboard when a window closes is its own affair: the user asks for it.
        const auto closeWith = [this](std::uint32_t symbol) {
            CloseWith(symbol);
            user.GiveKeyboard(windowId);
        };
        std::vector<Way> ways{
            {"another window", [this] { GoElsewhere(); }, [this] { user.GiveKeyboard(windowId); }},
            {"a message box", [this] { Ask([] { MsgBox("text", "caption"); }); }, [=] { closeWith(kReturn); }},
            {"an editor", [this] { Ask(MainForm.Menu202.Click); }, [=] { closeWith(kEscape.symbol); }}};
        constexpr int kMenus = 5;
        for (int i = 0; i < kMenus; ++i) {
            ways.push_back(
                {"menu " + std::to_string(i), [this, i] { OpenMenu(i); }, [this] { CloseWith(kEscape.symbol); }});
        }
        return ways;
    }
    void ForEachWay(const std::function<void(const Way&)>& check) {
        WhileTheProgramRuns([&] {
            for (const bool on : {false, true}) {
                user.AutoRepeat(repeating = on);
                for (const Way& way : Ways()) {
                    SCOPED_TRACE(way.name + (repeating ? ", keys repeat" : ""));
                    check(way);
                    EXPECT_TRUE(GoesOn());
                    if (HasFailure()) return;
                }
            }
        });
    }

    XClient user;
    const unsigned long windowId = Window().winId();
    Repeats repeats;
    bool repeating = true;
    std::atomic<int> yields = 0;
    std::function<void()> asked;  // what the program does after its next yield
};

TEST_F(XKeyboardTest, HeldKeysLiveOn) {
    ForEachWay([this](const Way& way) {
        Hold(kUp);
        Hold(kLeft);
        WaitForRepeats();
        way.leave();
        way.back();
        EXPECT_TRUE(GoesOn());
        EXPECT_TRUE(Until([] { return IsDown(kUp) && IsDown(kLeft); })) << "dead";
        LetGo(kLeft);
        EXPECT_TRUE(InProgram([] { return IsDown(kUp); }));
        LetGo(kUp);
    });
}

TEST_F(XKeyboardTest, AKeyThatWasLetGoElsewhereIsUpAndCanBePressedAnew) {
    ForEachWay([this](const Way& way) {
        Hold(kLeft);
        WaitForRepeats();
        way.leave();
        user.Key(kLeft.symbol, false);
        way.back();
        EXPECT_TRUE(GoesOn());
        EXPECT_FALSE(InProgram([] { return IsDown(kLeft); })) << "stuck";
        Hold(kLeft);
        LetGo(kLeft);
    });
}

TEST_F(XKeyboardTest, AHeldEscThatClosesAMenuDoesNotLeaveTheGame) {
    WhileTheProgramRuns([this] {
        for (const bool on : {false, true}) {
            user.AutoRepeat(repeating = on);
            OpenMenu(1);
            user.Key(kEscape.symbol, true);
            EXPECT_TRUE(GoesOn());
            WaitForRepeats();
            EXPECT_FALSE(InProgram([] { return IsDown(kEscape); }));
            user.Key(kEscape.symbol, false);
            EXPECT_TRUE(GoesOn());  // a press at once would look like a repeat
            Hold(kEscape);
            LetGo(kEscape);
        }
    });
}

TEST_F(XKeyboardTest, TheGameGoesOnAfterTheMenuBarHadTheKeyboard) {
    WhileTheProgramRuns([this] {
        const auto mark = [this] {
            EXPECT_TRUE(Until([] { return Window().isActiveWindow(); }));
            user.Tap(kAlt);
            EXPECT_TRUE(Until([] { return Window().Menus().IsOpen(); }));
        };
        const auto awayAndBack = [this] {
            GoElsewhere();
            user.GiveKeyboard(windowId);
        };
        mark();
        awayAndBack();
        EXPECT_TRUE(GoesOn()) << "Alt, away and back";
        OpenMenu(0);
        CloseWith(kEscape.symbol);
        EXPECT_TRUE(GoesOn()) << "one Esc";
        awayAndBack();
        EXPECT_TRUE(GoesOn()) << "a menu, away and back";
        if (user.HasWindowManager()) {
            mark();
            user.Minimise(windowId);
            EXPECT_TRUE(Until([] { return !QApplication::activeWindow(); }));
            user.GiveKeyboard(windowId);
            EXPECT_TRUE(GoesOn()) << "Alt, minimised and restored";
        }
    });
}

TEST_F(XKeyboardTest, ClicksOnMenusWhileTheProgramIsBusyFreezeNothing) {
    WhileTheProgramRuns([this] {
        const std::vector places{PlaceOfItem(0), PlaceOfItem(1), PlaceOfItem(2)};
        InProgram([&] {  // the program is stopped meanwhile
            for (const QPoint& place : places) user.Click(place.x(), place.y());
            user.Tap(kEscape.symbol);
            return 0;
        });
        EXPECT_TRUE(Until([&, count = static_cast<int>(places.size())] { return repeats.clicks >= count; }));
        const auto isOpen = [] { return Window().Menus().IsOpen(); };
        for (std::size_t i = 0; i < places.size() && InProgram(isOpen); ++i) {
            user.Tap(kEscape.symbol);
            GoesOn();
        }
        EXPECT_TRUE(GoesOn());
    });
}

}  // namespace
