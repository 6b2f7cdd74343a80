// The main window: its picture, its menus, its end.
#include <QtCore/QElapsedTimer>
#include <QtGui/QScreen>
#include <QtWidgets/QMenu>
#include <algorithm>

#include "desktop_test.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "shell/title_screen.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"
#include "toolkit/surface.h"

using Kind = InputEvent::Kind;

namespace {

class MainWindowTest : public DesktopTest {
  protected:
    static desktop::MainWindow& Window() { return *desktop::TheHost().window; }
    // What the window shows of the picture at (x, y).
    QColor ShownAt(int x, int y) { return Screen().pixelColor(View().pos() + QPoint(x + kBorder, y + kBorder)); }
};

TEST_F(MainWindowTest, ShowsTheWholePictureOneToOneInASunkenBorder) {
    EXPECT_EQ(QSize(324, 484), View().size());
    EXPECT_EQ(QString("ＴＡＲＮＶＥＩＬ　Ｖｅｒｓｉｏｎ１．０"), Window().windowTitle());
    EXPECT_TRUE(Window().rect().contains(View().geometry()));
    SetPixelV(MainForm.Crt, 0, 0, RGB(1, 2, 3));
    SetPixelV(MainForm.Crt, 319, 479, RGB(250, 128, 7));
    Pump();
    EXPECT_EQ(QColor(1, 2, 3), ShownAt(0, 0));
    EXPECT_EQ(QColor(250, 128, 7), ShownAt(319, 479));
    EXPECT_EQ(QColor(128, 128, 128), ShownAt(-2, -2)) << "the border is sunken: its upper left is dark";
    EXPECT_EQ(QColor(Qt::white), ShownAt(321, 481));
}

TEST_F(MainWindowTest, IsOfFixedSizeAndInTheMiddleOfTheScreen) {
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
    EXPECT_FALSE(Window().windowFlags() & (Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint));
    const QPoint off = Window().frameGeometry().center() - Window().screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_EQ(QSize(32, 32), Window().windowIcon().availableSizes().value(0));
}

TEST_F(MainWindowTest, NeverShowsAHalfDrawnFrame) {
    Pump();
    SetPixelV(MainForm.Crt, 10, 10, kWhite);
    EXPECT_EQ(QColor(Qt::black), ShownAt(10, 10)) << "in the middle of a frame";
    Pump();
    EXPECT_EQ(QColor(Qt::white), ShownAt(10, 10));
}

TEST_F(MainWindowTest, ShowNowShowsAtOnceAndForOneRefresh) {
    QTest::keyPress(&View(), Qt::Key_Space);
    SetPixelV(MainForm.Crt, 5, 6, kWhite);
    const qreal refresh = 1000 / Window().screen()->refreshRate();
    QElapsedTimer clock;
    clock.start();
    ShowNow(MainForm.Crt);
    EXPECT_GE(static_cast<double>(clock.nsecsElapsed()) / 1e6, refresh - 0.1);
    EXPECT_EQ(QColor(Qt::white), ShownAt(5, 6));
    EXPECT_EQ(0, GetAsyncKeyState(VK_SPACE)) << "no events are taken";
    EXPECT_EQ(1u, Pump().size());
}

TEST_F(MainWindowTest, ShowNowOfAHiddenSurfaceDoesNothing) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 100; ++i) ShowNow(MainForm.B_Crt);
    EXPECT_LT(clock.elapsed(), 100);
}

TEST_F(MainWindowTest, TheTitleSlidesInVisibly) {
    QElapsedTimer clock;
    clock.start();
    DrawTitle();
    EXPECT_GE(clock.elapsed(), 81 * 1000 / Window().screen()->refreshRate() - 1);
}

TEST_F(MainWindowTest, ClosingEndsTheProgramAtTheNextYield) {
    EXPECT_FALSE(Window().close()) << "the window stays until the program ends";
    EXPECT_TRUE(Window().isVisible());
    EXPECT_THROW(DoEvents(), EndProgram);
}

TEST_F(MainWindowTest, ClosingDuringAGameUnwindsAllLoops) {
    static int frames;
    frames = 0;
    gameWatcher.FrameDone = [] {
        if (++frames == 3) desktop::TheHost().window->close();
    };
    const TemporaryFolder folder(std::filesystem::path(TARNVEIL_ASSETS) / "data");
    SetProgramFolder(folder.path.string());
    Later(1, [this] { QTest::keyPress(&View(), Qt::Key_Space); });
    EXPECT_THROW(TitleScreen(), EndProgram);
    gameWatcher = {};
    SetProgramFolder(".");
    EXPECT_FALSE(std::filesystem::exists(folder.path / "Scores.DAT")) << "nothing is saved on the way out";
    EXPECT_EQ(3, frames);
}

