#include "shell/window_design.h"

#include "host/window.h"
#include "platform/music.h"
#include "shell/menus.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/state.h"
#include "toolkit/resources.h"
#include "toolkit/text.h"

namespace {

constexpr const char* kCaption = "ＴＡＲＮＶＥＩＬ　Ｖｅｒｓｉｏｎ１．０";

// A hidden surface as large as its picture, so that nothing of the picture is cut.
void Design(Surface& surface, Color background, const char* fileName) {
    surface.BackColor = background;
    const Picture& picture = DesignPicture(fileName);
    Resize(surface, picture.width + 2 * kBorder, picture.height + 2 * kBorder);
    SetPicture(surface, picture);
}

void DesignEmpty(Surface& surface, Color background, int width, int height) {
    surface.BackColor = background;
    Resize(surface, width, height);
}

void DesignSurfaces() {
    constexpr int kSmall = 16;  // surfaces that get their picture at run time
    DesignEmpty(MainForm.Crt, kBlack, kSmall, kSmall);
    DesignEmpty(MainForm.B_Crt, kBlack, kSmall, kSmall);
    Design(MainForm.Chr, kBlack, "Chr.bmp");
    Design(MainForm.MyShotPic, kButtonFace, "MyShotPic.gif");
    DesignEmpty(MainForm.EnemyPic, kButtonFace, kSmall, kSmall);
    Design(MainForm.EneShotPic, kButtonFace, "EneShotPic.gif");
    DesignEmpty(MainForm.BossPic, kBlack, kSmall, kSmall);
    Design(MainForm.BomPic, kButtonFace, "BomPic.gif");
    Design(MainForm.BomPic64, kButtonFace, "BomPic64.gif");
    DesignEmpty(MainForm.BomPic128, kBlack, kSmall, kSmall);
    DesignEmpty(MainForm.MyPowerPic, kBlue, 128, 32);  // at least as large as a full gauge, 100 x 6
    DesignEmpty(MainForm.MessagePic, kBlack, kSmall, kSmall);
    Design(MainForm.LogoPic, kButtonFace, "LogoPic.gif");
    DesignEmpty(MainForm.EndingPic, kBlack, kSmall, kSmall);
    MainForm.EndingPic.ForeColor = kBlue;
    MainForm.EndingPic.TextFont = &StaffFont();
    MainForm.Crt.Visible = true;
    MainForm.Crt.ForeColor = RGB(192, 192, 255);
}

}  // namespace

void Form_Load() {
    MainForm.Crt.AutoRedraw = true;
    Resize(MainForm.Crt, game.ScreenW + 2 * kBorder, game.ScreenH + 2 * kBorder);
    Resize(MainForm.B_Crt, MainForm.Crt.Width, MainForm.Crt.Height);
    MainForm.Caption = kCaption;
    MainForm.Width = MainForm.Crt.Width + 6;
    MainForm.Height = MainForm.Crt.Height + 24 + 20;
    game.Level = kNomal;
    game.DigestMode = kNormalPlay;
    MainForm.Centred = true;
}

void Form_Unload() {
    CloseMidi();
    throw EndProgram{};
}

void LoadMainForm() {
    DesignSurfaces();
    ConnectMenus();
    MainForm.Bgm_Check.Event = Bgm_Check_Timer;
    MainForm.Unload = Form_Unload;
    Form_Load();
}
