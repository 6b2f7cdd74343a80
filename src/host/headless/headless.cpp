#include "host/headless/headless.h"

#include "host/audio.h"
#include "host/clock.h"
#include "host/files.h"
#include "host/window.h"
#include "toolkit/forms.h"
#include "toolkit/input_state.h"

namespace headless {

Host& TheHost() {
    static Host host;
    return host;
}

void Reset() {
    TheHost() = Host{};
    ResetInputState();
}

void KeyDown(int virtualKey) {
    TheHost().events.push_back({InputEvent::Kind::keyDown, virtualKey});
}
void KeyUp(int virtualKey) {
    TheHost().events.push_back({InputEvent::Kind::keyUp, virtualKey});
}

void Tap(int virtualKey) {
    KeyDown(virtualKey);
    KeyUp(virtualKey);
}

void ClickMenuItem(const std::string& name) {
    InputEvent click{InputEvent::Kind::menu};
    click.item = name;
    TheHost().events.push_back(click);
}

void MoveJoystick(int id, std::uint32_t x, std::uint32_t y, std::uint32_t buttons) {
    TheHost().events.push_back({InputEvent::Kind::joystick, id, x, y, buttons});
}

void EndPiece() {
    if (TheHost().musicMode == "playing") TheHost().musicMode = "stopped";
}

}  // namespace headless

using headless::TheHost;

std::uint32_t timeGetTime() {
    return TheHost().now += TheHost().stepPerReading;
}

// Scripted time does not pass by resting.
void RestUntil(std::uint32_t) {}

std::uint64_t SystemClockSeed() {
    return TheHost().systemSeed++;
}

std::string LocalDate() {
    return TheHost().date;
}

void PumpHost(std::vector<InputEvent>& events) {
    headless::Host& host = TheHost();
    ++host.yields;
    if (host.onYield) host.onYield();
    events.insert(events.end(), host.events.begin(), host.events.end());
    host.events.clear();
}

void ShowMainForm() {
    TheHost().windowShown = true;
}

void ShowNow(const Surface& surface) {
    ++TheHost().shows;
    if (TheHost().onShow) TheHost().onShow(surface);
}

void ShowModal(Form& form) {
    TheHost().modals.push_back(form.Name);
    form.Shown = true;
    if (TheHost().onModal) TheHost().onModal(form);
    form.Shown = false;
}

void MsgBox(const std::string& text, const std::string&) {
    TheHost().messages.push_back(text);
}

void LogLine(const std::string& line) {
    TheHost().log.push_back(line);
}

bool MusicOpen(const std::string& path) {
    TheHost().audio.push_back("open " + path);
    if (TheHost().musicFails) return false;
    TheHost().musicMode = "stopped";
    return true;
}

void MusicPlay() {
    TheHost().audio.emplace_back("play");
    if (!TheHost().musicMode.empty()) TheHost().musicMode = "playing";
}

void MusicStop() {
    TheHost().audio.emplace_back("stop");
    if (!TheHost().musicMode.empty()) TheHost().musicMode = "stopped";
}

void MusicRewind() {
    TheHost().audio.emplace_back("rewind");
    if (!TheHost().musicMode.empty()) TheHost().musicMode = "stopped";
}

void MusicClose() {
    TheHost().audio.emplace_back("close");
    TheHost().musicMode.clear();
}

std::string_view MusicMode() {
    return TheHost().musicMode;
}

void PlayWave(std::span<const std::uint8_t> wave) {
    TheHost().audio.push_back("wave " + std::to_string(wave.size()));
}
