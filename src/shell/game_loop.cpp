#include "shell/game_loop.h"

#include "combat/enemy_move.h"
#include "combat/enemy_shots.h"
#include "combat/explosions.h"
#include "combat/my_shots.h"
#include "combat/ship_hits.h"
#include "host/clock.h"
#include "platform/events.h"
#include "platform/keyboard_input.h"
#include "platform/screen.h"
#include "shell/ending.h"
#include "shell/main_form.h"
#include "shell/random.h"
#include "shell/status.h"
#include "stage/load_stage.h"
#include "stage/player.h"
#include "stage/stage_script.h"
#include "stage/stars.h"

namespace {

constexpr Long kFrameBudget = 38;  // ms

void SetUpGame() {
    game.QuitGame = False;
    game.StarReverse = False;
    const std::uint64_t seed = NextSeed();
    Randomize(seed);
    LoadStage();
    game.AllClear = False;
    ScrollBackground();
    game.ShotMode = 0;
    DiscardKey(VK_X);
    DiscardKey(VK_Z);
    if (gameWatcher.Started) gameWatcher.Started(seed);
}

bool LeaveGame() {
    const bool escape = KeyPressed(VK_ESCAPE);
    return game.QuitGame != False || escape;
}

// False when the game is left.
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

}  // namespace

void GameLoop() {
    SetUpGame();
    while (PlayFrame()) {
    }
    if (gameWatcher.Ended) gameWatcher.Ended();
}

Long ClockNow() {
    return static_cast<Long>(timeGetTime());
}

Long ElapsedMs(Long start) {
    return static_cast<Long>(timeGetTime() - static_cast<std::uint32_t>(start));
}

void WaitMs(Long ms) {
    const Long start = ClockNow();
    while (ElapsedMs(start) <= ms) {
    }
}

void PaceFrame() {
    game.FrameEnd = ClockNow();
    game.FrameWork =
        static_cast<Long>(static_cast<std::uint32_t>(game.FrameEnd) - static_cast<std::uint32_t>(game.FrameStart));
    if (MainForm.Menu002.Checked && game.FrameWork < kFrameBudget) WaitMs(kFrameBudget - game.FrameWork);
    game.FrameTime = ElapsedMs(game.FrameStart);
}
