// Fixture of the desktop tests: a fresh state and a fresh main window on the offscreen window system. The application
// itself is made once, by main.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <filesystem>
#include <functional>
#include <vector>

#include "host/desktop/desktop.h"
#include "host/window.h"
#include "state/main_form.h"
#include "temporary_folder.h"

class DesktopTest : public testing::Test {
  protected:
    DesktopTest();
    ~DesktopTest() override;

    // The events of one yield.
    std::vector<InputEvent> Pump();

    // The pixels of the main window as the window system has them.
    static QImage Screen();

    // Runs `step` from the window system's loop in `ms` milliseconds, while the program waits in a loop of its own.
    static void Later(int ms, std::function<void()> step);

    desktop::PictureView& View() { return desktop::TheHost().window->View(); }
    desktop::MenuView& Menus() { return desktop::TheHost().window->Menus(); }
};

// The events without joysticks: a machine may have some.
std::vector<InputEvent> WithoutJoysticks(std::vector<InputEvent> events);