class MenuTest : public DesktopTest {
  protected:
    QAction& Item(const char* name) { return *Menus().ActionOf(name); }
    // The user opens the popup, points at the item and clicks, while the program waits in its yield.
    std::vector<InputEvent> Choose(const char* popup, const char* item) {
        QMenu* menu = Item(popup).menu();
        Later(30, [menu, this, item] {
            const QPoint place = menu->actionGeometry(&Item(item)).center();
            QTest::mouseMove(menu->windowHandle(), place);
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, place);
        });
        QTest::mouseMove(View().window()->windowHandle(), QPoint(200, 200));  // a pointer is somewhere before it points
        menu->popup(QPoint(0, 0));
        return Pump();
    }
};

TEST_F(MenuTest, HasThePopupsAndItemsOfTheModelInOrder) {
    QStringList bar;
    for (QAction* popup : desktop::TheHost().window->findChild<QMenuBar*>()->actions()) {
        bar += popup->text();
        for (QAction* item : popup->menu()->actions()) bar += item->isSeparator() ? QString("-") : item->text();
    }
    QStringList model;
    for (const auto member : kMenuBar) model += (MainForm.*member).Caption;
    EXPECT_EQ(model, bar);
}

TEST_F(MenuTest, ShowsWhatTheModelSays) {
    EXPECT_TRUE(Item("Menu002").isChecked());
    EXPECT_FALSE(Item("Menu008").isChecked());
    EXPECT_FALSE(Item("Menu003").isEnabled());
    EXPECT_FALSE(Item("Menu200").isEnabled());
    MainForm.Menu002.Checked = false;
    MainForm.Menu008.Checked = true;
    MainForm.Menu002.Caption = "other";
    MainForm.MENU100.Enabled = false;
    EnableAuthorMenus();
    Pump();
    EXPECT_FALSE(Item("Menu002").isChecked());
    EXPECT_TRUE(Item("Menu008").isChecked());
    EXPECT_EQ(QString("other"), Item("Menu002").text());
    EXPECT_FALSE(Item("MENU100").isEnabled());
    EXPECT_TRUE(Item("Menu003").isEnabled());
    EXPECT_TRUE(Item("Menu200").isEnabled());
}

TEST_F(MenuTest, AClickIsReportedAndChangesNothingByItself) {
    auto events = Choose("Menu001", "Menu002");
    std::erase_if(events, [](const InputEvent& event) { return event.kind == Kind::allKeysUp; });  // before or after
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ(Kind::menu, events.back().kind);
    EXPECT_EQ("Menu002", events.back().item);
    EXPECT_TRUE(MainForm.Menu002.Checked);
    EXPECT_TRUE(Item("Menu002").isChecked());
}

TEST_F(MenuTest, ARadioItemThatIsChosenAgainStaysChecked) {
    Choose("MENU100", "MENU102");
    EXPECT_TRUE(Item("MENU102").isChecked());
    EXPECT_TRUE(Item("MENU102").isCheckable());
}

TEST_F(MenuTest, GreyedItemsReportNothing) {
    Later(200, [] { QApplication::activePopupWidget()->close(); });
    for (const InputEvent& event : Choose("Menu001", "Menu003")) EXPECT_NE(Kind::menu, event.kind);
}

TEST_F(MenuTest, ClicksAndKeysComeInTheOrderTheyWereMade) {
    QTest::keyPress(&View(), Qt::Key_X);
    QTest::keyRelease(&View(), Qt::Key_X);
    Item("Menu301").trigger();
    QTest::keyPress(&View(), Qt::Key_Z);
    const auto events = Pump();
    ASSERT_EQ(4u, events.size());
    EXPECT_EQ(Kind::keyUp, events[1].kind);
    EXPECT_EQ("Menu301", events[2].item);
    EXPECT_EQ((InputEvent{Kind::keyDown, VK_Z}), events[3]);
}

TEST_F(MenuTest, TheGameStandsStillWhileAPopupIsOpenAndTimersGoOn) {
    static int ticks;
    ticks = 0;
    MainForm.Bgm_Check = {50, true, [] { ++ticks; }};
    Later(400, [] { QApplication::activePopupWidget()->close(); });
    QElapsedTimer clock;
    clock.start();
    Item("Menu300").menu()->popup(QPoint(0, 0));
    Pump();
    EXPECT_GE(clock.elapsed(), 395);
    EXPECT_GE(ticks, 3);
}

TEST_F(MenuTest, ClosingTheWindowLeavesAnOpenMenu) {
    Later(50, [] { desktop::TheHost().window->close(); });
    Item("Menu300").menu()->popup(QPoint(0, 0));
    const auto events = Pump();
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(Kind::closeWindow, events.back().kind);
    EXPECT_EQ(nullptr, QApplication::activePopupWidget());
}

}  // namespace
