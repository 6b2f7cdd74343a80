// What a player shot does to the enemies.
#pragma once

#include "state/state.h"

// Tests a shot at (x, y) against every live enemy and damages each one it touches: 1 hit point forward, 0.4 spread, by
// the shot mode of this moment. A destroyed enemy turns into an explosion and scores; a destroyed boss scores nothing
// but sets BossDefeated. 1 when the shot touched at least one enemy, else 0. Called once per flying shot and frame.
Integer HitEnemy(Single x, Single y);
