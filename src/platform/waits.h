// The clock as play sees it, and every way the game waits.
#pragma once

#include "state/state.h"

// Waits without yielding until more than `ms` milliseconds have passed: a wait of 38 lasts 39 clock steps. The game's
// only way to wait.
void WaitMs(Long ms);

// At the end of every frame of the game and of the ending: measures the frame and, with "Wait" on, waits out its 38 ms.
void PaceFrame();

// Milliseconds since `start`, right across the wrap of the clock.
Long ElapsedMs(Long start);

// The clock as the state holds it.
Long ClockNow();
