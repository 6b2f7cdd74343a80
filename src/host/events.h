// What the outside world tells the game: the events since the last yield.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct InputEvent {
    enum class Kind {
        keyDown,      // code: virtual key. Auto-repeat is not reported.
        keyUp,        // code: virtual key
        allKeysUp,    // the window lost the keyboard
        joystick,     // code: joystick 0 or 1; x, y, buttons: its new reading
        joystickOff,  // code: joystick that is gone
        menu,         // item: a menu item was clicked
        closeWindow,
    };
    Kind kind;
    int code = 0;
    std::uint32_t x = 0;        // 0..65535, calibrated: a stick at rest reads steady
    std::uint32_t y = 0;        // growing downwards
    std::uint32_t buttons = 0;  // bit 0 = button 1
    std::string item{};

    bool operator==(const InputEvent&) const = default;
};

// Called only by DoEvents. Shows the picture of Crt, waits while a menu is open, and appends what has happened since
// the last call. Runs no handler of the game.
void PumpHost(std::vector<InputEvent>& events);
