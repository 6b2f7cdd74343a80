// The player's shots.
#pragma once

// Called once per frame after the ship has moved: a volley on every third frame while X or joystick button 2 is held.
// Volleys take groups of four slots (0, 4, ..., 32); with no free group nothing is fired.
void SetMyShot();

// Called once per frame: Z or joystick button 1 switches between the forward twin shot and the four-way spread. A held
// key switches once.
void ChangeShotMode();

// Called once per frame after the background is drawn: moves, draws and hit-tests the player's shots.
void MoveMyShot();
