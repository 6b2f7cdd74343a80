#include "combat/enemy_hits.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/music.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "toolkit/resources.h"

namespace {

constexpr double kForwardDamage = 1.0;
constexpr double kSpreadLoss = 0.6;    // of the damage, in the spread mode
constexpr Integer kSoundInterval = 3;  // calls between two damage sounds
constexpr int kEmptiedSize = 16;

bool Touches(const EnemyType& enemy, Single x, Single y) {
    const EnemyDataType& kind = game.EnemyData[enemy.Kind];
    const double left = static_cast<double>(enemy.X) - kReachLeft, top = static_cast<double>(enemy.Y) - kReachTop;
    const double right = static_cast<double>(enemy.X) + kind.Width + kReachRight;
    const double bottom = static_cast<double>(enemy.Y) + kind.Height + kReachBottom;
    return left < x && x < right && top < y && y < bottom;
}

void AddScore(Byte points) {
    constexpr std::int64_t kMost = std::numeric_limits<Long>::max();
    game.Score = static_cast<Long>(std::min(std::int64_t{game.Score} + points, kMost));
    if (game.Score > game.HiScore) game.HiScore = game.Score;
}

// The last boss has removed the picture of the large explosions; the boss's own needs it.
void ReleaseBoss() {
    SetPicture(MainForm.BomPic128, LoadResPicture(kBomBitmap));
    Resize(MainForm.BossPic, kEmptiedSize, kEmptiedSize);
    RemovePicture(MainForm.BossPic);
    game.BossDefeated = True;
}

void Destroy(EnemyType& enemy) {
    enemy.State = 2;
    enemy.BomFrame = 0;
    enemy.Step = 0;
    if (enemy.Kind >= kFirstBoss) {
        ReleaseBoss();
    } else {
        AddScore(game.EnemyData[enemy.Kind].Score);
    }
    PlayEffect(game.Wave1Data);
}

// Hit points are Singles: a spread hit leaves a tiny rest, so 2 hit points take six of them.
void Damage(EnemyType& enemy, bool& sounded) {
    enemy.HP = static_cast<Single>(enemy.HP - (kForwardDamage - game.ShotMode * kSpreadLoss));
    if (enemy.HP <= 0) {
        Destroy(enemy);
    } else if (game.HitSoundWait == 0 && !sounded) {
        sounded = true;
        PlayEffect(game.Wave2Data);
    }
}

}  // namespace

Integer HitEnemy(Single x, Single y) {
    if (++game.HitSoundWait >= kSoundInterval) game.HitSoundWait = 0;
    bool sounded = false;
    Integer touched = 0;
    for (int e = 0; e <= game.EnemyMax; ++e) {
        EnemyType& enemy = game.Enemy[e];
        if (enemy.State != 1 || enemy.Kind >= kEnemyKinds || !Touches(enemy, x, y)) continue;
        Damage(enemy, sounded);
        touched = 1;
    }
    return touched;
}
