// The enemies' movement scripts.
#pragma once

#include "state/state.h"

// Step codes above the fire codes; 0 and 12..252 are plain moves.
enum StepFlag : Byte {
    kFirstFireCode = 1,
    kLastFireCode = 11,
    kJump = 253,        // to step DX
    kRepeatStep = 254,  // back to step DX, DY times
    kEndOfEnemy = 255,
};

// Called once per frame, after the ship is drawn. Takes every live enemy through exactly one step of its script and
// draws it. Nothing removes an enemy that leaves the playfield but its own script. A kind, pattern or step outside its
// table ends the enemy.
void MoveEnemy();
