#include "shell/menus.h"

#include <cstddef>

#include "editors/editor1.h"
#include "editors/enemy_data_edit.h"
#include "editors/enemy_move_edit.h"
#include "host/window.h"
#include "platform/joystick_input.h"
#include "platform/music.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"

namespace {

constexpr const char* kMessageCaption = "Tarnveil";

void Toggle(MenuItem& item) {
    item.Checked = !item.Checked;
}

// Checks the chosen row's item, unchecks those of the others, and stores the row's value.
template <typename Row, std::size_t count, typename Value>
void Choose(const Row (&rows)[count], const MenuItem& chosen, Value Row::*value, Value& variable) {
    for (const Row& row : rows) {
        MenuItem& item = MainForm.*row.item;
        item.Checked = &item == &chosen;
        if (item.Checked) variable = row.*value;
    }
}
void ChooseDifficulty(const MenuItem& chosen) {
    Choose(kDifficulties, chosen, &Difficulty::level, game.Level);
}
void ChoosePlay(const MenuItem& chosen) {
    Choose(kPlays, chosen, &Play::number, game.DigestMode);
}

}  // namespace

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
    ChooseDifficulty(MainForm.MENU101);
}
void MENU102_Click() {
    ChooseDifficulty(MainForm.MENU102);
}
void MENU103_Click() {
    ChooseDifficulty(MainForm.MENU103);
}

void Menu401_Click() {
    ChoosePlay(MainForm.Menu401);
}
void Menu402_Click() {
    ChoosePlay(MainForm.Menu402);
}
void Menu403_Click() {
    ChoosePlay(MainForm.Menu403);
}
void Menu404_Click() {
    ChoosePlay(MainForm.Menu404);
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

void ConnectMenus() {
    constexpr struct {
        MenuItem MainFormType::*item;
        Handler click;
    } kHandlers[] = {
        {&MainFormType::Menu301, Menu301_Click}, {&MainFormType::Menu303, Menu303_Click},
        {&MainFormType::Menu002, Menu002_Click}, {&MainFormType::Menu003, Menu003_Click},
        {&MainFormType::Menu004, Menu004_Click}, {&MainFormType::Menu006, Menu006_Click},
        {&MainFormType::Menu008, Menu008_Click}, {&MainFormType::MENU101, MENU101_Click},
        {&MainFormType::MENU102, MENU102_Click}, {&MainFormType::MENU103, MENU103_Click},
        {&MainFormType::Menu401, Menu401_Click}, {&MainFormType::Menu402, Menu402_Click},
        {&MainFormType::Menu403, Menu403_Click}, {&MainFormType::Menu404, Menu404_Click},
        {&MainFormType::Menu201, Menu201_Click}, {&MainFormType::Menu202, Menu202_Click},
        {&MainFormType::Menu203, Menu203_Click},
    };
    for (const auto& [item, click] : kHandlers) (MainForm.*item).Click = click;
}
