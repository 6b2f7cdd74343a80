// The one main window: its surfaces, its timer, and the menu bar with every option. Options are the check marks of menu
// items, read where they are needed; only the difficulty and the play-start choice are also copied into `game.Level`
// and `game.DigestMode`. Nothing of them is saved.
#pragma once

#include <array>
#include <string>

#include "platform/forms.h"
#include "platform/music.h"
#include "platform/surface.h"

// One click handler per menu item, named after it. All run where a loop yields, between two frames.
void Menu002_Click();
void Menu003_Click();
void Menu004_Click();
void Menu006_Click();
void Menu008_Click();
void MENU101_Click();
void MENU102_Click();
void MENU103_Click();
void Menu401_Click();
void Menu402_Click();
void Menu403_Click();
void Menu404_Click();
void Menu201_Click();
void Menu202_Click();
void Menu203_Click();
void Menu301_Click();
void Menu303_Click();

// Sizes Crt and B_Crt, sets the caption and the start-up options, asks for the middle of the screen.
void Form_Load();

// The window is closed: the music stops and the program ends at once, wherever it is. Throws EndProgram.
void Form_Unload();

// Form_Load and the pictures of the window's design. The window is shown later, by Main.
void LoadMainForm();

struct MainFormType {
    std::string Caption;
    int Width = 0;  // outer size in pixels
    int Height = 0;
    bool Centred = false;

    Surface Crt;    // the game screen: everything is composed here
    Surface B_Crt;  // background or title picture
    Surface Chr;    // ship frames
    Surface MyShotPic;
    Surface EnemyPic;
    Surface EneShotPic;
    Surface BossPic;
    Surface BomPic;
    Surface BomPic64;
    Surface BomPic128;
    Surface MyPowerPic;  // its plain background colour paints the energy gauge
    Surface MessagePic;
    Surface LogoPic;
    Surface EndingPic;  // staff-roll canvas

    Timer Bgm_Check{1000, true, Bgm_Check_Timer};

    //            name       caption                                handler          popup  checked enabled
    MenuItem Menu300{"Menu300", "ｹﾞｰﾑ", nullptr, true};
    MenuItem Menu301{"Menu301", "ﾀｲﾄﾙへ戻る", Menu301_Click};
    MenuItem Menu302{"Menu302", "-"};
    MenuItem Menu303{"Menu303", "Tarnveilの終了", Menu303_Click};
    MenuItem Menu001{"Menu001", "OPTION", nullptr, true};
    MenuItem Menu002{"Menu002", "Wait", Menu002_Click, false, true};
    MenuItem Menu003{"Menu003", "無敵モード", Menu003_Click, false, false, false};
    MenuItem Menu005{"Menu005", "-"};
    MenuItem Menu004{"Menu004", "効果音", Menu004_Click, false, true};
    MenuItem Menu006{"Menu006", "BGM", Menu006_Click, false, true};
    MenuItem Menu007{"Menu007", "-"};
    MenuItem Menu008{"Menu008", "ジョイスティック使用可能", Menu008_Click};
    MenuItem MENU100{"MENU100", "難易度", nullptr, true};
    MenuItem MENU101{"MENU101", "Easy", MENU101_Click};
    MenuItem MENU102{"MENU102", "Nomal", MENU102_Click, false, true};
    MenuItem MENU103{"MENU103", "Hard", MENU103_Click};
    MenuItem Menu400{"Menu400", "DIGEST", nullptr, true};
    MenuItem Menu401{"Menu401", "NoDigestPlay", Menu401_Click, false, true};
    MenuItem Menu402{"Menu402", "Stage2", Menu402_Click};
    MenuItem Menu403{"Menu403", "Stage3", Menu403_Click};
    MenuItem Menu404{"Menu404", "ScoreAttack", Menu404_Click};
    MenuItem Menu200{"Menu200", "Editor", nullptr, true, false, false};
    MenuItem Menu201{"Menu201", "出現エディタ", Menu201_Click};
    MenuItem Menu202{"Menu202", "敵データ", Menu202_Click};
    MenuItem Menu203{"Menu203", "敵移動データ", Menu203_Click};
};

inline MainFormType MainForm;

// The menu bar from left to right and top to bottom.
inline constexpr std::array kMenuBar = {
    &MainFormType::Menu300, &MainFormType::Menu301, &MainFormType::Menu302, &MainFormType::Menu303,
    &MainFormType::Menu001, &MainFormType::Menu002, &MainFormType::Menu003, &MainFormType::Menu005,
    &MainFormType::Menu004, &MainFormType::Menu006, &MainFormType::Menu007, &MainFormType::Menu008,
    &MainFormType::MENU100, &MainFormType::MENU101, &MainFormType::MENU102, &MainFormType::MENU103,
    &MainFormType::Menu400, &MainFormType::Menu401, &MainFormType::Menu402, &MainFormType::Menu403,
    &MainFormType::Menu404, &MainFormType::Menu200, &MainFormType::Menu201, &MainFormType::Menu202,
    &MainFormType::Menu203,
};

// The item of that name, or null.
MenuItem* FindMenuItem(std::string_view name);

// The popup that holds the item, or null for popups themselves.
MenuItem* PopupOf(const MenuItem& item);

// Runs the item's handler as a click does: nothing happens when it or its popup is switched off, or on separators and
// popups. True when the handler ran.
bool ClickMenu(MenuItem& item);

// Makes the author's items available: invincible mode and the editors (--author). Without it they stay switched off.
void EnableAuthorMenus();
