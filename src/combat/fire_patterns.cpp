#include "combat/fire_patterns.h"

#include <algorithm>
#include <span>

#include "combat/aim.h"
#include "combat/enemy_move.h"
#include "state/random.h"

namespace {

// Where a shot is born: across from the enemy's left edge or its middle, down from its middle or its bottom edge.
enum class Across { left, middle };
enum class Down { middle, bottom };

enum class Launch {
    fixed,        // the velocity of the row
    drop,         // straight down, faster on higher levels
    ring,         // ShotDir of the shot's number
    aimed,        // at the ship, displaced at random, at Level + 3
    aimedRandom,  // the same at a random speed from Level + 2 to Level + 6
};

enum class Trail { none, filled };  // filled: all trail positions start at the shot

struct Birth {
    Across across;
    int x;
    Down down;
    int y;
    Launch launch;
    Single vx;
    Single vy;
    Byte kind;
    Trail trail;
};

// Which counters of the slot the code sets to 0. The others keep what the slot last held; the kinds they belong to do
// not use them.
enum class Clears { nothing, count, countAndTurns, all };

struct FireCode {
    int shots;
    Clears clears;
    std::span<const Birth> births;  // the last one serves all further shots too
};

//                             across          x    down           y    launch                vx  vy kind trail
constexpr Birth kFire1[] = {{Across::middle, 0, Down::bottom, -10, Launch::aimedRandom, 0, 0, 1, Trail::none}};
constexpr Birth kFire2[] = {{Across::middle, -4, Down::bottom, -10, Launch::drop, 0, 0, 2, Trail::none}};
constexpr Birth kFire3[] = {{Across::middle, -8, Down::middle, 0, Launch::ring, 0, 0, 3, Trail::none}};
constexpr Birth kFire4[] = {{Across::middle, -8, Down::middle, 0, Launch::ring, 0, 0, 4, Trail::none}};
constexpr Birth kFire5[] = {{Across::middle, 0, Down::bottom, -10, Launch::aimedRandom, 0, 0, 5, Trail::none}};
constexpr Birth kFire6[] = {{Across::middle, 0, Down::bottom, -10, Launch::aimed, 0, 0, 6, Trail::none}};
constexpr Birth kFire7[] = {{Across::middle, 0, Down::bottom, -10, Launch::aimed, 0, 0, 7, Trail::filled}};
constexpr Birth kFire8[] = {{Across::middle, -8, Down::bottom, -30, Launch::fixed, 0, 20, 8, Trail::none},
                            {Across::middle, -24, Down::bottom, -30, Launch::fixed, -4, 20, 8, Trail::none},
                            {Across::middle, 10, Down::bottom, -30, Launch::fixed, 4, 20, 8, Trail::none},
                            {Across::left, 32, Down::bottom, 0, Launch::fixed, 0, 6, 7, Trail::filled},
                            {Across::left, 122, Down::bottom, 0, Launch::fixed, 0, 6, 7, Trail::filled}};
constexpr Birth kFire9[] = {{Across::left, 30, Down::bottom, -25, Launch::fixed, 0, 8, 7, Trail::filled},
                            {Across::left, 45, Down::bottom, -25, Launch::fixed, 0, 8, 7, Trail::filled}};
constexpr Birth kFire10[] = {{Across::middle, -8, Down::bottom, -50, Launch::fixed, 0, 16, 10, Trail::none},
                             {Across::middle, -24, Down::bottom, -50, Launch::fixed, -3, 16, 10, Trail::none},
                             {Across::middle, 10, Down::bottom, -50, Launch::fixed, 3, 16, 10, Trail::none}};
constexpr Birth kFire11[] = {{Across::left, 155, Down::bottom, -25, Launch::fixed, 0, 8, 7, Trail::filled},
                             {Across::left, 170, Down::bottom, -25, Launch::fixed, 0, 8, 7, Trail::filled}};

constexpr FireCode kFireCodes[] = {
    /*  0 none                 */ {0, Clears::nothing, {}},
    /*  1 aimed                */ {1, Clears::countAndTurns, kFire1},
    /*  2 drop                 */ {1, Clears::nothing, kFire2},
    /*  3 ring, straight       */ {8, Clears::nothing, kFire3},
    /*  4 ring, bouncing       */ {8, Clears::count, kFire4},
    /*  5 aimed, other look    */ {1, Clears::countAndTurns, kFire5},
    /*  6 homing               */ {1, Clears::countAndTurns, kFire6},
    /*  7 trail                */ {1, Clears::all, kFire7},
    /*  8 volley and two trails*/ {5, Clears::all, kFire8},
    /*  9 two trails, left     */ {2, Clears::all, kFire9},
    /* 10 volley               */ {3, Clears::all, kFire10},
    /* 11 two trails, right    */ {2, Clears::all, kFire11},
};
static_assert(std::size(kFireCodes) == kLastFireCode + 1, "a row for each code that a step may have");

void ClearCounters(EneShotType& shot, Clears clears) {
    if (clears == Clears::nothing) return;
    shot.Count = 0;
    if (clears == Clears::count) return;
    shot.Turns = 0;
    if (clears == Clears::all) shot.TrailWait = 0;
}

// Halves of odd sizes are exact halves.
void Place(EneShotType& shot, const Birth& birth, const EnemyType& enemy, const EnemyDataType& kind) {
    const double across = birth.across == Across::middle ? kind.Width / 2.0 : 0.0;
    const double down = birth.down == Down::middle ? kind.Height / 2.0 : kind.Height;
    shot.X = static_cast<Single>(enemy.X + across + birth.x);
    shot.Y = static_cast<Single>(enemy.Y + down + birth.y);
    if (birth.trail == Trail::none) return;
    for (int k = 0; k < kTrailPositions; ++k) {
        shot.TX[k] = shot.X;
        shot.TY[k] = shot.Y;
    }
}

// -29..60: the aim errs further to the right and down than to the left and up.
int AimError() {
    return RndInt(90, 1 - 30);
}

// Order of the draws: the speed, then the error in x, then that in y.
void AimWithError(EneShotType& shot, int speed) {
    const int errorX = AimError();
    const int errorY = AimError();
    AimAtShip(shot, speed, errorX, errorY);
}

void LaunchShot(EneShotType& shot, const Birth& birth, int number) {
    switch (birth.launch) {
        case Launch::fixed:
            shot.VX = birth.vx;
            shot.VY = birth.vy;
            break;
        case Launch::drop:
            shot.VX = 0;
            shot.VY = static_cast<Single>(game.Level / 2.0 + 12);
            break;
        case Launch::ring:
            shot.VX = game.ShotDir[number].X;
            shot.VY = game.ShotDir[number].Y;
            break;
        case Launch::aimed:
            AimWithError(shot, game.Level + 3);
            break;
        case Launch::aimedRandom:
            AimWithError(shot, RndInt(5, game.Level + 2));
            break;
    }
}

void CreateShot(EneShotType& shot, const FireCode& code, int number, const EnemyType& enemy) {
    const auto last = code.births.size() - 1;
    const Birth& birth = code.births[std::min(static_cast<std::size_t>(number), last)];
    shot.Kind = birth.kind;
    shot.Used = 1;
    ClearCounters(shot, code.clears);
    Place(shot, birth, enemy, game.EnemyData[enemy.Kind]);
    LaunchShot(shot, birth, number);
}

}  // namespace

void SetEneShot(Integer slot, Byte code) {
    if (slot < 0 || slot >= kEnemySlots || code >= std::size(kFireCodes)) return;
    const EnemyType& enemy = game.Enemy[slot];
    if (enemy.Kind >= kEnemyKinds) return;
    const FireCode& fire = kFireCodes[code];
    int number = 0;
    for (int j = 0; j <= game.EneShotMax && number < fire.shots; ++j) {
        if (game.EneShot[j].Used != 0) continue;
        CreateShot(game.EneShot[j], fire, number++, enemy);
        if (shotWatcher.Fired) shotWatcher.Fired(j, slot, code);
    }
}
