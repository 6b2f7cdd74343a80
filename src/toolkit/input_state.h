// Key and joystick states as the events have left them; polled by the game. They change only inside DoEvents.
#pragma once

#include <cstdint>
#include <vector>

struct InputEvent;

// Virtual-key codes the game uses.
enum VirtualKey : int {
    VK_ESCAPE = 27,
    VK_SPACE = 32,
    VK_LEFT = 37,
    VK_UP = 38,
    VK_RIGHT = 39,
    VK_DOWN = 40,
    VK_X = 88,
    VK_Z = 90,
};

// High bit: the key is down. Low bit: it was pressed since the last query of this key; asking clears it. A code without
// a key (outside 0..255): 0.
std::int16_t GetAsyncKeyState(int virtualKey);

struct JOYINFOEX {
    std::uint32_t dwSize;
    std::uint32_t dwFlags;
    std::uint32_t dwXpos;  // 0..65535
    std::uint32_t dwYpos;  // 0..65535, growing downwards
    std::uint32_t dwZpos;
    std::uint32_t dwRpos;
    std::uint32_t dwUpos;
    std::uint32_t dwVpos;
    std::uint32_t dwButtons;  // bit 0 = button 1
    std::uint32_t dwButtonNumber;
    std::uint32_t dwPOV;
    std::uint32_t dwReserved1;
    std::uint32_t dwReserved2;
};
static_assert(sizeof(JOYINFOEX) == 52);

inline constexpr std::uint32_t JOYERR_NOERROR = 0;
inline constexpr std::uint32_t JOYERR_UNPLUGGED = 167;

// Joystick slots, used or not.
std::uint32_t joyGetNumDevs();

// Reads joystick `id` into `info`. Anything but JOYERR_NOERROR means there is no such joystick and leaves `info` alone.
std::uint32_t joyGetPosEx(std::uint32_t id, JOYINFOEX* info);

// Takes a key or joystick event; events of other kinds are not meant for here and change nothing.
void ApplyInput(const InputEvent& event);

// The keys whose state is not zero, and a way to bring such a state about; for recorded games. Neither is a query.
struct HeldKey {
    int code;
    bool down;
    bool pressedSince;

    bool operator==(const HeldKey&) const = default;
};
std::vector<HeldKey> HeldKeys();
void HoldKey(const HeldKey& held);

// The joysticks that are there, as the events that bring their readings about.
std::vector<InputEvent> JoystickReadings();

// All keys up and never pressed, no joysticks; for tests and before a replay.
void ResetInputState();
