// The flight of enemy shots.
#pragma once

// Called once per frame, after the enemies have moved and before the explosions are drawn. Each shot is drawn where it
// was, moved, tested against the ship where it is now, and freed when it has hit or left the playfield. A shot of an
// unknown kind is left untouched.
void MoveEneShot();
