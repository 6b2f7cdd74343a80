#include "editors/enemy_move_edit.h"

#include <cassert>
#include <string>

#include "editors/controls.h"
#include "editors/fields.h"
#include "editors/tips.h"
#include "stage/data_files.h"

namespace enemy_move_edit {

namespace {

constexpr Field<EneMoveType> kFields[] = {
    {"Text1", "Label5", &EneMoveType::DX, tips::kStepDX},
    {"Text2", "Label6", &EneMoveType::DY, tips::kStepDY},
    {"Text3", "Label7", &EneMoveType::Anime, tips::kStepAnime},
    {"Text4", "Label8", &EneMoveType::Flag, tips::kStepFlag},
};

// clang-format off
std::vector<Control> Design() {
    using namespace controls;
    return {
        //         name        caption           left  top width height   tab
        VScroll(  "VScroll1", kMovePatterns - 1, { 64,   0,  17, 177},  0, VScroll1_Change),
        Label(    "Label1",   "No",              {  0,   8,  25,  17},  1),
        Label(    "Label2",   "0",               { 24,   8,  25,  17},  2),
        Button(   "Command1", "Copy",            {  0,  32,  57,  25},  3, Command1_Click),
        Button(   "Command2", "Past",            {  0,  56,  57,  25},  4, Command2_Click),
        Label(    "Label3",   "No",              { 88,   8,  33,  17},  5),
        Label(    "Label4",   "0",               {112,   8,  49,  17},  6),
        TextField("Text1",                       {144,  32,  57,  25},  7),
        TextField("Text2",                       {144,  64,  57,  25},  8),
        TextField("Text3",                       {264,  32,  57,  25},  9),
        TextField("Text4",                       {264,  64,  57,  25}, 10),
        HScroll(  "HScroll1", kMoveSteps - 1,    { 88, 208, 337,  17}, 11, HScroll1_Change),
        Button(   "Command3", "保存",            {144, 232,  73,  25}, 12, Command3_Click),
        Button(   "Command4", "読み込み",        { 64, 232,  73,  25}, 13, Command4_Click),
        Label(    "Label5",   "X増加量",         { 96,  40,  49,  17}, 14),
        Label(    "Label6",   "Y増加量",         { 96,  72,  49,  17}, 15),
        Label(    "Label7",   "ｱﾆﾒﾌﾚｰﾑ",         {208,  40,  57,  17}, 16),
        Label(    "Label8",   "ﾌﾗｸﾞ",            {216,  72,  49,  17}, 17),
        Button(   "Command5", "Copy",            {352,  32,  73,  17}, 18, Command5_Click),
        Button(   "Command6", "Past",            {352,  48,  73,  17}, 19, Command6_Click),
        Label(    "Label9",   "相対位置Ｘ：",    {192,   8,  65,  17}, 20),
        Label(    "Label10",  "相対位置Ｙ：",    {304,   8,  73,  17}, 21),
        Label(    "Label11",  "000",             {264,   8,  25,  17}, 22),
        Label(    "Label12",  "000",             {376,   8,  25,  17}, 23),
        Button(   "Command7", "Past && Inc",     {352,  72,  73,  17}, 24, Command7_Click),
        Frame(    "Frame1",   "特殊編集",        { 88,  96, 337, 105}, 25),
        // The range copy and its two fields never got an action.
        In("Frame1", Button("Command8", "現在データを範囲ｺﾋﾟｰ", {8, 40, 137, 25}, 26, nullptr)),
        In("Frame1", TextField("Text5",                  {  8,  16,  65,  18}, 27)),
        In("Frame1", TextField("Text6",                  {112,  16,  57,  18}, 28)),
        In("Frame1", Label(    "Label13",  "から",       { 80,  16,  33,  17}, 29)),
        In("Frame1", Label(    "Label14",  "まで",       {176,  16,  33,  17}, 30)),
        In("Frame1", Button(   "Command9", "ｱﾆﾒｰｼｮﾝｾｯﾄ", {  8,  72,  89,  25}, 31, Command9_Click)),
        In("Frame1", TextField("Text7",                  {160,  72,  33,  25}, 32)),
        In("Frame1", Label(    "Label15",  "最高ﾌﾚｰﾑ",   {104,  80,  89,  17}, 33)),
        In("Frame1", TextField("Text8",                  {264,  72,  33,  25}, 34)),
        In("Frame1", Label(    "Label16",  "1ﾌﾚｰﾑ時間",  {200,  80,  65,  17}, 35)),
    };
}
// clang-format on

int PatternChosen() {
    return EnemyMoveEdit["VScroll1"].Value;
}
int StepChosen() {
    return EnemyMoveEdit["HScroll1"].Value;
}

void NameStepUnderEdit() {
    EnemyMoveEdit["Label2"].Caption = TextOf(PatternChosen());
    EnemyMoveEdit["Label4"].Caption = TextOf(StepChosen());
}

int WholeCaption(std::string_view label, [[maybe_unused]] int bound) {
    const int number = WholeOf<int>(NumberOf(EnemyMoveEdit[label].Caption).value_or(-1)).value_or(-1);
    assert(number >= 0 && number < bound);  // only scroll values are ever written there
    return number;
}

int PatternUnderEdit() {
    return WholeCaption("Label2", kMovePatterns);
}
int StepUnderEdit() {
    return WholeCaption("Label4", kMoveSteps);
}

// The sum passes through its text after every step, so it keeps 15 digits and no more.
void SumUp(std::string_view label, Single EneMoveType::*increment) {
    std::string& sum = EnemyMoveEdit[label].Caption;
    sum = "0";
    for (int i = 0; i <= StepChosen(); ++i) {
        const auto before = NumberOf(sum);
        if (!before) return;  // an increment that is no number, which a file can hold, stays in sight
        sum = TextOf(*before + static_cast<double>(game.EneMove[PatternChosen()][i].*increment));
    }
}

// After a refused store: back to the step under edit, without another round of Change handlers.
void TakeMoveBack() {
    EnemyMoveEdit["VScroll1"].Value = PatternUnderEdit();
    EnemyMoveEdit["HScroll1"].Value = StepUnderEdit();
}

void Move() {
    if (UpLoad()) {
        Load();
    } else {
        TakeMoveBack();
    }
}

void ReadFile() {
    Report(EnemyMoveEdit, ReadEneMove());
}

}  // namespace

void ShowStep(const EneMoveType& step) {
    ShowFields(EnemyMoveEdit, kFields, step);
}

std::optional<EneMoveType> ReadStep() {
    return ReadFields(EnemyMoveEdit, kFields);
}

void Load() {
    ShowStep(game.EneMove[PatternChosen()][StepChosen()]);
    NameStepUnderEdit();
    SumUp("Label11", &EneMoveType::DX);
    SumUp("Label12", &EneMoveType::DY);
}

bool UpLoad() {
    const auto step = ReadStep();
    if (!step) return false;
    game.EneMove[PatternUnderEdit()][StepUnderEdit()] = *step;
    NameStepUnderEdit();
    return true;
}

void Form_Load() {
    EnemyMoveEdit.Centred = true;
    EnemyMoveEdit["VScroll1"].Value = openAtPattern;
    EnemyMoveEdit["HScroll1"].Value = openAtStep;
    SetTips(EnemyMoveEdit, kFields);
    ReadFile();
    Load();
}

void Form_Enter() {
    if (UpLoad()) GoOn(EnemyMoveEdit, kFields, "HScroll1");
}

void VScroll1_Change() {
    Move();
}
void HScroll1_Change() {
    Move();
}

void Command4_Click() {
    ReadFile();
    Load();
}

void Command3_Click() {
    Report(EnemyMoveEdit, WriteEneMove());
}

}  // namespace enemy_move_edit

Form EnemyMoveEdit{
    .Name = "EnemyMoveEdit",
    .Caption = "EnemyMoveEditor",
    .ClientWidth = 429,
    .ClientHeight = 262,
    .Load = enemy_move_edit::Form_Load,
    .Design = enemy_move_edit::Design,
    .Enter = enemy_move_edit::Form_Enter,
};
