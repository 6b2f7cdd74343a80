// The appearance-table editor: browses and changes game.StageData, the table that the game plays back. Opening it reads
// no file. What "変更" stores is in effect at once; the file is the one of the play-start choice, never of the stage
// being played: with stage 2's table in memory and the choice 0, "保存" writes that table into "STAGE1.DAT".
#pragma once

#include "toolkit/forms.h"

extern Form Editor1;

namespace editor1 {

inline int openAt = 0;  // the entry that an opening shows

void Form_Load();
void HScroll1_Change();  // drops what was typed and not stored
void Form_Enter();       // as 変更, then to the next field
void Command3_Click();   // 変更: stores the entry shown; the fields keep what was typed
void Command1_Click();   // 読み込み
void Command2_Click();   // 保存

}  // namespace editor1
