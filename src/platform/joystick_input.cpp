#include "platform/joystick_input.h"

#include "toolkit/input_state.h"

namespace {

constexpr std::uint32_t kReadNothing = 0;
constexpr std::uint32_t kReadXYAndButtons = 131;

// A failed reading leaves the cleared record.
JOYINFOEX ReadJoystick(Long id, std::uint32_t flags, bool* answered = nullptr) {
    JOYINFOEX info{};
    info.dwSize = sizeof info;
    info.dwFlags = flags;
    const bool ok = joyGetPosEx(static_cast<std::uint32_t>(id), &info) == JOYERR_NOERROR;
    if (answered) *answered = ok;
    return info;
}

bool Answers(Long id) {
    bool answered = false;
    ReadJoystick(id, kReadNothing, &answered);
    return answered;
}

}  // namespace

void InitJoystick() {
    constexpr Integer kMasks[kJoyButtonMasks] = {0, 1, 2, 4, 8};
    for (int i = 0; i < kJoyButtonMasks; ++i) game.JoyButtonMask[i] = kMasks[i];
    if (joyGetNumDevs() == 0) return;
    if (Answers(0)) {
        game.JoyId = 0;
    } else if (Answers(1)) {
        game.JoyId = 1;
    } else {
        return;
    }
    game.JoyUse = True;
    const JOYINFOEX rest = ReadJoystick(game.JoyId, kReadXYAndButtons);
    game.JoyCenterX = static_cast<Long>(rest.dwXpos);
    game.JoyCenterY = static_cast<Long>(rest.dwYpos);
}

Integer GetJoyDirection() {
    if (game.JoyUse == False) return 0;
    const JOYINFOEX info = ReadJoystick(game.JoyId, kReadXYAndButtons);
    const Long x = static_cast<Long>(info.dwXpos), y = static_cast<Long>(info.dwYpos);
    const bool up = y<game.JoyCenterY, down = y> game.JoyCenterY;
    const bool left = x<game.JoyCenterX, right = x> game.JoyCenterX;
    if (up) return right ? 2 : left ? 8 : 1;
    if (down) return right ? 4 : left ? 6 : 5;
    return right ? 3 : left ? 7 : 0;
}

bool GetJoyButton(int index) {
    if (game.JoyUse == False || index < 0 || index >= kJoyButtonMasks) return false;
    const JOYINFOEX info = ReadJoystick(game.JoyId, kReadXYAndButtons);
    return (static_cast<std::uint32_t>(game.JoyButtonMask[index]) & info.dwButtons) != 0;
}
