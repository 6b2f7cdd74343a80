// The desktop host's own state: one object, made by main before the game starts and gone before main returns.
#pragma once

#include <QtWidgets/QApplication>
#include <functional>
#include <memory>
#include <vector>

#include "host/desktop/frame_hold.h"
#include "host/desktop/joysticks.h"
#include "host/desktop/main_window.h"

namespace desktop {

class FormWindow;

// A window beside the main one, or what it does, that the program brings along: a key that works in every window, and
// a row of the picture's context menu.
struct Extra {
    QString caption;               // empty: not in the context menu
    QKeySequence key;              // empty: none
    std::function<void()> chosen;  // runs among the window's events, so it may not throw
};

struct Host {
    Host(int& argc, char** argv);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    QApplication application;
    std::vector<InputEvent> events;  // since the last yield, in the order they came
    Joysticks joysticks;
    Showing showing;            // how the main window comes up
    bool pauseWhenLeft = true;  // a game pauses when the program loses the keyboard
    std::vector<Extra> extras;  // filled in before ShowMainForm
    FrameHold frameHold{events};
    std::unique_ptr<MainWindow> window;  // from ShowMainForm on
    FormWindow* form = nullptr;          // the form that is shown on top, or null
};

// The one host.
Host& TheHost();

}  // namespace desktop
