// The whole running state of the game: every variable and table that play, the title and the editors share.
// There is exactly one instance, `game`; it exists from program start to program end and starts all zero.
// A test starts with `game = GameState{}`. Everything a routine remembers between frames is in here, so two states can
// be compared and hashed (see digest.h).
#pragma once

#include <cstdint>
#include <vector>

using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;

// Truth values are Integers. A few flags hold 1 instead; their comments say so.
inline constexpr Integer True = -1;
inline constexpr Integer False = 0;

// Table bounds. The loops over Enemy, EneShot and Star do not run to these bounds but to EnemyMax, EneShotMax and
// StarMax, which are data set by LoadStage.
inline constexpr int kStageEntries = 513;  // StageData 0..512
inline constexpr int kEnemyKinds = 50;     // EnemyData 0..49
inline constexpr int kMovePatterns = 50;   // EneMove, first index 0..49
inline constexpr int kMoveSteps = 256;     // EneMove, second index 0..255
inline constexpr int kEnemySlots = 41;     // Enemy 0..40
inline constexpr int kEneShotSlots = 100;  // EneShot 0..99
inline constexpr int kMyShotSlots = 51;    // MyShot 0..50
inline constexpr int kStarSlots = 21;      // Star 0..20
inline constexpr int kTrailPositions = 6;  // EneShot TX, TY 0..5
inline constexpr int kShotDirections = 8;  // ShotDir 0..7
inline constexpr int kShipFrames = 3;      // MyShipChr, first index 0..2
inline constexpr int kJoyButtonMasks = 5;  // JoyButtonMask 0..4

// The enemy kinds that the rules know by number. Kinds up to kLastSheetKind are drawn from EnemyPic, from kFirstBoss up
// to kLastDrawnKind from BossPic with the picture in use, the rest never. Kinds from kFirstBoss on count as bosses.
inline constexpr Byte kLastSheetKind = 36;
inline constexpr Byte kFirstBoss = 37;
inline constexpr Byte kSecondBoss = 38;
inline constexpr Byte kLastBoss = 39;
inline constexpr Byte kLastDrawnKind = 40;
static_assert(kFirstBoss == kLastSheetKind + 1 && kLastDrawnKind < kEnemyKinds);

inline constexpr Integer kScoreAttackStage = 0;  // StageNo of the score attack; the stages count from 1

// One entry of an appearance table: an enemy to send in, or a command (stage_script.h lists the commands).
struct StageDataType {
    Single X;         // left edge of the enemy; 700 = a random left edge; repeat: the entry to jump to
    Single Y;         // top edge of the enemy; repeat: the repeats left
    Integer No;       // 0..238 enemy kind, 239..256 command
    Integer Counter;  // frames since the previous entry was taken
    Byte Power;       // hit points; repeat: the count to reload

    bool operator==(const StageDataType&) const = default;
};

// One enemy kind: its picture, its explosion, its script and its worth.
struct EnemyDataType {
    Integer SX;     // first animation frame on the sheet
    Integer SY;     // sprite row on the sheet; the mask row lies Height below
    Integer Width;  // of the sprite; also the step from frame to frame
    Integer Height;
    Byte BomType;  // 0, 1, 2: an explosion of 32, 64, 128 pixels; other: none drawn
    Byte MoveNo;   // movement pattern 0..49
    Byte Score;

    bool operator==(const EnemyDataType&) const = default;
};

// One step of a movement pattern.
struct EneMoveType {
    Single DX;   // x increment; jump and repeat: the target step
    Single DY;   // y increment; repeat: the repeat count
    Byte Anime;  // sprite frame shown on plain move steps
    Byte Flag;   // 0 move; fire codes; 253 jump; 254 repeat; 255 end; else move (enemy_move.h lists them)

    bool operator==(const EneMoveType&) const = default;
};

// One live enemy or one explosion.
struct EnemyType {
    Single X;
    Single Y;
    Byte Kind;
    Single HP;
    Byte Anime;
    Integer State;      // 0 free, 1 alive, 2 exploding
    Integer BomFrame;   // explosion frame 0..6
    Integer Step;       // current step of the movement pattern
    Integer Looping;    // 1 while a repeat step is counting
    Integer LoopCount;  // repeats left

    bool operator==(const EnemyType&) const = default;
};

// One enemy shot.
struct EneShotType {
    Byte Kind;
    Single X;
    Single Y;
    Single TX[kTrailPositions];  // trail, newest first
    Single TY[kTrailPositions];
    Single VX;
    Single VY;
    Byte Used;       // 1 in flight
    Byte Count;      // frames, or contacts with an edge
    Byte Turns;      // re-aims done
    Byte TrailWait;  // frames since the trail moved

