#include "host/desktop/waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

#include "state/main_form.h"

namespace desktop {

void TakeWindowEvents() {
    constexpr int kAtMost = 20;  // ms: a flood of events must not stop the game
    QCoreApplication::processEvents(QEventLoop::AllEvents, kAtMost);
}

void WaitForWindowEvents(int ms) {
    QTimer alarm;
    alarm.start(ms);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void StandStill() {
    constexpr int kTimerStep = 50;
    WaitForWindowEvents(kTimerStep);
    RunTimers();
}

}  // namespace desktop
