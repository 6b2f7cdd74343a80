// What the player sees and types under Wayland: the compositor's own picture is searched for what the program means to
// show, pixel for pixel, and a program beside it presses keys.
#include <QtCore/QProcess>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <algorithm>

#include "desktop_test.h"
#include "host/desktop/form_window.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "stage/data_files.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"
#include "toolkit/resources.h"
#include "toolkit/surface.h"

namespace {

constexpr int kTitleBitmap = 102;
constexpr int kTries = 100;

QImage CompositorsPicture() {
    QProcess shot;
    shot.startCommand("sh -c \"" + qEnvironmentVariable("TARNVEIL_TEST_SCREENSHOT") + "\"");
    shot.waitForFinished();
    return QImage::fromData(shot.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
}

bool StandsAt(const QImage& screen, const QImage& wanted, QPoint at) {
    for (int y = 0; y < wanted.height(); ++y) {
        const auto* seen = reinterpret_cast<const QRgb*>(screen.constScanLine(at.y() + y)) + at.x();
        const auto* row = reinterpret_cast<const QRgb*>(wanted.constScanLine(y));
        const auto same = [](QRgb a, QRgb b) { return qRgb(qRed(a), qGreen(a), qBlue(a)) == (b | 0xFF000000); };
        if (!std::equal(row, row + wanted.width(), seen, same)) return false;
    }
    return true;
}

bool StandsIn(const QImage& screen, const QImage& wanted) {
    for (int top = 0; top + wanted.height() <= screen.height(); ++top) {
        for (int left = 0; left + wanted.width() <= screen.width(); ++left) {
            if (StandsAt(screen, wanted, {left, top})) return true;
        }
    }
    return false;
}

// Looks until it does: a compositor shows a window some time after it was drawn. Takes events meanwhile.
bool IsShown(const std::function<QImage()>& wanted) {
    for (int i = 0; i < kTries; ++i) {
        const QImage picture = wanted();
        if (!picture.isNull() && StandsIn(CompositorsPicture(), picture)) return true;
        QTest::qWait(20);
    }
    return false;
}

QImage AsImage(const Color* pixels, int width, int height, int times = 1) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Color color = pixels[static_cast<std::ptrdiff_t>(y) * width + x];
            image.setPixel(x, y, 0xFF000000 | color);
        }
    }
    return image.scaled(width * times, height * times);
}
QImage Frame(int times) {
    return AsImage(MainForm.Crt.image.data(), MainForm.Crt.imageWidth, MainForm.Crt.imageHeight, times);
}

// How many pixels of the screen a pixel of the frame is wide.
int Times() {
    const QWidget& view = desktop::TheHost().window->View();
    const QSize pixels = view.size() * view.devicePixelRatio();
    return std::min(pixels.width() / MainForm.Crt.imageWidth, pixels.height() / MainForm.Crt.imageHeight);
}

// What a window of the program looks like by itself.
QImage Looks(QWidget* window) {
    return window ? window->grab().toImage().convertToFormat(QImage::Format_RGB32) : QImage();
}

void Carry(const QString& command) {
    QProcess process;
    process.startCommand(command);
    while (process.state() != QProcess::NotRunning) QTest::qWait(1);
    EXPECT_EQ(0, process.exitCode()) << command.toStdString() << process.readAllStandardError().toStdString();
}

class WaylandTest : public DesktopTest {
  protected:
    WaylandTest() {
        SetProgramFolder(TARNVEIL_ASSETS "/data");
        EnableAuthorMenus();
        EXPECT_EQ("", ReadStageData("\\STAGE1.DAT") + ReadEnemyData() + ReadEneMove());
        if (CanType()) keyboard.startCommand("wtype -s 1000000");
    }
    ~WaylandTest() override {
        keyboard.kill(), keyboard.waitForFinished();
        SetProgramFolder(".");
    }
    static bool CanType() { return qEnvironmentVariable("TARNVEIL_TEST_SCREENSHOT") == "grim -"; }

    QProcess keyboard;  // a seat without one has no keyboard focus
};

TEST_F(WaylandTest, TheStartedProgramShowsItsTitle) {
    desktop::TheHost().window.reset();
    QProcess program;
    program.start(TARNVEIL_PROGRAM, {"--folder", TARNVEIL_ASSETS "/data", "--scale", "1"});
    const Picture& title = LoadResPicture(kTitleBitmap);
    EXPECT_TRUE(IsShown([&] { return AsImage(title.pixels.data(), title.width, title.height); }));
    program.kill();
    program.waitForFinished();
}

