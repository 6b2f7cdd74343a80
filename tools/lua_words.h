// Words that Lua sources may use in place of numbers.
#pragma once

#include "author/fields.h"
#include "combat/enemy_move.h"
#include "stage/stage_script.h"

inline const Names kStepNames = {{"move", 0}, {"jump", kJump}, {"repeat", kRepeatStep}, {"end", kEndOfEnemy}};
inline const Names kCommandNames = {
    {"clear", kStageClear},     {"next_stage", kNextStage}, {"boss_wait_stop", kBossWaitStop},
    {"boss_entry", kBossEntry}, {"boss_wait", kBossWait},   {"pass", 254},
    {"restart", kRestart},      {"repeat", kRepeat}};
