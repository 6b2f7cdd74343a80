#include "desktop_test.h"

#include "platform/events.h"
#include "platform/input_state.h"
#include "shell/state.h"

DesktopTest::DesktopTest() {
    game = GameState{};
    MainForm = MainFormType{};
    game.ScreenW = 320;
    game.ScreenH = 480;
    ResetInputState();
    SetEventTap(nullptr);
    LoadMainForm();
    ShowMainForm();
    Pump();
}

DesktopTest::~DesktopTest() {
    desktop::TheHost().window.reset();
    desktop::TheHost().events.clear();
}

std::vector<InputEvent> DesktopTest::Pump() {
    std::vector<InputEvent> events;
    PumpHost(events);
    return WithoutJoysticks(events);
}

void DesktopTest::Later(int ms, std::function<void()> step) {
    QTimer::singleShot(ms, std::move(step));
}

TemporaryFolder::TemporaryFolder(const std::filesystem::path& content) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarnveil-desktop-XXXXXX").string();
    path = mkdtemp(pattern.data());
    if (!content.empty()) std::filesystem::copy(content, path, std::filesystem::copy_options::recursive);
}

TemporaryFolder::~TemporaryFolder() {
    std::filesystem::remove_all(path);
}

std::vector<InputEvent> WithoutJoysticks(std::vector<InputEvent> events) {
    std::erase_if(events, [](const InputEvent& event) {
        return event.kind == InputEvent::Kind::joystick || event.kind == InputEvent::Kind::joystickOff;
    });
    return events;
}

// Also the build asks this program for its tests, on machines without a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_VIDEODRIVER", "dummy");
    qputenv("SDL_AUDIODRIVER", "dummy");
    testing::InitGoogleTest(&argc, argv);
    desktop::Host host(argc, argv);
    return RUN_ALL_TESTS();
}
