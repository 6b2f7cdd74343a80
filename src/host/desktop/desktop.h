// The desktop host's own state: one object, made by main before the game starts and gone before main returns.
#pragma once

#include <QtWidgets/QApplication>
#include <memory>
#include <vector>

#include "host/desktop/joysticks.h"
#include "host/desktop/main_window.h"

namespace desktop {

class FormWindow;

struct Host {
    Host(int& argc, char** argv);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    QApplication application;
    std::vector<InputEvent> events;  // since the last yield, in the order they came
    Joysticks joysticks;
    Showing showing;                     // how the main window comes up
    bool pauseWhenLeft = true;           // a game pauses when the program loses the keyboard
    std::unique_ptr<MainWindow> window;  // from ShowMainForm on
    FormWindow* form = nullptr;          // the form that is shown on top, or null
};

// The one host.
Host& TheHost();

}  // namespace desktop
