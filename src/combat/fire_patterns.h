// The eleven fire codes: how enemy shots are born. enemy_shots.h says how they fly.
#pragma once

#include "shell/state.h"

// Called by MoveEnemy when a script reaches a fire step, before that step's own movement. Puts the code's shots into
// the free slots from 0 to EneShotMax; with too few of them the pattern loses its last shots. A code outside 1..11 and
// a slot or kind outside its table fire nothing.
void SetEneShot(Integer slot, Byte code);
