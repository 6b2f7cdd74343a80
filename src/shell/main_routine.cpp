#include "shell/main_routine.h"

#include "host/window.h"
#include "platform/joystick_input.h"
#include "shell/title_screen.h"
#include "shell/window_design.h"
#include "state/field_size.h"
#include "state/main_form.h"
#include "state/state.h"

void StartProgram() {
    game.ScreenW = kFieldWidth;
    game.ScreenH = kFieldHeight;
    LoadMainForm();
    ShowMainForm();
    InitJoystick();
    if (game.JoyUse != False) MainForm.Menu008.Checked = true;
}

void Main() {
    StartProgram();
    TitleScreen();
}
