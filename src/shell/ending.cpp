#include "shell/ending.h"

#include <array>

#include "host/window.h"
#include "platform/events.h"
#include "platform/keyboard_input.h"
#include "platform/music.h"
#include "platform/screen.h"
#include "platform/waits.h"
#include "shell/game_loop.h"
#include "stage/stars.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/resources.h"
#include "toolkit/text.h"

namespace {

// The people are call signs invented for this game.
constexpr std::array kCredits = {
    "       STAFF",
    "",
    "Program : KESTREL-9",
    "Graphic : LUMEN",
    "Music   : NOCTURNE",
    "",
    "",
    "Thank you TestPlayers",
    "",
    "     ARGO",
    "     ホタル",
    "     PIKE",
    "     SABLE",
    "     ツバメ",
    "     DRIFTER",
    "     MOTH",
    "     星雲",
    "     QUILL",
    "     ORRERY",
    "     カゲロウ",
    "     TINDER",
    "     VESPER",
    "     夜空隊",
    "     ",
    "Thank you ALL Players",
};
constexpr Byte kLines = kCredits.size();
static_assert(kLines == 25);

constexpr Long kFirstCount = -80;     // so that the first line comes after 110 frames
constexpr Long kLineInterval = 30;    // frames
constexpr Long kLogoCount = 200;      // frames after the last line
constexpr Long kKeysCount = 500;      // Space and Esc are accepted
constexpr Long kStopCount = 510;      // the roll stands still
constexpr Long kOpeningPause = 2000;  // ms
constexpr int kCanvasWidth = 320;
constexpr int kCanvasHeight = 700;
constexpr int kScrolledHeight = 540;
constexpr At kLinePlace = {40, 490};  // on the canvas, just below the part that is shown
constexpr At kLogoPlace = {0, 490};
constexpr int kLogoWidth = 192;
constexpr int kLogoHeight = 50;
constexpr int kShownWidth = 240;  // from canvas x 0; on the screen from x 120
constexpr int kShownLeft = 120;

void SetUpEnding() {
    SetPicture(MainForm.B_Crt, LoadResPicture(kBackgroundBitmap));
    Resize(MainForm.EndingPic, kCanvasWidth, kCanvasHeight);
    game.StarReverse = False;
    OpenMidi("End.mid");
    PlayMidi(False);
    WaitMs(kOpeningPause);
}

// The logo's count is never reached before the last line: until then each line sets the count back at 30.
void DrawCanvas(Long& frameCount, Byte& lineNo) {
    Surface& canvas = MainForm.EndingPic;
    if (frameCount >= kLineInterval && lineNo < kLines) {
        PrintText(canvas, kLinePlace.x, kLinePlace.y, kCredits[lineNo]);
        frameCount = 0;
        ++lineNo;
    }
    if (frameCount == kLogoCount) {
        BitBlt(canvas, kLogoPlace.x, kLogoPlace.y, kLogoWidth, kLogoHeight, MainForm.LogoPic, 0, 0, SRCCOPY);
    }
    if (frameCount > kStopCount) {
        --frameCount;
    } else {
        BitBlt(canvas, 0, 0, kCanvasWidth, kScrolledHeight, canvas, 0, 1, SRCCOPY);
    }
}

bool KeyEndsRoll(Long frameCount) {
    const bool escape = KeyPressed(VK_ESCAPE), space = KeyPressed(VK_SPACE);
    return gameAsked || (frameCount >= kKeysCount && (escape || space));
}

void CleanUpEnding() {
    constexpr int kEmpty = 16;
    StopMidi();
    game.QuitGame = True;
    Resize(MainForm.EndingPic, kEmpty, kEmpty);
    RemovePicture(MainForm.EndingPic);
}

}  // namespace

void Ending() {
    SetUpEnding();
    Byte lineNo = 0;
    for (Long frameCount = kFirstCount;;) {
        game.FrameStart = ClockNow();
        ++frameCount;
        DrawCanvas(frameCount, lineNo);
        ScrollBackground();
        MoveStars();
        BitBlt(MainForm.Crt, kShownLeft, 0, kShownWidth, game.ScreenH, MainForm.EndingPic, 0, 0, SRCCOPY);
        ShowNow(MainForm.Crt);
        DoEvents();
        if (KeyEndsRoll(frameCount)) break;
        DiscardKey(VK_ESCAPE);  // only a key that is held, or pressed within one frame, ends the roll
        DiscardKey(VK_SPACE);
        PaceFrame();
    }
    CleanUpEnding();
}
