// Aimed flight, shared by the birth of shots and the re-aiming of shots in flight.
#pragma once

#include "state/state.h"

inline constexpr int kShipCentre = 32;  // from the ship's corner, on both axes

// Points the shot at the ship's centre displaced by (offsetX, offsetY) at about `speed` pixels per frame. A shot very
// close to its target flies faster than that. Computed in double precision, stored as Singles.
void AimAtShip(EneShotType& shot, int speed, int offsetX = 0, int offsetY = 0);
