// The ship's movement, its death and game over.
#pragma once

// Called once per frame, right after the stage script. While the ship is intact: moves it by keyboard and joystick and
// keeps it inside the playfield. Once it is destroyed: the ship sinks among small explosions, the game-over music and
// words come, and the game ends on Space or after a long wait.
void UpdatePlayer();
