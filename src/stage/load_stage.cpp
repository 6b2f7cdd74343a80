#include "stage/load_stage.h"

#include <cmath>

#include "host/window.h"
#include "platform/music.h"
#include "stage/data_files.h"
#include "stage/faults.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"
#include "state/state.h"
#include "toolkit/folder.h"
#include "toolkit/resources.h"

namespace {

constexpr int kEmptiedSize = 16;
constexpr int kStageStarSpeeds = 11;   // 6..16
constexpr int kAttackStarSpeeds = 19;  // 6..24

void LoadPictures() {
    SetPicture(MainForm.B_Crt, LoadResPicture(kBackgroundBitmap));
    SetPicture(MainForm.MessagePic, LoadResPicture(kMessageBitmap));
    SetPicture(MainForm.EnemyPic, LoadResPicture(kEnemyBitmap));
    SetPicture(MainForm.BomPic128, LoadResPicture(kBomBitmap));
    Resize(MainForm.BossPic, kEmptiedSize, kEmptiedSize);
    RemovePicture(MainForm.BossPic);
    SetBackColor(MainForm.MyPowerPic, kBlue);
}

// A missing sound file is created empty; its buffer is then one zero byte, which plays as silence.
void LoadWave(std::string_view name, std::vector<Byte>& wave) {
    FileBytes file = ReadFolderFile(name);
    if (file.error == FileError::missing) {
        LogLine(std::string(name.substr(1)) + ": missing, an empty one is put in its place");
        static_cast<void>(WriteFolderFile(name, {}));
    } else if (file.error != FileError::none) {
        LogLine(std::string(name.substr(1)) + ": cannot be read: " + file.reason);
    }
    wave = std::move(file.bytes);
    wave.push_back(0);
}

void BuildMyShipChr() {
    constexpr int kFrameHeight = 64;
    for (int i = 0; i < kShipFrames; ++i) {
        game.MyShipChr[i][0] = 0;
        game.MyShipChr[i][1] = static_cast<Integer>(kFrameHeight * i);
    }
}

// The last one that is checked wins.
void ReadDifficulty() {
    for (const auto& [level, item, best] : kDifficulties) {
        if ((MainForm.*item).Checked) game.Level = level;
    }
}

void ResetShip() {
    CentreShip();
    game.MySpeed = 10;
    game.MyPower = 10.0F;
    game.MyDead = False;
    game.MyMaxX = static_cast<Integer>(MainForm.Crt.Width - 68);
    game.MyMaxY = static_cast<Integer>(MainForm.Crt.Height - 58);
}

void ResetPlay() {
    game.StageNo = 0;
    game.MessageCount = 0;
    game.ScrollSpeed = 2;
    game.GameOver = 0;
    game.StageClear = 0;
    game.StarMax = kStarSlots - 1;
    game.EnemyMax = 30;
    game.StageIndex = 0;
    game.StageTimer = 0;
    game.EneShotMax = 40;
    for (int i = 0; i <= game.EnemyMax; ++i) game.Enemy[i].State = 0;
    for (int i = 0; i <= game.EneShotMax; ++i) game.EneShot[i].Used = 0;
}

// Eight directions of length 12, one per eighth of the circle, but in steps of 225 degrees: authors know the order by
// which shots a ring loses when slots run out. The angle is a Single, so the axis entries carry tiny residues.
void BuildShotDir() {
    for (int i = 0; i < kShotDirections; ++i) {
        const auto a = static_cast<Single>(i * 45 * 3.141592654 / 180);
        const double x = 50 * std::cos(45.0 * a);
        const double y = 50 * std::sin(45.0 * a);
        const double length = std::sqrt(x * x + y * y);
        game.ShotDir[i] = {static_cast<Single>(12 * x / length), static_cast<Single>(12 * y / length)};
    }
}

void BuildStars(int speeds) {
    for (int i = 0; i <= game.StarMax; ++i) {
        game.Star[i].X = static_cast<Integer>(RndInt(321));
        game.Star[i].Y = static_cast<Integer>(RndInt(481));
        game.Star[i].Speed = static_cast<Integer>(RndInt(speeds, 6));
    }
}

void StartPlay(const Play& play) {
    EnterStage(play);
    game.StageNo = play.stageNo;
    if (play.stageNo != kScoreAttackStage) return;
    game.Level = kNomal;  // whatever is chosen
    BuildStars(kAttackStarSpeeds);
}

}  // namespace

void CentreShip() {
    game.MyX = static_cast<Integer>(std::floor((MainForm.Crt.Width - 64) / 2.0));
    game.MyY = static_cast<Integer>(MainForm.Crt.Height - 58);
}

void StartShipAnew() {
    SetBackColor(MainForm.MyPowerPic, kBlue);
    Cls(MainForm.MyPowerPic);
    CentreShip();
    game.MyPower = 10.0F;
}

void EnterStage(const Play& play) {
    if (play.background) {
        SetPicture(MainForm.B_Crt, LoadResPicture(kBackgroundBitmap));
    } else {
        RemovePicture(MainForm.B_Crt);
    }
    EndOnError(ReadStageData(play.file));
    if (tableRead) tableRead(play);
    OpenMidi(play.music);
    PlayMidi(True);
}

void LoadStage() {
    ForgetFaults();
    LoadPictures();
    LoadWave("\\Wave1.wav", game.Wave1Data);
    LoadWave("\\Wave2.wav", game.Wave2Data);
    BuildMyShipChr();
    game.Score = 0;
    ReadDifficulty();
    ResetShip();
    ResetPlay();
    BuildShotDir();
    BuildStars(kStageStarSpeeds);
    EndOnError(ReadEnemyData());
    EndOnError(ReadEneMove());
    if (const Play* play = FindPlay(game.DigestMode)) StartPlay(*play);
}
