#include "combat/my_shots.h"

#include <span>

#include "combat/enemy_hits.h"
#include "platform/joystick_input.h"
#include "platform/keyboard_input.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/surface.h"

namespace {

constexpr Integer kFireInterval = 2;  // frames between two volleys
constexpr int kFireButton = 2, kModeButton = 1;
constexpr int kGroupSize = 4;
constexpr int kLastGroup = 32;
constexpr int kLastShot = kLastGroup + kGroupSize - 1;
constexpr int kShotWidth = 16, kShotHeight = 32;
constexpr int kRightEnd = 336, kLeftEnd = -15, kTopEnd = 1;

struct Launch {
    int x;  // from the ship's corner
    int y;
    Single vx;
    Single vy;  // positive flies up
};
constexpr Launch kForward[] = {{2, 0, 0, 20}, {42, 0, 0, 20}};
constexpr Launch kSpread[] = {{-10, 10, -4, 20}, {6, 0, -1.2F, 20}, {41, 0, 1.2F, 20}, {55, 10, 4, 20}};

bool GroupIsFree(int group, std::size_t slots) {
    for (std::size_t i = 0; i < slots; ++i) {
        if (game.MyShot[static_cast<std::size_t>(group) + i].Used != 0) return false;
    }
    return true;
}

void FireVolley(int group, std::span<const Launch> volley) {
    for (const Launch& launch : volley) {
        game.MyShot[group++] = {static_cast<Single>(game.MyX + launch.x), static_cast<Single>(game.MyY + launch.y),
                                launch.vx, launch.vy, 1};
    }
}

bool ModeKeyPressed() {
    const bool key = KeyPressed(VK_Z);
    const bool button = GetJoyButton(kModeButton);
    return key || button;
}

bool FlyShot(MyShotType& shot) {
    shot.Y = shot.Y - shot.VY;
    shot.X = shot.X + shot.VX;
    const int x = FloorToPixel(shot.X), y = FloorToPixel(shot.Y);
    BitBlt(MainForm.Crt, x, y, kShotWidth, kShotHeight, MainForm.MyShotPic, 0, 0, SRCPAINT);
    const bool hit = HitEnemy(shot.X, shot.Y) == 1;
    return !hit && x < kRightEnd && x >= kLeftEnd && y >= kTopEnd;
}

}  // namespace

void SetMyShot() {
    if (game.MyShotWait != kFireInterval) {
        ++game.MyShotWait;
        return;
    }
    game.MyShotWait = 0;
    const bool key = KeyPressed(VK_X);
    const bool button = GetJoyButton(kFireButton);
    if (!(key || button) || game.MyDead != False) return;
    const std::span<const Launch> volley = game.ShotMode == 0 ? std::span<const Launch>(kForward) : kSpread;
    for (int group = 0; group <= kLastGroup; group += kGroupSize) {
        if (!GroupIsFree(group, volley.size())) continue;
        FireVolley(group, volley);
        return;
    }
}

void ChangeShotMode() {
    const bool pressed = ModeKeyPressed();
    if (pressed && game.ModeKeyFree) game.ShotMode = game.ShotMode == 0 ? 1 : 0;
    game.ModeKeyFree = !ModeKeyPressed();
}

void MoveMyShot() {
    for (int i = 0; i <= kLastShot; ++i) {
        MyShotType& shot = game.MyShot[i];
        if (shot.Used == 1 && !FlyShot(shot)) shot.Used = 0;
    }
}
