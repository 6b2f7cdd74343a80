// The window's size, full screen, and what is kept of it for the next run.
#include <QtGui/QScreen>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <cmath>
#include <fstream>

#include "desktop_test.h"
#include "toolkit/surface.h"

namespace {

class ShowingTest : public DesktopTest {
  protected:
    ~ShowingTest() override { desktop::RememberShowing({}, *Window().screen()); }

    static desktop::MainWindow& Window() { return *desktop::TheHost().window; }
    QMenuBar& Bar() { return *Window().findChild<QMenuBar*>(); }
    static void FillCrt(int salt) {
        for (std::size_t i = 0; i < MainForm.Crt.image.size(); ++i) {
            MainForm.Crt.image[i] = static_cast<Color>((i * 2654435761u + static_cast<unsigned>(salt)) & 0xFFFFFFu);
        }
    }
    // How many pixels of the screen differ from the picture at that place and multiple.
    static int WrongPixels(QPoint corner, int times) {
        const QImage screen = Screen();
        int wrong = 0;
        for (int y = 0; y < 480 * times; ++y) {
            for (int x = 0; x < 320 * times; ++x) {
                wrong += screen.pixel(corner + QPoint(x, y)) != (0xFF000000u | MainForm.Crt.Row(y / times)[x / times]);
            }
        }
        return wrong;
    }
};

// The offscreen screen is 800 x 800, so only 1 fits; the view itself knows no such limit.
TEST_F(ShowingTest, EveryMultipleShowsThePictureAsItIsOnBothWays) {
    for (int times = 1; times <= 3; ++times) {
        View().SetTimes(times);
        FillCrt(times);
        Pump();
        const QPoint corner = View().pos() + QPoint(kBorder, kBorder);
        EXPECT_EQ(QSize(320, 480) * times + QSize(4, 4), View().size());
        FillCrt(times + 10);
        View().Show();
        EXPECT_EQ(0, WrongPixels(corner, times)) << "shown, " << times << " times";
        View().repaint();
        EXPECT_EQ(0, WrongPixels(corner, times)) << "repainted, " << times << " times";
        EXPECT_EQ(QColor(128, 128, 128), Screen().pixelColor(View().pos())) << "the border";
    }
}

// Also run with other scales of the desktop than 1.
TEST_F(ShowingTest, WhateverTheDesktopsScalePixelsAreWholeSquares) {
    const double ratio = View().devicePixelRatioF();
    for (int times = 1; times <= 3; ++times) {
        View().SetTimes(times);
        FillCrt(times);
        Pump();
        const int border = kBorder * static_cast<int>(std::lround(ratio));
        const QPoint corner = (QPointF(View().pos()) * ratio).toPoint() + QPoint(border, border);
        int fewest = 1 << 30;  // the view has up to two pixels more than it needs
        for (const QPoint off : {QPoint(0, 0), QPoint(0, 1), QPoint(1, 0), QPoint(1, 1)}) {
            fewest = std::min(fewest, WrongPixels(corner + off, times));
        }
        EXPECT_EQ(0, fewest) << times << " times at " << ratio;
    }
}

TEST_F(ShowingTest, AMultipleThatDoesNotFitIsNotTaken) {
    Window().SetTimes(5);
    EXPECT_EQ(QSize(324, 484), View().size());
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
}

TEST_F(ShowingTest, FullScreenIsThePictureAmidBlackWithoutTheMenuBar) {
    FillCrt(1);
    QTest::keyClick(&Window(), Qt::Key_F11);
    Pump();
    EXPECT_TRUE(Window().isFullScreen());
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(Window().size(), View().size());
    const QSize left = View().size() - QSize(320, 480);
    const QPoint corner(left.width() / 2, left.height() / 2);
    EXPECT_EQ(0, WrongPixels(corner, 1));
    EXPECT_EQ(QColor(Qt::black), Screen().pixelColor(corner - QPoint(1, 1)));
    QTest::keyClick(&Window(), Qt::Key_Return, Qt::AltModifier);
    Pump();
    EXPECT_FALSE(Window().isFullScreen());
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(QSize(324, 484), View().size());
}

TEST_F(ShowingTest, FitFillsTheHeight) {
    for (auto& pixel : MainForm.Crt.image) pixel = kWhite;
    Window().SetFullScreen(true);
    Window().SetFit(true);
    Pump();
    const QSize size = Window().size();
    EXPECT_EQ(QColor(Qt::white), Screen().pixelColor(size.width() / 2, 0));
    EXPECT_EQ(QColor(Qt::white), Screen().pixelColor(size.width() / 2, size.height() - 1));
    EXPECT_EQ(QColor(Qt::black), Screen().pixelColor(0, 0));
}

TEST_F(ShowingTest, InFullScreenTheBarComesToThePointerAndToAlt) {
    Window().SetFullScreen(true);
    Pump();
    QTest::mouseMove(&View(), QPoint(200, 0));
    Pump();
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(Window().width(), Bar().width());
    FillCrt(3);
    Pump();
    EXPECT_EQ(QColor(192, 192, 192), Screen().pixelColor(Window().width() - 3, 3)) << "the picture is under the bar";
    QTest::mouseMove(&View(), QPoint(200, 300));
    Pump();
    EXPECT_FALSE(Bar().isVisible());
    QTest::keyPress(&View(), Qt::Key_Alt, Qt::AltModifier);
    Pump();
    EXPECT_TRUE(Bar().isVisible());
}

TEST_F(ShowingTest, TheContextMenuOffersEverything) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(&View(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    QStringList texts;
    for (QAction* action : menu->actions()) {
        texts += action->text().section('\t', 0, 0);
        if (action->text().startsWith("Calm")) action->trigger();
    }
    menu->close();
    EXPECT_EQ("1x//Full screen/Fill the whole height in full screen//Pause/Calm: softer flashes", texts.join('/'));
    EXPECT_TRUE(Window().HowShown().calm);
}

TEST_F(ShowingTest, ChoicesAreKeptForTheNextRunWhileTheScreenIsThere) {
    Window().move(37, 41);
    Window().SetCalm(true);
    Window().SetFit(true);
    Window().SetFullScreen(true);
    const QString place = Window().screen()->name();
    const desktop::Showing kept = desktop::RecallShowing();
    EXPECT_TRUE(kept.calm && kept.fit && kept.fullScreen);
    EXPECT_EQ(QPoint(37, 41), kept.place);
    const auto file = std::filesystem::path(qgetenv("XDG_CONFIG_HOME").toStdString()) /
                      QCoreApplication::applicationName().toStdString() / "window.ini";
    for (const char* line : {"screen=gone", "screen=%00%ff\ntimes=-3\nplace=x", "[[["}) {
        std::ofstream(file) << "[General]\n" << line << "\n";
        const desktop::Showing recalled = desktop::RecallShowing();
        EXPECT_FALSE(recalled.fullScreen || recalled.place || recalled.times != 0) << line;
    }
}

}  // namespace
