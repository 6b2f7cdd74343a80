// What a player shot does to the enemies.
#pragma once

#include "state/state.h"

// How far an enemy's hit area reaches beyond (or, negative, falls short of) its sprite; open on all sides. The shot is
// tested by its corner.
inline constexpr int kReachLeft = 25, kReachTop = 24, kReachRight = -5, kReachBottom = -10;

// Tests a shot at (x, y) against every live enemy and damages each one it touches: 1 hit point forward, 0.4 spread, by
// the shot mode of this moment. A destroyed enemy turns into an explosion and scores; a destroyed boss scores nothing
// but sets BossDefeated. 1 when the shot touched at least one enemy, else 0. Called once per flying shot and frame.
Integer HitEnemy(Single x, Single y);
