#include "stage/stage_script.h"

#include <limits>
#include <string>

#include "host/window.h"
#include "platform/events.h"
#include "platform/music.h"
#include "platform/waits.h"
#include "stage/faults.h"
#include "stage/load_stage.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "state/random.h"
#include "toolkit/resources.h"
#include "toolkit/rounding.h"

namespace {

constexpr Long kStagePause = 1000;    // ms
constexpr double kEnergyBonus = 500;  // points per unit of energy

// What follows a command: the entry StageIndex names is taken, or the script is done for this frame.
enum class Then { takeEntry, leave };

bool InTable(Integer index) {
    return index >= 0 && index < kStageEntries;
}

std::string EntryName(int index) {
    return "appearance table, entry " + std::to_string(index);
}

void ClearStage() {
    if (game.GameOver == 0) {
        OpenMidi("Cleared.Mid");
        PlayMidi(True);
        game.Score = RoundTo<Long>(game.MyPower * kEnergyBonus + game.Score);
        if (game.Score > game.HiScore) game.HiScore = game.Score;
    }
    game.StageClear = True;
    ++game.StageIndex;
}

void EnterNextStage() {
    if (game.DigestMode != kNormalPlay) {
        game.QuitGame = True;
    } else if (const Play* next = FindStage(game.StageNo)) {
        EnterStage(*next);
    } else {
        game.AllClear = True;
    }
}

// Enemies, shots, the shot mode and the score stay as they are across the change. StageTimer is not reset either: the
// new entry 0 is compared with what it has counted so far.
Then NextStage() {
    if (game.GameOver != 0) {
        game.StageTimer = 0;
        return Then::leave;
    }
    game.StageClear = 0;
    game.StageNo = static_cast<Integer>(game.StageNo + 1);
    game.StageIndex = 0;
    game.MessageCount = 0;
    StartShipAnew();
    EnterNextStage();
    Cls(MainForm.Crt);
    ShowNow(MainForm.Crt);
    WaitMs(kStagePause);
    return Then::takeEntry;
}

void WaitForBoss(bool stopMusic) {
    if (game.BossDefeated == False) {
        game.StageTimer = 0;
        return;
    }
    if (stopMusic) StopMidi();
    game.BossDefeated = False;
    ++game.StageIndex;
}

void EnterBoss() {
    const Play* stage = FindStage(game.StageNo);
    if (game.GameOver == 0) {
        OpenMidi(stage ? stage->bossMusic : "boss.mid");
        PlayMidi(True);
    }
    if (stage && stage->bossBitmap != 0) SetPicture(MainForm.BossPic, LoadResPicture(stage->bossBitmap));
    ++game.StageIndex;
    game.StageTimer = 0;
}

// The count lives in the entry's Y and is reloaded from Power when it is used up, so a later pass repeats again.
Then Repeat(StageDataType& entry) {
    if (entry.Y <= 0) {
        entry.Y = entry.Power;
        ++game.StageIndex;
        return Then::leave;
    }
    entry.Y = entry.Y - 1;
    const auto target = RoundTo<Integer>(entry.X);
    if (!InTable(target)) {
        ReportFault(Fault::jumpOutside, EntryName(game.StageIndex));
        ++game.StageIndex;
        return Then::leave;
    }
    game.StageIndex = target;
    return Then::takeEntry;
}

Then PerformCommand(StageDataType& entry) {
    switch (entry.No) {
        case kStageClear:
            ClearStage();
            return Then::leave;
        case kNextStage:
            return NextStage();
        case kBossWaitStop:
            WaitForBoss(true);
            return Then::leave;
        case kBossEntry:
            EnterBoss();
            return Then::leave;
        case kBossWait:
            WaitForBoss(false);
            return Then::leave;
        case kRestart:
            game.StageIndex = 0;
            return Then::takeEntry;
        case kRepeat:
            return Repeat(entry);
        default:
            return Then::takeEntry;
    }
}

// The last boss comes out of a black sky: the background, the enemy sheet and the large explosions go, so everything
// but the boss is invisible from here on, and the stars turn round. The picture of the large explosions comes back with
// the boss's own.
void BringInLastBoss() {
    constexpr int kEmptied = 32;
    for (Surface* sheet : {&MainForm.BomPic128, &MainForm.EnemyPic}) {
        Resize(*sheet, kEmptied, kEmptied);
        RemovePicture(*sheet);
    }
    RemovePicture(MainForm.B_Crt);
    DoEvents();
}

void BringInBoss(EnemyType& enemy, const StageDataType& entry) {
    const auto toughen = [&](int times) { enemy.HP = static_cast<Single>(times * entry.Power); };
    if (enemy.Kind == kFirstBoss) {
        toughen(2);
        SetPicture(MainForm.BossPic, LoadResPicture(kFirstBossBitmap));
    } else if (enemy.Kind == kSecondBoss) {
        toughen(2);
        SetPicture(MainForm.BossPic, LoadResPicture(kSecondBossBitmap));
    } else if (enemy.Kind == kLastBoss) {
        BringInLastBoss();
        toughen(3);
        SetPicture(MainForm.BossPic, LoadResPicture(kLastBossBitmap));
        game.StarReverse = True;
    }
}

// Anime is not set: the enemy shows the frame its slot last held until its first move step.
void Spawn(EnemyType& enemy, const StageDataType& entry) {
    enemy.Kind = static_cast<Byte>(entry.No);
    enemy.State = 1;
    enemy.BomFrame = 0;
    enemy.Step = 0;
    enemy.Looping = 0;
    enemy.LoopCount = 0;
    enemy.Y = entry.Y;
    enemy.X = entry.X == kRandomX ? static_cast<Single>(RndInt(game.ScreenW - 32)) : entry.X;
    enemy.HP = entry.Power;
    BringInBoss(enemy, entry);
}

EnemyType* FirstFreeEnemy() {
    for (int i = 0; i <= game.EnemyMax; ++i) {
        if (game.Enemy[i].State == 0) return &game.Enemy[i];
    }
    return nullptr;
}

// An enemy that finds no free slot is not sent in later either.
void SpawnOrPass(const StageDataType& entry) {
    if (entry.No >= kFirstCommand) return;
    if (entry.No < 0 || entry.No >= kEnemyKinds) {
        ReportFault(Fault::noSuchKind, EntryName(game.StageIndex) + ", No " + std::to_string(entry.No));
        return;
    }
    if (EnemyType* enemy = FirstFreeEnemy()) {
        Spawn(*enemy, entry);
    } else if (stageWatcher.SpawnLost) {
        stageWatcher.SpawnLost(entry);
    }
}

// False while the entry has to wait.
bool TakeEntry() {
    const StageDataType& entry = game.StageData[game.StageIndex];
    if (game.StageTimer < entry.Counter) return false;
    SpawnOrPass(entry);
    ++game.StageIndex;
    game.StageTimer = 0;
    return true;
}

// False when the script is done for this frame.
bool PlayEntry() {
    if (!InTable(game.StageIndex)) {
        ReportFault(Fault::stageIndexOutside, EntryName(game.StageIndex));
        return false;
    }
    return PerformCommand(game.StageData[game.StageIndex]) == Then::takeEntry && TakeEntry();
}

// What the entry would have left behind, were it and all it sent in over.
void PassOver(const StageDataType& entry) {
    if (entry.No == kBossEntry) EnterBoss();
    if (entry.No == kBossWaitStop) StopMidi();
    if (entry.No == kBossWaitStop || entry.No == kBossWait) game.BossDefeated = False;
    if (entry.No < kFirstBoss || entry.No >= kFirstCommand) return;
    EnemyType boss{.Kind = static_cast<Byte>(entry.No)};
    BringInBoss(boss, entry);
    game.BossDefeated = True;
}

}  // namespace

void StageScript() {
    if (game.StageTimer < std::numeric_limits<Integer>::max()) ++game.StageTimer;
    for (int taken = 0; taken < kStageEntries; ++taken) {
        if (!PlayEntry()) return;
    }
    ReportFault(Fault::endlessTable, EntryName(game.StageIndex));
}

void SkipToEntry(int entry) {
    if (entry < 0 || entry >= kStageEntries) entry = 0;
    for (int i = 0; i < entry; ++i) PassOver(game.StageData[i]);
    game.StageIndex = static_cast<Integer>(entry);
    game.StageTimer = 0;
}
