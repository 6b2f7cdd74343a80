// The joystick as the game reads it. Directions use the code of keyboard_input.h.
#pragma once

#include "state/state.h"

// Looks for joystick 0, then 1. Found: sets JoyUse, JoyId and the rest position, so the stick must be let go meanwhile.
// Not found: JoyUse stays as it was. Fills JoyButtonMask in either case.
void InitJoystick();

// 0..8. Any difference from the rest position counts; there is no dead zone here. 0 while JoyUse is false. A joystick
// that has gone reads as 0, 0: up and left.
Integer GetJoyDirection();

// Whether button `index` (1..4) is down. False while JoyUse is false, and for any other index.
bool GetJoyButton(int index);