TEST_F(WaylandTest, AFrameOfAGameStandsOnTheScreen) {
    static bool shown;
    static int frames;
    shown = false, frames = 0;
    gameWatcher.FrameDone = [] {
        constexpr int kFrame = 60;
        if (++frames < kFrame) return;
        shown = IsShown([] {
            ShowNow(MainForm.Crt);
            return Frame(Times());
        });
        throw EndProgram();
    };
    EXPECT_THROW(GameLoop(), EndProgram);
    gameWatcher = {};
    EXPECT_TRUE(shown);
}

TEST_F(WaylandTest, MenusBoxesAndEditorsShowAsTheyAre) {
    bool menu = false, box = false, editor = false;
    QMenuBar& bar = *View().window()->findChild<QMenuBar*>();
    Later(0, [&] {
        menu = IsShown([] { return Looks(QApplication::activePopupWidget()); });
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    bar.setActiveAction(bar.actions().front());
    QTest::keyClick(&bar, Qt::Key_Down);
    DoEvents();
    EXPECT_TRUE(menu);

    Later(0, [&] {
        box = IsShown([] { return Looks(QApplication::activeModalWidget()); });
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    MsgBox("保存しました", "Tarnveil");
    EXPECT_TRUE(box);

    Later(0, [&] {
        editor = IsShown([] { return Looks(desktop::TheHost().form); });
        QTest::keyClick(desktop::TheHost().form, Qt::Key_Escape);
    });
    EXPECT_TRUE(ClickMenu(MainForm.Menu203));
    EXPECT_TRUE(editor);
}

TEST_F(WaylandTest, KeysComeAndGoAndAreLetGoWithTheFocus) {
    if (!CanType()) GTEST_SKIP() << "this compositor lets nobody type";
    const auto down = [&](int code) { return View().KeysDown().contains(code); };
    const auto until = [&](const std::function<bool()>& condition) {
        for (int i = 0; i < kTries && !condition(); ++i) {
            DoEvents();
            QTest::qWait(20);
        }
        return condition();
    };
    ASSERT_TRUE(until([&] { return View().hasFocus() && View().isActiveWindow(); }));
    ASSERT_TRUE(until([&] {  // the keyboard has arrived once it is heard
        Carry("wtype -k x");
        return !Pump().empty();
    }));
    QProcess fingers;
    fingers.startCommand("wtype -P Left -P x -s 60000");
    EXPECT_TRUE(until([&] { return down(VK_LEFT) && down('X'); }));

    QProcess other;
    other.start(TARNVEIL_PROGRAM, {"--folder", TARNVEIL_ASSETS "/data", "--scale", "1"});
    EXPECT_TRUE(until([&] { return !View().isActiveWindow(); }));
    EXPECT_TRUE(until([&] { return !down(VK_LEFT) && !down('X'); })) << "nothing stays stuck";
    other.kill(), other.waitForFinished();
    EXPECT_TRUE(until([&] { return View().isActiveWindow(); }));
    fingers.kill(), fingers.waitForFinished();
    QProcess again;
    again.startCommand("wtype -P Up -s 60000");
    EXPECT_TRUE(until([&] { return down(VK_UP); }));
    again.kill(), again.waitForFinished();
    EXPECT_TRUE(until([&] { return !down(VK_UP); })) << "pulled out with the key down";
}

TEST_F(WaylandTest, ScaledAndFullScreenPixelsAreWholeSquares) {
    if (!CanType()) GTEST_SKIP() << "this compositor's screen is too small";
    Color next = 1;
    for (Color& pixel : MainForm.Crt.image) pixel = (next = next * 69069 + 1) >> 8;
    const auto fits = [&](int scale, bool full) {
        return IsShown([&] {
            ShowNow(MainForm.Crt);
            const bool there = View().devicePixelRatio() == scale && View().window()->isFullScreen() == full;
            return there ? Frame(Times()) : QImage();
        });
    };
    EXPECT_TRUE(fits(1, false));
    Carry("wtype -k F11");
    EXPECT_TRUE(fits(1, true));
    Carry("swaymsg output * scale 2");
    EXPECT_TRUE(fits(2, true));
    Carry("swaymsg output * scale 1");
    Carry("wtype -k F11");
    EXPECT_TRUE(fits(1, false));
}

}  // namespace
