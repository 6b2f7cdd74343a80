#include "combat/explosions.h"

#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/surface.h"

namespace {

constexpr Integer kFrames = 7;  // the strips hold six: the last one shows nothing
constexpr Integer kLastWait = 2;
constexpr Single kDrift = 8;  // pixels down per frame

void DrawStrip(const Surface& strip, int size, double x, double y, int frame) {
    BitBlt(MainForm.Crt, FloorToPixel(x), FloorToPixel(y), size, size, strip, frame * size, 0, SRCPAINT);
}

// The large explosion is centred over its enemy, half a pixel to the left.
void DrawExplosion(const EnemyType& slot) {
    if (slot.Kind >= kEnemyKinds) return;
    const EnemyDataType& kind = game.EnemyData[slot.Kind];
    if (kind.BomType == 0) DrawStrip(MainForm.BomPic, 32, slot.X, slot.Y, slot.BomFrame);
    if (kind.BomType == 1) DrawStrip(MainForm.BomPic64, 64, slot.X, slot.Y, slot.BomFrame);
    if (kind.BomType == 2) {
        DrawStrip(MainForm.BomPic128, 128, slot.X + (kind.Width - 128.5) / 2, slot.Y, slot.BomFrame);
    }
}

// The counter is shared by every explosion on screen and advances once per explosion, so only the one that meets it at
// its end moves on, and others may stand still for a while. Authors rely on the look; keep it.
void Burn(EnemyType& slot) {
    if (game.BomWait != kLastWait) {
        ++game.BomWait;
        return;
    }
    game.BomWait = 0;
    ++slot.BomFrame;
    if (slot.BomFrame < kFrames) return;
    slot.State = 0;
    slot.BomFrame = 0;
    slot.Step = 0;
}

}  // namespace

void DrawBom() {
    for (int e = 0; e <= game.EnemyMax; ++e) {
        EnemyType& slot = game.Enemy[e];
        if (slot.State != 2) continue;
        DrawExplosion(slot);
        slot.Y = slot.Y + kDrift;
        Burn(slot);
    }
}
