// The fire codes: how enemy shots are born. enemy_shots.h says how they fly.
#pragma once

#include "state/state.h"

// Called by MoveEnemy when a script reaches a fire step, before that step's own movement. Puts the code's shots into
// the free slots from 0 to EneShotMax; with too few of them the pattern loses its last shots. A code outside
// kFirstFireCode..kLastFireCode and a slot or kind outside its table fire nothing.
void SetEneShot(Integer slot, Byte code);

// Watches enemy shots for reports on a stage; changes nothing.
struct ShotWatcher {
    void (*Fired)(int shot, Integer slot, Byte code) = nullptr;  // the shot just born, its enemy and its fire code
    void (*Hit)(int shot) = nullptr;                             // it has hit the ship
};
inline ShotWatcher shotWatcher;
