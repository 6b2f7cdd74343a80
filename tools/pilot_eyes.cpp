#include "pilot_eyes.h"

namespace {

constexpr Byte kPellet = 1, kLastSmall = 3, kBouncer = 4;  // kinds of shots

Seen::Shot Middle(const EneShotType& shot) {
    const double middle = shot.Kind == kPellet ? 0 : shot.Kind <= kLastSmall ? 4 : shot.Kind == kBouncer ? 22 : 8;
    const double half = shot.Kind == kPellet ? 2 : shot.Kind == kBouncer ? 12 : 6;
    return {shot.X + middle, shot.Y + middle, shot.VX, shot.VY, half};
}

}  // namespace

// A share decided once per shot and again after each lapse; without lapses at every look.
bool Look::Overlooks(int slot, const EneShotType& shot) {
    Attention& a = attention_[static_cast<std::size_t>(slot)];
    const bool isNew = !a.flying;
    a.flying = shot.Used == 1;
    if (!a.flying || (!isNew && --a.frames > 0)) return a.overlooked;
    a.overlooked = std::uniform_real_distribution<double>(0, 1)(random_) < eyes_.overlooked;
    a.frames = eyes_.lapse == 0 ? 0 : std::uniform_int_distribution<int>(eyes_.lapse, 2 * eyes_.lapse)(random_);
    return a.overlooked;
}

Seen Look::At(const GameState& state) {
    Seen seen;
    for (int j = 0; j <= state.EneShotMax; ++j) {
        const EneShotType& shot = state.EneShot[j];
        if (!Overlooks(j, shot) && shot.Used == 1) seen.shots.push_back(Middle(shot));
    }
    for (int i = 0; i <= state.EnemyMax; ++i) {
        const EnemyType& enemy = state.Enemy[i];
        if (enemy.State != 1 || enemy.Kind >= kEnemyKinds) continue;
        const EnemyDataType& kind = state.EnemyData[enemy.Kind];
        seen.targets.push_back(
            {enemy.X + kind.Width / 2.0, enemy.Y + kind.Height / 2.0, double(kind.Width), enemy.Kind >= kFirstBoss});
    }
    return seen;
}
