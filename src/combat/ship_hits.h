// The ship's hit box and energy, and its picture.
#pragma once

#include "state/state.h"

// Whether the box touches the ship: 1 when the ship took the hit, else 0. Touching edges is no hit, and a destroyed
// ship takes none. A hit costs energy, turns the screen red for a moment (yields once, then stands still for 100 ms)
// and, except on Hard, frees every enemy shot. Only enemy shots hurt: enemies fly through the ship.
Integer HitMyShip(Single x, Single y, Single width, Single height);

// Draws the ship, also while it sinks. Once per frame, after the player's shots.
void DrawMyShip();

// Draws the energy bar: 10 pixels per unit of energy. Once per frame, after the explosions.
void DrawPowerGauge();
