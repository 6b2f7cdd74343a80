// The words that stand for commands of the appearance tables and for codes of the movement steps.
#pragma once

#include "author/fields.h"
#include "combat/enemy_move.h"
#include "stage/stage_script.h"

inline const Names kStepNames = {{"move", 0}, {"jump", kJump}, {"repeat", kRepeatStep}, {"end", kEndOfEnemy}};
inline const Names kCommandNames = {
    {"clear", kStageClear},     {"next_stage", kNextStage}, {"boss_wait_stop", kBossWaitStop},
    {"boss_entry", kBossEntry}, {"boss_wait", kBossWait},   {"pass", 254},
    {"restart", kRestart},      {"repeat", kRepeat}};

// The word for the number, or "".
inline std::string NameOf(const Names& names, int number) {
    for (const auto& [name, value] : names) {
        if (value == number) return name;
    }
    return {};
}
