#include "shell/game_loop.h"

#include "combat/enemy_move.h"
#include "combat/enemy_shots.h"
#include "combat/explosions.h"
#include "combat/my_shots.h"
#include "combat/ship_hits.h"
#include "platform/events.h"
#include "platform/keyboard_input.h"
#include "platform/screen.h"
#include "platform/waits.h"
#include "shell/ending.h"
#include "shell/status.h"
#include "stage/load_stage.h"
#include "stage/player.h"
#include "stage/stage_script.h"
#include "stage/stars.h"
#include "state/random.h"

namespace {

void StartWithin() {
    SkipToEntry(gameStart.entry);
    game.MyPower = gameStart.energy;
    game.ShotMode = gameStart.shotMode;
}

bool LeaveGame() {
    const bool escape = KeyPressed(VK_ESCAPE);
    return game.QuitGame != False || escape || gameAsked;
}

}  // namespace

void SetUpGame() {
    gameAsked = false;
    game.QuitGame = False;
    game.StarReverse = False;
    const std::uint64_t seed = NextSeed();
    Randomize(seed);
    LoadStage();
    game.AllClear = False;
    ScrollBackground();
    game.ShotMode = 0;
    if (gameStart.entry > 0) StartWithin();
    DiscardKey(VK_X);
    DiscardKey(VK_Z);
    if (gameWatcher.Started) gameWatcher.Started(seed);
}

bool PlayFrame() {
    game.FrameStart = ClockNow();
    StageScript();
    if (game.AllClear != False) Ending();
    if (LeaveGame()) return false;
    UpdatePlayer();
    SetMyShot();
    ChangeShotMode();
    ScrollBackground();
    MoveMyShot();
    DrawMyShip();
    MoveEnemy();
    MoveEneShot();
    DrawBom();
    DrawPowerGauge();
    DrawMessages();
    MoveStars();
    DrawStatus();
    if (gameWatcher.FrameDone) gameWatcher.FrameDone();
    DoEvents();
    PaceFrame();
    return true;
}

void GameLoop() {
    SetUpGame();
    while (PlayFrame()) {
    }
    if (gameWatcher.Ended) gameWatcher.Ended();
}
