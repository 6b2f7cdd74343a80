#include "host/desktop/desktop.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>

#include "host/desktop/look.h"

namespace desktop {

namespace {
Host* theHost = nullptr;

// While the application starts, Qt complains about locales, and about a missing display in many lines before it aborts.
void SayOneLine(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    QByteArray display = qgetenv("WAYLAND_DISPLAY");
    if (display.isEmpty()) display = qgetenv("DISPLAY");
    const QByteArray problem =
        display.isEmpty() ? "there is no display" : "the display " + display + " cannot be opened";
    std::fprintf(stderr, "tarnveil: %s\n", problem.constData());
    std::_Exit(EXIT_FAILURE);
}

// The screen's own factor, whole or not: the picture counts the screen's pixels itself.
int& Prepare(int& argc) {
    qInstallMessageHandler(SayOneLine);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    return argc;
}
}  // namespace

Host::Host(int& argc, char** argv) : application(Prepare(argc), argv) {
    qInstallMessageHandler(nullptr);
    assert(!theHost);
    theHost = this;
    QApplication::setApplicationName("tarnveil");
    QApplication::setDesktopFileName("tarnveil");
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook();
    showing = RecallShowing();
}

Host::~Host() {
    theHost = nullptr;
}

Host& TheHost() {
    assert(theHost);
    return *theHost;
}

}  // namespace desktop
