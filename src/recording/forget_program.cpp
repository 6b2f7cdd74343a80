#include "recording/forget_program.h"

#include "combat/fire_patterns.h"
#include "platform/events.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "stage/faults.h"
#include "stage/load_stage.h"
#include "stage/stage_script.h"
#include "state/main_form.h"
#include "state/random.h"
#include "state/state.h"
#include "toolkit/input_state.h"

void ForgetProgram() {
    static_cast<void>(FinishRecorder());
    StopReplay();
    UseClockSeed();
    SetEventTap(nullptr);
    gameWatcher = {};
    gameStart = {};
    gameAsked = false;
    tableRead = nullptr;
    stageWatcher = {};
    shotWatcher = {};
    ForgetFaults();
    ResetInputState();
    game = GameState{};
    MainForm = MainFormType{};
}
