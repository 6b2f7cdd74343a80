// The plays: what the "DIGEST" menu can start. Each begins with a stage of its own; the normal game goes on through the
// stages that follow by number, any other play ends with its stage. A row holds all that is known of a play and its
// stage, and whoever needs to know loops over the table: menus, loading, stage changes, best scores, recordings, tools.
#pragma once

#include <string_view>

#include "state/bitmaps.h"
#include "state/main_form.h"
#include "state/state.h"

// The best score of a play: that of the difficulty in force, or one of its own, or none.
struct BestScore {
    bool ofDifficulty = false;
    Long ScoresType::*own = nullptr;
};

struct Play {
    Byte number;                   // DigestMode; stands in recordings, so it stays this play's for good
    MenuItem MainFormType::*item;  // of the "DIGEST" menu
    Integer stageNo;               // StageNo: 1 and up, each has a digit for its banner; or kScoreAttackStage
    std::string_view file;         // its appearance table
    const char* name;              // of its Lua source, without ".lua"; the tools call the play so
    const char* music;             // of the stage
    bool background;               // else plain black
    const char* bossMusic;         // from the boss entry command on
    int bossBitmap;                // the same; 0: the picture stays as it is
    BestScore best;
};

inline constexpr Byte kNormalPlay = 0;

// clang-format off
inline constexpr Play kPlays[] = {
    // number     item                    stage              table            name
    //                music         sky    boss music    its picture        best score
    {kNormalPlay, &MainFormType::Menu401, 1,                 "\\STAGE1.DAT", "stage1",
                      "Stage1.mid", true,  "boss.mid",   kFirstBossBitmap,  {.ofDifficulty = true}},
    {2,           &MainFormType::Menu402, 2,                 "\\STAGE2.DAT", "stage2",
                      "Stage2.Mid", false, "boss.mid",   kSecondBossBitmap, {}},
    {3,           &MainFormType::Menu403, 3,                 "\\STAGE3.DAT", "stage3",
                      "Stage3.Mid", true,  "boss02.mid", kFirstBossBitmap,  {}},
    {4,           &MainFormType::Menu404, kScoreAttackStage, "\\Attack.DAT", "attack",
                      "Atacck.Mid", false, "boss.mid",   0,                 {.own = &ScoresType::ScoreAttack}},
};
// clang-format on

// The play of that number, or null.
const Play* FindPlay(int number);

// The play whose stage has that number, or null.
const Play* FindStage(int stageNo);

// The play to whose stage the normal game goes on from this one's, or null.
const Play* NextStage(const Play& play);

// Whether the normal game comes to this stage from another one.
bool FollowsAnother(const Play& play);
