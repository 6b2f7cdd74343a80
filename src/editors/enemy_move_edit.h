// The editor of the movement patterns, game.EneMove. Opening it reads "EneMove.DAT" over the table in memory.
//
// VScroll1 and HScroll1 choose the pattern and the step to show. The captions of Label2 and Label4 name the step under
// edit: the one whose values the fields hold and into which they are stored, although the scroll bars have moved on.
// Every move stores the step that is left, edited or not; closing the window and "読み込み" store nothing.
#pragma once

#include <optional>

#include "state/state.h"
#include "toolkit/forms.h"

extern Form EnemyMoveEdit;

namespace enemy_move_edit {

// For "Past" and the two after "Copy". They outlive the window, so a copy can be pasted after closing and opening it
// again. All zero until the first copy.
inline EneMoveType PatternBuffer[kMoveSteps];
inline EneMoveType StepBuffer;

// Shows the step that the scroll bars choose, makes it the step under edit and sums up the running position.
void Load();

// Stores the fields into the step under edit, then makes the step that the scroll bars choose the step under edit.
// Fields and running position stay as they are. False when a field was refused: nothing has changed then.
bool UpLoad();

void Form_Load();
void Form_Enter();  // stores the fields and goes to the next one
void VScroll1_Change();
void HScroll1_Change();
void Command4_Click();  // 読み込み
void Command3_Click();  // 保存: the table; what is typed is stored only by moving on

// enemy_move_tools.cpp
void Command1_Click();  // Copy, beside the pattern bar: the pattern, from the table
void Command2_Click();  // Past, beside the pattern bar: over what is typed
void Command5_Click();  // Copy, at the right: the step, from the fields
void Command6_Click();  // Past, at the right
void Command7_Click();  // Past & Inc: goes on to the next step, if there is one
void Command9_Click();  // ｱﾆﾒｰｼｮﾝｾｯﾄ: the animation frames of the whole pattern

// The pattern and the step that an opening shows.
inline int openAtPattern = 0;
inline int openAtStep = 0;

// The step as typed, or none when a field was refused.
std::optional<EneMoveType> ReadStep();
void ShowStep(const EneMoveType& step);

}  // namespace enemy_move_edit
