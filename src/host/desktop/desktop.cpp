#include "host/desktop/desktop.h"

#include <cassert>

#include "host/desktop/look.h"

namespace desktop {

namespace {
Host* theHost = nullptr;

// Half pixels would blur the game's picture.
int& WithWholePixels(int& argc) {
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    return argc;
}
}  // namespace

Host::Host(int& argc, char** argv) : application(WithWholePixels(argc), argv) {
    assert(!theHost);
    theHost = this;
    QApplication::setApplicationName("tarnveil");
    QApplication::setDesktopFileName("tarnveil");
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyLook();
}

Host::~Host() {
    theHost = nullptr;
}

Host& TheHost() {
    assert(theHost);
    return *theHost;
}

}  // namespace desktop
