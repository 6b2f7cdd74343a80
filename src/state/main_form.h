// The one main window: its surfaces, its timer, and the menu bar with every option. Options are the check marks of menu
// items, read where they are needed; only the difficulty and the play-start choice are also copied into `game.Level`
// and `game.DigestMode`. Nothing of them is saved. What an item, the timer or closing the window does is filled in by
// LoadMainForm, which knows the routines; until then a click does nothing.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "toolkit/forms.h"
#include "toolkit/surface.h"

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

    Timer Bgm_Check{1000, true};  // ms
    Handler Unload = nullptr;     // the window is closed

    MenuItem Menu300{.Name = "Menu300", .Caption = "ｹﾞｰﾑ", .IsPopup = true};
    MenuItem Menu301{.Name = "Menu301", .Caption = "ﾀｲﾄﾙへ戻る"};  // back to the title
    MenuItem Menu302{.Name = "Menu302", .Caption = "-"};
    MenuItem Menu303{.Name = "Menu303", .Caption = "Tarnveilの終了"};  // quit
    MenuItem Menu001{.Name = "Menu001", .Caption = "OPTION", .IsPopup = true};
    MenuItem Menu002{.Name = "Menu002",
                     .Caption = "Wait",
                     .Checked = true};  // frames paced to 39 ms; off: as fast as the machine plays
    MenuItem Menu003{.Name = "Menu003", .Caption = "無敵モード", .Enabled = false};  // invincible; for authors
    MenuItem Menu005{.Name = "Menu005", .Caption = "-"};
    MenuItem Menu004{.Name = "Menu004", .Caption = "効果音", .Checked = true};  // effects
    MenuItem Menu006{.Name = "Menu006", .Caption = "BGM", .Checked = true};     // music
    MenuItem Menu007{.Name = "Menu007", .Caption = "-"};
    MenuItem Menu008{.Name = "Menu008", .Caption = "ジョイスティック使用可能"};  // joystick in use
    MenuItem MENU100{.Name = "MENU100", .Caption = "難易度", .IsPopup = true};   // difficulty
    MenuItem MENU101{.Name = "MENU101", .Caption = "Easy"};
    MenuItem MENU102{.Name = "MENU102", .Caption = "Nomal", .Checked = true};  // "Nomal" is how it is spelt
    MenuItem MENU103{.Name = "MENU103", .Caption = "Hard"};
    MenuItem Menu400{.Name = "Menu400", .Caption = "DIGEST", .IsPopup = true};        // which play Space starts
    MenuItem Menu401{.Name = "Menu401", .Caption = "NoDigestPlay", .Checked = true};  // the normal game, from stage 1
    MenuItem Menu402{.Name = "Menu402", .Caption = "Stage2"};
    MenuItem Menu403{.Name = "Menu403", .Caption = "Stage3"};
    MenuItem Menu404{.Name = "Menu404", .Caption = "ScoreAttack"};
    MenuItem Menu200{.Name = "Menu200", .Caption = "Editor", .IsPopup = true, .Enabled = false};  // for authors
    MenuItem Menu201{.Name = "Menu201", .Caption = "出現エディタ"};                               // appearance tables
    MenuItem Menu202{.Name = "Menu202", .Caption = "敵データ"};                                   // enemy kinds
    MenuItem Menu203{.Name = "Menu203", .Caption = "敵移動データ"};                               // movement patterns
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

// Runs the window's timer when it is due. Called at every yield, and by a host while the game stands still, so that the
// music goes on.
void RunTimers();

// Makes the author's items available: invincible mode and the editors (--author). Without it they stay switched off.
void EnableAuthorMenus();