    bool operator==(const EneShotType&) const = default;
};

// One player shot: the top-left corner of a 16 x 32 sprite.
struct MyShotType {
    Single X;
    Single Y;
    Single VX;     // added to X each frame
    Single VY;     // subtracted from Y each frame: positive flies up
    Integer Used;  // 1 in flight

    bool operator==(const MyShotType&) const = default;
};

struct StarType {
    Integer X;  // 0..320
    Integer Y;  // 0..480
    Integer Speed;

    bool operator==(const StarType&) const = default;
};

struct ScoresType {
    Long Easy;
    Long Nomal;
    Long Hard;
    Long ScoreAttack;

    bool operator==(const ScoresType&) const = default;
};

struct DirectionType {
    Single X;
    Single Y;

    bool operator==(const DirectionType&) const = default;
};

// The records as they lie in the data files: fields in order, at their natural width, nothing between them.
inline constexpr int kStageDataFileSize = 4 + 4 + 2 + 2 + 1;
inline constexpr int kEnemyDataFileSize = 4 * 2 + 3;
inline constexpr int kEneMoveFileSize = 4 + 4 + 1 + 1;
inline constexpr int kScoresFileSize = 4 * 4;
static_assert(kStageDataFileSize == 13 && kEnemyDataFileSize == 11 && kEneMoveFileSize == 10);
static_assert(sizeof(ScoresType) == kScoresFileSize);
static_assert(sizeof(Single) == 4 && sizeof(Long) == 4 && sizeof(Integer) == 2);

struct GameState {
    // Tables. The first three are also the content of the data files and are edited in place by the editors.
    StageDataType StageData[kStageEntries];
    EnemyDataType EnemyData[kEnemyKinds];
    EneMoveType EneMove[kMovePatterns][kMoveSteps];
    EnemyType Enemy[kEnemySlots];  // slots 21..25 also carry the ship's death explosions
    EneShotType EneShot[kEneShotSlots];
    MyShotType MyShot[kMyShotSlots];
    StarType Star[kStarSlots];
    DirectionType ShotDir[kShotDirections];
    Integer MyShipChr[kShipFrames][2];  // source x, y of each ship frame
    std::vector<Byte> Wave1Data;        // whole wave file and one zero byte
    std::vector<Byte> Wave2Data;
    Integer JoyButtonMask[kJoyButtonMasks];
    ScoresType Scores;

    // Playfield and timing; milliseconds of timeGetTime.
    Integer ScreenW;
    Integer ScreenH;
    Long FrameStart;
    Long FrameEnd;
    Long FrameWork;  // the frame's work, without the wait
    Long FrameTime;  // the whole frame
    Long Fps;
    Long FpsNext;
    Long FpsNow;

    // Modes, options and flow.
    Byte DigestMode;  // the chosen play (stage/plays.h): 0 the normal game
    Integer Level;    // 1 Easy, 2 Nomal, 5 Hard
    Integer QuitGame;
    Integer AllClear;
    Integer BgmLoop;

    Long Score;
    Long HiScore;

    // Stage script.
    Integer StageNo;     // 0 score attack, 1..3
    Integer StageIndex;  // entry the script is waiting on
    Integer StageTimer;  // frames since the last entry was taken
    Integer BossDefeated;
    Integer StageClear;
    Integer GameOver;  // 1 once the destroyed ship has sunk off the screen
    Long MessageCount;

    // Background.
    Integer ScrollY;
    Integer ScrollSpeed;
    Byte StarMax;
    Integer StarReverse;

    // The ship.
    Integer MyX;
    Integer MyY;
    Integer MyMaxX;
    Integer MyMaxY;
    Byte MySpeed;
    Byte MyShipFrame;
    Single MyPower;
    Integer MyDead;
    Integer DeadCount;
    Byte ShotMode;  // 0 forward, 1 spread
    Integer MyShotWait;
    bool ModeKeyFree;  // neither Z nor button 1 was pressed at the last check

    // Enemies.
    Integer EnemyMax;
    Integer EneShotMax;
    Integer BomWait;  // shared by all explosions
    Integer HitSoundWait;

    // Joystick.
    Long JoyId;
    Integer JoyUse;
    Long JoyCenterX;
    Long JoyCenterY;

    std::uint64_t RandomState;  // of Rnd (random.h)

    bool operator==(const GameState&) const = default;
};

inline GameState game;
