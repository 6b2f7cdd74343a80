#include "combat/ship_hits.h"

#include "platform/events.h"
#include "platform/music.h"
#include "platform/waits.h"
#include "state/main_form.h"
#include "toolkit/rounding.h"
#include "toolkit/surface.h"

namespace {

// The ship's hit box, from the corner of its 64 x 64 sprite; open on all sides.
constexpr int kHitLeft = 16, kHitRight = 48, kHitTop = 24, kHitBottom = 42;

constexpr double kFullDamage = 1.0;
constexpr double kEasyDamage = 0.4;  // on Easy and in score attack
constexpr Single kLowEnergy = 4.0F;  // the gauge is red from here on
constexpr Long kHitPause = 100;      // ms

constexpr int kShipSize = 64;  // also the way from a frame to its mask
constexpr At kGaugePlace = {5, 15};
constexpr int kGaugeHeight = 6;

bool TouchesShip(Single x, Single y, Single width, Single height) {
    const Single right = x + width, bottom = y + height;
    return right > static_cast<Single>(game.MyX + kHitLeft) && x < static_cast<Single>(game.MyX + kHitRight) &&
           bottom > static_cast<Single>(game.MyY + kHitTop) && y < static_cast<Single>(game.MyY + kHitBottom);
}

bool IsScoreAttack() {
    return game.StageNo == kScoreAttackStage;
}

void FreeEnemyShots() {
    if (!IsScoreAttack() && MainForm.MENU103.Checked) return;
    for (int j = 0; j <= game.EneShotMax; ++j) game.EneShot[j].Used = 0;
}

// The difference is taken in double precision: on Easy 25 hits leave a tiny rest of the Single.
void LoseEnergy() {
    const double damage = IsScoreAttack() || MainForm.MENU101.Checked ? kEasyDamage : kFullDamage;
    game.MyPower = static_cast<Single>(game.MyPower - damage);
    if (game.MyPower <= 0) {
        game.MyPower = 0;
        game.MyDead = True;
    }
    if (game.MyPower <= kLowEnergy) {
        SetBackColor(MainForm.MyPowerPic, kRed);
        Cls(MainForm.MyPowerPic);
    }
}

}  // namespace

Integer HitMyShip(Single x, Single y, Single width, Single height) {
    if (!TouchesShip(x, y, width, height) || game.MyDead != False) return 0;
    PlayEffect(game.Wave1Data);
    SetBackColor(MainForm.Crt, kRed);
    Cls(MainForm.Crt);
    FreeEnemyShots();
    LoseEnergy();
    DoEvents();
    SetBackColor(MainForm.Crt, kBlack);
    WaitMs(kHitPause);
    return 1;
}

void DrawMyShip() {
    if (game.MyShipFrame >= kShipFrames) return;
    const At sprite = {game.MyShipChr[game.MyShipFrame][0], game.MyShipChr[game.MyShipFrame][1]};
    BlitSprite(MainForm.Crt, game.MyX, game.MyY, kShipSize, kShipSize, MainForm.Chr, {sprite.x + kShipSize, sprite.y},
               sprite);
}

void DrawPowerGauge() {
    const int width = RoundTo<Long>(game.MyPower * 10.0);
    BitBlt(MainForm.Crt, kGaugePlace.x, kGaugePlace.y, width, kGaugeHeight, MainForm.MyPowerPic, 0, 0, SRCPAINT);
}
