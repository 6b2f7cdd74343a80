#include "combat/enemy_shots.h"

#include "combat/aim.h"
#include "combat/fire_patterns.h"
#include "combat/ship_hits.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/surface.h"

namespace {

enum class Flight { none, straight, bouncing, homing, trail };

constexpr At kNoMask = {-1, -1};

struct HitBox {
    int left;  // from the shot's corner
    int top;
    int width;
    int height;
};

struct ShotLook {
    int width;
    int height;
    At sprite;  // on EneShotPic
    At mask;
    HitBox hitBox;
    Flight flight;
};

// One row per shot kind: what MoveEneShot needs to draw, fly and test it. Pixels; offsets from the shot's corner.
constexpr ShotLook kShotLook[] = {
    //                   size    sprite    mask      hit box           how it flies
    /*  0 none      */ {0, 0, {0, 0}, kNoMask, {0, 0, 0, 0}, Flight::none},
    /*  1 pellet    */ {8, 8, {16, 8}, kNoMask, {0, 0, 0, 0}, Flight::straight},  // hits with its corner point only
    /*  2 drop      */ {8, 16, {0, 0}, {8, 0}, {0, 0, 8, 8}, Flight::straight},
    /*  3 ring      */ {16, 16, {32, 0}, {48, 0}, {0, 0, 8, 8}, Flight::straight},
    /*  4 bouncer   */ {32, 32, {0, 16}, {0, 48}, {12, 12, 20, 20}, Flight::bouncing},
    /*  5 orb       */ {16, 16, {32, 16}, {48, 16}, {4, 4, 8, 8}, Flight::straight},
    /*  6 seeker    */ {16, 16, {32, 32}, {48, 32}, {4, 4, 8, 8}, Flight::homing},
    /*  7 comet     */ {16, 16, {32, 32}, {48, 32}, {4, 4, 8, 8}, Flight::trail},
    /*  8 bolt      */ {16, 32, {32, 48}, kNoMask, {4, 4, 8, 8}, Flight::straight},
    /*  9 as 7      */ {16, 16, {32, 32}, {48, 32}, {4, 4, 8, 8}, Flight::trail},
    /* 10 slow bolt */ {16, 32, {32, 48}, kNoMask, {4, 4, 8, 8}, Flight::straight},
    /* 11 as 7      */ {16, 16, {32, 32}, {48, 32}, {4, 4, 8, 8}, Flight::trail},
};

constexpr At kTrailSprite = {64, 0};  // image 0; the next ones below. Image 5 lies below the sheet and shows nothing.
constexpr int kTrailSize = 16;
constexpr int kBouncerSize = 32;     // a bouncing shot stays inside the playfield with its whole sprite
constexpr Byte kLastBounce = 5;      // contact with an edge at which a bouncing shot leaves
constexpr Byte kHomingInterval = 5;  // frames
constexpr Byte kHomingTurns = 20;
constexpr Byte kTrailInterval = 25;  // frames
constexpr Byte kTrailTurns = 2;
constexpr Byte kByteEnd = 255;

struct Out {
    bool x;
    bool y;
    bool Any() const { return x || y; }
};

// Written so that a place that is no number counts as outside.
Out OutOfField(const EneShotType& shot, Flight flight) {
    const int inset = flight == Flight::bouncing ? kBouncerSize : 0;
    const auto right = static_cast<Single>(game.ScreenW - inset), bottom = static_cast<Single>(game.ScreenH - inset);
    return {!(shot.X >= 0 && shot.X <= right), !(shot.Y >= 0 && shot.Y <= bottom)};
}

void DrawTrail(const EneShotType& shot) {
    for (int k = kTrailPositions - 1; k >= 0; --k) {
        BitBlt(MainForm.Crt, FloorToPixel(shot.TX[k]), FloorToPixel(shot.TY[k]), kTrailSize, kTrailSize,
               MainForm.EneShotPic, kTrailSprite.x, kTrailSprite.y + kTrailSize * k, SRCPAINT);
    }
}

void DrawShot(const EneShotType& shot, const ShotLook& look) {
    const int x = FloorToPixel(shot.X), y = FloorToPixel(shot.Y);
    if (look.flight == Flight::trail) DrawTrail(shot);
    if (look.mask.x < 0) {
        BitBlt(MainForm.Crt, x, y, look.width, look.height, MainForm.EneShotPic, look.sprite.x, look.sprite.y,
               SRCPAINT);
    } else {
        BlitSprite(MainForm.Crt, x, y, look.width, look.height, MainForm.EneShotPic, look.mask, look.sprite);
    }
}

void Increase(Byte& counter) {
    if (counter < kByteEnd) ++counter;
}

void Bounce(EneShotType& shot, Out out) {
    if (out.x) shot.VX = -shot.VX;
    if (out.y) shot.VY = -shot.VY;
    if (out.Any()) Increase(shot.Count);
}

void ReAim(EneShotType& shot) {
    AimAtShip(shot, game.Level + 3);
    shot.Count = 0;
    Increase(shot.Turns);
}

void Home(EneShotType& shot) {
    Increase(shot.Count);
    if (shot.Turns < kHomingTurns && shot.Count == kHomingInterval) ReAim(shot);
}

// TrailWait paces the trail; at 1 it moves every frame.
void MoveTrail(EneShotType& shot) {
    Increase(shot.TrailWait);
    if (shot.TrailWait < 1) return;
    for (int k = kTrailPositions - 1; k > 0; --k) {
        shot.TX[k] = shot.TX[k - 1];
        shot.TY[k] = shot.TY[k - 1];
    }
    shot.TX[0] = shot.X;
    shot.TY[0] = shot.Y;
    shot.TrailWait = 0;
}

void FlyTrail(EneShotType& shot) {
    Increase(shot.Count);
    if (shot.Count >= kTrailInterval && shot.Turns < kTrailTurns) ReAim(shot);
    MoveTrail(shot);
}

void Steer(EneShotType& shot, Flight flight, Out out) {
    if (flight == Flight::bouncing) Bounce(shot, out);
    if (flight == Flight::homing) Home(shot);
    if (flight == Flight::trail) FlyTrail(shot);
}

// The menu is asked for every shot: it can be switched while a hit is shown.
bool HitsShip(const EneShotType& shot, const HitBox& box) {
    if (MainForm.Menu003.Checked) return false;
    return HitMyShip(shot.X + static_cast<Single>(box.left), shot.Y + static_cast<Single>(box.top),
                     static_cast<Single>(box.width), static_cast<Single>(box.height)) == 1;
}

// A trail shot may leave the field and come back until its last turn.
bool LeavesField(const EneShotType& shot, Flight flight, Out out) {
    if (!out.Any()) return false;
    if (flight == Flight::bouncing) return shot.Count >= kLastBounce;
    if (flight == Flight::trail) return shot.Turns >= kTrailTurns;
    return true;
}

void FlyShot(EneShotType& shot, const ShotLook& look) {
    DrawShot(shot, look);
    shot.X = shot.X + shot.VX;
    shot.Y = shot.Y + shot.VY;
    const Out out = OutOfField(shot, look.flight);
    Steer(shot, look.flight, out);
    const bool hit = HitsShip(shot, look.hitBox);
    if (hit && shotWatcher.Hit) shotWatcher.Hit(static_cast<int>(&shot - game.EneShot));
    if (hit || LeavesField(shot, look.flight, out)) shot.Used = 0;
}

}  // namespace

void MoveEneShot() {
    for (int j = 0; j <= game.EneShotMax; ++j) {
        EneShotType& shot = game.EneShot[j];
        if (shot.Used != 1 || shot.Kind == 0 || shot.Kind >= std::size(kShotLook)) continue;
        FlyShot(shot, kShotLook[shot.Kind]);
    }
}
