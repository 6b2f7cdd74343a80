// Taking the window system's events. Slots only queue what happened; no handler of the game runs in here.
#pragma once

namespace desktop {

// Takes everything that is pending, without waiting.
void TakeWindowEvents();

// Waits up to `ms` milliseconds for something to happen and takes it.
void WaitForWindowEvents(int ms);

// One step of a wait in which the game stands still (menu, message box, form): sleeps until something happens, at most
// 50 ms, and runs the timers, so that the music goes on.
void StandStill();

}  // namespace desktop
