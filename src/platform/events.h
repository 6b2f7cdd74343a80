// The yield of the game's loops to the window system.
#pragma once

#include <vector>

#include "host/events.h"

// Shows the picture of Crt, takes the pending events (keys, joystick, menu clicks, closing the window) and runs their
// handlers and the timers that are due. Nothing else lets the outside world in, so everything that happens here happens
// between two frames, or in the middle of a frame where a routine yields there. Throws EndProgram when the player
// quits.
void DoEvents();

// Sees the events of every yield before they take effect and may replace them: recording, replay, pilots. Null: none.
using EventTap = void (*)(std::vector<InputEvent>& events);
void SetEventTap(EventTap tap);
EventTap GetEventTap();
