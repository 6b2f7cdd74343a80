// Explosions.
#pragma once

// Called once per frame, after the enemy shots. Every Enemy slot in State 2 is an explosion, whoever put it there: it
// is drawn, drifts down and, paced by the one counter BomWait, goes through its seven frames; then the slot is free.
void DrawBom();
