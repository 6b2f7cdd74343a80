#include "editors/enemy_data_edit.h"

#include "editors/controls.h"
#include "editors/fields.h"
#include "editors/tips.h"
#include "stage/data_files.h"
#include "state/state.h"

namespace enemy_data_edit {

namespace {

// The captions "Height" and "Width" stand beside each other's field. Authors are used to it; keep it.
constexpr Field<EnemyDataType> kFields[] = {
    {"Text1(0)", "Label1", &EnemyDataType::SX, tips::kKindSX},
    {"Text1(1)", "Label2", &EnemyDataType::SY, tips::kKindSY},
    {"Text1(2)", "Label3", &EnemyDataType::Width, tips::kKindWidth},    // "Height"
    {"Text1(3)", "Label4", &EnemyDataType::Height, tips::kKindHeight},  // "Width"
    {"Text1(4)", "Label5", &EnemyDataType::BomType, tips::kKindBomType},
    {"Text1(5)", "Label6", &EnemyDataType::Score, tips::kKindScore},
    {"Text1(6)", "Label9", &EnemyDataType::MoveNo, tips::kKindMoveNo},
};

// clang-format off
std::vector<Control> Design() {
    using namespace controls;
    return {
        //          name        caption     left  top width height   tab
        TextField( "Text1(0)",              { 56,  32,  81,  18},  0),
        TextField( "Text1(1)",              { 56,  56,  81,  18},  1),
        TextField( "Text1(2)",              {208,  32,  81,  18},  2),
        TextField( "Text1(3)",              {208,  56,  81,  18},  3),
        TextField( "Text1(4)",              { 56,  88,  81,  18},  4),
        TextField( "Text1(5)",              { 56, 112,  81,  18},  5),
        RightLabel("Label1",   "X",         { 24,  32,  25,  17},  6),
        RightLabel("Label2",   "Y",         { 32,  56,  17,  17},  7),
        RightLabel("Label3",   "Height",    {160,  32,  41,  17},  8),
        RightLabel("Label4",   "Width",     {160,  56,  41,  17},  9),
        RightLabel("Label5",   "BomType",   { -8,  88,  57,  17}, 10), // sticks out; its text does not
        RightLabel("Label6",   "Score",     {  8, 112,  41,  17}, 11),
        HScroll(   "HScroll1", kEnemyKinds - 1, {  8, 144, 297,  17}, 12, HScroll1_Change),
        Label(     "Label7",   "No",        {  8,   8,  49,  17}, 13),
        Button(    "Command1", "変更",      {  8, 168, 297,  25}, 14, Command1_Click),
        Button(    "Command2", "読み込み",  {  8, 200,  65,  25}, 15, Command2_Click),
        Button(    "Command3", "保存",      { 80, 200,  65,  25}, 16, Command3_Click),
        Label(     "Label8",   "0",         { 32,   8,  49,  17}, 17),
        TextField( "Text1(6)",              {208,  88,  81,  18}, 18),
        Label(     "Label9",   "MoveNo",    {160,  88,  81,  17}, 19),
    };
}
// clang-format on

EnemyDataType& KindShown() {
    return game.EnemyData[EnemyDataEdit["HScroll1"].Value];
}

void ShowKindNumber() {
    EnemyDataEdit["Label8"].Caption = TextOf(EnemyDataEdit["HScroll1"].Value);
}

void ReadFile() {
    Report(EnemyDataEdit, ReadEnemyData());
}

}  // namespace

void LoadData() {
    ShowFields(EnemyDataEdit, kFields, KindShown());
    ShowKindNumber();
}

bool UpLoad() {
    const auto kind = ReadFields(EnemyDataEdit, kFields);
    if (!kind) return false;
    KindShown() = *kind;
    ShowKindNumber();
    return true;
}

void Form_Load() {
    EnemyDataEdit.Centred = true;
    EnemyDataEdit["HScroll1"].Value = openAt;
    SetTips(EnemyDataEdit, kFields);
    ReadFile();
    LoadData();
}

void HScroll1_Change() {
    LoadData();
}

void Command1_Click() {
    static_cast<void>(UpLoad());
}

void Form_Enter() {
    if (UpLoad()) GoOn(EnemyDataEdit, kFields, "HScroll1");
}

void Command2_Click() {
    ReadFile();
    LoadData();
}

void Command3_Click() {
    Report(EnemyDataEdit, WriteEnemyData());
    LoadData();
}

}  // namespace enemy_data_edit

Form EnemyDataEdit{
    .Name = "EnemyDataEdit",
    .Caption = "敵データ編集",
    .ClientWidth = 312,
    .ClientHeight = 229,
    .Load = enemy_data_edit::Form_Load,
    .Design = enemy_data_edit::Design,
    .Enter = enemy_data_edit::Form_Enter,
};
