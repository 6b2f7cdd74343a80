#include "shell/main_routine.h"

#include "host/window.h"
#include "platform/joystick_input.h"
#include "shell/main_form.h"
#include "shell/state.h"
#include "shell/title_screen.h"

void Main() {
    game.ScreenW = 320;
    game.ScreenH = 480;
    LoadMainForm();
    ShowMainForm();
    InitJoystick();
    if (game.JoyUse != False) MainForm.Menu008.Checked = true;
    TitleScreen();
}
