// One game from its set-up to the moment the player leaves it, and the pacing of frames.
#pragma once

#include <cstdint>

#include "shell/state.h"

// Runs one game. Called by TitleScreen; returns when the game is left.
void GameLoop();

// Waits without yielding until more than `ms` milliseconds have passed: a wait of 38 lasts 39 clock steps. The game's
// only way to wait.
void WaitMs(Long ms);

// At the end of every frame of the game and of the ending: measures the frame and, with "Wait" on, waits out its 38 ms.
void PaceFrame();

// Milliseconds since `start`, right across the wrap of the clock.
Long ElapsedMs(Long start);

// The clock as the state holds it.
Long ClockNow();

// Watchers of a game: recording, replay, simulation. They draw nothing and change nothing of the state.
struct GameWatcher {
    void (*Started)(std::uint64_t seed) = nullptr;  // the game is set up; the first frame follows
    void (*FrameDone)() = nullptr;                  // a frame was played, before its yield to the window system
    void (*Ended)() = nullptr;
};
inline GameWatcher gameWatcher;
