// The pause: when it comes, how it ends, and that the game does not notice it.
#include <QtCore/QElapsedTimer>

#include "desktop_test.h"
#include "host/clock.h"
#include "platform/events.h"
#include "toolkit/input_state.h"
#include "toolkit/surface.h"

using Kind = InputEvent::Kind;

namespace {

class PauseTest : public DesktopTest {
  protected:
    PauseTest() { MainForm.MENU100.Enabled = false; }  // as while a game runs

    // A yield in which P is pressed first; `part` runs while the game stands still.
    std::vector<InputEvent> PumpPaused(std::function<void()> part) {
        QTest::keyClick(&View(), Qt::Key_P);
        Later(kAfter, std::move(part));
        waited.start();
        return Pump();
    }
    void Press(Qt::Key key) { QTest::keyPress(&View(), key); }
    void Release(Qt::Key key) { QTest::keyRelease(&View(), key); }
    QColor Middle() { return Screen().pixelColor(View().pos() + QPoint(160, 300)); }

    static constexpr int kAfter = 60, kStill = 1000;  // ms
    QElapsedTimer waited;
};

TEST_F(PauseTest, StandsStillUntilAKeyOfTheGameAndOneSecondLonger) {
    Cls(MainForm.Crt);
    for (auto& pixel : MainForm.Crt.image) pixel = kWhite;
    QColor paused, still;
    Later(30, [&] { paused = Middle(); });
    const std::uint32_t clock = timeGetTime();
    const auto events = PumpPaused([&] {
        Later(500, [&] { still = Middle(); });
        QTest::keyClick(&View(), Qt::Key_A);  // no key of the game
        Later(100, [&] { QTest::keyClick(&View(), Qt::Key_X); });
    });
    EXPECT_GE(waited.elapsed(), kAfter + 100 + kStill - 5);
    EXPECT_LT(timeGetTime() - clock, 200u) << "the game's clock stands still";
    EXPECT_NE(QColor(Qt::white), paused) << "the pause is seen";
    EXPECT_EQ(QColor(Qt::white), still) << "the picture alone";
    EXPECT_TRUE(events.empty()) << "a key that was let go is no news";
}

TEST_F(PauseTest, KeysThatAreStillHeldAreNoNews) {
    Press(Qt::Key_Left);
    Press(Qt::Key_X);
    DoEvents();
    const auto events = PumpPaused([&] {
        Release(Qt::Key_Left);
        Press(Qt::Key_Up);
    });
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyUp, VK_LEFT}, {Kind::keyDown, VK_UP}}), events);
}

TEST_F(PauseTest, WhatHappenedBeforeItInTheSameYieldIsKept) {
    Press(Qt::Key_Right);
    const auto events = PumpPaused([&] {
        Release(Qt::Key_Right);
        QTest::mouseClick(&View(), Qt::LeftButton);
    });
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_RIGHT}, {Kind::keyUp, VK_RIGHT}}), events);
}

TEST_F(PauseTest, PEndsItTooAndPausesAgainInItsLastSecond) {
    PumpPaused([&] {
        QTest::keyClick(&View(), Qt::Key_Pause);
        Later(300, [&] { QTest::keyClick(&View(), Qt::Key_P); });
        Later(900, [&] { QTest::keyClick(&View(), Qt::Key_P); });
    });
    EXPECT_GE(waited.elapsed(), kAfter + 900 + kStill - 5);
}

TEST_F(PauseTest, ClosingEndsItAtOnceAndAMenuItemIsCarriedOutAfterIt) {
    auto events = PumpPaused([] { desktop::TheHost().window->close(); });
    EXPECT_LT(waited.elapsed(), 500);
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ(Kind::closeWindow, events[0].kind);
    events = PumpPaused([this] { Menus().ActionOf("Menu301")->trigger(); });
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ("Menu301", events[0].item);
}

TEST_F(PauseTest, OutsideAGameThereIsNone) {
    MainForm.MENU100.Enabled = true;
    waited.start();
    QTest::keyClick(&View(), Qt::Key_P);
    EXPECT_TRUE(Pump().empty());
    MainForm.MENU100.Enabled = false;
    Pump();
    EXPECT_LT(waited.elapsed(), 500);
}

}  // namespace
