// The window functions of the game's host.
#include "host/window.h"

#include <QtGui/QScreen>
#include <QtWidgets/QMessageBox>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "host/desktop/desktop.h"
#include "host/desktop/form_window.h"
#include "host/desktop/placing.h"
#include "host/desktop/waiting.h"
#include "state/main_form.h"
#include "toolkit/forms.h"
#include "toolkit/input_state.h"
#include "toolkit/surface.h"

using desktop::TheHost;

namespace {

void TakeFirstJoystickReadings() {
    std::vector<InputEvent> readings;
    TheHost().joysticks.Poll(readings);
    for (const InputEvent& reading : readings) ApplyInput(reading);
}

std::chrono::microseconds OneRefresh() {
    constexpr double kUsualRate = 60.0;
    const double rate = TheHost().window->screen()->refreshRate();
    return std::chrono::microseconds(std::lround(1e6 / (rate > 1.0 ? rate : kUsualRate)));
}

// Puts a form on top for its time, whatever ends it.
class OnTop {
  public:
    OnTop(Form& form, desktop::FormWindow& window) : form_(form), below_(TheHost().form) {
        form_.Shown = true;
        TheHost().form = &window;
    }
    ~OnTop() {
        form_.Shown = false;
        TheHost().form = below_;
    }
    OnTop(const OnTop&) = delete;
    OnTop& operator=(const OnTop&) = delete;

  private:
    Form& form_;
    desktop::FormWindow* below_;
};

QWidget* TopWindow() {
    return TheHost().form ? static_cast<QWidget*>(TheHost().form) : TheHost().window.get();
}

// Without a window manager nobody else gives the keyboard back to the window below.
void CloseAndGoBack(QWidget& window) {
    window.hide();
    if (QWidget* below = window.parentWidget()) below->activateWindow();
}

// Keys may have been let go after it.
bool ClosingIsAsked() {
    return std::ranges::any_of(TheHost().events,
                               [](const InputEvent& event) { return event.kind == InputEvent::Kind::closeWindow; });
}

// Stands still while a menu is open. The bar never keeps the keyboard afterwards: nothing would show where it is.
void WaitForMenus(desktop::MainWindow& window) {
    while (window.Menus().IsOpen() && !ClosingIsAsked()) desktop::StandStill();
    window.Menus().Leave();
    if (window.isActiveWindow()) window.View().setFocus();
}

}  // namespace

void ShowMainForm() {
    TheHost().window = std::make_unique<desktop::MainWindow>(TheHost().events, TheHost().showing);
    TheHost().window->Pausing().SetWhenLeft(TheHost().pauseWhenLeft);
    TheHost().window->ShowOnScreen();
    TakeFirstJoystickReadings();
}

void ShowNow(const Surface& surface) {
    if (!surface.Visible) return;
    TheHost().window->View().Show();
    std::this_thread::sleep_for(OneRefresh());
}

void PumpHost(std::vector<InputEvent>& events) {
    desktop::Host& host = TheHost();
    host.window->Menus().Sync();
    host.window->View().Show();
    desktop::TakeWindowEvents();
    WaitForMenus(*host.window);
    host.window->Tidy();
    host.window->Pausing().Hold(host.joysticks);
    host.frameHold.Hold();
    while (host.window->isMinimized() && !ClosingIsAsked()) desktop::StandStill();
    host.window->View().LetGoOfLostKeys();
    host.joysticks.Poll(host.events);
    events.insert(events.end(), host.events.begin(), host.events.end());
    host.events.clear();
}

void ShowModal(Form& form) {
    desktop::FormWindow window(form, TopWindow());
    const OnTop onTop(form, window);
    desktop::ShowPlaced(window, form.Centred);
    while (form.Shown) {
        desktop::StandStill();
        window.Run();
    }
    CloseAndGoBack(window);
}

void MsgBox(const std::string& text, const std::string& caption) {
    if (TheHost().form) TheHost().form->Sync();  // what the message is about must be seen
    QMessageBox box(QMessageBox::NoIcon, QString::fromStdString(caption), QString::fromStdString(text), QMessageBox::Ok,
                    TopWindow());
    box.setTextFormat(Qt::PlainText);
    box.setModal(true);
    box.show();
    while (box.isVisible()) desktop::StandStill();
    CloseAndGoBack(box);
}
