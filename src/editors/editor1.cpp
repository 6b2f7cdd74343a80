#include "editors/editor1.h"

#include "editors/controls.h"
#include "editors/fields.h"
#include "editors/tips.h"
#include "stage/data_files.h"
#include "state/state.h"

namespace editor1 {

namespace {

constexpr Field<StageDataType> kFields[] = {
    {"Text1", "Label3", &StageDataType::X, tips::kEntryX},
    {"Text2", "Label4", &StageDataType::Y, tips::kEntryY},
    {"Text3", "Label5", &StageDataType::No, tips::kEntryNo},
    {"Text4", "Label6", &StageDataType::Counter, tips::kEntryCounter},
    {"Text5", "Label7", &StageDataType::Power, tips::kEntryPower},
};

// clang-format off
std::vector<Control> Design() {
    using namespace controls;
    return {
        //         name        caption     left  top width height   tab
        Label(    "Label1",   "Ｎｏ",      {  8,   8,  25,  17},  0),
        Label(    "Label2",   "0",         { 32,   8,  49,  17},  1),
        TextField("Text1",                 { 24,  32,  41,  25},  2),
        TextField("Text2",                 { 88,  32,  41,  25},  3),
        Label(    "Label3",   "X",         {  8,  40,  17,  17},  4),
        Label(    "Label4",   "Y",         { 72,  40,  17,  17},  5),
        TextField("Text3",                 {152,  32,  41,  25},  6),
        Label(    "Label5",   "No",        {136,  40,  25,  17},  7),
        HScroll(  "HScroll1", kStageEntries - 1, {  8, 128, 193,  17},  8, HScroll1_Change),
        Button(   "Command1", "読み込み",  {  8, 192,  65,  25},  9, Command1_Click),
        Button(   "Command2", "保存",      { 80, 192,  65,  25}, 10, Command2_Click),
        Button(   "Command3", "変更",      {  8, 152, 193,  25}, 11, Command3_Click),
        TextField("Text4",                 { 88,  64, 105,  25}, 12),
        Label(    "Label6",   "Counter",   { 40,  72,  49,  17}, 13),
        TextField("Text5",                 { 88,  96, 105,  25}, 14),
        Label(    "Label7",   "Power",     { 40, 104,  41,  17}, 15),
        Line(     "Line1",                 {  8, 184, 192,   0}),
    };
}
// clang-format on

StageDataType& EntryShown() {
    return game.StageData[Editor1["HScroll1"].Value];
}

void ShowEntry() {
    Editor1["Label2"].Caption = TextOf(Editor1["HScroll1"].Value);
    ShowFields(Editor1, kFields, EntryShown());
}

// False when a field was refused.
bool Store() {
    const auto entry = ReadFields(Editor1, kFields);
    if (entry) EntryShown() = *entry;
    return entry.has_value();
}

}  // namespace

void Form_Load() {
    Editor1.Centred = true;
    Editor1["HScroll1"].Value = openAt;
    SetTips(Editor1, kFields);
    ShowEntry();
}

void HScroll1_Change() {
    ShowEntry();
}

void Command3_Click() {
    static_cast<void>(Store());
}

void Form_Enter() {
    if (Store()) GoOn(Editor1, kFields, "HScroll1");
}

void Command1_Click() {
    Report(Editor1, ReadStageData(StageFileOf(game.DigestMode)));
    ShowEntry();
}

void Command2_Click() {
    Report(Editor1, WriteStageData(StageFileOf(game.DigestMode)));
}

}  // namespace editor1

Form Editor1{
    .Name = "Editor1",
    .Caption = "敵出現テーブルエディタ",
    .ClientWidth = 210,
    .ClientHeight = 219,
    .Load = editor1::Form_Load,
    .Design = editor1::Design,
    .Enter = editor1::Form_Enter,
};
