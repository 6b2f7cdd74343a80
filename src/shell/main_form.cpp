#include "shell/main_form.h"

#include "editors/editor1.h"
#include "editors/enemy_data_edit.h"
#include "editors/enemy_move_edit.h"
#include "host/window.h"
#include "platform/joystick_input.h"
#include "platform/music.h"
#include "platform/resources.h"
#include "platform/text.h"
#include "shell/state.h"

namespace {

constexpr const char* kCaption = "ＴＡＲＮＶＥＩＬ　Ｖｅｒｓｉｏｎ１．０";
constexpr const char* kMessageCaption = "Tarnveil";

void Toggle(MenuItem& item) {
    item.Checked = !item.Checked;
}

void ChooseLevel(const MenuItem& chosen, Integer level) {
    for (MenuItem* item : {&MainForm.MENU101, &MainForm.MENU102, &MainForm.MENU103}) item->Checked = item == &chosen;
    game.Level = level;
}

void ChooseDigest(const MenuItem& chosen, Byte mode) {
    for (MenuItem* item : {&MainForm.Menu401, &MainForm.Menu402, &MainForm.Menu403, &MainForm.Menu404}) {
        item->Checked = item == &chosen;
    }
    game.DigestMode = mode;
}

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
    game.Level = 2;
    game.DigestMode = 0;
    MainForm.Centred = true;
}

void Form_Unload() {
    CloseMidi();
    throw EndProgram{};
}

void LoadMainForm() {
    DesignSurfaces();
    Form_Load();
}

void Menu002_Click() {
    Toggle(MainForm.Menu002);
}
void Menu003_Click() {
    Toggle(MainForm.Menu003);
}
void Menu004_Click() {
    Toggle(MainForm.Menu004);
}

void Menu006_Click() {
    Toggle(MainForm.Menu006);
    if (MainForm.Menu006.Checked) {
        PlayMidi(False);
    } else {
        StopMidi();
    }
}

void Menu008_Click() {
    if (MainForm.Menu008.Checked) {
        MainForm.Menu008.Checked = false;
        game.JoyUse = False;
        return;
    }
    InitJoystick();
    MainForm.Menu008.Checked = game.JoyUse != False;
    if (game.JoyUse == False) MsgBox("ジョイスティックを検出出来ませんでした", kMessageCaption);
}

void MENU101_Click() {
    ChooseLevel(MainForm.MENU101, 1);
}
void MENU102_Click() {
    ChooseLevel(MainForm.MENU102, 2);
}
void MENU103_Click() {
    ChooseLevel(MainForm.MENU103, 5);
}

void Menu401_Click() {
    ChooseDigest(MainForm.Menu401, 0);
}
void Menu402_Click() {
    ChooseDigest(MainForm.Menu402, 2);
}
void Menu403_Click() {
    ChooseDigest(MainForm.Menu403, 3);
}
void Menu404_Click() {
    ChooseDigest(MainForm.Menu404, 4);
}

void Menu201_Click() {
    OpenForm(Editor1);
}
void Menu202_Click() {
    OpenForm(EnemyDataEdit);
}
void Menu203_Click() {
    OpenForm(EnemyMoveEdit);
}

void Menu301_Click() {
    game.QuitGame = True;
}

void Menu303_Click() {
    StopMidi();
    CloseMidi();
    throw EndProgram{};
}

MenuItem* FindMenuItem(std::string_view name) {
    for (auto member : kMenuBar) {
        if (name == (MainForm.*member).Name) return &(MainForm.*member);
    }
    return nullptr;
}

MenuItem* PopupOf(const MenuItem& item) {
    MenuItem* popup = nullptr;
    for (auto member : kMenuBar) {
        MenuItem& candidate = MainForm.*member;
        if (&candidate == &item) return item.IsPopup ? nullptr : popup;
        if (candidate.IsPopup) popup = &candidate;
    }
    return nullptr;
}

bool ClickMenu(MenuItem& item) {
    const MenuItem* popup = PopupOf(item);
    if (!item.Click || !item.Enabled || (popup && !popup->Enabled)) return false;
    item.Click();
    return true;
}

void EnableAuthorMenus() {
    MainForm.Menu003.Enabled = true;
    MainForm.Menu200.Enabled = true;
}
