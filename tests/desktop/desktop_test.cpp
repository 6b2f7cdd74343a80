#include "desktop_test.h"

#include <QtGui/QBackingStore>

#include "recording/forget_program.h"
#include "shell/main_routine.h"

DesktopTest::DesktopTest() {
    ForgetProgram();
    StartProgram();
    Pump();
}

DesktopTest::~DesktopTest() {
    desktop::TheHost().window.reset();
    desktop::TheHost().events.clear();
}

QImage DesktopTest::Screen() {
    return *static_cast<QImage*>(desktop::TheHost().window->backingStore()->paintDevice());
}

std::vector<InputEvent> DesktopTest::Pump() {
    std::vector<InputEvent> events;
    PumpHost(events);
    return WithoutJoysticks(events);
}

void DesktopTest::Later(int ms, std::function<void()> step) {
    QTimer::singleShot(ms, std::move(step));
}

std::vector<InputEvent> WithoutJoysticks(std::vector<InputEvent> events) {
    std::erase_if(events, [](const InputEvent& event) {
        return event.kind == InputEvent::Kind::joystick || event.kind == InputEvent::Kind::joystickOff;
    });
    return events;
}

// Also the build asks this program for its tests, on machines without a screen.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_VIDEODRIVER", "dummy");
    qputenv("SDL_AUDIODRIVER", "dummy");
    const TemporaryFolder settings;
    qputenv("XDG_CONFIG_HOME", settings.path.c_str());
    testing::InitGoogleTest(&argc, argv);
    desktop::Host host(argc, argv);
    return RUN_ALL_TESTS();
}
