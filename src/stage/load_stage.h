// Setting up a new game.
#pragma once

#include "stage/plays.h"

// Puts the pictures in place, reads the sounds and the tables, resets everything that play changes, and starts the
// first stage of the chosen play with its music. Called once per game by GameLoop, after the random numbers are seeded
// and before the first frame. A missing or short table ends the program with a message (EndProgram, status 1).
void LoadStage();

// Puts the background and the table of the play's stage in place and starts its music. Called at the start of a play
// and at each stage change of the normal game. A missing or short table ends the program as above.
void EnterStage(const Play& play);

// Called when EnterStage has read the play's table: unsaved work of an author is put over it here. Null: nothing.
inline void (*tableRead)(const Play& play) = nullptr;

// The ship in its starting place.
void CentreShip();

// A blue gauge, the ship in its starting place, full energy. For each new stage.
void StartShipAnew();
