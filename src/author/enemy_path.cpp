#include "author/enemy_path.h"

#include <memory>
#include <utility>

#include "combat/enemy_move.h"
#include "combat/fire_patterns.h"
#include "stage/stage_script.h"
#include "state/field_size.h"
#include "state/main_form.h"

namespace {

// Puts everything back that a trial run touches. The picture is taken away meanwhile, so nothing is drawn.
class Aside {
  public:
    Aside() : state_(std::make_unique<GameState>(game)), watcher_(std::exchange(shotWatcher, {})) {
        std::swap(picture_, MainForm.Crt.image);
        width_ = std::exchange(MainForm.Crt.imageWidth, 0);
        height_ = std::exchange(MainForm.Crt.imageHeight, 0);
    }
    ~Aside() {
        game = *state_;
        shotWatcher = watcher_;
        std::swap(picture_, MainForm.Crt.image);
        MainForm.Crt.imageWidth = width_;
        MainForm.Crt.imageHeight = height_;
    }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

  private:
    std::unique_ptr<GameState> state_;
    ShotWatcher watcher_;
    decltype(MainForm.Crt.image) picture_;
    int width_ = 0;
    int height_ = 0;
};

Single StartX(Single x) {
    return x == kRandomX ? kMiddleOfRandomX : x;
}

bool InField(const PathPoint& at, const EnemyDataType& kind) {
    return at.X < kFieldWidth && at.Y < kFieldHeight && at.X + static_cast<Single>(kind.Width) > 0 &&
           at.Y + static_cast<Single>(kind.Height) > 0;
}

bool IsFire(const EneMoveType& step) {
    return step.Flag >= kFirstFireCode && step.Flag <= kLastFireCode;
}

// The step the enemy is about to perform, or null when its data lead outside the tables.
const EneMoveType* StepOf(const EnemyType& enemy) {
    const Byte pattern = game.EnemyData[enemy.Kind].MoveNo;
    const bool exists = pattern < kMovePatterns && enemy.Step >= 0 && enemy.Step < kMoveSteps;
    return exists ? &game.EneMove[pattern][enemy.Step] : nullptr;
}

// One frame; false when the enemy is gone.
bool MoveOn(EnemyType& enemy, EnemyPath& path) {
    const EneMoveType* step = StepOf(enemy);
    const Integer performed = enemy.Step;
    MoveEnemy();
    if (enemy.State == 1) {
        path.points.push_back({enemy.X, enemy.Y, performed, enemy.Anime, IsFire(*step) ? step->Flag : Byte{0}});
        return true;
    }
    path.end = step && step->Flag == kEndOfEnemy ? PathEnd::removed : PathEnd::faulty;
    return false;
}

int LeavesAt(const EnemyPath& path, const EnemyDataType& kind) {
    auto frame = static_cast<int>(path.points.size());
    while (frame > 0 && !InField(path.points[static_cast<std::size_t>(frame - 1)], kind)) --frame;
    const bool inAtTheEnd = frame == static_cast<int>(path.points.size());
    return inAtTheEnd && path.end == PathEnd::goesOn ? -1 : frame;
}

}  // namespace

EnemyPath PathOf(int kind, Single x, Single y, int frames) {
    EnemyPath path;
    if (kind < 0 || kind >= kEnemyKinds) {
        path.end = PathEnd::faulty;
        return path;
    }
    const Aside aside;
    for (EnemyType& other : game.Enemy) other.State = 0;
    game.EnemyMax = 0;
    EnemyType& enemy = game.Enemy[0];
    enemy = {};
    enemy.Kind = static_cast<Byte>(kind);
    enemy.State = 1;
    enemy.X = StartX(x);
    enemy.Y = y;
    for (int frame = 0; frame < frames && MoveOn(enemy, path); ++frame) {
    }
    path.leaves = LeavesAt(path, game.EnemyData[kind]);
    return path;
}
