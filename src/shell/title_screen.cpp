#include "shell/title_screen.h"

#include "host/window.h"
#include "platform/events.h"
#include "platform/joystick_input.h"
#include "platform/keyboard_input.h"
#include "platform/music.h"
#include "platform/screen.h"
#include "platform/waits.h"
#include "shell/best_scores.h"
#include "shell/game_loop.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/resources.h"

namespace {

constexpr Long kIdleTime = 6000;  // ms, of the title and of the information screen
constexpr Long kGamePause = 500;
constexpr Long kPollingStep = 10;
constexpr int kSlideStep = 2;  // pixels
constexpr int kStartButton = 2;

// Starts count by a press of the button that began after the screen came up; Space starts at once.
struct StartKeys {
    bool released = false;

    bool Pressed() const {
        const bool space = KeyPressed(VK_SPACE);
        const bool button = GetJoyButton(kStartButton);
        return (released && button) || space;
    }
    void SeeRelease() {
        if (!GetJoyButton(kStartButton)) released = true;
    }
};

void SwitchStartMenus(bool on) {
    MainForm.MENU100.Enabled = on;
    MainForm.Menu400.Enabled = on;
}

}  // namespace

void DrawTitle() {
    SetPicture(MainForm.B_Crt, LoadResPicture(kTitleBitmap));
    const int w = game.ScreenW, h = game.ScreenH, middle = w / 2;
    for (int i = 0; i <= middle; i += kSlideStep) {
        BitBlt(MainForm.Crt, 0, 0, i, h, MainForm.B_Crt, middle - i, 0, SRCCOPY);
        BitBlt(MainForm.Crt, w - i, 0, i, h, MainForm.B_Crt, middle, 0, SRCCOPY);
        ShowNow(MainForm.Crt);
    }
}

void ShowInfoScreen() {
    SetPicture(MainForm.B_Crt, LoadResPicture(kBackgroundBitmap));
    SetPicture(MainForm.MessagePic, LoadResPicture(kInformationBitmap));
    game.ScrollSpeed = 1;
    game.FrameStart = ClockNow();
    StartKeys keys;
    for (;;) {
        ScrollBackground();
        BitBlt(MainForm.Crt, 0, 0, MainForm.MessagePic.imageWidth, MainForm.MessagePic.imageHeight, MainForm.MessagePic,
               0, 0, SRCPAINT);
        ShowNow(MainForm.Crt);
        DoEvents();
        const bool timeIsUp = ElapsedMs(game.FrameStart) >= kIdleTime;
        if (keys.Pressed() || timeIsUp || gameAsked) return;
        WaitMs(kPollingStep);
        keys.SeeRelease();
    }
}

void RunGame() {
    SwitchStartMenus(false);
    RemovePicture(MainForm.Crt);
    ShowNow(MainForm.Crt);
    WaitMs(kGamePause);
    DiscardKey(VK_ESCAPE);
    LoadBestScores();
    GameLoop();
    CloseMidi();
    SaveBestScores();
    SetPicture(MainForm.B_Crt, LoadResPicture(kTitleBitmap));
    SwitchStartMenus(true);
    WaitMs(kGamePause);
    DiscardKey(VK_SPACE);
}

void TitleScreen() {
    DiscardKey(VK_SPACE);
    DrawTitle();
    Long shown = ClockNow();
    StartKeys keys;
    for (;;) {
        DoEvents();
        if (keys.Pressed() || gameAsked) {
            RunGame();
            keys = {};
            DrawTitle();
            shown = ClockNow();
        }
        if (ElapsedMs(shown) >= kIdleTime) {
            ShowInfoScreen();
            DrawTitle();
            shown = ClockNow();
        }
        WaitMs(kPollingStep);
        keys.SeeRelease();
    }
}
