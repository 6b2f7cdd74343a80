// The editor of the enemy kinds, game.EnemyData. Opening it reads "EnemyData.DAT" over the table in memory. What "変更"
// stores is in effect at once; "保存" brings the table to the disk.
#pragma once

#include "toolkit/forms.h"

extern Form EnemyDataEdit;

namespace enemy_data_edit {

inline int openAt = 0;  // the kind that an opening shows

void LoadData();  // shows the kind at the scroll bar's value
bool UpLoad();    // stores the fields into that kind, all of them or, when one is refused, none: false

// All but 変更 end with LoadData and so drop what was typed and not stored.
void Form_Load();
void HScroll1_Change();
void Command1_Click();  // 変更
void Form_Enter();      // as 変更, then to the next field
void Command2_Click();  // 読み込み
void Command3_Click();  // 保存

}  // namespace enemy_data_edit
