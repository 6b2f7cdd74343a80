#include "combat/enemy_move.h"

#include <string>

#include "combat/fire_patterns.h"
#include "stage/faults.h"
#include "state/main_form.h"
#include "toolkit/rounding.h"
#include "toolkit/surface.h"

namespace {

bool IsStep(int step) {
    return step >= 0 && step < kMoveSteps;
}

std::string Where(const EnemyType& enemy) {
    return "enemy kind " + std::to_string(enemy.Kind) + ", step " + std::to_string(enemy.Step);
}

void EndFaulty(EnemyType& enemy, Fault fault) {
    ReportFault(fault, Where(enemy));
    enemy.State = 0;
}

// The enemy's script, or null if its data leads outside the tables.
const EneMoveType* ScriptOf(EnemyType& enemy) {
    if (enemy.Kind >= kEnemyKinds) {
        EndFaulty(enemy, Fault::noSuchKind);
        return nullptr;
    }
    const Byte pattern = game.EnemyData[enemy.Kind].MoveNo;
    if (pattern >= kMovePatterns) {
        EndFaulty(enemy, Fault::noSuchPattern);
        return nullptr;
    }
    if (!IsStep(enemy.Step)) {
        EndFaulty(enemy, Fault::stepOutside);
        return nullptr;
    }
    return game.EneMove[pattern];
}

void JumpTo(EnemyType& enemy, Single target) {
    enemy.Step = RoundTo<Integer>(target);
}

// A repeat that is used up takes its own increments back beforehand, so that the movement that follows adds up to none.
void TakeRepeat(EnemyType& enemy, const EneMoveType& step) {
    if (enemy.Looping == 0) {
        enemy.LoopCount = RoundTo<Integer>(step.DY);
        enemy.Looping = 1;
    }
    if (enemy.LoopCount > 0) {
        JumpTo(enemy, step.DX);
        --enemy.LoopCount;
    } else {
        enemy.Looping = 0;
        enemy.X = enemy.X - step.DX;
        enemy.Y = enemy.Y - step.DY;
    }
}

void TakeStep(int slot, EnemyType& enemy, const EneMoveType& step) {
    if (step.Flag >= kFirstFireCode && step.Flag <= kLastFireCode) {
        SetEneShot(static_cast<Integer>(slot), step.Flag);
    } else if (step.Flag == kJump) {
        JumpTo(enemy, step.DX);
    } else if (step.Flag == kRepeatStep) {
        TakeRepeat(enemy, step);
    } else if (step.Flag == kEndOfEnemy) {
        enemy.State = 0;
    } else {
        enemy.Anime = step.Anime;
    }
}

// After a jump the step jumped to gives only its movement.
bool Advance(EnemyType& enemy, const EneMoveType* script) {
    if (!IsStep(enemy.Step)) {
        EndFaulty(enemy, Fault::stepOutside);
        return false;
    }
    const EneMoveType& step = script[enemy.Step];
    enemy.X = enemy.X + step.DX;
    enemy.Y = enemy.Y + step.DY;
    ++enemy.Step;
    return true;
}

// The mask row lies Height below the sprite row. Once the last boss has emptied EnemyPic there is nothing to draw.
void DrawEnemy(const EnemyType& enemy) {
    if (enemy.Kind > kLastDrawnKind) return;
    const Surface& sheet = enemy.Kind <= kLastSheetKind ? MainForm.EnemyPic : MainForm.BossPic;
    if (!sheet.HasPicture) return;
    const EnemyDataType& kind = game.EnemyData[enemy.Kind];
    const int column = enemy.Anime * kind.Width + kind.SX;
    BlitSprite(MainForm.Crt, FloorToPixel(enemy.X), FloorToPixel(enemy.Y), kind.Width, kind.Height, sheet,
               {column, kind.SY + kind.Height}, {column, kind.SY});
}

}  // namespace

void MoveEnemy() {
    for (int i = 0; i <= game.EnemyMax; ++i) {
        EnemyType& enemy = game.Enemy[i];
        if (enemy.State != 1) continue;
        const EneMoveType* script = ScriptOf(enemy);
        if (!script) continue;
        TakeStep(i, enemy, script[enemy.Step]);
        if (Advance(enemy, script)) DrawEnemy(enemy);
    }
}
