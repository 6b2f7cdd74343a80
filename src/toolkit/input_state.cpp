#include "toolkit/input_state.h"

#include <array>

#include "host/events.h"

namespace {

constexpr int kKeys = 256;
constexpr int kJoysticks = 2;

struct KeyState {
    bool down = false;
    bool pressedSince = false;
};

struct JoystickState {
    bool present = false;
    std::uint32_t x = 0;
    std::uint32_t y = 0;
    std::uint32_t buttons = 0;
};

std::array<KeyState, kKeys> keys;
std::array<JoystickState, kJoysticks> joysticks;

KeyState* KeyOf(int code) {
    return code >= 0 && code < kKeys ? &keys[static_cast<std::size_t>(code)] : nullptr;
}

JoystickState* JoystickOf(int id) {
    return id >= 0 && id < kJoysticks ? &joysticks[static_cast<std::size_t>(id)] : nullptr;
}

}  // namespace

std::int16_t GetAsyncKeyState(int virtualKey) {
    KeyState* key = KeyOf(virtualKey);
    if (!key) return 0;
    const unsigned state = (key->down ? 0x8000u : 0u) | (key->pressedSince ? 1u : 0u);
    key->pressedSince = false;
    return static_cast<std::int16_t>(state);
}

std::uint32_t joyGetNumDevs() {
    return kJoysticks;
}

std::uint32_t joyGetPosEx(std::uint32_t id, JOYINFOEX* info) {
    if (id >= kJoysticks || !joysticks[id].present) return JOYERR_UNPLUGGED;
    info->dwXpos = joysticks[id].x;
    info->dwYpos = joysticks[id].y;
    info->dwButtons = joysticks[id].buttons;
    return JOYERR_NOERROR;
}

void ApplyInput(const InputEvent& event) {
    using enum InputEvent::Kind;
    KeyState* key = KeyOf(event.code);
    JoystickState* stick = JoystickOf(event.code);
    if (event.kind == keyDown && key && !key->down) *key = {true, true};
    if (event.kind == keyUp && key) key->down = false;
    if (event.kind == joystick && stick) *stick = {true, event.x, event.y, event.buttons};
    if (event.kind == joystickOff && stick) *stick = {};
    if (event.kind == allKeysUp) {
        for (KeyState& each : keys) each.down = false;
    }
}

std::vector<HeldKey> HeldKeys() {
    std::vector<HeldKey> held;
    for (int code = 0; code < kKeys; ++code) {
        const KeyState& key = *KeyOf(code);
        if (key.down || key.pressedSince) held.push_back({code, key.down, key.pressedSince});
    }
    return held;
}

void HoldKey(const HeldKey& held) {
    if (KeyState* key = KeyOf(held.code)) *key = {held.down, held.pressedSince};
}

std::vector<InputEvent> JoystickReadings() {
    std::vector<InputEvent> readings;
    for (int id = 0; id < kJoysticks; ++id) {
        const JoystickState& stick = *JoystickOf(id);
        if (stick.present) readings.push_back({InputEvent::Kind::joystick, id, stick.x, stick.y, stick.buttons});
    }
    return readings;
}

void ResetInputState() {
    keys.fill({});
    joysticks.fill({});
}
