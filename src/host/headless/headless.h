// The scripted host: a manual clock, events from a script, recorded sounds and messages. For tests, tools and replays;
// nothing is shown or heard.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/events.h"

struct Form;
struct Surface;

namespace headless {

struct Host {
    // The clock stands still but for one step per reading (a busy wait must end) and what a script adds.
    std::uint32_t now = 1000;
    std::uint32_t stepPerReading = 1;
    std::uint64_t systemSeed = 1;  // of the next game that is seeded from the clock; counts up

    std::string date = "2026-01-02 03:04:05";

    std::vector<InputEvent> events;  // taken at the next yield
    std::function<void()> onYield;   // runs at each yield before the events are taken; may add events or throw
    int yields = 0;

    std::function<void(const Surface&)> onShow;  // ShowNow
    int shows = 0;
    bool windowShown = false;

    std::vector<std::string> messages;   // message boxes: their texts
    std::function<void(Form&)> onModal;  // plays the user of a modal form; it closes when this returns
    std::vector<std::string> modals;     // names of the forms shown

    // What the audio was asked: "open PATH", "play", "stop", "rewind", "close", "wave N" (N bytes).
    std::vector<std::string> audio;
    std::string musicMode;    // "" closed, "stopped", "playing"
    bool musicFails = false;  // no file opens

    std::vector<std::string> log;
};

// The one host. A test starts with Reset().
Host& TheHost();
void Reset();

// Presses, releases or taps a key at the next yield.
void KeyDown(int virtualKey);
void KeyUp(int virtualKey);
void Tap(int virtualKey);
void ClickMenuItem(const std::string& name);
void MoveJoystick(int id, std::uint32_t x, std::uint32_t y, std::uint32_t buttons = 0);

// The piece that plays has come to its end.
void EndPiece();

}  // namespace headless
