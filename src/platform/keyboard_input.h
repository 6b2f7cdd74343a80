// The arrow keys as a direction.
#pragma once

#include "state/state.h"
#include "toolkit/input_state.h"

// A key counts as pressed while it is down, and once after it was tapped.
inline bool KeyPressed(int virtualKey) {
    return GetAsyncKeyState(virtualKey) != 0;
}

// Asks and ignores the answer, so that only a later press counts.
inline void DiscardKey(int virtualKey) {
    static_cast<void>(GetAsyncKeyState(virtualKey));
}

// Direction code: 0 none, 1 up, then clockwise in eighths: 2 up-right, 3 right, 4 down-right, 5 down, 6 down-left,
// 7 left, 8 up-left. The last match wins: Up with Down gives 5, Left with Right 7, a diagonal pair beats single keys.
Integer GetKeyDirection();
